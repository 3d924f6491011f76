// What the writing of the document list leaves behind when one of its steps fails, and that another try mends
// it.
#include "workbench/documentbench.h"
#include "workbench/faults.h"

namespace {

/// Two documents, each held by one person; the first is selected and has a new version on the screen.
void furnish(DocumentBench& bench)
{
    bench.addDocument(u"cv.pdf"_s);
    bench.addDocument(u"note.txt"_s);
    bench.addHolder(u"Ann"_s, u"1"_s);
    bench.addHolder(u"Bob"_s, u"2"_s);
    bench.openScreen(u"cv.pdf"_s);
    bench.edit(u"txtVersion"_s, u"2.0"_s);
    bench.world.prompts.acceptAll(Answer::Ok);
}

/// The rows and who holds them, a key without a row as nothing.
QString state(DocumentBench& bench)
{
    return bench.cells(u"Select Document,Version from Document order by ResumeKey"_s) + u" - " +
           bench.holdings();
}

const QString before = u"cv.pdf|1.0;note.txt|1.0 - Ann: cv.pdf, Bob: note.txt"_s;
const QString after = u"cv.pdf|2.0;note.txt|1.0 - Ann: cv.pdf, Bob: note.txt"_s;
const QString annLoses = u"cv.pdf|2.0;note.txt|1.0 - Ann: , Bob: note.txt"_s;
const QString bobLoses = u"cv.pdf|2.0;note.txt|1.0 - Ann: cv.pdf, Bob: "_s;

struct Fault
{
    QString statement; ///< how the failing statement begins
    QString left;      ///< the state behind it
};

/// Every store call of the update, in order.
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
    {u"Update Contact"_s, bobLoses},
};

} // namespace

class TestDocumentSaveFaults : public QObject
{
    Q_OBJECT

private slots:
    void everyStepOfTheUpdateMayFail_data();
    void everyStepOfTheUpdateMayFail();
    void failureBehindTheUpdateLosesNothing();
    void everyStepOfARemovalCanBeMended();
    void everyStepOfAnAdditionCanBeMended();
    void halfMovedReferencesComeTogetherAgain();
    void fullDiskLeavesStoreAndListAsTheyWere_data();
    void fullDiskLeavesStoreAndListAsTheyWere();
};

void TestDocumentSaveFaults::everyStepOfTheUpdateMayFail_data()
{
    QTest::addColumn<int>("step");
    for (size_t i = 0; i < faults.size(); ++i)
        QTest::addRow("%02zu %s", i, qPrintable(faults[i].statement)) << int(i);
}

void TestDocumentSaveFaults::everyStepOfTheUpdateMayFail()
{
    QFETCH(int, step);
    const Fault& fault = faults.at(size_t(step));
    DocumentBench bench;
    furnish(bench);
    const QString failed = failing(bench, size_t(step), [&] { bench.screen().cmdUpdateDoc1(); });
    QVERIFY2(failed.startsWith(fault.statement), qPrintable(failed));
    QCOMPARE(state(bench), fault.left);
    QVERIFY(bench.world.errorLog().contains(QString(u"Query: " + failed)));
    // What was typed is still to be seen, and the list is whole, so that the same button mends it.
    QCOMPARE(bench.value(u"txtVersion"_s), u"2.0"_s);
    QCOMPARE(bench.listed(), (QStringList{u"cv.pdf"_s, u"note.txt"_s}));
    bench.screen().cmdUpdateDoc1();
    QCOMPARE(state(bench), after);
}

void TestDocumentSaveFaults::failureBehindTheUpdateLosesNothing()
{
    // Reads that only show the result again: a failure there must not touch what was saved.
    for (size_t i = faults.size();; ++i) {
        DocumentBench bench;
        furnish(bench);
        const QString failed = failing(bench, i, [&] { bench.screen().cmdUpdateDoc1(); });
        QCOMPARE(state(bench), after);
        if (failed.isEmpty())
            break;
        QVERIFY2(failed.startsWith(u"Select"), qPrintable(failed));
    }
}

