// The calendar: what a month shows, and what its frame stores.
#include "calendar/calendarbench.h"

#include <QTest>

#include <sqlite3.h>

namespace {

const QString allColumns =
    u"Select Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,Reminder2,Description,PositionKey,ContactKey,CompanyKey,Medium,EventType,Complete from "_s;
const QString placeholderQuestion =
    u"There are no positions for this company and contact.\r\nWould you like to generate a "
    u"placeholder position?"_s;

} // namespace

class TestFrmEvCal : public QObject
{
    Q_OBJECT

private slots:
    void monthShowsItsEventsInTheirDays();
    void closedEventsAreGhostsWhenWanted();
    void busySentences_data();
    void busySentences();
    void tasksAreListedAndCounted();
    void walkingDaysCrossesMonths();
    void newEventIsStoredWithAllItHolds();
    void savingAgainReplacesTheRow();
    void entryWithoutStartBecomesATask();
    void taskWithoutDateIsInNoDayAndInEveryMonth();
    void networkingEventHasNoOwners();
    void ownersNeedACompanyFirst();
    void contactIsTheOneOfTheCompany_data();
    void contactIsTheOneOfTheCompany();
    void placeholderPositionIsOffered_data();
    void placeholderPositionIsOffered();
    void lengthAndEndFollowEachOther();
    void storedLengthOutlivesAnUnrelatedChange();
    void unreadableTextsAreRefusedAndStay_data();
    void unreadableTextsAreRefusedAndStay();
    void extrasAreLinesOfTheDescription();
    void removingAsksFirst();
    void droppingMovesAnEntry();
    void rightClickFlipsATask();
    void unsavedFrameAsksBeforeItGoes_data();
    void unsavedFrameAsksBeforeItGoes();
    void lookingAroundDoesNotMoveAStoredEntry();
    void otherScreensOpenAnEvent();
    void historyOpensATask_data();
    void historyOpensATask();
    void boundsAreToldOnceAndLeaveTheScreenUsable_data();
    void boundsAreToldOnceAndLeaveTheScreenUsable();
    void fullCalendarKeepsWhatIsNearToday_data();
    void fullCalendarKeepsWhatIsNearToday();
    void keyBeyondTheRangeIsToldAndLeftOut();
    void steppingMonthsSendsNothing();
};

void TestFrmEvCal::monthShowsItsEventsInTheirDays()
{
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"2:00 PM"_s, u"Referral"_s);
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.addEvent(u"12/31/1999"_s, u"8:00 AM"_s);
    bench.addEvent(u"11/24/2025"_s, u"8:00 AM"_s);
    bench.addEvent(u"11/1/2026"_s, u""_s, u"Networking Event"_s);
    bench.run(u"Update Event set Medium='Phone', Reminder1='48' where EventKey=2"_s);
    bench.calendar.load();
    QCOMPARE(bench.chips(), u"1 EV3 Networking Event;24 EV4 10:30 Interview;24 EV5 2:00p Referral"_s);
    QCOMPARE(bench.calendar.cellOf(QDate(2026, 11, 24)), 23);
    const DayCell& cell = bench.calendar.cells()[23];
    QCOMPARE(cell.chips[0].icons.join(u','), u"Meeting,Phone,Reminder"_s);
    QCOMPARE(cell.chips[0].tip, u"10:30 AM to 11:30 AM, Interview, Phone, reminder 2 dys before"_s);
    QCOMPARE(cell.chips[1].icons.join(u','), u"Referral,Nobell"_s);
    QCOMPARE(cell.chips[1].kind, u"inquiry"_s);
    QVERIFY(bench.calendar.cells()[21].today && bench.calendar.cells()[21].selected);
    QVERIFY(!bench.calendar.cells()[30].date.isValid());
    // The cells of one month are no trace in another that begins on another weekday.
    bench.calendar.showMonth(QDate(1999, 12, 31));
    QCOMPARE(bench.chips(), QString());
    QCOMPARE(bench.shown(u"lblMonth"_s), u"December 1999"_s);
}

void TestFrmEvCal::closedEventsAreGhostsWhenWanted()
{
    CalendarBench bench;
    bench.run(u"Delete * from Status where StatusDescription='ShowComplete'"_s);
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s, u"Interview"_s, u"Event"_s, u"OkEvent"_s);
    bench.calendar.load();
    QCOMPARE(bench.chips(), QString());
    QCOMPARE(bench.shown(u"lblEvents"_s), QString());
    bench.type(u"chkShowComplete"_s, u"1"_s);
    QCOMPARE(bench.chips(), u"24 EV1 10:30 Interview ghost"_s);
    QCOMPARE(bench.data().getStatusValue(u"ShowComplete"_s), u"1"_s);
}

