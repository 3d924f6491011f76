// What comes in from a campaign file, what does not, and under which keys.
#include "store/campaignfile.h"
#include "support/campaign.h"
#include "support/runtest.h"
#include "support/table.h"

namespace {

/// A company with an address, a contact and a position in it.
XmlText smallCampaign(bool restore)
{
    XmlText file(restore);
    file.add(u"Address"_s,
             u"AddressKey='71' Address1='1 Mill St' Country='Norway' URL2='b' EntryDate='3/4/2026'"_s);
    file.add(u"Address"_s, u"AddressKey='72' City='Oslo' EntryDate='3/5/2026'"_s);
    file.add(u"Company"_s, u"CompanyKey='50' Name='Acme' ShortName='AC' AddressKey='71' Industry='Steel' "
                           "Notes='a&#13;&#10;b' EntryDate='1/2/2026'"_s);
    file.add(
        u"Contact"_s,
        u"ContactKey='10060' FirstName='Ann' Middle='B' LastName='Lee' Title='Chief' AddressKey='72' "
        "Department='D' ReportsTo='R' HiringMgr='100000000' BestMedium='01000000' ContactTime='8' Notes='n' "
        "LastContact='2/3/2026' EventKey='9' DocumentList='4' CompanyKey='50' ContactLevel='37' "
        "EntryDate='1/5/2026'"_s);
    file.add(
        u"History"_s,
        u"HistoryKey='10060-3' ContactKey='10060' ContactCount='3' Medium='Phone' Length='5 min' Topic='t' "
        u"Details='d' "
        "Location='l' Return='Other' NextCall='5/6/2026' ContactDate='4/5/2026' DocumentXfer='1'"_s);
    file.add(
        u"Position"_s,
        u"PositionKey='80' Title='Planner' EntryDate='1/6/2026' Keyword='k' CompanyResearch='1/7/2026' "
        "CompanyResearchMedium='5' OfferStatus='Open' ContactList='10060' CompanyKey='50' Expires='12/1/2026'"_s);
    file.add(u"Document"_s,
             u"ResumeKey='10090' Document='Resume' Version='2' Target='T' Sent='7' "
             "CreationDate='2/2/2026' Style='100000000000' Notes='n' Path='p' Type='Resume'"_s);
    return file;
}

/// Lets the store have given out @p key in these tables; the row itself is gone again.
void useUpKeys(World& world, const QString& tables, int key)
{
    for (const QString& table : tables.split(u' ')) {
        const QString column = schema::findTable(table)->columns.front().name;
        send(world, {u"Insert into %1(%2) VALUES('%3')"_s.arg(table, column).arg(key),
                     u"Delete * from %1 where %2=%3"_s.arg(table, column).arg(key)});
    }
}

} // namespace

