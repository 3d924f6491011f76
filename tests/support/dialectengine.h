// A store in memory that runs statements of the dialect, without the gateway around it.
#pragma once

#include "store/dialect/dialect.h"
#include "store/engine/schema.h"

#include <QByteArray>
#include <QSet>
#include <QStringList>
#include <QVariant>

#include <sqlite3.h>

#include <stdexcept>
#include <vector>

/// An engine in memory with the store's tables. It refuses whatever reaches beyond them: other tables,
/// pragmas, attached files, functions that the dialect does not use.
class DialectEngine
{
public:
    using Row = std::vector<QVariant>;

    DialectEngine()
    {
        sqlite3_open(":memory:", &m_db);
        for (const QString& statement : schema::createStatements())
            execute(statement.toUtf8());
        sqlite3_set_authorizer(m_db, &DialectEngine::authorize, nullptr);
    }
    ~DialectEngine() { sqlite3_close(m_db); }
    DialectEngine(const DialectEngine&) = delete;
    DialectEngine& operator=(const DialectEngine&) = delete;

    [[nodiscard]] sqlite3* handle() const { return m_db; }

    /// Runs the engine's own SQL; a failure is a std::runtime_error with the engine's words.
    std::vector<Row> execute(const QByteArray& sql) { return step(sql, {}); }

    /// Translates, binds and runs a statement of the dialect. StoreError for a refusal, std::runtime_error
    /// when the engine does not take the translation.
    std::vector<Row> run(const QString& statement, const dialect::Want& want = {})
    {
        const dialect::Shape shape = dialect::splitShape(statement);
        const dialect::Translation translation = dialect::translate(statement, want);
        std::vector<dialect::BoundValue> values;
        for (const dialect::Parameter& parameter : translation.parameters)
            values.push_back(dialect::bindValue(
                shape.literals.at(static_cast<std::size_t>(parameter.literal)), parameter.as));
        return step(translation.sql, values);
    }

    /// The first column of the result, as texts; NULL as "NULL".
    QStringList column(const QString& statement, const dialect::Want& want = {})
    {
        QStringList result;
        for (const Row& row : run(statement, want))
            result.append(row.front().isNull() ? QStringLiteral("NULL") : row.front().toString());
        return result;
    }

    /// Runs @p statement and takes back whatever it changed.
    void tryOut(const QString& statement, const dialect::Want& want = {})
    {
        execute("savepoint try_out");
        try {
            run(statement, want);
        } catch (...) {
            execute("rollback to try_out");
            execute("release try_out");
            throw;
        }
        execute("rollback to try_out");
        execute("release try_out");
    }

private:
    static int authorize(void*, int action, const char* first, const char* second, const char*, const char*)
    {
        switch (action) {
        case SQLITE_SELECT:
        case SQLITE_TRANSACTION:
        case SQLITE_SAVEPOINT:
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

    [[noreturn]] void fail(const QByteArray& sql) const
    {
        throw std::runtime_error(std::string(sqlite3_errmsg(m_db)) + ": " + sql.constData());
    }

    std::vector<Row> step(const QByteArray& sql, const std::vector<dialect::BoundValue>& values)
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_db, sql.constData(), static_cast<int>(sql.size()), &statement, nullptr) !=
            SQLITE_OK)
            fail(sql);
        for (std::size_t i = 0; i < values.size(); ++i)
            bind(statement, static_cast<int>(i) + 1, values[i]);
        std::vector<Row> rows;
        int code = SQLITE_ROW;
        while ((code = sqlite3_step(statement)) == SQLITE_ROW)
            rows.push_back(row(statement));
        sqlite3_finalize(statement);
        if (code != SQLITE_DONE)
            fail(sql);
        return rows;
    }

    static void bind(sqlite3_stmt* statement, int index, const dialect::BoundValue& value)
    {
        if (const auto* whole = std::get_if<qint64>(&value))
            sqlite3_bind_int64(statement, index, *whole);
        else if (const auto* real = std::get_if<double>(&value))
            sqlite3_bind_double(statement, index, *real);
        else if (const auto* text = std::get_if<QString>(&value))
            sqlite3_bind_text(statement, index, text->toUtf8().constData(), -1, SQLITE_TRANSIENT);
    }

    static Row row(sqlite3_stmt* statement)
    {
        Row result;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            switch (sqlite3_column_type(statement, i)) {
            case SQLITE_INTEGER:
                result.push_back(sqlite3_column_int64(statement, i));
                break;
            case SQLITE_FLOAT:
                result.push_back(sqlite3_column_double(statement, i));
                break;
            case SQLITE_NULL:
                result.push_back({});
                break;
            default:
                result.push_back(
                    QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i))));
            }
        }
        return result;
    }

    sqlite3* m_db = nullptr;
};
