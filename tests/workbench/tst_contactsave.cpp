// Saving and removing a whole contact.
#include "support/table.h"
#include "workbench/contactbench.h"

#include <QTest>

class TestContactSave : public QObject
{
    Q_OBJECT

private slots:
    void newContactIsInsertedWithAnAddressOfItsOwn()
    {
        ContactBench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        bench.open(u"Acme"_s);
        bench.contact().newRecord();
        bench.typeContact(u"txtFirst"_s, u"ana"_s);
        bench.typeContact(u"txtLast"_s, u"o'Neil"_s);
        bench.typeContact(u"txtContactTitle"_s, u"Buyer"_s);
        bench.typeContact(u"chk2"_s, u"1"_s);
        bench.typeContact(u"chk17"_s, u"1"_s);
        bench.typeContact(u"sldrInfluence"_s, u"7"_s);
        const QStringList inserts =
            bench.statements([&] { bench.save(u"Ana O`Neil"_s); }).filter(u"INSERT"_s);
        const QString columns =
            u" ( "
            u"FirstName,Middle,LastName,Title,AddressKey,Department,ReportsTo,HiringMgr,BestMedium,"
            u"ContactTime,"
            "Notes,LastContact,EventKey,ContactList,DocumentList,CompanyKey,ContactLevel,EntryDate ) VALUES "
            "('Ana','',"
            "'O`Neil','Buyer','2','','','010000000','00000001','','','12/31/1999',0,'','',1,07,'11/22/2026');"_s;
        QCOMPARE(inserts.size(), 3);
        QVERIFY2(inserts[0].endsWith(
                     u"('1 Main','','Acme City','NJ','08540','USA','','','','','','','','','11/22/26');"_s),
                 qPrintable(inserts[0]));
        QCOMPARE(inserts[1], u"INSERT INTO Contact"_s + columns);
        QCOMPARE(inserts[2], u"INSERT INTO ContactRecovery"_s + columns);
        QCOMPARE(bench.cells(u"Select AddressKey from Company"_s), u"1"_s);
        QCOMPARE(bench.current(), bench.data().getContactKey(u"Ana"_s, u"O`Neil"_s, u"Acme"_s));
        QCOMPARE(bench.shownContact(u"cmbContacts"_s), u"Ana O`Neil"_s);
        QCOMPARE(bench.contact().form().items(u"cmbContacts"_s), (QStringList{u"Ana O`Neil"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->countsPanel(), u"1 company · 0 positions · 1 contact"_s);
        QVERIFY(!bench.frm->procVisible());
        QCOMPARE(bench.data().getContactKeys(u"Acme"_s).size(), size_t(1));
        QVERIFY(acme > 0);
    }

    void saveIsRefused_data()
    {
        columns<QString, QString, QString, QString, QString>("company", "first", "last", "notes", "message");
        const QString noName = u"Please enter a name for a new contact or select a contact to update."_s;
        const QString noCompany = u"Please select a company before storing a contact"_s;
        QTest::newRow("no name") << u"Acme"_s << u" "_s << QString() << QString() << noName;
        QTest::newRow("one word") << u"Acme"_s << u"Ana"_s << QString() << QString() << noName;
        QTest::newRow("a book of notes") << u"Acme"_s << u"Ana"_s << u"Ruiz"_s << QString(1'000'000, u'n')
                                         << u"These texts are too long to be saved."_s;
    }
    void saveIsRefused()
    {
        FETCH(QString, company, first, last, notes, message);
        ContactBench bench;
        bench.addCompany(u"Acme"_s);
        bench.open(u"Acme"_s);
        bench.contact().newRecord();
        bench.frm->setSelection(company);
        bench.typeContact(u"txtFirst"_s, first);
        bench.typeContact(u"txtLast"_s, last);
        bench.typeContact(u"txtContactNotes"_s, notes);
        bench.world.prompts.expect(message);
        bench.contact().cmdUpdateContact1();
        QCOMPARE(bench.rows(u"Contact"_s) + bench.rows(u"ContactRecovery"_s), 0);
        QCOMPARE(bench.rows(u"Address"_s), 1);
        QCOMPARE(bench.shownContact(u"txtFirst"_s), first);
    }

    void existingContactGetsANewKeyAndKeepsItsRecord()
    {
        ContactBench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        const Key oldKey = bench.addPerson(u"Ann"_s, u"Lee"_s, acme);
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.typeContact(u"txtDept"_s, u"Parts"_s);
        bench.save(u"Ann Lee"_s);
        QVERIFY(bench.current() > oldKey);
        QCOMPARE(
            bench.cells(u"Select ContactKey,FirstName,Middle,LastName,Title,AddressKey,Department,HiringMgr,"
                        "BestMedium,ContactTime,Notes,LastContact,EventKey,CompanyKey,ContactLevel,EntryDate "
                        "from Contact"_s),
            QString(QString::number(bench.current()) + u"|Ann|M|Lee|Buyer|2|Parts|100000001|01000000|am|old "
                                                       u"notes|6/1/2026|0|1|45|11/22/2026"));
        QCOMPARE(bench.rows(u"Address"_s), 2);
        QVERIFY(bench.world.errorLog().contains(u"Delete * from Contact where ContactKey="_s +
                                                QString::number(oldKey)));
    }

    void referencesFollowTheNewKey()
    {
        ContactBench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        const QString key = QString::number(bench.addPerson(u"Ann"_s, u"Lee"_s, acme));
        bench.addPerson(u"Bob"_s, u"Stone"_s, acme, u"'"_s + key + u",9',''");
        bench.run(u"Insert into Position(Title,ContactList,CompanyKey) Values('Planner','7,"_s + key +
                  u"',1)");
        bench.run(u"Insert into Event(Event,ContactKey) Values('Call',"_s + key + u')');
        bench.run(u"Insert into Event(Event,ContactKey) Values('Other',2)"_s);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('"_s + key + u"-1'," +
                  key + u",1)");
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.save(u"Ann Lee"_s);
        const QString now = QString::number(bench.current());
        QVERIFY(now != key);
        QCOMPARE(bench.cells(u"Select ContactList from Contact where FirstName='Bob'"_s),
                 QString(now + u",9"));
        QCOMPARE(bench.cells(u"Select ContactList from Position"_s), QString(u"7," + now));
        QCOMPARE(bench.cells(u"Select ContactKey from Event"_s), QString(now + u";2"));
        QCOMPARE(bench.cells(u"Select HistoryKey,ContactKey from History"_s), QString(now + u"-1|" + now));
        // And once more: what is shown is alive, not the row that was replaced.
        bench.typeContact(u"txtDept"_s, u"Parts"_s);
        bench.contact().fieldLeft(u"txtDept"_s);
        QCOMPARE(bench.cells(u"Select Department from Contact where FirstName='Ann'"_s), u"Parts"_s);
    }

    void namesakeElsewhereKeepsAddressAndRecord()
    {
        ContactBench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        const Key bolt = bench.addCompany(u"Bolt"_s);
        bench.addPerson(u"Ann"_s, u"Lee"_s, acme);
        bench.addPerson(u"Ann"_s, u"Lee"_s, bolt);
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.typeContact(u"txtDept"_s, u"Parts"_s);
        bench.save(u"Ann Lee"_s);
        QCOMPARE(bench.cells(u"Select CompanyKey,AddressKey,Department from Contact order by CompanyKey"_s),
                 u"1|3|Parts;2|4|"_s);
        QCOMPARE(bench.rows(u"Address"_s), 4);
    }

    void contactWithoutAnAddressGetsOne_data()
    {
        QTest::addColumn<QString>("addressKey");
        QTest::newRow("none") << u"0"_s;
    }
    void contactWithoutAnAddressGetsOne()
    {
        QFETCH(QString, addressKey);
        ContactBench bench;
        bench.addContact(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.run(u"Update Contact set AddressKey="_s + addressKey);
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.save(u"Ann Lee"_s);
        QCOMPARE(bench.cells(u"Select AddressKey from Contact"_s), u"2"_s);
        QCOMPARE(bench.cells(u"Select City from Address where AddressKey=2"_s), u"Acme City"_s);
    }

    void removalTakesTheContactOutOfEverything()
    {
        ContactBench bench;
        bench.world.session->debugMode = true;
        const Key acme = bench.addCompany(u"Acme"_s);
        const Key bob = bench.addPerson(u"Bob"_s, u"Stone"_s, acme);
        const QString key = QString::number(bench.addPerson(u"Ann"_s, u"Lee"_s, acme));
        bench.run(u"Update Contact set ContactList='"_s + key + u"' where ContactKey=" +
                  QString::number(bob));
        bench.run(u"Insert into Position(Title,ContactList) Values('Planner','1,"_s + key + u"')");
        for (const QString& owner : {u"0"_s, key}) {
            bench.run(u"Insert into Event(Event,ContactKey) Values('Call',"_s + owner + u')');
            bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('"_s + owner +
                      u"-1'," + owner + u",1)");
        }
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.world.prompts.expect(
            u"Are you sure you want to remove this CONTACT, all contact histories and all "
            "links to this contact?"_s,
            Answer::No);
        bench.contact().cmdRemoveContact1();
        QCOMPARE(bench.rows(u"Contact"_s), 2);
        bench.world.prompts.expect(u"remove this CONTACT"_s, Answer::Yes);
        bench.contact().cmdRemoveContact1();
        QCOMPARE(bench.cells(u"Select FirstName,ContactList from Contact"_s), u"Bob|"_s);
        QCOMPARE(bench.cells(u"Select ContactList from Position"_s), u"1,"_s);
        QCOMPARE(bench.cells(u"Select ContactKey from Event"_s), u"0"_s);
        QCOMPARE(bench.cells(u"Select HistoryKey from History"_s), u"0-1"_s);
        QCOMPARE(bench.current(), Key(0));
        QCOMPARE(bench.shownContact(u"txtFirst"_s), QString());
        QCOMPARE(bench.contact().form().items(u"cmbContacts"_s), (QStringList{u"Bob Stone"_s, u"<New>"_s}));
        QVERIFY(bench.world.opLog().contains(u"Remove Contact Complete"_s));
        // With nobody selected any more, nothing is left to take away.
        bench.world.prompts.expect(u"Please select a contact to remove."_s);
        bench.contact().cmdRemoveContact1();
        QCOMPARE(bench.world.prompts.lastTitle(), u"Jobwright - Message"_s);
        QCOMPARE(bench.rows(u"Event"_s), 1);
    }
};

QTEST_GUILESS_MAIN(TestContactSave)
#include "tst_contactsave.moc"
