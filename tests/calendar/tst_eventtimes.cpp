// Times, lengths and lead times, as lists offer them and as people type them.
#include "calendar/eventchoices.h"
#include "calendar/eventtimes.h"
#include "support/runtest.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

class TestEventTimes : public QObject
{
    Q_OBJECT

private slots:
    void reminderTextsAndHours_data()
    {
        columns<QString, int, QString>("text", "hours", "back");
        const auto row = [](const QString& text, int hours, const QString& back) {
            QTest::newRow(qPrintable(text.left(20))) << text << hours << back;
        };
        row(u"24 hrs"_s, 24, u"24 hrs"_s);
        row(u"1.25 dys"_s, 30, u"1.25 dys"_s);
        row(u"7 dys"_s, 168, u"7 dys"_s);
        row(u"10 dys"_s, 240, u"1 wks"_s); // above seven days only whole weeks are told
        row(u"4 wks"_s, 672, u"4 wks"_s);
        row(u" 2  DYS "_s, 48, u"2 dys"_s);
        row(u"3hrs"_s, 3, u"3 hrs"_s);
        for (const QString& hostile :
             {u""_s, u"hrs"_s, u"2"_s, u"two dys"_s, u"-3 hrs"_s, u"nan hrs"_s, u"inf wks"_s, u"2 days"_s,
              u"1 2 hrs"_s, u"0x10 hrs"_s, u"\u0663 hrs"_s, QString(5000, u'9')})
            row(hostile, 0, {});
        row(u"1e300 wks"_s, 32767, u"195 wks"_s);
    }
    void reminderTextsAndHours()
    {
        QFETCH(QString, text);
        QFETCH(int, hours);
        QCOMPARE(eventtimes::hoursOf(text), hours);
        QTEST(eventtimes::reminderText(hours), "back");
        QCOMPARE(eventtimes::isReminder(text), hours > 0);
    }

    void everyLeadTimeOfAWeekComesBackUnchanged()
    {
        for (int hours = 0; hours <= 168; ++hours)
            QCOMPARE(eventtimes::hoursOf(eventtimes::reminderText(hours)), hours);
    }

    /// Every half hour but the two of twelve o'clock against the clock of the library, for lengths up to two
    /// hours and odd ones.
    void endTimesFollowTheClock()
    {
        for (const QString& start : eventchoices::times()) {
            if (start.startsWith(u"12"))
                continue;
            for (const QString& half : {u"AM"_s, u"PM"_s}) {
                for (const double hours : {.5, 1.0, 1.5, 2.0, 0.75, 1.0 / 3}) {
                    const QTime from = QLocale::c().toTime(QString(start + u' ' + half), u"h:mm AP"_s);
                    const QTime to = from.addSecs(qRound(hours * 60) * 60);
                    // Midnight itself is read as the second noon of the day.
                    const QString expected = to == QTime(0, 0) ? u"12:00 /PM"_s : to.toString(u"h:mm /AP"_s);
                    const QString end = eventtimes::getEndTime(start, hours, half);
                    QCOMPARE(end, expected);
                    if (to > from)
                        QCOMPARE(eventtimes::duration(start, half, end.section(u' ', 0, 0), end.right(2)),
                                 QString::number(qRound(hours * 60) / 60.0, 'g', 15));
                }
            }
        }
    }

    void twelveOClockCountsAsTwelveHours_data()
    {
        columns<QString, QString, double, QString>("start", "half", "hours", "end");
        QTest::newRow("half past midnight") << u"12:30"_s << u"AM"_s << 1.0 << u"1:30 /PM"_s;
        QTest::newRow("half past noon") << u"12:30"_s << u"PM"_s << 1.0 << u"1:30 /AM"_s;
        QTest::newRow("noon, no time") << u"12:00"_s << u"PM"_s << 0.0 << u"12:00 /PM"_s;
        QTest::newRow("empty minute") << u"9:"_s << u"AM"_s << 1.0 << u"10:00 /AM"_s;
        QTest::newRow("a whole day") << u"9:00"_s << u"PM"_s << 24.0 << u"21:00 /AM"_s;
        for (const QString& none :
             {u""_s, u"Nodate"_s, u"nine"_s, u"9:75"_s, u"99:00"_s, u"-1:00"_s, u"9:00:00"_s})
            QTest::newRow(qPrintable(none + u'!')) << none << u"AM"_s << 1.0 << QString();
        QTest::newRow("endless") << u"9:00"_s << u"AM"_s << qInf() << u"32752:00 /AM"_s;
        QTest::newRow("negative") << u"9:00"_s << u"AM"_s << -3.0 << u"9:00 /AM"_s;
    }
    void twelveOClockCountsAsTwelveHours()
    {
        FETCH(QString, start, half);
        QFETCH(double, hours);
        QTEST(eventtimes::getEndTime(start, hours, half), "end");
    }

    void durations_data()
    {
        columns<QString, QString>("times", "expected");
        QTest::newRow("over noon") << u"11:30 AM 1:00 PM"_s << u"1.5"_s;
        QTest::newRow("from half past midnight") << u"12:30 AM 1:30 PM"_s << u"1"_s;
        QTest::newRow("backwards") << u"2:00 PM 1:00 PM"_s << u"0"_s;
        QTest::newRow("twenty minutes") << u"9:00 AM 9:20 AM"_s << u"0.333333333333333"_s;
        for (const QString& odd : {u" AM 9:20 AM"_s, u"9:00 AM  AM"_s, u"9:00 AM later AM"_s})
            QTest::newRow(qPrintable(odd)) << odd << u"0"_s;
    }
    void durations()
    {
        QFETCH(QString, times);
        const QStringList parts = times.split(u' ');
        QTEST(eventtimes::duration(parts[0], parts[1], parts[2], parts[3]), "expected");
    }

    void typedTimes_data()
    {
        columns<QString, QString>("typed", "expected"); // in the afternoon with a "p"
        for (const QString& pair :
             {u"9=9:00"_s, u" 9:5 =9:05"_s, u"14:30=2:30p"_s, u"0:15=12:15"_s, u"12:15=12:15"_s,
              u"2pm=2:00p"_s, u"2:30 P.M.=2:30p"_s, u"11 a=11:00"_s, u"="_s, u"24:00="_s, u"9:60="_s,
              u"noon="_s, u"930="_s, u"pm="_s, u"9.30="_s, u"9:00; Delete="_s})
            QTest::newRow(qPrintable(pair)) << pair.section(u'=', 0, 0) << pair.section(u'=', 1);
    }
    void typedTimes()
    {
        QFETCH(QString, typed);
        const auto time = eventtimes::readTime(typed, false);
        QTEST(time ? QString(time->text + (time->pm ? u"p" : u"")) : QString(), "expected");
    }
};

JOBWRIGHT_TEST(TestEventTimes)
#include "tst_eventtimes.moc"
