#include "store/storeerror.h"
#include "support/campaign.h"
#include "support/errorlog.h"
#include "support/gatewaycalls.h"

#include <QRandomGenerator>
#include <QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

/// The values of a column, row by row, "NULL" for none.
QString column(World& world, const QString& statement, const QString& name)
{
    QStringList values;
    for (RecordSet rows = world.data().getExecQueryRecords(statement); !rows.atEnd(); rows.next())
        values.append(rows.isNull(name) ? u"NULL"_s : rows.text(name));
    return values.join(u'|');
}

/// Lets the statement that begins like this fail.
void failAt(World& world, const QString& beginning)
{
    world.data().database().setInterceptor([beginning](QStringView statement) {
        if (statement.startsWith(beginning))
            throw StoreError(u"thrown by the test"_s, SQLITE_BUSY, u"Test"_s);
    });
}

} // namespace

/// What the writing operations leave in the tables and in the log.
class TestGatewayWriting : public QObject
{
    Q_OBJECT

private slots:
    void deleteTheRecordsOfAKey_data();
    void deleteTheRecordsOfAKey();
    void deleteNothingForNoKey();
    void failToDeleteFromATableWithoutKey();
    void deleteByName();
    void removeWhatBelongsToACompany();
    void stopARemovalAtTheStatementThatFails();
    void moveACompanysRowsToItsNewKey();
    void moveNothingOfANewCompany();
    void moveAContactsRowsToItsNewKey();
    void replaceKeysInLists_data();
    void replaceKeysInLists();
    void replaceManyKeysAsOneByOne();
    void failToReplaceInATableWithoutLists();
    void writeSettings();
    void keepThePreviousSettingWhenTheReplacementFails();
    void giveTheKeyOfAnInsertedRow();
};

void TestGatewayWriting::deleteTheRecordsOfAKey_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("left");

    QTest::newRow("position") << u"Position"_s << 2 << u"Delete * from Position where PositionKey=2"_s << 2;
    QTest::newRow("document") << u"Document"_s << 1 << u"Delete * from Document where ResumeKey=1"_s << 1;
    QTest::newRow("company") << u"Company"_s << 1 << u"Delete * from Company where CompanyKey=1"_s << 1;
    QTest::newRow("address") << u"Address"_s << 2 << u"Delete * from Address where AddressKey=2"_s << 1;
    QTest::newRow("contact") << u"Contact"_s << 4 << u"Delete * from Contact where ContactKey=4"_s << 4;
    QTest::newRow("profile of a company")
        << u"CProfile"_s << 2 << u"Delete * from CProfile where CompanyKey=2"_s << 0;
    QTest::newRow("profile of a position")
        << u"JProfile"_s << 1 << u"Delete * from JProfile where PositionKey=1"_s << 0;
    QTest::newRow("profile item") << u"UProfile"_s << 1 << u"Delete * from UProfile where UProfileKey=1"_s
                                  << 0;
    QTest::newRow("a key without a row is logged too")
        << u"Contact"_s << 77 << u"Delete * from Contact where ContactKey=77"_s << 5;
}

void TestGatewayWriting::deleteTheRecordsOfAKey()
{
    QFETCH(QString, table);
    QFETCH(int, key);
    QFETCH(QString, statement);
    QFETCH(int, left);
    World world;
    loadCampaign(world);

    world.data().delRecord(static_cast<Key>(key), table);

    QCOMPARE(world.data().getCount(table, true), Key(left));
    const auto entries = LogEntry::parse(world.errorLog());
    QCOMPARE(entries.size(), 1U);
    QVERIFY(entries[0].suppressed);
    QCOMPARE(entries[0].text,
             u"DataJW-DelRecord\r\nQuery: "_s + statement + u"\r\nDELETE RECORD...irrecoverable");
}

