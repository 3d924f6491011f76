#include "views/output/findview.h"

#include "output/findanything.h"
#include "ui_findview.h"
#include "views/common/look.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

FindView::FindView(FindAnything& presenter, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , m_presenter(presenter)
    , m_ui(std::make_unique<Ui::FindView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->lstFound->setModel(&presenter.results());
    m_ui->lstFound->setFocusPolicy(Qt::ClickFocus);
    m_ui->txtFind->installEventFilter(this);
    connect(m_ui->txtFind, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_currentKey = -1;
        m_presenter.search(text);
    });
    connect(&presenter, &FindAnything::changed, this, &FindView::follow);
    connect(m_ui->lstFound, &FindList::opened, this, &FindView::take);
    presenter.search({});
    m_ui->txtFind->setFocus();
}

FindView::~FindView()
{
    m_presenter.stop();
}

void FindView::placeOver(const QWidget& window)
{
    const QSize wanted(std::min(fontMetrics().averageCharWidth() * 100, window.width() * 9 / 10),
                       std::min(fontMetrics().height() * 30, window.height() * 8 / 10));
    resize(wanted);
    const int margin = fontMetrics().height();
    move(window.mapToGlobal(QPoint(window.width() - wanted.width() - margin, margin)));
}

void FindView::setText(const QString& text)
{
    m_ui->txtFind->setText(text);
}

void FindView::follow()
{
    m_ui->lblFound->setText(m_presenter.status());
    // The list is made anew with each piece that arrives: the user stays on the record walked to.
    const FindModel& model = m_presenter.results();
    for (int row = 0; m_currentKey >= 0 && row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        if (index.data(FindModel::KeyRole).toLongLong() == m_currentKey &&
            index.data(FindModel::GroupRole).toInt() == m_currentGroup &&
            index.flags().testFlag(Qt::ItemIsSelectable)) {
            m_ui->lstFound->setCurrentIndex(index);
            return;
        }
    }
    m_ui->lstFound->beginAtFirst();
}

void FindView::take(const QModelIndex& index)
{
    if (!index.isValid() || index.data(FindModel::HeadingRole).toBool())
        return;
    m_taken = index.row();
    m_presenter.stop(); // what is shown stays
    accept();
}

bool FindView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    constexpr int page = 8;
    int step = 0;
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
        step = 1;
        break;
    case Qt::Key_Up:
        step = -1;
        break;
    case Qt::Key_PageDown:
        step = page;
        break;
    case Qt::Key_PageUp:
        step = -page;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        take(m_ui->lstFound->currentIndex());
        return true;
    default:
        return QDialog::eventFilter(watched, event);
    }
    m_ui->lstFound->walk(step);
    const QModelIndex current = m_ui->lstFound->currentIndex();
    m_currentKey = current.data(FindModel::KeyRole).toLongLong();
    m_currentGroup = current.data(FindModel::GroupRole).toInt();
    return true;
}

bool FindView::event(QEvent* event)
{
    // A click beside the box is a click on what lies there.
    if (event->type() == QEvent::WindowDeactivate && isVisible() && m_taken < 0)
        reject();
    return QDialog::event(event);
}

void FindView::paintEvent(QPaintEvent* event)
{
    QDialog::paintEvent(event);
    // Without the desktop's frame the box would run into the window below it.
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
