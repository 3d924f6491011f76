#include "store/storeerror.h"
#include "support/campaign.h"
#include "support/errorlog.h"
#include "support/gatewaycalls.h"
#include "support/table.h"

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

} // namespace

/// What the writing operations leave in the tables and in the log.
class TestGatewayWriting : public QObject
{
    Q_OBJECT

private slots:
    void deleteTheRecordsOfAKey_data()
    {
        columns<QString, int, QString, int>("table", "key", "statement", "left");
        QTest::newRow("profile of a company")
            << u"CProfile"_s << 2 << u"Delete * from CProfile where CompanyKey=2"_s << 0;
        QTest::newRow("profile of a position")
            << u"JProfile"_s << 1 << u"Delete * from JProfile where PositionKey=1"_s << 0;
        QTest::newRow("profile item")
            << u"UProfile"_s << 1 << u"Delete * from UProfile where UProfileKey=1"_s << 0;
        QTest::newRow("a key without a row is logged too")
            << u"Contact"_s << 77 << u"Delete * from Contact where ContactKey=77"_s << 5;
    }
    void deleteTheRecordsOfAKey()
    {
        FETCH(QString, table, statement);
        FETCH(int, key, left);
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

    void failToDeleteFromATableWithoutKey()
    {
        World world;
        loadCampaign(world);
        world.prompts.expect(u"DataJW-DelRecord\r\nQuery: Delete * from History where =1"_s);
        world.data().delRecord(1, u"History"_s);
        QCOMPARE(world.data().getCount(u"History"_s, true), Key(4));
        QVERIFY(!world.errorLog().contains(u"irrecoverable"));
    }

    void moveACompanysRowsToItsNewKey()
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

    void moveNothingOfANewCompany()
    {
        World world;
        loadCampaign(world);
        send(world, {u"INSERT INTO Contact (FirstName,CompanyKey) VALUES ('Nobody`s',0)"_s});
        QVERIFY(world.data().updateCompanySubset(u"Borealis"_s, 0));
        QCOMPARE(column(world, u"Select * from Contact"_s, u"CompanyKey"_s), u"1|1|2|2|9|0"_s);
    }

    void moveAContactsRowsToItsNewKey()
    {
        World world;
        loadCampaign(world);
        world.data().updateContactSubset(12, 1);
        QCOMPARE(column(world, u"Select * from History"_s, u"HistoryKey"_s), u"12-1|12-3|12-2|3-1"_s);
        QCOMPARE(column(world, u"Select * from History"_s, u"ContactKey"_s), u"12|12|12|3"_s);
        QCOMPARE(column(world, u"Select * from Event"_s, u"ContactKey"_s), u"12|3"_s);
    }

    void replaceKeysInLists_data()
    {
        columns<GatewayCall, QString, QString, QString>("call", "changed", "table", "lists");
        const QString contacts = u"Contact.ContactList"_s;
        const QString documents = u"Contact.DocumentList"_s;
        QTest::newRow("key in a list") << CALL(updateContactList(40, 7, u"Contact"_s, 0)) << u"1"_s
                                       << contacts << u"|5,40,9|13,3|NULL|NULL"_s;
        QTest::newRow("key within another") << CALL(updateContactList(8, 3, u"Contact"_s, 1)) << u"1"_s
                                            << contacts << u"|5,7,9|18,8|NULL|NULL"_s;
        QTest::newRow("no new key") << CALL(updateContactList(0, 7, u"Position"_s, 0)) << u"1"_s
                                    << u"Position.ContactList"_s << u"NULL|NULL|5,,9"_s;
        QTest::newRow("key in no list") << CALL(updateContactList(1, 8, u"Position"_s, 0)) << u"0"_s
                                        << u"Position.ContactList"_s << u"NULL|NULL|5,7,9"_s;
        QTest::newRow("document") << CALL(updateDocList(6, 2, u"Contact"_s, 1)) << u"2"_s << documents
                                  << u"1|16,1|3,1,4|1,5|11,61"_s;
        QTest::newRow("no new document")
            << CALL(updateDocList(0, 1, u"Contact"_s, 1)) << u"5"_s << documents << u"|2,|3,,4|,5|,2"_s;
    }
    void replaceKeysInLists()
    {
        QFETCH(GatewayCall, call);
        FETCH(QString, changed, table, lists);
        World world;
        loadCampaign(world);
        QCOMPARE(call(world.data()), changed);
        const QStringList names = table.split(u'.');
        QCOMPARE(column(world, u"Select * from "_s + names[0], names[1]), lists);
        QCOMPARE(world.errorLog(), QString());
    }

    void writeSettings()
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
};

QTEST_GUILESS_MAIN(TestGatewayWriting)
#include "tst_gateway_writing.moc"
