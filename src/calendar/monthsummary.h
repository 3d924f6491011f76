// What the calendar says about a month in a few words and figures.
#pragma once

#include "calendar/jwevent.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <array>

/// Counts the events of a month for the three sentences above the grid.
class MonthSummary
{
public:
    void add(const JWevent& event);

    [[nodiscard]] int count() const { return m_count; }
    /// "Events: 9 mostly mornings"; "" without an event.
    [[nodiscard]] QString events() const;
    /// The days in order, "11/3 , 11/5"; "" without an event.
    [[nodiscard]] QString busy() const;
    /// "Busiest on Tuesdays & Thursdays"; "" without an event.
    [[nodiscard]] QString busiest() const;

private:
    int m_count = 0;
    int m_mornings = 0;
    std::array<int, 7> m_weekdays{}; ///< from Monday
    QStringList m_days;
};

/// How a task stands on a day.
enum class TaskState { Due, Overdue, Completed };

/// A task whose date lies before @p today is overdue; one without a date never is, nor is a completed one.
TaskState taskState(const JWevent& task, QDate today);
/// "due", "overdue" or "completed", the same in every language.
QString stateName(TaskState state);
/// The same as a person reads it.
QString shownState(TaskState state);

/// Counts tasks by state, and events.
class TaskTotals
{
public:
    void add(const JWevent& entry, QDate today);
    /// A line for each figure, from "Tasks:  3" to "Events:  2".
    [[nodiscard]] QString text(bool withOverdue = true) const;

private:
    int m_due = 0;
    int m_overdue = 0;
    int m_completed = 0;
    int m_events = 0;
};
