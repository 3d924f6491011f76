#include "store/gateway/datajw.h"
#include "store/gateway/keylists.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

/// The gateway's work on texts, which needs no store: word lists and key lists.
class TestGatewayWords : public QObject
{
    Q_OBJECT

private slots:
    void splitIntoWords_data()
    {
        table(
            {"text", "words"},
            {{"the last word is never taken", "Senior Engineer for big data, London", "Senior|Engineer|data"},
             {"a long first word brings the next one up again",
              "Architect Senior Engineer for big data, London", "Architect|Senior|Senior|Engineer|data"},
             {"the first word may be short and keeps its marks", "C, then more", "C,|then"},
             {"a hyphen parts words", "A full-time post here", "A|full|time|post"},
             {"a hyphen parts no first word", "Full-time post here", "Full-time|time|post"},
             {"marks are left out", "On: road; rail, water ways", "On:|road|rail|water"},
             {"a line end is no blank", "To plan\r\nmake a", "To|plan\r\nmake"}});
    }
    void splitIntoWords()
    {
        FETCH(QString, text, words);
        QCOMPARE(DataJW::splitWords(text).join(u'|'), words);
    }

    void rewriteRandomListsAsPairByPair()
    {
        // Small keys overlap in almost every way: each list goes through the pairs one by one beside the
        // rewriter.
        QRandomGenerator random(20261122);
        for (int round = 0; round < 2000; ++round) {
            const int highest = round % 2 ? 30 : 1500;
            std::vector<std::pair<Key, Key>> newOld;
            for (int i = random.bounded(1, 40); i > 0; --i)
                newOld.emplace_back(Key(random.bounded(highest)), Key(random.bounded(highest)));
            QStringList items;
            for (int i = random.bounded(0, 12); i > 0; --i)
                items.append(QString::number(random.bounded(highest)));
            const QString list = items.join(u',');
            QString expected = list;
            int replacements = 0;
            for (const auto& [newKey, oldKey] : newOld) {
                replacements += expected.contains(QString::number(oldKey)) ? 1 : 0;
                expected.replace(QString::number(oldKey), newKey == 0 ? QString() : QString::number(newKey));
            }
            const auto result = KeyListRewriter(newOld).rewrite(list);
            QVERIFY2(result.list == expected, qPrintable(list + u" in round " + QString::number(round)));
            QCOMPARE(result.replacements, replacements);
        }
    }
};

JOBWRIGHT_TEST(TestGatewayWords)
#include "tst_gateway_words.moc"
