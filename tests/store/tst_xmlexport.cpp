// What a written campaign file looks like, and that it brings back what was stored.
#include "store/campaignfile.h"
#include "store/engine/enginecall.h"
#include "store/files/storefile.h"
#include "support/campaign.h"
#include "support/runtest.h"
#include "support/smalldisk.h"
#include "support/table.h"

#include <QDirIterator>
#include <QRegularExpression>

#include <pugixml.hpp>
#include <sqlite3.h>

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

QStringList filesBelow(const QString& folder)
{
    QStringList found;
    for (QDirIterator files(folder, QDir::Files | QDir::System, QDirIterator::Subdirectories);
         files.hasNext();)
        found.append(files.next());
    found.sort();
    return found;
}

} // namespace

class TestXmlExport : public QObject
{
    Q_OBJECT

private slots:
    void valuesSurviveTheRoundTrip_data()
    {
        table({"value"}, {{"line ends", "a\r\nb\nc\rd"},
                          {"tabs and outer blanks", "  a\tb  "},
                          {"markup", "<a href=\"x\">&amp;</a>]]>"},
                          {"quotes", "\"so-called\" O`Neil"},
                          {"letters of all alphabets", "Łódź 東京 🙂 ñ"},
                          {"an entity by its name", "&lt;&#13;"}});
    }
    void valuesSurviveTheRoundTrip()
    {
        QFETCH(QString, value);
        World source;
        QVERIFY(source.data().execQuery(u"Insert into Company(Name,Notes) VALUES('A','%1')"_s.arg(value)));
        QVERIFY(!source.data().createXML(u"out.xml"_s, false).isEmpty());
        World target;
        target.data().importXML(source.session->file(u"out.xml"_s));
        QCOMPARE(target.data().getCompany(u"A"_s).text(u"Notes"), value);
    }

