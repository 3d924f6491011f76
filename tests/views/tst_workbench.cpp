// The workbench's window with keys and mouse on a real store.
#include "support/table.h"
#include "views/windowbench.h"

#include <QPlainTextEdit>
#include <QSplitter>
#include <QToolBar>
#include <QTreeView>

namespace {

/// A window with Acme chosen.
class AcmeWindow : public WindowBench
{
public:
    AcmeWindow()
    {
        addContact(u"Ann"_s, u"Lee"_s, addCompany(u"Acme"_s));
        run(u"Insert into Position(Title,CompanyKey) Values('Buyer',1)"_s);
        open();
        WindowBench::find(u"acme"_s, Qt::Key_Return);
    }
};

} // namespace

class TestWorkbench : public QObject
{
    Q_OBJECT

private slots:
    void enterInSelectorTakesBestMatch_data()
    {
        columns<QString, QString>("typed", "chosen");
        QTest::newRow("same name before longer one") << u"data"_s << u"Data"_s;
        QTest::newRow("beginning before word") << u"north"_s << u"Northmoor"_s;
        QTest::newRow("word before middle") << u"ware"_s << u"Blue Ware"_s;
        QTest::newRow("anywhere") << u"tware ho"_s << u"Software House"_s;
        QTest::newRow("other alphabet") << u"ößling"_s << u"Größling"_s;
    }
    void enterInSelectorTakesBestMatch()
    {
        FETCH(QString, typed, chosen);
        WindowBench bench;
        for (const auto& name : {u"Big Data North"_s, u"Data"_s, u"Northmoor"_s, u"Software House"_s,
                                 u"Blue Ware"_s, u"Größling"_s})
            bench.addCompany(name);
        bench.open();
        bench.find(typed, Qt::Key_Return);
        QCOMPARE(bench.frm->selection().selectedCompanyName(), chosen);
        QCOMPARE(bench.selector()->currentText(), chosen);
        QCOMPARE(bench.line(u"txtTitle"_s)->text(), chosen);
    }

    void textOfNoCompanyIsToldAndGivesWay()
    {
        WindowBench bench;
        bench.addCompany(u"Acme"_s);
        bench.open();
        bench.find(u"Acme"_s, Qt::Key_Return);
        bench.find(u"zzz"_s, Qt::Key_Return);
        QVERIFY(bench.find<QLabel>(u"lblNoMatch"_s)->text().contains(u"zzz"_s));
        QCOMPARE(bench.line(u"txtTitle"_s)->text(), u"Acme"_s);
        bench.press(Qt::Key_Tab);
        QCOMPARE(bench.selector()->currentText(), u"Acme"_s);
        QVERIFY(bench.find<QLabel>(u"lblNoMatch"_s)->text().isEmpty());
    }

    void categoryFilterNarrowsTheSelector()
    {
        WindowBench bench;
        for (const auto& name : {u"Acme"_s, u"Bell Recruiters"_s, u"~ Recruiters ~"_s})
            bench.addCompany(name);
        bench.open();
        auto* filter = bench.find<QComboBox>(u"cmbCategory"_s);
        filter->setFocus();
        bench.press(Qt::Key_Down);
        QCOMPARE(filter->currentText(), u"Recruiters"_s);
        QVERIFY(!bench.selector()->companies().contains(u"Acme"_s));
        QVERIFY(bench.selector()->companies().contains(u"~ Recruiters ~"_s));
        QVERIFY(bench.selector()->companies().contains(u"Bell Recruiters"_s));
        bench.press(Qt::Key_Up);
        QVERIFY(bench.selector()->companies().contains(u"Acme"_s));
    }

