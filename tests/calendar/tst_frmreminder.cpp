// The reminder screen on a real store: its timer, its look at the events, its buttons and what they leave.
#include "base/dates.h"
#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "support/runtest.h"
#include "support/screenbench.h"
#include "support/table.h"

#include <QSignalSpy>

namespace {

const QDateTime start(QDate(2026, 11, 22), QTime(9, 30));

/// A session with its reminder screen; the events stand on the clock relative to the start.
struct ReminderDesk : ScreenBench
{
    std::unique_ptr<FrmEvCal> calendar;
    std::unique_ptr<FrmReminder> frm;

    ReminderDesk() { begin(); }
    void begin()
    {
        calendar = std::make_unique<FrmEvCal>(*world.session);
        frm = std::make_unique<FrmReminder>(*world.session, navigator);
        world.session->reminderInterval = 10;
        frm->load();
    }
    void end()
    {
        frm->unload();
        frm.reset();
        calendar.reset();
        world.restart();
    }
    void status(const QString& name, const QString& value) { data().writeStatus(name, value, true); }
    Key addEvent(const QString& name, int hours, const QString& lead = u"24"_s, const QString& more = {})
    {
        const QDateTime at = start.addSecs(3600LL * hours);
        run(u"Insert into "
            u"Event(Event,EventDate,EventTime,AMPM,Reminder1,Medium,EventType,Complete,PositionKey) "
            "Values('%1','%2','%3','%4','%5','Phone','Event','',0)"_s.arg(
                name, dates::mdyyyy(at.date()), at.toString(u"h:mm AP"_s).section(u' ', 0, 0),
                at.toString(u"AP"_s), lead));
        const Key key = data().getLastEventAddedKey();
        if (!more.isEmpty())
            run(u"Update Event set %1 where EventKey=%2"_s.arg(more).arg(key));
        return key;
    }
    /// A company, a contact and a position, each with the key 1.
    void addRecords()
    {
        run(u"Insert into Company(Name) Values('Acme')"_s);
        run(u"Insert into Contact(FirstName,LastName) Values('Ann','Lee')"_s);
        run(u"Insert into Position(Title,Interview,FollowUp) Values('Planner','12/31/1999','12/31/1999')"_s);
    }
    void select(Key key) { frm->select(u'A' + QString::number(key)); }
    /// Looks, and selects an event that is found.
    void lookAndSelect(Key key)
    {
        frm->checkEvents();
        select(key);
    }
    QString listed()
    {
        QStringList names;
        for (const ListRow& row : frm->lvwRemind().rows())
            names.append(row.texts.at(0) + (row.marked ? u"*"_s : QString()));
        return names.join(u',');
    }
    QString stored(const QString& columns) { return cells(u"Select "_s + columns + u" from Event"); }
};

} // namespace

class TestFrmReminder : public QObject
{
    Q_OBJECT

private slots:
    void tickLooksOnceTheIntervalHasPassedAndStops_data()
    {
        columns<int, bool>("sinceLook", "looks"); // seconds; -1: never
        QTest::newRow("first tick") << -1 << true;
        QTest::newRow("whole interval") << 600 << true;
        QTest::newRow("a second less") << 599 << false;
        QTest::newRow("clock was set back") << -3600 << false;
    }
    void tickLooksOnceTheIntervalHasPassedAndStops()
    {
        QFETCH(int, sinceLook);
        QFETCH(bool, looks);
        ReminderDesk desk;
        desk.addEvent(u"Interview"_s, 2);
        if (sinceLook != -1)
            desk.world.session->lastReminderCheck = start.addSecs(-sinceLook);
        QVERIFY(desk.frm->timer1Enabled());
        desk.world.setNow(start.addMSecs(789));
        desk.frm->tick();
        QVERIFY(!desk.frm->timer1Enabled());
        QCOMPARE(desk.frm->isVisible(), looks);
        QCOMPARE(desk.world.session->lastReminderCheck == start, looks);
    }

