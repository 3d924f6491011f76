// The calendar: what a month shows, and what its frame stores.
#include "calendar/calendarbench.h"
#include "support/table.h"

namespace {

const QString placeholderQuestion =
    u"There are no positions for this company and contact.\r\nWould you like to generate a "
    u"placeholder position?"_s;
const QString deleteQuestion = u"Are you sure you want to delete this entry?"_s;

} // namespace

class TestFrmEvCal : public QObject
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
        columns<QString, QString>("events", "sentences"); // "day time" of each event
        QTest::newRow("none") << u""_s << u"||"_s;
        QTest::newRow("one morning") << u"3 9:00 AM"_s
                                     << u"Events: 1 mostly mornings|11/3|Busiest on Tuesdays"_s;
        QTest::newRow("even")
            << u"3 9:00 AM,4 2:00 PM"_s
            << u"Events: 2 mostly afternoon/evenings|11/3 , 11/4|Busiest on Tuesdays & Wednesdays"_s;
        QTest::newRow("later day wins")
            << u"2 9:00 AM,8 9:00 AM,1 9:00 AM"_s
            << u"Events: 3 mostly mornings|11/1 , 11/2 , 11/8|Busiest on Sundays"_s;
        QTest::newRow("three alike") << u"6 9:00 AM,7 1:00 PM,9 1:00 PM"_s
                                     << u"Events: 3 mostly afternoon/evenings|11/6 , 11/7 , 11/9|"
                                        u"Busiest on Mondays & Fridays & Saturdays"_s;
    }
    void busySentences()
    {
        QFETCH(QString, events);
        CalendarBench bench;
        for (const QString& event : events.split(u',', Qt::SkipEmptyParts))
            bench.addEvent(u"11/"_s + event.section(u' ', 0, 0) + u"/2026", event.section(u' ', 1));
        bench.calendar.load();
        QTEST(bench.shown(u"lblEvents lblBusy lblBusiest"_s), "sentences");
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

    void newEventIsStoredWithAllItHolds()
    {
        NewEvent bench;
        bench.calendar.frame().chooseEventType(u"Interview"_s);
        bench.calendar.frame().chooseFormat(u"Meeting"_s);
        bench.type(u"lblCompany"_s, u"Acme"_s);
        QCOMPARE(bench.calendar.form().items(u"lblContact"_s).join(u','), u",Ana Ruiz,Mary Ann Smith"_s);
        bench.type(u"lblContact"_s, u"Ana Ruiz"_s);
        bench.type(u"lblPosition"_s, u"Engineer"_s);
        bench.type(u"txtEvTimeS"_s, u"14:30"_s);
        bench.type(u"chkOnehalf"_s, u"1"_s);
        bench.type(u"txtRemind"_s, u"2 dys"_s);
        bench.type(u"txtEvDescription"_s, u"Bring Event( the plant's\nstudy"_s);
        QSignalSpy recordsChanged(&bench.calendar, &FrmEvCal::recordsChanged);
        bench.calendar.cmdAdd1();
        for (const QString& table : {u"Event"_s, u"EventRecovery"_s})
            QCOMPARE(bench.cells(u"Select Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,Reminder2,"
                                 u"Description,PositionKey,ContactKey,CompanyKey,Medium,EventType,Complete "
                                 u"from "_s +
                                 table),
                     u"Interview|11/24/2026|2:30|1.5|PM|48|0|Bring Event( the plant`s\r\nstudy|1|1|1|"
                     u"Meeting|Event|"_s);
        QCOMPARE(bench.chips(), u"24 EV1 2:30p Interview"_s);
        QCOMPARE(recordsChanged.size(), 1);
        QVERIFY(bench.calendar.isFrameOpen() && !bench.calendar.isNewEntry() &&
                !bench.calendar.isFrameDirty());
    }

    void savingAgainReplacesTheRow()
    {
        StoredEvent bench(u"10:30 AM"_s, u"CompanyKey=1, ContactKey=1, PositionKey=1, Reminder1='30'"_s);
        QCOMPARE(bench.shown(u"lblCompany lblContact lblPosition txtRemind imgReminder chkOne txtEvTimeN "
                             u"frmeEventData"_s),
                 u"Acme|Ana Ruiz|Engineer|1.25 dys|1|1|11:30|11/24/2026"_s);
        bench.type(u"chkComplete"_s, u"1"_s);
        bench.type(u"dtEvTsk"_s, u"2026-12-02"_s);
        bench.calendar.cmdAdd1();
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventKey,EventDate,Reminder1,CompanyKey,ContactKey,PositionKey,Complete"_s),
                 u"3|12/2/2026|30|1|1|1|OkEvent"_s);
        QCOMPARE(bench.data().getCount(u"EventRecovery"_s, true), Key(2));
        QCOMPARE(bench.shown(u"lblMonth"_s), u"December 2026"_s);
    }

    void entryWithoutStartBecomesATask()
    {
        NewEvent bench;
        bench.type(u"txtEvTimeS"_s, u""_s);
        bench.type(u"chkComplete"_s, u"1"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventType,Complete"_s), u"Task|Complete"_s);
    }

    void taskWithoutDateIsInNoDayAndInEveryMonth()
    {
        CalendarBench bench;
        bench.calendar.load();
        bench.calendar.newEvent({2027, 1, 5});
        bench.type(u"chkNoDate"_s, u"1"_s); // only a task can be without a date
        QVERIFY(!bench.calendar.frameDate().isValid());
        bench.calendar.frame().chooseFormat(u"High Priority"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventDate,EventType,Medium"_s), u"12/31/1999|Task|High Priority"_s);
        QCOMPARE(bench.shown(u"lblMonth"_s), u"November 2026"_s); // back on today's month
        QCOMPARE(bench.tasks(), u"A1 Other Event No Date due"_s);
        QCOMPARE(bench.chips(), QString());
        bench.type(u"chkTask"_s, u"0"_s);
        QVERIFY(bench.calendar.frameDate().isValid());
    }

    void networkingEventHasNoOwners()
    {
        NewEvent bench;
        bench.type(u"lblCompany"_s, u"Acme"_s);
        bench.type(u"lblContact"_s, u"Ana Ruiz"_s);
        bench.calendar.frame().chooseEventType(u"Networking Event"_s);
        QCOMPARE(bench.shown(u"lblCompany"_s), u"Networking Event"_s);
        for (const QString& control : {u"lblCompany"_s, u"lblContact"_s}) {
            bench.world.prompts.expect(u"This is a networking event.  Select the 'Other Event' type if you "
                                       u"want to assign a company or contact."_s);
            bench.type(control, u"Bolt"_s);
        }
        QCOMPARE(bench.shown(u"lblCompany lblContact"_s), u"Networking Event|"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"Event,CompanyKey,ContactKey,PositionKey"_s), u"Networking Event|0|0|0"_s);
        bench.calendar.frame().chooseEventType(u"Other Event"_s);
        QCOMPARE(bench.shown(u"lblCompany"_s), QString());
    }

    void ownersNeedACompanyFirst()
    {
        NewEvent bench;
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

    void contactIsTheOneOfTheCompany_data()
    {
        columns<QString, QString, QString>("company", "contact", "keys");
        QTest::newRow("namesake elsewhere") << u"Acme"_s << u"Ana Ruiz"_s << u"1|1"_s;
        QTest::newRow("entered last") << u"Bolt"_s << u"Ana Ruiz"_s << u"2|3"_s;
        QTest::newRow("two first names") << u"Acme"_s << u"Mary Ann Smith"_s << u"1|2"_s;
        QTest::newRow("the empty box's label") << u"Acme"_s << u"Contact"_s << u"1|0"_s;
    }
    void contactIsTheOneOfTheCompany()
    {
        FETCH(QString, company, contact);
        NewEvent bench;
        bench.calendar.frame().chooseOwner(u"lblCompany"_s, company);
        bench.calendar.frame().chooseOwner(u"lblContact"_s, contact);
        bench.world.prompts.expect(placeholderQuestion, Answer::No);
        bench.calendar.cmdAdd1();
        QTEST(bench.stored(u"CompanyKey,ContactKey"_s), "keys");
        // What is stored is what is opened again.
        bench.calendar.closeEvent();
        bench.calendar.openEntry(u"EV1"_s);
        QCOMPARE(bench.shown(u"lblCompany lblContact"_s),
                 company + u'|' + (contact == u"Contact" ? QString() : contact));
    }

    void placeholderPositionIsOffered_data()
    {
        columns<QString, Answer, QString, QString>("contact", "answer", "positions", "positionKey");
        const QString placeholder = u"Position34200|11/22/2026|Jobwright Generated Position|"_s;
        QTest::newRow("wanted") << u"Ana Ruiz"_s << Answer::Yes << placeholder + u"3|2" << u"2"_s;
        QTest::newRow("wanted without a contact") << u""_s << Answer::Yes << placeholder + u"|2" << u"2"_s;
        QTest::newRow("not wanted") << u"Ana Ruiz"_s << Answer::No << QString() << u"0"_s;
        QTest::newRow("closed") << u"Ana Ruiz"_s << Answer::Cancel << QString() << u"0"_s;
    }
    void placeholderPositionIsOffered()
    {
        FETCH(QString, contact, positions);
        QFETCH(Answer, answer);
        NewEvent bench;
        bench.calendar.frame().chooseOwner(u"lblCompany"_s, u"Bolt"_s);
        bench.calendar.frame().chooseOwner(u"lblContact"_s, contact);
        bench.world.prompts.expect(placeholderQuestion, answer);
        bench.calendar.cmdAdd1();
        for (const QString& table : {u"Position where CompanyKey=2"_s, u"PositionRecovery"_s})
            QCOMPARE(bench.cells(u"Select Title,EntryDate,Notes,ContactList,CompanyKey from "_s + table),
                     positions);
        QTEST(bench.stored(u"PositionKey"_s), "positionKey");
        QCOMPARE(bench.shown(u"lblPosition"_s), positions.section(u'|', 0, 0));
        if (answer == Answer::Yes)
            bench.calendar.cmdAdd1(); // has its position now, and asks no more
    }

    void lengthAndEndFollowEachOther()
    {
        NewEvent bench;
        const auto times = [&] {
            return bench.shown(u"txtEvTimeS optStPM txtEvTimeN optEnPM chkhalf chkOne chkOnehalf chkTwo"_s);
        };
        QCOMPARE(times(), u"9:00|0|10:00|0|0|1|0|0"_s);
        bench.type(u"chkTwo"_s, u"1"_s);
        QCOMPARE(times(), u"9:00|0|11:00|0|0|0|0|1"_s);
        bench.type(u"txtEvTimeS"_s, u"11"_s);
        QCOMPARE(times(), u"11:00|0|1:00|1|0|0|0|1"_s);
        bench.type(u"optStPM"_s, u"1"_s);
        QCOMPARE(times(), u"11:00|1|1:00|0|0|0|0|1"_s);
        bench.type(u"optStAM"_s, u"1"_s);
        bench.type(u"txtEvTimeN"_s, u"11:45"_s);
        bench.type(u"optEnAM"_s, u"1"_s);
        QCOMPARE(times(), u"11:00|0|11:45|0|0|0|0|0"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventDuration"_s), u"0.75"_s);
        bench.type(u"chkhalf"_s, u"1"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventDuration"_s), u".5"_s);
    }

    void storedLengthOutlivesAnUnrelatedChange()
    {
        StoredEvent bench(u"12:30 PM"_s); // its end is shown in the morning
        QCOMPARE(bench.shown(u"txtEvTimeN optEnAM"_s), u"1:30|1"_s);
        bench.type(u"txtEvDescription"_s, u"lunch"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventTime,AMPM,EventDuration"_s), u"12:30|PM|1"_s);
    }

    void unreadableTextsAreRefusedAndStay_data()
    {
        columns<QString, QString, QString>("control", "text", "message");
        QTest::newRow("start") << u"txtEvTimeS"_s << u"noonish"_s << u"\"noonish\" is no time of day."_s;
        QTest::newRow("end") << u"txtEvTimeN"_s << u"25:00"_s << u"\"25:00\" is no time of day."_s;
        QTest::newRow("lead time") << u"txtRemind"_s << u"2 days"_s << u"\"2 days\" is no lead time."_s;
        QTest::newRow("company") << u"lblCompany"_s << u"Nobody Inc"_s
                                 << u"There is no company called \"Nobody Inc\"."_s;
        QTest::newRow("too long") << u"txtEvDescription"_s << QString(500'000, u'x') << u"too long"_s;
    }
    void unreadableTextsAreRefusedAndStay()
    {
        FETCH(QString, control, text, message);
        StoredEvent bench;
        bench.type(control, text);
        bench.world.prompts.expect(message);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.shown(control), text);
        QVERIFY(bench.calendar.isFrameDirty());
        QCOMPARE(bench.stored(u"EventKey,EventTime"_s), u"1|10:30"_s);
    }

    void extrasAreLinesOfTheDescription_data()
    {
        columns<QString, QString, QString>("typed", "chosen", "left"); // left: behind the first one's end
        QTest::newRow("nothing typed") << QString() << u"Other\nFormal Dress"_s << u"Formal Dress"_s;
        QTest::newRow("a line") << u"Tour"_s << u"Tour\nOther\nFormal Dress"_s << u"Tour\nFormal Dress"_s;
        QTest::newRow("paragraphs") << u"Tour\n\nBring it\n"_s << u"Tour\n\nBring it\nOther\nFormal Dress"_s
                                    << u"Tour\n\nBring it\nFormal Dress"_s;
        QTest::newRow("a heading alike")
            << u"Other\ncards"_s << u"Other\ncards\nOther\nFormal Dress"_s << u"Other\ncards\nFormal Dress"_s;
    }
    void extrasAreLinesOfTheDescription()
    {
        FETCH(QString, typed, chosen, left);
        NewEvent bench;
        bench.type(u"txtEvDescription"_s, typed);
        bench.calendar.frame().chooseOther(1, u"Other"_s);
        bench.calendar.frame().chooseOther(2, u"Meal"_s);
        bench.calendar.frame().chooseOther(2, u"Formal Dress"_s);
        QCOMPARE(bench.shown(u"txtEvDescription imgOther1 imgOther2"_s), chosen + u"|Other|Formal Dress");
        bench.calendar.frame().chooseOther(1, {});
        QCOMPARE(bench.shown(u"txtEvDescription"_s), left);
        bench.calendar.cmdAdd1();
        bench.calendar.closeEvent();
        bench.calendar.openEntry(u"EV1"_s);
        QVERIFY(bench.shown(u"imgOther1 imgOther2"_s).contains(u"Formal Dress"_s));
        bench.type(u"txtEvDescription"_s, u"all anew"_s); // the line is gone, though the button shows it
        bench.calendar.frame().chooseOther(1, u"Meal"_s);
        QCOMPARE(bench.shown(u"txtEvDescription"_s), u"all anew\nMeal"_s);
    }

    void removingAsksFirst()
    {
        StoredEvent bench;
        bench.addEvent(u"11/25/2026"_s, u"10:30 AM"_s, u"Referral"_s);
        bench.world.prompts.expect(deleteQuestion, Answer::No);
        bench.calendar.cmdRemove1();
        QCOMPARE(bench.world.prompts.lastTitle(), u"Delete Event"_s);
        QCOMPARE(bench.data().getCount(u"Event"_s, true), Key(2));
        bench.world.prompts.expect(deleteQuestion, Answer::Yes);
        bench.calendar.cmdRemove1();
        QVERIFY(!bench.calendar.isFrameOpen());
        QCOMPARE(bench.chips(), u"25 EV1 10:30 Referral"_s);
        // The keyboard's delete on a chip leaves another entry's frame alone.
        bench.calendar.newEvent({2026, 11, 26});
        bench.world.prompts.expect(deleteQuestion, Answer::Yes);
        bench.calendar.removeEntry(u"EV1"_s);
        QVERIFY(bench.calendar.isFrameOpen());
        QCOMPARE(bench.chips(), QString());
        bench.calendar.cmdRemove1(); // a new entry has nothing to delete, and asks nothing
        bench.calendar.removeEntry(u"EV1"_s);
    }

    void droppingMovesAnEntry()
    {
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.addTask(u"12/31/1999"_s, u"Order cards"_s);
        bench.calendar.load();
        bench.calendar.openEntry(u"EV2"_s);
        bench.type(u"txtEvDescription"_s, u"typed meanwhile"_s);
        QSignalSpy recordsChanged(&bench.calendar, &FrmEvCal::recordsChanged);
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

    void unsavedFrameAsksBeforeItGoes()
    {
        for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
            StoredEvent bench;
            bench.type(u"txtEvDescription"_s, u"typed"_s);
            bench.calendar.openEntry(u"EV1"_s); // the same one again: nothing is lost, nothing is asked
            QCOMPARE(bench.shown(u"txtEvDescription"_s), u"typed"_s);
            bench.world.prompts.expect(u"Save the changes to this entry?"_s, answer);
            bench.calendar.newEvent({2026, 11, 25});
            QCOMPARE(bench.calendar.isNewEntry(), answer != Answer::Cancel);
            QCOMPARE(bench.stored(u"Description"_s), answer == Answer::Yes ? u"typed"_s : QString());
        }
    }

    void lookingAroundDoesNotMoveAStoredEntry()
    {
        StoredEvent bench;
        bench.calendar.selectDay({2026, 11, 26});
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventDate"_s), u"11/24/2026"_s);
        bench.calendar.newEvent({2026, 11, 24});
        bench.calendar.selectDay({2026, 11, 27}); // a new one goes along
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventDate"_s), u"11/24/2026;11/27/2026"_s);
    }

    void otherScreensOpenAnEvent()
    {
        CalendarBench bench;
        bench.addEvent(u"3/9/2027"_s, u"10:30 AM"_s);
        QStringList seen;
        bench.doors.whileOpen = [&] {
            bench.calendar.load();
            seen += bench.shown(u"lblMonth"_s) +
                    (bench.calendar.isFrameOpen() ? bench.calendar.frameDate().toString(u" M/d"_s) : u""_s);
            bench.calendar.unload();
        };
        bench.calendar.showEvent(1);
        bench.world.prompts.expect(u"This entry is no longer in the calendar."_s);
        bench.calendar.showEvent(77);
        QCOMPARE(seen, (QStringList{u"March 2027 3/9"_s, u"November 2026"_s}));
        QCOMPARE(bench.doors.opened, (QStringList{u"FrmEvCal"_s, u"FrmEvCal"_s}));
        bench.calendar.reload(); // a shut calendar paints nothing
        QVERIFY(!bench.calendar.isFrameOpen());
    }

    void openCalendarIsUsedByOtherScreens()
    {
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.addEvent(u"12/3/2026"_s, u"9:00 AM"_s, u"Referral"_s);
        bool second = false;
        bench.doors.whileOpen = [&] { second = true; };
        bench.calendar.load();
        bench.calendar.openEntry(u"EV1"_s);
        bench.type(u"txtEvDescription"_s, u"typed"_s);
        bench.world.prompts.expect(u"Save the changes to this entry?"_s, Answer::Cancel);
        bench.calendar.showEvent(2);
        QCOMPARE(bench.shown(u"txtEvDescription"_s), u"typed"_s);
        bench.world.prompts.expect(u"Save the changes to this entry?"_s, Answer::Yes);
        bench.calendar.showEvent(2);
        QCOMPARE(bench.shown(u"txtEvName"_s), u"Referral"_s);
        QCOMPARE(bench.cells(u"Select Description from Event where Event='Interview'"_s), u"typed"_s);
        QCOMPARE(bench.chips(), u"3 EV2 9:00 Referral"_s); // its month, with its events
        bench.calendar.createHistoryEvent({{u"H3"_s, u"Contact Inquiry"_s}});
        QVERIFY(bench.calendar.isNewEntry() && bench.shown(u"txtEvName"_s) == u"Contact Inquiry");
        QVERIFY(!second);
    }

    void untimedEventStaysAnEvent()
    {
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"Nodate AM"_s);
        bench.calendar.load();
        bench.calendar.openEntry(u"EV1"_s);
        bench.type(u"txtEvDescription"_s, u"bring it"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.cells(u"Select EventTime,EventType,Description from Event"_s),
                 u"Nodate|Event|bring it"_s);
        bench.type(u"chkTask"_s, u"1"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.cells(u"Select EventTime,EventType from Event"_s), u"|Task"_s);
    }

    void frameFollowsWhatElseHappensToItsEntry_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("elsewhere");
        QTest::addColumn<bool>("open");
        QTest::addColumn<QString>("stored"); // behind another save
        const QString close = u"Update Event set Complete='OkEvent',Description='met'"_s;
        const QString remove = u"Delete * from Event"_s;
        QTest::newRow("untouched, closed") << QString() << close << true << u"met|OkEvent"_s;
        QTest::newRow("untouched, gone") << QString() << remove << false << QString();
        QTest::newRow("touched, closed") << u"typed"_s << close << true << u"typed|OkEvent"_s;
        QTest::newRow("touched, gone") << u"typed"_s << remove << true << u"typed|"_s;
    }

    void frameFollowsWhatElseHappensToItsEntry()
    {
        QFETCH(QString, typed);
        QFETCH(QString, elsewhere);
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.calendar.load();
        bench.calendar.openEntry(u"EV1"_s);
        if (!typed.isEmpty())
            bench.type(u"txtEvDescription"_s, typed);
        bench.run(elsewhere);
        bench.calendar.reload();
        QTEST(bench.calendar.isFrameOpen(), "open");
        QCOMPARE(bench.calendar.isFrameDirty(), !typed.isEmpty());
        bench.calendar.cmdAdd1();
        QTEST(bench.cells(u"Select Description,Complete from Event"_s), "stored");
    }

    void failedReadIsNoEmptyMonth()
    {
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.data().database().setInterceptor([](QStringView statement) {
            if (statement.startsWith(u"Select * from Event"))
                throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
        });
        bench.world.prompts.expect(u"failed on purpose"_s);
        bench.calendar.load();
        QVERIFY(bench.shown(u"lblEvents"_s).contains(u"could not be read"_s));
        QVERIFY(!bench.calendar.form().isEnabled(u"cmdNewEvent"_s) && bench.calendar.tasksHint().isEmpty());
        bench.world.prompts.expect(u"could not be read"_s);
        bench.calendar.newEvent(QDate(2026, 11, 24));
        QVERIFY(!bench.calendar.isFrameOpen());
        bench.data().database().setInterceptor({});
        bench.calendar.cmdToday();
        QCOMPARE(bench.chips(), u"24 EV1 10:30 Interview"_s);
        QVERIFY(bench.calendar.form().isEnabled(u"cmdNewEvent"_s));
    }

    void mediumOfAHistoryIsNoPriority()
    {
        CalendarBench bench;
        bench.calendar.load();
        bench.calendar.createHistoryEvent({{u"H3"_s, u"Referral"_s}, {u"H6"_s, u"Phone"_s}});
        QCOMPARE(bench.shown(u"txtFormat"_s), QString());
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.cells(u"Select Medium,EventType from Event"_s), u"Phone|Task"_s);
        bench.calendar.closeEvent();
        bench.calendar.openEntry(u"A1"_s);
        bench.type(u"chkTask"_s, u"0"_s);
        QCOMPARE(bench.shown(u"txtFormat"_s), u"Phone"_s);
    }

    void fullCalendarKeepsWhatIsNearToday_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<bool>("kept");
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

    void historyOpensATask_data()
    {
        columns<QString, bool, QString>("values", "asks", "stored"); // H0 to H6
        QTest::newRow("all") << u"Acme|Ana Ruiz|Engineer|Interview Follow-up|Ask\r\nagain|12/1/2026|Phone"_s
                             << false << u"Interview Follow-up|12/1/2026||Ask\r\nagain|1|1|1|Phone|Task"_s;
        QTest::newRow("no position") << u"Acme|Ana Ruiz|NONE|Referral|NONE|nonsense|NONE"_s << true
                                     << u"Referral|11/22/2026|||0|1|1||Task"_s;
        QTest::newRow("networking") << u"Acme|Ana Ruiz|Engineer|networking||2026-12-01|"_s << false
                                    << u"Networking Event|12/1/2026|||0|0|0||Task"_s;
        QTest::newRow("no date") << u"NONE|NONE|NONE|Referral||12/31/1999|"_s << false
                                 << u"Referral|12/31/1999|||0|0|0||Task"_s;
        QTest::newRow("a company that begins so")
            << u"Netto|NONE|NONE|Referral||12/1/2026|"_s << true << u"Referral|12/1/2026|||0|0|3||Task"_s;
    }
    void historyOpensATask()
    {
        QFETCH(QString, values);
        QFETCH(bool, asks);
        CalendarBench bench;
        bench.run(u"Insert into Company(Name) Values('Netto')"_s);
        QHash<QString, QString> named;
        for (int i = 0; i < 7; ++i)
            named.insert(u"H%1"_s.arg(i), values.section(u'|', i, i));
        bench.doors.whileOpen = [&] {
            bench.calendar.load();
            QVERIFY(bench.calendar.isNewEntry() && bench.calendar.isFrameDirty());
            QCOMPARE(bench.shown(u"chkTask"_s), u"1"_s);
            bench.calendar.cmdAdd1();
        };
        if (asks)
            bench.world.prompts.expect(placeholderQuestion, Answer::No);
        bench.calendar.createHistoryEvent(named);
        QTEST(bench.stored(u"Event,EventDate,EventTime,Description,PositionKey,ContactKey,CompanyKey,Medium,"
                           u"EventType"_s),
              "stored");
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

    void keyBeyondTheRangeIsToldAndLeftOut()
    {
        CalendarBench bench;
        bench.addEvent(u"11/25/2026"_s, u"9:00 AM"_s);
        bench.runRaw("INSERT INTO Event(EventKey,EventDate,EventType) VALUES(32768,'2026-11-24','Event')");
        bench.world.prompts.expect(u"Overflow: 1 event(s)"_s);
        bench.calendar.load();
        QCOMPARE(bench.chips(), u"25 EV1 9:00 Interview"_s);
        QVERIFY(bench.world.errorLog().contains(u"frmEvCal - loadEvents"_s));
        bench.calendar.reload(); // once an opening is enough: another box would fail the test
        // No key is left for another entry: the one in the frame is not deleted for it.
        bench.calendar.openEntry(u"EV1"_s);
        bench.world.prompts.expect(u"Event"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.data().getCount(u"Event"_s, true), Key(2));
    }

    void steppingMonthsSendsNothing()
    {
        StoredEvent bench;
        int sent = 0;
        bench.failing([&](int, QStringView) { return ++sent < 0; }, [&] { bench.calendar.cmdNext(); });
        QCOMPARE(sent, 0);
    }
};

QTEST_GUILESS_MAIN(TestFrmEvCal)
#include "tst_frmevcal.moc"
