// The arithmetic of a month grid.
#pragma once

#include "base/clock.h"

#include <QDate>
#include <QString>
#include <QStringList>

/// What a grid of seven columns needs to know of one month. Weekdays count from Sunday = 1 to Saturday = 7.
class CalDis
{
public:
    explicit CalDis(Clock clock);

    /// The current date when setMonth() was last called.
    [[nodiscard]] QDate Today() const { return m_today; }
    void setToday(QDate day) { m_today = day; }
    [[nodiscard]] qint16 startDay() const { return m_startDay; } ///< weekday of the 1st
    void setStartDay(qint16 weekday) { m_startDay = weekday; }
    [[nodiscard]] qint16 endDay() const { return m_endDay; } ///< weekday of the last day
    void setEndDay(qint16 weekday) { m_endDay = weekday; }
    [[nodiscard]] qint16 numDay() const { return m_numDay; } ///< number of days
    void setNumDay(qint16 days) { m_numDay = days; }
    [[nodiscard]] const QString& monthName() const { return m_monthName; } ///< full English name
    void setMonthName(const QString& name) { m_monthName = name; }

    /// Fills all five from any valid date of the month.
    void setMonth(QDate date);

    [[nodiscard]] static QDate getFirstDate(QDate date); ///< the 1st of that date's month
    [[nodiscard]] static qint16 getNumDay(QDate date);   ///< days of that date's month
    [[nodiscard]] static qint16 getStartDay(QDate date); ///< weekday of the date itself; callers pass the 1st
    [[nodiscard]] static QString getMonth(QDate date);   ///< the month's full English name
    /// One entry: the month's holiday as "day,name", or "" for a month without one.
    [[nodiscard]] static QStringList getHolidayList(QDate date);

private:
    Clock m_clock;
    QDate m_today;
    qint16 m_startDay = 0;
    qint16 m_endDay = 0;
    qint16 m_numDay = 0;
    QString m_monthName;
};
