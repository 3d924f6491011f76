// The presenters that live as long as the program, and what ties them.
#pragma once

#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "history/frmhistory.h"
#include "intake/frmautoparse.h"
#include "workbench/frmdata.h"

/// Owns the workbench and every screen beside it. A new screen is a member here and a line in
/// Screens::furnish. All in the header, so that a test stands among the same presenters without the program
/// around them.
struct Presenters
{
    /// Both must outlive the presenters.
    Presenters(Session& session, Navigator& navigator)
        : autoParse(session)
        , calendar(session, navigator)
        , reminder(session, calendar)
        , history(session, calendar)
        , workbench(session, navigator, autoParse, reminder)
    {
        QObject::connect(&reminder, &FrmReminder::recordsChanged, &calendar, &FrmEvCal::reload);
        // Whoever writes steps of positions tells the screens that show them.
        QObject::connect(&reminder, &FrmReminder::recordsChanged, &workbench, &FrmData::stepsChanged);
        QObject::connect(&calendar, &FrmEvCal::recordsChanged, &workbench, &FrmData::stepsChanged);
        QObject::connect(&history, &FrmHistory::recordsChanged, &workbench, &FrmData::stepsChanged);
    }

    FrmAutoParse autoParse;
    FrmEvCal calendar;
    FrmReminder reminder;
    FrmHistory history;
    FrmData workbench; ///< the last: its end releases the gateway, and puts the reminder off before
};
