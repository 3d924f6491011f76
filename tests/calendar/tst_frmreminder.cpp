// The reminder screen on a real store: its timer, its look at the events, its buttons and what they leave.
#include "base/dates.h"
#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "support/world.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class NotedScreens : public Navigator
{
public:
    QStringList opened;
    [[nodiscard]] bool hasScreen(const QString&) const override { return true; }
    void openScreen(const QString& screen) override { opened.append(screen); }
    void openHelp(int) override {}
};

const QDateTime start(QDate(2026, 11, 22), QTime(9, 30));

/// A session with its reminder screen; the events stand on the clock relative to the start.
struct Desk
{
    World world{start};
    NotedScreens screens;
    std::unique_ptr<FrmEvCal> calendar;
    std::unique_ptr<FrmReminder> frm;

    Desk() { begin(); }
    void begin()
    {
        calendar = std::make_unique<FrmEvCal>(*world.session, screens);
        frm = std::make_unique<FrmReminder>(*world.session, *calendar);
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
    void run(const QString& statement) { QVERIFY2(world.data().execQuery(statement), qPrintable(statement)); }
    void status(const QString& name, const QString& value) { world.data().writeStatus(name, value, true); }
    Key addEvent(const QString& name, int hours, const QString& lead = u"24"_s, const QString& more = {})
    {
        const QDateTime at = start.addSecs(3600LL * hours);
        run(u"Insert into "
            u"Event(Event,EventDate,EventTime,AMPM,Reminder1,Medium,EventType,Complete,PositionKey) "
            "Values('%1','%2','%3','%4','%5','Phone','Event','',0)"_s.arg(
                name, dates::mdyyyy(at.date()), at.toString(u"h:mm AP"_s).section(u' ', 0, 0),
                at.toString(u"AP"_s), lead));
        const Key key = world.data().getLastEventAddedKey();
        if (!more.isEmpty())
            run(u"Update Event set %1 where EventKey=%2"_s.arg(more).arg(key));
        return key;
    }
    Key addPosition()
    {
        run(u"Insert into Position(Title,Interview,FollowUp) Values('Planner','12/31/1999','12/31/1999')"_s);
        return world.data().getLastKeyInTable(u"Position"_s, u"PositionKey"_s);
    }
    void select(Key key) { frm->select(u'A' + QString::number(key)); }
    QString cells(const QString& statement)
    {
        const RecordSet row = world.data().getExecQueryRecords(statement);
        QStringList texts;
        for (int i = 0; i < row.columnCount() && !row.isEmpty(); ++i)
            texts.append(row.text(i));
        return texts.join(u'|');
    }
    QString listed()
    {
        QStringList names;
        for (const ListRow& row : frm->lvwRemind().rows())
            names.append(row.texts.at(0) + (row.marked ? u"*"_s : QString()));
        return names.join(u',');
    }
};

} // namespace

class TestFrmReminder : public QObject
{
    Q_OBJECT

private slots:
    void tickLooksOnceTheIntervalHasPassedAndStops_data();
    void tickLooksOnceTheIntervalHasPassedAndStops();
    void onlyButtonsStartTheTimerAgain();
    void lookListsOpenEventsInsideTheirLead();
    void manyEventsHaveTheNamesOfFew();
    void busyDialogLosesTheLook();
    void unreadableRowEndsTheLookThere();
    void unreadableStoreShowsNoBox();
    void selectionOutlivesALookOnlyWhileListed();
    void okWritesTheStepOfThePosition_data();
    void okWritesTheStepOfThePosition();
    void okWithoutARecordPutsOff();
    void okFailingAnywhereKeepsTheRest();
    void buttonsTakeEventsOffTheList();
    void doubleClickOpensTheCalendar();
    void intervalIsKeptWhenItIsOne_data();
    void intervalIsKeptWhenItIsOne();
    void alarmSoundsWhenTheScreenComesForward();
    void missingAlarmIsLoggedOnly();
    void noteListsWhatCameDueWhileAway();
    void noteKeepsWhatNoLookHasSeen();
};

