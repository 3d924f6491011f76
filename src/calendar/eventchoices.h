// What the calendar's picture buttons and drop-down lists offer.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// One entry of a picture button's menu.
struct EventChoice
{
    QString icon; ///< the picture's name ("Followup")
    QString text; ///< what is shown, and what is stored
};

/// The lists of the editing frame, and the pictures and colour groups that go with an entry's texts. The
/// texts are stored and compared exactly, so they are the same in every language.
namespace eventchoices {

const std::vector<EventChoice>& eventTypes(); ///< imgEventType, headed "Event Type"
const std::vector<EventChoice>& formats();    ///< imgFormat, headed "Format"
const std::vector<EventChoice>& others();     ///< imgOther1 and imgOther2
const std::vector<EventChoice>& priorities(); ///< imgPriority, headed "Priority"
bool isPriority(const QString& text);
QStringList times();     ///< lstTime: "1:00" to "12:30" by half hours
QStringList reminders(); ///< lstRemind: "1 hrs" to "12 hrs", "1 dys" to "10 dys", "1 wks" to "4 wks"

inline constexpr QStringView networkingEvent = u"Networking Event";

/// The picture's name for an event type, a format or a priority: "Other" for a text that no list has, "" for
/// "".
QString getIcn(const QString& text);
/// The picture of an alarm: "Reminder" with a lead time, else "Nobell".
QString alarmIcn(const QString& reminder1);
/// The colour group of an event type: "interview", "follow-up", "inquiry" (referrals among them),
/// "networking" or "other".
QString kindOf(const QString& eventName);

} // namespace eventchoices
