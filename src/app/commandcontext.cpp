#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/consoleprogress.h"
#include "app/consoleprompts.h"
#include "app/output.h"
#include "base/clock.h"
#include "program/openstore.h"
#include "store/files/appfolder.h"
#include "store/gateway/datajw.h"

#include <QDir>

using commands::tr;

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

Session* CommandContext::refuse(const QString& message, ExitCode code)
{
    printError(message);
    exitCode = code;
    return nullptr;
}

Session* CommandContext::openSession()
{
    if (!m_impl->session && holdsNothing(folder))
        return refuse(
            tr("There is no campaign in %1. \"jobwright init\" makes an empty one there, and so does "
               "opening the workbench.")
                .arg(QDir::toNativeSeparators(folder)),
            StoreClosed);
    if (const QString problem = prepareFolder(folder); !problem.isEmpty())
        return refuse(problem, StoreClosed);
    return openStore();
}

Session* CommandContext::openStore()
{
    if (m_impl->session)
        return m_impl->session.get();
    auto session = std::make_unique<Session>(folder, systemClock(), m_impl->prompts, m_impl->desktop);
    session->setProgress(m_impl->progress);
    const FileReport report = openOrCreateStore(*session, version);
    if (report.state != FileState::Good)
        return refuse(report.message, StoreClosed);
    if (!session->dataJW().isConnected()) { // the gateway has said why
        exitCode = StoreClosed;
        return nullptr;
    }
    m_impl->session = std::move(session);
    return m_impl->session.get();
}

bool CommandContext::holdFolder()
{
    if (m_impl->lock)
        return true;
    if (const QString problem = prepareFolder(folder); !problem.isEmpty()) {
        refuse(problem, StoreClosed);
        return false;
    }
    auto lock = std::make_unique<InstanceLock>(folder);
    if (!lock->acquire()) {
        refuse(lock->holder(), lock->isHeldByAnother() ? InUse : StoreClosed);
        return false;
    }
    m_impl->lock = std::move(lock);
    return true;
}

Session* CommandContext::openForWriting()
{
    return holdFolder() ? openStore() : nullptr;
}

Session* CommandContext::openForRepair()
{
    if (!holdFolder())
        return nullptr;
    m_impl->session = std::make_unique<Session>(folder, systemClock(), m_impl->prompts, m_impl->desktop);
    m_impl->session->setProgress(m_impl->progress);
    return m_impl->session.get();
}
