#include "views/calendar/calendarview.h"

#include "calendar/eventchoices.h"
#include "calendar/frmevcal.h"
#include "ui_calendarview.h"
#include "views/calendar/eventicons.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// Controls that the view ties by itself, because they are more than one text.
const QStringList& ownControls()
{
    static const QStringList names{u"lblCompany"_s,   u"lblContact"_s, u"lblPosition"_s,
                                   u"imgEventType"_s, u"imgFormat"_s,  u"imgPriority"_s,
                                   u"imgOther1"_s,    u"imgOther2"_s,  u"frmeEventData"_s};
    return names;
}

std::vector<ChoiceButton::Choice> withPictures(const std::vector<EventChoice>& choices,
                                               bool canBeNone = false)
{
    std::vector<ChoiceButton::Choice> pictured;
    pictured.reserve(choices.size() + 1);
    for (const EventChoice& choice : choices)
        pictured.push_back({choice.text, eventicons::named(choice.icon)});
    if (canBeNone)
        pictured.push_back({});
    return pictured;
}

} // namespace

CalendarView::CalendarView(FrmEvCal& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::CalendarView>())
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    look::dress(*this);
    dressTexts();
    fillChoices();
    m_ui->lvwAct->setModel(&presenter.lvwAct());
    m_binder = new FormBinder(presenter.form(), presenter, *this, ownControls());
    connectGrid();
    connectTasks();
    connectFrame();
    orderTabs();
    connect(&presenter, &FrmEvCal::changed, this, &CalendarView::render);
    connect(&presenter, &FrmEvCal::frameChanged, this, &CalendarView::renderFrame);
    connect(&presenter, &FrmEvCal::frameShown, this, [this] {
        if (!isActiveWindow()) { // asked for from a window beside this one
            raise();
            activateWindow();
        }
        m_ui->txtEvName->setFocus(Qt::OtherFocusReason);
        m_ui->txtEvName->selectAll(); // the first key writes another name
    });
    connect(&presenter.form(), &Form::controlChanged, this, &CalendarView::renderControl);
    connect(&presenter.form(), &Form::itemsChanged, this, &CalendarView::fillSelector);

    fitScreen();
    windowstate::restore(*this, m_layout);
    for (const auto& control : {u"lblCompany"_s, u"lblContact"_s, u"lblPosition"_s})
        fillSelector(control);
    render();
    renderFrame();
    m_ui->grdMonth->focusChosen();
}

CalendarView::~CalendarView() = default;

