#include "calendar/monthsummary.h"

#include "base/dates.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("MonthSummary", text);
}

QString figure(const QString& name, int count)
{
    return name + u":  " + QString::number(count);
}

} // namespace

void MonthSummary::add(const JWevent& event)
{
    ++m_count;
    if (event.ampm == u"AM")
        ++m_mornings;
    ++m_weekdays[static_cast<size_t>(event.eventDate.dayOfWeek() - 1)];
    m_days.append(QString::number(event.eventDate.month()) + u'/' + QString::number(event.eventDate.day()));
}

QString MonthSummary::events() const
{
    if (m_count == 0)
        return {};
    return tr("Events: ") + QString::number(m_count) + tr(" mostly ") +
           (m_mornings > m_count - m_mornings ? tr("mornings") : tr("afternoon/evenings"));
}

QString MonthSummary::busy() const
{
    return m_days.join(u" , "_s);
}

QString MonthSummary::busiest() const
{
    const std::array<QString, 7> names{tr("Mondays"), tr("Tuesdays"),  tr("Wednesdays"), tr("Thursdays"),
                                       tr("Fridays"), tr("Saturdays"), tr("Sundays")};
    if (m_count == 0)
        return {};
    int best = 0;
    QString list;
    for (size_t day = 0; day < names.size(); ++day) {
        if (m_weekdays[day] > best) {
            best = m_weekdays[day];
            list = names[day];
        } else if (m_weekdays[day] == best && best > 0) {
            list += u" & " + names[day];
        }
    }
    return tr("Busiest on ") + list;
}

TaskState taskState(const JWevent& task, QDate today)
{
    if (task.complete == u"Complete")
        return TaskState::Completed;
    return task.hasDate() && task.eventDate < today ? TaskState::Overdue : TaskState::Due;
}

QString stateName(TaskState state)
{
    switch (state) {
    case TaskState::Overdue:
        return u"overdue"_s;
    case TaskState::Completed:
        return u"completed"_s;
    default:
        return u"due"_s;
    }
}

QString shownState(TaskState state)
{
    switch (state) {
    case TaskState::Overdue:
        return tr("overdue");
    case TaskState::Completed:
        return tr("completed");
    default:
        return tr("due");
    }
}

void TaskTotals::add(const JWevent& entry, QDate today)
{
    if (entry.isEvent())
        ++m_events;
    if (!entry.isTask())
        return;
    switch (taskState(entry, today)) {
    case TaskState::Overdue:
        ++m_overdue;
        break;
    case TaskState::Completed:
        ++m_completed;
        break;
    case TaskState::Due:
        ++m_due;
        break;
    }
}

QString TaskTotals::text(bool withOverdue) const
{
    QStringList lines{figure(tr("Tasks"), m_due + m_overdue + m_completed)};
    if (withOverdue)
        lines += figure(tr("--Overdue"), m_overdue);
    lines +=
        {figure(tr("--Due"), m_due), figure(tr("--Completed"), m_completed), figure(tr("Events"), m_events)};
    return lines.join(u'\n');
}
