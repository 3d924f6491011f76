#include "store/dialect/typing.h"

#include "store/dialect/refusal.h"

namespace dialect {
namespace {

/// What an expression yields. Literals are kept apart, as they become what the columns beside them are.
enum Value : unsigned {
    TextLiteral = 1,
    NumberLiteral = 2,
    DateLiteral = 4,
    Text = 8,
    Integer = 16,
    Number = 32, ///< the result of arithmetic
    Date = 64,
    Condition = 128,
};

/// What the two sides of a comparison are compared as.
enum class Domain { None, Text, Number, Date, Serial };

Domain commonDomain(unsigned values)
{
    const auto only = [values](unsigned allowed) { return (values & ~allowed) == 0; };
    if (values & Date) {
        if (only(Date | TextLiteral | DateLiteral))
            return Domain::Date;
        // An unquoted date such as 11/15/2026 is a division. It is compared as the number that it is.
        return only(Date | NumberLiteral | Integer | Number) ? Domain::Serial : Domain::None;
    }
    if (values & Text)
        return only(Text | TextLiteral | NumberLiteral) ? Domain::Text : Domain::None;
    if (values & (Integer | Number))
        return only(Integer | Number | TextLiteral | NumberLiteral) ? Domain::Number : Domain::None;
    if (values & DateLiteral)
        return only(DateLiteral | TextLiteral) ? Domain::Date : Domain::None;
    if (only(TextLiteral))
        return Domain::Text;
    return only(NumberLiteral) ? Domain::Number : Domain::None;
}

/// Walks over an expression and settles what each part is: its columns, its type, and how its literals are
/// bound.
class Typing
{
public:
    explicit Typing(const Scope& scope)
        : m_scope(scope)
    {
    }
    Value type(Expr& expr) const;
    void condition(Expr& expr) const;
    void stored(Expr& expr, const schema::Column& column) const;

private:
    Value literal(const Expr& expr) const;
    Value column(Expr& expr) const;
    Value arithmetic(Expr& expr) const;
    Value concat(Expr& expr) const;
    Value compare(Expr& expr) const;
    [[nodiscard]] static Collation collationOf(const Expr& expr);
    Value isNull(Expr& expr) const;
    Value logic(Expr& expr) const;
    bool storedText(Expr& expr, Value value) const;
    bool storedInteger(Expr& expr, Value value, bool isKey) const;
    bool storedDate(Expr& expr, Value value) const;
    [[noreturn]] void mismatch(const Expr& expr, const QString& reason) const;

