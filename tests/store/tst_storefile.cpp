// Files that are not what they should be: each ends in a plain message and is left as it was.
#include "store/copies.h"
#include "store/database.h"
#include "store/enginecall.h"
#include "store/storefile.h"
#include "support/table.h"
#include "support/world.h"

#include <QCryptographicHash>
#include <QTest>

#include <sqlite3.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void overwrite(const QString& path, qint64 at, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(at));
    QCOMPARE(file.write(bytes), bytes.size());
}

void runSql(const QString& path, const QByteArray& sql)
{
    engine::execute(engine::open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE).get(), sql);
}

using Spoil = std::function<void(const QString&)>;

} // namespace
Q_DECLARE_METATYPE(Spoil)

class TestStoreFile : public QObject
{
    Q_OBJECT

private slots:
    void spoiltFileIsNamedAndUntouched_data()
    {
        columns<Spoil, FileState, QString>("spoil", "state", "word");
        QTest::newRow("missing") << Spoil([](const QString& p) { QFile::remove(p); }) << FileState::Missing
                                 << u"does not exist"_s;
        QTest::newRow("empty") << Spoil([](const QString& p) { QFile(p).resize(0); }) << FileState::Damaged
                               << u"is empty"_s;
        QTest::newRow("half a header") << Spoil([](const QString& p) { QFile(p).resize(60); })
                                       << FileState::Damaged << u"end is missing"_s;
        QTest::newRow("cut off") << Spoil([](const QString& p) { QFile(p).resize(QFileInfo(p).size() / 2); })
                                 << FileState::Damaged << u"is damaged"_s;
        QTest::newRow("a page overwritten")
            << Spoil([](const QString& p) { overwrite(p, 4096 * 3, QByteArray(4096, '\x5a')); })
            << FileState::Damaged << u"is damaged"_s;
        QTest::newRow("a text file") << Spoil([](const QString& p) {
            QFile::remove(p);
            QFile file(p);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("my notes, much longer than a database's header would have to be to count as one, and "
                       "then some");
        }) << FileState::Foreign << u"not a database of Jobwright"_s;
        QTest::newRow("another program's") << Spoil([](const QString& p) {
            QFile::remove(p);
            runSql(p, "CREATE TABLE songs(title TEXT)");
        }) << FileState::Foreign << u"another program"_s;
        QTest::newRow("newer") << Spoil([](const QString& p) { runSql(p, "PRAGMA user_version=99"); })
                               << FileState::Newer << u"later version"_s;
        QTest::newRow("a table gone") << Spoil([](const QString& p) { runSql(p, "DROP TABLE History"); })
                                      << FileState::Damaged << u"no such table"_s;
        QTest::newRow("a column gone")
            << Spoil([](const QString& p) { runSql(p, "ALTER TABLE History DROP COLUMN Topic"); })
            << FileState::Damaged << u"Topic"_s;
        QTest::newRow("write-protected")
            << Spoil([](const QString& p) { QFile::setPermissions(p, QFile::ReadOwner | QFile::ReadUser); })
            << FileState::ReadOnly << u"may not be written"_s;
        QTest::newRow("a folder") << Spoil([](const QString& p) {
            QFile::remove(p);
            QDir().mkdir(p);
        }) << FileState::Foreign << u"no file"_s;
    }
    void spoiltFileIsNamedAndUntouched()
    {
        QFETCH(Spoil, spoil);
        QFETCH(FileState, state);
        QFETCH(QString, word);
        World world;
        const QString path = world.session->databasePath();
        spoil(path);
        const QByteArray before = contentOf(path);
        const QStringList filesBefore =
            QDir(world.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        const FileReport report = inspectStore(path);
        QCOMPARE(report.state, state);
        QVERIFY2(report.message.contains(word), qPrintable(report.message));
        // The whole start meets the same file, says so once, and leaves it alone too.
        world.prompts.expect(u"Error Occurred :"_s);
        QVERIFY(!world.data().isConnected());
        QVERIFY(world.errorLog().contains(u"DataJW-Init\r\nQuery: Select * from Company"_s));
        QCOMPARE(contentOf(path), before);
        QStringList filesAfter = QDir(world.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        filesAfter.removeOne(u"ErrorLog.txt"_s);
        QCOMPARE(filesAfter, filesBefore);
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

    void newStoreHasEverySettingOnce()
    {
        World world;
        RecordSet rows = world.data().getExecQueryRecords(u"Select * from Status Order by StatusKey"_s);
        QSet<QString> names;
        for (; !rows.atEnd(); rows.next()) {
            QVERIFY2(!names.contains(rows.text(u"StatusDescription")),
                     qPrintable(rows.text(u"StatusDescription")));
            names.insert(rows.text(u"StatusDescription"));
        }
        const QString settings =
            u"TimeDelta DateDelta TimeFreq Autosave ScreenGraphics ExecutionLog ActionWordTest "
            "CriticalityWordTest QuantificationTest OccupationTest PositionCorrelation "
            "PositionThreshold DetailStats WriteEvents2Outlook ShowComplete OutlookIncoming "
            "MailImportInterval AlarmFile Multimedia PDFViewer TextViewer WordViewer "
            "DocumentDirectory ExportFile CategoryCount UserName"_s;
        for (const QString& name : settings.split(u' '))
            QVERIFY2(names.contains(name), qPrintable(name));
        QCOMPARE(world.data().getStatusValue(u"TimeDelta"_s), u"10"_s);
        QCOMPARE(world.data().getStatusValue(u"OutlookIncoming"_s), u"Inbox"_s);
    }
};

QTEST_GUILESS_MAIN(TestStoreFile)
#include "tst_storefile.moc"
