// Leaving a record: nothing typed goes unasked, and nothing given up comes back.
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/contactbench.h"
#include "workbench/documentbench.h"
#include "workbench/positionbench.h"

namespace {

/// Acme (its web page "a`b"), Bolt and a category; Acme's position "Clerk" and its people Ann Lee 1 and Bob
/// Stone 2; the documents cv.pdf and note.txt. One record is open.
class LeavingBench : public ContactBench
{
public:
    LeavingBench(const QString& tab, const QString& record)
    {
        for (const QString& name : {u"Acme"_s, u"Bolt"_s, u"~ Local ~"_s})
            addCompany(name);
        run(u"Update Address set URL1='a`b' where AddressKey=1"_s);
        run(u"Insert into Position(Title,Keyword,CompanyKey,Expires) Values('Clerk','cad',1,'12/31/2026')"_s);
        addPerson(u"Ann"_s, u"Lee"_s, 1);
        addPerson(u"Bob"_s, u"Stone"_s, 1);
        for (const QString& file : {u"cv.pdf"_s, u"note.txt"_s})
            run(u"Insert into Document(Document,CreationDate,Style,Path,Type) "
                "Values('" +
                file + u"','5/6/2026','100000000000','/files','Other')");
        frm->load();
        choose(tab == u"Company" ? record : u"Acme"_s);
        frm->tabStrip1Click(tab);
        if (tab == u"Position")
            position().showPosition(record);
        else if (tab == u"Contact")
            contact().showContact(record);
        else if (tab == u"Document")
            document().showDocument(record);
        m_start = state();
    }

    PositionScreen& position() { return frm->positionScreen(); }
    DocumentScreen& document() { return frm->documentScreen(); }
    /// Types, and leaves each field.
    void edit(const QString& edits)
    {
        const QStringList all = edits.split(u';', Qt::SkipEmptyParts);
        onScreen([&](auto& screen) {
            editAll(screen, all);
            for (const QString& each : all)
                screen.fieldLeft(each.section(u'=', 0, 0));
        });
    }
    QString shownIn(const QString& control)
    {
        QString shown;
        onScreen([&](auto& screen) { shown = screen.form().text(control); });
        return shown;
    }
    /// Everything that a save of a record may write.
    QString state()
    {
        QStringList tables;
        for (const QString& table : {u"Company"_s, u"Address"_s, u"Position"_s, u"Contact"_s, u"Document"_s})
            tables.append(cells(u"Select * from "_s + table));
        return tables.join(u'\n');
    }
    bool isUntouched() { return state() == m_start; }

private:
    template<class Act> void onScreen(Act act)
    {
        const QString tab = frm->currentTab();
        if (tab == u"Company")
            act(company());
        else if (tab == u"Position")
            act(position());
        else if (tab == u"Contact")
            act(contact());
        else
            act(document());
    }

    QString m_start;
};

const QString notSaved = u"have not been saved. Save them?"_s;

} // namespace

