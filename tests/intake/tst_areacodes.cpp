// The table of area codes: the delivered file, and how such a file is read.
#include "intake/areacodes.h"
#include "support/runtest.h"

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

    void codeLeadsToItsState()
    {
        const AreaCodes table = delivered();
        // The ones that are easily taken for a neighbour's, and codes without a place.
        for (const QString& pair : {u"201 NJ"_s, u"202 DC"_s, u"240 MD"_s, u"603 NH"_s, u"816 MO"_s,
                                    u"913 KS"_s, u"662 MS"_s, u"859 KY"_s, u"906 MI"_s, u"218 MN"_s,
                                    u"308 NE"_s, u"928 AZ"_s, u"787 PR"_s, u"800 "_s, u"900 "_s, u"416 "_s})
            QCOMPARE(table.getAreaCodeState(pair.section(u' ', 0, 0)), pair.section(u' ', 1));
        QVERIFY(table.chkAreaCode(u"212"_s, u"NY"_s) && !table.chkAreaCode(u"212"_s, u"ZZ"_s));
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

JOBWRIGHT_TEST(TestAreaCodes)
#include "tst_areacodes.moc"
