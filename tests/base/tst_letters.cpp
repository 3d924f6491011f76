#include "base/letters.h"
#include "support/runtest.h"

#include <algorithm>

using namespace Qt::StringLiterals;

class TestLetters : public QObject
{
    Q_OBJECT

private slots:
    void sortByLettersThenMarks()
    {
        const QStringList sorted{u""_s,      u"9"_s,      u"Aether"_s, u"Æther"_s,   u"Etna"_s,   u"Étoile"_s,
                                 u"Etude"_s, u"resume"_s, u"Résumé"_s, u"Strasse"_s, u"straße"_s, u"Zoë2"_s,
                                 u"zoo"_s,   u"Ωmega"_s,  u"Жук"_s,    u"жуки"_s};
        for (qsizetype i = 0; i < sorted.size(); ++i) {
            for (qsizetype j = 0; j < sorted.size(); ++j) {
                const int expected = i < j ? -1 : i > j ? 1 : 0;
                const QByteArray left = sorted[i].toUtf8();
                const QByteArray right = sorted[j].toUtf8();
                QCOMPARE(letters::compare(sorted[i], sorted[j]), expected);
                QCOMPARE(letters::compare(std::string_view(left.constData(), size_t(left.size())),
                                          std::string_view(right.constData(), size_t(right.size()))),
                         expected);
            }
        }
    }

    void takeEveryCaseForTheSame()
    {
        QVERIFY(letters::same(u"étoile ǅ ЖУК σ", u"ÉTOILE ǆ жук Σ"));
        QVERIFY(!letters::same(u"etoile", u"étoile"));
        QVERIFY(!letters::same(u"\u212a", u"k")); // the sign for Kelvin
        QCOMPARE(letters::folded(u"ÉTOILE \U0001F4BC"), u"étoile \U0001F4BC"_s);
    }
};

JOBWRIGHT_TEST(TestLetters)
#include "tst_letters.moc"