void TestFrmReminder::tickLooksOnceTheIntervalHasPassedAndStops_data()
{
    QTest::addColumn<int>("sinceLook"); // seconds; -1: never
    QTest::addColumn<bool>("looks");
    QTest::newRow("first tick") << -1 << true;
    QTest::newRow("whole interval") << 600 << true;
    QTest::newRow("a second less") << 599 << false;
    QTest::newRow("clock was set back") << -3600 << false;
}

void TestFrmReminder::tickLooksOnceTheIntervalHasPassedAndStops()
{
    QFETCH(int, sinceLook);
    QFETCH(bool, looks);
    Desk desk;
    desk.addEvent(u"Interview"_s, 2);
    if (sinceLook != -1)
        desk.world.session->lastReminderCheck = start.addSecs(-sinceLook);
    QVERIFY(desk.frm->timer1Enabled());
    desk.world.setNow(start.addMSecs(789));
    desk.frm->tick();
    QVERIFY(!desk.frm->timer1Enabled());
    QCOMPARE(desk.frm->isVisible(), looks);
    if (looks)
        QCOMPARE(desk.world.session->lastReminderCheck, start);
}

void TestFrmReminder::onlyButtonsStartTheTimerAgain()
{
    Desk desk;
    const Key first = desk.addEvent(u"First"_s, 1);
    desk.addEvent(u"Second"_s, 2);
    desk.addEvent(u"Third"_s, 3);
    const auto stopped = [&desk] {
        desk.frm->tick();
        return !desk.frm->timer1Enabled();
    };
    QVERIFY(stopped());
    desk.frm->checkEvents();
    desk.frm->showScreen();
    desk.select(first);
    QVERIFY(!desk.frm->timer1Enabled());
    desk.frm->cmdSnooze(); // two are left
    QVERIFY(!desk.frm->timer1Enabled());
    desk.select(first + 1);
    desk.frm->cmdDismiss(); // one is left
    QVERIFY(!desk.frm->timer1Enabled());
    desk.frm->cmdCloseAll();
    QVERIFY(desk.frm->timer1Enabled() && stopped());
    desk.frm->cmdSnoozeAll();
    QVERIFY(desk.frm->timer1Enabled() && stopped());
    desk.frm->checkEvents();
    desk.select(first);
    desk.frm->cmdOk();
    QVERIFY(desk.frm->isVisible());
    QVERIFY(desk.frm->timer1Enabled());
}

void TestFrmReminder::lookListsOpenEventsInsideTheirLead()
{
    Desk desk;
    desk.run(u"Insert into Company(Name) Values('Acme')"_s);
    desk.run(u"Insert into Contact(FirstName,LastName) Values('Ann','Lee')"_s);
    desk.addPosition();
    desk.addEvent(u"Later"_s, 30, u"24"_s);
    desk.addEvent(u"Interview"_s, 20, u"24"_s,
                  u"Description='two\r\nlines',CompanyKey=1,ContactKey=1,PositionKey=1"_s);
    desk.addEvent(u"Task"_s, -1, u"24"_s, u"EventType='Task'"_s);
    desk.addEvent(u"Odd case"_s, -1, u"24"_s, u"EventType='event'"_s);
    const Key closed = desk.addEvent(u"Closed"_s, 1, u"24"_s, u"Complete='OkEvent'"_s);
    desk.addEvent(u"Done"_s, 1, u"24"_s, u"Complete='Complete'"_s);
    desk.addEvent(u"Orphan"_s, -2, u"0"_s, u"CompanyKey=99,ContactKey=99,PositionKey=99"_s);
    desk.frm->checkEvents();
    QCOMPARE(desk.listed(), u"Orphan,Interview"_s);
    const ListRow& row = desk.frm->lvwRemind().rows().at(1);
    QCOMPARE(row.texts.join(u'|'),
             u"Interview|two\r\nlines|11/23/2026 5:30:00 AM|Ann Lee|Planner|Acme|20 hrs"_s);
    QCOMPARE(row.kind, u"unsel"_s);
    QVERIFY(desk.frm->matchedKeys().contains(closed));
    QCOMPARE(desk.frm->matchedKeys().size(), 4U);
    QVERIFY(desk.frm->isVisible());
    desk.run(u"Delete * from Event"_s);
    desk.frm->checkEvents();
    QVERIFY(!desk.frm->isVisible());
    QCOMPARE(desk.listed(), QString());
    QCOMPARE(desk.world.errorLog(), QString());
}

