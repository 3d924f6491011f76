// Saving and removing a whole company.
#include "workbench/bench.h"

#include <QTest>

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
        bench.type(u"txtTitle"_s, u"Acme"_s);
        bench.type(u"txtShort"_s, u"AC"_s);
        bench.type(u"txtAddress"_s, u"1 Main"_s);
        bench.type(u"txtCity"_s, u"Trenton"_s);
        bench.type(u"txtURL2"_s, u"acme.example"_s);
        bench.world.prompts.expect(u"Insert new Company?"_s, Answer::Yes);
        const QStringList sent = bench.statements([&] { bench.company().cmdUpdate1(); });
        const QStringList inserts = sent.filter(u"INSERT"_s);
        QCOMPARE(
            inserts,
            (QStringList{u"INSERT INTO Address ( Address1,Address2,City,State,Zip,Country,Phone1,Phone2,"
                         "Phone3,Fax,Email1,Email2,URL1,URL2,EntryDate ) VALUES ('1 Main','','Trenton','',"
                         "'','USA','','','','','','','','acme.example','11/22/26');"_s,
                         u"INSERT INTO COMPANY ( Name,ShortName,AddressKey,Industry,Notes,EntryDate ) "
                         "VALUES ('Acme','AC','2','','','11/22/2026');"_s}));
        QVERIFY(sent.filter(u"Delete"_s).isEmpty());
        QCOMPARE(bench.frm->selection().currentCompanyKey, bench.data().getCompanyKey(u"Acme"_s));
        QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Acme"_s);
        QCOMPARE(bench.frm->companyList(), (QStringList{u"Acme"_s, u"Bolt"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->countsPanel(), u"2 companies · 0 positions · 0 contacts"_s);
        QVERIFY(!bench.frm->procVisible());
        QVERIFY(bench.shown(u"txtSummary"_s).contains(u"for 0 week."));
        QVERIFY(!bench.company().form().isDirty(u"txtCity"_s));
    }

    void newCompanyRefusedAtTheQuestionWritesNothing()
    {
        Bench bench;
        bench.choose(u"<New>"_s);
        bench.type(u"txtTitle"_s, u"Acme"_s);
        bench.world.prompts.expect(u"Insert new Company?"_s, Answer::No);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.rows(u"Company"_s) + bench.rows(u"Address"_s), 0);
        QCOMPARE(bench.shown(u"txtTitle"_s), u"Acme"_s);
        QVERIFY(bench.frm->procVisible());
    }

    void existingCompanyGetsANewKeyAndKeepsItsDate()
    {
        Bench bench;
        const Key oldKey = bench.addCompany(u"Acme"_s, u"3/5/2024"_s);
        bench.choose(u"Acme"_s);
        bench.type(u"txtCity"_s, u"Newark"_s);
        bench.company().cmdUpdate1();
        const Key newKey = bench.data().getCompanyKey(u"Acme"_s);
        QVERIFY(newKey > oldKey);
        QCOMPARE(bench.frm->selection().currentCompanyKey, newKey);
        QCOMPARE(bench.cells(u"Select Name,ShortName,Industry,Notes,EntryDate from Company"_s),
                 u"Acme|Ac|Tools|old notes|3/5/2024"_s);
        QCOMPARE(bench.cells(u"Select Address1,City,State,Zip,Country from Address where AddressKey=2"_s),
                 u"1 Main|Newark|NJ|08540|USA"_s);
        // The delete leaves its trail.
        QVERIFY(bench.world.errorLog().contains(u"Delete * from Company where CompanyKey="_s +
                                                QString::number(oldKey)));
    }

    void referencesFollowTheNewKey()
    {
        Bench bench;
        const QString acme = QString::number(bench.addCompany(u"Acme"_s));
        const QString bolt = QString::number(bench.addCompany(u"Bolt"_s));
        for (const QString& owner : {acme, bolt}) {
            for (const QString& table : {u"Contact(FirstName"_s, u"Position(Title"_s, u"Event(Event"_s,
                                         u"CProfile(QAns"_s, u"JProfile(QAns"_s})
                bench.run(u"Insert into "_s + table + u",CompanyKey) Values('x'," + owner + u')');
        }
        bench.choose(u"Acme"_s);
        bench.company().cmdUpdate1();
        const QString owners = bolt + u';' + QString::number(bench.data().getCompanyKey(u"Acme"_s));
        for (const QString& table : {u"Contact"_s, u"Position"_s, u"Event"_s, u"CProfile"_s, u"JProfile"_s})
            QCOMPARE(bench.cells(u"Select CompanyKey from "_s + table + u" order by CompanyKey"), owners);
    }

    void newEntryWithAKnownNameReplacesThatCompany()
    {
        Bench bench;
        const Key oldKey = bench.addCompany(u"Acme"_s, u"3/5/2024"_s);
        bench.choose(u"<New>"_s);
        bench.type(u"txtTitle"_s, u"acme"_s);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select Name,Industry,EntryDate from Company"_s), u"acme||3/5/2024"_s);
        QVERIFY(bench.data().getCompanyKey(u"acme"_s) != oldKey);
    }

    void typedTitleRenames()
    {
        Bench bench;
        const Key oldKey = bench.addCompany(u"Acme"_s);
        bench.addContact(u"Ann"_s, u"Lee"_s, oldKey);
        bench.choose(u"Acme"_s);
        bench.type(u"txtTitle"_s, u"O'Hara & Sons"_s);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select Name from Company"_s), u"O`Hara & Sons"_s);
        QCOMPARE(bench.frm->selection().selectedCompanyName(), u"O`Hara & Sons"_s);
        QCOMPARE(bench.shown(u"txtTitle"_s), u"O`Hara & Sons"_s);
        QCOMPARE(bench.data().getContactNames(u"O`Hara & Sons"_s), QStringList{u"Ann Lee"_s});
        // The name typed with its apostrophe finds it again.
        bench.choose(u"O'Hara & Sons"_s);
        QCOMPARE(bench.shown(u"txtTitle"_s), u"O`Hara & Sons"_s);
    }

    void refusedTitlesWriteNothing_data()
    {
        const QString noTitle = u"Please select a company title to save in the database."_s;
        const QString category =
            u"You cannot modify categories from this screen. Open the options screen to add/remove "
            "categories."_s;
        QTest::addColumn<QString>("selection");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        QTest::newRow("no title") << u"Acme"_s << QString() << noTitle;
        QTest::newRow("blanks") << u"Acme"_s << u"   "_s << noTitle;
        QTest::newRow("the selector's own entry") << u"<New>"_s << u"<New>"_s << noTitle;
        QTest::newRow("category selected") << u"~ Local ~"_s << u"Acme"_s << category;
        QTest::newRow("category typed") << u"<New>"_s << u"~ Mine ~"_s << category;
        QTest::newRow("another company's name") << u"Acme"_s << u"BOLT"_s << u"already called \"BOLT\""_s;
    }

    void refusedTitlesWriteNothing()
    {
        QFETCH(QString, selection);
        QFETCH(QString, title);
        QFETCH(QString, message);
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
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("one line") << u"1 Main"_s << u"1 Main|"_s << u"1 Main\n"_s;
        QTest::newRow("two lines") << u"1 Main\nFloor 2"_s << u"1 Main|Floor 2"_s << u"1 Main\nFloor 2"_s;
        QTest::newRow("further lines")
            << u"1 Main\r\nFloor 2\nRear"_s << u"1 Main|Floor 2\r\nRear"_s << u"1 Main\nFloor 2\nRear"_s;
        QTest::newRow("empty") << QString() << u"|"_s << u"\n"_s;
    }

    void addressIsSplitAtItsFirstLineEnd()
    {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        bench.type(u"txtAddress"_s, typed);
        for (int saves = 0; saves < 2; ++saves) { // a second save must not add a line
            bench.company().cmdUpdate1();
            QCOMPARE(bench.cells(u"Select Address1,Address2 from Address where AddressKey="_s +
                                 QString::number(2 + saves)),
                     stored);
            QTEST(bench.shown(u"txtAddress"_s), "shown");
        }
    }

    void anyCharacterIsSafe()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        const QString hard =
            u"a'); Delete * from Company; -- \" \\ %1 #12/31/1999# ` ü \u0001 漢 \U0001F600"_s;
        for (const QString& control : {u"txtShort"_s, u"txtIndustry"_s, u"txtCompanyNotes"_s, u"txtCity"_s})
            bench.type(control, hard);
        bench.company().cmdUpdate1();
        const QString stored = QString(hard).replace(u'\'', u'`');
        QCOMPARE(bench.cells(u"Select ShortName,Industry,Notes from Company"_s),
                 (QStringList{stored, stored, stored}.join(u'|')));
        QCOMPARE(bench.shown(u"txtCity"_s), stored);
    }

    void textsBeyondAStatementAreRefusedBeforeAnythingIsDeleted()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        const QString pasted = QString(450'000, u'\n'); // two characters each in the store
        bench.type(u"txtCompanyNotes"_s, pasted);
        bench.world.prompts.expect(u"too long to be saved"_s);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select Notes from Company"_s), u"old notes"_s);
        QCOMPARE(bench.shown(u"txtCompanyNotes"_s).size(), pasted.size());
        bench.type(u"txtCompanyNotes"_s, pasted.mid(1000));
        bench.company().cmdUpdate1();
        QCOMPARE(bench.shown(u"txtCompanyNotes"_s).size(), pasted.size() - 1000);
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
        bench.frm->load();
        bench.choose(u"Acme"_s);
        bench.world.prompts.expect(
            u"Are you sure you want to completely remove this COMPANY and all contacts, address "
            "information, and document relationships from the database?"_s,
            Answer::Yes);
        bench.company().cmdRemove1();
        QCOMPARE(bench.cells(u"Select Name from Company"_s), u"Bolt"_s);
        QCOMPARE(bench.cells(u"Select FirstName from Contact"_s), u"Bob"_s);
        QCOMPARE(bench.cells(u"Select HistoryKey from History"_s), u"2-1"_s);
        for (const QString& table : {u"Position"_s, u"Event"_s, u"CProfile"_s})
            QCOMPARE(bench.cells(u"Select CompanyKey from "_s + table + u" order by CompanyKey"),
                     u"0;"_s + QString::number(bolt));
        QCOMPARE(bench.frm->selection().selectedCompanyName(), QString());
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(0));
        QCOMPARE(bench.shown(u"txtTitle"_s), QString());
        QCOMPARE(bench.frm->companyList(), (QStringList{u"Bolt"_s, u"<New>"_s}));
        QCOMPARE(bench.frm->countsPanel(), u"1 company · 2 positions · 1 contact"_s);
    }

    void removalDeclinedKeepsEverything()
    {
        Bench bench;
        bench.addCompany(u"Acme"_s);
        bench.choose(u"Acme"_s);
        bench.world.prompts.expect(u"Are you sure"_s, Answer::No);
        QCOMPARE(bench.statements([&] { bench.company().cmdRemove1(); }), QStringList());
        QCOMPARE(bench.shown(u"txtTitle"_s), u"Acme"_s);
    }

    void removalWithNothingSelectedDeletesNothing()
    {
        Bench bench;
        bench.run(u"Insert into Event(Event,CompanyKey) Values('dentist',0)"_s);
        bench.choose(u"<New>"_s);
        bench.type(u"txtTitle"_s, u"half typed"_s);
        bench.world.prompts.expect(u"Are you sure"_s, Answer::Yes);
        bench.company().cmdRemove1();
        QCOMPARE(bench.rows(u"Event"_s), 1);
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
