// Reading the events and painting a month of them.
#include "calendar/frmevcal.h"

#include "base/dates.h"
#include "base/text.h"
#include "calendar/entrytexts.h"
#include "calendar/eventchoices.h"
#include "calendar/monthsummary.h"
#include "store/datajw.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

std::vector<FieldRow> calendarForm()
{
    std::vector<FieldRow> rows{{u"txtEvName"_s, u"Event"_s, SaveOn::Record},
                               {u"txtFormat"_s, u"Medium"_s, SaveOn::Record},
                               {u"txtEvTimeS"_s, u"EventTime"_s, SaveOn::Record},
                               {u"txtEvDescription"_s, u"Description"_s, SaveOn::Record}};
    for (const QString& control :
         {u"lblMonth"_s,   u"lblEvents"_s,   u"lblBusy"_s,    u"lblBusiest"_s,      u"txtTotals"_s,
          u"txtMonthly"_s, u"txtNoDate"_s,   u"Label11"_s,    u"chkShowComplete"_s, u"frmeEventData"_s,
          u"optStAM"_s,    u"optStPM"_s,     u"txtEvTimeN"_s, u"optEnAM"_s,         u"optEnPM"_s,
          u"chkhalf"_s,    u"chkOne"_s,      u"chkOnehalf"_s, u"chkTwo"_s,          u"imgReminder"_s,
          u"txtRemind"_s,  u"lblCompany"_s,  u"lblContact"_s, u"lblPosition"_s,     u"chkTask"_s,
          u"chkNoDate"_s,  u"chkComplete"_s, u"dtEvTsk"_s,    u"imgOther1"_s,       u"imgOther2"_s})
        rows.push_back({control, {}, SaveOn::Never});
    return rows;
}

QString monthDay(QDate date)
{
    return QString::number(date.month()) + u'/' + QString::number(date.day());
}

} // namespace

FrmEvCal::FrmEvCal(Session& session, Navigator& navigator)
    : m_session(session)
    , m_navigator(navigator)
    , m_form(calendarForm())
    , m_tasks({tr("Task"), tr("Due"), tr("State")})
    , m_calDis([&session] { return session.now(); })
{
    m_form.setItems(u"txtEvTimeS"_s, eventchoices::times());
    m_form.setItems(u"txtEvTimeN"_s, eventchoices::times());
    m_form.setItems(u"txtRemind"_s, eventchoices::reminders());
}

FrmEvCal::~FrmEvCal() = default;

void FrmEvCal::load()
{
    m_loaded = true;
    m_told.removeIf([](const QString& what) { return what.startsWith(u'!'); });
    m_showComplete = m_session.dataJW().getStatusValue(u"ShowComplete"_s) == u"1";
    setOn(u"chkShowComplete"_s, m_showComplete);
    m_companies = m_session.dataJW().getCompanyNames();
    m_companies.removeIf([](const QString& name) { return text::isCategory(name); });
    m_chip.clear();
    m_people.forget(); // they may have got other names since
    closeEvent();
    setMonth(m_session.today());
    loadEvents();
    fillEvents();
    emit changed();
    if (const auto key = std::exchange(m_preparedEvent, std::nullopt))
        openEvent(*key);
    if (const auto values = std::exchange(m_preparedTask, std::nullopt))
        openHistoryTask(*values);
}

void FrmEvCal::unload()
{
    closeEvent();
    m_loaded = false;
    m_events.clear();
    m_monthEvents.clear();
}

void FrmEvCal::showEvent(Key eventKey)
{
    if (m_loaded) { // another screen stands beside the open calendar
        openEvent(eventKey);
        return;
    }
    m_preparedEvent = eventKey;
    m_navigator.openScreen(u"FrmEvCal"_s);
    m_preparedEvent.reset(); // a program without this screen has not taken it
}

void FrmEvCal::createHistoryEvent(const QHash<QString, QString>& values)
{
    if (m_loaded) {
        if (mayLeaveFrame())
            openHistoryTask(values);
        return;
    }
    m_preparedTask = values;
    m_navigator.openScreen(u"FrmEvCal"_s);
    m_preparedTask.reset();
}

void FrmEvCal::reload()
{
    if (!m_loaded)
        return;
    loadEvents();
    followStore();
    repaint();
}

