// The doors from the workbench to its tools: toolbar, menus, keys, export and restore.
#include "support/table.h"
#include "workbench/bench.h"

#include <QTest>

class TestFrmDataTools : public QObject
{
    Q_OBJECT

private slots:
    void toolOpensItsScreen_data()
    {
        columns<QString, bool, QString, QString, QString>("key", "menu", "screen", "line", "tabAfter");
        const auto row = [](const QString& key, bool menu, const QString& screen, const QString& line,
                            const QString& tabAfter = u"Contact"_s) {
            QTest::addRow("%s %s", menu ? "menu" : "toolbar", qPrintable(key))
                << key << menu << screen << line << tabAfter;
        };
        row(u"uprofile"_s, false, u"FrmUProfile"_s, u"Open Profile Screen - from Toolbar"_s, u"Company"_s);
        row(u"Uprofile"_s, true, u"FrmUProfile"_s, u"Open Profile Screen - from Menu"_s, u"Company"_s);
        row(u"goals"_s, false, u"FrmGoals"_s, u"Open Goals Screen :"_s, u"Company"_s);
        row(u"Goals"_s, true, u"FrmGoals"_s, u"Open Goals Screen from Menu"_s, u"Company"_s);
        row(u"keysearch"_s, false, u"FrmKeySearch"_s, u"Open/Set Focus on KeySearch Screen :"_s,
            u"Company"_s);
        row(u"Keysearch"_s, true, u"FrmKeySearch"_s, u"Open/Set Focus on KeySearch Screen from Menu"_s,
            u"Company"_s);
        row(u"events"_s, false, u"FrmEvCal"_s, u"Open Calendar Screen"_s);
        row(u"editor"_s, false, u"FrmEditor"_s, {});
        row(u"ToolsPreferences"_s, true, u"FrmEditor"_s, u"Open Profile Editor from Menu"_s);
        row(u"target"_s, false, u"FrmTargets"_s, {});
        row(u"PrintReport"_s, true, u"FrmReport"_s, {});
    }
    void toolOpensItsScreen()
    {
        FETCH(QString, key, screen, line);
        QFETCH(bool, menu);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.frm->load();
        bench.choose(u"Acme"_s);
        bench.frm->tabStrip1Click(u"Contact"_s);
        QVERIFY(bench.frm->toolAvailable(key));
        bench.world.session->debugMode = true;
        const auto before = bench.world.opLog().size();
        menu ? bench.frm->menuClick(key) : bench.frm->tbarButtonClick(key);
        const QString traced = bench.world.opLog().mid(before);
        QCOMPARE(bench.navigator.opened, QStringList{screen});
        QTEST(bench.frm->currentTab(), "tabAfter");
        if (line.isEmpty())
            QCOMPARE(traced, QString());
        else
            QVERIFY2(traced.startsWith(line), qPrintable(traced));
    }

    void missingToolOpensNothing()
    {
        Bench bench;
        bench.navigator.hasAll = false;
        bench.frm->load();
        for (const QString& key : {u"uprofile"_s, u"plan"_s, u"Goals"_s, u"FileImport"_s}) {
            QVERIFY(!bench.frm->toolAvailable(key));
            bench.frm->tbarButtonClick(key);
            bench.frm->menuClick(key);
        }
        QVERIFY(bench.navigator.opened.isEmpty());
        QVERIFY(bench.frm->toolAvailable(u"new"_s));
        QVERIFY(!bench.frm->toolAvailable(u"helpdox"_s));
    }

    void editorKeepsRemindersOut()
    {
        Bench bench;
        bool busy = false;
        bench.navigator.whileOpen = [&] { busy = bench.world.session->dialogBusy; };
        bench.frm->tbarButtonClick(u"editor"_s);
        QVERIFY(busy);
        QVERIFY(!bench.world.session->dialogBusy);
        bench.frm->tbarButtonClick(u"events"_s);
        QVERIFY(!busy);
    }

