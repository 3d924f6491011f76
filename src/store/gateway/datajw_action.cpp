#include "store/gateway/datajw_impl.h"

#include "base/text.h"
#include "store/engine/background.h"
#include "store/gateway/stepname.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

/// True for a failure after which the rest of an action must not be written. On a full disk or a broken one
/// the engine sometimes gives up the whole transaction and sometimes one statement only: a deleted row whose
/// new version found no room must come back in either case.
bool endsAction(const StoreError& failure)
{
    if (failure.source() != u"SQLite")
        return false;
    switch (failure.number() & 0xff) {
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_NOMEM:
    case SQLITE_CORRUPT:
        return true;
    default:
        return false;
    }
}

} // namespace

void DataJW::Impl::noteLoss(const StoreError& failure)
{
    if (depth == 0 || lost)
        return;
    const bool over = endsAction(failure);
    if (over)
        rollback();
    if (over || !database->inTransaction())
        lost = failure;
}

void DataJW::Impl::rollback()
{
    try {
        database->rollbackTransaction();
    } catch (const StoreError&) {
        // The failure that led here is the one to tell. What is still open is taken back when the file is
        // next opened.
    }
}

void DataJW::Impl::beginAction()
{
    if (depth++ > 0 || !database)
        return;
    Background::endAll(session); // a reader would keep the action from its commit
    try {
        database->beginTransaction();
        record();
    } catch (const StoreError& failure) {
        lost = failure;
    }
}

void DataJW::Impl::record()
{
    actionName.clear();
    undoable = true;
    recorder.reset();
    if (!canRecord)
        return;
    try {
        recorder.emplace(database->handle());
    } catch (const StoreError&) {
        // Only for want of memory: the change goes on without a way back.
    }
}

std::optional<UndoStack::Step> DataJW::Impl::takeRecorded()
{
    const std::optional<engine::ChangeRecorder> finished = std::exchange(recorder, std::nullopt);
    // Settings are no part of the campaign.
    if (!finished || changed.isEmpty() || changed == QSet<QString>{u"Status"_s})
        return std::nullopt;
    try {
        UndoStack::Step step{actionName, finished->changes()};
        if (step.name.isEmpty())
            step.name = stepName(*database, step.changes);
        return step;
    } catch (const StoreError&) {
        undoable = false; // no memory for it
        return std::nullopt;
    }
}

void DataJW::Impl::push(std::optional<UndoStack::Step> step)
{
    if (!undoable && !changed.isEmpty())
        session.undoStack().clear();
    else if (step && !step->changes.isEmpty())
        session.undoStack().push(std::move(*step));
}

std::optional<StoreError> DataJW::Impl::closeAction()
{
    if (--depth > 0 || !database)
        return std::nullopt;
    std::optional<StoreError> failure = std::exchange(lost, std::nullopt);
    if (!failure) {
        try {
            std::optional<UndoStack::Step> step = takeRecorded();
            database->commitTransaction();
            push(std::move(step));
            return std::nullopt;
        } catch (const StoreError& atEnd) {
            failure = atEnd;
        }
    }
    recorder.reset();
    rollback();
    changed.clear();
    return failure;
}

bool DataJW::Impl::endAction()
{
    const std::optional<StoreError> failure = closeAction();
    if (!database)
        return false; // every statement has told so by itself
    if (depth > 0)
        return !lost && database->inTransaction();
    if (!failure) {
        tellChanges();
        return true;
    }
    QString reason = failure->description();
    if (reason.endsWith(u'.'))
        reason.chop(1);
    const QString message =
        gateway::tr("The change was not saved: %1. The database is as it was before.").arg(reason);
    session.logError(u"DataJW-Action"_s + text::crlf + message, 0, &*failure);
    return false;
}

void DataJW::Impl::tellChanges()
{
    if (depth == 0 && calls == 0 && !changed.isEmpty())
        emit session.changed(std::exchange(changed, {}));
}

DataJW::Impl::Whole::Whole(Impl& impl)
    : m_impl(impl)
    , m_changedBefore(impl.changed)
{
    m_impl.beginAction();
    if (m_impl.depth > 1 && m_impl.database && m_impl.database->inTransaction()) {
        m_impl.database->beginPart();
        m_isPart = true;
    }
    if (m_impl.depth > 1 || !m_impl.lost)
        return;
    --m_impl.depth;
    throw *std::exchange(m_impl.lost, std::nullopt);
}

DataJW::Impl::Whole::~Whole()
{
    if (m_open)
        takeBack();
}

void DataJW::Impl::Whole::end()
{
    if (m_isPart && m_impl.database->inTransaction())
        m_impl.database->endPart();
    m_open = false;
    if (const std::optional<StoreError> failure = m_impl.closeAction())
        throw *failure;
}

void DataJW::Impl::Whole::takeBack()
{
    m_impl.changed = m_changedBefore;
    if (--m_impl.depth == 0) {
        m_impl.lost.reset();
        m_impl.recorder.reset();
        if (m_impl.database)
            m_impl.rollback();
    } else if (m_isPart && m_impl.database->inTransaction()) {
        try {
            m_impl.database->takeBackPart();
        } catch (const StoreError& failure) {
            m_impl.rollback();
            m_impl.lost = failure;
        }
    }
}

DataJW::Applied DataJW::applyChanges(const QByteArray& changes, bool backwards)
{
    bool fits = true;
    const bool done = m_impl->guarded(u"DataJW-Undo"_s, false, [&](auto& call) {
        return call.whole([&] {
            m_impl->recorder.reset(); // the stack knows what this changes
            try {
                engine::applyChanges(database().handle(), backwards ? engine::inverted(changes) : changes);
            } catch (const StoreError& failure) {
                fits = failure.number() != StoreError::Conflict;
                if (fits)
                    throw;
                return false;
            }
            for (const engine::RowChange& row : engine::rowsOf(changes))
                m_impl->changed.insert(row.table);
            return true;
        });
    });
    return done ? Applied::Done : fits ? Applied::Failed : Applied::NoLongerFits;
}

bool DataJW::isInAction() const
{
    return m_impl->depth > 0;
}

Action::Action(DataJW& dataJW, const QString& name)
    : m_dataJW(dataJW)
{
    m_dataJW.m_impl->beginAction();
    if (m_dataJW.m_impl->actionName.isEmpty())
        m_dataJW.m_impl->actionName = name;
}

Action::Action(DataJW& dataJW, NotUndoable)
    : Action(dataJW)
{
    m_dataJW.m_impl->recorder.reset();
    m_dataJW.m_impl->undoable = false;
}

Action::~Action()
{
    if (m_open)
        commit();
}

bool Action::commit()
{
    if (!m_open)
        return false;
    m_open = false;
    return m_dataJW.m_impl->endAction();
}
