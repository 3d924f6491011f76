#include "store/storefollower.h"

#include "store/session.h"

#include <utility>

StoreFollower::StoreFollower(Session& session, QSet<QString> tables, std::function<void()> read)
    : m_session(session)
    , m_tables(std::move(tables))
    , m_read(std::move(read))
{
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &StoreFollower::follow);
    connect(&session, &Session::changed, this, [this](const QSet<QString>& changed) {
        if (!m_tables.intersects(changed))
            return;
        m_isStale = true;
        m_soon.start(0);
    });
}

void StoreFollower::setSeen(bool seen)
{
    if (seen && !m_isSeen && m_isStale)
        m_soon.start(0);
    m_isSeen = seen;
}

void StoreFollower::follow()
{
    constexpr int patience = 100; // milliseconds
    // Behind the end of the session there is nothing to read.
    if (!m_isStale || !m_isSeen || !m_session.hasDataJW())
        return;
    if (m_session.dialogBusy) { // an operation is asking something: it goes on behind the answer
        m_soon.start(patience);
        return;
    }
    m_isStale = false;
    m_read();
}
