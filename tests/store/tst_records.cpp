#include "support/campaign.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Records that fill themselves from the store.
class TestRecords : public QObject
{
    Q_OBJECT

private slots:
    void copyHistoriesInOrder()
    {
        World world;
        loadCampaign(world);
        History history;
        history.loadDataFromDatabase(world.data(), 1, 2);
        QCOMPARE(history.HistKey, u"1-2"_s);
        QCOMPARE(history.topic, u"Fair follow-up"_s);
        QCOMPARE(history.ContactDate, QDate(2026, 6, 20));
        // Past the last one the record stays as it was.
        history.loadDataFromDatabase(world.data(), 1, 4);
        QCOMPARE(history.HistKey, u"1-2"_s);
        QCOMPARE(History::getHistoryCount(world.data(), 1), 3);
    }

    void refuseAHistoryAboveSixteenBits()
    {
        World world;
        loadCampaign(world);
        send(world, {u"Update History set ContactCount=32768 where HistoryKey='1-3'"_s});
        world.prompts.expect(u"History-LoadDataFromDatabase\r\n1-3"_s);
        History history;
        history.loadDataFromDatabase(world.data(), 1, 3);
        QCOMPARE(history.HistKey, QString());
    }
};

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"
