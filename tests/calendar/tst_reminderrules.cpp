// Which events are spoken of at a moment, and how urgently, around every boundary.
#include "calendar/reminderrules.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QDateTime now(QDate(2026, 11, 22), QTime(9, 30));

ReminderValues at(const QDateTime& moment, const QString& lead)
{
    return {moment.toString(u"M/d/yyyy"_s), moment.toString(u"h:mm AP"_s).section(u' ', 0, 0),
            moment.toString(u"AP"_s), lead};
}

} // namespace

class TestReminderRules : public QObject
{
    Q_OBJECT

private slots:
    /// A zone in which clocks change, wherever the test runs.
    void initTestCase() { qputenv("TZ", "America/New_York"); }
    void eventIsJudgedByHoursLeftAndLead_data()
    {
        QTest::addColumn<int>("minutes"); // from now to the event
        QTest::addColumn<QString>("lead");
        QTest::addColumn<QString>("result"); // "" when it is not spoken of
        const auto row = [](const char* name, int minutes, const QString& lead, const QString& result) {
            QTest::newRow(name) << minutes << lead << result;
        };
        row("lead 48, 30 hours: days are cut", 30 * 60, u"48"_s, u"unsel 1 dys"_s);
        row("lead 48, 24 hours: still hours, half reached", 24 * 60, u"48"_s, u"sel 24 hrs"_s);
        row("lead 48, 24:59: whole hours only", 24 * 60 + 59, u"48"_s, u"sel 24 hrs"_s);
        row("lead 48, 25 hours: above a day", 25 * 60, u"48"_s, u"unsel 1 dys"_s);
        row("lead 48, 48:59: the last minute inside", 48 * 60 + 59, u"48"_s, u"unsel 2 dys"_s);
        row("lead 48, 49 hours: outside", 49 * 60, u"48"_s, QString());
        row("lead 3, 1 hour: half of it is 1", 60, u"3"_s, u"sel 1 hrs"_s);
        row("lead 3, 2 hours: above half", 120, u"3"_s, u"unsel 2 hrs"_s);
        row("lead 1, 0 hours", 0, u"1"_s, u"Overdue 0 hrs"_s);
        row("lead 1, 59 minutes count as none", 59, u"1"_s, u"Overdue 0 hrs"_s);
        row("lead 1, 1 hour: half of it is 0", 60, u"1"_s, u"unsel 1 hrs"_s);
        row("lead 0, 1 hour", 60, u"0"_s, QString());
        row("lead 0, in this hour", 59, u"0"_s, u"Overdue 0 hrs"_s);
        row("lead 0, past", -150, u"0"_s, u"Overdue -2 hrs"_s);
        row("long past stays in hours", -50 * 60, u"0"_s, u"Overdue -50 hrs"_s);
        row("no lead", -60, QString(), u"Overdue -1 hrs"_s);
        row("lead with a fraction", 60, u"1.9"_s, u"unsel 1 hrs"_s);
        row("lead with a fraction, outside", 120, u"1.9"_s, QString());
        row("negative lead, past by less", -60, u"-3"_s, QString());
        row("negative lead, past by more", -180, u"-3"_s, u"Overdue -3 hrs"_s);
        row("a lead beyond all numbers of hours", 90 * 60, u"1e300"_s, u"sel 3 dys"_s);
        row("lead is a word", 0, u"soon"_s, u"unreadable"_s);
        row("lead is no number", 0, u"nan"_s, u"unreadable"_s);
    }

    void eventIsJudgedByHoursLeftAndLead()
    {
        QFETCH(int, minutes);
        QFETCH(QString, lead);
        QFETCH(QString, result);
        const auto verdict = ReminderRules(now).judge(at(now.addSecs(60 * minutes), lead));
        if (result == u"unreadable") {
            QVERIFY(!verdict);
            return;
        }
        QVERIFY(verdict);
        QCOMPARE(verdict->inTime, !result.isEmpty());
        QCOMPARE(ReminderRules::isInTime(*verdict, now), verdict->inTime);
        if (verdict->inTime)
            QCOMPARE(QString(verdict->urgency() + u' ' + verdict->timeLeft()), result);
    }

    void momentIsReadFromDateTimeAndHalf_data()
    {
        QTest::addColumn<QString>("date");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("ampm");
        QTest::addColumn<QString>("moment"); // "" when it cannot be read
        const QString day = u"11/20/2026"_s;
        QTest::newRow("morning") << day << u"9:05"_s << u"AM"_s << u"2026-11-20 09:05"_s;
        QTest::newRow("noon") << day << u"12:30"_s << u"PM"_s << u"2026-11-20 12:30"_s;
        QTest::newRow("midnight") << day << u"12:30"_s << u"AM"_s << u"2026-11-20 00:30"_s;
        QTest::newRow("24-hour clock") << day << u"14:30"_s << QString() << u"2026-11-20 14:30"_s;
        QTest::newRow("blanks") << day << u" 9:05 "_s << u" pm"_s << u"2026-11-20 21:05"_s;
        QTest::newRow("day alone") << day << QString() << QString() << u"2026-11-20 00:00"_s;
        QTest::newRow("no date") << QString() << u"9:05"_s << u"AM"_s << u"1899-12-30 09:05"_s;
        QTest::newRow("summer time skips it")
            << u"3/14/2027"_s << u"2:30"_s << u"AM"_s << u"2027-03-14 02:30"_s;
        QTest::newRow("as stored") << u"2026-11-20"_s << u"9:05"_s << u"PM"_s << u"2026-11-20 21:05"_s;
        QTest::newRow("words") << day << u"noon"_s << u"PM"_s << QString();
        QTest::newRow("no such time") << day << u"25:00"_s << QString() << QString();
        QTest::newRow("no such half") << day << u"9:05"_s << u"XM"_s << QString();
        QTest::newRow("a half without a time") << day << QString() << u"AM"_s << QString();
        QTest::newRow("two times") << u"11/20/2026 2:05:00 PM"_s << u"9:05"_s << u"AM"_s << QString();
        QTest::newRow("no such day") << u"2/30/2026"_s << u"9:05"_s << u"AM"_s << QString();
        QTest::newRow("endless") << day << QString(100000, u'9') << u"AM"_s << QString();
    }

    void momentIsReadFromDateTimeAndHalf()
    {
        QFETCH(QString, date);
        QFETCH(QString, time);
        QFETCH(QString, ampm);
        QFETCH(QString, moment);
        const auto verdict = ReminderRules(now).judge({date, time, ampm, u"0"_s});
        QCOMPARE(verdict ? verdict->moment.toString(u"yyyy-MM-dd HH:mm"_s) : QString(), moment);
    }

    void eventWithoutTimeStandsWhereTheOneBeforeItStood()
    {
        ReminderRules rules(now);
        const ReminderValues nodate{u"11/30/2026"_s, u"Nodate"_s, u"AM"_s, u"2"_s};
        const auto first = rules.judge(nodate);
        QCOMPARE(first->moment.date(), QDate(1899, 12, 30));
        QCOMPARE(first->urgency(), u"Overdue"_s);
        QVERIFY(rules.judge(at(now.addSecs(2 * 3600), u"0"_s)));
        const auto second = rules.judge(nodate);
        QCOMPARE(second->hours, 2);
        QCOMPARE(second->urgency(), u"unsel"_s);
    }
};

QTEST_APPLESS_MAIN(TestReminderRules)
#include "tst_reminderrules.moc"