void TestFrmReminder::manyEventsHaveTheNamesOfFew()
{
    Desk desk;
    desk.run(u"Insert into Company(Name) Values('Acme')"_s);
    desk.run(u"Insert into Contact(FirstName,LastName) Values('Ann','Lee')"_s);
    desk.addPosition();
    desk.addEvent(u"Orphan"_s, -2, u"0"_s, u"CompanyKey=99,ContactKey=99,PositionKey=99"_s);
    desk.addEvent(u"Interview"_s, -1, u"0"_s, u"CompanyKey=1,ContactKey=1,PositionKey=1"_s);
    const auto names = [&desk] {
        desk.frm->checkEvents();
        QStringList cells;
        for (int row = 0; row < 2; ++row)
            cells += desk.frm->lvwRemind().rows().at(static_cast<size_t>(row)).texts.mid(3, 3);
        return cells;
    };
    const QStringList few = names();
    QCOMPARE(few, (QStringList{{}, {}, {}, u"Ann Lee"_s, u"Planner"_s, u"Acme"_s}));
    for (int i = 0; i < 300; ++i)
        desk.addEvent(u"Further"_s, 0);
    QCOMPARE(names(), few);
    QCOMPARE(desk.frm->lvwRemind().rowCount(), 302);
}

void TestFrmReminder::busyDialogLosesTheLook()
{
    Desk desk;
    desk.addEvent(u"Interview"_s, 1);
    {
        const BusyScope busy(*desk.world.session);
        desk.frm->tick();
    }
    QVERIFY(!desk.frm->isVisible());
    QVERIFY(!desk.frm->timer1Enabled());
    QCOMPARE(desk.world.session->lastReminderCheck, start);
    QVERIFY(desk.frm->matchedKeys().empty());
}

void TestFrmReminder::unreadableRowEndsTheLookThere()
{
    Desk desk;
    desk.addEvent(u"Before"_s, -48);
    desk.addEvent(u"Broken"_s, -24, u"24"_s, u"EventTime='noon'"_s);
    desk.addEvent(u"Behind"_s, 1);
    desk.frm->checkEvents();
    QCOMPARE(desk.listed(), u"Before"_s);
    QVERIFY(desk.frm->isVisible());
    for (const QString& word : {u"Broken"_s, u"behind it"_s})
        QVERIFY(desk.frm->form().text(u"lblNote"_s).contains(word));
    QVERIFY(desk.world.errorLog().contains(u"noon"_s));
    desk.run(u"Update Event set EventTime='12:00' where Event='Broken'"_s);
    desk.frm->checkEvents();
    QCOMPARE(desk.listed(), u"Before,Broken,Behind"_s);
    QVERIFY(!desk.frm->form().isVisible(u"lblNote"_s));
}

void TestFrmReminder::unreadableStoreShowsNoBox()
{
    Desk desk;
    desk.addEvent(u"Interview"_s, 1);
    desk.frm->checkEvents();
    desk.world.data().database().setInterceptor(
        [](QStringView) { throw StoreError(u"failed on purpose"_s, 1, u"test"_s); });
    desk.frm->checkEvents(); // a box would fail the test
    desk.world.data().database().setInterceptor({});
    QCOMPARE(desk.listed(), u"Interview"_s);
    QVERIFY(desk.world.errorLog().contains(u"failed on purpose"_s));
}

