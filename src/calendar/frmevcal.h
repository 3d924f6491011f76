// The calendar screen: one month of events and tasks, and the frame in which one of them is edited.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "base/ports.h"
#include "calendar/eventframe.h"
#include "calendar/monthpage.h"
#include "store/session.h"
#include "store/storefollower.h"

#include <QHash>
#include <QObject>
#include <QVariant>

#include <optional>
#include <vector>

/// Shows a month of events with its tasks, and plans, moves, closes and removes them: leads the month
/// (MonthPage) and the frame (EventFrame), which know nothing of each other.
///
/// All events are read once and painted from memory. The store changes by cmdAdd1(), cmdRemove1(),
/// removeEntry(), dropOn() and flipTask(), and each change is followed by another reading.
class FrmEvCal : public QObject
{
    Q_OBJECT

public:
    static constexpr int timerCalInterval = 1500; ///< ms that a drag rests on a month arrow before it steps

    explicit FrmEvCal(Session& session);
    ~FrmEvCal() override;

    /// The controls of MonthPage and EventFrame.
    [[nodiscard]] Form& form() { return m_form; }

    // --- The month ----------------------------------------------------------------------------------------
    [[nodiscard]] RowModel& lvwAct() { return m_page.lvwAct(); }
    [[nodiscard]] const auto& cells() const { return m_page.cells(); } ///< lvwDay(0..36)
    [[nodiscard]] int cellOf(QDate date) const { return m_page.cellOf(date); }
    [[nodiscard]] qint16 month() const { return m_page.month(); }
    [[nodiscard]] QDate selectedDay() const { return m_page.selectedDay(); }
    [[nodiscard]] QString chosenChip() const { return m_page.chosenChip(); }
    [[nodiscard]] QString tasksHint() const { return m_page.tasksHint(); }

    // --- The frame ----------------------------------------------------------------------------------------
    /// For what the user chooses and types in it.
    [[nodiscard]] EventFrame& frame() { return m_frame; }
    [[nodiscard]] bool isFrameOpen() const { return m_frame.isOpen(); }
    [[nodiscard]] bool isNewEntry() const { return m_frame.isNewEntry(); }
    [[nodiscard]] bool isFrameDirty() const { return m_frame.isDirty(); }
    [[nodiscard]] QDate frameDate() const { return m_frame.date(); }
    /// The frame may go: true when nothing in it is unsaved, or the user has saved or dropped it. Asked by
    /// the view before it closes.
    bool mayLeaveFrame();

    // --- Called by other screens --------------------------------------------------------------------------
    /// The screen opens: reads the events and shows today's month.
    void load();
    /// The screen has been closed.
    void unload();
    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    /// Shows what the screen was opened with: the event of a Key, or the values of createHistoryEvent(). What
    /// is unsaved in the frame is asked for first.
    void show(const QVariant& request);
    /// Puts the frame on a new task made of these values: "H0" company, "H1" contact, "H2" position, "H3"
    /// event type, "H4" description, "H5" date in any of the program's forms (else today), "H6" medium.
    /// "NONE" means empty. An event type that begins with "net" makes it a networking event.
    void createHistoryEvent(const QHash<QString, QString>& values);
    /// Something else has changed events: an open calendar reads and paints them again, and its frame
    /// follows.
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
    /// The user has changed a control of the form, or leaves it.
    void fieldChanged(const QString& control);
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
    void changed();      ///< month, cells, selected day
    void frameChanged(); ///< EventFrame::changed()
    /// The frame has been opened on an entry: the view brings it into sight and puts the focus into it. A
    /// view that is made behind load() asks isFrameOpen().
    void frameShown();
    void dayListWanted(); ///< the user is to pick one of the selected day's entries

private:
    void readEvents();
    void fillEvents();
    void storeChanged(QDate shown);
    bool mayPlan();
    void follow(QDate day); ///< the month follows the entry in the frame
    void newEntry(QDate day, bool task);
    void openHistoryTask(const QHash<QString, QString>& values);
    bool save();
    void removeRows(const std::vector<Key>& rows);

    Session& m_session;
    Form m_form;
    MonthPage m_page;
    EventFrame m_frame;
    StoreFollower m_follower;
    bool m_loaded = false;
};
