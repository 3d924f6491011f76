// The Pipeline screen without its looks: tree, steps, answers, bars, on a real store.
#include "workbench/bench.h"
#include "workbench/contactscreen.h"
#include "workbench/pipelinescreen.h"

#include <QSignalSpy>

namespace {

/// A bench with two companies: Acme (Buyer, Planner) and Bell (Buyer).
class PipelineBench : public Bench
{
public:
    PipelineBench()
    {
        acme = addCompany(u"Acme & Sons"_s);
        bell = addCompany(u"Bell"_s);
        addPosition(u"Buyer"_s, acme);
        addPosition(u"Planner"_s, acme);
        addPosition(u"Buyer"_s, bell);
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
    /// Opens the tab and chooses Acme's planner.
    void openPlanner()
    {
        open();
        pipe().tvwHireClick(node(u"Acme & Sons"_s, u"Planner"_s));
    }
    QString text(const QString& control) { return pipe().form().text(control); }
    void change(const QString& control, const QString& value)
    {
        pipe().form().edit(control, value);
        pipe().fieldChanged(control);
    }
    QString planner(const QString& columns)
    {
        return cells(u"Select "_s + columns + u" from Position where PositionKey=2");
    }
    QStringList barTitles()
    {
        QStringList titles;
        for (const PipelineScreen::Bar& bar : pipe().bars()) {
            if (bar.position != 0)
                titles.append(bar.title);
        }
        return titles;
    }

    Key acme = 0;
    Key bell = 0;
};

} // namespace

class TestPipelineScreen : public QObject
{
    Q_OBJECT

private slots:
    void treeListsEveryCompanyWithItsPositions();
    void fillingTheTreeMovesTheBar();
    void treeIsReadOnceAndAtRefresh();
    void filterKeepsWhatHoldsTheText_data();
    void filterKeepsWhatHoldsTheText();
    void statementsDoNotGrowWithTheCampaign();
    void rowIsShownAsItsStepsSay();
    void changeOfAStepIsStored_data();
    void changeOfAStepIsStored();
    void clicksWalkTheMediums_data();
    void clicksWalkTheMediums();
    void withoutPositionNothingIsChanged_data();
    void withoutPositionNothingIsChanged();
    void nextStepAndBarFollowTheTicks();
    void answerIsStoredAndShownAlone();
    void failedWriteShowsWhatIsKept_data();
    void failedWriteShowsWhatIsKept();
    void removedPositionIsNotWrittenTo();
    void openingShowsTheCurrentPosition();
    void positionEnteredSinceIsFound();
    void companyOfTheSelectorIsOpenedAlone();
    void barsPageThroughAllPositions();
    void emptyCampaignIsSaid();
    void barOfANamesakeChoosesItsOwnCompany();
    void doubleClickOpensThePosition();
    void contactOpenedIsTheFirstOfTheList_data();
    void contactOpenedIsTheFirstOfTheList();
};

void TestPipelineScreen::treeListsEveryCompanyWithItsPositions()
{
    PipelineBench bench;
    bench.open();
    QStringList keys;
    const PipelineTree& tree = bench.pipe().tvwHire();
    const QModelIndex root = tree.index(0, 0);
    QCOMPARE(tree.text(root), u"Jobwright"_s);
    for (int company = 0; company < tree.rowCount(root); ++company) {
        const QModelIndex node = tree.index(company, 0, root);
        keys.append(tree.key(node));
        for (int row = 0; row < tree.rowCount(node); ++row) {
            QCOMPARE(tree.index(row, 0, node).parent(), node);
            keys.append(tree.key(tree.index(row, 0, node)));
        }
    }
    QCOMPARE(keys, (QStringList{u"L2-Acme & Sons"_s, u"L3-Acme & Sons-Buyer"_s, u"L3-Acme & Sons-Planner"_s,
                                u"L2-Bell"_s, u"L3-Bell-Buyer"_s}));
    QCOMPARE(bench.frm->selection().currentScreen, u"Pipeline"_s);
}

void TestPipelineScreen::fillingTheTreeMovesTheBar()
{
    PipelineBench bench;
    QStringList places;
    QStringList names;
    const Form& shell = bench.frm->form();
    connect(&shell, &Form::controlChanged, this, [&](const QString& control) {
        if (control == u"pbarLoad" && shell.isVisible(control))
            places.append(shell.text(control));
        if (control == u"sbar" && !shell.text(control).isEmpty())
            names.append(shell.text(control));
    });
    bench.open();
    QCOMPARE(places, (QStringList{u"0/2"_s, u"1/2"_s, u"2/2"_s}));
    QCOMPARE(names, (QStringList{u"Acme & Sons"_s, u"Bell"_s}));
    QVERIFY(shell.text(u"sbar"_s).isEmpty());
    QVERIFY(!shell.isVisible(u"pbarLoad"_s));
}

void TestPipelineScreen::treeIsReadOnceAndAtRefresh()
{
    PipelineBench bench;
    bench.openPlanner();
    bench.addCompany(u"Cobb"_s);
    bench.open();
    QVERIFY(!bench.node(u"Cobb"_s).isValid());
    bench.pipe().cmdRefresh1();
    QVERIFY(bench.node(u"Cobb"_s).isValid());
    QVERIFY(bench.text(u"txtPosition"_s).isEmpty());
    QVERIFY(bench.text(u"txtCCompany"_s).isEmpty());
    QCOMPARE(bench.text(u"chkP0"_s), u"0"_s);
    QVERIFY(!bench.frm->form().isVisible(u"pbarLoad"_s));
}

void TestPipelineScreen::filterKeepsWhatHoldsTheText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown"); // company:positions, joined with ";"
    QTest::newRow("company with all its positions") << u"SONS"_s << u"Acme & Sons:Buyer,Planner"_s;
    QTest::newRow("positions with their companies") << u" buy "_s << u"Acme & Sons:Buyer;Bell:Buyer"_s;
    QTest::newRow("nothing") << u"zzz"_s << QString();
    QTest::newRow("all again") << QString() << u"Acme & Sons:Buyer,Planner;Bell:Buyer"_s;
}

