// Saving and removing a whole company.
#include "support/table.h"
#include "workbench/bench.h"

class TestCompanySave : public QObject
{
    Q_OBJECT

private slots:
    void newCompanyIsInserted()
    {
        Bench bench;
        bench.addCompany(u"Bolt"_s);
        bench.frm->load();
        bench.choose(u"<New>"_s);
        for (const auto& [control, text] : {std::pair{u"txtTitle"_s, u"Acme"_s},
                                            {u"txtShort"_s, u"AC"_s},
                                            {u"txtAddress"_s, u"1 Main"_s},
                                            {u"txtCity"_s, u"Trenton"_s},
                                            {u"txtURL2"_s, u"acme.example"_s}})
            bench.type(control, text);
        bench.world.prompts.expect(u"Insert new Company?"_s, Answer::Yes);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select * from Company where Name='Acme'"_s), u"2|Acme|AC|2|||11/22/2026"_s);
        QCOMPARE(bench.cells(u"Select * from Address where AddressKey=2"_s),
                 u"2|1 Main||Trenton|||USA||||||||acme.example|11/22/2026"_s);
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(2));
        QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Acme"_s);
        QCOMPARE(bench.frm->companyList(), (QStringList{u"Acme"_s, u"Bolt"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->countsPanel(), u"2 companies · 0 positions · 0 contacts"_s);
        QVERIFY(!bench.frm->procVisible());
        QVERIFY(bench.shown(u"txtSummary"_s).contains(u"for 0 week."));
    }

    void existingCompanyGetsANewKeyAndKeepsItsDate()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s, u"3/5/2024"_s);
        bench.choose(u"Acme"_s);
        bench.type(u"txtCity"_s, u"Newark"_s);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(2));
        QCOMPARE(bench.cells(u"Select * from Company"_s), u"2|Acme|Ac|2|Tools|old notes|3/5/2024"_s);
        QCOMPARE(bench.cells(u"Select Address1,City,State,Zip,Country from Address where AddressKey=2"_s),
                 u"1 Main|Newark|NJ|08540|USA"_s);
        // The delete leaves its trail.
        QVERIFY(bench.world.errorLog().contains(u"Delete * from Company where CompanyKey=1"_s));
        // So does a new entry that takes a known name.
        bench.choose(u"<New>"_s);
        bench.type(u"txtTitle"_s, u"acme"_s);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select CompanyKey,Name,Industry,EntryDate from Company"_s),
                 u"3|acme||3/5/2024"_s);
    }

    void referencesFollowTheNewKey()
    {
        Bench bench;
        for (const QString& name : {u"Acme"_s, u"Bolt"_s}) {
            const QString owner = QString::number(bench.addCompany(name));
            for (const QString& table : {u"Contact(FirstName"_s, u"Position(Title"_s, u"Event(Event"_s,
                                         u"CProfile(QAns"_s, u"JProfile(QAns"_s})
                bench.run(u"Insert into "_s + table + u",CompanyKey) Values('x'," + owner + u')');
        }
        bench.choose(u"Acme"_s);
        bench.company().cmdUpdate1();
        for (const QString& table : {u"Contact"_s, u"Position"_s, u"Event"_s, u"CProfile"_s, u"JProfile"_s})
            QCOMPARE(bench.cells(u"Select CompanyKey from "_s + table + u" order by CompanyKey"), u"2;3"_s);
    }

    void typedTitleRenames()
    {
        Bench bench;
        bench.addContact(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.choose(u"Acme"_s);
        bench.type(u"txtTitle"_s, u"O'Hara & Sons"_s);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select Name from Company"_s), u"O`Hara & Sons"_s);
        QCOMPARE(bench.data().getContactNames(u"O`Hara & Sons"_s), QStringList{u"Ann Lee"_s});
        bench.choose(u"O'Hara & Sons"_s); // typed with its apostrophe it is found again
        QCOMPARE(bench.shown(u"txtTitle"_s), u"O`Hara & Sons"_s);
    }

    void refusedTitlesWriteNothing_data()
    {
        columns<QString, QString, QString>("selection", "title", "message");
        const QString noTitle = u"Please select a company title to save in the database."_s;
        const QString category = u"You cannot modify categories from this screen. Open the options screen to "
                                 "add/remove categories."_s;
        QTest::newRow("no title") << u"Acme"_s << u"   "_s << noTitle;
        QTest::newRow("the selector's own entry") << u"<New>"_s << u"<New>"_s << noTitle;
        QTest::newRow("category selected") << u"~ Local ~"_s << u"Acme"_s << category;
        QTest::newRow("category typed") << u"<New>"_s << u"~ Mine ~"_s << category;
        QTest::newRow("another company's name") << u"Acme"_s << u"BOLT"_s << u"already called \"BOLT\""_s;
    }
    void refusedTitlesWriteNothing()
    {
        FETCH(QString, selection, title, message);
        Bench bench;
        for (const QString& name : {u"Acme"_s, u"Bolt"_s, u"~ Local ~"_s})
            bench.addCompany(name);
        const QString before = bench.cells(u"Select * from Company"_s);
        bench.choose(selection);
        bench.type(u"txtTitle"_s, title);
        bench.world.prompts.expect(message);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select * from Company"_s), before);
        QCOMPARE(bench.rows(u"Address"_s), 3);
        QCOMPARE(bench.shown(u"txtTitle"_s), title);
    }

    void addressIsSplitAtItsFirstLineEnd_data()
    {
        columns<QString, QString, QString>("typed", "stored", "shown");
        QTest::newRow("one line") << u"1 Main"_s << u"1 Main|"_s << u"1 Main\n"_s;
        QTest::newRow("further lines")
            << u"1 Main\r\nFloor 2\nRear"_s << u"1 Main|Floor 2\r\nRear"_s << u"1 Main\nFloor 2\nRear"_s;
        QTest::newRow("empty") << QString() << u"|"_s << u"\n"_s;
    }
    void addressIsSplitAtItsFirstLineEnd()
    {
        FETCH(QString, typed, stored, shown);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        bench.type(u"txtAddress"_s, typed);
        for (const int address : {2, 3}) { // a second save must not add a line
            bench.company().cmdUpdate1();
            QCOMPARE(bench.cells(u"Select Address1,Address2 from Address where AddressKey=%1"_s.arg(address)),
                     stored);
            QCOMPARE(bench.shown(u"txtAddress"_s), shown);
        }
    }

    void removalTakesWhatBelongsToTheCompany()
    {
        Bench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        const Key bolt = bench.addCompany(u"Bolt"_s);
        bench.addContact(u"Ann"_s, u"Lee"_s, acme);
        bench.addContact(u"Bob"_s, u"Ray"_s, bolt);
        for (int contact = 1; contact <= 2; ++contact)
            bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('%1-1',%1,1)"_s.arg(
                contact));
        for (const Key owner : {acme, bolt, Key(0)}) {
            for (const QString& table : {u"Position(Title"_s, u"Event(Event"_s, u"CProfile(QAns"_s})
                bench.run(u"Insert into "_s + table + u",CompanyKey) Values('x'," + QString::number(owner) +
                          u')');
        }
        const QStringList tables{u"Company"_s, u"Contact"_s, u"Position"_s, u"Event"_s, u"CProfile"_s};
        const auto owners = [&] {
            QStringList keys;
            for (const QString& table : tables)
                keys.append(bench.cells(u"Select CompanyKey from "_s + table + u" order by CompanyKey"));
            return keys.join(u' ');
        };
        bench.frm->load();
        bench.choose(u"Acme"_s);
        const QString all = owners();
        const QString question = u"Are you sure you want to completely remove this COMPANY and all contacts, "
                                 "address information, and document relationships from the database?"_s;
        bench.world.prompts.expect(question, Answer::No);
        bench.company().cmdRemove1();
        QCOMPARE(owners(), all);
        bench.world.prompts.expect(question, Answer::Yes);
        bench.company().cmdRemove1();
        QCOMPARE(owners(), u"2 2 0;2 0;2 0;2"_s);
        QCOMPARE(bench.cells(u"Select HistoryKey from History"_s), u"2-1"_s);
        QCOMPARE(bench.frm->selection().selectedCompanyName() + bench.shown(u"txtTitle"_s), QString());
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(0));
        QCOMPARE(bench.frm->companyList(), (QStringList{u"Bolt"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->countsPanel(), u"1 company · 2 positions · 1 contact"_s);
        // With nothing selected, what belongs to nobody stays.
        bench.type(u"txtTitle"_s, u"half typed"_s);
        bench.world.prompts.expect(u"Are you sure"_s, Answer::Yes);
        bench.company().cmdRemove1();
        QCOMPARE(owners(), u"2 2 0;2 0;2 0;2"_s);
        QCOMPARE(bench.shown(u"txtTitle"_s), QString());
    }

    void categoryIsNotRemovedHere()
    {
        Bench bench;
        bench.addCompany(u"~ Local ~"_s);
        bench.choose(u"~ Local ~"_s);
        bench.world.prompts.expect(u"You cannot modify categories from this screen."_s);
        bench.company().cmdRemove1();
        QCOMPARE(bench.rows(u"Company"_s), 1);
    }
};

QTEST_GUILESS_MAIN(TestCompanySave)
#include "tst_companysave.moc"
