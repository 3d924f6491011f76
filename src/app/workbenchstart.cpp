#include "app/workbenchstart.h"

#include "app/exitcodes.h"
#include "app/output.h"
#include "base/clock.h"
#include "desktop/desktopprogress.h"
#include "desktop/desktopprompts.h"
#include "desktop/desktopservices.h"
#include "program/openstore.h"
#include "program/programrun.h"
#include "store/files/appfolder.h"
#include "store/session.h"
#include "views/common/housestyle.h"

#include <QApplication>
#include <QTimer>

#include <cstdlib>

namespace {

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
    ProgramRun run(session);
    if (!run.start(options.noSplash))
        return Failed;
    if (options.exitWhenShown)
        exitWhenDrawn(run.window(), lock);
    else
        run.startHelpers();
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
    if (!readyStore(session, QStringLiteral(JOBWRIGHT_VERSION)))
        return StoreClosed;
    return runWorkbench(session, lock, options);
}