    const Scope& m_scope;
};

void Typing::mismatch(const Expr& expr, const QString& reason) const
{
    m_scope.source().refuse(StoreError::TypeMismatch, reason, expr.place);
}

Value Typing::type(Expr& expr) const
{
    switch (expr.kind) {
    case ExprKind::Literal:
        return literal(expr);
    case ExprKind::Column:
        return column(expr);
    case ExprKind::Negate:
    case ExprKind::Arithmetic:
        return arithmetic(expr);
    case ExprKind::Concat:
        return concat(expr);
    case ExprKind::Compare:
    case ExprKind::Between:
        return compare(expr);
    case ExprKind::IsNull:
        return isNull(expr);
    case ExprKind::Not:
    case ExprKind::And:
    case ExprKind::Or:
        break;
    }
    return logic(expr);
}

Value Typing::literal(const Expr& expr) const
{
    switch (expr.literalKind) {
    case LiteralKind::Text:
    case LiteralKind::Letters:
        return TextLiteral;
    case LiteralKind::Number:
        return NumberLiteral;
    case LiteralKind::Date:
        break;
    }
    return DateLiteral;
}

Value Typing::column(Expr& expr) const
{
    m_scope.find(expr.column);
    switch (expr.column.id.column().type) {
    case schema::ColumnType::Auto:
    case schema::ColumnType::Integer:
        return Integer;
    case schema::ColumnType::Text:
        return Text;
    case schema::ColumnType::Date:
        break;
    }
    return Date;
}

Value Typing::arithmetic(Expr& expr) const
{
    for (const ExprPtr& operand : expr.operands) {
        const Value value = type(*operand);
        if (value & (TextLiteral | DateLiteral | Text | Condition))
            mismatch(*operand, Refusal::tr("Only numbers can be reckoned with; texts are joined with &"));
        if (value == Date)
            operand->asSerial = true;
        operand->bind = BindAs::Real;
    }
    return Number;
}

Value Typing::concat(Expr& expr) const
{
    for (const ExprPtr& operand : expr.operands) {
        const Value value = type(*operand);
        if (value & (DateLiteral | Date | Number | Condition))
            mismatch(*operand, Refusal::tr("Only texts and whole numbers can be joined with &"));
        operand->bind = BindAs::Text;
    }
    return Text;
}

Value Typing::compare(Expr& expr) const
{
    unsigned values = 0;
    for (const ExprPtr& operand : expr.operands)
        values |= type(*operand);
    const Domain domain = commonDomain(values);
    if (domain == Domain::None)
        mismatch(expr, Refusal::tr("Values of different kinds are compared"));
    for (const ExprPtr& operand : expr.operands) {
        operand->asSerial = domain == Domain::Serial && operand->kind == ExprKind::Column &&
                            operand->column.id.column().type == schema::ColumnType::Date;
        if (domain == Domain::Text)
            operand->bind = BindAs::Text;
        else if (domain == Domain::Number)
            operand->bind = BindAs::Number;
        else
            operand->bind = domain == Domain::Date ? BindAs::Date : BindAs::Real;
    }
    if (domain == Domain::Text)
        expr.collation = collationOf(expr);
    return Condition;
}

/// Where a column is told by a text of plain letters, its index has the answer.
Collation Typing::collationOf(const Expr& expr)
{
    const Expr& left = *expr.operands[0];
    const Expr& right = *expr.operands[1];
    const bool lookup = left.kind == ExprKind::Column && right.kind == ExprKind::Literal &&
                        (expr.op == u"=" || expr.op == u"<>");
    if (!lookup)
        return Collation::Letters;
    if (right.literalKind != LiteralKind::Letters)
        return Collation::Column;
    return expr.op == u"=" ? Collation::LettersInRange : Collation::Letters;
}

Value Typing::isNull(Expr& expr) const
{
    Expr& operand = *expr.operands.front();
    const Value value = type(operand);
    if (value == Condition)
        mismatch(operand, Refusal::tr("A condition is never Null"));
    if (value == NumberLiteral)
        operand.bind = BindAs::Real;
    else if (value == DateLiteral)
        operand.bind = BindAs::Date;
    return Condition;
}

Value Typing::logic(Expr& expr) const
{
    for (const ExprPtr& operand : expr.operands)
        condition(*operand);
    return Condition;
}

void Typing::condition(Expr& expr) const
{
    if (type(expr) != Condition)
        mismatch(expr, Refusal::tr("A condition is expected"));
}

void Typing::stored(Expr& expr, const schema::Column& column) const
{
    const Value value = type(expr);
    bool fits = false;
    switch (column.type) {
    case schema::ColumnType::Text:
        fits = storedText(expr, value);
        break;
    case schema::ColumnType::Auto:
    case schema::ColumnType::Integer:
        fits = storedInteger(expr, value, column.type == schema::ColumnType::Auto);
        break;
    case schema::ColumnType::Date:
        fits = storedDate(expr, value);
        break;
    }
    if (!fits)
        mismatch(expr,
                 Refusal::tr("The value does not fit into the column %1").arg(Refusal::quoted(column.name)));
}

bool Typing::storedText(Expr& expr, Value value) const
{
    expr.bind = BindAs::Text;
    return value & (TextLiteral | NumberLiteral | Text | Integer);
}

bool Typing::storedInteger(Expr& expr, Value value, bool isKey) const
{
    expr.bind = BindAs::StoredInteger;
    // A reckoned key could be so large that the store has no number left to give behind it.
    return value & (TextLiteral | NumberLiteral | Integer) || (value == Number && !isKey);
}

bool Typing::storedDate(Expr& expr, Value value) const
{
    expr.bind = BindAs::StoredDate;
    return value & (TextLiteral | DateLiteral | Date);
}

} // namespace

void typeCondition(Expr& expr, const Scope& scope)
{
    Typing(scope).condition(expr);
}

void typeStored(Expr& expr, const schema::Column& column, const Scope& scope)
{
    Typing(scope).stored(expr, column);
}

void checkCopied(const schema::Column& from, const ColumnName& into, const Source& source)
{
    const auto plain = [](schema::ColumnType type) {
        return type == schema::ColumnType::Auto ? schema::ColumnType::Integer : type;
    };
    if (plain(from.type) != plain(into.id.column().type))
        source.refuse(StoreError::TypeMismatch,
                      Refusal::tr("The column %1 does not fit into the column %2")
                          .arg(Refusal::quoted(from.name), Refusal::quoted(into.id.column().name)),
                      into.name.place);
}

} // namespace dialect