class TestXmlImport : public QObject
{
    Q_OBJECT

private slots:
    void restoreReplacesWhatTheFileHolds()
    {
        World world;
        for (const QString& column :
             {u"Company(Name"_s, u"Contact(FirstName"_s, u"Position(Title"_s, u"Document(Document"_s,
              u"Event(Event"_s, u"ContactRecovery(FirstName"_s})
            send(world, {u"Insert into "_s + column + u") VALUES('Old')"});
        const QString settings = world.cells(u"Select * from Status"_s);
        XmlText file = smallCampaign(true);
        file.add(u"CProfile"_s,
                 u"CProfileKey='5' CompanyKey='50' QAns='#1#' PR='1' QCount='1' TemplateKey='1'"_s);
        file.add(u"JProfile"_s,
                 u"JProfileKey='5' PositionKey='80' QAns='#2#' PR='0' QCount='1' TemplateKey='1' "
                 "CompanyKey='50'"_s);
        file.add(u"Question"_s, u"QKey='44' Question='Q?' AnswerCount='2' AnswerPref='1' Answers='#a#b#' "
                                "AnswerType='M' ProfileType='0'"_s);
        file.add(u"Event"_s,
                 u"EventKey='3' Event='Interview' EventDate='12/31/1999' EventTime='9:00' EventDuration='1' "
                 u"AMPM='AM' "
                 "Reminder1='24' Reminder2='0' Description='d' PositionKey='80' ContactKey='10060' "
                 "CompanyKey='50' "
                 "Medium='Phone' EventType='Task' Complete='Complete'"_s);
        file.add(u"Target"_s, u"TargetKey='8' Name='Acme' InDB='Yes' Rank='4' TargetURL='u' CompanyKey='50' "
                              "EntryDate='1/1/2026'"_s);
        file.add(u"UProfile"_s, u"UProfileKey='6' Title='T' Index='Index' ExperienceTime='0' Subtitle='S'"_s);
        file.import(world);
        // Taken over but for countries, levels, documents and events of contacts, and positions of profiles;
        // with new keys, but profiles and targets keep the company's of the file.
        for (const auto& [select, rows] : std::initializer_list<std::pair<QString, QString>>{
                 {u"Address1,Country,URL2,EntryDate from Address"_s,
                  u"1 Mill St|USA|b|3/4/2026;|USA||3/5/2026"_s},
                 {u"* from Company"_s, u"2|Acme|AC|1|Steel|a\r\nb|1/2/2026"_s},
                 {u"* from Contact"_s,
                  u"10061|Ann|B|Lee|Chief|2|D|R|100000000|01000000|8|n|2/3/2026|0|||2|0|1/5/2026"_s},
                 {u"* from History"_s, u"10061-3|10061|3|Phone|5 min|t|d|l|Other|5/6/2026|4/5/2026|1"_s},
                 {u"Title,EntryDate,Keyword,CompanyResearch,CompanyResearchMedium,OfferStatus,ContactList,"
                  u"CompanyKey,"
                  "Expires from Position"_s,
                  u"Planner|1/6/2026|k|1/7/2026|5|Open|10061|2|12/1/2026"_s},
                 {u"* from Document"_s, u"10091|Resume|2|T|7|2/2/2026|100000000000|n|p|Resume"_s},
                 {u"* from CProfile"_s, u"1|50|#1#|1|1|1"_s},
                 {u"* from JProfile"_s, u"1||#2#|0|1|1|50"_s},
                 {u"* from Question"_s, u"1|Q?|2|1|#a#b#|M|0"_s},
                 {u"* from Event"_s,
                  u"2|Interview|12/31/1999|9:00|1|AM|24|0|d|2|10061|2|Phone|Task|Complete"_s},
                 {u"Name,InDB,Rank,TargetURL,CompanyKey,EntryDate from Target"_s,
                  u"Acme|Yes|4|u|50|1/1/2026"_s},
                 {u"Title,Index,ExperienceTime,Subtitle,EntryDate from UProfile"_s,
                  u"T|Index|0|S|12/31/1999"_s},
                 {u"FirstName from ContactRecovery"_s, u"Old"_s},
                 {u"* from Status"_s, settings}})
            QCOMPARE(world.cells(u"Select "_s + select), rows);
        // Each document's list fails and is logged; it is no record that stayed out, so nothing is shown.
        QVERIFY(world.errorLog().contains(u"DataJW-UpdateDocList"));
    }

    void mergeKeepsWhatIsThere()
    {
        World world;
        send(world,
             {u"Insert into Company(Name,Industry) VALUES('ACME','Own')"_s,
              u"Insert into Contact(FirstName,LastName,CompanyKey,Notes) VALUES('ann','lee','1','mine')"_s,
              u"Insert into Position(Title,CompanyKey,Notes) VALUES('Planner','1','mine')"_s,
              u"Insert into Document(Document,Notes) VALUES('Resume','mine')"_s,
              u"Insert into Event(Event) VALUES('Mine')"_s});
        XmlText file = smallCampaign(false);
        file.add(u"Contact"_s,
                 u"ContactKey='10061' FirstName='Bo' LastName='New' CompanyKey='50' AddressKey='72'"_s);
        file.add(u"History"_s, u"ContactKey='10061' ContactCount='1' Topic='new'"_s);
        file.add(u"Event"_s, u"Event='Theirs'"_s);
        file.import(world);
        QCOMPARE(world.cells(u"Select Name,Industry from Company"_s), u"ACME|Own"_s);
        QCOMPARE(world.cells(u"Select FirstName,Notes,CompanyKey from Contact"_s), u"ann|mine|1;Bo||1"_s);
        // The history of a person who is known already is dropped, a new one's comes in.
        QCOMPARE(world.cells(u"Select HistoryKey,Topic from History"_s), u"10062-1|new"_s);
        QCOMPARE(world.cells(u"Select Title,Notes from Position"_s), u"Planner|mine"_s);
        QCOMPARE(world.cells(u"Select Document,Notes from Document"_s), u"Resume|mine"_s);
        QCOMPARE(world.cells(u"Select Event from Event"_s), u"Mine"_s);
        QCOMPARE(world.cells(u"Select City from Address"_s), u"Oslo"_s); // the new contact's only
    }

