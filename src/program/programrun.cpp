#include "program/programrun.h"

#include "store/engine/storeerror.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "views/workbench/splashview.h"
#include "workbench/frmsplash.h"

#include <QTimer>

namespace {

void showSplash(Session& session, bool silently)
{
    FrmSplash splash(session);
    if (!silently) {
        SplashView(splash).run();
        return;
    }
    splash.load(); // it also looks for what the desktop offers
    splash.unload();
}

void warnOfKeys(Session& session)
{
    if (!session.dataJW().isConnected())
        return;
    try {
        const QString warning = keyWarningText(keysRunningOut(session.dataJW().database()));
        if (!warning.isEmpty())
            session.msgBox(warning);
    } catch (const StoreError& error) {
        session.logError(QStringLiteral("ProgramRun - keys"), 1, &error);
    }
}

} // namespace

ProgramRun::ProgramRun(Session& session)
    : m_session(session)
    , m_screens(session)
    , m_presenters(session, m_screens)
{
}

bool ProgramRun::start(bool silently)
{
    // The load begins before the splash, and only there the trace can be switched on: this line shows in a
    // log once a session begins with the trace on.
    m_session.trace(QStringLiteral("frmData - Form_Load"));
    showSplash(m_session, silently);
    if (!m_presenters.workbench.load())
        return false;
    QSettings& layout = m_session.settings().file();
    m_window.emplace(m_presenters.workbench, layout);
    m_screens.furnish(m_presenters, layout, *m_window);
    m_printDesk.emplace(m_presenters.workbench, *m_window, m_screens.printing());
    m_findDesk.emplace(m_presenters.find, *m_window);
    m_window->show();
    m_endRequests.emplace(*m_window);
    return true;
}

void ProgramRun::startHelpers()
{
    // Nothing is due in the first minute, so the reminder's window can wait until the workbench stands.
    QTimer::singleShot(0, &*m_window, [this] {
        m_reminder.emplace(m_presenters.reminder, m_session.settings().file(), &*m_window);
    });
    m_copies.emplace(m_session);
    QTimer::singleShot(0, &*m_window, [this] { warnOfKeys(m_session); });
}
