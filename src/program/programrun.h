// One run of the program with a screen.
#pragma once

#include "desktop/endrequests.h"
#include "program/dailycopyrunner.h"
#include "program/finddesk.h"
#include "program/presenters.h"
#include "program/printdesk.h"
#include "program/screens.h"
#include "views/calendar/reminderview.h"
#include "views/workbench/workbenchwindow.h"

#include <optional>

/// From the splash to the closed window: makes presenters, screens and window, and what works beside them.
class ProgramRun
{
public:
    /// The session's store has been opened or made; the session must outlive the run.
    explicit ProgramRun(Session& session);

    /// Shows the splash, unless @p silently, and then the workbench. False when the main screen could not be
    /// loaded and the program has to end; the user has been told.
    bool start(bool silently);
    /// What works beside the window: the reminder, the copy of the day, the warning when keys run out.
    void startHelpers();

    [[nodiscard]] Screens& screens() { return m_screens; }
    [[nodiscard]] Presenters& presenters() { return m_presenters; }
    [[nodiscard]] WorkbenchWindow& window() { return *m_window; } ///< from start() on

private:
    Session& m_session;
    Screens m_screens;
    Presenters m_presenters;
    std::optional<WorkbenchWindow> m_window;
    std::optional<PrintDesk> m_printDesk;
    std::optional<FindDesk> m_findDesk;
    std::optional<EndRequests> m_endRequests;
    std::optional<ReminderView> m_reminder;
    std::optional<DailyCopyRunner> m_copies;
};