void TestGatewayWriting::deleteNothingForNoKey()
{
    World world;
    QStringList sent;
    world.data().database().setInterceptor([&](QStringView statement) { sent.append(statement.toString()); });

    world.data().delRecord(0, u"Contact"_s);

    QCOMPARE(sent, QStringList());
    QCOMPARE(world.errorLog(), QString());
}

void TestGatewayWriting::failToDeleteFromATableWithoutKey()
{
    World world;
    loadCampaign(world);
    world.prompts.expect(u"DataJW-DelRecord\r\nQuery: Delete * from History where =1"_s);

    world.data().delRecord(1, u"History"_s);

    QCOMPARE(world.data().getCount(u"History"_s, true), Key(4));
    QVERIFY(!world.errorLog().contains(u"irrecoverable"));
}

void TestGatewayWriting::deleteByName()
{
    World world;
    loadCampaign(world);

    QVERIFY(world.data().removeRec(u"Company"_s, u"zenith"_s));
    QVERIFY(world.data().delStatus(u"minlog"_s));
    QVERIFY(world.data().delDox());

    QCOMPARE(world.data().getCompanyNames(), QStringList{u"Borealis"_s});
    QCOMPARE(world.data().getStatusHours(QDate(2026, 1, 1), QDate(2027, 1, 1)), Key(0));
    QCOMPARE(world.data().getCount(u"Document"_s, true), Key(0));
    QCOMPARE(world.errorLog(), QString());
}

void TestGatewayWriting::removeWhatBelongsToACompany()
{
    World world;
    loadCampaign(world);

    world.data().delContactsByCompany(1);

    QCOMPARE(column(world, u"Select * from History"_s, u"HistoryKey"_s), u"3-1"_s);
    QCOMPARE(column(world, u"Select * from Contact"_s, u"ContactKey"_s), u"3|4|5"_s);
    QCOMPARE(column(world, u"Select * from Position"_s, u"PositionKey"_s), u"3"_s);
    QCOMPARE(column(world, u"Select * from CProfile"_s, u"CompanyKey"_s), u"2"_s);
    for (const QString& emptied : {u"Event"_s, u"JProfile"_s})
        QCOMPARE(world.data().getCount(emptied, true), Key(0));
    QCOMPARE(world.data().getCount(u"Address"_s, true), Key(2));
    QCOMPARE(world.errorLog(), QString());

    // A second time there is nobody left, and the rest is sent all the same.
    send(world, {u"INSERT INTO Event (Event,CompanyKey) VALUES ('Late',1)"_s});
    world.data().delContactsByCompany(1);
    QCOMPARE(world.data().getCount(u"Event"_s, true), Key(0));
    QCOMPARE(LogEntry::parse(world.errorLog()).at(0).text, u"DataJW-DelContactsByCompany - No Contacts"_s);
}

void TestGatewayWriting::stopARemovalAtTheStatementThatFails()
{
    World world;
    loadCampaign(world);
    failAt(world, u"Delete * from Position"_s);
    world.prompts.expect(
        u"DataJW-DelContactsByCompany\r\nQuery: Delete * from Position where companykey=1"_s);

    world.data().delContactsByCompany(1);
    world.data().database().setInterceptor({});

    // What went before stays done, what comes behind was not sent.
    QCOMPARE(column(world, u"Select * from Contact"_s, u"ContactKey"_s), u"3|4|5"_s);
    QCOMPARE(world.data().getCount(u"Position"_s, true), Key(3));
    QCOMPARE(world.data().getCount(u"Event"_s, true), Key(2));
    world.data().delContactsByCompany(1);
    QCOMPARE(world.data().getCount(u"Event"_s, true), Key(0));
}

