#include "store/storeerror.h"
#include "support/campaign.h"
#include "support/errorlog.h"
#include "support/gatewaycalls.h"

#include <QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

QDate june(int day)
{
    return {2026, 6, day};
}

void runOnHandle(World& world, const char* sql)
{
    QCOMPARE(sqlite3_exec(world.data().database().handle(), sql, nullptr, nullptr, nullptr), SQLITE_OK);
}

} // namespace

/// What the reading operations answer, and what they leave in the log when there is nothing to answer.
class TestGatewayReading : public QObject
{
    Q_OBJECT

private slots:
    void answerFromRows_data();
    void answerFromRows();
    void sayWhatWasNotFound_data();
    void sayWhatWasNotFound();
    void writeAConditionInTheLogsForm();
    void keepQuietWhenAsked_data();
    void keepQuietWhenAsked();
    void failAboveSixteenBits_data();
    void failAboveSixteenBits();
    void failOnARefusedStatement_data();
    void failOnARefusedStatement();
    void copyHistoriesInOrder();
    void copyAProfileItem();
    void stayAsItWasAfterTheStoreChanged();
    void raiseDialogBusyForAStatementOnly();
};

void TestGatewayReading::answerFromRows_data()
{
    QTest::addColumn<GatewayCall>("call");
    QTest::addColumn<QString>("expected");

    QTest::newRow("all companies") << CALL(getCompany(u"*"_s)) << u"1,2"_s;
    QTest::newRow("company in another case") << CALL(getCompany(u"bOREALIS"_s)) << u"2"_s;
    QTest::newRow("unknown company has no rows") << CALL(getCompany(u"Nobody"_s)) << u"no rows"_s;
    QTest::newRow("company names are sorted") << CALL(getCompanyNames()) << u"Borealis|Zenith"_s;
    QTest::newRow("company key") << CALL(getCompanyKey(u"borealis"_s)) << u"2"_s;
    QTest::newRow("company of a contact is the first namesake's")
        << CALL(getCompanyKeyByContact(u"Ann"_s, u"lee"_s)) << u"1"_s;
    QTest::newRow("company name by key") << CALL(getCompanyNameByKey(2)) << u"Borealis"_s;
    QTest::newRow("skip asks nothing") << CALL(getCompanyNameByKey(2, true)) << QString();
    QTest::newRow("first entry date") << CALL(getFirstEntryDate()) << u"2026-03-01"_s;

    QTest::newRow("position of a company") << CALL(getPosition(u"Borealis"_s, u"planner"_s)) << u"3"_s;
    QTest::newRow("all positions by title") << CALL(getPosition(u"Borealis"_s, u"*"_s)) << u"2,1,3"_s;
    QTest::newRow("position key is the company's own")
        << CALL(getPositionKey(u"Planner"_s, u"Zenith"_s)) << u"1"_s;
    QTest::newRow("position name by key") << CALL(getPositionNameByKey(2)) << u"Analyst"_s;
    QTest::newRow("position names are sorted") << CALL(getPositionNames(u"Zenith"_s)) << u"Analyst|Planner"_s;
    QTest::newRow("no positions of a company not saved") << CALL(getPositionNames(u"<New>"_s)) << QString();
    QTest::newRow("all position keys") << CALL(getPositionKeysAll()) << u"1,2,3"_s;
    QTest::newRow("words of a position") << CALL(parsePositionText(1, false)) << u"Transit"_s;
    QTest::newRow("words of a full position join title and duties")
        << CALL(parsePositionText(1, true)) << u"Transit|PlannerPlan|routes|routes|Rail|none"_s;

    QTest::newRow("contact by name is the last namesake") << CALL(getContact(u"Ann"_s, u"Lee"_s)) << u"3"_s;
    QTest::newRow("contact key within a company")
        << CALL(getContactKey(u"Ann"_s, u"Lee"_s, u"Zenith"_s)) << u"1"_s;
    QTest::newRow("contact key in all companies is the last match")
        << CALL(getContactKey(u"Ann"_s, u"Lee"_s, u"*"_s)) << u"3"_s;
    QTest::newRow("no such contact at the company")
        << CALL(getContactKey(u"Cy"_s, u"Abbot"_s, u"Zenith"_s)) << u"0"_s;
    QTest::newRow("full name and company key") << CALL(getContactKeyFull(u"Ann Lee"_s, 2)) << u"3"_s;
    QTest::newRow("address of a full name") << CALL(getAddressKey(u"Cy Abbot"_s)) << u"10"_s;
    QTest::newRow("a first name of two words is not found")
        << CALL(getAddressKey(u"Mary Ann Young"_s)) << u"0"_s;
    QTest::newRow("all contacts by last name")
        << CALL(getContactAll()) << u"Cy Abbot|Ann Lee|Ann Lee| Bob  Stone |Mary Ann Young"_s;
    QTest::newRow("contact by key") << CALL(getContactByKey(4)) << u"Cy Abbot"_s;
    QTest::newRow("contact data") << CALL(getContactDataByKey(5)) << u"5"_s;
    QTest::newRow("contact keys of a company") << CALL(getContactKeys(u"Borealis"_s)) << u"3,4"_s;
    QTest::newRow("contact names are trimmed")
        << CALL(getContactNames(u"Zenith"_s)) << u"Ann Lee|Bob Stone"_s;
    QTest::newRow("contact count") << CALL(getContactCountByCompanyKey(1)) << u"2"_s;
    QTest::newRow("document as only, last, middle and first item, not within a number")
        << CALL(getContactKeyFromDocumentKey(1)) << u"1,2,3,4"_s;
    QTest::newRow("document within a number only") << CALL(getContactKeyFromDocumentKey(2)) << QString();

    QTest::newRow("address") << CALL(getAddress(2)) << u"2"_s;
    QTest::newRow("all addresses") << CALL(getAddressAll()) << u"1,2"_s;
    QTest::newRow("document") << CALL(getDocument(2)) << u"2"_s;
    QTest::newRow("document name") << CALL(getDocumentByKey(1)) << u"Resume A"_s;
    QTest::newRow("unknown document name") << CALL(getDocumentByKey(9)) << QString();
    QTest::newRow("document key") << CALL(getDocumentKey(u"letter"_s)) << u"2"_s;
    QTest::newRow("documents") << CALL(loadDox()) << u"1:Resume A|2:Letter"_s;

    QTest::newRow("count of the last history stored") << CALL(getHistoryCount(1)) << u"2"_s;
    QTest::newRow("histories by date and count") << CALL(getHistoryByContactKeyCnt(1)) << u"1-1,1-2,1-3"_s;
    QTest::newRow("histories by date") << CALL(getHistoryByContactKey(3)) << u"3-1"_s;
    QTest::newRow("event") << CALL(getEventByKey(2)) << u"2"_s;
    QTest::newRow("events by date") << CALL(getEventAll()) << u"2,1"_s;
    QTest::newRow("events of a type") << CALL(getEventAll(u"event"_s)) << u"1"_s;
    QTest::newRow("newest event") << CALL(getLastEventAddedKey()) << u"2"_s;

    QTest::newRow("profile item") << CALL(getUProfile(u"dispatcher"_s, u"night"_s)) << u"1"_s;
    QTest::newRow("profile keys") << CALL(getUProfileKeyAll()) << u"1"_s;
    QTest::newRow("profile count") << CALL(getUProfileCount()) << u"1"_s;
    QTest::newRow("targets") << CALL(getTargets()) << u"1:Borealis|2:Kestrel"_s;
    QTest::newRow("target by key") << CALL(getTargetByKey(2)) << u"2:Kestrel"_s;
    QTest::newRow("target by name") << CALL(getTargetName(u"BOREALIS"_s)) << u"1:Borealis"_s;
    QTest::newRow("target count") << CALL(getTargetCount()) << u"2"_s;

    QTest::newRow("questions of companies") << CALL(getCQuestions(0)) << u"Size?|Travel?"_s;
    QTest::newRow("preferred answers, none for 0") << CALL(getPrefAnswers(0)) << u"middle|"_s;
    QTest::newRow("answer of a company") << CALL(getProfileAnswers(false, 1, 2)) << u"large"_s;
    QTest::newRow("question past the end is the last one")
        << CALL(getProfileAnswers(false, 9, 2)) << u"much"_s;
    QTest::newRow("answer of a position") << CALL(getProfileAnswers(true, 3, 1)) << u"night"_s;
    QTest::newRow("rank of a company") << CALL(getProfileRank(false, 2)) << u"1"_s;
    QTest::newRow("rank of a position") << CALL(getProfileRank(true, 1)) << u"5"_s;
    QTest::newRow("question count of positions") << CALL(getProfileCount(true)) << u"3"_s;
    QTest::newRow("answer number") << CALL(getAnswerNumber(3, true, 1)) << u"2"_s;
    QTest::newRow("answer number past the answers") << CALL(getAnswerNumber(4, true, 1)) << u"0"_s;
    QTest::newRow("answer text") << CALL(getAnswers(1, 0, 3)) << u"large"_s;
    QTest::newRow("answer text past the answers") << CALL(getAnswers(1, 0, 4)) << QString();

    QTest::newRow("rows of a table") << CALL(getCount(u"Contact"_s, true)) << u"5"_s;
    QTest::newRow("rows with a key") << CALL(getCount(u"Contact"_s, true, u"CompanyKey"_s, 2)) << u"2"_s;
    QTest::newRow("rows of an empty table") << CALL(getCount(u"PositionRecovery"_s, true)) << u"0"_s;
    QTest::newRow("last key of an empty table")
        << CALL(getCount(u"PositionRecovery"_s, false, u"PositionKey"_s)) << u"0"_s;
    QTest::newRow("highest key") << CALL(getCount(u"Address"_s, false, u"AddressKey"_s)) << u"2"_s;
    QTest::newRow("first column of the last row in another order")
        << CALL(getCount(u"Contact"_s, false, u"CompanyKey"_s, 0, u"LastName"_s)) << u"5"_s;
    QTest::newRow("rows with a condition")
        << CALL(getCountSp(u"Contact"_s, true, u"ContactList > ''"_s)) << u"2"_s;
    QTest::newRow("key value without a condition of its own is not looked at")
        << CALL(getCountSp(u"Contact"_s, false, u"CompanyKey=1"_s, u"ContactKey"_s, 4)) << u"2"_s;
    QTest::newRow("counter") << CALL(getCounter(u"Select Count(*) from Contact where CompanyKey=2"_s))
                             << u"2"_s;
    QTest::newRow("fields") << CALL(getFields(u"cprofile"_s))
                            << u"CProfileKey|CompanyKey|QAns|PR|QCount|TemplateKey"_s;
    QTest::newRow("key is there") << CALL(keyVerification(10, u"AddressKey"_s, u"Contact"_s)) << u"true"_s;
    QTest::newRow("key is not there")
        << CALL(keyVerification(99, u"AddressKey"_s, u"Contact"_s)) << u"false"_s;
    QTest::newRow("last key") << CALL(getLastKeyInTable(u"Contact"_s, u"ContactKey"_s)) << u"5"_s;
    QTest::newRow("search in any case") << CALL(getKSearch(u"Contact"_s, u"Notes"_s, u"AcMe"_s)) << u"1,2"_s;
    QTest::newRow("search in histories names the contact for each hit")
        << CALL(getKSearch(u"History"_s, u"Topic"_s, u"fair"_s)) << u"1,1"_s;
    QTest::newRow("rows of any statement")
        << CALL(getExecQueryRecords(u"Select * from Position where Title='planner';"_s)) << u"1,3"_s;

    QTest::newRow("no position ever counts as expired") << CALL(getPositionsExpiredCount(1)) << u"0"_s;
    QTest::newRow("progress between days is empty")
        << CALL(getProgressCount(u"Hired"_s, june(1), june(30))) << u"no rows"_s;
    QTest::newRow("step dates strictly between")
        << CALL(getProgressDateCount(u"Hired"_s, june(1), june(16))) << u"1"_s;
    QTest::newRow("step dates, the last day excluded")
        << CALL(getProgressDateCount(u"Hired"_s, june(1).addDays(-1), june(15))) << u"1"_s;
    QTest::newRow("offers are the hired step with its medium")
        << CALL(getProgressDateCount(u"Offers"_s, june(1).addDays(-1), june(30), 3)) << u"1"_s;
    QTest::newRow("a new contact is its first history")
        << CALL(getNewTableCount(u"Contact"_s, june(1), june(30))) << u"1"_s;
    QTest::newRow("new histories") << CALL(getNewTableCount(u"History"_s, june(1), june(30))) << u"3"_s;
    QTest::newRow("new companies") << CALL(getNewTableCount(u"Company"_s, QDate(2026, 3, 1), june(1)))
                                   << u"1"_s;
    QTest::newRow("two sessions of 40 minutes are an hour")
        << CALL(getStatusHours(june(1), june(30))) << u"1"_s;
    QTest::newRow("one session is no hour") << CALL(getStatusHours(june(10), june(30))) << u"0"_s;
    QTest::newRow("no session in the range") << CALL(getStatusHours(june(20), june(30))) << u"0"_s;
    QTest::newRow("oldest value of a name") << CALL(getStatusValue(u"minlog"_s)) << u"500"_s;
}

