#include "store/campaignfile.h"
#include "store/engine/enginecall.h"
#include "store/engine/storeerror.h"
#include "store/gateway/undostack.h"
#include "support/campaign.h"
#include "support/errorlog.h"
#include "support/gatewaycalls.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

const QString insertDay = u"INSERT INTO Status (StatusDescription,StatusValue) VALUES ('Day','%1')"_s;

/// What another program finds in the file, past the gateway's own connection.
QString onDisk(World& world)
{
    const auto connection = engine::open(world.session->databasePath(), SQLITE_OPEN_READONLY);
    return engine::value(connection.get(),
                         "SELECT group_concat(StatusValue) FROM Status WHERE StatusDescription='Day'");
}

/// Leaves the store no room beyond what it has now.
void fillTheDisk(World& world)
{
    sqlite3* const handle = world.data().database().handle();
    const QString pages = engine::value(handle, "PRAGMA page_count");
    engine::execute(handle, "PRAGMA max_page_count=" + pages.toLatin1());
}

/// Names of the tables of each signal, a blank between two signals.
class Told
{
public:
    explicit Told(World& world)
    {
        QObject::connect(world.session.get(), &Session::changed, world.session.get(),
                         [this](const QSet<QString>& tables) {
                             QStringList names(tables.cbegin(), tables.cend());
                             names.sort();
                             m_signals.append(names.join(u'+'));
                         });
    }
    QString take() { return std::exchange(m_signals, {}).join(u' '); }

private:
    QStringList m_signals;
};

QString content(World& world)
{
    return QString::fromLatin1(contentHash(world.data().database()).toHex());
}

QString hugeNotes()
{
    return u"INSERT INTO Contact (Notes) VALUES ('"_s + QString(200'000, u'x') + u"')";
}

} // namespace

/// Several statements as one change of the store, and a gateway that has no store.
class TestGatewayAction : public QObject
{
    Q_OBJECT

private slots:
    void goOnBehindAFailingStatement()
    {
        World world;
        world.prompts.expect(u"DataJW-ExecQuery\r\nQuery: INSERT INTO Nowhere"_s);
        world.prompts.expect(u"DataJW-ExecQuery\r\nQuery: INSERT INTO Status (StatusKey)"_s);
        Action action(world.data());
        send(world, {insertDay.arg(1), u"INSERT INTO Status (StatusKey) VALUES (900)"_s});
        QVERIFY(!world.data().execQuery(u"INSERT INTO Nowhere (a) VALUES (1)"_s));
        // Refused by the engine itself, the key being there already.
        QVERIFY(!world.data().execQuery(u"INSERT INTO Status (StatusKey) VALUES (900)"_s));
        send(world, {insertDay.arg(2)});
        QVERIFY(action.commit());
        QCOMPARE(onDisk(world), u"1,2"_s);
    }

    void writeWithTheOutermostOne()
    {
        World world;
        Action outer(world.data());
        {
            Action inner(world.data());
            send(world, {insertDay.arg(1)});
            QVERIFY(inner.commit());
            QCOMPARE(onDisk(world), QString());
            QVERIFY(!inner.commit());
        }
        send(world, {insertDay.arg(2)});
        QCOMPARE(onDisk(world), QString());
        QVERIFY(outer.commit());
        QCOMPARE(onDisk(world), u"1,2"_s);
        // A power cut behind the end of an action must not take it back.
        QCOMPARE(engine::value(world.data().database().handle(), "PRAGMA synchronous"), u"2"_s);
    }

