// The events that are due at a moment, as the store has them.
#pragma once

#include "base/dates.h"
#include "base/key.h"
#include "calendar/reminderrules.h"

#include <QDateTime>
#include <QString>

#include <vector>

class DataJW;

/// One open event inside its lead time.
struct DueEvent
{
    Key eventKey = 0;
    QString event;
    QString description;
    ReminderVerdict verdict;
    /// Its own date, and its time of day when it has one. An event with "Nodate" for its time is judged by
    /// the moment of the one before it, but that is not when it is. An invalid date for none.
    dates::Moment when;
    QString contact; ///< names; empty when the event has none
    QString position;
    QString company;

    /// When it is, as a person reads it: "11/23/2026 5:30:00 AM", "11/23/2026", "No Date"; marked when the
    /// row's time or reminder cannot be read.
    [[nodiscard]] QString whenText() const;
};

/// What one look at all events found.
struct DueEvents
{
    int looked = 0;             ///< event rows that there are
    std::vector<DueEvent> open; ///< in the order of their dates
    std::vector<Key> matched;   ///< every event inside its lead time, closed ones too
    /// An event that could not be looked at, in words, or why none could; empty when all were.
    QString failure;
};

/// Looks at all events as they stand at @p now. Changes nothing and shows nothing.
[[nodiscard]] DueEvents lookForDueEvents(DataJW& dataJW, const QDateTime& now);
