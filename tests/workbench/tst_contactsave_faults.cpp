// What a contact's save or removal leaves behind when one of its steps fails, and that another try mends it.
#include "workbench/contactbench.h"

#include <QTest>

#include <sqlite3.h>

namespace {

/// Ann at Acme, to whom a position, a colleague, an event and a history point, and an address of nobody.
void furnish(ContactBench& bench)
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
}

/// Ann's rows as key:lists:department, then who position, colleague, event and history point to, then the
/// cities.
QString state(ContactBench& bench)
{
    return QStringList{
        bench.cells(u"Select ContactKey,ContactList,DocumentList,Department from Contact where "
                    "FirstName='Ann' order by ContactKey"_s),
        bench.cells(u"Select ContactList from Position"_s),
        bench.cells(u"Select ContactList from Contact where FirstName='Bob'"_s),
        bench.cells(u"Select ContactKey from Event"_s),
        bench.cells(u"Select HistoryKey from History"_s),
        bench.cells(u"Select City from Address"_s)}
        .join(u' ');
}

/// Lets the i-th statement of @p act fail; answers its text, "" when there were fewer.
QString failing(Bench& bench, size_t i, const std::function<void()>& act)
{
    QString failed;
    size_t count = 0;
    bench.data().database().setInterceptor([&](QStringView statement) {
        if (count++ != i)
            return;
        failed = statement.toString();
        throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
    });
    act();
    bench.data().database().setInterceptor({});
    return failed;
}

/// Every person and every address in use is still there, and nothing points to nobody.
void verifyNothingIsLost(ContactBench& bench)
{
    const QString key = QString::number(bench.current());
    QCOMPARE(bench.cells(u"Select ContactList from Position"_s), key);
    QCOMPARE(bench.cells(u"Select ContactList from Contact where FirstName='Bob'"_s), key);
    QCOMPARE(bench.cells(u"Select ContactKey from Event"_s), key);
    QCOMPARE(bench.cells(u"Select HistoryKey from History"_s), QString(key + u"-1"));
    const Key address = bench.data().getContactDataByKey(bench.current()).key(u"AddressKey").value_or(0);
    QCOMPARE(bench.data().getAddress(address).text(u"City"), u"Annville"_s);
}

} // namespace

class TestContactSaveFaults : public QObject
{
    Q_OBJECT

private slots:
    void anyFailedStepOfASaveIsMendedByTheNext()
    {
        // A reference that could not be moved stays where it was; every other failure is made good by saving
        // again.
        const QStringList moves{u"Select * from Position where contactlist"_s,
                                u"Update Position set ContactList"_s,
                                u"Select * from Contact where contactlist"_s,
                                u"Update Contact set ContactList"_s,
                                u"Update Event"_s,
                                u"Update History"_s};
        int movesFailed = 0;
        for (size_t i = 0;; ++i) {
            ContactBench bench;
            furnish(bench);
            bench.world.prompts.acceptAll(Answer::Ok);
            const QString failed = failing(bench, i, [&] { bench.contact().cmdUpdateContact1(); });
            if (failed.isEmpty()) {
                QVERIFY(i > 25);
                break;
            }
            const QByteArray place = QByteArray::number(qulonglong(i)) + ' ' + failed.toUtf8();
            QVERIFY2(bench.world.errorLog().contains(QString(u"Query: " + failed)) ||
                         failed.startsWith(u"Select * from company where name="_s) ||
                         failed.startsWith(u"Select * from Contact where firstName="_s),
                     place.constData());
            QVERIFY2(bench.shownContact(u"txtDept"_s) == u"Parts", place.constData());
            QVERIFY2(bench.cells(u"Select City from Address"_s).contains(u"Acme City;Annville;Bobville"_s),
                     place.constData());
            const bool isMove =
                std::ranges::any_of(moves, [&](const QString& part) { return failed.startsWith(part); });
            movesFailed += isMove ? 1 : 0;
            bench.contact().cmdUpdateContact1();
            QVERIFY2(bench.cells(u"Select Department from Contact where ContactKey="_s +
                                 QString::number(bench.current())) == u"Parts",
                     place.constData());
            if (!isMove)
                verifyNothingIsLost(bench);
            if (QTest::currentTestFailed())
                qInfo("step %s", place.constData());
        }
        QCOMPARE(movesFailed, 9);
    }

