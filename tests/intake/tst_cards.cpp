// Business cards as people have them, each with the fields that it is to be sorted into.
#include "intake/cardclassifier.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QFile>
#include <QHash>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// What a card file writes in a form that can be seen.
QString unescaped(QString text)
{
    return text.replace(u"\\t"_s, u"\t"_s)
        .replace(u"\\s"_s, u" "_s)
        .replace(u"\\n"_s, QString(QChar::Nbsp))
        .replace(u"\\r"_s, u"\r"_s);
}

QString readText(const QString& path)
{
    QFile file(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestCards : public QObject
{
    Q_OBJECT

private slots:
    void cardIsSortedIntoItsFields_data()
    {
        columns<QString, QStringList>("card", "fields");
        int count = 0;
        for (const QString& file : {u"us"_s, u"odd"_s}) {
            for (const QString& block :
                 readText(u"/tests/data/cards/"_s + file + u".cards").split(u"\n== "_s).mid(1)) {
                const QString name = block.section(u'\n', 0, 0);
                const QStringList halves = block.section(u'\n', 1).split(u"\n--\n"_s);
                QVERIFY2(halves.size() == 2, qPrintable(name));
                QHash<QString, QStringList> expected;
                for (const QString& line : halves[1].split(u'\n', Qt::SkipEmptyParts))
                    expected[line.section(u": "_s, 0, 0)].append(unescaped(line.section(u": "_s, 1)));
                QStringList fields;
                for (const QString& control : cardControls())
                    fields.append(control + u": " + expected.take(control).join(u"\r\n"_s));
                QVERIFY2(expected.isEmpty(), qPrintable(name));
                QTest::newRow(qPrintable(file + u": " + name)) << unescaped(halves[0]) << fields;
                ++count;
            }
        }
        QVERIFY(count >= 60);
    }

    void cardIsSortedIntoItsFields()
    {
        QFETCH(QString, card);
        QFETCH(QStringList, fields);
        const auto codes = AreaCodes::load(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd");
        QVERIFY(codes);
        const CardClassifier classifier(*codes);
        // Whatever ends the lines where the card came from.
        for (const QString& end : {u"\r\n"_s, u"\n"_s, u"\r"_s, QString(QChar::LineSeparator)}) {
            const Card sorted = classifier.classify(QString(card).replace(u"\n"_s, end));
            QStringList found;
            for (int field = 0; field < CardFieldCount; ++field)
                found.append(cardControls()[field] + u": " + sorted.fields[field]);
            QCOMPARE(found, fields);
        }
    }
};

JOBWRIGHT_TEST(TestCards)
#include "tst_cards.moc"
