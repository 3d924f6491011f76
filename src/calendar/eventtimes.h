// Reckoning with the calendar's texts for times of day, lengths and lead times. Every text gives a result.
#pragma once

#include <QString>
#include <QTime>

#include <optional>

namespace eventtimes {

/// A time on a 12-hour clock as the frame holds it.
struct ClockTime
{
    QString text; ///< "9:05"
    bool pm = false;

    bool operator==(const ClockTime&) const = default;
    [[nodiscard]] QTime toTime() const;
};

/// What was typed as a time of day: "9", "9:05", "9:", "14:30", "2pm", "2:30 p". @p pm counts for 1 to 12
/// without a letter behind it. Nothing for any other text.
std::optional<ClockTime> readTime(const QString& typed, bool pm);

/// A decimal text as a number; 0 for anything that is none, or not finite.
double number(const QString& text);
/// A number as the stored texts have it: "1.25", "0.5", at most fifteen digits.
QString decimal(double value);

/// A reminder text such as "2 dys" as whole hours, rounded: "hrs", "dys" or "wks" behind the number. 0 for
/// any other text and for less than nothing; 32767 at most.
int hoursOf(const QString& reminder);
/// True when hoursOf() can read the text: a number that is not negative, and one of the three units.
bool isReminder(const QString& reminder);
/// Hours as a reminder text: "" for 0, "24 hrs", over a day "1.25 dys", over seven days whole weeks ("1 wks"
/// for ten days).
QString reminderText(int hours);

/// When something ends that begins at @p start ("10:30") and takes @p hours: "11:30 /AM". "" when start is
/// empty, "Nodate" or no time.
QString getEndTime(const QString& start, double hours, const QString& ampm);
/// The hours between two times as a decimal text: "0" when either is empty or no time, or the end lies before
/// the start.
QString duration(const QString& start, const QString& startAmpm, const QString& end, const QString& endAmpm);

} // namespace eventtimes
