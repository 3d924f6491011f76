// The calendar's frame: what it stores, refuses and asks, and how other screens open it.
#include "calendar/calendarbench.h"
#include "support/runtest.h"
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
        QSignalSpy recordsChanged(bench.world.session.get(), &Session::changed);
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
        QCOMPARE(bench.rows(u"EventRecovery"_s), 2);
        QCOMPARE(bench.shown(u"lblMonth"_s), u"December 2026"_s);
    }

    void entryWithoutStartBecomesATask()
    {
        NewEvent bench;
        bench.type(u"txtEvTimeS"_s, u""_s);
        bench.type(u"chkComplete"_s, u"1"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventType,Complete"_s), u"Task|Complete"_s);
        QCOMPARE(bench.shown(u"chkTask"_s), u"1"_s);
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
            bench.expect(u"This is a networking event.  Select the 'Other Event' type if you "
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
            bench.expect(u"Must select company first."_s);
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
        table({"company", "contact", "keys"}, {{"namesake elsewhere", "Acme", "Ana Ruiz", "1|1"},
                                               {"entered last", "Bolt", "Ana Ruiz", "2|3"},
                                               {"two first names", "Acme", "Mary Ann Smith", "1|2"},
                                               {"the empty box's label", "Acme", "Contact", "1|0"}});
    }
    void contactIsTheOneOfTheCompany()
    {
        FETCH(QString, company, contact, keys);
        NewEvent bench;
        bench.calendar.frame().chooseOwner(u"lblCompany"_s, company);
        bench.calendar.frame().chooseOwner(u"lblContact"_s, contact);
        bench.expect(placeholderQuestion, Answer::No);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"CompanyKey,ContactKey"_s), keys);
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
        bench.expect(placeholderQuestion, answer);
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
        bench.expect(message);
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
        QCOMPARE(bench.shown(u"txtEvDescription imgOther1 imgOther2"_s),
                 QString(chosen + u"|Other|Formal Dress"));
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
        bench.expect(deleteQuestion, Answer::No);
        bench.calendar.cmdRemove1();
        QCOMPARE(bench.world.prompts.lastTitle(), u"Delete Event"_s);
        QCOMPARE(bench.rows(u"Event"_s), 2);
        bench.expect(deleteQuestion, Answer::Yes);
        bench.calendar.cmdRemove1();
        QVERIFY(!bench.calendar.isFrameOpen());
        QCOMPARE(bench.chips(), u"25 EV1 10:30 Referral"_s);
        // The keyboard's delete on a chip leaves another entry's frame alone.
        bench.calendar.newEvent({2026, 11, 26});
        bench.expect(deleteQuestion, Answer::Yes);
        bench.calendar.removeEntry(u"EV1"_s);
        QVERIFY(bench.calendar.isFrameOpen());
        QCOMPARE(bench.chips(), QString());
        bench.calendar.cmdRemove1(); // a new entry has nothing to delete, and asks nothing
        bench.calendar.removeEntry(u"EV1"_s);
    }

    void unsavedFrameAsksBeforeItGoes()
    {
        for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
            StoredEvent bench;
            bench.type(u"txtEvDescription"_s, u"typed"_s);
            bench.calendar.openEntry(u"EV1"_s); // the same one again: nothing is lost, nothing is asked
            QCOMPARE(bench.shown(u"txtEvDescription"_s), u"typed"_s);
            bench.expect(u"Save the changes to this entry?"_s, answer);
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
        const auto open = [&](Key event) {
            bench.calendar.load();
            bench.calendar.show(event);
            seen += bench.shown(u"lblMonth"_s) +
                    (bench.calendar.isFrameOpen() ? bench.calendar.frameDate().toString(u" M/d"_s) : u""_s);
            bench.calendar.unload();
        };
        open(1);
        bench.expect(u"This entry is no longer in the calendar."_s);
        open(77);
        QCOMPARE(seen, (QStringList{u"March 2027 3/9"_s, u"November 2026"_s}));
        bench.calendar.reload(); // a shut calendar paints nothing
        QVERIFY(!bench.calendar.isFrameOpen());
    }

    void openCalendarIsUsedByOtherScreens()
    {
        CalendarBench bench;
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.addEvent(u"12/3/2026"_s, u"9:00 AM"_s, u"Referral"_s);
        bench.calendar.load();
        bench.calendar.openEntry(u"EV1"_s);
        bench.type(u"txtEvDescription"_s, u"typed"_s);
        bench.expect(u"Save the changes to this entry?"_s, Answer::Cancel);
        bench.calendar.show(Key(2));
        QCOMPARE(bench.shown(u"txtEvDescription"_s), u"typed"_s);
        bench.expect(u"Save the changes to this entry?"_s, Answer::Yes);
        bench.calendar.show(Key(2));
        QCOMPARE(bench.shown(u"txtEvName"_s), u"Referral"_s);
        QCOMPARE(bench.cells(u"Select Description from Event where Event='Interview'"_s), u"typed"_s);
        QCOMPARE(bench.chips(), u"3 EV2 9:00 Referral"_s); // its month, with its events
        bench.calendar.createHistoryEvent({{u"H3"_s, u"Contact Inquiry"_s}});
        QVERIFY(bench.calendar.isNewEntry() && bench.shown(u"txtEvName"_s) == u"Contact Inquiry");
    }

    void untimedEventStaysAnEvent()
    {
        StoredEvent bench(u"Nodate AM"_s);
        bench.type(u"txtEvDescription"_s, u"bring it"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventTime,EventType,Description"_s), u"Nodate|Event|bring it"_s);
        bench.type(u"chkTask"_s, u"1"_s);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"EventTime,EventType"_s), u"|Task"_s);
    }

    void frameFollowsWhatElseHappensToItsEntry_data()
    {
        columns<QString, QString, bool, QString>("typed", "elsewhere", "open", "stored"); // by another save
        const QString close = u"Update Event set Complete='OkEvent',Description='met'"_s;
        const QString remove = u"Delete * from Event"_s;
        QTest::newRow("untouched, closed") << QString() << close << true << u"met|OkEvent"_s;
        QTest::newRow("untouched, gone") << QString() << remove << false << QString();
        QTest::newRow("touched, closed") << u"typed"_s << close << true << u"typed|OkEvent"_s;
        QTest::newRow("touched, gone") << u"typed"_s << remove << true << u"typed|"_s;
    }
    void frameFollowsWhatElseHappensToItsEntry()
    {
        FETCH(QString, typed, elsewhere);
        StoredEvent bench;
        if (!typed.isEmpty())
            bench.type(u"txtEvDescription"_s, typed);
        bench.run(elsewhere);
        bench.calendar.reload();
        QTEST(bench.calendar.isFrameOpen(), "open");
        QCOMPARE(bench.calendar.isFrameDirty(), !typed.isEmpty());
        bench.calendar.cmdAdd1();
        QTEST(bench.stored(u"Description,Complete"_s), "stored");
    }

    void mediumOfAHistoryIsNoPriority()
    {
        CalendarBench bench;
        bench.calendar.load();
        bench.calendar.createHistoryEvent({{u"H3"_s, u"Referral"_s}, {u"H6"_s, u"Phone"_s}});
        QCOMPARE(bench.shown(u"txtFormat"_s), QString());
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"Medium,EventType"_s), u"Phone|Task"_s);
        bench.calendar.closeEvent();
        bench.calendar.openEntry(u"A1"_s);
        bench.type(u"chkTask"_s, u"0"_s);
        QCOMPARE(bench.shown(u"txtFormat"_s), u"Phone"_s);
    }

    void historyOpensATask_data()
    {
        // values: H0 to H6
        table({"values", "asks", "stored"},
              {{"all", "Acme|Ana Ruiz|Engineer|Interview Follow-up|Ask\r\nagain|12/1/2026|Phone", "",
                "Interview Follow-up|12/1/2026||Ask\r\nagain|1|1|1|Phone|Task"},
               {"no position", "Acme|Ana Ruiz|NONE|Referral|NONE|nonsense|NONE", "asks",
                "Referral|11/22/2026|||0|1|1||Task"},
               {"networking", "Acme|Ana Ruiz|Engineer|networking||2026-12-01|", "",
                "Networking Event|12/1/2026|||0|0|0||Task"},
               {"no date", "NONE|NONE|NONE|Referral||12/31/1999|", "", "Referral|12/31/1999|||0|0|0||Task"},
               {"a company that begins so", "Netto|NONE|NONE|Referral||12/1/2026|", "asks",
                "Referral|12/1/2026|||0|0|3||Task"}});
    }
    void historyOpensATask()
    {
        FETCH(QString, values, asks, stored);
        CalendarBench bench;
        bench.run(u"Insert into Company(Name) Values('Netto')"_s);
        QHash<QString, QString> named;
        for (int i = 0; i < 7; ++i)
            named.insert(u"H%1"_s.arg(i), values.section(u'|', i, i));
        bench.calendar.load();
        bench.calendar.show(QVariant::fromValue(named));
        QVERIFY(bench.calendar.isNewEntry() && bench.calendar.isFrameDirty());
        QCOMPARE(bench.shown(u"chkTask"_s), u"1"_s);
        if (!asks.isEmpty())
            bench.expect(placeholderQuestion, Answer::No);
        bench.calendar.cmdAdd1();
        QCOMPARE(bench.stored(u"Event,EventDate,EventTime,Description,PositionKey,ContactKey,CompanyKey,"
                              u"Medium,EventType"_s),
                 stored);
    }

    void failedChangeWithoutTheFrameLeavesTheScreenAsItIs()
    {
        using Change = std::function<void(FrmEvCal&)>;
        for (const Change& change : {Change([](auto& frm) {
                                         frm.dropOn(u"A1"_s, {2026, 11, 20});
                                     }),
                                     Change([](auto& frm) { frm.flipTask(u"A1"_s); }),
                                     Change([](auto& frm) { frm.removeEntry(u"A1"_s); })}) {
            CalendarBench bench;
            bench.addTask(u"11/24/2026"_s, u"Thank"_s);
            bench.calendar.load();
            bench.calendar.openEntry(u"A1"_s);
            bench.world.prompts.acceptAll(Answer::Yes);
            QSignalSpy recordsChanged(bench.world.session.get(), &Session::changed);
            QVERIFY(!bench.failing(0, [&] { change(bench.calendar); }).isEmpty());
            QCOMPARE(recordsChanged.size(), 0);
            QCOMPARE(bench.tasks(), u"A1 Thank 11/24 due"_s);
            QVERIFY(bench.calendar.isFrameOpen());
            QCOMPARE(bench.calendar.frameDate(), QDate(2026, 11, 24));
            change(bench.calendar);
            QCOMPARE(recordsChanged.size(), 1);
            QVERIFY(bench.tasks() != u"A1 Thank 11/24 due");
        }
    }
};

JOBWRIGHT_TEST(TestFrmEvCal)
#include "tst_frmevcal.moc"
