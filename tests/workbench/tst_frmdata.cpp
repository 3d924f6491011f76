// The workbench's shell: start and end, tabs, selector.
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/bench.h"
#include "workbench/contactscreen.h"
#include "workbench/positionscreen.h"

#include <algorithm>
#include <stdexcept>

namespace {

/// Acme with a position, Bolt and a category, loaded, with one of them chosen and a tab opened where given.
class ShellBench : public Bench
{
public:
    explicit ShellBench(const QString& company = {}, const QString& tab = {})
    {
        for (const QString& name : {u"Acme"_s, u"bolt"_s, u"~ Local ~"_s})
            addCompany(name);
        run(u"Insert into Position(Title,CompanyKey) Values('Clerk',1)"_s);
        frm->load();
        if (!company.isEmpty())
            choose(company);
        if (!tab.isEmpty())
            frm->tabStrip1Click(tab);
        world.session->debugMode = true;
    }
    /// Tab, frame, screen of the selection, and the button for new records.
    QString where()
    {
        return QStringList{frm->currentTab(), visibleFrames(), selection().currentScreen, frm->newImage()}
            .join(u' ');
    }
};

} // namespace

class TestFrmData : public QObject
{
    Q_OBJECT

private slots:
    void storeThatCannotBeReadIsToldOnceAndNotInABox()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.frm->load();
        const auto everyRead = [](int, QStringView statement) { return statement.startsWith(u"Select"_s); };
        const auto comeBack = [&] { bench.frm->activated(); };
        QVERIFY(!bench.failing(everyRead, comeBack).isEmpty());
        QVERIFY(bench.frm->form().text(u"sbar"_s).contains(u"could not be read"_s));
        QVERIFY(bench.frm->companyList().contains(u"Acme"_s));
        QVERIFY(bench.failing(everyRead, comeBack).isEmpty()); // it is not tried again
        bench.frm->loadCompanyList();
        QCOMPARE(bench.frm->form().text(u"sbar"_s), QString());
    }

    void initTestCase() { QCoreApplication::setApplicationVersion(u"1.2.3"_s); }

    void loadedShellShowsTheCompanyScreen()
    {
        ShellBench bench;
        bench.world.setNow(QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9, 700)));
        QVERIFY(bench.frm->load());
        QCOMPARE(bench.where(), u"Company frmeCompany Company newco"_s);
        QCOMPARE(bench.frm->caption() + bench.frm->versionPanel(),
                 u"Jobwright - Data EntryJobwright v.1.2.3 "_s);
        QCOMPARE(bench.shell(), u"0||Acme,bolt,~ Local ~,<New>|2 companies · 1 position · 0 contacts|"_s);
        QCOMPARE(bench.world.session->helpDocument, u"\\JWHelp\\Jobwright-Dox.pdf"_s);
        QCOMPARE(bench.world.session->sessionStart, QTime(14, 5, 9));
    }

    void settingsAreReadAndMended_data()
    {
        // settings: the interval, whether it saves by itself, the interval stored
        table({"timeDelta", "autosave", "settings"}, {{"no number: mended", "abc", "0", "10 0 10"},
                                                      {"missing: mended", "", "", "10 0 10"},
                                                      {"beyond 16 bits: mended", "40000", "1", "10 1 10"},
                                                      {"any other number is off", "5", "2", "5 0 5"}});
    }
    void settingsAreReadAndMended()
    {
        FETCH(QString, timeDelta, autosave, settings);
        Bench bench;
        bench.run(u"Delete * from Status"_s);
        for (const auto& [name, value] : {std::pair{u"TimeDelta"_s, timeDelta}, {u"Autosave"_s, autosave}}) {
            if (!value.isEmpty())
                bench.data().writeStatus(name, value, true);
        }
        QVERIFY(bench.frm->load());
        QCOMPARE(u"%1 %2 %3"_s.arg(bench.world.session->reminderInterval)
                     .arg(bench.world.session->autosave)
                     .arg(bench.data().getStatusValue(u"TimeDelta"_s)),
                 settings);
    }

    void failureInLoadIsReportedAndEndsIt()
    {
        World world;
        bool broken = false;
        const Clock clock = [&] {
            if (std::exchange(broken, false))
                throw std::runtime_error("no time");
            return QDateTime(QDate(2026, 11, 22), QTime(9, 30));
        };
        Session session(world.folder.path(), clock, world.prompts, world.desktop);
        NotedNavigator navigator;
        Presenters presenters(session, navigator);
        FrmData& frm = presenters.workbench;
        broken = true;
        world.prompts.expect(u"Error onload."_s);
        QVERIFY(!frm.load());
        QVERIFY(world.errorLog().contains(u"Error onload."));
    }

    void endWritesUsage()
    {
        // Forty minutes; and across midnight the distance on the clock.
        for (const QString& each : {u"2026-11-22T13:10:30 2026-11-22T13:50:45 TimeLog|11/22/2026|1:10:30 PM;"
                                    "TimeLog|11/22/2026|1:50:45 PM;MinLog|11/22/2026|40"_s,
                                    u"2026-11-22T23:50:00 2026-11-23T00:10:00 TimeLog|11/23/2026|11:50:00 PM;"
                                    "TimeLog|11/23/2026|12:10:00 AM;MinLog|11/23/2026|1420"_s}) {
            Bench bench(QDateTime::fromString(each.section(u' ', 0, 0), Qt::ISODate));
            bench.frm->load();
            bench.world.setNow(QDateTime::fromString(each.section(u' ', 1, 1), Qt::ISODate));
            bench.world.session->debugMode = true;
            bench.frm->unload();
            QVERIFY(!bench.world.session->hasDataJW());
            bench.presenters.reset();
            QCOMPARE(bench.world.opLog().count(u"frmData - Terminate"_s), 2);
            QCOMPARE(
                bench.cells(u"Select StatusDescription,StatusDate,StatusValue from Status where "
                            "StatusDescription='TimeLog' or StatusDescription='MinLog' order by StatusKey"_s),
                each.section(u' ', 2));
        }
    }

    void textThatCannotBeSavedIsNotLostUnasked_data()
    {
        table({"screen", "control"}, {{"company", "Company", "txtCompanyNotes"},
                                      {"position", "Position", "txtPosNotes"},
                                      {"contact", "Contact", "txtContactNotes"}});
    }
    void textThatCannotBeSavedIsNotLostUnasked()
    {
        FETCH(QString, screen, control);
        ShellBench bench;
        bench.addContact(u"Ann"_s, u"Lee"_s, 1);
        bench.choose(u"Acme"_s);
        bench.frm->tabStrip1Click(screen);
        PositionScreen& position = bench.frm->positionScreen();
        ContactScreen& contact = bench.frm->contactScreen();
        position.showPosition(screen == u"Position" ? u"Clerk"_s : u"<New>"_s);
        contact.showContact(screen == u"Contact" ? u"Ann Lee"_s : u"<New>"_s);
        Form& form = screen == u"Company"    ? bench.company().form()
                     : screen == u"Position" ? position.form()
                                             : contact.form();
        form.edit(control, u"typed"_s);
        const auto ways = [&] { // out of the screen, and to another record of it
            bench.frm->tabStrip1Click(u"Document"_s);
            bench.choose(u"bolt"_s);
            position.cmbPosSelectionClick(u"<New>"_s);
            contact.cmbContactsClick(u"<New>"_s);
            QVERIFY(!bench.frm->mayLeave());
        };
        bench.world.prompts.acceptAll(Answer::No);
        bench.failingAt(u"Update"_s, ways);
        QCOMPARE(bench.world.prompts.asked().filter(u"could not be saved"_s).size(),
                 screen == u"Company" ? 3 : 4);
        QCOMPARE(bench.frm->currentTab(), screen);
        QCOMPARE(bench.selection().selectedCompanyName(), u"Acme"_s);
        QCOMPARE(form.text(control), u"typed"_s);
        bench.choose(u"bolt"_s); // tried again
        QVERIFY(bench.cells(u"Select Notes from "_s + screen).split(u';').contains(u"typed"_s));
    }

    void storeThatCannotBeOpenedLeavesAnEmptyShell()
    {
        Bench bench;
        bench.presenters.reset();
        bench.world.session.reset();
        QFile file(bench.world.folder.filePath(u"Postledger.db"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("not a store") > 0);
        file.close();
        bench.world.restart();
        bench.world.prompts.acceptAll(Answer::Ok);
        bench.restart();
        QVERIFY(bench.frm->load());
        QCOMPARE(bench.frm->companyList(), QStringList{u"<New>"_s});
        QCOMPARE(bench.world.session->reminderInterval, Key(10));
        QVERIFY(bench.world.prompts.asked().first().contains(u"DataJW-Init"_s));
        bench.frm->tabStrip1Click(u"Pipeline"_s);
        bench.choose(u"<New>"_s);
        // Each box that closes activates the window: were there another one then, it would never end.
        const qsizetype asked = bench.world.prompts.asked().size();
        bench.frm->activated();
        bench.frm->unload();
        QCOMPARE(bench.world.prompts.asked().size(), asked);
        QCOMPARE(bench.world.fileText(u"Postledger.db"_s), u"not a store"_s);
    }

    void tabShowsItsScreen()
    {
        // Pipeline and Document leave the button as the screen before had set it.
        for (const QString& where :
             {u"Position frmePosition Position newpos"_s, u"Contact frmeContact Contact newcon"_s,
              u"Pipeline frmePipeline Pipeline newcon"_s, u"Document frmeDocument Document newcon"_s}) {
            ShellBench bench(u"Acme"_s, u"Contact"_s);
            const QString tab = where.section(u' ', 0, 0);
            bench.frm->tabStrip1Click(tab);
            QCOMPARE(bench.where(), where);
            QVERIFY(bench.world.opLog().contains(QString(u"Open " + tab + u" Screen")));
            QVERIFY(!bench.frm->form().isVisible(u"pbarLoad"_s));
        }
    }

    void tabWithoutACompanyAsksForOne()
    {
        for (const QString& selection : {QString(), u"<New>"_s, u"~ Local ~"_s}) {
            ShellBench bench;
            bench.choose(selection);
            bench.expect(u"Please select a company before viewing positions."_s);
            bench.frm->tabStrip1Click(u"Position"_s);
            QCOMPARE(bench.where(), u"Company frmeCompany Company newco"_s);
            QCOMPARE(bench.frm->procText(), u"<Unassigned> Selected."_s);
            QVERIFY(bench.frm->procVisible());
            QCOMPARE(bench.selection().selectedCompanyName(), selection);
        }
        // The contacts stay open all the same, and a category is good enough for them: no question comes.
        ShellBench bench;
        bench.expect(u"Please select a company before viewing contacts."_s);
        bench.frm->tabStrip1Click(u"Contact"_s);
        QCOMPARE(bench.visibleFrames() + bench.frm->procText(), u"frmeContactNo company selected."_s);
        bench.choose(u"~ Local ~"_s);
        bench.frm->tabStrip1Click(u"Contact"_s);
        QCOMPARE(bench.visibleFrames(), u"frmeContact"_s);
        // The pipeline is content with any company in the store.
        bench.run(u"Delete * from Company"_s);
        bench.expect(u"No companies exist in your database.  Pipeline cannot be accessed."_s);
        bench.frm->tabStrip1Click(u"Pipeline"_s);
        QCOMPARE(bench.where(), u"Pipeline  Contact newcon"_s);
        QVERIFY(bench.world.opLog().contains(u"No companies, Pipeline aborted."));
    }

    void categorySwitchesTheCompanyFieldsOff()
    {
        ShellBench bench;
        bench.data().writeStatus(u"ScreenGraphics"_s, u"0"_s, true);
        const QStringList companyOnly = u"txtShort txtAddress txtCity txtState txtZip txtEm1 txtEm2 txtURL1 "
                                        u"txtURL2 txtP1 txtP2 txtP3 txtFax "
                                        "txtIndustry cmdProfile1 imgPosition"_s.split(u' ');
        for (const bool category : {true, false}) {
            bench.choose(category ? u"~ Local ~"_s : u"Acme"_s);
            QCOMPARE(bench.frm->form().text(u"Label45"_s), category ? u"Category"_s : u"Company"_s);
            QVERIFY(bench.frm->companyLabel() == (category ? CompanyLabel::Category : CompanyLabel::Company));
            for (const QString& control : companyOnly)
                QVERIFY2(bench.company().form().isEnabled(control) != category, qPrintable(control));
            QVERIFY(bench.company().form().isEnabled(u"txtCompanyNotes"_s));
        }
        bench.data().writeStatus(u"ScreenGraphics"_s, u"1"_s, true);
        bench.frm->selectCategory();
        QVERIFY(bench.frm->companyLabel() == CompanyLabel::CompanyOnGraphics);
    }

    void selectionLeadsToTheCompanyScreen_data()
    {
        table({"tab", "choice", "endsOn", "selected"},
              {{"category on Position", "Position", "~ Local ~", "Company", "<New>"},
               {"new on Document", "Document", "<New>", "Company", "<New>"},
               {"category on Contact stays", "Contact", "~ Local ~", "Contact", "~ Local ~"},
               {"company on Position stays", "Position", "bolt", "Position", "bolt"}});
    }
    void selectionLeadsToTheCompanyScreen()
    {
        FETCH(QString, tab, choice, endsOn, selected);
        ShellBench bench(u"Acme"_s, tab);
        bench.choose(choice);
        QCOMPARE(QString(bench.frm->currentTab() + u' ' + bench.visibleFrames()),
                 QString(endsOn + u" frme" + endsOn));
        QCOMPARE(bench.selection().selectedCompanyName(), selected);
        QCOMPARE(bench.frm->form().text(u"cmbSelection"_s), selected);
        if (selected == u"<New>")
            QCOMPARE(bench.shown(u"txtTitle"_s), QString());
    }
};

JOBWRIGHT_TEST(TestFrmData)
#include "tst_frmdata.moc"
