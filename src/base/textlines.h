// Small text files of lines, which a person or another program may have written.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What was read: the lines without their ends, or why there are none.
struct TextLines
{
    QStringList lines;
    QString problem; ///< a sentence for the user, naming the file; "" when all was read
};

namespace textlines {

/// Reads a file whose lines end in CR LF, LF or CR, in UTF-8 or else in Latin-1. Refused are files that
/// cannot be read, hold zero bytes, or are larger than the program's own files can grow (1 MiB, 10000 lines,
/// 4096 characters a line).
TextLines read(const QString& path);

/// The same of bytes; @p name is what the problem calls them.
TextLines parse(const QByteArray& bytes, const QString& name);

/// Writes the lines, whole or not at all; "" or a sentence that says why not.
QString write(const QString& path, const QStringList& lines);

} // namespace textlines