void TestPipelineScreen::filterKeepsWhatHoldsTheText()
{
    QFETCH(QString, typed);
    PipelineBench bench;
    bench.open();
    bench.change(u"txtFind"_s, u"planner"_s);
    bench.change(u"txtFind"_s, typed);
    QStringList shown;
    const PipelineTree& tree = bench.pipe().tvwHire();
    const QModelIndex root = tree.index(0, 0);
    for (int company = 0; company < tree.rowCount(root); ++company) {
        const QModelIndex node = tree.index(company, 0, root);
        QStringList titles;
        for (int row = 0; row < tree.rowCount(node); ++row)
            titles.append(tree.text(tree.index(row, 0, node)));
        shown.append(tree.text(node) + u':' + titles.join(u','));
    }
    QTEST(shown.join(u';'), "shown");
}

void TestPipelineScreen::statementsDoNotGrowWithTheCampaign()
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

void TestPipelineScreen::rowIsShownAsItsStepsSay()
{
    PipelineBench bench;
    bench.addPosition(u"Clerk"_s, bench.bell,
                      u",PositionResearch,PositionResearchMedium,InfoContact,InfoContactMedium,InfoFollow,"
                      "InfoFollowMedium,PrepareCover,PrepareCoverMedium,OfferStatus,Expires"_s,
                      u",'12/31/1999',3,'10/5/2026',6,'10/6/2026',8,'10/7/2026',-1,'Reject','12/31/99'"_s);
    bench.open();
    bench.pipe().tvwHireClick(bench.node(u"Bell"_s, u"Clerk"_s));
    // Nothing stored: today is laid out, but the step is not done.
    QCOMPARE(bench.text(u"chkP0"_s) + bench.text(u"dtpProg0"_s), u"02026-11-22"_s);
    QCOMPARE(bench.text(u"chkP1"_s) + bench.text(u"dtpProg1"_s), u"01999-12-31"_s);
    QCOMPARE(bench.text(u"Image11"_s), u"Phone"_s);
    QCOMPARE(bench.text(u"chkP2"_s) + bench.text(u"dtpProg2"_s) + bench.text(u"Image12"_s),
             u"12026-10-05Meeting"_s);
    QCOMPARE(bench.text(u"chkP3"_s) + bench.text(u"Image13"_s), u"1"_s);
    QCOMPARE(bench.text(u"chkP4"_s) + bench.text(u"Image14"_s), u"1"_s);
    QCOMPARE(bench.text(u"chkP10"_s) + bench.text(u"dtpProg10"_s), u"01999-12-31"_s);
    QCOMPARE(bench.text(u"optProg1"_s) + bench.text(u"optProg2"_s) + bench.text(u"optProg3"_s), u"010"_s);
    QCOMPARE(bench.text(u"txtExpiryDate"_s), u"No Expiry"_s);
    QCOMPARE(bench.text(u"txtNext"_s), u"Prepare Resume for Position"_s);
    QCOMPARE(bench.frm->selection().currentPositionKey, Key(4));
    QCOMPARE(bench.frm->selection().currentCompanyKey, bench.bell);
    QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Bell"_s);
}

