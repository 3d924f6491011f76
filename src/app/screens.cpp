#include "app/screens.h"

#include "app/presenters.h"
#include "views/calendar/calendarview.h"
#include "views/history/historyview.h"
#include "views/intake/autoparseview.h"
#include "views/workbench/addressentryview.h"
#include "workbench/contactscreen.h"

#include <QApplication>

using namespace Qt::StringLiterals;

void Screens::furnish(Presenters& presenters, QSettings& layout)
{
    m_screens[u"FrmAutoParse"_s] = [&] { AutoParseView(presenters.autoParse, layout, m_window).exec(); };
    m_screens[u"FrmAddressEntry"_s] = [&] {
        AddressEntryView(presenters.workbench.contactScreen().addressEntry(), layout, m_window).exec();
    };
    m_screens[u"FrmReminder"_s] = [&] { presenters.reminder.showScreen(); };
    m_screens[u"FrmEvCal"_s] = [&] {
        presenters.calendar.load();
        CalendarView(presenters.calendar, layout, QApplication::activeWindow()).exec();
        presenters.calendar.unload();
    };
    m_screens[u"FrmHistory"_s] = [&] {
        if (!presenters.history.load(presenters.workbench.selection().currentContactKey))
            return;
        HistoryView(presenters.history, layout, m_window).exec();
        // The dialog has written what was changed, unless the program is ending under it.
        presenters.history.unload();
    };
}

void Screens::openScreen(const QString& screen)
{
    if (const auto open = m_screens.value(screen))
        open();
}
