// The Document screen without its view: what its fields and buttons leave in the store, and what they say.
#include "workbench/documentbench.h"

class TestDocumentScreen : public QObject
{
    Q_OBJECT

private slots:
    void fieldLeftWritesItsColumnAndKeepsTheKey_data();
    void fieldLeftWritesItsColumnAndKeepsTheKey();
    void typeClickedIsStoredForTheSelectedDocument_data();
    void typeClickedIsStoredForTheSelectedDocument();
    void styleBoxWritesAllTwelve();
    void changesWithoutSelectionReachNoDocument();
    void missingDateIsShownAsTheStandInAndStaysMissing();
    void chosenFileFillsTheScreenAndIsNotTouched();
    void addingWithoutFileAsksForOne();
    void listedNameIsNotAddedTwice_data();
    void listedNameIsNotAddedTwice();
    void addedDocumentIsStoredUnderTheTypeLastClicked();
    void contactsKeepTheirDocumentsWhenTheListIsWritten();
    void updateStoresAllThatIsShown();
    void removalCutsTheDocumentOutOfLists();
    void removalOfUnheldDocumentLeavesListsAlone();
    void listReadInPartIsNotWritten();
    void tooLongTextsAreRefusedBeforeAnythingGoes();
    void viewerFollowsTheEnding_data();
    void viewerFollowsTheEnding();
    void fileThatCannotBeOpenedIsTold_data();
    void fileThatCannotBeOpenedIsTold();
    void backquoteInStoredPathFindsTheApostrophe();
    void contactOfAnotherCompanyOpensWithIt();
};

void TestDocumentScreen::fieldLeftWritesItsColumnAndKeepsTheKey_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("column");
    QTest::newRow("version") << u"txtVersion"_s << u"Version"_s;
    QTest::newRow("target") << u"txtTarget"_s << u"Target"_s;
    QTest::newRow("notes") << u"txtDocNotes"_s << u"Notes"_s;
}

void TestDocumentScreen::fieldLeftWritesItsColumnAndKeepsTheKey()
{
    QFETCH(QString, control);
    QFETCH(QString, column);
    DocumentBench bench;
    bench.addDocument(u"other.pdf"_s);
    bench.addDocument(u"cv.pdf"_s);
    bench.openScreen(u"cv.pdf"_s);
    bench.edit(control, u"it's\nnew"_s);
    QCOMPARE(bench.frm->procText(), u"Update Document"_s);
    QVERIFY(bench.frm->procVisible());
    const QStringList sent = bench.statements([&] { bench.screen().fieldLeft(control); });
    QCOMPARE(sent.filter(u"Update"_s).size(), 1);
    QVERIFY(!bench.frm->procVisible());
    QCOMPARE(bench.cells(u"Select ResumeKey,"_s + column + u" from Document order by ResumeKey"),
             QString(u"1|"_s +
                     (column == u"Version"  ? u"1.0"
                      : column == u"Target" ? u"all"
                                            : u"old notes") +
                     u";2|it`s\r\nnew"));
    QVERIFY(bench.statements([&] { bench.screen().fieldLeft(control); }).isEmpty());
    // What the screen keeps in memory has it too, or the next writing of the list would bring back the old.
    bench.screen().cmdUpdateDoc1();
    QCOMPARE(bench.cells(u"Select "_s + column + u" from Document where Document='cv.pdf'"),
             u"it`s\r\nnew"_s);
}

void TestDocumentScreen::typeClickedIsStoredForTheSelectedDocument_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("stored");
    QTest::newRow("resume") << u"opt1"_s << u"resume"_s << u"Resume"_s;
    QTest::newRow("cover") << u"opt2"_s << u"cover"_s << u"Cover"_s;
    QTest::newRow("broadcast") << u"opt3"_s << u"broadcast"_s << u"Broadcast"_s;
    QTest::newRow("sample") << u"opt4"_s << u"sample"_s << u"Sample"_s;
    QTest::newRow("other") << u"opt5"_s << u"other"_s << u"Other"_s;
}

