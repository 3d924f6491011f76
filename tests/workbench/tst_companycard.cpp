// A business card on its way into the Company screen and the store.
#include "base/text.h"
#include "intake/frmautoparse.h"
#include "workbench/bench.h"

#include <QTest>

namespace {

constexpr QStringView card = u"6 Spindle Court\nBoston, MA 02139\n617-555-0142\nann@mill.example";

} // namespace

class TestCompanyCard : public QObject
{
    Q_OBJECT

    std::unique_ptr<Bench> m_bench;

    /// Double-clicks the street, sorts the card, and decides with the button of this name.
    void takeCard(const QString& button)
    {
        m_bench->navigator.whileOpen = [this, button] {
            FrmAutoParse& screen = m_bench->frm->autoParse();
            screen.form().edit(u"txtBizCard"_s, card.toString());
            screen.cmdVerify();
            QMetaObject::invokeMethod(&screen, button.toLatin1().constData());
        };
        m_bench->company().cmdFastParser();
    }

    /// The address that Acme's row points to.
    QString storedAddress()
    {
        return m_bench->cells(
            u"Select Address1,Address2,City,State,Zip,Phone1,Email1 from Address where AddressKey="_s +
            m_bench->cells(u"Select AddressKey from Company where Name='Acme'"_s));
    }

private slots:
    void init()
    {
        m_bench = std::make_unique<Bench>();
        QVERIFY(QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd",
                            m_bench->world.folder.filePath(u"areacodes.jwd"_s)));
        m_bench->addCompany(u"Acme"_s);
        m_bench->addCompany(u"~ Mills ~"_s);
        m_bench->frm->load();
    }

    void selectedCompanyIsSavedWithItsCard_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("stored");
        QTest::newRow("overwritten") << u"cmdSave"_s
                                     << u"6 Spindle Court||Boston|MA|02139|617-555-0142|ann@mill.example"_s;
        QTest::newRow("filled up") << u"cmdMerge"_s
                                   << u"1 Main||Acme City|NJ|08540|617-555-0142|ann@mill.example"_s;
        QTest::newRow("discarded") << u"cmdDiscard"_s << u"1 Main||Acme City|NJ|08540||"_s;
    }
    void selectedCompanyIsSavedWithItsCard()
    {
        QFETCH(QString, button);
        QFETCH(QString, stored);
        m_bench->choose(u"Acme"_s);
        const Key before = m_bench->data().getCompanyKey(u"Acme"_s);
        takeCard(button);
        QCOMPARE(storedAddress(), stored);
        // A whole save gives a new key, and the screen works on with it.
        QCOMPARE(m_bench->data().getCompanyKey(u"Acme"_s) != before, button != u"cmdDiscard");
        QCOMPARE(m_bench->frm->selection().currentCompanyKey, m_bench->data().getCompanyKey(u"Acme"_s));
        QCOMPARE(m_bench->shown(u"txtCity"_s), stored.section(u'|', 2, 2));
    }

    void emptyStreetOfASavedCompanyIsFilledUp()
    {
        m_bench->run(u"Update Address set Address1='',City=''"_s);
        m_bench->choose(u"Acme"_s);
        takeCard(u"cmdMerge"_s);
        QVERIFY(storedAddress().startsWith(u"6 Spindle Court||Boston|NJ|08540|"_s));
    }

    void newCompanyWaitsForItsOwnSave()
    {
        m_bench->choose(text::newEntry.toString());
        m_bench->type(u"txtTitle"_s, u"Fresh"_s);
        takeCard(u"cmdSave"_s);
        QCOMPARE(m_bench->data().getCompanyKey(u"Fresh"_s), Key{0});
        QCOMPARE(m_bench->shown(u"txtTitle"_s) + u' ' + m_bench->shown(u"txtZip"_s), u"Fresh 02139"_s);
        QVERIFY(m_bench->frm->procVisible()); // there is something to be saved
        m_bench->world.prompts.expect(u"Insert new Company?"_s, Answer::Yes);
        m_bench->company().cmdUpdate1();
        QVERIFY(m_bench->cells(u"Select City,Phone1 from Address where Zip='02139'"_s) ==
                u"Boston|617-555-0142"_s);
    }

    void categoryHasNoCard()
    {
        m_bench->choose(u"~ Mills ~"_s);
        QVERIFY(!m_bench->company().form().isEnabled(u"cmdFastParser"_s));
        m_bench->choose(u"Acme"_s);
        QVERIFY(m_bench->company().form().isEnabled(u"cmdFastParser"_s));
        QCOMPARE(m_bench->navigator.opened, QStringList());
    }

    void mapOfTheCardScreenBelongsToTheChosenCompany()
    {
        m_bench->choose(u"Acme"_s);
        m_bench->navigator.whileOpen = [this] { m_bench->frm->autoParse().cmdLocation(); };
        m_bench->company().cmdFastParser();
        QCOMPARE(m_bench->world.desktop.opened.size(), 1);
        QVERIFY(m_bench->world.desktop.opened.front().contains(u"city=Acme%20City"_s));
    }
};

QTEST_GUILESS_MAIN(TestCompanyCard)
#include "tst_companycard.moc"
