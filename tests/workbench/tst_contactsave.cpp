// Saving and removing a whole contact, the name and the address that go with it.
#include "intake/frmautoparse.h"
#include "support/runtest.h"
#include "support/table.h"
#include "web/webpages.h"
#include "workbench/contactbench.h"
#include "workbench/contactname.h"

namespace {

/// Ann Lee at Acme, chosen, with an address of her own.
class AnnBench : public ContactBench
{
public:
    AnnBench()
    {
        addPerson(u"Ann"_s, u"Lee"_s, addCompany(u"Acme"_s));
        run(u"Update Address set Address2='Floor 2',Phone1='555-1000',Email2='ann@acme.example',"
            "URL1='ann.example' where City='Annville'"_s);
        open(u"Acme"_s, u"Ann Lee"_s);
        before = address();
    }
    /// Runs @p act while the Address entry is open on her.
    void withEntry(const std::function<void(FrmAddressEntry&)>& act)
    {
        navigator.whileOpen = [&] {
            FrmAddressEntry entry(*frm);
            entry.load(navigator.request.value<FrmAddressEntry::Request>());
            act(entry);
            navigator.answer = entry.saved() ? QVariant(entry.addressKey()) : QVariant();
        };
        contact().cmdAddress1();
        navigator.whileOpen = {};
    }
    QString address()
    {
        return cells(u"Select Address1,Address2,City,State,Zip,Country,Phone1,Phone2,Phone3,Fax,Email1,"
                     "Email2,URL1,URL2 from Address where AddressKey=2"_s);
    }
    QString before;
};

} // namespace

class TestContactSave : public QObject
{
    Q_OBJECT

private slots:
    void typedNameIsStoredAs_data()
    {
        table({"typed", "stored"},
              {{"whole name in the first box", "ana maria ruiz||", "Ana|maria|Ruiz"},
               {"whole name in the last box", "||Ana Ruiz", "Ana||Ruiz"},
               {"words between join the middle name", "Ana Maria del Ruiz|J|", "Ana|JMariadel|Ruiz"},
               {"blanks around, tabs inside", "  Ana\t | M  J |  Ruiz ", "Ana|MJ|Ruiz"},
               {"second first name moves", "Mary Ann Sue||Young", "Mary|Ann Sue|Young"},
               {"first word of the last name moves", "Vincent||van der Berg", "Vincent|van|Der Berg"},
               {"both move, first name's words first", "Jo Ann|X|de Vries", "Jo|XAnnde|Vries"},
               {"capitals of other alphabets, the rest as it is", "émile||ørStad", "Émile||ØrStad"}});
    }
    void typedNameIsStoredAs()
    {
        FETCH(QString, typed, stored);
        const QStringList parts = typed.split(u'|');
        const ContactName name = normalisedName(completedName({parts.at(0), parts.at(1), parts.at(2)}));
        QCOMPARE(QString(name.first + u'|' + name.middle + u'|' + name.last), stored);
    }

    void newContactIsInsertedWithAnAddressOfItsOwn()
    {
        ContactBench bench;
        bench.addCompany(u"Acme"_s);
        bench.open(u"Acme"_s);
        bench.contact().newRecord();
        editAll(bench.contact(),
                {u"txtFirst=ana"_s, u"txtLast=o'Neil"_s, u"chk2=1"_s, u"chk17=1"_s, u"sldrInfluence=7"_s});
        const QStringList inserts =
            bench.statements([&] { bench.save(u"Ana O`Neil"_s); }).filter(u"INSERT"_s);
        const QString row =
            u" ( FirstName,Middle,LastName,Title,AddressKey,Department,ReportsTo,HiringMgr,BestMedium,"
            "ContactTime,Notes,LastContact,EventKey,ContactList,DocumentList,CompanyKey,ContactLevel,"
            "EntryDate ) VALUES ('Ana','','O`Neil','','2','','','010000000','00000001','','','12/31/1999',0,"
            "'','',1,07,'11/22/2026');"_s;
        QCOMPARE(inserts.mid(1),
                 (QStringList{u"INSERT INTO Contact"_s + row, u"INSERT INTO ContactRecovery"_s + row}));
        QVERIFY(inserts[0].endsWith(
            u"('1 Main','','Acme City','NJ','08540','USA','','','','','','','','','11/22/26');"));
        QCOMPARE(bench.cells(u"Select AddressKey from Company"_s), u"1"_s);
        QCOMPARE(bench.current(), Key(1));
        QCOMPARE(bench.shownContact(u"cmbContacts"_s), u"Ana O`Neil"_s);
        QCOMPARE(bench.people(), u"Ana O`Neil,<New>"_s);
        QCOMPARE(bench.frm->countsPanel(), u"1 company · 0 positions · 1 contact"_s);
        QVERIFY(!bench.frm->procVisible());
    }