void TestFrmEvCal::busySentences_data()
{
    QTest::addColumn<QStringList>("events"); // "day time"
    QTest::addColumn<QString>("sentences");
    QTest::newRow("none") << QStringList() << u"||"_s;
    QTest::newRow("one morning") << QStringList{u"3 9:00 AM"_s}
                                 << u"Events: 1 mostly mornings|11/3|Busiest on Tuesdays"_s;
    QTest::newRow("even")
        << QStringList{u"3 9:00 AM"_s, u"4 2:00 PM"_s}
        << u"Events: 2 mostly afternoon/evenings|11/3 , 11/4|Busiest on Tuesdays & Wednesdays"_s;
    QTest::newRow("later day wins") << QStringList{u"2 9:00 AM"_s, u"8 9:00 AM"_s, u"1 9:00 AM"_s}
                                    << u"Events: 3 mostly mornings|11/1 , 11/2 , 11/8|Busiest on Sundays"_s;
    QTest::newRow("three alike")
        << QStringList{u"6 9:00 AM"_s, u"7 1:00 PM"_s, u"9 1:00 PM"_s}
        << u"Events: 3 mostly afternoon/evenings|11/6 , 11/7 , 11/9|Busiest on Mondays & "
           u"Fridays & Saturdays"_s;
}

void TestFrmEvCal::busySentences()
{
    QFETCH(QStringList, events);
    CalendarBench bench;
    for (const QString& event : events)
        bench.addEvent(u"11/"_s + event.section(u' ', 0, 0) + u"/2026", event.section(u' ', 1));
    bench.calendar.load();
    QTEST(QStringList({bench.shown(u"lblEvents"_s), bench.shown(u"lblBusy"_s), bench.shown(u"lblBusiest"_s)})
              .join(u'|'),
          "sentences");
}

void TestFrmEvCal::tasksAreListedAndCounted()
{
    CalendarBench bench;
    const QString task = u"Task"_s;
    bench.addEvent(u"12/31/1999"_s, u""_s, u"Order cards"_s, task);
    bench.addEvent(u"10/5/2026"_s, u""_s, u"Last month"_s, task);
    bench.addEvent(u"11/21/2026"_s, u""_s, u"Thank"_s, task);
    bench.addEvent(u"11/22/2026"_s, u""_s, u"Update"_s, task);
    bench.addEvent(u"11/20/2026"_s, u""_s, u"Ask"_s, task, u"Complete"_s);
    bench.addEvent(u"11/24/2026"_s, u"9:00 AM"_s);
    bench.calendar.load();
    QCOMPARE(
        bench.tasks(),
        u"A1 Order cards No Date due;A5 Ask 11/20 completed;A3 Thank 11/21 overdue;A4 Update 11/22 due"_s);
    QCOMPARE(bench.shown(u"txtMonthly"_s),
             u"Tasks:  3\n--Overdue:  1\n--Due:  1\n--Completed:  1\nEvents:  1"_s);
    QCOMPARE(bench.shown(u"txtTotals"_s),
             u"Tasks:  5\n--Overdue:  2\n--Due:  2\n--Completed:  1\nEvents:  1"_s);
    QCOMPARE(bench.shown(u"txtNoDate"_s), u"Tasks:  1\n--Due:  1\n--Completed:  0\nEvents:  0"_s);
    QCOMPARE(bench.shown(u"Label11"_s), u"Month of November"_s);
    bench.calendar.cmdLast();
    QCOMPARE(bench.tasks(), u"A1 Order cards No Date due;A2 Last month 10/5 overdue"_s);
}

void TestFrmEvCal::walkingDaysCrossesMonths()
{
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.walkDays(7);
    QCOMPARE(bench.calendar.selectedDay(), QDate(2026, 11, 29));
    bench.calendar.walkDays(7);
    QCOMPARE(bench.calendar.selectedDay(), QDate(2026, 12, 6));
    QCOMPARE(bench.shown(u"lblMonth"_s), u"December 2026"_s);
    bench.calendar.selectDay(QDate(2026, 12, 31));
    bench.calendar.cmdNext();
    bench.calendar.cmdNext();
    QCOMPARE(bench.calendar.selectedDay(), QDate(2027, 2, 28));
    bench.calendar.cmdToday();
    QCOMPARE(bench.calendar.selectedDay(), QDate(2026, 11, 22));
    bench.calendar.showMonth(QDate(10000, 1, 1)); // beyond what a statement can hold
    QCOMPARE(bench.shown(u"lblMonth"_s), u"November 2026"_s);
}

