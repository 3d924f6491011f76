#include "formats/tablefile.h"

#include "formats/csvfile.h"
#include "formats/xlsxfile.h"

#include <QCoreApplication>

namespace tablefile {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("TableFile", text);
}

void readText(const QByteArray& bytes, const Options& options, Result& result)
{
    const QByteArray utf8 = textfile::toUtf8(bytes, options.encoding);
    csvfile::Result read =
        csvfile::read(utf8, options.delimiter ? options.delimiter : csvfile::findDelimiter(utf8));
    if (!read.problem.isEmpty())
        result.problem = tr("The file was not loaded. %1").arg(read.problem);
    else if (read.table.recordCount() == 0)
        result.problem = tr("The file holds no records.");
    result.table = std::move(read.table);
}

void readWorkbook(const QByteArray& bytes, const Options& options, Result& result)
{
    XlsxFile workbook;
    result.problem = workbook.open(bytes);
    if (!result.problem.isEmpty())
        return;
    for (const XlsxFile::Sheet& sheet : workbook.sheets())
        result.sheets.append(sheet.hidden ? tr("%1 (hidden)").arg(sheet.name) : sheet.name);
    const auto chosen = std::max(static_cast<int>(result.sheets.indexOf(options.sheet)), 0);
    result.sheet = result.sheets[chosen];
    XlsxFile::Result read = workbook.read(chosen);
    if (!read.problem.isEmpty())
        result.problem = tr("The sheet was not loaded. %1").arg(read.problem);
    else if (read.table.recordCount() == 0)
        result.problem = tr("The sheet “%1” is empty.").arg(result.sheet);
    result.table = std::move(read.table);
}

} // namespace

Result read(const QString& path, const Options& options)
{
    Result result;
    QByteArray bytes;
    if (!textfile::read(path, bytes, result.problem))
        return result;
    if (XlsxFile::isWorkbook(bytes))
        readWorkbook(bytes, options, result);
    else
        readText(bytes, options, result);
    return result;
}

} // namespace tablefile
