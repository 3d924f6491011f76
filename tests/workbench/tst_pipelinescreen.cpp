// The Pipeline screen without its looks, and the rules of the campaign's steps, on a real store.
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/bench.h"
#include "workbench/contactscreen.h"
#include "workbench/pipelinescreen.h"
#include "workbench/pipelinesteps.h"

#include <QSignalSpy>

namespace {

/// A bench with two companies: Acme 1 (Buyer 1, Planner 2) and Bell 2 (Buyer 3).
class PipelineBench : public Bench
{
public:
    PipelineBench()
    {
        addCompany(u"Acme & Sons"_s);
        addCompany(u"Bell"_s);
        addPosition(u"Buyer"_s, 1);
        addPosition(u"Planner"_s, 1);
        addPosition(u"Buyer"_s, 2);
    }
    void addPosition(const QString& title, Key company, const QString& columns = {},
                     const QString& values = {})
    {
        run(u"Insert into Position(Title,CompanyKey,EntryDate"_s + columns + u") Values('" + title + u"'," +
            QString::number(company) + u",'11/1/2026'" + values + u')');
    }
    PipelineScreen& pipe() { return frm->pipelineScreen(); }
    void open() { frm->tabStrip1Click(u"Pipeline"_s); }
    QModelIndex node(const QString& company, const QString& title = {})
    {
        return title.isEmpty() ? pipe().tvwHire().findCompany(company)
                               : pipe().tvwHire().findPosition(company, title);
    }
    void click(const QString& company, const QString& title = {})
    {
        pipe().tvwHireClick(node(company, title));
    }
    /// Opens the tab and chooses Acme's planner.
    void openPlanner()
    {
        open();
        click(u"Acme & Sons"_s, u"Planner"_s);
    }
    QString text(const QString& controls) { return shownIn(pipe().form(), controls); }
    void change(const QString& control, const QString& value)
    {
        pipe().form().edit(control, value);
        pipe().fieldChanged(control);
    }
    QString planner(const QString& columns)
    {
        return cells(u"Select "_s + columns + u" from Position where PositionKey=2");
    }
    QString barTitles()
    {
        QStringList titles;
        for (const PipelineScreen::Bar& bar : pipe().bars()) {
            if (bar.position != 0)
                titles.append(bar.title);
        }
        return titles.join(u';');
    }
};

} // namespace

class TestPipelineScreen : public QObject
{
    Q_OBJECT

private slots:
    void furthestStepDoneCounts_data()
    {
        const char* const first = "Research Company & Profile";
        table({"columns", "values", "progress", "next"},
              {{"gaps below", "PrepareResume", "'10/5/2026'", "6", "Send/Give Cover Letter & Resume"},
               {"sentinel day", "CompanyResearch,Hired", "'9/2/2026','12/31/1999'", "1",
                "Research Position & Profile"},
               {"before the sentinel", "Interview", "'5/1/1995'", "0", first},
               {"the day after", "Response", "'1/1/2000'", "8", "Establish Interview, Practice/Prepare"},
               {"one before the last", "FollowUp", "'11/5/2026'", "10", ""},
               {"offer", "Hired", "'11/5/2026'", "11", ""}});
    }
    void furthestStepDoneCounts()
    {
        FETCH(QString, columns, values);
        Bench bench;
        bench.run(u"Insert into Position("_s + columns + u") Values(" + values + u')');
        const PipelineSteps steps(bench.data().getPositionByKey(1));
        QTEST(QString::number(steps.progress()), "progress");
        QTEST(steps.getNextStep(), "next");
    }

