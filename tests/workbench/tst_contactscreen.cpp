// The Contact screen without its save: selection, fields, flags, ratings, lists, reassigning.
#include "support/table.h"
#include "workbench/contactbench.h"

#include <QTest>

namespace {

/// Ann Lee at Acme, chosen or not.
class AnnBench : public ContactBench
{
public:
    explicit AnnBench(bool chosen = true)
    {
        addPerson(u"Ann"_s, u"Lee"_s, addCompany(u"Acme"_s));
        open(u"Acme"_s, chosen ? u"Ann Lee"_s : QString());
    }
};

} // namespace

class TestContactScreen : public QObject
{
    Q_OBJECT

private slots:
    void chosenContactIsShown()
    {
        ContactBench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        bench.run(u"Insert into Document(Document) Values('Letter')"_s);
        const Key bob = bench.addPerson(u"Bob"_s, u"Stone"_s, acme);
        const Key ann =
            bench.addPerson(u"Ann"_s, u"Lee"_s, acme, u"'"_s + QString::number(bob) + u",,99','1,7'");
        bench.open(u"Acme"_s);
        QCOMPARE(bench.contact().form().items(u"cmbContacts"_s),
                 (QStringList{u"Bob Stone"_s, u"Ann Lee"_s, u"<New>"_s}));
        QCOMPARE(bench.contact().form().items(u"cmbDocsAvailable"_s), QStringList{u"Letter"_s});
        bench.contact().cmbContactsClick(u"Ann Lee"_s);
        QCOMPARE(bench.current(), ann);
        QCOMPARE(bench.shownContact(u"txtFirst"_s) + bench.shownContact(u"txtMiddle"_s) +
                     bench.shownContact(u"txtLast"_s),
                 u"AnnMLee"_s);
        QCOMPARE(bench.shownContact(u"lblQuality"_s), u"Quality: 4"_s);
        QCOMPARE(bench.shownContact(u"lblInfluence"_s), u"Influence: 5"_s);
        QCOMPARE(bench.shownContact(u"chk1"_s) + bench.shownContact(u"chk2"_s) +
                     bench.shownContact(u"chk9"_s),
                 u"101"_s);
        QCOMPARE(bench.shownContact(u"chk10"_s) + bench.shownContact(u"chk11"_s), u"01"_s);
        QCOMPARE(bench.others(), QStringList{u"Bob Stone"_s});
        QCOMPARE(bench.documents(), QStringList{u"Letter"_s});
        QVERIFY(bench.shownContact(u"txtDTPicker1"_s).contains(u"2026"_s));
        bench.contact().cmbContactsClick(u"<New>"_s);
        QCOMPARE(bench.current(), Key(0));
        QCOMPARE(bench.shownContact(u"txtFirst"_s), QString());
        QCOMPARE(bench.shownContact(u"chk1"_s), QString());
        QCOMPARE(bench.shownContact(u"sldrQuality"_s), u"0"_s);
        QCOMPARE(bench.shownContact(u"lblQuality"_s), u"Quality:"_s);
        QVERIFY(bench.others().isEmpty() && bench.documents().isEmpty());
    }

