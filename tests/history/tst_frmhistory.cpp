// The contact history: what it shows, takes over, refuses and leaves behind when it closes.
#include "history/historybench.h"
#include "support/runtest.h"
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
        QCOMPARE(bench.shown(u"lblContactName txtAddress lblPhone1 lblEmail lblLastContact lblBestMedium "
                             "lblCompanyContacts lblHistory"_s),
                 u"Ann Lee|1 Main\nSuite 2\nTroy, NY 12180|P1:555-1|ann@acme.example|No Contact|Phone Email "
                 "None |Contacts:1|History:1"_s);
        bench.choose(1);
        bench.type(u"txtTopic"_s, u"Second thoughts"_s); // not taken over
        QCOMPARE(bench.statements([&] { bench.close(); }), QStringList());
        bench.expect(u"Contact Key not found"_s);
        QVERIFY2(!bench.history.load(99), "a history of nobody was opened");
    }

    void entriesAreWrittenInTheOrderOfTheirDays()
    {
        HistoryBench bench;
        bench.addHistory(1, u"11/1/2026"_s, u"First"_s);
        bench.open();
        bench.put(2, u"2026-11-20"_s, u"It's on"_s);
        bench.choose(3);
        const QString days = u"DTPContact dtpNextCall"_s;
        QCOMPARE(bench.shown(days), u"2026-11-22|2026-11-23"_s);
        for (const QString& day : {u"2026-10-05"_s, u"2026-11-22"_s, u"2026-10-05"_s}) { // and back by Esc
            bench.type(u"DTPContact"_s, day);
            QCOMPARE(bench.shown(days), day + (day == u"2026-10-05" ? u"|2026-10-05"_s : u"|2026-11-23"_s));
        }
        bench.typeAll({u"txtDetails=one\ntwo's"_s, u"cmbMedium=Phone"_s, u"chkDoxGiven=1"_s});
        bench.history.cmdAddHistory();
        QCOMPARE(bench.stored(), u"1-1|11/1/2026|First"_s); // nothing goes to the store before the end
        QSignalSpy told(bench.world.session.get(), &Session::changed);
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

    void sortingTradesLaterDaysForEarlierOnes_data()
    {
        // entered: topic and day of November, "-" for one that is stored without a day
        table({"entered", "kept"}, {{"in order already", "A1 B2 C2 D3", "ABCD"},
                                    {"the oldest was entered last", "A2 B3 C1", "CAB"},
                                    {"equal days change places", "A5 B5 C4", "CBA"},
                                    {"equal days change places twice", "A3 B3 C2 D1", "DCAB"},
                                    {"no day comes first", "A- B5 C4", "ACB"}});
    }
    void sortingTradesLaterDaysForEarlierOnes()
    {
        FETCH(QString, entered, kept);
        HistoryBench bench;
        if (entered.startsWith(u"A-"))
            bench.addHistory(1, {}, u"A"_s);
        bench.open();
        int slot = 0;
        for (const QString& each : entered.split(u' ')) {
            if (++slot; each[1] != u'-')
                bench.put(slot, u"2026-11-0"_s + each[1], each.left(1));
        }
        bench.close();
        QCOMPARE(bench.cells(u"Select Topic from History order by ContactCount"_s).remove(u';'), kept);
    }

    void lastContactIsTheLatestDay()
    {
        // In the middle, ahead of today, all before the first day.
        for (const QString& each : {u"3/1/2026 2026-01-01 2026-03-01 2026-02-01"_s, u"1/1/2027 2027-01-01"_s,
                                    u"1/1/1999 1998-12-31 1990-01-01"_s}) {
            HistoryBench bench;
            bench.open();
            int slot = 0;
            for (const QString& day : each.split(u' ').mid(1))
                bench.put(++slot, day, u"Talk"_s);
            bench.close();
            QCOMPARE(bench.lastContact(), each.section(u' ', 0, 0));
        }
    }

    void positionsMoveOnAsTheHistoriesSay_data()
    {
        // histories: day of November, return, document; steps: InfoFollow and SentResume with their mediums
        const char* const none = "12/31/1999|0|12/31/1999|0";
        const char* const sent = "12/31/1999|0|11/1/2026|7";
        table({"histories", "contactList", "steps"},
              {{"nothing promised, nothing sent", "1||0,2|Other|0", "12", none},
               {"the promise comes last", "1||0,2|Follow-up|0", "12", none},
               {"the last one after a promise decides", "1|Follow-up|0,2||0,4|Other|0,3||0", "12",
                "11/4/2026|7|12/31/1999|0"},
               {"a second promise", "1|Follow-up|0,2|Follow-up|0", "12", "11/2/2026|7|12/31/1999|0"},
               {"another spelling is no promise", "1|Follow-Up|0,2||0", "12", none},
               {"the latest document wins", "2||1,1||1,3||0", "12", "12/31/1999|0|11/2/2026|7"},
               {"promise and document in one", "1|Follow-up|1,2||0", "3,12", "11/2/2026|7|11/1/2026|7"},
               {"key within another", "1||1", "112,5", sent},
               {"not listed", "1|Follow-up|1,2||1", "1,2,21", none}});
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
        bench.remove(u"You may not remove the first contact history for a contact.\nYou may modify"_s);
        bench.choose(4);
        QVERIFY(!bench.history.form().isEnabled(u"cmdRemoveHistory"_s));
        bench.remove();
        bench.choose(2);
        bench.remove(u"Are you sure you want to remove this history?"_s, Answer::No);
        QVERIFY(!bench.history.historyDirty());
        bench.remove(u"Are you sure"_s, Answer::Yes);
        QCOMPARE(bench.world.prompts.lastTitle(), u"Remove History"_s);
        // The fields have moved on to the next one, so that Update cannot write the removed one over it.
        QCOMPARE(bench.shown(u"txtTopic"_s), u"Talk 3"_s);
        QCOMPARE(bench.listed(), u"Talk 1,Talk 3"_s);
        bench.close();
        QCOMPARE(bench.stored(), u"1-1|1/2/2024|Talk 1;1-2|1/4/2024|Talk 3"_s);
        QCOMPARE(bench.lastContact(), u"1/4/2024"_s);
    }

    void boundIsToldBeforeItIsReachedAndNothingBeyondItIsLost()
    {
        HistoryBench bench;
        bench.fill(448);
        bench.open();
        bench.put(449, u"2026-01-01"_s, u"a"_s);
        bench.expect(u"450 histories now. Jobwright can work with 500"_s);
        bench.put(450, u"2026-01-02"_s, u"b"_s);
        QVERIFY(bench.world.prompts.done());
        bench.put(450, u"2026-01-03"_s, u"c"_s); // once is enough
        for (int slot = 451; slot <= 500; ++slot)
            bench.put(slot, u"2026-01-04"_s, u"d"_s);
        bench.put(500, u"2026-01-05"_s, u"Changed"_s);
        bench.choose(501);
        bench.type(u"txtTopic"_s, u"One more"_s);
        bench.expect(u"A contact can have 500 histories"_s);
        bench.history.cmdAddHistory();
        QCOMPARE(bench.shown(u"txtTopic"_s), u"One more"_s);
        QVERIFY(bench.world.errorLog().contains(u"Subscript out of range"_s));
        // What was entered before does not wait for the closing.
        QCOMPARE(bench.data().getCount(u"History"_s, true), Key(500));
        QCOMPARE(bench.history.lvwHistory().rowCount(), 501);
        bench.close();
        QCOMPARE(bench.rows(u"History"_s), 500);
        QCOMPARE(bench.cells(u"Select Topic from History where HistoryKey='1-500'"_s), u"Changed"_s);
        bench.open();
        bench.put(1, u"2026-01-01"_s, u"e"_s); // once is enough at the next opening, too
        bench.close();
        // More than fit, from elsewhere, are kept as they are.
        for (const int count : {501, 502})
            bench.addHistory(count, u"11/1/2026"_s, u"More"_s);
        bench.expect(u"This contact has 502 histories."_s);
        bench.open();
        QCOMPARE(bench.history.lvwHistory().rowCount(), 501);
        QVERIFY(!bench.history.form().isEnabled(u"cmdAddHistory"_s));
        bench.put(1, u"2026-01-01"_s, u"Locked"_s);
        bench.choose(2);
        bench.remove();
        bench.close();
        QCOMPARE(bench.rows(u"History"_s), 502);
        QCOMPARE(bench.cells(u"Select Topic from History where Topic='Locked'"_s), QString());
    }

    void historiesThatCannotBeReadAreNotOverwritten()
    {
        HistoryBench bench;
        bench.fill(3);
        const QString before = bench.stored();
        for (int i = 0; i < 2; ++i) {
            bench.expect(u"failed on purpose"_s);
            if (i == 1)
                bench.expect(u"could not be read"_s);
            int ofHistories = 0;
            const auto fails = [&](int, QStringView statement) {
                return statement.startsWith(u"Select * from History") && ofHistories++ == i;
            };
            bench.failing(fails, [&] { bench.open(); });
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
        bench.expect(u"too long for one history"_s);
        bench.history.cmdAddHistory();
        QVERIFY(!bench.history.historyDirty());
        bench.type(u"txtDetails"_s, QString(890'000, u'x'));
        bench.history.cmdAddHistory();
        bench.close();
        QCOMPARE(bench.cells(u"Select Details from History"_s).size(), 890'000);
    }

    void textsFromElsewhereStayAsTheyAre()
    {
        HistoryBench bench;
        bench.addHistory(1, {}, u"First"_s, u",Medium,Return,DocumentXfer"_s,
                         u",'Pigeon','Follow-Up','resume.doc'"_s);
        bench.open();
        bench.choose(1);
        QVERIFY(bench.history.form().items(u"cmbMedium"_s).contains(u"Pigeon"_s));
        QCOMPARE(bench.shown(u"chkDoxGiven DTPContact"_s), u"1|2001-01-01"_s);
        bench.history.cmdAddHistory();
        bench.close();
        QCOMPARE(bench.cells(u"Select Medium,Return,ContactDate,NextCall,DocumentXfer from History"_s),
                 u"Pigeon|Follow-Up|||1"_s);
    }

    void followUpIsHandedToTheCalendar()
    {
        HistoryBench bench;
        bench.world.session->debugMode = true;
        for (const QString& each : {u"Zoo Keeper=1"_s, u"Planner=1,4"_s, u"Analyst=11"_s})
            bench.addPosition(each.section(u'=', 0, 0), each.section(u'=', 1));
        bench.open();
        QVERIFY(!bench.history.form().isEnabled(u"cmdAddEvent"_s));
        bench.world.session->outlookAvailable = true;
        bench.open();
        QVERIFY(bench.history.form().isEnabled(u"cmdAddEvent"_s));
        bench.typeAll({u"txtDetails=Call about the plan\nand more"_s, u"dtpNextCall=2026-12-01"_s,
                       u"cmbMedium=Phone"_s, u"cmbEventType=Interview Follow-up"_s});
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
        QVERIFY(bench.world.opLog().contains(u"Open Calendar Screen"_s));
    }
};

JOBWRIGHT_TEST(TestFrmHistory)
#include "tst_frmhistory.moc"