void FrmEvCal::loadEvents()
{
    const QString place = u"frmEvCal - loadEvents"_s;
    std::optional<EventRows> rows = readEvents(m_session.dataJW());
    m_readable = rows.has_value();
    if (!rows)
        rows.emplace();
    m_events = std::move(rows->events);
    m_owners = std::move(rows->owners);
    // They cannot be shown however often the month is painted: said once, it is known.
    if (rows->unreachable > 0 && !m_told.contains(u"!keys"_s)) {
        m_told.insert(u"!keys"_s);
        reportUnreachable(m_session.dataJW(), place, rows->unreachable);
    }
    checkBound(Bound::Events, u"events"_s, place, m_events.size());
    if (m_events.size() > eventBound)
        keepNearest();
    m_people.learn(m_session.dataJW(), m_owners);
    for (const QString& control : {u"cmdNewEvent"_s, u"cmdNewTask"_s, u"chkShowComplete"_s})
        m_form.setEnabled(control, m_readable);
}

void FrmEvCal::keepNearest()
{
    const QDate today = m_session.today();
    const auto away = [today](const JWevent& entry) -> qint64 {
        if (entry.isTask() && entry.eventDate == dates::sentinel)
            return -1; // due in every month
        return std::abs(entry.eventDate.daysTo(today));
    };
    std::vector<std::pair<qint64, size_t>> places;
    for (size_t i = 0; i < m_events.size(); ++i)
        places.emplace_back(away(m_events[i]), i);
    std::ranges::nth_element(places, places.begin() + eventBound);
    places.resize(eventBound);
    std::ranges::sort(places, {}, &std::pair<qint64, size_t>::second); // by date again
    std::vector<JWevent> nearest;
    nearest.reserve(eventBound);
    for (const auto& [days, place] : places)
        nearest.push_back(std::move(m_events[place]));
    m_events = std::move(nearest);
}

void FrmEvCal::tellIfBeyond(Key eventKey)
{
    if (eventKey > 0 && m_events.size() >= eventBound &&
        std::ranges::find(m_events, eventKey, &JWevent::eventKey) == m_events.end())
        m_session.msgBox(tr("The entry is saved, but the calendar does not show it: %1 others are nearer to "
                            "today.")
                             .arg(eventBound));
}

QString FrmEvCal::with(const JWevent& entry) const
{
    return m_people.with(m_owners.value(entry.eventKey));
}

void FrmEvCal::checkBound(Bound kind, const QString& what, const QString& place, size_t count)
{
    const bool isMonth = kind == Bound::Month;
    const int bound = isMonth ? monthBound : eventBound;
    if (count > static_cast<size_t>(bound)) {
        const QString text =
            isMonth ? tr("The calendar shows at most %1 events of one month. The first %1 of "
                         "this month are shown; all are safe in the database.")
                    : tr("The calendar holds at most %1 events and tasks. The %1 nearest to today "
                         "are shown; all are safe in the database. Delete old ones to see the rest.");
        if (!m_told.contains(u'!' + what))
            m_session.logError(place + text::crlf + text.arg(bound));
        m_told.insert(u'!' + what);
    } else if (count * 10 >= static_cast<size_t>(bound) * 9 && !m_told.contains(what)) {
        m_told.insert(what);
        m_session.msgBox((isMonth
                              ? tr("This month has %1 events; the calendar shows at most %2 of one month.")
                              : tr("There are %1 events and tasks; the calendar holds at most %2. Old ones "
                                   "can be deleted."))
                             .arg(count)
                             .arg(bound));
    }
}

void FrmEvCal::setMonth(QDate day)
{
    m_calDis.setMonth(day);
    m_month = static_cast<qint16>(day.month());
    m_year = static_cast<qint16>(day.year());
    m_selectedDay = day;
    clearCal();
    m_form.setText(u"lblMonth"_s, monthTitle(day));
    m_form.setText(u"Label11"_s, tr("Month of ") + m_calDis.monthName());
}

QString FrmEvCal::monthTitle(QDate day)
{
    return CalDis::getMonth(day) + u' ' + QString::number(day.year());
}

QString FrmEvCal::tasksHint() const
{
    return m_readable ? tr("No tasks in this month.\n“New task” adds one to the chosen day.") : QString();
}

void FrmEvCal::clearCal()
{
    const QDate first = CalDis::getFirstDate(m_selectedDay);
    for (int cell = 0; cell < cellCount; ++cell) {
        const int day = cell - m_calDis.startDay() + 2;
        const bool inMonth = day >= 1 && day <= m_calDis.numDay();
        m_cells[static_cast<size_t>(cell)] = {.date = inMonth ? first.addDays(day - 1) : QDate(),
                                              .chips = {}};
    }
    markDays();
}

