// What comes in from a campaign file, what does not, and under which keys.
#include "store/campaignfile.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

const QString quoted = u"An 'odd' name"_s;

/// A company with an address, a contact and a position in it.
XmlText smallCampaign(bool restore)
{
    XmlText file(restore);
    file.add(
        u"Address"_s,
        u"AddressKey='71' Address1='1 Mill St' Country='Norway' Phone1='555-0100' URL2='b' EntryDate='3/4/2026'"_s);
    file.add(u"Address"_s, u"AddressKey='72' City='Oslo' EntryDate='3/5/2026'"_s);
    file.add(
        u"Company"_s,
        u"CompanyKey='50' Name='Acme' ShortName='AC' AddressKey='71' Industry='Steel' Notes='a&#13;&#10;b' EntryDate='1/2/2026'"_s);
    file.add(u"Contact"_s,
             u"ContactKey='60' FirstName='Ann' Middle='B' LastName='Lee' Title='Chief' AddressKey='72' "
             u"Department='D' "
             "ReportsTo='R' HiringMgr='100000000' BestMedium='01000000' ContactTime='8' Notes='n' "
             "LastContact='2/3/2026' "
             "EventKey='9' DocumentList='4' CompanyKey='50' ContactLevel='37' EntryDate='1/5/2026'"_s);
    file.add(u"History"_s,
             u"HistoryKey='60-3' ContactKey='60' ContactCount='3' Medium='Phone' Length='5 min' Topic='t' "
             u"Details='d' "
             "Location='l' Return='Other' NextCall='5/6/2026' ContactDate='4/5/2026' DocumentXfer='1'"_s);
    file.add(
        u"Position"_s,
        u"PositionKey='80' Title='Planner' EntryDate='1/6/2026' Keyword='k' CompanyResearch='1/7/2026' "
        "CompanyResearchMedium='5' OfferStatus='Open' ContactList='60' CompanyKey='50' Expires='12/1/2026'"_s);
    file.add(u"Document"_s,
             u"ResumeKey='90' Document='Resume' Version='2' Target='T' Sent='7' CreationDate='2/2/2026' "
             "Style='100000000000' Notes='n' Path='p' Type='Resume'"_s);
    return file;
}

void expectStepEight(World& world)
{
    // Each document's list fails and is logged; it is no record that stayed out, so nothing is shown.
    QVERIFY(world.errorLog().contains(u"DataJW-UpdateDocList"));
}

} // namespace

class TestXmlImport : public QObject
{
    Q_OBJECT

private slots:
    void restoreReplacesWhatTheFileHolds()
    {
        World world;
        for (const char* table : {"Company", "Contact", "Position", "Document"}) {
            const QString column = QLatin1String(table) == u"Contact"    ? u"FirstName"_s
                                   : QLatin1String(table) == u"Position" ? u"Title"_s
                                   : QLatin1String(table) == u"Document" ? u"Document"_s
                                                                         : u"Name"_s;
            QVERIFY(world.data().execQuery(u"Insert into "_s + QLatin1String(table) + u"(" + column +
                                           u") VALUES('Old')"));
        }
        QVERIFY(world.data().execQuery(u"Insert into Event(Event) VALUES('Old')"_s));
        QVERIFY(world.data().execQuery(u"Insert into ContactRecovery(FirstName) VALUES('Kept')"_s));
        const QStringList settings = rowTexts(world, u"Select * from Status"_s);
        smallCampaign(true).import(world);
        QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
        QCOMPARE(world.data().getCompanyNames(), QStringList{u"Acme"_s});
        QCOMPARE(rowTexts(world, u"Select FirstName from Contact"_s), QStringList{u"Ann"_s});
        QCOMPARE(rowTexts(world, u"Select Title from Position"_s), QStringList{u"Planner"_s});
        QCOMPARE(rowTexts(world, u"Select * from Event"_s), QStringList());
        QCOMPARE(rowTexts(world, u"Select FirstName from ContactRecovery"_s), QStringList{u"Kept"_s});
        QCOMPARE(rowTexts(world, u"Select * from Status"_s), settings);
        expectStepEight(world);
    }