void TestGatewayWriting::moveACompanysRowsToItsNewKey()
{
    World world;
    loadCampaign(world);
    send(world, {u"Delete * from Company where CompanyKey=2"_s,
                 u"INSERT INTO Company (Name) VALUES ('Borealis')"_s});

    QVERIFY(!world.data().updateCompanySubset(u"Borealis"_s, 2));

    QCOMPARE(column(world, u"Select * from Contact"_s, u"CompanyKey"_s), u"1|1|3|3|9"_s);
    QCOMPARE(column(world, u"Select * from Position"_s, u"CompanyKey"_s), u"1|1|3"_s);
    QCOMPARE(column(world, u"Select * from CProfile"_s, u"CompanyKey"_s), u"3"_s);
    QCOMPARE(column(world, u"Select * from JProfile"_s, u"CompanyKey"_s), u"1"_s);
    QCOMPARE(column(world, u"Select * from Event"_s, u"CompanyKey"_s), u"1|1"_s);
}

void TestGatewayWriting::moveNothingOfANewCompany()
{
    World world;
    loadCampaign(world);
    send(world, {u"INSERT INTO Contact (FirstName,CompanyKey) VALUES ('Nobody`s',0)"_s});

    QVERIFY(world.data().updateCompanySubset(u"Borealis"_s, 0));

    QCOMPARE(column(world, u"Select * from Contact"_s, u"CompanyKey"_s), u"1|1|2|2|9|0"_s);
}

void TestGatewayWriting::moveAContactsRowsToItsNewKey()
{
    World world;
    loadCampaign(world);

    world.data().updateContactSubset(12, 1);

    QCOMPARE(column(world, u"Select * from History"_s, u"HistoryKey"_s), u"12-1|12-3|12-2|3-1"_s);
    QCOMPARE(column(world, u"Select * from History"_s, u"ContactKey"_s), u"12|12|12|3"_s);
    QCOMPARE(column(world, u"Select * from Event"_s, u"ContactKey"_s), u"12|3"_s);
}

void TestGatewayWriting::replaceKeysInLists_data()
{
    QTest::addColumn<GatewayCall>("call");
    QTest::addColumn<QString>("changed");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("lists");
    const QString contacts = u"Contact.ContactList"_s;
    const QString documents = u"Contact.DocumentList"_s;

    QTest::newRow("key in a list") << CALL(updateContactList(40, 7, u"Contact"_s, 0)) << u"1"_s << contacts
                                   << u"|5,40,9|13,3|NULL|NULL"_s;
    QTest::newRow("key within another")
        << CALL(updateContactList(8, 3, u"Contact"_s, 1)) << u"1"_s << contacts << u"|5,7,9|18,8|NULL|NULL"_s;
    QTest::newRow("no new key") << CALL(updateContactList(0, 7, u"Position"_s, 0)) << u"1"_s
                                << u"Position.ContactList"_s << u"NULL|NULL|5,,9"_s;
    QTest::newRow("key in no list") << CALL(updateContactList(1, 8, u"Position"_s, 0)) << u"0"_s
                                    << u"Position.ContactList"_s << u"NULL|NULL|5,7,9"_s;
    QTest::newRow("document") << CALL(updateDocList(6, 2, u"Contact"_s, 1)) << u"2"_s << documents
                              << u"1|16,1|3,1,4|1,5|11,61"_s;
    QTest::newRow("no new document") << CALL(updateDocList(0, 1, u"Contact"_s, 1)) << u"5"_s << documents
                                     << u"|2,|3,,4|,5|,2"_s;
}

void TestGatewayWriting::replaceKeysInLists()
{
    QFETCH(GatewayCall, call);
    QFETCH(QString, changed);
    QFETCH(QString, table);
    QFETCH(QString, lists);
    World world;
    loadCampaign(world);

    QCOMPARE(call(world.data()), changed);

    const QStringList names = table.split(u'.');
    QCOMPARE(column(world, u"Select * from "_s + names[0], names[1]), lists);
    QCOMPARE(world.errorLog(), QString());
}

