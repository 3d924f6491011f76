// The contact history: what it shows, takes over, refuses and leaves behind when it closes.
#include "history/historybench.h"
#include "support/table.h"

#include <QSignalSpy>

class TestFrmHistory : public QObject
{
    Q_OBJECT

private slots:
    void factsStandAboveTheHistories()
    {
        HistoryBench bench;
        bench.world.session->debugMode = true;
        bench.addHistory(1, u"11/1/2026"_s, u"First"_s);
        bench.open();
        QVERIFY(bench.world.opLog().contains(u"Open Contact History for 1"_s));
        // Of two mail addresses the second stands where there is no first.
        for (const QString& fact :
             {u"lblContactName=Ann Lee"_s, u"txtAddress=1 Main\nSuite 2\nTroy, NY 12180"_s,
              u"lblPhone1=P1:555-1"_s, u"lblEmail=ann@acme.example"_s, u"lblLastContact=No Contact"_s,
              u"lblBestMedium=Phone Email None "_s, u"lblCompanyContacts=Contacts:1"_s,
              u"lblHistory=History:1"_s})
            QCOMPARE(bench.shown(fact.section(u'=', 0, 0)), fact.section(u'=', 1));
        bench.world.prompts.expect(u"Contact Key not found"_s);
        QVERIFY2(!bench.history.load(99), "a history of nobody was opened");
    }

    void entriesAreWrittenInTheOrderOfTheirDays()
    {
        HistoryBench bench;
        bench.addHistory(1, u"11/1/2026"_s, u"First"_s);
        bench.open();
        bench.put(2, u"2026-11-20"_s, u"It's on"_s);
        bench.choose(3);
        QCOMPARE(bench.shown(u"DTPContact"_s), u"2026-11-22"_s);
        QCOMPARE(bench.shown(u"dtpNextCall"_s), u"2026-11-23"_s);
        bench.type(u"DTPContact"_s, u"2026-10-05"_s);
        QCOMPARE(bench.shown(u"dtpNextCall"_s), u"2026-10-05"_s);
        bench.type(u"DTPContact"_s, u"2026-11-22"_s); // as Esc gives it back
        QCOMPARE(bench.shown(u"dtpNextCall"_s), u"2026-11-23"_s);
        bench.type(u"DTPContact"_s, u"2026-10-05"_s);
        bench.type(u"txtDetails"_s, u"one\ntwo's"_s);
        bench.type(u"cmbMedium"_s, u"Phone"_s);
        bench.type(u"chkDoxGiven"_s, u"1"_s);
        bench.history.cmdAddHistory();
        QCOMPARE(bench.stored(), u"1-1|11/1/2026|First"_s); // nothing goes to the store before the end
        QSignalSpy told(&bench.history, &FrmHistory::recordsChanged);
        bench.close();
        QCOMPARE(told.size(), 1);
        QCOMPARE(bench.stored(), u"1-1|10/5/2026|;1-2|11/1/2026|First;1-3|11/20/2026|It`s on"_s);
        QCOMPARE(
            bench.cells(u"Select Details,Medium,NextCall,DocumentXfer from History where HistoryKey='1-1'"_s),
            u"one\r\ntwo`s|Phone|10/5/2026|1"_s);
        QCOMPARE(bench.lastContact(), u"11/20/2026"_s);
        bench.open();
        QCOMPARE(bench.listed(), u",First,It`s on"_s);
    }

    void whatWasNotTakenOverIsDropped()
    {
        HistoryBench bench;
        bench.addHistory(1, u"11/1/2026"_s, u"First"_s);
        bench.open();
        bench.choose(1);
        QCOMPARE(bench.shown(u"lblNote"_s), QString());
        bench.type(u"txtTopic"_s, u"Second thoughts"_s);
        QVERIFY2(!bench.shown(u"lblNote"_s).isEmpty(), "nothing says that Update is needed");
        int sent = 0;
        bench.failing([&](int, QStringView) { return ++sent < 0; }, [&] { bench.close(); });
        QCOMPARE(sent, 0);
        QCOMPARE(bench.stored(), u"1-1|11/1/2026|First"_s);
    }

