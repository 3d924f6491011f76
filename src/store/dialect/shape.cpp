// Takes literals out of a statement: the one part of the dialect that runs for every call.
#include "store/dialect/dialect.h"
#include "store/dialect/refusal.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>

namespace dialect {
namespace {

constexpr qsizetype maxLength = 1'000'000;
constexpr std::size_t maxLiterals = 1000;

/// Comment stands for the two signs that a comment could begin with.
enum class CharClass : quint8 { Foreign, Plain, Letter, Digit, Comment, Quote, Hash, Bracket };

constexpr std::array<CharClass, 128> makeClasses()
{
    std::array<CharClass, 128> classes{};
    for (char16_t c = u'a'; c <= u'z'; ++c)
        classes[c] = classes[c - u'a' + u'A'] = CharClass::Letter;
    classes[u'_'] = CharClass::Letter;
    for (char16_t c = u'0'; c <= u'9'; ++c)
        classes[c] = CharClass::Digit;
    for (const char16_t c :
         {u' ', u'\t', u'\r', u'\n', u'.', u',', u'(', u')', u'*', u'+', u'&', u'=', u'<', u'>', u';'})
        classes[c] = CharClass::Plain;
    classes[u'-'] = classes[u'/'] = CharClass::Comment;
    classes[u'\''] = CharClass::Quote;
    classes[u'#'] = CharClass::Hash;
    classes[u'['] = CharClass::Bracket;
    return classes;
}

constexpr auto charClasses = makeClasses();

CharClass classOf(char16_t c)
{
    return c < charClasses.size() ? charClasses[c] : CharClass::Foreign;
}

bool isWordChar(char16_t c)
{
    const CharClass kind = classOf(c);
    return kind == CharClass::Letter || kind == CharClass::Digit;
}

/// Walks over the statement once. Between two literals it only looks for the next sign that needs a closer
/// look.
class Splitter
{
public:
    explicit Splitter(QStringView statement)
        : m_text(statement)
    {
    }
    Shape split();

private:
    [[nodiscard]] qsizetype plainEnd() const;
    void step();
    void number();
    void text();
    [[nodiscard]] bool isCompared() const;
    void date();
    void bracketedName();
    void symbol();
    void copyTo(qsizetype end);
    void literal(LiteralKind kind, QStringView value, qsizetype next, char16_t mark);
    [[noreturn]] void refuse(const QString& reason) const;

