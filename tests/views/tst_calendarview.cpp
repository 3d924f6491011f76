// The calendar with keys, mouse and drops on a real store.
#include "calendar/frmevcal.h"
#include "views/calendar/calendarview.h"
#include "views/calendar/calendarwidgets.h"
#include "views/calendar/daylist.h"
#include "views/windowbench.h"

#include <QAccessible>
#include <QCheckBox>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>

namespace {

/// A calendar in November 2026, with the 22nd as today, and what its user does there.
class CalendarBench : public Bench
{
public:
    CalendarBench()
    {
        const Key acme = addCompany(u"Acme"_s);
        addContact(u"Ann"_s, u"Lee"_s, acme);
        run(u"Insert into Position(Title,CompanyKey,ContactList) Values('Planner',1,'1')"_s);
    }

    void addEntry(const QString& name, const QString& date, const QString& time, const QString& type)
    {
        run(u"Insert into Event(Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,EventType,Complete) "
            "Values('"_s +
            name + u"','" + date + u"','" + time + u"','1','AM','0','" + type + u"','')");
    }
    void open()
    {
        layout = std::make_unique<QSettings>(world.folder.filePath(u"layout.ini"_s), QSettings::IniFormat);
        frm->calendar().load();
        view = std::make_unique<CalendarView>(frm->calendar(), *layout);
        view->resize(1180, 760);
        view->show();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
    }
    template<typename Widget> Widget* find(const QString& name)
    {
        auto* widget = view->findChild<Widget*>(name);
        if (!widget)
            QTest::qFail(qPrintable(u"no control "_s + name), __FILE__, __LINE__);
        return widget;
    }
    DayList* day(QDate date) { return find<DayList>(u"lvwDay%1"_s.arg(frm->calendar().cellOf(date))); }
    void click(const QString& name) { QTest::mouseClick(find<QWidget>(name), Qt::LeftButton); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void type(const QString& name, const QString& text)
    {
        find<QWidget>(name)->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
    QPoint task(int row)
    {
        auto* list = find<TaskList>(u"lvwAct"_s);
        return list->visualRect(list->model()->index(row, 0)).center();
    }
    QWidget* tasks() { return find<TaskList>(u"lvwAct"_s)->viewport(); }
    /// Lets something be dropped as the desktop reports it; false when the place refuses it.
    static bool drop(QWidget& target, QMimeData* what)
    {
        const std::unique_ptr<QMimeData> data(what);
        const QPoint place = target.rect().center();
        QDragEnterEvent enter(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&target, &event);
        return true;
    }
    QString chipOf(QDate date, int index = 0)
    {
        return day(date)->chips().at(static_cast<size_t>(index)).key;
    }

    std::unique_ptr<QSettings> layout;
    std::unique_ptr<CalendarView> view;
};

const QDate today{2026, 11, 22};

} // namespace

class TestCalendarView : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_bench = std::make_unique<CalendarBench>(); }
    void keysWalkDaysAndMonths_data();
    void keysWalkDaysAndMonths();
    void interviewIsPlannedByKeyboardMovedByDragAndFoundAgain();
    void restingADragOnAnArrowTurnsTheMonth();
    void taskIsDroppedOntoADay();
    void whatIsNoEntryIsNotDropped();
    void taskIsFlippedAndOpenedByMouseAndKeyboard();
    void deleteAsksFirst();
    void walkedEventIsTheOneThatDeleteMeans();
    void crowdedDayShowsTheRestOnDemand();
    void screenReaderFindsEveryEventOfADay();
    void closingAsksForWhatIsUnsaved();
    void emptiedCompanyIsNone();
    void refusedOwnerIsToldAndNotShown_data();
    void refusedOwnerIsToldAndNotShown();
    void openedListWithoutCompanyTellsWhatIsMissing();
    void typedOwnerIsNotSavedBehindItsBack();
    void pageKeysTurnTheMonthBesideTheFrame();
    void timeFieldsShowTheLongestTime();
    void fullMonthIsShownWhole();

private:
    std::unique_ptr<CalendarBench> m_bench;
};

