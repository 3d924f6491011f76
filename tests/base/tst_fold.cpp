// Letters as a search compares them.
#include "base/fold.h"
#include "base/reportpage.h"
#include "support/runtest.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

class TestFold : public QObject
{
    Q_OBJECT

private slots:
    void find_data()
    {
        // found: the stretches of the text, "|" between them
        table({"text", "word", "found"}, {{"any case", "Regional SALES", "sales", "SALES"},
                                          {"accents in the text", "Café Étoile", "etoile", "Étoile"},
                                          {"accents in the word", "Cafe Etoile", "étoile", "Etoile"},
                                          {"combining marks", "cafe\u0301 noir", "CAFÉ", "cafe\u0301"},
                                          {"letters that become two", "Große Straße", "strasse", "Straße"},
                                          {"a ligature", "the o\uFB03ce", "office", "o\uFB03ce"},
                                          {"other scripts", "ЖУРНАЛ журнал", "журнал", "ЖУРНАЛ|журнал"},
                                          {"surrogates", "a 𝐁ob 😀", "bob", "𝐁ob"},
                                          {"no overlap", "aaaa", "aa", "aa|aa"},
                                          {"nothing", "Alder", "oak", ""}});
    }
    void find()
    {
        QFETCH(QString, text);
        QFETCH(QString, word);
        QStringList found;
        for (const fold::Range& range : fold::find(text, fold::letters(word)))
            found.append(text.mid(range.from, range.length));
        QTEST(found.join(u'|'), "found");
    }
    void wordsWithoutLettersAreLeftOut()
    {
        QCOMPARE(fold::words(u"  Ann \u0301  LÉE "_s), QStringList({u"ann"_s, u"lee"_s}));
    }

    void linesBreakAtBlanksAndColons()
    {
        QCOMPARE(reporttext::wrapped(u"12 4567:9 x\r\nabcdefghijklmno\n\tend\r\n"_s, 8),
                 QStringList({u"12 4567:"_s, u"9 x"_s, u"abcdefgh"_s, u"ijklmno"_s, u" end"_s}));
        QCOMPARE(reporttext::wrapped({}, 8), QStringList({QString()}));
    }
};

JOBWRIGHT_TEST(TestFold)
#include "tst_fold.moc"