void TestDocumentScreen::typeClickedIsStoredForTheSelectedDocument()
{
    QFETCH(QString, option);
    QFETCH(QString, word);
    QFETCH(QString, stored);
    DocumentBench bench;
    bench.addDocument(u"cv.pdf"_s, u"Strange"_s);
    bench.addDocument(u"note.txt"_s, u"Other"_s);
    bench.openScreen(u"cv.pdf"_s);
    bench.edit(option, u"1"_s);
    QCOMPARE(bench.frm->selection().selectedDocType, word);
    QCOMPARE(bench.cells(u"Select Type from Document"_s), QString(stored + u";Other"));
    QCOMPARE(bench.screen().selectedNode().data(TreeModel::KindRole).toString(), word);
    bench.screen().showDocument(u"note.txt"_s);
    bench.screen().showDocument(u"cv.pdf"_s);
    QCOMPARE(bench.value(option), u"1"_s);
}

void TestDocumentScreen::styleBoxWritesAllTwelve()
{
    DocumentBench bench;
    bench.addDocument(u"cv.pdf"_s);
    bench.openScreen(u"cv.pdf"_s);
    QCOMPARE(bench.value(u"chkStyle0"_s), u"1"_s);
    bench.edit(u"chkStyle11"_s, u"1"_s);
    bench.edit(u"chkStyle0"_s, u"0"_s);
    bench.edit(u"chkStyle4"_s, u"1"_s);
    QCOMPARE(bench.cells(u"Select Style from Document"_s), u"000010000001"_s);
}

void TestDocumentScreen::changesWithoutSelectionReachNoDocument()
{
    DocumentBench bench;
    bench.addDocument(u"cv.pdf"_s);
    bench.openScreen(u"cv.pdf"_s);
    const QString before = bench.cells(u"Select * from Document"_s);
    bench.screen().filesDropped({bench.makeFile(u"new.pdf"_s)});
    bench.edit(u"opt3"_s, u"1"_s);
    bench.edit(u"chkStyle5"_s, u"1"_s);
    bench.edit(u"txtVersion"_s, u"9"_s);
    bench.screen().fieldLeft(u"txtVersion"_s);
    // The tree's root stands for no document: going there leaves the file that was just chosen.
    bench.screen().tvwDocsClick(bench.screen().tvwDocs().index(0, 0));
    bench.world.prompts.expect(u"Existing document not selected.  No update."_s);
    bench.screen().cmdUpdateDoc1();
    for (const QStringList& wrong : {QStringList{u"/a.pdf"_s, u"/b.pdf"_s}, {bench.world.folder.path()}}) {
        bench.world.prompts.expect(u"Please drop one file at a time"_s);
        bench.screen().filesDropped(wrong);
    }
    QCOMPARE(bench.cells(u"Select * from Document"_s), before);
    QCOMPARE(bench.value(u"txtFileName"_s), u"new.pdf"_s);
    QCOMPARE(bench.value(u"txtVersion"_s), u"9"_s);
}

void TestDocumentScreen::missingDateIsShownAsTheStandInAndStaysMissing()
{
    DocumentBench bench;
    bench.run(u"Insert into Document(Document) Values('bare')"_s);
    bench.openScreen(u"bare"_s);
    QCOMPARE(bench.value(u"dtpEntry"_s), u"2001-01-01"_s);
    QCOMPARE(bench.value(u"chkStyle11"_s), u"0"_s);
    bench.screen().cmdUpdateDoc1();
    QCOMPARE(bench.cells(u"Select CreationDate from Document"_s), QString());
    // The writing of the list for another document brings the row back as it was, without a date.
    bench.screen().filesDropped({bench.makeFile(u"new.pdf"_s)});
    bench.screen().cmdAddDoc1();
    QCOMPARE(bench.cells(u"Select Document,CreationDate from Document where Document='bare'"_s), u"bare|"_s);
}

