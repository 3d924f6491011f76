// Workbooks: both forms, both date systems, and those that must not be unpacked.
#include "formats/textfile.h"
#include "formats/xlsxfile.h"
#include "support/runtest.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

class TestXlsxFile : public QObject
{
    Q_OBJECT

private slots:
    void sheetsAreReadAndFaultsAreNamed_data()
    {
        table(
            {"sheets", "rows", "problem"},
            {{"shared.xlsx", "People,Old (hidden)",
              "1: First Name|Last Name|Since / 3: Ann Marie|Lee|11/5/2026||7", ""},
             {"strict1904.xlsx", "Sheet", "1: Ito|11/5/2026 12:00:00 PM|11/5/2026 / 2: two|6175550142|1", ""},
             {"badstring.xlsx", "S", "1: kept", "Cell B2"},
             {"nosheet.xlsx", "S", "", "lacks its part xl/worksheets/sheet1.xml"},
             {"bomb.xlsx", "S", "", "more than an import may"},
             {"locked.xlsx", "", "", "locked with a password"},
             {"notzip.xlsx", "", "", "no sound workbook"}});
    }
    void sheetsAreReadAndFaultsAreNamed()
    {
        FETCH(QString, sheets, rows, problem);
        const QString file = QString::fromLatin1(QTest::currentDataTag());
        QByteArray bytes;
        QString said;
        QVERIFY(textfile::read(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/tests/data/imports/" + file, bytes,
                               said));
        QVERIFY(XlsxFile::isWorkbook(bytes));
        XlsxFile workbook;
        said = workbook.open(bytes);
        QStringList names;
        for (const auto& sheet : workbook.sheets())
            names.append(sheet.name + (sheet.hidden ? u" (hidden)"_s : QString()));
        QCOMPARE(names.join(u','), sheets);
        QStringList read;
        if (said.isEmpty()) {
            const XlsxFile::Result result = workbook.read(0);
            said = result.problem;
            for (int i = 0; i < result.table.recordCount(); ++i)
                read.append(QString::number(result.table.line(i)) + u": " + result.table.texts(i).join(u'|'));
        }
        QCOMPARE(read.join(u" / "_s), rows);
        QVERIFY2(problem.isEmpty() == said.isEmpty() && said.contains(problem), qPrintable(said));
    }
};

JOBWRIGHT_TEST(TestXlsxFile)
#include "tst_xlsxfile.moc"
