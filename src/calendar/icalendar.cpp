#include "calendar/icalendar.h"

#include "calendar/eventtimes.h"

#include <libical/ical.h>

#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int secondsAnHour = 3600;
constexpr int lastYear = 9999; // RFC 5545, 3.3.4

using Component = std::unique_ptr<icalcomponent, decltype(&icalcomponent_free)>;

/// A stored text as the format can carry it: lines end in LF, and signs that no text file has are gone.
QByteArray plain(QString text)
{
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Control && c != u'\n' && c != u'\t'; });
    return text.toUtf8();
}

icaltimetype utc(const QDateTime& moment)
{
    const QDateTime there = moment.toUTC();
    icaltimetype value = icaltime_null_time();
    value.year = there.date().year();
    value.month = there.date().month();
    value.day = there.date().day();
    value.hour = there.time().hour();
    value.minute = there.time().minute();
    value.second = there.time().second();
    value.zone = icaltimezone_get_utc_timezone();
    return value;
}

/// The library takes years to 3000 only as a time, and writes zeros for others; as a text it takes all that
/// the format has.
icalproperty* momentProperty(const QString& name, QDate date, QTime time)
{
    const QString text =
        time.isValid() ? QString(name + u':' + date.toString(u"yyyyMMdd"_s) + time.toString(u"'T'HHmmss"_s))
                       : QString(name + u";VALUE=DATE:" + date.toString(u"yyyyMMdd"_s));
    return icalproperty_new_from_string(text.toLatin1().constData());
}

void addTexts(icalcomponent* component, const JWevent& entry, const QString& with, const QDateTime& now)
{
    const QString uid = u"event-%1@jobwright"_s.arg(entry.eventKey);
    icalcomponent_add_property(component, icalproperty_new_uid(uid.toUtf8().constData()));
    icalcomponent_add_property(component, icalproperty_new_dtstamp(utc(now)));
    const QString summary = with.isEmpty() ? entry.eventName : QString(entry.eventName + u" (" + with + u')');
    icalcomponent_add_property(component, icalproperty_new_summary(plain(summary).constData()));
    if (!entry.eventDescription.isEmpty())
        icalcomponent_add_property(component,
                                   icalproperty_new_description(plain(entry.eventDescription).constData()));
}

void addAlarm(icalcomponent* component, const JWevent& entry)
{
    bool isNumber = false;
    const int hours = entry.reminder1.toInt(&isNumber);
    constexpr int longest = 24 * 366;
    if (!isNumber || hours <= 0 || hours > longest)
        return;
    icaltriggertype trigger{};
    trigger.time = icaltime_null_time();
    trigger.duration = icaldurationtype_from_int(-hours * secondsAnHour);
    icalcomponent* const alarm = icalcomponent_new(ICAL_VALARM_COMPONENT);
    icalcomponent_add_property(alarm, icalproperty_new_action(ICAL_ACTION_DISPLAY));
    icalcomponent_add_property(alarm, icalproperty_new_trigger(trigger));
    icalcomponent_add_property(alarm, icalproperty_new_description(plain(entry.eventName).constData()));
    icalcomponent_add_component(component, alarm);
}

icalcomponent* eventOf(const JWevent& entry, const QString& with, const QDateTime& now)
{
    icalcomponent* const event = icalcomponent_new(ICAL_VEVENT_COMPONENT);
    addTexts(event, entry, with, now);
    const QTime start = entry.startTime();
    icalcomponent_add_property(event, momentProperty(u"DTSTART"_s, entry.eventDate, start));
    const double hours = eventtimes::number(entry.eventDuration);
    constexpr double longest = 24.0 * 366;
    if (start.isValid() && hours > 0 && hours <= longest) {
        // Reckoned without a zone, so that the night in which clocks change makes no meeting longer.
        const QDateTime end =
            QDateTime(entry.eventDate, start, Qt::UTC).addSecs(qRound64(hours * secondsAnHour));
        if (end.date().year() <= lastYear)
            icalcomponent_add_property(event, momentProperty(u"DTEND"_s, end.date(), end.time()));
    }
    addAlarm(event, entry);
    return event;
}

icalcomponent* taskOf(const JWevent& entry, const QString& with, const QDateTime& now)
{
    constexpr int highest = 1;
    constexpr int lowest = 9;
    icalcomponent* const task = icalcomponent_new(ICAL_VTODO_COMPONENT);
    addTexts(task, entry, with, now);
    if (entry.hasDate())
        icalcomponent_add_property(task, momentProperty(u"DUE"_s, entry.eventDate, entry.startTime()));
    if (entry.medium == u"High Priority")
        icalcomponent_add_property(task, icalproperty_new_priority(highest));
    if (entry.medium == u"Low Priority")
        icalcomponent_add_property(task, icalproperty_new_priority(lowest));
    icalcomponent_add_property(
        task, icalproperty_new_status(entry.isDone() ? ICAL_STATUS_COMPLETED : ICAL_STATUS_NEEDSACTION));
    return task;
}

/// A calendar must hold something (RFC 5545, 3.4). A time zone is the least, and shows as nothing.
icalcomponent* nothing()
{
    return icalcomponent_new_from_string("BEGIN:VTIMEZONE\r\nTZID:Etc/UTC\r\nBEGIN:STANDARD\r\n"
                                         "DTSTART:19700101T000000\r\nTZOFFSETFROM:+0000\r\n"
                                         "TZOFFSETTO:+0000\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n");
}

} // namespace

namespace icalendar {

QByteArray write(const std::vector<JWevent>& entries, const QDateTime& now, const QHash<Key, QString>& with)
{
    const Component calendar(icalcomponent_new(ICAL_VCALENDAR_COMPONENT), &icalcomponent_free);
    icalcomponent_add_property(calendar.get(), icalproperty_new_version("2.0"));
    icalcomponent_add_property(calendar.get(), icalproperty_new_prodid("-//Jobwright//Jobwright//EN"));
    for (const JWevent& entry : entries) {
        if (entry.isTask())
            icalcomponent_add_component(calendar.get(), taskOf(entry, with.value(entry.eventKey), now));
        else if (entry.hasDate())
            icalcomponent_add_component(calendar.get(), eventOf(entry, with.value(entry.eventKey), now));
    }
    if (icalcomponent_count_components(calendar.get(), ICAL_ANY_COMPONENT) == 0)
        icalcomponent_add_component(calendar.get(), nothing());
    const std::unique_ptr<char, decltype(&std::free)> text(icalcomponent_as_ical_string_r(calendar.get()),
                                                           &std::free);
    return QByteArray(text.get());
}

} // namespace icalendar