void TestPipelineScreen::changeOfAStepIsStored_data()
{
    QTest::addColumn<QString>("before"); // InfoFollow, InfoFollowMedium
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("stored");
    const QString tick = u"chkP3"_s;
    const QString date = u"dtpProg3"_s;
    QTest::newRow("tick") << u"'12/31/1999',0"_s << tick << u"1"_s << u"11/22/2026|0"_s;
    QTest::newRow("tick nothing stored") << u"'',''"_s << tick << u"1"_s << u"11/22/2026|0"_s;
    QTest::newRow("untick") << u"'10/5/2026',3"_s << tick << u"0"_s << u"12/31/1999|0"_s;
    QTest::newRow("date") << u"'10/5/2026',3"_s << date << u"2026-10-09"_s << u"10/9/2026|3"_s;
    QTest::newRow("date of a step not done")
        << u"'12/31/1999',0"_s << date << u"2026-10-09"_s << u"10/9/2026|0"_s;
    QTest::newRow("day that stands for none")
        << u"'10/5/2026',3"_s << date << u"1999-12-31"_s << u"11/22/2026|3"_s;
}

void TestPipelineScreen::changeOfAStepIsStored()
{
    QFETCH(QString, before);
    QFETCH(QString, control);
    QFETCH(QString, value);
    PipelineBench bench;
    const QStringList values = before.split(u',');
    bench.run(u"Update Position set InfoFollow="_s + values.at(0) + u",InfoFollowMedium=" + values.at(1));
    bench.openPlanner();
    bench.change(control, value);
    QTEST(bench.planner(u"InfoFollow,InfoFollowMedium"_s), "stored");
    const QString all =
        bench.cells(u"Select InfoFollow,InfoFollowMedium from Position where PositionKey<>2"_s);
    // What is shown is what was stored, and the other positions keep what they had.
    const QString shown = bench.text(u"chkP3"_s) + bench.text(u"dtpProg3"_s) + bench.text(u"Image13"_s);
    bench.pipe().tvwHireClick(bench.node(u"Bell"_s, u"Buyer"_s));
    QCOMPARE(all, bench.cells(u"Select InfoFollow,InfoFollowMedium from Position where PositionKey<>2"_s));
    bench.pipe().tvwHireClick(bench.node(u"Acme & Sons"_s, u"Planner"_s));
    QCOMPARE(bench.text(u"chkP3"_s) + bench.text(u"dtpProg3"_s) + bench.text(u"Image13"_s), shown);
}

void TestPipelineScreen::clicksWalkTheMediums_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("round"); // tag and stored code behind each click; the last one writes nothing
    QTest::newRow("research") << 1 << u"Internet4,Research5,Meeting6,Other0,Internet4"_s;
    QTest::newRow("others") << 10 << u"Internet1,Fax2,Phone3,Post4,Research5,Meeting6,Other7,7,Internet1"_s;
}

void TestPipelineScreen::clicksWalkTheMediums()
{
    QFETCH(int, step);
    PipelineBench bench;
    bench.openPlanner();
    const QString column = PipelineSteps::getIndexTitle(step);
    QStringList round;
    for (int click = 0; click < (step < 2 ? 5 : 9); ++click) {
        bench.pipe().image1Click(step);
        round.append(bench.text(u"Image1%1"_s.arg(step)) + bench.planner(column + u"Medium"));
    }
    QTEST(round.join(u','), "round");
    QCOMPARE(bench.planner(column), u"11/22/2026"_s);
    QCOMPARE(bench.text(u"chkP%1"_s.arg(step)), u"1"_s);
}

void TestPipelineScreen::withoutPositionNothingIsChanged_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("message");
    const QString step = u"Must select a position to modify progress data."_s;
    const QString save = u"Please select a position to save from the company/position box."_s;
    QTest::newRow("tick") << u"chkP4"_s << step;
    QTest::newRow("date") << u"dtpProg4"_s << step;
    QTest::newRow("medium") << u"Image14"_s << step;
    QTest::newRow("answer") << u"optProg3"_s << save;
    QTest::newRow("save") << u"cmdUpdateTrack1"_s << save;
}