void TestDocumentSaveFaults::everyStepOfARemovalCanBeMended()
{
    for (size_t i = 0;; ++i) {
        DocumentBench bench;
        furnish(bench);
        const QString failed = failing(bench, i, [&] { bench.screen().cmdRemoveDoc1(); });
        const bool listed = bench.listed().contains(u"cv.pdf"_s);
        bench.screen().showDocument(listed ? u"cv.pdf"_s : u"note.txt"_s);
        listed ? bench.screen().cmdRemoveDoc1() : bench.screen().cmdUpdateDoc1();
        QVERIFY2(state(bench) == u"note.txt|1.0 - Ann: , Bob: note.txt",
                 qPrintable(failed + u": " + state(bench)));
        if (failed.isEmpty())
            break;
    }
}

void TestDocumentSaveFaults::everyStepOfAnAdditionCanBeMended()
{
    for (size_t i = 0;; ++i) {
        DocumentBench bench;
        furnish(bench);
        bench.screen().filesDropped({bench.makeFile(u"new.pdf"_s)});
        bench.edit(u"txtVersion"_s, u"7"_s);
        const QString failed = failing(bench, i, [&] { bench.screen().cmdAddDoc1(); });
        // Not in the list: the form still has it, for the same button. In the list: the update writes it.
        if (bench.listed().contains(u"new.pdf"_s))
            bench.screen().cmdUpdateDoc1();
        else
            bench.screen().cmdAddDoc1();
        QVERIFY2(state(bench) == u"cv.pdf|1.0;note.txt|1.0;new.pdf|7 - Ann: cv.pdf, Bob: note.txt",
                 qPrintable(failed + u": " + state(bench)));
        if (failed.isEmpty())
            break;
    }
}

void TestDocumentSaveFaults::halfMovedReferencesComeTogetherAgain()
{
    DocumentBench bench;
    furnish(bench);
    bench.addHolder(u"Cy"_s, u"1"_s);
    int updates = 0;
    bench.data().database().setInterceptor([&updates](QStringView statement) {
        if (statement.startsWith(u"Update Contact") && ++updates == 2)
            throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
    });
    bench.screen().cmdUpdateDoc1();
    bench.data().database().setInterceptor({});
    QCOMPARE(state(bench), u"cv.pdf|2.0;note.txt|1.0 - Ann: cv.pdf, Bob: note.txt, Cy: "_s);
    bench.screen().cmdUpdateDoc1();
    QCOMPARE(state(bench), QString(after + u", Cy: cv.pdf"));
}

void TestDocumentSaveFaults::fullDiskLeavesStoreAndListAsTheyWere_data()
{
    QTest::addColumn<QString>("action");
    for (const char* action : {"update", "add"})
        QTest::newRow(action) << QString::fromLatin1(action);
}

void TestDocumentSaveFaults::fullDiskLeavesStoreAndListAsTheyWere()
{
    QFETCH(QString, action);
    DocumentBench bench;
    furnish(bench);
    const bool adds = action == u"add";
    if (adds)
        bench.screen().filesDropped({bench.makeFile(u"new.pdf"_s)});
    bench.edit(u"txtDocNotes"_s, QString(600'000, u'n'));
    const auto act = [&] { adds ? bench.screen().cmdAddDoc1() : bench.screen().cmdUpdateDoc1(); };
    setDiskFull(bench, true);
    act();
    QCOMPARE(state(bench), before);
    QVERIFY(bench.world.prompts.asked().last().contains(u"The database is as it was before."));
    QCOMPARE(bench.listed(), (QStringList{u"cv.pdf"_s, u"note.txt"_s}));
    QCOMPARE(bench.value(u"txtDocNotes"_s).size(), 600'000);
    // The list in memory does not take for stored what is not.
    if (!adds)
        QCOMPARE(bench.screen().selectedDocument()->docNotes, u"old notes"_s);

    setDiskFull(bench, false);
    act();
    const QString name = adds ? u"new.pdf"_s : u"cv.pdf"_s;
    QCOMPARE(bench.cells(u"Select Notes from Document where Document='"_s + name + u'\'').size(), 600'000);
    QVERIFY(state(bench).endsWith(u" - Ann: cv.pdf, Bob: note.txt"));
}

QTEST_GUILESS_MAIN(TestDocumentSaveFaults)
#include "tst_documentsave_faults.moc"
