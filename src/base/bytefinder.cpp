#include "base/bytefinder.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::string_view oftenFirst = " etaoinsrhldcumfpgwybvkxjqz";

size_t rarity(char c)
{
    const size_t place = oftenFirst.find(c);
    return place == std::string_view::npos ? oftenFirst.size() : place;
}

char small(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// Walks over the places of one byte.
class Places
{
public:
    Places(const char* from, const char* end, char byte)
        : m_end(end)
        , m_byte(byte)
    {
        next(from);
    }
    void next(const char* from)
    {
        at = from < m_end
                 ? static_cast<const char*>(std::memchr(from, m_byte, static_cast<size_t>(m_end - from)))
                 : nullptr;
    }
    const char* at = nullptr; ///< null behind the last

private:
    const char* m_end;
    char m_byte;
};

} // namespace

ByteFinder::ByteFinder(QByteArray wanted)
    : m_wanted(std::move(wanted))
{
    const auto rarest = std::ranges::max_element(m_wanted, {}, rarity);
    m_rare = static_cast<size_t>(rarest - m_wanted.cbegin());
}

bool ByteFinder::isPlain(std::string_view text)
{
    size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        quint64 eight = 0;
        std::memcpy(&eight, text.data() + i, 8);
        if (eight & 0x8080808080808080ULL)
            return false;
    }
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(),
                       [](char c) { return static_cast<signed char>(c) >= 0; });
}

bool ByteFinder::occursIn(std::string_view text) const
{
    const auto size = static_cast<size_t>(m_wanted.size());
    if (size == 0 || text.size() < size)
        return size == 0;
    const char* const begin = text.data() + m_rare;
    const char* const end = text.data() + text.size() - (size - m_rare - 1);
    const char rare = m_wanted[static_cast<qsizetype>(m_rare)];
    const bool isLetter = rare >= 'a' && rare <= 'z';
    Places places(begin, end, rare);
    Places capitals(isLetter ? begin : end, end, isLetter ? static_cast<char>(rare - 32) : rare);
    while (places.at || capitals.at) {
        Places& nearer = places.at && (!capitals.at || places.at < capitals.at) ? places : capitals;
        if (std::equal(m_wanted.cbegin(), m_wanted.cend(), nearer.at - m_rare,
                       [](char a, char b) { return a == small(b); }))
            return true;
        nearer.next(nearer.at + 1);
    }
    return false;
}
