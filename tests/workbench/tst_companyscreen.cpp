// The Company screen: showing, leaving a field, the tree, the figures, and the ways out into the web.
#include "base/statecodes.h"
#include "store/webpages.h"
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
        bench.addCompany(u"Acme"_s);
        bench.run(u"Update Address set Address1='1 Main', Address2='Floor 2\r\nRear', Phone1='555-0100'"_s);
        bench.run(u"Update Company set Notes='one\r\ntwo'"_s);
        bench.choose(u"ACME"_s);
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(1));
        QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Acme"_s);
        QCOMPARE(bench.shown(u"txtAddress txtCity txtP1 txtCompanyNotes"_s),
                 u"1 Main\nFloor 2\nRear|Acme City|555-0100|one\ntwo"_s);
        QVERIFY(
            bench.shown(u"txtSummary"_s).startsWith(u"The company has been in your database for 3 weeks. "));
        QVERIFY(!bench.company().form().isDirty(u"txtTitle"_s));
        QSignalSpy focus(&bench.company().form(), &Form::focusRequested);
        bench.choose(u"<New>"_s);
        for (const FieldRow& row : bench.company().form().rows())
            QCOMPARE(bench.shown(row.control), row.control == u"txtSummary" ? u"New Company"_s : QString());
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(0));
        QCOMPARE(focus.last().first().toString(), u"txtTitle"_s);
        // Gone meanwhile: nothing is selected any more.
        bench.choose(u"Acme"_s);
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
        QCOMPARE(gatherFigures(bench.data(), u"Bolt"_s, bench.world.session->today()).entryDate,
                 QDate(2001, 1, 1));
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
        const CompanyFigures figures = gatherFigures(bench.data(), u"acme"_s, bench.world.session->today());
        QCOMPARE(QList<int>({figures.contactCount, figures.positionCount, figures.interactionCount,
                             figures.maxPerContact, figures.contactedCount, figures.rank}),
                 QList<int>({3, 0, 7, 5, 2, 0}));
        QCOMPARE(figures.lastContact, QDate(2026, 11, 9));
    }

    void ratiosFollowTheUnit_data()
    {
        // ratios: of the 7 histories and of the rank 3
        table({"timeFreq", "entryDate", "ratios"}, {{"no unit: weeks", "", "11/1/2026", "2.33|1"},
                                                    {"days", "days", "11/1/2026", "0.33|0.14"},
                                                    {"months", "Months", "9/30/2026", "3.5|1.5"},
                                                    {"no time gone by", "days", "11/22/2026", "|"}});
    }
    void ratiosFollowTheUnit()
    {
        FETCH(QString, timeFreq, entryDate, ratios);
        Bench bench;
        bench.addContact(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s, entryDate));
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-7',1,7)"_s);
        bench.run(u"Insert into CProfile(CompanyKey,PR,QCount) Values(1,3,6)"_s);
        bench.data().writeStatus(u"TimeFreq"_s, timeFreq, true);
        bench.choose(u"Acme"_s);
        QCOMPARE(bench.shown(u"txtHTRatio txtRTRatio"_s), ratios);
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
        // profile: PR and QCount; pointer: its place, and whether it is lit
        table({"profile", "pointer"}, {{"no questionnaire: left and dark", "", "0 0"},
                                       {"rank 0: left and lit", "0,4", "0 1"},
                                       {"more than all", "6,4", "1.5 1"},
                                       {"no questions: stays where it was", "3,0", "0.5 1"}});
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
        QTEST(u"%1 %2"_s.arg(bench.company().pointerPlace()).arg(bench.company().pointerLit()), "pointer");
    }

    void leavingAFieldWritesItsColumn_data()
    {
        table({"control", "typed", "column", "stored"},
              {{"apostrophe, statement", "txtIndustry", "Men's \"wear\"'); Delete; --", "Industry",
                "Men`s \"wear\"`); Delete; --"},
               {"all line ends", "txtCompanyNotes", "a\nb\r\nc\rd ü # % _", "Notes",
                "a\r\nb\r\nc\r\nd ü # % _"},
               {"emptied", "txtShort", "", "ShortName", ""}});
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
        table({"selection", "control"}, {{"goes with the record", "Acme", "txtTitle"},
                                         {"new company", "<New>", "txtShort"},
                                         {"category", "~ Local ~", "txtCompanyNotes"}});
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
        const QList<std::pair<QString, QString>> people{{u"~ Local ~"_s, u"Bob"_s}, {u"Acme"_s, u"Ann"_s}};
        for (const auto& [company, first] : people) {
            const Key owner = bench.addCompany(company);
            bench.addContact(first, u"Lee"_s, owner);
            bench.run(u"Insert into Position(Title,CompanyKey) Values('Clerk',%1)"_s.arg(owner));
        }
        TreeModel& tree = bench.company().tvwPosContact();
        const auto shown = [&](const QString& company, bool positions) -> QString {
            if (company != bench.frm->selection().selectedCompanyName())
                bench.choose(company);
            positions ? bench.company().imgPosition() : bench.company().imgContact();
            const QModelIndex root = tree.index(0, 0);
            return tree.text(root) + u": " + tree.texts(root).join(u',');
        };
        QCOMPARE(shown({}, false), u"Contacts: "_s);
        QCOMPARE(shown(u"Acme"_s, false), u"Contacts: Ann Lee"_s);
        QCOMPARE(shown(u"Acme"_s, true), u"Positions: Clerk"_s);
        QCOMPARE(shown(u"~ Local ~"_s, true), u"Positions: "_s); // has people, but no positions
        QCOMPARE(shown(u"~ Local ~"_s, false), u"Contacts: Bob Lee"_s);
        QCOMPARE(shown(u"Acme"_s, true), u"Positions: Clerk"_s);
        bench.frm->tabStrip1Click(u"Company"_s);
        QCOMPARE(tree.texts(tree.index(0, 0)), QStringList{u"Ann Lee"_s});
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
                 (QStringList{webpages::homePage(), u"https://second.example"_s}));
        bench.world.desktop.works = false;
        bench.world.prompts.expect(u"\"https://second.example\" could not be opened"_s);
        bench.company().lblURL2();
    }

    void mapAsksForThePlace_data()
    {
        // place: Address1|City|State|Zip
        table({"place", "query"},
              {{"signs that would break it", "5 A&B #2|New York|NY|10001?",
                "city=New%20York&state=NY&address=5+A%26B+%232&zip=10001%3F"},
               {"unknown state", "1 Bay|Toronto|Ontario|M5V", "city=Toronto&state=0&address=1+Bay&zip=M5V"},
               {"known state: no map", "1 Main|Trenton|New Jersey|08608", ""}});
    }
    void mapAsksForThePlace()
    {
        FETCH(QString, place, query);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.company().lblLocation(); // no saved company, no map
        const QStringList parts = place.split(u'|');
        bench.run(u"Update Address set Address1='%1', City='%2', State='%3', Zip='%4'"_s.arg(
            parts.at(0), parts.at(1), parts.at(2), parts.at(3)));
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
