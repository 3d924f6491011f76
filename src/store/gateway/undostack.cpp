#include "store/gateway/undostack.h"

#include "store/engine/changeset.h"
#include "store/engine/storeerror.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <utility>

namespace {

constexpr std::size_t mostSteps = 100;
constexpr qsizetype mostBytes = qsizetype(64) * 1024 * 1024;

QString nameOf(const std::deque<UndoStack::Step>& steps)
{
    return steps.empty() ? QString() : steps.back().name;
}

} // namespace

UndoStack::UndoStack(Session& session)
    : m_session(session)
{
}

bool UndoStack::isAvailable()
{
    return engine::canRecordChanges();
}

QString UndoStack::undoText() const
{
    return nameOf(m_done);
}

QString UndoStack::redoText() const
{
    return nameOf(m_undone);
}

bool UndoStack::undo()
{
    return move(m_done, m_undone, true);
}

bool UndoStack::redo()
{
    return move(m_undone, m_done, false);
}

void UndoStack::clear()
{
    m_done.clear();
    m_undone.clear();
    emit changed();
}

void UndoStack::push(Step step)
{
    m_undone.clear();
    m_done.push_back(std::move(step));
    trim();
    emit changed();
}

void UndoStack::trim()
{
    qsizetype bytes = 0;
    std::size_t kept = 0;
    for (auto step = m_done.rbegin(); step != m_done.rend() && kept < mostSteps; ++step, ++kept) {
        bytes += step->changes.size();
        if (bytes > mostBytes)
            break;
    }
    m_done.erase(m_done.begin(), m_done.end() - static_cast<std::ptrdiff_t>(kept));
}

bool UndoStack::move(std::deque<Step>& from, std::deque<Step>& to, bool backwards)
{
    if (from.empty() || m_session.dataJW().isInAction())
        return false;
    // The receivers of the session's signal find the stack as it is behind the change.
    Step step = std::move(from.back());
    from.pop_back();
    const QString name = step.name;
    const QByteArray changes = step.changes;
    to.push_back(std::move(step));
    const DataJW::Applied applied = m_session.dataJW().applyChanges(changes, backwards);
    if (applied != DataJW::Applied::Done) {
        Step back = std::move(to.back());
        to.pop_back();
        if (applied == DataJW::Applied::Failed)
            from.push_back(std::move(back));
    }
    emit changed();
    if (applied == DataJW::Applied::NoLongerFits)
        m_session.msgBox(
            (backwards ? tr("\"%1\" cannot be taken back: the records that it concerns have been changed by "
                            "another program since. Nothing was changed.")
                       : tr("\"%1\" cannot be done again: the records that it concerns have been changed by "
                            "another program since. Nothing was changed."))
                .arg(name));
    return applied == DataJW::Applied::Done;
}