    void everyStepHasItsOwnPairOfColumns()
    {
        Bench bench;
        QStringList columns;
        QStringList values;
        for (int index = 0; index < PipelineSteps::count; ++index) {
            columns.append({PipelineSteps::getIndexTitle(index), PipelineSteps::getIndexMediumTitle(index)});
            values.append({u"'11/%1/2026'"_s.arg(index + 1), QString::number(20 + index)});
        }
        bench.run(u"Insert into Position("_s + columns.join(u',') + u") Values(" + values.join(u',') + u')');
        const PipelineSteps steps(bench.data().getPositionByKey(1));
        for (int index = 0; index < PipelineSteps::count; ++index) {
            QCOMPARE(steps.step(index).date, QDate(2026, 11, index + 1));
            QCOMPARE(steps.step(index).medium, 20 + index);
        }
        for (const int index : {-1, PipelineSteps::count})
            QVERIFY(!steps.step(index).date.isValid() && PipelineSteps::nextStep(index).isEmpty());
    }

    void treeIsReadOnceAndNarrowedToTheText()
    {
        PipelineBench bench;
        bench.openPlanner();
        const PipelineTree& tree = bench.pipe().tvwHire();
        const auto kept = [&](const QString& typed) {
            bench.change(u"txtFind"_s, typed);
            QStringList keys;
            const QModelIndex root = tree.index(0, 0);
            for (int company = 0; company < tree.rowCount(root); ++company) {
                const QModelIndex node = tree.index(company, 0, root);
                keys.append(tree.key(node));
                for (int row = 0; row < tree.rowCount(node); ++row)
                    keys.append(tree.index(row, 0, node).parent() == node ? tree.key(tree.index(row, 0, node))
                                                                          : u"stray"_s);
            }
            return keys.join(u' ');
        };
        // A company with all its positions, positions with their companies, nothing, all again.
        const QString acme = u"L2-Acme & Sons L3-Acme & Sons-Buyer"_s;
        QCOMPARE(kept(u"SONS"_s), QString(acme + u" L3-Acme & Sons-Planner"));
        QCOMPARE(kept(u" buy "_s), QString(acme + u" L2-Bell L3-Bell-Buyer"));
        QCOMPARE(kept(u"zzz"_s), QString());
        bench.addCompany(u"Cobb"_s);
        bench.open();
        QCOMPARE(kept({}), QString(acme + u" L3-Acme & Sons-Planner L2-Bell L3-Bell-Buyer"));
        bench.pipe().cmdRefresh1();
        QVERIFY(bench.node(u"Cobb"_s).isValid());
        QCOMPARE(bench.text(u"txtPosition txtCCompany chkP0"_s), u"||0"_s);
    }

    void statementsDoNotGrowWithTheCampaign()
    {
        const auto sent = [](int companies) {
            PipelineBench bench;
            const Action atOnce(bench.data());
            for (int number = 0; number < companies; ++number)
                bench.addPosition(u"Clerk"_s, bench.addCompany(u"Firm %1"_s.arg(number)));
            return bench.statements([&] { bench.open(); }).size();
        };
        QCOMPARE(sent(60), sent(20));
    }

    void rowIsShownAsItsStepsSay()
    {
        PipelineBench bench;
        bench.addPosition(
            u"Clerk"_s, 2,
            u",PositionResearch,PositionResearchMedium,InfoContact,InfoContactMedium,InfoFollow,"
            "InfoFollowMedium,PrepareCover,PrepareCoverMedium,OfferStatus,Expires"_s,
            u",'12/31/1999',3,'10/5/2026',6,'10/6/2026',8,'10/7/2026',-1,'Reject','12/31/99'"_s);
        bench.open();
        bench.click(u"Bell"_s, u"Clerk"_s);
        // Nothing stored: today is laid out, but the step is not done.
        QCOMPARE(bench.text(u"chkP0 dtpProg0 chkP10 dtpProg10"_s), u"0|2026-11-22|0|1999-12-31"_s);
        QCOMPARE(bench.text(u"chkP1 dtpProg1 Image11 chkP2 dtpProg2 Image12"_s),
                 u"0|1999-12-31|Phone|1|2026-10-05|Meeting"_s);
        QCOMPARE(bench.text(u"chkP3 Image13 chkP4 Image14"_s), u"1||1|"_s);
        QCOMPARE(bench.text(u"optProg1 optProg2 optProg3 txtExpiryDate txtNext"_s),
                 u"0|1|0|No Expiry|Prepare Resume for Position"_s);
        QCOMPARE(bench.selection().currentPositionKey, Key(4));
        QVERIFY(bench.shell().startsWith(u"2|Bell|"_s));
    }

