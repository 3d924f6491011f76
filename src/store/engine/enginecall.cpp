#include "store/engine/enginecall.h"

#include "base/letters.h"

#include <QCoreApplication>
#include <QFile>

#include <sqlite3.h>

namespace engine {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Engine", text);
}

/// The system's own reason behind the engine's last failure; "" when it has none.
QString systemReason(sqlite3* connection)
{
    const int number = connection ? sqlite3_system_errno(connection) : 0;
    return number == 0 ? QString() : qt_error_string(number);
}

QString cannotOpen(const QString& path, sqlite3* connection, int code)
{
    const QString reason = systemReason(connection);
    return tr("the file %1 cannot be opened: %2")
        .arg(path, reason.isEmpty() ? QString::fromUtf8(sqlite3_errstr(code)) : reason);
}

/// What failed, for a person: where the engine says no more than that a file did not do, which one and why.
QString inWords(sqlite3* connection, int code)
{
    const QString path = QString::fromUtf8(sqlite3_db_filename(connection, "main"));
    const QString said = QString::fromUtf8(sqlite3_errmsg(connection));
    if (code == SQLITE_READONLY_DBMOVED)
        return tr("the file %1 was replaced, moved or deleted while it was open, so nothing more can be "
                  "stored in it. Close Jobwright, look whether the file in this place is the one that you "
                  "want, and start again")
            .arg(path);
    // Beside the database the engine opens its journal, in the same folder.
    if ((code & 0xff) == SQLITE_CANTOPEN)
        return tr("%1 or its journal cannot be opened: %2")
            .arg(path, systemReason(connection).isEmpty() ? said : systemReason(connection));
    return said;
}

} // namespace

void addLetters(sqlite3* connection)
{
    const auto compare = [](void*, int leftSize, const void* left, int rightSize, const void* right) {
        const auto text = [](const void* bytes, int size) {
            return std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
        };
        return letters::compare(text(left, leftSize), text(right, rightSize));
    };
    if (sqlite3_create_collation_v2(connection, "letters", SQLITE_UTF8, nullptr, compare, nullptr) !=
        SQLITE_OK)
        throw failure(connection);
}

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
        throw StoreError(cannotOpen(path, connection.get(), code), code, QStringLiteral("SQLite"));
    sqlite3_extended_result_codes(connection.get(), 1);
    // A quoted name is a name: the engine would take one that it does not know for a text.
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    // The program makes no triggers and no views; those that a file has are somebody else's work, and would
    // change or show what no statement of the program says.
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
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

QVariant cell(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return QVariant(static_cast<qlonglong>(sqlite3_column_int64(statement, column)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(statement, column));
    case SQLITE_NULL:
        return {};
    default:
        break;
    }
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QVariant(QString::fromUtf8(text, sqlite3_column_bytes(statement, column)));
}

StoreError failure(sqlite3* connection)
{
    const int code = sqlite3_extended_errcode(connection);
    return {inWords(connection, code), code, QStringLiteral("SQLite")};
}

} // namespace engine
