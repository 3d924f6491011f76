#include "store/gateway/datajw_impl.h"

#include "base/text.h"

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
    try {
        database->beginTransaction();
    } catch (const StoreError& failure) {
        lost = failure;
    }
}

bool DataJW::Impl::endAction()
{
    if (--depth > 0)
        return !lost;
    if (!database)
        return false; // every statement has told so by itself
    std::optional<StoreError> failure = std::exchange(lost, std::nullopt);
    if (!failure) {
        try {
            database->commitTransaction();
            return true;
        } catch (const StoreError& atEnd) {
            failure = atEnd;
        }
    }
    rollback();
    QString reason = failure->description();
    if (reason.endsWith(u'.'))
        reason.chop(1);
    const QString message =
        gateway::tr("The change was not saved: %1. The database is as it was before.").arg(reason);
    session.logError(u"DataJW-Action"_s + text::crlf + message, 0, &*failure);
    return false;
}

Action::Action(DataJW& dataJW)
    : m_dataJW(dataJW)
{
    m_dataJW.m_impl->beginAction();
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
