// Writes the expressions of a resolved statement in the engine's SQL.
#pragma once

#include "store/dialect/ast.h"
#include "store/dialect/lexer.h"

namespace dialect {

/// A name as the engine reads it whatever it is called. Names of the schema hold no quote.
QByteArray quotedName(const QString& name);
/// A column with its table in front: the engine would take a bare quoted name that it does not know for a
/// text.
QByteArray qualifiedName(const ColumnId& column);

/// Appends expressions to a translation's text and their literals to its parameters. Every literal becomes a
/// parameter; between them stand only names of the schema and fixed words.
class ExpressionRenderer
{
public:
    ExpressionRenderer(Translation& out, const Source& source)
        : m_out(out)
        , m_source(source)
    {
    }

    /// A condition, or a value to be compared.
    void write(const Expr& expr) { expression(expr, m_statementParts); }
    /// A value that goes into @p column.
    void writeStored(const Expr& expr, const schema::Column& column);

private:
    // @p parts counts what the engine's parser has open at this point; see refuseDeep().
    void expression(const Expr& expr, int parts);
    void operand(const Expr& expr, int parts);
    void leftOperand(const Expr& parent, const Expr& expr, int parts);
    void parameter(const Expr& expr);
    void column(const Expr& expr);
    void binary(const Expr& expr, const char* sign, int parts);
    void division(const Expr& expr, int parts);
    void arithmetic(const Expr& expr, int parts);
    void concat(const Expr& expr, int parts);
    void concatOperand(const Expr& expr);
    void compare(const Expr& expr, int parts);
    void comparedInRange(const Expr& expr);
    void between(const Expr& expr, int parts);
    void comparedFirst(const Expr& expr, int parts);
    void refuseDeep(const Expr& expr, int parts) const;

    static constexpr int m_statementParts = 14;

    Translation& m_out;
    const Source& m_source;
};

} // namespace dialect
