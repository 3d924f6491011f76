#include "store/dialect/expressionrenderer.h"

#include "store/dialect/refusal.h"

namespace dialect {
namespace {

/// The engine's parser has a stack of 100 entries; some room is kept for what stands around an expression.
constexpr int maxParts = 85;

bool isSimple(const Expr& expr)
{
    return expr.kind == ExprKind::Literal || expr.kind == ExprKind::Column;
}

bool isProduct(const Expr& expr)
{
    return expr.kind == ExprKind::Arithmetic && (expr.op == u"*" || expr.op == u"/");
}

/// True when @p left needs no parentheses in front of @p parent: both are links of one chain.
bool continuesChain(const Expr& parent, const Expr& left)
{
    if (parent.kind != left.kind)
        return false;
    return parent.kind == ExprKind::And || parent.kind == ExprKind::Or || parent.kind == ExprKind::Concat ||
           (parent.kind == ExprKind::Arithmetic && isProduct(parent) == isProduct(left));
}

bool isReal(const Expr& expr)
{
    return expr.kind == ExprKind::Literal || expr.asSerial || (isProduct(expr) && expr.op == u"/");
}

} // namespace

QByteArray quotedName(const QString& name)
{
    return '"' + name.toUtf8() + '"';
}

QByteArray qualifiedName(const ColumnId& column)
{
    return quotedName(column.table->name) + '.' + quotedName(column.column().name);
}

void ExpressionRenderer::writeStored(const Expr& expr, const schema::Column& column)
{
    const bool reckoned = expr.kind == ExprKind::Arithmetic || expr.kind == ExprKind::Negate;
    const bool number = column.type == schema::ColumnType::Integer || column.type == schema::ColumnType::Auto;
    if (!reckoned || !number)
        return expression(expr, m_statementParts);
    m_out.sql += "cast(round(";
    expression(expr, m_statementParts + 6);
    m_out.sql += ") as integer)";
}

void ExpressionRenderer::refuseDeep(const Expr& expr, int parts) const
{
    if (parts > maxParts)
        m_source.refuse(StoreError::BadStatement, Refusal::tr("The expression is nested too deeply"),
                        expr.place);
}

void ExpressionRenderer::expression(const Expr& expr, int parts)
{
    refuseDeep(expr, parts);
    switch (expr.kind) {
    case ExprKind::Literal:
        return parameter(expr);
    case ExprKind::Column:
        return column(expr);
    case ExprKind::Negate:
        m_out.sql += '-';
        return operand(*expr.operands[0], parts + 1);
    case ExprKind::Arithmetic:
        return arithmetic(expr, parts);
    case ExprKind::Concat:
        return concat(expr, parts);
    case ExprKind::Compare:
        return compare(expr, parts);
    case ExprKind::Between:
        return between(expr, parts);
    case ExprKind::IsNull:
        operand(*expr.operands[0], parts);
        m_out.sql += expr.negated ? " is not null" : " is null";
        return;
    case ExprKind::Not:
        m_out.sql += "not ";
        return operand(*expr.operands[0], parts + 1);
    case ExprKind::And:
        return binary(expr, " and ", parts);
    case ExprKind::Or:
        return binary(expr, " or ", parts);
    }
}

void ExpressionRenderer::operand(const Expr& expr, int parts)
{
    if (isSimple(expr))
        return expression(expr, parts);
    m_out.sql += '(';
    expression(expr, parts + 1);
    m_out.sql += ')';
}

void ExpressionRenderer::leftOperand(const Expr& parent, const Expr& expr, int parts)
{
    if (continuesChain(parent, expr))
        expression(expr, parts);
    else
        operand(expr, parts);
}

void ExpressionRenderer::parameter(const Expr& expr)
{
    m_out.parameters.push_back({expr.literal, expr.bind});
    m_out.sql += '?' + QByteArray::number(static_cast<qulonglong>(m_out.parameters.size()));
}

void ExpressionRenderer::column(const Expr& expr)
{
    const QByteArray name = qualifiedName(expr.column.id);
    // Day 0 is 1899-12-30, which is Julian day 2415018.5.
    m_out.sql += expr.asSerial ? "(julianday(" + name + ") - 2415018.5)" : name;
}

void ExpressionRenderer::binary(const Expr& expr, const char* sign, int parts)
{
    leftOperand(expr, *expr.operands[0], parts);
    m_out.sql += sign;
    operand(*expr.operands[1], parts + 2);
}

void ExpressionRenderer::arithmetic(const Expr& expr, int parts)
{
    if (expr.op == u"/")
        return division(expr, parts);
    binary(expr, expr.op == u"*" ? " * " : expr.op == u"+" ? " + " : " - ", parts);
}

void ExpressionRenderer::division(const Expr& expr, int parts)
{
    // Between two whole numbers the engine would divide without a remainder.
    binary(expr, isReal(*expr.operands[0]) ? " / " : " * 1.0 / ", parts);
}

void ExpressionRenderer::concat(const Expr& expr, int parts)
{
    if (expr.operands[0]->kind == ExprKind::Concat)
        expression(*expr.operands[0], parts);
    else
        concatOperand(*expr.operands[0]);
    m_out.sql += " || ";
    if (expr.operands[1]->kind == ExprKind::Concat)
        operand(*expr.operands[1], parts + 2);
    else
        concatOperand(*expr.operands[1]);
}

void ExpressionRenderer::concatOperand(const Expr& expr)
{
    if (expr.kind == ExprKind::Literal)
        return parameter(expr);
    m_out.sql += "coalesce(" + qualifiedName(expr.column.id) + ", '')";
}

void ExpressionRenderer::compare(const Expr& expr, int parts)
{
    if (expr.collation == Collation::LettersInRange)
        return comparedInRange(expr);
    comparedFirst(expr, parts);
    m_out.sql += ' ' + expr.op.toUtf8() + ' ';
    operand(*expr.operands[1], parts + 2);
}

void ExpressionRenderer::comparedInRange(const Expr& expr)
{
    const QByteArray name = qualifiedName(expr.operands[0]->column.id);
    const auto value = [&](BindAs as) -> QByteArray {
        m_out.parameters.push_back({expr.operands[1]->literal, as});
        return '?' + QByteArray::number(static_cast<qulonglong>(m_out.parameters.size()));
    };
    m_out.sql += '(' + name + " collate letters = " + value(BindAs::Text);
    m_out.sql += " and " + name + " >= " + value(BindAs::LowestAlike);
    m_out.sql += " and " + name + " <= " + value(BindAs::HighestAlike) + ')';
}

void ExpressionRenderer::between(const Expr& expr, int parts)
{
    comparedFirst(expr, parts);
    m_out.sql += " between ";
    operand(*expr.operands[1], parts + 2);
    m_out.sql += " and ";
    operand(*expr.operands[2], parts + 4);
}

void ExpressionRenderer::comparedFirst(const Expr& expr, int parts)
{
    operand(*expr.operands[0], parts);
    if (expr.collation == Collation::Letters)
        m_out.sql += " collate letters";
}

} // namespace dialect
