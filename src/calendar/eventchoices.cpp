#include "calendar/eventchoices.h"

#include "calendar/eventtimes.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace eventchoices {

const std::vector<EventChoice>& eventTypes()
{
    static const std::vector<EventChoice> list{
        {u"Meeting"_s, u"Interview"_s},       {u"Followup"_s, u"Interview Follow-Up"_s},
        {u"Status"_s, u"Status Inquiry"_s},   {u"Referral"_s, u"Referral"_s},
        {u"Contact"_s, u"Contact Inquiry"_s}, {u"Networking"_s, networkingEvent.toString()},
        {u"Other"_s, u"Other Event"_s}};
    return list;
}

const std::vector<EventChoice>& formats()
{
    static const std::vector<EventChoice> list{
        {u"Phone"_s, u"Phone"_s}, {u"Internet"_s, u"Internet"_s}, {u"Conference"_s, u"Conference Call"_s},
        {u"Post"_s, u"Post"_s},   {u"Meeting"_s, u"Meeting"_s},   {u"Other"_s, u"Other"_s}};
    return list;
}

const std::vector<EventChoice>& others()
{
    static const std::vector<EventChoice> list{
        {u"Other"_s, u"Other"_s}, {u"Meal"_s, u"Meal"_s}, {u"Formal"_s, u"Formal Dress"_s}};
    return list;
}

const std::vector<EventChoice>& priorities()
{
    static const std::vector<EventChoice> list{{u"Priority1"_s, u"High Priority"_s},
                                               {u"Priority2"_s, u"Low Priority"_s}};
    return list;
}

bool isPriority(const QString& text)
{
    return std::ranges::find(priorities(), text, &EventChoice::text) != priorities().end();
}

QStringList times()
{
    QStringList list;
    for (int hour = 1; hour <= 12; ++hour)
        list << QString::number(hour) + u":00" << QString::number(hour) + u":30";
    return list;
}

QStringList reminders()
{
    QStringList list;
    for (const auto& [unit, most] :
         {std::pair(u"hrs"_s, 12), std::pair(u"dys"_s, 10), std::pair(u"wks"_s, 4)}) {
        for (int number = 1; number <= most; ++number)
            list << QString::number(number) + u' ' + unit;
    }
    return list;
}

QString getIcn(const QString& text)
{
    if (text.isEmpty())
        return {};
    for (const auto* list : {&eventTypes(), &formats(), &priorities()}) {
        for (const EventChoice& choice : *list) {
            if (choice.text == text)
                return choice.icon;
        }
    }
    return u"Other"_s;
}

QString alarmIcn(const QString& reminder1)
{
    return eventtimes::number(reminder1) > 0 ? u"Reminder"_s : u"Nobell"_s;
}

QString kindOf(const QString& eventName)
{
    if (eventName == u"Interview")
        return u"interview"_s;
    if (eventName == u"Interview Follow-Up")
        return u"follow-up"_s;
    if (eventName == u"Status Inquiry" || eventName == u"Contact Inquiry" || eventName == u"Referral")
        return u"inquiry"_s;
    return eventName == networkingEvent ? u"networking"_s : u"other"_s;
}

} // namespace eventchoices