    void escapeGivesBackAndShortcutSavesTheFieldBeingEdited()
    {
        AcmeWindow bench;
        bench.enter(u"txtIndustry"_s);
        bench.type(u"Wrong"_s);
        QCOMPARE(bench.find<QLabel>(u"proc"_s)->text(), u"Update Company"_s);
        bench.press(Qt::Key_Escape);
        QCOMPARE(bench.line(u"txtIndustry"_s)->text(), u"Tools"_s);
        bench.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(bench.line(u"txtIndustry"_s)->text(), u"Wrong"_s);
        bench.press(Qt::Key_Escape);
        bench.press(Qt::Key_Tab);
        QCOMPARE(bench.cells(u"Select Industry from Company"_s), u"Tools"_s);
        bench.enter(u"txtIndustry"_s);
        bench.type(u"Rails & Größe 漢"_s);
        bench.press(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(bench.cells(u"Select Industry from Company"_s), u"Rails & Größe 漢"_s);
        QVERIFY(!bench.find<QLabel>(u"proc"_s)->isVisible());
    }

    void newCompanyByKeyboardOnly()
    {
        WindowBench bench;
        bench.addCompany(u"Acme"_s);
        bench.open();
        bench.press(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtTitle"_s);
        bench.type(u"Kestrel Söhne"_s);
        bench.press(Qt::Key_Tab);
        bench.type(u"KS"_s);
        bench.press(Qt::Key_C, Qt::AltModifier);
        bench.type(u"Dayton"_s);
        bench.world.prompts.expect(u"Insert new Company?"_s, Answer::Yes);
        bench.press(Qt::Key_V, Qt::AltModifier);
        QTRY_VERIFY(bench.world.prompts.done());
        QCOMPARE(bench.cells(u"Select ShortName from Company where Name='Kestrel Söhne'"_s), u"KS"_s);
        QVERIFY(bench.selector()->companies().contains(u"Kestrel Söhne"_s));
        QVERIFY(bench.cells(u"Select City from Address"_s).contains(u"Dayton"_s));
    }

    void tabKeysAndDropDownOpenTheSameScreens()
    {
        AcmeWindow bench;
        const QStringList keys{u"Company"_s, u"Position"_s, u"Contact"_s, u"Document"_s, u"Pipeline"_s};
        for (qsizetype screen : {2, 4, 1, 3, 0}) {
            bench.press(static_cast<Qt::Key>(Qt::Key_1 + screen), Qt::ControlModifier);
            QCOMPARE(bench.tab(), keys.at(screen));
            for (const QString& key : keys)
                QCOMPARE(bench.find<QWidget>(u"frme"_s + key)->isVisible(), key == keys.at(screen));
        }
        bench.find<QAction>(u"tbar_document"_s)->trigger();
        QCOMPARE(bench.tab(), u"Document"_s);
    }

    void missingToolsAreDisabledAndSayWhy()
    {
        WindowBench bench;
        bench.navigator.hasAll = false;
        bench.addCompany(u"Acme"_s);
        bench.open();
        bench.find(u"acme"_s, Qt::Key_Return);
        for (const Qt::Key tab : {Qt::Key_2, Qt::Key_3})
            bench.press(tab, Qt::ControlModifier);
        for (const auto& name :
             {u"tbar_events"_s, u"tbar_goals"_s, u"Uprofile"_s, u"ToolsOptions"_s, u"PrintReport"_s}) {
            const auto* action = bench.find<QAction>(name);
            QVERIFY2(!action->isEnabled(), qPrintable(name));
            QVERIFY2(action->toolTip().contains(u"not part of this version"_s), qPrintable(name));
        }
        // Choosing a company turns its controls on, but not those whose screens are missing.
        for (const auto& name : {u"cmdProfile1"_s, u"cmdHistory1"_s, u"cmdJProfile1"_s}) {
            QVERIFY2(!bench.find<QPushButton>(name)->isEnabled(), qPrintable(name));
            QVERIFY2(!bench.find<QPushButton>(name)->toolTip().isEmpty(), qPrintable(name));
        }
        for (const auto& name :
             {u"tbar_new"_s, u"FileExport"_s, u"RestoreData"_s, u"FilePrint"_s, u"FileExit"_s})
            QVERIFY2(bench.find<QAction>(name)->isEnabled(), qPrintable(name));
    }

    void presentToolOpensItsScreen()
    {
        WindowBench bench;
        bench.open();
        for (const auto& name : {u"tbar_events"_s, u"Events"_s, u"ActionPlan"_s})
            bench.find<QAction>(name)->trigger();
        QCOMPARE(bench.navigator.opened, (QStringList{u"FrmEvCal"_s, u"FrmEvCal"_s, u"FrmActionPlan"_s}));
    }

    void doubleClickOnTreeOpensItsScreen()
    {
        AcmeWindow bench;
        auto* tree = bench.find<QTreeView>(u"tvwPosContact"_s);
        const QModelIndex contact = tree->model()->index(0, 0, tree->model()->index(0, 0));
        QCOMPARE(contact.data().toString(), u"Ann Lee"_s);
        const QPoint place = tree->visualRect(contact).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(bench.tab(), u"Company"_s);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(bench.tab(), u"Contact"_s);
    }

    void webButtonOpensOnePageOnDoubleClick()
    {
        AcmeWindow bench;
        bench.enter(u"txtURL1"_s);
        bench.type(u"www.acme.example"_s);
        auto* button = bench.find<QWidget>(u"lblURL1"_s);
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::mouseDClick(button, Qt::LeftButton);
        QCOMPARE(bench.world.desktop.opened, QStringList{u"www.acme.example"_s});
    }

    void sizeAndSplitterComeBack()
    {
        WindowBench bench;
        bench.open();
        bench.window->resize(790, 700);
        bench.find<QSplitter>(u"splCompany"_s)->setSizes({400, 600});
        const QList<int> sizes = bench.find<QSplitter>(u"splCompany"_s)->sizes();
        bench.window->close();
        QSettings layout(bench.layoutPath, QSettings::IniFormat);
        bench.layout->sync();
        Bench second;
        second.frm->load();
        WorkbenchWindow window(*second.frm, layout);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(window.size(), QSize(790, 700));
        QCOMPARE(window.findChild<QSplitter*>(u"splCompany"_s)->sizes(), sizes);
    }

    void closingWritesFieldAndUsage()
    {
        AcmeWindow bench;
        bench.enter(u"txtIndustry"_s);
        bench.type(u"Rails"_s);
        bench.press(Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!bench.window->isVisible());
        bench.window.reset();
        bench.frm.reset();
        bench.world.restart();
        QCOMPARE(bench.cells(u"Select Industry from Company"_s), u"Rails"_s);
        QVERIFY(!bench.cells(u"Select StatusValue from Status where StatusDescription='MinLog'"_s).isEmpty());
    }

    void inputDuringImportDoesNotReachTheWorkbench()
    {
        AcmeWindow bench;
        const auto* remove = bench.find<QPushButton>(u"cmdRemove1"_s);
        const QPoint place = remove->mapTo(bench.window.get(), remove->rect().center());
        emit bench.frm->importProgress(true);
        // No question comes, now or when the import is over: the scripted answers hold none.
        QTest::mouseClick(bench.window->windowHandle(), Qt::LeftButton, {}, place);
        QVERIFY(!bench.window->close());
        emit bench.world.session->progressChanged(3, 9);
        emit bench.frm->importProgress(false);
        QCOMPARE(bench.rows(u"Company"_s), 1);
        QVERIFY(bench.window->close());
    }
};

QTEST_MAIN(TestWorkbench)
#include "tst_workbench.moc"