void TestFrmReminder::selectionOutlivesALookOnlyWhileListed()
{
    Desk desk;
    const Key interview = desk.addEvent(u"Interview"_s, 1);
    desk.addEvent(u"Referral"_s, 2);
    desk.frm->checkEvents();
    desk.select(interview);
    desk.addEvent(u"Other"_s, 3);
    desk.frm->checkEvents();
    QCOMPARE(desk.listed(), u"Interview*,Referral,Other"_s);
    desk.select(interview + 1);
    QCOMPARE(desk.listed(), u"Interview,Referral*,Other"_s);
    desk.run(u"Delete * from Event where Event='Referral'"_s);
    desk.frm->checkEvents();
    QCOMPARE(desk.frm->selectedEventKey(), Key(0));
    desk.frm->cmdDismiss(); // nothing is selected: nothing may be deleted
    QCOMPARE(desk.cells(u"Select Count(*) from Event"_s), u"2"_s);
}

void TestFrmReminder::okWritesTheStepOfThePosition_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("medium");
    QTest::addColumn<bool>("position");
    QTest::addColumn<QString>("steps"); // interview, its medium, follow-up, its medium
    const QString none = u"12/31/1999||12/31/1999|"_s;
    const auto row = [](const QString& event, const QString& medium, const QString& steps) {
        QTest::newRow(qPrintable(event + u", " + medium)) << event << medium << true << steps;
    };
    row(u"Interview"_s, u"Meeting"_s, u"11/22/2026|7|12/31/1999|"_s);
    row(u"Interview"_s, u"pHONE"_s, u"11/22/2026|3|12/31/1999|"_s);
    row(u"Interview"_s, u"Internet"_s, u"11/22/2026|1|12/31/1999|"_s);
    row(u"Interview"_s, u"Fax"_s, u"11/22/2026|2|12/31/1999|"_s);
    row(u"Interview"_s, u"Research"_s, u"11/22/2026|5|12/31/1999|"_s);
    row(u"Interview"_s, u"Other"_s, u"11/22/2026|6|12/31/1999|"_s);
    row(u"Interview"_s, u"Conference Call"_s, u"11/22/2026|0|12/31/1999|"_s);
    row(u"Interview"_s, QString(), u"11/22/2026|0|12/31/1999|"_s);
    row(u"Interview Follow-Up"_s, u"Post"_s, u"12/31/1999||11/22/2026|4"_s);
    row(u"Interview Follow-up"_s, u"Post"_s, none);
    row(u"Status Inquiry"_s, u"Phone"_s, none);
    QTest::newRow("its position is gone") << u"Interview"_s << u"Phone"_s << false << none;
}

void TestFrmReminder::okWritesTheStepOfThePosition()
{
    QFETCH(QString, event);
    QFETCH(QString, medium);
    QFETCH(bool, position);
    QFETCH(QString, steps);
    Desk desk;
    const Key key = desk.addPosition();
    const Key due = desk.addEvent(event, 1, u"24"_s,
                                  u"Medium='%1',PositionKey=%2"_s.arg(medium).arg(position ? key : 77));
    desk.frm->checkEvents();
    desk.select(due);
    QSignalSpy written(desk.frm.get(), &FrmReminder::recordsChanged);
    desk.frm->cmdOk();
    QCOMPARE(desk.cells(u"Select Interview,InterviewMedium,FollowUp,FollowUpMedium from Position"_s), steps);
    QCOMPARE(desk.cells(u"Select Complete from Event"_s), u"OkEvent"_s);
    QCOMPARE(
        desk.world.errorLog().contains(u"Selected Event Position Key not found when accessing Events."_s),
        !position);
    QCOMPARE(written.count(), 1);
    QCOMPARE(desk.listed(), QString());
    QVERIFY(!desk.frm->isVisible());
    QCOMPARE(desk.frm->selectedEventKey(), Key(0));
}

