// What the closing of a history leaves when a statement or the disk fails, and that another try mends it.
#include "history/historybench.h"
#include "support/runtest.h"

namespace {

/// Three stored histories, a position that follows them, and an edit of each kind on the open screen.
struct EditedHistory : HistoryBench
{
    EditedHistory()
    {
        fill(3);
        addPosition(u"Planner"_s, u"1"_s);
        open();
        put(1, u"2024-01-02"_s, u"Talk 1"_s, u"Follow-up"_s);
        put(4, u"2026-11-20"_s, u"New one"_s, {}, u"1"_s);
    }
    QString state() { return QStringList{stored(), lastContact(), steps(u"Planner"_s)}.join(u" / "); }
};

} // namespace

class TestFrmHistoryFaults : public QObject
{
    Q_OBJECT

private slots:
    void entryThatWasRefusedIsNamedAndTheOthersAreStored()
    {
        EditedHistory bench;
        bench.world.prompts.expect(u"Talk 2"_s, Answer::Yes);
        bench.failing(
            [](int, QStringView statement) {
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
        EditedHistory bench;
        bench.choose(2);
        bench.type(u"txtDetails"_s, QString(200'000, u'x'));
        bench.history.cmdAddHistory();
        const QString before = bench.state();
        bench.setDiskFull(true);
        bench.world.prompts.expect(u"The change was not saved"_s);
        bench.world.prompts.expect(u"try again"_s, Answer::No);
        QVERIFY(!bench.history.unload());
        QCOMPARE(bench.state(), before);
        QVERIFY(bench.history.historyDirty());
        bench.setDiskFull(false);
        bench.close();
        QCOMPARE(bench.cells(u"Select Details from History where HistoryKey='1-2'"_s).size(), 200'000);
    }
};

JOBWRIGHT_TEST(TestFrmHistoryFaults)
#include "tst_frmhistory_faults.moc"