void TestFrmEvCal::newEventIsStoredWithAllItHolds()
{
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2026, 11, 24));
    bench.calendar.chooseEventType(u"Interview"_s);
    bench.calendar.chooseFormat(u"Meeting"_s);
    bench.type(u"lblCompany"_s, u"Acme"_s);
    QCOMPARE(bench.form().items(u"lblContact"_s).join(u','), u",Ana Ruiz,Mary Ann Smith"_s);
    bench.type(u"lblContact"_s, u"Ana Ruiz"_s);
    bench.type(u"lblPosition"_s, u"Engineer"_s);
    bench.type(u"txtEvTimeS"_s, u"14:30"_s);
    bench.type(u"chkOnehalf"_s, u"1"_s);
    bench.calendar.chooseRemind(u"2 dys"_s);
    bench.type(u"txtEvDescription"_s, u"Bring Event( the plant's\nstudy"_s);
    QSignalSpy recordsChanged(&bench.calendar, &FrmEvCal::recordsChanged);
    bench.calendar.cmdAdd1();
    const QString stored =
        u"Interview|11/24/2026|2:30|1.5|PM|48|0|Bring Event( the plant`s\r\nstudy|1|1|1|Meeting|Event|"_s;
    QCOMPARE(bench.cells(allColumns + u"Event"), stored);
    QCOMPARE(bench.cells(allColumns + u"EventRecovery"), stored);
    QCOMPARE(bench.chips(), u"24 EV1 2:30p Interview"_s);
    QCOMPARE(recordsChanged.size(), 1);
    QVERIFY(bench.calendar.isFrameOpen() && !bench.calendar.isNewEntry() && !bench.calendar.isFrameDirty());
}

void TestFrmEvCal::savingAgainReplacesTheRow()
{
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.run(
        u"Update Event set CompanyKey=1, ContactKey=1, PositionKey=1, Reminder1='30' where EventKey=1"_s);
    bench.calendar.load();
    bench.calendar.openEntry(u"EV1"_s);
    QCOMPARE(QStringList({bench.shown(u"lblCompany"_s), bench.shown(u"lblContact"_s),
                          bench.shown(u"lblPosition"_s), bench.shown(u"txtRemind"_s),
                          bench.shown(u"imgReminder"_s), bench.shown(u"chkOne"_s),
                          bench.shown(u"txtEvTimeN"_s), bench.shown(u"frmeEventData"_s)})
                 .join(u'|'),
             u"Acme|Ana Ruiz|Engineer|1.25 dys|1|1|11:30|11/24/2026"_s);
    bench.type(u"chkComplete"_s, u"1"_s);
    bench.type(u"dtEvTsk"_s, u"2026-12-02"_s);
    bench.calendar.cmdAdd1();
    bench.calendar.cmdAdd1();
    QCOMPARE(
        bench.cells(
            u"Select EventKey,EventDate,Reminder1,CompanyKey,ContactKey,PositionKey,Complete from Event"_s),
        u"3|12/2/2026|30|1|1|1|OkEvent"_s);
    QCOMPARE(bench.data().getCount(u"EventRecovery"_s, true), Key(2));
    QCOMPARE(bench.shown(u"lblMonth"_s), u"December 2026"_s);
}

void TestFrmEvCal::entryWithoutStartBecomesATask()
{
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2026, 11, 24));
    bench.type(u"txtEvTimeS"_s, u""_s);
    bench.type(u"chkComplete"_s, u"1"_s);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select EventType,Complete from Event"_s), u"Task|Complete"_s);
    QCOMPARE(bench.tasks(), u"A1 Other Event 11/24 completed"_s);
}

void TestFrmEvCal::taskWithoutDateIsInNoDayAndInEveryMonth()
{
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2027, 1, 5));
    bench.type(u"chkNoDate"_s, u"1"_s); // only a task can be without a date
    QVERIFY(!bench.calendar.frameDate().isValid());
    bench.calendar.choosePriority(u"High Priority"_s);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select EventDate,EventType,Medium from Event"_s),
             u"12/31/1999|Task|High Priority"_s);
    QCOMPARE(bench.shown(u"lblMonth"_s), u"November 2026"_s); // back on today's month
    QCOMPARE(bench.tasks(), u"A1 Other Event No Date due"_s);
    QCOMPARE(bench.chips(), QString());
    bench.type(u"chkTask"_s, u"0"_s);
    QVERIFY(bench.calendar.frameDate().isValid());
}

