#include "store/enginecall.h"

#include <QFile>

#include <sqlite3.h>

namespace engine {

void CloseConnection::operator()(sqlite3* connection) const
{
    sqlite3_close_v2(connection);
}

void FinalizeStatement::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Connection open(const QString& path, int flags)
{
    sqlite3* raw = nullptr;
    // A connection belongs to one thread, so the engine need not lock it at every call.
    const int code =
        sqlite3_open_v2(QFile::encodeName(path).constData(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    Connection connection(raw);
    if (code != SQLITE_OK)
        throw connection
            ? failure(connection.get())
            : StoreError(QString::fromUtf8(sqlite3_errstr(code)), code, QStringLiteral("SQLite"));
    sqlite3_extended_result_codes(connection.get(), 1);
    // A quoted name is a name: the engine would take one that it does not know for a text.
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    return connection;
}

Statement prepare(sqlite3* connection, const QByteArray& sql)
{
    sqlite3_stmt* raw = nullptr;
    const int code = sqlite3_prepare_v3(connection, sql.constData(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &raw, nullptr);
    Statement statement(raw);
    if (code != SQLITE_OK)
        throw failure(connection);
    return statement;
}

void execute(sqlite3* connection, const QByteArray& sql)
{
    if (sqlite3_exec(connection, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw failure(connection);
}

QString value(sqlite3* connection, const QByteArray& sql)
{
    const Statement statement = prepare(connection, sql);
    const int code = sqlite3_step(statement.get());
    if (code == SQLITE_ROW)
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0)));
    if (code != SQLITE_DONE)
        throw failure(connection);
    return {};
}

StoreError failure(sqlite3* connection)
{
    return {QString::fromUtf8(sqlite3_errmsg(connection)), sqlite3_extended_errcode(connection),
            QStringLiteral("SQLite")};
}

} // namespace engine
