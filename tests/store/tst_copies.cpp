#include "store/engine/enginecall.h"
#include "store/files/appfolder.h"
#include "store/files/copyrestore.h"
#include "store/files/storecheck.h"
#include "support/campaign.h"
#include "support/runtest.h"
#include "support/table.h"
#include "support/world.h"

#include <QTest>

#include <sqlite3.h>

#include <array>

using namespace Qt::StringLiterals;

class TestCopies : public QObject
{
    Q_OBJECT

    static void runDaily(World& world)
    {
        DailyCopy copy(*world.session);
        while (copy.step()) {
        }
        QCOMPARE(copy.failure(), QString());
    }

private slots:
    void dailyCopyOfADayIsMadeOnce()
    {
        World world;
        QVERIFY(world.data().execQuery(u"INSERT INTO Company (Name) VALUES ('Abbott Logistics')"_s));
        runDaily(world);
        QVERIFY(world.data().execQuery(u"INSERT INTO Company (Name) VALUES ('Later')"_s));
        runDaily(world); // the morning's copy stays
        const QStringList copies = listCopies(world.folder.path());
        QCOMPARE(copies.size(), 1);
        QCOMPARE(checkFile(copies.first()), QString());
        Database copy(copies.first());
        const RecordSet rows = copy.run(u"Select * from Company");
        QCOMPARE(rows.rowCount(), 1);
        QCOMPARE(rows.text(u"Name"), u"Abbott Logistics"_s);
    }

    void changesDuringTheCopyReachIt()
    {
        World world;
        for (int i = 0; i < 400; ++i)
            QVERIFY(world.data().execQuery(
                u"INSERT INTO Company (Name,Notes) VALUES ('C%1','%2')"_s.arg(i).arg(u"x"_s.repeated(8000))));
        DailyCopy copy(*world.session);
        QVERIFY(copy.step());
        QVERIFY(world.data().execQuery(u"Update Company set Name='Renamed' where Name='C3'"_s));
        while (copy.step()) {
        }
        QCOMPARE(copy.failure(), QString());
        Database made(listCopies(world.folder.path()).first());
        QCOMPARE(made.run(u"Select * from Company where Name='Renamed'").rowCount(), 1);
    }

    void oldCopiesGoNewOnesStay()
    {
        World world;
        for (int day = 1; day <= 14; ++day) {
            world.setNow(QDateTime(QDate(2026, 11, day), QTime(8, 0)));
            runDaily(world);
        }
        for (int steps = 0; steps < 2; ++steps) // both in the same second
            QVERIFY(copyBefore(*world.session, u"restore"_s));
        const QStringList copies = listCopies(world.folder.path());
        QCOMPARE(copies.filter(u"daily"_s).size(), 10);
        QCOMPARE(copies.filter(u"-restore.db"_s).size(), 2);
        QVERIFY(copies.filter(u"daily"_s).first().contains(u"2026-11-14"_s));
        QVERIFY(copies.filter(u"daily"_s).last().contains(u"2026-11-05"_s));
    }

    void newestIsWhatHoldsMost()
    {
        World world(QDateTime(QDate(2099, 1, 1), QTime(8, 0)));
        runDaily(world); // the clock was ahead
        world.setNow(QDateTime(QDate(2026, 11, 22), QTime(8, 0)));
        send(world, {u"INSERT INTO Company (Name) VALUES ('Abbott')"_s,
                     u"INSERT INTO Company (Name) VALUES ('~ Dream ~')"_s,
                     u"INSERT INTO Contact (FirstName) VALUES ('Ann')"_s});
        QVERIFY(copyBefore(*world.session, u"restore"_s));
        const std::vector<CopyInfo> copies = copiesIn(world.folder.path());
        QCOMPARE(copies.size(), size_t(2));
        const CopyInfo& newest = copies.front();
        QCOMPARE(newest.day.toString(Qt::ISODate) + newest.time.toString(u" HH:mm "_s) + newest.kind,
                 u"2026-11-22 08:00 restore"_s);
        QCOMPARE((std::array{newest.companies, newest.positions, newest.contacts}), (std::array{1, 0, 1}));
    }

    void whatIsLeftOfKilledCopiesGoes()
    {
        World world;
        const QDir backups(world.session->file(u"backups"_s));
        QVERIFY(backups.mkpath(u"."_s));
        for (const QString& name : {u"Postledger-2026-11-20-daily.db.4711.part"_s,
                                    u"Postledger-2026-11-20-daily.db.part-journal"_s, u"mine.part"_s})
            QVERIFY(QFile(backups.filePath(name)).open(QIODevice::WriteOnly));
        runDaily(world);
        QCOMPARE(backups.entryList(QDir::Files),
                 (QStringList{u"mine.part"_s, u"Postledger-2026-11-22-daily.db"_s}));
    }

