// Failures of the store on purpose.
#pragma once

#include "workbench/bench.h"

/// Lets the i-th statement (from 0) of @p act fail; answers its text, "" when there were fewer.
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
