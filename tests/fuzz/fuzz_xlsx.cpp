// Any bytes as a workbook: every sheet is read or refused.
#include "formats/xlsxfile.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    XlsxFile workbook;
    if (!workbook.open(bytes).isEmpty())
        return 0;
    for (int sheet = 0; sheet < static_cast<int>(workbook.sheets().size()) && sheet < 4; ++sheet)
        workbook.read(sheet);
    return 0;
}