    void tellOnceWhichTablesChanged()
    {
        World world;
        loadCampaign(world);
        Told told(world);
        send(world, {u"delete * from CONTACT where ContactKey=1"_s, u"Delete * from Contact"_s});
        QCOMPARE(told.take(), u"Contact Contact"_s);
        send(world, {u"Delete * from Contact"_s, u"Update Event set Event='' where EventKey=99"_s});
        world.data().getCompanyNames();
        QCOMPARE(told.take(), QString());
        world.data().updateContactSubset(7, 1);
        QCOMPARE(told.take(), u"Event+History"_s);
        {
            const Action outer(world.data());
            const Action inner(world.data());
            send(world, {insertDay.arg(1), insertDay.arg(2), u"Delete * from Document"_s});
            QCOMPARE(told.take(), QString());
        }
        QCOMPARE(told.take(), u"Document+Status"_s);
        // A receiver may write; what it does is told by itself.
        QObject::connect(world.session.get(), &Session::changed, this, [&](const QSet<QString>& tables) {
            if (tables.contains(u"Position"_s))
                world.data().delDox();
        });
        send(world, {u"INSERT INTO Document(Document) VALUES('CV')"_s, u"Delete * from Position"_s});
        QCOMPARE(told.take(), u"Document Position Document"_s);
    }

    void takeBackAndDoAgain()
    {
        World world;
        loadCampaign(world);
        UndoStack& stack = world.session->undoStack();
        stack.clear();
        const auto buyers = [&] { return world.cells(u"Select Title from Position where Notes='n'"_s); };
        send(world, {u"INSERT INTO Position(Title,Notes) VALUES('Buyer','n')"_s});
        QCOMPARE(stack.undoText(), u"new position Buyer"_s);
        world.data().writeStatus(u"MinLog"_s, u"7"_s, true); // a setting
        send(world, {u"Update Position set Title='Baker' where Notes='n'"_s});
        QCOMPARE(stack.undoText(), u"change of position Baker"_s);
        {
            const Action outer(world.data());
            const Action inner(world.data(), u"dismissal"_s);
            QVERIFY(!stack.undo());
            send(world, {u"Delete * from Position where Notes='n'"_s, u"Delete * from Event"_s});
        }
        QCOMPARE(stack.undoText(), u"dismissal"_s);
        Told told(world);
        QVERIFY(stack.undo() && stack.canRedo());
        QCOMPARE(told.take(), u"Event+Position"_s);
        QCOMPARE(buyers(), u"Baker"_s);
        QCOMPARE(stack.redoText(), u"dismissal"_s);
        QVERIFY(stack.undo());
        QCOMPARE(buyers(), u"Buyer"_s);
        QVERIFY(stack.redo());
        QCOMPARE(buyers(), u"Baker"_s);
        // Another program's change, past the gateway.
        engine::execute(world.data().database().handle(), "UPDATE Position SET Title='Cook' WHERE Notes='n'");
        world.prompts.expect(u"\"change of position Baker\" cannot be taken back"_s);
        QVERIFY(!stack.undo());
        QCOMPARE(buyers(), u"Cook"_s);
        QVERIFY(!stack.canUndo() || stack.undoText() == u"new position Buyer");
        {
            const Action restore(world.data(), Action::NotUndoable());
            send(world, {u"Delete * from Document"_s});
        }
        QVERIFY(!stack.canUndo() && !stack.canRedo());
    }

