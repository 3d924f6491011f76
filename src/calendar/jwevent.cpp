#include "calendar/jwevent.h"

#include "base/dates.h"
#include "base/text.h"
#include "calendar/eventtimes.h"
#include "store/gateway/datajw.h"

#include <QCoreApplication>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

bool JWevent::hasDate() const
{
    return eventDate.isValid() && eventDate != dates::sentinel && eventDate != zeroDate;
}

QTime JWevent::startTime() const
{
    const auto start = eventtimes::readTime(eventTime, ampm == u"PM");
    return start ? start->toTime() : QTime();
}

std::optional<JWevent> JWevent::fromRow(const RecordSet& row)
{
    const std::optional<Key> key = row.key(u"EventKey");
    if (!key)
        return std::nullopt;
    const QDate date = row.date(u"EventDate");
    return JWevent{.eventKey = *key,
                   .eventDate = date.isValid() ? date : zeroDate,
                   .eventTime = row.text(u"EventTime"),
                   .eventDuration = row.text(u"EventDuration"),
                   .eventDescription = row.text(u"Description"),
                   .eventName = row.text(u"Event"),
                   .reminder1 = row.text(u"Reminder1"),
                   .reminder2 = row.text(u"Reminder2"),
                   .ampm = row.text(u"AMPM"),
                   .medium = row.text(u"Medium"),
                   .eventType = row.text(u"EventType"),
                   .complete = row.text(u"Complete")};
}

EventOwners EventOwners::fromRow(const RecordSet& row)
{
    return {.contact = row.key(u"ContactKey").value_or(0),
            .company = row.key(u"CompanyKey").value_or(0),
            .position = row.key(u"PositionKey").value_or(0)};
}

std::optional<EventRows> readEvents(DataJW& dataJW)
{
    RecordSet rows = dataJW.getEventAll();
    if (rows.isNothing())
        return std::nullopt;
    EventRows read;
    std::vector<std::pair<QTime, JWevent>> timed;
    timed.reserve(static_cast<size_t>(rows.rowCount()));
    for (; !rows.atEnd(); rows.next()) {
        std::optional<JWevent> event = JWevent::fromRow(rows);
        if (!event) {
            ++read.unreachable;
            continue;
        }
        if (const EventOwners owners = EventOwners::fromRow(rows); owners != EventOwners{})
            read.owners.insert(event->eventKey, owners);
        const QTime start = event->startTime();
        timed.emplace_back(start, *std::move(event));
    }
    // The store orders by date alone. A day is read from morning to evening.
    std::stable_sort(timed.begin(), timed.end(), [](const auto& left, const auto& right) {
        return std::tie(left.second.eventDate, left.first, left.second.eventKey) <
               std::tie(right.second.eventDate, right.first, right.second.eventKey);
    });
    read.events.reserve(timed.size());
    for (auto& [time, event] : timed)
        read.events.push_back(std::move(event));
    return read;
}

void reportUnreachable(DataJW& dataJW, const QString& tag, int count)
{
    if (count == 0)
        return;
    const QString reason = QCoreApplication::translate(
        "FrmEvCal", "Overflow: %n event(s) have a number above 32767 and cannot be shown.", nullptr, count);
    dataJW.logError(tag + text::crlf + reason);
}

std::vector<JWevent> eventsOfMonth(const std::vector<JWevent>& events, QDate day)
{
    std::vector<JWevent> found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found), [&](const JWevent& event) {
        return event.hasDate() && event.eventDate.year() == day.year() &&
               event.eventDate.month() == day.month();
    });
    return found;
}
