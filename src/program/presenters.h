// The presenters that live as long as the program, and what ties them.
#pragma once

#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "history/frmhistory.h"
#include "output/findanything.h"
#include "output/frmkeysearch.h"
#include "planning/goals.h"
#include "workbench/frmdata.h"

/// Owns the workbench and the screens that others go on using while they are shut. A screen that nothing
/// needs but its own view is made where it is opened (screentable.cpp). All in the header, so that a test
/// stands among the same presenters without the program around them.
struct Presenters
{
    /// Both must outlive the presenters.
    Presenters(Session& session, Navigator& navigator)
        : calendar(session)
        , reminder(session, navigator)
        , history(session, navigator)
        , workbench(session, navigator, reminder)
        , keySearch(session, RecordOpener(session, navigator, workbench))
        , find(session, RecordOpener(session, navigator, workbench))
    {
    }

    GoalChart goals; ///< as they were last counted in this run, for the statistics
    FrmEvCal calendar;
    FrmReminder reminder;
    FrmHistory history;
    FrmData workbench; ///< its end releases the gateway, and puts the reminder off before
    FrmKeySearch keySearch;
    FindAnything find;
};
