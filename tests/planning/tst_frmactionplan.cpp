// The action plan: slots, counting, files; and the statistics' lines and chart.
#include "planning/frmactionplan.h"
#include "planning/frmstats.h"
#include "support/campaign.h"
#include "support/runtest.h"
#include "support/screenbench.h"

#include <QTest>

class TestFrmActionPlan : public QObject
{
    Q_OBJECT

    std::unique_ptr<ScreenBench> m_bench;
    std::unique_ptr<FrmActionPlan> m_plan;

    [[nodiscard]] QString shown(const QString& controls) const { return shownIn(m_plan->form(), controls); }
    [[nodiscard]] QString names(int phase) const
    {
        QStringList names;
        for (int slot = 0; slot < PlanPhase::slotCount; ++slot)
            names << m_plan->imgTM(phase * PlanPhase::slotCount + slot).name;
        return names.join(u'|');
    }
    void edit(const QString& control, const QString& text)
    {
        m_plan->form().edit(control, text);
        m_plan->fieldChanged(control);
    }
    [[nodiscard]] QString file(const QString& name) const { return m_bench->world.folder.filePath(name); }
    void write(const QString& name, const QByteArray& bytes)
    {
        QFile out(file(name));
        QVERIFY(out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size());
    }

private slots:
    void init()
    {
        m_bench = std::make_unique<ScreenBench>(QDateTime(QDate(2026, 6, 15), QTime(9, 0)));
        loadCampaign(m_bench->world);
        write(u"objectives.jwd"_s, "research:Hires:Hire them:Position:PositionKey:BETWEEN:Hired:x:counter\n"
                                   "conversion:Talks:Talk:History:ContactKey:BETWEEN:ContactDate:x:counter\n"
                                   "conversion:Rate:Better:Talks:Lost:x:x:x:ratio\n"
                                   "conversion:Daily:Often:Talks:x:x:x:x:average\n");
        m_plan = std::make_unique<FrmActionPlan>(*m_bench->world.session);
        m_plan->load();
        edit(u"dtpTM1Start"_s, u"2026-06-01"_s);
        edit(u"dtpTM1End"_s, u"2026-06-30"_s);
    }
    void measuresFillTheNextFreeSlot()
    {
        for (int i = 0; i < 6; ++i) // the sixth finds the phase full
            m_plan->addMeasure(0, i % 2 * 3, 0);
        QCOMPARE(names(0), u"Hires|Talks|Hires|Talks|Hires"_s);
        m_bench->expect(u"Delete objective?"_s, Answer::No);
        m_plan->imgTMDblClick(1);
        m_bench->expect(u"Delete objective?"_s, Answer::Yes);
        m_plan->imgTMDblClick(1);
        QCOMPARE(names(0), u"Hires|Hires|Talks|Hires|"_s);
        m_plan->imgTMDblClick(4); // free: nothing to ask
    }
    void clickCountsAgainstTheThreshold()
    {
        m_plan->addMeasure(0, 3, 0);
        m_plan->addMeasure(0, 3, 1);
        m_plan->addMeasure(0, 3, 2);
        m_plan->imgTMClick(0);
        QCOMPARE(shown(u"txtSD1 txtResult1 txtObjective1 txtCMethod"_s), u"Talks|4|1|Talk"_s);
        QVERIFY(m_plan->imgTM(0).mark == PlanSlot::Mark::Reached);
        edit(u"txtObjective1"_s, u"4.5"_s);
        QCOMPARE(m_plan->imgTM(0).result, u"4 of 4.5"_s);
        QVERIFY(m_plan->imgTM(0).mark == PlanSlot::Mark::Missed);
        m_plan->imgTMClick(1); // names a measure that is not there
        QCOMPARE(shown(u"txtResult1"_s), QString());
        QVERIFY(shown(u"lblStatus"_s).contains(u"Lost"_s));
        m_plan->imgTMClick(2);
        QCOMPARE(shown(u"txtResult1"_s), u"0.14"_s);
        edit(u"dtpTM1End"_s, u"2026-06-01"_s); // what was counted is no longer so, and the end moves on
        QCOMPARE(shown(u"txtResult1 dtpTM1End"_s), u"|2026-06-02"_s);
    }
    void barCountsTheDaysWhileTodayLiesInside()
    {
        QCOMPARE(m_plan->bar(0).max, 30);
        QCOMPARE(m_plan->bar(0).value, 14);
        edit(u"dtpTM1End"_s, u"2026-06-15"_s);
        QCOMPARE(m_plan->bar(0).value, 1);
        edit(u"cmbPhases"_s, u"2"_s);
        QVERIFY(m_plan->form().isVisible(u"frmeTimeFrame1"_s) &&
                !m_plan->form().isVisible(u"frmeTimeFrame2"_s));
    }
    void planIsSavedAndComesBack()
    {
        edit(u"cmbPhases"_s, u"2"_s);
        m_plan->addMeasure(0, 3, 0);
        m_plan->addMeasure(1, 0, 0);
        m_plan->imgTMClick(5);
        edit(u"txtObjective2"_s, u"0"_s);
        m_bench->expect(u"Without a threshold above 0 a measure is not read back from the file: Hires"_s,
                        Answer::Yes);
        m_bench->world.prompts.expectFile(u"Jobwright - Objectives"_s, file(u"plan1"_s));
        m_bench->expect(u"Saved file "_s + file(u"objplan1.jwg"_s));
        m_plan->cmdSavePlan1();
        m_plan->load();
        QCOMPARE(names(0), u"||||"_s);
        QVERIFY(m_plan->loadFile(file(u"objplan1.jwg"_s)));
        QCOMPARE(names(0) + u' ' + names(1), u"Talks|||| ||||"_s); // the second was saved, and is dropped
        QVERIFY(shown(u"lblStatus"_s).endsWith(u": 1."_s));
        QCOMPARE(m_plan->imgTM(0).category, 3);
        edit(u"cmbPhases"_s, u"1"_s);
        m_bench->expect(u"has not been saved"_s, Answer::No);
        m_plan->cmdClear1();
        QVERIFY(m_plan->mayClose());
    }
    void damagedPlansLeaveTheScreenAsItWas()
    {
        m_plan->addMeasure(0, 0, 0);
        m_bench->expect(u"Unable to locate "_s);
        QVERIFY(!m_plan->loadFile(file(u"objnone.jwg"_s)));
        write(u"objcut.jwg"_s, "1\nTM1\n06/01/2026\n");
        m_bench->expect(u"cut off"_s);
        QVERIFY(!m_plan->loadFile(file(u"objcut.jwg"_s)));
        QCOMPARE(names(0), u"Hires||||"_s);
        write(u"objmark.jwg"_s, "1\nTM3\n06/01/2026\n06/30/2026\n::0\n::0\n::0\n::0\nconversion:Talks:2\n");
        m_bench->expect(u"File Parse Error, Obj file may have been corrupted."_s);
        QVERIFY(m_plan->loadFile(file(u"objmark.jwg"_s)));
        QCOMPARE(names(0), u"Talks||||"_s);
    }
    void statisticsInLinesAndBars()
    {
        FrmStats stats(*m_bench->world.session);
        GoalChart goals;
        goals[2] = {u"Interview"_s, 130.456, u"Monthly"_s};
        stats.setGoals(goals);
        stats.load();
        QCOMPARE(stats.form().text(u"txtStats"_s).split(u'\n').mid(0, 4),
                 QStringList({u"Addresses: 2  <>  Contacts: 5  <>  Companies: 2  <>  Positions: 3"_s,
                              u"History: 4  <>  Events: 2  <>  User Profiles: 1  <>  Documents: 2"_s,
                              u"History to Contact Ratio: 0.8"_s, u"Average Positions/Company: 1.5"_s}));
        QCOMPARE(stats.mscGoals().points.size(), 1U);
        QCOMPARE(stats.mscGoals().points[0].up, 100.0);
        stats.choosePoint(0);
        QCOMPARE(stats.form().text(u"txtValue"_s), u"Monthly Interview 130.46 %  "_s);
    }
    void emptyStoreHasNoQuotients()
    {
        World world;
        FrmStats stats(*world.session);
        stats.load();
        QVERIFY(
            stats.form()
                .text(u"txtStats"_s)
                .contains(u"Ratio: \nAverage Positions/Company: \nFirst Entry Date: \nDays in Use: 0\n"_s));
        QVERIFY(!stats.form().text(u"txtValue"_s).isEmpty()); // where goals are set
        send(world, {u"INSERT INTO Company(Name) VALUES('Undated')"_s,
                     u"INSERT INTO Company(Name,EntryDate) VALUES('Dated','11/2/2026')"_s});
        stats.load();
        QVERIFY(stats.form().text(u"txtStats"_s).contains(u"Days in Use: 20\n"_s));
    }
};

JOBWRIGHT_TEST(TestFrmActionPlan)
#include "tst_frmactionplan.moc"
