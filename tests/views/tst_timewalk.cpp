// A campaign in time, by hand: a follow-up planned from a history, an interview planned, dragged to another
// day, reminded and closed, a restart.
#include "calendar/frmreminder.h"
#include "support/runtest.h"
#include "views/calendar/daylist.h"
#include "views/calendar/reminderlistview.h"
#include "views/calendar/reminderview.h"
#include "views/windowbench.h"
#include "workbench/contactscreen.h"

#include <QCheckBox>
#include <QDateEdit>

class TestTimeWalk : public QObject
{
    Q_OBJECT

private slots:
    void whatIsPlannedAndRemindedIsThereAfterARestart()
    {
        m_bench.addContact(u"Ann"_s, u"Lee"_s, m_bench.addCompany(u"Acme"_s));
        m_bench.run(u"Insert into Position(Title,CompanyKey,ContactList) Values('Planner',1,'1')"_s);
        m_bench.open();
        m_bench.world.session->outlookAvailable = true;
        m_bench.choose(u"Acme"_s);
        m_bench.frm->tabStrip1Click(u"Contact"_s);
        m_bench.frm->contactScreen().showContact(u"Ann Lee"_s);
        m_bench.inDialog([this] { talkAndPromise(); }, [this] { m_bench.click(u"cmdHistory1"_s); });
        m_bench.inDialog([this] { planAndDrag(); }, [this] { m_bench.frm->tbarButtonClick(u"events"_s); });
        closeReminded();
        m_bench.window->close();
        m_bench.presenters.reset();
        m_bench.world.restart();
        QCOMPARE(m_bench.cells(u"Select Topic,DocumentXfer from History"_s), u"Called|0"_s);
        QCOMPARE(m_bench.cells(u"Select LastContact from Contact"_s), u"11/22/2026"_s);
        QCOMPARE(m_bench.cells(u"Select Event,EventDate,EventType,Complete,ContactKey,PositionKey from Event "
                               "order by EventDate"_s),
                 u"Contact Inquiry|11/23/2026|Task||1|1;Interview|11/24/2026|Event|OkEvent|0|1"_s);
        m_bench.window.reset();
        m_bench.restart();
        m_bench.open();
        m_bench.press(Qt::Key_5, Qt::ControlModifier);
        m_bench.click(u"shpLbl0"_s);
        QCOMPARE(m_bench.text(u"txtPosition"_s), u"Planner"_s);
        QVERIFY(m_bench.find<QCheckBox>(u"chkP8"_s)->isChecked());
        QCOMPARE(m_bench.find<QDateEdit>(u"dtpProg8"_s)->date(), QDate(2026, 11, 24));
        QCOMPARE(m_bench.text(u"Image18"_s), u"Phone"_s);
    }

private:
    /// The follow-up is saved as the history has laid it out.
    void talkAndPromise()
    {
        m_bench.write(u"txtTopic"_s, u"Called"_s);
        m_bench.click(u"cmdAddHistory"_s);
        m_bench.inDialog(
            [this] {
                m_bench.click(u"cmdAdd1"_s);
                m_bench.press(Qt::Key_Escape);
            },
            [this] { m_bench.click(u"cmdAddEvent"_s); });
        m_bench.click(u"cmdClose"_s);
    }
    void planAndDrag()
    {
        m_bench.press(Qt::Key_N);
        m_bench.write(u"txtEvName"_s, u"Interview"_s);
        m_bench.write(u"txtEvTimeS"_s, u"10:00"_s);
        m_bench.write(u"lblCompany"_s, u"acm\n"_s);
        m_bench.write(u"lblPosition"_s, u"plan\n"_s);
        m_bench.pick(u"imgFormat"_s, u"Phone"_s);
        m_bench.click(u"cmdAdd1"_s);
        // November 2026 begins in the first cell.
        auto* from = m_bench.find<DayList>(u"lvwDay21"_s);
        auto* to = m_bench.find<DayList>(u"lvwDay23"_s);
        QVERIFY(WindowBench::drop(*to, DayList::dragData(from->chips().at(0).key)));
        QCOMPARE(to->chips().size(), 1U);
        m_bench.press(Qt::Key_Escape);
    }
    void closeReminded()
    {
        m_bench.world.setNow(QDateTime(QDate(2026, 11, 24), QTime(10, 30)));
        ReminderView reminder(m_bench.presenters->reminder, *m_bench.layout, m_bench.window.get());
        m_bench.frm->menuClick(u"Reminder"_s);
        QVERIFY(QTest::qWaitForWindowExposed(&reminder));
        auto* list = reminder.findChild<ReminderListView*>(u"lvwRemind"_s);
        QCOMPARE(list->model()->rowCount(), 1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(0, 0)).center());
        QTest::mouseClick(reminder.findChild<QPushButton*>(u"cmdOk"_s), Qt::LeftButton);
        QVERIFY(!reminder.isVisible());
    }

    WindowBench m_bench;
};

JOBWRIGHT_TEST(TestTimeWalk)
#include "tst_timewalk.moc"
