#include "store/storecheck.h"

#include "store/database.h"
#include "store/datajw.h"
#include "store/enginecall.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QStringList>

#include <sqlite3.h>

#include <algorithm>

namespace {

struct Reference
{
    const char* table;
    const char* column;
    const char* target;
    const char* key;
};

constexpr Reference references[] = {
    {"Company", "AddressKey", "Address", "AddressKey"},
    {"Contact", "AddressKey", "Address", "AddressKey"},
    {"Contact", "CompanyKey", "Company", "CompanyKey"},
    {"Position", "CompanyKey", "Company", "CompanyKey"},
    {"History", "ContactKey", "Contact", "ContactKey"},
    {"Event", "CompanyKey", "Company", "CompanyKey"},
    {"Event", "ContactKey", "Contact", "ContactKey"},
    {"Event", "PositionKey", "Position", "PositionKey"},
    {"CProfile", "CompanyKey", "Company", "CompanyKey"},
    {"JProfile", "PositionKey", "Position", "PositionKey"},
    {"Target", "CompanyKey", "Company", "CompanyKey"},
};

/// Journals are never read through the gateway, so their keys may grow past what it can handle.
bool isShadow(QStringView table)
{
    return table.endsWith(u"Recovery");
}

std::vector<KeyUse> keyUse(Database& database, qint64 above)
{
    std::vector<KeyUse> found;
    const engine::Statement query =
        engine::prepare(database.handle(), "SELECT name, seq FROM sqlite_sequence ORDER BY name");
    while (sqlite3_step(query.get()) == SQLITE_ROW) {
        const QString table =
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(query.get(), 0)));
        const qint64 highest = sqlite3_column_int64(query.get(), 1);
        if (highest > above && !isShadow(table))
            found.push_back({table, highest});
    }
    return found;
}

} // namespace

StoreCheck checkStore(Database& database)
{
    StoreCheck check;
    const QString found = engine::value(database.handle(), "PRAGMA integrity_check(10)");
    if (found != u"ok")
        check.damage = found;
    check.keys = keyUse(database, 0);
    for (const Reference& reference : references) {
        // A key of 0 or NULL says "belongs to nothing" and is no orphan.
        const QByteArray sql = QByteArray("SELECT count(*) FROM \"") + reference.table + "\" WHERE \"" +
                               reference.column + "\" > 0 AND \"" + reference.column +
                               "\" NOT IN (SELECT \"" + reference.key + "\" FROM \"" + reference.target +
                               "\")";
        const int rows = engine::value(database.handle(), sql).toInt();
        if (rows > 0)
            check.orphans.push_back(
                {QString::fromLatin1(reference.table) + u'.' + QString::fromLatin1(reference.column), rows});
    }
    return check;
}

std::vector<KeyUse> keysRunningOut(Database& database)
{
    return keyUse(database, keyWarning);
}

QString keysUsedUp(Database& database, const QStringList& tables)
{
    for (const KeyUse& use : keyUse(database, keyLimit - 1)) {
        if (tables.contains(use.table))
            return QCoreApplication::translate(
                       "StoreCheck",
                       "The table %1 has given out all its %2 keys, so nothing more can be saved in it. "
                       "Nothing "
                       "was changed. Please export the data (\"jobwright export restore.xml --restore\") and "
                       "restore that file into a fresh folder.")
                .arg(use.table)
                .arg(keyLimit);
    }
    return {};
}

bool haveKeys(Session& session, const QStringList& tables)
{
    if (!session.dataJW().isConnected())
        return true;
    try {
        const QString reason = keysUsedUp(session.dataJW().database(), tables);
        if (!reason.isEmpty())
            session.msgBox(reason);
        return reason.isEmpty();
    } catch (const StoreError& failure) {
        session.logError(QStringLiteral("StoreCheck - haveKeys"), 0, &failure);
        return false;
    }
}

QString keyWarningText(const std::vector<KeyUse>& keys)
{
    if (keys.empty())
        return {};
    QStringList tables;
    for (const KeyUse& use : keys)
        tables.append(QStringLiteral("%1: %2").arg(use.table).arg(use.highest));
    return QCoreApplication::translate(
               "StoreCheck",
               "The database is running out of keys (%1; the highest possible is %2). Nothing is "
               "lost yet. Please export the data soon (\"jobwright export restore.xml --restore\"), "
               "and restore that file into a fresh folder, where keys begin at 1 again.")
        .arg(tables.join(QStringLiteral(", ")))
        .arg(keyLimit);
}
