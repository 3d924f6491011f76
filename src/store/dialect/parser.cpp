#include "store/dialect/parser.h"

#include "store/dialect/expression.h"
#include "store/dialect/refusal.h"

namespace dialect {
namespace {

/// More than any table has columns; keeps a hostile list from growing.
constexpr std::size_t maxListed = 255;

/// Takes one statement apart, clause by clause, as the lexer gives its tokens.
class StatementParser
{
public:
    explicit StatementParser(const Source& source)
        : m_lexer(source)
    {
    }
    Statement parse();

private:
    Statement statement();
    Select select();
    SelectItem selectItem();
    void join(Select& select);
    void orderBy(Select& select);
    Insert insert();
    Update update();
    Delete deletion();
    void columnList(Insert& insert);
    void valueList(Insert& insert);
    ExprPtr where();
    Name tableName();
    void checkListed(std::size_t count) const;

    Lexer m_lexer;
};

Statement StatementParser::parse()
{
    Statement result = statement();
    m_lexer.takeSymbol(u";");
    if (m_lexer.current().kind != Token::End)
        m_lexer.refuse(Refusal::tr("the end of the statement"));
    return result;
}

Statement StatementParser::statement()
{
    if (m_lexer.takeWord(u"select"))
        return select();
    if (m_lexer.takeWord(u"insert"))
        return insert();
    if (m_lexer.takeWord(u"update"))
        return update();
    if (m_lexer.takeWord(u"delete"))
        return deletion();
    m_lexer.refuse(Refusal::tr("Select, Insert, Update or Delete"));
}

Select StatementParser::select()
{
    Select select;
    if (m_lexer.takeSymbol(u"*")) {
        select.allColumns = true;
    } else {
        do {
            select.items.push_back(selectItem());
            checkListed(select.items.size());
        } while (m_lexer.takeSymbol(u","));
    }
    m_lexer.expectWord(u"From");
    select.table = tableName();
    if (m_lexer.atWord(u"inner"))
        join(select);
    select.where = where();
    if (m_lexer.takeWord(u"order"))
        orderBy(select);
    return select;
}

SelectItem StatementParser::selectItem()
{
    SelectItem item;
    if (m_lexer.atWord(u"count") && m_lexer.followedBy(u"(")) {
        m_lexer.advance();
        m_lexer.advance();
        item.isCount = true;
        item.countsRows = m_lexer.takeSymbol(u"*");
        if (!item.countsRows)
            item.column = m_lexer.expectColumn();
        m_lexer.expectSymbol(u")");
    } else {
        item.column = m_lexer.expectColumn();
    }
    if (m_lexer.takeWord(u"as"))
        item.alias = m_lexer.expectName(Refusal::tr("a name for the column"));
    return item;
}

void StatementParser::join(Select& select)
{
    m_lexer.expectWord(u"Inner");
    m_lexer.expectWord(u"Join");
    select.joinedTable = tableName();
    m_lexer.expectWord(u"On");
    const auto side = [this] {
        auto column = std::make_unique<Expr>();
        column->kind = ExprKind::Column;
        column->place = m_lexer.current().place;
        column->column = m_lexer.expectColumn();
        return column;
    };
    auto condition = std::make_unique<Expr>();
    condition->kind = ExprKind::Compare;
    condition->operands.push_back(side());
    condition->op = m_lexer.current().text;
    condition->place = m_lexer.current().place;
    m_lexer.expectSymbol(u"=");
    condition->operands.push_back(side());
    select.joinCondition = std::move(condition);
}

void StatementParser::orderBy(Select& select)
{
    m_lexer.expectWord(u"By");
    do {
        OrderTerm term;
        term.column = m_lexer.expectColumn();
        term.descending = m_lexer.takeWord(u"desc");
        if (!term.descending)
            m_lexer.takeWord(u"asc");
        select.order.push_back(term);
        checkListed(select.order.size());
    } while (m_lexer.takeSymbol(u","));
}

Insert StatementParser::insert()
{
    m_lexer.expectWord(u"Into");
    Insert insert;
    insert.table = tableName();
    if (m_lexer.atSymbol(u"("))
        columnList(insert);
    if (m_lexer.takeWord(u"select")) {
        insert.source = std::make_unique<Select>(select());
        return insert;
    }
    if (insert.columns.empty())
        m_lexer.refuse(Refusal::tr("the list of columns"));
    m_lexer.expectWord(u"Values");
    valueList(insert);
    return insert;
}

void StatementParser::columnList(Insert& insert)
{
    m_lexer.expectSymbol(u"(");
    do {
        insert.columns.push_back(
            {.table = {}, .name = m_lexer.expectName(Refusal::tr("the name of a column"))});
        checkListed(insert.columns.size());
    } while (m_lexer.takeSymbol(u","));
    m_lexer.expectSymbol(u")");
}

void StatementParser::valueList(Insert& insert)
{
    m_lexer.expectSymbol(u"(");
    do {
        insert.values.push_back(ExpressionParser(m_lexer).parse());
        checkListed(insert.values.size());
    } while (m_lexer.takeSymbol(u","));
    m_lexer.expectSymbol(u")");
}

Update StatementParser::update()
{
    Update update;
    update.table = tableName();
    m_lexer.expectWord(u"Set");
    do {
        Assignment assignment;
        assignment.column = m_lexer.expectColumn();
        m_lexer.expectSymbol(u"=");
        assignment.value = ExpressionParser(m_lexer).parse();
        update.assignments.push_back(std::move(assignment));
        checkListed(update.assignments.size());
    } while (m_lexer.takeSymbol(u","));
    update.where = where();
    return update;
}

Delete StatementParser::deletion()
{
    m_lexer.takeSymbol(u"*");
    m_lexer.expectWord(u"From");
    Delete deletion;
    deletion.table = tableName();
    deletion.where = where();
    return deletion;
}

ExprPtr StatementParser::where()
{
    return m_lexer.takeWord(u"where") ? ExpressionParser(m_lexer).parse() : nullptr;
}

Name StatementParser::tableName()
{
    return m_lexer.expectName(Refusal::tr("the name of a table"));
}

void StatementParser::checkListed(std::size_t count) const
{
    if (count > maxListed)
        m_lexer.source().refuse(StoreError::BadStatement, Refusal::tr("The list has more than 255 entries"),
                                m_lexer.current().place);
}

} // namespace

Statement parseStatement(const Source& source)
{
    return StatementParser(source).parse();
}

} // namespace dialect
