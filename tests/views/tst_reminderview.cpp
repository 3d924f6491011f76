// The reminder window, driven with mouse and keys, on a real store.
#include "support/runtest.h"
#include "views/windowbench.h"

#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "views/calendar/reminderlistview.h"
#include "views/calendar/reminderview.h"

#include <QWindow>

#include <QScreen>

namespace {

const QDateTime start(QDate(2026, 11, 22), QTime(9, 30));

/// The workbench with its reminder window, as the program opens them, and events so many hours from now.
struct Desk : WindowBench
{
    std::unique_ptr<ReminderView> reminder;

    explicit Desk(const QList<int>& hours = {})
    {
        addCompany(u"Acme"_s);
        run(u"Insert into Position(Title,CompanyKey) Values('Planner',1)"_s);
        open();
        navigator.whileOpen = [] {}; // no other screen
        reminder = std::make_unique<ReminderView>(presenters->reminder, *layout, window.get());
        front = reminder.get();
        for (const int each : hours)
            addEvent(u"Event"_s, each);
    }
    void addEvent(const QString& name, int hours)
    {
        const QDateTime at = start.addSecs(3600LL * hours);
        run(u"Insert into "
            u"Event(Event,EventDate,EventTime,AMPM,Reminder1,Medium,EventType,Complete,PositionKey,"
            "CompanyKey) Values('%1','%2','%3','%4','24','Meeting','Event','',1,1)"_s.arg(
                name, dates::mdyyyy(at.date()), at.toString(u"h:mm AP"_s).section(u' ', 0, 0),
                at.toString(u"AP"_s)));
    }
    ReminderListView& list() { return *find<ReminderListView>(u"lvwRemind"_s); }
    QPoint place(int row) { return list().visualRect(list().model()->index(row, 0)).center(); }
    void clickRow(int row) { QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place(row)); }
    QString cell(int row, int column) { return list().model()->index(row, column).data().toString(); }
    bool isBold(int row) { return list().model()->index(row, 0).data(Qt::FontRole).value<QFont>().bold(); }
};

} // namespace

class TestReminderView : public QObject
{
    Q_OBJECT

private slots:
    void emptyScreenLooksAtOnce()
    {
        Desk desk;
        desk.addEvent(u"Interview"_s, 1);
        desk.presenters->reminder.showScreen();
        QVERIFY(QTest::qWaitForWindowExposed(desk.reminder.get()));
        QCOMPARE(desk.list().model()->rowCount(), 0);
        desk.click(u"cmdCheck"_s);
        QCOMPARE(desk.cell(0, 0), u"Interview"_s);
        QVERIFY(!desk.find<QWidget>(u"cmdCheck"_s)->isVisible());
    }

    void windowIsNoLargerThanTheScreen()
    {
        Desk desk;
        desk.reminder->resize(4000, 3000);
        desk.reminder->show();
        desk.reminder->hide(); // remembers its size
        desk.reminder =
            std::make_unique<ReminderView>(desk.presenters->reminder, *desk.layout, desk.window.get());
        const QSize room = desk.reminder->screen()->availableSize();
        QVERIFY(desk.reminder->width() <= room.width() && desk.reminder->height() < room.height());
    }

    void interviewIsRemindedClosedAndFoundInItsPosition()
    {
        Desk desk;
        desk.addEvent(u"Interview"_s, 48);
        desk.presenters->reminder.tick();
        QVERIFY(!desk.reminder->isVisible());
        desk.world.setNow(start.addSecs(47LL * 3600));
        desk.frm->menuClick(u"Reminder"_s);
        QVERIFY(QTest::qWaitForWindowExposed(desk.reminder.get()));
        QCOMPARE(desk.cell(0, 0) + desk.cell(0, 5), u"InterviewAcme"_s);
        desk.clickRow(0);
        QVERIFY(desk.isBold(0));
        desk.click(u"cmdOk"_s);
        QVERIFY(!desk.reminder->isVisible());
        QCOMPARE(desk.cells(u"Select Interview,InterviewMedium from Position"_s), u"11/24/2026|7"_s);
        QCOMPARE(desk.cells(u"Select Complete from Event"_s), u"OkEvent"_s);
        desk.frm->menuClick(u"Reminder"_s);
        QVERIFY(!desk.reminder->isVisible());
    }

