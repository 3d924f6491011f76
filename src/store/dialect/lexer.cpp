#include "store/dialect/lexer.h"

#include "store/dialect/refusal.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace dialect {
namespace {

/// The words that cannot be names unless they stand in brackets. No column of the store is called so.
constexpr std::array<QStringView, 25> keywords{
    u"and", u"as",    u"asc",    u"between", u"by",  u"count",  u"delete", u"desc", u"from",
    u"in",  u"inner", u"insert", u"into",    u"is",  u"join",   u"like",   u"not",  u"null",
    u"on",  u"or",    u"order",  u"select",  u"set", u"values", u"where"};

bool isKeyword(QStringView word)
{
    return std::any_of(keywords.begin(), keywords.end(), [word](QStringView keyword) {
        return word.compare(keyword, Qt::CaseInsensitive) == 0;
    });
}

bool isWordChar(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_';
}

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

std::optional<LiteralKind> markedLiteral(QChar c)
{
    switch (c.unicode()) {
    case u'\'':
        return LiteralKind::Text;
    case u'"':
        return LiteralKind::Letters;
    case u'#':
        return LiteralKind::Date;
    case u'?':
        return LiteralKind::Number;
    default:
        return std::nullopt;
    }
}

} // namespace

void Source::refuse(StoreError::Code code, const QString& reason, qsizetype place) const
{
    Refusal::raise(code, Refusal::tr("%1, at character %2.").arg(reason).arg(inStatement(place) + 1));
}

QStringView Source::textFrom(qsizetype place) const
{
    return m_statement.sliced(inStatement(place));
}

qsizetype Source::inStatement(qsizetype place) const
{
    qsizetype result = place;
    std::size_t literal = 0;
    for (const QChar c : shape().left(place)) {
        const std::optional<LiteralKind> kind = markedLiteral(c);
        if (!kind)
            continue;
        const qsizetype delimiters = *kind == LiteralKind::Number ? 0 : 2;
        result += m_shape.literals[literal++].text.size() + delimiters - 1;
    }
    return result;
}

Lexer::Lexer(const Source& source)
    : m_source(source)
    , m_shape(source.shape())
{
    advance();
}

bool Lexer::atWord(QStringView keyword) const
{
    return m_token.kind == Token::Word && m_token.text.compare(keyword, Qt::CaseInsensitive) == 0;
}

bool Lexer::atSymbol(QStringView symbol) const
{
    return m_token.kind == Token::Symbol && m_token.text == symbol;
}

bool Lexer::followedBy(QStringView symbol) const
{
    Lexer ahead(*this);
    ahead.advance();
    return ahead.atSymbol(symbol);
}

void Lexer::advance()
{
    while (m_next < m_shape.size() && isBlank(m_shape[m_next]))
        ++m_next;
    m_token = {.kind = Token::End, .text = {}, .place = m_next};
    if (m_next == m_shape.size())
        return;
    if (const std::optional<LiteralKind> kind = markedLiteral(m_shape[m_next])) {
        m_token.kind = Token::Literal;
        m_token.literalKind = *kind;
        m_token.literal = m_literals++;
        ++m_next;
    } else if (isWordChar(m_shape[m_next])) {
        readWord();
    } else {
        readSymbol();
    }
}

void Lexer::readWord()
{
    m_token.kind = Token::Word;
    while (m_next < m_shape.size() && isWordChar(m_shape[m_next]))
        ++m_next;
    m_token.text = m_shape.sliced(m_token.place, m_next - m_token.place);
}

void Lexer::readSymbol()
{
    if (m_shape[m_next] == u'[') {
        const qsizetype end = m_shape.indexOf(u']', m_next);
        m_token.kind = Token::Bracketed;
        m_token.text = m_shape.sliced(m_next + 1, end - m_next - 1);
        m_next = end + 1;
        return;
    }
    const QStringView two = m_shape.sliced(m_next).left(2);
    m_token.kind = Token::Symbol;
    m_token.text = two == u"<=" || two == u">=" || two == u"<>" ? two : two.left(1);
    m_next += m_token.text.size();
}

bool Lexer::takeWord(QStringView keyword)
{
    if (!atWord(keyword))
        return false;
    advance();
    return true;
}

bool Lexer::takeSymbol(QStringView symbol)
{
    if (!atSymbol(symbol))
        return false;
    advance();
    return true;
}

void Lexer::expectWord(QStringView keyword)
{
    if (!takeWord(keyword))
        refuse(keyword.toString());
}

void Lexer::expectSymbol(QStringView symbol)
{
    if (!takeSymbol(symbol))
        refuse(Refusal::quoted(symbol));
}

Name Lexer::expectName(const QString& wanted)
{
    const bool isName =
        m_token.kind == Token::Bracketed || (m_token.kind == Token::Word && !isKeyword(m_token.text));
    if (!isName)
        refuse(wanted);
    const Name name{m_token.text, m_token.place};
    advance();
    return name;
}

ColumnName Lexer::expectColumn()
{
    ColumnName column;
    column.name = expectName(Refusal::tr("the name of a column"));
    if (takeSymbol(u".")) {
        column.table = column.name;
        column.name = expectName(Refusal::tr("the name of a column"));
    }
    return column;
}

void Lexer::refuse(const QString& wanted) const
{
    if (m_token.kind == Token::End)
        m_source.refuse(StoreError::BadStatement,
                        Refusal::tr("The statement ends where %1 is expected").arg(wanted), m_token.place);
    m_source.refuse(StoreError::BadStatement,
                    Refusal::tr("%1 stands where %2 is expected")
                        .arg(Refusal::quoted(m_source.textFrom(m_token.place)), wanted),
                    m_token.place);
}

} // namespace dialect
