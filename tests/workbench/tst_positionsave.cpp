// Saving and removing a whole position.
#include "support/table.h"
#include "workbench/positionbench.h"

#include <QTest>

class TestPositionSave : public QObject
{
    Q_OBJECT

private slots:
    void newPositionIsInserted()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"<New>"_s);
        bench.edit(u"txtPosTitle"_s, u" Master's Welder "_s);
        bench.edit(u"txtKeyword"_s, u"steel"_s);
        bench.edit(u"txtSource"_s, u"fair"_s);
        bench.position().tickExpires(false);
        bench.assign(u"Bob Orr"_s);
        bench.assign(u"Ann Lee"_s);
        const QStringList sent = bench.statements([&] { bench.position().cmdUpdatePos1(); });
        QString steps;
        for (int step = 0; step < 11; ++step)
            steps += u"'12/31/1999',0,"_s;
        const QString columns = bench.data().getFields(u"Position"_s).mid(1).join(u',');
        const QString values = u" ( "_s + columns +
                               u" ) VALUES ('Master`s Welder','11/22/2026','','','steel','','','',"_s +
                               steps + u"'','','fair','3,1',1,'12/31/99')";
        QCOMPARE(sent.filter(u"INSERT"_s), (QStringList{u"INSERT INTO Position"_s + values,
                                                        u"INSERT INTO PositionRecovery"_s + values}));
        QVERIFY(sent.filter(u"Delete"_s).isEmpty());
        QCOMPARE(bench.currentKey(), Key(2));
        QCOMPARE(bench.field(u"cmbPosSelection"_s), u"Master`s Welder"_s);
        QCOMPARE(bench.position().form().items(u"cmbPosSelection"_s),
                 (QStringList{u"Engineer"_s, u"Master`s Welder"_s, u"<New>"_s}));
        QVERIFY(!bench.frm->procVisible());
        QVERIFY(!bench.position().form().isDirty(u"txtKeyword"_s));
        QCOMPARE(bench.frm->selection().currentScreen, u"Position"_s);
        QVERIFY(bench.frm->countsPanel().contains(u"2 positions"_s));
        // From now on it is a stored one: its fields save themselves.
        bench.edit(u"txtKeyword"_s, u"iron"_s);
        bench.position().fieldLeft(u"txtKeyword"_s);
        QCOMPARE(bench.cells(u"Select Keyword from Position order by PositionKey"_s), u"cad;iron"_s);
    }

    void existingPositionGetsANewKeyAndKeepsTheRest()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.edit(u"txtPosNotes"_s, u"new notes"_s);
        bench.world.setNow(QDateTime(QDate(2027, 1, 5), QTime(9, 0))); // expired meanwhile
        bench.position().cmdUpdatePos1();
        QVERIFY(!bench.frm->procVisible());
        QCOMPARE(bench.frm->positionPanel(), u"Position EXPIRED"_s);
        QCOMPARE(bench.rowsCalled(u"Engineer"_s), u"2|3/5/2024|10/1/2026|4|10/9/2026|7|Open|1,3"_s);
        QCOMPARE(bench.cells(u"Select Keyword,Notes,Expires,Response,ResponseMedium from Position"_s),
                 u"cad|new notes|12/31/2026|12/31/1999|0"_s);
        QCOMPARE(bench.currentKey(), Key(2));
        QVERIFY(bench.world.errorLog().contains(u"Delete * from Position where PositionKey=1"_s));
    }

    void referencesFollowTheNewKey()
    {
        PositionBench bench;
        bench.run(u"Insert into Event(Event,PositionKey) Values('other',7)"_s);
        bench.run(u"Insert into JProfile(PositionKey,PR) Values(7,1)"_s);
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select PositionKey from Event order by EventKey"_s), u"2;7"_s);
        QCOMPARE(bench.cells(u"Select PositionKey from JProfile order by JProfileKey"_s), u"2;7"_s);
        QCOMPARE(bench.position().positionPlace(), 0.6);
    }

    void savedAgainAndAgainStaysTheSame()
    {
        PositionBench bench;
        // Empty cells of an import stay what they are read as.
        bench.run(u"Update Position set Interview='', InterviewMedium='', SentResume='5/1/1998', "
                  "SentResumeMedium=3"_s);
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.position().cmdUpdatePos1();
        const QString columns = bench.data().getFields(u"Position"_s).mid(1).join(u',');
        const QString once = bench.cells(u"Select "_s + columns + u" from Position");
        for (int saves = 0; saves < 3; ++saves)
            bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select "_s + columns + u" from Position"), once);
        QCOMPARE(
            bench.cells(
                u"Select PositionKey,Interview,InterviewMedium,SentResume,SentResumeMedium from Position"_s),
            u"5|12/31/1999|0|12/31/1999|0"_s);
    }

    void refusedSavesWriteNothing_data()
    {
        const QString noTitle =
            u"Please enter a name for a new Position in\r\nthe position selection box or select a Position to update."_s;
        columns<QString, QString, QString, QString>("company", "chosen", "title", "message");
        QTest::newRow("new company") << u"<New>"_s << u"<New>"_s << u"Welder"_s
                                     << u"Please select a company before storing a position to it."_s;
        QTest::newRow("blanks") << u"Acme"_s << u"<New>"_s << u"  "_s << noTitle;
        QTest::newRow("the box's own entry") << u"Acme"_s << u"<New>"_s << u"<New>"_s << noTitle;
        QTest::newRow("new with a known title")
            << u"Acme"_s << u"<New>"_s << u"engineer"_s << u"already called \"engineer\""_s;
        QTest::newRow("another's title")
            << u"Acme"_s << u"Planner"_s << u"Engineer"_s << u"already called \"Engineer\""_s;
    }
    void refusedSavesWriteNothing()
    {
        FETCH(QString, company, chosen, title, message);
        PositionBench bench;
        bench.addPosition(u"Planner"_s, 1);
        bench.open(u"Acme"_s, chosen);
        bench.frm->setSelection(company);
        if (company == u"Acme")
            bench.position().cmbPosSelectionClick(chosen);
        bench.edit(u"txtPosTitle"_s, title);
        const QString before = bench.cells(u"Select * from Position"_s);
        bench.world.prompts.expect(message);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select * from Position"_s), before);
        QCOMPARE(bench.rows(u"PositionRecovery"_s), 0);
        QCOMPARE(bench.field(u"txtPosTitle"_s), title.trimmed());
    }

    void removalAsksNothing()
    {
        PositionBench bench;
        bench.addPosition(u"Planner"_s, 1);
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.position().cmdRemovePos1(); // a question would fail the test
        QCOMPARE(bench.cells(u"Select Title from Position"_s), u"Planner"_s);
        QCOMPARE(bench.currentKey(), Key(0));
        QCOMPARE(bench.field(u"txtPosTitle"_s) + bench.field(u"cmbPosSelection"_s), QString());
        QCOMPARE(bench.position().form().items(u"cmbPosSelection"_s),
                 (QStringList{u"Planner"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->selection().currentScreen, u"Position"_s);
        QVERIFY(bench.frm->countsPanel().contains(u"1 position "_s));
        // What is typed now makes a position of its own.
        bench.edit(u"txtPosTitle"_s, u"Welder"_s);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select Title from Position order by PositionKey"_s), u"Planner;Welder"_s);
    }
};

QTEST_GUILESS_MAIN(TestPositionSave)
#include "tst_positionsave.moc"
