// What saving and removing leave behind when one of their store calls fails, and that another try mends it.
#include "support/runtest.h"
#include "workbench/contactbench.h"
#include "workbench/documentbench.h"
#include "workbench/faults.h"
#include "workbench/positionbench.h"

namespace {

const QString huge(600'000, u'n');

// --- Company ----------------------------------------------------------------------------------------------

/// Acme, whose records all point to it, is being changed; a second company's address is the newest. One line
/// holds the rows called Acme as key|address|entry date, then the owners of position, contact, company
/// profile, position profile and event. Key 1 is the old row's, 3 the new one's.
Sweep<Bench> companySave()
{
    const auto furnish = [](Bench& bench) {
        bench.addCompany(u"Acme"_s, u"3/5/2024"_s);
        bench.addCompany(u"Bolt"_s);
        for (const QString& row : {u"Position(Title"_s, u"Contact(FirstName"_s, u"CProfile(QAns"_s,
                                   u"JProfile(QAns"_s, u"Event(Event"_s})
            bench.run(u"Insert into "_s + row + u",CompanyKey) Values('x',1)");
        bench.frm->load();
        bench.choose(u"Acme"_s);
        bench.type(u"txtCity"_s, u"Newark"_s);
        bench.type(u"txtIndustry"_s, u"Ships"_s);
        bench.world.prompts.acceptAll(Answer::No); // no second company of that name
    };
    const auto state = [](Bench& bench) -> QString {
        QString line = bench.cells(
            u"Select CompanyKey,AddressKey,EntryDate from Company where Name='Acme' order by CompanyKey"_s);
        for (const QString& table : {u"Position"_s, u"Contact"_s, u"CProfile"_s, u"JProfile"_s, u"Event"_s})
            line += u' ' + bench.cells(u"Select CompanyKey from "_s + table);
        return line;
    };
    const auto mend = [](Bench& bench) {
        QCOMPARE(bench.shown(u"txtCity"_s), u"Newark"_s); // nothing has to be typed again
        bench.world.prompts.acceptAll(Answer::Yes);
        bench.company().cmdUpdate1();
        const RecordSet company = bench.data().getCompany(u"Acme"_s);
        QCOMPARE(company.text(u"Industry"), u"Ships"_s);
        QCOMPARE(bench.data().getAddress(company.key(u"AddressKey").value_or(0)).text(u"City"), u"Newark"_s);
        QCOMPARE(bench.frm->selection().currentCompanyKey, company.key(u"CompanyKey").value_or(0));
    };
    const QString before = u"1|1|3/5/2024 1 1 1 1 1"_s;
    const std::vector<Fault> faults{
        {u"Select * from company where name="_s, before}, // not found: the question comes, and is declined
        {u"Select * from Company"_s, u" 0 0 0 0 0"_s},    // no columns: nothing inserted, the old row goes
        {u"Select * from Address"_s, u"3|2|3/5/2024 3 3 3 3 3"_s}, // the newest other address is taken
        {u"INSERT INTO Address"_s, u"3|2|3/5/2024 3 3 3 3 3"_s},
        {u"Select * from Address order by AddressKey"_s, u"3|0|3/5/2024 3 3 3 3 3"_s},
        {u"Select * from Company where CompanyKey="_s, u"3|3| 3 3 3 3 3"_s},
        {u"Select * from Company where Name ="_s, u"3|3| 3 3 3 3 3"_s},
        {u"INSERT INTO COMPANY"_s, u" 0 0 0 0 0"_s},
        {u"Delete * from Company"_s, u"1|1|3/5/2024;3|3|3/5/2024 1 1 1 1 1"_s},
        {u"Select * from company where name="_s, u"3|3|3/5/2024 3 3 3 3 0"_s}, // the event uses this key
        {u"Select * from company where name="_s, u"3|3|3/5/2024 1 1 1 1 3"_s}, // all others use this one
        {u"Update Position"_s, u"3|3|3/5/2024 1 1 1 1 3"_s},
        {u"Update Contact"_s, u"3|3|3/5/2024 1 1 1 1 3"_s},
        {u"Update CProfile"_s, u"3|3|3/5/2024 1 1 1 1 3"_s},
        {u"Update JProfile"_s, u"3|3|3/5/2024 1 1 1 1 3"_s},
        {u"Update Event"_s, u"3|3|3/5/2024 3 3 3 3 1"_s}};
    return {furnish,
            [](Bench& bench) { bench.company().cmdUpdate1(); },
            state,
            before,
            u"3|3|3/5/2024 3 3 3 3 3"_s,
            faults,
            mend};
}

// --- Position ---------------------------------------------------------------------------------------------

const QString engineer = u"|3/5/2024|10/1/2026|4|10/9/2026|7|Open|1,3"_s;

/// Engineer's rows, the owners of event and questionnaire, the versions in the journal. Key 1 is the old
/// row's, 3 the new one's. What cannot be read beforehand stops the save; behind the delete each of the rest
/// goes on by itself.
Sweep<PositionBench> positionSave()
{
    const auto furnish = [](PositionBench& bench) {
        bench.addPosition(u"Planner"_s, 2); // the newest row is another company's
        bench.open(u"Acme"_s, u"Engineer"_s);
        bench.edit(u"txtPosNotes"_s, u"new notes"_s);
        bench.world.prompts.acceptAll(Answer::Ok);
    };
    const auto state = [](PositionBench& bench) -> QString {
        return bench.rowsCalled(u"Engineer"_s) + u' ' + bench.cells(u"Select PositionKey from Event"_s) +
               u' ' + bench.cells(u"Select PositionKey from JProfile"_s) + u' ' +
               QString::number(bench.rows(u"PositionRecovery"_s));
    };
    const auto mend = [](PositionBench& bench) {
        const auto currentHasARow = [&] {
            return bench.data().keyVerification(bench.currentKey(), u"PositionKey"_s, u"Position"_s);
        };
        QCOMPARE(bench.field(u"txtPosNotes"_s), u"new notes"_s);
        QVERIFY(bench.currentKey() == 0 || currentHasARow());
        bench.position().cmdUpdatePos1();
        const QString mended = bench.rowsCalled(u"Engineer"_s);
        QCOMPARE(mended.mid(mended.indexOf(u'|')), engineer); // one row, with steps, status and entry date
        QCOMPARE(bench.cells(u"Select Notes from Position where Title='Engineer'"_s), u"new notes"_s);
        QVERIFY(currentHasARow());
    };
    const QString before = u'1' + engineer + u" 1 1 0";
    const QString after = u'3' + engineer + u" 3 3 1";
    const std::vector<Fault> faults{
        {u"Select * from company where name="_s, after}, // whether the title is taken
        {u"Select * from Position where title="_s, after},
        {u"Select * from Position where PositionKey="_s, before}, // the steps
        {u"Select * from Position where PositionKey="_s, before}, // the entry date
        {u"Select * from Position"_s, before},                    // the columns
        {u"Select * from company where name="_s, before},
        {u"Select * from Contact where ContactKey=1"_s, after}, // found again by its name
        {u"Select * from Contact where ContactKey=3"_s, after},
        {u"Delete * from Position"_s, u'1' + engineer + u";3" + engineer + u" 1 1 1"},
        {u"INSERT INTO Position"_s, u" 1 1 1"_s},
        {u"INSERT INTO PositionRecovery"_s, u'3' + engineer + u" 3 3 0"},
        {u"Select * from company where name="_s, after}, // not found by title: the highest key is taken
        {u"Select * from Position where title="_s, after},
        {u"Update Event"_s, u'3' + engineer + u" 1 3 1"},
        {u"Update JProfile"_s, u'3' + engineer + u" 3 1 1"}};
    return {
        furnish, [](PositionBench& bench) { bench.position().cmdUpdatePos1(); }, state, before, after, faults,
        mend};
}

// --- Documents --------------------------------------------------------------------------------------------

/// Two documents, each held by one person; the first is selected and has a new version on the screen.
void furnishDocuments(DocumentBench& bench)
{
    for (const auto& name : {u"cv.pdf"_s, u"note.txt"_s})
        bench.addDocument(name);
    bench.addHolder(u"Ann"_s, u"1"_s);
    bench.addHolder(u"Bob"_s, u"2"_s);
    bench.openScreen(u"cv.pdf"_s);
    bench.edit(u"txtVersion"_s, u"2.0"_s);
    bench.world.prompts.acceptAll(Answer::Ok);
}

/// The rows and who holds them, a key without a row as nothing.
QString documents(DocumentBench& bench)
{
    return bench.cells(u"Select Document,Version from Document order by ResumeKey"_s) + u" - " +
           bench.holdings();
}

Sweep<DocumentBench> documentUpdate()
{
    const QString before = u"cv.pdf|1.0;note.txt|1.0 - Ann: cv.pdf, Bob: note.txt"_s;
    const QString after = u"cv.pdf|2.0;note.txt|1.0 - Ann: cv.pdf, Bob: note.txt"_s;
    const QString annLoses = u"cv.pdf|2.0;note.txt|1.0 - Ann: , Bob: note.txt"_s;
    const QString bobLoses = u"cv.pdf|2.0;note.txt|1.0 - Ann: cv.pdf, Bob: "_s;
    const auto mend = [after](DocumentBench& bench) {
        QCOMPARE(bench.value(u"txtVersion"_s), u"2.0"_s);
        QCOMPARE(bench.listed(), u"cv.pdf,note.txt"_s);
        bench.screen().cmdUpdateDoc1();
        QCOMPARE(documents(bench), after);
    };
    const std::vector<Fault> faults{
        {u"Select * from document where document='cv.pdf'"_s, after}, // the key is remembered as well
        {u"Select * from document where document='note.txt'"_s, after},
        {u"Select * from Document"_s, before}, // nothing goes that could not come back
        {u"Select DocumentList from Contact"_s, before},
        {u"Delete * from document"_s, before},
        {u"INSERT INTO Document"_s, u"note.txt|1.0 - Ann: , Bob: note.txt"_s}, // the table is short of it
        {u"INSERT INTO Document"_s, u"cv.pdf|2.0 - Ann: cv.pdf, Bob: "_s},
        {u"Select * from document where document='cv.pdf'"_s, annLoses},
        {u"Select * from Contact"_s, annLoses}, // which lists hold the key
        {u"Select * from Contact"_s, annLoses}, // whose they are
        {u"Update Contact"_s, annLoses},
        {u"Select * from document where document='note.txt'"_s, bobLoses},
        {u"Select * from Contact"_s, bobLoses},
        {u"Select * from Contact"_s, bobLoses},
        {u"Update Contact"_s, bobLoses}};
    return {furnishDocuments,
            [](DocumentBench& bench) { bench.screen().cmdUpdateDoc1(); },
            documents,
            before,
            after,
            faults,
            mend};
}

// --- Contact ----------------------------------------------------------------------------------------------

/// Ann at Acme, to whom a position, a colleague, an event and a history point, and an address of nobody.
void furnishContact(ContactBench& bench)
{
    const Key acme = bench.addCompany(u"Acme"_s);
    bench.addPerson(u"Ann"_s, u"Lee"_s, acme, u"'2','1'"_s);
    bench.addPerson(u"Bob"_s, u"Stone"_s, acme, u"'1',''"_s);
    bench.run(u"Insert into Document(Document) Values('Letter')"_s);
    bench.run(u"Insert into Address(City) Values('Nowhere')"_s);
    bench.run(u"Insert into Position(Title,ContactList) Values('Planner','1')"_s);
    bench.run(u"Insert into Event(Event,ContactKey) Values('Call',1)"_s);
    bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-1',1,1)"_s);
    bench.open(u"Acme"_s, u"Ann Lee"_s);
    bench.typeContact(u"txtDept"_s, u"Parts"_s);
    bench.world.prompts.acceptAll(Answer::Ok);
}

/// Ann's rows as key|lists|department, the references, and the cities.
QString contactState(ContactBench& bench)
{
    return bench.cells(u"Select ContactKey,ContactList,DocumentList,Department from Contact where "
                       "FirstName='Ann' order by ContactKey"_s) +
           u' ' + bench.references() + u' ' + bench.cells(u"Select City from Address"_s);
}

/// Everything points to the current contact, who has her address.
void verifyNothingIsLost(ContactBench& bench)
{
    const QString key = QString::number(bench.current());
    QCOMPARE(bench.references(), QString(key + u' ' + key + u' ' + key + u' ' + key + u"-1"));
    const Key address = bench.data().getContactDataByKey(bench.current()).key(u"AddressKey").value_or(0);
    QCOMPARE(bench.data().getAddress(address).text(u"City"), u"Annville"_s);
}

} // namespace

class TestSaveFaults : public QObject
{
    Q_OBJECT

private slots:
    void anyStepOfACompanySave() { companySave().run(); }
    void anyStepOfAPositionSave() { positionSave().run(); }
    void anyStepOfADocumentUpdate() { documentUpdate().run(); }