    void lookListsOpenEventsInsideTheirLead()
    {
        ReminderDesk desk;
        desk.addRecords();
        desk.addEvent(u"Later"_s, 30);
        desk.addEvent(u"Interview"_s, 20, u"24"_s,
                      u"Description='two\r\nlines',CompanyKey=1,ContactKey=1,PositionKey=1"_s);
        desk.addEvent(u"Task"_s, -1, u"24"_s, u"EventType='Task'"_s);
        desk.addEvent(u"Odd case"_s, -1, u"24"_s, u"EventType='event'"_s);
        const Key closed = desk.addEvent(u"Closed"_s, 1, u"24"_s, u"Complete='OkEvent'"_s);
        desk.addEvent(u"Done"_s, 1, u"24"_s, u"Complete='Complete'"_s);
        desk.addEvent(u"Orphan"_s, -2, u"0"_s, u"CompanyKey=99,ContactKey=99,PositionKey=99"_s);
        const auto texts = [&desk](size_t row) { return desk.frm->lvwRemind().rows().at(row).texts; };
        desk.frm->checkEvents();
        QCOMPARE(desk.listed(), u"Orphan,Interview"_s);
        QCOMPARE(texts(0).mid(3, 3).join(u'|'), u"||"_s);
        QCOMPARE(texts(1).join(u'|'),
                 u"Interview|two\r\nlines|11/23/2026 5:30:00 AM|Ann Lee|Planner|Acme|20 hrs"_s);
        QVERIFY(desk.frm->matchedKeys().contains(closed));
        QCOMPARE(desk.frm->matchedKeys().size(), 4U);
        QVERIFY(desk.frm->isVisible());
        // Among many events the names are found in another way, and are the same.
        for (int i = 0; i < 300; ++i)
            desk.addEvent(u"Further"_s, 0);
        desk.frm->checkEvents();
        QCOMPARE(desk.frm->lvwRemind().rowCount(), 302);
        QCOMPARE(texts(0).mid(3, 3).join(u'|'), u"||"_s);
        QCOMPARE(texts(301).mid(3, 3).join(u'|'), u"Ann Lee|Planner|Acme"_s);
        desk.run(u"Delete * from Event"_s);
        desk.frm->checkEvents();
        QVERIFY(!desk.frm->isVisible());
        QCOMPARE(desk.listed() + desk.world.errorLog(), QString());
    }

    void untimedEventShowsItsOwnDate()
    {
        ReminderDesk desk;
        desk.addEvent(u"Before"_s, -48);
        desk.addEvent(u"Untimed"_s, 0, u"24"_s, u"EventTime='Nodate'"_s);
        desk.addEvent(u"Undated"_s, 0, u"24"_s, u"EventTime='Nodate',EventDate='12/31/1999'"_s);
        desk.frm->checkEvents();
        QStringList shown;
        for (const ListRow& row : desk.frm->lvwRemind().rows())
            shown.append(row.texts.at(0) + u' ' + row.texts.at(2));
        QCOMPARE(shown, (QStringList{u"Undated No Date"_s, u"Before 11/20/2026 9:30:00 AM"_s,
                                     u"Untimed 11/22/2026"_s}));
        // How long it is until then counts from the moment before it.
        QCOMPARE(desk.frm->lvwRemind().rows().at(2).texts.at(6), u"-48 hrs"_s);
    }

    void busyDialogLosesTheLook()
    {
        ReminderDesk desk;
        desk.addEvent(u"Interview"_s, 1);
        {
            const BusyScope busy(*desk.world.session);
            desk.frm->tick();
        }
        QVERIFY(!desk.frm->isVisible() && !desk.frm->timer1Enabled() && desk.frm->matchedKeys().empty());
        QCOMPARE(desk.world.session->lastReminderCheck, start);
    }

    void unreadableRowIsListedByItsDateAndMarked()
    {
        ReminderDesk desk;
        desk.addEvent(u"Before"_s, -48);
        desk.addEvent(u"Broken"_s, -24, u"24"_s, u"EventTime='noon'"_s);
        desk.addEvent(u"Behind"_s, 1);
        desk.frm->checkEvents();
        QCOMPARE(desk.listed(), u"Before,Broken,Behind"_s);
        QVERIFY(desk.frm->lvwRemind().rows().at(1).texts.join(u' ').contains(u"cannot be read"_s));
        desk.run(u"Update Event set EventTime='12:00' where Event='Broken'"_s);
        desk.frm->checkEvents();
        QVERIFY(!desk.frm->lvwRemind().rows().at(1).texts.join(u' ').contains(u"cannot be read"_s));
    }

