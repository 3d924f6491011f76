#include "app/screens.h"

#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "history/frmhistory.h"
#include "intake/frmautoparse.h"
#include "views/calendar/calendarview.h"
#include "views/history/historyview.h"
#include "views/intake/autoparseview.h"
#include "views/workbench/addressentryview.h"
#include "workbench/contactscreen.h"
#include "workbench/frmdata.h"

#include <QApplication>

using namespace Qt::StringLiterals;

void Screens::furnish(FrmData& workbench, QSettings& layout)
{
    m_screens[u"FrmAutoParse"_s] = [&] { AutoParseView(workbench.autoParse(), layout, m_window).exec(); };
    m_screens[u"FrmAddressEntry"_s] = [&] {
        AddressEntryView(workbench.contactScreen().addressEntry(), layout, m_window).exec();
    };
    m_screens[u"FrmReminder"_s] = [&] { workbench.reminder().showScreen(); };
    m_screens[u"FrmEvCal"_s] = [&] {
        workbench.calendar().load();
        CalendarView(workbench.calendar(), layout, QApplication::activeWindow()).exec();
        workbench.calendar().unload();
    };
    m_screens[u"FrmHistory"_s] = [&] {
        if (!workbench.history().load(workbench.selection().currentContactKey))
            return;
        HistoryView(workbench.history(), layout, m_window).exec();
        // The dialog has written what was changed, unless the program is ending under it.
        workbench.history().unload();
    };
}

void Screens::openScreen(const QString& screen)
{
    if (const auto open = m_screens.value(screen))
        open();
}
