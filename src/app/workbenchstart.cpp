#include "app/workbenchstart.h"

#include "app/exitcodes.h"
#include "app/openstore.h"
#include "app/output.h"
#include "app/presenters.h"
#include "app/screens.h"
#include "base/clock.h"
#include "desktop/desktopprogress.h"
#include "desktop/desktopprompts.h"
#include "desktop/desktopservices.h"
#include "desktop/endrequests.h"
#include "desktop/printing.h"
#include "store/engine/storeerror.h"
#include "store/files/appfolder.h"
#include "store/files/copies.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "views/calendar/reminderview.h"
#include "views/common/housestyle.h"
#include "views/workbench/splashview.h"
#include "views/workbench/workbenchwindow.h"
#include "workbench/frmsplash.h"

#include <QApplication>
#include <QTextDocument>
#include <QTimer>

#include <cstdlib>
#include <optional>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("WorkbenchStart", text);
}

/// Sees to the store before anything touches it. False when the user would rather leave.
bool readyStore(Session& session)
{
    const FileReport report = openOrCreateStore(session, QStringLiteral(JOBWRIGHT_VERSION));
    if (report.state != FileState::Missing)
        return true; // good, or the gateway says what is wrong and the workbench comes up empty
    const Answer answer = session.msgBox(
        QString(report.message + u"\n\n" + tr("Would you like to start with a new, empty database?")),
        Buttons::YesNoDefaultNo, tr("Database not found"));
    if (answer != Answer::Yes)
        return false;
    const FileReport made = createStore(session);
    if (made.state != FileState::Good)
        session.msgBox(made.message);
    return made.state == FileState::Good;
}

/// Makes the copy of the day while the user works, and reports what it finds.
class DailyCopyRunner : public QObject
{
public:
    explicit DailyCopyRunner(Session& session)
        : m_session(session)
        , m_copy(session)
    {
        connect(&m_timer, &QTimer::timeout, this, &DailyCopyRunner::step);
        m_timer.start(stepMs);
    }

private:
    // Steps of a few milliseconds with room between them: nobody notices.
    static constexpr int stepMs = 50;

    void step()
    {
        if (m_session.dialogBusy || m_copy.step())
            return;
        m_timer.stop();
        if (!m_copy.failure().isEmpty())
            m_session.msgBox(
                tr("Today's copy of the database could not be made: %1\nThe earlier copies are kept. Please "
                   "run \"jobwright verify\" to see whether the database itself is sound.")
                    .arg(m_copy.failure()));
    }

    Session& m_session;
    DailyCopy m_copy;
    QTimer m_timer;
};

/// Answers the workbench's print entries with the page that the window makes of its form. The printer is
/// looked for at the first of them, as asking the system for printers takes longer than the whole start.
class PrintDesk : public QObject
{
public:
    PrintDesk(FrmData& workbench, WorkbenchWindow& window)
    {
        connect(&workbench, &FrmData::printRequested, this,
                [this, &window] { printing().print(&window, *window.printableForm()); });
        connect(&workbench, &FrmData::previewRequested, this,
                [this, &window] { printing().preview(&window, *window.printableForm()); });
        connect(&workbench, &FrmData::printSetupRequested, this,
                [this, &window] { printing().setUpPage(&window); });
    }

private:
    Printing& printing()
    {
        if (!m_printing)
            m_printing.emplace();
        return *m_printing;
    }

    std::optional<Printing> m_printing;
};

void warnOfKeys(Session& session)
{
    if (!session.dataJW().isConnected())
        return;
    try {
        const QString warning = keyWarningText(keysRunningOut(session.dataJW().database()));
        if (!warning.isEmpty())
            session.msgBox(warning);
    } catch (const StoreError& error) {
        session.logError(QStringLiteral("WorkbenchStart - keys"), 1, &error);
    }
}

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

/// Ends the process at once when the window has been drawn: what is timed is the way to it.
void exitWhenDrawn(QObject& window, InstanceLock& lock)
{
    // The first round draws the window.
    QTimer::singleShot(0, &window, [&] {
        QTimer::singleShot(0, &window, [&lock] {
            lock.release();
            std::_Exit(Done);
        });
    });
}

int runWorkbench(Session& session, InstanceLock& lock, const StartOptions& options)
{
    Screens screens;
    Presenters presenters(session, screens);
    FrmData& workbench = presenters.workbench;
    // The load begins before the splash, and only there the trace can be switched on: this line shows in a
    // log once a session begins with the trace on.
    session.trace(QStringLiteral("frmData - Form_Load"));
    showSplash(session, options.noSplash);
    if (!workbench.load())
        return Failed;
    QSettings& layout = session.settings().file();
    screens.furnish(presenters, layout);
    WorkbenchWindow window(workbench, layout);
    screens.setWindow(window);
    const PrintDesk printDesk(workbench, window);
    window.show();
    const EndRequests endRequests(window);
    if (options.exitWhenShown) {
        exitWhenDrawn(window, lock);
        return QApplication::exec();
    }
    // Nothing is due in the first minute, so the reminder's window can wait until the workbench stands.
    std::optional<ReminderView> reminder;
    QTimer::singleShot(0, &window, [&] { reminder.emplace(presenters.reminder, layout, &window); });
    DailyCopyRunner copies(session);
    QTimer::singleShot(0, &window, [&session] { warnOfKeys(session); });
    return QApplication::exec();
}

} // namespace

int startWorkbench(int& argc, char** argv, const StartOptions& options)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("jobwright"));
    // No display name: Qt would append it to titles that begin with the program's name already.
    QApplication::setApplicationVersion(QStringLiteral(JOBWRIGHT_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("jobwright"));
    HouseStyle::install();

    DesktopPrompts prompts;
    DesktopServices desktop;
    DesktopProgress progress;
    const QString folder = applicationFolder(options.folder);
    if (const QString problem = prepareFolder(folder); !problem.isEmpty()) {
        prompts.msgBox(problem, Buttons::Ok, Session::messageTitle.toString());
        return StoreClosed;
    }
    InstanceLock lock(folder);
    if (!lock.acquire()) {
        printError(lock.holder());
        prompts.msgBox(lock.holder(), Buttons::Ok, Session::messageTitle.toString());
        return lock.isHeldByAnother() ? InUse : StoreClosed;
    }
    Session session(folder, systemClock(), prompts, desktop);
    session.setProgress(progress);
    return readyStore(session) ? runWorkbench(session, lock, options) : StoreClosed;
}