class TestLeaving : public QObject
{
    Q_OBJECT

private slots:
    void whatIsNotStoredIsAskedAboutByItsName_data()
    {
        // asked: the record as the question calls it; "" for no question
        table(
            {"tab", "record", "edits", "asked"},
            {{"record's field", "Company", "Acme", "txtCity=Rome", "the company \"Acme\""},
             {"typed back", "Company", "Acme", "txtCity=Rome;txtCity=Acme City", ""},
             {"apostrophe for what is stored", "Company", "Acme", "txtURL1=a'b", ""},
             {"field that saves itself", "Company", "Acme", "txtShort=A", ""},
             {"untouched new company", "Company", "<New>", "", ""},
             {"new company", "Company", "<New>", "txtShort=N", "the new company have"},
             {"named new company", "Company", "<New>", "txtTitle=Neo", "the new company \"Neo\""},
             {"new company emptied", "Company", "<New>", "txtTitle=Neo;txtTitle=", ""},
             {"category", "Company", "~ Local ~", "txtCompanyNotes=n", "could not be saved"},
             {"title", "Position", "Clerk", "txtPosTitle=Cook", "the position \"Clerk\""},
             {"blanks around the title", "Position", "Clerk", "txtPosTitle= Clerk ", ""},
             {"title and another field", "Position", "Clerk", "txtPosTitle=Cook;txtKeyword=x", "\"Clerk\""},
             {"expiry saves itself", "Position", "Clerk", "dtpExpires=2027-01-01", ""},
             {"untouched new position", "Position", "<New>", "", ""},
             {"new position's expiry", "Position", "<New>", "dtpExpires=2027-01-01", "the new position"},
             {"expiry as laid out", "Position", "<New>", "dtpExpires=2027-01-01;dtpExpires=2026-12-22", ""},
             {"boxes save themselves", "Contact", "Ann Lee", "chk3=1;sldrQuality=2", ""},
             {"new contact's box", "Contact", "<New>", "chk3=1", "the new contact have"},
             {"new contact's slider", "Contact", "<New>", "sldrQuality=2", "the new contact have"},
             {"box and slider put back", "Contact", "<New>", "chk3=1;chk3=0;sldrQuality=2;sldrQuality=0", ""},
             {"named new contact", "Contact", "<New>", "txtFirst=Bo;txtLast=Ek", "new contact \"Bo Ek\""},
             {"document's date", "Document", "cv.pdf", "dtpEntry=2026-01-01", "the document \"cv.pdf\""},
             {"new document's notes", "Document", "", "txtDocNotes=x", "the new document"},
             {"type clicked for the next one", "Document", "", "opt2=1", ""}});
    }
    void whatIsNotStoredIsAskedAboutByItsName()
    {
        FETCH(QString, tab, record, edits, asked);
        LeavingBench bench(tab, record);
        bench.edit(edits);
        QCOMPARE(bench.frm->procVisible(), !asked.isEmpty()); // the bar announces what the question is about
        if (asked.isEmpty()) {
            QVERIFY(bench.frm->mayLeave());
            return;
        }
        const QString control = edits.section(u'=', 0, 0);
        const QString typed = bench.shownIn(control);
        const bool canBeSaved = asked != u"could not be saved";
        bench.expect(asked, canBeSaved ? Answer::Cancel : Answer::No);
        QVERIFY(!bench.frm->mayLeave());
        QCOMPARE(bench.shownIn(control), typed);
        bench.expect(asked, canBeSaved ? Answer::No : Answer::Yes);
        QVERIFY(bench.frm->mayLeave());
        QVERIFY(bench.shownIn(control) != typed);
        QVERIFY(bench.isUntouched());
        QVERIFY(bench.frm->mayLeave());
    }

