// The texts of the four reports, and what the screen does with them.
#include "output/frmreport.h"
#include "support/campaign.h"
#include "support/runtest.h"

namespace {

const QString rule = QString(110, u'_') + u"\r\n";

/// Notes what was put onto it.
class NotedPaper : public Paper
{
public:
    std::vector<ReportDocument> got;
    bool works = true;

    bool print(const ReportDocument& document, const Step& step) override
    {
        got.push_back(document);
        return works && step(1);
    }
    void preview(const ReportDocument& document) override { got.push_back(document); }
    bool writePdf(const ReportDocument& document, const QString&, const Step& step) override
    {
        return print(document, step);
    }
};

} // namespace

class TestReports : public QObject
{
    Q_OBJECT

private slots:
    void addTextFitsAColumn()
    {
        QCOMPARE(reports::addText({}, 5), QString());
        QCOMPARE(reports::addText(u"abc"_s, 0), u"abc"_s);
        QCOMPARE(reports::addText(u"abc"_s, 5), u"abc  "_s);
        QCOMPARE(reports::addText(u"abcdef"_s, 5), u"abcde"_s);
    }

    void recordsAsTheyAreWritten()
    {
        World world;
        loadCampaign(world);
        send(
            world,
            {u"Update Address set State='MN', Phone1='5' where AddressKey=2"_s,
             u"Update Company set EntryDate='' where Name='Zenith'"_s,
             u"Update Company set Industry='Rail' where Name='Borealis'"_s,
             u"Update Contact set LastContact='6/20/2026', Title='CEO', Department='Ops' where ContactKey=1"_s,
             u"Update Contact set LastContact='12/31/1999' where ContactKey=2"_s,
             u"Update Position set SentResume='12/31/1999', CompanyResearch='5/1/2026', "
             u"ContactList='1,77,,4' "
             "where PositionKey=1"_s});
        const auto report = [&](ReportKind kind) {
            return reports::build(kind, *world.session).value_or(u"none"_s);
        };
        const auto wide = [](const QString& text, int width) { return text.leftJustified(width); };
        QCOMPARE(report(ReportKind::Company),
                 QString(wide(u"Borealis"_s, 30) + u"Fargo MN5  " + wide(u"Rail"_s, 20) +
                         u" 3/1/2026Contacts:2\r\n" + rule + wide(u"Zenith"_s, 30) +
                         u"Duluth    Contacts:2\r\n" + rule));
        const QString contacts = report(ReportKind::Contact);
        // The last history of the table counts, and namesakes of two companies have their own.
        QVERIFY2(contacts.contains(wide(u"Ann"_s, 20) + wide(u"Lee"_s, 20) + wide(u"CEO"_s, 25) +
                                   u"\r\n Dept:Ops6/20/2026 Histories:2\r\nNotes:knows acme\r\n" + rule),
                 qPrintable(contacts));
        QVERIFY(contacts.startsWith(wide(u"Ann"_s, 20) + wide(u"Lee"_s, 20) +
                                    u"\r\n No Contact Histories:1\r\nNotes:\r\n" + rule));
        QVERIFY(contacts.contains(u" No Contact Histories: None\r\n"_s));
        const QString positions = report(ReportKind::Position);
        QVERIFY2(
            positions.contains(u"Planner Transit-----------5/1/2026:6/15/2026: No Expiry Entry Date unknown"
                               "Contacts: Ann Lee, Cy AbbotProgress:11\r\n"_s +
                               rule),
            qPrintable(positions));
        QVERIFY(
            positions.contains(u"Analyst -----------6/1/2026:1/1/2026 Entry Date unknownProgress:11\r\n"_s));
        QVERIFY2(
            report(ReportKind::Target)
                .startsWith(
                    u"1Borealis  DB: Contacted: Contacts:2 Positions:0\r\n, Emp: Sales:$ Public:1/1/2026\r\n"_s +
                    rule),
            qPrintable(report(ReportKind::Target)));
        QCOMPARE(world.errorLog(), QString()); // a campaign of thousands must not fill the log
    }