    void failedStepOfASaveLeaves_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("left");
        const QString cities = u" Acme City;Annville;Bobville"_s;
        const QString untouched = u" 1 1 1 1-1"_s + cities + u";Nowhere";
        QTest::newRow("row not inserted") << u"INSERT INTO Contact "_s << u""_s + untouched;
        QTest::newRow("journal row") << u"INSERT INTO ContactRecovery"_s
                                     << u"3|2|1|Parts 3 3 3 3-1"_s + cities;
        QTest::newRow("old row not deleted")
            << u"Delete * from Contact"_s << u"1|2|1|;3|2|1|Parts 3 3 3 3-1"_s + cities;
        QTest::newRow("new key not found")
            << u"Select * from Contact where firstName="_s << u"3|2|1|Parts"_s + untouched;
        QTest::newRow("event not moved") << u"Update Event"_s << u"3|2|1|Parts 3 3 1 1-1"_s + cities;
        for (const QString& table : {u"Address"_s, u"Contact"_s, u"Company"_s})
            QTest::addRow("clean-up cannot read %s", qPrintable(table))
                << u"Select AddressKey from "_s + table << u"3|2|1|Parts 3 3 3 3-1"_s + cities + u";Nowhere";
    }
    void failedStepOfASaveLeaves()
    {
        QFETCH(QString, statement);
        QFETCH(QString, left);
        ContactBench bench;
        furnish(bench);
        bench.world.prompts.acceptAll(Answer::Ok);
        bench.data().database().setInterceptor([&](QStringView sent) {
            if (sent.startsWith(statement))
                throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
        });
        bench.contact().cmdUpdateContact1();
        bench.data().database().setInterceptor({});
        QCOMPARE(state(bench), left);
    }

    void anyFailedStepOfARemovalIsToldAndCanBeTriedAgain()
    {
        const QString gone = u"   0 0-1 Acme City;Annville;Bobville;Nowhere"_s;
        for (size_t i = 0;; ++i) {
            ContactBench bench;
            furnish(bench);
            bench.run(u"Insert into Event(Event,ContactKey) Values('Rest',0)"_s);
            bench.run(u"Insert into History(HistoryKey,ContactKey,ContactCount) Values('0-1',0,1)"_s);
            bench.world.prompts.acceptAll(Answer::Yes);
            const QString failed = failing(bench, i, [&] { bench.contact().cmdRemoveContact1(); });
            if (failed.isEmpty()) {
                QCOMPARE(state(bench), gone);
                break;
            }
            QVERIFY2(bench.world.errorLog().contains(u"failed on purpose"_s) ||
                         failed.startsWith(u"Select"_s),
                     qPrintable(failed));
            // Whatever fails, nobody else's events and histories go, and the rest of the steps is done.
            QVERIFY2(bench.cells(u"Select ContactKey from Event"_s).endsWith(u'0'), qPrintable(failed));
            QVERIFY2(bench.cells(u"Select HistoryKey from History"_s).endsWith(u"0-1"_s), qPrintable(failed));
            QCOMPARE(bench.cells(u"Select FirstName from Contact where FirstName='Bob'"_s), u"Bob"_s);
        }
    }

    void fullDiskLeavesTheStoreAsItWas()
    {
        ContactBench bench;
        furnish(bench);
        const QString before = state(bench);
        bench.typeContact(u"txtContactNotes"_s, QString(600'000, u'n'));
        sqlite3* const handle = bench.data().database().handle();
        sqlite3_exec(handle, "PRAGMA max_page_count=1", nullptr, nullptr,
                     nullptr); // no page more than there are
        bench.world.prompts.acceptAll(Answer::Ok);
        bench.contact().cmdUpdateContact1();
        QCOMPARE(state(bench), before);
        QVERIFY(bench.world.prompts.asked().last().contains(u"The database is as it was before."));
        QCOMPARE(bench.current(), Key(1));
        sqlite3_exec(handle, "PRAGMA max_page_count=1000000", nullptr, nullptr, nullptr);
        bench.contact().cmdUpdateContact1();
        verifyNothingIsLost(bench);
        QCOMPARE(bench.cells(u"Select Notes from Contact where FirstName='Ann'"_s).size(), 600'000);
    }
};

QTEST_GUILESS_MAIN(TestContactSaveFaults)
#include "tst_contactsave_faults.moc"
