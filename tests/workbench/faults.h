// Actions that are swept: tried with each of their store calls failing, and on a full disk.
#pragma once

#include "workbench/bench.h"

/// A store call of an action, and what is left when it and no other has failed.
struct Fault
{
    QString statement; ///< how it begins
    QString left;
};

/// Tries @p act once for each of its store calls, with that call failing, and once more with none failing.
/// @p check gets the bench and the call that failed, which is in the log unless it only reads.
template<class B>
void anyStep(const std::function<void(B&)>& furnish, const std::function<void(B&)>& act,
             const std::function<void(B&, const QString&)>& check)
{
    QString failed = u"-"_s;
    for (int i = 0; !failed.isEmpty(); ++i) {
        B bench;
        furnish(bench);
        failed = bench.failing(i, [&] { act(bench); });
        const QByteArray place = QString(QString::number(i) + u' ' + failed).toUtf8();
        QVERIFY2(failed.isEmpty() || failed.startsWith(u"Select") ||
                     bench.world.errorLog().contains(QString(u"Query: " + failed)),
                 place);
        check(bench, failed);
        if (QTest::currentTestFailed())
            QFAIL(place);
    }
}

/// A save whose every store call has a known effect when it fails.
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
        size_t step = 0;
        anyStep<B>(furnish, act, [&](B& bench, const QString& failed) {
            if (const size_t i = step++; i < faults.size()) {
                QVERIFY(failed.startsWith(faults[i].statement));
                QCOMPARE(state(bench), faults[i].left);
                mend(bench);
            } else {
                QVERIFY(failed.isEmpty() || failed.startsWith(u"Select"));
                QCOMPARE(state(bench), after);
            }
        });
    }

    /// No room for what @p enlarge types: nothing changes and it is said; with room again it comes in.
    void runOnFullDisk(const std::function<void(B&)>& enlarge, const QString& selectNotes) const
    {
        B bench;
        furnish(bench);
        enlarge(bench);
        bench.setDiskFull(true);
        act(bench);
        QCOMPARE(state(bench), before);
        QVERIFY(bench.world.prompts.asked().last().contains(u"The database is as it was before."));
        bench.setDiskFull(false);
        act(bench);
        QCOMPARE(bench.cells(selectNotes).size(), 600'000);
    }
};
