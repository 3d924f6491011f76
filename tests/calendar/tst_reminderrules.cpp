// Which events are spoken of at a moment, and how urgently, around every boundary.
#include "calendar/reminderrules.h"
#include "support/runtest.h"
#include "support/table.h"

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
        // minutes from now to the event; no result: it is not spoken of
        columns<int, QString, QString>("minutes", "lead", "result");
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
        FETCH(QString, lead, result);
        const auto verdict = ReminderRules(now).judge(at(now.addSecs(60LL * minutes), lead));
        if (result == u"unreadable") {
            QVERIFY(verdict && verdict->isUnreadable);
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
        columns<QString, QString>("values", "moment"); // date, time and half; "" when unreadable
        const auto row = [](const char* name, const QString& values, const QString& moment) {
            QTest::newRow(name) << values << moment;
        };
        row("morning", u"11/20/2026|9:05|AM"_s, u"2026-11-20 09:05"_s);
        row("noon", u"11/20/2026|12:30|PM"_s, u"2026-11-20 12:30"_s);
        row("midnight", u"11/20/2026|12:30|AM"_s, u"2026-11-20 00:30"_s);
        row("24-hour clock", u"11/20/2026|14:30|"_s, u"2026-11-20 14:30"_s);
        row("blanks", u"11/20/2026| 9:05 | pm"_s, u"2026-11-20 21:05"_s);
        row("day alone", u"11/20/2026||"_s, u"2026-11-20 00:00"_s);
        row("no date", u"|9:05|AM"_s, u"1899-12-30 09:05"_s);
        row("summer time skips it", u"3/14/2027|2:30|AM"_s, u"2027-03-14 02:30"_s);
        row("as stored", u"2026-11-20|9:05|PM"_s, u"2026-11-20 21:05"_s);
        row("an hour alone", u"11/20/2026|9:|PM"_s, u"2026-11-20 21:00"_s);
        row("24-hour clock with a half", u"11/20/2026|14:30|PM"_s, u"2026-11-20 14:30"_s);
        row("no time of day, but a half", u"11/20/2026||AM"_s, u"2026-11-20 00:00"_s);
        row("no such date", u"2/30/2026|9:05|AM"_s, {});
        row("endless", u"11/20/2026|"_s + QString(100000, u'9') + u"|AM", u"2026-11-20 00:00 ?"_s);
        for (const QString& odd : {u"11/20/2026|noon|PM"_s, u"11/20/2026|25:00|"_s})
            row(qPrintable(odd), odd, u"2026-11-20 00:00 ?"_s);
    }
    void momentIsReadFromDateTimeAndHalf()
    {
        QFETCH(QString, values);
        const auto part = [&values](int i) { return values.section(u'|', i, i); };
        const auto verdict = ReminderRules(now).judge({part(0), part(1), part(2), u"0"_s});
        const QString mark = verdict && verdict->isUnreadable ? u" ?"_s : QString();
        QTEST(verdict ? QString(verdict->moment.toString(u"yyyy-MM-dd HH:mm"_s) + mark) : QString(),
              "moment");
    }

    void eventWithoutTimeStandsWhereTheOneBeforeItStood()
    {
        ReminderRules rules(now);
        const ReminderValues nodate{u"11/30/2026"_s, u"Nodate"_s, u"AM"_s, u"2"_s};
        const auto first = rules.judge(nodate);
        QCOMPARE(first->moment.date(), QDate(1899, 12, 30));
        QCOMPARE(first->urgency(), u"Overdue"_s);
        QVERIFY(rules.judge(at(now.addSecs(2LL * 3600), u"0"_s)));
        const auto second = rules.judge(nodate);
        QCOMPARE(second->hours, 2);
        QCOMPARE(second->urgency(), u"unsel"_s);
    }
};

JOBWRIGHT_TEST(TestReminderRules)
#include "tst_reminderrules.moc"
