// Any bytes as separated values: read to an end, and what was read is written and read back the same.
#include "formats/csvfile.h"
#include "formats/textfile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QByteArray utf8 = textfile::toUtf8(bytes);
    const RecordTable table = csvfile::read(utf8, csvfile::findDelimiter(utf8)).table;
    for (int record = 0; record < table.recordCount(); ++record) {
        const QStringList texts = table.texts(record);
        const RecordTable again = csvfile::read(csvfile::line(texts).toUtf8(), ',').table;
        const bool blank = texts.size() == 1 && texts.first().trimmed().isEmpty();
        if (!blank && (again.recordCount() != 1 || again.texts(0) != texts))
            std::abort();
    }
    return 0;
}
