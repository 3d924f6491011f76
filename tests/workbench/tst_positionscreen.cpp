// The Position screen: choosing, field by field saving, expiry, contacts, ranks; saving and removing it
// whole.
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/positionbench.h"

namespace {

/// A bench whose Acme has a "Planner" 2 too, with its Engineer chosen.
class EngineerBench : public PositionBench
{
public:
    explicit EngineerBench(const QString& chosen = u"Engineer"_s)
    {
        addPosition(u"Planner"_s, 1);
        open(u"Acme"_s, chosen);
    }
    QString titles() { return position().form().items(u"cmbPosSelection"_s).join(u','); }
    QString assignable() { return position().form().items(u"cmbAssignContact"_s).join(u','); }
};

} // namespace

class TestPositionScreen : public QObject
{
    Q_OBJECT

private slots:
    void chosenPositionIsShown()
    {
        EngineerBench bench(u"engineer"_s);
        const QString fields = u"cmbPosSelection txtPosTitle txtPosNotes dtpExpires"_s;
        QCOMPARE(bench.field(fields), u"Engineer|Engineer|old notes|2026-12-31"_s);
        QCOMPARE(bench.assigned(), u"Ann Lee,Bob Orr"_s);
        QCOMPARE(bench.position().progress(), 6);
        QCOMPARE(bench.currentKey(), Key(1));
        QCOMPARE(bench.titles(), u"Engineer,Planner,<New>"_s);
        QCOMPARE(bench.assignable(), u"Ann Lee,Mary Jo Ray,Bob Orr"_s);
        QVERIFY(!bench.position().form().isDirty(u"txtKeyword"_s));
        QString focused;
        connect(&bench.position().form(), &Form::focusRequested, this,
                [&](const QString& name) { focused = name; });
        bench.frm->tbarButtonClick(u"new"_s);
        QCOMPARE(bench.field(fields), u"<New>|||2026-12-22"_s); // thirty days ahead
        QCOMPARE(bench.assigned(), QString());
        QCOMPARE(bench.position().progress(), 0);
        QCOMPARE(bench.currentKey(), Key(0));
        QCOMPARE(focused, u"txtPosTitle"_s);
    }

    void formIsEmptyOnAnotherCompany()
    {
        for (const QString& screen : {u"Position"_s, u"Company"_s}) {
            EngineerBench bench;
            bench.frm->tabStrip1Click(screen);
            bench.choose(u"Bolt"_s);
            bench.frm->tabStrip1Click(u"Position"_s);
            QCOMPARE(bench.field(u"txtPosTitle"_s), QString());
            QCOMPARE(bench.currentKey(), Key(0));
            QCOMPARE(bench.titles() + bench.assignable(), u"<New>Cy Dee"_s);
        }
    }

    void fieldThatIsLeftIsStoredUnlessTheTitleIsAnother()
    {
        for (const QString& title : {QString(), u"Welder"_s, u"Planner"_s}) {
            EngineerBench bench;
            if (title.isEmpty()) {
                QCOMPARE(columnsLeft(bench, bench.position(), u"Position"_s, u"positionkey=1"_s),
                         u"Keyword Location Source Responsibilities Qualifications Benefits Notes"_s);
                continue;
            }
            editAll(bench.position(), {u"txtPosTitle="_s + title, u"txtKeyword=typed"_s});
            bench.position().fieldLeft(u"txtKeyword"_s);
            QCOMPARE(bench.cells(u"Select Keyword from Position order by PositionKey"_s), u"cad;"_s);
            QVERIFY(bench.position().form().isDirty(u"txtKeyword"_s) && bench.frm->procVisible());
        }
    }

