#include "app/commands.h"
#include "app/consoleprogress.h"
#include "app/consoleprompts.h"
#include "app/openstore.h"
#include "app/output.h"
#include "base/clock.h"
#include "store/files/appfolder.h"
#include "store/gateway/datajw.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QThread>

namespace {

constexpr int makingMs = 5000;

} // namespace

struct CommandContext::Impl
{
    ConsolePrompts prompts;
    ConsoleProgress progress;
    SilentDesktop desktop;
    std::unique_ptr<InstanceLock> lock;
    std::unique_ptr<Session> session;
};

CommandContext::CommandContext()
    : m_impl(std::make_unique<Impl>())
{
}

CommandContext::~CommandContext() = default;

Session* CommandContext::openSession()
{
    if (m_impl->session)
        return m_impl->session.get();
    if (const QString problem = prepareFolder(folder); !problem.isEmpty()) {
        printError(problem);
        exitCode = StoreClosed;
        return nullptr;
    }
    // Several commands may meet in a new folder: one of them makes the store, the others wait for it.
    InstanceLock making(folder);
    const QDeadlineTimer patience(makingMs);
    while (!m_impl->lock && !QFileInfo::exists(folder + u"/Postledger.db") && !making.acquire() &&
           !patience.hasExpired())
        QThread::msleep(20);
    auto session = std::make_unique<Session>(folder, systemClock(), m_impl->prompts, m_impl->desktop);
    session->setProgress(m_impl->progress);
    const FileReport report = openOrCreateStore(*session, version);
    if (report.state != FileState::Good) {
        printError(report.message);
        exitCode = StoreClosed;
        return nullptr;
    }
    if (!session->dataJW().isConnected()) { // the gateway has said why
        exitCode = StoreClosed;
        return nullptr;
    }
    m_impl->session = std::move(session);
    return m_impl->session.get();
}

Session* CommandContext::openForWriting()
{
    if (!m_impl->lock) {
        if (const QString problem = prepareFolder(folder); !problem.isEmpty()) {
            printError(problem);
            exitCode = StoreClosed;
            return nullptr;
        }
        auto lock = std::make_unique<InstanceLock>(folder);
        if (!lock->acquire()) {
            printError(lock->holder());
            exitCode = lock->isHeldByAnother() ? InUse : StoreClosed;
            return nullptr;
        }
        m_impl->lock = std::move(lock);
    }
    return openSession();
}