    void textsThatXmlCannotHoldStillComeBack_data()
    {
        columns<QByteArray, QString>("stored", "back");
        QTest::newRow("control characters are left out") << QByteArray("x\x01y\x1bz\fw\v\x1f\b") << u"xyzw"_s;
        QTest::newRow("noncharacters are left out") << QByteArray("a\xEF\xBF\xBE\xEF\xBF\xBF") << u"a"_s;
        QTest::newRow("half of a pair and other broken bytes become the mark for them")
            << QByteArray("a\xED\xA0\x80z\xFF") << u"a\uFFFD\uFFFD\uFFFDz\uFFFD"_s;
        QTest::newRow("a text ends at its zero byte") << QByteArray("a\0b", 3) << u"ab"_s;
        QTest::newRow("what only looks forbidden stays")
            << QByteArray("\x7f\xC2\x85 &#12; \xF0\x9F\xBF\xBE")
            << QString::fromUtf8("\x7f\xC2\x85 &#12; \xF0\x9F\xBF\xBE");
    }
    void textsThatXmlCannotHoldStillComeBack()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, back);
        World source;
        // Past the gateway, as another program may have written it.
        const engine::Statement insert =
            engine::prepare(source.data().database().handle(),
                            "INSERT INTO Company(Name,Notes) VALUES('A',CAST(?1 AS TEXT))");
        sqlite3_bind_blob(insert.get(), 1, stored.constData(), static_cast<int>(stored.size()),
                          SQLITE_STATIC);
        QCOMPARE(sqlite3_step(insert.get()), SQLITE_DONE);
        QVERIFY(!source.data().createXML(u"out.xml"_s, false).isEmpty());
        World target;
        target.data().importXML(source.session->file(u"out.xml"_s));
        QCOMPARE(target.session->statusLine(), u"Import Complete"_s);
        QCOMPARE(target.data().getCompany(u"A"_s).text(u"Notes"), back);
    }

    void fileIsWholeOrNotThere()
    {
        World world;
        QVERIFY(!world.data().createXML(u"out.xml"_s, false).isEmpty());
        const QString before = world.fileText(u"out.xml"_s);
        const QString elsewhere = world.folder.path() + u"/sub";
        QVERIFY(QDir().mkpath(elsewhere));
        world.data().createXML(elsewhere + u"/abs.xml", false); // an absolute path is taken as it is
        QVERIFY(QFile::exists(elsewhere + u"/abs.xml"));
        world.prompts.expect(u"could not be written"_s);
        QCOMPARE(world.data().createXML(u"nowhere/out.xml"_s, false), QString());
        QVERIFY(world.errorLog().contains(u"DataJW-CreateXML"));
        QCOMPARE(world.fileText(u"out.xml"_s), before);
    }

    void fullDiskIsTold()
    {
        World world;
        QVERIFY(world.data().execQuery(
            u"Insert into Company(Name,Notes) VALUES('A','%1')"_s.arg(u"x"_s.repeated(800000))));
        world.prompts.expect(u"out.xml could not be written: File too large"_s);
        const QString written = [&] {
            const SmallDisk disk(500000);
            return world.data().createXML(u"out.xml"_s, false);
        }();
        QVERIFY(written.isEmpty() && !QFile::exists(world.session->file(u"out.xml"_s)));
    }

    void keysOfNobodyAreLeftOut()
    {
        World world;
        send(world,
             {u"Insert into Document(Document) VALUES('cv')"_s,
              u"Insert into Contact(FirstName,ContactList,DocumentList) VALUES('A','7,1,,12','1,11')"_s,
              u"Insert into Position(Title,ContactList) VALUES('P','1,,2')"_s});
        const QString text = world.data().createXML(u"out.xml"_s, false);
        for (const char* const list :
             {"ContactList=\"1\" DocumentList=\"1\"", "Source=\"\" ContactList=\"1\""})
            QVERIFY2(text.contains(QLatin1String(list)), list);
    }

    void otherFilesAreNeverWrittenOver_data()
    {
        // The database lies at real.db, and Postledger.db is a link to it.
        table({"name", "reason"}, {{"the database", "./POSTLEDGER.DB", "own files"},
                                   {"the database by its link", "Postledger.db", "own files"},
                                   {"the file behind that link", "real.db", "own files"},
                                   {"a link to the database", "alias.xml", "own files"},
                                   {"a link to that link", "alias2.xml", "own files"},
                                   {"what stands beside the database", "Postledger.db-wal", "own files"},
                                   {"what stands beside the real file", "real.db-journal", "own files"},
                                   {"another campaign's database", "folder/Postledger.db", "own files"},
                                   {"a copy's place", "backups/new.xml", "own files"},
                                   {"the log", "ErrorLog.txt", "own files"},
                                   {"the settings", "settings.ini", "own files"},
                                   {"a user's file", "notes.txt", "is no XML file"},
                                   {"a renamed copy", "copy.xml", "is no XML file"},
                                   {"a restore file that is a link to one", "restore.xml", "is no XML file"},
                                   {"a link to nothing", "lost.xml", "leads nowhere"},
                                   {"a folder", "folder", "no plain file"}});
    }
    void otherFilesAreNeverWrittenOver()
    {
        FETCH(QString, name, reason);
        World world;
        const QString folder = world.folder.path() + u'/';
        QVERIFY(QFile::rename(folder + u"Postledger.db", folder + u"real.db"));
        for (const auto& [link, to] : {std::pair{u"Postledger.db", u"real.db"},
                                       {u"alias.xml", u"Postledger.db"},
                                       {u"alias2.xml", u"alias.xml"},
                                       {u"lost.xml", u"gone.xml"},
                                       {u"restore.xml", u"notes.txt"}})
            QVERIFY(QFile::link(folder + to, folder + link));
        QVERIFY(QDir(folder).mkdir(u"folder"_s) && QDir(folder).mkdir(u"backups"_s));
        QVERIFY(QFile::copy(folder + u"real.db", folder + u"copy.xml"));
        QFile notes(folder + u"notes.txt");
        QVERIFY(notes.open(QIODevice::WriteOnly) && notes.write("\n call <Ann>") > 0);
        notes.close();
        world.data().execQuery(u"INSERT INTO Company (Name) VALUES ('Acme')"_s);
        const QStringList before = filesBelow(folder);
        world.prompts.expect(reason);
        QCOMPARE(world.data().createXML(name, false), QString());
        QCOMPARE(inspectStore(world.session->databasePath()).state, FileState::Good);
        QCOMPARE(world.data().getCompanyNames(), QStringList{u"Acme"_s});
        QStringList after = filesBelow(folder);
        after.removeOne(folder + u"ErrorLog.txt");
        QCOMPARE(after, before);
        QCOMPARE(world.fileText(u"notes.txt"_s), u"\n call <Ann>"_s);
    }

    void olderExportIsWrittenOver_data()
    {
        QTest::addColumn<QByteArray>("old");
        QTest::newRow("with a mark and a blank line") << QByteArray("\xEF\xBB\xBF\r\n<Jobwright/>");
        QTest::newRow("empty, as made for it") << QByteArray();
    }
    void olderExportIsWrittenOver()
    {
        QFETCH(QByteArray, old);
        World world;
        QFile file(world.session->file(u"real.xml"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(old) == old.size());
        file.close();
        QVERIFY(QFile::link(file.fileName(), world.session->file(u"out.xml"_s)));
        QVERIFY(!world.data().createXML(u"out.xml"_s, false).isEmpty());
        // Through the link, which stays.
        QVERIFY(world.fileText(u"real.xml"_s).contains(u"Data Table="));
        QVERIFY(QFileInfo(world.session->file(u"out.xml"_s)).isSymLink());
    }

    void restoredStoreWritesTheSameFile()
    {
        // A restore into a fresh store gives the keys of the demo's file again but for those that stand in
        // lists; these, and what does not come back, are taken out.
        World world;
        const QString path = QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data/demo/campaign.xml");
        world.data().importXML(path);
        QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
        pugi::xml_document expected;
        QVERIFY(expected.load_file(path.toUtf8().constData()));
        pugi::xml_node root = expected.document_element();
        root.remove_attribute("Recorded");
        for (pugi::xml_node contact : root.find_child_by_attribute("Table", "Contact").children()) {
            contact.attribute("ContactLevel").set_value("0");
            contact.attribute("DocumentList").set_value("");
        }
        for (pugi::xml_node profile : root.find_child_by_attribute("Table", "JProfile").children())
            profile.attribute("PositionKey").set_value("");
        std::ostringstream text;
        root.print(text, "  ");
        const auto linesOf = [](QString xml) {
            static const QRegularExpression keys(
                u" (ContactKey|HistoryKey|ResumeKey|ContactList)=\"[^\"]*\""_s);
            return xml.remove(keys).split(u'\n');
        };
        const QStringList lines = linesOf(world.data().createXML(u"out.xml"_s, true).section(u'\n', 1));
        const QStringList wanted = linesOf(QString::fromStdString(text.str()));
        for (qsizetype i = 0; i < wanted.size(); ++i)
            QCOMPARE(lines.value(i), wanted[i]);
    }
};

JOBWRIGHT_TEST(TestXmlExport)
#include "tst_xmlexport.moc"
