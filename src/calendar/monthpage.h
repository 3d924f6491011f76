// The month that the calendar shows.
#pragma once

#include "base/form.h"
#include "base/rowmodel.h"
#include "calendar/caldis.h"
#include "calendar/eventbounds.h"
#include "calendar/eventpeople.h"
#include "calendar/jwevent.h"

#include <QCoreApplication>
#include <QStringList>

#include <array>
#include <vector>

/// One event in a day's list.
struct DayChip
{
    QString key;           ///< "EV" and the slot; valid until the month is painted again
    QString text;          ///< "10:30 Interview", "2:00p Referral"; the name alone when it has no time
    QString tip;           ///< all of it in words, for a tool tip and for those who do not see the pictures
    QStringList icons;     ///< pictures in order: type, format, alarm ("Meeting", "Phone", "Nobell")
    QString kind;          ///< colour group, eventchoices::kindOf()
    bool ghosted = false;  ///< a closed event that is shown all the same
    bool complete = false; ///< closed or finished
};

/// One of the 37 day lists.
struct DayCell
{
    QDate date; ///< invalid outside the month
    std::vector<DayChip> chips;
    bool today = false;
    bool selected = false;
};

/// All events in memory, and one month of them as cells, tasks, totals and sentences. Reads the store, writes
/// nothing into it.
///
/// Its controls in the form:
/// - lblMonth ("November 2026"), Label11 ("Month of November"), lblEvents, lblBusy, lblBusiest
/// - txtTotals, txtMonthly, txtNoDate: the tasks counted
/// - chkShowComplete, cmdNewEvent, cmdNewTask: disabled while the events could not be read
class MonthPage
{
    Q_DECLARE_TR_FUNCTIONS(MonthPage)

public:
    static constexpr int cellCount = 37; ///< as many as the longest month with the latest start needs

    /// Both must outlive this.
    MonthPage(Session& session, Form& form);

    /// Task, Due, State; kinds "due", "overdue", "completed"; keys "A" and the event's key.
    [[nodiscard]] RowModel& lvwAct() { return m_tasks; }
    [[nodiscard]] const std::array<DayCell, cellCount>& cells() const { return m_cells; } ///< lvwDay(0..36)
    [[nodiscard]] int cellOf(QDate date) const; ///< -1 when the date is not in the shown month
    [[nodiscard]] qint16 month() const { return m_month; }
    [[nodiscard]] QDate selectedDay() const { return m_selectedDay; } ///< always in the shown month
    /// False when the last reading of the events failed: the month is then unknown, not empty.
    [[nodiscard]] bool isReadable() const { return m_readable; }
    [[nodiscard]] QString tasksHint() const; ///< what the task list says while it is empty
    [[nodiscard]] static QString monthTitle(QDate day);

    void openAgain(); ///< the screen opens
    void forget();    ///< the screen has been closed
    void loadEvents();
    void setMonth(QDate day); ///< empty yet, with @p day selected
    void fillEvents();
    void select(QDate day); ///< setMonth() is to follow when it lies in another month
    [[nodiscard]] bool showsComplete() const { return m_showComplete; }
    void setShowComplete(bool show);

    /// The event of a chip ("EV3") or a task ("A12"); null for any other key.
    [[nodiscard]] const JWevent* entryOf(const QString& key) const;
    [[nodiscard]] const std::vector<DayChip>& selectedChips() const;
    /// The keys go to this chip of the selected day, "" for the day itself. False when they are there.
    bool chooseChip(const QString& chip);
    /// The chip that the keys are about; "" for none, and once another day or another event stands there.
    [[nodiscard]] QString chosenChip() const;
    void tellIfBeyond(Key eventKey) { m_bounds.tellIfBeyond(eventKey, m_events); }

private:
    void clearCal();
    void markDays();
    void paintEvent(const JWevent& event, int slot);
    void fillTasks();
    [[nodiscard]] ListRow taskRow(const JWevent& task) const;
    [[nodiscard]] QString with(const JWevent& entry) const;

    Session& m_session;
    Form& m_form;
    RowModel m_tasks;
    CalDis m_calDis;
    EventBounds m_bounds;
    std::vector<JWevent> m_events; ///< slot 1 is the first
    EventOwnersByKey m_owners;     ///< of m_events
    EventPeople m_people;
    std::vector<JWevent> m_monthEvents; ///< copies of the shown month's
    std::array<DayCell, cellCount> m_cells;
    qint16 m_month = 0;
    qint16 m_year = 0;
    QDate m_selectedDay;
    QString m_chip;
    Key m_chipEvent = 0; ///< that m_chip stood for when it was chosen
    bool m_readable = true;
    bool m_showComplete = false;
};
