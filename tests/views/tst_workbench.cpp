// The workbench's window with keys and mouse on a real store.
#include "views/windowbench.h"

#include <QPlainTextEdit>
#include <QSplitter>
#include <QToolBar>
#include <QTreeView>

class TestWorkbench : public QObject
{
    Q_OBJECT

private slots:
    void enterInSelectorTakesBestMatch_data();
    void enterInSelectorTakesBestMatch();
    void textOfNoCompanyIsToldAndGivesWay();
    void categoryFilterNarrowsTheSelector();
    void fieldLeftIsInTheStore_data();
    void fieldLeftIsInTheStore();
    void escapeGivesBackWhatTheFieldHeld();
    void shortcutSavesTheFieldBeingEdited();
    void newCompanyByKeyboardOnly();
    void changedAddressIsStoredByTheSaveButton();
    void removalHangsOnItsQuestion_data();
    void removalHangsOnItsQuestion();
    void categoryCannotBeEditedAsCompany();
    void tabWithoutCompanyFallsBack();
    void tabKeysAndDropDownOpenTheSameScreens();
    void ctrlSSaysSoAndSavesNothing();
    void missingToolsAreDisabledAndSayWhy();
    void presentToolOpensItsScreen_data();
    void presentToolOpensItsScreen();
    void doubleClickOnTreeOpensItsScreen();
    void webButtonOpensOnePageOnDoubleClick();
    void sizeAndSplitterComeBack();
    void closingWritesFieldAndUsage();
    void inputDuringImportDoesNotReachTheWorkbench();
};

void TestWorkbench::enterInSelectorTakesBestMatch_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("same name before longer one") << u"data"_s << u"Data"_s;
    QTest::newRow("beginning before word") << u"north"_s << u"Northmoor"_s;
    QTest::newRow("word before middle") << u"ware"_s << u"Blue Ware"_s;
    QTest::newRow("anywhere") << u"tware ho"_s << u"Software House"_s;
    QTest::newRow("other alphabet") << u"ößling"_s << u"Größling"_s;
}

void TestWorkbench::enterInSelectorTakesBestMatch()
{
    QFETCH(QString, typed);
    QFETCH(QString, chosen);
    WindowBench bench;
    for (const auto& name :
         {u"Big Data North"_s, u"Data"_s, u"Northmoor"_s, u"Software House"_s, u"Blue Ware"_s, u"Größling"_s})
        bench.addCompany(name);
    bench.open();
    bench.find(typed, Qt::Key_Return);
    QCOMPARE(bench.frm->selection().selectedCompanyName(), chosen);
    QCOMPARE(bench.selector()->currentText(), chosen);
    QCOMPARE(bench.line(u"txtTitle"_s)->text(), chosen);
}

void TestWorkbench::textOfNoCompanyIsToldAndGivesWay()
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

void TestWorkbench::categoryFilterNarrowsTheSelector()
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

void TestWorkbench::fieldLeftIsInTheStore_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("short name") << u"txtShort"_s << u"ShortName"_s << u"AC"_s << u"AC"_s;
    QTest::newRow("apostrophe") << u"txtIndustry"_s << u"Industry"_s << u"Tools 'n' toys"_s
                                << u"Tools `n` toys"_s;
    QTest::newRow("other alphabet") << u"txtIndustry"_s << u"Industry"_s << u"Größe & 漢字"_s
                                    << u"Größe & 漢字"_s;
    QTest::newRow("two lines") << u"txtCompanyNotes"_s << u"Notes"_s << u"one\ntwo"_s << u"one\r\ntwo"_s;
    QTest::newRow("statement") << u"txtCompanyNotes"_s << u"Notes"_s << u"'); Delete * from Company; --"_s
                               << u"`); Delete * from Company; --"_s;
    QTest::newRow("emptied") << u"txtCompanyNotes"_s << u"Notes"_s << QString() << QString();
}