void FrmEvCal::markDays()
{
    for (DayCell& cell : m_cells) {
        cell.today = cell.date.isValid() && cell.date == m_calDis.Today();
        cell.selected = cell.date.isValid() && cell.date == m_selectedDay;
    }
}

int FrmEvCal::cellOf(QDate date) const
{
    if (!date.isValid() || date.month() != m_month || date.year() != m_year)
        return -1;
    return date.day() + m_calDis.startDay() - 2;
}

void FrmEvCal::fillEvents()
{
    MonthSummary summary;
    m_monthEvents.clear();
    for (size_t i = 0; i < m_events.size(); ++i) {
        const JWevent& event = m_events[i];
        if ((!m_showComplete && event.complete == u"OkEvent") || !event.isEvent() || !event.hasDate() ||
            cellOf(event.eventDate) < 0)
            continue;
        m_monthEvents.push_back(event);
        if (m_monthEvents.size() > monthBound)
            continue;
        summary.add(event);
        paintEvent(event, static_cast<int>(i) + 1);
    }
    m_form.setText(u"lblEvents"_s, m_readable
                                       ? summary.events()
                                       : tr("The events could not be read. \"Today\" tries it again."));
    m_form.setText(u"lblBusy"_s, summary.busy());
    m_form.setText(u"lblBusiest"_s, summary.busiest());
    fillTasks();
    checkBound(Bound::Month, u"month %1/%2"_s.arg(m_month).arg(m_year), u"frmEvCal - fillEvents"_s,
               m_monthEvents.size());
    m_monthEvents.resize(std::min(m_monthEvents.size(), static_cast<size_t>(monthBound)));
}

void FrmEvCal::paintEvent(const JWevent& event, int slot)
{
    QStringList icons{eventchoices::getIcn(event.eventName), eventchoices::getIcn(event.medium),
                      eventchoices::alarmIcn(event.reminder1)};
    icons.removeAll(QString());
    m_cells[static_cast<size_t>(cellOf(event.eventDate))].chips.push_back(
        {.key = u"EV"_s + QString::number(slot),
         .text = entrytexts::chip(event),
         .tip = entrytexts::tip(event, with(event)),
         .icons = icons,
         .kind = eventchoices::kindOf(event.eventName),
         .ghosted = event.complete == u"OkEvent",
         .complete = event.isDone()});
}

ListRow FrmEvCal::taskRow(const JWevent& task) const
{
    const TaskState state = taskState(task, m_calDis.Today());
    const QString people = with(task);
    return {.key = u'A' + QString::number(task.eventKey),
            .texts = {entrytexts::task(task),
                      task.eventDate == dates::sentinel ? tr("No Date") : monthDay(task.eventDate),
                      shownState(state)},
            .kind = stateName(state),
            .tip = people.isEmpty() ? QString() : entrytexts::tip(task, people)};
}

void FrmEvCal::fillTasks()
{
    const QDate today = m_calDis.Today();
    TaskTotals all;
    TaskTotals monthly;
    TaskTotals noDate;
    std::vector<ListRow> rows;
    for (const JWevent& entry : m_events) {
        if (!m_showComplete && entry.complete == u"OkEvent")
            continue;
        const bool dateless = entry.eventDate == dates::sentinel;
        const bool ofMonth = !dateless && cellOf(entry.eventDate) >= 0;
        all.add(entry, today);
        if (dateless)
            noDate.add(entry, today);
        if (ofMonth)
            monthly.add(entry, today);
        if (!entry.isTask() || (!dateless && !ofMonth))
            continue;
        rows.push_back(taskRow(entry));
    }
    m_tasks.setRows(std::move(rows));
    m_form.setText(u"txtTotals"_s, all.text());
    m_form.setText(u"txtMonthly"_s, monthly.text());
    m_form.setText(u"txtNoDate"_s, noDate.text(false));
}

void FrmEvCal::repaint()
{
    setMonth(m_selectedDay);
    fillEvents();
    emit changed();
}

const JWevent* FrmEvCal::entryOf(const QString& key) const
{
    if (key.startsWith(u"EV")) {
        const int slot = QStringView(key).mid(2).toInt();
        return slot >= 1 && static_cast<size_t>(slot) <= m_events.size()
                   ? &m_events[static_cast<size_t>(slot) - 1]
                   : nullptr;
    }
    if (!key.startsWith(u'A'))
        return nullptr;
    const auto found = std::ranges::find(m_events, QStringView(key).mid(1).toInt(), &JWevent::eventKey);
    return found == m_events.end() ? nullptr : &*found;
}
