#include "store/files/storecheck.h"

#include "base/text.h"
#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/engine/schema.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QSet>
#include <QStringList>

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Reference
{
    const char* table;
    const char* column;
    const char* target;
    const char* key;
    enum Kind {
        Plain,
        Owner,   ///< a record without an owner is on no screen
        Passing, ///< put right when its screen is opened
    } kind = Plain;
};

constexpr Reference references[] = {
    {"Company", "AddressKey", "Address", "AddressKey"},
    {"Contact", "AddressKey", "Address", "AddressKey"},
    {"Contact", "CompanyKey", "Company", "CompanyKey", Reference::Owner},
    {"Position", "CompanyKey", "Company", "CompanyKey", Reference::Owner},
    {"History", "ContactKey", "Contact", "ContactKey", Reference::Owner},
    {"Event", "CompanyKey", "Company", "CompanyKey"},
    {"Event", "ContactKey", "Contact", "ContactKey"},
    {"Event", "PositionKey", "Position", "PositionKey"},
    {"CProfile", "CompanyKey", "Company", "CompanyKey"},
    {"JProfile", "PositionKey", "Position", "PositionKey"},
    {"Target", "CompanyKey", "Company", "CompanyKey", Reference::Passing},
};

/// The columns that hold key lists; the first table is the one with the column.
constexpr Reference lists[] = {
    {"Contact", "ContactList", "Contact", "ContactKey"},
    {"Contact", "DocumentList", "Document", "ResumeKey"},
    {"Position", "ContactList", "Contact", "ContactKey"},
};

/// Journals are never read through the gateway, so their keys may grow past what it can handle.
bool isShadow(QStringView table)
{
    return table.endsWith(u"Recovery");
}

/// The column whose values the store gives out; "" when the table has none.
QString keyColumn(const schema::Table& table)
{
    const auto key = std::ranges::find(table.columns, schema::ColumnType::Auto, &schema::Column::type);
    return key == table.columns.end() ? QString() : key->name;
}

/// The tables with keys that the gateway hands on.
std::vector<const schema::Table*> keyedTables()
{
    std::vector<const schema::Table*> found;
    for (const schema::Table& table : schema::tables()) {
        if (!isShadow(table.name) && !keyColumn(table).isEmpty())
            found.push_back(&table);
    }
    std::ranges::sort(found, {}, &schema::Table::name);
    return found;
}

std::vector<KeyUse> keyUse(Database& database, qint64 above)
{
    std::vector<KeyUse> found;
    for (const schema::Table* const table : keyedTables()) {
        const qint64 highest = highestKey(database, table->name);
        if (highest > above)
            found.push_back({table->name, highest});
    }
    return found;
}

qint64 countRows(Database& database, QStringView table, const QString& condition)
{
    const QString sql = u"SELECT count(*) FROM \""_s + table + u"\" WHERE " + condition;
    return engine::value(database.handle(), sql.toUtf8()).toLongLong();
}

/// Records out of the program's reach, in words; "" when there are none.
QString rowsOutOfReach(Database& database)
{
    QStringList found;
    for (const schema::Table* const table : keyedTables()) {
        const QString key = keyColumn(*table);
        const qint64 rows = countRows(database, table->name,
                                      u'"' + key + u"\" NOT BETWEEN 1 AND " + QString::number(keyLimit));
        if (rows > 0)
            found.append(QCoreApplication::translate("StoreCheck", "%1 records of %2")
                             .arg(QString::number(rows), table->name));
    }
    if (found.isEmpty())
        return {};
    return QCoreApplication::translate("StoreCheck",
                                       "%1 stand under keys outside of 1 to %2, where the program cannot "
                                       "reach them")
        .arg(found.join(u", "_s), QString::number(keyLimit));
}

void checkReference(Database& database, const Reference& reference, StoreCheck& check)
{
    const QString table = QString::fromLatin1(reference.table);
    const QString column = QString::fromLatin1(reference.column);
    // A key of 0 or NULL says "belongs to nothing" and is no orphan.
    const QString toNothing = u"\"%1\" <> 0 AND \"%1\" NOT IN (SELECT \"%2\" FROM \"%3\")"_s.arg(
        column, QString::fromLatin1(reference.key), QString::fromLatin1(reference.target));
    const auto note = [&](std::vector<OrphanCount>& list, const QString& condition) {
        const qint64 rows = countRows(database, table, condition);
        if (rows > 0)
            list.push_back({table + u'.' + column, static_cast<int>(rows)});
    };
    note(reference.kind == Reference::Passing ? check.passing : check.orphans, toNothing);
    if (reference.kind == Reference::Owner)
        note(check.unowned, u"ifnull(\"%1\", 0) = 0"_s.arg(column));
}

/// Calls @p use with each value that the statement gives, as text.
template<class Use> void forEachValue(Database& database, const QString& sql, Use&& use)
{
    const engine::Statement query = engine::prepare(database.handle(), sql.toUtf8());
    int code = sqlite3_step(query.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(query.get()))
        use(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(query.get(), 0))));
    if (code != SQLITE_DONE)
        throw engine::failure(database.handle());
}

