// The import screen: what other programs export comes in under the right columns, once, and can be taken
// back.
#include "formats/contactcard.h"
#include "intake/contactexport.h"
#include "intake/frmimport.h"
#include "intake/frmmerge.h"
#include "support/runtest.h"
#include "support/screenbench.h"
#include "support/table.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

/// A contact folder from texts: "first,last,company,street" each.
class ListedFolder : public Outlook
{
public:
    QStringList people;
    QString cards; ///< read instead when there are any

    OutlookFolder<OutlookContact> contacts(const QString&) override
    {
        OutlookFolder<OutlookContact> folder;
        for (const QString& person : people) {
            OutlookContact contact;
            contact.firstName = person.section(u',', 0, 0);
            contact.lastName = person.section(u',', 1, 1);
            contact.fullName = contact.firstName + u' ' + contact.lastName;
            contact.companyName = person.section(u',', 2, 2);
            contact.businessAddressStreet = person.section(u',', 3, 3);
            folder.items.push_back(contact);
        }
        for (const vcard::Card& card : vcard::read(cards.toUtf8()).cards)
            folder.items.push_back(contactOf(card));
        if (folder.items.empty())
            folder.failure = u"no contacts here"_s;
        return folder;
    }
};

const QString everybody = u"Select FirstName,LastName,Title,AddressKey,CompanyKey from Contact"_s;

} // namespace

class TestFrmImport : public QObject
{
    Q_OBJECT

    std::unique_ptr<ScreenBench> m_bench;
    ListedFolder m_folder;
    std::unique_ptr<FrmImport> m_screen;

