#include "store/engine/storeerror.h"
#include "support/campaign.h"
#include "support/errorlog.h"
#include "support/gatewaycalls.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

QDate june(int day)
{
    return {2026, 6, day};
}

void runOnHandle(World& world, const QString& sql)
{
    QCOMPARE(sqlite3_exec(world.data().database().handle(), sql.toUtf8(), nullptr, nullptr, nullptr),
             SQLITE_OK);
}

} // namespace

// Rows of the tables below; a call's text is its row's name.
#define READ(operation, expected) QTest::newRow(#operation) << CALL(operation) << QStringLiteral(expected)
#define LOGGED(operation, expected, said)                                                                    \
    QTest::newRow(#operation) << CALL(operation) << QStringLiteral(expected) << QStringLiteral(said) << false
#define SHOWN(operation, expected, said)                                                                     \
    QTest::newRow(#operation) << CALL(operation) << QStringLiteral(expected) << QStringLiteral(said) << true
#define REFUSED(operation, fallback, said)                                                                   \
    QTest::newRow(#operation) << CALL(operation) << QStringLiteral(fallback) << QStringLiteral(said)

/// What the reading operations answer, and what they leave in the log when there is nothing to answer.
class TestGatewayReading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_read = std::make_unique<World>();
        loadCampaign(*m_read);
    }

    void cleanupTestCase() { m_read.reset(); }

    void answerFromRows_data()
    {
        columns<GatewayCall, QString>("call", "expected");
        READ(getCompany(u"*"_s), "1,2");
        READ(getCompany(u"bOREALIS"_s), "2");       // company in another case
        READ(getCompany(u"Nobody"_s), "no rows");   // unknown company has no rows
        READ(getCompanyNames(), "Borealis|Zenith"); // company names are sorted
        READ(getCompanyKey(u"borealis"_s), "2");
        // Company of a contact is the first namesake's
        READ(getCompanyKeyByContact(u"Ann"_s, u"lee"_s), "1");
        READ(getCompanyNameByKey(2), "Borealis");
        READ(getCompanyNameByKey(2, true), ""); // skip asks nothing
        READ(getFirstEntryDate(), "2026-03-01");
        READ(getPosition(u"Borealis"_s, u"planner"_s), "3");
        READ(getPosition(u"Borealis"_s, u"*"_s), "2,1,3");    // all positions by title
        READ(getPositionKey(u"Planner"_s, u"Zenith"_s), "1"); // position key is the company's own
        READ(getPositionNameByKey(2), "Analyst");
        READ(getPositionNames(u"Zenith"_s), "Analyst|Planner"); // position names are sorted
        READ(getPositionNames(u"<New>"_s), "");                 // no positions of a company not saved
        READ(getPositionKeysAll(), "1,2,3");
        READ(parsePositionText(1, false), "Transit");
        // Words of a full position join title and duties
        READ(parsePositionText(1, true), "Transit|PlannerPlan|routes|routes|Rail|none");
        READ(getContact(u"Ann"_s, u"Lee"_s), "3"); // contact by name is the last namesake
        READ(getContactKey(u"Ann"_s, u"Lee"_s, u"Zenith"_s), "1");
        // Contact key in all companies is the last match
        READ(getContactKey(u"Ann"_s, u"Lee"_s, u"*"_s), "3");
        READ(getContactKey(u"Cy"_s, u"Abbot"_s, u"Zenith"_s), "0"); // no such contact at the company
        READ(getContactKeyFull(u"Ann Lee"_s, 2), "3");
        READ(getAddressKey(u"Cy Abbot"_s), "10");
        READ(getAddressKey(u"Mary Ann Young"_s), "0"); // a first name of two words is not found
        // All contacts by last name
        READ(getContactAll(), "Cy Abbot|Ann Lee|Ann Lee| Bob  Stone |Mary Ann Young");
        READ(getContactByKey(4), "Cy Abbot");
        READ(getContactDataByKey(5), "5");
        READ(getContactKeys(u"Borealis"_s), "3,4");
        READ(getContactNames(u"Zenith"_s), "Ann Lee|Bob Stone"); // contact names are trimmed
        READ(getContactCountByCompanyKey(1), "2");
        // Document as only, last, middle and first item, not within a number
        READ(getContactKeyFromDocumentKey(1), "1,2,3,4");
        READ(getContactKeyFromDocumentKey(2), ""); // document within a number only
        READ(getAddress(2), "2");
        READ(getAddressAll(), "1,2");
        READ(getDocument(2), "2");
        READ(getDocumentByKey(1), "Resume A");
        READ(getDocumentByKey(9), "");
        READ(getDocumentKey(u"letter"_s), "2");
        READ(loadDox(), "1:Resume A|2:Letter");
        READ(getHistoryCount(1), "2");                     // count of the last history stored
        READ(getHistoryByContactKeyCnt(1), "1-1,1-2,1-3"); // histories by date and count
        READ(getHistoryByContactKey(3), "3-1");
        READ(getEventByKey(2), "2");
        READ(getEventAll(), "2,1");         // events by date
        READ(getEventAll(u"event"_s), "1"); // events of a type
        READ(getLastEventAddedKey(), "2");
        READ(getUProfile(u"dispatcher"_s, u"night"_s), "1");
        READ(getUProfileKeyAll(), "1");
        READ(getUProfileCount(), "1");
        READ(getTargets(), "1:Borealis|2:Kestrel");
        READ(getTargetByKey(2), "2:Kestrel");
        READ(getTargetName(u"BOREALIS"_s), "1:Borealis");
        READ(getTargetCount(), "2");
        READ(getCQuestions(0), "Size?|Travel?");
        READ(getPrefAnswers(0), "middle|"); // preferred answers, none for 0
        READ(getProfileAnswers(false, 1, 2), "large");
        READ(getProfileAnswers(false, 9, 2), "much"); // question past the end is the last one
        READ(getProfileAnswers(true, 3, 1), "night");
        READ(getProfileRank(false, 2), "1");
        READ(getProfileRank(true, 1), "5");
        READ(getProfileCount(true), "3");
        READ(getAnswerNumber(3, true, 1), "2");
        READ(getAnswerNumber(4, true, 1), "0"); // answer number past the answers
        READ(getAnswers(1, 0, 3), "large");
        READ(getAnswers(1, 0, 4), ""); // answer text past the answers
        READ(getCount(u"Contact"_s, true), "5");
        READ(getCount(u"Contact"_s, true, u"CompanyKey"_s, 2), "2");
        READ(getCount(u"PositionRecovery"_s, false, u"PositionKey"_s), "0");
        READ(getCount(u"Address"_s, false, u"AddressKey"_s), "2");
        // First column of the last row in another order
        READ(getCount(u"Contact"_s, false, u"CompanyKey"_s, 0, u"LastName"_s), "5");
        READ(getCountSp(u"Contact"_s, true, u"ContactList > ''"_s), "2");
        // Key value without a condition of its own is not looked at
        READ(getCountSp(u"Contact"_s, false, u"CompanyKey=1"_s, u"ContactKey"_s, 4), "2");
        READ(getCounter(u"Select Count(*) from Contact where CompanyKey=2"_s), "2");
        READ(getFields(u"cprofile"_s), "CProfileKey|CompanyKey|QAns|PR|QCount|TemplateKey");
        READ(keyVerification(10, u"AddressKey"_s, u"Contact"_s), "true");
        READ(keyVerification(99, u"AddressKey"_s, u"Contact"_s), "false");
        READ(getLastKeyInTable(u"Contact"_s, u"ContactKey"_s), "5");
        READ(getKSearch(u"Contact"_s, u"Notes"_s, u"AcMe"_s), "1,2"); // search in any case
        // Search in histories names the contact for each hit
        READ(getKSearch(u"History"_s, u"Topic"_s, u"fair"_s), "1,1");
        READ(getExecQueryRecords(u"Select * from Position where Title='planner';"_s), "1,3");
        READ(getPositionsExpiredCount(1), "0"); // no position ever counts as expired
        READ(getProgressCount(u"Hired"_s, june(1), june(30)), "no rows"); // progress between days is empty
        READ(getProgressDateCount(u"Hired"_s, june(1), june(16)), "1");   // step dates strictly between
        // Step dates, the last day excluded
        READ(getProgressDateCount(u"Hired"_s, june(1).addDays(-1), june(15)), "1");
        // Offers are the hired step with its medium
        READ(getProgressDateCount(u"Offers"_s, june(1).addDays(-1), june(30), 3), "1");
        READ(getNewTableCount(u"Contact"_s, june(1), june(30)), "1"); // a new contact is its first history
        READ(getNewTableCount(u"History"_s, june(1), june(30)), "3");
        READ(getNewTableCount(u"Company"_s, QDate(2026, 3, 1), june(1)), "1");
        READ(getStatusHours(june(1), june(30)), "1");  // two sessions of 40 minutes are an hour
        READ(getStatusHours(june(10), june(30)), "0"); // one session is no hour
        READ(getStatusValue(u"minlog"_s), "500");      // oldest value of a name
    }
    void answerFromRows()
    {
        QFETCH(GatewayCall, call);
        QFETCH(QString, expected);
        QFile::remove(m_read->session->file(u"ErrorLog.txt"_s));
        QCOMPARE(call(m_read->data()), expected);
        QCOMPARE(m_read->errorLog(), QString());
    }

    void failWithoutAStore_data() { answerFromRows_data(); }
    void failWithoutAStore()
    {
        // Operations whose failures are logged under another name than their own.
        const QHash<QString, QString> tags{{u"getPositionByKey"_s, u"GetPosition"_s},
                                           {u"getPositionKeysAll"_s, u"GetPositionKeyAll"_s},
                                           {u"getUProfileCount"_s, u"GetUProfileKeyAll"_s},
                                           {u"getPositionsExpiredCount"_s, u"GetPositionsExpired"_s},
                                           {u"getProgressCount"_s, u"GetPositionData"_s},
                                           {u"getStatusValue"_s, u"GetStatusValueErr"_s}};
        const QStringList defaults{QString(), u"0"_s, u"false"_s, u"nothing"_s, u"no date"_s, u"0:"_s};
        QFETCH(GatewayCall, call);
        World world;
        world.prompts.acceptAll(Answer::Ok);
        QVERIFY(QFile::remove(world.session->databasePath()));
        const ReadWatch watch(world.data());
        const QString answer = call(world.data());
        QVERIFY2(defaults.contains(answer), qPrintable(answer));
        const auto entries = LogEntry::parse(world.errorLog());
        const QString operation = QString::fromLatin1(QTest::currentDataTag()).section(u'(', 0, 0);
        if (QByteArray(QTest::currentDataTag()).endsWith("true)") || operation == u"getPositionNames")
            return; // these need not ask
        QVERIFY(watch.failed());
        const QString tag = entries.back().text.section(u"\r\n"_s, 0, 0);
        QCOMPARE(tag.toLower(), QString(u"datajw-" + tags.value(operation, operation).toLower()));
        QVERIFY(!entries.back().suppressed);
    }

    void sayWhatWasNotFound_data()
    {
        // said: behind the gateway's name
        columns<GatewayCall, QString, QString, bool>("call", "expected", "said", "shown");
        LOGGED(getCompanyNames(), "", "GetCompanyNames\r\n No Company Names found.");
        LOGGED(getCompanyKeyByContact(u"Ann"_s, u"Lee"_s), "0",
               "getCompanyKeyByContact:AnnLee First and Last name not found");
        LOGGED(getPosition({}, u"*"_s), "nothing", "GetPosition- No positions found.");
        SHOWN(getPosition(u"Acme"_s, u"Planner"_s), "nothing", "GetPosition- Position Key not found.");
        LOGGED(getPositionByKey(4), "nothing", "GetPositionByKey - Position Key not found.");
        LOGGED(getPositionNames(u"Acme"_s), "",
               "GetPositionNames - Acme: CompanyKey Not Found or No Positions available");
        LOGGED(getPositionKeysAll(), "", "getPositionKeysAll - No positions found");
        SHOWN(parsePositionText(4, true), "", "parsePositionText - Position key not found.");
        SHOWN(getContact(u"Ann"_s, u"Lee"_s), "nothing", "GetContact - Contact Key not found.");
        LOGGED(getContactAll(), "", "GetContactAll - No Contact Records Available");
        SHOWN(getContactDataByKey(4), "nothing", "GetContactDataByKey - Contact Key not found.");
        SHOWN(getContactKeyFull(u"Ann Lee"_s, 7), "0",
              "GetContactKeyFull - No names available for Ann Lee : 7");
        LOGGED(getContactKeys(u"Acme"_s), "", "GetContactKeys - No contacts found.");
        LOGGED(getContactNames(u"Acme"_s), "",
               "GetContactNames - Acme: Company Key not found or No Contacts Available");
        LOGGED(getContactCountByCompanyKey(7), "0",
               "getContactCountByCompanyKey - 7: Company Key not found or No Contacts Available");
        LOGGED(getContactKeyFromDocumentKey(1), "",
               "GetContactKeyFromDocumentKey - No document keys found not found.");
        SHOWN(getDocument(4), "nothing", "GetDocument - DocumentKey not found.");
        LOGGED(getDocumentKey(u"CV"_s), "0", "GetDocumentKey - No document found");
        LOGGED(loadDox(), "", "LoadDox\r\nNo Document records found.");
        LOGGED(getHistoryCount(4), "0", "GetHistoryCount - No contacts found.");
        SHOWN(getUProfileByKey(4), "nothing", "GetUProfileByKey - UProfile not found.");
        SHOWN(getUProfileKey(u"A"_s, u"B"_s), "0", "GetUProfileKey - UProfileKey not found.");
        LOGGED(getUProfileKeyAll(), "", " GetUProfileKeyAll - No UProfiles found");
        LOGGED(getTargets(), "", "getTargets\r\nNo Target Companies records found.");
        LOGGED(getTargetByKey(4), "0:", "getTargetByKey\r\nNo Target Companies records found.");
        LOGGED(getTargetName(u"Acme"_s), "0:", "getTargetName\r\nNo Target Companies records found.");
        LOGGED(getTargetCount(), "0", "GetTargetCount - No contacts found.");
        LOGGED(getCQuestions(1), "", "getCQuestions - 1: Profile Type not found or No Questions Available");
        LOGGED(getPrefAnswers(0), "", "getPrefAnswers - 0: Profile Type not found or No Questions Available");
        LOGGED(getProfileAnswers(true, 1, 4), "",
               "getProfileAnswers - 4: CProfile not found or No CProfiles available");
        LOGGED(getProfileRank(true, 4), "-1",
               "getProfileRank - 4: CProfile not found or No CProfiles available");
        LOGGED(getProfileCount(false), "-1",
               "getProfileCount - : CProfile not found or No CProfiles available");
        LOGGED(getAnswerNumber(1, false, 4), "0",
               "getAnswerNumber - 4: CProfile not found or No CProfiles available");
        LOGGED(getAnswers(4, 1, 1), "", "getAnswers - 1: Profile Type not found or No Questions Available");
        LOGGED(getFields(u"CProfile"_s), "CProfileKey|CompanyKey|QAns|PR|QCount|TemplateKey",
               "GetFields-No Data available in CProfile");
        LOGGED(getKSearch(u"Contact"_s, u"Notes"_s, u"x"_s), "",
               "getKsearch - Contact::Notes=x: No entries found.");
        LOGGED(getStatusValue(u"TimeDelta"_s), "", "GetStatusValue - StatusValue Not Found");
    }
    void sayWhatWasNotFound()
    {
        QFETCH(GatewayCall, call);
        FETCH(QString, expected, said);
        QFETCH(bool, shown);
        World world;
        send(world, {u"Delete * from Status"_s});
        const QString text = said.startsWith(u' ') ? QString(u"DataJW -" + said) : QString(u"DataJW-" + said);
        if (shown)
            world.prompts.expect(text);
        const ReadWatch watch(world.data());
        QCOMPARE(call(world.data()), expected);
        QVERIFY(!watch.failed());
        const auto entries = LogEntry::parse(world.errorLog());
        QCOMPARE(entries.size(), 1U);
        QCOMPARE(entries[0].text, text);
        QCOMPARE(entries[0].suppressed, !shown);
        QCOMPARE(entries[0].number, 0);
        QCOMPARE(entries[0].description + entries[0].source, QString());
    }

    void keepQuietWhenAsked()
    {
        const std::initializer_list<GatewayCall> calls{
            CALL(getCompanyKeyByContact(u"A"_s, u"B"_s, true)), // not found
            CALL(getDocumentKey(u"CV"_s, true)),
            CALL(getStatusValue(u"X"_s, true)),
            CALL(getCompanyKey(u"O'Neil"_s, true)), // refused
            CALL(getPositionKey(u"O'Neil"_s, u"O'Neil"_s, true)),
            CALL(getContactKey(u"O'"_s, u"Neil"_s, u"O'Neil"_s, true)),
            CALL(getCompanyKeyByContact(u"O'"_s, u"Neil"_s, true)),
            CALL(getDocumentKey(u"O'Neil"_s, true)),
            CALL(getStatusValue(u"O'Neil"_s, true))};
        World world;
        for (const GatewayCall& call : calls) {
            const QString answer = call(world.data());
            QVERIFY(answer.isEmpty() || answer == u"0");
            QCOMPARE(world.errorLog(), QString());
        }
    }

    void failAboveSixteenBits_data()
    {
        // prepare: %1 is the number at or above the limit
        columns<QString, GatewayCall, QString>("prepare", "call", "tag");
        const QString company = u"INSERT INTO Company(CompanyKey,Name) VALUES(%1,'Acme')"_s;
        const QString many =
            u"INSERT INTO Status(StatusDescription) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
            "SELECT i+1 FROM n WHERE i<%1) SELECT 'x' FROM n"_s;
        const auto row = [](const QString& prepare, const GatewayCall& call, const char* tag) {
            QTest::newRow(tag) << prepare << call << QString::fromLatin1(tag);
        };
        row(company, CALL(getCompanyKey(u"Acme"_s)), "DataJW-GetCompanyKey");
        row(company, CALL(getCount(u"Company"_s, false, u"CompanyKey"_s)), "DataJW-GetCount - Fld_Name");
        row(company, CALL(getCountSp(u"Company"_s, false, u"Name='Acme'"_s, u"CompanyKey"_s)),
            "DataJW-GetCountSp - Fld_Name");
        row(company, CALL(getLastKeyInTable(u"Company"_s, u"CompanyKey"_s)), "DataJW-GetLastKeyInTable");
        row(u"INSERT INTO Position(PositionKey) VALUES(5),(%1)"_s, CALL(getPositionKeysAll()),
            "DataJW-GetPositionKeyAll");
        row(u"INSERT INTO History(ContactKey,ContactCount) VALUES(1,%1)"_s, CALL(getHistoryCount(1)),
            "DataJW-GetHistoryCount");
        row(many, CALL(getCounter(u"Select Count(*) from Status where StatusDescription='x'"_s)),
            "DataJW-GetCounter");
        row(u"INSERT INTO Contact(ContactKey,Notes) VALUES(%1,'x')"_s,
            CALL(getKSearch(u"Contact"_s, u"Notes"_s, u"x"_s)), "DataJW-GetKSearch");
    }
    void failAboveSixteenBits()
    {
        FETCH(QString, prepare, tag);
        QFETCH(GatewayCall, call);
        {
            World world;
            runOnHandle(world, prepare.arg(32767));
            QVERIFY(call(world.data()).endsWith(u"32767"));
            QCOMPARE(world.errorLog(), QString());
        }
        World world;
        runOnHandle(world, prepare.arg(32768));
        world.prompts.expect(tag + u"\r\nQuery: Select");
        const QString fallback = call(world.data());
        QVERIFY(fallback == u"0" || fallback.isEmpty());
        const auto entries = LogEntry::parse(world.errorLog());
        QCOMPARE(entries.size(), 1U);
        QCOMPARE(entries[0].number, int(StoreError::Overflow));
        QVERIFY(entries[0].text.startsWith(tag + u"\r\nQuery: "));
    }

    void failOnARefusedStatement_data()
    {
        columns<GatewayCall, QString, QString>("call", "fallback", "said");
        // Text with an apostrophe
        REFUSED(getCompanyKey(u"O'Neil"_s), "0", "GetCompanyKey|Select * from company where name='O'Neil'");
        // Events of a position are ordered by no column
        REFUSED(getEventByPositionKey(1), "nothing",
                "GetEventByPositionKey|Select * from Event where PositionKey = 1 Order by Date");
        // No first row in an empty table
        REFUSED(getLastKeyInTable(u"TargetRecovery"_s, u"TargetKey"_s), "0",
                "GetLastKeyInTable|Select * from TargetRecovery order by TargetKey");
        // Documents have another key than the search wants
        REFUSED(getKSearch(u"Document"_s, u"Notes"_s, u"x"_s), "", "GetKSearch|Select * FROM Document");
        // Key value without a condition
        REFUSED(getCountSp(u"Contact"_s, true, {}, u"CompanyKey"_s, 1), "0",
                "GetCountSp|Select * from Contact where  order by CompanyKey");
        // Count with a name of its own
        REFUSED(getCounter(u"Select Count(*) As Sum From Contact"_s), "0",
                "GetCounter|Select Count(*) As Sum From Contact");
        // No statement
        REFUSED(execQuery(u"drop table Contact"_s), "false", "ExecQuery|drop table Contact");
        // History key that is no number
        REFUSED(getCount(u"History"_s, false, u"HistoryKey"_s), "0",
                "GetCount - Fld_Name|Select * from History order by HistoryKey");
    }
    void failOnARefusedStatement()
    {
        QFETCH(GatewayCall, call);
        FETCH(QString, fallback, said);
        World world;
        loadCampaign(world);
        world.prompts.expect(u"Error Occurred :"_s);
        QCOMPARE(call(world.data()), fallback);
        const auto entries = LogEntry::parse(world.errorLog());
        QCOMPARE(entries.size(), 1U);
        QCOMPARE(entries[0].text, QString(u"DataJW-" + said).replace(u'|', u"\r\nQuery: "_s));
        QVERIFY(!entries[0].suppressed && !entries[0].description.isEmpty());
        QVERIFY(entries[0].number != 0);
    }

    void raiseDialogBusyForAStatementOnly()
    {
        World world;
        bool during = false;
        world.data().database().setInterceptor([&](QStringView) { during = world.session->dialogBusy; });
        QVERIFY(world.data().execQuery(u"Delete * from Contact"_s));
        QVERIFY(during);
        QVERIFY(!world.session->dialogBusy);
        world.data().getCompanyNames();
        QVERIFY(!during);
    }

private:
    std::unique_ptr<World> m_read; ///< for calls that only read; nothing of theirs stays in it
};

JOBWRIGHT_TEST(TestGatewayReading)
#include "tst_gateway_reading.moc"
