// Goals files and plans: as written, and as found damaged.
#include "base/textlines.h"
#include "planning/goalsfile.h"
#include "planning/plan.h"
#include "support/runtest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

GoalSet someGoals()
{
    GoalSet set{QDate(2026, 11, 16), QDate(2026, 11, 23), u"Standard"_s, {}};
    set.rows[0] = {u"Interview"_s, u"All"_s, u"2"_s, u"Monthly"_s};
    set.rows[8] = {u"New Contacts"_s, u"Status"_s, u"five"_s, u"Weekly"_s};
    return set;
}

QStringList planOf(const QStringList& slotLines, const QString& mark = u"TM1"_s)
{
    return QStringList{u"1"_s, mark, u"11/02/2026"_s, u"11/30/2026"_s} + slotLines;
}

} // namespace

class TestPlanningFiles : public QObject
{
    Q_OBJECT

private slots:
    void goalsComeBackFromTheirLines()
    {
        QStringList lines = goalsfile::compose(someGoals(), u"2"_s);
        QCOMPARE(lines.size(), 49);
        QCOMPARE(lines.mid(0, 8), QStringList({u"11/16/2026"_s, u"11/23/2026"_s, u"Standard"_s,
                                               u"Interview"_s, u"All"_s, u"2"_s, u"Monthly"_s, u"#"_s}));
        QVERIFY(lines.back().startsWith(u"2 "_s) && lines.back().endsWith(u" - Goals Template Jobwright"_s));
        QCOMPARE(*goalsfile::parse(lines, {}).set, someGoals());
        lines[7] = u"wrong"_s; // read at the same pace
        QCOMPARE(goalsfile::parse(lines, {}).wrongBlocks, 1);
        QCOMPARE(*goalsfile::parse(lines, {}).set, someGoals());
        QVERIFY(goalsfile::parse(lines.mid(0, 48), {}).set); // the closing line says nothing
        QVERIFY(!goalsfile::parse(lines.mid(0, 47), {}).set);
        QVERIFY(!goalsfile::parse(lines.mid(1), {}).set);
    }
    void planKeepsWhatHasAThreshold()
    {
        const QStringList measures{u"Research:A:2.5"_s, u"research:B:0"_s, u"other:C:x"_s,
                                   u"conversion:D:1"_s, u"::0"_s};
        const auto contents = planfile::parse(planOf(measures), {});
        const auto& kept = contents.plan->phase[0].measures;
        QCOMPARE(kept.size(), 2U);
        QCOMPARE(kept[1].objName, u"D"_s); // in the slot that B would have had
        QCOMPARE(contents.dropped, 2);
        QCOMPARE(planfile::compose(*contents.plan),
                 planOf({u"research:A:2.5"_s, u"conversion:D:1"_s, u"::0"_s, u"::0"_s, u"::0"_s}));
        const auto marked = planfile::parse(planOf(measures, u"TM2"_s), {});
        QVERIFY(marked.wrongMark && marked.plan->phase[0].measures.size() == 2U);
        QVERIFY(!planfile::parse(planOf(measures.mid(1)), {}).plan);
        QVERIFY(!planfile::parse({u"4"_s}, {}).plan);
    }
    void foreignBytesAreRefusedInWords_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("problem");
        QTest::newRow("binary") << QByteArray("a\0b", 3) << u"no text file"_s;
        QTest::newRow("long line") << QByteArray(5000, 'x') << u"Line 1"_s;
        QTest::newRow("many lines") << QByteArray(100000, '\n') << u"too many lines"_s;
        QTest::newRow("large") << QByteArray(2 << 20, 'x') << u"too large"_s;
        QTest::newRow("other ends") << QByteArray("a\r\nb\rc\xe9\n") << QString();
    }
    void foreignBytesAreRefusedInWords()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, problem);
        const TextLines read = textlines::parse(bytes, u"f"_s);
        QVERIFY2(read.problem.contains(problem), qPrintable(read.problem));
        QCOMPARE(read.lines, problem.isEmpty() ? QStringList({u"a"_s, u"b"_s, u"cé"_s}) : QStringList());
    }
};

JOBWRIGHT_TEST(TestPlanningFiles)
#include "tst_planningfiles.moc"
