#include "intake/takeback.h"

#include "store/engine/database.h"
#include "store/files/copyrestore.h"
#include "store/gateway/datajw.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

bool TakeBack::begin()
{
    m_changes = -1;
    const QStringList before = listCopies(m_session.folder());
    if (!copyBefore(m_session, u"import"_s))
        return false;
    for (const QString& copy : listCopies(m_session.folder())) {
        if (!before.contains(copy))
            m_copy = copy;
    }
    return true;
}

qint64 TakeBack::changes() const
{
    DataJW& data = m_session.dataJW();
    return data.isConnected() ? sqlite3_total_changes64(data.database().handle()) : -1;
}

void TakeBack::finish()
{
    m_changes = changes();
}

bool TakeBack::isPossible() const
{
    return m_changes >= 0 && m_changes == changes();
}

bool TakeBack::run()
{
    if (!isPossible())
        return false;
    // Takes a copy of the present state first, and tells the user when it fails.
    if (!restoreCopy(m_session, m_copy))
        return false;
    m_changes = -1;
    return true;
}