void TestGatewayReading::answerFromRows()
{
    QFETCH(GatewayCall, call);
    QFETCH(QString, expected);
    World world;
    loadCampaign(world);

    QCOMPARE(call(world.data()), expected);
    QCOMPARE(world.errorLog(), QString());
}

void TestGatewayReading::sayWhatWasNotFound_data()
{
    QTest::addColumn<GatewayCall>("call");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("said");
    QTest::addColumn<bool>("shown");
    const auto row = [](const char* name, const GatewayCall& call, const QString& expected,
                        const QString& said,
                        bool shown = false) { QTest::newRow(name) << call << expected << said << shown; };

    row("company names", CALL(getCompanyNames()), {},
        u"DataJW-GetCompanyNames\r\n No Company Names found."_s);
    row("company of a contact", CALL(getCompanyKeyByContact(u"Ann"_s, u"Lee"_s)), u"0"_s,
        u"DataJW-getCompanyKeyByContact:AnnLee First and Last name not found"_s);
    row("all positions", CALL(getPosition({}, u"*"_s)), u"nothing"_s,
        u"DataJW-GetPosition- No positions found."_s);
    row("position", CALL(getPosition(u"Acme"_s, u"Planner"_s)), u"nothing"_s,
        u"DataJW-GetPosition- Position Key not found."_s, true);
    row("position by key", CALL(getPositionByKey(4)), u"nothing"_s,
        u"DataJW-GetPositionByKey - Position Key not found."_s);
    row("position names", CALL(getPositionNames(u"Acme"_s)), {},
        u"DataJW-GetPositionNames - Acme: CompanyKey Not Found or No Positions available"_s);
    row("position keys", CALL(getPositionKeysAll()), {}, u"DataJW-getPositionKeysAll - No positions found"_s);
    row("position text", CALL(parsePositionText(4, true)), {},
        u"DataJW-parsePositionText - Position key not found."_s, true);
    row("contact", CALL(getContact(u"Ann"_s, u"Lee"_s)), u"nothing"_s,
        u"DataJW-GetContact - Contact Key not found."_s, true);
    row("all contacts", CALL(getContactAll()), {}, u"DataJW-GetContactAll - No Contact Records Available"_s);
    row("contact data", CALL(getContactDataByKey(4)), u"nothing"_s,
        u"DataJW-GetContactDataByKey - Contact Key not found."_s, true);
    row("full name", CALL(getContactKeyFull(u"Ann Lee"_s, 7)), u"0"_s,
        u"DataJW-GetContactKeyFull - No names available for Ann Lee : 7"_s, true);
    row("contact keys", CALL(getContactKeys(u"Acme"_s)), {}, u"DataJW-GetContactKeys - No contacts found."_s);
    row("contact names", CALL(getContactNames(u"Acme"_s)), {},
        u"DataJW-GetContactNames - Acme: Company Key not found or No Contacts Available"_s);
    row("contact count", CALL(getContactCountByCompanyKey(7)), u"0"_s,
        u"DataJW-getContactCountByCompanyKey - 7: Company Key not found or No Contacts Available"_s);
    row("contacts of a document", CALL(getContactKeyFromDocumentKey(1)), {},
        u"DataJW-GetContactKeyFromDocumentKey - No document keys found not found."_s);
    row("document", CALL(getDocument(4)), u"nothing"_s, u"DataJW-GetDocument - DocumentKey not found."_s,
        true);
    row("document key", CALL(getDocumentKey(u"CV"_s)), u"0"_s,
        u"DataJW-GetDocumentKey - No document found"_s);
    row("documents", CALL(loadDox()), {}, u"DataJW-LoadDox\r\nNo Document records found."_s);
    row("history count", CALL(getHistoryCount(4)), u"0"_s, u"DataJW-GetHistoryCount - No contacts found."_s);
    row("profile item by key", CALL(getUProfileByKey(4)), u"nothing"_s,
        u"DataJW-GetUProfileByKey - UProfile not found."_s, true);
    row("profile key", CALL(getUProfileKey(u"A"_s, u"B"_s)), u"0"_s,
        u"DataJW-GetUProfileKey - UProfileKey not found."_s, true);
    row("profile keys", CALL(getUProfileKeyAll()), {}, u"DataJW - GetUProfileKeyAll - No UProfiles found"_s);
    row("targets", CALL(getTargets()), {}, u"DataJW-getTargets\r\nNo Target Companies records found."_s);
    row("target by key", CALL(getTargetByKey(4)), u"0:"_s,
        u"DataJW-getTargetByKey\r\nNo Target Companies records found."_s);
    row("target by name", CALL(getTargetName(u"Acme"_s)), u"0:"_s,
        u"DataJW-getTargetName\r\nNo Target Companies records found."_s);
    row("target count", CALL(getTargetCount()), u"0"_s, u"DataJW-GetTargetCount - No contacts found."_s);
    row("questions", CALL(getCQuestions(1)), {},
        u"DataJW-getCQuestions - 1: Profile Type not found or No Questions Available"_s);
    row("preferred answers", CALL(getPrefAnswers(0)), {},
        u"DataJW-getPrefAnswers - 0: Profile Type not found or No Questions Available"_s);
    row("profile answers", CALL(getProfileAnswers(true, 1, 4)), {},
        u"DataJW-getProfileAnswers - 4: CProfile not found or No CProfiles available"_s);
    row("profile rank", CALL(getProfileRank(true, 4)), u"-1"_s,
        u"DataJW-getProfileRank - 4: CProfile not found or No CProfiles available"_s);
    row("profile count", CALL(getProfileCount(false)), u"-1"_s,
        u"DataJW-getProfileCount - : CProfile not found or No CProfiles available"_s);
    row("answer number", CALL(getAnswerNumber(1, false, 4)), u"0"_s,
        u"DataJW-getAnswerNumber - 4: CProfile not found or No CProfiles available"_s);
    row("answers", CALL(getAnswers(4, 1, 1)), {},
        u"DataJW-getAnswers - 1: Profile Type not found or No Questions Available"_s);
    row("fields of an empty table", CALL(getFields(u"CProfile"_s)),
        u"CProfileKey|CompanyKey|QAns|PR|QCount|TemplateKey"_s,
        u"DataJW-GetFields-No Data available in CProfile"_s);
    row("search in an empty table", CALL(getKSearch(u"Contact"_s, u"Notes"_s, u"x"_s)), {},
        u"DataJW-getKsearch - Contact::Notes=x: No entries found."_s);
    row("status value", CALL(getStatusValue(u"TimeDelta"_s)), {},
        u"DataJW-GetStatusValue - StatusValue Not Found"_s);
}

