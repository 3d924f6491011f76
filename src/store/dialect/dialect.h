// The program's own SQL: text in, the engine's SQL with bound parameters out.
#pragma once

#include "store/engine/schema.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>
#include <variant>
#include <vector>

/// Statements are concatenated texts in the program's dialect: one Select, Insert, Update or Delete on the
/// program's own tables. A statement is first split into its shape (the text without literals) and its
/// literals; the shape is translated once and cached, the literals are bound as what the columns they meet
/// are. So no literal of a user or a file ever reaches the engine as SQL. Every refusal is a StoreError
/// (BadStatement, UnknownName or TypeMismatch) whose description names what was found and where.
namespace dialect {

enum class LiteralKind : quint8 {
    Text,    ///< 'text': no quote inside, quotes are never doubled
    Letters, ///< a text with letters beyond A to Z, to the right of = or <>
    Number,  ///< digits with an optional decimal part; signs and divisions are operators
    Date,    ///< #date#
};

/// A literal of a statement: a view into the statement's text without its delimiters.
struct Literal
{
    LiteralKind kind;
    QStringView text;
};

/// A statement taken apart.
struct Shape
{
    QString key; ///< the statement with each literal replaced by a mark of its kind
    std::vector<Literal> literals;
};

/// Splits a statement; cheap, one walk over the text. Refuses unclosed literals, characters that belong to no
/// statement, statements of more than 1,000,000 characters and more than 1000 literals.
Shape splitShape(QStringView statement);

/// What a caller wants of a Select's rows. The statement stays as the program writes it; the engine is asked
/// for no more.
struct Want
{
    enum Kind {
        AllRows,   ///< the rows as the statement says
        RowCount,  ///< one row with one column: how many rows there are
        LastValue, ///< one column of the last row
        FirstRow,  ///< the first row only
        OneColumn, ///< one column of all rows
        Exists,    ///< at most one row with one constant column
    };
    Kind kind = AllRows;
    QString column = {}; ///< for LastValue and OneColumn; empty means the first column
};

/// How a literal is bound.
enum class BindAs : quint8 {
    Text,          ///< as text, numbers in their written form
    StoredInteger, ///< into an integer column: "" is NULL, decimals are rounded, anything else must be a
                   ///< 32-bit number
    StoredDate,    ///< into a date column: "" is NULL, any date form becomes ISO
    Number,        ///< compared with an integer column or used in arithmetic: "" is NULL
    Real,          ///< operand of arithmetic, always a real number, so that a division is a real division
    Date,          ///< compared with a date column: "" is NULL, any date form becomes ISO
    LowestAlike,   ///< of a text: not above any text that is the same, as the indexes sort them
    HighestAlike,  ///< of a text: not below any text that is the same
};

struct Parameter
{
    int literal; ///< index into Shape::literals
    BindAs as;
};

/// A column of a Select's result.
struct ResultColumn
{
    QString name; ///< as the schema spells it; "EXPR1000" for a count without an alias
    schema::ColumnType type;
};

enum class StatementKind { Select, Insert, Update, Delete };

/// A translated shape.
struct Translation
{
    StatementKind kind = StatementKind::Select;
    const schema::Table* target = nullptr; ///< what an Insert, Update or Delete writes; null for a Select
    QByteArray sql;                        ///< the engine's text, parameters ?1, ?2, ... in order
    std::vector<Parameter> parameters;     ///< for ?1, ?2, ...
    std::vector<ResultColumn> columns;     ///< of a Select
};

/// Parses a whole statement and renders it for the engine.
Translation translate(QStringView statement, const Want& want = {});

/// A literal as the engine gets it: NULL, a whole number, a real number, or text.
using BoundValue = std::variant<std::monostate, qint64, double, QString>;
/// Converts one literal; refuses with TypeMismatch a text that is no number or no date.
BoundValue bindValue(const Literal& literal, BindAs as);

} // namespace dialect
