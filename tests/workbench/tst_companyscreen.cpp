// The Company screen: showing, leaving a field, the tree, the figures, and the ways out into the web.
#include "base/statecodes.h"
#include "support/table.h"
#include "workbench/bench.h"
#include "workbench/stateabbrev.h"

#include <QLocale>
#include <QSignalSpy>

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
        QCOMPARE(bench.shown(u"txtAddress"_s), u"1 Main\nFloor 2\nRear"_s);
        QCOMPARE(bench.shown(u"txtCity"_s) + bench.shown(u"txtP1"_s), u"Acme City555-0100"_s);
        QCOMPARE(bench.shown(u"txtCompanyNotes"_s), u"one\ntwo"_s);
        QVERIFY(
            bench.shown(u"txtSummary"_s).startsWith(u"The company has been in your database for 3 weeks. "));
        QVERIFY(!bench.company().form().isDirty(u"txtTitle"_s));
        // Gone meanwhile: nothing is selected any more.
        bench.run(u"Delete * from Company"_s);
        bench.frm->refresh();
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(0));
        QCOMPARE(bench.frm->selection().selectedCompanyName() + bench.shown(u"txtTitle"_s), QString());
    }

    void figuresOfTheCompanyBeforeDoNotStay()
    {
        Bench bench;
        bench.addContact(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s), u"11/20/2026"_s);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-9',1,9)"_s);
        bench.addCompany(u"Bolt"_s, {});
        for (const QString& name : {u"Acme"_s, u"Bolt"_s}) {
            bench.choose(name);
            for (const QString& box : {u"txtLastCont"_s, u"txtEntryDate"_s, u"txtHTRatio"_s})
                QVERIFY2(bench.shown(box).isEmpty() == (name == u"Bolt"), qPrintable(box));
            QCOMPARE(bench.company().daysSinceContact(), name == u"Acme" ? 2 : -1);
        }
        QCOMPARE(bench.shown(u"txtContCount"_s), u"0"_s);
        // An entry date that is missing counts as an old one.
        QCOMPARE(CompanyScreen::gather(*bench.world.session, u"Bolt"_s).entryDate, QDate(2001, 1, 1));
    }

    void contactsMakeTheFigures()
    {
        Bench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        bench.addContact(u"Ann"_s, u"Lee"_s, acme, u"11/9/2026"_s);
        bench.addContact(u"Bob"_s, u"Ray"_s, acme, u"11/2/2026"_s);
        bench.addContact(u"Cat"_s, u"Fox"_s, acme);
        bench.addContact(u"Dan"_s, u"Orr"_s, bench.addCompany(u"Other"_s), u"11/20/2026"_s);
        // The running number of the last history counts, not the number of rows.
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-2',1,2)"_s);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('2-5',2,5)"_s);
        const CompanyFigures figures = CompanyScreen::gather(*bench.world.session, u"acme"_s);
        QCOMPARE(QList<int>({figures.contactCount, figures.positionCount, figures.interactionCount,
                             figures.maxPerContact, figures.contactedCount, figures.rank}),
                 QList<int>({3, 0, 7, 5, 2, 0}));
        QCOMPARE(figures.lastContact, QDate(2026, 11, 9));
    }

    void ratiosFollowTheUnit_data()
    {
        // histories: 7 in all; rank: 3
        columns<QString, QString, QString, QString>("timeFreq", "entryDate", "histories", "rank");
        QTest::newRow("no unit: weeks") << QString() << u"11/1/2026"_s << u"2.33"_s << u"1"_s;
        QTest::newRow("days") << u"days"_s << u"11/1/2026"_s << u"0.33"_s << u"0.14"_s;
        QTest::newRow("months") << u"Months"_s << u"9/30/2026"_s << u"3.5"_s << u"1.5"_s;
        QTest::newRow("no time gone by") << u"days"_s << u"11/22/2026"_s << QString() << QString();
    }
    void ratiosFollowTheUnit()
    {
        FETCH(QString, timeFreq, entryDate, histories, rank);
        Bench bench;
        const Key key = bench.addCompany(u"Acme"_s, entryDate);
        bench.addContact(u"Ann"_s, u"Lee"_s, key);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-7',1,7)"_s);
        bench.run(u"Insert into CProfile(CompanyKey,PR,QCount) Values("_s + QString::number(key) + u",3,6)");
        bench.data().writeStatus(u"TimeFreq"_s, timeFreq, true);
        bench.choose(u"Acme"_s);
        QCOMPARE(bench.shown(u"txtHTRatio"_s), histories);
        QCOMPARE(bench.shown(u"txtRTRatio"_s), rank);
    }

    void targetCompanyShowsItsPicture()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"Bolt"_s);
        for (const QString& name : {u"Acme"_s, u"Else"_s})
            bench.run(u"Insert into Target(Name) Values('"_s + name + u"')");
        bench.choose(u"Acme"_s);
        QVERIFY(bench.company().form().isVisible(u"imgTgt"_s));
        QVERIFY(bench.shown(u"txtSummary"_s)
                    .startsWith(u"This is a Target company out of 2 target companies.The"));
        bench.choose(u"Bolt"_s);
        QVERIFY(!bench.company().form().isVisible(u"imgTgt"_s));
    }

    void pointerStandsByRankAndCount_data()
    {
        // profile: PR and QCount, "" for none
        columns<QString, double, bool>("profile", "place", "lit");
        QTest::newRow("no questionnaire: left and dark") << QString() << 0.0 << false;
        QTest::newRow("rank 0: left and lit") << u"0,4"_s << 0.0 << true;
        QTest::newRow("more than all") << u"6,4"_s << 1.5 << true;
        QTest::newRow("no questions: stays where it was") << u"3,0"_s << 0.5 << true;
    }
    void pointerStandsByRankAndCount()
    {
        QFETCH(QString, profile);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        for (const QString& ranked : {u"2,4"_s, profile}) {
            bench.run(u"Delete * from CProfile"_s);
            if (!ranked.isEmpty())
                bench.run(u"Insert into CProfile(CompanyKey,PR,QCount) Values(1,"_s + ranked + u')');
            bench.company().adjustProfile();
        }
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
        QCOMPARE(focus.last().first().toString(), u"txtTitle"_s);
    }

    void leavingAFieldWritesItsColumn_data()
    {
        columns<QString, QString, QString, QString>("control", "typed", "column", "stored");
        QTest::newRow("apostrophe, statement") << u"txtIndustry"_s << u"Men's \"wear\"'); Delete; --"_s
                                               << u"Industry"_s << u"Men`s \"wear\"`); Delete; --"_s;
        QTest::newRow("all kinds of line ends") << u"txtCompanyNotes"_s << u"a\nb\r\nc\rd ü # % _"_s
                                                << u"Notes"_s << u"a\r\nb\r\nc\r\nd ü # % _"_s;
        QTest::newRow("emptied") << u"txtShort"_s << QString() << u"ShortName"_s << QString();
    }
    void leavingAFieldWritesItsColumn()
    {
        FETCH(QString, control, typed, column, stored);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"Bolt"_s);
        bench.choose(u"Acme"_s);
        bench.type(control, typed);
        QCOMPARE(bench.frm->procText(), u"Update Company"_s);
        QVERIFY(bench.frm->procVisible());
        bench.company().fieldLeft(control);
        QVERIFY(!bench.frm->procVisible());
        QCOMPARE(bench.cells(u"Select "_s + column + u" from Company where CompanyKey=1"), stored);
        QVERIFY(
            bench.cells(u"Select * from Company where Name='Bolt'"_s).contains(u"|Bo|2|Tools|old notes|"));
        QVERIFY(bench.statements([&] { bench.company().fieldLeft(control); }).isEmpty());
    }

    void leavingAFieldWritesNothing_data()
    {
        columns<QString, QString>("selection", "control");
        QTest::newRow("goes with the record") << u"Acme"_s << u"txtTitle"_s;
        QTest::newRow("new company") << u"<New>"_s << u"txtShort"_s;
        QTest::newRow("category") << u"~ Local ~"_s << u"txtCompanyNotes"_s;
    }
    void leavingAFieldWritesNothing()
    {
        FETCH(QString, selection, control);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.addCompany(u"~ Local ~"_s);
        bench.choose(selection);
        bench.type(control, u"new"_s);
        QCOMPARE(bench.statements([&] { bench.company().fieldLeft(control); }), QStringList());
        QVERIFY(bench.frm->procVisible()); // what is not in the store yet stays announced
    }

    void treeShowsContactsAndPositions()
    {
        Bench bench;
        const Key category = bench.addCompany(u"~ Local ~"_s);
        const Key acme = bench.addCompany(u"Acme"_s);
        bench.addContact(u"Ann"_s, u"Lee"_s, acme);
        bench.addContact(u"Bob"_s, u"Ray"_s, category);
        for (const Key owner : {category, acme})
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
        bench.company().imgPosition();
        QCOMPARE(shown(), u"Positions: Clerk"_s);
        bench.choose(u"~ Local ~"_s); // has people, but no positions
        QCOMPARE(shown(), u"Positions: "_s);
        bench.company().imgContact();
        QCOMPARE(shown(), u"Contacts: Bob Ray"_s);
        bench.choose(u"Acme"_s);
        bench.company().imgPosition();
        bench.frm->tabStrip1Click(u"Company"_s);
        QCOMPARE(shown(), u"Contacts: Ann Lee"_s);
        bench.company().imgPosition();
        bench.company().tvwPosContactDblClick(tree.index(0, 0));
        QCOMPARE(bench.frm->currentTab(), u"Company"_s);
        bench.company().tvwPosContactDblClick(tree.index(0, 0, tree.index(0, 0)));
        QCOMPARE(bench.frm->currentTab(), u"Position"_s);
    }

    void webAddressOpensOrIsReported()
    {
        Bench bench;
        bench.company().form().setText(u"txtURL1"_s, u"  "_s);
        bench.company().form().setText(u"txtURL2"_s, u"https://second.example"_s);
        bench.company().lblURL1();
        bench.company().lblURL2();
        QCOMPARE(bench.world.desktop.opened,
                 (QStringList{CompanyScreen::homePage(), u"https://second.example"_s}));
        bench.world.desktop.works = false;
        bench.world.prompts.expect(u"\"https://second.example\" could not be opened"_s);
        bench.company().lblURL2();
    }

    void mapAsksForThePlace_data()
    {
        // place: Address1|City|State|Zip
        columns<QString, QString>("place", "query");
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
        FETCH(QString, place, query);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.company().lblLocation(); // no saved company, no map
        bench.run(u"Update Address set Address1='%1', City='%2', State='%3', Zip='%4'"_s.arg(
            place.section(u'|', 0, 0), place.section(u'|', 1, 1), place.section(u'|', 2, 2),
            place.section(u'|', 3, 3)));
        bench.choose(u"Acme"_s);
        if (query.isEmpty())
            bench.world.prompts.expect(u"Type mismatch"_s);
        bench.company().lblLocation();
        QCOMPARE(bench.world.errorLog().contains(u"frmData - getStateAbbrev"), query.isEmpty());
        const QString address = u"https://maps.example/maps/map.adp?"_s + query + u"&country=US&zoom=7";
        QCOMPARE(bench.world.desktop.opened, query.isEmpty() ? QStringList() : QStringList{address});
    }

    void stateTable()
    {
        const QList<std::pair<QString, QString>> states{{u"nEW yORK"_s, u"NY"_s},  {u"Missouri"_s, u"MI"_s},
                                                        {u"arkansas"_s, u"AK"_s},  {u"alaska"_s, u"AL"_s},
                                                        {u"wisconsin"_s, u"WS"_s}, {u"kentucky"_s, u"KY"_s},
                                                        {u"Bavaria"_s, QString()}};
        for (const auto& [name, code] : states) {
            QCOMPARE(stateCode(name), code);
            // A code is no number, so the routine fails for every state that it knows.
            QCOMPARE(getStateAbbrev(name), code.isEmpty() ? std::optional<Key>(0) : std::nullopt);
        }
    }
};

QTEST_GUILESS_MAIN(TestCompanyScreen)
#include "tst_companyscreen.moc"