    void everyTable_data()
    {
        table({"select", "row"},
              {{"an address comes in whole but for its country",
                "Select Address1,Country,Phone1,URL2,EntryDate from Address where Address1='1 Mill St'",
                "1 Mill St|USA|555-0100|b|3/4/2026"},
               {"a company comes in whole with line ends in its notes",
                "Select CompanyKey,Name,ShortName,AddressKey,Industry,Notes,EntryDate from Company",
                "1|Acme|AC|1|Steel|a\r\nb|1/2/2026"},
               {"a contact comes in without level, documents and event",
                "Select "
                "ContactKey,Middle,Title,AddressKey,Department,ReportsTo,HiringMgr,BestMedium,ContactTime,"
                "Notes,LastContact,EventKey,DocumentList,CompanyKey,ContactLevel,EntryDate from Contact",
                "1|B|Chief|2|D|R|100000000|01000000|8|n|2/3/2026|0||1|0|1/5/2026"},
               {"a history gets its key from the new contact", "Select * from History",
                "1-3|1|3|Phone|5 min|t|d|l|Other|5/6/2026|4/5/2026|1"},
               {"a position comes in with its steps",
                "Select "
                "Title,EntryDate,Keyword,CompanyResearch,CompanyResearchMedium,OfferStatus,CompanyKey,"
                "Expires from Position",
                "Planner|1/6/2026|k|1/7/2026|5|Open|1|12/1/2026"},
               {"a document comes in whole", "Select * from Document",
                "1|Resume|2|T|7|2/2/2026|100000000000|n|p|Resume"},
               {"a company profile keeps the key of the file",
                "Select CompanyKey,QAns,PR,QCount,TemplateKey from CProfile", "50|#1#|1|1|1"},
               {"a position profile loses its position",
                "Select PositionKey,QAns,PR,QCount,TemplateKey,CompanyKey from JProfile", "|#2#|0|1|1|50"},
               {"a question gets a new key", "Select * from Question", "1|Q?|2|1|#a#b#|M|0"},
               {"an event comes in with mapped keys", "Select * from Event",
                "1|Interview|12/31/1999|9:00|1|AM|24|0|d|1|1|1|Phone|Task|Complete"},
               {"a target keeps the company key of the file",
                "Select TargetKey,Name,InDB,Rank,TargetURL,CompanyKey,EntryDate from Target",
                "1|Acme|Yes|4|u|50|1/1/2026"},
               {"a profile item comes in whole",
                "Select UProfileKey,Title,Index,ExperienceTime,Subtitle,EntryDate from UProfile",
                "1|T|Index|0|S|12/31/1999"}});
    }
    void everyTable()
    {
        FETCH(QString, select, row);
        World world;
        XmlText file = smallCampaign(true);
        file.add(u"CProfile"_s,
                 u"CProfileKey='5' CompanyKey='50' QAns='#1#' PR='1' QCount='1' TemplateKey='1'"_s);
        file.add(
            u"JProfile"_s,
            u"JProfileKey='5' PositionKey='80' QAns='#2#' PR='0' QCount='1' TemplateKey='1' CompanyKey='50'"_s);
        file.add(
            u"Question"_s,
            u"QKey='44' Question='Q?' AnswerCount='2' AnswerPref='1' Answers='#a#b#' AnswerType='M' ProfileType='0'"_s);
        file.add(
            u"Event"_s,
            u"EventKey='3' Event='Interview' EventDate='12/31/1999' EventTime='9:00' EventDuration='1' "
            u"AMPM='AM' "
            u"Reminder1='24' "
            "Reminder2='0' Description='d' PositionKey='80' ContactKey='60' CompanyKey='50' Medium='Phone' EventType='Task' Complete='Complete'"_s);
        file.add(
            u"Target"_s,
            u"TargetKey='8' Name='Acme' InDB='Yes' Rank='4' TargetURL='u' CompanyKey='50' EntryDate='1/1/2026'"_s);
        file.add(u"UProfile"_s, u"UProfileKey='6' Title='T' Index='Index' ExperienceTime='0' Subtitle='S'"_s);
        file.import(world);
        QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
        QCOMPARE(rowTexts(world, select), QStringList{row});
    }

