// The Contact screen without its save: selection, fields, flags, ratings, lists, reassigning.
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/contactbench.h"

namespace {

/// Bob Stone 1 and Ann Lee 2 at Acme, Cy Abbot 3 at Bolt, two documents; Ann's contact and document lists are
/// given, and the screen is open, with her name chosen when that is given too.
class PeopleBench : public ContactBench
{
public:
    explicit PeopleBench(const QString& lists = u"'',''"_s, const QString& name = u"Ann Lee"_s)
    {
        const Key acme = addCompany(u"Acme"_s);
        addPerson(u"Bob"_s, u"Stone"_s, acme);
        addPerson(u"Ann"_s, u"Lee"_s, acme, lists);
        addPerson(u"Cy"_s, u"Abbot"_s, addCompany(u"Bolt"_s));
        run(u"Insert into Document(Document) Values('Letter')"_s);
        run(u"Insert into Document(Document,Type) Values('Mine','RESUME')"_s);
        open(u"Acme"_s, name);
    }
    QString anns(const QString& columns)
    {
        return cells(u"Select "_s + columns + u" from Contact where ContactKey=2");
    }
};

} // namespace

class TestContactScreen : public QObject
{
    Q_OBJECT

private slots:
    void chosenContactIsShown()
    {
        PeopleBench bench(u"'1,,99','1,7'"_s);
        const QString shown =
            u"txtFirst txtMiddle txtLast lblQuality lblInfluence chk1 chk2 chk9 chk10 chk11"_s;
        QCOMPARE(bench.people(), u"Bob Stone,Ann Lee,<New>"_s);
        QCOMPARE(bench.contact().form().items(u"cmbDocsAvailable"_s).join(u','), u"Letter,Mine"_s);
        QCOMPARE(bench.current(), Key(2));
        QCOMPARE(bench.shownContact(shown), u"Ann|M|Lee|Quality: 4|Influence: 5|1|0|1|0|1"_s);
        QCOMPARE(bench.others(), u"Bob Stone"_s);
        QCOMPARE(bench.documents(), u"Letter"_s);
        QVERIFY(bench.shownContact(u"txtDTPicker1"_s).contains(u"2026"_s));
        bench.contact().cmbContactsClick(u"<New>"_s);
        QCOMPARE(bench.current(), Key(0));
        QCOMPARE(bench.shownContact(u"txtFirst chk1 sldrQuality lblQuality"_s), u"|0|0|Quality:"_s);
        QVERIFY(bench.others().isEmpty() && bench.documents().isEmpty());
    }

    void oddRecordIsShownAsFarAsItGoes_data()
    {
        // shown: last contact, quality, influence, chk1, chk2, chk3
        table({"set", "shown"},
              {{"no date, words for flags", "LastContact='',HiringMgr='Yes'", "No Contact|4|5|0|0|0"},
               {"one-digit level", "LastContact='',ContactLevel=7", "No Contact|0|7|1|0|0"},
               {"level out of range", "LastContact='12/31/1999',ContactLevel=450", "No Contact|9|9|1|0|0"}});
    }
    void oddRecordIsShownAsFarAsItGoes()
    {
        FETCH(QString, set, shown);
        PeopleBench bench(u"'',''"_s, {});
        bench.run(u"Update Contact set "_s + set);
        bench.contact().cmbContactsClick(u"Bob Stone"_s);
        QCOMPARE(bench.shownContact(u"txtDTPicker1 sldrQuality sldrInfluence chk1 chk2 chk3"_s), shown);
    }

    void nameIsFoundHoweverItIsStored()
    {
        for (const auto& [first, last] :
             {std::pair{u"Mary Ann"_s, u"Young"_s}, {u"Cher"_s, QString()}, {u"Pat"_s, u"O`Hara"_s}}) {
            PeopleBench bench;
            const Key key = bench.addPerson(first, last, 1);
            bench.open(u"Acme"_s, QString(first + u' ' + last).replace(u'`', u'\''));
            QCOMPARE(bench.current(), key);
        }
    }

