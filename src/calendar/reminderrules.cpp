#include "calendar/reminderrules.h"

#include "base/dates.h"
#include "calendar/eventtimes.h"
#include "calendar/jwevent.h"

#include <QCoreApplication>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 secondsAnHour = 3600;
constexpr qint64 hoursADay = 24;

/// The same figures on the clock, taken as UTC. Appointments are made by the wall clock: counted so, an
/// event in the hour that summer time skips is still a moment, and a day always has 24 hours.
QDateTime wallClock(const QDateTime& local)
{
    return {local.date(), local.time(), Qt::UTC};
}

qint64 wholeHours(const QDateTime& from, const QDateTime& to)
{
    return from.secsTo(to) / secondsAnHour;
}

/// An invalid time of day when it cannot be read; the beginning of the day without one.
std::optional<dates::Moment> momentOf(const ReminderValues& values)
{
    // A row without a date is as old as a row can be: it must not keep the others from being seen.
    const QString date = values.date.isEmpty() ? dates::mdyyyy(JWevent::zeroDate) : values.date;
    const QString time = values.time.trimmed();
    const QString half = values.ampm.trimmed();
    if (const auto moment = dates::parse(QString(date + u' ' + time + u' ' + half)))
        return dates::Moment{moment->date, moment->time.isValid() ? moment->time : QTime(0, 0)};
    const auto day = dates::parse(date);
    if (!day)
        return std::nullopt;
    if (time.isEmpty())
        return dates::Moment{day->date, QTime(0, 0)};
    const auto read = eventtimes::readTime(time, half.compare(u"PM", Qt::CaseInsensitive) == 0);
    return dates::Moment{day->date, read ? read->toTime() : QTime()};
}

/// An empty text is no reminder, as in the rows that other programs leave; any other has to be a number.
std::optional<double> leadOf(const QString& text)
{
    if (text.trimmed().isEmpty())
        return 0.0;
    bool isNumber = false;
    const double hours = text.trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(hours))
        return std::nullopt;
    return hours;
}

bool isInLead(qint64 hours, double lead)
{
    // Without a reminder the lead is 0, so every open event speaks up once its moment has come.
    return static_cast<double>(hours) <= std::trunc(lead);
}

} // namespace

QString ReminderVerdict::timeLeft() const
{
    if (hours > hoursADay)
        return QString::number(hours / hoursADay) + u" dys";
    return QString::number(hours) + u" hrs";
}

QString ReminderVerdict::urgency() const
{
    if (hours <= 0)
        return u"Overdue"_s;
    return static_cast<double>(hours) <= std::trunc(lead / 2) ? u"sel"_s : u"unsel"_s;
}

QString urgencyWord(const QString& urgency)
{
    if (urgency == u"Overdue")
        return u"overdue"_s;
    return urgency == u"sel" ? u"soon"_s : u"later"_s;
}

QString shownUrgency(const QString& urgency)
{
    if (urgency == u"Overdue")
        return QCoreApplication::translate("ReminderRules", "overdue");
    return urgency == u"sel" ? QCoreApplication::translate("ReminderRules", "soon")
                             : QCoreApplication::translate("ReminderRules", "later");
}

ReminderRules::ReminderRules(const QDateTime& now)
    : m_now(wallClock(now))
    , m_moment(JWevent::zeroDate, QTime(0, 0), Qt::UTC)
{
}

std::optional<ReminderVerdict> ReminderRules::judge(const ReminderValues& values)
{
    bool isUnreadable = false;
    if (values.time != u"Nodate") {
        const auto moment = momentOf(values);
        if (!moment)
            return std::nullopt;
        isUnreadable = !moment->time.isValid();
        m_moment = QDateTime(moment->date, isUnreadable ? QTime(0, 0) : moment->time, Qt::UTC);
    }
    const auto lead = leadOf(values.lead);
    ReminderVerdict verdict{m_moment, lead.value_or(0), wholeHours(m_now, m_moment), false,
                            isUnreadable || !lead};
    verdict.inTime = isInLead(verdict.hours, verdict.lead);
    return verdict;
}

bool ReminderRules::isInTime(const ReminderVerdict& event, const QDateTime& when)
{
    return isInLead(wholeHours(wallClock(when), event.moment), event.lead);
}