    QStringView m_text;
    qsizetype m_pos = 0;
    qsizetype m_copied = 0; ///< up to here the statement stands in the key
    QVarLengthArray<char16_t, 1024> m_key;
    std::vector<Literal> m_literals;
};

Shape Splitter::split()
{
    if (m_text.size() > maxLength)
        Refusal::raise(StoreError::BadStatement,
                       Refusal::tr("The statement is too long (more than 1,000,000 characters)."));
    m_literals.reserve(std::min<std::size_t>(static_cast<std::size_t>(m_text.size()) / 16 + 1, 40));
    while ((m_pos = plainEnd()) < m_text.size())
        step();
    copyTo(m_text.size());
    return {QStringView(m_key.data(), m_key.size()).toString(), std::move(m_literals)};
}

/// The end of the words, blanks and harmless signs that begin here. Digits inside a word belong to it.
qsizetype Splitter::plainEnd() const
{
    const char16_t* const begin = m_text.utf16();
    const char16_t* const end = begin + m_text.size();
    const char16_t* at = begin + m_pos;
    while (at < end) {
        const CharClass kind = classOf(*at);
        if (kind == CharClass::Letter) {
            do
                ++at;
            while (at < end && isWordChar(*at));
        } else if (kind == CharClass::Plain) {
            ++at;
        } else {
            break;
        }
    }
    return at - begin;
}

void Splitter::step()
{
    switch (classOf(m_text[m_pos].unicode())) {
    case CharClass::Digit:
        return number();
    case CharClass::Comment:
        return symbol();
    case CharClass::Quote:
        return text();
    case CharClass::Hash:
        return date();
    case CharClass::Bracket:
        return bracketedName();
    case CharClass::Plain:
    case CharClass::Letter:
    case CharClass::Foreign:
        break;
    }
    refuse(Refusal::tr("The character %1 (U+%2) does not belong into a statement")
               .arg(Refusal::quoted(m_text.sliced(m_pos, 1)),
                    QString::number(m_text[m_pos].unicode(), 16).toUpper().rightJustified(4, u'0')));
}

void Splitter::number()
{
    qsizetype end = m_pos;
    const auto digits = [&] {
        while (end < m_text.size() && classOf(m_text[end].unicode()) == CharClass::Digit)
            ++end;
    };
    digits();
    if (end + 1 < m_text.size() && m_text[end] == u'.' &&
        classOf(m_text[end + 1].unicode()) == CharClass::Digit) {
        ++end;
        digits();
    }
    if (end < m_text.size() && classOf(m_text[end].unicode()) == CharClass::Letter)
        refuse(Refusal::tr("A number runs into a word: %1").arg(Refusal::quoted(m_text.sliced(m_pos))));
    literal(LiteralKind::Number, m_text.sliced(m_pos, end - m_pos), end, u'?');
}

void Splitter::text()
{
    const qsizetype end = m_text.indexOf(u'\'', m_pos + 1);
    if (end < 0)
        refuse(Refusal::tr("A text has no closing quote: %1").arg(Refusal::quoted(m_text.sliced(m_pos))));
    // A text never holds a quote, as quoteFix() takes them out. Two in a row mean that a text came in
    // uncleaned.
    if (end + 1 < m_text.size() && m_text[end + 1] == u'\'')
        refuse(Refusal::tr("A quote follows a text directly; quotes are not doubled: %1")
                   .arg(Refusal::quoted(m_text.sliced(m_pos))));
    const QStringView value = m_text.sliced(m_pos + 1, end - m_pos - 1);
    // The indexes know the case of A to Z; a text with other letters is looked for in another way.
    if (isCompared() && std::ranges::any_of(value, [](QChar c) { return c.unicode() >= charClasses.size(); }))
        literal(LiteralKind::Letters, value, end + 1, u'"');
    else
        literal(LiteralKind::Text, value, end + 1, u'\'');
}

/// True when the sign in front of the literal at hand is that of a comparison.
bool Splitter::isCompared() const
{
    qsizetype before = m_pos - 1;
    while (before >= 0 && m_text[before].isSpace())
        --before;
    return before >= 0 && (m_text[before] == u'=' || m_text[before] == u'>' || m_text[before] == u'<');
}

void Splitter::date()
{
    const qsizetype end = m_text.indexOf(u'#', m_pos + 1);
    if (end < 0)
        refuse(Refusal::tr("A date has no closing #: %1").arg(Refusal::quoted(m_text.sliced(m_pos))));
    literal(LiteralKind::Date, m_text.sliced(m_pos + 1, end - m_pos - 1), end + 1, u'#');
}

void Splitter::bracketedName()
{
    qsizetype end = m_pos + 1;
    while (end < m_text.size() && (isWordChar(m_text[end].unicode()) || m_text[end] == u' '))
        ++end;
    if (end == m_text.size() || m_text[end] != u']' || end == m_pos + 1)
        refuse(Refusal::tr("A name in brackets is empty, not closed, or holds a foreign character: %1")
                   .arg(Refusal::quoted(m_text.sliced(m_pos))));
    m_pos = end + 1;
}

void Splitter::symbol()
{
    const QStringView two = m_text.sliced(m_pos).left(2);
    if (two == u"--" || two == u"/*")
        refuse(Refusal::tr("Comments do not belong into a statement: %1")
                   .arg(Refusal::quoted(m_text.sliced(m_pos))));
    ++m_pos;
}

void Splitter::copyTo(qsizetype end)
{
    m_key.append(m_text.utf16() + m_copied, end - m_copied);
}

void Splitter::literal(LiteralKind kind, QStringView value, qsizetype next, char16_t mark)
{
    if (m_literals.size() == maxLiterals)
        refuse(Refusal::tr("The statement has more than 1000 values"));
    copyTo(m_pos);
    m_key.append(mark);
    m_literals.push_back({kind, value});
    m_pos = m_copied = next;
}

void Splitter::refuse(const QString& reason) const
{
    Refusal::raise(StoreError::BadStatement, Refusal::tr("%1, at character %2.").arg(reason).arg(m_pos + 1));
}

} // namespace

Shape splitShape(QStringView statement)
{
    return Splitter(statement).split();
}

} // namespace dialect
