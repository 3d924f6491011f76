#include "views/planning/goalsview.h"

#include "planning/frmgoals.h"
#include "ui_goalsview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowCount = GoalSet::rowCount;

/// The number behind a control's name, as of txtPercent3; 0 when the name is another.
int rowOf(const QObject& control, const QString& name)
{
    const QString whole = control.objectName();
    return whole.startsWith(name) ? whole.mid(name.size()).toInt() : 0;
}

} // namespace

GoalsView::GoalsView(FrmGoals& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::GoalsView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->cmdRefresh1->setIcon(icons::named(u"view-task"_s));
    m_ui->imgChart->setIcon(icons::named(u"office-chart-bar"_s));
    m_ui->imgSaveUp->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdUpToNow->setIcon(icons::named(u"view-calendar"_s));
    setUpRows();
    resize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 36);
    windowstate::restore(*this, m_layout);
    new FormBinder(presenter.form(), presenter, *this);
    connect(&presenter, &FrmGoals::changed, this, &GoalsView::render);
    connect(m_ui->cmdClose, &QAbstractButton::clicked, this, &QDialog::reject);
    render();
    m_ui->cmbGoal1->setFocus();
}

GoalsView::~GoalsView() = default;

void GoalsView::setUpRows()
{
    for (int row = 1; row <= rowCount; ++row) {
        findChild<QWidget*>(u"txtPercent"_s + QString::number(row))->installEventFilter(this);
        auto* goal = findChild<QComboBox*>(u"cmbGoal"_s + QString::number(row));
        goal->setToolTip(
            tr("\"New Contacts\" counts first histories: a contact is new on the day of the first "
               "entry in its history. Saving a contact alone does not move it."));
    }
}

void GoalsView::render()
{
    setWindowTitle(m_presenter.caption());
    // Tab comes to the chosen option of the group, and the arrow keys go from there.
    const auto options = m_ui->frmeInterval->findChildren<QRadioButton*>();
    for (QRadioButton* option : options)
        option->setFocusPolicy(option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    for (int row = 1; row <= rowCount; ++row) {
        const GoalBar& bar = m_presenter.bar(row);
        const auto control = [this, row](const char* name) {
            return findChild<QWidget*>(QLatin1String(name) + QString::number(row));
        };
        auto* count = static_cast<QLineEdit*>(control("txtPercent"));
        static_cast<GoalTrack*>(control("shpGoal"))->setBar(bar, count->text());
        count->setToolTip(bar.words);
        count->setAccessibleDescription(bar.words);
        control("lblNote")->setToolTip(bar.note);
    }
}

bool GoalsView::eventFilter(QObject* watched, QEvent* event)
{
    const int row = rowOf(*watched, u"txtPercent"_s);
    if (row == 0)
        return QDialog::eventFilter(watched, event);
    const auto isSpace = [event] {
        const auto* key = static_cast<QKeyEvent*>(event);
        return key->key() == Qt::Key_Space && !key->isAutoRepeat();
    };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_presenter.holdPercent(row, true);
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::FocusOut:
        m_presenter.holdPercent(row, false);
        break;
    case QEvent::KeyPress:
        if (isSpace())
            m_presenter.holdPercent(row, true);
        break;
    case QEvent::KeyRelease:
        if (isSpace())
            m_presenter.holdPercent(row, false);
        break;
    default:
        break;
    }
    return QDialog::eventFilter(watched, event);
}

void GoalsView::reject()
{
    if (m_presenter.mayClose())
        QDialog::reject();
}

void GoalsView::done(int result)
{
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