    void fullDisk()
    {
        companySave().runOnFullDisk([](Bench& bench) { bench.type(u"txtCompanyNotes"_s, huge); },
                                    u"Select Notes from Company where Name='Acme'"_s);
        positionSave().runOnFullDisk([](PositionBench& bench) { bench.edit(u"txtPosNotes"_s, huge); },
                                     u"Select Notes from Position where Title='Engineer'"_s);
        documentUpdate().runOnFullDisk([](DocumentBench& bench) { bench.edit(u"txtDocNotes"_s, huge); },
                                       u"Select Notes from Document where Document='cv.pdf'"_s);
        const QString before = u"1|2|1| 1 1 1 1-1 Acme City;Annville;Bobville;Nowhere"_s;
        Sweep<ContactBench>{furnishContact,
                            [](ContactBench& bench) { bench.contact().cmdUpdateContact1(); },
                            contactState,
                            before,
                            {},
                            {},
                            {}}
            .runOnFullDisk([](ContactBench& bench) { bench.typeContact(u"txtContactNotes"_s, huge); },
                           u"Select Notes from Contact where FirstName='Ann'"_s);
    }

    void saveWithoutAKeyLeftChangesNothing()
    {
        Bench bench;
        companySave().furnish(bench);
        const auto giveOut = [&](const char* sql) {
            bench.runRaw(sql);
            bench.company().cmdUpdate1();
        };
        giveOut("UPDATE sqlite_sequence SET seq=32767 WHERE name='Company'");
        QVERIFY(bench.world.prompts.asked().last().contains(u"given out all its 32767 keys"));
        QCOMPARE(companySave().state(bench), companySave().before);
        giveOut("UPDATE sqlite_sequence SET seq=32766 WHERE name='Company'");
        QVERIFY(companySave().state(bench).startsWith(u"32767|"_s)); // one key is enough
    }

