#include "store/files/storemigrate.h"

#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/engine/schema.h"
#include "store/engine/storeformat.h"
#include "store/files/copies.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <sqlite3.h>

namespace {

void copyFirst(const QString& path, const QDateTime& now)
{
    const QString folder = QFileInfo(path).absolutePath();
    QDir(folder).mkpath(QStringLiteral("backups"));
    Database database(path);
    const QString failure = copyTo(database, copyPath(folder, now, QStringLiteral("format1")));
    if (!failure.isEmpty())
        throw StoreError(failure, SQLITE_IOERR, QStringLiteral("Jobwright"));
}

/// Makes a table anew, with these values in the place of its columns where they are given.
void renew(sqlite3* connection, QStringView name, const QHash<QString, QString>& values = {})
{
    const schema::Table& table = *schema::findTable(name);
    QStringList columns;
    QStringList sources;
    for (const schema::Column& column : table.columns) {
        columns.append(u'"' + column.name + u'"');
        sources.append(values.value(column.name, columns.last()));
    }
    const QString renewed = table.name + u"_renewed";
    engine::execute(connection, schema::createStatement(table, renewed).toUtf8());
    engine::execute(connection, QStringLiteral("INSERT INTO \"%1\"(%2) SELECT %3 FROM \"%4\" ORDER BY rowid; "
                                               "DROP TABLE \"%4\"; ALTER TABLE \"%1\" RENAME TO \"%4\"")
                                    .arg(renewed, columns.join(u','), sources.join(u','), table.name)
                                    .toUtf8());
    const QString itsIndexes = u"create index \"" + table.name + u'_';
    for (const QString& statement : schema::createStatements()) {
        if (statement.startsWith(itsIndexes))
            engine::execute(connection, statement.toUtf8());
    }
}

/// Questions had keys of the whole table. Both questionnaires number theirs from 1 now, in the order that
/// they had.
void numberQuestionsByType(sqlite3* connection)
{
    renew(connection, u"Question",
          {{QStringLiteral("QKey"),
            QStringLiteral("row_number() OVER (PARTITION BY ifnull(ProfileType, 0) ORDER BY QKey)")},
           {QStringLiteral("ProfileType"), QStringLiteral("ifnull(ProfileType, 0)")}});
}

/// The threshold that stores were delivered with could never be reached.
void lowerThreshold(sqlite3* connection)
{
    engine::execute(connection,
                    "UPDATE Status SET StatusValue='0.05' WHERE StatusDescription='PositionThreshold' "
                    "AND StatusValue='25' AND StatusDate='1999-12-31'");
}

} // namespace

void migrateStore(const QString& path, const QDateTime& now)
{
    copyFirst(path, now);
    bringUpToDate(path);
}

void bringUpToDate(const QString& path)
{
    const engine::Connection connection = engine::open(path, SQLITE_OPEN_READWRITE);
    sqlite3_busy_timeout(connection.get(), engine::busyTimeoutMs);
    engine::execute(connection.get(), "BEGIN IMMEDIATE"); // an early end rolls it back
    if (engine::value(connection.get(), "PRAGMA user_version").toInt() < 2) {
        numberQuestionsByType(connection.get());
        renew(connection.get(), u"History"); // it had no key, so that no change of it could be taken back
        lowerThreshold(connection.get());
    }
    engine::execute(connection.get(), "PRAGMA user_version=" + QByteArray::number(schema::format));
    engine::execute(connection.get(), "COMMIT");
}