    void changeOfAStepIsStored_data()
    {
        // before: InfoFollow, InfoFollowMedium
        table({"before", "control", "value", "stored"},
              {{"tick", "'12/31/1999',0", "chkP3", "1", "11/22/2026|0"},
               {"tick nothing stored", "'',''", "chkP3", "1", "11/22/2026|0"},
               {"tick keeps the day", "'10/5/2026',3", "chkP3", "1", "10/5/2026|3"},
               {"untick", "'10/5/2026',3", "chkP3", "0", "12/31/1999|0"},
               {"date", "'12/31/1999',0", "dtpProg3", "2026-10-09", "10/9/2026|0"},
               {"day that stands for none", "'10/5/2026',3", "dtpProg3", "1999-12-31", "11/22/2026|3"}});
    }
    void changeOfAStepIsStored()
    {
        FETCH(QString, before, control, value, stored);
        PipelineBench bench;
        const QStringList values = before.split(u',');
        bench.run(u"Update Position set InfoFollow="_s + values.at(0) + u",InfoFollowMedium=" + values.at(1));
        const QString others = u"Select InfoFollow,InfoFollowMedium from Position where PositionKey<>2"_s;
        const QString theirs = bench.cells(others);
        bench.openPlanner();
        bench.change(control, value);
        QCOMPARE(bench.planner(u"InfoFollow,InfoFollowMedium"_s), stored);
        QCOMPARE(bench.cells(others), theirs);
        QCOMPARE(bench.pipe().bars().at(2).progress, stored.startsWith(u"12/31/1999") ? 0 : 4);
        const QString shown = bench.text(u"chkP3 dtpProg3 Image13 txtNext"_s);
        bench.click(u"Bell"_s, u"Buyer"_s);
        bench.click(u"Acme & Sons"_s, u"Planner"_s);
        QCOMPARE(bench.text(u"chkP3 dtpProg3 Image13 txtNext"_s), shown);
    }

    void clicksWalkTheMediums()
    {
        // Tag and stored code behind each click; the last one but one writes nothing.
        for (const QString& each :
             {u"1:Internet4,Research5,Meeting6,Other0,Internet4"_s,
              u"10:Internet1,Fax2,Phone3,Post4,Research5,Meeting6,Other7,7,Internet1"_s}) {
            PipelineBench bench;
            bench.openPlanner();
            const QString step = each.section(u':', 0, 0);
            const QString column = PipelineSteps::getIndexTitle(step.toInt());
            for (const QString& behind : each.section(u':', 1).split(u',')) {
                bench.pipe().image1Click(step.toInt());
                QCOMPARE(QString(bench.text(u"Image1"_s + step) + bench.planner(column + u"Medium")), behind);
            }
            QCOMPARE(bench.planner(column), u"11/22/2026"_s);
            QCOMPARE(bench.text(u"chkP"_s + step), u"1"_s);
        }
    }

    void withoutPositionNothingIsChanged()
    {
        PipelineBench bench;
        bench.openPlanner();
        // A company stands for none of its positions, whichever was chosen before.
        bench.click(u"Acme & Sons"_s);
        const QString step = u"Must select a position to modify progress data."_s;
        const QString save = u"Please select a position to save from the company/position box."_s;
        for (const auto& [edit, message] : {std::pair{u"chkP4=1"_s, step},
                                            {u"dtpProg4=2026-10-09"_s, step},
                                            {u"Image14"_s, step},
                                            {u"optProg3=1"_s, save},
                                            {u"cmdUpdateTrack1"_s, save}}) {
            const QString control = edit.section(u'=', 0, 0);
            const QString before = bench.text(control);
            bench.expect(message);
            const QStringList sent = bench.statements([&] {
                if (control == u"cmdUpdateTrack1")
                    bench.pipe().cmdUpdateTrack1();
                else if (control == u"Image14")
                    bench.pipe().image1Click(4);
                else
                    bench.change(control, edit.section(u'=', 1));
            });
            QVERIFY2(bench.world.prompts.done() && sent.isEmpty(), qPrintable(edit));
            QCOMPARE(bench.text(control), before);
        }
        QVERIFY(!bench.pipe().form().isEnabled(u"imgOpenContact1"_s));
    }

