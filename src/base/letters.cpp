#include "base/letters.h"

#include <QChar>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// What a character counts as. Marks that stand behind their letter have no base.
struct Letter
{
    char32_t folded = 0;
    char32_t base = 0;
    char32_t second = 0; ///< of a letter that counts as two
};

/// Letters of the Latin script that have a mark or a form of their own but no decomposition.
struct Relative
{
    char16_t letter;
    char16_t base;
    char16_t second;
};
constexpr Relative relatives[] = {{u'ß', u's', u's'}, {u'æ', u'a', u'e'}, {u'œ', u'o', u'e'},
                                  {u'ø', u'o', 0},    {u'ð', u'd', 0},    {u'þ', u't', u'h'},
                                  {u'đ', u'd', 0},    {u'ħ', u'h', 0},    {u'ı', u'i', 0},
                                  {u'ł', u'l', 0},    {u'ŋ', u'n', 0},    {u'ŧ', u't', 0}};

constexpr char32_t firstBeyondAscii = 0x80;
/// Letters with case and marks lie below; what lies above is compared as it is.
constexpr char32_t tableEnd = 0x2c00;

constexpr char32_t asciiFolded(char32_t c)
{
    return c >= U'A' && c <= U'Z' ? c - U'A' + U'a' : c;
}

bool isSettled(char32_t c)
{
    const QChar::UnicodeVersion version = QChar::unicodeVersion(c);
    return version != QChar::Unicode_Unassigned && version <= QChar::Unicode_10_0;
}

char32_t withoutMarks(char32_t c)
{
    while (QChar::decompositionTag(c) == QChar::Canonical) {
        const QString parts = QChar::decomposition(c);
        if (parts.isEmpty() || parts.front().isSurrogate() || parts.front().unicode() == c)
            break;
        c = parts.front().unicode();
    }
    return asciiFolded(c);
}

Letter makeLetter(char32_t c)
{
    if (!isSettled(c))
        return {c, c};
    if (QChar::category(c) == QChar::Mark_NonSpacing)
        return {c, 0};
    Letter letter{QChar::toCaseFolded(c), 0};
    // The sign for Kelvin and the long s: a text of plain letters is the same as plain letters only, as the
    // store's indexes have it.
    if (letter.folded < firstBeyondAscii)
        letter.folded = c;
    letter.base = withoutMarks(letter.folded);
    for (const Relative& relative : relatives) {
        if (relative.letter == letter.folded)
            return {letter.folded, relative.base, relative.second};
    }
    return letter;
}

Letter letterOf(char32_t c)
{
    if (c < firstBeyondAscii)
        return {asciiFolded(c), asciiFolded(c)};
    if (c >= tableEnd)
        return {c, c};
    static const std::vector<Letter> table = [] {
        std::vector<Letter> all;
        for (char32_t each = firstBeyondAscii; each < tableEnd; ++each)
            all.push_back(makeLetter(each));
        return all;
    }();
    return table[c - firstBeyondAscii];
}

/// The characters of a text, one after the other; 0 behind the last.
class Walk
{
public:
    explicit Walk(QStringView text)
        : m_text(text)
    {
    }
    [[nodiscard]] bool atEnd() const { return m_at >= m_text.size(); }
    char32_t next()
    {
        const QChar c = m_text[m_at++];
        if (c.isHighSurrogate() && !atEnd() && m_text[m_at].isLowSurrogate())
            return QChar::surrogateToUcs4(c, m_text[m_at++]);
        return c.unicode();
    }
    char32_t nextFolded() { return atEnd() ? 0 : letterOf(next()).folded; }
    char32_t nextBase()
    {
        if (m_pending)
            return std::exchange(m_pending, 0);
        while (!atEnd()) {
            const Letter letter = letterOf(next());
            m_pending = letter.second;
            if (letter.base)
                return letter.base;
        }
        return 0;
    }

private:
    QStringView m_text;
    qsizetype m_at = 0;
    char32_t m_pending = 0;
};

int compareBy(QStringView left, QStringView right, char32_t (Walk::*next)())
{
    Walk a(left);
    Walk b(right);
    for (;;) {
        const char32_t ours = (a.*next)();
        const char32_t theirs = (b.*next)();
        if (ours != theirs)
            return ours < theirs ? -1 : 1;
        if (ours == 0 && a.atEnd() && b.atEnd())
            return 0;
    }
}

} // namespace

int letters::compare(QStringView left, QStringView right)
{
    const int byBase = compareBy(left, right, &Walk::nextBase);
    return byBase != 0 ? byBase : compareBy(left, right, &Walk::nextFolded);
}

int letters::compare(std::string_view left, std::string_view right)
{
    // Nearly every text is plain, and nearly every comparison is decided among plain letters.
    const std::size_t common = std::min(left.size(), right.size());
    std::size_t at = 0;
    for (; at < common; ++at) {
        const auto ours = static_cast<unsigned char>(left[at]);
        const auto theirs = static_cast<unsigned char>(right[at]);
        if (ours >= firstBeyondAscii || theirs >= firstBeyondAscii)
            break;
        if (asciiFolded(ours) != asciiFolded(theirs))
            return asciiFolded(ours) < asciiFolded(theirs) ? -1 : 1;
    }
    if (at == left.size() && at == right.size())
        return 0;
    const auto text = [](std::string_view utf8) {
        return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    };
    return compare(text(left), text(right));
}

QString letters::folded(QStringView text)
{
    QString result;
    result.reserve(text.size());
    for (Walk walk(text); !walk.atEnd();) {
        const char32_t c = letterOf(walk.next()).folded;
        if (c <= 0xffff)
            result += QChar(static_cast<char16_t>(c));
        else
            result += QString::fromUcs4(&c, 1);
    }
    return result;
}
