// The Document screen without its view: what its fields and buttons leave in the store, and what they say.
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/documentbench.h"

namespace {

/// cv.pdf 1, cover.doc 2 and note.txt 3; Ann holds the first and the last, Bob the one between.
class HeldBench : public DocumentBench
{
public:
    explicit HeldBench(const QString& document = {})
    {
        addDocument(u"cv.pdf"_s, u"Strange"_s);
        addDocument(u"cover.doc"_s, u"Other"_s);
        addDocument(u"note.txt"_s, u"Other"_s);
        addHolder(u"Ann"_s, u"1,3"_s);
        addHolder(u"Bob"_s, u"2"_s);
        openScreen(document);
    }
    QString keys() { return cells(u"Select ResumeKey,Document from Document order by ResumeKey"_s); }
    void add(const QString& name)
    {
        drop(name);
        screen().cmdAddDoc1();
    }
};

} // namespace

class TestDocumentScreen : public QObject
{
    Q_OBJECT

private slots:
    void fieldThatIsLeftIsStoredAndRemembered()
    {
        HeldBench bench(u"cover.doc"_s);
        QCOMPARE(columnsLeft(bench, bench.screen(), u"Document"_s, u"ResumeKey=2"_s),
                 u"Version Target Notes"_s);
        // The next writing of the whole list must not bring back what was there before.
        bench.screen().showDocument(u"note.txt"_s);
        bench.screen().cmdUpdateDoc1();
        QCOMPARE(bench.cells(u"Select ResumeKey,Version,Target from Document order by ResumeKey"_s),
                 u"4|1.0|all;5|it`s\r\nhard\r\n`); Delete|it`s\r\nhard\r\n`); Delete;6|1.0|all"_s);
    }

    void typeAndStyleAreStoredForTheSelectedDocument()
    {
        HeldBench bench(u"cv.pdf"_s);
        const QStringList types{u"Resume"_s, u"Cover"_s, u"Broadcast"_s, u"Sample"_s, u"Other"_s};
        for (int number = 5; number > 0; --number) {
            bench.edit(u"opt%1"_s.arg(number), u"1"_s);
            const QString& type = types.at(number - 1);
            QCOMPARE(bench.selection().selectedDocType, type.toLower());
            QCOMPARE(bench.cells(u"Select Type from Document"_s), QString(type + u";Other;Other"));
            QCOMPARE(bench.screen().selectedNode().data(TreeModel::KindRole).toString(), type.toLower());
        }
        editAll(bench.screen(), {u"chkStyle11=1"_s, u"chkStyle0=0"_s, u"chkStyle4=1"_s});
        QCOMPARE(bench.cells(u"Select Style from Document"_s), u"000010000001;100000000000;100000000000"_s);
        bench.screen().showDocument(u"note.txt"_s);
        bench.screen().showDocument(u"cv.pdf"_s);
        QCOMPARE(bench.value(u"opt1 chkStyle0"_s), u"1|0"_s);
    }

    void changesWithoutSelectionReachNoDocument()
    {
        HeldBench bench(u"cv.pdf"_s);
        const QString before = bench.cells(u"Select * from Document"_s);
        bench.drop(u"new.pdf"_s);
        editAll(bench.screen(), {u"opt3=1"_s, u"chkStyle5=1"_s, u"txtVersion=9"_s});
        bench.screen().fieldLeft(u"txtVersion"_s);
        // The tree's root stands for no document: going there leaves the file that was just chosen.
        bench.screen().tvwDocsClick(bench.screen().tvwDocs().index(0, 0));
        bench.expect(u"Existing document not selected.  No update."_s);
        bench.screen().cmdUpdateDoc1();
        bench.expect(u"Please select a document to remove."_s);
        bench.screen().cmdRemoveDoc1();
        for (const QStringList& wrong : {QStringList{bench.makeFile(u"a.pdf"_s), bench.makeFile(u"b.pdf"_s)},
                                         {bench.world.folder.path()}}) {
            bench.expect(u"Please drop one file at a time"_s);
            bench.screen().filesDropped(wrong);
        }
        QCOMPARE(bench.cells(u"Select * from Document"_s), before);
        QCOMPARE(bench.value(u"txtFileName txtVersion"_s), u"new.pdf|9"_s);
    }