    void answerIsStoredAndShownAlone()
    {
        PipelineBench bench;
        bench.openPlanner();
        for (const QString& each :
             {u"optProg2=Reject=0|1|0"_s, u"optProg3=Open=0|0|1"_s, u"optProg1=On File=1|0|0"_s}) {
            bench.change(each.section(u'=', 0, 0), u"1"_s);
            QCOMPARE(bench.planner(u"OfferStatus"_s), each.section(u'=', 1, 1));
            QCOMPARE(bench.text(u"optProg1 optProg2 optProg3"_s), each.section(u'=', 2));
        }
        bench.change(u"optProg1"_s, u"0"_s); // a second click does not take it away
        QCOMPARE(bench.text(u"optProg1"_s), u"1"_s);
        QCOMPARE(bench.cells(u"Select OfferStatus from Position where PositionKey<>2"_s), u";"_s);
    }

    void failedWriteShowsWhatIsKept()
    {
        for (const int which : {1, 2}) { // of the two Updates, day and medium; the first takes both along
            PipelineBench bench;
            bench.openPlanner();
            bench.world.prompts.acceptAll(Answer::Ok);
            bench.failingAt(
                u"Update"_s, [&] { bench.change(u"chkP6"_s, u"1"_s); }, which);
            QCOMPARE(bench.text(u"chkP6"_s), which == 1 ? u"0"_s : u"1"_s);
            bench.change(u"chkP6"_s, u"1"_s);
            QCOMPARE(bench.planner(u"SentResume,SentResumeMedium"_s), u"11/22/2026|0"_s);
        }
    }

    void removedPositionIsNotWrittenTo()
    {
        PipelineBench bench;
        bench.openPlanner();
        bench.run(u"Delete * from Position where PositionKey=1"_s);
        bench.expect(u"Position Key not found"_s);
        bench.click(u"Acme & Sons"_s, u"Buyer"_s);
        QCOMPARE(bench.selection().currentPositionKey, Key(0));
        bench.expect(u"Must select a position"_s);
        bench.change(u"chkP2"_s, u"1"_s);
        QCOMPARE(bench.planner(u"InfoContact"_s), QString());
        // At the next opening it leaves the tree, with nothing current and as the current one.
        bench.open();
        QVERIFY(!bench.node(u"Acme & Sons"_s, u"Buyer"_s).isValid());
        bench.selection().currentPositionKey = 2;
        bench.run(u"Delete * from Position where PositionKey=2"_s);
        bench.open();
        QVERIFY(!bench.node(u"Acme & Sons"_s, u"Planner"_s).isValid());
        QCOMPARE(bench.selection().currentPositionKey, Key(0));
    }

    void openingShowsTheCurrentPosition()
    {
        PipelineBench bench;
        bench.openPlanner();
        bench.change(u"chkP2"_s, u"1"_s);
        bench.frm->tabStrip1Click(u"Company"_s);
        QSignalSpy chosen(&bench.pipe(), &PipelineScreen::nodeChosen);
        bench.open();
        QCOMPARE(bench.text(u"txtPosition chkP2"_s), u"Planner|1"_s);
        QCOMPARE(chosen.last().at(0).toModelIndex(), bench.node(u"Acme & Sons"_s, u"Planner"_s));
        // Entered since, and hidden by the filter.
        bench.addPosition(u"Auditor"_s, 1);
        bench.change(u"txtFind"_s, u"bell"_s);
        bench.selection().currentPositionKey = 4;
        bench.open();
        QCOMPARE(bench.text(u"txtPosition txtFind"_s), u"Auditor|"_s);
        // Another company's screen is not taken over by a position of the one before.
        bench.change(u"txtFind"_s, u"planner"_s);
        bench.choose(u"Bell"_s);
        QCOMPARE(chosen.last().at(0).toModelIndex(), bench.node(u"Bell"_s));
        QVERIFY(bench.node(u"Bell"_s).isValid() && chosen.last().at(1).toBool());
        bench.open();
        QCOMPARE(bench.text(u"txtCCompany txtPosition"_s), u"|"_s);
        QCOMPARE(bench.selection().selectedCompanyName(), u"Bell"_s);
    }

