// Files that are not what they should be: each ends in a plain message and is left as it was.
#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/files/copies.h"
#include "store/files/storecheck.h"
#include "store/files/storefile.h"
#include "support/runtest.h"
#include "support/table.h"
#include "support/world.h"

#include <QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Spoils the store as a row of the table below says.
void spoil(const QString& how, const QString& path)
{
    QFile file(path);
    const QString argument = how.section(u' ', 1);
    if (how.startsWith(u"gone"))
        QVERIFY(file.remove());
    if (how.startsWith(u"size"))
        QVERIFY(file.resize(argument == u"half" ? file.size() / 2 : argument.toInt()));
    if (how == u"page")
        QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(4096LL * 3) &&
                file.write(QByteArray(4096, '\x5a')) == 4096);
    if (how == u"gone text")
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray("my notes ").repeated(20)) > 100);
    if (how == u"gone folder")
        QVERIFY(QDir().mkdir(path));
    if (how == u"locked")
        QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ReadUser));
    if (how.startsWith(u"gone sql") || how.startsWith(u"sql"))
        engine::execute(engine::open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE).get(),
                        how.mid(how.indexOf(u"sql") + 4).toUtf8());
}

} // namespace

class TestStoreFile : public QObject
{
    Q_OBJECT

private slots:
    void spoiltFileIsNamedAndUntouched_data()
    {
        columns<QString, FileState, QString>("how", "state", "word");
        const auto row = [](const char* how, FileState state, const char* word) {
            QTest::newRow(how) << QString::fromLatin1(how) << state << QString::fromLatin1(word);
        };
        row("gone", FileState::Missing, "does not exist");
        row("size 0", FileState::Damaged, "is empty");
        row("size 60", FileState::Damaged, "end is missing"); // half a header
        row("size half", FileState::Damaged, "is damaged");
        row("page", FileState::Damaged, "is damaged"); // one overwritten
        row("gone text", FileState::Foreign, "not a database of Jobwright");
        row("gone sql CREATE TABLE songs(title TEXT)", FileState::Foreign, "another program");
        row("sql PRAGMA user_version=99", FileState::Newer, "later version");
        row("sql DROP TABLE History", FileState::Damaged, "no such table");
        row("sql ALTER TABLE History DROP COLUMN Topic", FileState::Damaged, "Topic");
        row("sql DROP TABLE Event; CREATE VIEW Event AS SELECT * FROM EventRecovery", FileState::Damaged,
            "Event is a view and no table");
        row("locked", FileState::ReadOnly, "may not be written");
        row("gone folder", FileState::Foreign, "no file");
    }
    void spoiltFileIsNamedAndUntouched()
    {
        QFETCH(FileState, state);
        FETCH(QString, how, word);
        World world;
        const QString path = world.session->databasePath();
        spoil(how, path);
        const QByteArray before = contentOf(path);
        const QDir folder(world.folder.path());
        const QStringList filesBefore = folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        const FileReport report = inspectStore(path);
        QCOMPARE(report.state, state);
        QVERIFY2(report.message.contains(word), qPrintable(report.message));
        // The whole start meets the same file, says so once, and leaves it alone too.
        world.prompts.expect(u"Error Occurred :"_s);
        QVERIFY(!world.data().isConnected());
        QVERIFY(world.errorLog().contains(u"DataJW-Init\r\nQuery: Select * from Company"_s));
        QCOMPARE(contentOf(path), before);
        QStringList filesAfter = folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        filesAfter.removeOne(u"ErrorLog.txt"_s);
        QCOMPARE(filesAfter, filesBefore);
    }