    void fieldThatIsLeftIsStored()
    {
        PeopleBench bench;
        QCOMPARE(columnsLeft(bench, bench.contact(), u"Contact"_s, u"contactkey=2"_s),
                 u"FirstName Middle LastName Title Department ReportsTo ContactTime Notes"_s);
        // Whatever the name is now, the next field still goes to this person, and the lists know the name.
        editAll(bench.contact(), {u"txtFirst=Anna"_s, u"txtLast=O'Hara"_s});
        bench.contact().fieldLeft(u"txtFirst"_s);
        bench.contact().fieldLeft(u"txtLast"_s);
        QCOMPARE(bench.shownContact(u"cmbContacts"_s), u"Anna O`Hara"_s);
        QCOMPARE(bench.people(), u"Bob Stone,Anna O`Hara,<New>"_s);
        const QString flags = u"Select HiringMgr,BestMedium from Contact order by ContactKey"_s;
        for (const auto& [tick, stored] : {std::pair{u"chk4=1"_s, u"100100001|01000000"_s},
                                           {u"chk9=0"_s, u"100100000|01000000"_s},
                                           {u"chk17=1"_s, u"100100000|01000001"_s}}) {
            editAll(bench.contact(), {tick});
            QVERIFY(bench.frm->procVisible());
            bench.contact().fieldLeft(tick.section(u'=', 0, 0));
            QVERIFY(!bench.frm->procVisible());
            QCOMPARE(bench.cells(flags), QString(u"100000001|01000000;" + stored + u";100000001|01000000"));
        }
        QVERIFY(bench.statements([&] { bench.contact().fieldLeft(u"chk17"_s); }).isEmpty());
    }

    void ratingIsStoredAtOnceButNothingOfANewContact()
    {
        PeopleBench bench;
        bench.typeContact(u"sldrQuality"_s, u"0"_s);
        QCOMPARE(bench.anns(u"ContactLevel"_s), u"5"_s);
        bench.typeContact(u"sldrInfluence"_s, u"9"_s);
        QCOMPARE(bench.anns(u"ContactLevel"_s), u"9"_s);
        QCOMPARE(bench.shownContact(u"lblInfluence"_s), u"Influence: 9"_s);
        bench.contact().newRecord();
        const QStringList sent = bench.statements([&] {
            editAll(bench.contact(), {u"txtDept=1"_s, u"chk1=1"_s, u"sldrQuality=1"_s});
            for (const QString& control : {u"txtDept"_s, u"chk1"_s})
                bench.contact().fieldLeft(control);
        });
        QCOMPARE(sent, QStringList());
    }

    void namesOfAllCompaniesAreReadOnlyWhenWanted()
    {
        PeopleBench bench;
        const QStringList sent = bench.statements([&] { bench.open(u"Acme"_s, u"Ann Lee"_s); });
        QVERIFY(sent.filter(u"order by lastName"_s).isEmpty());
        QCOMPARE(bench.contact().otherContactNames(),
                 (QStringList{u"Cy Abbot"_s, u"Ann Lee"_s, u"Bob Stone"_s}));
        for (const QString& picked : {u"Bolt"_s, QString()}) { // picked, and then given up
            bench.world.prompts.expectCompany(u"All Contacts"_s, picked);
            bench.contact().lblOtherContacts();
            QCOMPARE(bench.world.prompts.offered(), (QStringList{u"Acme"_s, u"Bolt"_s}));
            QCOMPARE(bench.contact().otherContactNames(), QStringList{u"Cy Abbot"_s});
        }
    }

    void assigningIsRefused_data()
    {
        table({"name", "message"}, {{"nobody", " ", "Please select a contact to assign."},
                                    {"herself", "ann lee", "Cannot assign the same person to him/herself."},
                                    {"twice", "Bob Stone", "Bob Stone is already on the contact list."}});
    }
    void assigningIsRefused()
    {
        FETCH(QString, name, message);
        PeopleBench bench(u"'1',''"_s);
        bench.world.session->autosave = true;
        bench.contact().form().edit(u"cmbOtherContact"_s, name);
        bench.expect(message);
        bench.contact().cmdAddOther1();
        QCOMPARE(bench.others(), u"Bob Stone"_s);
        QCOMPARE(bench.rows(u"ContactRecovery"_s), 0);
    }

    void removedContactIsCutOutOfTheList()
    {
        PeopleBench bench(u"'1,12,3,2',''"_s);
        bench.expect(u"Please select a contact to remove."_s);
        bench.contact().cmdRemoveOther1();
        const auto removed = [&](const QString& key) {
            bench.contact().selectOther(bench.contact().tvwOtherContact().find(key));
            bench.contact().cmdRemoveOther1();
            return bench.anns(u"ContactList"_s);
        };
        QCOMPARE(removed(u"A1"_s), u"12,3,2"_s);
        bench.data().delRecord(3, u"Contact"_s);
        QCOMPARE(removed(u"A3"_s), u"12,3,2"_s);
        QCOMPARE(bench.others(), u"Ann Lee"_s);
        QVERIFY(bench.world.errorLog().contains(
            u"Form:  Contact, attempting to remove 'Other' name not found."_s));
    }

