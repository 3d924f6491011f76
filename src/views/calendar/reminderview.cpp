#include "views/calendar/reminderview.h"

#include "calendar/frmreminder.h"
#include "ui_reminderview.h"
#include "views/calendar/reminderlistview.h"
#include "views/common/formbinder.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr int descriptionColumn = 1;
constexpr int leastWidth = 8; // characters

} // namespace

ReminderView::ReminderView(FrmReminder& presenter, QSettings& layout, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::ReminderView>())
    , m_rows(new UrgencyModel(this))
{
    m_ui->setupUi(this);
    look::dress(*this); // the frame moves the window: imgdragbar is left with being its heading
    resize(fontMetrics().averageCharWidth() * 172, fontMetrics().height() * 18);
    setUpList();
    windowstate::restore(*this, m_layout);
    // Nobody who is typing loses the keyboard to a reminder. It counts from the window's making on, so a user
    // who asks for the window gets the keyboard by a request of its own.
    setAttribute(Qt::WA_ShowWithoutActivating);
    new FormBinder(presenter.form(), presenter, *this);
    m_timer1.setParent(this);
    m_timer1.setObjectName(u"Timer1"_s);
    m_timer1.setInterval(FrmReminder::timer1Interval);
    connect(&m_timer1, &QTimer::timeout, this, &ReminderView::tick);
    connect(&m_presenter, &FrmReminder::changed, this, &ReminderView::follow);
    connect(&m_presenter, &FrmReminder::cameForward, this, &ReminderView::comeForward);
    follow();
}

ReminderView::~ReminderView() = default;

void ReminderView::setUpList()
{
    ReminderListView& list = *m_ui->lvwRemind;
    m_rows->setSourceModel(&m_presenter.lvwRemind());
    list.setModel(m_rows);
    list.header()->setStretchLastSection(false);
    list.header()->setSectionResizeMode(descriptionColumn, QHeaderView::Stretch);
    list.header()->setMinimumSectionSize(fontMetrics().averageCharWidth() * leastWidth);
    const auto keyOf = [this](const QModelIndex& row) -> QString {
        return row.data(RowModel::KeyRole).toString();
    };
    connect(&list, &ReminderListView::chosen, this,
            [this, keyOf](const QModelIndex& row) { m_presenter.select(keyOf(row)); });
    connect(&list, &ReminderListView::opened, this, [this, keyOf](const QModelIndex& row) {
        // Once the mouse is free again: the calendar takes all input until it is closed.
        QMetaObject::invokeMethod(
            this, [this, key = keyOf(row)] { m_presenter.open(key); }, Qt::QueuedConnection);
    });
    connect(m_rows, &QAbstractItemModel::modelReset, this, &ReminderView::followRows);
    connect(m_rows, &QAbstractItemModel::rowsRemoved, this, &ReminderView::followRows);
    connect(m_rows, &QAbstractItemModel::dataChanged, this, &ReminderView::followRows);
    followRows();
}

void ReminderView::followRows()
{
    m_ui->lvwRemind->showSelected(m_presenter.selectedRow());
}

void ReminderView::tick()
{
    // A window that comes up would close the menu in which somebody is just choosing.
    constexpr int patience = 1000; // milliseconds
    if (QApplication::activePopupWidget()) {
        m_timer1.start(patience);
        return;
    }
    m_timer1.setInterval(FrmReminder::timer1Interval);
    m_presenter.tick();
}

void ReminderView::follow()
{
    if (!m_presenter.isVisible())
        hide();
    if (m_presenter.timer1Enabled() != m_timer1.isActive())
        m_presenter.timer1Enabled() ? m_timer1.start() : m_timer1.stop();
}

void ReminderView::comeForward(bool byUser)
{
    // Over the middle of the workbench until the user puts it elsewhere; where that stands, the desktop says
    // only when it is shown.
    if (parentWidget() && !testAttribute(Qt::WA_Moved))
        move(parentWidget()->window()->geometry().center() - rect().center());
    standBy(QApplication::activeModalWidget());
    show();
    m_ui->lvwRemind->spreadColumns();
    raise();
    if (byUser)
        activateWindow();
    else
        QApplication::alert(this);
}

void ReminderView::standBy(QWidget* owner)
{
    if (m_dialog && m_dialog != owner)
        m_dialog->removeEventFilter(this);
    if (owner && m_dialog != owner)
        owner->installEventFilter(this);
    m_dialog = owner;
    winId(); // only a window that the desktop knows can belong to another
    const QWidget* const by = owner ? owner : parentWidget();
    QWindow* const window = by ? by->window()->windowHandle() : nullptr;
    if (windowHandle()->transientParent() == window)
        return;
    // A window learns when it is shown whether it may be used beside a dialog.
    hide();
    // Desktops keep only a window of the dialogs' kind in front of its owner; an ordinary one falls behind at
    // the first click into the dialog. Over the main screen it must not stay in front for ever.
    const Qt::WindowFlags frame = windowHandle()->flags() & ~Qt::WindowType_Mask;
    windowHandle()->setFlags(frame | (owner ? Qt::Dialog : Qt::Window));
    windowHandle()->setTransientParent(window);
    setVisible(m_presenter.isVisible());
}

bool ReminderView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_dialog && event->type() == QEvent::Hide)
        QMetaObject::invokeMethod(this, &ReminderView::dialogClosed, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

void ReminderView::dialogClosed()
{
    standBy(QApplication::activeModalWidget());
}

void ReminderView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        isActiveWindow() ? m_presenter.activated() : m_presenter.deactivated();
}

void ReminderView::closeEvent(QCloseEvent* event)
{
    m_presenter.cmdCloseAll();
    event->accept();
}

void ReminderView::hideEvent(QHideEvent* event)
{
    windowstate::save(*this, m_layout);
    QWidget::hideEvent(event);
}

void ReminderView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        m_presenter.cmdCloseAll();
    else
        QWidget::keyPressEvent(event);
}
