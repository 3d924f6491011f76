// One row of the Event table as the calendar holds it between reading and painting.
#pragma once

#include "base/key.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QTime>

#include <optional>
#include <vector>

class DataJW;
class RecordSet;

/// A calendar entry or task. A plain record: no validation, texts as stored.
struct JWevent
{
    Key eventKey = 0;
    QDate eventDate;       ///< dates::sentinel for a task without a date, zeroDate for an empty column
    QString eventTime;     ///< start, hours and minutes on a 12-hour clock ("2:30"); "" or "Nodate" for none
    QString eventDuration; ///< hours as a decimal text (".5", "1", "0.75")
    QString eventDescription; ///< free text, lines ending in CR LF
    QString eventName;        ///< what kind of event it is, one of eventchoices::eventTypes() or free text
    QString reminder1;        ///< lead time of the reminder in whole hours, "0" for none
    QString reminder2;        ///< always "0"
    QString ampm;             ///< "AM" or "PM"
    QString medium;           ///< a format of eventchoices::formats(), or a priority for a task
    QString eventType;        ///< "Event" or "Task"
    QString complete;         ///< "" open, "Complete" a finished task, "OkEvent" a closed event

    /// The value of a date column that holds nothing.
    static constexpr QDate zeroDate = QDate::fromJulianDay(2415019); // 12/30/1899

    [[nodiscard]] bool isTask() const { return eventType == QLatin1String("Task"); }
    [[nodiscard]] bool isEvent() const { return eventType == QLatin1String("Event"); }
    [[nodiscard]] bool isDone() const { return !complete.isEmpty(); }
    /// False for the sentinel and the zero date.
    [[nodiscard]] bool hasDate() const;
    /// The start as a time of day; invalid when the entry has none or it cannot be read.
    [[nodiscard]] QTime startTime() const;

    /// The row at which @p row stands. Nothing when its key does not fit into 16 bits: everything that takes
    /// an event's key takes it so wide, and no narrower copy of it may find another row.
    static std::optional<JWevent> fromRow(const RecordSet& row);
};

/// Whom an entry is with and for which position, by key; 0 for none.
struct EventOwners
{
    Key contact = 0;
    Key company = 0;
    Key position = 0;

    bool operator==(const EventOwners&) const = default;
    /// Those of the row at which @p row stands; a key that is none is 0.
    static EventOwners fromRow(const RecordSet& row);
};
using EventOwnersByKey = QHash<Key, EventOwners>; ///< by the entry's key; those with none are not in it

/// The Event table as it was read.
struct EventRows
{
    /// By date; those of one day by their time of day, those without a time first, then by key.
    std::vector<JWevent> events;
    EventOwnersByKey owners;
    int unreachable = 0; ///< rows left out because their key is too high
};

/// Reads all entries. Nothing when they could not be read, which the gateway has then reported: an empty
/// calendar and an unknown one are not the same.
std::optional<EventRows> readEvents(DataJW& dataJW);

/// Logs and shows under @p tag that so many rows are left out; nothing for 0.
void reportUnreachable(DataJW& dataJW, const QString& tag, int count);

/// Those of @p events that lie in the month of @p day, in their order. Closed and finished ones are among
/// them.
std::vector<JWevent> eventsOfMonth(const std::vector<JWevent>& events, QDate day);