void TestFrmEvCal::networkingEventHasNoOwners()
{
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2026, 11, 24));
    bench.type(u"lblCompany"_s, u"Acme"_s);
    bench.type(u"lblContact"_s, u"Ana Ruiz"_s);
    bench.calendar.chooseEventType(u"Networking Event"_s);
    QCOMPARE(bench.shown(u"lblCompany"_s), u"Networking Event"_s);
    for (const QString& control : {u"lblCompany"_s, u"lblContact"_s}) {
        bench.world.prompts.expect(
            u"This is a networking event.  Select the 'Other Event' type if you want to assign a "
            u"company or contact."_s);
        bench.type(control, u"Bolt"_s);
    }
    QCOMPARE(bench.shown(u"lblCompany"_s) + bench.shown(u"lblContact"_s), u"Networking Event"_s);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select Event,CompanyKey,ContactKey,PositionKey from Event"_s),
             u"Networking Event|0|0|0"_s);
    bench.calendar.chooseEventType(u"Other Event"_s);
    QCOMPARE(bench.shown(u"lblCompany"_s), QString());
}

void TestFrmEvCal::ownersNeedACompanyFirst()
{
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2026, 11, 24));
    for (const QString& control : {u"lblContact"_s, u"lblPosition"_s}) {
        bench.world.prompts.expect(u"Must select company first."_s);
        bench.type(control, u"Ana Ruiz"_s);
        QCOMPARE(bench.world.prompts.lastTitle(), u"Select Company First"_s);
        QCOMPARE(bench.shown(control), QString());
    }
    bench.type(u"lblCompany"_s, u"Acme"_s);
    bench.type(u"lblContact"_s, u"Ana Ruiz"_s);
    bench.type(u"lblCompany"_s, u"Bolt"_s);
    QCOMPARE(bench.shown(u"lblContact"_s), QString());
}

void TestFrmEvCal::contactIsTheOneOfTheCompany_data()
{
    QTest::addColumn<QString>("company");
    QTest::addColumn<QString>("contact");
    QTest::addColumn<QString>("keys");
    QTest::newRow("namesake elsewhere") << u"Acme"_s << u"Ana Ruiz"_s << u"1|1"_s;
    QTest::newRow("entered last") << u"Bolt"_s << u"Ana Ruiz"_s << u"2|3"_s;
    QTest::newRow("two first names") << u"Acme"_s << u"Mary Ann Smith"_s << u"1|2"_s;
    QTest::newRow("the empty box's label") << u"Acme"_s << u"Contact"_s << u"1|0"_s;
}

void TestFrmEvCal::contactIsTheOneOfTheCompany()
{
    QFETCH(QString, company);
    QFETCH(QString, contact);
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2026, 11, 24));
    bench.calendar.chooseCompany(company);
    bench.calendar.chooseContact(contact);
    bench.world.prompts.expect(placeholderQuestion, Answer::No);
    bench.calendar.cmdAdd1();
    QTEST(bench.cells(u"Select CompanyKey,ContactKey from Event"_s), "keys");
    // What is stored is what is opened again.
    bench.calendar.closeEvent();
    bench.calendar.openEntry(u"EV1"_s);
    QCOMPARE(bench.shown(u"lblCompany"_s), company);
    QCOMPARE(bench.shown(u"lblContact"_s), contact == u"Contact" ? QString() : contact);
}

void TestFrmEvCal::placeholderPositionIsOffered_data()
{
    QTest::addColumn<QString>("contact");
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("positions");
    QTest::addColumn<QString>("positionKey");
    const QString placeholder = u"Position34200|11/22/2026|Jobwright Generated Position|"_s;
    QTest::newRow("wanted") << u"Ana Ruiz"_s << Answer::Yes << placeholder + u"3|2" << u"2"_s;
    QTest::newRow("wanted without a contact") << u""_s << Answer::Yes << placeholder + u"|2" << u"2"_s;
    QTest::newRow("not wanted") << u"Ana Ruiz"_s << Answer::No << QString() << u"0"_s;
    QTest::newRow("closed") << u"Ana Ruiz"_s << Answer::Cancel << QString() << u"0"_s;
}

void TestFrmEvCal::placeholderPositionIsOffered()
{
    QFETCH(QString, contact);
    QFETCH(Answer, answer);
    QFETCH(QString, positions);
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2026, 12, 24));
    bench.calendar.chooseCompany(u"Bolt"_s);
    bench.calendar.chooseContact(contact);
    bench.world.prompts.expect(placeholderQuestion, answer);
    bench.calendar.cmdAdd1();
    for (const QString& table : {u"Position where CompanyKey=2"_s, u"PositionRecovery"_s})
        QCOMPARE(bench.cells(u"Select Title,EntryDate,Notes,ContactList,CompanyKey from "_s + table),
                 positions);
    QTEST(bench.cells(u"Select PositionKey from Event"_s), "positionKey");
    QCOMPARE(bench.shown(u"lblPosition"_s), positions.section(u'|', 0, 0));
    if (answer == Answer::Yes)
        bench.calendar.cmdAdd1(); // has its position now, and asks no more
}