void checkList(Database& database, const Reference& list, StoreCheck& check)
{
    const QString table = QString::fromLatin1(list.table);
    const QString column = QString::fromLatin1(list.column);
    QSet<QString> known;
    forEachValue(database,
                 u"SELECT \"%1\" FROM \"%2\""_s.arg(QLatin1String(list.key), QLatin1String(list.target)),
                 [&](const QString& key) { known.insert(key); });
    int lost = 0;
    forEachValue(database, u"SELECT \"%1\" FROM \"%2\" WHERE \"%1\" > ''"_s.arg(column, table),
                 [&](const QString& text) {
                     const QStringList keys = text::csvParse(text);
                     lost += static_cast<int>(std::ranges::count_if(
                         keys, [&](const QString& key) { return !known.contains(key); }));
                 });
    if (lost > 0)
        check.orphans.push_back({table + u'.' + column, lost});
}

/// Addresses that no company and no contact has.
qint64 lonelyAddresses(Database& database)
{
    return countRows(database, u"Address",
                     u"\"AddressKey\" NOT IN (SELECT ifnull(\"AddressKey\", 0) FROM \"Company\" UNION ALL "
                     "SELECT ifnull(\"AddressKey\", 0) FROM \"Contact\")"_s);
}

QStringList tablesOfMixedKeys(Database& database)
{
    QStringList found;
    for (const char* const table : schema::listTables) {
        const QString key = keyColumn(*schema::findTable(QString::fromLatin1(table)));
        const QString sql =
            u"SELECT count(DISTINCT length(\"%1\")) FROM \"%2\""_s.arg(key, QLatin1String(table));
        if (engine::value(database.handle(), sql.toUtf8()).toInt() > 1)
            found.append(QLatin1String(table));
    }
    return found;
}

QStringList foreignObjects(Database& database)
{
    QStringList found;
    forEachValue(database,
                 u"SELECT type || ' ' || name FROM sqlite_schema WHERE type IN ('trigger', 'view') "
                 "ORDER BY type, name"_s,
                 [&](const QString& object) { found.append(object); });
    return found;
}

} // namespace

StoreCheck checkStore(Database& database)
{
    StoreCheck check;
    const QString found = engine::value(database.handle(), "PRAGMA integrity_check(10)");
    check.damage = found == u"ok" ? rowsOutOfReach(database) : found;
    check.keys = keyUse(database, 0);
    for (const Reference& reference : references)
        checkReference(database, reference, check);
    for (const Reference& list : lists)
        checkList(database, list, check);
    if (const qint64 rows = lonelyAddresses(database); rows > 0)
        check.unowned.push_back({u"Address.AddressKey"_s, static_cast<int>(rows)});
    check.mixedKeys = tablesOfMixedKeys(database);
    check.foreign = foreignObjects(database);
    return check;
}

qint64 highestKey(Database& database, const QString& table)
{
    const schema::Table* const known = schema::findTable(table);
    if (!known)
        return 0;
    const QString key = keyColumn(*known);
    if (key.isEmpty())
        return 0;
    // The counter stands above the highest row that was ever there; both are asked, as a file that other
    // hands were in may have lost the counter.
    const QString sql =
        u"SELECT max(ifnull((SELECT max(\"%1\") FROM \"%2\"), 0), "
        "ifnull((SELECT max(CAST(seq AS INTEGER)) FROM sqlite_sequence WHERE name='%2'), 0))"_s.arg(
            key, known->name);
    return engine::value(database.handle(), sql.toUtf8()).toLongLong();
}

void setHighestKey(Database& database, const QString& table, qint64 key)
{
    engine::execute(database.handle(), u"DELETE FROM sqlite_sequence WHERE name='%1'; INSERT INTO "
                                       "sqlite_sequence(name, seq) VALUES('%1', %2)"_s.arg(table)
                                           .arg(key)
                                           .toUtf8());
}

std::vector<KeyUse> keysRunningOut(Database& database)
{
    return keyUse(database, keyWarning);
}

QString keysUsedUp(Database& database, const QStringList& tables)
{
    for (const QString& table : tables) {
        if (highestKey(database, table) >= keyLimit)
            return QCoreApplication::translate(
                       "StoreCheck",
                       "The table %1 has given out all its %2 keys, so nothing more can be saved in it. "
                       "Nothing "
                       "was changed. Please export the data (\"jobwright export restore.xml --restore\") and "
                       "restore that file into a fresh folder.")
                .arg(table)
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
               "and restore that file into a fresh folder, where keys begin anew.")
        .arg(tables.join(QStringLiteral(", ")))
        .arg(keyLimit);
}

QString mixedKeysText(const QStringList& tables)
{
    if (tables.isEmpty())
        return {};
    return QCoreApplication::translate(
               "StoreCheck",
               "Keys in %1 have different lengths. When a record there is saved under a new key, lists that "
               "hold "
               "a longer key with the old one in it lose that link. To give all of them five digits, export "
               "the data (\"jobwright export restore.xml --restore\") and restore that file into a new "
               "folder.")
        .arg(tables.join(QStringLiteral(", ")));
}