    void copyIsRestored_data()
    {
        columns<QString, bool>("present", "works");
        QTest::newRow("sound") << u"sound"_s << true;
        QTest::newRow("damaged") << u"damaged"_s << true;
        QTest::newRow("gone") << u"gone"_s << true;
        QTest::newRow("copy damaged") << u"copy"_s << false;
        QTest::newRow("held by another program") << u"held"_s << false;
    }
    void copyIsRestored()
    {
        QFETCH(QString, present);
        QFETCH(bool, works);
        World world;
        send(world, {u"INSERT INTO Company (Name) VALUES ('Then')"_s});
        runDaily(world);
        const QString copy = listCopies(world.folder.path()).first();
        send(world, {u"INSERT INTO Company (Name) VALUES ('Now')"_s});
        const QString path = world.session->databasePath();
        engine::Connection other;
        if (present == u"damaged" || present == u"gone")
            world.session->releaseDataJW();
        if (present == u"gone")
            QVERIFY(QFile::remove(path));
        else if (present == u"damaged" || present == u"copy")
            QVERIFY(QFile::resize(present == u"copy" ? copy : path, 5000));
        if (present == u"held") {
            other = engine::open(path, SQLITE_OPEN_READWRITE);
            engine::execute(other.get(), "BEGIN; SELECT * FROM Company; UPDATE Company SET Name = Name");
        }
        if (!works)
            world.prompts.expect(u"the database is as it was"_s);
        QCOMPARE(restoreCopy(*world.session, copy, std::chrono::milliseconds(60)), works);
        other.reset();
        QCOMPARE(world.data().getCompanyNames(),
                 works ? QStringList{u"Then"_s} : (QStringList{u"Now"_s, u"Then"_s}));
        if (present == u"sound") { // the present state is in a copy of its own, and its keys stay used
            QCOMPARE(copiesIn(world.folder.path()).front().companies, 2);
            send(world, {u"INSERT INTO Company (Name) VALUES ('Next')"_s});
            QCOMPARE(world.data().getCompanyKey(u"Next"_s), Key(3));
        }
        if (present == u"damaged")
            QCOMPARE(QDir(world.session->file(u"backups"_s)).entryList({u"damaged-*"_s}).size(), 1);
        QVERIFY(QDir(world.session->file(u"backups"_s)).entryList({u"*.part"_s}).isEmpty());
    }

    void copyThatCannotBeMadeStopsTheStep()
    {
        World world;
        QFile blocker(world.folder.path() + u"/backups");
        QVERIFY(blocker.open(QIODevice::WriteOnly)); // a file where the folder should be
        world.prompts.expect(u"Nothing was changed"_s);
        QVERIFY(!copyBefore(*world.session, u"restore"_s));
    }

    void copyGivesUpOnADatabaseThatIsHeld_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"wanted", "before a step", "daily"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void copyGivesUpOnADatabaseThatIsHeld()
    {
        constexpr std::chrono::milliseconds patience{60};
        const QString held = u"another program holds the database"_s;
        QFETCH(QString, kind);
        World world;
        Database& database = world.data().database();
        const engine::Connection other = engine::open(database.path(), SQLITE_OPEN_READWRITE);
        engine::execute(other.get(), "BEGIN EXCLUSIVE");
        if (kind == u"wanted") {
            const QString failure = copyTo(database, world.folder.filePath(u"copy.db"_s), patience);
            QVERIFY2(failure.contains(held), qPrintable(failure));
        } else if (kind == u"before a step") {
            world.prompts.expect(held);
            QVERIFY(!copyBefore(*world.session, u"restore"_s, patience));
        } else {
            DailyCopy copy(*world.session, patience);
            while (copy.step()) {
            }
            QCOMPARE(copy.failure(), QString()); // no message while the user works
            QVERIFY(world.errorLog().contains(held));
        }
        QCOMPARE(listCopies(world.folder.path()), QStringList());
        engine::execute(other.get(), "ROLLBACK");
        QVERIFY(copyBefore(*world.session, u"restore"_s, patience));
    }

    void oneFolderOneProgram()
    {
        World world;
        InstanceLock first(world.folder.path());
        QVERIFY(first.acquire());
        InstanceLock second(world.folder.path());
        QVERIFY(!second.acquire());
        QVERIFY(second.holder().contains(u"open already"_s));
    }

    void keysRunningOutAreNamed()
    {
        World world;
        Database& database = world.data().database();
        QVERIFY(keyWarningText(keysRunningOut(database)).isEmpty());
        world.data().execQuery(u"Insert into Target (TargetKey,Name) VALUES(30000,'x')"_s);
        QVERIFY(keyWarningText(keysRunningOut(database)).isEmpty());
        world.data().execQuery(u"Insert into Target (TargetKey,Name) VALUES(30001,'y')"_s);
        world.data().execQuery(u"Delete * from Target"_s); // a key that was used stays used
        const QString warning = keyWarningText(keysRunningOut(database));
        QVERIFY2(warning.contains(u"Target: 30001"_s) && warning.contains(u"fresh folder"_s),
                 qPrintable(warning));
    }

    void checkCountsKeysThatPointNowhere()
    {
        World world;
        world.data().execQuery(
            u"INSERT INTO Contact (FirstName,LastName,CompanyKey,AddressKey) VALUES ('A','B',77,0)"_s);
        const StoreCheck check = checkStore(world.data().database());
        QCOMPARE(check.damage, QString());
        QCOMPARE(check.orphans.size(), size_t(1));
        QCOMPARE(check.orphans.front().column, u"Contact.CompanyKey"_s);
        QCOMPARE(check.orphans.front().rows, 1);
    }
};

JOBWRIGHT_TEST(TestCopies)
#include "tst_copies.moc"
