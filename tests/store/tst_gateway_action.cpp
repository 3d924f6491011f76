#include "store/enginecall.h"
#include "store/storeerror.h"
#include "support/campaign.h"
#include "support/errorlog.h"
#include "support/gatewaycalls.h"

#include <QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

const QString insertDay = u"INSERT INTO Status (StatusDescription,StatusValue) VALUES ('Day','%1')"_s;

/// What another program finds in the file, past the gateway's own connection.
QString onDisk(World& world)
{
    const auto connection = engine::open(world.session->databasePath(), SQLITE_OPEN_READONLY);
    return engine::value(connection.get(),
                         "SELECT group_concat(StatusValue) FROM Status WHERE StatusDescription='Day'");
}

/// Leaves the store no room beyond what it has now.
void fillTheDisk(World& world)
{
    sqlite3* const handle = world.data().database().handle();
    const QString pages = engine::value(handle, "PRAGMA page_count");
    engine::execute(handle, "PRAGMA max_page_count=" + pages.toLatin1());
}

QString hugeNotes()
{
    return u"INSERT INTO Contact (Notes) VALUES ('"_s + QString(200'000, u'x') + u"')";
}

} // namespace

/// Several statements as one change of the store, and a gateway that has no store.
class TestGatewayAction : public QObject
{
    Q_OBJECT

private slots:
    void writeNothingBeforeTheEnd();
    void writeAtTheEndOfItsScope();
    void goOnBehindAFailingStatement();
    void writeWithTheOutermostOne();
    void takeAllBackWhenTheDiskIsFull_data();
    void takeAllBackWhenTheDiskIsFull();
    void sendNothingMoreWhenTheDiskIsFull();
    void takeAllBackWhenTheEndFails();
    void writeNothingWhenItCannotBegin();
    void beginAgainAfterALoss();

    void refuseAFileThatCannotBeOpened();
    void failEachOperationWithoutAStore_data();
    void failEachOperationWithoutAStore();
};

void TestGatewayAction::writeNothingBeforeTheEnd()
{
    World world;
    Action action(world.data());
    send(world, {insertDay.arg(1), insertDay.arg(2)});

    QCOMPARE(onDisk(world), QString());
    QVERIFY(action.commit());
    QCOMPARE(onDisk(world), u"1,2"_s);
    // What follows is no part of it.
    send(world, {insertDay.arg(3)});
    QCOMPARE(onDisk(world), u"1,2,3"_s);
}

void TestGatewayAction::writeAtTheEndOfItsScope()
{
    World world;
    {
        const Action action(world.data());
        send(world, {insertDay.arg(1)});
    }
    QCOMPARE(onDisk(world), u"1"_s);
}

void TestGatewayAction::goOnBehindAFailingStatement()
{
    World world;
    world.prompts.expect(u"DataJW-ExecQuery\r\nQuery: INSERT INTO Nowhere"_s);
    world.prompts.expect(u"DataJW-ExecQuery\r\nQuery: INSERT INTO Status (StatusKey)"_s);
    Action action(world.data());

    send(world, {insertDay.arg(1), u"INSERT INTO Status (StatusKey) VALUES (900)"_s});
    QVERIFY(!world.data().execQuery(u"INSERT INTO Nowhere (a) VALUES (1)"_s));
    // Refused by the engine itself, the key being there already.
    QVERIFY(!world.data().execQuery(u"INSERT INTO Status (StatusKey) VALUES (900)"_s));
    send(world, {insertDay.arg(2)});

    QVERIFY(action.commit());
    QCOMPARE(onDisk(world), u"1,2"_s);
}

void TestGatewayAction::writeWithTheOutermostOne()
{
    World world;
    Action outer(world.data());
    {
        Action inner(world.data());
        send(world, {insertDay.arg(1)});
        QVERIFY(inner.commit());
        QCOMPARE(onDisk(world), QString());
        QVERIFY(!inner.commit());
    }
    send(world, {insertDay.arg(2)});
    QCOMPARE(onDisk(world), QString());

    QVERIFY(outer.commit());
    QCOMPARE(onDisk(world), u"1,2"_s);
}

