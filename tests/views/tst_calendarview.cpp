// The calendar with keys, mouse and drops on a real store.
#include "calendar/frmevcal.h"
#include "support/runtest.h"
#include "support/table.h"
#include "views/calendar/calendarview.h"
#include "views/calendar/calendarwidgets.h"
#include "views/calendar/daylist.h"
#include "views/windowbench.h"

#include <QAccessible>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>

namespace {

/// A calendar in November 2026, with the 22nd as today, and what its user does there.
class CalendarWindow : public WindowBench
{
public:
    CalendarWindow()
    {
        addContact(u"Ann"_s, u"Lee"_s, addCompany(u"Acme"_s));
        run(u"Insert into Position(Title,CompanyKey,ContactList) Values('Planner',1,'1')"_s);
    }
    void addEntry(const QString& date, const QString& time, const QString& name = u"Interview"_s)
    {
        run(u"Insert into Event(Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,EventType,Complete) "
            "Values('%1','%2','%3','1','AM','0','%4','')"_s.arg(name, date, time,
                                                                time.isEmpty() ? u"Task"_s : u"Event"_s));
    }
    void open()
    {
        layout = std::make_unique<QSettings>(layoutPath, QSettings::IniFormat);
        calendar().load();
        view = std::make_unique<CalendarView>(calendar(), *layout);
        front = view.get();
        view->resize(1180, 760);
        view->show();
        QVERIFY(QTest::qWaitForWindowActive(front));
    }
    FrmEvCal& calendar() { return presenters->calendar; }
    DayList* day(QDate date) { return find<DayList>(u"lvwDay%1"_s.arg(calendar().cellOf(date))); }
    TaskList* tasks() { return find<TaskList>(u"lvwAct"_s); }
    void clickTask(Qt::MouseButton button)
    {
        const QPoint place = tasks()->visualRect(tasks()->model()->index(0, 0)).center();
        QTest::mouseClick(tasks()->viewport(), button, {}, place);
    }
    QString stored(const QString& columns) { return cells(u"Select "_s + columns + u" from Event"); }

    std::unique_ptr<CalendarView> view;
};

const QDate today{2026, 11, 22};

} // namespace

