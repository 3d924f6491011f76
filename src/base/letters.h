// How texts are compared, in the store and on the screens alike.
#pragma once

#include <QString>
#include <QStringView>

#include <string_view>

/// One order and one equality for all texts, the same on every computer: no locale and no library's version
/// takes part, as only letters that Unicode 10 knows are folded, and what it says of them never changes.
/// Nothing that is stored depends on it.
namespace letters {

/// Below 0, 0 or above 0 as @p left comes before, is the same as, or comes behind @p right. Letters count
/// first, without their marks and in any case ("Etna", "Étoile", "Etude"; "ø" beside "o", "ß" as "ss"); texts
/// that are alike so far are told apart by their marks. 0 only for texts that differ in the case of letters
/// at most.
[[nodiscard]] int compare(QStringView left, QStringView right);
/// The same for UTF-8; bytes that are none count as U+FFFD.
[[nodiscard]] int compare(std::string_view left, std::string_view right);

[[nodiscard]] inline bool same(QStringView left, QStringView right)
{
    return compare(left, right) == 0;
}
[[nodiscard]] inline bool before(QStringView left, QStringView right)
{
    return compare(left, right) < 0;
}

/// A text with the case of its letters taken away: same texts have the same, and one that is a part of
/// another in any case is a part of it folded.
[[nodiscard]] QString folded(QStringView text);

} // namespace letters