    void mergeKeepsWhatIsThere()
    {
        World world;
        DataJW& data = world.data();
        QVERIFY(data.execQuery(u"Insert into Company(Name,Industry) VALUES('ACME','Own')"_s));
        QVERIFY(data.execQuery(
            u"Insert into Contact(FirstName,LastName,CompanyKey,Notes) VALUES('ann','lee','1','mine')"_s));
        QVERIFY(
            data.execQuery(u"Insert into Position(Title,CompanyKey,Notes) VALUES('Planner','1','mine')"_s));
        QVERIFY(data.execQuery(u"Insert into Document(Document,Notes) VALUES('Resume','mine')"_s));
        QVERIFY(data.execQuery(u"Insert into Event(Event) VALUES('Mine')"_s));
        XmlText file = smallCampaign(false);
        file.add(u"Contact"_s,
                 u"ContactKey='61' FirstName='Bo' LastName='New' CompanyKey='50' AddressKey='72'"_s);
        file.add(u"History"_s, u"ContactKey='61' ContactCount='1' Topic='new'"_s);
        file.add(u"Event"_s, u"Event='Theirs'"_s);
        file.import(world);
        QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
        QCOMPARE(rowTexts(world, u"Select Name,Industry from Company"_s), QStringList{u"ACME|Own"_s});
        QCOMPARE(rowTexts(world, u"Select FirstName,Notes,CompanyKey from Contact"_s),
                 (QStringList{u"ann|mine|1"_s, u"Bo||1"_s}));
        // The history of a person who is known already is dropped, a new one's comes in.
        QCOMPARE(rowTexts(world, u"Select HistoryKey,Topic from History"_s), QStringList{u"2-1|new"_s});
        QCOMPARE(rowTexts(world, u"Select Title,Notes from Position"_s), QStringList{u"Planner|mine"_s});
        QCOMPARE(rowTexts(world, u"Select Document,Notes from Document"_s), QStringList{u"Resume|mine"_s});
        QCOMPARE(rowTexts(world, u"Select Event from Event"_s), QStringList{u"Mine"_s});
        QCOMPARE(rowTexts(world, u"Select City from Address"_s),
                 QStringList{u"Oslo"_s}); // the new contact's only
    }

    void sameNameAtTwoCompaniesIsTwoPeople()
    {
        World world;
        XmlText file(true);
        file.add(u"Company"_s, u"CompanyKey='1' Name='A'"_s).add(u"Company"_s, u"CompanyKey='2' Name='B'"_s);
        file.add(u"Contact"_s, u"ContactKey='1' FirstName='Jo' LastName='Day' CompanyKey='1'"_s);
        file.add(u"Contact"_s, u"ContactKey='2' FirstName='Jo' LastName='Day' CompanyKey='2'"_s);
        file.import(world);
        QCOMPARE(rowTexts(world, u"Select FirstName,CompanyKey from Contact"_s),
                 (QStringList{u"Jo|1"_s, u"Jo|2"_s}));
    }

    void listsGetTheNewKeys_data()
    {
        // oldKeys: of contacts that come in as 1, 2, ...
        columns<QStringList, QString, QString>("oldKeys", "list", "renewed");
        QTest::addRow("each key is replaced by its own")
            << QStringList{u"57"_s, u"98"_s} << u"57,98"_s << u"1,2"_s;
        QTest::addRow("a key of nobody stays") << QStringList{u"57"_s} << u"57,444"_s << u"1,444"_s;
        QTest::addRow("a key inside another is replaced as text")
            << QStringList{u"9"_s} << u"89,9"_s << u"81,1"_s;
        QTest::addRow("a new key can be an old one of a later pair")
            << QStringList{u"2"_s, u"1"_s} << u"2,7"_s << u"2,7"_s;
    }
    void listsGetTheNewKeys()
    {
        QFETCH(QStringList, oldKeys);
        FETCH(QString, list, renewed);
        World world;
        XmlText file(true);
        file.add(u"Company"_s, u"CompanyKey='1' Name='A'"_s);
        for (const QString& key : oldKeys)
            file.add(u"Contact"_s,
                     u"ContactKey='%1' FirstName='F%1' CompanyKey='1' ContactList='%2'"_s.arg(key, list));
        file.add(u"Position"_s, u"PositionKey='1' Title='P' CompanyKey='1' ContactList='%1'"_s.arg(list));
        file.import(world);
        QCOMPARE(rowTexts(world, u"Select ContactList from Contact"_s), QStringList(oldKeys.size(), renewed));
        QCOMPARE(rowTexts(world, u"Select ContactList from Position"_s), QStringList{renewed});
    }

    void valueWithQuoteFailsAlone()
    {
        World world;
        world.prompts.expect(u"One record of the file did not come in. The file ErrorLog.txt says why."_s);
        XmlText file = smallCampaign(false);
        file.raw(u"<Data Table=\"Document\"><Record ResumeKey=\"1\" Document=\"%1\" Version=\"\" Target=\"\" "
                 u"Sent=\"0\" CreationDate=\"\" "
                 "Style=\"\" Notes=\"\" Path=\"\" Type=\"\"/></Data>"_s.arg(quoted));
        file.add(u"Document"_s, u"ResumeKey='2' Document='Behind'"_s);
        file.import(world);
        QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
        QCOMPARE(rowTexts(world, u"Select Document from Document"_s),
                 (QStringList{u"Resume"_s, u"Behind"_s}));
        QVERIFY(world.errorLog().contains(u"DataJW-ExecQuery"));
        QVERIFY(world.errorLog().contains(quoted));
    }