    void lostPositionTakesItsReferencesAlong()
    {
        const Sweep<PositionBench> save = positionSave();
        for (const bool another : {false, true}) {
            PositionBench bench;
            save.furnish(bench);
            bench.failing(9, [&] { bench.position().cmdUpdatePos1(); });
            QCOMPARE(bench.currentKey(), Key(0));
            if (another) { // another choice forgets the lost row, when the user gives it up
                bench.world.prompts.acceptAll(Answer::No);
                bench.position().cmbPosSelectionClick(u"<New>"_s);
                bench.edit(u"txtPosTitle"_s, u"Welder"_s);
            }
            bench.position().cmdUpdatePos1();
            if (another)
                QCOMPARE(bench.rowsCalled(u"Welder"_s), u"3|11/22/2026|12/31/1999|0|12/31/1999|0||"_s);
            QCOMPARE(bench.cells(u"Select PositionKey from Event"_s), another ? u"1"_s : u"3"_s);
        }
    }

    void anyStepOfAnAdditionOrRemovalOfADocument()
    {
        for (const bool adds : {true, false}) {
            const auto furnish = [&](DocumentBench& bench) {
                furnishDocuments(bench);
                if (adds) {
                    bench.drop(u"new.pdf"_s);
                    bench.edit(u"txtVersion"_s, u"7"_s);
                }
            };
            const auto act = [&](DocumentBench& bench) {
                if (adds)
                    bench.screen().cmdAddDoc1();
                else
                    bench.screen().cmdRemoveDoc1();
            };
            anyStep<DocumentBench>(furnish, act, [&](DocumentBench& bench, const QString&) {
                // Not carried out, it is there for the same button; carried out, the update writes it.
                const bool done = bench.listed().contains(adds ? u"new.pdf"_s : u"cv.pdf"_s) == adds;
                if (!adds)
                    bench.screen().showDocument(done ? u"note.txt"_s : u"cv.pdf"_s);
                if (done)
                    bench.screen().cmdUpdateDoc1();
                else
                    act(bench);
                QCOMPARE(documents(bench),
                         adds ? u"cv.pdf|2.0;note.txt|1.0;new.pdf|7 - Ann: cv.pdf, Bob: note.txt"_s
                              : u"note.txt|1.0 - Ann: , Bob: note.txt"_s);
            });
        }
    }

