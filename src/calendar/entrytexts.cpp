#include "calendar/entrytexts.h"

#include "calendar/eventtimes.h"

#include <QCoreApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("FrmEvCal", text);
}

bool isOpenTime(const JWevent& event)
{
    return event.eventTime.isEmpty() || event.eventTime == u"Nodate";
}

QString timeOf(const JWevent& event)
{
    const QString start = event.eventTime + u' ' + event.ampm;
    const double hours = eventtimes::number(event.eventDuration);
    if (hours <= 0)
        return start;
    return tr("%1 to %2").arg(start, eventtimes::getEndTime(event.eventTime, hours, event.ampm).remove(u'/'));
}

} // namespace

namespace entrytexts {

QString chip(const JWevent& event)
{
    if (isOpenTime(event))
        return event.eventName;
    return event.eventTime + (event.ampm == u"PM" ? u"p " : u" ") + event.eventName;
}

QString tip(const JWevent& entry, const QString& with)
{
    QStringList parts;
    if (!isOpenTime(entry))
        parts << timeOf(entry);
    parts << entry.eventName;
    if (!with.isEmpty())
        parts << tr("with %1").arg(with);
    if (!entry.medium.isEmpty())
        parts << entry.medium;
    const int lead = static_cast<int>(eventtimes::number(entry.reminder1));
    if (lead > 0)
        parts << tr("reminder %1 before").arg(eventtimes::reminderText(lead));
    if (entry.isDone())
        parts << (entry.isTask() ? tr("completed") : tr("closed"));
    const QString what = entry.eventDescription.trimmed();
    return parts.join(u", "_s) + (what.isEmpty() ? QString() : u'\n' + what);
}

QString task(const JWevent& task)
{
    const QString what = task.eventDescription.section(u'\n', 0, 0).trimmed();
    return what.isEmpty() ? task.eventName : QString(task.eventName + u": " + what);
}

} // namespace entrytexts