void TestWorkbench::fieldLeftIsInTheStore()
{
    QFETCH(QString, control);
    QFETCH(QString, column);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    bench.enter(control);
    bench.type(typed);
    QVERIFY(bench.find<QLabel>(u"proc"_s)->isVisible());
    QCOMPARE(bench.find<QLabel>(u"proc"_s)->text(), u"Update Company"_s);
    bench.press(Qt::Key_Tab);
    QCOMPARE(bench.cells(u"Select "_s + column + u" from Company"), stored);
    QVERIFY(!bench.find<QLabel>(u"proc"_s)->isVisible());
}

void TestWorkbench::escapeGivesBackWhatTheFieldHeld()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    bench.enter(u"txtIndustry"_s);
    bench.type(u"Wrong"_s);
    bench.press(Qt::Key_Escape);
    QCOMPARE(bench.line(u"txtIndustry"_s)->text(), u"Tools"_s);
    bench.press(Qt::Key_Tab);
    QCOMPARE(bench.cells(u"Select Industry from Company"_s), u"Tools"_s);
}

void TestWorkbench::shortcutSavesTheFieldBeingEdited()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    bench.enter(u"txtIndustry"_s);
    bench.type(u"Rails"_s);
    bench.press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(bench.cells(u"Select Industry from Company"_s), u"Rails"_s);
}

void TestWorkbench::newCompanyByKeyboardOnly()
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

void TestWorkbench::changedAddressIsStoredByTheSaveButton()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    bench.enter(u"txtAddress"_s);
    bench.type(u"7 Mill Lane\nSuite 2"_s);
    bench.press(Qt::Key_Tab);
    QCOMPARE(bench.data().getCount(u"Address"_s, true), Key(1));
    QTest::mouseClick(bench.find<QPushButton>(u"cmdUpdate1"_s), Qt::LeftButton);
    QVERIFY(bench.cells(u"Select Address1,Address2 from Address"_s).contains(u"7 Mill Lane|Suite 2"_s));
    QCOMPARE(bench.line(u"txtTitle"_s)->text(), u"Acme"_s);
}

void TestWorkbench::removalHangsOnItsQuestion_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<int>("left");
    QTest::newRow("Yes") << Answer::Yes << 1;
    QTest::newRow("No") << Answer::No << 2;
}

void TestWorkbench::removalHangsOnItsQuestion()
{
    QFETCH(Answer, answer);
    QFETCH(int, left);
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.addCompany(u"Bell"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    bench.world.prompts.expect(u"completely remove this COMPANY"_s, answer);
    QTest::mouseClick(bench.find<QPushButton>(u"cmdRemove1"_s), Qt::LeftButton);
    QCOMPARE(bench.rows(u"Company"_s), left);
    QCOMPARE(bench.selector()->companies().contains(u"Acme"_s), left == 2);
    QCOMPARE(bench.line(u"txtTitle"_s)->text(), left == 2 ? u"Acme"_s : QString());
}

void TestWorkbench::categoryCannotBeEditedAsCompany()
{
    WindowBench bench;
    bench.addCompany(u"~ Alumni ~"_s);
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"alumni"_s, Qt::Key_Return);
    QVERIFY(!bench.line(u"txtCity"_s)->isEnabled());
    QVERIFY(!bench.find<QWidget>(u"imgPosition"_s)->isEnabled());
    QCOMPARE(bench.find<QLabel>(u"Label45"_s)->text().remove(u'&'), u"Category"_s);
    bench.world.prompts.expect(u"You cannot modify categories from this screen."_s);
    QTest::mouseClick(bench.find<QPushButton>(u"cmdUpdate1"_s), Qt::LeftButton);
    bench.find(u"acme"_s, Qt::Key_Return);
    QVERIFY(bench.line(u"txtCity"_s)->isEnabled());
    QCOMPARE(bench.find<QLabel>(u"Label45"_s)->text().remove(u'&'), u"Company"_s);
}

void TestWorkbench::tabWithoutCompanyFallsBack()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.world.prompts.expect(u"Please select a company before viewing positions."_s);
    bench.press(Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(bench.tab(), u"Company"_s);
    QVERIFY(bench.find<QWidget>(u"frmeCompany"_s)->isVisible());
    QCOMPARE(bench.find<QLabel>(u"proc"_s)->text(), u"<Unassigned> Selected."_s);
}

