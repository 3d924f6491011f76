// Separated values as other programs write them: delimiters, encodings, quotes, and what is no such file.
#include "formats/csvfile.h"
#include "formats/textfile.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QStringEncoder>

using namespace Qt::StringLiterals;

class TestCsvFile : public QObject
{
    Q_OBJECT

    static QString shown(const RecordTable& table)
    {
        QStringList records;
        for (int i = 0; i < table.recordCount(); ++i)
            records.append(QString::number(table.line(i)) + u": " + table.texts(i).join(u'|'));
        return records.join(u" / "_s);
    }

private slots:
    void recordsAreReadAndFaultsNameTheirLine_data()
    {
        table({"file", "records", "problem"},
              {{"plain", "a, b ,c\r\nd\r\n", "1: a|b|c / 2: d", ""},
               {"quotes", "\"a \"\"b\"\"\",\"x,y\"\n\"two\nlines\",z\nend",
                "1: a \"b\"|x,y / 2: two\nlines|z / 4: end", ""},
               {"empty lines and no end", "a;b\n\n\n;\nc;d", "1: a|b / 4: | / 5: c|d", ""},
               {"tab", "a\tb c\t\"d\"", "1: a|b c|d", ""},
               {"note before", "sep=;\na;b", "1: sep=| / 2: a|b", ""},
               {"formula is text", "=1+1,@x", "1: =1+1|@x", ""},
               {"unclosed", "a,b\nc,\"d\ne,f", "1: a|b", "near line 2 is never closed"}});
    }
    void recordsAreReadAndFaultsNameTheirLine()
    {
        FETCH(QString, file, records, problem);
        const QByteArray utf8 = file.toUtf8();
        const csvfile::Result read = csvfile::read(utf8, csvfile::findDelimiter(utf8));
        QCOMPARE(shown(read.table), records);
        QVERIFY2(problem.isEmpty() ? read.problem.isEmpty() : read.problem.contains(problem),
                 qPrintable(read.problem));
    }
    void hostileFilesEndInAMessage_data()
    {
        columns<QByteArray, QString>("file", "problem");
        QTest::newRow("zero byte") << QByteArray("a,b\nc\0d", 7) << u"Line 2 holds a zero byte"_s;
        QTest::newRow("10 MB value") << "x,y\n" + QByteArray(10 << 20, 'a')
                                     << u"near line 2 is longer than 1 MB"_s;
        QTest::newRow("10 MB in quotes")
            << "x\n\"" + QByteArray("a\n").repeated(5 << 20) << u"near line 2 is longer"_s;
        QTest::newRow("columns") << "x\n" + QByteArray(2000, ',') << u"Line 2 has more than 2000"_s;
        QTest::newRow("1,000 columns") << QByteArray(999, ',') << QString();
    }
    void hostileFilesEndInAMessage()
    {
        QFETCH(QByteArray, file);
        FETCH(QString, problem);
        const csvfile::Result read = csvfile::read(file, ',');
        QVERIFY2(problem.isEmpty() == read.problem.isEmpty() && read.problem.contains(problem),
                 qPrintable(read.problem));
        QCOMPARE(read.table.recordCount(), 1);
        QVERIFY(read.table.place(read.table.totalCells() - 1).first == 0);
    }
    void encodingIsFound()
    {
        const QString text = u"Zoë,Müller\nÅsa,Öberg\n"_s;
        for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE,
                                    QStringConverter::Utf8, QStringConverter::Latin1}) {
            for (const auto flag : {QStringConverter::Flag::Default, QStringConverter::Flag::WriteBom}) {
                QStringEncoder encoder(encoding, flag);
                const QByteArray bytes = encoder.encode(text);
                QCOMPARE(QString::fromUtf8(textfile::toUtf8(bytes)), text);
            }
        }
        QCOMPARE(QString::fromUtf8(textfile::toUtf8("a\x92z")), u"a’z"_s);
    }
    void whatIsWrittenIsReadBack()
    {
        const QStringList values{u"a,b"_s, u"say \"hi\""_s, u" blank "_s, u"two\r\nlines"_s, {}};
        QCOMPARE(csvfile::read(csvfile::line(values).toUtf8(), ',').table.texts(0), values);
        const RecordTable turned = csvfile::read("a,b,c\nd,e\n", ',').table.transposed();
        QCOMPARE(shown(turned), u"1: a|d / 2: b|e / 3: c|"_s);
    }
};

JOBWRIGHT_TEST(TestCsvFile)
#include "tst_csvfile.moc"
