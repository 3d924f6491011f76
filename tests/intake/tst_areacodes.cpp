// The table of area codes: the delivered file, and how such a file is read.
#include "intake/areacodes.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The letters of the post office for every state, the capital's district and the territories.
const QString stateLetters = u"AK AL AR AZ CA CO CT DC DE FL GA HI IA ID IL IN KS KY LA MA MD ME MI MN MO MS "
                             u"MT NC ND NE NH NJ NM NV NY OH "
                             "OK OR PA RI SC SD TN TX UT VA VT WA WI WV WY AS GU MP PR VI"_s;

AreaCodes delivered()
{
    return AreaCodes::load(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd")
        .value_or(AreaCodes());
}

} // namespace

class TestAreaCodes : public QObject
{
    Q_OBJECT

private slots:
    void deliveredCodesAreWellFormedAndSingle()
    {
        // Three digits, the first 2 to 9; a code that ends in two ones is a service, and a 9 in the middle is
        // kept for longer numbers.
        static const QRegularExpression form(u"^[2-9](?!11)[0-8][0-9]$"_s);
        const AreaCodes table = delivered();
        QCOMPARE(table.codes().size(), table.states().size());
        const QStringList states = stateLetters.split(u' ');
        for (int row = 0; row < table.codes().size(); ++row) {
            QVERIFY2(form.match(table.codes()[row]).hasMatch(), qPrintable(table.codes()[row]));
            QVERIFY2(states.contains(table.states()[row]), qPrintable(table.codes()[row]));
        }
        QCOMPARE(QSet<QString>(table.codes().begin(), table.codes().end()).size(), table.codes().size());
        QVERIFY(std::is_sorted(table.codes().begin(), table.codes().end()));
        for (const QString& state : states)
            QVERIFY2(!table.getAreaCodefromState(state).isEmpty(), qPrintable(state));
        QVERIFY(table.codes().size() > 350);
    }

    void codesWithoutAPlaceAreNotDelivered()
    {
        const AreaCodes table = delivered();
        // Free of charge, special services, and the neighbours under the same numbering plan.
        for (const QString& code :
             {u"800"_s, u"888"_s, u"900"_s, u"500"_s, u"700"_s, u"416"_s, u"604"_s, u"876"_s})
            QCOMPARE(table.getAreaCodeState(code), QString());
    }

    void stateOfACode_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("state");
        // One for each region, and the ones that are easily taken for a neighbour's.
        for (const QString& pair :
             {u"212 NY"_s, u"201 NJ"_s, u"202 DC"_s, u"240 MD"_s, u"571 VA"_s, u"603 NH"_s, u"802 VT"_s,
              u"401 RI"_s, u"302 DE"_s, u"816 MO"_s, u"913 KS"_s, u"870 AR"_s, u"901 TN"_s, u"662 MS"_s,
              u"256 AL"_s, u"706 GA"_s, u"803 SC"_s, u"704 NC"_s, u"812 IN"_s, u"859 KY"_s, u"304 WV"_s,
              u"906 MI"_s, u"920 WI"_s, u"218 MN"_s, u"701 ND"_s, u"605 SD"_s, u"308 NE"_s, u"307 WY"_s,
              u"406 MT"_s, u"208 ID"_s, u"435 UT"_s, u"928 AZ"_s, u"575 NM"_s, u"775 NV"_s, u"530 CA"_s,
              u"541 OR"_s, u"509 WA"_s, u"907 AK"_s, u"808 HI"_s, u"787 PR"_s})
            QTest::newRow(qPrintable(pair)) << pair.section(u' ', 0, 0) << pair.section(u' ', 1);
    }
    void stateOfACode()
    {
        QFETCH(QString, code);
        QFETCH(QString, state);
        const AreaCodes table = delivered();
        QCOMPARE(table.getAreaCodeState(code), state);
        QVERIFY(table.chkAreaCode(code, state));
        QVERIFY(!table.chkAreaCode(code, u"ZZ"_s));
    }

    void fileOfAnyKindIsReadLineByLine()
    {
        const AreaCodes table =
            AreaCodes::parse(u"917 NY\r\n212 NY\n\n917 NJ\n 555\nno-state\n340 Virgin Islands");
        QCOMPARE(table.getAreaCodeState(u"917"_s), u"NY"_s); // the first of two
        QCOMPARE(table.getAreaCodefromState(u"NY"_s), u"917"_s);
        QCOMPARE(table.getAreaCodeState(u"340"_s), u"Virgin Islands"_s);
        QCOMPARE(table.getAreaCodeState(QString()), QString());
        QCOMPARE(table.getAreaCodeState(u"no-state"_s), QString());
        QCOMPARE(table.getAreaCodefromState(u"OH"_s), QString());
        QVERIFY(!AreaCodes::load(u"/no/such/areacodes.jwd"_s));
    }
};

QTEST_GUILESS_MAIN(TestAreaCodes)
#include "tst_areacodes.moc"