void TestGatewayReading::sayWhatWasNotFound()
{
    QFETCH(GatewayCall, call);
    QFETCH(QString, expected);
    QFETCH(QString, said);
    QFETCH(bool, shown);
    World world;
    send(world, {u"Delete * from Status"_s});
    if (shown)
        world.prompts.expect(said);

    QCOMPARE(call(world.data()), expected);

    const auto entries = LogEntry::parse(world.errorLog());
    QCOMPARE(entries.size(), 1U);
    QCOMPARE(entries[0].text, said);
    QCOMPARE(entries[0].suppressed, !shown);
    QCOMPARE(entries[0].number, 0);
    QCOMPARE(entries[0].description + entries[0].source, QString());
}

void TestGatewayReading::writeAConditionInTheLogsForm()
{
    World world;

    QCOMPARE(world.data().getStatusValue(u"Nothing"_s), QString());

    QCOMPARE(world.errorLog(),
             u"\r\n>>> ERROR:\r\nSuppressed \r\n0\r\n\r\n"
             "DataJW-GetStatusValue - StatusValue Not Found\r\n-------11/22/2026 9:30:00 AM\r\n"_s);
}

void TestGatewayReading::keepQuietWhenAsked_data()
{
    QTest::addColumn<GatewayCall>("call");

    QTest::newRow("not found: contact's company") << CALL(getCompanyKeyByContact(u"A"_s, u"B"_s, true));
    QTest::newRow("not found: document") << CALL(getDocumentKey(u"CV"_s, true));
    QTest::newRow("not found: status value") << CALL(getStatusValue(u"X"_s, true));
    QTest::newRow("failed: company") << CALL(getCompanyKey(u"O'Neil"_s, true));
    QTest::newRow("failed: position and its company") << CALL(getPositionKey(u"O'Neil"_s, u"O'Neil"_s, true));
    QTest::newRow("failed: contact and its company")
        << CALL(getContactKey(u"O'"_s, u"Neil"_s, u"O'Neil"_s, true));
    QTest::newRow("failed: contact's company") << CALL(getCompanyKeyByContact(u"O'"_s, u"Neil"_s, true));
    QTest::newRow("failed: document") << CALL(getDocumentKey(u"O'Neil"_s, true));
    QTest::newRow("failed: status value") << CALL(getStatusValue(u"O'Neil"_s, true));
}

