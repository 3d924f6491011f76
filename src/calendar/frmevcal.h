// The calendar screen: one month of events and tasks, and the frame in which one of them is edited.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "base/ports.h"
#include "base/rowmodel.h"
#include "calendar/caldis.h"
#include "calendar/eventpeople.h"
#include "calendar/jwevent.h"
#include "store/session.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// One event in a day's list.
struct DayChip
{
    QString key;           ///< "EV" and the slot; valid until the next changed()
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

/// Shows a month of events with its tasks, and plans, moves, closes and removes them.
///
/// All events are read once and painted from memory. A choice or a text goes into the editing frame only; the
/// store changes by cmdAdd1(), cmdRemove1(), removeEntry(), dropOn() and flipTask().
class FrmEvCal : public QObject
{
    Q_OBJECT

public:
    static constexpr int cellCount = 37;
    static constexpr int timerCalInterval = 1500; ///< ms that a drag rests on a month arrow before it steps
    static constexpr int eventBound = 1000;       ///< events in memory
    static constexpr int monthBound = 100;        ///< events in one month

    FrmEvCal(Session& session, Navigator& navigator);
    ~FrmEvCal() override;

    /// The controls.
    ///
    /// Month:
    /// - lblMonth ("November 2026"), Label11 ("Month of November"), lblEvents, lblBusy, lblBusiest
    /// - txtTotals, txtMonthly, txtNoDate: the tasks counted
    /// - chkShowComplete, cmdNewEvent, cmdNewTask: disabled while the events could not be read
    ///
    /// Frame:
    /// - frmeEventData: its caption, "mm/dd/yyyy" or "No Date"
    /// - txtEvName, txtEvDescription, chkTask, chkNoDate, chkComplete
    /// - txtFormat: the format, or the priority of a task; imgFormat or imgPriority is visible with it
    /// - imgOther1, imgOther2: the text chosen, "" for none
    /// - cmdAdd1, cmdRemove1
    ///
    /// Its times:
    /// - txtEvTimeS with optStAM and optStPM: the start, with lstTime as items
    /// - txtEvTimeN with optEnAM and optEnPM: the end, with the same
    /// - chkhalf, chkOne, chkOnehalf, chkTwo: lengths
    /// - dtEvTsk: the day as an ISO date, for those who do not drag
    /// - imgReminder: the bell, "1" when set; txtRemind with lstRemind as items
    ///
    /// Its people:
    /// - lblCompany, lblContact, lblPosition with their choices as items, the first one empty: none
    [[nodiscard]] Form& form() { return m_form; }
    /// Task, Due, State; kinds "due", "overdue", "completed"; keys "A" and the event's key.
    [[nodiscard]] RowModel& lvwAct() { return m_tasks; }

    // --- The month ----------------------------------------------------------------------------------------
    [[nodiscard]] const std::array<DayCell, cellCount>& cells() const { return m_cells; } ///< lvwDay(0..36)
    [[nodiscard]] int cellOf(QDate date) const; ///< -1 when the date is not in the shown month
    [[nodiscard]] qint16 month() const { return m_month; }
    [[nodiscard]] qint16 year() const { return m_year; }
    [[nodiscard]] QDate selectedDay() const { return m_selectedDay; } ///< always in the shown month

    /// What the task list says while it is empty.
    [[nodiscard]] QString tasksHint() const;
    /// lblMonth for the month of @p day.
    [[nodiscard]] static QString monthTitle(QDate day);

    // --- The frame ----------------------------------------------------------------------------------------
    [[nodiscard]] bool isFrameOpen() const { return m_frameOpen; }
    [[nodiscard]] bool isNewEntry() const { return m_rows.empty(); }
    [[nodiscard]] bool isFrameDirty() const { return m_frameDirty; } ///< holds what is not in the store
    /// The entry's day, for the frame's heading; invalid for "No Date".
    [[nodiscard]] QDate frameDate() const;
    /// What chkComplete says beside its box: "Complete" or "Incomplete".
    [[nodiscard]] QString completeCaption() const;
    /// The frame's heading: the entry's day in the user's language, and whether the entry is a new one.
    [[nodiscard]] QString frameHeading() const;
    /// The frame may go: true when nothing in it is unsaved, or the user has saved or dropped it. Asked by
    /// the view before it closes.
    bool mayLeaveFrame();

