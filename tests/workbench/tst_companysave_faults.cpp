// What a company save leaves behind when one of its steps fails, and that saving again mends it.
#include "workbench/faults.h"

#include <QTest>

#include <sqlite3.h>

namespace {

/// A bench with Acme, whose records all point to it, and a second company whose address is the newest.
void furnish(Bench& bench)
{
    const QString acme = QString::number(bench.addCompany(u"Acme"_s, u"3/5/2024"_s));
    bench.addCompany(u"Bolt"_s);
    for (const QString& table : {u"Position(Title"_s, u"Contact(FirstName"_s, u"CProfile(QAns"_s,
                                 u"JProfile(QAns"_s, u"Event(Event"_s})
        bench.run(u"Insert into "_s + table + u",CompanyKey) Values('x'," + acme + u')');
    bench.frm->load();
    bench.choose(u"Acme"_s);
    bench.type(u"txtCity"_s, u"Newark"_s);
    bench.type(u"txtIndustry"_s, u"Ships"_s);
}

/// One line for the whole state: the rows called Acme as key:address:entry date, then the owners of position,
/// contact, company profile, position profile and event. Keys: 1 is the old row, 3 the new one.
QString state(Bench& bench)
{
    QStringList parts{bench.cells(u"Select CompanyKey,AddressKey,EntryDate from Company where Name='Acme' "
                                  "order by CompanyKey"_s)};
    for (const QString& table : {u"Position"_s, u"Contact"_s, u"CProfile"_s, u"JProfile"_s, u"Event"_s})
        parts.append(bench.cells(u"Select CompanyKey from "_s + table));
    return parts.join(u' ');
}

const QString before = u"1|1|3/5/2024 1 1 1 1 1"_s;
const QString after = u"3|3|3/5/2024 3 3 3 3 3"_s;

struct Fault
{
    QString statement; ///< how the failing statement begins
    QString left;      ///< the state behind it
};

/// Every store call of the save, in order.
const std::vector<Fault> faults{
    {u"Select * from company where name="_s, before}, // not found: the question comes, and is declined
    {u"Select * from Company"_s, u" 0 0 0 0 0"_s},    // no columns: nothing inserted, the old row goes
    {u"Select * from Address"_s, u"3|2|3/5/2024 3 3 3 3 3"_s}, // no address: the newest other one is taken
    {u"INSERT INTO Address"_s, u"3|2|3/5/2024 3 3 3 3 3"_s},
    {u"Select * from Address order by AddressKey"_s, u"3|0|3/5/2024 3 3 3 3 3"_s},
    {u"Select * from Company where CompanyKey="_s, u"3|3| 3 3 3 3 3"_s},
    {u"Select * from Company where Name ="_s, u"3|3| 3 3 3 3 3"_s},
    {u"INSERT INTO COMPANY"_s, u" 0 0 0 0 0"_s},
    {u"Delete * from Company"_s,
     u"1|1|3/5/2024;3|3|3/5/2024 1 1 1 1 1"_s},                            // the old row is found by the name
    {u"Select * from company where name="_s, u"3|3|3/5/2024 3 3 3 3 0"_s}, // the event alone uses this key
    {u"Select * from company where name="_s, u"3|3|3/5/2024 0 0 0 0 3"_s}, // all others use this one
    {u"Update Position"_s, u"3|3|3/5/2024 1 1 1 1 3"_s},
    {u"Update Contact"_s, u"3|3|3/5/2024 3 1 1 1 3"_s},
    {u"Update CProfile"_s, u"3|3|3/5/2024 3 3 1 1 3"_s},
    {u"Update JProfile"_s, u"3|3|3/5/2024 3 3 3 1 3"_s},
    {u"Update Event"_s, u"3|3|3/5/2024 3 3 3 3 1"_s},
};

} // namespace

class TestCompanySaveFaults : public QObject
{
    Q_OBJECT

private slots:
    void everyStepMayFail_data()
    {
        QTest::addColumn<int>("step");
        for (size_t i = 0; i < faults.size(); ++i)
            QTest::addRow("%02zu %s", i, qPrintable(faults[i].statement)) << int(i);
    }

