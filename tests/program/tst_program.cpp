// The whole program as it is started, used, ended and started again.
#include "calendar/frmreminder.h"
#include "program/openstore.h"
#include "program/programrun.h"
#include "store/engine/enginecall.h"
#include "store/files/copies.h"
#include "support/runtest.h"
#include "support/windowdriver.h"
#include "support/world.h"
#include "workbench/contactscreen.h"

#include <QPrintPreviewDialog>
#include <QTextDocument>

#include <sqlite3.h>

#include <csignal>
#include <optional>

namespace {

/// The program on a small campaign: Acme with Ann Lee, and an interview that was due an hour ago.
class ProgramBench : public WindowDriver
{
public:
    ProgramBench()
    {
        for (const auto& row :
             {u"Company(Name,Industry) Values('Acme','Tools')"_s,
              u"Contact(FirstName,LastName,CompanyKey) Values('Ann','Lee',1)"_s,
              u"Position(Title,CompanyKey) Values('Planner',1)"_s,
              u"Event(Event,EventDate,EventTime,AMPM,Reminder1,EventType,Complete,Medium,PositionKey) "
              "Values('Interview','11/22/2026','8:30','AM','24','Event','','Phone',1)"_s})
            QVERIFY(world.data().execQuery(u"Insert into "_s + row));
    }
    void start()
    {
        QVERIFY(readyStore(*world.session, u"1.0.0"_s));
        run.emplace(*world.session);
        QVERIFY(run->start(true));
        run->startHelpers();
        use(run->window());
    }
    void end()
    {
        run->window().close();
        run.reset();
        world.restart();
    }
    void onContact()
    {
        run->presenters().workbench.cmbSelectionClick(u"Acme"_s);
        press(Qt::Key_3, Qt::ControlModifier);
        write(u"cmbContacts"_s, u"lee\n"_s);
    }
    QStringList copies() { return listCopies(world.folder.path()); }

    World world;
    std::optional<ProgramRun> run;
};

/// The window that has come up over or beside @p below.
QWidget* windowOver(const QWidget& below)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget != &below && widget->isVisible() && widget->isWindow())
            return widget;
    }
    return nullptr;
}

} // namespace

class TestProgram : public QObject
{
    Q_OBJECT

private slots:
    void everyToolOpensItsScreen()
    {
        ProgramBench bench;
        bench.start();
        QWidget& window = bench.run->window();
        for (const ScreenRow& row : bench.run->screens().screens()) {
            if (row.tool.isEmpty() || !row.open)
                continue;
            QString shown;
            QTimer::singleShot(0, &window, [&] {
                QWidget* screen = nullptr;
                if (!QTest::qWaitFor([&] { return (screen = windowOver(window)) != nullptr; }))
                    return;
                shown = screen->windowTitle();
                if (const auto* month = screen->findChild<QLabel*>(u"lblMonth"_s))
                    QCOMPARE(month->text(), u"November 2026"_s);
                screen->close();
            });
            bench.find<QAction>(u"tbar_"_s + row.tool)->trigger();
            QTRY_VERIFY2(!shown.isEmpty(), qPrintable(row.screen));
            QTRY_VERIFY(!windowOver(window));
        }
        bench.end();
    }

    void overdueReminderComesByTheTimer()
    {
        ProgramBench bench;
        bench.start();
        QTimer* timer = nullptr;
        QTRY_VERIFY((timer = bench.front->findChild<QTimer*>(u"Timer1"_s)));
        QVERIFY(timer->isActive());
        timer->start(1);
        QTRY_VERIFY(bench.run->presenters().reminder.isVisible());
        QTRY_VERIFY(windowOver(*bench.front));
        bench.end();
    }