void TestCalendarView::keysWalkDaysAndMonths_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<QDate>("day");
    using Keys = QList<Qt::Key>;
    QTest::newRow("on") << Keys{Qt::Key_Right} << QDate(2026, 11, 23);
    QTest::newRow("weeks into December") << Keys{Qt::Key_Down, Qt::Key_Down} << QDate(2026, 12, 6);
    QTest::newRow("back over the first") << Keys{Qt::Key_Home, Qt::Key_Left} << QDate(2026, 10, 31);
    QTest::newRow("last day and on") << Keys{Qt::Key_End, Qt::Key_Right} << QDate(2026, 12, 1);
    QTest::newRow("month on and home") << Keys{Qt::Key_PageDown, Qt::Key_Home} << QDate(2026, 12, 1);
    // October 31 stands in the sixth row, which November does not have: the keys must not get lost.
    QTest::newRow("out of the sixth row")
        << Keys{Qt::Key_PageUp, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Left} << QDate(2026, 11, 29);
    QTest::newRow("far and back to today")
        << Keys{Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_Up, Qt::Key_T} << today;
}

void TestCalendarView::keysWalkDaysAndMonths()
{
    QFETCH(QList<Qt::Key>, keys);
    QFETCH(QDate, day);
    m_bench->open();
    for (const Qt::Key key : keys)
        m_bench->press(key);
    QCOMPARE(m_bench->frm->calendar().selectedDay(), day);
    QCOMPARE(QApplication::focusWidget(), m_bench->day(day));
    QVERIFY(m_bench->day(day)->isSelected());
    const QString month = QLocale::c().toString(day, u"MMMM yyyy"_s);
    QCOMPARE(m_bench->find<QLabel>(u"lblMonth"_s)->text(), month);
}

void TestCalendarView::interviewIsPlannedByKeyboardMovedByDragAndFoundAgain()
{
    m_bench->open();
    m_bench->press(Qt::Key_Right);
    m_bench->press(Qt::Key_N);
    m_bench->type(u"txtEvName"_s, u"Interview"_s);
    m_bench->type(u"txtEvTimeS"_s, u"10:00"_s);
    m_bench->type(u"lblCompany"_s, u"acm"_s);
    m_bench->press(Qt::Key_Return);
    m_bench->type(u"lblPosition"_s, u"plan"_s);
    m_bench->press(Qt::Key_Return);
    m_bench->type(u"txtEvDescription"_s, u"bring the route study"_s);
    m_bench->press(Qt::Key_S, Qt::AltModifier);
    const auto stored = [this] {
        return m_bench->cells(u"Select Event,EventDate,EventTime,AMPM,CompanyKey,PositionKey,Description,"
                              "EventType from Event"_s);
    };
    QTRY_COMPARE(stored(), u"Interview|11/23/2026|10:00|AM|1|1|bring the route study|Event"_s);
    QCOMPARE(m_bench->day({2026, 11, 23})->chips().size(), size_t(1));

    const QDate friday(2026, 11, 27);
    auto* data = DayList::dragData(m_bench->chipOf({2026, 11, 23}));
    QVERIFY(CalendarBench::drop(*m_bench->day(friday), data));
    QCOMPARE(m_bench->day(friday)->chips().front().text, u"10:00 Interview"_s);

    m_bench->frm->calendar().unload();
    m_bench->open();
    QTest::mouseClick(m_bench->day(friday), Qt::LeftButton, {}, m_bench->day(friday)->chipRect(0).center());
    QCOMPARE(m_bench->find<QLineEdit>(u"txtEvName"_s)->text(), u"Interview"_s);
    QCOMPARE(m_bench->find<QComboBox>(u"lblPosition"_s)->currentText(), u"Planner"_s);
    QVERIFY(stored().contains(u"|11/27/2026|"_s));
}

