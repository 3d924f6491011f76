#include "support/campaign.h"
#include "support/errorlog.h"
#include "support/gatewaycalls.h"
#include "support/runtest.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

/// A world with the small campaign.
class CampaignWorld : public World
{
public:
    CampaignWorld() { loadCampaign(*this); }
    /// The values of a column as in "Contact.CompanyKey", row by row, "NULL" for none.
    QString column(const QString& name)
    {
        QStringList values;
        for (RecordSet rows = data().getExecQueryRecords(u"Select * from "_s + name.section(u'.', 0, 0));
             !rows.atEnd(); rows.next())
            values.append(rows.isNull(name.section(u'.', 1)) ? u"NULL"_s : rows.text(name.section(u'.', 1)));
        return values.join(u'|');
    }
};

} // namespace

/// What the writing operations leave in the tables and in the log, and records that fill themselves.
class TestGatewayWriting : public QObject
{
    Q_OBJECT

private slots:
    void deleteTheRecordsOfAKey_data()
    {
        columns<QString, int, QString, int>("table", "key", "column", "left");
        const auto row = [](const char* table, int key, const char* column, int left) {
            QTest::newRow(table) << QString::fromLatin1(table) << key << QString::fromLatin1(column) << left;
        };
        row("CProfile", 2, "CompanyKey", 0);
        row("JProfile", 1, "PositionKey", 0);
        row("UProfile", 1, "UProfileKey", 0);
        row("Contact", 77, "ContactKey", 5); // a key without a row is logged too
    }
    void deleteTheRecordsOfAKey()
    {
        FETCH(QString, table, column);
        FETCH(int, key, left);
        CampaignWorld world;
        world.data().delRecord(static_cast<Key>(key), table);
        QCOMPARE(world.data().getCount(table, true), Key(left));
        const auto entries = LogEntry::parse(world.errorLog());
        QCOMPARE(entries.size(), 1U);
        QVERIFY(entries[0].suppressed);
        QCOMPARE(
            entries[0].text,
            u"DataJW-DelRecord\r\nQuery: Delete * from %1 where %2=%3\r\nDELETE RECORD...irrecoverable"_s.arg(
                table, column, QString::number(key)));
    }

    void failToDeleteFromATableWithoutKey()
    {
        CampaignWorld world;
        world.prompts.expect(u"DataJW-DelRecord\r\nQuery: Delete * from History where =1"_s);
        world.data().delRecord(1, u"History"_s);
        QCOMPARE(world.data().getCount(u"History"_s, true), Key(4));
        QVERIFY(!world.errorLog().contains(u"irrecoverable"));
    }

    void moveACompanysRowsToItsNewKey()
    {
        CampaignWorld world;
        send(world, {u"INSERT INTO Contact (FirstName,CompanyKey) VALUES ('Nobody`s',0)"_s});
        QVERIFY(world.data().updateCompanySubset(u"Borealis"_s, 0)); // nothing of a new company's
        QCOMPARE(world.column(u"Contact.CompanyKey"_s), u"1|1|2|2|9|0"_s);
        send(world, {u"Delete * from Company where CompanyKey=2"_s,
                     u"INSERT INTO Company (Name) VALUES ('Borealis')"_s});
        QVERIFY(!world.data().updateCompanySubset(u"Borealis"_s, 2));
        QCOMPARE(world.column(u"Contact.CompanyKey"_s), u"1|1|3|3|9|0"_s);
        QCOMPARE(world.column(u"Position.CompanyKey"_s), u"1|1|3"_s);
        QCOMPARE(world.column(u"CProfile.CompanyKey"_s), u"3"_s);
        QCOMPARE(world.column(u"JProfile.CompanyKey"_s), u"1"_s);
        QCOMPARE(world.column(u"Event.CompanyKey"_s), u"1|1"_s);
    }

