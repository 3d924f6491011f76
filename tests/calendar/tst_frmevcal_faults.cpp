// What saving, moving and removing an event leave behind when one of their steps fails.
#include "calendar/calendarbench.h"

#include <QTest>

#include <sqlite3.h>

namespace {

/// Lets the i-th statement of @p act fail; answers its text, "" when there were fewer.
QString failing(CalendarBench& bench, int i, const std::function<void()>& act)
{
    QString failed;
    int count = 0;
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

/// An interview opened and with a new description typed: of Bolt's Ana Ruiz for the position Welder (2), or
/// of her namesake at Acme for no position.
void furnish(CalendarBench& bench, bool atBolt = true)
{
    bench.run(u"Insert into Position(Title,CompanyKey) Values('Welder',2)"_s);
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.run(u"Update Event set Description='old', "_s +
              (atBolt ? u"CompanyKey=2, ContactKey=3, PositionKey=2"_s : u"CompanyKey=1, ContactKey=1"_s) +
              u" where EventKey=1");
    bench.calendar.load();
    bench.calendar.openEntry(u"EV1"_s);
    bench.type(u"txtEvDescription"_s, u"new"_s);
    bench.world.prompts.acceptAll(Answer::Yes); // yes to the placeholder, and every failure's message
}

QString state(CalendarBench& bench)
{
    return bench.cells(u"Select EventKey,Description,PositionKey,ContactKey,CompanyKey from Event"_s) + u' ' +
           QString::number(bench.data().getCount(u"EventRecovery"_s, true));
}

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
};

} // namespace

class TestFrmEvCalFaults : public QObject
{
    Q_OBJECT

private slots:
    void everyStepOfASaveMayFail_data()
    {
        QTest::addColumn<int>("step");
        for (size_t i = 0; i < faults.size(); ++i)
            QTest::addRow("%02zu %s", i, qPrintable(faults[i].statement)) << int(i);
    }

    void everyStepOfASaveMayFail()
    {
        QFETCH(int, step);
        const Fault& fault = faults.at(size_t(step));
        CalendarBench bench;
        furnish(bench);
        const QString failed = failing(bench, step, [&] { bench.calendar.cmdAdd1(); });
        QVERIFY2(failed.startsWith(fault.statement), qPrintable(failed));
        QCOMPARE(state(bench), fault.left);
        QVERIFY(bench.world.errorLog().contains(u"failed on purpose"_s));
        // What was typed is still there, and what is not all in the store counts as unsaved.
        const bool stored = fault.left.startsWith(u"2|new");
        QVERIFY(stored || (bench.calendar.isFrameOpen() && bench.calendar.isFrameDirty()));
        QCOMPARE(bench.shown(u"txtEvDescription"_s), u"new"_s);

        bench.calendar.reload();
        if (!bench.calendar.isFrameOpen())
            bench.calendar.openEntry(u"EV1"_s);
        bench.calendar.cmdAdd1();
        const QString mended =
            bench.cells(u"Select Description,PositionKey,ContactKey,CompanyKey from Event"_s);
        QCOMPARE(mended, u"new|2|3|2"_s); // one row, whatever had been left
        QCOMPARE(bench.chips().count(u"EV"_s), 1);
    }

    void saveHasNoFurtherSteps()
    {
        CalendarBench bench;
        furnish(bench);
        QCOMPARE(failing(bench, int(faults.size()), [&] { bench.calendar.cmdAdd1(); }), QString());
    }

    void placeholderIsMadeOnceWhateverFails()
    {
        for (int i = 0;; ++i) {
            CalendarBench bench;
            furnish(bench, false);
            const QString failed = failing(bench, i, [&] { bench.calendar.cmdAdd1(); });
            QVERIFY2(bench.cells(u"Select Description from Event"_s) == u"new" ||
                         (bench.calendar.isFrameDirty() && bench.shown(u"txtEvDescription"_s) == u"new"),
                     qPrintable(failed));
            if (failed.isEmpty())
                break;
            if (!bench.calendar.isFrameOpen())
                bench.calendar.openEvent(2);
            bench.calendar.cmdAdd1();
            QCOMPARE(bench.cells(u"Select Description,PositionKey,ContactKey,CompanyKey from Event"_s),
                     u"new|3|1|1"_s);
            QCOMPARE(bench.cells(u"Select Title,ContactList from Position where CompanyKey=1"_s),
                     u"Engineer|;Position34200|1"_s);
        }
    }

    void failedChangeWithoutTheFrameLeavesTheScreenAsItIs_data()
    {
        QTest::addColumn<QString>("what");
        for (const QString& what : {u"drop"_s, u"flip"_s, u"remove"_s})
            QTest::newRow(qPrintable(what)) << what;
    }

    void failedChangeWithoutTheFrameLeavesTheScreenAsItIs()
    {
        QFETCH(QString, what);
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u""_s, u"Thank"_s, u"Task"_s);
        bench.calendar.load();
        bench.calendar.openEntry(u"A1"_s);
        bench.world.prompts.acceptAll(Answer::Yes);
        QSignalSpy recordsChanged(&bench.calendar, &FrmEvCal::recordsChanged);
        const auto act = [&] {
            if (what == u"drop")
                bench.calendar.dropOn(u"A1"_s, QDate(2026, 11, 20));
            else if (what == u"flip")
                bench.calendar.flipTask(u"A1"_s);
            else
                bench.calendar.removeEntry(u"A1"_s);
        };
        QVERIFY(!failing(bench, 0, act).isEmpty());
        QCOMPARE(recordsChanged.size(), 0);
        QCOMPARE(bench.tasks(), u"A1 Thank 11/24 due"_s);
        QVERIFY(bench.calendar.isFrameOpen());
        QCOMPARE(bench.calendar.frameDate(), QDate(2026, 11, 24));
        act();
        QCOMPARE(recordsChanged.size(), 1);
        QVERIFY(bench.tasks() != u"A1 Thank 11/24 due");
    }

    void fullDiskLeavesTheStoreAsItWas()
    {
        CalendarBench bench;
        furnish(bench);
        bench.type(u"txtEvDescription"_s, QString(300'000, u'n'));
        sqlite3* const handle = bench.data().database().handle();
        sqlite3_exec(handle, "PRAGMA max_page_count=1", nullptr, nullptr,
                     nullptr); // no page more than there are
        bench.calendar.cmdAdd1();
        QCOMPARE(state(bench), before);
        QVERIFY(bench.world.prompts.asked().last().contains(u"The database is as it was before."));
        QVERIFY(bench.calendar.isFrameDirty());
        QCOMPARE(bench.shown(u"txtEvDescription"_s).size(), 300'000);

        sqlite3_exec(handle, "PRAGMA max_page_count=1000000", nullptr, nullptr, nullptr);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.cells(u"Select Description from Event"_s).size(), 300'000);
    }
};

QTEST_GUILESS_MAIN(TestFrmEvCalFaults)
#include "tst_frmevcal_faults.moc"
