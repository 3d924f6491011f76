// Any bytes as a statement: refused or run, never a crash and never bad SQL.
#include "fuzz/dialectcheck.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static DialectCheck check;
    const QString statement =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const std::optional<QString> broken = check.violation(statement)) {
        std::fputs(qPrintable(*broken), stderr);
        std::abort();
    }
    return 0;
}