    void changeAllOrNothing_data()
    {
        columns<GatewayCall>("call");
        const auto row = [](const char* name, auto operation) {
            QTest::newRow(name) << GatewayCall([operation](DataJW& data) {
                operation(data);
                return QString();
            });
        };
        row("writeStatus", [](DataJW& data) { data.writeStatus(u"MinLog"_s, u"7"_s, true); });
        row("delContactsByCompany", [](DataJW& data) { data.delContactsByCompany(1); });
        row("updateCompanySubset", [](DataJW& data) { data.updateCompanySubset(u"Borealis"_s, 1); });
        row("updateContactSubset", [](DataJW& data) { data.updateContactSubset(9, 1); });
        row("updateContactList", [](DataJW& data) { data.updateContactList(9, 3, u"Contact"_s, 0); });
        row("updateContactLists", [](DataJW& data) { data.updateContactLists({{9, 5}}, u"Contact"_s); });
        row("updateDocList", [](DataJW& data) { data.updateDocList(9, 1, u"Contact"_s, 0); });
    }
    void changeAllOrNothing()
    {
        QFETCH(GatewayCall, call);
        for (const bool inside : {false, true}) {
            QString whole;
            for (int failing = 1; whole.isEmpty(); ++failing) {
                World world;
                loadCampaign(world);
                send(world, {u"Update Contact set ContactList='3,5' where ContactKey<3"_s});
                const QString before = content(world);
                world.prompts.acceptAll(Answer::Ok);
                Told told(world);
                int at = 0;
                world.data().database().setInterceptor([&](QStringView) {
                    if (++at == failing)
                        throw StoreError(u"made to fail"_s, 999, u"test"_s);
                });
                {
                    std::optional<Action> action;
                    if (inside)
                        action.emplace(world.data());
                    call(world.data());
                }
                world.data().database().setInterceptor({});
                if (at < failing) {
                    whole = content(world);
                    QVERIFY(failing > 2 && whole != before);
                } else {
                    QCOMPARE(content(world), before);
                    QCOMPARE(told.take(), QString());
                }
            }
        }
    }

    void knowInsideThatAllIsLost()
    {
        World world;
        world.prompts.acceptAll(Answer::Ok);
        Told told(world);
        Action outer(world.data());
        send(world, {insertDay.arg(1)});
        fillTheDisk(world);
        {
            Action inner(world.data());
            QVERIFY(!world.data().execQuery(hugeNotes()));
            QVERIFY(!inner.commit());
        }
        QVERIFY(!world.data().writeStatus(u"Day"_s, u"2"_s, true));
        Action later(world.data());
        QVERIFY(!later.commit());
        QVERIFY(!outer.commit());
        QCOMPARE(told.take(), QString());
        QCOMPARE(onDisk(world), QString());
    }

    void takeAllBackWhenTheDiskIsFull()
    {
        // A statement of many rows can be taken back alone; the rest of the action must not be written then
        // either.
        for (const QString& tooLarge :
             {hugeNotes(), u"INSERT INTO ContactRecovery Select * from Contact"_s}) {
            World world;
            loadCampaign(world);
            send(world, {insertDay.arg(0), hugeNotes(), hugeNotes()});
            world.prompts.expect(u"DataJW-ExecQuery\r\nQuery: INSERT INTO Contact"_s);
            world.prompts.expect(u"The change was not saved: "_s);
            Action action(world.data());
            send(world, {u"Delete * from Status where StatusDescription='Day'"_s, u"Delete * from Event"_s});
            fillTheDisk(world);
            QVERIFY(!world.data().execQuery(tooLarge));
            QVERIFY(!world.data().execQuery(insertDay.arg(2)));
            QVERIFY(world.data().getCompanyNames().isEmpty());
            QVERIFY(!action.commit());
            QCOMPARE(onDisk(world), u"0"_s);
            QCOMPARE(world.data().getCount(u"Event"_s, true), Key(2));
            // The user is told of the cause and of the outcome; each statement of the lost rest only leaves
            // its trace.
            const auto entries = LogEntry::parse(world.errorLog());
            QCOMPARE(entries.size(), 4U);
            QCOMPARE(entries[0].number & 0xff, SQLITE_FULL);
            QCOMPARE(entries[1].number, int(StoreError::ActionLost));
            QVERIFY(entries[1].suppressed && entries[1].text.contains(insertDay.arg(2)));
            QVERIFY(entries[2].suppressed && !entries[3].suppressed);
            QVERIFY(entries[3].text.startsWith(u"DataJW-Action\r\nThe change was not saved: "));
            QVERIFY(entries[3].text.endsWith(u"The database is as it was before."));
        }
    }

