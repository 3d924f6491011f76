// When an event is due to be spoken of, and how urgently.
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// What the rules look at of one event, as stored.
struct ReminderValues
{
    QString date; ///< in any of the program's forms ("2026-11-20", "11/20/2026"); empty: no date
    QString time; ///< "10:30", or "Nodate"
    QString ampm; ///< "AM", "PM" or empty
    QString lead; ///< hours before the event from which it is spoken of; empty: 0
};

/// Where one event stands at a moment.
struct ReminderVerdict
{
    QDateTime moment;    ///< the event's moment on the wall clock (kept as UTC, so that no hour is missing)
    double lead = 0;     ///< hours, as stored
    qint64 hours = 0;    ///< whole hours until the moment, cut toward zero; negative behind it
    bool inTime = false; ///< the event lies inside its lead time
    /// Its time of day cannot be read, so that it is judged by the beginning of its day; or its lead time
    /// cannot, and counts as none.
    bool isUnreadable = false;

    [[nodiscard]] QString timeLeft() const; ///< "24 hrs", "1 dys", "-3 hrs"
    [[nodiscard]] QString urgency() const;  ///< "unsel", "sel" or "Overdue"
};

/// The urgency as files and scripts have it, the same in every language: "later", "soon" or "overdue".
[[nodiscard]] QString urgencyWord(const QString& urgency);
/// The same as a person reads it.
[[nodiscard]] QString shownUrgency(const QString& urgency);

/// Judges events one after the other, in the order of their dates: an event without a moment of its own
/// stands where the one before it stood.
class ReminderRules
{
public:
    /// @p now is the user's local time.
    explicit ReminderRules(const QDateTime& now);

    /// Times of day are read as the calendar reads them ("9:", "14:30"). Nothing when the date is none.
    [[nodiscard]] std::optional<ReminderVerdict> judge(const ReminderValues& values);

    /// Whether an event of this moment and lead time is inside it at @p when (local time).
    [[nodiscard]] static bool isInTime(const ReminderVerdict& event, const QDateTime& when);

private:
    QDateTime m_now;
    QDateTime m_moment; ///< of the event judged last; at first the zero date
};
