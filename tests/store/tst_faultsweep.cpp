// The i-th store call fails, for every i: what is left is what the statements before and after it make, the
// log says so under the operation's tag, and doing it again works. And no room on the disk loses nothing.
#include "store/childwork.h"
#include "support/runtest.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

#include <sqlite3.h>

#include <csignal>
#include <sys/resource.h>

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

void removeCompany(World& world)
{
    Action action(world.data());
    world.data().delContactsByCompany(1);
    world.data().removeRec(u"Company"_s, u"Own1"_s);
    QVERIFY(action.commit());
}

/// The same file as killCampaign(), imported.
void load(World& world, int companies)
{
    killCampaign(true, u"Own"_s, companies).import(world);
    QVERIFY(world.data().execQuery(u"Insert into CProfile(CompanyKey,PR) VALUES('1','5')"_s));
    QVERIFY(world.data().execQuery(u"Insert into JProfile(CompanyKey,PR) VALUES('1','5')"_s));
}

/// How many rows of company 1 are left, table by table.
QString left(World& world)
{
    QStringList counts;
    for (const char* table : {"Contact", "Position", "Event", "CProfile", "JProfile", "Company"})
        counts.append(
            QString::number(world.data().getCountSp(QLatin1String(table), true, u"CompanyKey=1"_s)));
    counts.append(QString::number(world.data().getCountSp(u"History"_s, true, u"ContactKey<=3"_s)));
    return counts.join(u' ');
}

/// A table that a restore deals with: its rows in the store of load(1), and in the file of one company.
struct Rows
{
    QString table;
    int before;
    int inFile;
};
const std::vector<Rows> restored{{u"Address"_s, 4, 4}, {u"Company"_s, 1, 1},  {u"Contact"_s, 3, 3},
                                 {u"History"_s, 3, 3}, {u"Position"_s, 3, 3}, {u"Document"_s, 0, 1},
                                 {u"Event"_s, 1, 1},   {u"CProfile"_s, 1, 0}, {u"JProfile"_s, 1, 0}};

QString rowCounts(World& world)
{
    QStringList counts;
    for (const Rows& rows : restored)
        counts.append(rows.table + u'=' + QString::number(world.data().getCount(rows.table, true)));
    return counts.join(u' ');
}

/// What a restore leaves when this statement, and no other, failed: a delete leaves its old rows beside the
/// new ones, an insert loses its one record, anything else loses no row.
QString countsAfter(const QString& failed)
{
    QStringList counts;
    for (const auto& [table, before, inFile] : restored) {
        const bool kept = failed == QString(u"Delete * from " + table);
        const bool lost = failed.startsWith(QString(u"Insert into " + table + u'('), Qt::CaseInsensitive);
        counts.append(table + u'=' + QString::number(inFile + (kept ? before : 0) - (lost ? 1 : 0)));
    }
    return counts.join(u' ');
}

/// The read of a key behind an insert: without it the record is there under a key that nobody knows.
bool isKeyRead(const QString& statement)
{
    return statement.contains(u" order by ") && !statement.contains(u" where ");
}

/// Restores in a process that may write no file larger than the database is now and a little more.
int restoreOnSmallDisk(const QString& folder)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const auto room = static_cast<rlim_t>(QFileInfo(folder + u"/Postledger.db").size() + 8192);
    const rlimit limit{room, room};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
        return 1;
    Mute mute;
    Session session(
        folder, [] { return QDateTime(QDate(2026, 11, 22), QTime(9, 30)); }, mute, mute);
    session.dataJW().importXML(folder + u"/given.xml");
    std::puts(qPrintable(session.statusLine()));
    return 0;
}

} // namespace

class TestFaultSweep : public QObject
{
    Q_OBJECT

private slots:
    void companyRemoval()
    {
        // What is left when the i-th call fails: contacts, positions, events, company and position profiles,
        // the company, histories. What hangs on the company stays as a whole; the company's own row goes all
        // the same.
        QStringList expected(9, u"3 3 1 1 1 0 3"_s);          // the list of contacts, and eight deletes
        expected << u"0 0 0 0 0 1 0"_s << u"0 0 0 0 0 0 0"_s; // the company's own; no such call
        for (int i = 1; i <= expected.size(); ++i) {
            World world;
            load(world, 2);
            QStringList calls;
            world.prompts.acceptAll(Answer::Ok);
            {
                const FailOne fail(world, i);
                removeCompany(world);
                calls = fail.calls();
            }
            QCOMPARE(left(world), expected[i - 1]);
            QCOMPARE(world.prompts.asked().size(), i < expected.size() ? 1 : 0);
            if (i < expected.size()) {
                const QString log = world.errorLog();
                QVERIFY(log.contains(u"made to fail") && log.contains(QString(u"Query: " + calls[i - 1])));
                QVERIFY(log.contains(i < expected.size() - 1 ? u"DataJW-DelContactsByCompany" : u"DataJW-"));
            }
            removeCompany(world);
            QVERIFY(left(world).startsWith(u"0 0 0 0 0 0 "));
            QCOMPARE(world.data().getCompanyNames(), QStringList{u"Own2"_s});
        }
    }

    void restore()
    {
        int calls = 1;
        for (int i = 1; i <= calls; ++i) {
            World world;
            load(world, 1);
            const QString path = killCampaign(true, u"New"_s, 1)
                                     .add(u"Document"_s, u"ResumeKey='1' Document='D'"_s)
                                     .write(world);
            QString failed;
            world.prompts.acceptAll(Answer::Ok);
            {
                const FailOne fail(world, i);
                world.data().importXML(path);
                calls = static_cast<int>(fail.calls().size());
                failed = fail.calls().value(i - 1);
            }
            QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
            QCOMPARE(rowCounts(world), countsAfter(failed));
            const bool quiet = failed.startsWith(u"Select * from company where name=") ||
                               failed.startsWith(u"Select * from document where");
            QVERIFY2(quiet || world.errorLog().contains(u"made to fail"), qPrintable(failed));
            QCOMPARE(world.prompts.asked().filter(u"did not come in"_s).size(),
                     failed.startsWith(u"insert"_s, Qt::CaseInsensitive) || isKeyRead(failed) ? 1 : 0);
            world.data().importXML(path);
            QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
            QCOMPARE(rowCounts(world), countsAfter(QString()));
            QCOMPARE(world.data().getCompanyNames(), QStringList{u"New1"_s});
        }
        QVERIFY(calls > 40);
    }

    void restoreOnAFullDisk()
    {
        World world;
        load(world, 2);
        const QString path = killCampaign(true, u"New"_s, 200).write(world);
        const QByteArray before = contentHash(world.data().database());
        world.session.reset();
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {u"--small-disk"_s, world.folder.path()});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        const QString told = QString::fromUtf8(process.readAllStandardOutput());
        QVERIFY2(told.contains(u"The database is as it was before."), qPrintable(told));
        QVERIFY(!told.contains(u"Import Complete"));
        world.restart();
        QCOMPARE(contentHash(world.data().database()), before);
        world.data().importXML(path);
        QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
    }
};

static const bool smallDisk = runtest::addChild(
    u"--small-disk"_s, [](const QStringList& arguments) { return restoreOnSmallDisk(arguments.value(0)); });
JOBWRIGHT_TEST(TestFaultSweep)

#include "tst_faultsweep.moc"