void TestDocumentScreen::chosenFileFillsTheScreenAndIsNotTouched()
{
    DocumentBench bench;
    bench.addDocument(u"cv.pdf"_s);
    bench.openScreen(u"cv.pdf"_s);
    const QString path = bench.makeFile(u"letters/Ann's cover.doc"_s, "content");
    const QDateTime changed = QFileInfo(path).lastModified();
    bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, path);
    bench.screen().cmdLoadDocument();
    QCOMPARE(bench.value(u"txtFileName"_s), u"Ann's cover.doc"_s);
    QCOMPARE(bench.value(u"txtPath"_s), path);
    QCOMPARE(bench.value(u"dtpEntry"_s), QDate::currentDate().toString(Qt::ISODate));
    QVERIFY(bench.value(u"txtVersion"_s).isEmpty());
    QVERIFY(bench.value(u"opt1"_s) != u"1");
    QVERIFY(bench.value(u"chkStyle0"_s) != u"1");
    QVERIFY(!bench.screen().selectedDocument());
    QCOMPARE(bench.data().getStatusValue(u"DocumentDirectory"_s), bench.world.folder.filePath(u"letters"_s));
    bench.screen().cmdAddDoc1();
    bench.screen().cmdRemoveDoc1();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("content"));
    QCOMPARE(QFileInfo(path).lastModified(), changed);
}

void TestDocumentScreen::addingWithoutFileAsksForOne()
{
    DocumentBench bench;
    bench.openScreen();
    bench.world.prompts.expect(u"Please select a file to add to the global document list."_s);
    bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, {});
    bench.screen().cmdAddDoc1();
    QCOMPARE(bench.rows(u"Document"_s), 0);
    bench.world.prompts.expect(u"Please select a file to add to the global document list."_s);
    bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, bench.makeFile(u"cv.pdf"_s));
    bench.screen().cmdAddDoc1();
    QCOMPARE(bench.cells(u"Select Document,Type,Sent from Document"_s), u"cv.pdf|Resume|0"_s);
}

void TestDocumentScreen::listedNameIsNotAddedTwice_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("same name elsewhere") << u"else/Ann`s cv.pdf"_s;
    QTest::newRow("apostrophe") << u"else/Ann's cv.pdf"_s;
    QTest::newRow("other letter case") << u"else/ANN`S CV.PDF"_s;
}

void TestDocumentScreen::listedNameIsNotAddedTwice()
{
    QFETCH(QString, name);
    DocumentBench bench;
    bench.addDocument(u"Ann`s cv.pdf"_s);
    bench.openScreen();
    bench.screen().filesDropped({bench.makeFile(name)});
    bench.world.prompts.expect(u"Document already in list."_s);
    bench.screen().cmdAddDoc1();
    QCOMPARE(bench.cells(u"Select ResumeKey,Path from Document"_s), u"1|/files/Ann`s cv.pdf"_s);
}

void TestDocumentScreen::addedDocumentIsStoredUnderTheTypeLastClicked()
{
    DocumentBench bench;
    bench.openScreen();
    bench.edit(u"opt4"_s, u"1"_s);
    const QString path = bench.makeFile(u"plan.pdf"_s);
    bench.screen().filesDropped({path});
    bench.edit(u"txtVersion"_s, u"1.1"_s);
    bench.edit(u"txtTarget"_s, u"Acme"_s);
    bench.edit(u"txtDocNotes"_s, u"a\nb"_s);
    bench.edit(u"dtpEntry"_s, u"2026-02-03"_s);
    bench.edit(u"chkStyle2"_s, u"1"_s);
    QCOMPARE(bench.screen().defaultName(), u"smp20260203.jwd"_s);
    bench.screen().cmdAddDoc1();
    QCOMPARE(bench.cells(u"Select Document,Version,Target,Sent,CreationDate,Style,Notes,Path,Type from "
                         "Document"_s),
             QString(u"plan.pdf|1.1|Acme|0|2/3/2026|001000000000|a\r\nb|" + path + u"|Sample"));
    QCOMPARE(bench.listed(), QStringList{u"plan.pdf"_s});
    QCOMPARE(bench.screen().tvwDocs().key(bench.screen().selectedNode()), u"A1"_s);
    QCOMPARE(bench.value(u"opt4"_s), u"1"_s);
}