    void copyOfTheDayIsMadeAndChecked_data()
    {
        QTest::addColumn<bool>("damaged");
        QTest::newRow("sound") << false;
        QTest::newRow("damaged") << true;
    }
    void copyOfTheDayIsMadeAndChecked()
    {
        QFETCH(bool, damaged);
        ProgramBench bench;
        bench.start();
        if (damaged) { // an index that holds another column than it says
            const engine::Connection other =
                engine::open(bench.world.session->databasePath(), SQLITE_OPEN_READWRITE);
            engine::execute(other.get(), "PRAGMA writable_schema=ON");
            engine::execute(other.get(),
                            "UPDATE sqlite_schema SET sql='CREATE INDEX '||name||' ON Company(Industry)' "
                            "WHERE type='index' AND tbl_name='Company' AND sql NOT NULL");
            bench.world.prompts.expect(u"copy of the database could not be made"_s);
            QTRY_VERIFY(bench.world.prompts.done());
            QCOMPARE(bench.copies(), QStringList());
        } else {
            QTRY_COMPARE(bench.copies().size(), 1);
            QCOMPARE(Database(bench.copies().first()).run(u"Select * from Company").text(u"Name"), u"Acme"_s);
        }
        bench.end();
    }

    void endKeepsWhatWasTyped()
    {
        ProgramBench bench;
        bench.start();
        bench.run->presenters().workbench.cmbSelectionClick(u"Acme"_s);
        bench.write(u"txtIndustry"_s, u"Looms"_s); // and not left
        bench.run->presenters().reminder.form().edit(u"txtInterval"_s, u"25"_s);
        std::raise(SIGTERM);
        QTRY_VERIFY(!bench.front->isVisible());
        bench.end();
        QCOMPARE(bench.world.data().getStatusValue(u"TimeDelta"_s, true), u"25"_s);
        bench.start();
        bench.run->presenters().workbench.cmbSelectionClick(u"Acme"_s);
        QCOMPARE(bench.text(u"txtIndustry"_s), u"Looms"_s);
        QCOMPARE(bench.world.session->reminderInterval, Key(25));
        bench.end();
    }

    void historyThatIsTakenAwayIsWritten()
    {
        ProgramBench bench;
        bench.start();
        bench.onContact();
        const auto act = [&] {
            bench.write(u"txtTopic"_s, u"Called"_s);
            bench.click(u"cmdAddHistory"_s);
            bench.front->hide(); // as when the program ends under it
        };
        bench.inDialog(act, [&] { bench.click(u"cmdHistory1"_s); });
        QCOMPARE(bench.world.cells(u"Select Topic from History"_s), u"Called"_s);
        bench.end();
    }

    void keysRunningOutAreTold()
    {
        ProgramBench bench;
        QVERIFY(bench.world.data().execQuery(u"Insert into Target (TargetKey,Name) VALUES(30001,'y')"_s));
        bench.world.prompts.expect(u"Target: 30001"_s);
        bench.start();
        QTRY_VERIFY(bench.world.prompts.done());
        bench.end();
    }

    void windowThatComesBackReadsTheCompanies()
    {
        ProgramBench bench;
        bench.start();
        Database other(bench.world.session->databasePath());
        other.run(u"Insert into Company(Name) Values('Bolt')");
        QEvent activation(QEvent::WindowActivate);
        QApplication::sendEvent(bench.front, &activation);
        QVERIFY(bench.run->presenters().workbench.companyList().contains(u"Bolt"_s));
        bench.end();
    }

    void previewPrintsNothing()
    {
        ProgramBench bench;
        bench.start();
        int dialogs = 0;
        bench.inDialog(
            [&] {
                QVERIFY(qobject_cast<QPrintPreviewDialog*>(bench.front));
                bench.front->close();
                // A printer's question would come next.
                QTimer::singleShot(0, qApp, [&] {
                    if (QWidget* next = QApplication::activeModalWidget())
                        ++dialogs, next->close();
                });
            },
            [&] { bench.find<QAction>(u"Preview"_s)->trigger(); });
        QTest::qWait(50);
        QCOMPARE(dialogs, 0);
        bench.end();
    }

    void everythingIsOnTheDiskBeforeTheNextStep()
    {
        World world;
        QCOMPARE(engine::value(world.data().database().handle(), "PRAGMA synchronous"), u"2"_s);
    }
};

JOBWRIGHT_TEST(TestProgram)
#include "tst_program.moc"
