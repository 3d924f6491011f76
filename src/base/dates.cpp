#include "base/dates.h"

#include <QLocale>

#include <array>

namespace dates {
namespace {

/// Walks a text digit run by digit run; every take answers whether what it wants was there.
class Cursor
{
public:
    explicit Cursor(QStringView text)
        : m_text(text)
    {
    }

    bool atEnd() const { return m_pos >= m_text.size(); }
    bool take(QChar c)
    {
        if (atEnd() || m_text[m_pos] != c)
            return false;
        ++m_pos;
        return true;
    }
    /// A run of 1 to @p maxDigits ASCII digits; @p digits tells how many there were.
    bool number(int& value, int maxDigits, int* digits = nullptr)
    {
        const qsizetype start = m_pos;
        value = 0;
        while (!atEnd() && m_text[m_pos] >= u'0' && m_text[m_pos] <= u'9' && m_pos - start < maxDigits)
            value = value * 10 + (m_text[m_pos++].unicode() - u'0');
        if (digits)
            *digits = static_cast<int>(m_pos - start);
        return m_pos > start;
    }
    QStringView rest() const { return m_text.mid(m_pos); }

private:
    QStringView m_text;
    qsizetype m_pos = 0;
};

int fullYear(int year, int digits)
{
    if (digits > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

QDate validDate(int year, int month, int day)
{
    return year >= 100 ? QDate(year, month, day) : QDate();
}

bool readDate(Cursor& in, QDate& date)
{
    int first = 0;
    int firstDigits = 0;
    if (!in.number(first, 4, &firstDigits))
        return false;
    int second = 0;
    int third = 0;
    int thirdDigits = 0;
    if (firstDigits == 4) {
        if (!in.take(u'-') || !in.number(second, 2) || !in.take(u'-') || !in.number(third, 2))
            return false;
        date = validDate(first, second, third);
    } else {
        if (firstDigits > 2 || !in.take(u'/') || !in.number(second, 2) || !in.take(u'/') ||
            !in.number(third, 4, &thirdDigits) || thirdDigits == 3)
            return false;
        date = validDate(fullYear(third, thirdDigits), first, second);
    }
    return date.isValid();
}

/// The half of the day behind a time: +0 or +12 hours, -1 when the text is no such mark.
int halfOfDay(QStringView mark, int hour)
{
    const bool am = mark.compare(u"AM", Qt::CaseInsensitive) == 0;
    const bool pm = mark.compare(u"PM", Qt::CaseInsensitive) == 0;
    if ((!am && !pm) || hour < 1 || hour > 12)
        return -1;
    return hour % 12 + (pm ? 12 : 0);
}

bool readTime(Cursor& in, QTime& time)
{
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (!in.number(hour, 2) || !in.take(u':') || !in.number(minute, 2))
        return false;
    if (in.take(u':') && !in.number(second, 2))
        return false;
    const QStringView mark = in.rest().trimmed();
    if (!mark.isEmpty())
        hour = halfOfDay(mark, hour);
    time = QTime(hour, minute, second);
    return time.isValid();
}

/// Appends a number of at least that many digits. A backup writes hundreds of thousands of dates, and Qt's
/// own formatting of each goes through printf.
void addDigits(QString& text, int number, int digits)
{
    if (number >= 10 || digits > 1)
        addDigits(text, number / 10, digits - 1);
    text += QChar(u'0' + number % 10);
}

} // namespace

QDateTime Moment::toDateTime() const
{
    return QDateTime(date, time.isValid() ? time : QTime(0, 0));
}

std::optional<Moment> parse(QStringView text)
{
    Cursor in(text.trimmed());
    Moment moment;
    if (!readDate(in, moment.date))
        return std::nullopt;
    if (in.atEnd())
        return moment;
    if (!in.take(u' ') && !in.take(u'T'))
        return std::nullopt;
    if (!readTime(in, moment.time))
        return std::nullopt;
    return moment;
}

QString toIso(const Moment& moment)
{
    if (!moment.date.isValid())
        return {};
    int year = 0;
    int month = 0;
    int day = 0;
    moment.date.getDate(&year, &month, &day);
    QString text;
    text.reserve(19);
    addDigits(text, year, 4);
    addDigits(text += u'-', month, 2);
    addDigits(text += u'-', day, 2);
    if (!moment.time.isValid())
        return text;
    addDigits(text += u' ', moment.time.hour(), 2);
    addDigits(text += u':', moment.time.minute(), 2);
    addDigits(text += u':', moment.time.second(), 2);
    return text;
}

std::optional<Moment> fromIso(QStringView text)
{
    if (text.size() < 10 || text[4] != u'-')
        return std::nullopt;
    return parse(text);
}

bool isDay(QDate date)
{
    return date.isValid() && date != sentinel;
}

QString shown(QDate date)
{
    return isDay(date) ? QLocale().toString(date, QLocale::ShortFormat) : QString();
}

QString mdyy(QDate date)
{
    return QString(QString::number(date.month()) + u'/' + QString::number(date.day()) + u'/' +
                   QString::number(date.year() % 100).rightJustified(2, u'0'));
}

QString mdyyyy(QDate date)
{
    int year = 0;
    int month = 0;
    int day = 0;
    date.getDate(&year, &month, &day);
    QString text;
    text.reserve(22); // with the room for a time of day behind it
    addDigits(text, month, 1);
    addDigits(text += u'/', day, 1);
    addDigits(text += u'/', year, 4);
    return text;
}

QString mmddyyyy(QDate date)
{
    return QString(QString::number(date.month()).rightJustified(2, u'0') + u'/' +
                   QString::number(date.day()).rightJustified(2, u'0') + u'/' +
                   QString::number(date.year()).rightJustified(4, u'0'));
}

QString general(const Moment& moment)
{
    QString text = mdyyyy(moment.date);
    if (!moment.time.isValid())
        return text;
    const int hour = moment.time.hour();
    addDigits(text += u' ', hour % 12 == 0 ? 12 : hour % 12, 1);
    addDigits(text += u':', moment.time.minute(), 2);
    addDigits(text += u':', moment.time.second(), 2);
    return text += hour < 12 ? u" AM" : u" PM";
}

QString general(const QDateTime& moment)
{
    return general(Moment{moment.date(), moment.time()});
}

int difference(QChar unit, QDate from, QDate to)
{
    const auto days = static_cast<int>(from.daysTo(to));
    if (unit == u'd')
        return days;
    if (unit == u'm')
        return (to.year() - from.year()) * 12 + to.month() - from.month();
    return days / 7;
}

} // namespace dates
