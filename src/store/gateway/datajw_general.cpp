// Statements that belong to no single kind of record.
#include "store/gateway/datajw_impl.h"

#include "base/bytefinder.h"
#include "store/engine/enginecall.h"

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;
using gateway::keyOf;

namespace {

/// The tail that both counting operations share: their order, if they were given one.
QString orderBy(const QString& orderField, const QString& keyField)
{
    const QString& field = orderField.isEmpty() ? keyField : orderField;
    return field.isEmpty() ? QString() : QString(u" order by "_s + field);
}

/// Looks for a text, in any case, in one column of rows.
class TextSearch
{
public:
    TextSearch(const QString& text, const QString& table, const QString& field)
        : m_wanted(text.toLower())
        , m_bytes(m_wanted.toUtf8())
        , m_isPlain(ByteFinder::isPlain(std::string_view(m_wanted.toUtf8())))
    {
        if (const schema::Table* const known = schema::findTable(table)) {
            const auto column = std::ranges::find_if(known->columns, [&](const schema::Column& one) {
                return one.name.compare(field, Qt::CaseInsensitive) == 0;
            });
            m_isDate = column != known->columns.end() && column->type == schema::ColumnType::Date;
        }
    }

    [[nodiscard]] bool finds(sqlite3_stmt* row, int column) const
    {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
        if (!text)
            return false;
        const std::string_view bytes(text, static_cast<size_t>(sqlite3_column_bytes(row, column)));
        if (m_isDate) // found as it is read
            return dateText(bytes).contains(m_wanted);
        if (m_isPlain && m_bytes.occursIn(bytes))
            return true;
        return !ByteFinder::isPlain(bytes) &&
               QString::fromUtf8(bytes.data(), qsizetype(bytes.size())).toLower().contains(m_wanted);
    }

private:
    [[nodiscard]] static QString dateText(std::string_view bytes)
    {
        const QString text = QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
        const auto moment = dates::fromIso(text);
        return (moment ? dates::general(*moment) : text).toLower();
    }

    QString m_wanted;
    ByteFinder m_bytes;
    bool m_isPlain;
    bool m_isDate = false;
};

/// Hands each row of a Select to @p look; the engine's bytes hold until it returns.
template<class Look> void visitRows(Database& database, const QString& statement, Look&& look)
{
    const engine::Statement rows = engine::prepare(database.handle(), dialect::translate(statement).sql);
    int code = sqlite3_step(rows.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(rows.get()))
        look(rows.get());
    if (code != SQLITE_DONE)
        throw engine::failure(database.handle());
}

/// The contact's key in a history's key, "12-3".
Key contactOf(sqlite3_stmt* row, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return keyOf(QVariant(QString::fromUtf8(text).section(u'-', 0, 0)));
}

/// The number of rows, or the value of the first column in the last one. Reading that value has a tag of its
/// own.
template<class Call> Key countOrLast(Call& call, const QString& statement, bool countOnly)
{
    if (countOnly)
        return call.countRows(statement);
    const RecordSet last = call.run(statement, {dialect::Want::LastValue, {}});
    call.setTag(call.tag() + u" - Fld_Name");
    return last.isEmpty() ? Key(0) : keyOf(last.value(0));
}

} // namespace

bool DataJW::execQuery(const QString& sql)
{
    return m_impl->guarded(u"DataJW-ExecQuery"_s, false, [&](auto& call) {
        // Reminders stay out while the statement runs.
        const BusyScope busy(m_impl->session);
        call.run(sql);
        return true;
    });
}

RecordSet DataJW::getExecQueryRecords(const QString& sql)
{
    return m_impl->guarded(u"DataJW-GetExecQueryRecords"_s, RecordSet::unread(),
                           [&](auto& call) { return call.run(sql); });
}

