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

/// Lets every statement of @p act that begins so fail, from its @p which-th on.
inline void failingAt(Bench& bench, const QString& beginning, const std::function<void()>& act, int which = 1)
{
    int count = 0;
    bench.data().database().setInterceptor([&](QStringView statement) {
        if (statement.startsWith(beginning) && ++count >= which)
            throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
    });
    act();
    bench.data().database().setInterceptor({});
}

/// Lets the store grow by no page more than it has, as on a full disk, or lifts that again.
inline void setDiskFull(Bench& bench, bool full)
{
    sqlite3_exec(bench.data().database().handle(),
                 full ? "PRAGMA max_page_count=1" : "PRAGMA max_page_count=1000000", nullptr, nullptr,
                 nullptr);
}

/// A store call of an action, and what is left when it and no other has failed.
struct Fault
{
    QString statement; ///< how it begins
    QString left;
};

/// An action that is tried once for each of its store calls, with that call failing.
template<class B> struct Sweep
{
    std::function<void(B&)> furnish;
    std::function<void(B&)> act;
    std::function<QString(B&)> state; ///< all that counts, on one line
    QString before;                   ///< the state to begin with
    QString after;                    ///< the state when nothing failed
    std::vector<Fault> faults;        ///< every store call in order, but for the reads that show the result
    std::function<void(B&)> mend;     ///< tries again, and looks whether all is well

    void run() const
    {
        for (size_t i = 0;; ++i) {
            B bench;
            furnish(bench);
            const QString failed = failing(bench, i, [&] { act(bench); });
            const QString found = state(bench);
            const QByteArray place = QString(QString::number(i) + u' ' + failed + u": " + found).toUtf8();
            if (i >= faults.size()) {
                QVERIFY2(found == after && (failed.isEmpty() || failed.startsWith(u"Select")), place);
                if (failed.isEmpty())
                    return;
                continue;
            }
            QVERIFY2(failed.startsWith(faults[i].statement) && found == faults[i].left, place);
            QVERIFY2(failed.startsWith(u"Select") ||
                         bench.world.errorLog().contains(QString(u"Query: " + failed)),
                     place);
            mend(bench);
            if (QTest::currentTestFailed())
                QFAIL(place);
        }
    }

    /// No room for what @p enlarge types: nothing changes and it is said; with room again it comes in.
    void runOnFullDisk(const std::function<void(B&)>& enlarge, const QString& selectNotes) const
    {
        B bench;
        furnish(bench);
        enlarge(bench);
        setDiskFull(bench, true);
        act(bench);
        QCOMPARE(state(bench), before);
        QVERIFY(bench.world.prompts.asked().last().contains(u"The database is as it was before."));
        setDiskFull(bench, false);
        act(bench);
        QCOMPARE(bench.cells(selectNotes).size(), 600'000);
    }
};
