// The reminder window, driven with mouse and keys, on a real store.
#include "views/windowbench.h"

#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "views/calendar/reminderlistview.h"
#include "views/calendar/reminderview.h"

#include <QDialog>
#include <QScreen>
#include <QTest>
#include <QWindow>

namespace {

const QDateTime start(QDate(2026, 11, 22), QTime(9, 30));

/// The workbench with its reminder window, as the program opens them.
struct Desk : WindowBench
{
    std::unique_ptr<ReminderView> reminder;
    Key position = 0;

    void open()
    {
        addCompany(u"Acme"_s);
        run(u"Insert into Position(Title,CompanyKey) Values('Planner',1)"_s);
        position = data().getPositionKey(u"Planner"_s, u"Acme"_s);
        WindowBench::open();
        reminder = std::make_unique<ReminderView>(frm->reminder(), *layout, window.get());
    }
    void addEvent(const QString& name, int hours)
    {
        const QDateTime at = start.addSecs(3600LL * hours);
        run(u"Insert into "
            u"Event(Event,EventDate,EventTime,AMPM,Reminder1,Medium,EventType,Complete,PositionKey,"
            "CompanyKey) Values('%1','%2','%3','%4','24','Meeting','Event','',%5,1)"_s.arg(
                name, dates::mdyyyy(at.date()), at.toString(u"h:mm AP"_s).section(u' ', 0, 0),
                at.toString(u"AP"_s), QString::number(position)));
    }
    ReminderListView& list() { return *reminder->findChild<ReminderListView*>(u"lvwRemind"_s); }
    void click(const QString& button)
    {
        QTest::mouseClick(reminder->findChild<QPushButton*>(button), Qt::LeftButton);
    }
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
    void interviewIsRemindedClosedAndFoundInItsPosition();
    void rowsSayHowUrgentTheyAre();
    void noRowIsChosenByItselfWhenOneGoes();
    void keysChooseOpenAndClose();
    void doubleClickOpensTheCalendarOnTheEvent();
    void closingTheWindowPutsOff();
    void timerFollowsThePresenter();
    void reminderBesideADialogCanBeUsed();
    void emptyScreenLooksAtOnce();
    void windowIsNoLargerThanTheScreen();
};

void TestReminderView::emptyScreenLooksAtOnce()
{
    Desk desk;
    desk.open();
    desk.addEvent(u"Interview"_s, 1);
    desk.frm->reminder().showScreen();
    QVERIFY(QTest::qWaitForWindowExposed(desk.reminder.get()));
    QCOMPARE(desk.list().model()->rowCount(), 0);
    desk.click(u"cmdCheck"_s);
    QCOMPARE(desk.cell(0, 0), u"Interview"_s);
    QVERIFY(!desk.reminder->findChild<QWidget*>(u"cmdCheck"_s)->isVisible());
}

void TestReminderView::windowIsNoLargerThanTheScreen()
{
    Desk desk;
    desk.open();
    desk.reminder->resize(4000, 3000);
    desk.reminder->show();
    desk.reminder->hide(); // remembers its size
    desk.reminder = std::make_unique<ReminderView>(desk.frm->reminder(), *desk.layout, desk.window.get());
    const QSize room = desk.reminder->screen()->availableSize();
    QVERIFY(desk.reminder->width() <= room.width() && desk.reminder->height() < room.height());
}

void TestReminderView::interviewIsRemindedClosedAndFoundInItsPosition()
{
    Desk desk;
    desk.open();
    desk.addEvent(u"Interview"_s, 48);
    desk.frm->reminder().tick();
    QVERIFY(!desk.reminder->isVisible());
    desk.world.setNow(start.addSecs(47 * 3600));
    desk.frm->menuClick(u"Reminder"_s);
    QVERIFY(QTest::qWaitForWindowExposed(desk.reminder.get()));
    QCOMPARE(desk.cell(0, 0), u"Interview"_s);
    QCOMPARE(desk.cell(0, 5), u"Acme"_s);
    desk.clickRow(0);
    QVERIFY(desk.isBold(0));
    desk.click(u"cmdOk"_s);
    QVERIFY(!desk.reminder->isVisible());
    QCOMPARE(desk.cells(u"Select Interview,InterviewMedium from Position"_s), u"11/24/2026|7"_s);
    QCOMPARE(desk.cells(u"Select Complete from Event"_s), u"OkEvent"_s);
    // Not in that session, nor in the next.
    desk.frm->menuClick(u"Reminder"_s);
    QVERIFY(!desk.reminder->isVisible());
}

void TestReminderView::rowsSayHowUrgentTheyAre()
{
    Desk desk;
    desk.open();
    for (const int hours : {-3, 5, 20})
        desk.addEvent(u"Event"_s, hours);
    desk.frm->reminder().checkEvents();
    QCOMPARE(desk.cell(0, 6), u"Overdue, -3 hrs"_s);
    QCOMPARE(desk.cell(1, 6), u"Soon, 5 hrs"_s);
    QCOMPARE(desk.cell(2, 6), u"20 hrs"_s);
    QList<QImage> pictures;
    for (int row = 0; row < 3; ++row) {
        const auto icon = desk.list().model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
        pictures.append(icon.pixmap(16, 16).toImage());
        QVERIFY(!pictures.last().isNull());
    }
    QVERIFY(pictures[0] != pictures[1] && pictures[1] != pictures[2] && pictures[0] != pictures[2]);
}

void TestReminderView::noRowIsChosenByItselfWhenOneGoes()
{
    Desk desk;
    desk.open();
    for (const int hours : {1, 2, 3})
        desk.addEvent(u"Event"_s, hours);
    desk.frm->reminder().checkEvents();
    desk.clickRow(1);
    desk.click(u"cmdSnooze"_s);
    QCOMPARE(desk.list().model()->rowCount(), 2);
    QVERIFY(!desk.isBold(0) && !desk.isBold(1));
    QVERIFY(!desk.list().selectionModel()->hasSelection());
    desk.click(u"cmdDismiss"_s); // puts off: nothing is selected
    QCOMPARE(desk.cells(u"Select Count(*) from Event"_s), u"3"_s);
    QVERIFY(!desk.reminder->isVisible());
}

void TestReminderView::keysChooseOpenAndClose()
{
    Desk desk;
    desk.open();
    desk.addEvent(u"Event"_s, 1);
    desk.addEvent(u"Event"_s, 2);
    desk.frm->tbarButtonClick(u"reminder"_s);
    desk.frm->reminder().checkEvents();
    QVERIFY(QTest::qWaitForWindowActive(desk.reminder.get()));
    desk.list().setFocus();
    QTest::keyClick(&desk.list(), Qt::Key_Down);
    QVERIFY(desk.isBold(0));
    QTest::keyClick(&desk.list(), Qt::Key_Down);
    QVERIFY(!desk.isBold(0) && desk.isBold(1));
    QTest::keyClick(&desk.list(), Qt::Key_Return);
    QTRY_COMPARE(desk.navigator.opened.count(u"FrmEvCal"_s), 1);
    QTest::keyClick(&desk.list(), Qt::Key_Escape);
    QVERIFY(!desk.reminder->isVisible());
}

void TestReminderView::doubleClickOpensTheCalendarOnTheEvent()
{
    Desk desk;
    desk.open();
    desk.addEvent(u"Event"_s, 1);
    desk.addEvent(u"Event"_s, 2);
    desk.frm->reminder().checkEvents();
    desk.clickRow(1);
    QTest::mouseDClick(desk.list().viewport(), Qt::LeftButton, {}, desk.place(1));
    QTRY_COMPARE(desk.navigator.opened.count(u"FrmEvCal"_s), 1);
    QCOMPARE(desk.frm->reminder().selectedEventKey(), Key(2));
    QVERIFY(desk.isBold(1));
}

void TestReminderView::closingTheWindowPutsOff()
{
    Desk desk;
    desk.open();
    desk.addEvent(u"Event"_s, 1);
    desk.frm->reminder().tick();
    QVERIFY(desk.reminder->isVisible());
    desk.reminder->close();
    QVERIFY(!desk.frm->reminder().isVisible());
    QVERIFY(desk.frm->reminder().timer1Enabled());
    desk.frm->reminder().checkEvents();
    QVERIFY(desk.reminder->isVisible());
}

void TestReminderView::timerFollowsThePresenter()
{
    Desk desk;
    desk.open();
    const auto* timer = desk.reminder->findChild<QTimer*>(u"Timer1"_s);
    QVERIFY(timer && timer->isActive());
    QCOMPARE(timer->interval(), 64000);
    desk.frm->reminder().tick();
    QVERIFY(!timer->isActive());
    desk.frm->reminder().cmdSnoozeAll();
    QVERIFY(timer->isActive());
}

void TestReminderView::reminderBesideADialogCanBeUsed()
{
    Desk desk;
    desk.open();
    desk.addEvent(u"Interview"_s, 1);
    desk.addEvent(u"Referral"_s, 2);
    {
        QDialog dialog(desk.window.get());
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        desk.frm->reminder().tick();
        QVERIFY(QTest::qWaitForWindowExposed(desk.reminder.get()));
        // Through the window, where a dialog stops what is not its own.
        const auto clickAt = [&desk](const QWidget& widget, const QPoint& at) {
            QTest::mouseClick(desk.reminder->windowHandle(), Qt::LeftButton, {},
                              widget.mapTo(desk.reminder.get(), at));
        };
        clickAt(*desk.list().viewport(), desk.place(0));
        const auto* ok = desk.reminder->findChild<QPushButton*>(u"cmdOk"_s);
        clickAt(*ok, ok->rect().center());
        QCOMPARE(desk.cells(u"Select Complete from Event where Event='Interview'"_s), u"OkEvent"_s);
        QTest::mouseClick(desk.window->windowHandle(), Qt::LeftButton, {}, {50, 50});
        QVERIFY(dialog.isVisible());
    }
    QCoreApplication::processEvents();
    QVERIFY(desk.reminder->isVisible()); // the dialog has gone, the reminder has not
    QCOMPARE(desk.reminder->windowHandle()->transientParent(), desk.window->windowHandle());
    desk.clickRow(0);
    desk.click(u"cmdOk"_s);
    QCOMPARE(desk.cells(u"Select Complete from Event where Event='Referral'"_s), u"OkEvent"_s);
}

QTEST_MAIN(TestReminderView)
#include "tst_reminderview.moc"