    void missingDateIsShownAsTheStandInAndStaysMissing()
    {
        DocumentBench bench;
        bench.run(u"Insert into Document(Document) Values('bare')"_s);
        bench.openScreen(u"bare"_s);
        QCOMPARE(bench.value(u"dtpEntry"_s), u"2001-01-01"_s);
        bench.screen().cmdUpdateDoc1();
        QCOMPARE(bench.cells(u"Select CreationDate from Document"_s), QString());
    }

    void addingWithoutFileAsksForOne()
    {
        DocumentBench bench;
        bench.openScreen();
        for (const QString& path : {QString(), bench.makeFile(u"cv.pdf"_s)}) {
            bench.expect(u"Please select a file to add to the global document list."_s);
            bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, path);
            bench.screen().cmdAddDoc1();
            QCOMPARE(bench.rows(u"Document"_s), path.isEmpty() ? 0 : 1);
        }
        QCOMPARE(bench.cells(u"Select Document,Type,Sent from Document"_s), u"cv.pdf|Resume|0"_s);
    }

    void addedDocumentIsStoredUnderTheTypeLastClicked()
    {
        DocumentBench bench;
        bench.openScreen();
        bench.edit(u"opt4"_s, u"1"_s);
        const QString path = bench.drop(u"plan.pdf"_s);
        editAll(bench.screen(),
                {u"txtVersion=1.1"_s, u"txtDocNotes=a\nb"_s, u"dtpEntry=2026-02-03"_s, u"chkStyle2=1"_s});
        QCOMPARE(bench.screen().defaultName(), u"smp20260203.jwd"_s);
        bench.screen().cmdAddDoc1();
        const QString select =
            u"Select Document,Version,Sent,CreationDate,Style,Notes,Path,Type from Document"_s;
        QCOMPARE(bench.cells(select),
                 QString(u"plan.pdf|1.1|0|2/3/2026|001000000000|a\r\nb|" + path + u"|Sample"));
        QCOMPARE(bench.screen().tvwDocs().key(bench.screen().selectedNode()), u"A1"_s);
        // And what is changed behind it is stored by the update.
        editAll(bench.screen(), {u"txtPath=/moved"_s, u"dtpEntry=2026-07-04"_s});
        bench.screen().cmdUpdateDoc1();
        QCOMPARE(bench.cells(select), u"plan.pdf|1.1|0|7/4/2026|001000000000|a\r\nb|/moved|Sample"_s);
        QCOMPARE(bench.frm->form().text(u"sbar"_s), u"plan.pdf has been updated"_s);
    }

    void contactsKeepTheirDocumentsWhenTheListIsWritten()
    {
        HeldBench bench;
        bench.addHolder(u"Cy"_s, u"79"_s); // the digits of a key that nobody holds stay as they are
        const QString before = u"Ann: cv.pdf+note.txt, Bob: cover.doc, Cy: "_s;
        bench.add(u"new.pdf"_s);
        QCOMPARE(bench.holdings(), before);
        QCOMPARE(bench.keys(), u"4|cv.pdf;5|cover.doc;6|note.txt;7|new.pdf"_s);
        bench.screen().showDocument(u"cover.doc"_s);
        bench.screen().cmdUpdateDoc1();
        QCOMPARE(bench.holdings(), before);
        QCOMPARE(bench.cells(u"Select DocumentList from Contact where FirstName='Cy'"_s), u"79"_s);
        bench.openScreen(u"note.txt"_s);
        TreeModel& sent = bench.screen().lstContactsSent();
        QCOMPARE(sent.texts(sent.index(0, 0)), QStringList{u"Ann Lee"_s});
    }

    void removalCutsTheDocumentOutOfLists()
    {
        HeldBench bench(u"cover.doc"_s);
        bench.run(u"Update Contact set DocumentList='1,2' where FirstName='Ann'"_s);
        bench.screen().cmdRemoveDoc1();
        QCOMPARE(bench.listed(), u"cv.pdf,note.txt"_s);
        QCOMPARE(bench.keys(), u"4|cv.pdf;5|note.txt"_s);
        QCOMPARE(bench.holdings(), u"Ann: cv.pdf, Bob: "_s);
        QVERIFY(!bench.screen().selectedDocument() && bench.value(u"txtFileName"_s).isEmpty());
        // Nobody holds this one: the digits of its key 5 in the keys of others stay as they are.
        bench.run(u"Update Contact set DocumentList='75,15' where FirstName='Bob'"_s);
        bench.screen().showDocument(u"note.txt"_s);
        bench.screen().cmdRemoveDoc1();
        QCOMPARE(bench.cells(u"Select DocumentList from Contact where FirstName='Bob'"_s), u"75,15"_s);
    }

    void listReadInPartIsNotWritten()
    {
        HeldBench bench;
        bench.run(u"Update Document set Sent=40000 where ResumeKey=2"_s); // more than the program can count
        bench.world.prompts.acceptAll(Answer::Ok);
        bench.openScreen();
        const QString before = bench.keys();
        bench.add(u"new.pdf"_s);
        QVERIFY(bench.world.prompts.asked().last().contains(u"could not all be read"));
        QCOMPARE(bench.keys(), before);
        QCOMPARE(bench.value(u"txtFileName"_s), u"new.pdf"_s);
        // Neither is one whose texts the store would refuse in the middle of the writing.
        bench.run(u"Update Document set Sent=4 where ResumeKey=2"_s);
        bench.openScreen(u"cv.pdf"_s);
        bench.edit(u"txtDocNotes"_s, QString(1'100'000, u'n'));
        bench.screen().cmdUpdateDoc1();
        QVERIFY(bench.world.prompts.asked().last().contains(u"too long to be saved"));
        QCOMPARE(bench.keys(), before);
    }

    void viewerFollowsTheEnding_data()
    {
        // opened: %1 is the path
        table({"name", "row", "opened"}, {{"pdf, viewer set", "a.pdf", "PDFViewer", "/bin/my viewer <%1>"},
                                          {"pdf, none set", "a b;rm.pdf", "", "%1"},
                                          {"text, capitals", "A.TXT", "TextViewer", "/bin/my viewer <%1>"},
                                          {"page", "a.htm", "TextViewer", "file://%1"},
                                          {"page, signs in its path", "a #1.html", "", "file://%1"}});
    }
    void viewerFollowsTheEnding()
    {
        FETCH(QString, name, row, opened);
        DocumentBench bench;
        bench.openScreen();
        if (!row.isEmpty())
            bench.data().writeStatus(row, u"/bin/my viewer"_s, true);
        QString path = bench.drop(name);
        bench.screen().cmdViewDoc1();
        if (opened.startsWith(u"file:"))
            path.replace(u' ', u"%20"_s).replace(u'#', u"%23"_s);
        QCOMPARE(bench.world.desktop.opened, QStringList{opened.replace(u"%1"_s, path)});
    }

    void fileThatCannotBeOpenedIsTold_data()
    {
        const char* const unknown = "Document format not recognized.";
        table({"name", "message", "title"},
              {{"two dots", "cv.v2.doc", unknown, "File Access Error"},
               {"no ending", "cv", unknown, "File Access Error"},
               {"gone", "gone.pdf", "was not found", "View Document"},
               {"no program", "cv.pdf", "could not be opened", "View Document"},
               {"no word processor", "cv.doc",
                "ERROR - 2nd Format - Cannot Open Application, file may be corrupt or application may be "
                "unavailable - see Manual/Troubleshooting",
                "View Document"}});
    }
    void fileThatCannotBeOpenedIsTold()
    {
        FETCH(QString, name, message, title);
        DocumentBench bench;
        bench.openScreen();
        bench.world.desktop.works = false;
        bench.drop(name);
        if (name.startsWith(u"gone"))
            bench.edit(u"txtPath"_s, u"/nowhere/cv.pdf"_s);
        bench.expect(message);
        bench.screen().cmdViewDoc1();
        QCOMPARE(bench.world.prompts.lastTitle(), title);
    }

    void contactOfAnotherCompanyOpensWithIt()
    {
        HeldBench bench;
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"Bolt"_s);
        bench.run(u"Update Contact set DocumentList='1'"_s);
        bench.run(u"Update Contact set CompanyKey=99 where FirstName='Bob'"_s);
        bench.frm->load();
        bench.choose(u"Bolt"_s);
        bench.openScreen(u"cv.pdf"_s);
        TreeModel& sent = bench.screen().lstContactsSent();
        bench.expect(u"Bob Lee belongs to a company that is no longer in the database."_s);
        bench.screen().lstContactsSentDblClick(sent.index(1, 0, sent.index(0, 0)));
        QCOMPARE(bench.visibleFrames(), u"frmeDocument"_s);
        bench.screen().lstContactsSentDblClick(sent.index(0, 0, sent.index(0, 0)));
        QCOMPARE(bench.selection().selectedCompanyName(), u"Acme"_s);
        QCOMPARE(bench.visibleFrames(), u"frmeContact"_s);
    }
};

JOBWRIGHT_TEST(TestDocumentScreen)
#include "tst_documentscreen.moc"