void TestGatewayReading::keepQuietWhenAsked()
{
    QFETCH(GatewayCall, call);
    World world;

    const QString answer = call(world.data());

    QVERIFY(answer.isEmpty() || answer == u"0");
    QCOMPARE(world.errorLog(), QString());
}

void TestGatewayReading::failAboveSixteenBits_data()
{
    QTest::addColumn<QString>("prepare"); // %1 is the number at or above the limit
    QTest::addColumn<GatewayCall>("call");
    QTest::addColumn<QString>("fallback");
    QTest::addColumn<QString>("tag");

    const QString company = u"INSERT INTO Company(CompanyKey,Name) VALUES(%1,'Acme')"_s;
    QTest::newRow("key") << company << CALL(getCompanyKey(u"Acme"_s)) << u"0"_s << u"DataJW-GetCompanyKey"_s;
    QTest::newRow("last value") << company << CALL(getCount(u"Company"_s, false, u"CompanyKey"_s)) << u"0"_s
                                << u"DataJW-GetCount - Fld_Name"_s;
    QTest::newRow("last value with a condition")
        << company << CALL(getCountSp(u"Company"_s, false, u"Name='Acme'"_s, u"CompanyKey"_s)) << u"0"_s
        << u"DataJW-GetCountSp - Fld_Name"_s;
    QTest::newRow("last key") << company << CALL(getLastKeyInTable(u"Company"_s, u"CompanyKey"_s)) << u"0"_s
                              << u"DataJW-GetLastKeyInTable"_s;
    QTest::newRow("one key of a list")
        << u"INSERT INTO Position(PositionKey) VALUES(5),(%1)"_s << CALL(getPositionKeysAll()) << QString()
        << u"DataJW-GetPositionKeyAll"_s;
    QTest::newRow("last history's count")
        << u"INSERT INTO History(ContactKey,ContactCount) VALUES(1,%1)"_s << CALL(getHistoryCount(1))
        << u"0"_s << u"DataJW-GetHistoryCount"_s;
    QTest::newRow("counter")
        << u"INSERT INTO Status(StatusDescription) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
           "SELECT i+1 FROM n WHERE i<%1) SELECT 'x' FROM n"_s
        << CALL(getCounter(u"Select Count(*) from Status where StatusDescription='x'"_s)) << u"0"_s
        << u"DataJW-GetCounter"_s;
    QTest::newRow("row count")
        << u"INSERT INTO Contact(CompanyKey) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
           "SELECT i+1 FROM n WHERE i<%1) SELECT 1 FROM n"_s
        << CALL(getCount(u"Contact"_s, true)) << u"0"_s << u"DataJW-GetCount"_s;
    QTest::newRow("search hit") << u"INSERT INTO Contact(ContactKey,Notes) VALUES(%1,'x')"_s
                                << CALL(getKSearch(u"Contact"_s, u"Notes"_s, u"x"_s)) << QString()
                                << u"DataJW-GetKSearch"_s;
}

