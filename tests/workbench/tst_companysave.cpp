// Saving and removing a whole company.
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/bench.h"

namespace {

/// Acme 1 and Bolt 2, each with a row in every table that points to companies; so has nobody, with key 0.
class CompaniesBench : public Bench
{
public:
    CompaniesBench()
    {
        addCompany(u"Acme"_s, u"3/5/2024"_s);
        addCompany(u"Bolt"_s);
        for (const QString& owner : {u"1"_s, u"2"_s, u"0"_s}) {
            for (const QString& row : {u"Contact(FirstName"_s, u"Position(Title"_s, u"Event(Event"_s,
                                       u"CProfile(QAns"_s, u"JProfile(QAns"_s})
                run(u"Insert into "_s + row + u",CompanyKey) Values('x'," + owner + u')');
            run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('%1-1',%1,1)"_s.arg(owner));
        }
        frm->load();
    }
    void save(const QString& selection, const QString& title)
    {
        choose(selection);
        type(u"txtTitle"_s, title);
        company().cmdUpdate1();
    }
    /// To which companies the rows of each table point.
    QString owners()
    {
        QStringList keys;
        for (const QString& table : {u"Contact"_s, u"Position"_s, u"Event"_s, u"CProfile"_s, u"JProfile"_s})
            keys.append(cells(u"Select CompanyKey from "_s + table + u" order by CompanyKey"));
        return keys.join(u' ');
    }
    QString companies() { return cells(u"Select CompanyKey,Name,Industry,EntryDate from Company"_s); }
};

} // namespace

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
        editAll(bench.company(), {u"txtAddress=1 Main"_s, u"txtURL2=acme.example"_s, u"txtTitle=Acme"_s});
        bench.expect(u"Insert new Company?"_s, Answer::Yes);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select * from Company where Name='Acme'"_s), u"2|Acme||2|||11/22/2026"_s);
        QCOMPARE(bench.cells(u"Select * from Address where AddressKey=2"_s),
                 u"2|1 Main|||||USA||||||||acme.example|11/22/2026"_s);
        QCOMPARE(bench.shell(), u"2|Acme|Acme,Bolt,<New>|2 companies · 0 positions · 0 contacts|"_s);
        QVERIFY(bench.shown(u"txtSummary"_s).contains(u"for 0 week."));
    }

    void savedCompanyGetsANewKeyThatReferencesFollow()
    {
        CompaniesBench bench;
        bench.choose(u"Acme"_s);
        bench.type(u"txtCity"_s, u"Newark"_s);
        bench.type(u"txtTitle"_s, u"O'Hara & Sons"_s);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.selection().currentCompanyKey, Key(3));
        QCOMPARE(bench.cells(u"Select * from Company where CompanyKey<>2"_s),
                 u"3|O`Hara & Sons|Ac|3|Tools|old notes|3/5/2024"_s);
        QCOMPARE(bench.cells(u"Select Address1,City,State,Zip,Country from Address where AddressKey=3"_s),
                 u"1 Main|Newark|NJ|08540|USA"_s);
        QCOMPARE(bench.owners(), u"0;2;3 0;2;3 0;2;3 0;2;3 0;2;3"_s);
        // The delete leaves its trail.
        QVERIFY(bench.world.errorLog().contains(u"Delete * from Company where CompanyKey=1"_s));
        // A new entry that takes a known name replaces it too, when that is meant; typed with its apostrophe
        // it is found.
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            QCOMPARE(bench.companies(), u"2|Bolt|Tools|11/1/2026;3|O`Hara & Sons|Tools|3/5/2024"_s);
            if (answer == Answer::Yes) // what was not saved before
                bench.expect(u"have not been saved"_s, Answer::No);
            bench.expect(u"\"O'HARA & SONS\" is in the database already"_s, answer);
            bench.save(u"<New>"_s, u"O'HARA & SONS"_s);
        }
        QCOMPARE(bench.companies(), u"2|Bolt|Tools|11/1/2026;4|O`HARA & SONS||3/5/2024"_s);
        bench.choose(u"O'Hara & Sons"_s);
        QCOMPARE(bench.shown(u"txtTitle"_s), u"O`HARA & SONS"_s);
    }

    void refusedTitlesWriteNothing_data()
    {
        const char* const noTitle = "Please select a company title to save in the database.";
        const char* const category =
            "You cannot modify categories from this screen. Open the options screen to "
            "add/remove categories.";
        table({"selection", "title", "message"},
              {{"no title", "Acme", "   ", noTitle},
               {"the selector's own entry", "<New>", "<New>", noTitle},
               {"category selected", "~ Local ~", "Acme", category},
               {"category typed", "<New>", "~ Mine ~", category},
               {"another's name", "Acme", "BOLT", "already called \"BOLT\""}});
    }
    void refusedTitlesWriteNothing()
    {
        FETCH(QString, selection, title, message);
        CompaniesBench bench;
        bench.addCompany(u"~ Local ~"_s);
        const QString before = bench.companies();
        bench.expect(message);
        bench.save(selection, title);
        QCOMPARE(bench.companies(), before);
        QCOMPARE(bench.rows(u"Address"_s), 3);
        QCOMPARE(bench.shown(u"txtTitle"_s), title);
    }

    void addressIsSplitAtItsFirstLineEnd_data()
    {
        table({"typed", "stored", "shown"}, {{"one line", "1 Main", "1 Main|", "1 Main\n"},
                                             {"further lines", "1 Main\r\nFloor 2\nRear",
                                              "1 Main|Floor 2\r\nRear", "1 Main\nFloor 2\nRear"},
                                             {"empty", "", "|", "\n"}});
    }
    void addressIsSplitAtItsFirstLineEnd()
    {
        FETCH(QString, typed, stored, shown);
        CompaniesBench bench;
        bench.choose(u"Acme"_s);
        bench.type(u"txtAddress"_s, typed);
        for (const int address : {3, 4}) { // a second save must not add a line
            bench.company().cmdUpdate1();
            QCOMPARE(bench.cells(u"Select Address1,Address2 from Address where AddressKey=%1"_s.arg(address)),
                     stored);
            QCOMPARE(bench.shown(u"txtAddress"_s), shown);
        }
    }

    void removalTakesWhatBelongsToTheCompany()
    {
        CompaniesBench bench;
        bench.choose(u"Acme"_s);
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            QCOMPARE(bench.owners(), u"0;1;2 0;1;2 0;1;2 0;1;2 0;1;2"_s);
            bench.expect(u"Are you sure you want to completely remove this COMPANY and all contacts, "
                         "address information, and document relationships from the database?"_s,
                         answer);
            bench.company().cmdRemove1();
        }
        const QString left = u"0;2 0;2 0;2 0;2 0;2"_s;
        QCOMPARE(bench.owners(), left);
        QCOMPARE(bench.cells(u"Select HistoryKey from History"_s), u"2-1;0-1"_s);
        QCOMPARE(bench.shell(), u"0||Bolt,<New>|1 company · 2 positions · 2 contacts|"_s);
        QCOMPARE(bench.shown(u"txtTitle"_s), QString());
        // With nothing selected, what belongs to nobody stays.
        bench.type(u"txtTitle"_s, u"half typed"_s);
        bench.expect(u"Are you sure"_s, Answer::Yes);
        bench.company().cmdRemove1();
        QCOMPARE(bench.owners() + bench.shown(u"txtTitle"_s), left);
        bench.addCompany(u"~ Local ~"_s);
        bench.choose(u"~ Local ~"_s);
        bench.expect(u"You cannot modify categories from this screen."_s);
        bench.company().cmdRemove1();
        QCOMPARE(bench.rows(u"Company"_s), 2);
    }
};

JOBWRIGHT_TEST(TestCompanySave)
#include "tst_companysave.moc"
