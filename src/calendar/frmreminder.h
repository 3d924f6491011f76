// The reminder screen: what is due speaks up.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "base/ports.h"
#include "base/rowmodel.h"
#include "store/session.h"

#include <QObject>

class FrmEvCal;

/// Looks at the events now and then, lists those inside their lead time, and closes, removes or puts them
/// off. There from the start of the session; shown and hidden, never made anew.
class FrmReminder : public QObject
{
    Q_OBJECT

public:
    /// Timer1 of the view ticks so often while timer1Enabled().
    static constexpr int timer1Interval = 64000; // ms

    FrmReminder(Session& session, FrmEvCal& calendar);
    ~FrmReminder() override;

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] RowModel& lvwRemind() { return m_list; }
    [[nodiscard]] bool isVisible() const { return m_visible; }
    [[nodiscard]] bool timer1Enabled() const { return m_timer1Enabled; }

    void load();   ///< with the session's start: hidden, Timer1 on
    void unload(); ///< with the session's end, before the gateway goes; a second call does nothing
    void tick();   ///< Timer1_Timer
    /// One look at the events; a reader of the list is shown or hidden by it.
    void checkEvents();
    /// The toolbar's button: the screen as it is, due or not.
    void showScreen();

signals:
    void changed();        ///< visible state, timer
    void recordsChanged(); ///< events or positions in the store are no longer what they were

private:
    Session& m_session;
    FrmEvCal& m_calendar;
    Form m_form;
    RowModel m_list;
    bool m_visible = false;
    bool m_timer1Enabled = false;
    bool m_loaded = false;
};