void TestFrmReminder::okWithoutARecordPutsOff()
{
    Desk desk;
    const Key due = desk.addEvent(u"Interview"_s, 1);
    desk.frm->checkEvents();
    desk.frm->cmdOk(); // nothing selected
    QVERIFY(!desk.frm->isVisible());
    QCOMPARE(desk.cells(u"Select Complete from Event"_s), QString());
    desk.frm->checkEvents();
    desk.select(due);
    desk.run(u"Delete * from Event"_s);
    desk.frm->cmdOk();
    QVERIFY(!desk.frm->isVisible());
    QVERIFY(desk.frm->timer1Enabled());
    QVERIFY(desk.world.errorLog().contains(u"Selected EventKey not found when accessing Events."_s));
}

void TestFrmReminder::okFailingAnywhereKeepsTheRest()
{
    // Each of the three writes in turn is refused: it is told, the others are done, and a retry mends it.
    const QStringList whole{u"11/22/2026"_s, u"3"_s, u"OkEvent"_s};
    for (int refused = 0; refused < whole.size(); ++refused) {
        Desk desk;
        desk.world.prompts.acceptAll(Answer::Ok);
        const Key position = desk.addPosition();
        const Key due = desk.addEvent(u"Interview"_s, 1, u"24"_s, u"PositionKey=%1"_s.arg(position));
        desk.frm->checkEvents();
        desk.select(due);
        int updates = 0;
        desk.world.data().database().setInterceptor([&](QStringView statement) {
            if (statement.startsWith(u"Update") && updates++ == refused)
                throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
        });
        desk.frm->cmdOk();
        desk.world.data().database().setInterceptor({});
        const auto state = [&desk] {
            return desk.cells(u"Select Interview,InterviewMedium from Position"_s).split(u'|') +
                   QStringList{desk.cells(u"Select Complete from Event"_s)};
        };
        for (int i = 0; i < whole.size(); ++i)
            QCOMPARE(state().at(i) == whole.at(i), i != refused);
        QVERIFY(desk.world.errorLog().contains(u"failed on purpose"_s));
        desk.run(u"Update Event set Complete=''"_s);
        desk.frm->checkEvents();
        desk.select(due);
        desk.frm->cmdOk();
        QCOMPARE(state(), whole);
    }
}

void TestFrmReminder::buttonsTakeEventsOffTheList()
{
    Desk desk;
    const Key first = desk.addEvent(u"First"_s, 1);
    const Key second = desk.addEvent(u"Second"_s, 2);
    desk.frm->checkEvents();
    desk.frm->cmdSnooze(); // nothing selected
    QCOMPARE(desk.listed(), u"First,Second"_s);
    desk.select(first);
    desk.frm->cmdSnooze();
    QCOMPARE(desk.listed(), u"Second"_s);
    desk.frm->cmdDismiss(); // the event put off is no longer selected
    QCOMPARE(desk.cells(u"Select Count(*) from Event"_s), u"2"_s);
    QVERIFY(!desk.frm->isVisible());
    desk.frm->checkEvents();
    QCOMPARE(desk.listed(), u"First,Second"_s);
    desk.select(second);
    desk.frm->cmdDismiss();
    QCOMPARE(desk.cells(u"Select Event from Event"_s), u"First"_s);
    QVERIFY(desk.frm->isVisible());
    desk.select(first);
    desk.frm->cmdSnooze();
    QVERIFY(!desk.frm->isVisible());
    QVERIFY(desk.frm->timer1Enabled());
}

void TestFrmReminder::doubleClickOpensTheCalendar()
{
    Desk desk;
    const Key due = desk.addEvent(u"Interview"_s, 1);
    desk.frm->checkEvents();
    desk.world.session->debugMode = true;
    desk.frm->open(u'A' + QString::number(due));
    QCOMPARE(desk.screens.opened, QStringList{u"FrmEvCal"_s});
    QCOMPARE(desk.listed(), u"Interview*"_s);
    QVERIFY(desk.world.opLog().contains(u"Open Calendar Screen"_s));
}