    void unreadableStoreShowsNoBox()
    {
        ReminderDesk desk;
        desk.addEvent(u"Interview"_s, 1);
        desk.frm->checkEvents();
        desk.failing([](int, QStringView) { return true; }, [&] { desk.frm->checkEvents(); });
        QCOMPARE(desk.listed(), u"Interview"_s);
        QVERIFY(desk.world.errorLog().contains(u"failed on purpose"_s));
    }

    void selectionOutlivesALookOnlyWhileListed()
    {
        ReminderDesk desk;
        const Key interview = desk.addEvent(u"Interview"_s, 1);
        desk.addEvent(u"Referral"_s, 2);
        desk.lookAndSelect(interview);
        desk.addEvent(u"Other"_s, 3);
        desk.frm->checkEvents();
        QCOMPARE(desk.listed(), u"Interview*,Referral,Other"_s);
        desk.select(interview + 1);
        QCOMPARE(desk.listed(), u"Interview,Referral*,Other"_s);
        desk.run(u"Delete * from Event where Event='Referral'"_s);
        desk.frm->checkEvents();
        QCOMPARE(desk.frm->selectedEventKey(), Key(0));
        desk.frm->cmdDismiss(); // nothing is selected: nothing may be deleted
        QCOMPARE(desk.stored(u"Count(*)"_s), u"2"_s);
    }

    void okWritesTheStepOfThePosition_data()
    {
        columns<QString, QString, int, QString>("event", "medium", "position", "steps");
        const QString none = u"12/31/1999||12/31/1999|"_s;
        for (const QString& medium : {u"Meeting 7"_s, u"pHONE 3"_s, u"Internet 1"_s, u"Fax 2"_s,
                                      u"Research 5"_s, u"Other 6"_s, u"Conference 0"_s, u" 0"_s})
            QTest::newRow(qPrintable(u"Interview by " + medium))
                << u"Interview"_s << medium.section(u' ', 0, 0) << 1
                << u"11/22/2026|"_s + medium.section(u' ', 1) + u"|12/31/1999|";
        QTest::newRow("follow-up") << u"Interview Follow-Up"_s << u"Post"_s << 1
                                   << u"12/31/1999||11/22/2026|4"_s;
        QTest::newRow("another spelling") << u"Interview Follow-up"_s << u"Post"_s << 1 << none;
        QTest::newRow("no step") << u"Status Inquiry"_s << u"Phone"_s << 1 << none;
        QTest::newRow("its position is gone") << u"Interview"_s << u"Phone"_s << 77 << none;
    }
    void okWritesTheStepOfThePosition()
    {
        FETCH(QString, event, medium);
        QFETCH(int, position);
        ReminderDesk desk;
        desk.addRecords();
        desk.lookAndSelect(
            desk.addEvent(event, 1, u"24"_s, u"Medium='%1',PositionKey=%2"_s.arg(medium).arg(position)));
        QSignalSpy written(desk.world.session.get(), &Session::changed);
        desk.frm->cmdOk();
        QTEST(desk.cells(u"Select Interview,InterviewMedium,FollowUp,FollowUpMedium from Position"_s),
              "steps");
        QCOMPARE(desk.stored(u"Complete"_s), u"OkEvent"_s);
        QCOMPARE(
            desk.world.errorLog().contains(u"Selected Event Position Key not found when accessing Events."_s),
            position != 1);
        QCOMPARE(written.count(), 1);
        QCOMPARE(desk.listed(), QString());
        QVERIFY(!desk.frm->isVisible());
        QCOMPARE(desk.frm->selectedEventKey(), Key(0));
    }

    void dismissThatFailsKeepsTheEntry()
    {
        ReminderDesk desk;
        desk.world.prompts.acceptAll(Answer::Ok);
        const Key due = desk.addEvent(u"Interview"_s, 1);
        desk.frm->checkEvents();
        desk.select(due);
        desk.world.data().database().setInterceptor(
            [](QStringView) { throw StoreError(u"failed on purpose"_s, 1, u"test"_s); });
        desk.frm->cmdDismiss();
        desk.world.data().database().setInterceptor({});
        QCOMPARE(desk.listed(), u"Interview*"_s);
        QVERIFY(desk.frm->isVisible());
    }

