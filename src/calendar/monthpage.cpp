#include "calendar/monthpage.h"

#include "base/dates.h"
#include "calendar/entrytexts.h"
#include "calendar/eventchoices.h"
#include "calendar/monthsummary.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString monthDay(QDate date)
{
    return QString::number(date.month()) + u'/' + QString::number(date.day());
}

} // namespace

MonthPage::MonthPage(Session& session, Form& form)
    : m_session(session)
    , m_form(form)
    , m_tasks({tr("Task"), tr("Due"), tr("State")})
    , m_calDis([&session] { return session.now(); })
    , m_bounds(session)
{
}

void MonthPage::openAgain()
{
    m_bounds.openAgain();
    m_showComplete = m_session.dataJW().getStatusValue(u"ShowComplete"_s) == u"1";
    m_form.setOn(u"chkShowComplete"_s, m_showComplete);
    m_chip.clear();
    m_people.forget(); // they may have got other names since
}

void MonthPage::forget()
{
    m_events.clear();
    m_monthEvents.clear();
}

void MonthPage::loadEvents()
{
    std::optional<EventRows> rows = readEvents(m_session.dataJW());
    m_readable = rows.has_value();
    if (!rows)
        rows.emplace();
    m_events = std::move(rows->events);
    m_owners = std::move(rows->owners);
    m_bounds.tellUnreachable(rows->unreachable);
    m_bounds.bound(m_events);
    m_people.learn(m_session.dataJW(), m_owners);
    for (const QString& control : {u"cmdNewEvent"_s, u"cmdNewTask"_s, u"chkShowComplete"_s})
        m_form.setEnabled(control, m_readable);
}

void MonthPage::setShowComplete(bool show)
{
    m_showComplete = show;
    m_form.setOn(u"chkShowComplete"_s, show);
    // The same row as in the options, so that the next opening is like this one.
    m_session.dataJW().writeStatus(u"ShowComplete"_s, show ? u"1"_s : u"0"_s, true);
}

void MonthPage::setMonth(QDate day)
{
    m_calDis.setMonth(day);
    m_month = static_cast<qint16>(day.month());
    m_year = static_cast<qint16>(day.year());
    m_selectedDay = day;
    clearCal();
    m_form.setText(u"lblMonth"_s, monthTitle(day));
    m_form.setText(u"Label11"_s, tr("Month of ") + m_calDis.monthName());
}

QString MonthPage::monthTitle(QDate day)
{
    return CalDis::getMonth(day) + u' ' + QString::number(day.year());
}

QString MonthPage::tasksHint() const
{
    return m_readable ? tr("No tasks in this month.\n“New task” adds one to the chosen day.") : QString();
}

void MonthPage::clearCal()
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

void MonthPage::markDays()
{
    for (DayCell& cell : m_cells) {
        cell.today = cell.date.isValid() && cell.date == m_calDis.Today();
        cell.selected = cell.date.isValid() && cell.date == m_selectedDay;
    }
}

void MonthPage::select(QDate day)
{
    m_selectedDay = day;
    markDays();
}

int MonthPage::cellOf(QDate date) const
{
    if (!date.isValid() || date.month() != m_month || date.year() != m_year)
        return -1;
    return date.day() + m_calDis.startDay() - 2;
}

void MonthPage::fillEvents()
{
    MonthSummary summary;
    m_monthEvents.clear();
    for (size_t i = 0; i < m_events.size(); ++i) {
        const JWevent& event = m_events[i];
        if ((!m_showComplete && event.complete == u"OkEvent") || !event.isEvent() || !event.hasDate() ||
            cellOf(event.eventDate) < 0)
            continue;
        m_monthEvents.push_back(event);
        if (m_monthEvents.size() > EventBounds::monthBound)
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
    m_bounds.checkMonth(m_month, m_year, m_monthEvents.size());
    m_monthEvents.resize(std::min(m_monthEvents.size(), static_cast<size_t>(EventBounds::monthBound)));
}

QString MonthPage::with(const JWevent& entry) const
{
    return m_people.with(m_owners.value(entry.eventKey));
}

void MonthPage::paintEvent(const JWevent& event, int slot)
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

ListRow MonthPage::taskRow(const JWevent& task) const
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

void MonthPage::fillTasks()
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

const JWevent* MonthPage::entryOf(const QString& key) const
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

const std::vector<DayChip>& MonthPage::selectedChips() const
{
    static const std::vector<DayChip> none;
    const int cell = cellOf(m_selectedDay);
    return cell < 0 ? none : m_cells[static_cast<size_t>(cell)].chips;
}

bool MonthPage::chooseChip(const QString& chip)
{
    if (chip == chosenChip())
        return false;
    const JWevent* const event = entryOf(chip);
    m_chip = chip;
    m_chipEvent = event ? event->eventKey : Key(0);
    return true;
}

QString MonthPage::chosenChip() const
{
    // Keys are slots and may stand for another event by now: Delete must never mean one that nobody sees.
    const JWevent* const event = entryOf(m_chip);
    const bool shown = std::ranges::find(selectedChips(), m_chip, &DayChip::key) != selectedChips().end();
    return shown && event && event->eventKey == m_chipEvent ? m_chip : QString();
}
