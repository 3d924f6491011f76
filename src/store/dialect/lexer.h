// A statement's shape as a stream of words, signs and literal marks.
#pragma once

#include "store/dialect/ast.h"
#include "store/engine/storeerror.h"

#include <QString>

namespace dialect {

/// The statement that is being translated. Parsing works on the shape alone, so a literal's value can never
/// change what a statement means; the statement itself is only looked at to tell a person where something
/// went wrong.
class Source
{
public:
    Source(QStringView statement, const Shape& shape)
        : m_statement(statement)
        , m_shape(shape)
    {
    }

    [[nodiscard]] QStringView shape() const { return m_shape.key; }
    /// Throws a failure that names @p reason and the place in the statement where @p place of the shape
    /// stands.
    [[noreturn]] void refuse(StoreError::Code code, const QString& reason, qsizetype place) const;
    /// The statement's text from a place of the shape on.
    [[nodiscard]] QStringView textFrom(qsizetype place) const;

private:
    [[nodiscard]] qsizetype inStatement(qsizetype place) const;

    QStringView m_statement;
    const Shape& m_shape;
};

/// A word, a sign or a literal's mark of the shape, and where it stands.
struct Token
{
    enum Kind { End, Word, Bracketed, Literal, Symbol };
    Kind kind = End;
    QStringView text; ///< a bracketed name without its brackets
    qsizetype place = 0;
    LiteralKind literalKind = LiteralKind::Text;
    int literal = -1;
};

/// Walks over the tokens with one token of view.
class Lexer
{
public:
    explicit Lexer(const Source& source);

    [[nodiscard]] const Source& source() const { return m_source; }
    [[nodiscard]] const Token& current() const { return m_token; }
    /// True when the current token is this keyword, in any case.
    [[nodiscard]] bool atWord(QStringView keyword) const;
    [[nodiscard]] bool atSymbol(QStringView symbol) const;
    /// True when the token behind the current one is this sign.
    [[nodiscard]] bool followedBy(QStringView symbol) const;
    void advance();

    /// Steps over the keyword or sign when it is there.
    bool takeWord(QStringView keyword);
    bool takeSymbol(QStringView symbol);
    /// Steps over the keyword or sign, or refuses the statement.
    void expectWord(QStringView keyword);
    void expectSymbol(QStringView symbol);
    /// A name: any word that is no keyword, or anything in brackets. @p wanted says what kind of name is
    /// missing.
    Name expectName(const QString& wanted);
    /// A column, with or without its table.
    ColumnName expectColumn();

    /// Refuses the statement at the current token.
    [[noreturn]] void refuse(const QString& wanted) const;

private:
    void readWord();
    void readSymbol();

    const Source& m_source;
    QStringView m_shape;
    qsizetype m_next = 0;
    int m_literals = 0;
    Token m_token;
};

} // namespace dialect