    void savingInTheCalendarRenewsTheList()
    {
        ReminderDesk desk;
        const Key due = desk.addEvent(u"Interview"_s, 1);
        desk.frm->checkEvents();
        QSignalSpy forward(desk.frm.get(), &FrmReminder::cameForward);
        desk.calendar->load();
        desk.navigator.whileOpen = [&] { desk.calendar->show(desk.navigator.request); };
        desk.frm->open(u'A' + QString::number(due));
        desk.calendar->frame().chooseFormat(u"Meeting"_s);
        desk.calendar->cmdAdd1();
        QCoreApplication::processEvents();
        desk.select(desk.world.data().getLastEventAddedKey());
        desk.frm->cmdOk();
        QCOMPARE(desk.cells(u"Select EventKey,Complete from Event"_s), u"2|OkEvent"_s);
        QCOMPARE(forward.count(), 0); // nobody loses the keyboard to it
        desk.calendar->openEvent(desk.world.data().getLastEventAddedKey());
        desk.calendar->frame().chooseFormat(u"Phone"_s);
        desk.calendar->cmdAdd1();
        QCoreApplication::processEvents();
        QVERIFY(!desk.frm->isVisible()); // a hidden one does not come up by it
    }

    void changeInTheCalendarReachesTheList_data()
    {
        using Change = std::function<void(ReminderDesk&)>;
        columns<Change, QString>("change", "left");
        QTest::newRow("removed") << Change([](ReminderDesk& desk) {
            desk.world.prompts.expect(u"Are you sure"_s, Answer::Yes);
            desk.calendar->removeEntry(u"EV2"_s);
        }) << QString();
        QTest::newRow("moved") << Change([](ReminderDesk& desk) {
            desk.calendar->dropOn(u"EV2"_s, {2026, 12, 1});
        }) << QString();
        QTest::newRow("closed") << Change([](ReminderDesk& desk) {
            desk.calendar->openEntry(u"EV2"_s);
            desk.calendar->form().edit(u"chkComplete"_s, u"1"_s);
            desk.calendar->cmdAdd1();
        }) << QString();
        QTest::newRow("another one") << Change([](ReminderDesk& desk) {
            desk.calendar->dropOn(u"EV3"_s, {2026, 12, 1});
        }) << u"Second"_s;
    }
    void changeInTheCalendarReachesTheList()
    {
        using Change = std::function<void(ReminderDesk&)>;
        QFETCH(Change, change);
        QFETCH(QString, left);
        ReminderDesk desk;
        const Key first = desk.addEvent(u"First"_s, 1);
        desk.addEvent(u"Second"_s, 2);
        desk.addEvent(u"Later"_s, 72);
        desk.frm->tick();
        desk.select(first);
        desk.frm->cmdSnooze();
        desk.calendar->load();
        change(desk);
        QCoreApplication::processEvents();
        QCOMPARE(desk.listed(), left); // without the one put off
        QCOMPARE(desk.frm->isVisible(), !left.isEmpty());
        QCOMPARE(desk.frm->timer1Enabled(), left.isEmpty()); // else nothing would ever come by itself again
        desk.frm->checkEvents();
        QVERIFY(desk.listed().startsWith(u"First"_s));
    }

    void okWithoutARecordPutsOff()
    {
        ReminderDesk desk;
        const Key due = desk.addEvent(u"Interview"_s, 1);
        desk.frm->checkEvents();
        desk.frm->cmdOk(); // nothing selected
        QVERIFY(!desk.frm->isVisible());
        QCOMPARE(desk.stored(u"Complete"_s), QString());
        desk.lookAndSelect(due);
        desk.run(u"Delete * from Event"_s);
        desk.frm->cmdOk();
        QVERIFY(!desk.frm->isVisible() && desk.frm->timer1Enabled());
        QVERIFY(desk.world.errorLog().contains(u"Selected EventKey not found when accessing Events."_s));
    }

