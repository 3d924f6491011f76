// What a profile item's words tell beside the report: marks for those that matched, and hints.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

/// A stretch of a text whose word hit in the tests of these kinds (bits of Evaluation::Kind).
struct WordMark
{
    qsizetype from = 0;
    qsizetype length = 0;
    int kinds = 0;
};

namespace profilewords {

/// The words of @p text that are among @p matched (lower case, with their kinds), in order; at most two
/// thousand, as a box with more marks would be slow to type in.
[[nodiscard]] std::vector<WordMark> marks(const QString& text, const QHash<QString, int>& matched);

/// Sentences about what an item lacks: a number, a result, another verb than the one used three times,
/// shorter sentences. @p verbs are in lower case. Nothing for an item without text.
[[nodiscard]] QStringList hints(const QString& problem, const QString& action, const QString& result,
                                const QStringList& verbs);

} // namespace profilewords
