// The workbench's window with keys and mouse on a real store.
#include "desktop/endrequests.h"
#include "support/runtest.h"
#include "support/table.h"
#include "views/palettes.h"
#include "views/windowbench.h"
#include "workbench/positionscreen.h"

#include <QProgressBar>
#include <QSplitter>
#include <QToolBar>
#include <QTreeView>

#include <csignal>

namespace {

/// A window with Acme chosen.
class AcmeWindow : public WindowBench
{
public:
    AcmeWindow()
    {
        addContact(u"Ann"_s, u"Lee"_s, addCompany(u"Acme"_s));
        open();
        navigator.whileOpen = [] {}; // no other screen
        WindowBench::find(u"acme"_s, Qt::Key_Return);
    }
    QString industry() { return cells(u"Select Industry from Company"_s); }
};

} // namespace

class TestWorkbench : public QObject
{
    Q_OBJECT

private slots:
    void longReadShowsHowFarItIs()
    {
        WindowBench bench;
        for (const auto& name : {u"Acme"_s, u"Bolt"_s, u"Cord"_s})
            bench.addCompany(name);
        bench.run(u"Insert into Position(Title,CompanyKey) Values('Clerk',1)"_s);
        bench.open();
        const auto* bar = bench.find<QProgressBar>(u"pbarLoad"_s);
        QStringList places;
        connect(bench.frm, &FrmData::progressChanged, bar, [&] {
            places.append(bar->isVisible() ? u"%1/%2"_s.arg(bar->value()).arg(bar->maximum()) : u"gone"_s);
        });
        bench.frm->tabStrip1Click(u"Pipeline"_s);
        QCOMPARE(places.join(u' '), u"0/3 1/3 2/3 3/3 gone"_s);
    }

    void deletionIsTakenBackAndDoneAgain()
    {
        AcmeWindow bench;
        bench.run(u"Insert into Position(Title,CompanyKey) Values('Buyer',1)"_s);
        bench.frm->showOn(u"Position"_s, u"Buyer"_s);
        bench.click(u"cmdRemovePos1"_s);
        QVERIFY(bench.find<QLabel>(u"offer"_s)->text().contains(u"Deleted position Buyer. <a"_s));
        QVERIFY(bench.find<QLabel>(u"offer"_s)->isVisible());
        auto* tabs = bench.find<QTabBar>(u"TabStrip1"_s);
        const auto titles = [&] {
            return bench.frm->positionScreen().form().items(u"cmbPosSelection"_s).join(u',');
        };
        QCOMPARE(bench.find<QAction>(u"EditUndo"_s)->text(), u"&Undo \"delete of position Buyer\""_s);
        tabs->setFocus();
        bench.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(titles(), u"Buyer,<New>"_s);
        QVERIFY(!bench.find<QLabel>(u"offer"_s)->isVisible());
        tabs->setFocus();
        bench.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(titles(), u"<New>"_s);
        QCOMPARE(bench.cells(u"Select Title from Position"_s), QString());
    }

    void titleAndBarSayWhatIsSaved()
    {
        AcmeWindow bench;
        QVERIFY(bench.window->windowTitle().startsWith(u"Acme ("_s) &&
                bench.window->windowTitle().endsWith(u" — Jobwright[*]"_s));
        bench.enter(u"txtIndustry"_s, u"Rails"_s);
        QVERIFY(bench.window->isWindowModified());
        QCOMPARE(bench.text(u"saved"_s), u"Not saved: Industry"_s);
        bench.press(Qt::Key_Tab);
        QVERIFY(!bench.window->isWindowModified());
        QVERIFY(bench.text(u"saved"_s).startsWith(u"Saved "_s));
    }