    void titleMayHoldBlanksWhileItIsTyped()
    {
        EngineerBench bench(u"<New>"_s);
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

    void expiryIsToldInThePanel()
    {
        // Stored: shown, whether there is an expiry, and whether it is over. The last one was never entered.
        for (const QString& each : {u"11/22/2026 2026-11-22 1 0"_s, u"11/21/2026 2026-11-21 1 1"_s,
                                    u"12/31/99 1999-12-31 0 0"_s, u" 2001-01-01 1 1"_s}) {
            PositionBench bench;
            bench.run(u"Update Position set Expires='"_s + each.section(u' ', 0, 0) + u'\'');
            bench.open(u"Acme"_s, u"Engineer"_s);
            const PositionScreen& position = bench.position();
            QCOMPARE(u"%1 %2 %3"_s.arg(bench.field(u"dtpExpires"_s))
                         .arg(position.hasExpiry())
                         .arg(bench.frm->procVisible()),
                     each.section(u' ', 1));
            QCOMPARE(bench.position().form().isEnabled(u"dtpExpires"_s), position.hasExpiry());
            QCOMPARE(bench.frm->positionPanel(),
                     bench.frm->procVisible() ? u"Position EXPIRED"_s : QString());
            bench.position().cmbPosSelectionClick(u"<New>"_s);
            QCOMPARE(bench.frm->positionPanel(), QString());
        }
    }

    void pointerStandsOnBothRanks()
    {
        PositionBench bench;
        bench.run(u"Insert into CProfile(CompanyKey,PR,QCount) Values(1,2,8)"_s);
        bench.open(u"Bolt"_s, u"<New>"_s);
        QCOMPARE(bench.position().companyPlace() + bench.position().positionPlace(), 0.0);
        bench.open(u"Acme"_s, u"Engineer"_s);
        QCOMPARE(bench.position().companyPlace(), 0.25);
        QCOMPARE(bench.position().positionPlace(), 0.6);
        // Without questions there is no scale: the pointer stays, and the log says why.
        bench.run(u"Update CProfile set QCount=0"_s);
        QVERIFY(!bench.world.errorLog().contains(u"frmData - computeJptr"_s));
        bench.position().computeJptr();
        QCOMPARE(bench.position().companyPlace(), 0.25);
        QVERIFY(bench.world.errorLog().contains(u"frmData - computeJptr"_s));
    }

    void newPositionIsInserted()
    {
        PositionBench bench;
        bench.open(u"Acme"_s, u"<New>"_s);
        editAll(bench.position(), {u"txtKeyword=steel"_s, u"txtPosTitle= Master's Welder "_s});
        bench.position().tickExpires(false);
        bench.assign(u"Bob Orr"_s);
        bench.assign(u"Ann Lee"_s);
        const QStringList sent = bench.statements([&] { bench.position().cmdUpdatePos1(); });
        const QString values = u" ( "_s + bench.data().getFields(u"Position"_s).mid(1).join(u',') +
                               u" ) VALUES ('Master`s Welder','11/22/2026','','','steel','','','',"_s +
                               u"'12/31/1999',0,"_s.repeated(11) + u"'','','','3,1',1,'12/31/99')";
        QCOMPARE(sent.filter(u"INSERT"_s), (QStringList{u"INSERT INTO Position"_s + values,
                                                        u"INSERT INTO PositionRecovery"_s + values}));
        QVERIFY(sent.filter(u"Delete"_s).isEmpty());
        QCOMPARE(bench.currentKey(), Key(2));
        QCOMPARE(bench.field(u"cmbPosSelection"_s), u"Master`s Welder"_s);
        QCOMPARE(bench.position().form().items(u"cmbPosSelection"_s).join(u','),
                 u"Engineer,Master`s Welder,<New>"_s);
        QVERIFY(!bench.frm->procVisible() && !bench.position().form().isDirty(u"txtKeyword"_s));
        QVERIFY(bench.frm->countsPanel().contains(u"2 positions"_s));
        // From now on it is a stored one: its fields save themselves.
        bench.edit(u"txtKeyword"_s, u"iron"_s);
        bench.position().fieldLeft(u"txtKeyword"_s);
        QCOMPARE(bench.cells(u"Select Keyword from Position order by PositionKey"_s), u"cad;iron"_s);
    }

    void existingPositionGetsANewKeyThatReferencesFollow()
    {
        PositionBench bench;
        bench.run(u"Insert into Event(Event,PositionKey) Values('other',7)"_s);
        bench.run(u"Insert into JProfile(PositionKey,PR) Values(7,1)"_s);
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
        const QString all =
            u"Select "_s + bench.data().getFields(u"Position"_s).mid(1).join(u',') + u" from Position";
        const QString once = bench.cells(all);
        for (int saves = 0; saves < 3; ++saves)
            bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(all), once);
        QCOMPARE(
            bench.cells(
                u"Select PositionKey,Interview,InterviewMedium,SentResume,SentResumeMedium from Position"_s),
            u"5|12/31/1999|0|12/31/1999|0"_s);
    }

    void refusedSavesWriteNothing_data()
    {
        const char* const noTitle =
            "Please enter a name for a new Position in\r\nthe position selection box or select "
            "a Position to update.";
        table({"company", "chosen", "title", "message"},
              {{"new company", "<New>", "<New>", "Welder",
                "Please select a company before storing a position to it."},
               {"blanks", "Acme", "<New>", "  ", noTitle},
               {"the box's own entry", "Acme", "<New>", "<New>", noTitle},
               {"new with a known title", "Acme", "<New>", "engineer", "already called \"engineer\""},
               {"another's title", "Acme", "Planner", "Engineer", "already called \"Engineer\""}});
    }
    void refusedSavesWriteNothing()
    {
        FETCH(QString, company, chosen, title, message);
        EngineerBench bench(chosen);
        bench.frm->setSelection(company);
        bench.edit(u"txtPosTitle"_s, title);
        const QString before = bench.cells(u"Select * from Position"_s);
        bench.expect(message);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select * from Position"_s), before);
        QCOMPARE(bench.rows(u"PositionRecovery"_s), 0);
        QCOMPARE(bench.field(u"txtPosTitle"_s), title.trimmed());
    }

    void removalAsksNothing()
    {
        EngineerBench bench;
        bench.position().cmdRemovePos1(); // a question would fail the test
        QCOMPARE(bench.cells(u"Select Title from Position"_s), u"Planner"_s);
        QCOMPARE(bench.currentKey(), Key(0));
        QCOMPARE(bench.field(u"txtPosTitle cmbPosSelection"_s), u"|"_s);
        QCOMPARE(bench.titles(), u"Planner,<New>"_s);
        QCOMPARE(bench.selection().currentScreen, u"Position"_s);
        QVERIFY(bench.frm->countsPanel().contains(u"1 position "_s));
        // What is typed now makes a position of its own.
        bench.edit(u"txtPosTitle"_s, u"Welder"_s);
        bench.position().cmdUpdatePos1();
        QCOMPARE(bench.cells(u"Select Title from Position order by PositionKey"_s), u"Planner;Welder"_s);
    }
};

JOBWRIGHT_TEST(TestPositionScreen)
#include "tst_positionscreen.moc"
