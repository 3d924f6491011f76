#include "store/files/appfolder.h"
#include "store/files/logs.h"
#include "support/runtest.h"
#include "support/table.h"
#include "support/world.h"

#include <QSysInfo>
#include <QTest>

#include <array>
#include <atomic>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;

class TestSession : public QObject
{
    Q_OBJECT

private slots:
    void entriesOfTheErrorLog_data()
    {
        // entry: between the mark of an error and the tag
        columns<int, bool, bool, QString>("level", "withFailure", "shown", "entry");
        QTest::newRow("failure, shown") << 0 << true << true << u"disk is tired\r\n10\r\nSQLite"_s;
        QTest::newRow("failure, log only")
            << 1 << true << false << u"\r\nSuppressed disk is tired\r\n10\r\nSQLite"_s;
        QTest::newRow("negative level counts as 0") << -3 << false << true << u"\r\n0\r\n"_s;
        QTest::newRow("level 2 is shown") << 2 << false << true << u"\r\n0\r\n"_s;
    }
    void entriesOfTheErrorLog()
    {
        QFETCH(int, level);
        FETCH(bool, withFailure, shown);
        QFETCH(QString, entry);
        World world;
        const StoreError failure(u"disk is tired"_s, 10, u"SQLite"_s);
        if (shown)
            world.prompts.expect(u"Error Occurred :"_s);
        world.session->logError(u"Tag\r\nQuery: q"_s, level, withFailure ? &failure : nullptr);
        QCOMPARE(world.errorLog(), QString(u"\r\n>>> ERROR:" + entry +
                                           u"\r\nTag\r\nQuery: q\r\n-------11/22/2026 9:30:00 AM\r\n"));
        QVERIFY(world.prompts.done());
        if (shown)
            QCOMPARE(world.prompts.lastTitle(), u"Jobwright Message"_s);
    }

    void longStatementIsCutInTheLog_data()
    {
        columns<int, QString>("length", "end");
        QTest::newRow("just fits") << 16384 << u"x\r\n-------11/22"_s;
        QTest::newRow("one too many")
            << 16385 << u"x\r\n(cut here; it has 16385 characters)\r\n-------11/22"_s;
    }
    void longStatementIsCutInTheLog()
    {
        QFETCH(int, length);
        QFETCH(QString, end);
        World world;
        world.session->logError(QString(length, u'x'), 1);
        QCOMPARE(world.errorLog().count(u'x'), 16384);
        QVERIFY2(world.errorLog().contains(end), qPrintable(world.errorLog().right(100)));
    }

    void aLongWalkIsNotInterrupted()
    {
        World world;
        const Session::QuietReports quiet(*world.session);
        world.session->logError(u"first"_s, 0); // an unexpected box would fail the test
        world.session->logError(u"second"_s, 1);
        QCOMPARE(quiet.held(), 1);
        QVERIFY(world.errorLog().contains(u">>> ERROR:\r\n0\r\n\r\nfirst"_s));
    }

    void logThatCannotBeWrittenIsToldOnce()
    {
        World world;
        QVERIFY(QDir(world.folder.path()).mkdir(u"ErrorLog.txt"_s));
        world.prompts.acceptAll(Answer::Ok);
        for (const int level : {1, 0, 0})
            world.session->logError(u"something broke"_s, level);
        QCOMPARE(world.prompts.asked().size(), 2);
        QVERIFY(world.prompts.asked()[0].contains(u"something broke") &&
                world.prompts.asked()[0].contains(u"ErrorLog.txt could not be written"));
        QVERIFY(!world.prompts.asked()[1].contains(u"could not be written"));
    }

    void firstStartIsProvisionedOnce()
    {
        World world;
        QVERIFY(isFirstRun(*world.session));
        provisionFirstRun(*world.session, u"1.2.3"_s);
        world.restart();
        QVERIFY(!isFirstRun(*world.session));
        using enum RegAccess::Hive;
        RegAccess& settings = world.session->settings();
        const QString own = u"Software\\Ferrow Software\\Jobwright"_s;
        QCOMPARE(settings.QueryValueS(CurrentUser, own, u"Version"_s), u"1.2.3"_s);
        QCOMPARE(settings.QueryValueS(CurrentUser, own, u"AppPath"_s), world.folder.path());
        QCOMPARE(settings.QueryValueS(CurrentUser,
                                      u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Jobwright"_s,
                                      u"DisplayName"_s),
                 u"Jobwright1.23"_s);
        QCOMPARE(settings.QueryValueS(ClassesRoot, u".jwg"_s, {}), u"jwGoals"_s);
        QCOMPARE(settings.QueryValueS(CurrentUser, u"no"_s, u"such"_s), QString());
        QVERIFY(QFileInfo(world.session->file(u"exchange"_s)).isDir());
        QVERIFY(world.opLog().startsWith(u"Jobwright Software Setup complete : "_s));
    }