void TestGatewayReading::failAboveSixteenBits()
{
    QFETCH(QString, prepare);
    QFETCH(GatewayCall, call);
    QFETCH(QString, fallback);
    QFETCH(QString, tag);
    {
        World world;
        runOnHandle(world, prepare.arg(32767).toUtf8().constData());
        QVERIFY(call(world.data()).endsWith(u"32767"));
        QCOMPARE(world.errorLog(), QString());
    }
    World world;
    runOnHandle(world, prepare.arg(32768).toUtf8().constData());
    world.prompts.expect(tag + u"\r\nQuery: Select");

    QCOMPARE(call(world.data()), fallback);

    const auto entries = LogEntry::parse(world.errorLog());
    QCOMPARE(entries.size(), 1U);
    QCOMPARE(entries[0].number, int(StoreError::Overflow));
    QVERIFY(entries[0].text.startsWith(tag + u"\r\nQuery: "));
}

void TestGatewayReading::failOnARefusedStatement_data()
{
    QTest::addColumn<GatewayCall>("call");
    QTest::addColumn<QString>("fallback");
    QTest::addColumn<QString>("said");

    QTest::newRow("text with an apostrophe")
        << CALL(getCompanyKey(u"O'Neil"_s)) << u"0"_s
        << u"DataJW-GetCompanyKey\r\nQuery: Select * from company where name='O'Neil'"_s;
    QTest::newRow("events of a position are ordered by no column")
        << CALL(getEventByPositionKey(1)) << u"nothing"_s
        << u"DataJW-GetEventByPositionKey\r\nQuery: Select * from Event where PositionKey = 1 Order by Date"_s;
    QTest::newRow("no first row in an empty table")
        << CALL(getLastKeyInTable(u"TargetRecovery"_s, u"TargetKey"_s)) << u"0"_s
        << u"DataJW-GetLastKeyInTable\r\nQuery: Select * from TargetRecovery order by TargetKey"_s;
    QTest::newRow("documents have another key than the search wants")
        << CALL(getKSearch(u"Document"_s, u"Notes"_s, u"x"_s)) << QString()
        << u"DataJW-GetKSearch\r\nQuery: Select * FROM Document"_s;
    QTest::newRow("search in no field") << CALL(getKSearch(u"Contact"_s, u"Shoe"_s, u"x"_s)) << QString()
                                        << u"DataJW-GetKSearch\r\nQuery: Select * FROM Contact"_s;
    QTest::newRow("unknown table") << CALL(getFields(u"Nowhere"_s)) << QString()
                                   << u"DataJW-GetFields\r\nQuery: Select * from Nowhere"_s;
    QTest::newRow("unknown step") << CALL(getProgressDateCount(u"Lunch"_s, june(1), june(2))) << u"0"_s
                                  << u"DataJW-GetProgressDateCount\r\nQuery: Select * from position"_s;
    QTest::newRow("key value without a condition")
        << CALL(getCountSp(u"Contact"_s, true, {}, u"CompanyKey"_s, 1)) << u"0"_s
        << u"DataJW-GetCountSp\r\nQuery: Select * from Contact where  order by CompanyKey"_s;
    QTest::newRow("count with a name of its own")
        << CALL(getCounter(u"Select Count(*) As Sum From Contact"_s)) << u"0"_s
        << u"DataJW-GetCounter\r\nQuery: Select Count(*) As Sum From Contact"_s;
    QTest::newRow("no statement") << CALL(execQuery(u"drop table Contact"_s)) << u"false"_s
                                  << u"DataJW-ExecQuery\r\nQuery: drop table Contact"_s;
    QTest::newRow("history key that is no number")
        << CALL(getCount(u"History"_s, false, u"HistoryKey"_s)) << u"0"_s
        << u"DataJW-GetCount - Fld_Name\r\nQuery: Select * from History order by HistoryKey"_s;
}

