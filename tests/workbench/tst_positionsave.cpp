// Saving and removing a whole position.
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
        bench.position().cmdUpdatePos1();
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

    void everyVersionGoesIntoTheJournal()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        for (const QString& notes : {u"one"_s, u"two"_s}) {
            bench.edit(u"txtPosNotes"_s, notes);
            bench.position().cmdUpdatePos1();
        }
        QCOMPARE(bench.cells(u"Select Title,Notes,PrepareResume,ContactList from PositionRecovery"_s),
                 u"Engineer|one|10/9/2026|1,3;Engineer|two|10/9/2026|1,3"_s);
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

    void typedTitleRenames()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.edit(u"txtPosTitle"_s, u"ENGINEER"_s); // only its case is another
        bench.position().cmdUpdatePos1();
        bench.edit(u"txtPosTitle"_s, u"Lead Engineer"_s);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select PositionKey,Title from Position"_s), u"3|Lead Engineer"_s);
        QCOMPARE(bench.position().form().items(u"cmbPosSelection"_s),
                 (QStringList{u"Lead Engineer"_s, u"<New>"_s}));
        QCOMPARE(bench.field(u"cmbPosSelection"_s), u"Lead Engineer"_s);
    }

    void refusedSavesWriteNothing_data()
    {
        const QString noTitle =
            u"Please enter a name for a new Position in\r\nthe position selection box or select a Position to update."_s;
        QTest::addColumn<QString>("company");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        QTest::newRow("no company") << QString() << u"<New>"_s << u"Welder"_s
                                    << u"Please select a company before storing a position to it."_s;
        QTest::newRow("new company") << u"<New>"_s << u"<New>"_s << u"Welder"_s
                                     << u"Please select a company before storing a position to it."_s;
        QTest::newRow("no title") << u"Acme"_s << u"Engineer"_s << QString() << noTitle;
        QTest::newRow("blanks") << u"Acme"_s << u"<New>"_s << u"  "_s << noTitle;
        QTest::newRow("the box's own entry") << u"Acme"_s << u"<New>"_s << u"<New>"_s << noTitle;
        QTest::newRow("new with a known title")
            << u"Acme"_s << u"<New>"_s << u"engineer"_s << u"already called \"engineer\""_s;
        QTest::newRow("another's title")
            << u"Acme"_s << u"Planner"_s << u"Engineer"_s << u"already called \"Engineer\""_s;
    }

    void refusedSavesWriteNothing()
    {
        QFETCH(QString, company);
        QFETCH(QString, chosen);
        QFETCH(QString, title);
        QFETCH(QString, message);
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

    void formWhoseKeyIsGoneDoesNotAddATwin()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.frm->selection().currentPositionKey = 0; // by another screen
        bench.world.prompts.expect(u"already called \"Engineer\""_s);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.rows(u"Position"_s), 1);
    }

    void sameTitleAtAnotherCompanyIsFine()
    {
        PositionBench bench;
        bench.open(u"Bolt"_s, u"<New>"_s);
        bench.edit(u"txtPosTitle"_s, u"Engineer"_s);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select PositionKey,CompanyKey from Position order by PositionKey"_s),
                 u"1|1;2|2"_s);
        QCOMPARE(bench.currentKey(), Key(2));
    }

    void contactSavedMeanwhileKeepsItsAssignment()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        // A contact's save gives it a new key, here behind the open form.
        bench.run(u"Delete * from Contact where ContactKey=1"_s);
        bench.addContact(u"Ann"_s, u"Lee"_s, 1);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select ContactList from Position"_s), u"5,3"_s);
        QCOMPARE(bench.assigned(), (QStringList{u"Ann Lee"_s, u"Bob Orr"_s}));
    }

    void contactRemovedMeanwhileLeavesTheList()
    {
        PositionBench bench;
        bench.run(u"Update Position set ContactList=',1,,77,x,'"_s);
        bench.open(u"Acme"_s, u"Engineer"_s);
        QCOMPARE(bench.assigned(), QStringList{u"Ann Lee"_s});
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select ContactList from Position"_s), u"1"_s);
    }

    void stepsOfAnotherScreenAreWritten()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        QVERIFY(bench.position().upPosx(u"'11/2/2026','3',"_s + u"'','',"_s.repeated(10), u"Reject"_s));
        QCOMPARE(bench.rowsCalled(u"Engineer"_s), u"2|3/5/2024|11/2/2026|3|||Reject|1,3"_s);
        QCOMPARE(bench.position().progress(), 1);
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