void TestFrmEvCal::lengthAndEndFollowEachOther()
{
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2026, 11, 24));
    const auto times = [&]() -> QString {
        QStringList boxes;
        for (const QString& box : {u"chkhalf"_s, u"chkOne"_s, u"chkOnehalf"_s, u"chkTwo"_s})
            boxes << bench.shown(box);
        return bench.shown(u"txtEvTimeS"_s) + (bench.shown(u"optStPM"_s) == u"1" ? u"p " : u" ") +
               bench.shown(u"txtEvTimeN"_s) + (bench.shown(u"optEnPM"_s) == u"1" ? u"p " : u" ") +
               boxes.join(QString());
    };
    QCOMPARE(times(), u"9:00 10:00 0100"_s);
    bench.type(u"chkTwo"_s, u"1"_s);
    QCOMPARE(times(), u"9:00 11:00 0001"_s);
    bench.type(u"txtEvTimeS"_s, u"11"_s);
    QCOMPARE(times(), u"11:00 1:00p 0001"_s);
    bench.type(u"optStPM"_s, u"1"_s);
    QCOMPARE(times(), u"11:00p 1:00 0001"_s);
    bench.type(u"optStAM"_s, u"1"_s);
    bench.type(u"txtEvTimeN"_s, u"11:45"_s);
    bench.type(u"optEnAM"_s, u"1"_s);
    QCOMPARE(times(), u"11:00 11:45 0000"_s);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select EventDuration from Event"_s), u"0.75"_s);
    bench.type(u"chkhalf"_s, u"1"_s);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select EventDuration from Event"_s), u".5"_s);
}

void TestFrmEvCal::storedLengthOutlivesAnUnrelatedChange()
{
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"12:30 PM"_s); // its end is shown in the morning
    bench.calendar.load();
    bench.calendar.openEntry(u"EV1"_s);
    QCOMPARE(bench.shown(u"txtEvTimeN"_s) + bench.shown(u"optEnAM"_s), u"1:301"_s);
    bench.type(u"txtEvDescription"_s, u"lunch"_s);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select EventTime,AMPM,EventDuration from Event"_s), u"12:30|PM|1"_s);
}

void TestFrmEvCal::unreadableTextsAreRefusedAndStay_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    QTest::newRow("start") << u"txtEvTimeS"_s << u"noonish"_s << u"\"noonish\" is no time of day."_s;
    QTest::newRow("end") << u"txtEvTimeN"_s << u"25:00"_s << u"\"25:00\" is no time of day."_s;
    QTest::newRow("lead time") << u"txtRemind"_s << u"2 days"_s << u"\"2 days\" is no lead time."_s;
    QTest::newRow("company") << u"lblCompany"_s << u"Nobody Inc"_s
                             << u"There is no company called \"Nobody Inc\"."_s;
    QTest::newRow("too long") << u"txtEvDescription"_s << QString(500'000, u'x') << u"too long"_s;
}

void TestFrmEvCal::unreadableTextsAreRefusedAndStay()
{
    QFETCH(QString, control);
    QFETCH(QString, text);
    QFETCH(QString, message);
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.calendar.load();
    bench.calendar.openEntry(u"EV1"_s);
    bench.type(control, text);
    bench.world.prompts.expect(message);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.shown(control), text);
    QVERIFY(bench.calendar.isFrameDirty());
    QCOMPARE(bench.cells(u"Select EventKey,EventTime from Event"_s), u"1|10:30"_s);
}

void TestFrmEvCal::extrasAreLinesOfTheDescription()
{
    CalendarBench bench;
    bench.calendar.load();
    bench.calendar.newEvent(QDate(2026, 11, 24));
    bench.type(u"txtEvDescription"_s, u"Plant tour"_s);
    bench.calendar.chooseOther(1, u"Meal"_s);
    bench.calendar.chooseOther(2, u"Meal"_s);
    bench.calendar.chooseOther(2, u"Formal Dress"_s);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select Description from Event"_s), u"Plant tour\r\nMeal\r\nFormal Dress"_s);
    bench.calendar.closeEvent();
    bench.calendar.openEntry(u"EV1"_s);
    QCOMPARE(bench.shown(u"imgOther1"_s) + u'|' + bench.shown(u"imgOther2"_s), u"Meal|Formal Dress"_s);
    bench.calendar.chooseOther(1, u"Other"_s);
    QCOMPARE(bench.shown(u"txtEvDescription"_s), u"Plant tour\nFormal Dress"_s);
}