    void keysAnswer()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        bench.type(u"txtShort"_s, u"XX"_s);
        bench.world.prompts.expect(u"CTRL-S"_s);
        QVERIFY(bench.statements([&] { bench.frm->ctrlS(); }).isEmpty());
        QCOMPARE(bench.world.prompts.lastTitle(), u"Jobwright Message"_s);
        bench.frm->help(0);
        bench.frm->help(-3);
        bench.frm->help(12);
        QCOMPARE(bench.navigator.helped, QList<int>{12});
    }

    void failedExportClaimsNothing()
    {
        Bench bench;
        bench.data().writeStatus(u"ExportFile"_s, u"no/such/folder.xml"_s, true);
        bench.world.prompts.acceptAll(Answer::Ok);
        bench.frm->fileExport();
        QCOMPARE(bench.world.prompts.asked().size(), 1);
        QVERIFY(!bench.world.prompts.asked().first().contains(u"Data has been exported"));
    }

    void restoreAsksFirst_data()
    {
        // answers: y or n, in the order of the questions
        columns<bool, QString, bool>("present", "answers", "rewritten");
        QTest::newRow("absent: written") << false << QString() << true;
        QTest::newRow("no, no: kept") << true << u"nn"_s << false;
        QTest::newRow("no, yes: overwritten") << true << u"ny"_s << true;
    }
    void restoreAsksFirst()
    {
        FETCH(bool, present, rewritten);
        QFETCH(QString, answers);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.frm->load();
        bench.choose(u"Acme"_s);
        bench.frm->tabStrip1Click(u"Contact"_s);
        if (present) {
            QFile file(bench.world.folder.filePath(u"restore.xml"_s));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("mine");
        }
        const auto answer = [&](int i) { return answers.at(i) == u'y' ? Answer::Yes : Answer::No; };
        if (present) {
            bench.world.prompts.expect(
                u"A restore file was found.  Would you like to restore your database now? This will "
                "DELETE your current database."_s,
                answer(0));
            bench.world.prompts.expect(
                u"Would you like to overwrite your restore file with an updated version?"_s, answer(1));
        } else {
            bench.world.prompts.expect(u"Could not locate restore file in "_s + bench.world.folder.path() +
                                       u" directory. Creating restore file.");
        }
        bench.frm->restoreData();
        QVERIFY(bench.world.prompts.done());
        QCOMPARE(bench.world.prompts.lastTitle(),
                 present ? u"Overwrite Restore File?"_s : u"Jobwright Message"_s);
        QCOMPARE(bench.world.fileText(u"restore.xml"_s).contains(u"Restore=\"1\""), rewritten);
        QCOMPARE(bench.visibleFrames(), u"frmeCompany"_s);
        QCOMPARE(bench.frm->newImage(), u"newco"_s);
        QCOMPARE(bench.shown(u"txtTitle"_s), u"Acme"_s);
    }

    void restoreReplacesTheStore()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.data().createXML(u"restore.xml"_s, true);
        bench.addCompany(u"Bolt"_s);
        bench.frm->load();
        bench.choose(u"Bolt"_s);
        QList<bool> progress;
        connect(bench.frm.get(), &FrmData::importProgress, this,
                [&](bool running) { progress.append(running); });
        bench.world.prompts.expect(u"A restore file was found."_s, Answer::Yes);
        bench.frm->restoreData();
        QCOMPARE(progress, (QList<bool>{true, false}));
        QCOMPARE(bench.frm->companyList(), (QStringList{u"Acme"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->countsPanel(), u"1 company · 0 positions · 0 contacts"_s);
        // The company that was shown is gone, and nothing of it stays on the screen.
        QCOMPARE(bench.frm->selection().selectedCompanyName(), QString());
        QCOMPARE(bench.shown(u"txtTitle"_s), QString());
        bench.choose(u"Acme"_s);
        QCOMPARE(bench.shown(u"txtCity"_s), u"Acme City"_s);
    }
};

QTEST_GUILESS_MAIN(TestFrmDataTools)
#include "tst_frmdata_tools.moc"
