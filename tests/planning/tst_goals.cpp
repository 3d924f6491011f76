// Goals counted on a real store: paces, bounds, media, and what cannot be counted.
#include "base/numbers.h"
#include "planning/goals.h"
#include "support/campaign.h"
#include "support/runtest.h"

#include <QTest>

namespace {

GoalResult judged(World& world, const GoalRow& row, QDate start = {2026, 6, 1}, QDate end = {2026, 6, 8})
{
    GoalSet set{start, end, {}, {}};
    set.rows[4] = row;
    return goals::compute(*world.session, set).rows[4];
}

} // namespace

class TestGoals : public QObject
{
    Q_OBJECT

private slots:
    void paceAgainstTarget_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("period");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("percent");
        QTest::newRow("behind") << u"1"_s << u"Daily"_s << 696 << u"71.43"_s;
        QTest::newRow("far ahead") << u"1"_s << u"Weekly"_s << 975 << u"500.00"_s;
        QTest::newRow("exactly on pace") << u"5"_s << u"Weekly"_s << 975 << u"100.00"_s;
        QTest::newRow("custom is a day") << u"2"_s << u"Custom"_s << 348 << u"35.71"_s;
        QTest::newRow("no number") << u"many"_s << u"Daily"_s << 0 << u"71.43"_s;
        QTest::newRow("negative") << u"-1"_s << u"Daily"_s << 975 << u"-71.43"_s;
    }
    void paceAgainstTarget()
    {
        QFETCH(QString, target);
        QFETCH(QString, period);
        World world;
        for (int day = 1; day <= 8; ++day) // the first and the last day do not count, nor does a missing date
            send(world,
                 {u"INSERT INTO Position(Title,Interview,InterviewMedium) VALUES ('p','6/%1/2026',%2)"_s
                      .arg(day == 4 ? 3 : day)
                      .arg(day == 2 ? 5 : 1)});
        send(world, {u"INSERT INTO Position(Title) VALUES ('none')"_s,
                     u"Delete * from Position where Interview=#6/7/2026#"_s});
        const GoalRow row{u"Interview"_s, u"All"_s, target, period};
        const GoalResult result = judged(world, row);
        QCOMPARE(int(result.count), 5);
        QTEST(qRound(result.barWidth), "width");
        QTEST(numbers::fixed(result.percent, 2), "percent");
        QCOMPARE(int(judged(world, {u"Interview"_s, u"Phone"_s, {}, {}}).count), 1); // code 5
    }
    void namesAndTables()
    {
        World world;
        loadCampaign(world);
        const QDate end(2026, 7, 1);
        const QList<std::pair<QString, int>> counts{{u"Offers"_s, 1}, // of June 15; the other is of the first
                                                    {u"New Companies"_s, 0},
                                                    {u"New Contacts"_s, 2},
                                                    {u"New Contact Histories"_s, 4},
                                                    {u"Hours Working"_s, 1}};
        for (const auto& [name, count] : counts)
            QCOMPARE(int(judged(world, {name, {}, u"1"_s, {}}, QDate(2026, 6, 1), end).count), count);
        // An end before its start finds nothing and counts as one day.
        QCOMPARE(judged(world, {u"Offers"_s, {}, u"1"_s, {}}, end, QDate(2026, 6, 1)).wanted, 1.0);
        QVERIFY(judged(world, {u"Parachuting"_s, u"All"_s, u"1"_s, {}}).problem.contains(u"Parachuting"_s));
    }
};

JOBWRIGHT_TEST(TestGoals)
#include "tst_goals.moc"