    void barsPageThroughAllPositions()
    {
        PipelineBench bench;
        for (int number = 10; number < 30; ++number)
            bench.addPosition(u"Desk %1"_s.arg(number), 2, u",Hired"_s, u",'11/2/2026'"_s);
        bench.open();
        QStringList titles;
        QStringList captions;
        for (int page = 0; page < 4; ++page) { // one further than there are
            if (bench.pipe().page() == page) {
                titles.append(bench.barTitles());
                captions.append(bench.pipe().visualCaption());
            }
            bench.pipe().cmdVisualNext();
        }
        QCOMPARE(titles.join(u';'), bench.cells(u"Select Title from Position order by Title"_s));
        QCOMPARE(captions.join(u','), u"Visual - 0 - 10,Visual - 10 - 20,Visual - 20 - 30"_s);
        QCOMPARE(bench.pipe().bars().at(0).progress, 11);
        QCOMPARE(bench.pipe().bars().at(2).progress, 0);
        // The page's positions go away under it.
        bench.run(u"Delete * from Position where Hired > #1/1/2000#"_s);
        bench.pipe().displayVisual();
        QCOMPARE(bench.barTitles(), u"Buyer;Buyer;Planner"_s);
        QCOMPARE(bench.pipe().page(), 0);
        bench.pipe().displayVisual(1, 2); // up to the last row asked for, and no further
        QCOMPARE(bench.barTitles(), u"Buyer"_s);
        bench.run(u"Delete * from Position"_s);
        bench.expect(u"No Positions found in database."_s);
        bench.pipe().displayVisual();
        QCOMPARE(bench.pipe().pageCount(), 1);
    }

    void barOfANamesakeChoosesItsOwnCompany()
    {
        PipelineBench bench;
        bench.open();
        bench.pipe().shpLblClick(1);
        bench.pipe().shpLblClick(9); // an empty row
        QCOMPARE(bench.text(u"txtCCompany txtPosition"_s), u"Bell|Buyer"_s);
        QCOMPARE(bench.selection().currentPositionKey, Key(3));
        bench.pipe().tvwHireDblClick(bench.node(u"Acme & Sons"_s));
        QCOMPARE(bench.visibleFrames(), u"frmePipeline"_s);
        bench.pipe().shpLblDblClick(2);
        QCOMPARE(bench.visibleFrames(), u"frmePosition"_s);
        QCOMPARE(bench.selection().currentPositionKey, Key(2));
    }

    void contactOpenedIsTheFirstOfTheList()
    {
        for (const auto& list : {u"1"_s, u",,2,1"_s, QString(), u"77,1"_s, u"x"_s, u"70000"_s}) {
            PipelineBench bench;
            bench.addContact(u"Ann"_s, u"Lee"_s, 1);
            bench.addContact(u"Bob"_s, u"Stone"_s, 1);
            bench.run(u"Update Position set ContactList='"_s + list + u'\'');
            bench.openPlanner();
            const QString opened = list == u"1" ? u"Ann"_s : list == u",,2,1" ? u"Bob"_s : QString();
            if (opened.isEmpty())
                bench.expect(u"No contacts found for this position"_s);
            bench.pipe().imgOpenContact1();
            QCOMPARE(bench.visibleFrames(), opened.isEmpty() ? u"frmePipeline"_s : u"frmeContact"_s);
            QCOMPARE(bench.frm->contactScreen().form().text(u"txtFirst"_s), opened);
        }
    }
};

JOBWRIGHT_TEST(TestPipelineScreen)
#include "tst_pipelinescreen.moc"
