// The contact history: what it shows, takes over, refuses and leaves behind when it closes.
#include "history/historybench.h"

#include <QSignalSpy>

class TestFrmHistory : public QObject
{
    Q_OBJECT

private slots:
    void factsStandAboveTheHistories();
    void entriesAreWrittenInTheOrderOfTheirDays();
    void whatWasNotTakenOverIsDropped();
    void lastContactIsTheLatestDay_data();
    void lastContactIsTheLatestDay();
    void positionsMoveOnAsTheHistoriesSay_data();
    void positionsMoveOnAsTheHistoriesSay();
    void firstHistoryStaysAndOthersMayGo();
    void oneTooManyIsRefusedAndTheOthersAreKept();
    void boundIsToldBeforeItIsReached();
    void moreThanFitAreKeptAsTheyAre();
    void historiesThatCannotBeReadAreNotOverwritten();
    void gapsInTheNumbersLoseNothing();
    void overlongTextIsNotTakenOver();
    void rowsSayWhatIsOverdue_data();
    void rowsSayWhatIsOverdue();
    void textsFromElsewhereStayAsTheyAre();
    void followUpIsHandedToTheCalendar();
};

void TestFrmHistory::factsStandAboveTheHistories()
{
    HistoryBench bench;
    bench.world.session->debugMode = true;
    bench.addHistory(1, u"11/1/2026"_s, u"First"_s);
    bench.open();
    QVERIFY(bench.world.opLog().contains(u"Open Contact History for 1"_s));
    QCOMPARE(bench.shown(u"lblContactName"_s), u"Ann Lee"_s);
    QCOMPARE(bench.shown(u"txtAddress"_s), u"1 Main\nSuite 2\nTroy, NY 12180"_s);
    QCOMPARE(bench.shown(u"lblPhone1"_s), u"P1:555-1"_s);
    QCOMPARE(bench.shown(u"lblEmail"_s), u"ann@acme.example"_s); // the second where there is no first
    QCOMPARE(bench.shown(u"lblLastContact"_s), u"No Contact"_s);
    QCOMPARE(bench.shown(u"lblBestMedium"_s), u"Phone Email None "_s);
    QCOMPARE(bench.shown(u"lblCompanyContacts"_s), u"Contacts:1"_s);
    QCOMPARE(bench.shown(u"lblHistory"_s), u"History:1"_s);
    bench.world.prompts.expect(u"Contact Key not found"_s);
    QVERIFY2(!bench.history.load(99), "a history of nobody was opened");
}

void TestFrmHistory::entriesAreWrittenInTheOrderOfTheirDays()
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
    QVERIFY(bench.history.unload());
    QCOMPARE(told.size(), 1);
    QCOMPARE(bench.stored(), u"1-1|10/5/2026|;1-2|11/1/2026|First;1-3|11/20/2026|It`s on"_s);
    QCOMPARE(
        bench.cells(u"Select Details,Medium,NextCall,DocumentXfer from History where HistoryKey='1-1'"_s),
        u"one\r\ntwo`s|Phone|10/5/2026|1"_s);
    QCOMPARE(bench.lastContact(), u"11/20/2026"_s);
    bench.open();
    QCOMPARE(bench.listed(), (QStringList{QString(), u"First"_s, u"It`s on"_s}));
}

void TestFrmHistory::whatWasNotTakenOverIsDropped()
{
    HistoryBench bench;
    bench.addHistory(1, u"11/1/2026"_s, u"First"_s);
    bench.open();
    bench.choose(1);
    QCOMPARE(bench.shown(u"lblNote"_s), QString());
    bench.type(u"txtTopic"_s, u"Second thoughts"_s);
    QVERIFY2(!bench.shown(u"lblNote"_s).isEmpty(), "nothing says that Update is needed");
    int sent = 0;
    bench.failing([&](size_t, QStringView) { return ++sent < 0; }, [&] { QVERIFY(bench.history.unload()); });
    QCOMPARE(sent, 0);
    QCOMPARE(bench.stored(), u"1-1|11/1/2026|First"_s);
}

