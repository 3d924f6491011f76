// The screen Performance: range coupling, files, what is asked, what is refused.
#include "planning/frmgoals.h"
#include "support/runtest.h"
#include "support/screenbench.h"

#include <QTest>

class TestFrmGoals : public QObject
{
    Q_OBJECT

    std::unique_ptr<ScreenBench> m_bench;
    std::unique_ptr<FrmGoals> m_goals;

    [[nodiscard]] QString shown(const QString& controls) const { return shownIn(m_goals->form(), controls); }
    void edit(const QString& control, const QString& text)
    {
        m_goals->form().edit(control, text);
        m_goals->fieldChanged(control);
    }
    [[nodiscard]] QString file(const QString& name) const { return m_bench->world.folder.filePath(name); }
    void setThree()
    {
        edit(u"cmbGoal1"_s, u"Interview"_s);
        edit(u"txtNewGoal1"_s, u"1"_s);
        edit(u"cmbGoal2"_s, u"New Contact Histories"_s);
        edit(u"txtNewGoal2"_s, u"2"_s);
        edit(u"cmbPeriod2"_s, u"Daily"_s);
        edit(u"cmbGoal3"_s, u"Parachuting"_s);
    }

private slots:
    void init()
    {
        m_bench = std::make_unique<ScreenBench>(); // 22 November 2026
        m_goals = std::make_unique<FrmGoals>(*m_bench->world.session, m_bench->navigator);
        m_goals->load();
        m_bench->run(u"INSERT INTO Position(Title,Interview) VALUES('p','11/22/2026')"_s);
    }
    void todayCountsFromTheStart()
    {
        QCOMPARE(shown(u"dtpStart dtpEnd txtDelta optWeekly optDaily"_s), u"2026-11-16|2026-11-23|7|1|0"_s);
        setThree();
        QCOMPARE(shown(u"cmbFormat1 cmbPeriod1 cmbFormat2"_s), u"All|Weekly|Status"_s);
        QCOMPARE(m_goals->form().items(u"cmbFormat2"_s), QStringList{u"Status"_s});
        m_goals->cmdRefresh1();
        QCOMPARE(shown(u"txtPercent1 txtPercent2 txtComplete txtGoals"_s), u"1|0|1|3"_s);
        QVERIFY(shown(u"lblNote3"_s).contains(u"Parachuting"_s)); // beside the row, and in no box
        QCOMPARE(m_goals->bar(1).words, u"1 of 1 wanted by now"_s);
        m_goals->holdPercent(1, true);
        QCOMPARE(shown(u"txtPercent1"_s), u"100 %"_s);
        m_goals->holdPercent(1, false);
        QCOMPARE(shown(u"txtPercent1"_s), u"1"_s);
        edit(u"txtNewGoal1"_s, u"0"_s); // neither met nor missed: the bar stays
        m_goals->cmdRefresh1();
        QVERIFY(m_goals->bar(1).isMet);
        QCOMPARE(shown(u"txtComplete txtGoals"_s), u"0|3"_s);
    }
    void rangeFollowsTheIntervalThatWasClicked()
    {
        edit(u"dtpEnd"_s, u"2026-12-01"_s); // nothing is coupled before the first click
        QCOMPARE(shown(u"dtpStart txtDelta optBiWeekly"_s), u"2026-11-16|15|1"_s);
        edit(u"optMonthly"_s, u"1"_s);
        QCOMPARE(shown(u"dtpStart dtpEnd"_s), u"2026-11-01|2026-12-01"_s);
        edit(u"dtpStart"_s, u"2026-10-01"_s);
        QCOMPARE(shown(u"dtpEnd"_s), u"2026-10-31"_s);
        m_goals->cmdUpToNow();
        QCOMPARE(shown(u"dtpStart dtpEnd"_s), u"2026-10-24|2026-11-23"_s);
        edit(u"optCustom"_s, u"1"_s);
        edit(u"dtpEnd"_s, u"2026-10-01"_s); // before the start: one day, and nothing is counted
        QCOMPARE(shown(u"dtpStart txtDelta"_s), u"2026-10-24|1"_s);
    }
    void goalsAreSavedUnderTheirWordAndComeBack()
    {
        setThree();
        m_bench->expect(u"Please select a filename before saving your goals."_s);
        m_bench->world.prompts.expectFile(u"Jobwright - Goals"_s, file(u"Mine"_s));
        m_bench->expect(u"Saved to "_s + file(u"goalsMine.jwg"_s));
        m_goals->imgSaveUp();
        QVERIFY(m_goals->mayClose());
        m_goals->load();
        QCOMPARE(shown(u"cmbGoal1 txtGoals"_s), u"|0"_s);
        m_goals->form().edit(u"txtTemplateName"_s, u"goalsMine.jwg"_s);
        m_goals->cmdLoadTemplate();
        QCOMPARE(shown(u"cmbGoal1 cmbGoal3 txtNewGoal2 cmbPeriod2 txtPercent1"_s),
                 u"Interview|Parachuting|2|Daily|1"_s);
        QCOMPARE(m_goals->caption(), u"Goals - Standard"_s);
        m_goals->imgChart();
        QCOMPARE(m_bench->navigator.opened, QStringList{u"FrmStats"_s});
    }
    void unsavedGoalsAndForeignFilesAreAskedAbout()
    {
        setThree();
        m_bench->expect(u"have not been saved"_s, Answer::Cancel);
        QVERIFY(!m_goals->mayClose());
        QFile foreign(file(u"goals-list.jwg"_s));
        QVERIFY(foreign.open(QIODevice::WriteOnly) && foreign.write("my shopping") > 0);
        foreign.close();
        edit(u"txtTemplateName"_s, u"goals-list.jwg"_s);
        m_bench->expect(u"another program"_s, Answer::No);
        m_goals->imgSaveUp();
        QCOMPARE(m_bench->world.fileText(u"goals-list.jwg"_s), u"my shopping"_s);
        m_bench->expect(u"have not been saved"_s, Answer::No);
        m_bench->expect(u"is no goals file"_s);
        m_goals->cmdLoadTemplate();
        QCOMPARE(shown(u"cmbGoal1"_s), u"Interview"_s); // the screen as before
        edit(u"txtTemplateName"_s, u"/no/such/folder/goals.jwg"_s);
        m_bench->expect(u"could not be written"_s);
        m_goals->imgSaveUp();
    }
};

JOBWRIGHT_TEST(TestFrmGoals)
#include "tst_frmgoals.moc"
