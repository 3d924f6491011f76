// Store calls that fail on purpose.
#pragma once

#include "workbench/bench.h"

#include <sqlite3.h>

#include <functional>

/// Lets the i-th statement of @p act fail; answers its text, "" when there were fewer.
inline QString failing(Bench& bench, size_t i, const std::function<void()>& act)
{
    QString failed;
    size_t count = 0;
    bench.data().database().setInterceptor([&](QStringView statement) {
        if (count++ != i)
            return;
        failed = statement.toString();
        throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
    });
    act();
    bench.data().database().setInterceptor({});
    return failed;
}

/// Lets the store grow by no page more than it has, as on a full disk, or lifts that again.
inline void setDiskFull(Bench& bench, bool full)
{
    sqlite3_exec(bench.data().database().handle(),
                 full ? "PRAGMA max_page_count=1" : "PRAGMA max_page_count=1000000", nullptr, nullptr,
                 nullptr);
}