void TestFrmHistory::lastContactIsTheLatestDay_data()
{
    QTest::addColumn<QStringList>("days");
    QTest::addColumn<QString>("expected");
    QTest::newRow("latest in the middle")
        << QStringList{u"2026-01-01"_s, u"2026-03-01"_s, u"2026-02-01"_s} << u"3/1/2026"_s;
    QTest::newRow("ahead of today") << QStringList{u"2027-01-01"_s} << u"1/1/2027"_s;
    QTest::newRow("all before the first day")
        << QStringList{u"1998-12-31"_s, u"1990-01-01"_s} << u"1/1/1999"_s;
}

void TestFrmHistory::lastContactIsTheLatestDay()
{
    QFETCH(QStringList, days);
    QFETCH(QString, expected);
    HistoryBench bench;
    bench.open();
    for (int i = 0; i < days.size(); ++i)
        bench.put(i + 1, days.at(i), u"Talk"_s);
    QVERIFY(bench.history.unload());
    QCOMPARE(bench.lastContact(), expected);
}

void TestFrmHistory::positionsMoveOnAsTheHistoriesSay_data()
{
    QTest::addColumn<QStringList>("histories"); // day of November, return, document
    QTest::addColumn<QString>("contactList");
    QTest::addColumn<QString>("steps"); // InfoFollow and SentResume with their mediums
    const QString none = u"12/31/1999|0|12/31/1999|0"_s;
    QTest::newRow("nothing promised, nothing sent")
        << QStringList{u"1||0"_s, u"2|Other|0"_s} << u"12"_s << none;
    QTest::newRow("the promise comes last") << QStringList{u"1||0"_s, u"2|Follow-up|0"_s} << u"12"_s << none;
    QTest::newRow("the last one after a promise decides")
        << QStringList{u"1|Follow-up|0"_s, u"2||0"_s, u"4|Other|0"_s, u"3||0"_s} << u"12"_s
        << u"11/4/2026|7|12/31/1999|0"_s;
    QTest::newRow("a second promise changes nothing")
        << QStringList{u"1|Follow-up|0"_s, u"2|Follow-up|0"_s} << u"12"_s << u"11/2/2026|7|12/31/1999|0"_s;
    QTest::newRow("another spelling is no promise")
        << QStringList{u"1|Follow-Up|0"_s, u"2||0"_s} << u"12"_s << none;
    QTest::newRow("the latest document wins")
        << QStringList{u"1||1"_s, u"2||1"_s, u"3||0"_s} << u"12"_s << u"12/31/1999|0|11/2/2026|7"_s;
    QTest::newRow("promise and document in one")
        << QStringList{u"1|Follow-up|1"_s, u"2||0"_s} << u"3,12"_s << u"11/2/2026|7|11/1/2026|7"_s;
    QTest::newRow("key within another")
        << QStringList{u"1||1"_s} << u"112,5"_s << u"12/31/1999|0|11/1/2026|7"_s;
    QTest::newRow("not listed") << QStringList{u"1|Follow-up|1"_s, u"2||1"_s} << u"1,2,21"_s << none;
}

void TestFrmHistory::positionsMoveOnAsTheHistoriesSay()
{
    QFETCH(QStringList, histories);
    QFETCH(QString, contactList);
    QFETCH(QString, steps);
    HistoryBench bench(12);
    bench.addPosition(u"Planner"_s, contactList);
    bench.addPosition(u"Undisturbed"_s, {});
    bench.run(u"Update Position set InfoFollow='12/31/1999',InfoFollowMedium=0,SentResume='12/31/1999',"
              "SentResumeMedium=0"_s);
    bench.open();
    for (int i = 0; i < histories.size(); ++i) {
        const QStringList parts = histories.at(i).split(u'|');
        bench.choose(i + 1);
        bench.type(u"DTPContact"_s, u"2026-11-0"_s + parts.at(0));
        bench.type(u"cmbReturn"_s, parts.at(1));
        bench.type(u"chkDoxGiven"_s, parts.at(2));
        bench.history.cmdAddHistory();
    }
    QVERIFY(bench.history.unload());
    const auto stepsOf = [&bench](const QString& title) {
        return bench.cells(u"Select InfoFollow,InfoFollowMedium,SentResume,SentResumeMedium from Position "
                           "where Title='"_s +
                           title + u'\'');
    };
    QCOMPARE(stepsOf(u"Planner"_s), steps);
    QCOMPARE(stepsOf(u"Undisturbed"_s), u"12/31/1999|0|12/31/1999|0"_s);
}

