// What a written campaign file looks like, and that it brings back what was stored.
#include "store/campaignfile.h"
#include "store/enginecall.h"
#include "store/storefile.h"
#include "support/table.h"

#include <pugixml.hpp>
#include <sqlite3.h>

#include <sstream>

using namespace Qt::StringLiterals;

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

    void ownFilesAreNeverWrittenOver_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"POSTLEDGER.DB", "ErrorLog.txt", "settings.ini", "./Postledger.db", "alias.xml", "folder"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void ownFilesAreNeverWrittenOver()
    {
        QFETCH(QString, name);
        World world;
        world.data().execQuery(u"INSERT INTO Company (Name) VALUES ('Acme')"_s);
        QVERIFY(QDir(world.folder.path()).mkdir(u"folder"_s));
        QVERIFY(QFile::link(world.session->databasePath(), world.folder.path() + u"/alias.xml"));
        world.prompts.expect(u"could not be written"_s);
        QCOMPARE(world.data().createXML(name, false), QString());
        QCOMPARE(inspectStore(world.session->databasePath()).state, FileState::Good);
        QCOMPARE(world.data().getCompanyNames(), QStringList{u"Acme"_s});
    }

    void restoredStoreWritesTheSameFile()
    {
        // A restore into a fresh store gives the keys of the demo's file again, so that all that comes back
        // is seen in the text; what does not come back is taken out of the original.
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
        const QString written = world.data().createXML(u"out.xml"_s, true).section(u'\n', 1);
        const QStringList lines = written.split(u'\n');
        const QStringList wanted = QString::fromStdString(text.str()).split(u'\n');
        for (qsizetype i = 0; i < wanted.size(); ++i)
            QCOMPARE(lines.value(i), wanted[i]);
    }
};

QTEST_GUILESS_MAIN(TestXmlExport)
#include "tst_xmlexport.moc"
