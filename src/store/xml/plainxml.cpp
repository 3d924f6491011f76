#include "store/xml/plainxml.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <vector>

namespace {

/// A reference that is longer than this, "&#x0010FFFF;", stands for no character.
constexpr qsizetype longestReference = 12;

/// What a byte can be; one byte may be several.
enum Kind : quint8 {
    NameStart = 1,
    NameRest = 2,
    Blank = 4,
    Special = 8, ///< must be looked at inside a value
};

constexpr std::array<quint8, 256> makeKinds()
{
    std::array<quint8, 256> kinds{};
    for (size_t c = 0; c < 0x20; ++c)
        kinds[c] = Special;
    for (const char c : {' ', '\t', '\r', '\n'})
        kinds[static_cast<uchar>(c)] = Blank;
    for (const char c : {'<', '&', '"', '\'', '\xEF'})
        kinds[static_cast<uchar>(c)] = Special;
    for (uchar c = 'A'; c <= 'Z'; ++c)
        kinds[c] = kinds[c + 0x20U] = NameStart | NameRest;
    kinds['_'] = NameStart | NameRest;
    for (const char c : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '.', '-'})
        kinds[static_cast<uchar>(c)] = NameRest;
    return kinds;
}

constexpr std::array<quint8, 256> kinds = makeKinds();

bool isKind(char c, Kind kind)
{
    return (kinds[static_cast<uchar>(c)] & kind) != 0;
}

/// Walks over the bytes once; each step answers false as soon as it meets something that is not plain. The
/// zero byte behind the last one ends every step.
class PlainXml
{
public:
    PlainXml(const char* begin, const char* end)
        : m_at(begin)
        , m_end(end)
    {
    }
    bool isWellFormed()
    {
        passText(R"(<?xml version="1.0" encoding="UTF-8"?>)");
        do {
            passBlanks();
            if (!passText("<") || !(*m_at == '/' ? passEnd() : passStart()))
                return false;
        } while (!m_open.empty());
        passBlanks();
        return m_at == m_end;
    }

private:
    using Names = std::vector<std::string_view>;

    bool passText(std::string_view text)
    {
        if (!std::string_view(m_at, static_cast<size_t>(m_end - m_at)).starts_with(text))
            return false;
        m_at += text.size();
        return true;
    }
    bool passBlanks()
    {
        const char* const before = m_at;
        while (isKind(*m_at, Blank))
            ++m_at;
        return m_at != before;
    }
    std::string_view passName()
    {
        const char* const begin = m_at;
        if (!isKind(*m_at, NameStart))
            return {};
        while (isKind(*m_at, NameRest))
            ++m_at;
        return {begin, static_cast<size_t>(m_at - begin)};
    }
    bool passEnd()
    {
        ++m_at; // the stroke
        if (m_open.empty() || passName() != m_open.back())
            return false;
        m_open.pop_back();
        passBlanks();
        return passText(">");
    }
    bool passStart()
    {
        const std::string_view element = passName();
        if (element.empty())
            return false;
        m_names.clear();
        while (passBlanks() && isKind(*m_at, NameStart)) {
            if (!passAttribute())
                return false;
        }
        if (hasDouble())
            return false;
        if (passText("/>"))
            return true;
        m_open.push_back(element);
        return m_open.size() <= deepestXml && passText(">");
    }
    bool passAttribute()
    {
        m_names.push_back(passName());
        passBlanks();
        if (!passText("="))
            return false;
        passBlanks();
        const char quote = *m_at;
        if (quote != '"' && quote != '\'')
            return false;
        ++m_at;
        return passValue(quote);
    }
    bool passValue(char quote)
    {
        for (;; ++m_at) {
            while (!isKind(*m_at, Special))
                ++m_at;
            if (*m_at == quote) {
                ++m_at;
                return true;
            }
            if (*m_at == '&' ? !passReference() : !isHarmless())
                return false;
        }
    }
    /// Of the bytes that are special: the other quote, and those that begin no noncharacter.
    [[nodiscard]] bool isHarmless() const
    {
        if (*m_at == '\xEF')
            return m_at[1] != '\xBF' || (m_at[2] != '\xBE' && m_at[2] != '\xBF');
        return *m_at == '"' || *m_at == '\'';
    }
    /// Ends on the semicolon.
    bool passReference()
    {
        for (const std::string_view known : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"}) {
            if (passText(known)) {
                --m_at;
                return true;
            }
        }
        const std::optional<uint> character = referencedCharacter({m_at, m_end - m_at});
        if (!character || !isXmlCharacter(*character))
            return false;
        while (*m_at != ';')
            ++m_at;
        return true;
    }
    bool hasDouble()
    {
        // The records of a table all have the same names in the same order, which need not be looked at anew.
        if (m_names == m_seen)
            return false;
        m_seen = m_names;
        std::ranges::sort(m_names);
        return std::ranges::adjacent_find(m_names) != m_names.end();
    }

    const char* m_at;
    const char* m_end;
    Names m_open;  ///< the elements that have begun
    Names m_names; ///< the attributes of the element at hand
    Names m_seen;  ///< those of an earlier one
};

} // namespace

bool isXmlCharacter(uint c)
{
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c < 0xD800) || (c >= 0xE000 && c < 0xFFFE) ||
           (c >= 0x10000 && c <= 0x10FFFF);
}

std::optional<uint> referencedCharacter(QByteArrayView text)
{
    const bool isHex = text.startsWith("&#x");
    const qsizetype start = isHex ? 3 : 2;
    const qsizetype end = text.first(qMin(text.size(), longestReference)).indexOf(';');
    if (!text.startsWith("&#") || end <= start)
        return {};
    const QByteArrayView digits = text.sliced(start, end - start);
    // A number with a sign or a blank is a number elsewhere, but not here.
    if (!isHex && !std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; }))
        return {};
    if (!std::ranges::all_of(digits, [](char c) { return std::isxdigit(static_cast<uchar>(c)) != 0; }))
        return {};
    bool isNumber = false;
    const uint value = digits.toUInt(&isNumber, isHex ? 16 : 10);
    return isNumber ? std::optional(value) : std::nullopt;
}

bool isPlainXml(const QByteArray& bytes, qsizetype from)
{
    return PlainXml(bytes.constData() + from, bytes.constData() + bytes.size()).isWellFormed();
}
