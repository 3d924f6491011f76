// Reading the events and painting a month of them.
#include "calendar/frmevcal.h"

#include "base/dates.h"
#include "base/text.h"
#include "calendar/eventchoices.h"
#include "calendar/eventtimes.h"
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

bool isOpenTime(const JWevent& event)
{
    return event.eventTime.isEmpty() || event.eventTime == u"Nodate";
}

QString chipText(const JWevent& event)
{
    if (isOpenTime(event))
        return event.eventName;
    return event.eventTime + (event.ampm == u"PM" ? u"p " : u" ") + event.eventName;
}

/// All that a chip tells by place, picture and colour, in words.
QString chipTip(const JWevent& event)
{
    QStringList parts;
    if (!isOpenTime(event)) {
        QString time = event.eventTime + u' ' + event.ampm;
        const double hours = eventtimes::number(event.eventDuration);
        if (hours > 0)
            time = FrmEvCal::tr("%1 to %2")
                       .arg(time, eventtimes::getEndTime(event.eventTime, hours, event.ampm).remove(u'/'));
        parts << time;
    }
    parts << event.eventName;
    if (!event.medium.isEmpty())
        parts << event.medium;
    const int lead = static_cast<int>(eventtimes::number(event.reminder1));
    if (lead > 0)
        parts << FrmEvCal::tr("reminder %1 before").arg(eventtimes::reminderText(lead));
    if (event.isDone())
        parts << FrmEvCal::tr("closed");
    const QString what = event.eventDescription.trimmed();
    return parts.join(u", "_s) + (what.isEmpty() ? QString() : u'\n' + what);
}

QString taskText(const JWevent& task)
{
    // Tasks of one kind are told apart by what there is to do.
    const QString what = task.eventDescription.section(u'\n', 0, 0).trimmed();
    return what.isEmpty() ? task.eventName : QString(task.eventName + u": " + what);
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
    m_preparedEvent = eventKey;
    m_navigator.openScreen(u"FrmEvCal"_s);
    m_preparedEvent.reset(); // a program without this screen has not taken it
}

void FrmEvCal::createHistoryEvent(const QHash<QString, QString>& values)
{
    m_preparedTask = values;
    m_navigator.openScreen(u"FrmEvCal"_s);
    m_preparedTask.reset();
}

void FrmEvCal::reload()
{
    if (!m_loaded)
        return;
    loadEvents();
    repaint();
}

void FrmEvCal::loadEvents()
{
    m_events = readEvents(m_session.dataJW(), u"frmEvCal - loadEvents"_s);
    checkBound(u"events"_s, u"frmEvCal - loadEvents"_s, m_events.size(), eventBound);
    if (m_events.size() <= eventBound)
        return;
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

void FrmEvCal::checkBound(const QString& what, const QString& place, size_t count, int bound)
{
    const bool isMonth = bound == monthBound;
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
    m_form.setText(u"lblMonth"_s, m_calDis.monthName() + u' ' + QString::number(m_year));
    m_form.setText(u"Label11"_s, tr("Month of ") + m_calDis.monthName());
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
    m_form.setText(u"lblEvents"_s, summary.events());
    m_form.setText(u"lblBusy"_s, summary.busy());
    m_form.setText(u"lblBusiest"_s, summary.busiest());
    fillTasks();
    checkBound(u"month %1/%2"_s.arg(m_month).arg(m_year), u"frmEvCal - fillEvents"_s, m_monthEvents.size(),
               monthBound);
    m_monthEvents.resize(std::min(m_monthEvents.size(), static_cast<size_t>(monthBound)));
}

void FrmEvCal::paintEvent(const JWevent& event, int slot)
{
    QStringList icons{eventchoices::getIcn(event.eventName), eventchoices::getIcn(event.medium),
                      eventchoices::alarmIcn(event.reminder1)};
    icons.removeAll(QString());
    m_cells[static_cast<size_t>(cellOf(event.eventDate))].chips.push_back(
        {.key = u"EV"_s + QString::number(slot),
         .text = chipText(event),
         .tip = chipTip(event),
         .icons = icons,
         .kind = eventchoices::kindOf(event.eventName),
         .ghosted = event.complete == u"OkEvent",
         .complete = event.isDone()});
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
        const QString state = stateName(taskState(entry, today));
        rows.push_back(
            {.key = u'A' + QString::number(entry.eventKey),
             .texts = {taskText(entry), dateless ? tr("No Date") : monthDay(entry.eventDate), state},
             .kind = state,
             .sortsBy = {QVariant(), entry.eventDate, QVariant()}});
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