void TestFrmHistory::firstHistoryStaysAndOthersMayGo()
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
    QCOMPARE(bench.listed(), (QStringList{u"Talk 1"_s, u"Talk 3"_s}));
    QVERIFY(bench.history.unload());
    QCOMPARE(bench.stored(), u"1-1|1/2/2024|Talk 1;1-2|1/4/2024|Talk 3"_s);
    QCOMPARE(bench.lastContact(), u"1/4/2024"_s);
}

void TestFrmHistory::oneTooManyIsRefusedAndTheOthersAreKept()
{
    HistoryBench bench;
    bench.fill(500);
    bench.open();
    bench.put(500, u"2026-01-01"_s, u"Changed"_s);
    bench.choose(501);
    bench.type(u"txtTopic"_s, u"One more"_s);
    bench.world.prompts.expect(u"A contact can have 500 histories"_s);
    bench.history.cmdAddHistory();
    QCOMPARE(bench.shown(u"txtTopic"_s), u"One more"_s);
    QVERIFY(bench.world.errorLog().contains(u"Subscript out of range"_s));
    QCOMPARE(bench.history.lvwHistory().rowCount(), 501);
    QVERIFY(bench.history.unload());
    QCOMPARE(bench.data().getCount(u"History"_s, true), Key(500));
    QCOMPARE(bench.cells(u"Select Topic from History where HistoryKey='1-500'"_s), u"Changed"_s);
}

void TestFrmHistory::boundIsToldBeforeItIsReached()
{
    HistoryBench bench;
    bench.fill(448);
    bench.open();
    bench.put(449, u"2026-01-01"_s, u"a"_s);
    bench.world.prompts.expect(u"450 histories now. Jobwright can work with 500"_s);
    bench.put(450, u"2026-01-02"_s, u"b"_s);
    QVERIFY(bench.world.prompts.done());
    bench.put(450, u"2026-01-03"_s, u"c"_s); // once is enough
    bench.put(451, u"2026-01-04"_s, u"d"_s);
}

void TestFrmHistory::moreThanFitAreKeptAsTheyAre()
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
    QVERIFY(bench.history.unload());
    QCOMPARE(bench.data().getCount(u"History"_s, true), Key(502));
    QCOMPARE(bench.cells(u"Select Topic from History where Topic='Changed'"_s), QString());
}

void TestFrmHistory::historiesThatCannotBeReadAreNotOverwritten()
{
    HistoryBench bench;
    bench.fill(3);
    const QString before = bench.stored();
    for (size_t i = 0; i < 2; ++i) {
        size_t ofHistories = 0;
        bench.world.prompts.expect(u"failed on purpose"_s);
        if (i == 1)
            bench.world.prompts.expect(u"could not be read"_s);
        bench.failing(
            [&](size_t, QStringView statement) {
                return statement.startsWith(u"Select * from History") && ofHistories++ == i;
            },
            [&] { bench.open(); });
        bench.put(1, u"2026-01-01"_s, u"New beginning"_s);
        if (i == 0)
            continue; // the number alone is not needed
        QVERIFY(bench.history.unload());
        QCOMPARE(bench.stored(), before);
    }
}

void TestFrmHistory::gapsInTheNumbersLoseNothing()
{
    HistoryBench bench;
    bench.addHistory(7, u"11/1/2026"_s, u"Seven"_s);
    bench.addHistory(3, u"11/2/2026"_s, u"Three"_s);
    bench.addHistory(1, u"11/2/2026"_s, u"One"_s);
    bench.open();
    QCOMPARE(bench.listed(), (QStringList{u"Seven"_s, u"One"_s, u"Three"_s}));
    bench.put(4, u"2026-11-03"_s, u"Last"_s);
    QVERIFY(bench.history.unload());
    QCOMPARE(bench.stored(),
             u"1-1|11/1/2026|Seven;1-2|11/2/2026|One;1-3|11/2/2026|Three;1-4|11/3/2026|Last"_s);
}

