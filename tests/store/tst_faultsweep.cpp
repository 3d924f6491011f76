// Each store call of a long piece of work fails once: the log says so, no more is lost than what that call
// was about, and doing it again brings what an undisturbed call brings. And no room on the disk loses
// nothing.
#include "store/campaignfile.h"
#include "support/runtest.h"
#include "support/smalldisk.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Fails one call and notes all.
class FailOne
{
public:
    FailOne(World& world, int which)
        : m_database(world.data().database())
    {
        m_database.setInterceptor([this, which](QStringView statement) {
            m_calls.append(statement.toString());
            if (m_calls.size() == which)
                throw StoreError(u"made to fail"_s, 999, u"test"_s);
        });
    }
    ~FailOne() { m_database.setInterceptor({}); }
    FailOne(const FailOne&) = delete;
    FailOne& operator=(const FailOne&) = delete;
    [[nodiscard]] const QStringList& calls() const { return m_calls; }

private:
    Database& m_database;
    QStringList m_calls;
};

void work(const QString& kind, World& world, const QString& file)
{
    if (kind != u"removal")
        return world.data().importXML(file);
    Action action(world.data());
    world.data().delContactsByCompany(1);
    world.data().removeRec(u"Company"_s, u"Own1"_s);
    QVERIFY(action.commit());
}

/// How many rows each table has; histories that lost their contact to a failure are out of a retry's reach.
QStringList rowCounts(World& world)
{
    QStringList counts;
    for (const char* const table :
         {"Address", "Company", "Contact", "Position", "Document", "Event", "CProfile"})
        counts.append(QString::number(world.data().getCount(QLatin1String(table), true)));
    return counts;
}

int sum(const QStringList& counts)
{
    int all = 0;
    for (const QString& count : counts)
        all += count.toInt();
    return all;
}

bool isQuiet(const QString& statement)
{
    return statement.startsWith(u"Select * from company where name=") ||
           statement.startsWith(u"Select * from document where");
}

} // namespace

class TestFaultSweep : public QObject
{
    Q_OBJECT

private slots:
    void anyCallMayFail_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* const kind : {"removal", "restore", "merge"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void anyCallMayFail()
    {
        QFETCH(QString, kind);
        QStringList after;
        qsizetype calls = 0;
        for (int i = 0; i <= calls; ++i) { // undisturbed first
            World world;
            campaignFile(true, u"Own"_s, 2).import(world);
            QVERIFY(world.data().execQuery(u"Insert into CProfile(CompanyKey,PR) VALUES('1','5')"_s));
            const QString given = campaignFile(kind == u"restore", u"New"_s, 1)
                                      .add(u"Document"_s, u"Document='D'"_s)
                                      .write(world);
            world.prompts.acceptAll(Answer::Ok);
            QString failed;
            {
                const FailOne fail(world, i);
                work(kind, world, given);
                calls = i == 0 ? fail.calls().size() : calls;
                failed = fail.calls().value(i - 1);
            }
            if (i == 0) {
                after = rowCounts(world);
                QCOMPARE(world.prompts.asked(), QStringList());
                continue;
            }
            QVERIFY2(isQuiet(failed) || world.errorLog().contains(QString(u"Query: " + failed)),
                     qPrintable(failed));
            const bool lost = failed.startsWith(u"insert"_s, Qt::CaseInsensitive);
            if (kind != u"removal") {
                QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
                QVERIFY2(sum(rowCounts(world)) >= sum(after) - (lost ? 1 : 0), qPrintable(failed));
                QVERIFY2(!lost || world.prompts.asked().filter(u"did not come in"_s).size() == 1,
                         qPrintable(failed));
            }
            if (kind == u"merge")
                continue; // what came in without its own company stays with another's
            work(kind, world, given);
            QVERIFY2(rowCounts(world) == after, qPrintable(failed));
        }
        QVERIFY(calls >= (kind == u"removal" ? 10 : 40));
    }

    void restoreOnAFullDisk()
    {
        World world;
        campaignFile(true, u"Own"_s, 2).import(world);
        const QString path = campaignFile(true, u"New"_s, 200).write(world);
        const QByteArray before = contentHash(world.data().database());
        world.prompts.expect(u"The database is as it was before."_s);
        {
            const SmallDisk disk(QFileInfo(world.session->databasePath()).size() + 8192);
            world.data().importXML(path);
        }
        QVERIFY(world.session->statusLine() != u"Import Complete");
        QCOMPARE(contentHash(world.data().database()), before);
        world.data().importXML(path);
        QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
    }
};

JOBWRIGHT_TEST(TestFaultSweep)
#include "tst_faultsweep.moc"
