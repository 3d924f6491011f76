// Rules: their statements, what they count on a real store, and what happens to wrong ones.
#include "planning/catalogue.h"
#include "support/campaign.h"
#include "support/runtest.h"

#include <QTest>

namespace {

Objective rule(const QString& type, const QString& text)
{
    Objective objective;
    objective.objName = u"measure"_s;
    objective.objCategory = u"research"_s;
    objective.objType = type;
    objective.objRule = text;
    return objective;
}

const QDate from(2026, 6, 1);
const QDate to(2026, 6, 30);

} // namespace

class TestObjectives : public QObject
{
    Q_OBJECT

private slots:
    void ruleBecomesStatementAndCount_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("result");
        QTest::newRow("between") << u"counter"_s << u"Position,PositionKey,BETWEEN,Hired,x"_s
                                 << u"Select Count(PositionKey) FROM Position WHERE Hired BETWEEN #6/1/2026# "
                                    "AND #6/30/2026#"_s
                                 << u"2"_s;
        QTest::newRow("further condition")
            << u"Counter"_s << u"History,/Topic='Call',between,ContactDate,x"_s
            << u"Select Count(*) FROM History WHERE ContactDate BETWEEN #6/1/2026# AND #6/30/2026# AND "
               "Topic='Call'"_s
            << u"1"_s;
        QTest::newRow("value") << u"counter"_s << u"Target,Rank,GE,2,x"_s
                               << u"Select Count(Rank) FROM Target WHERE Rank>='2'"_s << u"1"_s;
        QTest::newRow("no operator") << u"counter"_s << u"Company,Name,le,Z,x"_s
                                     << u"Select Count(Name) FROM Company"_s << u"2"_s;
        QTest::newRow("join") << u"JoinCounter"_s << u"Company,CompanyKey,BETWEEN,Expires,Position"_s
                              << u"Select Count(Company.CompanyKey) FROM Company INNER JOIN Position ON "
                                 "Company.CompanyKey=Position.CompanyKey WHERE Position.Expires BETWEEN "
                                 "#6/1/2026# AND #6/30/2026#"_s
                              << u"0"_s;
        QTest::newRow("other kind") << u"sum"_s << u"a,b,c,d,e"_s << QString() << QString();
    }
    void ruleBecomesStatementAndCount()
    {
        QFETCH(QString, type);
        QFETCH(QString, text);
        World world;
        loadCampaign(world);
        QTEST(rule(type, text).statement(from, to), "statement");
        const Measured measured = rule(type, text).parseCounter(*world.session, from, to);
        QTEST(measured.result, "result");
        QCOMPARE(measured.problem, QString());
    }
    void refusedRuleSaysWhyAndShowsNoBox_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("problem");
        QTest::newRow("unknown column") << u"Position,/Medium=1,BETWEEN,SentResume,x"_s << u"Medium"_s;
        QTest::newRow("slash without a day") << u"Position,/x,EQ,1,x"_s << u"="_s;
        QTest::newRow("quote") << u"Company,Name,EQ,O'Hara,x"_s << u"quote"_s;
        QTest::newRow("too few fields") << u"Company,Name,EQ,Zenith"_s << u"fewer than five"_s;
    }
    void refusedRuleSaysWhyAndShowsNoBox()
    {
        QFETCH(QString, text);
        QFETCH(QString, problem);
        World world;
        const Measured measured = rule(u"counter"_s, text).parseCounter(*world.session, from, to);
        QCOMPARE(measured.result, QString());
        QVERIFY2(measured.problem.contains(problem), qPrintable(measured.problem));
    }
    void ratiosAndAverages()
    {
        World world;
        loadCampaign(world);
        const Objective two = rule(u"counter"_s, u"Position,PositionKey,BETWEEN,Hired,x"_s);
        const Objective four = rule(u"counter"_s, u"History,ContactKey,BETWEEN,ContactDate,x"_s);
        const Objective none = rule(u"counter"_s, u"Event,EventKey,BETWEEN,EventDate,x"_s);
        Session& session = *world.session;
        QCOMPARE(Objective::parseRatio(session, two, four, from, to).result, u"0.50"_s);
        QCOMPARE(Objective::parseRatio(session, two, none, from, to).result, u"0.00"_s);
        QCOMPARE(Objective::parseAverage(session, four, from, to).result, u"0.14"_s); // 4 in 29 days
        QCOMPARE(Objective::parseAverage(session, four, from, from).result, u"0.00"_s);
        const Catalogue catalogue =
            Catalogue::parse({u"Research:Hires:Any:Position:PositionKey:BETWEEN:Hired:x:counter"_s,
                              u"generation:Talks:Any:History:ContactKey:BETWEEN:ContactDate:x:counter"_s,
                              u"research:Twice:Same:Hires:Hires:x:x:x:Ratio"_s,
                              u"research:Lost:Other:Hires:Talks:x:x:x:ratio"_s});
        const auto& research = catalogue.objectives(0);
        QCOMPARE(catalogue.measure(session, research[1], from, to).result, u"1.00"_s);
        const Measured lost = catalogue.measure(session, research[2], from, to); // of another category
        QCOMPARE(lost.result, QString());
        QVERIFY(lost.problem.contains(u"Talks"_s));
    }
    void catalogueTakesAHundredOfACategory()
    {
        QStringList lines{u"# other"_s, u"conversion:cut off"_s};
        for (int i = 0; i < 101; ++i)
            lines << u"RESEARCH:m%1:d:Company:Name:EQ:x:x:counter"_s.arg(i);
        const Catalogue catalogue = Catalogue::parse(lines);
        QCOMPARE(catalogue.objectives(0).size(), 100U);
        QCOMPARE(catalogue.problems().size(), 2);
        QCOMPARE(catalogue.objectives(0).front().objRule, u"Company,Name,EQ,x,x"_s);
    }
};

JOBWRIGHT_TEST(TestObjectives)
#include "tst_objectives.moc"