void CalendarView::fitScreen()
{
    m_ui->splCalendar->setStretchFactor(0, 1);
    m_ui->splSide->setStretchFactor(0, 1);
    // What the desktop draws around a window comes on top of its size.
    const int edge = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const QSize around(2 * edge, 2 * edge + style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const QSize wish(fontMetrics().averageCharWidth() * 165, fontMetrics().height() * 52);
    resize(wish.boundedTo(screen()->availableSize() - around));
    // The grid keeps the other half, where the form alone would take most of the screen.
    const int form = m_ui->scrForm->minimumSizeHint().width();
    m_ui->scrForm->setMinimumWidth(std::min(form, screen()->availableSize().width() / 2));
    // The tasks get what the frame leaves, whose scrolling would let it be pressed flat.
    const int frame = m_ui->pnlForm->sizeHint().height() + fontMetrics().height() * 7;
    const int tasks = std::min(fontMetrics().height() * 12, height() / 3);
    m_ui->splSide->setSizes({std::max(height() - frame, tasks), frame});
}

// --- What is built once -----------------------------------------------------------------------------------

void CalendarView::dressTexts()
{
    QFont large = m_ui->lblMonth->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    m_ui->lblMonth->setFont(large);
    // The longest month's name decides, so that the arrows stay under the mouse that steps.
    int widest = 0;
    for (int month = 1; month <= 12; ++month)
        widest = std::max(
            widest, QFontMetrics(large).horizontalAdvance(MonthPage::monthTitle(QDate(2000, month, 1))));
    m_ui->lblMonth->setFixedWidth(widest);
    m_ui->lblMonth->setAlignment(Qt::AlignCenter);
    m_ui->cmdLast->setIcon(eventicons::named(u"previous"_s));
    m_ui->cmdNext->setIcon(eventicons::named(u"next"_s));
    m_ui->cmdNewEvent->setIcon(icons::named(u"document-new"_s));
    m_ui->cmdNewTask->setIcon(icons::named(u"view-task"_s));
    m_ui->cmdAdd1->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdRemove1->setIcon(icons::named(u"edit-delete"_s));
    for (QComboBox* box : {m_ui->txtEvTimeS, m_ui->txtEvTimeN, m_ui->txtRemind}) {
        box->setInsertPolicy(QComboBox::NoInsert);
        box->view()->setObjectName(box == m_ui->txtRemind ? u"lstRemind"_s : u"lstTime"_s);
    }
    // Chosen again, the same lead time sets a bell that was crossed out.
    connect(m_ui->txtRemind, &QComboBox::activated, this,
            [this] { m_presenter.fieldChanged(u"txtRemind"_s); });
    for (OwnerSelector* box : {m_ui->lblCompany, m_ui->lblContact, m_ui->lblPosition}) {
        box->setMinimumContentsLength(16);
        box->lineEdit()->setPlaceholderText(tr("None"));
    }
    const auto align = [](QWidget* above, QWidget* below) {
        const int width = std::max(above->sizeHint().width(), below->sizeHint().width());
        above->setFixedWidth(width);
        below->setFixedWidth(width);
    };
    align(m_ui->chkhalf, m_ui->chkOnehalf);
    align(m_ui->chkOne, m_ui->chkTwo);
}

void CalendarView::fillChoices()
{
    m_ui->imgEventType->setChoices(tr("Event Type"), withPictures(eventchoices::eventTypes()));
    m_ui->imgFormat->setChoices(tr("Format"), withPictures(eventchoices::formats()));
    m_ui->imgPriority->setChoices(tr("Priority"), withPictures(eventchoices::priorities()));
    m_ui->imgOther1->setChoices({}, withPictures(eventchoices::others(), true));
    m_ui->imgOther2->setChoices({}, withPictures(eventchoices::others(), true));
    for (ChoiceButton* button : {m_ui->imgEventType, m_ui->imgOther1, m_ui->imgOther2})
        button->setPictureOnly();
    EventFrame& frame = m_presenter.frame();
    connect(m_ui->imgEventType, &ChoiceButton::chosen, &frame, &EventFrame::chooseEventType);
    connect(m_ui->imgFormat, &ChoiceButton::chosen, &frame, &EventFrame::chooseFormat);
    connect(m_ui->imgPriority, &ChoiceButton::chosen, &frame, &EventFrame::chooseFormat);
    connect(m_ui->imgOther1, &ChoiceButton::chosen, this,
            [&frame](const QString& text) { frame.chooseOther(1, text); });
    connect(m_ui->imgOther2, &ChoiceButton::chosen, this,
            [&frame](const QString& text) { frame.chooseOther(2, text); });
}

void CalendarView::connectGrid()
{
    MonthGrid& grid = *m_ui->grdMonth;
    connect(&grid, &MonthGrid::dayWanted, this, [this](QDate day) {
        m_presenter.chooseChip({});
        m_presenter.selectDay(day);
    });
    connect(&grid, &MonthGrid::chipWanted, &m_presenter, &FrmEvCal::chooseChip);
    connect(&grid, &MonthGrid::opened, this, [this](const QString& key) { m_presenter.openEntry(key); });
    connect(&grid, &MonthGrid::newWanted, &m_presenter, &FrmEvCal::cmdNewEvent);
    connect(&grid, &MonthGrid::removeWanted, &m_presenter, &FrmEvCal::removeChosen);
    connect(&grid, &MonthGrid::openWanted, &m_presenter, &FrmEvCal::openChosen);
    connect(&m_presenter, &FrmEvCal::dayListWanted, &grid, &MonthGrid::showChosen);
    connect(&grid, &MonthGrid::monthWanted, this, &CalendarView::stepMonth);
    connect(&grid, &MonthGrid::todayWanted, &m_presenter, &FrmEvCal::cmdToday);
    connect(&grid, &MonthGrid::dropped, this, [this](const QString& key, QDate day) {
        m_timerCal.stop();
        m_presenter.dropOn(key, day);
    });
    connectTurn(*m_ui->cmdLast, &FrmEvCal::cmdLast);
    connectTurn(*m_ui->cmdNext, &FrmEvCal::cmdNext);
    m_timerCal.setObjectName(u"TimerCal"_s);
    m_timerCal.setInterval(FrmEvCal::timerCalInterval);
    connect(&m_timerCal, &QTimer::timeout, this, [this] {
        if (m_turn)
            std::invoke(m_turn, m_presenter);
    });
}

void CalendarView::connectTurn(TurnButton& button, void (FrmEvCal::*turn)())
{
    connect(&button, &TurnButton::dragOver, this, [this, turn](bool resting) {
        m_turn = resting ? turn : nullptr;
        resting ? m_timerCal.start() : m_timerCal.stop();
    });
}

void CalendarView::connectTasks()
{
    TaskList& tasks = *m_ui->lvwAct;
    connect(&tasks, &TaskList::opened, this, [this](const QString& key) { m_presenter.openEntry(key); });
    connect(&tasks, &TaskList::flipped, this, [this](const QString& key) { m_presenter.flipTask(key); });
    connect(&tasks, &TaskList::removeWanted, this,
            [this](const QString& key) { m_presenter.removeEntry(key); });
    connect(&tasks, &TaskList::monthWanted, this, &CalendarView::stepMonth);
    tasks.header()->setStretchLastSection(false);
    tasks.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    if (tasks.header()->count() > 0)
        tasks.header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

void CalendarView::connectFrame()
{
    for (OwnerSelector* box : {m_ui->lblCompany, m_ui->lblContact, m_ui->lblPosition})
        connectSelector(*box);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, m_ui->cmdAdd1,
            &QAbstractButton::click);
    connect(&m_presenter.form(), &Form::focusRequested, this, [this](const QString& control) {
        if (auto* box = findChild<OwnerSelector*>(control))
            box->setFocus(Qt::OtherFocusReason);
    });
    // A button's mnemonic presses it without taking the focus from a name that is being typed.
    const auto buttons = findChildren<QPushButton*>();
    for (const QPushButton* button : buttons)
        connect(button, &QPushButton::pressed, this, &CalendarView::settleTyped);
    connect(m_ui->cmdAdd1, &QPushButton::pressed, this, [this] { m_untold.clear(); }); // the save tells it
    // Half a typed date is no day to turn the month to, and scrolling past a field must not change it.
    m_ui->dtEvTsk->setKeyboardTracking(false);
    for (QWidget* field : QWidgetList{m_ui->dtEvTsk, m_ui->txtEvTimeS, m_ui->txtEvTimeN, m_ui->txtRemind})
        field->installEventFilter(this);
}

void CalendarView::connectSelector(OwnerSelector& box)
{
    const QString control = box.objectName();
    const auto choose = [this, control](const QString& name) {
        m_presenter.frame().chooseOwner(control, name);
    };
    const auto show = [this, control] { renderControl(control); };
    connect(&box, &OwnerSelector::chosen, this, [this, choose, show](const QString& name) {
        choose(name);
        show(); // a choice that was refused, too
        // The list of matches writes its name into the box after telling it.
        QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
    });
    const auto hold = [this, control](const QString& typed) { holdTyped(control, typed); };
    connect(&box, &OwnerSelector::unknownLeft, this, hold);
    connect(&box, &OwnerSelector::nothingFound, this, hold);
    connect(
        &box, &OwnerSelector::emptyOpened, this,
        [this, &box] {
            if (&box == m_ui->lblCompany || m_presenter.frame().mayListPeople())
                box.openList();
        },
        Qt::QueuedConnection); // the press that opens is over before a message comes
    // An emptied box chooses nobody.
    connect(box.lineEdit(), &QLineEdit::textEdited, this, [choose](const QString& typed) {
        if (typed.isEmpty())
            choose({});
    });
}

void CalendarView::orderTabs()
{
    // The grid is one stop: its chosen day.
    const QWidgetList order{
        m_ui->cmdLast,     m_ui->cmdNext,          m_ui->cmdToday,  m_ui->cmdNewEvent,  m_ui->cmdNewTask,
        m_ui->grdMonth,    m_ui->chkShowComplete,  m_ui->lvwAct,    m_ui->imgEventType, m_ui->txtEvName,
        m_ui->imgFormat,   m_ui->imgPriority,      m_ui->imgOther1, m_ui->imgOther2,    m_ui->dtEvTsk,
        m_ui->chkNoDate,   m_ui->txtEvTimeS,       m_ui->optStAM,   m_ui->optStPM,      m_ui->chkhalf,
        m_ui->chkOne,      m_ui->txtEvTimeN,       m_ui->optEnAM,   m_ui->optEnPM,      m_ui->chkOnehalf,
        m_ui->chkTwo,      m_ui->imgReminder,      m_ui->txtRemind, m_ui->lblCompany,   m_ui->lblContact,
        m_ui->lblPosition, m_ui->txtEvDescription, m_ui->chkTask,   m_ui->chkComplete,  m_ui->cmdAdd1,
        m_ui->cmdRemove1,  m_ui->cmdClose1};
    QWidget* before = nullptr;
    for (QWidget* widget : order) {
        QWidgetList stops{widget};
        if (widget == m_ui->grdMonth) {
            stops.clear();
            for (int index = 0; index < MonthPage::cellCount; ++index)
                stops.append(widget->findChild<QWidget*>(u"lvwDay%1"_s.arg(index)));
        }
        for (QWidget* stop : stops) {
            if (before)
                setTabOrder(before, stop);
            before = stop;
        }
    }
}

// --- What happens -----------------------------------------------------------------------------------------

void CalendarView::stepMonth(int months)
{
    m_binder->leaveField();
    months < 0 ? m_presenter.cmdLast() : m_presenter.cmdNext();
}

void CalendarView::settleTyped()
{
    if (auto* box = qobject_cast<OwnerSelector*>(focusWidget()))
        box->settle();
}

void CalendarView::holdTyped(const QString& control, const QString& typed)
{
    m_presenter.frame().holdUnknown(control, typed);
    renderControl(control);
    m_untold = control;
    // A message in the middle of a press on some button would leave the button down.
    QMetaObject::invokeMethod(this, &CalendarView::tellTyped, Qt::QueuedConnection);
}

void CalendarView::tellTyped()
{
    const QString control = std::exchange(m_untold, {});
    if (!control.isEmpty())
        m_presenter.frame().tellUnknown(control);
}

bool CalendarView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return QDialog::eventFilter(watched, event);
    event->ignore();
    return true;
}

