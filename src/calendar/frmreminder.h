// The reminder screen: what is due speaks up.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "base/ports.h"
#include "base/rowmodel.h"
#include "store/session.h"
#include "store/storefollower.h"

#include <QObject>

#include <optional>
#include <set>
#include <vector>

class RecordSet;
struct DueEvent;

/// Looks at the events now and then, lists those inside their lead time, and closes, removes or puts them
/// off. There from the start of the session; shown and hidden, never made anew.
class FrmReminder : public QObject
{
    Q_OBJECT

public:
    /// Timer1 of the view ticks so often while timer1Enabled().
    static constexpr int timer1Interval = 64000; // ms

    FrmReminder(Session& session, Navigator& navigator);
    ~FrmReminder() override;

    /// txtInterval, and lblNote: why the list is empty or ends early.
    [[nodiscard]] Form& form() { return m_form; }
    /// Rows have the key "A" and the event's key, the urgency "unsel", "sel" or "Overdue" as their kind, and
    /// are marked when they are the selected one.
    [[nodiscard]] RowModel& lvwRemind() { return m_list; }
    [[nodiscard]] bool isVisible() const { return m_visible; }
    [[nodiscard]] bool timer1Enabled() const { return m_timer1Enabled; }
    /// The event that the buttons are about; 0 for none.
    [[nodiscard]] Key selectedEventKey() const { return m_selectedEventKey; }
    /// Its row in the list, from 0; -1 for none.
    [[nodiscard]] int selectedRow() const;
    /// Every event that a look of this session found inside its lead time.
    [[nodiscard]] const std::set<Key>& matchedKeys() const { return m_matchedKeys; }

    void load();   ///< with the session's start: hidden, Timer1 on
    void unload(); ///< with the session's end, before the gateway goes; a second call does nothing
    void tick();   ///< Timer1_Timer
    /// One look at the events; a reader of the list is shown or hidden by it.
    void checkEvents();
    /// The toolbar's button: the screen as it is, due or not.
    void showScreen();
    /// The window has become the active one: the alarm, when it can be seen.
    void activated();
    void deactivated() { m_active = false; }
    /// A click on an entry, by its row's key.
    void select(const QString& key);
    /// A double click on an entry: the calendar on that event.
    void open(const QString& key);
    /// The key of an event's row.
    [[nodiscard]] static QString rowKey(Key eventKey);
    /// The medium's number in a position's row for its name in an event, in any case; 0 for any other name.
    [[nodiscard]] static Key getMedium(const QString& name);

public slots:
    void cmdCheck();     ///< asks for a look at once, as the menu does
    void cmdOk();        ///< closes the selected event and moves the pipeline
    void cmdSnooze();    ///< takes the selected event off the list until the next check
    void cmdDismiss();   ///< removes the selected event from the store
    void cmdSnoozeAll(); ///< puts the decision off
    void cmdCloseAll();  ///< hides the screen

signals:
    void changed();        ///< visible state, timer
    void checkRequested(); ///< to the main screen, which also says when nothing is due
    /// The screen comes to the front. @p byUser: somebody asked for it; else it must leave the keyboard to
    /// whoever is typing.
    void cameForward(bool byUser);

private:
    void initialize();
    void lookAgain();
    void setScreen(bool visible, bool timer1);
    void comeForward(bool byUser);
    void playAlarm();
    bool look(); ///< true when there is something to show
    void showRows(const std::vector<DueEvent>& events);
    void noteLook(const std::vector<DueEvent>& events);
    void tellWhatCameDue(const std::vector<DueEvent>& events, const QDateTime& lastLook);
    void removeSelected();
    void showNote();
    [[nodiscard]] bool closeEvent(const RecordSet& event);
    void writeStep(const QString& event, const QString& date, Key position, Key medium);

    Session& m_session;
    Navigator& m_navigator;
    Form m_form;
    RowModel m_list;
    StoreFollower m_follower;
    std::set<Key> m_matchedKeys; ///< only grows; kept, though nothing in the program asks for it yet
    /// Events put off until the next check: no change in the calendar brings them back before it. An entry
    /// that is saved anew has another key, and may come back as the changed one that it is.
    std::set<Key> m_putOff;
    QString m_failure; ///< why the last look ended early, for the user; empty when it did not
    Key m_selectedEventKey = 0;
    bool m_visible = false;
    bool m_timer1Enabled = false;
    bool m_loaded = false;
    bool m_multimediaOn = false;
    bool m_active = false;       ///< the window has the keyboard
    bool m_unattended = false;   ///< the timer and not a person asked for the look at hand
    bool m_alarmPlayed = false;  ///< for the coming forward that the window's activation belongs to
    bool m_lookedBefore = false; ///< in this session
};
