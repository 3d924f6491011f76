// Letters as a search compares them: in any case, with or without accents.
#pragma once

#include <QString>

#include <vector>

namespace fold {

/// @p text in small letters, without accents and other marks that combine with a letter; ligatures and
/// letters of other widths are what they stand for. Two texts that differ in nothing else are equal.
[[nodiscard]] QString letters(QStringView text);

/// A stretch of a text.
struct Range
{
    qsizetype from = 0;
    qsizetype length = 0;
    bool operator==(const Range&) const = default;
};
/// Where @p folded, the letters() of a word, occurs in @p text; no two overlap. None for an empty word.
[[nodiscard]] std::vector<Range> find(QStringView text, const QString& folded);

/// The words of what somebody typed, each as letters(); words that fold to nothing are left out.
[[nodiscard]] QStringList words(const QString& typed);

} // namespace fold