void TestFrmEvCal::removingAsksFirst()
{
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.addEvent(u"11/25/2026"_s, u"10:30 AM"_s, u"Referral"_s);
    bench.calendar.load();
    bench.calendar.openEntry(u"EV1"_s);
    const QString question = u"Are you sure you want to delete this entry?"_s;
    bench.world.prompts.expect(question, Answer::No);
    bench.calendar.cmdRemove1();
    QCOMPARE(bench.world.prompts.lastTitle(), u"Delete Event"_s);
    QCOMPARE(bench.data().getCount(u"Event"_s, true), Key(2));
    bench.world.prompts.expect(question, Answer::Yes);
    bench.calendar.cmdRemove1();
    QVERIFY(!bench.calendar.isFrameOpen());
    QCOMPARE(bench.chips(), u"25 EV1 10:30 Referral"_s);
    // The keyboard's delete on a chip leaves another entry's frame alone.
    bench.calendar.newEvent(QDate(2026, 11, 26));
    bench.world.prompts.expect(question, Answer::Yes);
    bench.calendar.removeEntry(u"EV1"_s);
    QVERIFY(bench.calendar.isFrameOpen());
    QCOMPARE(bench.chips(), QString());
    bench.calendar.cmdRemove1(); // a new entry has nothing to delete, and asks nothing
    bench.calendar.removeEntry(u"EV1"_s);
}

void TestFrmEvCal::droppingMovesAnEntry()
{
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.addEvent(u"12/31/1999"_s, u""_s, u"Order cards"_s, u"Task"_s);
    bench.calendar.load();
    bench.calendar.openEntry(u"EV2"_s);
    bench.type(u"txtEvDescription"_s, u"typed meanwhile"_s);
    QSignalSpy recordsChanged(&bench.calendar, &FrmEvCal::recordsChanged);
    bench.calendar.cmdNext();
    bench.calendar.dropOn(u"EV2"_s, QDate(2026, 12, 3));
    QCOMPARE(bench.chips(), u"3 EV2 10:30 Interview"_s);
    QCOMPARE(recordsChanged.size(), 1);
    QCOMPARE(bench.calendar.frameDate(), QDate(2026, 12, 3));
    bench.calendar.cmdAdd1(); // the frame does not take it back
    QCOMPARE(bench.cells(u"Select EventDate,Description from Event where EventType='Event'"_s),
             u"12/3/2026|typed meanwhile"_s);
    bench.calendar.dropOn(u"A2"_s, QDate(2026, 12, 5));
    QCOMPARE(bench.tasks(), u"A2 Order cards 12/5 due"_s);
    const qsizetype before = recordsChanged.size();
    bench.calendar.dropOn(u"A2"_s, QDate());            // beside the days
    bench.calendar.dropOn(u"A2"_s, QDate(2026, 12, 5)); // where it lies
    bench.calendar.dropOn(u"EV99"_s, QDate(2026, 12, 6));
    bench.calendar.dropOn(u"EV0"_s, QDate(2026, 12, 6));
    bench.calendar.dropOn(u"file:///x"_s, QDate(2026, 12, 6));
    QCOMPARE(recordsChanged.size(), before);
}

void TestFrmEvCal::rightClickFlipsATask()
{
    CalendarBench bench;
    bench.addEvent(u"11/21/2026"_s, u""_s, u"Thank"_s, u"Task"_s);
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.calendar.load();
    bench.calendar.openEntry(u"A1"_s);
    bench.calendar.flipTask(u"A1"_s);
    QCOMPARE(bench.tasks(), u"A1 Thank 11/21 completed"_s);
    QCOMPARE(bench.calendar.completeCaption(), u"Complete"_s);
    bench.calendar.flipTask(u"A1"_s);
    QCOMPARE(bench.tasks(), u"A1 Thank 11/21 overdue"_s);
    bench.calendar.flipTask(u"A2"_s); // no task
    QCOMPARE(bench.cells(u"Select Complete from Event"_s), u";"_s);
}

void TestFrmEvCal::unsavedFrameAsksBeforeItGoes_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("left");
    QTest::newRow("save") << Answer::Yes << u"typed"_s << true;
    QTest::newRow("drop") << Answer::No << QString() << true;
    QTest::newRow("stay") << Answer::Cancel << QString() << false;
}

void TestFrmEvCal::unsavedFrameAsksBeforeItGoes()
{
    QFETCH(Answer, answer);
    QFETCH(bool, left);
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.calendar.load();
    bench.calendar.openEntry(u"EV1"_s);
    bench.type(u"txtEvDescription"_s, u"typed"_s);
    bench.calendar.openEntry(u"EV1"_s); // the same one again: nothing is lost, nothing is asked
    QCOMPARE(bench.shown(u"txtEvDescription"_s), u"typed"_s);
    bench.world.prompts.expect(u"Save the changes to this entry?"_s, answer);
    bench.calendar.newEvent(QDate(2026, 11, 25));
    QCOMPARE(bench.calendar.isNewEntry(), left);
    QTEST(bench.cells(u"Select Description from Event"_s), "stored");
}

