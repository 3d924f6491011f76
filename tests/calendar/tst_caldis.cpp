// The numbers of a month grid, against the calendar of the library.
#include "calendar/caldis.h"
#include "support/runtest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestCalDis : public QObject
{
    Q_OBJECT

    const QDate m_now{2026, 11, 22};
    CalDis m_calDis{[this] { return m_now.startOfDay(); }};

private slots:
    void everyMonthFitsItsGrid()
    {
        // Weekdays are counted by hand from a known Sunday.
        const QDate sunday(1899, 12, 31);
        for (QDate first(1900, 1, 1); first.year() <= 2100; first = first.addMonths(1)) {
            const QDate last = first.addDays(first.daysInMonth() - 1);
            m_calDis.setMonth(first.addDays(first.month())); // any day of the month will do
            QCOMPARE(int(m_calDis.numDay()), first.daysInMonth());
            QCOMPARE(int(m_calDis.startDay()), int(sunday.daysTo(first) % 7) + 1);
            QCOMPARE(int(m_calDis.endDay()), int(sunday.daysTo(last) % 7) + 1);
            QVERIFY(m_calDis.numDay() + m_calDis.startDay() - 2 < 37);
            QCOMPARE(m_calDis.monthName(), QLocale::c().monthName(first.month()));
        }
        QCOMPARE(m_calDis.Today(), m_now);
        QCOMPARE(int(CalDis::getStartDay(QDate(2026, 11, 15))), 1);
        QCOMPARE(int(CalDis::getStartDay(QDate(2026, 11, 14))), 7);
    }

    void holidaysAreAFixedTable()
    {
        QStringList all;
        for (int month = 1; month <= 12; ++month) {
            const QStringList entries = CalDis::getHolidayList(QDate(2031, month, 9));
            QCOMPARE(entries.size(), 1);
            all << entries;
        }
        QCOMPARE(all.join(u'|'),
                 u"1,New Year`s Day|||15,Tax Day|||4,Independence Day||1,Labor Day|31,Halloween||"
                 u"25,Christmas Day"_s);
    }
};

JOBWRIGHT_TEST(TestCalDis)
#include "tst_caldis.moc"