    void saveIsRefused_data()
    {
        const char* const noName = "Please enter a name for a new contact or select a contact to update.";
        table({"last", "notes", "message"},
              {{"one word", "", "", noName},
               {"a book of notes", "Ruiz", "n", "These texts are too long to be saved."}});
    }
    void saveIsRefused()
    {
        FETCH(QString, last, notes, message);
        ContactBench bench;
        bench.addCompany(u"Acme"_s);
        bench.open(u"Acme"_s);
        bench.contact().newRecord();
        editAll(bench.contact(),
                {u"txtFirst=Ana"_s, u"txtLast="_s + last, u"txtContactNotes="_s + notes.repeated(1'000'000)});
        bench.expect(message);
        bench.contact().cmdUpdateContact1();
        QCOMPARE(bench.rows(u"Contact"_s) + bench.rows(u"ContactRecovery"_s), 0);
        QCOMPARE(bench.rows(u"Address"_s), 1);
        QCOMPARE(bench.shownContact(u"txtFirst"_s), u"Ana"_s);
    }

    void existingContactGetsANewKeyThatReferencesFollow()
    {
        AnnBench bench;
        bench.addPerson(u"Bob"_s, u"Stone"_s, 1, u"'1,9',''"_s);
        for (const QString& row :
             {u"Position(Title,ContactList,CompanyKey) Values('Planner','7,1',1)"_s,
              u"Event(Event,ContactKey) Values('Call',1)"_s, u"Event(Event,ContactKey) Values('Other',2)"_s,
              u"History(HistoryKey,ContactKey,ContactCount) Values('1-1',1,1)"_s})
            bench.run(u"Insert into "_s + row);
        bench.typeContact(u"txtDept"_s, u"Parts"_s);
        bench.save(u"Ann Lee"_s);
        QCOMPARE(bench.current(), Key(3));
        QCOMPARE(bench.cells(
                     u"Select ContactKey,Middle,Title,AddressKey,Department,HiringMgr,BestMedium,ContactTime,"
                     "Notes,LastContact,EventKey,CompanyKey,ContactLevel,EntryDate from Contact where "
                     "FirstName='Ann'"_s),
                 u"3|M|Buyer|2|Parts|100000001|01000000|am|old notes|6/1/2026|0|1|45|11/22/2026"_s);
        QCOMPARE(bench.address(), bench.before);
        QVERIFY(bench.world.errorLog().contains(u"Delete * from Contact where ContactKey=1"_s));
        QCOMPARE(bench.references(), u"7,3 3,9 3;2 3-1"_s);
        QCOMPARE(bench.cells(u"Select ContactKey from History"_s), u"3"_s);
        // And once more: what is shown is alive, not the row that was replaced.
        bench.typeContact(u"txtDept"_s, u"Sales"_s);
        bench.contact().fieldLeft(u"txtDept"_s);
        QCOMPARE(bench.cells(u"Select Department from Contact where FirstName='Ann'"_s), u"Sales"_s);
    }