void TestFrmReminder::intervalIsKeptWhenItIsOne_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("number") << u"25"_s << u"25"_s;
    QTest::newRow("blanks") << u" 25 "_s << u"25"_s;
    QTest::newRow("one") << u"1"_s << u"1"_s;
    for (const QString& text : {u"0"_s, u"0.9"_s, u"-5"_s, u"32768"_s, u"abc"_s, u"nan"_s, QString()})
        QTest::newRow(qPrintable(u'"' + text + u'"')) << text << u"15"_s;
}

void TestFrmReminder::intervalIsKeptWhenItIsOne()
{
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    Desk desk;
    desk.status(u"TimeDelta"_s, u"15"_s);
    desk.frm->load();
    QCOMPARE(desk.frm->form().text(u"txtInterval"_s), u"15"_s);
    desk.frm->form().edit(u"txtInterval"_s, typed);
    desk.frm->unload();
    QCOMPARE(desk.world.data().getStatusValue(u"TimeDelta"_s), stored);
    desk.status(u"TimeDelta"_s, u"99"_s);
    desk.frm->unload(); // the second end writes nothing
    QCOMPARE(desk.world.data().getStatusValue(u"TimeDelta"_s), u"99"_s);
}

void TestFrmReminder::alarmSoundsWhenTheScreenComesForward()
{
    Desk desk;
    QStringList& heard = desk.world.desktop.opened;
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
    desk.frm->deactivated();
    desk.frm->activated();
    QCOMPARE(heard.size(), 2);
    desk.status(u"AlarmFile"_s, QString());
    desk.frm->deactivated();
    desk.frm->activated();
    QCOMPARE(heard.size(), 2);
}

void TestFrmReminder::missingAlarmIsLoggedOnly()
{
    Desk desk;
    desk.status(u"Multimedia"_s, u"Yes"_s);
    desk.status(u"AlarmFile"_s, u"/no/bell.wav"_s);
    desk.world.desktop.works = false;
    desk.addEvent(u"Interview"_s, 1);
    desk.frm->load();
    desk.frm->tick(); // a box would fail the test
    QVERIFY(desk.frm->isVisible());
    QVERIFY(desk.world.errorLog().contains(u"/no/bell.wav"_s));
}

void TestFrmReminder::noteListsWhatCameDueWhileAway()
{
    Desk desk;
    desk.addEvent(u"Seen before"_s, -1, u"0"_s);
    desk.frm->tick();
    QCOMPARE(desk.world.desktop.opened, QStringList()); // the first session was never away
    for (int i = 1; i <= 7; ++i)
        desk.addEvent(u"Event %1"_s.arg(i), i, u"0"_s);
    desk.end();
    desk.world.setNow(start.addSecs(8 * 3600));
    desk.begin();
    desk.frm->tick();
    QCOMPARE(desk.world.desktop.opened.size(), 1);
    const QString note = desk.world.desktop.opened.first();
    QVERIFY2(
        note.startsWith(u"note Came due since the last look: Event 1, 11/22/2026 10:30:00 AM\nEvent 2, "_s),
        qPrintable(note));
    QVERIFY2(note.endsWith(u"\nEvent 5, 11/22/2026 2:30:00 PM\nand 2 more"_s), qPrintable(note));
    desk.addEvent(u"Another"_s, -1, u"0"_s);
    desk.frm->checkEvents();
    QCOMPARE(desk.world.desktop.opened.size(), 1); // once a session
    desk.end();
    desk.begin();
    desk.frm->tick();
    QCOMPARE(desk.world.desktop.opened.size(), 1); // nothing came due
}

void TestFrmReminder::noteKeepsWhatNoLookHasSeen()
{
    Desk desk;
    desk.addEvent(u"Interview"_s, 1, u"0"_s);
    desk.frm->checkEvents();
    desk.world.setNow(start.addSecs(2 * 3600));
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

QTEST_APPLESS_MAIN(TestFrmReminder)
#include "tst_frmreminder.moc"