    void emptyStoreHasWordsForThree()
    {
        World world;
        for (const ReportKind kind : {ReportKind::Company, ReportKind::Contact, ReportKind::Position}) {
            world.prompts.expect(u"You have no companies in your database."_s);
            QCOMPARE(reports::build(kind, *world.session).value_or(u"none"_s), QString());
        }
        QCOMPARE(reports::build(ReportKind::Target, *world.session).value_or(u"none"_s), QString());
    }

    void pagesEndByRecords()
    {
        World world;
        const auto add = [&](int count) {
            const Action atOnce(world.data());
            for (int i = 0; i < count; ++i)
                send(world, {u"INSERT INTO Company(Name) VALUES ('Company %1')"_s.arg(i)});
            send(
                world,
                {u"INSERT INTO Contact(FirstName,LastName,CompanyKey,Notes) VALUES ('A','B',1,'this|that')"_s});
        };
        add(62);
        const QStringList pages = reports::pages(*reports::build(ReportKind::Company, *world.session));
        QCOMPARE(pages.size(), 3); // the empty one behind the last mark as well
        QCOMPARE(pages.front().count(rule), 31);
        QCOMPARE(pages.last(), QString());
        QCOMPARE(reports::pages(*reports::build(ReportKind::Contact, *world.session)).size(),
                 2); // the user's own "|"
        const Action atOnce(world.data());
        for (int i = 0; i < 13; ++i)
            send(world, {u"INSERT INTO Contact(FirstName,LastName,CompanyKey) VALUES ('A','B',2)"_s,
                         u"INSERT INTO Position(Title,CompanyKey) VALUES ('T%1',2)"_s.arg(i)});
        QCOMPARE(reports::pages(*reports::build(ReportKind::Contact, *world.session)).at(1).count(rule), 13);
        QCOMPARE(reports::pages(*reports::build(ReportKind::Position, *world.session)).size(), 1);
    }

    void screenPrintsTwentyPagesAndPreviewsAll()
    {
        World world;
        {
            const Action atOnce(world.data());
            for (int i = 0; i < 31 * 20; ++i)
                send(world, {u"INSERT INTO Company(Name) VALUES ('Company %1')"_s.arg(i)});
        }
        NotedPaper paper;
        FrmReport screen(*world.session, paper);
        screen.load();
        QVERIFY(!screen.form().isEnabled(u"cmdPrint1"_s));
        screen.imgCompany1();
        QCOMPARE(screen.form().text(u"Label1"_s), u"Company Report"_s);
        QCOMPARE(screen.form().text(u"txtHeader"_s), u"Company Report 11/22/2026"_s);
        QCOMPARE(screen.form().text(u"lblPages"_s), u"Pages: 21"_s);
        screen.form().edit(u"txtHeader"_s, u"Mine"_s);
        world.prompts.expect(u"The report has 21 pages; the printer takes the first 20 of them"_s);
        screen.cmdPrint1();
        QCOMPARE(paper.got.back().pages.size(), 20U);
        QCOMPARE(paper.got.back().header, u"Mine\r\n\r\n\r\n"_s);
        QVERIFY(!paper.got.back().numbered);
        screen.form().edit(u"chkPage"_s, u"1"_s);
        screen.cmdPreview();
        QCOMPARE(paper.got.back().pages.size(), 21U);
        QVERIFY(paper.got.back().numbered);
        QVERIFY(paper.got.back().title.contains(u"21 pages, of which the printer takes 20"_s));
        const QString path = world.folder.filePath(u"report.txt"_s);
        world.prompts.expectFile(u"Save the report as text"_s, path);
        screen.cmdText();
        QCOMPARE(world.fileText(u"report.txt"_s), screen.text());
        for (const bool text : {true, false}) {
            paper.works = false;
            world.prompts.expectFile(text ? u"Save the report as text"_s : u"Save the report as PDF"_s,
                                     u"/nowhere/r"_s);
            world.prompts.expect(u"could not be written"_s);
            text ? screen.cmdText() : screen.cmdPdf();
        }
    }
};

JOBWRIGHT_TEST(TestReports)
#include "tst_reports.moc"