void CalendarView::keyPressEvent(QKeyEvent* event)
{
    const bool turns = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    // In the frame these keys belong to its fields.
    if (!turns || (focusWidget() && m_ui->stkFrame->isAncestorOf(focusWidget())))
        return QDialog::keyPressEvent(event);
    stepMonth(event->key() == Qt::Key_PageUp ? -1 : 1);
}

void CalendarView::done(int result)
{
    m_binder->leaveField();
    settleTyped();
    m_untold.clear(); // the question about what is unsaved comes first
    if (!m_presenter.mayLeaveFrame())
        return;
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}

void CalendarView::closeEvent(QCloseEvent* event)
{
    // The window's own button goes the way of Esc, and may be told to stay.
    event->ignore();
    reject();
}

// --- What is shown ----------------------------------------------------------------------------------------

void CalendarView::render()
{
    m_ui->grdMonth->setDays(m_presenter.cells(), m_presenter.chosenChip());
    m_ui->lvwAct->setHint(m_presenter.tasksHint());
    m_ui->lblBusyHead->setVisible(!m_presenter.form().text(u"lblBusy"_s).isEmpty());
}

void CalendarView::renderFrame()
{
    const bool open = m_presenter.isFrameOpen();
    m_ui->stkFrame->setCurrentWidget(open ? m_ui->frmeEventData : m_ui->pnlEmpty);
    m_ui->lblFrameDay->setText(m_presenter.frame().heading());
    // The selectors tell their changes themselves; filled anew here they would lose what is being typed.
    for (const auto& control :
         {u"txtEvName"_s, u"txtFormat"_s, u"imgOther1"_s, u"imgOther2"_s, u"imgReminder"_s, u"chkComplete"_s})
        renderControl(control);
}

