// What a position save leaves behind when one of its steps fails, and that saving again mends it.
#include "workbench/faults.h"
#include "workbench/positionbench.h"

#include <QTest>

#include <sqlite3.h>

namespace {

void furnish(PositionBench& bench)
{
    bench.addPosition(u"Planner"_s, 2); // the newest row is another company's
    bench.open(u"Acme"_s, u"Engineer"_s);
    bench.edit(u"txtPosNotes"_s, u"new notes"_s);
}

/// One line for the whole state: Engineer's rows, then the owners of event and questionnaire and the number
/// of versions in the journal. Keys: 1 is the old row, 3 the new one.
QString state(PositionBench& bench)
{
    return QStringList{bench.rowsCalled(u"Engineer"_s), bench.cells(u"Select PositionKey from Event"_s),
                       bench.cells(u"Select PositionKey from JProfile"_s),
                       QString::number(bench.rows(u"PositionRecovery"_s))}
        .join(u' ');
}

const QString row = u"|3/5/2024|10/1/2026|4|10/9/2026|7|Open|1,3"_s;
const QString before = QString(u'1' + row + u" 1 1 0");
const QString after = QString(u'3' + row + u" 3 3 1");

struct Fault
{
    QString statement; ///< how the failing statement begins
    QString left;      ///< the state behind it
};

/// Every store call of the save, in order. What cannot be read beforehand stops the save; behind the delete
/// each of the rest goes on by itself.
const std::vector<Fault> faults{
    {u"Select * from company where name="_s, after}, // whether the title is taken
    {u"Select * from Position where title="_s, after},
    {u"Select * from Position where PositionKey="_s, before}, // the steps
    {u"Select * from Position where PositionKey="_s, before}, // the entry date
    {u"Select * from Position"_s, before},                    // the columns
    {u"Select * from company where name="_s, before},
    {u"Select * from Contact where ContactKey=1"_s, after}, // found again by its name
    {u"Select * from Contact where ContactKey=3"_s, after},
    {u"Delete * from Position"_s,
     QString(u'1' + row + u";3" + row + u" 1 1 1")}, // the old row is found by title
    {u"INSERT INTO Position"_s, u" 1 1 1"_s},
    {u"INSERT INTO PositionRecovery"_s, QString(u'3' + row + u" 3 3 0")},
    {u"Select * from company where name="_s, after}, // not found by title: the highest key is taken
    {u"Select * from Position where title="_s, after},
    {u"Update Event"_s, QString(u'3' + row + u" 1 3 1")},
    {u"Update JProfile"_s, QString(u'3' + row + u" 3 1 1")},
};

} // namespace

class TestPositionSaveFaults : public QObject
{
    Q_OBJECT

private slots:
    void everyStepMayFail_data()
    {
        QTest::addColumn<int>("step");
        for (size_t i = 0; i < faults.size(); ++i)
            QTest::addRow("%02zu %s", i, qPrintable(faults[i].statement)) << int(i);
    }

    void everyStepMayFail()
    {
        QFETCH(int, step);
        const Fault& fault = faults.at(size_t(step));
        PositionBench bench;
        furnish(bench);
        bench.world.prompts.acceptAll(Answer::Ok);
        const QString failed = failing(bench, size_t(step), [&] { bench.position().cmdUpdatePos1(); });
        QVERIFY2(failed.startsWith(fault.statement), qPrintable(failed));
        QCOMPARE(state(bench), fault.left);
        QVERIFY(bench.world.errorLog().contains(QString(u"Query: " + failed)) ||
                failed.contains(u"from Contact"_s));
        QCOMPARE(bench.field(u"txtPosNotes"_s), u"new notes"_s);
        // Whatever key is current has a row.
        QVERIFY(bench.currentKey() == 0 ||
                bench.data().keyVerification(bench.currentKey(), u"PositionKey"_s, u"Position"_s));

        bench.position().cmdUpdatePos1();
        const QString mended = bench.rowsCalled(u"Engineer"_s);
        QCOMPARE(mended.mid(mended.indexOf(u'|')), row); // one row, with steps, status and entry date
        QCOMPARE(bench.cells(u"Select Notes from Position where Title='Engineer'"_s), u"new notes"_s);
        QVERIFY(bench.data().keyVerification(bench.currentKey(), u"PositionKey"_s, u"Position"_s));
    }

    void lostRowTakesItsReferencesAlong()
    {
        PositionBench bench;
        furnish(bench);
        bench.world.prompts.acceptAll(Answer::Ok);
        failing(bench, 9, [&] { bench.position().cmdUpdatePos1(); });
        QCOMPARE(bench.currentKey(), Key(0));
        bench.position().cmdUpdatePos1();
        QCOMPARE(state(bench), QString(u'3' + row + u" 3 3 2"));
    }

    void anotherChoiceForgetsTheLostRow()
    {
        PositionBench bench;
        furnish(bench);
        bench.world.prompts.acceptAll(Answer::Ok);
        failing(bench, 9, [&] { bench.position().cmdUpdatePos1(); });
        bench.position().cmbPosSelectionClick(u"<New>"_s);
        bench.edit(u"txtPosTitle"_s, u"Welder"_s);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.rowsCalled(u"Welder"_s), u"3|11/22/2026|12/31/1999|0|12/31/1999|0||"_s);
        QCOMPARE(bench.cells(u"Select PositionKey from Event"_s), u"1"_s);
    }

    void failureBehindTheSaveLosesNothing()
    {
        for (size_t i = faults.size();; ++i) {
            PositionBench bench;
            furnish(bench);
            bench.world.prompts.acceptAll(Answer::Ok);
            const QString failed = failing(bench, i, [&] { bench.position().cmdUpdatePos1(); });
            QCOMPARE(state(bench), after);
            QVERIFY(bench.currentKey() == 0 || bench.currentKey() == 3);
            if (failed.isEmpty())
                break;
            QVERIFY2(failed.startsWith(u"Select"), qPrintable(failed));
        }
    }

    void fullDiskLeavesTheStoreAsItWas()
    {
        PositionBench bench;
        furnish(bench);
        bench.edit(u"txtPosNotes"_s, QString(600'000, u'n'));
        sqlite3* const handle = bench.data().database().handle();
        sqlite3_exec(handle, "PRAGMA max_page_count=1", nullptr, nullptr,
                     nullptr); // no page more than there are
        bench.world.prompts.acceptAll(Answer::Ok);
        bench.position().cmdUpdatePos1();
        QCOMPARE(state(bench), before);
        QVERIFY(bench.world.prompts.asked().last().contains(u"The database is as it was before."));
        QCOMPARE(bench.field(u"txtPosNotes"_s).size(), 600'000);
        QCOMPARE(bench.currentKey(), Key(1));

        sqlite3_exec(handle, "PRAGMA max_page_count=1000000", nullptr, nullptr, nullptr);
        bench.position().cmdUpdatePos1();
        QVERIFY2(state(bench).endsWith(row + u" 3 3 1"), qPrintable(state(bench)));
        QCOMPARE(bench.cells(u"Select Notes from Position where Title='Engineer'"_s).size(), 600'000);
    }
};

QTEST_GUILESS_MAIN(TestPositionSaveFaults)
#include "tst_positionsave_faults.moc"
