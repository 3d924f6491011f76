// What the saves of whole records leave behind when a store call fails: the state before, the state after, or
// one that the log names and that another try corrects.
#include "calendar/calendarbench.h"
#include "history/historybench.h"
#include "support/runtest.h"
#include "workbench/contactbench.h"
#include "workbench/documentbench.h"
#include "workbench/faults.h"
#include "workbench/positionbench.h"

namespace {

const QString huge(300'000, u'n');

/// Each key that a statement selects, as the name that it stands for; a key without a row is "?".
QString named(ScreenBench& bench, const QString& select, const std::function<QString(Key)>& nameOf)
{
    QStringList names;
    for (const QString& row : bench.cells(select).split(u';')) {
        for (const QString& key : row.split(u',')) {
            const QString name =
                key.isEmpty() ? QString() : nameOf(static_cast<Key>(key.toShort())).trimmed();
            names.append(key.isEmpty() || !name.isEmpty() ? name : u"?"_s);
        }
    }
    return names.join(u'+');
}

/// Acme, whose records all point to it, moves; a second company's address is the newest.
Save<Bench> companySave()
{
    const auto furnish = [](Bench& bench) {
        bench.world.prompts.acceptAll(Answer::Yes);
        bench.addCompany(u"Acme"_s, u"3/5/2024"_s);
        bench.addCompany(u"Bolt"_s);
        for (const QString& row : {u"Position(Title"_s, u"Contact(FirstName"_s, u"CProfile(QAns"_s,
                                   u"JProfile(QAns"_s, u"Event(Event"_s})
            bench.run(u"Insert into "_s + row + u",CompanyKey) Values('x',1)");
        bench.frm->load();
    };
    const auto change = [](Bench& bench) {
        bench.type(u"txtCity"_s, u"Newark"_s);
        bench.type(u"txtIndustry"_s, u"Ships"_s);
    };
    const auto state = [](Bench& bench) -> QString {
        const auto company = [&](Key key) { return bench.data().getCompanyNameByKey(key); };
        const auto city = [&](Key key) { return bench.data().getAddress(key).text(u"City"); };
        QString line = bench.cells(u"Select Name,Industry,EntryDate from Company order by Name"_s) + u' ' +
                       named(bench, u"Select AddressKey from Company order by Name"_s, city);
        for (const QString& table : {u"Position"_s, u"Contact"_s, u"CProfile"_s, u"JProfile"_s, u"Event"_s})
            line += u' ' + named(bench, u"Select CompanyKey from "_s + table, company);
        return line;
    };
    return {furnish, [](Bench& bench) { bench.choose(u"Acme"_s); }, change,
            [](Bench& bench) { bench.company().cmdUpdate1(); }, state};
}

/// Engineer with steps, people, an event and a questionnaire; the newest row is another company's.
Save<PositionBench> positionSave()
{
    const auto furnish = [](PositionBench& bench) {
        bench.world.prompts.acceptAll(Answer::Yes);
        bench.addPosition(u"Planner"_s, 2);
    };
    const auto state = [](PositionBench& bench) -> QString {
        const auto title = [&](Key key) { return bench.data().getPositionNameByKey(key); };
        return bench.cells(
                   u"Select Title,EntryDate,CompanyResearch,CompanyResearchMedium,PrepareResume,"
                   "PrepareResumeMedium,OfferStatus,ContactList,Notes from Position order by Title"_s) +
               u' ' + named(bench, u"Select PositionKey from Event"_s, title) + u' ' +
               named(bench, u"Select PositionKey from JProfile"_s, title);
    };
    return {furnish, [](PositionBench& bench) { bench.open(u"Acme"_s, u"Engineer"_s); },
            [](PositionBench& bench) { bench.edit(u"txtPosNotes"_s, u"new notes"_s); },
            [](PositionBench& bench) { bench.position().cmdUpdatePos1(); }, state};
}

/// Ann at Acme, to whom a position, a colleague, an event and a history point, and an address of nobody.
Save<ContactBench> contactSave()
{
    const auto furnish = [](ContactBench& bench) {
        bench.world.prompts.acceptAll(Answer::Yes);
        const Key acme = bench.addCompany(u"Acme"_s);
        bench.addPerson(u"Ann"_s, u"Lee"_s, acme, u"'2','1'"_s);
        bench.addPerson(u"Bob"_s, u"Stone"_s, acme, u"'1',''"_s);
        bench.run(u"Insert into Document(Document) Values('Letter')"_s);
        bench.run(u"Insert into Address(City) Values('Nowhere')"_s);
        bench.run(u"Insert into Position(Title,ContactList) Values('Planner','1')"_s);
        bench.run(u"Insert into Event(Event,ContactKey) Values('Call',1)"_s);
        bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('1-1',1,1)"_s);
    };
    const auto state = [](ContactBench& bench) -> QString {
        const auto person = [&](Key key) { return bench.data().getContactByKey(key); };
        const auto city = [&](Key key) { return bench.data().getAddress(key).text(u"City"); };
        const auto document = [&](Key key) { return bench.data().getDocumentByKey(key); };
        QString line =
            bench.cells(u"Select FirstName,Department,LastContact from Contact order by FirstName"_s);
        for (const QString& select :
             {u"Select ContactList from Contact order by FirstName"_s, u"Select ContactList from Position"_s,
              u"Select ContactKey from Event"_s, u"Select ContactKey from History"_s})
            line += u' ' + named(bench, select, person);
        return line + u' ' +
               named(bench, u"Select DocumentList from Contact order by FirstName"_s, document) + u' ' +
               named(bench, u"Select AddressKey from Contact order by FirstName"_s, city);
    };
    return {furnish, [](ContactBench& bench) { bench.open(u"Acme"_s, u"Ann Lee"_s); },
            [](ContactBench& bench) { bench.typeContact(u"txtDept"_s, u"Parts"_s); },
            [](ContactBench& bench) { bench.contact().cmdUpdateContact1(); }, state};
}

/// Two documents, each held by one person; the first gets a new version, or a third one is added.
Save<DocumentBench> documentSave(bool adds)
{
    const auto furnish = [](DocumentBench& bench) {
        bench.world.prompts.acceptAll(Answer::Yes);
        for (const auto& name : {u"cv.pdf"_s, u"note.txt"_s})
            bench.addDocument(name);
        bench.addHolder(u"Ann"_s, u"1"_s);
        bench.addHolder(u"Bob"_s, u"2"_s);
    };
    const auto change = [adds](DocumentBench& bench) {
        if (adds)
            bench.drop(u"new.pdf"_s);
        bench.edit(u"txtVersion"_s, u"2.0"_s);
    };
    const auto save = [adds](DocumentBench& bench) {
        if (!adds || !bench.screen().cmdAddDoc1())
            bench.screen().cmdUpdateDoc1();
    };
    const auto state = [](DocumentBench& bench) -> QString {
        return bench.cells(u"Select Document,Version from Document order by Document"_s) + u' ' +
               bench.holdings();
    };
    return {furnish, [](DocumentBench& bench) { bench.openScreen(u"cv.pdf"_s); }, change, save, state};
}

/// An interview with Bolt's Ana Ruiz for the position Welder, or for no position at Acme, whose Ana Ruiz is a
/// namesake: then one is made up.
Save<CalendarBench> eventSave(bool atBolt)
{
    const auto furnish = [atBolt](CalendarBench& bench) {
        bench.world.prompts.acceptAll(Answer::Yes);
        bench.addEvent(u"11/24/2026"_s, u"10:30 AM"_s);
        bench.run(u"Insert into Position(Title,CompanyKey) Values('Welder',2)"_s);
        bench.run(u"Update Event set "_s + (atBolt ? u"CompanyKey=2, ContactKey=3, PositionKey=2"_s
                                                   : u"CompanyKey=1, ContactKey=1"_s));
    };
    const auto open = [](CalendarBench& bench) {
        bench.calendar.load();
        bench.calendar.openEntry(u"EV1"_s);
    };
    const auto save = [](CalendarBench& bench) {
        if (!bench.calendar.isFrameOpen())
            bench.calendar.openEvent(bench.data().getLastEventAddedKey());
        bench.calendar.cmdAdd1();
    };
    const auto state = [](CalendarBench& bench) -> QString {
        const auto title = [&](Key key) { return bench.data().getPositionNameByKey(key, key == 0); };
        return bench.stored(u"Description,ContactKey,CompanyKey"_s) + u' ' +
               named(bench, u"Select PositionKey from Event"_s, title) + u' ' +
               bench.cells(u"Select Title,ContactList from Position order by Title"_s);
    };
    return {furnish, open,
            [](CalendarBench& bench) {
                if (bench.calendar.isFrameOpen())
                    bench.type(u"txtEvDescription"_s, u"new"_s);
            },
            save, state};
}

/// Three stored histories, a position that follows them, and an edit of each kind on the open screen.
Save<HistoryBench> historyClosing()
{
    const auto furnish = [](HistoryBench& bench) {
        bench.world.prompts.acceptAll(Answer::No);
        bench.fill(3);
        bench.addPosition(u"Planner"_s, u"1"_s);
    };
    const auto change = [](HistoryBench& bench) {
        bench.put(1, u"2024-01-02"_s, u"Talk 1"_s, u"Follow-up"_s);
        bench.put(4, u"2026-11-20"_s, u"New one"_s, {}, u"1"_s);
    };
    const auto state = [](HistoryBench& bench) -> QString {
        return QStringList{bench.stored(), bench.lastContact(), bench.steps(u"Planner"_s)}.join(u" / ");
    };
    return {furnish, [](HistoryBench& bench) { bench.open(); }, change,
            [](HistoryBench& bench) { (void)bench.history.unload(); }, state};
}

} // namespace

class TestRecordFaults : public QObject
{
    Q_OBJECT

private slots:
    void anyStepOfASave()
    {
        companySave().sweep(15);
        positionSave().sweep(14);
        contactSave().sweep(20);
        documentSave(false).sweep(14);
        documentSave(true).sweep(14);
        eventSave(true).sweep(8);
        eventSave(false).sweep(8);
        historyClosing().sweep(12);
    }

