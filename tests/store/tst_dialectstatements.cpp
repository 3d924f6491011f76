// Every shape of statement that the program sends, what it must refuse, and what the fuzz target once found,
// against the real engine.
#include "fuzz/dialectcheck.h"
#include "support/dialectengine.h"
#include "support/runtest.h"
#include "support/table.h"

#include "store/engine/storeerror.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_DialectStatements : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (
            const QString& row :
            {u"Address (AddressKey,Address1,EntryDate) Values (5,'1 Main St','1/2/26')"_s,
             u"Company (CompanyKey,Name,AddressKey,EntryDate) Values (7,'Acme',5,'1/2/2026')"_s,
             u"Contact (ContactKey,FirstName,LastName,CompanyKey,ContactLevel,ContactList) "
             "Values (12,'Ana','Ruiz',7,37,'5,9')"_s,
             u"Position (PositionKey,Title,CompanyKey,Expires,SentResume) Values (5,'Buyer',7,'12/31/99','6/1/2026')"_s,
             u"History (HistoryKey,ContactKey,ContactCount,ContactDate) Values ('12-1',12,1,'3/4/2026')"_s,
             u"Event (EventKey,Event,EventDate,PositionKey) Values (9,'Interview','3/9/2026',5)"_s,
             u"Status (StatusKey,StatusDescription,StatusValue) Values (1,'Autosave','1')"_s,
             u"Target (TargetKey,Name,Contacts,EntryDate) Values (2,'Acme',1,'1/2/2026')"_s,
             u"UProfile (UProfileKey,Title,Index) Values (4,'Engineer','Index')"_s})
            m_engine.run(u"Insert Into "_s + row);
    }

    void statement_isRunOrRefused_data()
    {
        columns<QString, QString, QString>("verdict", "words", "statement");
        QFile file(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/tests/data/statements.txt"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        int number = 0;
        while (!file.atEnd()) {
            ++number;
            QString line = QString::fromUtf8(file.readLine());
            line.chop(1);
            if (line.startsWith(u"# "))
                continue;
            const QStringList parts = line.split(u'\t');
            QVERIFY2(parts.size() >= 3, qPrintable(line));
            // A statement may itself hold a tab.
            const QString statement = line.section(u'\t', 2).replace(u"{CRLF}"_s, u"\r\n"_s);
            QTest::addRow("line %d: %s", number, qPrintable(statement.left(60).simplified()))
                << parts[0] << parts[1] << statement;
        }
        QVERIFY(number > 500);
    }

    void statement_isRunOrRefused()
    {
        FETCH(QString, verdict, words, statement);
        const QHash<QString, int> codes{{u"BadStatement"_s, StoreError::BadStatement},
                                        {u"UnknownName"_s, StoreError::UnknownName},
                                        {u"TypeMismatch"_s, StoreError::TypeMismatch}};
        try {
            m_engine.tryOut(statement);
            QCOMPARE(u"ok"_s, verdict);
        } catch (const StoreError& error) {
            QVERIFY2(error.source() != u"SQLite", qPrintable(error.description()));
            QVERIFY2(codes.contains(verdict), qPrintable(u"refused: "_s + error.description()));
            QCOMPARE(error.number(), codes.value(verdict));
            QVERIFY2(error.description().contains(words), qPrintable(error.description()));
        }
    }

    void fuzzSeed_isRefusedOrRun()
    {
        const QDir folder(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/tests/data/fuzz/dialect"));
        const QFileInfoList seeds = folder.entryInfoList(QDir::Files);
        QVERIFY(!seeds.isEmpty());
        DialectCheck check;
        for (const QFileInfo& seed : seeds) {
            QFile file(seed.filePath());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const std::optional<QString> broken = check.violation(QString::fromUtf8(file.readAll()));
            QVERIFY2(!broken, qPrintable(seed.fileName() + u": " + broken.value_or(QString())));
        }
    }

    void statement_withOtherValues_isTheSameSql_data() { statement_isRunOrRefused_data(); }

    void statement_withOtherValues_isTheSameSql()
    {
        FETCH(QString, verdict, statement);
        if (verdict != u"ok")
            return;
        const dialect::Shape shape = dialect::splitShape(statement);
        QString other = shape.key;
        other.replace(u'\'', u"'Or 1=1'"_s).replace(u'"', u"'Ör 1=1'"_s);
        other.replace(u'?', u"987654.25"_s).replace(u'#', u"#1/1/2001#"_s);
        QCOMPARE(dialect::splitShape(other).key, shape.key);
        const dialect::Translation translation = dialect::translate(statement);
        const dialect::Translation otherTranslation = dialect::translate(other);
        QCOMPARE(otherTranslation.sql, translation.sql);
        for (std::size_t i = 0; i < translation.parameters.size(); ++i) {
            QCOMPARE(otherTranslation.parameters[i].literal, translation.parameters[i].literal);
            QCOMPARE(otherTranslation.parameters[i].as, translation.parameters[i].as);
        }
        QVERIFY(!translation.sql.contains("r 1=1"));
    }

private:
    DialectEngine m_engine;
};

JOBWRIGHT_TEST(tst_DialectStatements)
#include "tst_dialectstatements.moc"