    void storeOfTheFirstFormatIsBroughtUpToDate()
    {
        World world;
        const QString path = world.session->databasePath();
        engine::execute(
            engine::open(path, SQLITE_OPEN_READWRITE).get(),
            "DROP TABLE Question; CREATE TABLE Question(QKey INTEGER PRIMARY KEY AUTOINCREMENT, Question "
            "TEXT, AnswerCount "
            "INTEGER, AnswerPref INTEGER, Answers TEXT, AnswerType TEXT, ProfileType INTEGER) STRICT; "
            "INSERT INTO Question(Question, ProfileType) VALUES('Pay?', 1), ('Size?', 0), ('Shift?', 1); "
            "UPDATE Status SET StatusValue='25' WHERE StatusDescription='PositionThreshold'; "
            "PRAGMA user_version=1");
        QCOMPARE(inspectStore(path).state, FileState::Older);
        QCOMPARE(world.cells(u"Select ProfileType,QKey,Question from Question order by ProfileType,QKey"_s),
                 u"0|1|Size?;1|1|Pay?;1|2|Shift?"_s);
        QCOMPARE(world.data().getStatusValue(u"PositionThreshold"_s), u"0.05"_s);
        QCOMPARE(inspectStore(path).state, FileState::Good);
        const QStringList copies = listCopies(world.folder.path());
        QCOMPARE(copies.size(), 1);
        QCOMPARE(inspectStore(copies.first()).state, FileState::Older);
    }

    void storeHeldByAnotherProgramIsToBeTriedAgain()
    {
        World world;
        const engine::Connection other = engine::open(world.session->databasePath(), SQLITE_OPEN_READWRITE);
        engine::execute(other.get(), "BEGIN EXCLUSIVE");
        const FileReport report = inspectStore(world.session->databasePath());
        QCOMPARE(report.state, FileState::Locked);
        QVERIFY2(report.message.contains(u"try again"_s), qPrintable(report.message));
    }

    void messageNamesTheNewestCopy()
    {
        World world;
        QVERIFY(copyBefore(*world.session, u"restore"_s));
        world.session->releaseDataJW();
        QFile(world.session->databasePath()).resize(100);
        const QStringList copies = listCopies(world.folder.path());
        QCOMPARE(copies.size(), 1);
        QVERIFY(inspectStore(world.session->databasePath()).message.contains(copies.first()));
    }

    void fullLookNamesWhatItFinds_data()
    {
        table({"sql", "found"},
              {{"nothing", "SELECT 1", ""},
               {"a key too high to reach", "INSERT INTO Contact(ContactKey, CompanyKey) VALUES(32768, 1)",
                "1 records of Contact stand under keys outside of 1 to 32767, where the program cannot reach "
                "them|points nowhere Contact.CompanyKey 1"},
               {"a key below all", "INSERT INTO Event(EventKey) VALUES(-1)",
                "1 records of Event stand under keys outside of 1 to 32767, where the program cannot reach "
                "them"},
               {"a target's company is no loss", "INSERT INTO Target(CompanyKey) VALUES(-5)",
                "passing Target.CompanyKey 1"},
               {"keys in lists",
                "INSERT INTO Company(CompanyKey) VALUES(1); INSERT INTO Contact(ContactKey, CompanyKey, "
                "ContactList, DocumentList) VALUES(2, 1, '2,,3', '2'), (30, 1, '30,4', '')",
                "points nowhere Contact.ContactList 2|points nowhere Contact.DocumentList 1|mixed Contact"},
               {"an address of nobody", "INSERT INTO Address(City) VALUES('Oslo')",
                "nobody's Address.AddressKey 1"},
               {"no owner",
                "INSERT INTO Contact(CompanyKey) VALUES(0); INSERT INTO History(HistoryKey) VALUES('1')",
                "nobody's Contact.CompanyKey 1|nobody's History.ContactKey 1"},
               {"a trigger and a view",
                "CREATE TRIGGER t AFTER INSERT ON Company BEGIN DELETE FROM Contact; END; "
                "CREATE VIEW v AS SELECT 1",
                "trigger t|view v"}});
    }
    void fullLookNamesWhatItFinds()
    {
        FETCH(QString, sql, found);
        World world;
        sqlite3* const store = world.data().database().handle();
        engine::execute(store, sql.toUtf8());
        const StoreCheck check = checkStore(world.data().database());
        QStringList all{check.damage};
        for (const OrphanCount& orphan : check.orphans)
            all.append(u"points nowhere %1 %2"_s.arg(orphan.column).arg(orphan.rows));
        for (const OrphanCount& orphan : check.unowned)
            all.append(u"nobody's %1 %2"_s.arg(orphan.column).arg(orphan.rows));
        for (const OrphanCount& orphan : check.passing)
            all.append(u"passing %1 %2"_s.arg(orphan.column).arg(orphan.rows));
        for (const QString& name : check.mixedKeys)
            all.append(u"mixed "_s + name);
        all += check.foreign;
        all.removeAll(QString());
        QCOMPARE(all.join(u'|'), found);
    }

