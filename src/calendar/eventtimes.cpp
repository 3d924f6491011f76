#include "calendar/eventtimes.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int halfDay = 720; // minutes
constexpr int mostHours = 32767;

struct Clocked
{
    int hour;
    int minute;
    [[nodiscard]] int minutes() const { return hour * 60 + minute; }
};

/// "h:mm" as it stands, on whatever clock; an empty minute is the full hour.
std::optional<Clocked> clocked(const QString& text)
{
    static const QRegularExpression form(u"^\\s*(\\d{1,2})\\s*(?::\\s*(\\d{0,2})\\s*)?$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const Clocked time{match.capturedView(1).toInt(), match.capturedView(2).toInt()};
    if (time.hour > 23 || time.minute > 59)
        return std::nullopt;
    return time;
}

QString minuteText(int minute)
{
    return QString::number(minute).rightJustified(2, u'0');
}

/// The hours that one of a reminder's unit has; 0 for no unit.
int hoursPerUnit(const QString& unit)
{
    if (unit == u"hrs")
        return 1;
    if (unit == u"dys")
        return 24;
    return unit == u"wks" ? 24 * 7 : 0;
}

struct Reminder
{
    double count;
    int hoursEach;
};

std::optional<Reminder> readReminder(const QString& text)
{
    const QString trimmed = text.trimmed();
    const int hoursEach = hoursPerUnit(trimmed.right(3).toLower());
    bool isNumber = false;
    const double count =
        trimmed.chopped(std::min<qsizetype>(3, trimmed.size())).trimmed().toDouble(&isNumber);
    if (hoursEach == 0 || !isNumber || !std::isfinite(count) || count < 0)
        return std::nullopt;
    return Reminder{count, hoursEach};
}

/// A 12-hour clock's hour as the durations count it. Twelve is twelve in the morning too: an entry that
/// begins at 12:30 AM is counted from the hour 12.
int countedHour(int hour, const QString& ampm)
{
    return ampm == u"PM" && hour != 12 ? hour + 12 : hour;
}

} // namespace

namespace eventtimes {

QTime ClockTime::toTime() const
{
    const auto time = clocked(text);
    return time ? QTime(time->hour % 12 + (pm ? 12 : 0), time->minute) : QTime();
}

std::optional<ClockTime> readTime(const QString& typed, bool pm)
{
    static const QRegularExpression letters(u"\\s*([ap])\\.?\\s*(?:m\\.?)?\\s*$"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    QString digits = typed;
    const QRegularExpressionMatch half = letters.match(typed);
    if (half.hasMatch()) {
        pm = half.captured(1).toLower() == u"p";
        digits.truncate(half.capturedStart());
    }
    const auto time = clocked(digits);
    if (!time)
        return std::nullopt;
    int hour = time->hour;
    if (hour == 0 || hour > 12) { // a 24-hour clock tells the half of the day itself
        pm = hour > 12;
        hour = hour == 0 ? 12 : hour - 12;
    }
    return ClockTime{QString::number(hour) + u':' + minuteText(time->minute), pm};
}

double number(const QString& text)
{
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? value : 0;
}

QString decimal(double value)
{
    return QString::number(value, 'g', 15);
}

int hoursOf(const QString& reminder)
{
    const auto read = readReminder(reminder);
    if (!read)
        return 0;
    return static_cast<int>(std::lround(std::min<double>(read->count * read->hoursEach, mostHours)));
}

bool isReminder(const QString& reminder)
{
    return readReminder(reminder).has_value();
}

QString reminderText(int hours)
{
    if (hours <= 0)
        return {};
    if (hours <= 24)
        return decimal(hours) + u" hrs";
    const double days = hours / 24.0;
    if (days <= 7)
        return decimal(days) + u" dys";
    return decimal(std::floor(days / 7)) + u" wks";
}

QString getEndTime(const QString& start, double hours, const QString& ampm)
{
    const auto from = clocked(start);
    if (!from || start == u"Nodate")
        return {};
    // Half a day is taken off twice at most, and noon and midnight count as twelve hours: so a lunch from
    // 12:30 PM ends in the morning.
    int minutes = from->minutes() + (ampm == u"PM" ? halfDay : 0) +
                  static_cast<int>(std::lround(std::clamp<double>(hours, 0, mostHours) * 60));
    QString half = u"AM"_s;
    if (minutes >= halfDay) {
        minutes -= halfDay;
        half = u"PM"_s;
        if (minutes > halfDay) {
            minutes -= halfDay;
            half = u"AM"_s;
        }
    }
    const int hour = minutes / 60;
    return QString::number(hour == 0 ? 12 : hour) + u':' + minuteText(minutes % 60) + u" /" + half;
}

QString duration(const QString& start, const QString& startAmpm, const QString& end, const QString& endAmpm)
{
    const auto from = clocked(start);
    const auto to = clocked(end);
    if (!from || !to)
        return u"0"_s;
    const int minutes = Clocked{countedHour(to->hour, endAmpm), to->minute}.minutes() -
                        Clocked{countedHour(from->hour, startAmpm), from->minute}.minutes();
    return decimal(std::max(minutes, 0) / 60.0);
}

} // namespace eventtimes
