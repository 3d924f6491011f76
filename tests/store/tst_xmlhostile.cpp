// Files that are broken, foreign or meant to do harm: a clear message, and the store as it was.
#include "store/campaignfile.h"
#include "store/xml/plainxml.h"
#include "support/campaign.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

/// A store that holds something to lose.
void fill(World& world)
{
    send(world,
         {u"Insert into Company(Name) VALUES('Mine')"_s, u"Insert into Event(Event) VALUES('Mine')"_s});
}

} // namespace

class TestXmlHostile : public QObject
{
    Q_OBJECT

private slots:
    void refusedFileLeavesTheStore_data()
    {
        columns<QString, QString>("file", "message");
        const auto row = [](const char* file, const char* message) {
            QTest::newRow(file) << QString::fromLatin1(file) << QString::fromLatin1(message);
        };
        row("missing.xml", "does not exist");
        row(".", "is not a file");
        row("empty.xml", "is empty");
        row("picture.xml", "no UTF-8 text");
        row("database.xml", "no UTF-8 text");
        row("otherroot.xml", "its root is \"html\" and not \"Jobwright\"");
        row("smallcase.xml", "its root is \"jobwright\"");
        row("truncated.xml", "no well-formed XML");
        row("unclosed.xml", "Unexpected '<' (line 3)");
        row("nodata.xml", "holds no data at all");
        row("doctype.xml", "document type");
        row("external.xml", "document type");
        row("encoding.xml", "Save it again in the UTF-8 encoding");
        row("utf16.xml", "no UTF-8 text");
        row("zerobyte.xml", "no UTF-8 text");
        row("textbefore.xml", "Start tag expected (line 1)");
        row("doubleattribute.xml", "Attribute 'Name' redefined (line 2)");
        row("tworoots.xml", "Extra content at end of document");
        row("huge.xml", "too large");
        row("many.xml", "more than a Jobwright file can hold");
        row("deep.xml", "within elements to no end");
        row("long.xml", "more than a Jobwright file can hold");
    }
    void refusedFileLeavesTheStore()
    {
        FETCH(QString, file, message);
        World world;
        fill(world);
        QString path = QStringLiteral(JOBWRIGHT_SOURCE_DIR "/tests/data/xml/") + file;
        static const QHash<QString, QByteArray> made{
            {u"huge.xml"_s, QByteArray((256 << 20) + 1, ' ')},
            {u"many.xml"_s, "<a>" + QByteArray("<b/>").repeated(4'000'000) + "</a>"},
            {u"deep.xml"_s, QByteArray("<a>").repeated(200)},
            {u"long.xml"_s, "<a b='" + QByteArray(17 << 20, ' ') + "'/>"}};
        if (made.contains(file)) {
            path = world.session->file(file);
            QFile written(path);
            QVERIFY(written.open(QIODevice::WriteOnly) && written.write(made[file]) == made[file].size());
        }
        const QByteArray before = contentHash(world.data().database());
        world.prompts.expect(message);
        world.data().importXML(path);
        QCOMPARE(contentHash(world.data().database()), before);
        QVERIFY(world.session->statusLine() != u"Import Complete");
        QVERIFY(world.errorLog().contains(u"DataJW-ImportXML"));
    }

    void valueThatXmlForbidsIsRefused_data()
    {
        table({"value", "message"}, {{"undeclared entity", "&foo;", "Entity 'foo' not declared (line 2)"},
                                     {"bare ampersand", "Alder & Sons", "no well-formed XML"},
                                     {"bare less-than", "a<b", "Unexpected '<' (line 2)"},
                                     {"half of a pair", "&#xD800;", "the character U+D800"},
                                     {"beyond the last character", "&#x110000;", "U+110000"},
                                     {"no character at all", "x&#0;y",
                                      "the character U+0000, which XML "
                                      "forbids (line 2)"},
                                     {"form feed by its number", "&#12;", "the character U+000C"},
                                     {"form feed", "a\fb", "the character U+000C"},
                                     {"noncharacter", "\uFFFF", "the character U+FFFF"},
                                     {"number too long", "&#99999999999999999999;", "(line 2)"}});
    }
    void valueThatXmlForbidsIsRefused()
    {
        FETCH(QString, value, message);
        World world;
        fill(world);
        const QByteArray before = contentHash(world.data().database());
        world.prompts.expect(message);
        XmlText(true)
            .raw(u"\n"_s)
            .add(u"Company"_s, u"CompanyKey='1' Name='%1'"_s.arg(value))
            .import(world, false);
        QCOMPARE(contentHash(world.data().database()), before);
    }