    void lastContactIsTheLatestDay_data()
    {
        columns<QString, QString>("days", "expected");
        QTest::newRow("latest in the middle") << u"2026-01-01 2026-03-01 2026-02-01"_s << u"3/1/2026"_s;
        QTest::newRow("ahead of today") << u"2027-01-01"_s << u"1/1/2027"_s;
        QTest::newRow("all before the first day") << u"1998-12-31 1990-01-01"_s << u"1/1/1999"_s;
    }
    void lastContactIsTheLatestDay()
    {
        QFETCH(QString, days);
        HistoryBench bench;
        bench.open();
        int slot = 0;
        for (const QString& day : days.split(u' '))
            bench.put(++slot, day, u"Talk"_s);
        bench.close();
        QTEST(bench.lastContact(), "expected");
    }

    void positionsMoveOnAsTheHistoriesSay_data()
    {
        // histories: day of November, return, document; steps: InfoFollow and SentResume with their mediums
        columns<QString, QString, QString>("histories", "contactList", "steps");
        const QString none = u"12/31/1999|0|12/31/1999|0"_s;
        const QString second = u"11/2/2026|7|12/31/1999|0"_s;
        QTest::newRow("nothing promised, nothing sent") << u"1||0,2|Other|0"_s << u"12"_s << none;
        QTest::newRow("the promise comes last") << u"1||0,2|Follow-up|0"_s << u"12"_s << none;
        QTest::newRow("the last one after a promise decides")
            << u"1|Follow-up|0,2||0,4|Other|0,3||0"_s << u"12"_s << u"11/4/2026|7|12/31/1999|0"_s;
        QTest::newRow("a second promise") << u"1|Follow-up|0,2|Follow-up|0"_s << u"12"_s << second;
        QTest::newRow("another spelling is no promise") << u"1|Follow-Up|0,2||0"_s << u"12"_s << none;
        QTest::newRow("the latest document wins")
            << u"1||1,2||1,3||0"_s << u"12"_s << u"12/31/1999|0|11/2/2026|7"_s;
        QTest::newRow("promise and document in one")
            << u"1|Follow-up|1,2||0"_s << u"3,12"_s << u"11/2/2026|7|11/1/2026|7"_s;
        QTest::newRow("key within another") << u"1||1"_s << u"112,5"_s << u"12/31/1999|0|11/1/2026|7"_s;
        QTest::newRow("not listed") << u"1|Follow-up|1,2||1"_s << u"1,2,21"_s << none;
    }
    void positionsMoveOnAsTheHistoriesSay()
    {
        FETCH(QString, histories, contactList, steps);
        HistoryBench bench(12);
        bench.addPosition(u"Planner"_s, contactList);
        bench.addPosition(u"Undisturbed"_s, {});
        bench.open();
        int slot = 0;
        for (const QString& history : histories.split(u',')) {
            const QStringList parts = history.split(u'|');
            bench.put(++slot, u"2026-11-0"_s + parts.at(0), {}, parts.at(1), parts.at(2));
        }
        bench.close();
        QCOMPARE(bench.steps(u"Planner"_s), steps);
        QCOMPARE(bench.steps(u"Undisturbed"_s), u"12/31/1999|0|12/31/1999|0"_s);
    }

    void firstHistoryStaysAndOthersMayGo()
    {
        HistoryBench bench;
        bench.fill(3);
        bench.open();
        bench.choose(1);
        bench.world.prompts.expect(
            u"You may not remove the first contact history for a contact.\nYou may modify"_s);
        bench.history.cmdRemoveHistory();
        bench.choose(4);
        QVERIFY(!bench.history.form().isEnabled(u"cmdRemoveHistory"_s));
        bench.history.cmdRemoveHistory();
        bench.choose(2);
        bench.world.prompts.expect(u"Are you sure you want to remove this history?"_s, Answer::No);
        bench.history.cmdRemoveHistory();
        QVERIFY(!bench.history.historyDirty());
        bench.world.prompts.expect(u"Are you sure"_s, Answer::Yes);
        bench.history.cmdRemoveHistory();
        QCOMPARE(bench.world.prompts.lastTitle(), u"Remove History"_s);
        // The fields have moved on to the next one, so that Update cannot write the removed one over it.
        QCOMPARE(bench.shown(u"txtTopic"_s), u"Talk 3"_s);
        QCOMPARE(bench.listed(), u"Talk 1,Talk 3"_s);
        bench.close();
        QCOMPARE(bench.stored(), u"1-1|1/2/2024|Talk 1;1-2|1/4/2024|Talk 3"_s);
        QCOMPARE(bench.lastContact(), u"1/4/2024"_s);
    }