Key DataJW::getCount(const QString& table, bool countOnly, const QString& keyField, int keyValue,
                     const QString& orderField)
{
    return m_impl->guarded(u"DataJW-GetCount"_s, Key(0), [&](auto& call) {
        QString statement = u"Select * from "_s + table;
        if (keyValue > 0)
            statement += u" where "_s + keyField + u'=' + QString::number(keyValue);
        return countOrLast(call, statement + orderBy(orderField, keyField), countOnly);
    });
}

Key DataJW::getCountSp(const QString& table, bool countOnly, const QString& condition,
                       const QString& keyField, int keyValue, const QString& orderField)
{
    return m_impl->guarded(u"DataJW-GetCountSp"_s, Key(0), [&](auto& call) {
        QString statement = u"Select * from "_s + table;
        // The condition says it all: a key value alone asks for a condition that is then missing, and fails.
        if (!condition.isEmpty() || keyValue >= 1)
            statement += u" where "_s + condition;
        return countOrLast(call, statement + orderBy(orderField, keyField), countOnly);
    });
}

Key DataJW::getCounter(const QString& sql)
{
    return m_impl->guarded(u"DataJW-GetCounter"_s, Key(0), [&](auto& call) {
        const RecordSet count = call.firstRow(sql);
        const int column = count.columnIndex(u"EXPR1000");
        if (count.isEmpty())
            return Key(0);
        if (column < 0)
            throw gateway::refusal(StoreError::UnknownName,
                                   gateway::tr("The statement gives no column \"EXPR1000\"."));
        return keyOf(count.value(column));
    });
}

QStringList DataJW::getFields(const QString& table)
{
    return m_impl->guarded(u"DataJW-GetFields"_s, QStringList(), [&](auto& call) {
        const RecordSet row = call.firstRow(u"Select * from "_s + table);
        if (row.isEmpty())
            call.say(u"DataJW-GetFields-No Data available in "_s + table);
        QStringList fields;
        for (int i = 0; i < row.columnCount(); ++i)
            fields.append(row.columnName(i));
        return fields;
    });
}

bool DataJW::keyVerification(Key key, const QString& keyField, const QString& table, bool skip)
{
    return m_impl->guarded(u"DataJW-KeyVerification"_s, false, [&](auto& call) {
        if (skip)
            return false;
        const QString statement =
            u"Select * from "_s + table + u" where " + keyField + u'=' + gateway::text(key);
        return !call.run(statement, {dialect::Want::Exists, {}}).isEmpty();
    });
}

Key DataJW::getLastKeyInTable(const QString& table, const QString& keyField)
{
    return m_impl->guarded(u"DataJW-GetLastKeyInTable"_s, Key(0), [&](auto& call) {
        const auto key = call.lastKey(u"Select * from "_s + table + u" order by " + keyField, keyField);
        // The walk begins at the first row, so an empty table is a failure here and not a mere condition.
        if (!key)
            throw gateway::refusal(StoreError::NoRow, gateway::tr("There is no row in %1.").arg(table));
        return *key;
    });
}

std::vector<Key> DataJW::getKSearch(const QString& table, const QString& field, const QString& text)
{
    return m_impl->guarded(u"DataJW-GetKSearch"_s, std::vector<Key>(), [&](auto& call) {
        const QString statement = u"Select * FROM "_s + table;
        std::vector<Key> found;
        if (call.run(statement, {dialect::Want::Exists, {}}).isEmpty()) {
            call.say(u"DataJW-getKsearch - "_s + table + u"::" + field + u'=' + text +
                     u": No entries found.");
            return found;
        }
        // A history stands for its contact. The key of a Document has another name than the others, so a
        // search there fails.
        const bool isHistory = table == u"History";
        const TextSearch search(text, table, field);
        visitRows(
            database(), u"Select "_s + table + u"Key," + field + u" FROM " + table, [&](sqlite3_stmt* row) {
                if (search.finds(row, 1))
                    found.push_back(isHistory ? contactOf(row, 0)
                                              : keyOf(QVariant(qlonglong(sqlite3_column_int64(row, 0)))));
            });
        return found;
    });
}