void TestDocumentScreen::contactsKeepTheirDocumentsWhenTheListIsWritten()
{
    DocumentBench bench;
    for (const auto& name : {u"cv.pdf"_s, u"cover.doc"_s, u"note.txt"_s})
        bench.addDocument(name);
    bench.addHolder(u"Ann"_s, u"1,3"_s);
    bench.addHolder(u"Bob"_s, u"2"_s);
    bench.addHolder(u"Cy"_s, {});
    bench.openScreen();
    const QString before = u"Ann: cv.pdf+note.txt, Bob: cover.doc, Cy: "_s;
    QCOMPARE(bench.holdings(), before);
    bench.screen().filesDropped({bench.makeFile(u"new.pdf"_s)});
    bench.screen().cmdAddDoc1();
    QCOMPARE(bench.holdings(), before);
    QCOMPARE(bench.cells(u"Select ResumeKey from Document order by ResumeKey"_s), u"4;5;6;7"_s);
    bench.screen().showDocument(u"cover.doc"_s);
    bench.screen().cmdUpdateDoc1();
    QCOMPARE(bench.holdings(), before);
    // What the screen shows of it after the next start.
    bench.frm.reset();
    bench.world.restart();
    bench.frm = std::make_unique<FrmData>(*bench.world.session, bench.navigator);
    bench.openScreen(u"note.txt"_s);
    TreeModel& sent = bench.screen().lstContactsSent();
    QCOMPARE(sent.texts(sent.index(0, 0)), QStringList{u"Ann Lee"_s});
}

void TestDocumentScreen::updateStoresAllThatIsShown()
{
    DocumentBench bench;
    bench.addDocument(u"cv.pdf"_s);
    bench.openScreen(u"cv.pdf"_s);
    bench.edit(u"txtPath"_s, u"/moved/cv.pdf"_s);
    bench.edit(u"dtpEntry"_s, u"2026-07-04"_s);
    bench.edit(u"txtVersion"_s, u"2"_s);
    bench.screen().cmdUpdateDoc1();
    QCOMPARE(bench.cells(u"Select Document,Version,Sent,CreationDate,Notes,Path,Type from Document"_s),
             u"cv.pdf|2|2|7/4/2026|old notes|/moved/cv.pdf|Resume"_s);
    QCOMPARE(bench.frm->form().text(u"sbar"_s), u"cv.pdf has been updated"_s);
}

void TestDocumentScreen::removalCutsTheDocumentOutOfLists()
{
    DocumentBench bench;
    for (const auto& name : {u"cv.pdf"_s, u"cover.doc"_s, u"note.txt"_s})
        bench.addDocument(name);
    bench.addHolder(u"Ann"_s, u"1,2,3"_s);
    bench.addHolder(u"Bob"_s, u"2"_s);
    bench.openScreen(u"cover.doc"_s);
    bench.screen().cmdRemoveDoc1();
    QCOMPARE(bench.listed(), (QStringList{u"cv.pdf"_s, u"note.txt"_s}));
    QCOMPARE(bench.cells(u"Select Document from Document"_s), u"cv.pdf;note.txt"_s);
    QCOMPARE(bench.holdings(), u"Ann: cv.pdf+note.txt, Bob: "_s);
    QVERIFY(!bench.screen().selectedDocument());
    QVERIFY(bench.value(u"txtFileName"_s).isEmpty());
}

