// Looking for words in the bytes of stored texts.
#pragma once

#include "base/bytefinder.h"

#include <QString>
#include <QStringList>

#include <string_view>
#include <vector>

/// Finds records in whose texts words occur, in any case and with or without accents.
class WordFinder
{
public:
    explicit WordFinder(const QString& typed);

    [[nodiscard]] bool isEmpty() const { return m_words.empty(); }
    /// The words as fold::letters() leaves them.
    [[nodiscard]] const QStringList& words() const { return m_folded; }
    /// True when each word occurs in one of the texts (UTF-8).
    [[nodiscard]] bool matches(const std::vector<std::string_view>& texts) const;

private:
    struct Word
    {
        QString folded;
        bool plain; ///< of ASCII letters only
        ByteFinder bytes;
    };
    [[nodiscard]] static bool occurs(const Word& word, std::string_view text);

    std::vector<Word> m_words;
    QStringList m_folded;
};