void TestFrmEvCal::lookingAroundDoesNotMoveAStoredEntry()
{
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
    bench.calendar.load();
    bench.calendar.openEntry(u"EV1"_s);
    bench.calendar.selectDay(QDate(2026, 11, 26));
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select EventDate from Event"_s), u"11/24/2026"_s);
    bench.calendar.newEvent(QDate(2026, 11, 24));
    bench.calendar.selectDay(QDate(2026, 11, 27)); // a new one goes along
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.cells(u"Select EventDate from Event"_s), u"11/24/2026;11/27/2026"_s);
}

void TestFrmEvCal::otherScreensOpenAnEvent()
{
    CalendarBench bench;
    bench.addEvent(u"3/9/2027"_s, u"10:30 AM"_s);
    bool seen = false;
    bench.navigator.whileOpen = [&] {
        seen = true;
        QCOMPARE(bench.shown(u"lblMonth"_s), u"March 2027"_s);
        QCOMPARE(bench.calendar.frameDate(), QDate(2027, 3, 9));
    };
    bench.calendar.showEvent(1);
    QVERIFY(seen);
    bench.navigator.whileOpen = [&] {
        QVERIFY(!bench.calendar.isFrameOpen());
        QCOMPARE(bench.shown(u"lblMonth"_s), u"November 2026"_s);
    };
    bench.world.prompts.expect(u"This entry is no longer in the calendar."_s);
    bench.calendar.showEvent(77);
    bench.calendar.reload(); // a shut calendar paints nothing
    QCOMPARE(bench.calendar.isFrameOpen(), false);
}

void TestFrmEvCal::historyOpensATask_data()
{
    QTest::addColumn<QStringList>("values"); // H0 to H6
    QTest::addColumn<bool>("asks");
    QTest::addColumn<QString>("stored");
    QTest::newRow("all") << QStringList{u"Acme"_s,         u"Ana Ruiz"_s,
                                        u"Engineer"_s,     u"Interview Follow-up"_s,
                                        u"Ask\r\nagain"_s, u"12/1/2026"_s,
                                        u"Phone"_s}
                         << false << u"Interview Follow-up|12/1/2026||Ask\r\nagain|1|1|1|Phone|Task"_s;
    QTest::newRow("no position") << QStringList{u"Acme"_s, u"Ana Ruiz"_s, u"NONE"_s, u"Referral"_s,
                                                u"NONE"_s, u"nonsense"_s, u"NONE"_s}
                                 << true << u"Referral|11/22/2026|||0|1|1||Task"_s;
    QTest::newRow("networking") << QStringList{u"Acme"_s, u"Ana Ruiz"_s,   u"Engineer"_s, u"networking"_s,
                                               u""_s,     u"2026-12-01"_s, u""_s}
                                << false << u"Networking Event|12/1/2026|||0|0|0||Task"_s;
    QTest::newRow("no date") << QStringList{u"NONE"_s, u"NONE"_s,       u"NONE"_s, u"Referral"_s,
                                            u""_s,     u"12/31/1999"_s, u""_s}
                             << false << u"Referral|12/31/1999|||0|0|0||Task"_s;
    QTest::newRow("a company that begins so")
        << QStringList{u"Netto"_s, u"NONE"_s, u"NONE"_s, u"Referral"_s, u""_s, u"12/1/2026"_s, u""_s} << true
        << u"Referral|12/1/2026|||0|0|3||Task"_s;
}

void TestFrmEvCal::historyOpensATask()
{
    QFETCH(QStringList, values);
    QFETCH(bool, asks);
    CalendarBench bench;
    bench.run(u"Insert into Company(Name) Values('Netto')"_s);
    QHash<QString, QString> named;
    for (int i = 0; i < 7; ++i)
        named.insert(u"H%1"_s.arg(i), values[i]);
    bench.navigator.whileOpen = [&] {
        QVERIFY(bench.calendar.isNewEntry() && bench.calendar.isFrameDirty());
        QCOMPARE(bench.shown(u"chkTask"_s), u"1"_s);
        bench.calendar.cmdAdd1();
    };
    if (asks)
        bench.world.prompts.expect(placeholderQuestion, Answer::No);
    bench.calendar.createHistoryEvent(named);
    QTEST(
        bench.cells(
            u"Select Event,EventDate,EventTime,Description,PositionKey,ContactKey,CompanyKey,Medium,EventType from Event"_s),
        "stored");
}

void TestFrmEvCal::boundsAreToldOnceAndLeaveTheScreenUsable_data()
{
    QTest::addColumn<int>("events");
    QTest::addColumn<int>("perMonth");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<int>("shown"); // in November
    QTest::newRow("below") << 89 << 89 << QStringList() << 89;
    QTest::newRow("full month soon") << 90 << 90 << QStringList{u"This month has 90 events"_s} << 90;
    QTest::newRow("full month") << 100 << 100 << QStringList{u"This month has 100 events"_s} << 100;
    QTest::newRow("month too full") << 101 << 101 << QStringList{u"at most 100 events of one month"_s} << 100;
    QTest::newRow("full soon") << 900 << 30 << QStringList{u"There are 900 events"_s} << 30;
    QTest::newRow("too many") << 1001 << 30 << QStringList{u"holds at most 1000 events and tasks"_s} << 30;
}

