// Files that are broken, foreign or meant to do harm: a clear message, and the store as it was.
#include "store/campaignfile.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

/// A store that holds something to lose.
void fill(World& world)
{
    QVERIFY(world.data().execQuery(u"Insert into Company(Name) VALUES('Mine')"_s));
    QVERIFY(world.data().execQuery(u"Insert into Event(Event) VALUES('Mine')"_s));
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
            QTest::addRow("%s", file) << QString::fromLatin1(file) << QString::fromLatin1(message);
        };
        row("missing.xml", "does not exist");
        row(".", "is not a file");
        row("empty.xml", "is empty");
        row("picture.xml", "no UTF-8 text");
        row("database.xml", "no UTF-8 text");
        row("otherroot.xml", "its root is \"html\" and not \"Jobwright\"");
        row("smallcase.xml", "its root is \"jobwright\"");
        row("truncated.xml", "no well-formed XML");
        row("unclosed.xml", "(line 2)");
        row("nodata.xml", "holds no data at all");
        row("doctype.xml", "document type");
        row("external.xml", "document type");
        row("encoding.xml", "Save it again in the UTF-8 encoding");
        row("zerobyte.xml", "no UTF-8 text");
        row("doublecompany.xml", "Two records of the table Company have the same key \"1\"");
        row("doublecontact.xml", "Two records of the table Contact have the same key \"x\"");
        row("doubleattribute.xml", "an element Record has the attribute Name twice (line 2)");
        row("tworoots.xml", "more than one root");
        row("huge.xml", "too large");
    }
    void refusedFileLeavesTheStore()
    {
        FETCH(QString, file, message);
        World world;
        fill(world);
        QString path = QStringLiteral(JOBWRIGHT_SOURCE_DIR "/tests/data/xml/") + file;
        if (file == u"huge.xml") {
            path = world.session->file(file);
            QFile huge(path);
            QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize((qint64(1) << 30) + 1));
        }
        const QByteArray before = contentHash(world.data().database());
        world.prompts.expect(message);
        world.data().importXML(path);
        QCOMPARE(contentHash(world.data().database()), before);
        QVERIFY(world.session->statusLine() != u"Import Complete");
        QVERIFY(world.errorLog().contains(u"DataJW-ImportXML"));
    }

    void oddFileComesInAsFarAsItGoes_data()
    {
        columns<QString, QString, QStringList>("data", "message", "companies");
        const QString good =
            u"<Record CompanyKey='7' Name='Good' ShortName='' AddressKey='' Industry='' Notes='' EntryDate=''/>"_s;
        const QStringList both{u"Good"_s, u"Mine"_s};
        QTest::addRow("a table that nobody knows is passed over")
            << u"<Data Table='Nothing'><Record/></Data><Data Table='Company'>%1</Data>"_s.arg(good)
            << QString() << both;
        QTest::addRow("records outside of Data are passed over")
            << u"<Data Table='Company'>%1<Other>%1</Other></Data><Record/>"_s.arg(good) << QString() << both;
        QTest::addRow("a table in two pieces is one")
            << u"<Data Table='Company'/><Data Table='Company'>%1</Data>"_s.arg(good) << QString() << both;
        QTest::addRow("text between records is passed over")
            << u"<Data Table='Company'>hello%1&lt;</Data>"_s.arg(good) << QString() << both;
        QTest::addRow("a record without attributes stops the import")
            << u"<Data Table='Company'>%1<Record/></Data>"_s.arg(good)
            << u"Record 2 of the table Company lacks the attribute CompanyKey"_s << both;
        QTest::addRow("a date that is none keeps its record out")
            << u"<Data Table='Company'>%1<Record CompanyKey='8' Name='Bad' ShortName='' AddressKey='' Industry='' Notes='' EntryDate='31/31/2026'/></Data>"_s
                   .arg(good)
            << u"One record of the file did not come in"_s << both;
    }
    void oddFileComesInAsFarAsItGoes()
    {
        FETCH(QString, data, message);
        QFETCH(QStringList, companies);
        World world;
        fill(world);
        if (!message.isEmpty())
            world.prompts.expect(message);
        XmlText(false).raw(data).import(world);
        QCOMPARE(world.data().getCompanyNames(), companies);
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
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(whole.first(length));
            file.close();
            world.data().importXML(file.fileName());
        }
        QCOMPARE(contentHash(world.data().database()), before);
        QCOMPARE(world.prompts.asked().size(), whole.size());
    }

    void statementInAValueStaysAValue()
    {
        World world;
        fill(world);
        world.prompts.expect(u"records of the file did not come in"_s);
        XmlText(false)
            .raw(u"<Data Table='Company'><Record CompanyKey='1' Name=\"x'); Delete * from Company; --\" "
                 u"ShortName='' AddressKey='' Industry='' "
                 "Notes='' EntryDate=''/><Record CompanyKey='2' Name=\"y','','1','','','') ,('z\" "
                 "ShortName='' "
                 "AddressKey='' Industry='' "
                 "Notes='' EntryDate=''/></Data>"_s)
            .import(world);
        QCOMPARE(world.data().getCompanyNames(), QStringList{u"Mine"_s});
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

QTEST_GUILESS_MAIN(TestXmlHostile)
#include "tst_xmlhostile.moc"
