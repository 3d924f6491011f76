// Text files of one byte a character (Latin-1), as the dictionaries, lists and templates are.
#pragma once

#include <QString>
#include <QStringList>

namespace latin1 {

/// A file's lines, or why it cannot be read.
struct Lines
{
    QStringList lines;
    QString problem; ///< a sentence that names the file; "" when the lines are there
};

/// Lines end in CR LF, LF or CR; the last needs no end. Refused: a file that cannot be opened, is larger than
/// 64 MB, holds bytes that are no text, or says of itself that it is written in Unicode.
[[nodiscard]] Lines readLines(const QString& path);
/// The same for bytes that are at hand; @p name stands for the file in the sentence.
[[nodiscard]] Lines parseLines(const QByteArray& bytes, const QString& name);

/// The signs of @p text that such a file cannot hold, each once; "" when all fit.
[[nodiscard]] QString misfits(const QString& text);

/// Writes the lines, each ended by CR LF, whole or not at all. "" or why not: a sentence that names the file,
/// and any sign that does not fit.
[[nodiscard]] QString writeLines(const QString& path, const QStringList& lines);

} // namespace latin1
