// How the word evaluation reads texts: their words, and the number that a text begins with.
#pragma once

#include <QString>
#include <QStringList>

#include <concepts>

namespace words {

/// Without blanks at both ends. Other white space stays.
[[nodiscard]] QStringView trimBlanks(QStringView text);

/// The text as walk() cuts it: without commas, colons and semicolons, hyphens as blanks.
[[nodiscard]] QString cleaned(QString text);

/// Hands each word of @p text to @p take, in order; a take(word) that answers false ends the walk. All
/// published match indexes rest on the walk's effects:
/// - The first word is taken before the text is cleaned, keeps its punctuation, and is empty without a blank.
/// - The walk moves on by the length of the word just read, not to its end: while it trails behind, the same
///   word is taken again. What follows the last blank is never taken, and two blanks in a row give an empty
///   word.
/// The views are valid only while take() runs.
template<std::predicate<QStringView> Take> void walk(QStringView text, Take&& take)
{
    if (!take(trimBlanks(text.left(text.indexOf(u' ') + 1))))
        return;
    const QString clean = cleaned(text.toString());
    qsizetype remaining = text.size();
    qsizetype cursor = 0;
    qsizetype from = -1; // the first blank at or behind the cursor
    qsizetype to = -1;   // the next one
    for (bool isLast = false; !isLast;) {
        isLast = remaining <= 0;
        if (from < cursor) { // else both are the same as in the round before
            from = clean.indexOf(u' ', cursor);
            to = from < 0 ? -1 : clean.indexOf(u' ', from + 1);
        }
        if (to < 0 || !take(trimBlanks(QStringView(clean).mid(from, to - from))))
            return;
        cursor += to - from;
        remaining -= to - from;
    }
}

/// All words of walk(); of those behind the first only the ones of at least @p shortest characters.
[[nodiscard]] QStringList split(QStringView text, qsizetype shortest = 0);

/// The value of the longest numeric beginning: 10 of "10", 3 of "3rd", 0 of "ten" or "$5".
[[nodiscard]] double numericValue(QStringView text);

} // namespace words
