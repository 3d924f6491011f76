// A store in memory that runs statements of the dialect, without the gateway around it.
#pragma once

#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/engine/schema.h"

#include <QSet>
#include <QStringList>

#include <sqlite3.h>

/// The program's own connection on the store's tables in memory. It refuses whatever reaches beyond them:
/// other tables, pragmas, attached files, functions that the dialect does not use.
class DialectEngine
{
public:
    DialectEngine()
    {
        for (const QString& statement : schema::createStatements())
            engine::execute(handle(), statement.toUtf8());
        sqlite3_set_authorizer(handle(), &DialectEngine::authorize, nullptr);
    }

    [[nodiscard]] sqlite3* handle() const { return m_database.handle(); }

    /// Runs the engine's own SQL; the rows, their cells joined with "|". Throws StoreError.
    QStringList execute(const QByteArray& sql)
    {
        QStringList rows;
        const engine::Statement statement = engine::prepare(handle(), sql);
        while (sqlite3_step(statement.get()) == SQLITE_ROW) {
            QStringList cells;
            for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
                cells.append(QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), i))));
            rows.append(cells.join(u'|'));
        }
        if (sqlite3_reset(statement.get()) != SQLITE_OK)
            throw engine::failure(handle());
        return rows;
    }

    /// Runs a statement of the dialect. StoreError for a refusal; its source is "SQLite" when the engine does
    /// not take the translation.
    RecordSet run(const QString& statement, const dialect::Want& want = {})
    {
        return m_database.run(statement, want);
    }

    /// The first column of the result, as texts; NULL as "NULL".
    QStringList column(const QString& statement, const dialect::Want& want = {})
    {
        QStringList result;
        for (RecordSet rows = run(statement, want); !rows.atEnd(); rows.next())
            result.append(rows.value(0).isNull() ? QStringLiteral("NULL") : rows.value(0).toString());
        return result;
    }

    /// Runs @p statement and takes back whatever it changed.
    void tryOut(const QString& statement, const dialect::Want& want = {})
    {
        engine::execute(handle(), "begin");
        try {
            run(statement, want);
        } catch (...) {
            engine::execute(handle(), "rollback");
            throw;
        }
        engine::execute(handle(), "rollback");
    }

private:
    static int authorize(void*, int action, const char* first, const char* second, const char*, const char*)
    {
        switch (action) {
        case SQLITE_SELECT:
        case SQLITE_TRANSACTION:
            return SQLITE_OK;
        case SQLITE_READ:
        case SQLITE_INSERT:
        case SQLITE_UPDATE:
        case SQLITE_DELETE:
            return schema::findTable(QString::fromUtf8(first)) ? SQLITE_OK : SQLITE_DENY;
        case SQLITE_FUNCTION: {
            static const QSet<QByteArray> used{"count", "coalesce", "julianday", "round"};
            return used.contains(QByteArray(second)) ? SQLITE_OK : SQLITE_DENY;
        }
        default:
            return SQLITE_DENY;
        }
    }

    Database m_database{QStringLiteral(":memory:")};
};
