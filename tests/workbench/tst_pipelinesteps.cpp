// The rules of the campaign's steps, on rows of a real store.
#include "support/table.h"
#include "workbench/bench.h"
#include "workbench/pipelinesteps.h"

class TestPipelineSteps : public QObject
{
    Q_OBJECT

private slots:
    void furthestStepDoneCounts_data()
    {
        columns<QString, QString, int, QString>("columns", "values", "progress", "next");
        const QString first = u"Research Company & Profile"_s;
        QTest::newRow("nothing stored") << u"Title"_s << u"'x'"_s << 0 << first;
        QTest::newRow("gaps below") << u"PrepareResume"_s << u"'10/5/2026'"_s << 6
                                    << u"Send/Give Cover Letter & Resume"_s;
        QTest::newRow("sentinel day") << u"CompanyResearch,Hired"_s << u"'9/2/2026','12/31/1999'"_s << 1
                                      << u"Research Position & Profile"_s;
        QTest::newRow("before the sentinel") << u"Interview"_s << u"'5/1/1995'"_s << 0 << first;
        QTest::newRow("the day after")
            << u"Response"_s << u"'1/1/2000'"_s << 8 << u"Establish Interview, Practice/Prepare"_s;
        QTest::newRow("one before the last") << u"FollowUp"_s << u"'11/5/2026'"_s << 10 << QString();
        QTest::newRow("offer") << u"Hired"_s << u"'11/5/2026'"_s << 11 << QString();
    }
    void furthestStepDoneCounts()
    {
        FETCH(QString, columns, values);
        Bench bench;
        bench.run(u"Insert into Position("_s + columns + u") Values(" + values + u')');
        const PipelineSteps steps(bench.data().getPositionByKey(1));
        QTEST(steps.progress(), "progress");
        QTEST(steps.getNextStep(), "next");
    }

    void tagBecomesTheCodeOfItsStep()
    {
        // Tag, code for the two research steps, code for the others.
        const QList<std::tuple<QString, int, int>> codes{
            {QString(), 0, 0},     {u"Pigeon"_s, 0, 0},  {u"Internet"_s, 4, 1},
            {u"Fax"_s, 2, 2},      {u"Phone"_s, 3, 3},   {u"Post"_s, 4, 4},
            {u"Research"_s, 5, 5}, {u"Meeting"_s, 6, 6}, {u"Other"_s, 0, 7}};
        for (const auto& [tag, research, others] : codes) {
            for (int index = 0; index < PipelineSteps::count; ++index)
                QCOMPARE(PipelineSteps::getIndexMedium(index, tag), index < 2 ? research : others);
            if (others > 0)
                QCOMPARE(PipelineSteps::mediumTag(others), tag);
        }
        for (const int code : {-1, 0, 8})
            QVERIFY(PipelineSteps::mediumTag(code).isEmpty());
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
};

QTEST_GUILESS_MAIN(TestPipelineSteps)
#include "tst_pipelinesteps.moc"
