// The Company screen: showing, leaving a field, the tree, the figures, and the ways out into the web.
#include "base/statecodes.h"
#include "support/runtest.h"
#include "support/table.h"
#include "web/webpages.h"
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
        QVERIFY(bench.shell().startsWith(u"1|Acme|"_s));
        QCOMPARE(bench.shown(u"txtAddress txtCity txtP1 txtCompanyNotes"_s),
                 u"1 Main\nFloor 2\nRear|Acme City|555-0100|one\ntwo"_s);
        QVERIFY(!bench.company().form().isDirty(u"txtTitle"_s));
        QSignalSpy focus(&bench.company().form(), &Form::focusRequested);
        bench.choose(u"<New>"_s);
        for (const FieldRow& row : bench.company().form().rows())
            QCOMPARE(bench.shown(row.control), row.control == u"txtSummary" ? u"New Company"_s : QString());
        QCOMPARE(bench.selection().currentCompanyKey, Key(0));
        QCOMPARE(focus.last().first().toString(), u"txtTitle"_s);
        // Gone meanwhile: nothing is selected any more.
        bench.choose(u"Acme"_s);
        bench.run(u"Delete * from Company"_s);
        bench.frm->refresh();
        QVERIFY(bench.shell().startsWith(u"0||"_s) && bench.shown(u"txtTitle"_s).isEmpty());
    }

    void figuresAreThoseOfTheChosenCompany()
    {
        Bench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        bench.addContact(u"Ann"_s, u"Lee"_s, acme, u"11/9/2026"_s);
        bench.addContact(u"Bob"_s, u"Ray"_s, acme, u"11/2/2026"_s);
        bench.addContact(u"Cat"_s, u"Fox"_s, acme);
        bench.addContact(u"Dan"_s, u"Orr"_s, bench.addCompany(u"Else"_s), u"11/20/2026"_s);
        bench.addCompany(u"Bolt"_s, {});
        // The running number of the last history counts, not the number of rows.
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-2',1,2)"_s);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('2-5',2,5)"_s);
        for (const QString& name : {u"Acme"_s, u"Else"_s})
            bench.run(u"Insert into Target(Name) Values('"_s + name + u"')");
        const CompanyFigures figures = gatherFigures(bench.data(), u"acme"_s, bench.world.session->today());
        QCOMPARE(QList<int>({figures.contactCount, figures.positionCount, figures.interactionCount,
                             figures.maxPerContact, figures.contactedCount, figures.rank}),
                 QList<int>({3, 0, 7, 5, 2, 0}));
        const QString boxes = u"txtContCount txtLastCont txtEntryDate txtHTRatio"_s;
        bench.choose(u"Acme"_s);
        QCOMPARE(bench.shown(boxes), u"3|9 Nov 2026|1 Nov 2026|2.33"_s);
        QCOMPARE(bench.company().daysSinceContact(), 13);
        QVERIFY(bench.company().form().isVisible(u"imgTgt"_s));
        QVERIFY(bench.shown(u"txtSummary"_s)
                    .startsWith(u"This is a Target company out of 2 target companies.The company has been in "
                                u"your database for 3 weeks. "));
        bench.choose(u"Bolt"_s);
        QCOMPARE(bench.shown(boxes), u"0|||"_s);
        QCOMPARE(bench.company().daysSinceContact(), -1);
        QVERIFY(!bench.company().form().isVisible(u"imgTgt"_s));
        // An entry date that is missing counts as an old one.
        QCOMPARE(gatherFigures(bench.data(), u"Bolt"_s, bench.world.session->today()).entryDate,
                 QDate(2001, 1, 1));
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

    void pointerStandsByRankAndCount()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        // PR and QCount: place and light. Without a questionnaire it is left and dark, more than all is more
        // than 1, and without questions it stays where it was.
        for (const QString& each :
             {u"2,4: 0.5 1"_s, u": 0 0"_s, u"0,4: 0 1"_s, u"6,4: 1.5 1"_s, u"3,0: 1.5 1"_s}) {
            bench.run(u"Delete * from CProfile"_s);
            if (const QString ranked = each.section(u':', 0, 0); !ranked.isEmpty())
                bench.run(u"Insert into CProfile(CompanyKey,PR,QCount) Values(1,"_s + ranked + u')');
            bench.company().adjustProfile();
            QCOMPARE(u" %1 %2"_s.arg(bench.company().pointerPlace()).arg(bench.company().pointerLit()),
                     each.section(u':', 1));
        }
    }

    void fieldThatIsLeftIsStored()
    {
        Bench bench;
        for (const QString& name : {u"Acme"_s, u"Bolt"_s, u"~ Local ~"_s})
            bench.addCompany(name);
        bench.choose(u"Acme"_s);
        QCOMPARE(columnsLeft(bench, bench.company(), u"Company"_s, u"companykey=1"_s),
                 u"ShortName Industry Notes"_s);
        // A field of the whole record, a company not yet saved and a category: what is not stored stays
        // announced.
        for (const QString& each :
             {u"Acme=txtTitle"_s, u"<New>=txtShort"_s, u"~ Local ~=txtCompanyNotes"_s}) {
            bench.choose(each.section(u'=', 0, 0));
            bench.expect(each.startsWith(u'~') ? u"could not be saved"_s : u"have not been saved"_s,
                         each.startsWith(u'~') ? Answer::Yes : Answer::No);
            bench.type(each.section(u'=', 1), u"new"_s);
            QCOMPARE(bench.statements([&] { bench.company().fieldLeft(each.section(u'=', 1)); }),
                     QStringList());
            QVERIFY2(bench.frm->procVisible(), qPrintable(each));
            QVERIFY(bench.frm->mayLeave());
        }
        QCOMPARE(bench.cells(u"Select ShortName,Industry,Notes from Company where CompanyKey > 1"_s),
                 u"Bo|Tools|old notes;~ |Tools|old notes"_s);
    }

    void treeShowsContactsOrPositions()
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
            if (company != bench.selection().selectedCompanyName())
                bench.choose(company);
            positions ? bench.company().imgPosition() : bench.company().imgContact();
            return tree.text(tree.index(0, 0)) + u": " + tree.texts(tree.index(0, 0)).join(u',');
        };
        QCOMPARE(shown({}, false), u"Contacts: "_s);
        QCOMPARE(shown(u"~ Local ~"_s, true), u"Positions: "_s); // has people, but no positions
        QCOMPARE(shown(u"~ Local ~"_s, false), u"Contacts: Bob Lee"_s);
        QCOMPARE(shown(u"Acme"_s, false), u"Contacts: Ann Lee"_s);
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
        bench.expect(u"\"https://second.example\" could not be opened"_s);
        bench.company().lblURL2();
    }

    void mapAsksForThePlace_data()
    {
        // set: Address1, City, State, Zip
        table({"set", "query"},
              {{"signs that would break it", "'5 A&B #2',City='New York',State='NY',Zip='10001?'",
                "city=New%20York&state=NY&address=5+A%26B+%232&zip=10001%3F"},
               {"unknown state", "'1 Bay',City='Toronto',State='Ontario',Zip='M5V'",
                "city=Toronto&state=0&address=1+Bay&zip=M5V"},
               {"known state: no map", "'1 Main',State='New Jersey'", ""}});
    }
    void mapAsksForThePlace()
    {
        FETCH(QString, set, query);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.company().lblLocation(); // no saved company, no map
        bench.run(u"Update Address set Address1="_s + set);
        bench.choose(u"Acme"_s);
        if (query.isEmpty())
            bench.expect(u"Type mismatch"_s);
        bench.company().lblLocation();
        QCOMPARE(bench.world.errorLog().contains(u"frmData - getStateAbbrev"), query.isEmpty());
        const QString address = u"https://maps.example/maps/map.adp?"_s + query + u"&country=US&zoom=7";
        QCOMPARE(bench.world.desktop.opened, query.isEmpty() ? QStringList() : QStringList{address});
    }

    void codesOfStatesAreThoseOfTheTable()
    {
        for (const QString& each : {u"nEW yORK=NY"_s, u"Missouri=MI"_s, u"arkansas=AK"_s, u"alaska=AL"_s,
                                    u"wisconsin=WS"_s, u"kentucky=KY"_s, u"Bavaria="_s}) {
            const QString name = each.section(u'=', 0, 0);
            QCOMPARE(stateCode(name), each.section(u'=', 1));
            // A code is no number, so the routine fails for every state that it knows.
            QCOMPARE(getStateAbbrev(name), each.endsWith(u'=') ? std::optional<Key>(0) : std::nullopt);
        }
    }
};

JOBWRIGHT_TEST(TestCompanyScreen)
#include "tst_companyscreen.moc"
