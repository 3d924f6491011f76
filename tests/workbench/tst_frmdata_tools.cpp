// The doors from the workbench to its tools: toolbar, menus, keys, export and restore.
#include "store/files/copyrestore.h"
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/bench.h"

namespace {

/// Acme chosen, with the Contact screen open.
class AcmeBench : public Bench
{
public:
    AcmeBench()
    {
        addCompany(u"Acme"_s);
        frm->load();
        choose(u"Acme"_s);
        frm->tabStrip1Click(u"Contact"_s);
    }
};

} // namespace

class TestFrmDataTools : public QObject
{
    Q_OBJECT

private slots:
    void toolOpensItsScreen_data()
    {
        // door: its key, that of a menu with "menu" before it
        table({"door", "line", "tabAfter"}, {{"stay", "stay", "By tool", "Contact"},
                                             {"stay, menu", "menu Stay", "By menu", "Contact"},
                                             {"leave", "leave", "", "Company"},
                                             {"leave, menu", "menu Leave", "", "Company"}});
    }
    void toolOpensItsScreen()
    {
        FETCH(QString, door, line);
        const QString key = door.section(u' ', -1);
        AcmeBench bench;
        bench.navigator.rows = {
            {.screen = u"FrmTool"_s,
             .tool = u"stay"_s,
             .entry = u"Stay"_s,
             .toolLine = u"By tool"_s,
             .menuLine = u"By menu"_s},
            {.screen = u"FrmTool"_s, .tool = u"leave"_s, .entry = u"Leave"_s, .then = Then::CompanyScreen}};
        QVERIFY(bench.frm->toolAvailable(key));
        bench.world.session->debugMode = true;
        const auto before = bench.world.opLog().size();
        const auto use = [&] { door == key ? bench.frm->tbarButtonClick(key) : bench.frm->menuClick(key); };
        use();
        const QString traced = bench.world.opLog().mid(before);
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmTool"_s});
        QTEST(bench.frm->currentTab(), "tabAfter");
        QVERIFY2(line.isEmpty() || traced.startsWith(line), qPrintable(traced));
        // What is not there is not opened either.
        bench.navigator.hasAll = false;
        use();
        QCOMPARE(bench.navigator.opened.size(), 1);
    }

    void keysAnswer()
    {
        AcmeBench bench;
        QVERIFY(bench.frm->toolAvailable(u"new"_s) && !bench.frm->toolAvailable(u"helpdox"_s));
        bench.type(u"txtShort"_s, u"XX"_s);
        bench.expect(u"CTRL-S"_s);
        QVERIFY(bench.statements([&] { bench.frm->ctrlS(); }).isEmpty());
        QCOMPARE(bench.world.prompts.lastTitle(), u"Jobwright Message"_s);
        for (const int context : {0, -3, 12})
            bench.frm->help(context);
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

    void restoreAsksFirst()
    {
        // The file is absent, is kept, is overwritten.
        for (const QString& file : {QString(), u"kept"_s, u"overwritten"_s}) {
            AcmeBench bench;
            if (file.isEmpty()) {
                bench.expect(u"Could not locate restore file in "_s + bench.world.folder.path() +
                             u" directory. Creating restore file.");
            } else {
                QFile mine(bench.world.folder.filePath(u"restore.xml"_s));
                QVERIFY(mine.open(QIODevice::WriteOnly) && mine.write("mine") == 4);
                bench.expect(u"A restore file was found.  Would you like to restore your database now? This "
                             "will DELETE your current database."_s,
                             Answer::No);
                bench.expect(u"Would you like to overwrite your restore file with an updated version?"_s,
                             file == u"kept" ? Answer::No : Answer::Yes);
            }
            bench.frm->restoreData();
            QVERIFY(bench.world.prompts.done());
            QCOMPARE(bench.world.prompts.lastTitle(),
                     file.isEmpty() ? u"Jobwright Message"_s : u"Overwrite Restore File?"_s);
            QCOMPARE(bench.world.fileText(u"restore.xml"_s).contains(u"Restore=\"1\""), file != u"kept");
            QCOMPARE(QString(bench.visibleFrames() + u' ' + bench.frm->newImage()), u"frmeCompany newco"_s);
            QCOMPARE(bench.shown(u"txtTitle"_s), u"Acme"_s);
        }
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
        connect(bench.frm, &FrmData::importProgress, this, [&](bool running) { progress.append(running); });
        bench.expect(u"It does not bring back"_s, Answer::Yes);
        bench.expect(u"was restored from the file"_s);
        bench.frm->restoreData();
        QCOMPARE(progress, (QList<bool>{true, false}));
        // The company that was shown is gone, and nothing of it stays on the screen.
        QCOMPARE(bench.shell(), u"0||Acme,<New>|1 company · 0 positions · 0 contacts|"_s);
        QCOMPARE(bench.shown(u"txtTitle"_s), QString());
        bench.choose(u"Acme"_s);
        QCOMPARE(bench.shown(u"txtCity"_s), u"Acme City"_s);
    }

    void copyIsRestored()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        QVERIFY(copyBefore(*bench.world.session, u"restore"_s));
        bench.addCompany(u"Bolt"_s);
        bench.frm->load();
        bench.world.prompts.expectCompany(u"Restore a copy"_s,
                                          copyLine(copiesIn(bench.world.folder.path()).front()));
        bench.expect(u"What it holds now is copied first."_s, Answer::Yes);
        bench.expect(u"again what it was then"_s);
        bench.frm->restoreACopy();
        QCOMPARE(bench.shell(), u"0||Acme,<New>|1 company · 0 positions · 0 contacts|"_s);
    }
};

JOBWRIGHT_TEST(TestFrmDataTools)
#include "tst_frmdata_tools.moc"