void TestFrmEvCal::boundsAreToldOnceAndLeaveTheScreenUsable()
{
    QFETCH(int, events);
    QFETCH(int, perMonth);
    QFETCH(QStringList, messages);
    CalendarBench bench;
    {
        Action action(bench.data());
        for (int i = 0; i < events; ++i)
            bench.addEvent(
                (i < perMonth ? u"11/24/2026"_s : QDate(2027, 1, 1).addDays(i).toString(u"M/d/yyyy"_s)),
                u"9:00 AM"_s);
    }
    for (const QString& message : messages)
        bench.world.prompts.expect(message);
    bench.calendar.load();
    QVERIFY(bench.world.prompts.done());
    QTEST(int(bench.calendar.cells()[23].chips.size()), "shown");
    bench.calendar.cmdNext();
    bench.calendar.cmdLast();
    // An entry that is shown no more is in the store and can be opened by its key.
    bench.calendar.openEvent(static_cast<Key>(events));
    QVERIFY(bench.calendar.isFrameOpen());
    QCOMPARE(bench.data().getCounter(u"Select Count(*) from Event"_s), static_cast<Key>(events));
}

void TestFrmEvCal::fullCalendarKeepsWhatIsNearToday_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<bool>("kept");
    QTest::newRow("today") << QDate(2026, 11, 22) << true;
    QTest::newRow("long before the others") << QDate(2015, 1, 1) << false;
    QTest::newRow("long behind the others") << QDate(2040, 1, 1) << false;
}

void TestFrmEvCal::fullCalendarKeepsWhatIsNearToday()
{
    QFETCH(QDate, day);
    QFETCH(bool, kept);
    CalendarBench bench;
    {
        Action action(bench.data());
        for (int i = 0; i < 1005; ++i) // up to a few days ago
            bench.addEvent(QDate(2024, 2, 15).addDays(i).toString(u"M/d/yyyy"_s), u"9:00 AM"_s);
        bench.addEvent(u"12/31/1999"_s, {}, u"Update portfolio"_s, u"Task"_s);
    }
    bench.world.prompts.expect(u"holds at most 1000 events and tasks"_s);
    bench.calendar.load();
    bench.calendar.newEvent(day);
    if (!kept)
        bench.world.prompts.expect(u"The entry is saved, but the calendar does not show it"_s);
    bench.calendar.cmdAdd1();
    QVERIFY(bench.world.prompts.done());
    QCOMPARE(bench.chips().contains(u"9:00 Other Event"_s), kept);
    QVERIFY(bench.tasks().contains(u"Update portfolio"_s));
    QCOMPARE(bench.data().getCounter(u"Select Count(*) from Event"_s), Key(1007));
}

void TestFrmEvCal::keyBeyondTheRangeIsToldAndLeftOut()
{
    CalendarBench bench;
    bench.addEvent(u"11/25/2026"_s, u"9:00 AM"_s);
    sqlite3_exec(bench.data().database().handle(),
                 "INSERT INTO Event(EventKey,EventDate,EventType) VALUES(32768,'2026-11-24','Event')",
                 nullptr, nullptr, nullptr);
    bench.world.prompts.expect(u"Overflow: 1 event(s)"_s);
    bench.calendar.load();
    QCOMPARE(bench.chips(), u"25 EV1 9:00 Interview"_s);
    QVERIFY(bench.world.errorLog().contains(u"frmEvCal - loadEvents"_s));
    // No key is left for another entry: the one in the frame is not deleted for it.
    bench.calendar.openEntry(u"EV1"_s);
    bench.world.prompts.expect(u"Event"_s);
    bench.calendar.cmdAdd1();
    QCOMPARE(bench.data().getCount(u"Event"_s, true), Key(2));
}

void TestFrmEvCal::steppingMonthsSendsNothing()
{
    CalendarBench bench;
    bench.addEvent(u"11/24/2026"_s, u"9:00 AM"_s);
    bench.calendar.load();
    int sent = 0;
    bench.data().database().setInterceptor([&](QStringView) { ++sent; });
    for (int i = 0; i < 12; ++i)
        bench.calendar.cmdNext();
    bench.data().database().setInterceptor({});
    QCOMPARE(sent, 0);
}

QTEST_GUILESS_MAIN(TestFrmEvCal)
#include "tst_frmevcal.moc"