    void whatWasNotReadIsNotWrittenOver()
    {
        companySave().sweepReading();
        positionSave().sweepReading();
        contactSave().sweepReading();
        documentSave(false).sweepReading();
        eventSave(true).sweepReading();
    }

    void fullDisk()
    {
        companySave().runOnFullDisk([](Bench& bench) { bench.type(u"txtCompanyNotes"_s, huge); },
                                    u"Select Notes from Company where Name='Acme'"_s);
        positionSave().runOnFullDisk([](PositionBench& bench) { bench.edit(u"txtPosNotes"_s, huge); },
                                     u"Select Notes from Position where Title='Engineer'"_s);
        contactSave().runOnFullDisk(
            [](ContactBench& bench) { bench.typeContact(u"txtContactNotes"_s, huge); },
            u"Select Notes from Contact where FirstName='Ann'"_s);
        documentSave(false).runOnFullDisk([](DocumentBench& bench) { bench.edit(u"txtDocNotes"_s, huge); },
                                          u"Select Notes from Document where Document='cv.pdf'"_s);
        eventSave(true).runOnFullDisk([](CalendarBench& bench) { bench.type(u"txtEvDescription"_s, huge); },
                                      u"Select Description from Event"_s);
    }

    void saveWithoutAKeyLeftChangesNothing()
    {
        Bench bench;
        const Save<Bench> save = companySave();
        save.furnish(bench);
        bench.runRaw("UPDATE sqlite_sequence SET seq=32767 WHERE name='Company'");
        save.run(bench);
        QVERIFY(bench.world.prompts.asked().last().contains(u"given out all its 32767 keys"));
        QCOMPARE(save.state(bench), save.before());
        bench.runRaw("UPDATE sqlite_sequence SET seq=32766 WHERE name='Company'"); // one key is enough
        save.save(bench);
        QCOMPARE(save.state(bench), save.after());
    }

    void removalOfAContactSparesTheOthers()
    {
        QString failed = u"-"_s;
        for (int i = 0; !failed.isEmpty(); ++i) {
            ContactBench bench;
            const Save<ContactBench> save = contactSave();
            save.furnish(bench);
            bench.run(u"Insert into Event(Event,ContactKey) Values('Rest',0)"_s);
            save.open(bench);
            failed = bench.failing(i, [&] { bench.contact().cmdRemoveContact1(); });
            QVERIFY(bench.cells(u"Select ContactKey from Event"_s).endsWith(u'0'));
            QCOMPARE(bench.cells(u"Select FirstName from Contact where FirstName='Bob'"_s), u"Bob"_s);
            QVERIFY(!failed.isEmpty() || bench.references() == u"  0 ");
        }
    }
};

JOBWRIGHT_TEST(TestRecordFaults)
#include "tst_recordfaults.moc"
