#include "base/dates.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestDates : public QObject
{
    Q_OBJECT

private slots:
    void parse_data()
    {
        // iso: "" where the text is no date
        table({"text", "iso"}, {{"iso", "2026-11-22", "2026-11-22"},
                                {"last year of the 2000s", "1/1/29", "2029-01-01"},
                                {"first year of the 1900s", "1/1/30", "1930-01-01"},
                                {"earliest year", "1/1/100", ""},
                                {"blanks around", "  1/5/26 ", "2026-01-05"},
                                {"time, am", "1/5/2026 12:05:09 AM", "2026-01-05 00:05:09"},
                                {"time, pm", "1/5/2026 2:05 pm", "2026-01-05 14:05:00"},
                                {"time, 24 hours", "1/5/2026 23:59:59", "2026-01-05 23:59:59"},
                                {"no such day", "2/29/2026", ""},
                                {"hour 13 pm", "1/5/2026 13:00 PM", ""},
                                {"hour 24", "1/5/2026 24:00", ""},
                                {"trailing text", "1/5/2026 soon", ""},
                                {"words", "No Date", ""},
                                {"empty", "", ""},
                                {"other digits", "١/٥/٢٠٢٦", ""}});
    }
    void parse()
    {
        FETCH(QString, text, iso);
        const auto moment = dates::parse(text);
        QCOMPARE(moment ? dates::toIso(*moment) : QString(), iso);
    }

    void everyWrittenFormIsReadBack()
    {
        for (QDate day(1930, 1, 1); day < QDate(2030, 1, 1); day = day.addDays(13)) {
            const std::optional expected = dates::Moment{day, {}};
            QCOMPARE(dates::parse(dates::mdyy(day)), expected);
            QCOMPARE(dates::parse(dates::mdyyyy(day)), expected);
            QCOMPARE(dates::parse(dates::mmddyyyy(day)), expected);
            QCOMPARE(dates::fromIso(dates::toIso(*expected)), expected);
            const dates::Moment timed{day, QTime(day.day() % 24, day.month(), 7)};
            QCOMPARE(dates::parse(dates::general(timed)), std::optional(timed));
        }
    }

    void difference_data()
    {
        columns<QChar, QDate, QDate, int>("unit", "from", "to", "expected");
        QTest::newRow("six days are no week") << QChar(u'w') << QDate(2026, 1, 1) << QDate(2026, 1, 7) << 0;
        QTest::newRow("seven are one") << QChar(u'w') << QDate(2026, 1, 1) << QDate(2026, 1, 8) << 1;
        QTest::newRow("backwards is cut toward zero")
            << QChar(u'w') << QDate(2026, 1, 8) << QDate(2026, 1, 2) << 0;
        QTest::newRow("a month begins overnight")
            << QChar(u'm') << QDate(2026, 1, 31) << QDate(2026, 2, 1) << 1;
        QTest::newRow("months over a year") << QChar(u'm') << QDate(2025, 11, 30) << QDate(2026, 11, 1) << 12;
    }
    void difference()
    {
        QFETCH(QChar, unit);
        FETCH(QDate, from, to);
        QTEST(dates::difference(unit, from, to), "expected");
    }
};

JOBWRIGHT_TEST(TestDates)
#include "tst_dates.moc"