    void boundIsToldBeforeItIsReachedAndOneTooManyIsRefused()
    {
        HistoryBench bench;
        bench.fill(448);
        bench.open();
        bench.put(449, u"2026-01-01"_s, u"a"_s);
        bench.world.prompts.expect(u"450 histories now. Jobwright can work with 500"_s);
        bench.put(450, u"2026-01-02"_s, u"b"_s);
        QVERIFY(bench.world.prompts.done());
        bench.put(450, u"2026-01-03"_s, u"c"_s); // once is enough
        for (int slot = 451; slot <= 500; ++slot)
            bench.put(slot, u"2026-01-04"_s, u"d"_s);
        bench.put(500, u"2026-01-05"_s, u"Changed"_s);
        bench.choose(501);
        bench.type(u"txtTopic"_s, u"One more"_s);
        bench.world.prompts.expect(u"A contact can have 500 histories"_s);
        bench.history.cmdAddHistory();
        QCOMPARE(bench.shown(u"txtTopic"_s), u"One more"_s);
        QVERIFY(bench.world.errorLog().contains(u"Subscript out of range"_s));
        QCOMPARE(bench.history.lvwHistory().rowCount(), 501);
        bench.close();
        QCOMPARE(bench.data().getCount(u"History"_s, true), Key(500));
        QCOMPARE(bench.cells(u"Select Topic from History where HistoryKey='1-500'"_s), u"Changed"_s);
    }

    void moreThanFitAreKeptAsTheyAre()
    {
        HistoryBench bench;
        bench.fill(502);
        bench.world.prompts.expect(u"This contact has 502 histories."_s);
        bench.open();
        QCOMPARE(bench.history.lvwHistory().rowCount(), 501);
        QVERIFY(!bench.history.form().isEnabled(u"cmdAddHistory"_s));
        bench.put(1, u"2026-01-01"_s, u"Changed"_s);
        bench.choose(2);
        bench.history.cmdRemoveHistory();
        bench.close();
        QCOMPARE(bench.data().getCount(u"History"_s, true), Key(502));
        QCOMPARE(bench.cells(u"Select Topic from History where Topic='Changed'"_s), QString());
    }

    void historiesThatCannotBeReadAreNotOverwritten()
    {
        HistoryBench bench;
        bench.fill(3);
        const QString before = bench.stored();
        for (int i = 0; i < 2; ++i) {
            int ofHistories = 0;
            bench.world.prompts.expect(u"failed on purpose"_s);
            if (i == 1)
                bench.world.prompts.expect(u"could not be read"_s);
            bench.failing(
                [&](int, QStringView statement) {
                    return statement.startsWith(u"Select * from History") && ofHistories++ == i;
                },
                [&] { bench.open(); });
            bench.put(1, u"2026-01-01"_s, u"New beginning"_s);
        }
        bench.close(); // the number alone is not needed, the histories are
        QCOMPARE(bench.stored(), before);
    }

    void gapsInTheNumbersLoseNothing()
    {
        HistoryBench bench;
        bench.addHistory(7, u"11/1/2026"_s, u"Seven"_s);
        bench.addHistory(3, u"11/2/2026"_s, u"Three"_s);
        bench.addHistory(1, u"11/2/2026"_s, u"One"_s);
        bench.open();
        QCOMPARE(bench.listed(), u"Seven,One,Three"_s);
        bench.put(4, u"2026-11-03"_s, u"Last"_s);
        bench.close();
        QCOMPARE(bench.stored(),
                 u"1-1|11/1/2026|Seven;1-2|11/2/2026|One;1-3|11/2/2026|Three;1-4|11/3/2026|Last"_s);
    }