    void quickLookPassesOnlyWhatAReaderPasses()
    {
        const QByteArray sound =
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a_b c='1' D-2 = \"x&#xD;&amp;'y\" "
            ">\n<e/><f></f >\xEF\xBC\xA1</a_b>\n";
        const QByteArray plain = QByteArray(sound).replace("\xEF\xBC\xA1", "");
        QVERIFY(isPlainXml(plain, 0));
        QVERIFY(!isPlainXml(sound, 0)); // a text of its own: left to the reader
        int passed = 0;
        for (const QByteArray& text : {plain, plain.trimmed(), plain.mid(plain.indexOf('\n') + 1)}) {
            for (qsizetype at = 0; at < text.size(); ++at) {
                for (const char* const piece : {"",
                                                "<",
                                                ">",
                                                "&",
                                                "\"",
                                                "'",
                                                "/",
                                                "=",
                                                " ",
                                                "x",
                                                "1",
                                                ";",
                                                "?",
                                                "!",
                                                "-",
                                                ":",
                                                "#",
                                                "\x01",
                                                "\xEF\xBF\xBE",
                                                "<a/>",
                                                "&#0;",
                                                "&#+9;",
                                                " c='1'",
                                                "&lt;",
                                                "]]>",
                                                "<!--",
                                                "\xC3\xA9"}) {
                    for (const qsizetype taken : {0, 1}) {
                        const QByteArray changed = QByteArray(text).replace(at, taken, piece);
                        if (!isPlainXml(changed, 0))
                            continue;
                        ++passed;
                        QXmlStreamReader reader(changed);
                        reader.setNamespaceProcessing(false);
                        while (!reader.atEnd())
                            reader.readNext();
                        QVERIFY2(!reader.hasError(), changed.constData());
                    }
                }
            }
        }
        QVERIFY(passed > 1000);
    }

    void restoreWithoutATableIsRefused_data()
    {
        table({"data"},
              {{"unknown", "<Data Table='Nothing'><Record/></Data>"},
               {"in another case", "<Data Table='company'><Record CompanyKey='1' Name='A'/></Data>"},
               {"without a name", "<Data><Record CompanyKey='1' Name='A'/></Data>"}});
    }
    void restoreWithoutATableIsRefused()
    {
        QFETCH(QString, data);
        World world;
        fill(world);
        const QByteArray before = contentHash(world.data().database());
        world.prompts.expect(u"holds no table that Jobwright knows"_s);
        XmlText(true).raw(data).import(world, false);
        QCOMPARE(contentHash(world.data().database()), before);
    }

    void oddFileComesInAsFarAsItGoes_data()
    {
        // data: %1 is a good record, %2 stands for the columns of a company that no row needs
        table(
            {"data", "message"},
            {{"a table that nobody knows is passed over and told",
              "<Data Table='company'>%1%1</Data><Data Table='Company'>%1</Data>",
              "2 records of the file did not come in"},
             {"what is no record, or outside of Data, is passed over and told",
              "<Data Table='Company'>%1<Other>%1</Other></Data><Record/>",
              "2 records of the file did not come in"},
             {"an empty table that nobody knows is no loss",
              "<Data Table='Nothing'/><Data Table='Company'>%1</Data>", ""},
             {"a table in two pieces is one", "<Data Table='Company'/><Data Table='Company'>%1</Data>", ""},
             {"text between records is passed over", "<Data Table='Company'>hello%1&lt;</Data>", ""},
             {"a record without attributes stops the import", "<Data Table='Company'>%1<Record/></Data>",
              "Record 2 of the table Company lacks the attribute CompanyKey"},
             {"a date that is none keeps its record out",
              "<Data Table='Company'>%1<Record CompanyKey='8' Name='Bad' EntryDate='31/31/2026' %2/></Data>",
              "One record of the file did not come in"},
             {"statements in values stay values",
              "<Data Table='Company'>%1<Record CompanyKey='1' Name=\"x'); Delete * from Company; --\" "
              "EntryDate='' %2/>"
              "<Record CompanyKey='2' Name=\"y','','1','','','') ,('z\" EntryDate='' %2/></Data>",
              "2 records of the file did not come in"}});
    }
    void oddFileComesInAsFarAsItGoes()
    {
        FETCH(QString, data, message);
        World world;
        fill(world);
        if (!message.isEmpty())
            world.prompts.expect(message);
        const QString rest = u"ShortName='' AddressKey='' Industry='' Notes=''"_s;
        const QString good = u"<Record CompanyKey='7' Name='Good' EntryDate='' "_s + rest + u"/>";
        world.data().importXML(
            XmlText(false).raw(QString(data).replace(u"%1"_s, good).replace(u"%2"_s, rest)).write(world));
        QCOMPARE(world.data().getCompanyNames(), (QStringList{u"Good"_s, u"Mine"_s}));
    }

    void restoreCutAnywhereIsRefused()
    {
        World world;
        fill(world);
        const QByteArray before = contentHash(world.data().database());
        const QByteArray whole =
            XmlText(true).add(u"Company"_s, u"CompanyKey='1' Name='A'"_s).text().toUtf8();
        world.prompts.acceptAll(Answer::Ok);
        for (qsizetype length = 0; length < whole.size(); ++length) {
            QFile file(world.session->file(u"cut.xml"_s));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(whole.first(length)) == length);
            file.close();
            world.data().importXML(file.fileName());
        }
        QCOMPARE(contentHash(world.data().database()), before);
        QCOMPARE(world.prompts.asked().size(), whole.size());
    }

    void closedDatabaseIsTold()
    {
        World world;
        const QString path = XmlText(true).add(u"Company"_s, u"CompanyKey='1' Name='A'"_s).write(world);
        world.session->releaseDataJW();
        QFile database(world.session->databasePath());
        QVERIFY(database.open(QIODevice::WriteOnly)); // emptied
        database.close();
        world.prompts.acceptAll(Answer::Ok);
        world.data().importXML(path);
        QVERIFY(world.prompts.asked().last().contains(u"The database is not open"));
        QVERIFY(world.session->statusLine() != u"Import Complete");
    }
};

JOBWRIGHT_TEST(TestXmlHostile)
#include "tst_xmlhostile.moc"
