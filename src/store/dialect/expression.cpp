#include "store/dialect/expression.h"

#include "store/dialect/refusal.h"

#include <array>

namespace dialect {
namespace {

/// Parentheses, Nots and signs inside one another.
constexpr int maxDepth = 200;
/// Levels of a tree, long chains of And and Or included; the engine itself stops at 1000 of its own levels.
constexpr int maxHeight = 300;

constexpr std::array<QStringView, 6> comparisonSigns{u"=", u"<", u">", u"<=", u">=", u"<>"};

/// Counts one level of recursion for as long as it lives.
class Level
{
public:
    Level(int& depth, const Lexer& lexer)
        : m_depth(depth)
    {
        if (depth >= maxDepth)
            lexer.source().refuse(StoreError::BadStatement,
                                  Refusal::tr("The expression is nested too deeply"), lexer.current().place);
        ++m_depth;
    }
    ~Level() { --m_depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

private:
    int& m_depth;
};

} // namespace

ExprPtr ExpressionParser::takeOperator(ExprKind kind)
{
    auto node = std::make_unique<Expr>();
    node->kind = kind;
    node->op = m_lexer.current().text;
    node->place = m_lexer.current().place;
    m_lexer.advance();
    return node;
}

void ExpressionParser::attach(Expr& node, ExprPtr operand) const
{
    node.height = std::max(node.height, operand->height + 1);
    node.operands.push_back(std::move(operand));
    if (node.height > maxHeight)
        m_lexer.source().refuse(StoreError::BadStatement, Refusal::tr("The expression is too long"),
                                node.place);
}

ExprPtr ExpressionParser::disjunction()
{
    ExprPtr left = conjunction();
    while (m_lexer.atWord(u"or")) {
        ExprPtr node = takeOperator(ExprKind::Or);
        attach(*node, std::move(left));
        attach(*node, conjunction());
        left = std::move(node);
    }
    return left;
}

ExprPtr ExpressionParser::conjunction()
{
    ExprPtr left = negation();
    while (m_lexer.atWord(u"and")) {
        ExprPtr node = takeOperator(ExprKind::And);
        attach(*node, std::move(left));
        attach(*node, negation());
        left = std::move(node);
    }
    return left;
}

ExprPtr ExpressionParser::negation()
{
    if (!m_lexer.atWord(u"not"))
        return comparison();
    const Level level(m_depth, m_lexer);
    ExprPtr node = takeOperator(ExprKind::Not);
    attach(*node, negation());
    return node;
}

ExprPtr ExpressionParser::comparison()
{
    ExprPtr left = concatenation();
    if (m_lexer.atWord(u"between"))
        return between(std::move(left));
    if (m_lexer.atWord(u"is"))
        return isNull(std::move(left));
    for (const QStringView sign : comparisonSigns) {
        if (!m_lexer.atSymbol(sign))
            continue;
        ExprPtr node = takeOperator(ExprKind::Compare);
        attach(*node, std::move(left));
        attach(*node, concatenation());
        return node;
    }
    return left;
}

ExprPtr ExpressionParser::between(ExprPtr value)
{
    ExprPtr node = takeOperator(ExprKind::Between);
    attach(*node, std::move(value));
    attach(*node, concatenation());
    m_lexer.expectWord(u"And");
    attach(*node, concatenation());
    return node;
}

ExprPtr ExpressionParser::isNull(ExprPtr value)
{
    ExprPtr node = takeOperator(ExprKind::IsNull);
    node->negated = m_lexer.takeWord(u"not");
    m_lexer.expectWord(u"Null");
    attach(*node, std::move(value));
    return node;
}

ExprPtr ExpressionParser::concatenation()
{
    ExprPtr left = sum();
    while (m_lexer.atSymbol(u"&")) {
        ExprPtr node = takeOperator(ExprKind::Concat);
        attach(*node, std::move(left));
        attach(*node, sum());
        left = std::move(node);
    }
    return left;
}

ExprPtr ExpressionParser::sum()
{
    ExprPtr left = product();
    while (m_lexer.atSymbol(u"+") || m_lexer.atSymbol(u"-")) {
        ExprPtr node = takeOperator(ExprKind::Arithmetic);
        attach(*node, std::move(left));
        attach(*node, product());
        left = std::move(node);
    }
    return left;
}

ExprPtr ExpressionParser::product()
{
    ExprPtr left = sign();
    while (m_lexer.atSymbol(u"*") || m_lexer.atSymbol(u"/")) {
        ExprPtr node = takeOperator(ExprKind::Arithmetic);
        attach(*node, std::move(left));
        attach(*node, sign());
        left = std::move(node);
    }
    return left;
}

ExprPtr ExpressionParser::sign()
{
    if (!m_lexer.atSymbol(u"-"))
        return primary();
    const Level level(m_depth, m_lexer);
    ExprPtr node = takeOperator(ExprKind::Negate);
    attach(*node, sign());
    return node;
}

ExprPtr ExpressionParser::primary()
{
    if (m_lexer.atSymbol(u"("))
        return parenthesised();
    const Token token = m_lexer.current();
    auto node = std::make_unique<Expr>();
    node->place = token.place;
    if (token.kind == Token::Literal) {
        node->literalKind = token.literalKind;
        node->literal = token.literal;
        m_lexer.advance();
        return node;
    }
    if (token.kind == Token::Word && m_lexer.followedBy(u"("))
        m_lexer.source().refuse(StoreError::BadStatement,
                                Refusal::tr("There are no functions here, but %1 is found")
                                    .arg(Refusal::quoted(m_lexer.source().textFrom(token.place))),
                                token.place);
    if (token.kind == Token::Symbol || token.kind == Token::End)
        m_lexer.refuse(Refusal::tr("a value or a column"));
    node->kind = ExprKind::Column;
    node->column = m_lexer.expectColumn();
    return node;
}

ExprPtr ExpressionParser::parenthesised()
{
    const Level level(m_depth, m_lexer);
    m_lexer.advance();
    ExprPtr inner = disjunction();
    m_lexer.expectSymbol(u")");
    return inner;
}

} // namespace dialect
