// The small syntax tree of a statement. The parser makes it; the resolver fills in tables, columns and types.
#pragma once

#include "store/dialect/dialect.h"

#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace dialect {

/// A name with its place in the statement's shape.
struct Name
{
    QStringView text;
    qsizetype place = 0;
};

/// A column of a table of the schema.
struct ColumnId
{
    const schema::Table* table = nullptr;
    int index = -1;

    [[nodiscard]] const schema::Column& column() const
    {
        return table->columns[static_cast<std::size_t>(index)];
    }
    bool operator==(const ColumnId&) const = default;
};

/// A column as written, with or without its table in front, and as found in the schema.
struct ColumnName
{
    std::optional<Name> table;
    Name name;
    ColumnId id = {};
};

enum class ExprKind {
    Literal,
    Column,
    Negate,
    Arithmetic, ///< + - * /
    Concat,     ///< &
    Compare,    ///< = < > <= >= <>
    Between,    ///< three operands
    IsNull,
    Not,
    And,
    Or,
};

/// How a comparison compares texts; without meaning for other values.
enum class Collation {
    Column,         ///< as the column's index sorts: all but A to Z count as they are
    Letters,        ///< with the case of all letters folded
    LettersInRange, ///< the same, among the rows that the column's index leaves
};

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

/// A part of an expression. One struct for all kinds: the tree is small and walked by kind.
struct Expr
{
    ExprKind kind = ExprKind::Literal;
    qsizetype place = 0; ///< in the statement's shape
    int height = 1;      ///< levels below and with this one
    std::vector<ExprPtr> operands = {};
    QStringView op = {};  ///< Arithmetic and Compare: the operator's sign
    bool negated = false; ///< IsNull: Is Not Null

    LiteralKind literalKind = LiteralKind::Text;
    int literal = -1;

    ColumnName column = {};

    // Set by typing.
    BindAs bind = BindAs::Text;
    bool asSerial = false; ///< a date column that takes part as its day number
    Collation collation = Collation::Column;
};

/// One result of a Select: a column, or a count.
struct SelectItem
{
    ColumnName column;
    bool isCount = false;
    bool countsRows = false; ///< Count(*)
    std::optional<Name> alias;
};

/// One column that the rows are sorted by.
struct OrderTerm
{
    ColumnName column;
    bool descending = false;
};

/// Reads rows of one table, or of two that are joined, or counts them.
struct Select
{
    bool allColumns = false;       ///< Select *; the resolver then fills the items
    std::vector<SelectItem> items; ///< either all counts or none
    Name table;
    std::optional<Name> joinedTable;
    ExprPtr joinCondition;
    ExprPtr where;
    std::vector<OrderTerm> order;
    std::vector<const schema::Table*> from; ///< one table or two

    [[nodiscard]] bool isCount() const { return !items.empty() && items.front().isCount; }
};

/// Adds one row of values, or the rows that a Select reads.
struct Insert
{
    Name table;
    std::vector<ColumnName> columns; ///< the resolver fills in those that Insert .. Select leaves out
    std::vector<ExprPtr> values;
    std::unique_ptr<Select> source; ///< null when there are values
    const schema::Table* target = nullptr;
};

/// One column that an Update writes, and with what.
struct Assignment
{
    ColumnName column;
    ExprPtr value;
};

/// Writes columns in the rows that fulfil a condition, or in all.
struct Update
{
    Name table;
    std::vector<Assignment> assignments;
    ExprPtr where;
    const schema::Table* target = nullptr;
};

/// Takes out the rows that fulfil a condition, or all.
struct Delete
{
    Name table;
    ExprPtr where;
    const schema::Table* target = nullptr;
};

using Statement = std::variant<Select, Insert, Update, Delete>;

} // namespace dialect