    void triggerOfAnotherHandNeverRuns()
    {
        World world;
        engine::execute(
            engine::open(world.session->databasePath(), SQLITE_OPEN_READWRITE).get(),
            "INSERT INTO Contact(FirstName) VALUES('Ann'); CREATE TRIGGER t AFTER INSERT ON Company "
            "BEGIN DELETE FROM Contact; END");
        QVERIFY(world.data().execQuery(u"Insert into Company(Name) VALUES('Acme')"_s));
        QCOMPARE(world.cells(u"Select FirstName from Contact"_s), u"Ann"_s);
    }

    void fileThatGoesAwayUnderTheProgramIsNamed_data()
    {
        QTest::addColumn<bool>("replaced");
        QTest::newRow("deleted") << false;
        QTest::newRow("replaced") << true;
    }
    void fileThatGoesAwayUnderTheProgramIsNamed()
    {
        QFETCH(bool, replaced);
        World world;
        const QString path = world.session->databasePath();
        QVERIFY(world.data().isConnected() && QFile::rename(path, path + u".old"));
        if (replaced)
            QVERIFY(QFile::copy(path + u".old", path));
        world.prompts.expect(path + u" was replaced, moved or deleted while it was open");
        QVERIFY(!world.data().execQuery(u"Insert into Company(Name) VALUES('Acme')"_s));
        QVERIFY(world.errorLog().contains(u"\r\n1032\r\nSQLite"));
    }

    void fileThatCannotBeOpenedIsNamedWithTheReason()
    {
        World world;
        const QString failure = copyTo(world.data().database(), world.folder.path() + u"/nowhere/copy.db");
        QVERIFY2(failure.contains(u".part cannot be opened: No such file"_s), qPrintable(failure));
    }

    void newStoreHasEverySettingOnce()
    {
        World world;
        const QString path = world.folder.filePath(u"new.db"_s);
        Database::create(path);
        QCOMPARE(engine::value(Database(path).handle(), "SELECT sum(seq) FROM sqlite_sequence WHERE name IN "
                                                        "('Contact', 'Document')"),
                 u"20000"_s);
        QStringList names = world.cells(u"Select StatusDescription from Status"_s).split(u';');
        QCOMPARE(names.removeDuplicates(), 0);
        const QString settings = u"TimeDelta DateDelta TimeFreq Autosave ScreenGraphics ExecutionLog "
                                 u"ActionWordTest CriticalityWordTest "
                                 "QuantificationTest OccupationTest PositionCorrelation PositionThreshold "
                                 "DetailStats WriteEvents2Outlook "
                                 "ShowComplete OutlookIncoming MailImportInterval AlarmFile Multimedia "
                                 "PDFViewer TextViewer WordViewer "
                                 "DocumentDirectory ExportFile CategoryCount UserName"_s;
        for (const QString& name : settings.split(u' '))
            QVERIFY2(names.contains(name), qPrintable(name));
        QCOMPARE(world.data().getStatusValue(u"TimeDelta"_s), u"10"_s);
        QCOMPARE(world.data().getStatusValue(u"OutlookIncoming"_s), u"Inbox"_s);
    }
};

JOBWRIGHT_TEST(TestStoreFile)
#include "tst_storefile.moc"
