// What saving, moving and removing an event leave behind when one of their steps fails.
#include "calendar/calendarbench.h"
#include "support/runtest.h"

#include <QTest>

namespace {

/// An interview opened and with a new description typed: of Bolt's Ana Ruiz for the position Welder (2), or
/// of her namesake at Acme for no position. Every question is answered with Yes.
struct EditedEvent : StoredEvent
{
    explicit EditedEvent(bool atBolt = true)
        : StoredEvent(u"10:30 AM"_s,
                      u"Description='old', "_s + (atBolt ? u"CompanyKey=2, ContactKey=3, PositionKey=2"_s
                                                         : u"CompanyKey=1, ContactKey=1"_s))
    {
        run(u"Insert into Position(Title,CompanyKey) Values('Welder',2)"_s);
        calendar.closeEvent();
        calendar.openEntry(u"EV1"_s);
        type(u"txtEvDescription"_s, u"new"_s);
        world.prompts.acceptAll(Answer::Yes);
    }
    QString state()
    {
        return stored(u"EventKey,Description,PositionKey,ContactKey,CompanyKey"_s) + u' ' +
               QString::number(data().getCount(u"EventRecovery"_s, true));
    }
    QString mended() { return stored(u"Description,PositionKey,ContactKey,CompanyKey"_s); }
};

struct Fault
{
    QString statement; ///< how the failing statement begins
    QString left;      ///< the state behind it
};

const QString before = u"1|old|2|3|2 0"_s;
const QString after = u"2|new|2|3|2 1"_s;

/// Every store call of the save, in order. What cannot be read beforehand stops the save; behind the delete
/// each of the rest goes on by itself.
const std::vector<Fault> faults{
    {u"Select * from company"_s, before},
    {u"Select * from contact"_s, after}, // found in the company's list
    {u"Select * from Contact"_s, after},
    {u"Select * from company"_s, before},
    {u"Select * from Position"_s, before},
    {u"DELETE * from EVENT"_s, u"1|old|2|3|2;2|new|2|3|2 1"_s},
    {u"INSERT into Event("_s, u" 1"_s},
    {u"INSERT into EventRecovery("_s, u"2|new|2|3|2 0"_s},
    {u"Select * from Event Order by EventKey DESC"_s, after},
    {u"Select * from Event Order by EventDate"_s, after},
    {{}, after}, // no further call
};

} // namespace

class TestFrmEvCalFaults : public QObject
{
    Q_OBJECT

private slots:
    void everyStepOfASaveMayFail()
    {
        for (size_t step = 0; step < faults.size(); ++step) {
            EditedEvent bench;
            const QString failed = bench.failing(int(step), [&] { bench.calendar.cmdAdd1(); });
            const QByteArray place = QString(QString::number(step) + u' ' + failed).toUtf8();
            QVERIFY2(failed.startsWith(faults[step].statement), place);
            QVERIFY2(bench.state() == faults[step].left, place);
            QVERIFY2(failed.isEmpty() || bench.world.errorLog().contains(u"failed on purpose"_s), place);
            // What was typed is still there, and what is not all in the store counts as unsaved.
            const bool stored = faults[step].left.startsWith(u"2|new");
            QVERIFY2(stored || (bench.calendar.isFrameOpen() && bench.calendar.isFrameDirty()), place);
            QCOMPARE(bench.shown(u"txtEvDescription"_s), u"new"_s);
            bench.calendar.reload();
            if (!bench.calendar.isFrameOpen())
                bench.calendar.openEntry(u"EV1"_s);
            bench.calendar.cmdAdd1();
            QVERIFY2(bench.mended() == u"new|2|3|2", place); // one row, whatever had been left
            QCOMPARE(bench.chips().count(u"EV"_s), 1);
            QCOMPARE(failed.isEmpty(), step + 1 == faults.size());
        }
    }

    void placeholderIsMadeOnceWhateverFails()
    {
        for (int i = 0;; ++i) {
            EditedEvent bench(false);
            const QString failed = bench.failing(i, [&] { bench.calendar.cmdAdd1(); });
            QVERIFY2(bench.stored(u"Description"_s) == u"new" ||
                         (bench.calendar.isFrameDirty() && bench.shown(u"txtEvDescription"_s) == u"new"),
                     qPrintable(failed));
            if (failed.isEmpty())
                break;
            if (!bench.calendar.isFrameOpen())
                bench.calendar.openEvent(2);
            bench.calendar.cmdAdd1();
            QCOMPARE(bench.mended(), u"new|3|1|1"_s);
            QCOMPARE(bench.cells(u"Select Title,ContactList from Position where CompanyKey=1"_s),
                     u"Engineer|;Position34200|1"_s);
        }
    }

    void failedChangeWithoutTheFrameLeavesTheScreenAsItIs()
    {
        using Change = std::function<void(FrmEvCal&)>;
        for (const Change& change : {Change([](auto& frm) {
                                         frm.dropOn(u"A1"_s, {2026, 11, 20});
                                     }),
                                     Change([](auto& frm) { frm.flipTask(u"A1"_s); }),
                                     Change([](auto& frm) { frm.removeEntry(u"A1"_s); })}) {
            CalendarBench bench;
            bench.addTask(u"11/24/2026"_s, u"Thank"_s);
            bench.calendar.load();
            bench.calendar.openEntry(u"A1"_s);
            bench.world.prompts.acceptAll(Answer::Yes);
            QSignalSpy recordsChanged(&bench.calendar, &FrmEvCal::recordsChanged);
            QVERIFY(!bench.failing(0, [&] { change(bench.calendar); }).isEmpty());
            QCOMPARE(recordsChanged.size(), 0);
            QCOMPARE(bench.tasks(), u"A1 Thank 11/24 due"_s);
            QVERIFY(bench.calendar.isFrameOpen());
            QCOMPARE(bench.calendar.frameDate(), QDate(2026, 11, 24));
            change(bench.calendar);
            QCOMPARE(recordsChanged.size(), 1);
            QVERIFY(bench.tasks() != u"A1 Thank 11/24 due");
        }
    }

    void fullDiskLeavesTheStoreAsItWas()
    {
        EditedEvent bench;
        bench.type(u"txtEvDescription"_s, QString(300'000, u'n'));
        bench.setDiskFull(true);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.state(), before);
        QVERIFY(bench.world.prompts.asked().last().contains(u"The database is as it was before."));
        QVERIFY(bench.calendar.isFrameDirty());
        QCOMPARE(bench.shown(u"txtEvDescription"_s).size(), 300'000);
        bench.setDiskFull(false);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"Description"_s).size(), 300'000);
    }
};

JOBWRIGHT_TEST(TestFrmEvCalFaults)
#include "tst_frmevcal_faults.moc"