    void folderComesFromTheNearestSource()
    {
        QTemporaryDir named;
        qputenv("JOBWRIGHT_FOLDER", "/from/environment");
        QCOMPARE(applicationFolder(named.path()), named.path());
        QCOMPARE(applicationFolder({}), u"/from/environment"_s);
        qunsetenv("JOBWRIGHT_FOLDER");
        qputenv("XDG_DATA_HOME", named.path().toUtf8());
        QCOMPARE(applicationFolder({}), QString(named.path() + u"/jobwright"));
        qunsetenv("XDG_DATA_HOME");
        const QByteArray home = qgetenv("HOME");
        qunsetenv("HOME");
        QCOMPARE(applicationFolder({}), QString()); // and not below the root of all files
        QVERIFY(prepareFolder({}).contains(u"--folder"_s));
        qputenv("HOME", home);
        QFile file(named.path() + u"/occupied");
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(prepareFolder(file.fileName()).contains(u"is a file"_s));
        QCOMPARE(prepareFolder(named.path() + u"/new/deep"), QString());
        QVERIFY(holdsNothing(named.path() + u"/new/deep"));
        QCOMPARE(::mkfifo(qPrintable(named.path() + u"/new/deep/jobwright.lock"), 0600), 0);
        QVERIFY(prepareFolder(named.path() + u"/new/deep").contains(u"no plain file"_s)); // and does not wait
    }

    void lockOfNobodyIsTakenOver_data()
    {
        // lock: its lines; %1 is this process, %2 its name, %3 this computer
        columns<QString, int, QString>("lock", "age", "message");
        const auto row = [](const char* name, const QString& lock, int age, const QString& message) {
            QTest::newRow(name) << lock << age << message;
        };
        const QString unreadable = u"does not say who holds it"_s;
        row("empty and old", {}, 60, {});
        row("empty, as one that is being made", {}, 0, unreadable);
        row("garbled and old", u"\x01nonsense\n\n"_s, 60, {});
        row("garbled and new", u"\x01nonsense\n\n"_s, 0, unreadable);
        row("of a dead process", u"99999999\njobwright\n%3\n"_s, 0, {});
        row("of another program that got the number", u"%1\nsomethingelse\n%3\n"_s, 0, {});
        row("of this process, days old", u"%1\n%2\n%3\n"_s, 400000,
            u"open already on this folder (process"_s);
        row("of another computer", u"99999999\njobwright\nelsewhere\n"_s, 400000,
            u"on another computer, elsewhere (process 99999999)"_s);
    }
    void lockOfNobodyIsTakenOver()
    {
        QFETCH(QString, lock);
        QFETCH(int, age);
        QFETCH(QString, message);
        QTemporaryDir folder;
        QFile file(folder.path() + u"/jobwright.lock");
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(lock.replace(u"%1"_s, QString::number(QCoreApplication::applicationPid()))
                       .replace(u"%2"_s, QCoreApplication::applicationName())
                       .replace(u"%3"_s, QSysInfo::machineHostName())
                       .toUtf8());
        QVERIFY(file.flush() && file.setFileTime(QDateTime::currentDateTime().addSecs(-age),
                                                 QFileDevice::FileModificationTime));
        file.close();
        InstanceLock first(folder.path());
        QCOMPARE(first.acquire(), message.isEmpty());
        if (message.isEmpty()) {
            InstanceLock second(folder.path());
            QVERIFY(!second.acquire());
        } else {
            QVERIFY2(first.holder().contains(message), qPrintable(first.holder()));
            QVERIFY(first.isHeldByAnother() && QFile::exists(file.fileName()));
        }
    }

    void lockLeftBehindIsTakenOverByOneOnly()
    {
        QTemporaryDir folder;
        for (int round = 0; round < 50; ++round) {
            QFile file(folder.path() + u"/jobwright.lock");
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("?") == 1 && file.flush());
            QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-60),
                                     QFileDevice::FileModificationTime));
            file.close();
            std::atomic<int> taken = 0;
            std::array<std::unique_ptr<InstanceLock>, 8> locks;
            for (auto& lock : locks)
                lock = std::make_unique<InstanceLock>(folder.path());
            {
                std::array<std::jthread, locks.size()> threads;
                for (size_t i = 0; i < locks.size(); ++i)
                    threads[i] = std::jthread([&, i] { taken += locks[i]->acquire() ? 1 : 0; });
            }
            QVERIFY2(taken <= 1, "two got in");
            // Those that met may all have stepped back; whoever comes next gets it.
            QVERIFY(taken == 1 || locks[0]->acquire());
        }
    }
};

JOBWRIGHT_TEST(TestSession)
#include "tst_session.moc"