void TestGatewayAction::takeAllBackWhenTheDiskIsFull_data()
{
    QTest::addColumn<QString>("tooLarge");

    QTest::newRow("one row") << hugeNotes();
    // A statement of many rows can be taken back alone; the rest of the action must not be written then
    // either.
    QTest::newRow("many rows") << u"INSERT INTO ContactRecovery Select * from Contact"_s;
}

void TestGatewayAction::takeAllBackWhenTheDiskIsFull()
{
    QFETCH(QString, tooLarge);
    World world;
    loadCampaign(world);
    send(world, {insertDay.arg(0), hugeNotes(), hugeNotes()});
    world.prompts.expect(u"DataJW-ExecQuery\r\nQuery: INSERT INTO Contact"_s);
    world.prompts.expect(u"The change was not saved: "_s);
    Action action(world.data());
    send(world, {u"Delete * from Status where StatusDescription='Day'"_s, u"Delete * from Event"_s});
    fillTheDisk(world);

    QVERIFY(!world.data().execQuery(tooLarge));
    QVERIFY(!world.data().execQuery(insertDay.arg(2)));
    QVERIFY(world.data().getCompanyNames().isEmpty());
    QVERIFY(!action.commit());

    QCOMPARE(onDisk(world), u"0"_s);
    QCOMPARE(world.data().getCount(u"Event"_s, true), Key(2));
    // The user is told of the cause and of the outcome; each statement of the lost rest only leaves its
    // trace.
    const auto entries = LogEntry::parse(world.errorLog());
    QCOMPARE(entries.size(), 4U);
    QCOMPARE(entries[0].number & 0xff, SQLITE_FULL);
    QCOMPARE(entries[1].number, int(StoreError::ActionLost));
    QVERIFY(entries[1].suppressed && entries[1].text.contains(insertDay.arg(2)));
    QVERIFY(entries[2].suppressed);
    QVERIFY(!entries[3].suppressed);
    QVERIFY(entries[3].text.startsWith(u"DataJW-Action\r\nThe change was not saved: "));
    QVERIFY(entries[3].text.endsWith(u"The database is as it was before."));
}

void TestGatewayAction::sendNothingMoreWhenTheDiskIsFull()
{
    World world;
    world.prompts.acceptAll(Answer::Ok);
    Action outer(world.data());
    Action inner(world.data());
    fillTheDisk(world);
    world.data().execQuery(hugeNotes());
    int sent = 0;
    world.data().database().setInterceptor([&](QStringView) { ++sent; });

    world.data().execQuery(insertDay.arg(1));
    QVERIFY(!inner.commit());
    world.data().execQuery(insertDay.arg(2));

    QVERIFY(!outer.commit());
    QCOMPARE(sent, 0);
    QCOMPARE(onDisk(world), QString());
}

void TestGatewayAction::takeAllBackWhenTheEndFails()
{
    World world;
    world.prompts.expect(u"The change was not saved: "_s);
    // Somebody who reads the file keeps the end from being written.
    const auto reader = engine::open(world.session->databasePath(), SQLITE_OPEN_READONLY);
    Action action(world.data());
    sqlite3_busy_timeout(world.data().database().handle(), 0);
    send(world, {insertDay.arg(1)});
    engine::execute(reader.get(), "BEGIN");
    engine::value(reader.get(), "SELECT count(*) FROM Status");

    QVERIFY(!action.commit());

    engine::execute(reader.get(), "COMMIT");
    QCOMPARE(onDisk(world), QString());
    QVERIFY(!world.data().database().inTransaction());
    send(world, {insertDay.arg(2)});
    QCOMPARE(onDisk(world), u"2"_s);
}

