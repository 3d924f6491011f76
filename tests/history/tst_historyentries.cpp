// A contact's entries in memory: their order, their numbers, their bound.
#include "history/historyentries.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

/// "A5 B- C4": entries with a letter as their topic, and the day of November, "-" for none.
std::vector<History> made(const QString& text)
{
    std::vector<History> entries;
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
        History entry;
        entry.topic = word.left(1);
        if (word.mid(1) != u"-")
            entry.ContactDate = QDate(2026, 11, word.mid(1).toInt());
        entries.push_back(entry);
    }
    return entries;
}

QString letters(const HistoryEntries& entries)
{
    QString text;
    for (int slot = 1; slot <= entries.count(); ++slot)
        text += entries.at(slot).topic;
    return text;
}

} // namespace

class TestHistoryEntries : public QObject
{
    Q_OBJECT

private slots:
    void sortingTradesLaterDaysForEarlierOnes_data()
    {
        columns<QString, QString>("before", "after");
        QTest::newRow("none") << QString() << QString();
        QTest::newRow("in order already") << u"A1 B2 C2 D3"_s << u"ABCD"_s;
        QTest::newRow("the oldest was entered last") << u"A2 B3 C1"_s << u"CAB"_s;
        QTest::newRow("equal days change places") << u"A5 B5 C4"_s << u"CBA"_s;
        QTest::newRow("equal days change places twice") << u"A3 B3 C2 D1"_s << u"DCAB"_s;
        QTest::newRow("no day comes first") << u"A5 B- C4"_s << u"BCA"_s;
    }
    void sortingTradesLaterDaysForEarlierOnes()
    {
        QFETCH(QString, before);
        HistoryEntries entries(12, made(before));
        entries.sortByDate();
        QTEST(letters(entries), "after");
    }

    void removedSlotIsTakenByTheNext()
    {
        HistoryEntries entries(12, made(u"A1 B2 C3"_s));
        entries.renumber();
        entries.remove(2);
        QCOMPARE(letters(entries), u"AC"_s);
        QCOMPARE(entries.at(2).HistKey, u"12-2"_s);
        QCOMPARE(entries.at(2).ContactCount, Key(2));
        entries.remove(3);
        entries.remove(0);
        QCOMPARE(entries.count(), 2);
    }

    void changedEntryKeepsItsKeys()
    {
        std::vector<History> rows = made(u"A1"_s);
        rows[0].HistKey = u"7-3"_s; // as a file from elsewhere may number it
        rows[0].ContactCount = 3;
        HistoryEntries entries(12, rows);
        QVERIFY(entries.put(1, made(u"B2"_s).front()));
        QCOMPARE(entries.at(1).topic, u"B"_s);
        QCOMPARE(entries.at(1).HistKey, u"7-3"_s);
        QCOMPARE(entries.at(1).ContactCount, Key(3));
    }
};

QTEST_APPLESS_MAIN(TestHistoryEntries)
#include "tst_historyentries.moc"
