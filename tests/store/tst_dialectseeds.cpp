// The fuzz target's seeds, and what it once found, in every test run.
#include "fuzz/dialectcheck.h"

#include <QDir>
#include <QTest>

class tst_DialectSeeds : public QObject
{
    Q_OBJECT

private slots:
    void seed_isRefusedOrRun_data()
    {
        QTest::addColumn<QString>("path");
        const QDir folder(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/tests/data/fuzz/dialect"));
        const QFileInfoList seeds = folder.entryInfoList(QDir::Files);
        QVERIFY(!seeds.isEmpty());
        for (const QFileInfo& seed : seeds)
            QTest::newRow(qPrintable(seed.fileName())) << seed.filePath();
    }

    void seed_isRefusedOrRun()
    {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        DialectCheck check;
        const std::optional<QString> broken = check.violation(QString::fromUtf8(file.readAll()));
        QVERIFY2(!broken, qPrintable(broken.value_or(QString())));
    }
};

QTEST_APPLESS_MAIN(tst_DialectSeeds)
#include "tst_dialectseeds.moc"
