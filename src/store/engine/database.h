// The one connection to the store's file: statements of the dialect in, record sets out.
#pragma once

#include "store/dialect/dialect.h"
#include "store/engine/storeerror.h"
#include "store/gateway/recordset.h"

#include <QString>

#include <functional>
#include <memory>

struct sqlite3;

/// Runs statements of the program's dialect on one SQLite file through a cache of prepared statements.
/// Every failure is a StoreError. One thread.
class Database
{
public:
    /// Opens an existing store for reading and writing; the file must have passed inspectStore().
    explicit Database(const QString& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Makes a new, empty store with all tables at @p path, which must not exist: written beside it and
    /// renamed.
    static void create(const QString& path);

    /// Runs one statement of the dialect. The result has rows for a Select only.
    RecordSet run(QStringView statement, const dialect::Want& want = {});

    /// The table in which the latest run() changed a row; null when it changed none, or failed.
    [[nodiscard]] const schema::Table* changedTable() const;

    /// Begins, ends or gives up the transaction of an action; Action is the way to call these.
    void beginTransaction();
    void commitTransaction();
    void rollbackTransaction();
    /// Within a transaction: what follows can be taken back alone. Each begin has one end, the latest first.
    void beginPart();
    void endPart();
    void takeBackPart();
    /// True between beginTransaction() and its end, unless the engine gave the transaction up by itself.
    [[nodiscard]] bool inTransaction() const;

    /// Called before each statement with its text; a StoreError that it throws is the statement's failure.
    /// Lets a test fail the i-th call.
    void setInterceptor(std::function<void(QStringView)> interceptor);

    [[nodiscard]] sqlite3* handle() const;
    [[nodiscard]] const QString& path() const;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};
