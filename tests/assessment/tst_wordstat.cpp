// The tokeniser, the engine's counts and the reports, on texts whose results were worked out by hand.
#include "assessment/wordstat.h"
#include "base/words.h"
#include "support/runtest.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

class TestWordStat : public QObject
{
    Q_OBJECT

private slots:
    void wordsOfAText_data()
    {
        table({"text", "words"},
              {{"last word lost, cursor trails", "Managed a team of ten", "Managed|a|a|a|a|team|of"},
               {"punctuation", "Led sales, cut costs by 10 percent. Won awards",
                "Led|sales|cut|costs|by|by|10|percent.|Won"},
               {"two words", "Cut costs", "Cut"},
               {"no blank", "Costs", ""},
               {"three empty elements", "  ", "|"},
               {"two blanks behind the first", "one  two three four", "one|||||two|three"},
               {"first word keeps its punctuation", "sub-unit: a:b two-fold done ",
                "sub-unit:|unit|ab|ab|two|fold|done"},
               {"blank in front", " one two ", "|one|two"}});
    }
    void wordsOfAText()
    {
        FETCH(QString, text, words);
        QCOMPARE(::words::split(text).join(u'|'), words);
    }

    void hugeFirstWordIsReadInTime()
    {
        const QString text = QString(1'000'000, u'x') + u" ab cd "_s;
        QCOMPARE(words::split(text).size(), 333'336);
    }

    void numericValues()
    {
        const QList<std::pair<QString, double>> all{{u"10"_s, 10}, {u"3rd"_s, 3},   {u"0"_s, 0},
                                                    {u"$5"_s, 0},  {u"ten"_s, 0},   {u"-2x"_s, -2},
                                                    {u".5"_s, .5}, {u"1e2"_s, 100}, {u"7e"_s, 7}};
        for (const auto& [text, value] : all)
            QCOMPARE(words::numericValue(text), value);
    }

    void resultsAreThoseOfThePlainDoubleLoop()
    {
        const QStringList letters{u"Lead"_s, u"lead"_s,  u"done."_s, u"Done"_s,
                                  u"a"_s,    u"ten!?"_s, u"42nd"_s,  u"ÄRGER"_s};
        const QStringList references{u"LEAD"_s, u"done"_s, u"lead"_s, u"a"_s, u"ärger"_s, u"42ND"_s};
        for (unsigned seed = 1; seed < 200; ++seed) {
            QStringList base;
            for (unsigned i = 0; i < seed % 13 + 1; ++i)
                base.append(letters[(seed * 7 + i * i * 3) % static_cast<unsigned>(letters.size())]);
            QStringList hits;
            for (const QString& word : base) {
                for (const QString& reference : references) {
                    if (word.size() > 3 && word.toLower() == reference.toLower())
                        hits.append(word);
                }
            }
            qint64 frequency = -hits.size();
            for (const QString& one : hits)
                frequency += hits.count(one);
            WordStat stat;
            QVERIFY(stat.evaluate(references, base));
            QCOMPARE(stat.matchList(), hits);
            QCOMPARE(stat.matchFrequency(), frequency);
        }
    }

    void countsOfOneText()
    {
        WordStat stat;
        stat.evaluate({u"led"_s, u"raised"_s, u"sales"_s}, {u"Led"_s, u"Raised"_s, u"sales"_s, u"3rd"_s,
                                                            u"0"_s, u"time.!"_s, u"Why?"_s, u"raised"_s});
        QCOMPARE(stat.displayStat(),
                 u"Length:34\r\nMatches:3\r\nTotal Words:8\r\nTotal Sentences:3\r\nSentence Match Index:1\r\n"
                 "Word Match Index:0.375\r\nFrequency:0\r\nSpecial Words: Led,Raised,Why?\r\n---\r\n"
                 "Matches: Raised,sales,raised"_s);
        QCOMPARE(stat.numberCount(), 1);
        stat.evaluate({u"none"_s}, {});
        QCOMPARE(stat.displaySubStat(),
                 u"Matches:0\r\nSentence Match Index:0\r\nWord Match Index:0\r\nFrequency:0\r\n"_s);
        stat.evaluate({}, {u"plain"_s});
        QVERIFY(stat.displayStat().endsWith(u"Special Words: "_s));
    }

    void thresholdsArePassedStrictlyAbove()
    {
        // 1 hit in 40 words and 40 sentences: twice 0.025 is 0.05 to the last digit.
        QStringList base(39, u"no."_s);
        base.append(u"word."_s);
        WordStat stat;
        stat.evaluate({u"word."_s}, base);
        QVERIFY(stat.displaySimpleStat(0, 0, 0).endsWith(u"Low Threshold passed\r\n"_s));
        QVERIFY(stat.displaySimpleStat(0, .049, 0).endsWith(u"Mid Threshold passed\r\n"_s));
        QVERIFY(stat.displaySimpleStat(.06, .06, .06).endsWith(u"Total Sentences:40\r\n"_s));
    }

    void tooManyNumbersEndTheRun()
    {
        WordStat stat;
        QVERIFY(stat.evaluate({}, QStringList(32767, u"1"_s)));
        QCOMPARE(stat.numberCount(), 32767);
        QVERIFY_EXCEPTION_THROWN(stat.evaluate({}, QStringList(32768, u"1"_s)), EvaluationStopped);
    }
};

JOBWRIGHT_TEST(TestWordStat)
#include "tst_wordstat.moc"
