// The Document screen in the workbench's window, with keys and mouse on a real store.
#include "views/windowbench.h"
#include "workbench/documentscreen.h"

#include "views/common/kindtree.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDropEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace {

/// The window on its Document tab.
class DocumentWindow : public WindowBench
{
public:
    explicit DocumentWindow(const QStringList& names = {})
    {
        addCompany(u"Acme"_s);
        for (const QString& name : names)
            run(u"Insert into Document(Document,Version,Style,Notes,Path,Type) Values('" + name +
                u"','1.0','000000000000','','/files/" + name + u"','Cover')");
        run(u"Insert into Contact(FirstName,LastName,DocumentList,CompanyKey) Values('Ann','Lee','1',1)"_s);
        open();
        press(Qt::Key_4, Qt::ControlModifier);
    }
    KindTree* tree(const QString& name = u"tvwDocs"_s) { return find<KindTree>(name); }
    /// The row of a tree or list, from 0.
    QModelIndex row(KindTree* in, int number)
    {
        return in->model()->index(number, 0, in->model()->index(0, 0));
    }
    void click(KindTree* in, int number)
    {
        in->scrollTo(row(in, number));
        QTest::mouseClick(in->viewport(), Qt::LeftButton, {}, in->visualRect(row(in, number)).center());
    }
    void doubleClick(KindTree* in, int number)
    {
        click(in, number);
        QTest::mouseDClick(in->viewport(), Qt::LeftButton, {}, in->visualRect(row(in, number)).center());
    }
    void push(const QString& button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    QString makeFile(const QString& name)
    {
        QFile file(world.folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly))
            QTest::qFail(qPrintable(name), __FILE__, __LINE__);
        return file.fileName();
    }
    /// What the list makes of a drop; the action it took, or none.
    Qt::DropAction drop(const QList<QUrl>& urls, Qt::DropActions possible)
    {
        QMimeData data;
        data.setUrls(urls);
        QWidget* target = tree()->viewport();
        QDragEnterEvent enter({5, 5}, possible, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(target, &enter);
        if (!enter.isAccepted())
            return Qt::IgnoreAction;
        QDropEvent event({5, 5}, possible, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(target, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
};

} // namespace

class TestDocumentView : public QObject
{
    Q_OBJECT

private slots:
    void chosenFileIsAddedShownAndViewed();
    void documentIsChosenWithMouseAndArrows();
    void fieldIsSavedBeforeAnotherDocumentIsShown();
    void optionAndBoxAreStoredAsTheyAreClicked();
    void choosingAFileClearsTheOptions();
    void fileNotYetAddedSurvivesAVisitToTheList();
    void droppedFileIsTakenButNeverMoved_data();
    void droppedFileIsTakenButNeverMoved();
    void removalLeavesNothingSelected();
    void doubleClickOnContactOpensIt();
};

void TestDocumentView::chosenFileIsAddedShownAndViewed()
{
    DocumentWindow bench;
    bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, bench.makeFile(u"cv.pdf"_s));
    bench.press(Qt::Key_L, Qt::AltModifier);
    // A button's letter presses it for a while.
    QTRY_COMPARE(bench.line(u"txtFileName"_s)->text(), u"cv.pdf"_s);
    QCOMPARE(bench.find<QDateEdit>(u"dtpEntry"_s)->date(), QDate::currentDate());
    bench.enter(u"txtVersion"_s);
    bench.type(u"3.2"_s);
    bench.press(Qt::Key_A, Qt::AltModifier);
    QTRY_COMPARE(bench.cells(u"Select Document,Version,Type from Document"_s), u"cv.pdf|3.2|Resume"_s);
    QCOMPARE(bench.tree()->currentIndex().data().toString(), u"cv.pdf"_s);
    QVERIFY(bench.find<QRadioButton>(u"opt1"_s)->isChecked());
    const QString path = bench.world.folder.filePath(u"cv.pdf"_s);
    bench.press(Qt::Key_V, Qt::AltModifier);
    QTRY_COMPARE(bench.world.desktop.opened, QStringList{path});
    bench.doubleClick(bench.tree(), 0);
    QCOMPARE(bench.world.desktop.opened, (QStringList{path, path}));
}

void TestDocumentView::documentIsChosenWithMouseAndArrows()
{
    DocumentWindow bench({u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s});
    bench.click(bench.tree(), 0);
    QCOMPARE(bench.line(u"txtPath"_s)->text(), u"/files/a.pdf"_s);
    QVERIFY(bench.find<QRadioButton>(u"opt2"_s)->isChecked());
    QCOMPARE(bench.row(bench.tree(u"lstContactsSent"_s), 0).data().toString(), u"Ann Lee"_s);
    bench.press(Qt::Key_Down);
    bench.press(Qt::Key_Down);
    QCOMPARE(bench.line(u"txtFileName"_s)->text(), u"c.pdf"_s);
    QVERIFY(bench.tree(u"lstContactsSent"_s)->isEmpty());
    // Coming back from another tab finds the document as it was left.
    bench.press(Qt::Key_1, Qt::ControlModifier);
    bench.press(Qt::Key_4, Qt::ControlModifier);
    QCOMPARE(bench.line(u"txtFileName"_s)->text(), u"c.pdf"_s);
    QCOMPARE(bench.tree()->currentIndex().data().toString(), u"c.pdf"_s);
}

void TestDocumentView::fieldIsSavedBeforeAnotherDocumentIsShown()
{
    DocumentWindow bench({u"a.pdf"_s, u"b.pdf"_s});
    bench.click(bench.tree(), 0);
    bench.enter(u"txtDocNotes"_s);
    bench.type(u"one\ntwo"_s);
    bench.click(bench.tree(), 1);
    QCOMPARE(bench.cells(u"Select Document,Notes from Document"_s), u"a.pdf|one\r\ntwo;b.pdf|"_s);
    QVERIFY(bench.find<QPlainTextEdit>(u"txtDocNotes"_s)->toPlainText().isEmpty());
}

void TestDocumentView::optionAndBoxAreStoredAsTheyAreClicked()
{
    DocumentWindow bench({u"a.pdf"_s, u"b.pdf"_s});
    bench.click(bench.tree(), 1);
    QTest::mouseClick(bench.find<QRadioButton>(u"opt4"_s), Qt::LeftButton, {}, {5, 8});
    QCOMPARE(bench.cells(u"Select Type from Document"_s), u"Cover;Sample"_s);
    QCOMPARE(bench.tree()->currentIndex().data().toString(), u"b.pdf"_s);
    bench.press(Qt::Key_Escape); // an option has no text to give back
    QVERIFY(bench.find<QRadioButton>(u"opt4"_s)->isChecked());
    bench.find<QCheckBox>(u"chkStyle11"_s)->setFocus();
    bench.press(Qt::Key_Space);
    QCOMPARE(bench.cells(u"Select Style from Document"_s), u"000000000000;000000000001"_s);
    QCOMPARE(bench.cells(u"Select Type from Document"_s), u"Cover;Sample"_s);
    bench.click(bench.tree(), 0);
    QVERIFY(bench.find<QRadioButton>(u"opt2"_s)->isChecked());
    QVERIFY(!bench.find<QCheckBox>(u"chkStyle11"_s)->isChecked());
}

void TestDocumentView::choosingAFileClearsTheOptions()
{
    DocumentWindow bench({u"a.pdf"_s});
    bench.click(bench.tree(), 0);
    QTest::mouseClick(bench.find<QCheckBox>(u"chkStyle3"_s), Qt::LeftButton, {}, {5, 8});
    bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, bench.makeFile(u"new.txt"_s));
    bench.push(u"cmdLoadDocument"_s);
    for (const QChar number : u"12345"_s)
        QVERIFY(!bench.find<QRadioButton>(QString(u"opt"_s + number))->isChecked());
    QVERIFY(!bench.find<QCheckBox>(u"chkStyle3"_s)->isChecked());
    QVERIFY(!bench.tree()->currentIndex().isValid());
    // The options are a group still: one goes out when another is chosen.
    QTest::mouseClick(bench.find<QRadioButton>(u"opt3"_s), Qt::LeftButton, {}, {5, 8});
    QTest::mouseClick(bench.find<QRadioButton>(u"opt5"_s), Qt::LeftButton, {}, {5, 8});
    QVERIFY(!bench.find<QRadioButton>(u"opt3"_s)->isChecked());
    QCOMPARE(bench.cells(u"Select Type,Style from Document"_s), u"Cover|000100000000"_s);
}

void TestDocumentView::fileNotYetAddedSurvivesAVisitToTheList()
{
    DocumentWindow bench({u"a.pdf"_s});
    bench.drop({QUrl::fromLocalFile(bench.makeFile(u"new.pdf"_s))}, Qt::CopyAction);
    bench.enter(u"txtVersion"_s);
    bench.type(u"5"_s);
    bench.find<QPlainTextEdit>(u"txtDocNotes"_s)->setFocus();
    bench.press(Qt::Key_Tab); // the list takes its root as current
    QVERIFY(bench.tree()->hasFocus());
    QCOMPARE(bench.line(u"txtFileName"_s)->text(), u"new.pdf"_s);
    bench.push(u"cmdAddDoc1"_s);
    QCOMPARE(bench.cells(u"Select Document,Version from Document"_s), u"a.pdf|1.0;new.pdf|5"_s);
}

void TestDocumentView::droppedFileIsTakenButNeverMoved_data()
{
    QTest::addColumn<QString>("url"); // empty: a file of this machine
    QTest::addColumn<int>("possible");
    QTest::addColumn<int>("taken");
    QTest::newRow("copy or move") << QString() << int(Qt::CopyAction | Qt::MoveAction) << int(Qt::CopyAction);
    QTest::newRow("link") << QString() << int(Qt::LinkAction | Qt::CopyAction) << int(Qt::LinkAction);
    QTest::newRow("move only") << QString() << int(Qt::MoveAction) << int(Qt::IgnoreAction);
    QTest::newRow("web page") << u"https://a.example/cv.pdf"_s << int(Qt::CopyAction)
                              << int(Qt::IgnoreAction);
}

void TestDocumentView::droppedFileIsTakenButNeverMoved()
{
    QFETCH(QString, url);
    QFETCH(int, possible);
    QFETCH(int, taken);
    DocumentWindow bench;
    const QUrl dropped = url.isEmpty() ? QUrl::fromLocalFile(bench.makeFile(u"cv.pdf"_s)) : QUrl(url);
    QCOMPARE(int(bench.drop({dropped}, Qt::DropActions(possible))), taken);
    QCOMPARE(bench.line(u"txtFileName"_s)->text(), taken ? u"cv.pdf"_s : QString());
    QCOMPARE(bench.rows(u"Document"_s), 0);
}

void TestDocumentView::removalLeavesNothingSelected()
{
    DocumentWindow bench({u"a.pdf"_s, u"b.pdf"_s});
    bench.click(bench.tree(), 0);
    bench.press(Qt::Key_M, Qt::AltModifier);
    QTRY_COMPARE(bench.cells(u"Select Document from Document"_s), u"b.pdf"_s);
    QVERIFY(!bench.tree()->currentIndex().isValid());
    QVERIFY(bench.line(u"txtFileName"_s)->text().isEmpty());
    bench.world.prompts.expect(u"Please select a document to remove."_s);
    bench.push(u"cmdRemoveDoc1"_s);
    QCOMPARE(bench.rows(u"Document"_s), 1);
}

void TestDocumentView::doubleClickOnContactOpensIt()
{
    DocumentWindow bench({u"a.pdf"_s});
    bench.click(bench.tree(), 0);
    bench.doubleClick(bench.tree(u"lstContactsSent"_s), 0);
    QCOMPARE(bench.tab(), u"Contact"_s);
    QCOMPARE(bench.selector()->currentText(), u"Acme"_s);
}

QTEST_MAIN(TestDocumentView)
#include "tst_documentview.moc"