    /// Each of the three writes in turn is refused: it is told, the others are done, and a retry mends it.
    void okFailingAnywhereKeepsTheRest()
    {
        const QStringList whole{u"11/22/2026"_s, u"3"_s, u"OkEvent"_s};
        for (int refused = 0; refused < whole.size(); ++refused) {
            ReminderDesk desk;
            desk.world.prompts.acceptAll(Answer::Ok);
            desk.addRecords();
            const Key due = desk.addEvent(u"Interview"_s, 1, u"24"_s, u"PositionKey=1"_s);
            desk.lookAndSelect(due);
            int updates = 0;
            desk.failing(
                [&](int, QStringView statement) {
                    return statement.startsWith(u"Update") && updates++ == refused;
                },
                [&] { desk.frm->cmdOk(); });
            const auto state = [&desk] {
                return desk.cells(u"Select Interview,InterviewMedium from Position"_s).split(u'|') +
                       QStringList{desk.stored(u"Complete"_s)};
            };
            for (int i = 0; i < whole.size(); ++i)
                QCOMPARE(state().at(i) == whole.at(i), i != refused);
            QVERIFY(desk.world.errorLog().contains(u"failed on purpose"_s));
            desk.run(u"Update Event set Complete=''"_s);
            desk.lookAndSelect(due);
            desk.frm->cmdOk();
            QCOMPARE(state(), whole);
        }
    }

    void buttonsTakeEventsOffTheListAndOnlyTheyStartTheTimer()
    {
        ReminderDesk desk;
        const Key first = desk.addEvent(u"First"_s, 1);
        const Key second = desk.addEvent(u"Second"_s, 2);
        desk.frm->tick();
        desk.frm->checkEvents();
        desk.frm->showScreen();
        desk.frm->cmdSnooze(); // nothing selected
        QCOMPARE(desk.listed(), u"First,Second"_s);
        desk.select(first);
        QVERIFY(!desk.frm->timer1Enabled());
        desk.frm->cmdSnooze();
        QCOMPARE(desk.listed(), u"Second"_s);
        QVERIFY(!desk.frm->timer1Enabled());
        desk.frm->cmdDismiss(); // the event put off is no longer selected
        QCOMPARE(desk.stored(u"Count(*)"_s), u"2"_s);
        QVERIFY(!desk.frm->isVisible());
        for (void (FrmReminder::*putOff)() : {&FrmReminder::cmdCloseAll, &FrmReminder::cmdSnoozeAll}) {
            desk.frm->tick();
            QVERIFY(!desk.frm->timer1Enabled());
            desk.frm->checkEvents();
            (*desk.frm.*putOff)();
            QVERIFY(!desk.frm->isVisible() && desk.frm->timer1Enabled());
        }
        desk.frm->tick();
        desk.lookAndSelect(second);
        QCOMPARE(desk.listed(), u"First,Second*"_s);
        desk.frm->cmdDismiss();
        QCOMPARE(desk.stored(u"Event"_s), u"First"_s);
        QVERIFY(desk.frm->isVisible() && !desk.frm->timer1Enabled());
        desk.select(first);
        desk.frm->cmdSnooze(); // the last one
        QVERIFY(!desk.frm->isVisible() && desk.frm->timer1Enabled());
        desk.addEvent(u"Third"_s, 3);
        desk.frm->tick();
        desk.lookAndSelect(first);
        desk.frm->cmdOk();
        QVERIFY(desk.frm->isVisible() && desk.frm->timer1Enabled());
    }

    void intervalIsKeptWhenItIsOne_data()
    {
        columns<QString, QString>("typed", "stored");
        QTest::newRow("blanks") << u" 25 "_s << u"25"_s;
        QTest::newRow("one") << u"1"_s << u"1"_s;
        for (const QString& text : {u"0"_s, u"0.9"_s, u"-5"_s, u"32768"_s, u"abc"_s, u"nan"_s, QString()})
            QTest::newRow(qPrintable(u'"' + text + u'"')) << text << u"15"_s;
    }
    void intervalIsKeptWhenItIsOne()
    {
        QFETCH(QString, typed);
        ReminderDesk desk;
        desk.status(u"TimeDelta"_s, u"15"_s);
        desk.frm->load();
        QCOMPARE(desk.frm->form().text(u"txtInterval"_s), u"15"_s);
        desk.frm->form().edit(u"txtInterval"_s, typed);
        desk.frm->unload();
        QTEST(desk.data().getStatusValue(u"TimeDelta"_s), "stored");
        desk.status(u"TimeDelta"_s, u"99"_s);
        desk.frm->unload(); // the second end writes nothing
        QCOMPARE(desk.data().getStatusValue(u"TimeDelta"_s), u"99"_s);
    }

