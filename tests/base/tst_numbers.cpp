// Reading, rounding and showing numbers.
#include "base/numbers.h"
#include "support/runtest.h"

#include <QTest>

class TestNumbers : public QObject
{
    Q_OBJECT

private slots:
    void aHalfGoesUp_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("two");
        QTest::newRow("a decimal half") << 201.0 / 200 << "1.01"; // its binary neighbour lies below
        QTest::newRow("below") << 1.00499 << "1.00";
        QTest::newRow("even before it") << 0.125 << "0.13";
        QTest::newRow("negative") << -0.125 << "-0.12";
        QTest::newRow("third") << 2.0 / 3 << "0.67";
    }
    void aHalfGoesUp()
    {
        QFETCH(double, value);
        QTEST(numbers::fixed(value, 2), "two");
    }
    void whatIsNoNumberIsZero()
    {
        for (const char* text : {"", "five", "1e999", "nan", "2 a week"})
            QCOMPARE(numbers::read(QString::fromLatin1(text)), 0.0);
        QCOMPARE(numbers::read(QStringLiteral(" 2.5 ")), 2.5);
        QCOMPARE(numbers::shown(2.5, 4), QStringLiteral("2.5"));
    }
};

JOBWRIGHT_TEST(TestNumbers)
#include "tst_numbers.moc"
