// The demo campaign: laid into a fresh store on any day, complete and with its days where they belong.
#include "base/dates.h"
#include "base/text.h"
#include "store/campaignfile.h"
#include "store/files/demo.h"
#include "store/files/storecheck.h"
#include "store/xml/campaignfile.h"
#include "support/runtest.h"

using namespace Qt::StringLiterals;

static const QString delivered = QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data/demo/campaign.xml");

namespace {

/// The links in a campaign's file by names: "Ann Lee > Bo New", "Planner > Ann Lee".
QStringList links(const QString& path)
{
    CampaignFile file;
    if (const QString refusal = file.load(path); !refusal.isEmpty())
        return {refusal};
    const auto value = [](pugi::xml_node record, const char* column) {
        return QString::fromUtf8(record.attribute(column).value());
    };
    QHash<QString, QString> names;
    for (const pugi::xml_node& contact : file.records("Contact"))
        names.insert(value(contact, "ContactKey"),
                     value(contact, "FirstName") + u' ' + value(contact, "LastName"));
    QStringList found;
    for (const char* const table : {"Contact", "Position"}) {
        for (const pugi::xml_node& record : file.records(table)) {
            const QString own = names.value(value(record, "ContactKey"), value(record, "Title"));
            for (const QString& key : text::csvParse(value(record, "ContactList")))
                found.append(own + u" > " + names.value(key));
        }
    }
    found.sort();
    return found;
}

} // namespace

class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void everythingComesIn()
    {
        World world;
        QVERIFY(loadDemo(*world.session, delivered)); // any message would fail the test
        const QList<std::pair<const char*, int>> least{{"Company", 18},  {"Contact", 45}, {"Position", 30},
                                                       {"History", 150}, {"Event", 20},   {"Target", 12},
                                                       {"UProfile", 10}, {"Document", 8}, {"Question", 18},
                                                       {"CProfile", 15}, {"JProfile", 5}};
        for (const auto& [table, count] : least)
            QVERIFY2(world.data().getCount(QLatin1String(table), true) >= count, table);
        QVERIFY(QFile::exists(world.session->file(u"restore.xml"_s)));
        // The answers belong to the companies that they were given for: the file's keys are the store's.
        QCOMPARE(world.data().getProfileRank(false, world.data().getCompanyKey(u"Alder & Finch Foods"_s)),
                 Key(7));
        QVERIFY(world.data().keyVerification(world.data().getCompanyKey(u"Millrace Paper"_s), u"CompanyKey"_s,
                                             u"Target"_s));
    }

    void daysAreRelativeToToday()
    {
        const QDate today(2028, 5, 1); // a year and a half after the recorded day
        World world(QDateTime(today, QTime(8, 0)));
        QVERIFY(loadDemo(*world.session, delivered));
        QVERIFY(world.cells(u"Select Event from Event where EventDate='%1'"_s.arg(dates::mdyyyy(today)))
                    .contains(u';'));
        QDate first = today;
        QDate last(1900, 1, 1);
        for (RecordSet rows = world.data().getExecQueryRecords(u"Select ContactDate from History"_s);
             !rows.atEnd(); rows.next()) {
            first = qMin(first, rows.date(u"ContactDate"));
            last = qMax(last, rows.date(u"ContactDate"));
        }
        QVERIFY(first.daysTo(today) > 400 && first.daysTo(today) < 430);
        QVERIFY(last.daysTo(today) >= 0 && last.daysTo(today) < 7);
        // A step that is not done stays not done, a position without end stays so.
        QCOMPARE(world.cells(u"Select Hired,Expires from Position where Title='First Planner'"_s),
                 u"12/31/1999|12/31/1999"_s);
    }

    void restoreKeepsEveryLink()
    {
        World world;
        const QStringList all = links(delivered);
        QVERIFY(all.size() > 50);
        for (int times = 0; times < 3; ++times) { // into a fresh store, then into a used one
            world.data().importXML(delivered);
            QVERIFY(!world.data().createXML(u"out.xml"_s, true).isEmpty());
            QCOMPARE(links(world.session->file(u"out.xml"_s)), all);
            QCOMPARE(checkStore(world.data().database()).mixedKeys, QStringList());
        }
    }

    void usedStoreIsLeftAlone()
    {
        World world;
        QVERIFY(world.data().execQuery(u"Insert into Company(Name) VALUES('Mine')"_s));
        world.prompts.expect(u"into an empty database only"_s);
        QVERIFY(!loadDemo(*world.session, delivered));
        QCOMPARE(world.data().getCompanyNames(), QStringList{u"Mine"_s});
        QVERIFY(!QFile::exists(world.session->file(u"restore.xml"_s)));
    }

    void callThatWasKilledCanBeMadeAgain()
    {
        World world;
        QVERIFY(loadDemo(*world.session, delivered));
        const QString file = world.session->file(u"restore.xml"_s);
        World again; // with the restore file of a first call, and nothing else
        QVERIFY(QFile::copy(file, again.session->file(u"restore.xml"_s)));
        QVERIFY(loadDemo(*again.session, delivered));
        World own;
        QFile mine(own.session->file(u"restore.xml"_s));
        QVERIFY(mine.open(QIODevice::WriteOnly) && mine.write("<Jobwright Restore='1'/>") > 0 &&
                mine.flush());
        own.prompts.expect(u"a restore file of your own"_s);
        QVERIFY(!loadDemo(*own.session, delivered));
    }
};

JOBWRIGHT_TEST(TestDemo)
#include "tst_demo.moc"
