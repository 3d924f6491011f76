#include "calendar/eventbounds.h"

#include "base/dates.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString loading = u"frmEvCal - loadEvents"_s;

void keepNearest(std::vector<JWevent>& events, QDate today)
{
    const auto away = [today](const JWevent& entry) -> qint64 {
        if (entry.isTask() && entry.eventDate == dates::sentinel)
            return -1; // due in every month
        return std::abs(entry.eventDate.daysTo(today));
    };
    std::vector<std::pair<qint64, size_t>> places;
    for (size_t i = 0; i < events.size(); ++i)
        places.emplace_back(away(events[i]), i);
    std::ranges::nth_element(places, places.begin() + EventBounds::eventBound);
    places.resize(EventBounds::eventBound);
    std::ranges::sort(places, {}, &std::pair<qint64, size_t>::second); // by date again
    std::vector<JWevent> nearest;
    nearest.reserve(EventBounds::eventBound);
    for (const auto& [days, place] : places)
        nearest.push_back(std::move(events[place]));
    events = std::move(nearest);
}

} // namespace

void EventBounds::openAgain()
{
    m_told.removeIf([](const QString& what) { return what.startsWith(u'!'); });
}

void EventBounds::tellUnreachable(int count)
{
    // They cannot be shown however often the month is painted: said once, it is known.
    if (count == 0 || m_told.contains(u"!keys"_s))
        return;
    m_told.insert(u"!keys"_s);
    reportUnreachable(m_session.dataJW(), loading, count);
}

void EventBounds::bound(std::vector<JWevent>& events)
{
    check({u"events"_s, loading, eventBound,
           tr("The calendar holds at most %1 events and tasks. The %1 nearest to today are shown; all are "
              "safe in the database. Delete old ones to see the rest."),
           tr("There are %1 events and tasks; the calendar holds at most %2. Old ones can be deleted.")},
          events.size());
    if (events.size() > eventBound)
        keepNearest(events, m_session.today());
}

void EventBounds::checkMonth(int month, int year, size_t count)
{
    check({u"month %1/%2"_s.arg(month).arg(year), u"frmEvCal - fillEvents"_s, monthBound,
           tr("The calendar shows at most %1 events of one month. The first %1 of this month are shown; all "
              "are safe in the database."),
           tr("This month has %1 events; the calendar shows at most %2 of one month.")},
          count);
}

void EventBounds::check(const Bound& bound, size_t count)
{
    if (count > bound.most) {
        if (!m_told.contains(u'!' + bound.name))
            m_session.logError(bound.place + text::crlf + bound.beyond.arg(bound.most));
        m_told.insert(u'!' + bound.name);
    } else if (count * 10 >= bound.most * 9 && !m_told.contains(bound.name)) {
        m_told.insert(bound.name);
        m_session.msgBox(bound.soon.arg(count).arg(bound.most));
    }
}

void EventBounds::tellIfBeyond(Key eventKey, const std::vector<JWevent>& events)
{
    if (eventKey > 0 && events.size() >= eventBound &&
        std::ranges::find(events, eventKey, &JWevent::eventKey) == events.end())
        m_session.msgBox(tr("The entry is saved, but the calendar does not show it: %1 others are nearer to "
                            "today.")
                             .arg(eventBound));
}
