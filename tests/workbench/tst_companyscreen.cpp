// The Company screen: showing, leaving a field, the tree, the figures, and the ways out into the web.
#include "base/statecodes.h"
#include "workbench/bench.h"
#include "workbench/stateabbrev.h"

#include <QLocale>
#include <QSignalSpy>
#include <QTest>

class TestCompanyScreen : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void shownCompanyFillsItsForm()
    {
        Bench bench;
        const Key key = bench.addCompany(u"Acme"_s);
        bench.run(u"Update Address set Address1='1 Main', Address2='Floor 2\r\nRear', Phone1='555-0100'"_s);
        bench.run(u"Update Company set Notes='one\r\ntwo'"_s);
        bench.choose(u"ACME"_s);
        QCOMPARE(bench.frm->selection().currentCompanyKey, key);
        QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Acme"_s);
        QCOMPARE(bench.shown(u"txtTitle"_s), u"Acme"_s);
        QCOMPARE(bench.shown(u"txtAddress"_s), u"1 Main\nFloor 2\nRear"_s);
        QCOMPARE(bench.shown(u"txtCity"_s), u"Acme City"_s);
        QCOMPARE(bench.shown(u"txtP1"_s), u"555-0100"_s);
        QCOMPARE(bench.shown(u"txtCompanyNotes"_s), u"one\ntwo"_s);
        QCOMPARE(bench.shown(u"txtEntryDate"_s),
                 QLocale().toString(QDate(2026, 11, 1), QLocale::ShortFormat));
        QVERIFY(
            bench.shown(u"txtSummary"_s).startsWith(u"The company has been in your database for 3 weeks. "));
        QVERIFY(!bench.company().form().isDirty(u"txtTitle"_s));
    }

    void figuresOfTheCompanyBeforeDoNotStay()
    {
        Bench bench;
        bench.addContact(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s), u"11/20/2026"_s);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-9',1,9)"_s);
        bench.addCompany(u"Bolt"_s, {});
        bench.choose(u"Acme"_s);
        for (const QString& box : {u"txtLastCont"_s, u"txtEntryDate"_s, u"txtHTRatio"_s})
            QVERIFY2(!bench.shown(box).isEmpty(), qPrintable(box));
        QCOMPARE(bench.company().daysSinceContact(), 2);
        bench.choose(u"Bolt"_s);
        for (const QString& box : {u"txtLastCont"_s, u"txtEntryDate"_s, u"txtHTRatio"_s})
            QVERIFY2(bench.shown(box).isEmpty(), qPrintable(box));
        QCOMPARE(bench.shown(u"txtContCount"_s), u"0"_s);
        QCOMPARE(bench.company().daysSinceContact(), -1);
        QCOMPARE(bench.company().tvwPosContact().texts(bench.company().tvwPosContact().index(0, 0)),
                 QStringList());
    }

    void contactsMakeTheFigures()
    {
        Bench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        const Key other = bench.addCompany(u"Other"_s);
        bench.addContact(u"Ann"_s, u"Lee"_s, acme, u"11/2/2026"_s);
        bench.addContact(u"Bob"_s, u"Ray"_s, acme, u"11/9/2026"_s);
        bench.addContact(u"Cat"_s, u"Fox"_s, acme);
        bench.addContact(u"Dan"_s, u"Orr"_s, other, u"11/20/2026"_s);
        // The running number of the last history counts, not the number of rows.
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-2',1,2)"_s);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('2-5',2,5)"_s);
        bench.run(u"Insert into Position(Title,CompanyKey) Values('Clerk',"_s + QString::number(acme) + u')');
        const CompanyFigures figures = CompanyScreen::gather(*bench.world.session, u"acme"_s);
        QCOMPARE(figures.contactCount, Key(3));
        QCOMPARE(figures.positionCount, Key(1));
        QCOMPARE(figures.interactionCount, Key(7));
        QCOMPARE(figures.maxPerContact, Key(5));
        QCOMPARE(figures.contactedCount, Key(2));
        QCOMPARE(figures.lastContact, QDate(2026, 11, 9));
        QCOMPARE(figures.rank, Key(0));
    }

    void missingEntryDateCountsAsOldAndShowsNothing()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s, {});
        bench.choose(u"Acme"_s);
        QCOMPARE(bench.shown(u"txtEntryDate"_s), QString());
        QCOMPARE(CompanyScreen::gather(*bench.world.session, u"Acme"_s).entryDate, QDate(2001, 1, 1));
        QVERIFY(bench.shown(u"txtSummary"_s).contains(u"data are aged."));
    }

    void ratiosFollowTheUnit_data()
    {
        QTest::addColumn<QString>("timeFreq");
        QTest::addColumn<QString>("entryDate");
        QTest::addColumn<QString>("histories"); // 7 in all
        QTest::addColumn<QString>("rank");      // 3
        QTest::newRow("no unit: weeks") << QString() << u"11/1/2026"_s << u"2.33"_s << u"1"_s;
        QTest::newRow("days") << u"days"_s << u"11/1/2026"_s << u"0.33"_s << u"0.14"_s;
        QTest::newRow("weeks") << u"weeks"_s << u"11/1/2026"_s << u"2.33"_s << u"1"_s;
        QTest::newRow("months") << u"Months"_s << u"9/30/2026"_s << u"3.5"_s << u"1.5"_s;
        QTest::newRow("no time gone by: no ratio") << u"days"_s << u"11/22/2026"_s << QString() << QString();
    }

    void ratiosFollowTheUnit()
    {
        QFETCH(QString, timeFreq);
        QFETCH(QString, entryDate);
        Bench bench;
        const Key key = bench.addCompany(u"Acme"_s, entryDate);
        bench.addContact(u"Ann"_s, u"Lee"_s, key);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-7',1,7)"_s);
        bench.run(u"Insert into CProfile(CompanyKey,QAns,PR,QCount) Values("_s + QString::number(key) +
                  u",'#1',3,6)");
        bench.data().delStatus(u"TimeFreq"_s);
        if (!timeFreq.isEmpty())
            bench.data().writeStatus(u"TimeFreq"_s, timeFreq, true);
        bench.choose(u"Acme"_s);
        QTEST(bench.shown(u"txtHTRatio"_s), "histories");
        QTEST(bench.shown(u"txtRTRatio"_s), "rank");
    }

    void targetCompanyShowsItsPicture()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"Bolt"_s);
        bench.run(u"Insert into Target(Name) Values('Acme')"_s);
        bench.run(u"Insert into Target(Name) Values('Else')"_s);
        bench.choose(u"Acme"_s);
        QVERIFY(bench.company().form().isVisible(u"imgTgt"_s));
        QVERIFY(bench.shown(u"txtSummary"_s)
                    .startsWith(u"This is a Target company out of 2 target companies.The"));
        bench.choose(u"Bolt"_s);
        QVERIFY(!bench.company().form().isVisible(u"imgTgt"_s));
    }

    void pointerStandsByRankAndCount_data()
    {
        QTest::addColumn<QString>("profile"); // PR and QCount, "" for none
        QTest::addColumn<double>("place");
        QTest::addColumn<bool>("lit");
        QTest::newRow("no questionnaire: left and dark") << QString() << 0.0 << false;
        QTest::newRow("rank 0: left and lit") << u"0,4"_s << 0.0 << true;
        QTest::newRow("rank 3 of 4") << u"3,4"_s << 0.75 << true;
        QTest::newRow("more than all") << u"6,4"_s << 1.5 << true;
        QTest::newRow("negative rank") << u"-2,4"_s << 0.0 << false;
        QTest::newRow("no questions: stays where it was") << u"3,0"_s << 0.5 << true;
    }

    void pointerStandsByRankAndCount()
    {
        QFETCH(QString, profile);
        Bench bench;
        const QString acme = QString::number(bench.addCompany(u"Acme"_s));
        bench.choose(u"Acme"_s);
        bench.run(u"Insert into CProfile(CompanyKey,QAns,PR,QCount) Values("_s + acme + u",'',2,4)");
        bench.company().adjustProfile();
        QCOMPARE(bench.company().pointerPlace(), 0.5);
        bench.run(u"Delete * from CProfile"_s);
        if (!profile.isEmpty())
            bench.run(u"Insert into CProfile(CompanyKey,QAns,PR,QCount) Values("_s + acme + u",''," +
                      profile + u')');
        bench.company().adjustProfile();
        QTEST(bench.company().pointerPlace(), "place");
        QTEST(bench.company().pointerLit(), "lit");
    }

    void newEntryEmptiesTheForm()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        QSignalSpy focus(&bench.company().form(), &Form::focusRequested);
        bench.choose(u"<New>"_s);
        for (const FieldRow& row : bench.company().form().rows())
            QCOMPARE(bench.shown(row.control), row.control == u"txtSummary" ? u"New Company"_s : QString());
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(0));
        QCOMPARE(focus.count(), 1);
        QCOMPARE(focus.first().first().toString(), u"txtTitle"_s);
    }

    void vanishedCompanyIsNoLongerSelected()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        bench.run(u"Delete * from Company"_s);
        bench.frm->refresh();
        QCOMPARE(bench.frm->selection().selectedCompanyName(), QString());
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(0));
        QCOMPARE(bench.shown(u"txtTitle"_s), QString());
    }

    void leavingAFieldWritesItsColumn_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("value"); // as it stands in the statement
        QTest::newRow("short name") << u"txtShort"_s << u"AC"_s << u"ShortName"_s << u"AC"_s;
        QTest::newRow("industry, apostrophe")
            << u"txtIndustry"_s << u"Men's \"wear\"; --"_s << u"Industry"_s << u"Men`s \"wear\"; --"_s;
        QTest::newRow("notes, all kinds of line ends") << u"txtCompanyNotes"_s << u"a\nb\r\nc\rd ü # % _"_s
                                                       << u"Notes"_s << u"a\r\nb\r\nc\r\nd ü # % _"_s;
        QTest::newRow("emptied") << u"txtCompanyNotes"_s << QString() << u"Notes"_s << QString();
    }

    void leavingAFieldWritesItsColumn()
    {
        QFETCH(QString, control);
        QFETCH(QString, typed);
        QFETCH(QString, column);
        QFETCH(QString, value);
        Bench bench;
        const Key key = bench.addCompany(u"Acme"_s);
        bench.addCompany(u"Bolt"_s);
        bench.choose(u"Acme"_s);
        bench.type(control, typed);
        QCOMPARE(bench.frm->procText(), u"Update Company"_s);
        QVERIFY(bench.frm->procVisible());
        const QStringList sent = bench.statements([&] { bench.company().fieldLeft(control); });
        QCOMPARE(sent.last(), u"Update Company set "_s + column + u"='" + value + u"' where companykey=" +
                                  QString::number(key));
        QVERIFY(!bench.frm->procVisible());
        QCOMPARE(
            bench.cells(u"Select "_s + column + u" from Company where CompanyKey=" + QString::number(key)),
            value);
        QVERIFY(bench.cells(u"Select * from Company where Name='Bolt'"_s).contains(u"|Bo|"));
        QVERIFY(bench.cells(u"Select * from Company where Name='Bolt'"_s).contains(u"|Tools|old notes|"));
        QVERIFY(bench.statements([&] { bench.company().fieldLeft(control); }).isEmpty());
    }

    void leavingAFieldWritesNothing_data()
    {
        QTest::addColumn<QString>("selection");
        QTest::addColumn<QString>("control");
        QTest::addColumn<bool>("typed");
        QTest::newRow("unchanged") << u"Acme"_s << u"txtShort"_s << false;
        QTest::newRow("goes with the record: city") << u"Acme"_s << u"txtCity"_s << true;
        QTest::newRow("goes with the record: title") << u"Acme"_s << u"txtTitle"_s << true;
        QTest::newRow("new company") << u"<New>"_s << u"txtShort"_s << true;
        QTest::newRow("nothing selected") << QString() << u"txtCompanyNotes"_s << true;
        QTest::newRow("category") << u"~ Local ~"_s << u"txtCompanyNotes"_s << true;
        QTest::newRow("not of this form") << u"Acme"_s << u"txtPosTitle"_s << true;
    }

    void leavingAFieldWritesNothing()
    {
        QFETCH(QString, selection);
        QFETCH(QString, control);
        QFETCH(bool, typed);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"~ Local ~"_s);
        bench.choose(selection);
        if (typed)
            bench.type(control, u"new"_s);
        QCOMPARE(bench.statements([&] { bench.company().fieldLeft(control); }), QStringList());
        // What is not in the store yet stays announced.
        QCOMPARE(bench.frm->procVisible(), typed);
    }

    void failedFieldIsWrittenAtTheNextLeaving()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        bench.type(u"txtCompanyNotes"_s, u"typed"_s);
        bench.data().database().setInterceptor([](QStringView statement) {
            if (statement.startsWith(u"Update"))
                throw StoreError(u"no"_s, 1, u"test"_s);
        });
        bench.world.prompts.expect(u"DataJW-ExecQuery"_s);
        bench.company().fieldLeft(u"txtCompanyNotes"_s);
        bench.data().database().setInterceptor({});
        QVERIFY(bench.frm->procVisible());
        bench.company().fieldLeft(u"txtCompanyNotes"_s);
        QCOMPARE(bench.cells(u"Select Notes from Company"_s), u"typed"_s);
        QVERIFY(!bench.frm->procVisible());
    }

    void treeShowsContactsAndPositions()
    {
        Bench bench;
        const Key key = bench.addCompany(u"Acme"_s);
        const Key category = bench.addCompany(u"~ Local ~"_s);
        bench.addContact(u"Ann"_s, u"Lee"_s, key);
        bench.addContact(u"Bob"_s, u"Ray"_s, category);
        for (const Key owner : {key, category})
            bench.run(u"Insert into Position(Title,CompanyKey) Values('Clerk',"_s + QString::number(owner) +
                      u')');
        TreeModel& tree = bench.company().tvwPosContact();
        const auto shown = [&]() -> QString {
            const QModelIndex root = tree.index(0, 0);
            return tree.text(root) + u": " + tree.texts(root).join(u',');
        };
        bench.company().imgContact();
        QCOMPARE(shown(), u"Contacts: "_s);
        bench.choose(u"Acme"_s);
        QCOMPARE(shown(), u"Contacts: Ann Lee"_s);
        QCOMPARE(tree.key(tree.index(0, 0, tree.index(0, 0))), u"A1"_s);
        bench.company().imgPosition();
        QCOMPARE(shown(), u"Positions: Clerk"_s);
        bench.choose(u"~ Local ~"_s);
        QCOMPARE(shown(), u"Positions: "_s);
        bench.company().imgContact();
        QCOMPARE(shown(), u"Contacts: Bob Ray"_s);
        bench.choose(u"Acme"_s);
        bench.company().imgPosition();
        bench.frm->tabStrip1Click(u"Company"_s);
        QCOMPARE(shown(), u"Contacts: Ann Lee"_s);
    }

    void treeNodeLeadsToItsScreen()
    {
        Bench bench;
        bench.addContact(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.run(u"Insert into Position(Title,CompanyKey) Values('Clerk',1)"_s);
        bench.choose(u"Acme"_s);
        TreeModel& tree = bench.company().tvwPosContact();
        bench.company().tvwPosContactDblClick(tree.index(0, 0));
        QCOMPARE(bench.frm->currentTab(), u"Company"_s);
        bench.company().tvwPosContactDblClick(tree.index(0, 0, tree.index(0, 0)));
        QCOMPARE(bench.frm->currentTab(), u"Contact"_s);
        bench.company().imgPosition();
        bench.company().tvwPosContactDblClick(tree.index(0, 0, tree.index(0, 0)));
        QCOMPARE(bench.frm->currentTab(), u"Position"_s);
    }

    void webAddressOpens_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("opened");
        QTest::newRow("as typed") << u"www.acme.example"_s << u"www.acme.example"_s;
        QTest::newRow("empty: home page") << QString() << CompanyScreen::homePage();
        QTest::newRow("blanks: home page") << u"  "_s << CompanyScreen::homePage();
    }

    void webAddressOpens()
    {
        QFETCH(QString, address);
        Bench bench;
        bench.world.session->debugMode = true;
        bench.company().form().setText(u"txtURL1"_s, address);
        bench.company().form().setText(u"txtURL2"_s, u"https://second.example"_s);
        bench.company().lblURL1();
        bench.company().lblURL2();
        QCOMPARE(bench.world.desktop.opened.size(), 2);
        QTEST(bench.world.desktop.opened.first(), "opened");
        QCOMPARE(bench.world.desktop.opened.last(), u"https://second.example"_s);
        QCOMPARE(bench.world.opLog().count(u"Open URL"_s), 2);
    }

    void unopenedAddressIsReported()
    {
        Bench bench;
        bench.world.desktop.works = false;
        bench.company().form().setText(u"txtURL1"_s, u"www.acme.example"_s);
        bench.world.prompts.expect(u"\"www.acme.example\" could not be opened"_s);
        bench.company().lblURL1();
    }

    void mapAsksForThePlace_data()
    {
        QTest::addColumn<QString>("place"); // Address1|City|State|Zip
        QTest::addColumn<QString>("query");
        QTest::newRow("plain") << u"1 Main Street|Trenton|NJ|08608"_s
                               << u"city=Trenton&state=NJ&address=1+Main+Street&zip=08608"_s;
        QTest::newRow("what would break the address")
            << u"5 A&B #2|New York|NY|10001?"_s
            << u"city=New%20York&state=NY&address=5+A%26B+%232&zip=10001%3F"_s;
        QTest::newRow("unknown state")
            << u"1 Bay|Toronto|Ontario|M5V"_s << u"city=Toronto&state=0&address=1+Bay&zip=M5V"_s;
        QTest::newRow("known state: no map") << u"1 Main|Trenton|New Jersey|08608"_s << QString();
    }

    void mapAsksForThePlace()
    {
        QFETCH(QString, place);
        QFETCH(QString, query);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        const QStringList parts = place.split(u'|');
        bench.run(u"Update Address set Address1='"_s + parts.at(0) + u"', City='" + parts.at(1) +
                  u"', State='" + parts.at(2) + u"', Zip='" + parts.at(3) + u"'");
        bench.choose(u"Acme"_s);
        if (query.isEmpty())
            bench.world.prompts.expect(u"Type mismatch"_s);
        bench.company().lblLocation();
        if (query.isEmpty()) {
            QVERIFY(bench.world.desktop.opened.isEmpty());
            QVERIFY(bench.world.errorLog().contains(u"frmData - getStateAbbrev"));
            return;
        }
        QCOMPARE(bench.world.desktop.opened.value(0),
                 u"https://maps.example/maps/map.adp?"_s + query + u"&country=US&zoom=7");
        bench.world.session->settings().SetKeyValue(RegAccess::Hive::CurrentUser,
                                                    u"Software\\Ferrow Software\\Jobwright"_s, u"MapHost"_s,
                                                    u"http://127.0.0.1"_s);
        bench.company().lblLocation();
        QVERIFY(bench.world.desktop.opened.value(1).startsWith(u"http://127.0.0.1/maps/map.adp?city="));
    }

    void mapNeedsASavedCompany_data()
    {
        QTest::addColumn<QString>("selection");
        QTest::addColumn<QString>("title");
        QTest::newRow("nothing") << QString() << u"Acme"_s;
        QTest::newRow("new") << u"<New>"_s << u"Acme"_s;
        QTest::newRow("category") << u"~ Local ~"_s << u"~ Local ~"_s;
        QTest::newRow("title emptied") << u"Acme"_s << QString();
    }

    void mapNeedsASavedCompany()
    {
        QFETCH(QString, selection);
        QFETCH(QString, title);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"~ Local ~"_s);
        bench.choose(selection);
        bench.company().form().edit(u"txtTitle"_s, title);
        bench.company().lblLocation();
        QVERIFY(bench.world.desktop.opened.isEmpty());
    }

    void stateTable_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("code");
        QTest::newRow("any case") << u"nEW yORK"_s << u"NY"_s;
        QTest::newRow("missouri") << u"Missouri"_s << u"MI"_s;
        QTest::newRow("arkansas") << u"arkansas"_s << u"AK"_s;
        QTest::newRow("alaska") << u"alaska"_s << u"AL"_s;
        QTest::newRow("wisconsin") << u"wisconsin"_s << u"WS"_s;
        QTest::newRow("last of the table") << u"kentucky"_s << u"KY"_s;
        QTest::newRow("unknown") << u"Bavaria"_s << QString();
    }

    void stateTable()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QCOMPARE(stateCode(name), code);
        // A code is no number, so the routine fails for every state that it knows.
        QCOMPARE(getStateAbbrev(name), code.isEmpty() ? std::optional<Key>(0) : std::nullopt);
    }
};

QTEST_GUILESS_MAIN(TestCompanyScreen)
#include "tst_companyscreen.moc"
