// The workbench's shell: start and end, tabs, selector.
#include "support/table.h"
#include "workbench/contactscreen.h"
#include "workbench/faults.h"
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
        return QStringList{frm->currentTab(), visibleFrames(), frm->selection().currentScreen,
                           frm->newImage()}
            .join(u' ');
    }
};

} // namespace

class TestFrmData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setApplicationVersion(u"1.2.3"_s); }

    void loadedShellShowsTheCompanyScreen()
    {
        ShellBench bench;
        bench.world.setNow(QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9, 700)));
        QVERIFY(bench.frm->load());
        QCOMPARE(bench.where(), u"Company frmeCompany Company newco"_s);
        QCOMPARE(bench.frm->caption() + bench.frm->versionPanel(),
                 u"Jobwright - Data EntryJobwright v.1.2.3 "_s);
        QCOMPARE(bench.frm->companyList(), (QStringList{u"Acme"_s, u"bolt"_s, u"~ Local ~"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->countsPanel(), u"2 companies · 1 position · 0 contacts"_s);
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
        const Session& session = *bench.world.session;
        QCOMPARE(u"%1 %2 %3"_s.arg(session.reminderInterval)
                     .arg(session.autosave)
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

    void endWritesUsage_data()
    {
        columns<QDateTime, QDateTime, QString>("start", "end", "rows");
        const QDate day(2026, 11, 22);
        QTest::newRow("forty minutes")
            << QDateTime(day, QTime(13, 10, 30)) << QDateTime(day, QTime(13, 50, 45))
            << u"TimeLog|11/22/2026|1:10:30 PM;TimeLog|11/22/2026|1:50:45 PM;MinLog|11/22/2026|40"_s;
        QTest::newRow("across midnight: the distance on the clock")
            << QDateTime(day, QTime(23, 50)) << QDateTime(day.addDays(1), QTime(0, 10))
            << u"TimeLog|11/23/2026|11:50:00 PM;TimeLog|11/23/2026|12:10:00 AM;MinLog|11/23/2026|1420"_s;
    }
    void endWritesUsage()
    {
        FETCH(QDateTime, start, end);
        Bench bench(start);
        bench.frm->load();
        bench.world.setNow(end);
        bench.world.session->debugMode = true;
        bench.frm->unload();
        QVERIFY(!bench.world.session->hasDataJW());
        bench.presenters.reset();
        QCOMPARE(bench.world.opLog().count(u"frmData - Terminate"_s), 2);
        QTEST(bench.cells(u"Select StatusDescription,StatusDate,StatusValue from Status where "
                          "StatusDescription='TimeLog' or StatusDescription='MinLog' order by StatusKey"_s),
              "rows");
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
        failingAt(bench, u"Update"_s, ways);
        QCOMPARE(bench.world.prompts.asked().filter(u"could not be saved"_s).size(),
                 screen == u"Company" ? 3 : 4);
        QCOMPARE(bench.frm->currentTab(), screen);
        QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Acme"_s);
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
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a store");
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
        bench.frm->unload();
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), "not a store");
    }

    void tabShowsItsScreen_data()
    {
        // Pipeline and Document leave the button as the screen before had set it.
        table({"tab", "where"}, {{"position", "Position", "Position frmePosition Position newpos"},
                                 {"contact", "Contact", "Contact frmeContact Contact newcon"},
                                 {"pipeline", "Pipeline", "Pipeline frmePipeline Pipeline newcon"},
                                 {"document", "Document", "Document frmeDocument Document newcon"}});
    }
    void tabShowsItsScreen()
    {
        FETCH(QString, tab, where);
        ShellBench bench(u"Acme"_s, u"Contact"_s);
        bench.frm->tabStrip1Click(tab);
        QCOMPARE(bench.where(), where);
        QVERIFY(bench.world.opLog().contains(QString(u"Open " + tab + u" Screen")));
        QVERIFY(!bench.frm->form().isVisible(u"pbarLoad"_s));
    }

    void tabWithoutACompanyAsksForOne()
    {
        for (const QString& selection : {QString(), u"<New>"_s, u"~ Local ~"_s}) {
            ShellBench bench;
            bench.choose(selection);
            bench.world.prompts.expect(u"Please select a company before viewing positions."_s);
            bench.frm->tabStrip1Click(u"Position"_s);
            QCOMPARE(bench.where(), u"Company frmeCompany Company newco"_s);
            QCOMPARE(bench.frm->procText(), u"<Unassigned> Selected."_s);
            QVERIFY(bench.frm->procVisible());
            QCOMPARE(bench.frm->selection().selectedCompanyName(), selection);
        }
        // The contacts stay open all the same, and a category is good enough for them: no question comes.
        ShellBench bench;
        bench.world.prompts.expect(u"Please select a company before viewing contacts."_s);
        for (const QString& said : {u"No company selected."_s, QString()}) {
            bench.frm->tabStrip1Click(u"Contact"_s);
            QCOMPARE(bench.visibleFrames(), u"frmeContact"_s);
            if (!said.isEmpty())
                QCOMPARE(bench.frm->procText(), said);
            bench.choose(u"~ Local ~"_s);
        }
    }

    void pipelineTabNeedsACompanyInTheStore()
    {
        Bench bench;
        bench.frm->load();
        bench.world.session->debugMode = true;
        bench.world.prompts.expect(u"No companies exist in your database.  Pipeline cannot be accessed."_s);
        bench.frm->tabStrip1Click(u"Pipeline"_s);
        QCOMPARE(bench.visibleFrames(), QString());
        QCOMPARE(bench.frm->currentTab(), u"Pipeline"_s);
        QCOMPARE(bench.frm->selection().currentScreen, u"Company"_s);
        QVERIFY(bench.world.opLog().contains(u"No companies, Pipeline aborted."));
    }

    void categorySwitchesTheCompanyFieldsOff()
    {
        ShellBench bench;
        bench.data().writeStatus(u"ScreenGraphics"_s, u"0"_s, true);
        const QStringList companyOnly = u"txtShort txtAddress txtCity txtState txtZip txtEm1 txtEm2 txtURL1 "
                                        u"txtURL2 txtP1 txtP2 txtP3 txtFax "
                                        "txtIndustry cmdProfile1 imgPosition"_s.split(u' ');
        const auto enabled = [&] {
            return std::ranges::count_if(companyOnly, [&](const QString& control) {
                return bench.company().form().isEnabled(control);
            });
        };
        bench.choose(u"~ Local ~"_s);
        QCOMPARE(bench.frm->form().text(u"Label45"_s), u"Category"_s);
        QVERIFY(bench.frm->companyLabel() == CompanyLabel::Category);
        QCOMPARE(enabled(), 0);
        QVERIFY(bench.company().form().isEnabled(u"txtCompanyNotes"_s));
        bench.choose(u"Acme"_s);
        QCOMPARE(bench.frm->form().text(u"Label45"_s), u"Company"_s);
        QVERIFY(bench.frm->companyLabel() == CompanyLabel::Company);
        QCOMPARE(enabled(), companyOnly.size());
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
        QCOMPARE(bench.frm->currentTab(), endsOn);
        QCOMPARE(bench.visibleFrames(), QString(u"frme" + endsOn));
        QCOMPARE(bench.frm->selection().selectedCompanyName(), selected);
        QCOMPARE(bench.frm->form().text(u"cmbSelection"_s), selected);
        if (selected == u"<New>")
            QCOMPARE(bench.shown(u"txtTitle"_s), QString());
    }
};

QTEST_GUILESS_MAIN(TestFrmData)
#include "tst_frmdata.moc"
