// Finding and reporting in the windows, with keys.
#include "output/findanything.h"
#include "program/finddesk.h"
#include "support/runtest.h"
#include "views/output/findlist.h"
#include "views/output/findview.h"
#include "views/windowbench.h"

#include <QClipboard>
#include <QPlainTextEdit>
#include <QTreeView>

#include <optional>

namespace {

class OutputBench : public WindowBench
{
public:
    OutputBench()
    {
        const Key acme = addCompany(u"Acme"_s);
        addContact(u"Ann"_s, u"Lee"_s, acme);
        addContact(u"Bob"_s, u"Stone"_s, addCompany(u"Birch"_s));
        run(u"Update Contact set Notes='met at the Étoile fair' where ContactKey=2"_s);
        open();
        desk.emplace(presenters->find, *window);
    }
    /// Opens the box over the window in front; @p act is what the user does in it.
    void inFind(const std::function<void()>& act)
    {
        inDialog(act, [this] { desk->open(); });
    }
    bool finds(const QString& text)
    {
        return QTest::qWaitFor([&] {
            const auto& list = presenters->find.results();
            return !presenters->find.isSearching() && list.rowCount() > 1 &&
                   list.index(1, 0).data().toString().contains(text);
        });
    }

    std::optional<FindDesk> desk;
};

} // namespace

class TestOutputViews : public QObject
{
    Q_OBJECT

private slots:
    void findOpensTheRecordByKeys()
    {
        OutputBench bench;
        bench.inFind([&] {
            bench.type(u"etoile"_s);
            QVERIFY(bench.finds(u"Bob Stone"_s));
            const QModelIndex hit = bench.presenters->find.results().index(1, 0);
            QCOMPARE(hit.data(FindModel::PlaceRole).toString(), u"Notes"_s);
            QCOMPARE(hit.data(FindModel::ExcerptMarksRole).toList(), QVariantList({11, 6}));
            bench.press(Qt::Key_Down); // there is no further one
            bench.press(Qt::Key_Return);
        });
        QTRY_COMPARE(bench.selection().currentContactKey, Key{2});
        QCOMPARE(bench.tab(), u"Contact"_s);
        QCOMPARE(bench.selection().selectedCompanyName(), u"Birch"_s);
    }

    void findWithoutWordsListsWhoIsDue()
    {
        OutputBench bench;
        bench.inFind([&] {
            QVERIFY(bench.finds(u"Ann Lee"_s));
            QVERIFY(bench.presenters->find.results().index(0, 0).data().toString().startsWith(
                u"Due for a word (2)"_s));
            bench.type(u"%nothing like that%"_s);
            QTRY_COMPARE(bench.presenters->find.status(), u"Nothing found."_s);
            bench.press(Qt::Key_Escape);
        });
        QCOMPARE(bench.selection().currentContactKey, Key{0});
    }

    void keySearchStandsBesideTheWindow()
    {
        OutputBench bench;
        bench.navigator.open(u"FrmKeySearch"_s);
        auto* view = bench.window->findChild<QDialog*>(u"frmKeySearch"_s);
        QVERIFY(view && !view->isModal());
        bench.use(*view);
        // Without a window manager the workbench, shown first, keeps the keyboard.
        QApplication::setActiveWindow(view);
        bench.write(u"txtSearch"_s, u"LEE"_s);
        bench.click(u"Image1"_s);
        auto* tree = bench.find<QTreeView>(u"tvwFound"_s);
        QTRY_COMPARE(tree->currentIndex().data().toString(), u"Ann Lee#1"_s);
        QCOMPARE(bench.text(u"txtReturn"_s), u"1"_s);
        bench.press(Qt::Key_Return);
        QTRY_COMPARE(bench.selection().currentContactKey, Key{1});
        bench.navigator.open(u"FrmKeySearch"_s);
        QCOMPARE(bench.window->findChildren<QDialog*>(u"frmKeySearch"_s).size(), 1);
    }

    void reportIsReadAndCopiedAsItIs()
    {
        OutputBench bench;
        bench.inDialog(
            [&] {
                QTest::mouseClick(bench.find(u"imgPosition1"_s), Qt::LeftButton);
                QTest::mouseClick(bench.find(u"imgContact1"_s), Qt::LeftButton);
                QCOMPARE(bench.text(u"Label1"_s), u"Contact Report"_s);
                QCOMPARE(bench.text(u"lblPages"_s), u"Pages: 1"_s);
                auto* text = bench.find<QPlainTextEdit>(u"rtfReport"_s);
                text->setFocus();
                text->selectAll();
                text->copy();
                const QString copied = QApplication::clipboard()->text();
                QVERIFY(copied.contains(u"Notes:met at"_s) && !copied.contains(QChar(0x200B)));
                QVERIFY(text->isReadOnly());
                bench.press(Qt::Key_Escape);
            },
            [&] { bench.navigator.open(u"FrmReport"_s); });
    }
};

JOBWRIGHT_TEST(TestOutputViews)
#include "tst_outputviews.moc"