    void takeAllBackWhenTheEndFails()
    {
        World world;
        world.prompts.expect(u"The change was not saved: "_s);
        // Somebody who reads the file keeps the end from being written.
        const auto reader = engine::open(world.session->databasePath(), SQLITE_OPEN_READONLY);
        Action action(world.data());
        sqlite3_busy_timeout(world.data().database().handle(), 0);
        send(world, {insertDay.arg(1)});
        engine::execute(reader.get(), "BEGIN");
        engine::value(reader.get(), "SELECT count(*) FROM Status");
        QVERIFY(!action.commit());
        engine::execute(reader.get(), "COMMIT");
        QCOMPARE(onDisk(world), QString());
        QVERIFY(!world.data().database().inTransaction());
        send(world, {insertDay.arg(2)});
        QCOMPARE(onDisk(world), u"2"_s);
    }

    void writeNothingWhenItCannotBegin()
    {
        World world;
        world.prompts.expect(u"The change was not saved: "_s);
        const auto writer = engine::open(world.session->databasePath(), SQLITE_OPEN_READWRITE);
        sqlite3_busy_timeout(world.data().database().handle(), 0);
        engine::execute(writer.get(), "BEGIN IMMEDIATE");
        {
            const Action action(world.data());
            engine::execute(writer.get(), "COMMIT");
            QVERIFY(!world.data().execQuery(insertDay.arg(1)));
        }
        QCOMPARE(onDisk(world), QString());
    }

    void failEachChangeWithoutAStore()
    {
        const auto silent = [](auto operation) {
            return GatewayCall([operation](DataJW& data) {
                operation(data);
                return QString();
            });
        };
        const std::initializer_list<std::tuple<QString, GatewayCall, QString>> calls{
            {u"ExecQuery"_s, CALL(execQuery(u"Delete * from Contact"_s)), u"false"_s},
            {u"WriteStatus"_s, CALL(writeStatus(u"A"_s, u"1"_s, true)), u"false"_s},
            {u"delStatusErr"_s, CALL(delStatus(u"A"_s)), u"false"_s},
            {u"RemoveRec"_s, CALL(removeRec(u"Company"_s, u"A"_s)), u"false"_s},
            {u"DelDox"_s, CALL(delDox()), u"false"_s},
            {u"UpdateCompanySubset"_s, CALL(updateCompanySubset(u"A"_s, 1)), u"false"_s},
            {u"UpdateContactList"_s, CALL(updateContactLists({{Key(1), Key(2)}}, u"Contact"_s)), u"0"_s},
            {u"UpdateDocList"_s, CALL(updateDocList(1, 2, u"Contact"_s, 0)), u"0"_s},
            {u"DelRecord"_s, silent([](DataJW& data) { data.delRecord(1, u"Contact"_s); }), {}},
            {u"DelContactsByCompany"_s, silent([](DataJW& data) { data.delContactsByCompany(1); }), {}},
            {u"UpdateContactSubset"_s, silent([](DataJW& data) { data.updateContactSubset(1, 2); }), {}}};
        for (const auto& [tag, call, fallback] : calls) {
            World world;
            world.prompts.acceptAll(Answer::Ok);
            QVERIFY(QFile::remove(world.session->databasePath()));
            QCOMPARE(call(world.data()), fallback);
            const auto entries = LogEntry::parse(world.errorLog());
            QCOMPARE(entries.front().text.section(u"\r\n"_s, 0, 0), u"DataJW-Init"_s);
            QVERIFY2(entries.back().text.startsWith(u"DataJW-%1\r\nQuery: "_s.arg(tag)), qPrintable(tag));
            QVERIFY(!QFile::exists(world.session->databasePath()));
            Action action(world.data()); // does no harm and is not written
            Action inner(world.data());
            QVERIFY(!inner.commit() && !action.commit());
        }
    }
};

JOBWRIGHT_TEST(TestGatewayAction)
#include "tst_gateway_action.moc"
