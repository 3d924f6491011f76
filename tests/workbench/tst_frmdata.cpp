// The workbench's shell: start and end, tabs, selector.
#include "support/table.h"
#include "workbench/contactscreen.h"
#include "workbench/faults.h"
#include "workbench/positionscreen.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <stdexcept>

class TestFrmData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setApplicationVersion(u"1.2.3"_s); }

    void loadedShellShowsTheCompanyScreen()
    {
        Bench bench;
        bench.addCompany(u"bolt"_s);
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"~ Local ~"_s);
        bench.world.setNow(QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9, 700)));
        QVERIFY(bench.frm->load());
        QCOMPARE(bench.visibleFrames(), u"frmeCompany"_s);
        QCOMPARE(bench.frm->caption(), u"Jobwright - Data Entry"_s);
        QCOMPARE(bench.frm->versionPanel(), u"Jobwright v.1.2.3 "_s);
        QCOMPARE(bench.frm->companyList(), (QStringList{u"Acme"_s, u"bolt"_s, u"~ Local ~"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->countsPanel(), u"2 companies · 0 positions · 0 contacts"_s);
        QCOMPARE(bench.world.session->helpDocument, u"\\JWHelp\\Jobwright-Dox.pdf"_s);
        QCOMPARE(bench.world.session->sessionStart, QTime(14, 5, 9));
        QCOMPARE(bench.frm->newToolTip() + bench.frm->newImage(), u"New Companynewco"_s);
    }

    void settingsAreReadAndMended_data()
    {
        columns<QString, QString, int, bool, QString>("timeDelta", "autosave", "interval", "saves", "stored");
        QTest::newRow("no number: mended") << u"abc"_s << u"0"_s << 10 << false << u"10"_s;
        QTest::newRow("missing: mended") << QString() << QString() << 10 << false << u"10"_s;
        QTest::newRow("beyond 16 bits: mended") << u"40000"_s << u"1"_s << 10 << true << u"10"_s;
        QTest::newRow("any other number is off") << u"5"_s << u"2"_s << 5 << false << u"5"_s;
    }
    void settingsAreReadAndMended()
    {
        FETCH(QString, timeDelta, autosave);
        Bench bench;
        bench.run(u"Delete * from Status"_s);
        if (!timeDelta.isEmpty())
            bench.data().writeStatus(u"TimeDelta"_s, timeDelta, true);
        if (!autosave.isEmpty())
            bench.data().writeStatus(u"Autosave"_s, autosave, true);
        QVERIFY(bench.frm->load());
        QTEST(int(bench.world.session->reminderInterval), "interval");
        QTEST(bench.world.session->autosave, "saves");
        QTEST(bench.cells(u"Select StatusValue from Status where StatusDescription='TimeDelta'"_s), "stored");
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
        FrmData frm(session, navigator);
        broken = true;
        world.prompts.expect(u"Error onload."_s);
        QVERIFY(!frm.load());
        QVERIFY(world.errorLog().contains(u"Error onload."));
    }

    void endWritesUsage_data()
    {
        columns<QDateTime, QDateTime, QString>("start", "end", "rows");
        QTest::newRow("forty minutes") << QDateTime(QDate(2026, 11, 22), QTime(13, 10, 30))
                                       << QDateTime(QDate(2026, 11, 22), QTime(13, 50, 45))
                                       << u"TimeLog|11/22/2026|1:10:30 PM;TimeLog|11/22/2026|1:50:45 PM;"
                                          "MinLog|11/22/2026|40"_s;
        QTest::newRow("across midnight: the distance on the clock")
            << QDateTime(QDate(2026, 11, 22), QTime(23, 50)) << QDateTime(QDate(2026, 11, 23), QTime(0, 10))
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
        bench.frm.reset();
        QCOMPARE(bench.world.opLog().count(u"frmData - Terminate"_s), 2);
        QTEST(bench.cells(u"Select StatusDescription,StatusDate,StatusValue from Status where "
                          "StatusDescription='TimeLog' or StatusDescription='MinLog' order by StatusKey"_s),
              "rows");
    }

    void textThatCannotBeSavedIsNotLostUnasked_data()
    {
        columns<QString, QString, QString>("screen", "control", "stored");
        QTest::newRow("company") << u"Company"_s << u"txtCompanyNotes"_s
                                 << u"Notes from Company where Name='Acme'"_s;
        QTest::newRow("position") << u"Position"_s << u"txtPosNotes"_s << u"Notes from Position"_s;
        QTest::newRow("contact") << u"Contact"_s << u"txtContactNotes"_s << u"Notes from Contact"_s;
    }
    void textThatCannotBeSavedIsNotLostUnasked()
    {
        FETCH(QString, screen, control, stored);
        Bench bench;
        bench.addContact(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.addCompany(u"Bolt"_s);
        bench.run(u"Insert into Position(Title,CompanyKey) Values('Clerk',1)"_s);
        bench.frm->load();
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
            bench.choose(u"Bolt"_s);
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
        bench.choose(u"Bolt"_s); // tried again
        QCOMPARE(bench.cells(u"Select "_s + stored), u"typed"_s);
    }

    void storeThatCannotBeOpenedLeavesAnEmptyShell()
    {
        Bench bench;
        bench.frm.reset();
        bench.world.session.reset();
        QFile file(bench.world.folder.filePath(u"Postledger.db"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a store");
        file.close();
        bench.world.restart();
        bench.world.prompts.acceptAll(Answer::Ok);
        bench.frm = std::make_unique<FrmData>(*bench.world.session, bench.navigator);
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
        columns<QString, QString, QString>("tab", "frame", "newButton");
        QTest::newRow("position") << u"Position"_s << u"frmePosition"_s << u"New Position newpos"_s;
        QTest::newRow("contact") << u"Contact"_s << u"frmeContact"_s << u"New Contact newcon"_s;
        // These two leave the button as the screen before had set it.
        QTest::newRow("pipeline") << u"Pipeline"_s << u"frmePipeline"_s << u"New Contact newcon"_s;
        QTest::newRow("document") << u"Document"_s << u"frmeDocument"_s << u"New Contact newcon"_s;
    }
    void tabShowsItsScreen()
    {
        QFETCH(QString, tab);
        Bench bench;
        bench.run(u"Insert into Position(Title,CompanyKey) Values('Buyer',"_s +
                  QString::number(bench.addCompany(u"Acme"_s)) + u')');
        bench.frm->load();
        bench.choose(u"Acme"_s);
        bench.frm->tabStrip1Click(u"Contact"_s);
        bench.world.session->debugMode = true;
        bench.frm->tabStrip1Click(tab);
        QTEST(bench.visibleFrames(), "frame");
        QTEST(QString(bench.frm->newToolTip() + u' ' + bench.frm->newImage()), "newButton");
        QCOMPARE(bench.frm->currentTab(), tab);
        QCOMPARE(bench.frm->selection().currentScreen, tab);
        QVERIFY(bench.world.opLog().contains(QString(u"Open " + tab + u" Screen")));
        QVERIFY(!bench.frm->form().isVisible(u"pbarLoad"_s));
    }

    void positionTabFallsBack_data()
    {
        QTest::addColumn<QString>("selection");
        QTest::newRow("nothing selected") << QString();
        QTest::newRow("new company") << u"<New>"_s;
        QTest::newRow("category") << u"~ Local ~"_s;
    }
    void positionTabFallsBack()
    {
        QFETCH(QString, selection);
        Bench bench;
        bench.addCompany(u"~ Local ~"_s);
        bench.frm->load();
        bench.choose(selection);
        bench.world.prompts.expect(u"Please select a company before viewing positions."_s);
        bench.frm->tabStrip1Click(u"Position"_s);
        QCOMPARE(bench.visibleFrames(), u"frmeCompany"_s);
        QCOMPARE(bench.frm->currentTab(), u"Company"_s);
        QCOMPARE(bench.frm->selection().currentScreen, u"Company"_s);
        QCOMPARE(bench.frm->procText(), u"<Unassigned> Selected."_s);
        QVERIFY(bench.frm->procVisible());
        QCOMPARE(bench.frm->newImage(), u"newco"_s);
        QCOMPARE(bench.frm->selection().selectedCompanyName(), selection);
    }

    void contactTabStaysOpenWithoutACompany()
    {
        Bench bench;
        bench.addCompany(u"~ Local ~"_s);
        bench.frm->load();
        bench.world.prompts.expect(u"Please select a company before viewing contacts."_s);
        bench.frm->tabStrip1Click(u"Contact"_s);
        QCOMPARE(bench.visibleFrames(), u"frmeContact"_s);
        QCOMPARE(bench.frm->procText(), u"No company selected."_s);
        QVERIFY(bench.frm->procVisible());
        // A category is good enough for contacts: no question comes.
        bench.choose(u"~ Local ~"_s);
        bench.frm->tabStrip1Click(u"Contact"_s);
        QCOMPARE(bench.visibleFrames(), u"frmeContact"_s);
    }

    void pipelineTabNeedsACompany()
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
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"~ Local ~"_s);
        bench.data().writeStatus(u"ScreenGraphics"_s, u"0"_s, true);
        const QStringList companyOnly{u"txtShort"_s, u"txtAddress"_s,  u"txtCity"_s,     u"txtState"_s,
                                      u"txtZip"_s,   u"txtEm1"_s,      u"txtEm2"_s,      u"txtURL1"_s,
                                      u"txtURL2"_s,  u"txtP1"_s,       u"txtP2"_s,       u"txtP3"_s,
                                      u"txtFax"_s,   u"txtIndustry"_s, u"cmdProfile1"_s, u"imgPosition"_s};
        bench.frm->load();
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
        columns<QString, QString, QString, QString>("tab", "choice", "endsOn", "selected");
        QTest::newRow("category on Position")
            << u"Position"_s << u"~ Local ~"_s << u"Company"_s << u"<New>"_s;
        QTest::newRow("new on Document") << u"Document"_s << u"<New>"_s << u"Company"_s << u"<New>"_s;
        QTest::newRow("category on Contact stays")
            << u"Contact"_s << u"~ Local ~"_s << u"Contact"_s << u"~ Local ~"_s;
        QTest::newRow("company on Position stays")
            << u"Position"_s << u"Bolt"_s << u"Position"_s << u"Bolt"_s;
    }
    void selectionLeadsToTheCompanyScreen()
    {
        FETCH(QString, tab, choice, endsOn, selected);
        Bench bench;
        for (const QString& name : {u"Acme"_s, u"Bolt"_s, u"~ Local ~"_s})
            bench.addCompany(name);
        bench.frm->load();
        bench.choose(u"Acme"_s);
        bench.frm->tabStrip1Click(tab);
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