void TestPipelineScreen::withoutPositionNothingIsChanged()
{
    QFETCH(QString, control);
    QFETCH(QString, message);
    PipelineBench bench;
    bench.openPlanner();
    // A company stands for none of its positions, whichever was chosen before.
    bench.pipe().tvwHireClick(bench.node(u"Acme & Sons"_s));
    const QString before = bench.text(control);
    bench.world.prompts.expect(message);
    const QStringList sent = bench.statements([&] {
        if (control == u"cmdUpdateTrack1")
            bench.pipe().cmdUpdateTrack1();
        else if (control == u"Image14")
            bench.pipe().image1Click(4);
        else
            bench.change(control, control.startsWith(u"dtp") ? u"2026-10-09"_s : u"1"_s);
    });
    QVERIFY(bench.world.prompts.done());
    QCOMPARE(sent, QStringList());
    QCOMPARE(bench.text(control), before);
    QVERIFY(!bench.pipe().form().isEnabled(u"imgOpenContact1"_s));
}

void TestPipelineScreen::nextStepAndBarFollowTheTicks()
{
    PipelineBench bench;
    bench.openPlanner();
    QCOMPARE(bench.text(u"txtNext"_s), u"Research Company & Profile"_s);
    bench.change(u"chkP5"_s, u"1"_s);
    QCOMPARE(bench.text(u"txtNext"_s), u"Send/Give Cover Letter & Resume"_s);
    QCOMPARE(bench.pipe().bars().at(2).progress, 6);
    bench.pipe().displayVisual();
    QCOMPARE(bench.pipe().bars().at(2).progress, 6);
    QCOMPARE(bench.pipe().bars().at(0).progress, 0);
    bench.change(u"chkP5"_s, u"0"_s);
    QCOMPARE(bench.pipe().bars().at(2).progress, 0);
    bench.change(u"chkP10"_s, u"1"_s);
    QVERIFY(bench.text(u"txtNext"_s).isEmpty());
}

void TestPipelineScreen::answerIsStoredAndShownAlone()
{
    PipelineBench bench;
    bench.openPlanner();
    const QList<std::pair<QString, QString>> answers = {
        {u"optProg2"_s, u"Reject"_s}, {u"optProg3"_s, u"Open"_s}, {u"optProg1"_s, u"On File"_s}};
    for (const auto& [option, status] : answers) {
        bench.change(option, u"1"_s);
        QCOMPARE(bench.planner(u"OfferStatus"_s), status);
        for (const auto& [other, unused] : answers)
            QCOMPARE(bench.text(other), other == option ? u"1"_s : u"0"_s);
    }
    // A second click on the same answer does not take it away.
    bench.change(u"optProg1"_s, u"0"_s);
    QCOMPARE(bench.text(u"optProg1"_s), u"1"_s);
    bench.pipe().tvwHireClick(bench.node(u"Bell"_s, u"Buyer"_s));
    QCOMPARE(bench.text(u"optProg1"_s), u"0"_s);
    QCOMPARE(bench.cells(u"Select OfferStatus from Position where PositionKey<>2"_s), u";"_s);
}

void TestPipelineScreen::failedWriteShowsWhatIsKept_data()
{
    QTest::addColumn<int>("failing"); // which of the two Updates
    QTest::addColumn<QString>("shown");
    QTest::newRow("date") << 1 << u"0"_s;
    QTest::newRow("medium") << 2 << u"1"_s;
}

void TestPipelineScreen::failedWriteShowsWhatIsKept()
{
    QFETCH(int, failing);
    QFETCH(QString, shown);
    PipelineBench bench;
    bench.openPlanner();
    bench.world.prompts.acceptAll(Answer::Ok);
    int updates = 0;
    bench.data().database().setInterceptor([&](QStringView statement) {
        if (statement.startsWith(u"Update") && ++updates == failing)
            throw StoreError(u"failed by the test"_s, 10, u"Test"_s);
    });
    bench.change(u"chkP6"_s, u"1"_s);
    bench.data().database().setInterceptor({});
    QCOMPARE(updates, 2);
    QCOMPARE(bench.text(u"chkP6"_s), shown);
    QVERIFY(bench.world.errorLog().contains(u"DataJW-ExecQuery"_s));
    bench.change(u"chkP6"_s, u"1"_s);
    QCOMPARE(bench.planner(u"SentResume,SentResumeMedium"_s), u"11/22/2026|0"_s);
}