    // --- Called by other screens --------------------------------------------------------------------------
    /// The screen opens: reads the events and shows today's month, unless showEvent() or createHistoryEvent()
    /// has just prepared something else.
    void load();
    /// The screen has been closed.
    void unload();
    /// Opens the screen with the frame on this event. A calendar that is open already shows it, once what is
    /// unsaved in its frame has been asked for; so does the next.
    void showEvent(Key eventKey);
    /// Opens the screen with the frame on a new task made of these values: "H0" company, "H1" contact, "H2"
    /// position, "H3" event type, "H4" description, "H5" date in any of the program's forms (else today),
    /// "H6" medium. "NONE" means empty. An event type that begins with "net" makes it a networking event.
    void createHistoryEvent(const QHash<QString, QString>& values);
    /// Something else has changed events: an open calendar reads and paints them again. A frame with nothing
    /// unsaved shows what is stored now, or shuts when its entry is gone. What is unsaved stays, as an entry
    /// that is gone is then a new one, and one that has been closed stays closed.
    void reload();

    // --- Events, called by the view. Keys are those of chips ("EV3") and tasks ("A12"). -------------------
    void showMonth(QDate day); ///< the month of @p day, with that day selected
    /// Selects a day of any month and shows it. A new entry in the frame moves to it; an entry that has a row
    /// stays on its own day, so that looking around does not move it.
    void selectDay(QDate day);
    void newEvent(QDate day);
    void newTask(QDate day); ///< an invalid day: a task without a date
    void openEntry(const QString& key);
    void openEvent(Key eventKey);
    /// The keys go to this chip of the selected day; "" for the day itself.
    void chooseChip(const QString& chip);
    /// The chip that the keys are about; "" for none, and once another day or another event stands there.
    [[nodiscard]] QString chosenChip() const;
    /// The selected day is opened by a key, @p chip being the one of its chips that the keys are about (""
    /// for none): that entry or the day's only one is opened, several are offered by dayListWanted(), and a
    /// day without any gets a new one.
    void openChosen(const QString& chip);
    /// Something of the selected day is to be deleted: @p chip, without one the frame's entry when it lies
    /// there, else the day's only one. Which of several is not guessed.
    void removeChosen(const QString& chip);
    /// Drops an entry on a day: it moves there. Invalid days and unknown keys do nothing.
    void dropOn(const QString& key, QDate day);
    void removeEntry(const QString& key); ///< asks, then deletes
    void flipTask(const QString& key);    ///< right click in lvwAct: finished and open in turn
    void setShowComplete(bool show);
    void closeEvent(); ///< shuts the frame; what was typed is gone

    void chooseEventType(const QString& text);
    void chooseFormat(const QString& text);
    void chooseOther(int button, const QString& text); ///< imgOther1 or imgOther2, by 1 and 2
    void choosePriority(const QString& text);
    void chooseDuration(const QString& control); ///< chkhalf, chkOne, chkOnehalf or chkTwo has been clicked
    void chooseCompany(const QString& name);     ///< "" for none
    void chooseContact(const QString& name);
    void choosePosition(const QString& title);
    /// The list of contacts or positions is opened with nobody in it: says what has to be chosen first; true
    /// when there simply is nobody.
    bool mayListPeople();
    /// A text that names nobody was left in lblCompany, lblContact or lblPosition: it stays in the frame
    /// until it is mended or taken back, and a save refuses it.
    void holdUnknown(const QString& control, const QString& typed);
    /// Says what is wrong with the text that holdUnknown() has put there. What may not be chosen at all is
    /// taken back.
    void tellUnknown(const QString& control);
    /// The user has changed a control of the form.
    void fieldChanged(const QString& control);
    /// The user leaves a field: a time typed in another way ("14:30", "9", "2pm") is written as the list has
    /// it.
    void fieldLeft(const QString& control);

public slots:
    void cmdLast();     ///< the month before
    void cmdNext();     ///< the month behind
    void cmdToday();    ///< today's month, with today selected
    void cmdNewEvent(); ///< a new event on the selected day
    void cmdNewTask();  ///< a new task on the selected day
    void cmdAdd1();     ///< saves the frame's entry; the frame stays on it
    void cmdRemove1();  ///< asks, then deletes the frame's entry
    void cmdClose1();   ///< shuts the frame, after a question when it holds unsaved changes
    void imgReminder(); ///< the bell

signals:
    void changed(); ///< month, cells, selected day
    /// The frame has been opened or shut, stands for another entry, or the user has changed something in it.
    void frameChanged();
    /// The frame has been opened on an entry: the view brings it into sight and puts the focus into it. A
    /// view that is made behind load() asks isFrameOpen().
    void frameShown();
    void dayListWanted(); ///< the user is to pick one of the selected day's entries
    /// Events or positions in the store are no longer what they were.
    void recordsChanged();

private:
    /// The keys that an entry is stored with; 0 for none.
    struct Owners
    {
        Key company = 0;
        Key contact = 0;
        Key position = 0;
    };