    void enterInSelectorTakesBestMatch()
    {
        WindowBench bench;
        for (const auto& name : {u"Big Data North"_s, u"Data"_s, u"Northmoor"_s, u"Software House"_s,
                                 u"Blue Ware"_s, u"O`Hara"_s, u"Größling"_s})
            bench.addCompany(name);
        bench.open();
        // The same name before a longer one, a beginning before a word, a word before a middle, anywhere; an
        // apostrophe as it is typed.
        for (const QString& pair : {u"data=Data"_s, u"north=Northmoor"_s, u"ware=Blue Ware"_s,
                                    u"o'h=O`Hara"_s, u"tware ho=Software House"_s, u"ößling=Größling"_s}) {
            bench.find(pair.section(u'=', 0, 0), Qt::Key_Return);
            QCOMPARE(bench.frm->selection().selectedCompanyName(), pair.section(u'=', 1));
            QCOMPARE(bench.selector()->currentText(), pair.section(u'=', 1));
            QCOMPARE(bench.text(u"txtTitle"_s), pair.section(u'=', 1));
        }
        bench.find(u"zzz"_s, Qt::Key_Return);
        QVERIFY(bench.text(u"lblNoMatch"_s).contains(u"zzz"_s));
        QCOMPARE(bench.text(u"txtTitle"_s), u"Größling"_s);
        bench.press(Qt::Key_Tab);
        QCOMPARE(bench.selector()->currentText(), u"Größling"_s);
        QVERIFY(bench.text(u"lblNoMatch"_s).isEmpty());
    }

    void openingAScreenLeadsTheKeyboardIntoIt()
    {
        AcmeWindow bench;
        bench.world.prompts.expect(u"No Positions found in database."_s); // the pipeline's word
        const auto focus = [] {
            const QWidget* now = QApplication::focusWidget();
            return now->objectName().isEmpty() ? now->parentWidget()->objectName() : now->objectName();
        };
        const QStringList first{u"txtTitle"_s, u"cmbPosSelection"_s, u"cmbContacts"_s, u"txtFileName"_s,
                                u"txtFind"_s};
        auto* tabs = bench.find<QTabBar>(u"TabStrip1"_s);
        for (int tab : {4, 3, 2, 1, 0}) {
            QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center());
            QCOMPARE(focus(), first.at(tab));
        }
        bench.press(Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(focus(), first.at(1));
        bench.press(Qt::Key_F6);
        QCOMPARE(focus(), u"cmbSelection"_s);
        bench.press(Qt::Key_F6);
        QCOMPARE(focus(), first.at(1));
        // Along the tabs by arrow keys the keyboard stays with them.
        tabs->setFocus();
        bench.press(Qt::Key_Right);
        QCOMPARE(bench.tab(), u"Contact"_s);
        QCOMPARE(focus(), u"TabStrip1"_s);
    }

    void emptyCampaignSaysHowToBegin()
    {
        WindowBench bench;
        bench.open();
        bench.world.prompts.expect(u"No companies exist in your database.  Pipeline cannot be accessed."_s);
        bench.world.prompts.expect(u"Insert new Company?"_s, Answer::Yes);
        bench.press(Qt::Key_5, Qt::ControlModifier); // nothing to show, and yet the head stays in its place
        QVERIFY(bench.find(u"TabStrip1"_s)->mapTo(bench.window.get(), QPoint(0, 0)).y() <
                bench.window->height() / 2);
        bench.click(u"cmdBegin"_s);
        QCOMPARE(bench.tab(), u"Company"_s);
        bench.type(u"Acme"_s);
        bench.click(u"cmdUpdate1"_s);
        QCOMPARE(bench.cells(u"Select Name from Company"_s), u"Acme"_s);
        QVERIFY(!bench.find(u"pnlBegin"_s)->isVisible());
    }

    void categoryFilterNarrowsTheSelector()
    {
        WindowBench bench;
        for (const auto& name : {u"Acme"_s, u"Bell Recruiters"_s, u"~ Recruiters ~"_s})
            bench.addCompany(name);
        bench.open();
        const auto offers = [&bench](const QString& name) {
            return bench.selector()->companies().contains(name);
        };
        bench.find(u"cmbCategory"_s)->setFocus();
        bench.press(Qt::Key_Down);
        QCOMPARE(bench.text(u"cmbCategory"_s), u"Recruiters"_s);
        QVERIFY(!offers(u"Acme"_s) && offers(u"~ Recruiters ~"_s) && offers(u"Bell Recruiters"_s));
        bench.press(Qt::Key_Up);
        QVERIFY(offers(u"Acme"_s));
    }