void TestWorkbench::tabKeysAndDropDownOpenTheSameScreens()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.run(u"Insert into Position(Title,CompanyKey) Values('Buyer',1)"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
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

void TestWorkbench::ctrlSSaysSoAndSavesNothing()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    bench.enter(u"txtIndustry"_s);
    bench.type(u"Rails"_s);
    bench.world.prompts.expect(u"CTRL-S"_s);
    bench.press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(bench.world.prompts.done());
    QCOMPARE(bench.cells(u"Select Industry from Company"_s), u"Tools"_s);
}

void TestWorkbench::missingToolsAreDisabledAndSayWhy()
{
    WindowBench bench;
    bench.navigator.hasAll = false;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    for (const auto& name :
         {u"tbar_events"_s, u"tbar_goals"_s, u"Uprofile"_s, u"ToolsOptions"_s, u"PrintReport"_s}) {
        const auto* action = bench.find<QAction>(name);
        QVERIFY2(!action->isEnabled(), qPrintable(name));
        QVERIFY2(action->toolTip().contains(u"not part of this version"_s), qPrintable(name));
    }
    // Choosing a company turns its controls on, but not the one whose screen is missing.
    QVERIFY(!bench.find<QPushButton>(u"cmdProfile1"_s)->isEnabled());
    QVERIFY(!bench.find<QPushButton>(u"cmdProfile1"_s)->toolTip().isEmpty());
    for (const auto& name : {u"tbar_new"_s, u"FileExport"_s, u"RestoreData"_s, u"FilePrint"_s, u"FileExit"_s})
        QVERIFY2(bench.find<QAction>(name)->isEnabled(), qPrintable(name));
}

void TestWorkbench::presentToolOpensItsScreen_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("screen");
    QTest::newRow("toolbar") << u"tbar_events"_s << u"FrmEvCal"_s;
    QTest::newRow("menu") << u"Events"_s << u"FrmEvCal"_s;
    QTest::newRow("menu of another name") << u"ActionPlan"_s << u"FrmActionPlan"_s;
}

void TestWorkbench::presentToolOpensItsScreen()
{
    QFETCH(QString, action);
    QFETCH(QString, screen);
    WindowBench bench;
    bench.open();
    bench.find<QAction>(action)->trigger();
    QCOMPARE(bench.navigator.opened, QStringList{screen});
}

void TestWorkbench::doubleClickOnTreeOpensItsScreen()
{
    WindowBench bench;
    bench.addContact(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    auto* tree = bench.find<QTreeView>(u"tvwPosContact"_s);
    const QModelIndex contact = tree->model()->index(0, 0, tree->model()->index(0, 0));
    QCOMPARE(contact.data().toString(), u"Ann Lee"_s);
    const QPoint place = tree->visualRect(contact).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(bench.tab(), u"Company"_s);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(bench.tab(), u"Contact"_s);
}

void TestWorkbench::webButtonOpensOnePageOnDoubleClick()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
    bench.enter(u"txtURL1"_s);
    bench.type(u"www.acme.example"_s);
    auto* button = bench.find<QWidget>(u"lblURL1"_s);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseDClick(button, Qt::LeftButton);
    QCOMPARE(bench.world.desktop.opened, QStringList{u"www.acme.example"_s});
}

void TestWorkbench::sizeAndSplitterComeBack()
{
    WindowBench bench;
    bench.open();
    bench.window->resize(1000, 700);
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
    QCOMPARE(window.size(), QSize(1000, 700));
    QCOMPARE(window.findChild<QSplitter*>(u"splCompany"_s)->sizes(), sizes);
}

void TestWorkbench::closingWritesFieldAndUsage()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
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

void TestWorkbench::inputDuringImportDoesNotReachTheWorkbench()
{
    WindowBench bench;
    bench.addCompany(u"Acme"_s);
    bench.open();
    bench.find(u"acme"_s, Qt::Key_Return);
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

QTEST_MAIN(TestWorkbench)
#include "tst_workbench.moc"