void TestDocumentScreen::removalOfUnheldDocumentLeavesListsAlone()
{
    DocumentBench bench;
    bench.addDocument(u"cv.pdf"_s);
    bench.addHolder(u"Ann"_s, u"21,13"_s); // the digits of key 1, in keys of nobody
    bench.openScreen(u"cv.pdf"_s);
    bench.screen().cmdRemoveDoc1();
    QCOMPARE(bench.cells(u"Select DocumentList from Contact"_s), u"21,13"_s);
}

void TestDocumentScreen::listReadInPartIsNotWritten()
{
    DocumentBench bench;
    bench.addDocument(u"cv.pdf"_s);
    bench.addDocument(u"note.txt"_s);
    bench.run(u"Update Document set Sent=40000 where ResumeKey=2"_s); // more than the program can count
    bench.world.prompts.acceptAll(Answer::Ok);
    bench.openScreen();
    const QString before = bench.cells(u"Select ResumeKey,Document from Document"_s);
    bench.screen().filesDropped({bench.makeFile(u"new.pdf"_s)});
    bench.screen().cmdAddDoc1();
    QCOMPARE(bench.cells(u"Select ResumeKey,Document from Document"_s), before);
    QVERIFY(bench.world.prompts.asked().last().contains(u"could not all be read"));
    QCOMPARE(bench.value(u"txtFileName"_s), u"new.pdf"_s);
}

void TestDocumentScreen::tooLongTextsAreRefusedBeforeAnythingGoes()
{
    DocumentBench bench;
    bench.addDocument(u"cv.pdf"_s);
    bench.openScreen(u"cv.pdf"_s);
    const QString before = bench.cells(u"Select * from Document"_s);
    bench.edit(u"txtDocNotes"_s, QString(1'100'000, u'n'));
    bench.world.prompts.expect(u"too long to be saved"_s);
    bench.screen().cmdUpdateDoc1();
    QCOMPARE(bench.cells(u"Select * from Document"_s), before);
    bench.edit(u"txtDocNotes"_s, u"short"_s);
    bench.screen().cmdUpdateDoc1();
    QCOMPARE(bench.cells(u"Select Notes from Document"_s), u"short"_s);
}

void TestDocumentScreen::viewerFollowsTheEnding_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("opened"); // %1 is the path
    QTest::newRow("pdf, viewer set") << u"a.pdf"_s << u"PDFViewer"_s << u"/bin/my viewer <%1>"_s;
    QTest::newRow("pdf, none set") << u"a b;rm.pdf"_s << QString() << u"%1"_s;
    QTest::newRow("text, viewer set") << u"a.txt"_s << u"TextViewer"_s << u"/bin/my viewer <%1>"_s;
    QTest::newRow("text, capitals") << u"A.TXT"_s << QString() << u"%1"_s;
    QTest::newRow("word, viewer set") << u"a.doc"_s << u"WordViewer"_s << u"/bin/my viewer <%1>"_s;
    QTest::newRow("rich text") << u"a.rtf"_s << QString() << u"%1"_s;
    QTest::newRow("page") << u"a.htm"_s << u"TextViewer"_s << u"file://%1"_s;
    QTest::newRow("page, signs in its path") << u"a #1.html"_s << QString() << u"file://%1"_s;
}

void TestDocumentScreen::viewerFollowsTheEnding()
{
    QFETCH(QString, name);
    QFETCH(QString, row);
    QFETCH(QString, opened);
    DocumentBench bench;
    bench.openScreen();
    bench.world.session->wordAvailable = true;
    if (!row.isEmpty())
        bench.data().writeStatus(row, u"/bin/my viewer"_s, true);
    const QString path = bench.makeFile(name);
    bench.screen().filesDropped({path});
    bench.screen().cmdViewDoc1();
    const bool address = opened.startsWith(u"file:");
    const QString shown = address ? QString(path).replace(u' ', u"%20"_s).replace(u'#', u"%23"_s) : path;
    QCOMPARE(bench.world.desktop.opened, QStringList{QString(opened).replace(u"%1"_s, shown)});
}