void TestGatewayAction::writeNothingWhenItCannotBegin()
{
    World world;
    world.prompts.expect(u"The change was not saved: "_s);
    const auto writer = engine::open(world.session->databasePath(), SQLITE_OPEN_READWRITE);
    sqlite3_busy_timeout(world.data().database().handle(), 0);
    engine::execute(writer.get(), "BEGIN IMMEDIATE");
    {
        const Action action(world.data());
        engine::execute(writer.get(), "COMMIT");
        QVERIFY(!world.data().execQuery(insertDay.arg(1)));
    }
    QCOMPARE(onDisk(world), QString());
}

void TestGatewayAction::beginAgainAfterALoss()
{
    World world;
    world.prompts.acceptAll(Answer::Ok);
    {
        const Action lost(world.data());
        fillTheDisk(world);
        world.data().execQuery(hugeNotes());
    }
    engine::execute(world.data().database().handle(), "PRAGMA max_page_count=1000000");

    Action retry(world.data());
    send(world, {hugeNotes(), insertDay.arg(1)});
    QVERIFY(retry.commit());
    QCOMPARE(onDisk(world), u"1"_s);
}

void TestGatewayAction::refuseAFileThatCannotBeOpened()
{
    World world;
    QFile file(world.session->databasePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray garbage = QByteArray(5000, 'j');
    file.write(garbage);
    file.close();
    world.prompts.expect(u"DataJW-Init\r\nQuery: Select * from Company"_s);

    QVERIFY(!world.data().isConnected());

    QVERIFY_THROWS_EXCEPTION(StoreError, (void)world.data().database());
    QVERIFY(!world.opLog().contains(u"Test DSN Connection Passed"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), garbage);
    // An action without a store does no harm and is not written.
    Action action(world.data());
    QVERIFY(!action.commit());

    World good;
    QVERIFY(good.data().isConnected());
    QVERIFY(good.opLog().startsWith(u"Test DSN Connection Passed : "));
}

void TestGatewayAction::failEachOperationWithoutAStore_data()
{
    QTest::addColumn<GatewayCall>("call");
    QTest::addColumn<QString>("fallback");
    QTest::addColumn<QString>("tag"); // several when an operation asks another one first
    int number = 0;                   // some operations fail under the same tag
    const auto row = [&](const char* tag, const GatewayCall& call, const QString& fallback = {},
                         const char* first = "") {
        QStringList tags{QString::fromLatin1(first), QString::fromLatin1(tag)};
        tags.removeAll(QString());
        QTest::addRow("%02d %s", ++number, tag) << call << fallback << tags.join(u'|');
    };
    const QString none = u"nothing"_s;
    const QString zero = u"0"_s;
    const QString no = u"false"_s;

    row("DataJW-ExecQuery", CALL(execQuery(u"Delete * from Contact"_s)), no);
    row("DataJW-GetExecQueryRecords", CALL(getExecQueryRecords(u"Select * from Contact"_s)), none);
    row("DataJW-GetCount", CALL(getCount(u"Contact"_s, true)), zero);
    row("DataJW-GetCountSp", CALL(getCountSp(u"Contact"_s, true, {})), zero);
    row("DataJW-GetCounter", CALL(getCounter(u"Select Count(*) from Contact"_s)), zero);
    row("DataJW-GetFields", CALL(getFields(u"Contact"_s)));
    row("DataJW-KeyVerification", CALL(keyVerification(1, u"ContactKey"_s, u"Contact"_s)), no);
    row("DataJW-GetLastKeyInTable", CALL(getLastKeyInTable(u"Contact"_s, u"ContactKey"_s)), zero);
    row("DataJW-GetKSearch", CALL(getKSearch(u"Contact"_s, u"Notes"_s, u"x"_s)));
    row("DataJW-GetCompany", CALL(getCompany(u"*"_s)), none);
    row("DataJW-GetCompanyNames", CALL(getCompanyNames()));
    row("DataJW-GetCompanyKey", CALL(getCompanyKey(u"A"_s)), zero);
    row("DataJW-GetCompanyKeyByContact", CALL(getCompanyKeyByContact(u"A"_s, u"B"_s)), zero);
    row("DataJW-GetCompanyNameByKey", CALL(getCompanyNameByKey(1)));
    row("DataJW-GetFirstEntryDate", CALL(getFirstEntryDate()), u"no date"_s);
    row("DataJW-GetPosition", CALL(getPosition(u"A"_s, u"*"_s)), none);
    row("DataJW-GetPosition", CALL(getPositionByKey(1)), none);
    row("DataJW-GetPositionKey", CALL(getPositionKey(u"P"_s, u"A"_s)), zero, "DataJW-GetCompanyKey");
    row("DataJW-GetPositionNameByKey", CALL(getPositionNameByKey(1)));
    row("DataJW-GetPositionNames", CALL(getPositionNames(u"A"_s)), {}, "DataJW-GetCompanyKey");
    row("DataJW-GetPositionKeyAll", CALL(getPositionKeysAll()));
    row("DataJW-parsePositionText", CALL(parsePositionText(1, true)));
    row("DataJW-GetContact", CALL(getContact(u"A"_s, u"B"_s)), none, "DataJW-GetContactKey");
    row("DataJW-GetContactAll", CALL(getContactAll()));
    row("DataJW-GetContactByKey", CALL(getContactByKey(1)));
    row("DataJW-GetContactDataByKey", CALL(getContactDataByKey(1)), none);
    row("DataJW-GetContactKey", CALL(getContactKey(u"A"_s, u"B"_s, u"*"_s)), zero);
    row("DataJW-GetContactKeyFull", CALL(getContactKeyFull(u"A B"_s, 1)), zero);
    row("DataJW-GetContactKeys", CALL(getContactKeys(u"A"_s)), {}, "DataJW-GetCompanyKey");
    row("DataJW-GetContactNames", CALL(getContactNames(u"A"_s)), {}, "DataJW-GetCompanyKey");
    row("DataJW-getContactCountByCompanyKey", CALL(getContactCountByCompanyKey(1)), zero);
    row("DataJW-GetContactKeyFromDocumentKey", CALL(getContactKeyFromDocumentKey(1)));
    row("DataJW-GetAddress", CALL(getAddress(1)), none);
    row("DataJW-GetAddressAll", CALL(getAddressAll()), none);
    row("DataJW-GetAddressKey", CALL(getAddressKey(u"A B"_s)), zero);
    row("DataJW-GetDocument", CALL(getDocument(1)), none);
    row("DataJW-GetDocumentByKey", CALL(getDocumentByKey(1)));
    row("DataJW-GetDocumentKey", CALL(getDocumentKey(u"A"_s)), zero);
    row("DataJW-LoadDox", CALL(loadDox()));
    row("DataJW-GetHistoryCount", CALL(getHistoryCount(1)), zero);
    row("DataJW-GetHistoryByContactKeyCnt", CALL(getHistoryByContactKeyCnt(1)), none);
    row("DataJW-GetHistoryByContactKey", CALL(getHistoryByContactKey(1)), none);
    row("DataJW-GetEventByKey", CALL(getEventByKey(1)), none);
    row("DataJW-GetEventByPositionKey", CALL(getEventByPositionKey(1)), none);
    row("DataJW-GetEventAll", CALL(getEventAll()), none);
    row("DataJW-GetLastEventAddedKey", CALL(getLastEventAddedKey()), zero);
    row("DataJW-GetUProfileKey", CALL(getUProfileByKey(1)), none);
    row("DataJW-GetUProfile", CALL(getUProfile(u"A"_s, u"B"_s)), none, "DataJW-GetUProfileKey");
    row("DataJW-GetUProfileKeyAll", CALL(getUProfileCount()), zero);
    row("DataJW-GetTargets", CALL(getTargets()));
    row("DataJW-GetTargetByKey", CALL(getTargetByKey(1)), u"0:"_s);
    row("DataJW-GetTargetName", CALL(getTargetName(u"A"_s)), u"0:"_s);
    row("DataJW-GetTargetCount", CALL(getTargetCount()), zero);
    row("DataJW-getCQuestions", CALL(getCQuestions(0)));
    row("DataJW-getPrefAnswers", CALL(getPrefAnswers(0)));
    row("DataJW-getProfileAnswers", CALL(getProfileAnswers(false, 1, 1)));
    row("DataJW-getProfileRank", CALL(getProfileRank(false, 1)), zero);
    row("DataJW-getProfileCount", CALL(getProfileCount(false)), zero);
    row("DataJW-getAnswerNumber", CALL(getAnswerNumber(1, false, 1)), zero);
    row("DataJW-getAnswers", CALL(getAnswers(1, 0, 1)));
    row("DataJW-GetPositionsExpired", CALL(getPositionsExpiredCount(1)), zero);
    row("DataJW-GetPositionData", CALL(getProgressCount(u"Hired"_s, QDate(2026, 1, 1), QDate(2026, 2, 1))),
        none);
    row("DataJW-GetProgressDateCount",
        CALL(getProgressDateCount(u"Hired"_s, QDate(2026, 1, 1), QDate(2026, 2, 1))), zero);
    row("DataJW-GetNewTableCount", CALL(getNewTableCount(u"Contact"_s, QDate(2026, 1, 1), QDate(2026, 2, 1))),
        zero);
    row("DataJW-GetStatusHours", CALL(getStatusHours(QDate(2026, 1, 1), QDate(2026, 2, 1))), zero);
    row("DataJW-WriteStatus", CALL(writeStatus(u"A"_s, u"1"_s, true)), no);
    row("DataJW-GetStatusValueErr", CALL(getStatusValue(u"A"_s)));
    row("DataJW-delStatusErr", CALL(delStatus(u"A"_s)), no);
    row("DataJW-RemoveRec", CALL(removeRec(u"Company"_s, u"A"_s)), no);
    row("DataJW-DelDox", CALL(delDox()), no);
    row("DataJW-UpdateCompanySubset", CALL(updateCompanySubset(u"A"_s, 1)), no, "DataJW-GetCompanyKey");
    row("DataJW-UpdateContactList", CALL(updateContactList(1, 2, u"Contact"_s, 0)), zero);
    row("DataJW-UpdateContactList", CALL(updateContactLists({{Key(1), Key(2)}}, u"Contact"_s)), zero);
    row("DataJW-UpdateDocList", CALL(updateDocList(1, 2, u"Contact"_s, 0)), zero);
    const auto silent = [](auto operation) {
        return GatewayCall([operation](DataJW& data) {
            operation(data);
            return QString();
        });
    };
    row("DataJW-DelRecord", silent([](DataJW& data) { data.delRecord(1, u"Contact"_s); }));
    row("DataJW-DelContactsByCompany", silent([](DataJW& data) { data.delContactsByCompany(1); }));
    row("DataJW-UpdateContactSubset", silent([](DataJW& data) { data.updateContactSubset(1, 2); }));
}

void TestGatewayAction::failEachOperationWithoutAStore()
{
    QFETCH(GatewayCall, call);
    QFETCH(QString, fallback);
    QFETCH(QString, tag);
    World world;
    world.prompts.expect(u"DataJW-Init"_s);
    QVERIFY(QFile::remove(world.session->databasePath()));
    QVERIFY(!world.data().isConnected());
    for (const QString& each : tag.split(u'|'))
        world.prompts.expect(each + u"\r\nQuery: ");

    QCOMPARE(call(world.data()), fallback);

    QStringList logged;
    for (const LogEntry& entry : LogEntry::parse(world.errorLog()))
        logged.append(entry.text.section(u"\r\n"_s, 0, 0));
    QCOMPARE(logged, QStringList(u"DataJW-Init"_s) + tag.split(u'|'));
    QVERIFY(!QFile::exists(world.session->databasePath()));
}

QTEST_GUILESS_MAIN(TestGatewayAction)
#include "tst_gateway_action.moc"
