// Replacement of keys in the texts of key lists, for many keys at once.
#pragma once

#include "base/key.h"

#include <QString>

#include <unordered_map>
#include <utility>
#include <vector>

/// Applies a fixed sequence of key replacements to key lists, each as a replacement of text: old key 3 also
/// changes the end of "13". The outcome is that of going through the sequence pair by pair, but only the
/// pairs that meet a list cost time: a list's own stretches of digits tell which these are.
class KeyListRewriter
{
public:
    /// @p newOld are pairs of new and old key, in the order of their application; new key 0 stands for no
    /// text.
    explicit KeyListRewriter(const std::vector<std::pair<Key, Key>>& newOld);

    struct Result
    {
        QString list;
        int replacements = 0; ///< pairs that met the list
    };
    [[nodiscard]] Result rewrite(const QString& list) const;

private:
    class Walk;

    struct Pair
    {
        QString oldText;
        QString newText;
    };
    std::vector<Pair> m_pairs;
    std::unordered_map<int, std::vector<size_t>> m_byOldKey; ///< places in m_pairs, ascending
};

namespace keylists {

/// The text that stands for a new key in a list: nothing for key 0.
QString replacement(Key newKey);

} // namespace keylists