    void oddRecordIsShownAsFarAsItGoes_data()
    {
        // shown: last contact, quality, influence, chk1, chk2, chk3
        columns<QString, QString>("set", "shown");
        QTest::newRow("no date at all") << u"LastContact=''"_s << u"No Contact 4 5 1 0 0"_s;
        QTest::newRow("words for flags") << u"LastContact='',HiringMgr='Yes'"_s << u"No Contact 4 5 Y e s"_s;
        QTest::newRow("one-digit level") << u"LastContact='',ContactLevel=7"_s << u"No Contact 0 7 1 0 0"_s;
        QTest::newRow("level out of range")
            << u"LastContact='',ContactLevel=450"_s << u"No Contact 9 9 1 0 0"_s;
    }
    void oddRecordIsShownAsFarAsItGoes()
    {
        FETCH(QString, set, shown);
        ContactBench bench;
        bench.addPerson(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.run(u"Update Contact set "_s + set);
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        QStringList parts;
        for (const QString& control :
             {u"txtDTPicker1"_s, u"sldrQuality"_s, u"sldrInfluence"_s, u"chk1"_s, u"chk2"_s, u"chk3"_s})
            parts.append(bench.shownContact(control));
        QCOMPARE(parts.join(u' '), shown);
    }

    void nameIsFoundHoweverItIsStored_data()
    {
        columns<QString, QString, QString>("first", "last", "listed");
        QTest::newRow("two words first") << u"Mary Ann"_s << u"Young"_s << u"Mary Ann Young"_s;
        QTest::newRow("one name only") << u"Cher"_s << QString() << u"Cher "_s;
    }
    void nameIsFoundHoweverItIsStored()
    {
        FETCH(QString, first, last, listed);
        ContactBench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        bench.addPerson(u"Ann"_s, u"Lee"_s, acme);
        const Key key = bench.addPerson(first, last, acme);
        bench.open(u"Acme"_s, listed);
        QCOMPARE(bench.current(), key);
    }

    void leftFieldIsStored_data()
    {
        // statement: without its end
        columns<QString, QString, QString>("control", "typed", "statement");
        QTest::newRow("first") << u"txtFirst"_s << u"Anna"_s << u"Update Contact set FirstName='Anna'"_s;
        QTest::newRow("last") << u"txtLast"_s << u"O'Hara"_s << u"Update Contact set LastName='O`Hara'"_s;
        QTest::newRow("notes") << u"txtContactNotes"_s << u"a\nb"_s << u"Update Contact set Notes='a\r\nb'"_s;
        QTest::newRow("role") << u"chk4"_s << u"1"_s << u"Update Contact set HiringMgr='100100001'"_s;
        QTest::newRow("role off") << u"chk9"_s << u"0"_s << u"Update Contact set HiringMgr='100000000'"_s;
        QTest::newRow("medium") << u"chk17"_s << u"1"_s << u"Update Contact set BestMedium='01000001'"_s;
    }
    void leftFieldIsStored()
    {
        FETCH(QString, control, typed, statement);
        ContactBench bench;
        const Key key = bench.addPerson(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.typeContact(control, typed);
        QCOMPARE(bench.frm->procText(), u"Update Contact"_s);
        QVERIFY(bench.frm->procVisible());
        QStringList sent = bench.statements([&] { bench.contact().fieldLeft(control); }).filter(u"Update"_s);
        QCOMPARE(sent, QStringList{QString(statement + u" where contactkey=" + QString::number(key))});
        QVERIFY(!bench.frm->procVisible());
        sent = bench.statements([&] { bench.contact().fieldLeft(control); });
        QVERIFY2(sent.isEmpty(), "an unchanged field was written");
        // Whatever the name is now, the next field still goes to this person, and the lists know the name.
        bench.typeContact(u"txtReportsTo"_s, u"Boss"_s);
        bench.contact().fieldLeft(u"txtReportsTo"_s);
        QCOMPARE(bench.cells(u"Select ReportsTo from Contact"_s), u"Boss"_s);
        const QString name = bench.cells(u"Select FirstName,LastName from Contact"_s).replace(u'|', u' ');
        QCOMPARE(bench.shownContact(u"cmbContacts"_s), name);
        QCOMPARE(bench.contact().form().items(u"cmbContacts"_s).first(), name);
    }

    void ratingIsStoredAtOnceButNothingOfANewContact()
    {
        AnnBench bench;
        bench.typeContact(u"sldrQuality"_s, u"0"_s);
        QCOMPARE(bench.cells(u"Select ContactLevel from Contact"_s), u"5"_s);
        bench.typeContact(u"sldrInfluence"_s, u"9"_s);
        QCOMPARE(bench.cells(u"Select ContactLevel from Contact"_s), u"9"_s);
        QCOMPARE(bench.shownContact(u"lblInfluence"_s), u"Influence: 9"_s);
        bench.contact().newRecord();
        const QStringList sent = bench.statements([&] {
            for (const QString& control : {u"txtDept"_s, u"chk1"_s, u"sldrQuality"_s}) {
                bench.typeContact(control, u"1"_s);
                bench.contact().fieldLeft(control);
            }
        });
        QVERIFY2(sent.isEmpty(), qPrintable(sent.join(u'\n')));
    }

    // --- Other contacts and documents ---------------------------------------------------------------------

    void namesOfAllCompaniesAreReadOnlyWhenWanted()
    {
        ContactBench bench;
        bench.addPerson(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.addPerson(u"Cy"_s, u"Abbot"_s, bench.addCompany(u"Bolt"_s));
        const QStringList sent = bench.statements([&] { bench.open(u"Acme"_s, u"Ann Lee"_s); });
        QVERIFY(sent.filter(u"order by lastName"_s).isEmpty());
        QCOMPARE(bench.contact().otherContactNames(), (QStringList{u"Cy Abbot"_s, u"Ann Lee"_s}));
        bench.world.prompts.expectCompany(u"All Contacts"_s, u"Bolt"_s);
        bench.contact().lblOtherContacts();
        QCOMPARE(bench.world.prompts.offered(), (QStringList{u"Acme"_s, u"Bolt"_s}));
        QCOMPARE(bench.contact().otherContactNames(), QStringList{u"Cy Abbot"_s});
        bench.world.prompts.expectCompany(u"All Contacts"_s, QString());
        bench.contact().lblOtherContacts();
        QCOMPARE(bench.contact().otherContactNames(), QStringList{u"Cy Abbot"_s});
    }

    void assigningIsRefused_data()
    {
        columns<QString, QString>("name", "message");
        QTest::newRow("nobody") << u" "_s << u"Please select a contact to assign."_s;
        QTest::newRow("the same person")
            << u"ann lee"_s << u"Cannot assign the same person to him/herself."_s;
        QTest::newRow("twice") << u"Bob Stone"_s << u"Bob Stone is already on the contact list."_s;
    }
    void assigningIsRefused()
    {
        FETCH(QString, name, message);
        ContactBench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        bench.addPerson(u"Bob"_s, u"Stone"_s, acme);
        bench.addPerson(u"Ann"_s, u"Lee"_s, acme, u"'1',''"_s);
        bench.world.session->autosave = true;
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.contact().form().edit(u"cmbOtherContact"_s, name);
        bench.world.prompts.expect(message);
        bench.contact().cmdAddOther1();
        QCOMPARE(bench.others(), QStringList{u"Bob Stone"_s});
        QCOMPARE(bench.rows(u"ContactRecovery"_s), 0);
    }

    void removedContactIsCutOutOfTheList()
    {
        ContactBench bench;
        const Key acme = bench.addCompany(u"Acme"_s);
        for (const QString& first : {u"Bob"_s, u"Cy"_s, u"Di"_s})
            bench.addPerson(first, u"Stone"_s, acme);
        bench.addPerson(u"Ann"_s, u"Lee"_s, acme, u"'2,12,3,1',''"_s);
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.world.prompts.expect(u"Please select a contact to remove."_s);
        bench.contact().cmdRemoveOther1();
        TreeModel& tree = bench.contact().tvwOtherContact();
        bench.contact().selectOther(tree.find(u"A2"_s));
        bench.contact().cmdRemoveOther1();
        QCOMPARE(bench.cells(u"Select ContactList from Contact where FirstName='Ann'"_s), u"12,3,1"_s);
        bench.contact().selectOther(tree.find(u"A1"_s));
        bench.contact().cmdRemoveOther1();
        QCOMPARE(bench.cells(u"Select ContactList from Contact where FirstName='Ann'"_s), u"12,3"_s);
        QCOMPARE(bench.others(), QStringList{u"Di Stone"_s});
        bench.data().delRecord(3, u"Contact"_s);
        bench.contact().selectOther(tree.find(u"A3"_s));
        bench.contact().cmdRemoveOther1();
        QVERIFY(bench.others().isEmpty());
        QVERIFY(bench.world.errorLog().contains(
            u"Form:  Contact, attempting to remove 'Other' name not found."_s));
    }

    void assignedDocumentMovesThePositionOn()
    {
        ContactBench bench;
        bench.addPerson(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.run(u"Insert into Document(Document,Type) Values('Mine','RESUME')"_s);
        bench.run(u"Insert into Position(Title) Values('Other')"_s);
        bench.run(u"Insert into Position(Title) Values('Planner')"_s);
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        bench.frm->selection().currentPositionKey = 2;
        bench.world.prompts.expect(u"Please select a document to assign."_s);
        bench.contact().cmdAddDocContact1();
        bench.contact().form().edit(u"cmbDocsAvailable"_s, u"Mine"_s);
        bench.contact().cmdAddDocContact1();
        QCOMPARE(bench.cells(u"Select PrepareCover,PrepareResume,PrepareResumeMedium from Position"_s),
                 u"||;|11/22/2026|7"_s);
        bench.world.prompts.expect(u"Mine is already on the document list."_s);
        bench.contact().cmdAddDocContact1();
        bench.save(u"Ann Lee"_s);
        QCOMPARE(bench.cells(u"Select DocumentList from Contact"_s), u"1"_s);
        TreeModel& tree = bench.contact().tvwDocument();
        bench.world.prompts.expect(u"Please select a document to remove."_s);
        bench.contact().cmdRemoveDocContact1();
        bench.contact().selectDocument(tree.index(0, 0, tree.index(0, 0)));
        bench.contact().cmdRemoveDocContact1();
        QCOMPARE(bench.cells(u"Select DocumentList from Contact"_s), QString());
        QVERIFY(bench.documents().isEmpty());
    }

    void documentIsReviewedWhenWanted()
    {
        ContactBench bench;
        bench.run(u"Insert into Document(Document) Values('Letter')"_s);
        bench.addPerson(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s), u"'','1'"_s);
        bench.open(u"Acme"_s, u"Ann Lee"_s);
        TreeModel& tree = bench.contact().tvwDocument();
        bench.world.prompts.expect(u"Review Document Information?"_s, Answer::No);
        bench.contact().tvwDocumentDblClick(tree.index(0, 0, tree.index(0, 0)));
        QCOMPARE(bench.visibleFrames(), u"frmeContact"_s);
        bench.world.prompts.expect(u"Review Document Information?"_s, Answer::Yes);
        bench.contact().tvwDocumentDblClick(tree.index(0, 0, tree.index(0, 0)));
        QCOMPARE(bench.visibleFrames(), u"frmeDocument"_s);
    }

    // --- Company and histories ----------------------------------------------------------------------------

    void contactIsReassigned()
    {
        ContactBench bench;
        bench.addPerson(u"Ann"_s, u"Lee"_s, bench.addCompany(u"Acme"_s));
        bench.addCompany(u"Bolt"_s);
        bench.open(u"Acme"_s);
        bench.world.prompts.expect(u"Please select a contact to reassign to another company."_s);
        bench.contact().cmdReassign1();
        bench.contact().cmbContactsClick(u"Ann Lee"_s);
        const QString sure = u"Are you certain you want to reassign this contact to a different company?"_s;
        bench.world.prompts.expect(sure, Answer::No);
        bench.contact().cmdReassign1();
        bench.world.prompts.expect(sure, Answer::Yes);
        bench.world.prompts.expectCompany(u"Reassign Contact"_s, QString());
        bench.contact().cmdReassign1();
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            QCOMPARE(bench.cells(u"Select CompanyKey from Contact"_s), u"1"_s);
            bench.world.prompts.expect(sure, Answer::Yes);
            bench.world.prompts.expectCompany(u"Reassign Contact"_s, u"Bolt"_s);
            bench.world.prompts.expect(u"You are assigning Ann Lee to Bolt"_s, answer);
            bench.contact().cmdReassign1();
        }
        QCOMPARE(bench.cells(u"Select CompanyKey from Contact"_s), u"2"_s);
        QCOMPARE(bench.contact().form().items(u"cmbContacts"_s), QStringList{u"<New>"_s});
        QCOMPARE(bench.current(), Key(0));
    }

    void historyNeedsAContact()
    {
        AnnBench bench(false);
        bench.world.prompts.expect(u"Please select a contact before viewing History."_s);
        bench.contact().cmdHistory1();
        QCOMPARE(bench.frm->procText(), u"No Contact Selected."_s);
        QVERIFY(bench.frm->procVisible());
        bench.contact().cmbContactsClick(u"Ann Lee"_s);
        bench.navigator.whileOpen = [&] { bench.run(u"Update Contact set LastContact='11/20/2026'"_s); };
        bench.contact().cmdHistory1();
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmHistory"_s});
        QVERIFY(bench.shownContact(u"txtDTPicker1"_s).contains(u"20"_s));
    }
};

QTEST_GUILESS_MAIN(TestContactScreen)
#include "tst_contactscreen.moc"