    void sameNameAtTwoCompaniesIsTwoPeople()
    {
        World world;
        XmlText file(true);
        for (const QString& key : {u"1"_s, u"2"_s}) {
            file.add(u"Company"_s, u"CompanyKey='%1' Name='C%1'"_s.arg(key));
            file.add(u"Contact"_s,
                     u"ContactKey='%1' FirstName='Jo' LastName='Day' CompanyKey='%1'"_s.arg(key));
        }
        file.import(world);
        QCOMPARE(world.cells(u"Select FirstName,CompanyKey from Contact"_s), u"Jo|1;Jo|2"_s);
    }

    void listsGetTheNewKeys_data()
    {
        // oldKeys: of contacts in their order in the file
        table({"oldKeys", "list", "renewed"},
              {{"one of nobody is left out", "10057 10098", "10057, 10098,,10444", "10099,10100"},
               {"no new key is an old one", "10002 10001", "10001,10002", "10004,10003"},
               {"short keys are given five digits", "9 89 10001", "89,9,10001", "10005,10004,10006"},
               {"so are keys out of reach", "40000", "40000,x", "10002"},
               {"of doubled keys the first counts", "10007 10007", "10007", "10008"},
               {"as before where keys run short", "32767", "32767", "1"}});
    }
    void listsGetTheNewKeys()
    {
        FETCH(QString, oldKeys, list, renewed);
        World world;
        if (renewed == u"1")
            world.prompts.expect(u"keys of the contacts in the file are too high"_s);
        XmlText file(true);
        file.add(u"Company"_s, u"CompanyKey='1' Name='A'"_s);
        const QStringList keys = oldKeys.split(u' ');
        for (int i = 0; i < keys.size(); ++i)
            file.add(u"Contact"_s, u"ContactKey='%1' FirstName='F%2' CompanyKey='1' ContactList='%3'"_s.arg(
                                       keys[i], QString::number(i), list));
        file.add(u"Position"_s, u"PositionKey='1' Title='P' CompanyKey='1' ContactList='%1'"_s.arg(list));
        file.import(world);
        QCOMPARE(world.cells(u"Select ContactList from Contact"_s),
                 QStringList(keys.size(), renewed).join(u';'));
        QCOMPARE(world.cells(u"Select ContactList from Position"_s), renewed);
    }

    void recordsThatStayOutAreReported()
    {
        World world;
        const QString quoted = u"An 'odd' name"_s;
        world.prompts.expect(u"4 records of the file did not come in. The file ErrorLog.txt says why."_s);
        XmlText file = smallCampaign(false);
        file.add(u"Contact"_s, u"ContactKey='1' FirstName='F' CompanyKey='51'"_s);
        file.add(u"Position"_s, u"PositionKey='1' Title='P' CompanyKey='51'"_s);
        file.add(u"History"_s, u"ContactKey='999' ContactCount='1'"_s);
        file.raw(
            u"<Data Table='Document'><Record ResumeKey='1' Document=\"%1\" Version='' Target='' Sent='0' "
            "CreationDate='' Style='' Notes='' Path='' Type=''/></Data>"_s.arg(quoted));
        file.add(u"Document"_s, u"ResumeKey='2' Document='Behind'"_s);
        file.import(world);
        QCOMPARE(world.data().getCount(u"Contact"_s, true), Key(1));
        QCOMPARE(world.cells(u"Select Document from Document"_s), u"Resume;Behind"_s);
        const QString log = world.errorLog();
        QVERIFY(log.contains(u"1 of the Position records in the file belong to no record of Company"));
        QVERIFY(log.contains(u"DataJW-ExecQuery") && log.contains(quoted));
    }