    void alarmSoundsWhenTheScreenComesForward()
    {
        ReminderDesk desk;
        const QStringList& heard = desk.world.desktop.opened;
        const auto comeForward = [&desk] {
            desk.frm->deactivated();
            desk.frm->activated();
        };
        desk.addEvent(u"Interview"_s, 1);
        desk.status(u"AlarmFile"_s, u"/bell.wav"_s);
        desk.frm->tick();
        desk.frm->activated();
        QCOMPARE(heard, QStringList()); // sound is off
        desk.status(u"Multimedia"_s, u"Yes"_s);
        desk.end();
        desk.begin();
        desk.frm->activated();
        QCOMPARE(heard, QStringList()); // not to be seen
        desk.frm->deactivated();
        desk.frm->tick();
        QCOMPARE(heard, QStringList{u"sound /bell.wav"_s});
        desk.frm->activated(); // the user goes to the window that has just sounded
        QCOMPARE(heard.size(), 1);
        comeForward();
        QCOMPARE(heard.size(), 2);
        desk.world.desktop.works = false;
        comeForward(); // a box would fail the test
        QVERIFY(desk.world.errorLog().contains(u"/bell.wav"_s));
        desk.status(u"AlarmFile"_s, QString());
        comeForward();
        QCOMPARE(heard.size(), 3);
    }

    void noteListsWhatCameDueWhileAway()
    {
        ReminderDesk desk;
        const QStringList& notes = desk.world.desktop.opened;
        desk.addEvent(u"Seen before"_s, -1, u"0"_s);
        desk.frm->tick();
        QCOMPARE(notes, QStringList()); // the first session was never away
        for (int i = 1; i <= 7; ++i)
            desk.addEvent(u"Event %1"_s.arg(i), i, u"0"_s);
        desk.end();
        desk.world.setNow(start.addSecs(8LL * 3600));
        desk.begin();
        desk.frm->tick();
        QCOMPARE(notes.size(), 1);
        QVERIFY2(notes[0].startsWith(
                     u"note Came due since the last look: Event 1, 11/22/2026 10:30:00 AM\nEvent 2, "_s),
                 qPrintable(notes[0]));
        QVERIFY2(notes[0].endsWith(u"\nEvent 5, 11/22/2026 2:30:00 PM\nand 2 more"_s), qPrintable(notes[0]));
        desk.addEvent(u"Another"_s, -1, u"0"_s);
        desk.frm->checkEvents();
        QCOMPARE(notes.size(), 1); // once a session
        desk.end();
        desk.begin();
        desk.frm->tick();
        QCOMPARE(notes.size(), 1); // nothing came due
    }

    void noteKeepsWhatNoLookHasSeen()
    {
        ReminderDesk desk;
        desk.addEvent(u"Interview"_s, 1, u"0"_s);
        desk.frm->checkEvents();
        desk.world.setNow(start.addSecs(2LL * 3600));
        desk.end();
        desk.begin(); // a short session that never looked
        desk.end();
        desk.begin();
        {
            const BusyScope busy(*desk.world.session);
            desk.frm->tick();
        }
        QCOMPARE(desk.world.desktop.opened, QStringList());
        desk.world.desktop.works = false; // a desktop without notes takes nothing away
        desk.frm->checkEvents();
        QCOMPARE(desk.world.desktop.opened.size(), 1);
        QCOMPARE(desk.listed(), u"Interview"_s);
        QCOMPARE(desk.world.errorLog(), QString());
    }
};

JOBWRIGHT_TEST(TestFrmReminder)
#include "tst_frmreminder.moc"
