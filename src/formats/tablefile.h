// A file of records, text or workbook, told apart by what is in it.
#pragma once

#include "formats/recordtable.h"
#include "formats/textfile.h"

#include <QString>
#include <QStringList>

namespace tablefile {

struct Options
{
    textfile::Encoding encoding = textfile::Encoding::Found;
    char delimiter = 0; ///< 0: as found
    QString sheet;      ///< the name of a workbook's sheet as in Result::sheets; the first one for any other
};

struct Result
{
    RecordTable table;
    QStringList sheets; ///< of a workbook, hidden ones named as such; empty for text
    QString sheet;      ///< the one that was read
    QString problem;    ///< "" or why the file was not read, in sentences for the user
};

/// Reads the whole file or says why not; a table without records is a problem, too.
Result read(const QString& path, const Options& options);

} // namespace tablefile
