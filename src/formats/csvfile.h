// Text of separated values (RFC 4180), in and out.
#pragma once

#include "formats/recordtable.h"

#include <QString>
#include <QStringList>

namespace csvfile {

struct Result
{
    RecordTable table;
    QString problem; ///< "" or what is wrong, with its line; the table then holds what came before
};

/// The longest value that is taken, in bytes.
inline constexpr qsizetype longestValue = 1 << 20;
/// The most values of one record.
inline constexpr int mostColumns = 2000;

/// Reads text in UTF-8. A value that opens with a quote runs to its closing quote, over line ends too, and a
/// doubled quote inside is one; blanks around a value without quotes go. Empty lines are passed over.
Result read(const QByteArray& utf8, char delimiter);

/// The sign between the values: what a line "sep=;" at the beginning names, else the one of comma,
/// semicolon and tab that divides the first lines most evenly.
char findDelimiter(const QByteArray& utf8);

/// A record as a line with its end: quotes where a value needs them.
QString line(const QStringList& values);

} // namespace csvfile
