#include "store/appfolder.h"
#include "store/logs.h"
#include "support/table.h"
#include "support/world.h"

#include <QTest>

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
        QFile file(named.path() + u"/occupied");
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(prepareFolder(file.fileName()).contains(u"is a file"_s));
        QCOMPARE(prepareFolder(named.path() + u"/new/deep"), QString());
    }
};

QTEST_GUILESS_MAIN(TestSession)
#include "tst_session.moc"
