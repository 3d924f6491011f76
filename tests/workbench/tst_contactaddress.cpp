// The Address entry of a contact.
#include "intake/frmautoparse.h"
#include "support/table.h"
#include "workbench/contactbench.h"

#include <QTest>

namespace {

/// Ann at Acme with the Address entry open on her while @p act runs.
void withEntry(ContactBench& bench, const std::function<void(FrmAddressEntry&)>& act)
{
    bench.navigator.whileOpen = [&] { act(bench.contact().addressEntry()); };
    bench.contact().cmdAddress1();
    bench.navigator.whileOpen = {};
}

void furnish(ContactBench& bench)
{
    bench.addPerson(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
    bench.run(u"Update Address set Address2='Floor 2',Phone1='555-1000',Email2='ann@acme.example',"
              "URL1='ann.example' where City='Annville'"_s);
    bench.open(u"Acme"_s, u"Ann Lee"_s);
}

const QString annsRow =
    u"Select Address1,Address2,City,State,Zip,Country,Phone1,Phone2,Phone3,Fax,Email1,Email2,URL1,"
    "URL2 from Address where AddressKey=2"_s;
const QString before = u"9 Elm|Floor 2|Annville|||USA|555-1000|||||ann@acme.example|ann.example|"_s;

} // namespace

class TestContactAddress : public QObject
{
    Q_OBJECT

private slots:
    void cardIsTakenOverButNotYetStored()
    {
        ContactBench bench;
        furnish(bench);
        QVERIFY(QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd",
                            bench.world.folder.filePath(u"areacodes.jwd"_s)));
        withEntry(bench, [&](FrmAddressEntry& entry) {
            bench.navigator.whileOpen = [&] {
                FrmAutoParse& parser = bench.frm->autoParse();
                QVERIFY(parser.form().text(u"txtCurrent"_s).startsWith(u"9 Elm"_s));
                parser.form().edit(u"txtBizCard"_s, u"6 Spindle Court\nBoston, MA 02139\n617-555-0142"_s);
                parser.cmdVerify();
                parser.cmdMerge();
            };
            entry.cmdFastParser();
            QCOMPARE(entry.form().text(u"txtEAddress"_s), u"9 Elm\nFloor 2"_s); // what is there stays
            QCOMPARE(entry.form().text(u"txtEState"_s), u"MA"_s);
        });
        QCOMPARE(bench.cells(annsRow), before);
    }

    void savedEntriesAreInTheContactsRow_data()
    {
        columns<QString, QString>("street", "stored");
        QTest::newRow("one line") << u"1 Main"_s << u"1 Main|"_s;
        QTest::newRow("three lines") << u"1 Main\nFloor 3\nRear"_s << u"1 Main|Floor 3\r\nRear"_s;
        QTest::newRow("empty") << QString() << u"|"_s;
    }
    void savedEntriesAreInTheContactsRow()
    {
        FETCH(QString, street, stored);
        ContactBench bench;
        furnish(bench);
        bench.world.prompts.expect(u"Update of Ann Lee is complete."_s);
        QStringList sent;
        withEntry(bench, [&](FrmAddressEntry& entry) {
            QCOMPARE(entry.form().text(u"txtEAddress"_s), u"9 Elm\nFloor 2"_s);
            QCOMPARE(entry.form().text(u"txtEEM2"_s), u"ann@acme.example"_s);
            entry.form().edit(u"txtEAddress"_s, street);
            entry.form().edit(u"txtEFax"_s, u"555-9"_s);
            entry.form().edit(u"txtEURL2"_s, u"b.example"_s);
            sent = bench.statements([&] { entry.cmdSave1(); });
        });
        QCOMPARE(sent.size(), 1);
        QVERIFY(sent[0].startsWith(u"Update Address  set Address1='"_s));
        QCOMPARE(
            bench.cells(annsRow),
            QString(stored + u"|Annville|||USA|555-1000|||555-9||ann@acme.example|ann.example|b.example"));
        QCOMPARE(bench.cells(u"Select City from Address"_s), u"Acme City;Annville"_s);
        QCOMPARE(bench.shownContact(u"cmbContacts"_s), u"Ann Lee"_s);
        QCOMPARE(bench.current(), Key(1));
    }

    void mergeTakesOnlyWhatTheCompanyHas_data()
    {
        // shown: street, city, zip, country, phone 1, mail 2
        columns<Answer, QString, QString>("answer", "company", "shown");
        QTest::newRow("Yes") << Answer::Yes << u"Address2='Gate',Country='Canada'"_s
                             << u"1 Main\nGate|Acme City|08540|USA|555-1000|ann@acme.example"_s;
        QTest::newRow("No") << Answer::No << u"Address2='Gate'"_s
                            << u"9 Elm\nFloor 2|Annville||USA|555-1000|ann@acme.example"_s;
    }
    void mergeTakesOnlyWhatTheCompanyHas()
    {
        QFETCH(Answer, answer);
        FETCH(QString, company, shown);
        ContactBench bench;
        furnish(bench);
        bench.run(u"Update Address set "_s + company + u" where AddressKey=1");
        bench.world.prompts.expect(u"Reset Address to company data?"_s, answer);
        withEntry(bench, [&](FrmAddressEntry& entry) {
            entry.cmdSetCompany();
            QStringList parts;
            for (const QString& control :
                 {u"txtEAddress"_s, u"txtECity"_s, u"txtEZip"_s, u"txtCountry"_s, u"txtEP1"_s, u"txtEEM2"_s})
                parts.append(entry.form().text(control));
            QCOMPARE(parts.join(u'|'), shown);
        });
        QCOMPARE(bench.cells(annsRow), before);
    }

    void failedSaveStaysOpenAndTellsNobody()
    {
        ContactBench bench;
        furnish(bench);
        bench.world.prompts.expect(u"failed on purpose"_s);
        withEntry(bench, [&](FrmAddressEntry& entry) {
            bool closed = false;
            connect(&entry, &FrmAddressEntry::closeRequested, this, [&] { closed = true; });
            entry.form().edit(u"txtECity"_s, u"Troy"_s);
            bench.data().database().setInterceptor(
                [](QStringView) { throw StoreError(u"failed on purpose"_s, 1, u"test"_s); });
            entry.cmdSave1();
            bench.data().database().setInterceptor({});
            QVERIFY(!closed && !entry.saved());
        });
        QCOMPARE(bench.cells(annsRow), before);
    }

    void webAddressesOpen()
    {
        ContactBench bench;
        furnish(bench);
        withEntry(bench, [&](FrmAddressEntry& entry) {
            entry.lblURL1C();
            entry.lblURL2C();
        });
        QCOMPARE(bench.world.desktop.opened, (QStringList{u"ann.example"_s, CompanyScreen::homePage()}));
    }
};

QTEST_GUILESS_MAIN(TestContactAddress)
#include "tst_contactaddress.moc"