    void moveAContactsRowsToItsNewKey()
    {
        CampaignWorld world;
        world.data().updateContactSubset(12, 1);
        QCOMPARE(world.column(u"History.HistoryKey"_s), u"12-1|12-3|12-2|3-1"_s);
        QCOMPARE(world.column(u"History.ContactKey"_s), u"12|12|12|3"_s);
        QCOMPARE(world.column(u"Event.ContactKey"_s), u"12|3"_s);
    }

    void replaceKeysInLists_data()
    {
        columns<GatewayCall, QString, QString, QString>("call", "changed", "column", "lists");
        const auto row = [](const char* name, const GatewayCall& call, int changed, const char* column,
                            const char* lists) {
            QTest::newRow(name) << call << QString::number(changed) << QString::fromLatin1(column)
                                << QString::fromLatin1(lists);
        };
        const char* const contacts = "Contact.ContactList";
        const char* const positions = "Position.ContactList";
        const char* const documents = "Contact.DocumentList";
        row("key in a list", CALL(updateContactList(40, 7, u"Contact"_s, 0)), 1, contacts,
            "|5,40,9|13,3|NULL|NULL");
        row("key within another", CALL(updateContactList(8, 3, u"Contact"_s, 1)), 1, contacts,
            "|5,7,9|18,8|NULL|NULL");
        row("no new key", CALL(updateContactList(0, 7, u"Position"_s, 0)), 1, positions, "NULL|NULL|5,,9");
        row("key in no list", CALL(updateContactList(1, 8, u"Position"_s, 0)), 0, positions,
            "NULL|NULL|5,7,9");
        row("document", CALL(updateDocList(6, 2, u"Contact"_s, 1)), 2, documents, "1|16,1|3,1,4|1,5|11,61");
        row("no new document", CALL(updateDocList(0, 1, u"Contact"_s, 1)), 5, documents, "|2,|3,,4|,5|,2");
    }
    void replaceKeysInLists()
    {
        QFETCH(GatewayCall, call);
        FETCH(QString, changed, column, lists);
        CampaignWorld world;
        QCOMPARE(call(world.data()), changed);
        QCOMPARE(world.column(column), lists);
        QCOMPARE(world.errorLog(), QString());
    }

    void writeSettings()
    {
        World world;
        DataJW& data = world.data();
        const QString rows = u"Select StatusDate,StatusValue from Status where StatusDescription='X'"_s;
        QVERIFY(data.writeStatus(u"X"_s, u"1"_s, false));
        QVERIFY(data.writeStatus(u"X"_s, u"2"_s, false));
        QCOMPARE(data.getStatusValue(u"X"_s), u"1"_s);
        QCOMPARE(world.cells(rows), u"11/22/2026|1;11/22/2026|2"_s);
        QVERIFY(data.writeStatus(u"X"_s, u"3"_s, true));
        QCOMPARE(world.cells(rows), u"11/22/2026|3"_s);
    }

    void historyFillsItselfInOrder()
    {
        CampaignWorld world;
        History history;
        history.loadDataFromDatabase(world.data(), 1, 2);
        QCOMPARE(history.HistKey + history.topic, u"1-2Fair follow-up"_s);
        QCOMPARE(history.ContactDate, QDate(2026, 6, 20));
        // Past the last one the record stays as it was; so it does when the number is wider than 16 bits.
        history.loadDataFromDatabase(world.data(), 1, 4);
        QCOMPARE(history.HistKey, u"1-2"_s);
        QCOMPARE(History::getHistoryCount(world.data(), 1), 3);
        send(world, {u"Update History set ContactCount=32768 where HistoryKey='1-3'"_s});
        world.prompts.expect(u"History-LoadDataFromDatabase\r\n1-3"_s);
        history.loadDataFromDatabase(world.data(), 1, 3);
        QCOMPARE(history.HistKey, u"1-2"_s);
    }
};

JOBWRIGHT_TEST(TestGatewayWriting)
#include "tst_gateway_writing.moc"
