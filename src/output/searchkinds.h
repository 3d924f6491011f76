// What can be searched, kind by kind.
#pragma once

#include "base/key.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <span>
#include <vector>

class DataJW;

/// A kind of record that KeySearch looks through, and the fields in the order in which it does.
struct SearchKind
{
    QString name; ///< as the list of kinds shows it
    QString table;
    QString rootKey;   ///< of the tree
    QString rootLabel; ///< its first word says what a double click opens
    QStringList fields;
};

/// The hits of one field.
struct SearchHits
{
    QString field;
    std::vector<Key> keys; ///< of contacts for a history; a key may come several times
    QStringList nodes;     ///< for each of them the record's name, "#" and the key
    [[nodiscard]] QString label(const SearchKind& kind) const; ///< "Contact by LastName : 3"
};

namespace keysearch {

/// All kinds, in the order of their list.
[[nodiscard]] std::span<const SearchKind> kinds();
/// The kind with this name in any case; null when there is none.
[[nodiscard]] const SearchKind* kind(const QString& name);
/// Looks for @p text, in any case, in one field of all records of the kind.
[[nodiscard]] SearchHits search(DataJW& dataJW, const SearchKind& kind, const QString& field,
                                const QString& text);
/// The key behind the last "#" of a node's text; nothing without one.
[[nodiscard]] std::optional<Key> keyOf(const QString& node);

} // namespace keysearch