void TestPipelineScreen::removedPositionIsNotWrittenTo()
{
    PipelineBench bench;
    bench.openPlanner();
    bench.run(u"Delete * from Position where PositionKey=1"_s);
    bench.world.prompts.expect(u"Position Key not found"_s);
    bench.pipe().tvwHireClick(bench.node(u"Acme & Sons"_s, u"Buyer"_s));
    QVERIFY(!bench.pipe().hasPosition());
    QCOMPARE(bench.frm->selection().currentPositionKey, Key(0));
    bench.world.prompts.expect(u"Must select a position"_s);
    bench.change(u"chkP2"_s, u"1"_s);
    QCOMPARE(bench.planner(u"InfoContact"_s), QString());
    // With nothing current, too, what is gone leaves the tree at the next opening.
    bench.open();
    QVERIFY(!bench.node(u"Acme & Sons"_s, u"Buyer"_s).isValid());
}

void TestPipelineScreen::openingShowsTheCurrentPosition()
{
    PipelineBench bench;
    bench.openPlanner();
    bench.change(u"chkP2"_s, u"1"_s);
    bench.frm->tabStrip1Click(u"Company"_s);
    QVERIFY(bench.text(u"txtPosition"_s).isEmpty());
    QSignalSpy chosen(&bench.pipe(), &PipelineScreen::nodeChosen);
    bench.open();
    QCOMPARE(bench.text(u"txtPosition"_s), u"Planner"_s);
    QCOMPARE(bench.text(u"chkP2"_s), u"1"_s);
    QCOMPARE(chosen.last().at(0).toModelIndex(), bench.node(u"Acme & Sons"_s, u"Planner"_s));
    // Another company's screen is not taken over by a position of the one before.
    bench.choose(u"Bell"_s);
    bench.open();
    QVERIFY(bench.text(u"txtPosition"_s).isEmpty());
    QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Bell"_s);
    // Gone altogether: the tree is read anew and nothing is current.
    bench.frm->selection().currentPositionKey = 2;
    bench.run(u"Delete * from Position where PositionKey=2"_s);
    bench.open();
    QVERIFY(!bench.node(u"Acme & Sons"_s, u"Planner"_s).isValid());
    QCOMPARE(bench.frm->selection().currentPositionKey, Key(0));
}

void TestPipelineScreen::positionEnteredSinceIsFound()
{
    PipelineBench bench;
    bench.openPlanner();
    bench.addPosition(u"Auditor"_s, bench.acme);
    bench.change(u"txtFind"_s, u"bell"_s);
    bench.frm->selection().currentPositionKey = 4;
    bench.open();
    QCOMPARE(bench.text(u"txtPosition"_s), u"Auditor"_s);
    QVERIFY(bench.node(u"Acme & Sons"_s, u"Auditor"_s).isValid());
    QVERIFY(bench.text(u"txtFind"_s).isEmpty());
}

void TestPipelineScreen::companyOfTheSelectorIsOpenedAlone()
{
    PipelineBench bench;
    bench.openPlanner();
    bench.change(u"txtFind"_s, u"planner"_s);
    QSignalSpy chosen(&bench.pipe(), &PipelineScreen::nodeChosen);
    bench.choose(u"Bell"_s);
    QCOMPARE(chosen.last().at(0).toModelIndex(), bench.node(u"Bell"_s));
    QVERIFY(chosen.last().at(0).toModelIndex().isValid());
    QCOMPARE(chosen.last().at(1).toBool(), true);
    QCOMPARE(bench.text(u"txtCCompany"_s), u"Bell"_s);
    QVERIFY(bench.text(u"txtPosition"_s).isEmpty());
}