    void missingAddressesAreCountedAndNamed()
    {
        World world;
        world.prompts.expect(
            u"2 records name addresses that the file does not have. The file ErrorLog.txt"_s);
        XmlText(false)
            .add(u"Company"_s, u"CompanyKey='1' Name='Acme' AddressKey='5'"_s)
            .add(u"Contact"_s,
                 u"ContactKey='10001' FirstName='Ann' LastName='Lee' CompanyKey='1' AddressKey='6'"_s)
            .add(u"Company"_s, u"CompanyKey='2' Name='None' AddressKey='0'"_s)
            .import(world);
        QVERIFY(world.errorLog().contains(u"The first are: Acme; Ann Lee\r\n"));
    }

    void doubledKeysComeInAsTheWalkHasThem()
    {
        World world;
        XmlText(false)
            .add(u"Company"_s, u"CompanyKey='1' Name='A'"_s)
            .add(u"Company"_s, u"CompanyKey='1' Name='B'"_s)
            .add(u"Contact"_s, u"ContactKey='10001' FirstName='Ann' CompanyKey='1'"_s)
            .add(u"History"_s, u"ContactKey='10001' ContactCount='1'"_s)
            .import(world);
        QCOMPARE(world.cells(u"Select FirstName,CompanyKey from Contact"_s), u"Ann|1;Ann|2"_s);
        QCOMPARE(world.cells(u"Select HistoryKey from History"_s), u"10002-1;10003-1"_s);
    }

    void missingAttributeStopsThere()
    {
        World world;
        world.prompts.expect(
            u"The import stopped: Record 1 of the table Contact lacks the attribute LastName. "
            "What was read before it is in the database."_s);
        XmlText file = smallCampaign(false);
        file.add(u"Company"_s, u"CompanyKey='2' Name='Second'"_s);
        file.raw(
            u"<Data Table='Contact'><Record ContactKey='1' CompanyKey='2' FirstName='F' Middle=''/></Data>"_s);
        file.add(u"Company"_s, u"CompanyKey='3' Name='Third'"_s);
        file.import(world, false);
        for (int looks = 0; looks < 2; ++looks) {
            QCOMPARE(world.data().getCompanyNames(), (QStringList{u"Acme"_s, u"Second"_s}));
            QCOMPARE(world.data().getCount(u"Contact"_s, true), Key(1));
            world.restart(); // what was read is on the disk
        }
    }

    void widerKeysComeInUnderNewOnes()
    {
        World world;
        XmlText file(true);
        file.add(u"Address"_s, u"AddressKey='99999' City='C'"_s);
        file.add(u"Company"_s, u"CompanyKey='abc' Name='A' AddressKey='99999'"_s);
        file.add(u"Contact"_s, u"ContactKey='40000' FirstName='F' CompanyKey='abc' ContactList='40000'"_s);
        file.add(u"History"_s, u"ContactKey='40000' ContactCount='1'"_s);
        file.add(u"Event"_s, u"Event='E' CompanyKey='abc' ContactKey='40000' PositionKey='0'"_s);
        file.import(world);
        QCOMPARE(world.cells(u"Select CompanyKey,AddressKey from Company"_s), u"1|1"_s);
        QCOMPARE(world.cells(u"Select HistoryKey,ContactKey from History"_s), u"10002-1|10002"_s);
        QCOMPARE(world.cells(u"Select CompanyKey,ContactKey from Event"_s), u"1|10002"_s);
    }