    void choose(const QString& control, const QString& text)
    {
        m_screen->form().edit(control, text);
        m_screen->fieldChanged(control);
    }
    void open(const QString& path)
    {
        choose(u"cmbInputSource"_s, path.endsWith(u"x"_s) ? u"MS Excel"_s : u"Text-CSV"_s);
        choose(u"txtFile"_s, path);
        m_screen->cmdLoadImport();
    }
    void openText(const QByteArray& text)
    {
        const QString path = m_bench->world.folder.filePath(u"people.csv"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        open(path);
        m_screen->cmdMapAll();
    }
    void store(const QString& came)
    {
        m_bench->expect(came);
        m_screen->cmdMap();
    }
    QString status() { return m_screen->form().text(u"lblStatus"_s); }

private slots:
    void init()
    {
        m_screen.reset();
        m_bench = std::make_unique<ScreenBench>();
        m_folder = {};
        m_screen = std::make_unique<FrmImport>(*m_bench->world.session, m_folder, m_bench->navigator);
    }

    void exportsOfOtherProgramsAreRecognised_data()
    {
        const char* const all = "Zoë|Quill|Head of Milling|Harrow Mills|4 Race Lane|Boston|+1 "
                                "617-555-0101|zoe@harrow.example|https://harrow.example";
        table({"cells"},
              {{"google.csv", all},
               {"google-older.csv", all},
               {"outlook.csv", all},
               {"thunderbird.csv", all},
               {"hubspot.csv", all},
               {"yahoo.csv", all},
               {"german.csv", all},
               {"spreadsheet.csv", all},
               {"linkedin.csv",
                "Zoë|Quill|Head of Milling|Harrow Mills||||zoe@harrow.example|https://harrow.example"},
               {"salesforce.csv", "Zoë|Quill|Head of Milling|Harrow Mills|4 Race Lane|Boston|+1 "
                                  "617-555-0101|zoe@harrow.example|"}});
    }
    void exportsOfOtherProgramsAreRecognised()
    {
        QFETCH(QString, cells);
        open(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/tests/data/imports/" +
             QString::fromLatin1(QTest::currentDataTag()));
        m_screen->cmdMapAll();
        store(u"Contacts: 1, companies: 1, addresses: 1"_s);
        QCOMPARE(m_bench->cells(u"Select FirstName,LastName,Title from Contact"_s) + u'|' +
                     m_bench->cells(u"Select Name from Company"_s) + u'|' +
                     m_bench->cells(u"Select Address1,City,Phone1,Email1,URL1 from Address"_s),
                 cells);
        QCOMPARE(m_bench->cells(u"Select AddressKey,CompanyKey from Contact"_s), u"1|1"_s);
        // The same file again brings in nothing.
        m_bench->expect(u"1 of the 1 people of this file are in the database already"_s, Answer::Yes);
        m_bench->expect(u"nothing new"_s);
        m_screen->cmdMap();
        QCOMPARE(m_bench->rows(u"Address"_s), 1);
    }

    void recordsAreTiedAndCounted()
    {
        m_bench->run(u"Insert into Company(Name) Values('Acme')"_s);
        openText(
            "First Name,Last Name,Company,City\nAnn,O'Neil,ACME,Ames\nBob,Ray,,Bonn\nCy,Day,New Co,Cork\n"
            "Di,Day,new co,Cork\n,,Only Co,Oslo\n,,Acme,Rome\n,,,\n");
        store(u"Contacts: 4, companies: 3, addresses: 5 came in. Passed over: 2."_s);
        QCOMPARE(m_bench->cells(everybody), u"Ann|O`Neil||1|1;Bob|Ray||2|2;Cy|Day||3|3;Di|Day||4|3"_s);
        QCOMPARE(m_bench->cells(u"Select Name,AddressKey from Company"_s),
                 u"Acme|;Bob Ray|2;New Co|3;Only Co|5"_s);
        QVERIFY(m_screen->report().csv().contains("line 7,Acme,is in the database already\r\n"));
        QSignalSpy told(m_screen.get(), &FrmImport::imported);
        m_bench->expect(u"Take back"_s, Answer::Yes);
        m_screen->cmdTakeBack();
        QCOMPARE(m_bench->cells(u"Select Name from Company"_s) + m_bench->cells(everybody), u"Acme"_s);
        QCOMPARE(told.size(), 1);
        QVERIFY(!m_screen->form().isEnabled(u"cmdTakeBack"_s));
    }
    void nothingIsTakenBackOnceSomethingElseWasWritten()
    {
        openText("First Name,Last Name\nAnn,Lee\n");
        store(u"Contacts: 1"_s);
        m_bench->run(u"Insert into Company(Name) Values('Later')"_s);
        m_bench->expect(u"Something else was written"_s);
        m_screen->cmdTakeBack();
        QCOMPARE(m_bench->rows(u"Contact"_s), 1);
    }
    void countsThatMisleadAreAskedAbout_data()
    {
        columns<Answer, QString>("answer", "key");
        QTest::newRow("last key") << Answer::Yes << u"3"_s;
        QTest::newRow("count") << Answer::No << u"2"_s;
        QTest::newRow("neither") << Answer::Cancel << QString();
    }
    void countsThatMisleadAreAskedAbout()
    {
        QFETCH(Answer, answer);
        m_bench->run(u"Insert into Company(Name) Values('A')"_s);
        m_bench->run(u"Insert into Company(Name) Values('B')"_s);
        m_bench->run(u"Delete * from Company where Name='A'"_s);
        openText("First Name,Last Name,Company\nAnn,Lee,New\n");
        m_bench->expect(u"tied to the wrong company"_s, answer);
        if (answer != Answer::Cancel)
            m_bench->expect(u"Contacts: 1"_s);
        m_screen->cmdMap();
        QTEST(m_bench->cells(u"Select CompanyKey from Contact"_s), "key");
    }
    void recordsBeyondTheKeysAreRefusedBeforeTheFirst()
    {
        m_bench->runRaw("Insert into Contact(ContactKey) Values(32765)");
        openText("First Name,Last Name\nA,B\nC,D\nE,F\n");
        m_bench->expect(u"the first 2 of these would fit"_s);
        m_screen->cmdMap();
        QCOMPARE(m_bench->rows(u"Company"_s), 0);
    }
    void storeIsWholeOrNotAtAll()
    {
        openText("First Name,Last Name,Notes\nAnn,Lee,\nBob,Ray," + QByteArray(20000, 'x'));
        m_bench->setDiskFull(true);
        m_bench->world.prompts.acceptAll(Answer::Ok);
        m_screen->cmdMap();
        m_bench->setDiskFull(false);
        QCOMPARE(m_bench->rows(u"Company"_s) + m_bench->rows(u"Contact"_s), 0);
        store(u"Contacts: 2"_s); // a retry brings them in
        QCOMPARE(m_bench->rows(u"Contact"_s), 2);
    }
    void mappingByHandIsKeptForFilesOfTheseColumns()
    {
        openText("Who,Where\nAnn Lee,Ames\n");
        choose(u"chkHeader"_s, u"1"_s);
        m_screen->lstFldClick(u"Contact.FullName"_s);
        m_screen->lstImportClick(0);
        m_screen->cmdMapField();
        m_screen->lstFldClick(u"Address.City"_s);
        m_screen->lstImportClick(1);
        m_screen->cmdMapField();
        QCOMPARE(m_screen->lstImport().index(1).data().toString(), u"Ames  -Address.City"_s);
        m_screen->lstFldClick(u"Address.AddressKey"_s);
        m_bench->expect(u"numbers its records itself"_s);
        m_screen->cmdMapField();
        choose(u"cmbMapping"_s, u"mine"_s);
        m_screen->cmdSaveMapping();
        m_bench->world.restart();
        FrmImport again(*m_bench->world.session, m_folder, m_bench->navigator);
        again.form().edit(u"cmbInputSource"_s, u"Text-CSV"_s);
        again.form().edit(u"txtFile"_s, m_bench->world.folder.filePath(u"people.csv"_s));
        again.cmdLoadImport();
        QCOMPARE(again.file().map.fields().join(u' '), u"Contact.FullName:1 Address.City:2"_s);
    }

    void checkedLoadOffersWhatIsNew()
    {
        m_bench->run(u"Insert into Address(Address1) Values('1 Elm')"_s);
        m_bench->run(u"Insert into Contact(FirstName,LastName) Values('Known','One')"_s);
        m_bench->run(u"Insert into Contact(FirstName,LastName) Values('Mary Ann','van Dyke')"_s);
        m_folder.people =
            QStringList{u"known,ONE,Acme,"_s, u"Mary Ann,van Dyke,Acme,"_s, u"Jo,de Wit,,1 Elm"_s,
                        u"Jo,de Wit,,1 Elm"_s, u"Jo,de Wit,Beta,2 Elm"_s};
        m_screen->cmdLoadOut();
        QCOMPARE(m_screen->lvwContacts().rows().size(), size_t(2));
        const ListRow& row = m_screen->lvwContacts().rows().front();
        QCOMPARE(row.key + u'/' + row.texts.join(u'/'), u"A3/Jo Wit  <<>>  Jo Wit/known/3"_s);
        QVERIFY(row.tip.contains(u"Jo de Wit"_s));
        QStringList companies;
        for (const ListRow& company : m_screen->lvwCompanies().rows())
            companies.append(company.texts[0]);
        QCOMPARE(companies.join(u' '), u"Acme Jo Wit Beta"_s);
        m_screen->cmdSelectAll();
        m_bench->expect(u"Selected contacts have been imported."_s);
        m_bench->expect(u"1 pairs of contacts"_s, Answer::No);
        m_screen->cmdImportList();
        // The first shares the address on file, the second of them has a company of its own.
        QCOMPARE(m_bench->cells(
                     u"Select FirstName,LastName,AddressKey,CompanyKey from Contact where LastName='Wit'"_s),
                 u"Jo|Wit|1|1;Jo|Wit|2|2"_s);
        m_screen->cmdLoadOut();
        QCOMPARE(m_screen->lvwContacts().rows().size(), size_t(0));
    }
    void candidateBeyondTheBoundIsTold()
    {
        for (int i = 0; i < 2001; ++i)
            m_folder.people.append(u"First,Last"_s + QString::number(i) + u",C,"_s);
        m_bench->expect(u"more than 2000"_s);
        m_screen->cmdLoadOut();
        QCOMPARE(m_screen->lvwContacts().rows().size(), size_t(2000));
    }
    void directImportStoresWithoutACheckUntilItIsStopped()
    {
        m_folder.people =
            QStringList{u"Ann,Lee,Acme,1 Elm"_s, u"Bob,Ray,Beta,"_s, u"Cy,Day,,"_s, u"Di,Day,,"_s};
        choose(u"cmbInputSource"_s, u"MS Outlook"_s);
        m_bench->expect(u"Add Ann Lee from Acme ?"_s, Answer::Yes);
        m_bench->expect(u"Add Bob Ray from Beta ?"_s, Answer::No);
        m_bench->expect(u"Add Cy Day from  ?"_s, Answer::Cancel);
        m_bench->expect(u"Your Outlook contact data has been loaded into Jobwright"_s);
        m_screen->cmdLoadImport();
        QCOMPARE(m_bench->cells(everybody), u"Ann|Lee||2|1"_s);
        QCOMPARE(m_bench->cells(u"Select Address1,Country from Address"_s), u"1 Elm|USA;|USA"_s);
    }
    void whatIsWrittenComesBackWithoutDoubles()
    {
        m_bench->run(u"Insert into Address(Address1,Address2,City) Values('1 Elm','Suite 2','Ames')"_s);
        m_bench->run(u"Insert into Company(Name,AddressKey) Values('A, \"B\" Co',1)"_s);
        m_bench->run(u"Insert into Contact(FirstName,Middle,LastName,Notes,CompanyKey,AddressKey) "
                     "Values('Mary Ann','Q','van Dyke','two,lines',1,1)"_s);
        openText(contactexport::contacts(m_bench->data()));
        m_bench->expect(u"1 of the 1 people"_s, Answer::Yes);
        m_bench->expect(u"nothing new"_s);
        m_screen->cmdMap();
        openText(contactexport::companies(m_bench->data()));
        m_bench->expect(u"nothing new"_s);
        m_screen->cmdMap();
        m_folder.cards = QString::fromUtf8(contactexport::vcards(m_bench->data()));
        m_screen->cmdLoadOut();
        QCOMPARE(m_screen->lvwContacts().rowCount() + m_screen->lvwCompanies().rowCount(), 0);
        // In another database all of it comes in.
        const QByteArray csv = contactexport::contacts(m_bench->data());
        init();
        openText(csv);
        store(u"Contacts: 1, companies: 1, addresses: 1"_s);
        QCOMPARE(m_bench->cells(u"Select FirstName,Middle,LastName,Notes from Contact"_s),
                 u"Mary Ann|Q|van Dyke|two,lines"_s);
        QCOMPARE(m_bench->cells(u"Select Address1,Address2,City from Address"_s), u"1 Elm|Suite 2|Ames"_s);
    }

    void twoContactsBecomeOne()
    {
        m_bench->run(
            u"Insert into Contact(FirstName,LastName,Title,ContactList,LastContact) Values('Ann','Lee','','2,3','11/2/2026')"_s);
        m_bench->run(
            u"Insert into Contact(FirstName,LastName,Title,ContactList,DocumentList,LastContact) Values('ANN B','Lée','Buyer','1','7','11/9/2026')"_s);
        m_bench->run(u"Insert into Contact(FirstName,LastName,ContactList) Values('Cy','Day','12,2')"_s);
        m_bench->run(u"Insert into Event(Event,ContactKey) Values('Call',2)"_s);
        for (const auto& row : {u"'1-1',1,1,'first','11/2/2026'"_s, u"'2-1',2,1,'early','11/1/2026'"_s,
                                u"'2-2',2,2,'late','11/9/2026'"_s})
            m_bench->run(
                u"Insert into History(HistoryKey,ContactKey,ContactCount,Topic,ContactDate) Values("_s + row +
                u')');
        FrmMerge merge(*m_bench->world.session);
        merge.load();
        QCOMPARE(merge.form().text(u"lblMoves"_s),
                 u"What moves: histories 2, events 1, links 2, documents 1."_s);
        m_bench->expect(u"Merge ANN B Lée into Ann Lee?"_s, Answer::Yes);
        merge.cmdMergeTwo();
        QCOMPARE(
            m_bench->cells(
                u"Select ContactKey,FirstName,Title,ContactList,DocumentList,LastContact from Contact where LastName='Lee'"_s),
            u"1|Ann|Buyer|3|7|11/9/2026"_s);
        QCOMPARE(m_bench->cells(u"Select HistoryKey,Topic from History order by ContactCount"_s),
                 u"1-1|early;1-2|first;1-3|late"_s);
        QCOMPARE(m_bench->cells(u"Select ContactKey from Event"_s) +
                     m_bench->cells(u"Select ContactList from Contact where LastName='Day'"_s),
                 u"112,1"_s);
        QCOMPARE(merge.pairCount(), 0);
    }
};

JOBWRIGHT_TEST(TestFrmImport)
#include "tst_frmimport.moc"