void TestDocumentScreen::fileThatCannotBeOpenedIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("title");
    const QString view = u"View Document"_s;
    const QString unknown = u"Document format not recognized."_s;
    QTest::newRow("two dots") << u"cv.v2.doc"_s << true << unknown << u"File Access Error"_s;
    QTest::newRow("other ending") << u"cv.odt"_s << true << unknown << u"File Access Error"_s;
    QTest::newRow("no ending") << u"cv"_s << true << unknown << u"File Access Error"_s;
    QTest::newRow("gone") << u"cv.pdf"_s << false << u"was not found"_s << view;
    QTest::newRow("no program") << u"cv.pdf"_s << true << u"could not be opened"_s << view;
    QTest::newRow("no word processor")
        << u"cv.doc"_s << true
        << u"ERROR - 2nd Format - Cannot Open Application, file may be corrupt "
           "or application may be unavailable - see Manual/Troubleshooting"_s
        << view;
}

void TestDocumentScreen::fileThatCannotBeOpenedIsTold()
{
    QFETCH(QString, name);
    QFETCH(bool, exists);
    QFETCH(QString, message);
    QFETCH(QString, title);
    DocumentBench bench;
    bench.openScreen();
    bench.world.desktop.works = false;
    bench.screen().filesDropped({bench.makeFile(name)});
    if (!exists)
        bench.edit(u"txtPath"_s, u"/nowhere/cv.pdf"_s);
    bench.world.prompts.expect(message);
    bench.screen().cmdViewDoc1();
    QCOMPARE(bench.world.prompts.lastTitle(), title);
}

void TestDocumentScreen::backquoteInStoredPathFindsTheApostrophe()
{
    DocumentBench bench;
    bench.openScreen();
    const QString path = bench.makeFile(u"Ann's/Ann's cv.pdf"_s);
    bench.screen().filesDropped({path});
    bench.screen().cmdAddDoc1();
    bench.openScreen(u"Ann's cv.pdf"_s);
    QCOMPARE(bench.value(u"txtFileName"_s), u"Ann`s cv.pdf"_s);
    bench.screen().cmdViewDoc1();
    QCOMPARE(bench.world.desktop.opened, QStringList{path});
}

void TestDocumentScreen::contactOfAnotherCompanyOpensWithIt()
{
    DocumentBench bench;
    bench.addCompany(u"Acme"_s);
    bench.addCompany(u"Bolt"_s);
    bench.addDocument(u"cv.pdf"_s);
    bench.addHolder(u"Ann"_s, u"1"_s);
    bench.run(
        u"Insert into Contact(FirstName,LastName,DocumentList,CompanyKey) Values('Bob','Lee','1',99)"_s);
    bench.frm->load();
    bench.choose(u"Bolt"_s);
    bench.openScreen(u"cv.pdf"_s);
    TreeModel& sent = bench.screen().lstContactsSent();
    QCOMPARE(sent.texts(sent.index(0, 0)), (QStringList{u"Ann Lee"_s, u"Bob Lee"_s}));
    bench.world.prompts.expect(u"Bob Lee belongs to a company that is no longer in the database."_s);
    bench.screen().lstContactsSentDblClick(sent.index(1, 0, sent.index(0, 0)));
    QCOMPARE(bench.visibleFrames(), u"frmeDocument"_s);
    bench.screen().lstContactsSentDblClick(sent.index(0, 0, sent.index(0, 0)));
    QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Acme"_s);
    QCOMPARE(bench.visibleFrames(), u"frmeContact"_s);
}

QTEST_GUILESS_MAIN(TestDocumentScreen)
#include "tst_documentscreen.moc"