void TestGatewayWriting::replaceManyKeysAsOneByOne()
{
    QRandomGenerator random(1999);
    World oneByOne;
    World atOnce;
    QStringList rows;
    for (int i = 0; i < 150; ++i) {
        QStringList items;
        for (int j = random.bounded(0, 8); j > 0; --j)
            items.append(QString::number(random.bounded(1, 400)));
        rows.append(u"INSERT INTO Contact (ContactList) VALUES ('"_s + items.join(u',') + u"')");
    }
    std::vector<std::pair<Key, Key>> pairs;
    for (int i = 0; i < 120; ++i)
        pairs.emplace_back(Key(random.bounded(400)), Key(random.bounded(1, 400)));
    int changed = 0;
    {
        const Action first(oneByOne.data());
        send(oneByOne, rows);
        for (const auto& [newKey, oldKey] : pairs)
            changed += oneByOne.data().updateContactList(newKey, oldKey, u"Contact"_s, 1);
        const Action second(atOnce.data());
        send(atOnce, rows);
        QCOMPARE(atOnce.data().updateContactLists(pairs, u"Contact"_s), changed);
    }

    const QString all = u"Select * from Contact"_s;
    QCOMPARE(column(atOnce, all, u"ContactList"_s), column(oneByOne, all, u"ContactList"_s));
    QVERIFY(changed > 300);
}

void TestGatewayWriting::failToReplaceInATableWithoutLists()
{
    World world;
    loadCampaign(world);
    world.prompts.expect(u"DataJW-UpdateDocList\r\nQuery: Select * from Document where documentlist > ''"_s);

    QCOMPARE(world.data().updateDocList(5, 1, u"Document"_s, 1), 0);
}

void TestGatewayWriting::writeSettings()
{
    World world;
    DataJW& data = world.data();

    QVERIFY(data.writeStatus(u"X"_s, u"1"_s, false));
    QVERIFY(data.writeStatus(u"X"_s, u"2"_s, false));
    QCOMPARE(data.getStatusValue(u"X"_s), u"1"_s);
    const QString rows = u"Select * from Status where StatusDescription='X'"_s;
    QCOMPARE(column(world, rows, u"StatusDate"_s), u"11/22/2026|11/22/2026"_s);

    QVERIFY(data.writeStatus(u"X"_s, u"3"_s, true));
    QCOMPARE(column(world, rows, u"StatusValue"_s), u"3"_s);
}

void TestGatewayWriting::keepThePreviousSettingWhenTheReplacementFails()
{
    World world;
    send(world, {u"Delete * from Status"_s});
    world.data().writeStatus(u"X"_s, u"1"_s, false);
    failAt(world, u"Delete"_s);
    world.prompts.expect(u"DataJW-WriteStatus\r\nQuery: Delete * from Status where StatusDescription='X'"_s);

    QVERIFY(!world.data().writeStatus(u"X"_s, u"2"_s, true));
    world.data().database().setInterceptor({});
    QCOMPARE(column(world, u"Select * from Status"_s, u"StatusValue"_s), u"1"_s);

    world.prompts.expect(
        u"DataJW-WriteStatus\r\nQuery: INSERT INTO STATUS (StatusDescription,StatusDate,StatusValue) VALUES "
        "('X','11/22/2026','it's');"_s);
    QVERIFY(!world.data().writeStatus(u"X"_s, u"it's"_s, false));
}

void TestGatewayWriting::giveTheKeyOfAnInsertedRow()
{
    World world;
    loadCampaign(world);
    DataJW& data = world.data();
    send(world, {u"Delete * from Address"_s, u"INSERT INTO Address (City) VALUES ('Ely')"_s,
                 u"INSERT INTO Event (Event) VALUES ('Call')"_s});

    // A key is never used twice, also when the row that had it is gone.
    QCOMPARE(data.getCount(u"Address"_s, false, u"AddressKey"_s), Key(3));
    QCOMPARE(data.getLastKeyInTable(u"Address"_s, u"AddressKey"_s), Key(3));
    QCOMPARE(data.getLastEventAddedKey(), Key(3));
}

QTEST_GUILESS_MAIN(TestGatewayWriting)
#include "tst_gateway_writing.moc"
