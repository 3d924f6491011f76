// Saves that are swept: tried with each of their store calls failing, and on a full disk.
#pragma once

#include "workbench/bench.h"

/// A save of a screen, by what must hold whatever fails. A bench is furnished, opened on its record, changed
/// and saved; the state tells all that the save may touch, in names and not in keys.
template<class B> struct Save
{
    std::function<void(B&)> furnish;
    std::function<void(B&)> open;
    std::function<void(B&)> change;
    std::function<void(B&)> save;
    std::function<QString(B&)> state;

    QString before() const
    {
        B bench;
        furnish(bench);
        return state(bench);
    }
    QString after() const
    {
        B bench;
        furnish(bench);
        run(bench);
        return state(bench);
    }
    void run(B& bench) const
    {
        open(bench);
        change(bench);
        save(bench);
    }

    /// Each store call of the save fails by itself: it is in the log, and another try brings all of it in.
    void sweep(int leastCalls) const
    {
        const QString wanted = after();
        QVERIFY(wanted != before());
        QString failed = u"-"_s;
        int calls = 0;
        for (; !failed.isEmpty(); ++calls) {
            B bench;
            furnish(bench);
            open(bench);
            change(bench);
            failed = bench.failing(calls, [&] { save(bench); });
            const QString place = QString::number(calls) + u' ' + failed + u": ";
            QVERIFY2(failed.isEmpty() || failed.startsWith(u"Select") ||
                         bench.world.errorLog().contains(QString(u"Query: " + failed)),
                     qPrintable(place));
            if (state(bench) != wanted)
                save(bench);
            QVERIFY2(state(bench) == wanted, qPrintable(place + state(bench)));
        }
        QVERIFY2(calls > leastCalls, "the save was not swept");
    }

    /// Each read on the way to the record fails by itself: what was not read is never written over.
    void sweepReading() const
    {
        const QString untouched = before();
        const QString wanted = after();
        QString failed = u"-"_s;
        for (int i = 0; !failed.isEmpty(); ++i) {
            B bench;
            furnish(bench);
            failed = bench.failing(i, [&] { open(bench); });
            change(bench);
            save(bench);
            const QString left = state(bench);
            QVERIFY2(left == untouched || left == wanted, qPrintable(failed + u": " + left));
        }
    }

    /// No room for what @p enlarge types: nothing changes and it is said; with room again it comes in.
    void runOnFullDisk(const std::function<void(B&)>& enlarge, const QString& selectLarge) const
    {
        B bench;
        furnish(bench);
        open(bench);
        enlarge(bench);
        bench.setDiskFull(true);
        save(bench);
        QCOMPARE(state(bench), before());
        QVERIFY(bench.world.prompts.asked().join(u'\n').contains(u"The database is as it was before."));
        bench.setDiskFull(false);
        save(bench);
        QVERIFY(bench.cells(selectLarge).size() >= 200'000);
    }
};