void TestCalendarView::restingADragOnAnArrowTurnsTheMonth()
{
    m_bench->addEntry(u"Interview"_s, u"11/24/2026"_s, u"9:00"_s, u"Event"_s);
    m_bench->open();
    const std::unique_ptr<QMimeData> data(DayList::dragData(m_bench->chipOf({2026, 11, 24})));
    auto* next = m_bench->find<QWidget>(u"cmdNext"_s);
    auto* timer = m_bench->find<QTimer>(u"TimerCal"_s);
    QDragEnterEvent enter(next->rect().center(), Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(next, &enter);
    QVERIFY(enter.isAccepted() && timer->isActive());
    QCOMPARE(timer->interval(), 1500);
    timer->setInterval(0); // nobody waits in a test
    QTRY_VERIFY(m_bench->frm->calendar().month() != 11);
    QDragLeaveEvent leave;
    QApplication::sendEvent(next, &leave);
    QVERIFY(!timer->isActive());

    const QDate landed = m_bench->frm->calendar().selectedDay().addDays(1);
    QVERIFY(CalendarBench::drop(*m_bench->day(landed),
                                DayList::dragData(QString::fromUtf8(data->data(DayList::mimeType())))));
    QCOMPARE(m_bench->cells(u"Select EventDate from Event"_s), QLocale::c().toString(landed, u"M/d/yyyy"_s));
}

void TestCalendarView::taskIsDroppedOntoADay()
{
    m_bench->addEntry(u"Send note"_s, u"12/31/1999"_s, {}, u"Task"_s);
    m_bench->open();
    auto* list = m_bench->find<TaskList>(u"lvwAct"_s);
    const QString key = list->model()->index(0, 0).data(RowModel::KeyRole).toString();
    QVERIFY(CalendarBench::drop(*m_bench->day({2026, 11, 25}), DayList::dragData(key)));
    QCOMPARE(m_bench->cells(u"Select EventDate from Event"_s), u"11/25/2026"_s);
    QCOMPARE(list->model()->index(0, 1).data().toString(), u"11/25"_s);
}

void TestCalendarView::whatIsNoEntryIsNotDropped()
{
    m_bench->addEntry(u"Interview"_s, u"11/24/2026"_s, u"9:00"_s, u"Event"_s);
    m_bench->open();
    auto* text = new QMimeData;
    text->setText(u"EV1"_s);
    QVERIFY(!CalendarBench::drop(*m_bench->day(today), text));
    // November 2026 ends in cell 29.
    QVERIFY(!CalendarBench::drop(*m_bench->find<DayList>(u"lvwDay30"_s), DayList::dragData(u"EV1"_s)));
    for (const QString& key : {u"EV0"_s, u"EV99999999999"_s, u"A-1"_s, u"EV1' or '1'='1"_s, QString()})
        CalendarBench::drop(*m_bench->day(today), DayList::dragData(key));
    QCOMPARE(m_bench->cells(u"Select EventDate from Event"_s), u"11/24/2026"_s);
    QVERIFY(m_bench->world.errorLog().isEmpty());
}

void TestCalendarView::taskIsFlippedAndOpenedByMouseAndKeyboard()
{
    m_bench->addEntry(u"Send note"_s, u"11/20/2026"_s, {}, u"Task"_s);
    m_bench->open();
    auto* list = m_bench->find<TaskList>(u"lvwAct"_s);
    const auto state = [list] { return list->model()->index(0, 2).data().toString(); };
    QCOMPARE(state(), u"overdue"_s);
    QTest::mouseClick(m_bench->tasks(), Qt::RightButton, {}, m_bench->task(0));
    QCOMPARE(m_bench->cells(u"Select Complete from Event"_s), u"Complete"_s);
    QCOMPARE(state(), u"completed"_s);
    QVERIFY(!m_bench->frm->calendar().isFrameOpen());
    list->setFocus();
    list->setCurrentIndex(list->model()->index(0, 0));
    m_bench->press(Qt::Key_Space);
    QCOMPARE(state(), u"overdue"_s);
    QTest::mouseClick(m_bench->tasks(), Qt::LeftButton, {}, m_bench->task(0));
    QCOMPARE(m_bench->find<QLineEdit>(u"txtEvName"_s)->text(), u"Send note"_s);
    QVERIFY(m_bench->find<QWidget>(u"imgPriority"_s)->isVisible());
    QVERIFY(!m_bench->find<QWidget>(u"imgFormat"_s)->isVisible());
}

void TestCalendarView::deleteAsksFirst()
{
    m_bench->addEntry(u"Interview"_s, u"11/22/2026"_s, u"9:00"_s, u"Event"_s);
    m_bench->open();
    m_bench->world.prompts.expect(u"Are you sure you want to delete this entry?"_s, Answer::No);
    m_bench->press(Qt::Key_Delete);
    QCOMPARE(m_bench->rows(u"Event"_s), 1);
    m_bench->world.prompts.expect(u"Are you sure you want to delete this entry?"_s, Answer::Yes);
    m_bench->press(Qt::Key_Delete);
    QCOMPARE(m_bench->rows(u"Event"_s), 0);
    m_bench->press(Qt::Key_Delete); // an empty day has nothing to ask about
    QVERIFY(m_bench->day(today)->chips().empty());
}

void TestCalendarView::walkedEventIsTheOneThatDeleteMeans()
{
    for (const QString& time : {u"8:00"_s, u"9:00"_s, u"10:00"_s})
        m_bench->addEntry(u"Interview"_s, u"11/22/2026"_s, time, u"Event"_s);
    m_bench->open();
    m_bench->press(Qt::Key_Delete); // which of the three is not said
    m_bench->press(Qt::Key_Down, Qt::ControlModifier);
    m_bench->press(Qt::Key_Down, Qt::ControlModifier);
    m_bench->world.prompts.expect(u"Are you sure"_s, Answer::Yes);
    m_bench->press(Qt::Key_Delete);
    QCOMPARE(m_bench->cells(u"Select EventTime from Event order by EventKey"_s), u"8:00;10:00"_s);
    // The slot of the one deleted is another's now; Delete must not go on by itself.
    m_bench->press(Qt::Key_Delete);
    QCOMPARE(m_bench->rows(u"Event"_s), 2);
}

void TestCalendarView::crowdedDayShowsTheRestOnDemand()
{
    for (int number = 1; number <= 9; ++number)
        m_bench->addEntry(u"Interview"_s, u"11/22/2026"_s, u"%1:00"_s.arg(number), u"Event"_s);
    m_bench->open();
    DayList* day = m_bench->day(today);
    QVERIFY(day->chipRect(8).isEmpty());
    QTest::mouseClick(day, Qt::LeftButton, {}, day->moreRect().center());
    auto* menu = m_bench->find<QMenu>(u"mnuDay"_s);
    QCOMPARE(menu->actions().size(), 9);
    QTest::keyClick(menu, Qt::Key_Up); // from the first to the last
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(m_bench->find<QComboBox>(u"txtEvTimeS"_s)->currentText(), u"9:00"_s);
}

void TestCalendarView::screenReaderFindsEveryEventOfADay()
{
    for (int number = 1; number <= 9; ++number)
        m_bench->addEntry(u"Interview"_s, u"11/22/2026"_s, u"%1:00"_s.arg(number), u"Event"_s);
    m_bench->open();
    QAccessibleInterface* day = QAccessible::queryAccessibleInterface(m_bench->day(today));
    QVERIFY(day->text(QAccessible::Name).contains(u"22"_s));
    QCOMPARE(day->childCount(), 9);
    QAccessibleInterface* last = day->child(8);
    QCOMPARE(last->text(QAccessible::Name), u"9:00 Interview"_s);
    QVERIFY(last->state().offscreen && !day->child(0)->state().offscreen);
    QCOMPARE(day->indexOfChild(last), 8);
    last->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(m_bench->find<QComboBox>(u"txtEvTimeS"_s)->currentText(), u"9:00"_s);
    m_bench->run(u"Delete * from Event"_s);
    m_bench->frm->calendar().reload();
    QVERIFY(!last->isValid() && last->text(QAccessible::Name).isEmpty());
}

void TestCalendarView::closingAsksForWhatIsUnsaved()
{
    m_bench->open();
    m_bench->press(Qt::Key_N);
    m_bench->type(u"txtEvName"_s, u"Referral"_s);
    m_bench->world.prompts.expect(u"Save the changes to this entry?"_s, Answer::Cancel);
    m_bench->view->close();
    QVERIFY(m_bench->view->isVisible());
    QCOMPARE(m_bench->find<QLineEdit>(u"txtEvName"_s)->text(), u"Referral"_s);
    m_bench->world.prompts.expect(u"Save the changes to this entry?"_s, Answer::Yes);
    m_bench->view->close();
    QVERIFY(!m_bench->view->isVisible());
    QCOMPARE(m_bench->cells(u"Select Event,EventDate from Event"_s), u"Referral|11/22/2026"_s);
}

void TestCalendarView::emptiedCompanyIsNone()
{
    m_bench->addEntry(u"Interview"_s, u"11/22/2026"_s, u"9:00"_s, u"Event"_s);
    m_bench->run(u"Update Event set CompanyKey=1,ContactKey=1,PositionKey=1"_s);
    m_bench->open();
    m_bench->press(Qt::Key_Return);
    QCOMPARE(m_bench->find<QComboBox>(u"lblContact"_s)->currentText(), u"Ann Lee"_s);
    m_bench->type(u"lblCompany"_s, {});
    m_bench->press(Qt::Key_Delete);
    QVERIFY(m_bench->find<QComboBox>(u"lblContact"_s)->currentText().isEmpty());
    m_bench->press(Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE(m_bench->cells(u"Select CompanyKey,ContactKey,PositionKey from Event"_s), u"0|0|0"_s);
}

void TestCalendarView::refusedOwnerIsToldAndNotShown_data()
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

void TestCalendarView::refusedOwnerIsToldAndNotShown()
{
    QFETCH(QString, name);
    QFETCH(QString, control);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    QFETCH(QString, shown);
    m_bench->open();
    m_bench->press(Qt::Key_N);
    m_bench->type(u"txtEvName"_s, name);
    m_bench->type(control, typed);
    m_bench->world.prompts.expect(message);
    // While a list of matches is open, the keys go there.
    QWidget* list = QApplication::activePopupWidget();
    QTest::keyClick(list ? list : QApplication::focusWidget(), Qt::Key_Tab);
    QTRY_VERIFY(m_bench->world.prompts.done());
    QTRY_COMPARE(m_bench->find<QComboBox>(control)->currentText(), shown);
    QCOMPARE(m_bench->frm->calendar().form().text(control), shown);
}

void TestCalendarView::openedListWithoutCompanyTellsWhatIsMissing()
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

void TestCalendarView::typedOwnerIsNotSavedBehindItsBack()
{
    m_bench->open();
    m_bench->press(Qt::Key_N);
    m_bench->type(u"lblCompany"_s, u"Acmee"_s);
    m_bench->world.prompts.expect(u"There is no company called \"Acmee\"."_s); // once
    m_bench->click(u"cmdAdd1"_s);
    QCoreApplication::processEvents();
    QVERIFY(m_bench->world.prompts.done());
    QCOMPARE(m_bench->rows(u"Event"_s), 0);
    QCOMPARE(QApplication::focusWidget(), m_bench->find<QWidget>(u"lblCompany"_s));
    m_bench->type(u"lblCompany"_s, u"acme"_s); // whole, and not chosen when the mnemonic saves
    m_bench->world.prompts.expect(u"There are no positions"_s, Answer::No);
    m_bench->press(Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE(m_bench->cells(u"Select CompanyKey from Event"_s), u"1"_s);
}

void TestCalendarView::pageKeysTurnTheMonthBesideTheFrame()
{
    m_bench->addEntry(u"Send note"_s, u"12/31/1999"_s, {}, u"Task"_s);
    m_bench->open();
    const auto turned = [this](const QString& control) {
        const int month = m_bench->frm->calendar().month();
        m_bench->find<QWidget>(control)->setFocus();
        m_bench->press(Qt::Key_PageDown);
        return m_bench->frm->calendar().month() != month;
    };
    QVERIFY(turned(u"lvwAct"_s));
    QVERIFY(turned(u"cmdToday"_s));
    m_bench->frm->calendar().cmdNewTask();
    QVERIFY(!turned(u"txtEvName"_s));
    QVERIFY(!turned(u"txtEvDescription"_s));
}

void TestCalendarView::timeFieldsShowTheLongestTime()
{
    m_bench->open();
    m_bench->press(Qt::Key_N);
    for (const QString& control : {u"txtEvTimeS"_s, u"txtEvTimeN"_s}) {
        const auto* field = m_bench->find<QComboBox>(control)->lineEdit();
        QVERIFY(field->contentsRect().width() > field->fontMetrics().horizontalAdvance(u"12:30"_s) + 6);
    }
}

void TestCalendarView::fullMonthIsShownWhole()
{
    m_bench->world.prompts.acceptAll(Answer::Ok); // the hint that the month is nearly full
    for (int number = 0; number < 100; ++number)
        m_bench->addEntry(u"Interview & more"_s, u"8/%1/2026"_s.arg(number % 31 + 1), u"9:00"_s, u"Event"_s);
    m_bench->open();
    m_bench->frm->calendar().showMonth({2026, 8, 31});
    size_t shown = 0;
    for (int index = 0; index < FrmEvCal::cellCount; ++index)
        shown += m_bench->find<DayList>(u"lvwDay%1"_s.arg(index))->chips().size();
    QCOMPARE(shown, size_t(100));
    // The last day stands in the sixth row, the very last cell but one or two.
    QVERIFY(m_bench->day({2026, 8, 31})->isVisible());
    m_bench->view->resize(m_bench->view->minimumSizeHint());
    QCoreApplication::processEvents();
    // Half of 1366x768, which is what a scale of two leaves, with a title bar and a frame around the window.
    QVERIFY2(m_bench->view->minimumSizeHint().width() <= 675,
             qPrintable(QString::number(m_bench->view->minimumSizeHint().width())));
    QVERIFY2(m_bench->view->minimumSizeHint().height() <= 350,
             qPrintable(QString::number(m_bench->view->minimumSizeHint().height())));
    QVERIFY(!m_bench->day({2026, 8, 31})->moreRect().isEmpty());
}

QTEST_MAIN(TestCalendarView)
#include "tst_calendarview.moc"
