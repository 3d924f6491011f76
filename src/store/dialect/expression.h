// Parses the conditions and values of a statement.
#pragma once

#include "store/dialect/ast.h"
#include "store/dialect/lexer.h"

namespace dialect {

/// Reads one expression from the stream. From the loosest to the tightest: Or, And, Not, comparisons with
/// Between and Is Null, &, + and -, * and /, sign. Depth is bounded, so that no statement can exhaust the
/// stack.
class ExpressionParser
{
public:
    explicit ExpressionParser(Lexer& lexer)
        : m_lexer(lexer)
    {
    }

    /// A whole expression with And and Or.
    ExprPtr parse() { return disjunction(); }

private:
    ExprPtr disjunction();
    ExprPtr conjunction();
    ExprPtr negation();
    ExprPtr comparison();
    ExprPtr between(ExprPtr value);
    ExprPtr isNull(ExprPtr value);
    ExprPtr concatenation();
    ExprPtr sum();
    ExprPtr product();
    ExprPtr sign();
    ExprPtr primary();
    ExprPtr parenthesised();

    /// A node at the current token, which is stepped over.
    ExprPtr takeOperator(ExprKind kind);
    /// Hangs @p operand below @p node and refuses what has become too high.
    void attach(Expr& node, ExprPtr operand) const;

    Lexer& m_lexer;
    int m_depth = 0;
};

} // namespace dialect