    void assignedDocumentMovesThePositionOn()
    {
        PeopleBench bench;
        bench.run(u"Insert into Position(Title) Values('Other')"_s);
        bench.run(u"Insert into Position(Title) Values('Planner')"_s);
        bench.selection().currentPositionKey = 2;
        ContactScreen& contact = bench.contact();
        bench.expect(u"Please select a document to assign."_s);
        contact.cmdAddDocContact1();
        contact.form().edit(u"cmbDocsAvailable"_s, u"Mine"_s);
        contact.cmdAddDocContact1();
        QCOMPARE(bench.cells(u"Select PrepareCover,PrepareResume,PrepareResumeMedium from Position"_s),
                 u"||;|11/22/2026|7"_s);
        bench.expect(u"Mine is already on the document list."_s);
        contact.cmdAddDocContact1();
        bench.save(u"Ann Lee"_s);
        const QString list = u"Select DocumentList from Contact where FirstName='Ann'"_s;
        QCOMPARE(bench.cells(list), u"2"_s);
        const QModelIndex document = contact.tvwDocument().index(0, 0, contact.tvwDocument().index(0, 0));
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            bench.expect(u"Review Document Information?"_s, answer);
            contact.tvwDocumentDblClick(document);
            QCOMPARE(bench.visibleFrames(), answer == Answer::No ? u"frmeContact"_s : u"frmeDocument"_s);
        }
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.expect(u"Please select a document to remove."_s);
        contact.cmdRemoveDocContact1();
        contact.selectDocument(contact.tvwDocument().index(0, 0, contact.tvwDocument().index(0, 0)));
        contact.cmdRemoveDocContact1();
        QCOMPARE(bench.cells(list), QString());
        QVERIFY(bench.documents().isEmpty());
    }

    void contactIsReassigned()
    {
        PeopleBench bench(u"'',''"_s, {});
        bench.expect(u"Please select a contact to reassign to another company."_s);
        bench.contact().cmdReassign1();
        bench.contact().cmbContactsClick(u"Ann Lee"_s);
        // Given up at each of the three questions, and then done.
        for (int questions = 1; questions <= 4; ++questions) {
            QCOMPARE(bench.anns(u"CompanyKey"_s), u"1"_s);
            bench.expect(u"Are you certain you want to reassign this contact to a different company?"_s,
                         questions > 1 ? Answer::Yes : Answer::No);
            if (questions > 1)
                bench.world.prompts.expectCompany(u"Reassign Contact"_s,
                                                  questions > 2 ? u"Bolt"_s : QString());
            if (questions > 2)
                bench.expect(u"You are assigning Ann Lee to Bolt"_s,
                             questions > 3 ? Answer::Yes : Answer::No);
            bench.contact().cmdReassign1();
        }
        QCOMPARE(bench.anns(u"CompanyKey"_s), u"2"_s);
        QCOMPARE(bench.people(), u"Bob Stone,<New>"_s);
        QCOMPARE(bench.current(), Key(0));
    }

    void historyNeedsAContact()
    {
        PeopleBench bench(u"'',''"_s, {});
        bench.expect(u"Please select a contact before viewing History."_s);
        bench.contact().cmdHistory1();
        QCOMPARE(bench.frm->procText(), u"No Contact Selected."_s);
        QVERIFY(bench.frm->procVisible());
        bench.contact().cmbContactsClick(u"Ann Lee"_s);
        bench.navigator.whileOpen = [&] { bench.run(u"Update Contact set LastContact='11/20/2026'"_s); };
        bench.contact().cmdHistory1();
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmHistory"_s});
        QCOMPARE(bench.shownContact(u"txtDTPicker1"_s),
                 QLocale().toString(QDate(2026, 11, 20), QLocale::ShortFormat));
    }

    void historyAsksBeforeItTakesWhatCouldNotBeSaved()
    {
        PeopleBench bench(u"'',''"_s, u"Ann Lee"_s);
        bench.navigator.whileOpen = [&] { bench.run(u"Update Contact set LastContact='11/20/2026'"_s); };
        bench.typeContact(u"txtContactTitle"_s, u"typed"_s);
        bench.world.prompts.acceptAll(Answer::No);
        bench.failingAt(u"Update Contact set Title"_s, [&] { bench.contact().cmdHistory1(); });
        QCOMPARE(bench.shownContact(u"txtContactTitle"_s), u"typed"_s);
        bench.save(u"Ann Lee"_s); // what the history has written outlives the save of the older form
        QCOMPARE(bench.cells(u"Select Title,LastContact from Contact where FirstName='Ann'"_s),
                 u"typed|11/20/2026"_s);
    }
};

JOBWRIGHT_TEST(TestContactScreen)
#include "tst_contactscreen.moc"
