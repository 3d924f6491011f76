// A quick look for a few letters in many texts.
#pragma once

#include <QByteArray>

#include <string_view>

/// Finds bytes in the bytes of texts, the letters A to Z in any case. Made for a million texts: it leaps from
/// one place of the rarest byte to the next.
class ByteFinder
{
public:
    /// @p wanted in small letters.
    explicit ByteFinder(QByteArray wanted);

    /// Nothing occurs in every text.
    [[nodiscard]] bool occursIn(std::string_view text) const;
    /// True for a text of ASCII characters only.
    [[nodiscard]] static bool isPlain(std::string_view text);

private:
    QByteArray m_wanted;
    size_t m_rare = 0; ///< place of the byte that texts hold least often
};