void TestFrmHistory::overlongTextIsNotTakenOver()
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
    QVERIFY(bench.history.unload());
    QCOMPARE(bench.cells(u"Select Details from History"_s).size(), 890'000);
}

void TestFrmHistory::rowsSayWhatIsOverdue_data()
{
    QTest::addColumn<QString>("nextCall");
    QTest::addColumn<bool>("overdue");
    QTest::newRow("yesterday") << u"11/21/2026"_s << true;
    QTest::newRow("today") << u"11/22/2026"_s << false;
    QTest::newRow("tomorrow") << u"11/23/2026"_s << false;
    QTest::newRow("no date") << u"12/31/1999"_s << false;
    QTest::newRow("nothing at all") << QString() << false;
}

void TestFrmHistory::rowsSayWhatIsOverdue()
{
    QFETCH(QString, nextCall);
    QFETCH(bool, overdue);
    HistoryBench bench;
    bench.addHistory(1, u"11/1/2026"_s, u"First"_s, u",NextCall"_s, u",'"_s + nextCall + u'\'');
    bench.open();
    const auto& rows = bench.history.lvwHistory().rows();
    QCOMPARE(rows.size(), size_t(2));
    QCOMPARE(rows[0].key, u"1Hist"_s);
    QCOMPARE(rows[0].kind == u"overdue", overdue);
    QCOMPARE(rows[1].texts, QStringList{u"<New>"_s});
}

void TestFrmHistory::textsFromElsewhereStayAsTheyAre()
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
    QVERIFY(bench.history.unload());
    QCOMPARE(bench.cells(u"Select Medium,Return,ContactDate,NextCall,DocumentXfer from History"_s),
             u"Pigeon|Follow-Up|||1"_s);
}

void TestFrmHistory::followUpIsHandedToTheCalendar()
{
    HistoryBench bench;
    bench.world.session->debugMode = true;
    bench.addPosition(u"Zoo Keeper"_s, u"1"_s);
    bench.addPosition(u"Planner"_s, u"1,4"_s);
    bench.addPosition(u"Analyst"_s, u"11"_s);
    bench.addHistory(1, u"11/1/2026"_s, u"First"_s);
    bench.open();
    QVERIFY(!bench.history.form().isEnabled(u"cmdAddEvent"_s));
    bench.world.session->outlookAvailable = true;
    bench.open();
    QVERIFY(bench.history.form().isEnabled(u"cmdAddEvent"_s));
    bench.type(u"txtDetails"_s, u"Call about the plan\nand more"_s);
    bench.type(u"dtpNextCall"_s, u"2026-12-01"_s);
    bench.type(u"cmbMedium"_s, u"Phone"_s);
    bench.type(u"cmbEventType"_s, u"Interview Follow-up"_s);
    const QHash<QString, QString> expected{{u"H0"_s, u"Acme"_s},
                                           {u"H1"_s, u"Ann Lee"_s},
                                           {u"H2"_s, u"Planner"_s},
                                           {u"H3"_s, u"Interview Follow-up"_s},
                                           {u"H4"_s, u"Call about the plan"_s},
                                           {u"H5"_s, u"12/1/2026"_s},
                                           {u"H6"_s, u"Phone"_s}};
    QCOMPARE(bench.history.eventValues(), expected);
    bench.run(u"Update Position set ContactList='11'"_s);
    QCOMPARE(bench.history.eventValues().value(u"H2"_s), u"NONE"_s);
    bench.history.cmdAddEvent();
    QCOMPARE(bench.doors.opened, QStringList{u"FrmEvCal"_s});
    QVERIFY(bench.world.opLog().contains(u"Open Calendar Screen"_s));
}

QTEST_GUILESS_MAIN(TestFrmHistory)
#include "tst_frmhistory.moc"