    void overlongTextIsNotTakenOver()
    {
        HistoryBench bench;
        bench.addHistory(1, u"11/1/2026"_s, u"First"_s);
        bench.open();
        bench.choose(1);
        bench.type(u"txtDetails"_s, QString(500'000, u'\n')); // stored line ends are longer
        bench.world.prompts.expect(u"too long for one history"_s);
        bench.history.cmdAddHistory();
        QVERIFY(!bench.history.historyDirty());
        bench.type(u"txtDetails"_s, QString(890'000, u'x'));
        bench.history.cmdAddHistory();
        bench.close();
        QCOMPARE(bench.cells(u"Select Details from History"_s).size(), 890'000);
    }

    void rowsSayWhatIsOverdue()
    {
        HistoryBench bench;
        const QStringList calls{u"11/21/2026"_s, u"11/22/2026"_s, u"12/31/1999"_s, QString()};
        for (int row = 1; row <= calls.size(); ++row)
            bench.addHistory(row, u"11/%1/2026"_s.arg(row), {}, u",NextCall"_s,
                             u",'"_s + calls[row - 1] + u'\'');
        bench.open();
        QStringList kinds;
        for (const ListRow& each : bench.history.lvwHistory().rows())
            kinds.append(each.key + (each.kind == u"overdue" ? u" overdue"_s : QString()));
        QCOMPARE(kinds.mid(0, 4).join(u','), u"1Hist overdue,2Hist,3Hist,4Hist"_s);
        QCOMPARE(bench.history.lvwHistory().rows()[4].texts, QStringList{u"<New>"_s});
    }

    void textsFromElsewhereStayAsTheyAre()
    {
        HistoryBench bench;
        bench.addHistory(1, {}, u"First"_s, u",Medium,Return,DocumentXfer"_s,
                         u",'Pigeon','Follow-Up','resume.doc'"_s);
        bench.open();
        bench.choose(1);
        QVERIFY(bench.history.form().items(u"cmbMedium"_s).contains(u"Pigeon"_s));
        QCOMPARE(bench.shown(u"chkDoxGiven"_s), u"1"_s);
        QCOMPARE(bench.shown(u"DTPContact"_s), u"2001-01-01"_s);
        bench.history.cmdAddHistory();
        bench.close();
        QCOMPARE(bench.cells(u"Select Medium,Return,ContactDate,NextCall,DocumentXfer from History"_s),
                 u"Pigeon|Follow-Up|||1"_s);
    }

    void followUpIsHandedToTheCalendar()
    {
        HistoryBench bench;
        bench.world.session->debugMode = true;
        bench.addPosition(u"Zoo Keeper"_s, u"1"_s);
        bench.addPosition(u"Planner"_s, u"1,4"_s);
        bench.addPosition(u"Analyst"_s, u"11"_s);
        bench.open();
        QVERIFY(!bench.history.form().isEnabled(u"cmdAddEvent"_s));
        bench.world.session->outlookAvailable = true;
        bench.open();
        QVERIFY(bench.history.form().isEnabled(u"cmdAddEvent"_s));
        bench.type(u"txtDetails"_s, u"Call about the plan\nand more"_s);
        bench.type(u"dtpNextCall"_s, u"2026-12-01"_s);
        bench.type(u"cmbMedium"_s, u"Phone"_s);
        bench.type(u"cmbEventType"_s, u"Interview Follow-up"_s);
        const auto handed = [&bench] {
            QStringList values;
            for (int i = 0; i < 7; ++i)
                values.append(bench.history.eventValues().value(u"H%1"_s.arg(i)));
            return values.join(u'|');
        };
        QCOMPARE(handed(), u"Acme|Ann Lee|Planner|Interview Follow-up|Call about the plan|12/1/2026|Phone"_s);
        bench.run(u"Update Position set ContactList='11'"_s);
        QCOMPARE(handed().section(u'|', 2, 2), u"NONE"_s);
        bench.history.cmdAddEvent();
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmEvCal"_s});
        QVERIFY(bench.world.opLog().contains(u"Open Calendar Screen"_s));
    }
};

QTEST_GUILESS_MAIN(TestFrmHistory)
#include "tst_frmhistory.moc"