    void anyStepOfAContactSaveIsMendedByTheNext()
    {
        // A reference that could not be moved stays where it was; every other failure is made good.
        const QStringList moves{u"Select * from Position where contactlist"_s,
                                u"Update Position set ContactList"_s,
                                u"Select * from Contact where contactlist"_s,
                                u"Update Contact set ContactList"_s,
                                u"Update Event"_s,
                                u"Update History"_s};
        int movesFailed = 0;
        int steps = 0;
        const auto save = [](ContactBench& bench) { bench.contact().cmdUpdateContact1(); };
        anyStep<ContactBench>(furnishContact, save, [&](ContactBench& bench, const QString& failed) {
            if (failed.isEmpty())
                return;
            ++steps;
            QCOMPARE(bench.shownContact(u"txtDept"_s), u"Parts"_s);
            QVERIFY(bench.cells(u"Select City from Address"_s).contains(u"Acme City;Annville;Bobville"_s));
            const bool isMove =
                std::ranges::any_of(moves, [&](const QString& part) { return failed.startsWith(part); });
            movesFailed += isMove ? 1 : 0;
            save(bench);
            QCOMPARE(bench.data().getContactDataByKey(bench.current()).text(u"Department"), u"Parts"_s);
            if (!isMove)
                verifyNothingIsLost(bench);
        });
        QVERIFY(steps > 25);
        QCOMPARE(movesFailed, 9);
    }