class TestCalendarView : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_bench = std::make_unique<CalendarWindow>(); }

    void keysWalkDaysAndMonths_data()
    {
        using Keys = QList<Qt::Key>;
        columns<Keys, QDate>("keys", "day");
        QTest::newRow("weeks into December") << Keys{Qt::Key_Down, Qt::Key_Down} << QDate(2026, 12, 6);
        QTest::newRow("back over the first") << Keys{Qt::Key_Home, Qt::Key_Left} << QDate(2026, 10, 31);
        QTest::newRow("last day and on") << Keys{Qt::Key_End, Qt::Key_Right} << QDate(2026, 12, 1);
        QTest::newRow("month on and home") << Keys{Qt::Key_PageDown, Qt::Key_Home} << QDate(2026, 12, 1);
        // October 31 stands in the sixth row, which November does not have: the keys must not get lost.
        QTest::newRow("out of the sixth row")
            << Keys{Qt::Key_PageUp, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Left} << QDate(2026, 11, 29);
        QTest::newRow("far and back to today") << Keys{Qt::Key_PageUp, Qt::Key_Up, Qt::Key_T} << today;
    }
    void keysWalkDaysAndMonths()
    {
        QFETCH(QList<Qt::Key>, keys);
        QFETCH(QDate, day);
        m_bench->open();
        for (const Qt::Key key : keys)
            m_bench->press(key);
        QCOMPARE(m_bench->calendar().selectedDay(), day);
        QCOMPARE(QApplication::focusWidget(), m_bench->day(day));
        QVERIFY(m_bench->day(day)->isSelected());
        QCOMPARE(m_bench->text(u"lblMonth"_s), QLocale::c().toString(day, u"MMMM yyyy"_s));
    }

    void interviewIsPlannedByKeyboardMovedByDragAndFoundAgain()
    {
        m_bench->open();
        m_bench->press(Qt::Key_Right);
        m_bench->press(Qt::Key_N);
        m_bench->write(u"txtEvName"_s, u"Interview"_s);
        m_bench->write(u"txtEvTimeS"_s, u"10:00"_s);
        m_bench->write(u"lblCompany"_s, u"acm\n"_s);
        m_bench->write(u"lblPosition"_s, u"plan\n"_s);
        m_bench->write(u"txtEvDescription"_s, u"bring the route study"_s);
        m_bench->press(Qt::Key_S, Qt::AltModifier);
        QTRY_COMPARE(m_bench->stored(u"Event,EventDate,EventTime,AMPM,CompanyKey,PositionKey,Description"_s),
                     u"Interview|11/23/2026|10:00|AM|1|1|bring the route study"_s);

        const QDate friday(2026, 11, 27);
        auto* data = DayList::dragData(m_bench->day({2026, 11, 23})->chips().at(0).key);
        QVERIFY(CalendarWindow::drop(*m_bench->day(friday), data));
        QCOMPARE(m_bench->day(friday)->chips().front().text, u"10:00 Interview"_s);

        m_bench->calendar().unload();
        m_bench->open();
        QTest::mouseClick(m_bench->day(friday), Qt::LeftButton, {},
                          m_bench->day(friday)->chipRect(0).center());
        QCOMPARE(m_bench->text(u"txtEvName"_s), u"Interview"_s);
        QCOMPARE(m_bench->text(u"lblPosition"_s), u"Planner"_s);
        m_bench->write(u"txtEvName"_s, u"Referral"_s);
        m_bench->world.prompts.expect(u"Save the changes to this entry?"_s, Answer::Cancel);
        m_bench->view->close();
        QVERIFY(m_bench->view->isVisible());
        QCOMPARE(m_bench->text(u"txtEvName"_s), u"Referral"_s);
        m_bench->world.prompts.expect(u"Save the changes to this entry?"_s, Answer::Yes);
        m_bench->view->close();
        QVERIFY(!m_bench->view->isVisible());
        QCOMPARE(m_bench->stored(u"Event,EventDate"_s), u"Referral|11/27/2026"_s);
    }

    void restingADragOnAnArrowTurnsTheMonth()
    {
        m_bench->addEntry(u"11/24/2026"_s, u"9:00"_s);
        m_bench->open();
        const std::unique_ptr<QMimeData> data(DayList::dragData(u"EV1"_s));
        auto* next = m_bench->find(u"cmdNext"_s);
        auto* timer = next->window()->findChild<QTimer*>(u"TimerCal"_s);
        QDragEnterEvent enter(next->rect().center(), Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(next, &enter);
        QVERIFY(enter.isAccepted() && timer->isActive());
        QCOMPARE(timer->interval(), 1500);
        timer->setInterval(0); // nobody waits in a test
        QTRY_VERIFY(m_bench->calendar().month() != 11);
        QDragLeaveEvent leave;
        QApplication::sendEvent(next, &leave);
        QVERIFY(!timer->isActive());
    }

    void taskIsDroppedOntoADayFlippedAndOpened()
    {
        m_bench->addEntry(u"12/31/1999"_s, {}, u"Send note"_s);
        m_bench->open();
        auto* list = m_bench->tasks();
        const auto cell = [list](int column) { return list->model()->index(0, column).data().toString(); };
        const QString key = list->model()->index(0, 0).data(RowModel::KeyRole).toString();
        QVERIFY(CalendarWindow::drop(*m_bench->day({2026, 11, 20}), DayList::dragData(key)));
        QCOMPARE(cell(1) + cell(2), u"11/20overdue"_s);
        m_bench->clickTask(Qt::RightButton);
        QCOMPARE(m_bench->stored(u"EventDate,Complete"_s), u"11/20/2026|Complete"_s);
        QVERIFY(!m_bench->calendar().isFrameOpen());
        list->setFocus();
        list->setCurrentIndex(list->model()->index(0, 0));
        m_bench->press(Qt::Key_Space);
        QCOMPARE(cell(2), u"overdue"_s);
        m_bench->clickTask(Qt::LeftButton);
        QCOMPARE(m_bench->text(u"txtEvName"_s), u"Send note"_s);
        QVERIFY(m_bench->find(u"imgPriority"_s)->isVisible());
        QVERIFY(!m_bench->find(u"imgFormat"_s)->isVisible());
    }

    void chosenExtraIsShownAndCanBeTakenBack()
    {
        m_bench->open();
        m_bench->press(Qt::Key_N);
        auto* button = m_bench->find<ChoiceButton>(u"imgOther1"_s);
        const auto offered = [button] {
            QStringList texts;
            for (const QAction* action : button->menu()->actions()) {
                if (action->isVisible())
                    texts += action->text() + (action->isChecked() ? u"*" : u"");
            }
            return texts.join(u',');
        };
        QCOMPARE(offered(), u"Other,Meal,Formal Dress"_s); // nothing is there to be taken back
        button->menu()->actions().first()->trigger();
        QCOMPARE(offered(), u"Other*,Meal,Formal Dress,None"_s);
        QVERIFY(!button->icon().isNull());
        QCOMPARE(m_bench->text(u"txtEvDescription"_s), u"Other"_s);
        button->menu()->actions().last()->trigger();
        QCOMPARE(offered() + m_bench->text(u"txtEvDescription"_s), u"Other,Meal,Formal Dress"_s);
    }

    void refusedOwnerIsToldAndNotShown_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("shown");
        const QString networking = u"Networking Event"_s;
        const QString select = u"This is a networking event."_s;
        QTest::newRow("company of a networking event")
            << networking << u"lblCompany"_s << u"Acme"_s << select << networking;
        QTest::newRow("unknown company of a networking event")
            << networking << u"lblCompany"_s << u"Nobody"_s << select << networking;
        QTest::newRow("contact without company")
            << u"Call"_s << u"lblContact"_s << u"Ann Lee"_s << u"Must select company first."_s << QString();
        QTest::newRow("position without company")
            << u"Call"_s << u"lblPosition"_s << u"Planner"_s << u"Must select company first."_s << QString();
        QTest::newRow("unknown company stays to be mended")
            << u"Call"_s << u"lblCompany"_s << u"Acmee"_s << u"There is no company called \"Acmee\"."_s
            << u"Acmee"_s;
    }

    void refusedOwnerIsToldAndNotShown()
    {
        QFETCH(QString, name);
        QFETCH(QString, control);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        QFETCH(QString, shown);
        m_bench->open();
        m_bench->press(Qt::Key_N);
        m_bench->write(u"txtEvName"_s, name);
        m_bench->write(control, typed);
        m_bench->world.prompts.expect(message);
        // While a list of matches is open, the keys go there.
        QWidget* list = QApplication::activePopupWidget();
        QTest::keyClick(list ? list : QApplication::focusWidget(), Qt::Key_Tab);
        QTRY_VERIFY(m_bench->world.prompts.done());
        QTRY_COMPARE(m_bench->find<QComboBox>(control)->currentText(), shown);
        QCOMPARE(m_bench->presenters->calendar.form().text(control), shown);
    }

    void openedListWithoutCompanyTellsWhatIsMissing()
    {
        m_bench->open();
        m_bench->press(Qt::Key_N);
        for (const QString& control : {u"lblContact"_s, u"lblPosition"_s}) {
            m_bench->world.prompts.expect(u"Must select company first."_s);
            auto* box = m_bench->find<QComboBox>(control);
            QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() - 5, box->height() / 2));
            QTRY_VERIFY(m_bench->world.prompts.done());
            QCOMPARE(m_bench->world.prompts.lastTitle(), u"Select Company First"_s);
        }
    }

    void typedOwnerIsNotSavedBehindItsBack()
    {
        m_bench->open();
        m_bench->press(Qt::Key_N);
        m_bench->write(u"lblCompany"_s, u"Acmee"_s);
        m_bench->world.prompts.expect(u"There is no company called \"Acmee\"."_s); // once
        m_bench->click(u"cmdAdd1"_s);
        QCoreApplication::processEvents();
        QVERIFY(m_bench->world.prompts.done());
        QCOMPARE(m_bench->rows(u"Event"_s), 0);
        QCOMPARE(QApplication::focusWidget(), m_bench->find<QWidget>(u"lblCompany"_s));
        m_bench->write(u"lblCompany"_s, u"acme"_s); // whole, and not chosen when the mnemonic saves
        m_bench->world.prompts.expect(u"There are no positions"_s, Answer::No);
        m_bench->press(Qt::Key_S, Qt::AltModifier);
        QTRY_COMPARE(m_bench->cells(u"Select CompanyKey from Event"_s), u"1"_s);
    }

    void pageKeysTurnTheMonthBesideTheFrame()
    {
        m_bench->addEntry(u"12/31/1999"_s, {}, u"Send note"_s);
        m_bench->open();
        const auto turned = [this](const QString& control) {
            const int month = m_bench->presenters->calendar.month();
            m_bench->find<QWidget>(control)->setFocus();
            m_bench->press(Qt::Key_PageDown);
            return m_bench->presenters->calendar.month() != month;
        };
        QVERIFY(turned(u"lvwAct"_s));
        QVERIFY(turned(u"cmdToday"_s));
        m_bench->presenters->calendar.cmdNewTask();
        QVERIFY(!turned(u"txtEvName"_s));
        QVERIFY(!turned(u"txtEvDescription"_s));
    }

    void timeFieldsShowTheLongestTime()
    {
        m_bench->open();
        m_bench->press(Qt::Key_N);
        for (const QString& control : {u"txtEvTimeS"_s, u"txtEvTimeN"_s}) {
            const auto* field = m_bench->find<QComboBox>(control)->lineEdit();
            QVERIFY(field->contentsRect().width() > field->fontMetrics().horizontalAdvance(u"12:30"_s) + 6);
        }
    }

    void whatIsNoEntryIsNotDropped()
    {
        m_bench->addEntry(u"11/24/2026"_s, u"9:00"_s);
        m_bench->open();
        auto* text = new QMimeData;
        text->setText(u"EV1"_s);
        QVERIFY(!CalendarWindow::drop(*m_bench->day(today), text));
        // November 2026 ends in cell 29.
        QVERIFY(!CalendarWindow::drop(*m_bench->find(u"lvwDay30"_s), DayList::dragData(u"EV1"_s)));
        for (const QString& key : {u"EV0"_s, u"EV99999999999"_s, u"A-1"_s, u"EV1' or '1'='1"_s, QString()})
            CalendarWindow::drop(*m_bench->day(today), DayList::dragData(key));
        QCOMPARE(m_bench->stored(u"EventDate"_s), u"11/24/2026"_s);
        QVERIFY(m_bench->world.errorLog().isEmpty());
    }

    void deleteMeansTheEventThatWasWalkedTo()
    {
        for (const QString& time : {u"8:00"_s, u"9:00"_s, u"10:00"_s})
            m_bench->addEntry(u"11/22/2026"_s, time);
        m_bench->open();
        m_bench->press(Qt::Key_Delete); // which of the three is not said
        m_bench->press(Qt::Key_Down, Qt::ControlModifier);
        m_bench->press(Qt::Key_Down, Qt::ControlModifier);
        m_bench->world.prompts.expect(u"Are you sure"_s, Answer::Yes);
        m_bench->press(Qt::Key_Delete);
        QCOMPARE(m_bench->stored(u"EventTime"_s), u"8:00;10:00"_s);
        // The slot of the one deleted is another's now; Delete must not go on by itself.
        m_bench->press(Qt::Key_Delete);
        QCOMPARE(m_bench->rows(u"Event"_s), 2);
        m_bench->run(u"Delete * from Event where EventTime='8:00'"_s);
        m_bench->calendar().reload();
        m_bench->world.prompts.expect(u"Are you sure"_s, Answer::Yes);
        m_bench->press(Qt::Key_Delete); // the only one need not be walked to
        QVERIFY(m_bench->day(today)->chips().empty());
        m_bench->press(Qt::Key_Delete); // an empty day has nothing to ask about
    }

    void crowdedDayShowsTheRestOnDemandAndToAScreenReader()
    {
        for (int number = 1; number <= 9; ++number)
            m_bench->addEntry(u"11/22/2026"_s, u"%1:00"_s.arg(number));
        m_bench->open();
        DayList* day = m_bench->day(today);
        QVERIFY(day->chipRect(8).isEmpty());
        QTest::mouseClick(day, Qt::LeftButton, {}, day->moreRect().center());
        auto* menu = m_bench->find<QMenu>(u"mnuDay"_s);
        QCOMPARE(menu->actions().size(), 9);
        QTest::keyClick(menu, Qt::Key_Up); // from the first to the last
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(m_bench->text(u"txtEvTimeS"_s), u"9:00"_s);

        QAccessibleInterface* read = QAccessible::queryAccessibleInterface(day);
        QVERIFY(read->text(QAccessible::Name).contains(u"22"_s));
        QCOMPARE(read->childCount(), 9);
        QAccessibleInterface* last = read->child(8);
        QCOMPARE(last->text(QAccessible::Name), u"9:00 Interview"_s);
        QVERIFY(last->state().offscreen && !read->child(0)->state().offscreen);
        QCOMPARE(read->indexOfChild(last), 8);
        read->child(7)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(m_bench->text(u"txtEvTimeS"_s), u"8:00"_s);
        m_bench->run(u"Delete * from Event"_s);
        m_bench->calendar().reload();
        QVERIFY(!last->isValid() && last->text(QAccessible::Name).isEmpty());
    }

    void emptiedCompanyIsNone()
    {
        m_bench->addEntry(u"11/22/2026"_s, u"9:00"_s);
        m_bench->run(u"Update Event set CompanyKey=1,ContactKey=1,PositionKey=1"_s);
        m_bench->open();
        m_bench->press(Qt::Key_Return);
        QCOMPARE(m_bench->text(u"lblContact"_s), u"Ann Lee"_s);
        m_bench->write(u"lblCompany"_s, {});
        m_bench->press(Qt::Key_Delete);
        QVERIFY(m_bench->text(u"lblContact"_s).isEmpty());
        m_bench->press(Qt::Key_S, Qt::AltModifier);
        QTRY_COMPARE(m_bench->stored(u"CompanyKey,ContactKey,PositionKey"_s), u"0|0|0"_s);
    }

    void longestMonthFitsTheSmallestScreen()
    {
        m_bench->world.prompts.acceptAll(Answer::Ok); // the hint that the month is nearly full
        for (int number = 0; number < 100; ++number)
            m_bench->addEntry(u"8/%1/2026"_s.arg(number % 31 + 1), u"9:00"_s, u"Interview & more"_s);
        m_bench->open();
        m_bench->calendar().showMonth({2026, 8, 31});
        // The last day stands in the sixth row, the very last cell but one or two.
        QVERIFY(m_bench->day({2026, 8, 31})->isVisible());
        const QSize least = m_bench->view->minimumSizeHint();
        QVERIFY(least.width() <= 1280 && least.height() <= 680);
        m_bench->view->resize(least);
        QCoreApplication::processEvents();
        QVERIFY(!m_bench->day({2026, 8, 31})->moreRect().isEmpty());
    }

private:
    std::unique_ptr<CalendarWindow> m_bench;
};

JOBWRIGHT_TEST(TestCalendarView)
#include "tst_calendarview.moc"
