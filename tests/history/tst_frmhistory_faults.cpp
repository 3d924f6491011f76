// What the closing of a history leaves when a statement or the disk fails, and that another try mends it.
#include "history/historybench.h"

#include <sqlite3.h>

namespace {

/// Three stored histories, a position that follows them, and an edit of each kind on the open screen.
void furnish(HistoryBench& bench)
{
    bench.fill(3);
    bench.addPosition(u"Planner"_s, u"1"_s);
    bench.open();
    bench.choose(1);
    bench.type(u"cmbReturn"_s, u"Follow-up"_s);
    bench.history.cmdAddHistory();
    bench.choose(4);
    bench.type(u"DTPContact"_s, u"2026-11-20"_s);
    bench.type(u"txtTopic"_s, u"New one"_s);
    bench.type(u"chkDoxGiven"_s, u"1"_s);
    bench.history.cmdAddHistory();
}

QString state(HistoryBench& bench)
{
    return QStringList{bench.stored(), bench.lastContact(),
                       bench.cells(u"Select InfoFollow,SentResume,SentResumeMedium from Position"_s)}
        .join(u" / ");
}

} // namespace

class TestFrmHistoryFaults : public QObject
{
    Q_OBJECT

private slots:
    void anyFailedStepIsToldAndMendedByAnotherTry()
    {
        HistoryBench undisturbed;
        furnish(undisturbed);
        const QString before = state(undisturbed);
        QVERIFY(undisturbed.history.unload());
        const QString after = state(undisturbed);
        size_t steps = 0;
        for (;; ++steps) {
            HistoryBench bench;
            furnish(bench);
            bench.world.prompts.acceptAll(Answer::Yes);
            QString failed;
            bool closed = false;
            bench.failing(
                [&](size_t i, QStringView statement) {
                    if (i == steps)
                        failed = statement.toString();
                    return i == steps;
                },
                [&] { closed = bench.history.unload(); });
            if (failed.isEmpty())
                break;
            const QByteArray place = QByteArray::number(qulonglong(steps)) + ' ' + failed.toUtf8();
            QVERIFY2(bench.world.errorLog().contains(QString(u"Query: " + failed)), place.constData());
            if (failed.startsWith(u"Delete"))
                QCOMPARE(state(bench), before);
            // A refusal to name the position or the like only leaves its step as it was.
            if (!closed) {
                QVERIFY2(bench.world.prompts.asked().last().contains(u"try again"_s), place.constData());
                QCOMPARE(bench.listed(), (QStringList{u"Talk 1"_s, u"Talk 2"_s, u"Talk 3"_s, u"New one"_s}));
                QVERIFY2(bench.history.unload(), place.constData());
            }
            QVERIFY2(state(bench) == after, place.constData());
        }
        QVERIFY2(steps > 12, "the closing was not swept");
    }

    void entryThatWasRefusedIsNamedAndTheOthersAreStored()
    {
        HistoryBench bench;
        furnish(bench);
        bench.world.prompts.expect(u"Talk 2"_s, Answer::No);
        bench.failing(
            [](size_t, QStringView statement) {
                return statement.startsWith(u"INSERT") && statement.contains(u"Talk 2");
            },
            [&] { QVERIFY2(bench.history.unload(), "the user had wanted to leave"); });
        QCOMPARE(bench.stored(), u"1-1|1/2/2024|Talk 1;1-3|1/4/2024|Talk 3;1-4|11/20/2026|New one"_s);
        QCOMPARE(bench.lastContact(), u"11/20/2026"_s);
        // Nothing but the log has the text now, and there it can be found.
        QVERIFY(bench.world.errorLog().contains(u"Talk 2"_s));
    }

    void fullDiskLeavesTheStoreAsItWas()
    {
        HistoryBench bench;
        furnish(bench);
        bench.choose(2);
        bench.type(u"txtDetails"_s, QString(200'000, u'x'));
        bench.history.cmdAddHistory();
        const QString before = state(bench);
        const auto limit = [&bench](const char* pages) {
            sqlite3_exec(bench.data().database().handle(), pages, nullptr, nullptr, nullptr);
        };
        limit("PRAGMA max_page_count=1");
        bench.world.prompts.expect(u"The change was not saved"_s);
        bench.world.prompts.expect(u"try again"_s, Answer::Yes);
        QVERIFY(!bench.history.unload());
        QCOMPARE(state(bench), before);
        QVERIFY(bench.history.historyDirty());
        limit("PRAGMA max_page_count=1000000");
        QVERIFY(bench.history.unload());
        QCOMPARE(bench.cells(u"Select Details from History where HistoryKey='1-2'"_s).size(), 200'000);
    }
};

QTEST_GUILESS_MAIN(TestFrmHistoryFaults)
#include "tst_frmhistory_faults.moc"
