#include "calendar/caldis.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

qint16 fromSunday(QDate date)
{
    return static_cast<qint16>(date.dayOfWeek() % 7 + 1);
}

} // namespace

CalDis::CalDis(Clock clock)
    : m_clock(std::move(clock))
{
}

void CalDis::setMonth(QDate date)
{
    m_startDay = getStartDay(getFirstDate(date));
    m_numDay = getNumDay(date);
    m_endDay = fromSunday(QDate(date.year(), date.month(), m_numDay));
    m_monthName = getMonth(date);
    m_today = m_clock().date();
}

QDate CalDis::getFirstDate(QDate date)
{
    return {date.year(), date.month(), 1};
}

qint16 CalDis::getNumDay(QDate date)
{
    const QDate first = getFirstDate(date);
    return static_cast<qint16>(first.daysTo(first.addMonths(1)));
}

qint16 CalDis::getStartDay(QDate date)
{
    return fromSunday(date);
}

QString CalDis::getMonth(QDate date)
{
    static const std::array<QString, 12> names{u"January"_s,   u"February"_s, u"March"_s,    u"April"_s,
                                               u"May"_s,       u"June"_s,     u"July"_s,     u"August"_s,
                                               u"September"_s, u"October"_s,  u"November"_s, u"December"_s};
    return date.isValid() ? names.at(static_cast<size_t>(date.month() - 1)) : QString();
}

QStringList CalDis::getHolidayList(QDate date)
{
    // One day a month at most, each fixed in every year, Labor Day too. The first name holds a grave accent,
    // as an apostrophe would end a quoted value of a statement.
    switch (date.month()) {
    case 1:
        return {u"1,New Year`s Day"_s};
    case 4:
        return {u"15,Tax Day"_s};
    case 7:
        return {u"4,Independence Day"_s};
    case 9:
        return {u"1,Labor Day"_s};
    case 10:
        return {u"31,Halloween"_s};
    case 12:
        return {u"25,Christmas Day"_s};
    default:
        return {QString()};
    }
}