    void rowsSayHowUrgentTheyAre()
    {
        Desk desk({-3, 5, 20});
        desk.presenters->reminder.checkEvents();
        QCOMPARE(QStringList({desk.cell(0, 6), desk.cell(1, 6), desk.cell(2, 6)}).join(u'|'),
                 u"Overdue, -3 hrs|Soon, 5 hrs|20 hrs"_s);
        QList<QImage> pictures;
        for (int row = 0; row < 3; ++row) {
            const auto icon = desk.list().model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
            pictures.append(icon.pixmap(16, 16).toImage());
            QVERIFY(!pictures.last().isNull());
        }
        QVERIFY(pictures[0] != pictures[1] && pictures[1] != pictures[2] && pictures[0] != pictures[2]);
    }

    void noRowIsChosenByItselfWhenOneGoes()
    {
        Desk desk({1, 2, 3});
        desk.presenters->reminder.checkEvents();
        desk.clickRow(1);
        desk.click(u"cmdSnooze"_s);
        QCOMPARE(desk.list().model()->rowCount(), 2);
        QVERIFY(!desk.isBold(0) && !desk.isBold(1) && !desk.list().selectionModel()->hasSelection());
        desk.click(u"cmdDismiss"_s); // puts off: nothing is selected
        QCOMPARE(desk.rows(u"Event"_s), 3);
        QVERIFY(!desk.reminder->isVisible());
    }

    void keysAndDoubleClickOpenTheCalendarOnTheEvent()
    {
        Desk desk({1, 2});
        desk.world.session->debugMode = true;
        desk.frm->tbarButtonClick(u"reminder"_s);
        desk.presenters->reminder.checkEvents();
        QVERIFY(QTest::qWaitForWindowActive(desk.reminder.get()));
        desk.list().setFocus();
        QTest::keyClick(&desk.list(), Qt::Key_Down);
        QVERIFY(desk.isBold(0));
        QTest::keyClick(&desk.list(), Qt::Key_Down);
        QVERIFY(!desk.isBold(0) && desk.isBold(1));
        QTest::keyClick(&desk.list(), Qt::Key_Return);
        QTRY_COMPARE(desk.navigator.opened.count(u"FrmEvCal"_s), 1);
        QVERIFY(desk.world.opLog().contains(u"Open Calendar Screen"_s));
        desk.clickRow(0);
        QTest::mouseDClick(desk.list().viewport(), Qt::LeftButton, {}, desk.place(0));
        QTRY_COMPARE(desk.navigator.opened.count(u"FrmEvCal"_s), 2);
        QCOMPARE(desk.presenters->reminder.selectedEventKey(), Key(1));
        QTest::keyClick(&desk.list(), Qt::Key_Escape);
        QVERIFY(!desk.reminder->isVisible());
    }

    void closingTheWindowPutsOffAndTheTimerFollows()
    {
        Desk desk({1});
        const auto* timer = desk.reminder->findChild<QTimer*>(u"Timer1"_s);
        QVERIFY(timer && timer->isActive());
        QCOMPARE(timer->interval(), 64000);
        desk.presenters->reminder.tick();
        QVERIFY(desk.reminder->isVisible() && !timer->isActive());
        desk.reminder->close();
        QVERIFY(!desk.presenters->reminder.isVisible() && timer->isActive());
        desk.presenters->reminder.checkEvents();
        QVERIFY(desk.reminder->isVisible());
    }

    void reminderBesideADialogCanBeUsed()
    {
        Desk desk({1, 2});
        {
            QDialog dialog(desk.window.get());
            dialog.setModal(true);
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            desk.presenters->reminder.tick();
            QVERIFY(QTest::qWaitForWindowExposed(desk.reminder.get()));
            // Through the window, where a dialog stops what is not its own.
            const auto clickAt = [&desk](const QWidget& widget, const QPoint& at) {
                QTest::mouseClick(desk.reminder->windowHandle(), Qt::LeftButton, {},
                                  widget.mapTo(desk.reminder.get(), at));
            };
            clickAt(*desk.list().viewport(), desk.place(0));
            const auto* ok = desk.find(u"cmdOk"_s);
            clickAt(*ok, ok->rect().center());
            QCOMPARE(desk.cells(u"Select Complete from Event"_s), u"OkEvent;"_s);
            QTest::mouseClick(desk.window->windowHandle(), Qt::LeftButton, {}, {50, 50});
            QVERIFY(dialog.isVisible());
        }
        QCoreApplication::processEvents();
        QVERIFY(desk.reminder->isVisible()); // the dialog has gone, the reminder has not
        QCOMPARE(desk.reminder->windowHandle()->transientParent(), desk.window->windowHandle());
        desk.clickRow(0);
        desk.click(u"cmdOk"_s);
        QCOMPARE(desk.cells(u"Select Complete from Event"_s), u"OkEvent;OkEvent"_s);
    }
};

JOBWRIGHT_TEST(TestReminderView)
#include "tst_reminderview.moc"
