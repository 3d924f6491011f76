#include "output/wordfinder.h"

#include "base/fold.h"

#include <algorithm>

WordFinder::WordFinder(const QString& typed)
    : m_folded(fold::words(typed))
{
    for (const QString& folded : m_folded) {
        const QByteArray bytes = folded.toUtf8();
        m_words.push_back({folded, ByteFinder::isPlain(std::string_view(bytes)), ByteFinder(bytes)});
    }
}

bool WordFinder::matches(const std::vector<std::string_view>& texts) const
{
    return std::ranges::all_of(m_words, [&](const Word& word) {
        return std::ranges::any_of(texts, [&](std::string_view text) { return occurs(word, text); });
    });
}

bool WordFinder::occurs(const Word& word, std::string_view text)
{
    if (word.plain && word.bytes.occursIn(text))
        return true;
    return !ByteFinder::isPlain(text) &&
           fold::letters(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())))
               .contains(word.folded);
}
