// The calendar: what a month shows, how its entries are moved, and what it can hold.
#include "calendar/calendarbench.h"
#include "support/runtest.h"
#include "support/table.h"

class TestFrmEvCalMonth : public QObject
{
    Q_OBJECT

private slots:
    void monthShowsItsEventsInTheirDays()
    {
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"2:00 PM"_s, u"Referral"_s);
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.addEvent(u"12/31/1999"_s, u"8:00 AM"_s);
        bench.addEvent(u"11/24/2025"_s, u"8:00 AM"_s);
        bench.addEvent(u"11/1/2026"_s, u""_s, u"Networking Event"_s);
        bench.run(
            u"Update Event set Medium='Phone', Reminder1='48', ContactKey=1, CompanyKey=1 where EventKey=2"_s);
        bench.calendar.load();
        QCOMPARE(bench.chips(), u"1 EV3 Networking Event;24 EV4 10:30 Interview;24 EV5 2:00p Referral"_s);
        QCOMPARE(bench.calendar.cellOf({2026, 11, 24}), 23);
        const auto& cells = bench.calendar.cells();
        QCOMPARE(cells[23].chips[0].icons.join(u','), u"Meeting,Phone,Reminder"_s);
        QCOMPARE(cells[23].chips[0].tip,
                 u"10:30 AM to 11:30 AM, Interview, with Ana Ruiz, Acme, Phone, reminder 2 dys before"_s);
        QCOMPARE(cells[23].chips[1].icons.join(u','), u"Referral,Nobell"_s);
        QCOMPARE(cells[23].chips[1].kind, u"inquiry"_s);
        QVERIFY(cells[21].today && cells[21].selected && !cells[30].date.isValid());
        // The cells of one month are no trace in another that begins on another weekday.
        bench.calendar.showMonth({1999, 12, 31});
        QCOMPARE(bench.chips(), QString());
        QCOMPARE(bench.shown(u"lblMonth"_s), u"December 1999"_s);
    }

    void closedEventsAreGhostsWhenWanted()
    {
        CalendarBench bench;
        bench.run(u"Delete * from Status where StatusDescription='ShowComplete'"_s);
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s, u"Interview"_s, u"Event"_s, u"OkEvent"_s);
        bench.calendar.load();
        QCOMPARE(bench.chips() + bench.shown(u"lblEvents"_s), QString());
        bench.type(u"chkShowComplete"_s, u"1"_s);
        QCOMPARE(bench.chips(), u"24 EV1 10:30 Interview ghost"_s);
        QCOMPARE(bench.data().getStatusValue(u"ShowComplete"_s), u"1"_s);
    }

    void busySentences_data()
    {
        // events: "day time" of each
        table({"events", "sentences"},
              {{"none", "", "||"},
               {"one morning", "3 9:00 AM", "Events: 1 mostly mornings|11/3|Busiest on Tuesdays"},
               {"even", "3 9:00 AM,4 2:00 PM",
                "Events: 2 mostly afternoon/evenings|11/3 , 11/4|Busiest on Tuesdays & Wednesdays"},
               {"later day wins", "2 9:00 AM,8 9:00 AM,1 9:00 AM",
                "Events: 3 mostly mornings|11/1 , 11/2 , 11/8|Busiest on Sundays"},
               {"three alike", "6 9:00 AM,7 1:00 PM,9 1:00 PM",
                "Events: 3 mostly afternoon/evenings|11/6 , 11/7 , 11/9|"
                "Busiest on Mondays & Fridays & Saturdays"}});
    }
    void busySentences()
    {
        FETCH(QString, events, sentences);
        CalendarBench bench;
        for (const QString& event : events.split(u',', Qt::SkipEmptyParts))
            bench.addEvent(u"11/"_s + event.section(u' ', 0, 0) + u"/2026", event.section(u' ', 1));
        bench.calendar.load();
        QCOMPARE(bench.shown(u"lblEvents lblBusy lblBusiest"_s), sentences);
    }

    void tasksAreListedAndCounted()
    {
        CalendarBench bench;
        bench.addTask(u"12/31/1999"_s, u"Order cards"_s);
        bench.addTask(u"10/5/2026"_s, u"Last month"_s);
        bench.addTask(u"11/21/2026"_s, u"Thank"_s);
        bench.addTask(u"11/22/2026"_s, u"Update"_s);
        bench.addTask(u"11/20/2026"_s, u"Ask"_s, u"Complete"_s);
        bench.addEvent(u"11/24/2026"_s, u"9:00 AM"_s);
        bench.calendar.load();
        QCOMPARE(bench.tasks(), u"A1 Order cards No Date due;A5 Ask 11/20 completed;"
                                u"A3 Thank 11/21 overdue;A4 Update 11/22 due"_s);
        QCOMPARE(bench.shown(u"Label11 txtMonthly txtTotals txtNoDate"_s),
                 u"Month of November"
                 u"|Tasks:  3\n--Overdue:  1\n--Due:  1\n--Completed:  1\nEvents:  1"
                 u"|Tasks:  5\n--Overdue:  2\n--Due:  2\n--Completed:  1\nEvents:  1"
                 u"|Tasks:  1\n--Due:  1\n--Completed:  0\nEvents:  0"_s);
        bench.calendar.cmdLast();
        QCOMPARE(bench.tasks(), u"A1 Order cards No Date due;A2 Last month 10/5 overdue"_s);
    }

    void selectedDayStaysInTheShownMonth()
    {
        CalendarBench bench;
        bench.calendar.load();
        bench.calendar.selectDay({2026, 12, 31});
        bench.calendar.cmdNext();
        bench.calendar.cmdNext();
        QCOMPARE(bench.calendar.selectedDay(), QDate(2027, 2, 28));
        bench.calendar.cmdToday();
        QCOMPARE(bench.calendar.selectedDay(), QDate(2026, 11, 22));
        bench.calendar.showMonth({10000, 1, 1}); // beyond what a statement can hold
        QCOMPARE(bench.shown(u"lblMonth"_s), u"November 2026"_s);
    }

    void droppingMovesAnEntry()
    {
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.addTask(u"12/31/1999"_s, u"Order cards"_s);
        bench.calendar.load();
        bench.calendar.openEntry(u"EV2"_s);
        bench.type(u"txtEvDescription"_s, u"typed meanwhile"_s);
        QSignalSpy recordsChanged(bench.world.session.get(), &Session::changed);
        bench.calendar.cmdNext();
        bench.calendar.dropOn(u"EV2"_s, {2026, 12, 3});
        QCOMPARE(bench.chips(), u"3 EV2 10:30 Interview"_s);
        QCOMPARE(recordsChanged.size(), 1);
        QCOMPARE(bench.calendar.frameDate(), QDate(2026, 12, 3));
        bench.calendar.cmdAdd1(); // the frame does not take it back
        QCOMPARE(bench.stored(u"EventDate,Description"_s), u"12/31/1999|;12/3/2026|typed meanwhile"_s);
        bench.calendar.dropOn(u"A2"_s, {2026, 12, 5});
        QCOMPARE(bench.tasks(), u"A2 Order cards 12/5 due"_s);
        const qsizetype before = recordsChanged.size();
        bench.calendar.dropOn(u"A2"_s, {});            // beside the days
        bench.calendar.dropOn(u"A2"_s, {2026, 12, 5}); // where it lies
        bench.calendar.dropOn(u"EV99"_s, {2026, 12, 6});
        QCOMPARE(recordsChanged.size(), before);
    }

    void rightClickFlipsATask()
    {
        CalendarBench bench;
        bench.addTask(u"11/21/2026"_s, u"Thank"_s);
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.calendar.load();
        bench.calendar.openEntry(u"A1"_s);
        bench.calendar.flipTask(u"A1"_s);
        QCOMPARE(bench.tasks(), u"A1 Thank 11/21 completed"_s);
        QCOMPARE(bench.calendar.frame().completeCaption(), u"Complete"_s);
        bench.calendar.flipTask(u"A1"_s);
        QCOMPARE(bench.tasks(), u"A1 Thank 11/21 overdue"_s);
        bench.calendar.flipTask(u"A2"_s); // no task
        QCOMPARE(bench.stored(u"Complete"_s), u";"_s);
    }

    void failedReadIsNoEmptyMonth()
    {
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.expect(u"failed on purpose"_s);
        bench.failingAt(u"Select * from Event"_s, [&] { bench.calendar.load(); });
        QVERIFY(bench.shown(u"lblEvents"_s).contains(u"could not be read"_s));
        QVERIFY(!bench.calendar.form().isEnabled(u"cmdNewEvent"_s) && bench.calendar.tasksHint().isEmpty());
        bench.expect(u"could not be read"_s);
        bench.calendar.newEvent(QDate(2026, 11, 24));
        QVERIFY(!bench.calendar.isFrameOpen());
        bench.calendar.cmdToday();
        QCOMPARE(bench.chips(), u"24 EV1 10:30 Interview"_s);
        QVERIFY(bench.calendar.form().isEnabled(u"cmdNewEvent"_s));
    }

    void fullCalendarKeepsWhatIsNearToday_data()
    {
        columns<QDate, bool>("day", "kept");
        QTest::newRow("today") << QDate(2026, 11, 22) << true;
        QTest::newRow("long before the others") << QDate(2015, 1, 1) << false;
        QTest::newRow("long behind the others") << QDate(2040, 1, 1) << false;
    }
    void fullCalendarKeepsWhatIsNearToday()
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
        bench.expect(u"holds at most 1000 events and tasks"_s);
        bench.calendar.load();
        bench.calendar.newEvent(day);
        if (!kept)
            bench.expect(u"The entry is saved, but the calendar does not show it"_s);
        bench.calendar.cmdAdd1();
        QVERIFY(bench.world.prompts.done());
        QCOMPARE(bench.chips().contains(u"9:00 Other Event"_s), kept);
        if (kept) { // and dropped too far away
            bench.expect(u"The entry is saved, but the calendar does not show it"_s);
            bench.calendar.dropOn(bench.calendar.cells()[21].chips.at(0).key, {2040, 1, 1});
            QVERIFY(bench.world.prompts.done());
        }
        QVERIFY(bench.tasks().contains(u"Update portfolio"_s));
        QCOMPARE(bench.rows(u"Event"_s), 1007);
    }

    void boundsAreToldOnceAndLeaveTheScreenUsable_data()
    {
        columns<int, int, QString, int>("events", "perMonth", "message", "shown"); // in November
        QTest::newRow("below") << 89 << 89 << QString() << 89;
        QTest::newRow("full month soon") << 90 << 90 << u"This month has 90 events"_s << 90;
        QTest::newRow("full month") << 100 << 100 << u"This month has 100 events"_s << 100;
        QTest::newRow("month too full") << 101 << 101 << u"at most 100 events of one month"_s << 100;
        QTest::newRow("full soon") << 900 << 30 << u"There are 900 events"_s << 30;
        QTest::newRow("too many") << 1001 << 30 << u"holds at most 1000 events and tasks"_s << 30;
    }
    void boundsAreToldOnceAndLeaveTheScreenUsable()
    {
        FETCH(int, events, perMonth);
        QFETCH(QString, message);
        CalendarBench bench;
        Action action(bench.data());
        for (int i = 0; i < events; ++i)
            bench.addEvent(i < perMonth ? u"11/24/2026"_s
                                        : QDate(2027, 1, 1).addDays(i).toString(u"M/d/yyyy"_s),
                           u"9:00 AM"_s);
        if (!message.isEmpty())
            bench.expect(message);
        bench.calendar.load();
        QVERIFY(bench.world.prompts.done());
        QTEST(int(bench.calendar.cells()[23].chips.size()), "shown");
        bench.calendar.cmdNext();
        bench.calendar.cmdLast();
        // An entry that is shown no more is in the store and can be opened by its key.
        bench.calendar.openEvent(static_cast<Key>(events));
        QVERIFY(bench.calendar.isFrameOpen());
        QCOMPARE(bench.rows(u"Event"_s), events);
    }

    void keyBeyondTheRangeIsToldAndLeftOut()
    {
        CalendarBench bench;
        bench.addEvent(u"11/25/2026"_s, u"9:00 AM"_s);
        bench.runRaw("INSERT INTO Event(EventKey,EventDate,EventType) VALUES(32768,'2026-11-24','Event')");
        bench.expect(u"Overflow: 1 event(s)"_s);
        bench.calendar.load();
        QCOMPARE(bench.chips(), u"25 EV1 9:00 Interview"_s);
        QVERIFY(bench.world.errorLog().contains(u"frmEvCal - loadEvents"_s));
        bench.calendar.reload(); // once an opening is enough: another box would fail the test
        // No key is left for another entry: the one in the frame is not deleted for it.
        bench.calendar.openEntry(u"EV1"_s);
        bench.expect(u"Event"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.rows(u"Event"_s), 2);
    }

    void steppingMonthsSendsNothing()
    {
        StoredEvent bench;
        QCOMPARE(bench.statements([&] { bench.calendar.cmdNext(); }), QStringList());
    }
};

JOBWRIGHT_TEST(TestFrmEvCalMonth)
#include "tst_frmevcal_month.moc"