    void escapeGivesBackAndShortcutSavesTheFieldBeingEdited()
    {
        AcmeWindow bench;
        bench.enter(u"txtIndustry"_s, u"Wrong"_s);
        QCOMPARE(bench.text(u"proc"_s), u"Update Company"_s);
        bench.press(Qt::Key_Escape);
        QCOMPARE(bench.text(u"txtIndustry"_s), u"Tools"_s);
        bench.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(bench.text(u"txtIndustry"_s), u"Wrong"_s);
        bench.press(Qt::Key_Escape);
        bench.press(Qt::Key_Tab);
        QCOMPARE(bench.industry(), u"Tools"_s);
        bench.enter(u"txtIndustry"_s, u"Rails & Größe 漢"_s);
        bench.press(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(bench.industry(), u"Rails & Größe 漢"_s);
        QVERIFY(!bench.find(u"proc"_s)->isVisible());
    }

    void pictureSaysWhatANewRecordWillBeAndThatTheFlagIsPressed()
    {
        AcmeWindow bench;
        const auto image = [](const QIcon& icon) { return icon.pixmap(44, 44).toImage(); };
        QList<QImage> seen{image(bench.find<QAction>(u"tbar_document"_s)->icon())};
        for (const Qt::Key tab : {Qt::Key_1, Qt::Key_2, Qt::Key_3}) {
            bench.press(tab, Qt::ControlModifier);
            const QImage now = image(bench.find<QAction>(u"tbar_new"_s)->icon());
            QVERIFY(!seen.contains(now));
            seen.append(now);
        }
        bench.run(u"Insert into Target(Name,CompanyKey) Values('Acme',1)"_s);
        bench.press(Qt::Key_1, Qt::ControlModifier);
        auto* flag = bench.find<QAbstractButton>(u"imgTgt"_s);
        const QImage up = image(flag->icon());
        QTest::mousePress(flag, Qt::LeftButton);
        QVERIFY(image(flag->icon()) != up);
        QTest::mouseRelease(flag, Qt::LeftButton);
        QCOMPARE(image(flag->icon()), up);
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmTargets"_s});
    }

    void labelOverGraphicsIsWhiteWhereItCanBeRead()
    {
        for (const QPalette& palette : {palettes::light(), palettes::dark()}) {
            QApplication::setPalette(palette);
            AcmeWindow bench;
            bench.data().writeStatus(u"ScreenGraphics"_s, u"1"_s, true);
            bench.frm->selectCategory();
            const QImage label = bench.find(u"Label45"_s)->grab().toImage();
            int brightest = 0;
            for (int x = 0; x < label.width(); ++x)
                brightest = std::max(brightest, qGray(label.pixel(x, label.height() / 2)));
            QVERIFY(brightest > 230);
            QVERIFY(qGray(label.pixel(1, 1)) < 140);
        }
        QApplication::setPalette({});
    }

    void missingToolsAreDisabledAndSayWhy()
    {
        WindowBench bench;
        bench.navigator.hasAll = false;
        bench.navigator.program = nullptr;
        bench.navigator.rows = {{.tool = u"goals"_s, .entry = u"Goals"_s, .tip = u"Rates"_s}};
        bench.addCompany(u"Acme"_s);
        bench.open();
        bench.find(u"acme"_s, Qt::Key_Return);
        for (const Qt::Key tab : {Qt::Key_2, Qt::Key_3})
            bench.press(tab, Qt::ControlModifier);
        for (const auto& name : {u"tbar_goals"_s, u"Goals"_s, u"tbar_helpdox"_s}) {
            const auto* action = bench.find<QAction>(name);
            QVERIFY2(!action->isEnabled() && action->toolTip().contains(u"not part of this version"_s),
                     qPrintable(name));
        }
        // Choosing a company turns its controls on, but not those whose screens are missing.
        for (const auto& name : {u"cmdProfile1"_s, u"cmdHistory1"_s, u"cmdJProfile1"_s})
            QVERIFY2(!bench.find(name)->isEnabled() && !bench.find(name)->toolTip().isEmpty(),
                     qPrintable(name));
        for (const auto& name :
             {u"tbar_new"_s, u"FileExport"_s, u"RestoreData"_s, u"FilePrint"_s, u"FileExit"_s})
            QVERIFY2(bench.find<QAction>(name)->isEnabled(), qPrintable(name));
    }

    void toolOrDoubleClickOpensScreenOrPage()
    {
        AcmeWindow bench;
        for (const auto& name : {u"tbar_events"_s, u"Events"_s, u"ActionPlan"_s})
            bench.find<QAction>(name)->trigger();
        QCOMPARE(bench.navigator.opened, (QStringList{u"FrmEvCal"_s, u"FrmEvCal"_s, u"FrmActionPlan"_s}));
        bench.find<QAction>(u"tbar_document"_s)->trigger();
        QCOMPARE(bench.tab(), u"Document"_s);
        bench.press(Qt::Key_1, Qt::ControlModifier);
        bench.enter(u"txtURL1"_s, u"www.acme.example"_s);
        bench.click(u"lblURL1"_s);
        QTest::mouseDClick(bench.find(u"lblURL1"_s), Qt::LeftButton);
        QCOMPARE(bench.world.desktop.opened, QStringList{u"www.acme.example"_s});
        auto* tree = bench.find<QTreeView>(u"tvwPosContact"_s);
        const QModelIndex contact = tree->model()->index(0, 0, tree->model()->index(0, 0));
        QCOMPARE(contact.data().toString(), u"Ann Lee"_s);
        const QPoint place = tree->visualRect(contact).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(bench.tab(), u"Company"_s);
        bench.world.prompts.expect(u"have not been saved"_s, Answer::No); // the address that was only tried
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(bench.tab(), u"Contact"_s);
    }

    void sizeAndSplitterComeBack()
    {
        WindowBench bench;
        bench.open();
        bench.window->resize(790, 700);
        bench.find<QSplitter>(u"splCompany"_s)->setSizes({400, 600});
        const QList<int> sizes = bench.find<QSplitter>(u"splCompany"_s)->sizes();
        bench.window->close();
        bench.layout->sync();
        WindowBench second;
        second.layoutPath = bench.layoutPath;
        second.open();
        QCOMPARE(second.window->size(), QSize(790, 700));
        QCOMPARE(second.find<QSplitter>(u"splCompany"_s)->sizes(), sizes);
    }

    void closingWritesFieldAndUsage()
    {
        AcmeWindow bench;
        bench.enter(u"txtIndustry"_s, u"Rails"_s);
        bench.press(Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!bench.window->isVisible());
        bench.window.reset();
        bench.presenters.reset();
        bench.world.restart();
        QCOMPARE(bench.industry(), u"Rails"_s);
        QVERIFY(!bench.cells(u"Select StatusValue from Status where StatusDescription='MinLog'"_s).isEmpty());
    }

    void closingAsksForWhatWaitsForTheSave()
    {
        AcmeWindow bench;
        bench.enter(u"txtCity"_s, u"Rome"_s);
        for (const Answer answer : {Answer::Cancel, Answer::Yes}) {
            QVERIFY(bench.window->isVisible());
            QCOMPARE(bench.text(u"txtCity"_s), u"Rome"_s);
            bench.world.prompts.expect(u"The changes to the company \"Acme\" have not been saved."_s, answer);
            bench.press(Qt::Key_Q, Qt::ControlModifier);
        }
        QVERIFY(!bench.window->isVisible());
        bench.window.reset();
        bench.presenters.reset();
        bench.world.restart();
        QCOMPARE(bench.cells(u"Select City from Address where City='Rome'"_s), u"Rome"_s);
    }

    void stayingKeepsSelectorAndTabWhereTheyWere()
    {
        AcmeWindow bench;
        bench.enter(u"txtCity"_s, u"Rome"_s);
        bench.world.prompts.acceptAll(Answer::Cancel);
        bench.press(Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(bench.tab(), u"Company"_s);
        QCOMPARE(QApplication::focusWidget(), bench.find(u"txtCity"_s));
        bench.find(u"new"_s, Qt::Key_Return);
        QCOMPARE(bench.selector()->currentText(), u"Acme"_s);
        QCOMPARE(bench.text(u"txtCity"_s), u"Rome"_s);
    }

    void endFromTheSystemStoresTheFieldBeingTyped()
    {
        AcmeWindow bench;
        const EndRequests endRequests(*bench.window);
        bench.enter(u"txtIndustry"_s, u"Rails"_s);
        QDialog before(bench.window.get());
        before.open();
        QCOMPARE(std::raise(SIGTERM), 0);
        QTRY_VERIFY(!bench.window->isVisible());
        QVERIFY(!before.isVisible());
        QCOMPARE(bench.industry(), u"Rails"_s);
    }

    void inputDuringImportDoesNotReachTheWorkbench()
    {
        AcmeWindow bench;
        const auto* remove = bench.find(u"cmdRemove1"_s);
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

JOBWRIGHT_TEST(TestWorkbench)
#include "tst_workbench.moc"
