// The Position screen: choosing, field by field saving, expiry, contacts, ranks.
#include "support/table.h"
#include "workbench/positionbench.h"

#include <QTest>

class TestPositionScreen : public QObject
{
    Q_OBJECT

private slots:
    void chosenPositionIsShown()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"engineer"_s);
        QCOMPARE(bench.field(u"cmbPosSelection"_s), u"Engineer"_s);
        QCOMPARE(bench.field(u"txtPosTitle"_s), u"Engineer"_s);
        QCOMPARE(bench.field(u"txtPosNotes"_s), u"old notes"_s);
        QCOMPARE(bench.field(u"dtpExpires"_s), u"2026-12-31"_s);
        QCOMPARE(bench.assigned(), (QStringList{u"Ann Lee"_s, u"Bob Orr"_s}));
        QCOMPARE(bench.position().progress(), 6);
        QCOMPARE(bench.currentKey(), Key(1));
        QCOMPARE(bench.position().form().items(u"cmbPosSelection"_s),
                 (QStringList{u"Engineer"_s, u"<New>"_s}));
        QCOMPARE(bench.position().form().items(u"cmbAssignContact"_s),
                 (QStringList{u"Ann Lee"_s, u"Mary Jo Ray"_s, u"Bob Orr"_s}));
        QVERIFY(!bench.position().form().isDirty(u"txtKeyword"_s));
    }

    void newEntryEmptiesTheForm()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        QString focused;
        connect(&bench.position().form(), &Form::focusRequested, this,
                [&](const QString& name) { focused = name; });
        bench.frm->tbarButtonClick(u"new"_s);
        QCOMPARE(bench.field(u"cmbPosSelection"_s), u"<New>"_s);
        QCOMPARE(bench.field(u"txtPosTitle"_s) + bench.field(u"txtPosNotes"_s), QString());
        QCOMPARE(bench.field(u"dtpExpires"_s), u"2026-12-22"_s); // thirty days ahead
        QVERIFY(bench.assigned().isEmpty());
        QCOMPARE(bench.position().progress(), 0);
        QCOMPARE(bench.currentKey(), Key(0));
        QCOMPARE(focused, u"txtPosTitle"_s);
    }

    void formIsEmptyOnAnotherCompany()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.choose(u"Bolt"_s);
        QCOMPARE(bench.field(u"txtPosTitle"_s), QString());
        QCOMPARE(bench.currentKey(), Key(0));
        QCOMPARE(bench.position().form().items(u"cmbPosSelection"_s), QStringList{u"<New>"_s});
        QCOMPARE(bench.position().form().items(u"cmbAssignContact"_s), QStringList{u"Cy Dee"_s});
        // Also when the choice is made on another screen.
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.frm->tabStrip1Click(u"Company"_s);
        bench.choose(u"Bolt"_s);
        QCOMPARE(bench.currentKey(), Key(0));
    }

    void fieldLeftIsStored()
    {
        PositionBench bench;
        bench.addPosition(u"Planner"_s, 1);
        bench.open(u"Acme"_s, u"Engineer"_s);
        QStringList columns;
        for (const FieldRow& row : bench.position().form().rows()) {
            if (row.save != SaveOn::Leave)
                continue;
            bench.edit(row.control, u"it's\nhard'); Delete"_s);
            QVERIFY(bench.frm->procVisible());
            const QStringList sent = bench.statements([&] { bench.position().fieldLeft(row.control); });
            QCOMPARE(sent.last(), QString(u"Update Position set " + row.column +
                                          u"='it`s\r\nhard`); Delete' where positionkey=1"));
            QVERIFY(!bench.frm->procVisible());
            QCOMPARE(bench.statements([&] { bench.position().fieldLeft(row.control); }), QStringList());
            columns.append(row.column);
        }
        QCOMPARE(columns.join(u' '),
                 u"Keyword Location Source Responsibilities Qualifications Benefits Notes"_s);
        QCOMPARE(bench.cells(u"Select Keyword,Notes from Position order by PositionKey"_s),
                 u"it`s\r\nhard`); Delete|it`s\r\nhard`); Delete;|"_s);
    }

    void fieldLeftUnderAnotherTitleIsKeptForTheSave_data()
    {
        columns<QString, QString>("chosen", "title");
        QTest::newRow("renamed") << u"Engineer"_s << u"Welder"_s;
        QTest::newRow("renamed to another position") << u"Engineer"_s << u"Planner"_s;
    }
    void fieldLeftUnderAnotherTitleIsKeptForTheSave()
    {
        FETCH(QString, chosen, title);
        PositionBench bench;
        bench.addPosition(u"Planner"_s, 1);
        bench.open(u"Acme"_s, chosen);
        bench.edit(u"txtPosTitle"_s, title);
        bench.edit(u"txtKeyword"_s, u"typed"_s);
        bench.position().fieldLeft(u"txtKeyword"_s);
        QCOMPARE(bench.cells(u"Select Keyword from Position order by PositionKey"_s), u"cad;"_s);
        QVERIFY(bench.position().form().isDirty(u"txtKeyword"_s));
        QVERIFY(bench.frm->procVisible());
    }

    void titleMayHoldBlanksWhileItIsTyped()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"<New>"_s);
        bench.edit(u"txtPosTitle"_s, u" Senior "_s);
        QCOMPARE(bench.field(u"txtPosTitle"_s), u" Senior "_s);
        QVERIFY(bench.frm->procVisible());
        // Any other field's change trims it, on whichever screen.
        bench.edit(u"txtKeyword"_s, u"x"_s);
        QCOMPARE(bench.field(u"txtPosTitle"_s), u"Senior"_s);
        bench.edit(u"txtPosTitle"_s, u"Senior Welder "_s);
        bench.position().fieldLeft(u"txtPosTitle"_s);
        QCOMPARE(bench.field(u"txtPosTitle"_s), u"Senior Welder"_s);
    }

    void expiryIsToldInThePanel_data()
    {
        columns<QString, QString, bool, bool>("stored", "shown", "ticked", "expired");
        QTest::newRow("today") << u"'11/22/2026'"_s << u"2026-11-22"_s << true << false;
        QTest::newRow("yesterday") << u"'11/21/2026'"_s << u"2026-11-21"_s << true << true;
        QTest::newRow("no expiry") << u"'12/31/99'"_s << u"1999-12-31"_s << false << false;
        QTest::newRow("never entered") << u"''"_s << u"2001-01-01"_s << true << true;
    }
    void expiryIsToldInThePanel()
    {
        QFETCH(QString, stored);
        FETCH(bool, ticked, expired);
        PositionBench bench;
        bench.run(u"Update Position set Expires="_s + stored);
        bench.open(u"Acme"_s, u"Engineer"_s);
        QTEST(bench.field(u"dtpExpires"_s), "shown");
        QCOMPARE(bench.position().hasExpiry(), ticked);
        QCOMPARE(bench.position().form().isEnabled(u"dtpExpires"_s), ticked);
        QCOMPARE(bench.frm->positionPanel(), expired ? u"Position EXPIRED"_s : QString());
        QCOMPARE(bench.frm->procVisible(), expired);
        bench.position().cmbPosSelectionClick(u"<New>"_s);
        QCOMPARE(bench.frm->positionPanel(), QString());
    }

    void assignedContactMovesTheStep()
    {
        PositionBench bench;
        bench.addPosition(u"Planner"_s, 1);
        bench.open(u"Acme"_s, u"Planner"_s);
        bench.assign(u"Mary Jo Ray"_s); // a first name of two words
        QCOMPARE(bench.assigned(), QStringList{u"Mary Jo Ray"_s});
        QVERIFY(bench.frm->procVisible());
        QCOMPARE(
            bench.cells(
                u"Select InfoContact,InfoContactMedium,ContactList from Position order by PositionKey"_s),
            u"12/31/1999|0|1,3;11/22/2026|6|"_s);
        QCOMPARE(bench.position().progress(), 3);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select ContactList,InfoContactMedium from Position where Title='Planner'"_s),
                 u"2|6"_s);
    }

    void unassignTakesTheSelectedOrTheOnlyOne()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"Engineer"_s);
        TreeModel& tree = bench.position().tvwContacts();
        const QModelIndex root = tree.index(0, 0);
        bench.position().selectContact(root); // the root stands for nobody
        bench.world.prompts.expect(
            u"You have multiple contacts, please select who you would like to remove from "
            "this assignment."_s);
        bench.position().cmdRemoveContactAssign1();
        bench.position().selectContact(tree.index(1, 0, root));
        bench.position().cmdRemoveContactAssign1();
        QCOMPARE(bench.assigned(), QStringList{u"Ann Lee"_s});
        bench.position().cmdRemoveContactAssign1();
        QVERIFY(bench.assigned().isEmpty());
        bench.world.prompts.expect(u"No contacts assigned to this position for removal."_s);
        bench.position().cmdRemoveContactAssign1();
        QCOMPARE(bench.cells(u"Select ContactList from Position"_s), u"1,3"_s); // until it is saved
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select ContactList from Position"_s), QString());
    }

    void pointerStandsOnBothRanks_data()
    {
        columns<QString, QString, double, double>("company", "title", "companyPlace", "positionPlace");
        QTest::newRow("both ranked") << u"Acme"_s << u"Engineer"_s << 0.25 << 0.6;
        QTest::newRow("none ranked") << u"Bolt"_s << u"<New>"_s << 0.0 << 0.0;
    }
    void pointerStandsOnBothRanks()
    {
        FETCH(QString, company, title);
        PositionBench bench;
        bench.addPosition(u"Planner"_s, 1);
        bench.run(u"Insert into CProfile(CompanyKey,PR,QCount) Values(1,2,8)"_s);
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.open(company, title);
        QTEST(bench.position().companyPlace(), "companyPlace");
        QTEST(bench.position().positionPlace(), "positionPlace");
        // Without questions there is no scale: the pointer stays, and the log says why.
        bench.run(u"Update CProfile set QCount=0"_s);
        bench.position().computeJptr();
        QTEST(bench.position().companyPlace(), "companyPlace");
        QCOMPARE(bench.world.errorLog().contains(u"frmData - computeJptr"_s), company == u"Acme");
    }
};

QTEST_GUILESS_MAIN(TestPositionScreen)
#include "tst_positionscreen.moc"