void CalendarView::renderControl(const QString& control)
{
    const Form& form = m_presenter.form();
    const QString text = form.text(control);
    if (control == "txtEvName"_L1)
        m_ui->imgEventType->showChoice(text, eventicons::named(eventchoices::getIcn(text)));
    else if (control == "txtFormat"_L1 || control == "imgFormat"_L1 || control == "imgPriority"_L1) {
        const bool task = form.isVisible(u"imgPriority"_s) && !form.isVisible(u"imgFormat"_s);
        m_ui->imgFormat->setVisible(!task);
        m_ui->imgPriority->setVisible(task);
        m_ui->lblFormat->setText(task ? tr("&Priority") : tr("&Format"));
        m_ui->lblFormat->setBuddy(task ? m_ui->imgPriority : m_ui->imgFormat);
        (task ? m_ui->imgPriority : m_ui->imgFormat)->showChoice(form.text(u"txtFormat"_s));
    } else if (control == "imgOther1"_L1 || control == "imgOther2"_L1)
        findChild<ChoiceButton*>(control)->showChoice(text);
    else if (control == "imgReminder"_L1) {
        m_ui->imgReminder->setChecked(text == "1"_L1);
        m_ui->imgReminder->setIcon(eventicons::named(text == "1"_L1 ? u"Reminder"_s : u"Nobell"_s));
    } else if (control == "chkComplete"_L1)
        m_ui->chkComplete->setText(m_presenter.frame().completeCaption());
    else if (auto* box = findChild<OwnerSelector*>(control)) {
        box->showChosen(text);
        box->setEnabled(form.isEnabled(control));
    }
}

void CalendarView::fillSelector(const QString& control)
{
    if (auto* box = findChild<OwnerSelector*>(control)) {
        box->setCompanies(m_presenter.form().items(control));
        renderControl(control);
    }
}