    void namesakeAndAddressAreNotMixedUp()
    {
        AnnBench bench;
        bench.addPerson(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Bolt"_s));
        bench.addContact(u"Cy"_s, u"Dee"_s, 1); // came without an address, and stays so
        bench.typeContact(u"txtDept"_s, u"Parts"_s);
        bench.save(u"Ann Lee"_s);
        bench.open(u"Acme"_s, u"Cy Dee"_s);
        bench.save(u"Cy Dee"_s);
        QCOMPARE(bench.cells(u"Select FirstName,CompanyKey,AddressKey,Department from Contact "
                             "order by CompanyKey,FirstName"_s),
                 u"Ann|1|2|Parts;Cy|1|0|;Ann|2|4|"_s);
        QCOMPARE(bench.cells(u"Select City from Address"_s), u"Acme City;Annville;Bolt City;Annville"_s);
    }

    void removalTakesTheContactOutOfEverything()
    {
        ContactBench bench;
        bench.world.session->debugMode = true;
        bench.addPerson(u"Bob"_s, u"Stone"_s, bench.addCompany(u"Acme"_s), u"'2',''"_s);
        bench.addPerson(u"Ann"_s, u"Lee"_s, 1);
        bench.run(u"Insert into Position(Title,ContactList) Values('Planner','1,2')"_s);
        for (const QString& owner : {u"0"_s, u"2"_s}) {
            bench.run(u"Insert into Event(Event,ContactKey) Values('Call',%1)"_s.arg(owner));
            bench.run(
                u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('%1-1',%1,1)"_s.arg(owner));
        }
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            QCOMPARE(bench.rows(u"Contact"_s), 2);
            bench.expect(u"Are you sure you want to remove this CONTACT, all contact histories and all "
                         "links to this contact?"_s,
                         answer);
            bench.contact().cmdRemoveContact1();
        }
        QCOMPARE(bench.references(), u"1,  0 0-1"_s);
        QCOMPARE(bench.current(), Key(0));
        QCOMPARE(bench.shownContact(u"txtFirst"_s) + bench.people(), u"Bob Stone,<New>"_s);
        QVERIFY(bench.world.opLog().contains(u"Remove Contact Complete"_s));
        // With nobody selected any more, nothing is left to take away.
        bench.expect(u"Please select a contact to remove."_s);
        bench.contact().cmdRemoveContact1();
        QCOMPARE(bench.world.prompts.lastTitle(), u"Jobwright - Message"_s);
        QCOMPARE(bench.rows(u"Event"_s), 1);
    }

    void cardIsTakenOverButNotYetStored()
    {
        AnnBench bench;
        QVERIFY(QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd",
                            bench.world.folder.filePath(u"areacodes.jwd"_s)));
        bench.withEntry([&](FrmAddressEntry& entry) {
            bench.navigator.whileOpen = [&] {
                FrmAutoParse parser(*bench.world.session);
                parser.form().edit(u"txtBizCard"_s, u"6 Spindle Court\nBoston, MA 02139\n617-555-0142"_s);
                parser.cmdVerify();
                parser.cmdMerge();
                bench.navigator.answer = QVariant::fromValue(parser.answer());
            };
            entry.cmdFastParser();
            QCOMPARE(shownIn(entry.form(), u"txtEAddress txtEState"_s),
                     u"9 Elm\nFloor 2|MA"_s); // what is there stays
            entry.lblURL1C();
            entry.lblURL2C();
        });
        QCOMPARE(bench.address(), bench.before);
        QCOMPARE(bench.world.desktop.opened, (QStringList{u"ann.example"_s, webpages::homePage()}));
    }

    void savedEntriesAreInTheContactsRow()
    {
        for (const auto& [street, stored] : {std::pair{u"1 Main"_s, u"1 Main|"_s},
                                             {u"1 Main\nFloor 3\nRear"_s, u"1 Main|Floor 3\r\nRear"_s}}) {
            AnnBench bench;
            bench.expect(u"Update of Ann Lee is complete."_s);
            bench.withEntry([&](FrmAddressEntry& entry) {
                QCOMPARE(shownIn(entry.form(), u"txtEAddress txtEEM2"_s),
                         u"9 Elm\nFloor 2|ann@acme.example"_s);
                entry.form().edit(u"txtEAddress"_s, street);
                entry.form().edit(u"txtEFax"_s, u"555-9"_s);
                entry.form().edit(u"txtEURL2"_s, u"b.example"_s);
                entry.cmdSave1();
            });
            QCOMPARE(bench.address(),
                     QString(stored +
                             u"|Annville|||USA|555-1000|||555-9||ann@acme.example|ann.example|b.example"));
            QCOMPARE(bench.cells(u"Select City from Address"_s), u"Acme City;Annville"_s);
            QCOMPARE(bench.current(), Key(1));
        }
    }

    void mergeTakesOnlyWhatTheCompanyHas()
    {
        const QString taken = u"1 Main\nGate|Acme City|08540|USA|555-1000|ann@acme.example"_s;
        const QString kept = u"9 Elm\nFloor 2|Annville||USA|555-1000|ann@acme.example"_s;
        for (const Answer answer : {Answer::Yes, Answer::No}) {
            AnnBench bench;
            bench.run(u"Update Address set Address2='Gate',Country='Canada' where AddressKey=1"_s);
            bench.expect(u"Reset Address to company data?"_s, answer);
            bench.withEntry([&](FrmAddressEntry& entry) {
                entry.cmdSetCompany();
                QCOMPARE(shownIn(entry.form(), u"txtEAddress txtECity txtEZip txtCountry txtEP1 txtEEM2"_s),
                         answer == Answer::Yes ? taken : kept);
            });
            QCOMPARE(bench.address(), bench.before);
        }
    }

    void failedAddressSaveStaysOpenAndTellsNobody()
    {
        AnnBench bench;
        bench.expect(u"failed on purpose"_s);
        bench.withEntry([&](FrmAddressEntry& entry) {
            bool closed = false;
            connect(&entry, &FrmAddressEntry::closeRequested, this, [&] { closed = true; });
            entry.form().edit(u"txtECity"_s, u"Troy"_s);
            bench.failing(0, [&] { entry.cmdSave1(); });
            QVERIFY(!closed && !entry.saved());
        });
        QCOMPARE(bench.address(), bench.before);
    }
};

JOBWRIGHT_TEST(TestContactSave)
#include "tst_contactsave.moc"
