#include "store/dialect/render.h"

#include "store/dialect/expressionrenderer.h"
#include "store/dialect/refusal.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dialect {
namespace {

/// Puts one statement together in the engine's SQL, clause by clause, its expressions by ExpressionRenderer.
class StatementRenderer
{
public:
    StatementRenderer(const Want& want, const Source& source)
        : m_want(want)
        , m_source(source)
        , m_expressions(m_out, source)
    {
    }
    Translation render(Statement& statement);

private:
    void select(Select& select);
    void countedRows(const Select& select);
    void selectRows(const Select& select);
    void items(const Select& select);
    void from(const Select& select);
    void where(const ExprPtr& condition);
    void orderBy(const Select& select, bool reversed);
    void keepWantedItem(Select& select);
    void listColumns(const Select& select);
    void insert(const Insert& insert);
    void update(const Update& update);
    void deletion(const Delete& deletion);

    const Want& m_want;
    const Source& m_source;
    Translation m_out;
    ExpressionRenderer m_expressions;
};

/// The name of an item in the result; the first count without a name is EXPR1000, the next one EXPR1001.
QString resultName(const SelectItem& item, int& unnamed)
{
    if (item.alias)
        return item.alias->text.toString();
    return item.isCount ? QString(u"EXPR"_s + QString::number(1000 + unnamed++))
                        : item.column.id.column().name;
}

Translation StatementRenderer::render(Statement& statement)
{
    if (auto* found = std::get_if<Select>(&statement))
        select(*found);
    else if (const auto* insertion = std::get_if<Insert>(&statement))
        insert(*insertion);
    else if (const auto* change = std::get_if<Update>(&statement))
        update(*change);
    else
        deletion(std::get<Delete>(statement));
    return std::move(m_out);
}

void StatementRenderer::select(Select& select)
{
    m_out.kind = StatementKind::Select;
    if (m_want.kind == Want::RowCount || m_want.kind == Want::Exists) {
        countedRows(select);
        m_out.columns = {{u"EXPR1000"_s, schema::ColumnType::Integer}};
        return;
    }
    listColumns(select);
    if (m_want.kind == Want::LastValue || m_want.kind == Want::OneColumn)
        keepWantedItem(select);
    selectRows(select);
    if (!select.isCount())
        orderBy(select, m_want.kind == Want::LastValue);
    if (m_want.kind == Want::LastValue || m_want.kind == Want::FirstRow)
        m_out.sql += " limit 1";
}

void StatementRenderer::countedRows(const Select& select)
{
    const bool exists = m_want.kind == Want::Exists;
    m_out.sql = exists ? "select 1" : "select count(*)";
    if (select.isCount()) {
        // A count is itself one row.
        m_out.sql += " from (";
        selectRows(select);
        m_out.sql += ')';
    } else {
        from(select);
        where(select.where);
    }
    if (exists)
        m_out.sql += " limit 1";
}

void StatementRenderer::selectRows(const Select& select)
{
    m_out.sql += "select ";
    items(select);
    from(select);
    where(select.where);
}

void StatementRenderer::items(const Select& select)
{
    const char* separator = "";
    for (const SelectItem& item : select.items) {
        const QByteArray column = item.countsRows ? QByteArray("*") : qualifiedName(item.column.id);
        m_out.sql += separator + (item.isCount ? "count(" + column + ')' : column);
        separator = ", ";
    }
}

void StatementRenderer::from(const Select& select)
{
    m_out.sql += " from " + quotedName(select.from.front()->name);
    if (!select.joinCondition)
        return;
    m_out.sql += " inner join " + quotedName(select.from.back()->name) + " on ";
    m_expressions.write(*select.joinCondition);
}

void StatementRenderer::where(const ExprPtr& condition)
{
    if (!condition)
        return;
    m_out.sql += " where ";
    m_expressions.write(*condition);
}

void StatementRenderer::orderBy(const Select& select, bool reversed)
{
    const char* separator = " order by ";
    const auto term = [&](const QByteArray& name, bool descending) {
        m_out.sql += separator + name + (descending != reversed ? " desc" : "");
        separator = ", ";
    };
    std::vector<ColumnId> seen;
    for (const OrderTerm& wanted : select.order) {
        if (std::find(seen.begin(), seen.end(), wanted.column.id) != seen.end())
            continue;
        seen.push_back(wanted.column.id);
        const bool text = wanted.column.id.column().type == schema::ColumnType::Text;
        term(qualifiedName(wanted.column.id) + (text ? " collate letters" : ""), wanted.descending);
    }
    // Rows that the order leaves equal come in the order in which they were stored, each time the same.
    for (const schema::Table* table : select.from)
        term(quotedName(table->name) + ".rowid", false);
}

void StatementRenderer::keepWantedItem(Select& select)
{
    std::size_t found = 0;
    while (!m_want.column.isEmpty() && found < m_out.columns.size() &&
           m_out.columns[found].name.compare(m_want.column, Qt::CaseInsensitive) != 0)
        ++found;
    if (found == m_out.columns.size())
        m_source.refuse(StoreError::UnknownName,
                        Refusal::tr("The result has no column %1").arg(Refusal::quoted(m_want.column)), 0);
    const SelectItem wanted = select.items[found];
    select.items = {wanted};
    const ResultColumn column = m_out.columns[found];
    m_out.columns = {column};
}

void StatementRenderer::listColumns(const Select& select)
{
    int unnamed = 0;
    for (const SelectItem& item : select.items) {
        const schema::ColumnType type =
            item.isCount ? schema::ColumnType::Integer : item.column.id.column().type;
        m_out.columns.push_back({resultName(item, unnamed), type});
    }
}

void StatementRenderer::insert(const Insert& insert)
{
    m_out.kind = StatementKind::Insert;
    m_out.target = insert.target;
    m_out.sql = "insert into " + quotedName(insert.target->name);
    const char* separator = " (";
    for (const ColumnName& column : insert.columns) {
        m_out.sql += separator + quotedName(column.id.column().name);
        separator = ", ";
    }
    m_out.sql += ") ";
    if (insert.source) {
        selectRows(*insert.source);
        return orderBy(*insert.source, false);
    }
    separator = "values (";
    for (std::size_t i = 0; i < insert.values.size(); ++i) {
        m_out.sql += separator;
        m_expressions.writeStored(*insert.values[i], insert.columns[i].id.column());
        separator = ", ";
    }
    m_out.sql += ')';
}

void StatementRenderer::update(const Update& update)
{
    m_out.kind = StatementKind::Update;
    m_out.target = update.target;
    m_out.sql = "update " + quotedName(update.target->name);
    const char* separator = " set ";
    for (const Assignment& assignment : update.assignments) {
        const schema::Column& column = assignment.column.id.column();
        m_out.sql += separator + quotedName(column.name) + " = ";
        m_expressions.writeStored(*assignment.value, column);
        separator = ", ";
    }
    where(update.where);
}

void StatementRenderer::deletion(const Delete& deletion)
{
    m_out.kind = StatementKind::Delete;
    m_out.target = deletion.target;
    m_out.sql = "delete from " + quotedName(deletion.target->name);
    where(deletion.where);
    // Without a condition the engine empties the table at one stroke, past what records the rows' changes.
    if (!deletion.where)
        m_out.sql += " where true";
}

} // namespace

Translation render(Statement& statement, const Want& want, const Source& source)
{
    return StatementRenderer(want, source).render(statement);
}

} // namespace dialect
