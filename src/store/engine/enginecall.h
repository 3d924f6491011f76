// The few calls to the engine's C interface that need an owner and an error.
#pragma once

#include "store/engine/storeerror.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

/// SQLite's handles with owners, and its failures as StoreError.
namespace engine {

struct CloseConnection
{
    void operator()(sqlite3* connection) const;
};
struct FinalizeStatement
{
    void operator()(sqlite3_stmt* statement) const;
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// How long a statement waits for another program that holds the file.
inline constexpr int busyTimeoutMs = 2000;

/// Gives the connection the collation "letters", which compares as letters::compare does. Statements name it;
/// the file does not, so that every program can read it. Throws StoreError.
void addLetters(sqlite3* connection);
/// Opens a file with SQLITE_OPEN_... flags for the use of one thread at a time; throws StoreError.
Connection open(const QString& path, int flags);
/// Compiles one statement; throws StoreError.
Statement prepare(sqlite3* connection, const QByteArray& sql);
/// Runs statements that give no rows (rows are passed over); throws StoreError.
void execute(sqlite3* connection, const QByteArray& sql);
/// The single text value that a statement gives, "" without a row; throws StoreError.
QString value(sqlite3* connection, const QByteArray& sql);
/// A cell of the row at hand: invalid for NULL, a number, or text.
QVariant cell(sqlite3_stmt* statement, int column);
/// The connection's latest failure.
StoreError failure(sqlite3* connection);

} // namespace engine
