// The form on paper.
#include "support/runtest.h"
#include "views/windowbench.h"

#include "desktop/printing.h"

#include <QProcess>
#include <QStandardPaths>

class TestPrinting : public QObject
{
    Q_OBJECT

private slots:
    void pageHasTheFormsValuesAndNoMarkup()
    {
        WindowBench bench;
        bench.addCompany(u"<b>Acme</b> & Sons"_s);
        bench.open();
        bench.choose(u"<b>Acme</b> & Sons"_s);
        QStringList texts;
        const ReportDocument form = bench.window->printableForm();
        for (const ReportPage::Block& block : form.pages.front().blocks)
            texts += block.texts;
        const QString page = texts.join(u'\n');
        QVERIFY2(page.startsWith(u"<b>Acme</b> & Sons"_s), qPrintable(page));
        for (const auto& part : {u"Industry\nTools"_s, u"Notes\nold notes"_s, u"Short name\n"_s,
                                 u"The company has been in your database for 3 weeks."_s})
            QVERIFY2(page.contains(part), qPrintable(part + u" in "_s + page));
        QVERIFY(!page.contains(u"Fax"_s)); // empty fields would only be labels in a row
    }

    void pdfIsWrittenWhereItCanBe()
    {
        QTemporaryDir folder;
        ReportDocument page;
        page.title = u"Rails"_s;
        page.pages.resize(1);
        page.pages.front().add(ReportPage::Block::Paragraph, u"Acme Rails"_s);
        for (const QString& nowhere : {u"/nowhere/at/all.pdf"_s, QString()})
            QVERIFY(!Printing().writePdf(page, nowhere));
        const QString path = folder.filePath(u"form.pdf"_s);
        QVERIFY(Printing().writePdf(page, path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.read(5) == "%PDF-");
        if (QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty())
            QSKIP("pdftotext is not installed; the file itself was written");
        QProcess reader;
        reader.start(u"pdftotext"_s, {path, u"-"_s});
        QVERIFY(reader.waitForFinished());
        QVERIFY(reader.readAllStandardOutput().contains("Acme Rails"));
    }
};

JOBWRIGHT_TEST(TestPrinting)
#include "tst_printing.moc"