void TestGatewayReading::failOnARefusedStatement()
{
    QFETCH(GatewayCall, call);
    QFETCH(QString, fallback);
    QFETCH(QString, said);
    World world;
    loadCampaign(world);
    world.prompts.expect(u"Error Occurred :"_s);

    QCOMPARE(call(world.data()), fallback);

    const auto entries = LogEntry::parse(world.errorLog());
    QCOMPARE(entries.size(), 1U);
    QCOMPARE(entries[0].text, said);
    QVERIFY(!entries[0].suppressed);
    QVERIFY(!entries[0].description.isEmpty());
    QVERIFY(entries[0].number != 0);
}

void TestGatewayReading::copyHistoriesInOrder()
{
    World world;
    loadCampaign(world);
    History history;

    history.loadDataFromDatabase(world.data(), 1, 2);
    QCOMPARE(history.HistKey, u"1-2"_s);
    QCOMPARE(history.topic, u"Fair follow-up"_s);
    QCOMPARE(history.ContactDate, june(20));

    // Past the last one the record stays as it was.
    history.loadDataFromDatabase(world.data(), 1, 4);
    QCOMPARE(history.HistKey, u"1-2"_s);
    QCOMPARE(History::getHistoryCount(world.data(), 1), 3);
}

void TestGatewayReading::copyAProfileItem()
{
    World world;
    loadCampaign(world);
    UserProfile item;

    item.loadUProfileFromDatabase(world.data(), 1);

    QCOMPARE(item.UProfileKey, Key(1));
    QCOMPARE(item.uTitle + u'/' + item.uSubTitle + u'/' + item.uCategory, u"Dispatcher/Night/Experience"_s);
    QCOMPARE(item.StimeMonth + u'/' + item.EtimeYear, u"May/2019"_s);
    item.clear();
    QCOMPARE(item.UProfileKey, Key(0));
    QCOMPARE(item.uTitle, QString());
}

void TestGatewayReading::stayAsItWasAfterTheStoreChanged()
{
    World world;
    loadCampaign(world);

    RecordSet contacts = world.data().getContactDataByKey(1);
    send(world, {u"Delete * from Contact"_s});
    world.data().getCompanyNames();

    QCOMPARE(contacts.text(u"firstname"), u"Ann"_s);
    QCOMPARE(contacts.text(u"LastContact"), QString());
}

void TestGatewayReading::raiseDialogBusyForAStatementOnly()
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

QTEST_GUILESS_MAIN(TestGatewayReading)
#include "tst_gateway_reading.moc"