    void everyWayOutAsks_data()
    {
        // stored: where the typed text is found after a save
        table({"tab", "record", "edits", "stored"},
              {{"Company", "Company", "Acme", "txtCity=Rome", "Select City from Address where City='Rome'"},
               {"Position", "Position", "Clerk", "txtPosTitle=Rome", "Select Title from Position"},
               {"Contact", "Contact", "<New>", "txtFirst=Rome;txtLast=Ek",
                "Select FirstName from Contact where LastName='Ek'"},
               {"Document", "Document", "cv.pdf", "txtPath=Rome",
                "Select Path from Document where Path='Rome'"}});
    }
    void everyWayOutAsks()
    {
        FETCH(QString, tab, record, edits, stored);
        using Way = std::function<void(LeavingBench&)>;
        std::vector<Way> ways{
            [](LeavingBench& bench) { bench.frm->tabStrip1Click(u"Pipeline"_s); },
            [](LeavingBench& bench) { bench.frm->showOn(u"Company"_s, {}); },
            [](LeavingBench& bench) { bench.frm->restoreData(); },
            [](LeavingBench& bench) { bench.choose(u"<New>"_s); },
        };
        const std::map<QString, std::vector<Way>> own{
            {u"Company"_s,
             {[](LeavingBench& bench) { bench.choose(u"Bolt"_s); },
              [](LeavingBench& bench) { bench.frm->tbarButtonClick(u"new"_s); },
              [](LeavingBench& bench) {
                  const TreeModel& tree = bench.company().tvwPosContact();
                  bench.company().tvwPosContactDblClick(tree.index(0, 0, tree.index(0, 0)));
              }}},
            {u"Position"_s,
             {[](LeavingBench& bench) { bench.choose(u"Bolt"_s); },
              [](LeavingBench& bench) { bench.position().cmbPosSelectionClick(u"<New>"_s); }}},
            {u"Contact"_s,
             {[](LeavingBench& bench) { bench.choose(u"Bolt"_s); },
              [](LeavingBench& bench) { bench.contact().cmbContactsClick(u"Bob Stone"_s); }}},
            {u"Document"_s,
             {[](LeavingBench& bench) {
                  const TreeModel& tree = bench.document().tvwDocs();
                  bench.document().tvwDocsClick(tree.index(1, 0, tree.index(0, 0)));
              },
              [](LeavingBench& bench) { bench.document().showDocument(u"note.txt"_s); },
              [](LeavingBench& bench) {
                  if (!bench.world.prompts.asked().isEmpty()) // the second time it goes on
                      bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, {});
                  bench.document().cmdLoadDocument();
              },
              [](LeavingBench& bench) {
                  bench.document().filesDropped({bench.world.folder.filePath(u"Postledger.db"_s)});
              }}}};
        ways.insert(ways.end(), own.at(tab).begin(), own.at(tab).end());
        for (const Way& way : ways) {
            LeavingBench bench(tab, record);
            bench.edit(edits);
            const QString company = bench.selection().selectedCompanyName();
            bench.expect(notSaved, Answer::Cancel);
            way(bench);
            QCOMPARE(bench.frm->currentTab(), tab);
            QCOMPARE(bench.selection().selectedCompanyName(), company);
            QCOMPARE(bench.shownIn(edits.section(u'=', 0, 0)), u"Rome"_s);
            QVERIFY(bench.isUntouched());
            bench.expect(notSaved, Answer::Yes);
            if (tab == u"Contact")
                bench.expect(u"Update of Rome Ek is complete."_s);
            bench.world.prompts.acceptAll(Answer::Cancel); // what the way itself has to say
            way(bench);
            QCOMPARE(bench.cells(stored), u"Rome"_s);
            QCOMPARE(bench.world.prompts.asked().filter(notSaved).size(), 2);
        }
    }

    void saveThatFailsOrIsRefusedKeepsTheUserThere_data()
    {
        table({"tab", "record", "edits"}, {{"Company", "Company", "Acme", "txtCity=Rome"},
                                           {"Position", "Position", "Clerk", "txtPosTitle=Rome"},
                                           {"Contact", "Contact", "<New>", "txtFirst=Rome;txtLast=Ek"},
                                           {"refused", "Company", "<New>", "txtCity=Rome"}});
    }
    void saveThatFailsOrIsRefusedKeepsTheUserThere()
    {
        FETCH(QString, tab, record, edits);
        LeavingBench bench(tab, record);
        bench.edit(edits);
        bench.world.prompts.acceptAll(Answer::Yes);
        bench.failingAt(u"INSERT INTO"_s, [&] { bench.frm->tabStrip1Click(u"Document"_s); });
        QCOMPARE(bench.frm->currentTab(), tab);
        QCOMPARE(bench.shownIn(edits.section(u'=', 0, 0)), u"Rome"_s);
    }

    void recordThatItsSaveHasCutShortIsNotLeftUnasked()
    {
        // Nothing was typed, but the row that the save should have replaced is gone.
        LeavingBench bench(u"Position"_s, u"Clerk"_s);
        bench.world.prompts.acceptAll(Answer::Yes);
        bench.failingAt(u"INSERT INTO Position"_s, [&] { bench.position().cmdUpdatePos1(); });
        QCOMPARE(bench.cells(u"Select Title from Position"_s), QString());
        QVERIFY(bench.frm->mayLeave());
        QVERIFY(bench.world.prompts.asked().join(u'\n').contains(notSaved));
        QCOMPARE(bench.cells(u"Select Title from Position"_s), u"Clerk"_s);
    }

    void sameRecordChosenAgainIsOpenedUnderItsNewName()
    {
        struct Case
        {
            QString tab, record, edit, reopened;
        };
        for (const auto& [tab, record, edit, reopened] :
             {Case{u"Company"_s, u"Acme"_s, u"txtTitle=Zeta"_s, u"Zeta"_s},
              Case{u"Position"_s, u"Clerk"_s, u"txtPosTitle=Chief"_s, u"Chief"_s}}) {
            LeavingBench bench(tab, record);
            bench.edit(edit);
            bench.expect(u"have not been saved"_s, Answer::Yes);
            if (tab == u"Company")
                bench.choose(record);
            else
                bench.position().cmbPosSelectionClick(record);
            QCOMPARE(bench.shownIn(edit.section(u'=', 0, 0)), reopened);
            QVERIFY(tab == u"Company" ? bench.selection().currentCompanyKey != 0
                                      : bench.selection().currentPositionKey != 0);
        }
    }

    void listThatWaitsForTheSaveIsAskedAbout()
    {
        LeavingBench position(u"Position"_s, u"Clerk"_s);
        position.position().form().edit(u"cmbAssignContact"_s, u"Ann Lee"_s);
        position.position().cmdAssign1();
        position.expect(u"the position \"Clerk\""_s, Answer::Yes);
        QVERIFY(position.frm->mayLeave());
        QCOMPARE(position.cells(u"Select ContactList from Position"_s), u"1"_s);

        LeavingBench contact(u"Contact"_s, u"Ann Lee"_s);
        contact.contact().form().edit(u"cmbOtherContact"_s, u"Bob Stone"_s);
        contact.contact().cmdAddOther1();
        contact.contact().form().edit(u"cmbDocsAvailable"_s, u"cv.pdf"_s);
        contact.contact().cmdAddDocContact1();
        contact.expect(u"the contact \"Ann Lee\""_s, Answer::Yes);
        contact.expect(u"Update of Ann Lee is complete."_s);
        QVERIFY(contact.frm->mayLeave());
        QCOMPARE(contact.cells(u"Select ContactList,DocumentList from Contact where LastName='Lee'"_s),
                 u"2|1"_s);
        // Taken away, they are out of the store at once.
        const TreeModel& others = contact.contact().tvwOtherContact();
        contact.contact().selectOther(others.index(0, 0, others.index(0, 0)));
        contact.contact().cmdRemoveOther1();
        QVERIFY(contact.frm->mayLeave());
    }

    void addressGivenUpDoesNotBecomeANewContacts()
    {
        LeavingBench bench(u"Company"_s, u"Acme"_s);
        bench.edit(u"txtCity=Rome"_s);
        bench.expect(notSaved, Answer::No);
        bench.frm->tabStrip1Click(u"Contact"_s);
        bench.edit(u"txtFirst=Bo;txtLast=Ek"_s);
        bench.save(u"Bo Ek"_s);
        QCOMPARE(bench.cells(u"Select City from Address where City='Rome'"_s), QString());
    }

    void saveOnTheWayTakesNothingBack()
    {
        const auto openWithUnsavedList = [](LeavingBench& bench) {
            bench.contact().form().edit(u"cmbOtherContact"_s, u"Bob Stone"_s);
            bench.contact().cmdAddOther1();
            bench.expect(notSaved, Answer::Yes);
            bench.expect(u"Update of Ann Lee is complete."_s);
        };
        LeavingBench history(u"Contact"_s, u"Ann Lee"_s);
        openWithUnsavedList(history);
        history.navigator.whileOpen = [&] {
            history.run(u"Update Contact set LastContact='11/20/2026' where ContactKey=1"_s);
        };
        history.contact().cmdHistory1();
        QCOMPARE(history.cells(u"Select LastContact,ContactList from Contact where LastName='Lee'"_s),
                 u"11/20/2026|2"_s);
        QCOMPARE(history.shownContact(u"cmbContacts"_s), u"Ann Lee"_s);

        LeavingBench reassigned(u"Contact"_s, u"Ann Lee"_s);
        openWithUnsavedList(reassigned);
        reassigned.expect(u"Are you certain"_s, Answer::Yes);
        reassigned.world.prompts.expectCompany(u"Reassign Contact"_s, u"Bolt"_s);
        reassigned.expect(u"You are assigning Ann Lee to Bolt"_s, Answer::Yes);
        reassigned.contact().cmdReassign1();
        QCOMPARE(reassigned.cells(u"Select CompanyKey from Contact where LastName='Lee'"_s), u"2"_s);
    }
};

JOBWRIGHT_TEST(TestLeaving)
#include "tst_leaving.moc"