    void recordsOfNobodyAreReported()
    {
        World world;
        world.prompts.expect(u"3 records of the file did not come in."_s);
        XmlText file = smallCampaign(false);
        file.add(u"Contact"_s, u"ContactKey='1' FirstName='F' CompanyKey='51'"_s);
        file.add(u"Position"_s, u"PositionKey='1' Title='P' CompanyKey='51'"_s);
        file.add(u"History"_s, u"ContactKey='999' ContactCount='1'"_s);
        file.import(world);
        QCOMPARE(world.data().getCount(u"Contact"_s, true), Key(1));
        QVERIFY(world.errorLog().contains(
            u"1 of the Position records in the file belong to no record of Company"));
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
        file.import(world);
        QCOMPARE(world.data().getCompanyNames(), (QStringList{u"Acme"_s, u"Second"_s}));
        QCOMPARE(world.data().getCount(u"Contact"_s, true), Key(1));
        QVERIFY(world.session->statusLine() != u"Import Complete");
        world.restart(); // what was read is on the disk
        QCOMPARE(world.data().getCompanyNames(), (QStringList{u"Acme"_s, u"Second"_s}));
    }

    void widerKeysComeInUnderNewOnes()
    {
        World world;
        XmlText file(true);
        file.add(u"Address"_s, u"AddressKey='99999' City='C'"_s)
            .add(u"Company"_s, u"CompanyKey='abc' Name='A' AddressKey='99999'"_s);
        file.add(u"Contact"_s, u"ContactKey='40000' FirstName='F' CompanyKey='abc' ContactList='40000'"_s);
        file.add(u"History"_s, u"ContactKey='40000' ContactCount='1'"_s);
        file.add(u"Event"_s, u"Event='E' CompanyKey='abc' ContactKey='40000' PositionKey='0'"_s);
        file.import(world);
        QCOMPARE(rowTexts(world, u"Select CompanyKey,AddressKey from Company"_s), QStringList{u"1|1"_s});
        QCOMPARE(rowTexts(world, u"Select HistoryKey,ContactKey from History"_s), QStringList{u"1-1|1"_s});
        QCOMPARE(rowTexts(world, u"Select CompanyKey,ContactKey from Event"_s), QStringList{u"1|1"_s});
    }

    void restoreWithoutKeysLeftIsRefused()
    {
        World world;
        world.prompts.expect(
            u"32766 keys of the table Contact and has none left for 2 more records. Nothing was changed."_s);
        // The store never uses a key twice: this row is gone, its number is not to be had again.
        QVERIFY(
            world.data().execQuery(u"Insert into Contact(ContactKey,FirstName) VALUES('32766','Last')"_s));
        QVERIFY(world.data().execQuery(u"Delete * from Contact"_s));
        QVERIFY(world.data().execQuery(u"Insert into Company(Name) VALUES('Kept')"_s));
        smallCampaign(true)
            .add(u"Contact"_s, u"ContactKey='1' FirstName='F' CompanyKey='50'"_s)
            .import(world);
        QCOMPARE(world.data().getCompanyNames(), QStringList{u"Kept"_s});
        QVERIFY(world.session->statusLine() != u"Import Complete");
    }

    void restoreTakesACopyFirst()
    {
        World world;
        QVERIFY(world.data().execQuery(u"Insert into Company(Name) VALUES('Old')"_s));
        {
            // A file where the folder of copies should be: no copy can be made.
            QFile inTheWay(world.session->file(u"backups"_s));
            QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        }
        world.prompts.expect(u"the copy could not be made"_s);
        smallCampaign(true).import(world);
        QCOMPARE(world.data().getCompanyNames(), QStringList{u"Old"_s});
        QVERIFY(QFile::remove(world.session->file(u"backups"_s)));
        smallCampaign(true).import(world);
        const QStringList copies = QDir(world.session->file(u"backups"_s)).entryList(QDir::Files);
        QCOMPARE(copies.size(), 1);
        Database copy(world.session->file(u"backups/"_s + copies.first()));
        QCOMPARE(copy.run(u"Select Name from Company").text(0), u"Old"_s);
    }
};

QTEST_GUILESS_MAIN(TestXmlImport)
#include "tst_xmlimport.moc"
