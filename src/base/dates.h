// Dates as statements, files and logs write them: one fixed form each, the same on every machine.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

#include <optional>

namespace dates {

/// A date with or without a time of day; what a date column of the store holds.
struct Moment
{
    QDate date;
    QTime time; ///< invalid when the value is a plain date

    bool operator==(const Moment&) const = default;
    /// The moment as date and time, midnight when it has no time.
    [[nodiscard]] QDateTime toDateTime() const;
};

/// The empty date: a step not done, a contact never reached. A date counts only when it is strictly later.
inline const QDate sentinel{1999, 12, 31};
/// What a screen shows for a missing date ("01/01/01").
inline const QDate missing{2001, 1, 1};
/// False for an invalid date and the sentinel: nothing has happened or is planned on such a day.
[[nodiscard]] bool isDay(QDate date);
/// A day as a person reads it, in the short form of the user's region; "" when it is none by isDay().
[[nodiscard]] QString shown(QDate date);

/// Reads a date in any form the program writes: m/d/yy, m/d/yyyy, mm/dd/yyyy, yyyy-mm-dd, each with an
/// optional time behind a blank (or "T" in the last form): h:mm, h:mm:ss, with or without AM or PM.
/// Two-digit years 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999; four-digit years run from 100 to
/// 9999. Nothing for any other text, and for a day that no calendar has.
std::optional<Moment> parse(QStringView text);

/// The stored form: "2026-11-22", or "2026-11-22 14:05:00" when the moment has a time.
QString toIso(const Moment& moment);
/// Reads the stored form back (a strict, fast subset of parse()).
std::optional<Moment> fromIso(QStringView text);

QString mdyy(QDate date);     ///< "11/5/26": entry dates of addresses and categories
QString mdyyyy(QDate date);   ///< "11/5/2026": steps, Status rows, XML attributes
QString mmddyyyy(QDate date); ///< "11/05/2026": calendar exchange and action plan
/// mdyyyy with the time of day behind it when there is one ("11/5/2026 2:05:00 PM"); what an XML attribute
/// holds.
QString general(const Moment& moment);
/// General form of a date and time: "11/5/2026 2:05:00 PM". Used by the logs.
QString general(const QDateTime& moment);

/// Whole weeks, days, ... from @p from to @p to as the date difference with this unit counts them:
/// "d" days, "w" whole weeks (seven days each, cut toward zero), "m" month boundaries crossed.
/// Any other unit counts weeks.
int difference(QChar unit, QDate from, QDate to);

} // namespace dates