    void everyStepMayFail()
    {
        QFETCH(int, step);
        const Fault& fault = faults.at(size_t(step));
        Bench bench;
        furnish(bench);
        bench.world.prompts.acceptAll(Answer::No);
        const QString failed = failing(bench, size_t(step), [&] { bench.company().cmdUpdate1(); });
        QVERIFY2(failed.startsWith(fault.statement), qPrintable(failed));
        QCOMPARE(state(bench), fault.left);
        QVERIFY(bench.world.errorLog().contains(u"failed on purpose"_s));
        QVERIFY(bench.world.errorLog().contains(QString(u"Query: " + failed)));
        // What was typed is still to be seen, so nothing has to be typed again.
        QCOMPARE(bench.shown(u"txtCity"_s), u"Newark"_s);

        bench.world.prompts.acceptAll(Answer::Yes);
        bench.company().cmdUpdate1();
        QCOMPARE(bench.cells(u"Select Industry from Company where Name='Acme'"_s).split(u';').last(),
                 u"Ships"_s);
        const RecordSet company = bench.data().getCompany(u"Acme"_s);
        QCOMPARE(bench.data().getAddress(company.key(u"AddressKey").value_or(0)).text(u"City"), u"Newark"_s);
        QCOMPARE(bench.frm->selection().currentCompanyKey, company.key(u"CompanyKey").value_or(0));
    }

    void failureBehindTheSaveLosesNothing()
    {
        // Reads that only show the result again: a failure there must not touch what was saved.
        for (size_t i = faults.size();; ++i) {
            Bench bench;
            furnish(bench);
            bench.world.prompts.acceptAll(Answer::No);
            const QString failed = failing(bench, i, [&] { bench.company().cmdUpdate1(); });
            QCOMPARE(state(bench), after);
            if (failed.isEmpty())
                break;
            QVERIFY2(failed.startsWith(u"Select"), qPrintable(failed));
        }
    }

    void fullDiskLeavesTheStoreAsItWas()
    {
        Bench bench;
        furnish(bench);
        bench.type(u"txtCompanyNotes"_s, QString(600'000, u'n'));
        sqlite3* const handle = bench.data().database().handle();
        sqlite3_exec(handle, "PRAGMA max_page_count=1", nullptr, nullptr,
                     nullptr); // no page more than there are
        bench.world.prompts.acceptAll(Answer::No);
        bench.company().cmdUpdate1();
        QCOMPARE(state(bench), before);
        QVERIFY(bench.world.prompts.asked().last().contains(u"The database is as it was before."));
        QCOMPARE(bench.shown(u"txtCity"_s), u"Newark"_s);
        QCOMPARE(bench.frm->selection().currentCompanyKey, Key(1));

        sqlite3_exec(handle, "PRAGMA max_page_count=1000000", nullptr, nullptr, nullptr);
        bench.company().cmdUpdate1();
        const QString mended = state(bench);
        QVERIFY2(mended.endsWith(u"|3/5/2024 3 3 3 3 3"), qPrintable(mended));
        QCOMPARE(bench.cells(u"Select Notes from Company where Name='Acme'"_s).size(), 600'000);
    }

    void changeThatCannotBeWrittenIsNotLostUnasked()
    {
        Bench bench;
        furnish(bench);
        sqlite3* const handle = bench.data().database().handle();
        sqlite3_exec(handle, "PRAGMA max_page_count=1", nullptr, nullptr, nullptr);
        bench.type(u"txtCompanyNotes"_s, QString(600'000, u'n'));
        bench.world.prompts.expect(u"full"_s); // at leaving the field
        bench.company().fieldLeft(u"txtCompanyNotes"_s);
        bench.world.prompts.expect(u"full"_s); // tried again when another company is chosen
        bench.world.prompts.expect(u"could not be saved"_s, Answer::No);
        bench.frm->cmbSelectionClick(u"Bolt"_s);
        QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Acme"_s);
        QCOMPARE(bench.shown(u"txtCompanyNotes"_s).size(), 600'000);

        sqlite3_exec(handle, "PRAGMA max_page_count=1000000", nullptr, nullptr, nullptr);
        bench.frm->cmbSelectionClick(u"Bolt"_s);
        QCOMPARE(bench.frm->selection().selectedCompanyName(), u"Bolt"_s);
        QCOMPARE(bench.cells(u"Select Notes from Company where Name='Acme'"_s).size(), 600'000);
    }

    void saveWithoutAKeyLeftChangesNothing()
    {
        Bench bench;
        furnish(bench);
        sqlite3_exec(bench.data().database().handle(),
                     "UPDATE sqlite_sequence SET seq=32767 WHERE name='Company'", nullptr, nullptr, nullptr);
        bench.world.prompts.expect(u"given out all its 32767 keys"_s);
        bench.company().cmdUpdate1();
        QCOMPARE(state(bench), before);
        // One key is enough.
        sqlite3_exec(bench.data().database().handle(),
                     "UPDATE sqlite_sequence SET seq=32766 WHERE name='Company'", nullptr, nullptr, nullptr);
        bench.company().cmdUpdate1();
        QVERIFY(state(bench).startsWith(u"32767|"_s));
    }
};

QTEST_GUILESS_MAIN(TestCompanySaveFaults)
#include "tst_companysave_faults.moc"