    void fileWithoutKeysLeftIsRefused_data()
    {
        columns<QString, int, bool, QString>("tables", "used", "restore", "message");
        const auto row = [](const char* name, const char* tables, int used, bool restore,
                            const char* message) {
            QTest::newRow(name) << QString::fromLatin1(tables) << used << restore
                                << QString::fromLatin1(message);
        };
        row("contacts of a restore", "Contact", 32766, true,
            "32766 keys of the table Contact and has none left for 2 more records. Nothing was changed. "
            "Restore the file into a new");
        row("addresses of a restore: each owner's", "Address", 32765, true, "for 3 more records");
        row("what only a restore brings", "Event", 32767, true, "the table Event and has none left for 1");
        row("what only a restore brings does not count in a merge", "Event", 32767, false, "");
        row("contacts of a merge, but for the one who is known", "Contact", 32767, false,
            "the table Contact and has none left for 1 more records. Nothing was changed. Export the data");
        row("a merge that just fits", "Contact", 32766, false, "");
        row("addresses of a merge", "Address", 32767, false, "the table Address and has none left for 1");
        row("names that are known", "Company Position Document", 32767, false, "");
    }
    void fileWithoutKeysLeftIsRefused()
    {
        FETCH(QString, tables, message);
        QFETCH(int, used);
        QFETCH(bool, restore);
        World world;
        send(world, {u"Insert into Company(Name) VALUES('ACME')"_s,
                     u"Insert into Contact(FirstName,LastName,CompanyKey) VALUES('ann','LEE','1')"_s,
                     u"Insert into Position(Title,CompanyKey) VALUES('PLANNER','1')"_s,
                     u"Insert into Document(Document) VALUES('RESUME')"_s});
        useUpKeys(world, tables, used);
        const QByteArray before = contentHash(world.data().database());
        if (!message.isEmpty())
            world.prompts.expect(message);
        XmlText file = smallCampaign(restore);
        for (const QString& name : {u"Bo"_s, u"BO"_s}) // the second is the first for the store
            file.add(u"Contact"_s, u"ContactKey='%1' FirstName='%1' CompanyKey='50'"_s.arg(name));
        file.add(u"Event"_s, u"Event='E'"_s).import(world, message.isEmpty());
        QCOMPARE(contentHash(world.data().database()) == before, !message.isEmpty());
        QCOMPARE(world.data().getCount(u"Contact"_s, true), Key(message.isEmpty() ? 2 : 1));
    }

    void ownExportMergesIntoAStoreWithoutKeys()
    {
        World world;
        smallCampaign(false).import(world);
        useUpKeys(world, u"Address Company Contact Position Document"_s, 32767);
        const QByteArray before = contentHash(world.data().database());
        QVERIFY(!world.data().createXML(u"own.xml"_s, false).isEmpty());
        world.data().importXML(world.session->file(u"own.xml"_s));
        QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
        QCOMPARE(contentHash(world.data().database()), before);
    }

    void fileThatNoDatabaseCanNumberIsRefused()
    {
        World world;
        world.prompts.expect(
            u"brings 32768 records of the table Question, and one database can number no more than 32767"_s);
        XmlText(true)
            .add(u"Company"_s, u"CompanyKey='1' Name='A'"_s)
            .raw(u"<Data Table='Question'>"_s + u"<Record/>"_s.repeated(32768) + u"</Data>")
            .import(world, false);
        QCOMPARE(world.data().getCompanyNames(), QStringList());
    }

    void restoreTakesACopyFirst()
    {
        World world;
        send(world, {u"Insert into Company(Name) VALUES('Old')"_s});
        const QString folder = world.session->file(u"backups"_s);
        QVERIFY(QFile(folder).open(QIODevice::WriteOnly)); // where the folder should be: no copy can be made
        world.prompts.expect(u"the copy could not be made"_s);
        smallCampaign(true).import(world, false);
        QCOMPARE(world.data().getCompanyNames(), QStringList{u"Old"_s});
        QVERIFY(QFile::remove(folder));
        smallCampaign(true).import(world);
        const QStringList copies = QDir(folder).entryList(QDir::Files);
        QCOMPARE(copies.size(), 1);
        Database copy(folder + u'/' + copies.first());
        QCOMPARE(copy.run(u"Select Name from Company").text(0), u"Old"_s);
    }
};

JOBWRIGHT_TEST(TestXmlImport)
#include "tst_xmlimport.moc"