    // Painting
    void loadEvents();
    void setMonth(QDate day);
    void clearCal();
    void fillEvents();
    void paintEvent(const JWevent& event, int slot);
    void fillTasks();
    void markDays();
    void repaint();
    enum class Bound { Events, Month };
    void keepNearest();
    void checkBound(Bound kind, const QString& what, const QString& place, size_t count);
    [[nodiscard]] ListRow taskRow(const JWevent& task) const;
    [[nodiscard]] QString with(const JWevent& entry) const;
    [[nodiscard]] static bool isStorable(QDate day);
    [[nodiscard]] const std::vector<DayChip>& selectedChips() const;
    [[nodiscard]] const JWevent* entryOf(const QString& key) const;
    void followStore();
    void storeChanged(QDate shown);
    void removeRows(const std::vector<Key>& rows);

    // The frame
    void openFrame(std::vector<Key> rows, QDate day);
    bool mayPlan();
    void newEntry(QDate day, bool task);
    void openHistoryTask(const QHash<QString, QString>& values);
    void fillFrame(const JWevent& event);
    void showMedium(const QString& medium, bool task);
    void fillTimes(const JWevent& event);
    void fillOwners(const RecordSet& row);
    void fillOthers();
    void setFrameDate(QDate day);
    bool takenByChoice(const QString& control);
    void setTask(bool task);
    void showTask(bool task);
    void setNoDate(bool noDate);
    void setBell(bool set);
    void tickDuration();
    void setHalf(const QString& am, const QString& pm, bool isPm);
    void showEndTime();
    void takeEndTime();
    bool normaliseTime(const QString& control);
    void nameChanged();
    void listCompanies();
    void listPeople();
    bool mayAssign(const QString& chosen);
    bool hasCompany();
    [[nodiscard]] static QString noSuchOwner(const QString& control);
    void choosePerson(const QString& control, const QString& name);
    void touched();
    [[nodiscard]] bool isNoDate() const;
    [[nodiscard]] bool isNetworking() const;
    [[nodiscard]] bool isOn(const QString& control) const;
    void setOn(const QString& control, bool on);

    // Saving
    bool save();
    [[nodiscard]] bool mayBeSaved();
    [[nodiscard]] std::optional<Owners> owners();
    std::nullopt_t refuse(const QString& control);
    void tellIfBeyond(Key eventKey);
    [[nodiscard]] Key contactKey(Key company);
    [[nodiscard]] bool wantsPlaceholder(const Owners& owners);
    [[nodiscard]] QString addPlaceholder(Owners& owners);
    [[nodiscard]] bool isStoredAsTask() const;
    [[nodiscard]] QString mediumStored() const;
    [[nodiscard]] QString insertStatement(const Owners& owners) const;
    bool replaceRows(const QString& insert, std::vector<Key>& left);
    bool settle(bool inserted, Key newKey, std::vector<Key> left);
    void saved(Key newKey);

    Session& m_session;
    Navigator& m_navigator;
    Form m_form;
    RowModel m_tasks;
    CalDis m_calDis;
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
    bool m_loaded = false;
    bool m_readable = true;
    bool m_showComplete = false;
    QSet<QString> m_told; ///< the bounds that have been spoken of; "!" before those told once an opening

    bool m_frameOpen = false;
    bool m_frameDirty = false;
    QDate m_frameDate;
    bool m_untimed = false;  ///< an event with "Nodate" for its start: an empty one does not make it a task
    QString m_duration;      ///< hours as a decimal text; what the entry is stored with
    QString m_otherMedium;   ///< the format while the entry is a task, the priority while it is an event
    QString m_company;       ///< whose people and positions are listed
    QStringList m_companies; ///< all that can be chosen
    std::vector<Key> m_rows; ///< the rows that the next save replaces: none for a new entry

    std::optional<Key> m_preparedEvent;
    std::optional<QHash<QString, QString>> m_preparedTask;
};