    void failedStepOfAContactSaveLeaves()
    {
        const QString cities = u" Acme City;Annville;Bobville"_s;
        const QString untouched = u" 1 1 1 1-1"_s + cities + u";Nowhere";
        const QString moved = u"3|2|1|Parts 3 3 3 3-1"_s + cities;
        const QString namesake = u"3|||"_s; // who gets nothing of hers when she is not stored
        std::vector<Fault> faults{{u"INSERT INTO Contact "_s, namesake + untouched + u";Annville"},
                                  {u"INSERT INTO ContactRecovery"_s, moved},
                                  {u"Delete * from Contact"_s, u"1|2|1|;"_s + moved},
                                  {u"Select * from Contact where firstName="_s, u"3|2|1|Parts"_s + untouched},
                                  {u"Update Event"_s, u"3|2|1|Parts 3 3 1 1-1"_s + cities}};
        for (const QString& table : {u"Address"_s, u"Contact"_s, u"Company"_s}) // the clean-up cannot read
            faults.push_back({u"Select AddressKey from "_s + table, moved + u";Nowhere"});
        for (const Fault& fault : faults) {
            ContactBench bench;
            furnishContact(bench);
            if (fault.left.startsWith(namesake))
                bench.addPerson(u"Ann"_s, u"Lee"_s, 1);
            bench.failingAt(fault.statement, [&] { bench.contact().cmdUpdateContact1(); });
            QVERIFY2(contactState(bench) == fault.left,
                     qPrintable(fault.statement + u": " + contactState(bench)));
        }
    }

    void anyStepOfAContactRemovalSparesTheOthers()
    {
        const auto furnish = [](ContactBench& bench) {
            furnishContact(bench);
            bench.run(u"Insert into Event(Event,ContactKey) Values('Rest',0)"_s);
            bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('0-1',0,1)"_s);
            bench.world.prompts.acceptAll(Answer::Yes);
        };
        const auto remove = [](ContactBench& bench) { bench.contact().cmdRemoveContact1(); };
        anyStep<ContactBench>(furnish, remove, [](ContactBench& bench, const QString& failed) {
            const QString left = contactState(bench);
            if (failed.isEmpty())
                QCOMPARE(left, u"   0 0-1 Acme City;Annville;Bobville;Nowhere"_s);
            QVERIFY(bench.cells(u"Select ContactKey from Event"_s).endsWith(u'0') && left.contains(u"0-1 "));
            QCOMPARE(bench.cells(u"Select FirstName from Contact where FirstName='Bob'"_s), u"Bob"_s);
        });
    }
};

JOBWRIGHT_TEST(TestSaveFaults)
#include "tst_savefaults.moc"