void TestPipelineScreen::barsPageThroughAllPositions()
{
    PipelineBench bench;
    for (int number = 10; number < 30; ++number)
        bench.addPosition(u"Desk %1"_s.arg(number), bench.bell, u",Hired"_s, u",'11/2/2026'"_s);
    bench.open();
    QCOMPARE(bench.pipe().pageCount(), 3);
    QStringList titles;
    QStringList captions;
    for (int page = 0; page < 4; ++page) { // one further than there are
        if (bench.pipe().page() == page)
            titles += bench.barTitles();
        captions.append(bench.pipe().visualCaption());
        bench.pipe().cmdVisualNext();
    }
    QCOMPARE(titles.join(u','),
             bench.cells(u"Select Title from Position order by Title"_s).replace(u';', u','));
    QCOMPARE(captions.mid(0, 3),
             (QStringList{u"Visual - 0 - 10"_s, u"Visual - 10 - 20"_s, u"Visual - 20 - 30"_s}));
    QCOMPARE(bench.pipe().bars().at(0).progress, 11);
    QCOMPARE(bench.pipe().bars().at(2).progress, 0);
    QCOMPARE(bench.pipe().bars().at(3).position, 0);
    // The page's positions go away under it.
    bench.run(u"Delete * from Position where Hired > #1/1/2000#"_s);
    bench.pipe().displayVisual();
    QCOMPARE(bench.barTitles(), (QStringList{u"Buyer"_s, u"Buyer"_s, u"Planner"_s}));
    bench.pipe().cmdVisualBack();
    QCOMPARE(bench.pipe().page(), 0);
    // Up to the last row asked for, and no further.
    bench.pipe().displayVisual(1, 2);
    QCOMPARE(bench.barTitles(), QStringList{u"Buyer"_s});
}

void TestPipelineScreen::emptyCampaignIsSaid()
{
    PipelineBench bench;
    bench.openPlanner();
    bench.run(u"Delete * from Position"_s);
    bench.world.prompts.expect(u"No Positions found in database."_s);
    bench.pipe().displayVisual();
    QCOMPARE(bench.barTitles(), QStringList());
    QCOMPARE(bench.pipe().pageCount(), 1);
}

void TestPipelineScreen::barOfANamesakeChoosesItsOwnCompany()
{
    PipelineBench bench;
    bench.open();
    QCOMPARE(bench.pipe().bars().at(1).title, u"Buyer"_s);
    bench.pipe().shpLblClick(1);
    QCOMPARE(bench.text(u"txtCCompany"_s), u"Bell"_s);
    QCOMPARE(bench.frm->selection().currentPositionKey, Key(3));
    bench.pipe().shpLblClick(9); // an empty row
    QCOMPARE(bench.text(u"txtCCompany"_s), u"Bell"_s);
}

void TestPipelineScreen::doubleClickOpensThePosition()
{
    PipelineBench bench;
    bench.openPlanner();
    bench.pipe().tvwHireDblClick(bench.node(u"Acme & Sons"_s));
    QCOMPARE(bench.visibleFrames(), u"frmePipeline"_s);
    bench.pipe().tvwHireClick(bench.node(u"Bell"_s, u"Buyer"_s));
    bench.pipe().tvwHireDblClick(bench.node(u"Bell"_s, u"Buyer"_s));
    QCOMPARE(bench.visibleFrames(), u"frmePosition"_s);
    QCOMPARE(bench.frm->selection().currentPositionKey, Key(3));
    bench.open();
    bench.pipe().shpLblDblClick(2);
    QCOMPARE(bench.visibleFrames(), u"frmePosition"_s);
    QCOMPARE(bench.frm->selection().currentPositionKey, Key(2));
}

void TestPipelineScreen::contactOpenedIsTheFirstOfTheList_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<bool>("opens");
    QTest::newRow("one") << u"1"_s << true;
    QTest::newRow("several") << u"1,2"_s << true;
    QTest::newRow("stray commas") << u",,1"_s << true;
    QTest::newRow("none") << QString() << false;
    QTest::newRow("gone") << u"77,1"_s << false;
    QTest::newRow("no key") << u"x"_s << false;
    QTest::newRow("too large for a key") << u"70000"_s << false;
}

void TestPipelineScreen::contactOpenedIsTheFirstOfTheList()
{
    QFETCH(QString, list);
    QFETCH(bool, opens);
    PipelineBench bench;
    bench.addContact(u"Ann"_s, u"Lee"_s, bench.acme);
    bench.addContact(u"Bob"_s, u"Stone"_s, bench.acme);
    bench.run(u"Update Position set ContactList='"_s + list + u'\'');
    bench.openPlanner();
    if (!opens)
        bench.world.prompts.expect(u"No contacts found for this position"_s);
    bench.pipe().imgOpenContact1();
    QCOMPARE(bench.visibleFrames(), opens ? u"frmeContact"_s : u"frmePipeline"_s);
}

QTEST_GUILESS_MAIN(TestPipelineScreen)
#include "tst_pipelinescreen.moc"
