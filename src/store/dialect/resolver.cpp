#include "store/dialect/resolver.h"

#include "store/dialect/refusal.h"
#include "store/dialect/typing.h"

#include <algorithm>

namespace dialect {
namespace {

const schema::Table* findTable(const Name& name, const Source& source)
{
    const schema::Table* table = schema::findTable(name.text);
    if (!table)
        source.refuse(StoreError::UnknownName,
                      Refusal::tr("There is no table %1").arg(Refusal::quoted(name.text)), name.place);
    return table;
}

void resolveCondition(ExprPtr& where, const Scope& scope)
{
    if (where)
        typeCondition(*where, scope);
}

void refuseTwice(const ColumnName& column, const Source& source)
{
    source.refuse(
        StoreError::BadStatement,
        Refusal::tr("The column %1 stands in the list twice").arg(Refusal::quoted(column.name.text)),
        column.name.place);
}

void addAllColumns(Select& select)
{
    for (const schema::Table* table : select.from) {
        for (int i = 0; i < static_cast<int>(table->columns.size()); ++i) {
            SelectItem item;
            item.column.id = {table, i};
            select.items.push_back(item);
        }
    }
}

void resolveItems(Select& select, const Scope& scope)
{
    for (SelectItem& item : select.items) {
        // A count answers one row, a column one a row: there is no grouping that would bring the two
        // together.
        if (item.isCount != select.items.front().isCount)
            scope.source().refuse(StoreError::BadStatement,
                                  Refusal::tr("Counts and columns cannot stand in one list"),
                                  item.column.name.place);
        if (!item.countsRows)
            scope.find(item.column);
    }
    if (select.allColumns)
        addAllColumns(select);
}

void resolveSelect(Select& select, const Source& source)
{
    select.from.push_back(findTable(select.table, source));
    if (select.joinedTable) {
        select.from.push_back(findTable(*select.joinedTable, source));
        if (select.from.front() == select.from.back())
            source.refuse(StoreError::BadStatement, Refusal::tr("A table cannot be joined with itself"),
                          select.joinedTable->place);
    }
    const Scope scope(select.from, source);
    resolveItems(select, scope);
    resolveCondition(select.joinCondition, scope);
    resolveCondition(select.where, scope);
    for (OrderTerm& term : select.order)
        scope.find(term.column);
}

void resolveColumns(Insert& insert, const Scope& scope)
{
    std::vector<bool> seen(insert.target->columns.size());
    for (ColumnName& column : insert.columns) {
        scope.find(column);
        const auto index = static_cast<std::size_t>(column.id.index);
        if (seen[index])
            refuseTwice(column, scope.source());
        seen[index] = true;
    }
    if (!insert.columns.empty())
        return;
    for (int i = 0; i < static_cast<int>(insert.target->columns.size()); ++i)
        insert.columns.push_back({.table = {}, .name = insert.table, .id = {insert.target, i}});
}

void checkCount(const Insert& insert, std::size_t values, const Source& source)
{
    if (insert.columns.size() != values)
        source.refuse(StoreError::BadStatement,
                      Refusal::tr("There are %1 columns, but %2 values")
                          .arg(QString::number(insert.columns.size()), QString::number(values)),
                      insert.table.place);
}

void resolveSource(Insert& insert, const Source& source)
{
    Select& select = *insert.source;
    resolveSelect(select, source);
    if (select.isCount())
        source.refuse(StoreError::BadStatement, Refusal::tr("A count cannot be inserted"),
                      insert.table.place);
    checkCount(insert, select.items.size(), source);
    for (std::size_t i = 0; i < insert.columns.size(); ++i)
        checkCopied(select.items[i].column.id.column(), insert.columns[i], source);
}

void resolveInsert(Insert& insert, const Source& source)
{
    insert.target = findTable(insert.table, source);
    resolveColumns(insert, Scope({insert.target}, source));
    if (insert.source)
        return resolveSource(insert, source);
    checkCount(insert, insert.values.size(), source);
    const Scope noColumns({}, source); // a new row's values come from nowhere but the statement
    for (std::size_t i = 0; i < insert.values.size(); ++i)
        typeStored(*insert.values[i], insert.columns[i].id.column(), noColumns);
}

void resolveUpdate(Update& update, const Source& source)
{
    update.target = findTable(update.table, source);
    const Scope scope({update.target}, source);
    std::vector<ColumnId> seen;
    for (Assignment& assignment : update.assignments) {
        scope.find(assignment.column);
        if (std::find(seen.begin(), seen.end(), assignment.column.id) != seen.end())
            refuseTwice(assignment.column, source);
        seen.push_back(assignment.column.id);
        const schema::Column& column = assignment.column.id.column();
        if (column.type == schema::ColumnType::Auto)
            source.refuse(StoreError::BadStatement,
                          Refusal::tr("The store itself numbers %1; it cannot be changed")
                              .arg(Refusal::quoted(column.name)),
                          assignment.column.name.place);
        typeStored(*assignment.value, column, scope);
    }
    resolveCondition(update.where, scope);
}

void resolveDelete(Delete& deletion, const Source& source)
{
    deletion.target = findTable(deletion.table, source);
    resolveCondition(deletion.where, Scope({deletion.target}, source));
}

} // namespace

void resolve(Statement& statement, const Source& source)
{
    if (auto* select = std::get_if<Select>(&statement))
        resolveSelect(*select, source);
    else if (auto* insert = std::get_if<Insert>(&statement))
        resolveInsert(*insert, source);
    else if (auto* update = std::get_if<Update>(&statement))
        resolveUpdate(*update, source);
    else
        resolveDelete(std::get<Delete>(statement), source);
}

bool Scope::isIn(const ColumnName& column, const schema::Table& table) const
{
    return !column.table || column.table->text.compare(table.name, Qt::CaseInsensitive) == 0;
}

void Scope::find(ColumnName& column) const
{
    for (const schema::Table* table : m_tables) {
        const int index = isIn(column, *table) ? table->indexOf(column.name.text) : -1;
        if (index < 0)
            continue;
        if (column.id.table)
            m_source.refuse(StoreError::UnknownName,
                            Refusal::tr("The column %1 is in both tables; its table must stand in front")
                                .arg(Refusal::quoted(column.name.text)),
                            column.name.place);
        column.id = {table, index};
    }
    if (column.id.table)
        return;
    const auto isNamed = [&](const schema::Table* table) { return isIn(column, *table); };
    if (!m_tables.empty() && std::ranges::none_of(m_tables, isNamed))
        m_source.refuse(StoreError::UnknownName,
                        Refusal::tr("The name %1 in front of a column is no table of the statement")
                            .arg(Refusal::quoted(column.table->text)),
                        column.table->place);
    QStringList names;
    for (const schema::Table* table : m_tables)
        names.append(table->name);
    const QString name = Refusal::quoted(column.name.text);
    m_source.refuse(
        StoreError::UnknownName,
        names.isEmpty()
            ? Refusal::tr("A value is expected, but the name %1 is found").arg(name)
            : Refusal::tr("There is no column %1 in %2").arg(name, names.join(QStringView(u", "))),
        column.name.place);
}

} // namespace dialect
