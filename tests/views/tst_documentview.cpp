// The Document screen in the workbench's window, with keys and mouse on a real store.
#include "support/runtest.h"
#include "support/table.h"
#include "views/common/kindtree.h"
#include "views/windowbench.h"

#include <QDateEdit>
#include <QDropEvent>
#include <QMimeData>
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
        open();
        press(Qt::Key_4, Qt::ControlModifier);
    }
    KindTree* tree() { return find<KindTree>(u"tvwDocs"_s); }
    /// Clicks the document of a row, from 0; answers where.
    QPoint choose(int row)
    {
        const QModelIndex index = tree()->model()->index(row, 0, tree()->model()->index(0, 0));
        tree()->scrollTo(index);
        const QPoint place = tree()->visualRect(index).center();
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, place);
        return place;
    }
    QString makeFile(const QString& name)
    {
        QFile file(world.folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write("content") < 0)
            QTest::qFail(qPrintable(name), __FILE__, __LINE__);
        return file.fileName();
    }
    /// What the list makes of a drop; the action it took, or none.
    Qt::DropAction drop(const QUrl& url, Qt::DropActions possible)
    {
        QMimeData data;
        data.setUrls({url});
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
    void listMarksTheDocumentThatTheUserStaysWith()
    {
        DocumentWindow bench({u"a.pdf"_s, u"b.pdf"_s});
        bench.choose(0);
        const auto marked = [&] {
            const QModelIndexList rows = bench.tree()->selectionModel()->selectedIndexes();
            return rows.isEmpty() ? QString() : rows.first().data().toString();
        };
        const auto saved = [&] { return bench.cells(u"Select Path from Document order by ResumeKey"_s); };
        bench.enter(u"txtPath"_s, u"/moved"_s);
        bench.world.prompts.expect(u"The changes to the document \"a.pdf\""_s, Answer::Cancel);
        bench.choose(1);
        QTRY_COMPARE(marked(), u"a.pdf"_s);
        QCOMPARE(bench.text(u"txtPath"_s), u"/moved"_s);
        // A save writes the whole list anew under the click.
        bench.world.prompts.expect(u"The changes to the document \"a.pdf\""_s, Answer::Yes);
        bench.choose(1);
        QTRY_COMPARE(marked(), u"b.pdf"_s);
        QCOMPARE(bench.text(u"txtFileName"_s), u"b.pdf"_s);
        QCOMPARE(saved(), u"/moved;/files/b.pdf"_s);
    }

    void chosenFileIsAddedOnceViewedAndNeverTouched()
    {
        DocumentWindow bench({u"a.pdf"_s});
        bench.choose(0);
        const QString path = bench.makeFile(u"Ann's cv.pdf"_s);
        const QDateTime changed = QFileInfo(path).lastModified();
        bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, path);
        bench.press(Qt::Key_L, Qt::AltModifier);
        // A button's letter presses it for a while.
        QTRY_COMPARE(bench.text(u"txtFileName"_s), u"Ann's cv.pdf"_s);
        QCOMPARE(bench.find<QDateEdit>(u"dtpEntry"_s)->date(), QDate::currentDate());
        QVERIFY(bench.text(u"txtVersion"_s).isEmpty() && !bench.find<QRadioButton>(u"opt2"_s)->isChecked());
        QCOMPARE(bench.data().getStatusValue(u"DocumentDirectory"_s), bench.world.folder.path());
        bench.enter(u"txtVersion"_s, u"3.2"_s);
        bench.press(Qt::Key_A, Qt::AltModifier);
        const QString both = u"a.pdf|1.0|Cover;Ann`s cv.pdf|3.2|Resume"_s;
        QTRY_COMPARE(bench.cells(u"Select Document,Version,Type from Document"_s), both);
        QCOMPARE(bench.tree()->currentIndex().data().toString(), u"Ann`s cv.pdf"_s);
        QVERIFY(bench.find<QRadioButton>(u"opt1"_s)->isChecked());
        for (const QString& again : {path, bench.makeFile(u"ANN`S CV.PDF"_s)}) {
            bench.drop(QUrl::fromLocalFile(again), Qt::CopyAction);
            bench.expect(u"Document already in list."_s);
            bench.click(u"cmdAddDoc1"_s);
        }
        // The stored path holds a backquote, and the file with the apostrophe is found all the same.
        bench.choose(1);
        bench.press(Qt::Key_V, Qt::AltModifier);
        QTRY_COMPARE(bench.world.desktop.opened, QStringList{path});
        QTest::mouseDClick(bench.tree()->viewport(), Qt::LeftButton, {}, bench.choose(1));
        QCOMPARE(bench.world.desktop.opened, (QStringList{path, path}));
        bench.click(u"cmdRemoveDoc1"_s);
        QCOMPARE(bench.cells(u"Select Document from Document"_s), u"a.pdf"_s);
        QCOMPARE(bench.world.fileText(u"Ann's cv.pdf"_s), u"content"_s);
        QCOMPARE(QFileInfo(path).lastModified(), changed);
    }

    void fieldIsSavedBeforeAnotherDocumentIsShown()
    {
        DocumentWindow bench({u"a.pdf"_s, u"b.pdf"_s});
        bench.choose(0);
        bench.enter(u"txtDocNotes"_s, u"one\ntwo"_s);
        bench.choose(1);
        QCOMPARE(bench.cells(u"Select Document,Notes from Document"_s), u"a.pdf|one\r\ntwo;b.pdf|"_s);
        QVERIFY(bench.text(u"txtDocNotes"_s).isEmpty());
    }

    void fileNotYetAddedSurvivesAVisitToTheList()
    {
        DocumentWindow bench({u"a.pdf"_s});
        bench.drop(QUrl::fromLocalFile(bench.makeFile(u"new.pdf"_s)), Qt::CopyAction);
        bench.enter(u"txtVersion"_s, u"5"_s);
        bench.find(u"txtDocNotes"_s)->setFocus();
        bench.press(Qt::Key_Tab); // the list takes its root as current
        QVERIFY(bench.tree()->hasFocus());
        QCOMPARE(bench.text(u"txtFileName"_s), u"new.pdf"_s);
        bench.click(u"cmdAddDoc1"_s);
        QCOMPARE(bench.cells(u"Select Document,Version from Document"_s), u"a.pdf|1.0;new.pdf|5"_s);
    }

    void droppedFileIsTakenButNeverMoved_data()
    {
        columns<QString, int, int>("url", "possible", "taken"); // no url: a file of this machine
        const int copyOrMove = Qt::CopyAction | Qt::MoveAction;
        QTest::newRow("copy or move") << QString() << copyOrMove << int(Qt::CopyAction);
        QTest::newRow("link") << QString() << int(Qt::LinkAction | Qt::CopyAction) << int(Qt::LinkAction);
        QTest::newRow("move only") << QString() << int(Qt::MoveAction) << int(Qt::IgnoreAction);
        QTest::newRow("web page") << u"https://a.example/cv.pdf"_s << copyOrMove << int(Qt::IgnoreAction);
    }
    void droppedFileIsTakenButNeverMoved()
    {
        QFETCH(QString, url);
        FETCH(int, possible, taken);
        DocumentWindow bench;
        const QUrl dropped = url.isEmpty() ? QUrl::fromLocalFile(bench.makeFile(u"cv.pdf"_s)) : QUrl(url);
        QCOMPARE(int(bench.drop(dropped, Qt::DropActions(possible))), taken);
        QCOMPARE(bench.text(u"txtFileName"_s), taken ? u"cv.pdf"_s : QString());
        QCOMPARE(bench.rows(u"Document"_s), 0);
    }
};

JOBWRIGHT_TEST(TestDocumentView)
#include "tst_documentview.moc"
