// How literals become values of the store, and what expressions mean.
#include "support/dialectengine.h"
#include "support/runtest.h"
#include "support/table.h"

#include "store/engine/storeerror.h"

#include <QTest>

using namespace Qt::StringLiterals;
using dialect::BindAs;
using dialect::LiteralKind;

Q_DECLARE_METATYPE(dialect::BindAs)

class tst_DialectValues : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_engine = std::make_unique<DialectEngine>(); }

    void storedValue_isReadBackAs_data()
    {
        // stored: "NULL" for none; of type text, and integer in an integer's column
        table({"column", "literal", "stored"},
              {{"month/day/two-digit year", "EntryDate", "'11/5/26'", "2026-11-05"},
               {"iso", "EntryDate", "'2026-11-05'", "2026-11-05"},
               {"short sentinel", "EntryDate", "'12/31/99'", "1999-12-31"},
               {"afternoon", "EntryDate", "'11/5/2026 2:05:00 PM'", "2026-11-05 14:05:00"},
               {"midnight is the plain day", "EntryDate", "'11/5/2026 12:00 AM'", "2026-11-05"},
               {"no delimited date", "EntryDate", "##", "NULL"},
               {"no number", "AddressKey", "''", "NULL"},
               {"quoted zero", "AddressKey", "'0'", "0"},
               {"quoted negative number", "AddressKey", "'-12'", "-12"},
               {"negative number", "AddressKey", "-12", "-12"},
               {"decimals are rounded", "AddressKey", "2.5", "3"},
               {"quoted decimals are rounded", "AddressKey", "'2.4'", "2"},
               {"division is rounded", "AddressKey", "7/2", "4"},
               {"largest number", "AddressKey", "'2147483647'", "2147483647"},
               {"number into text keeps its form", "Name", "007.50", "007.50"},
               {"joined text", "Name", "'a' & 5 & 'b'", "a5b"},
               {"empty text is no null", "Name", "''", ""},
               {"text with line ends", "Notes", "'a\r\nb'", "a\r\nb"},
               {"text with engine signs", "Notes", "'?1 \" ; -- [x] #'", "?1 \" ; -- [x] #"},
               {"text beyond ASCII", "Notes", "'Zoë \U0001F4BC'", "Zoë \U0001F4BC"}});
    }
    void storedValue_isReadBackAs()
    {
        FETCH(QString, column, literal, stored);
        const QByteArray typeQuery = "select typeof(\"" + column.toUtf8() + "\") from Company";
        const auto storedAs = [&](const QString& statement) {
            m_engine->run(u"Delete * From Company"_s);
            m_engine->run(u"Insert Into Company (CompanyKey) Values (1)"_s);
            m_engine->run(statement);
            const QString where = u" Where CompanyKey=%1"_s.arg(statement.startsWith(u"Insert") ? 2 : 1);
            return m_engine->column(u"Select "_s + column + u" From Company"_s + where);
        };
        for (const QString& statement : {u"Insert Into Company (CompanyKey,%1) Values (2,%2)"_s,
                                         u"Update Company Set %1=%2 Where CompanyKey=1"_s})
            QCOMPARE(storedAs(QString(statement).replace(u"%1"_s, column).replace(u"%2"_s, literal)),
                     QStringList{stored});
        sqlite3_set_authorizer(m_engine->handle(), nullptr, nullptr);
        const QString type = column == u"AddressKey" ? u"integer"_s : u"text"_s;
        QCOMPARE(m_engine->execute(typeQuery).front(), stored == u"NULL" ? u"null"_s : type);
    }

    void condition_findsRows_data()
    {
        table({"condition", "names"},
              {{"joined text in another case", "'X' & Name='xacme'", "Acme"},
               {"texts alone in another case", "'a'='A' And Name='Dane'", "Dane"},
               {"no text joins as nothing", "'x' & Notes & 'y'='xy'", "Berg,Cole,Dane"},
               {"letters with marks in another case", "Name='éTOILE du nord'", "Étoile du Nord"},
               {"a mark behind plain letters", "Name='NESTLÉ'", "Nestlé"},
               {"plain letters are not marked ones", "Name='etoile du nord'", ""},
               {"another than letters with marks", "Name<>'étoile DU nord' And Notes='m'", "Nestlé"},
               {"above, beside the plain letter", "Name>'dzz' And Name<'f'", "Étoile du Nord"},
               {"quoted number", "AddressKey='20'", "Berg"},
               {"quoted numbers order as numbers", "AddressKey>'9'", "Acme,Berg"},
               {"empty text against a number", "AddressKey=''", ""},
               {"product before division is real", "CompanyKey*CompanyKey/AddressKey=0.2", "Berg"},
               {"division by zero", "AddressKey/0=1", ""},
               {"product before sum", "1+2*3=7 And -(1+2)*3=0-9 And CompanyKey=1", "Acme"},
               {"difference from the left", "9-3-2=4 And 9-(3-2)=8 And CompanyKey=1", "Acme"},
               {"and before or", "Name='Acme' Or Name='Berg' And AddressKey=1", "Acme"},
               {"not before and", "Not Name='Acme' And CompanyKey<3", "Berg"},
               {"between binds its own and", "CompanyKey Between 2 And 3 And Name='Cole'", "Cole"},
               {"delimited date", "EntryDate>#11/5/2026#", "Berg"},
               {"between ends at midnight", "EntryDate Between #11/1/2026# And #11/6/2026#", "Acme"},
               {"unquoted date finds no ordinary date", "EntryDate < 11/15/2026", "Cole"},
               {"unquoted iso date is a difference", "EntryDate > 2026-11-15 And EntryDate < 46332", "Acme"},
               {"date beside a number's column", "AddressKey Between 5 And EntryDate", "Acme,Berg"},
               {"date reckoned with", "EntryDate-30=46331-30", "Acme"}});
    }
    void condition_findsRows()
    {
        m_engine->run(u"Insert Into Company (CompanyKey,Name,AddressKey,EntryDate,Notes) "
                      "Values (1,'Acme',10,'11/5/2026','note')"_s);
        m_engine->run(u"Insert Into Company (CompanyKey,Name,AddressKey,EntryDate) "
                      "Values (2,'Berg',20,'11/6/2026 2:05 PM')"_s);
        m_engine->run(u"Insert Into Company (CompanyKey,Name,EntryDate) Values (3,'Cole','12/29/1899')"_s);
        m_engine->run(u"Insert Into Company (CompanyKey,Name) Values (4,'Dane')"_s);
        m_engine->run(u"Insert Into Company (CompanyKey,Name,Notes) Values (5,'Étoile du Nord','m')"_s);
        m_engine->run(u"Insert Into Company (CompanyKey,Name,Notes) Values (6,'Nestlé','m')"_s);
        FETCH(QString, condition, names);
        QCOMPARE(m_engine->column(u"Select Name From Company Where "_s + condition).join(u','), names);
    }

    void literal_thatDoesNotFit_isRefused_data()
    {
        columns<QString, BindAs>("text", "as");
        for (const char* text :
             {"a", "1a", "1,5", "1.2.3", "--1", "- 1", ".", "-", "1e3", "inf", "nan", " ", "٣", "0x1"}) {
            for (const BindAs as : {BindAs::StoredInteger, BindAs::Number, BindAs::Real})
                QTest::addRow("number %s, %d", text, static_cast<int>(as)) << QString::fromUtf8(text) << as;
        }
        QTest::newRow("above 32 bits") << u"2147483648"_s << BindAs::StoredInteger;
        QTest::newRow("below 32 bits") << u"-2147483648.5"_s << BindAs::StoredInteger;
        QTest::newRow("far above 32 bits") << QString(400, u'9') << BindAs::StoredInteger;
        QTest::newRow("above every number") << QString(400, u'9') << BindAs::Number;
        QTest::newRow("reckoned above every number") << QString(400, u'9') << BindAs::Real;
        for (const char* text :
             {"soon", "2/29/2026", "13/1/2026", "1/1/99999", "11/5", "46331", "1/1/2026 25:00"})
            QTest::addRow("date %s", text) << QString::fromUtf8(text) << BindAs::StoredDate;
    }
    void literal_thatDoesNotFit_isRefused()
    {
        QFETCH(QString, text);
        QFETCH(BindAs, as);
        try {
            dialect::bindValue({LiteralKind::Text, text}, as);
            QFAIL("bound");
        } catch (const StoreError& error) {
            QCOMPARE(error.number(), static_cast<int>(StoreError::TypeMismatch));
            QVERIFY2(error.description().contains(text.left(40)), qPrintable(error.description()));
        }
    }

    void historyKeys_areJoinedFromKeyAndCount()
    {
        m_engine->run(u"Insert Into History (HistoryKey,ContactKey,ContactCount) Values ('12-1',44,1)"_s);
        m_engine->run(u"Insert Into History (HistoryKey,ContactKey,ContactCount) Values ('12-2',44,'2')"_s);
        m_engine->run(u"Insert Into History (HistoryKey,ContactKey) Values ('12-3',44)"_s);
        m_engine->run(u"Update History set HistoryKey=('44-' & ContactCount) where contactkey=44"_s);
        QCOMPARE(m_engine->column(u"Select HistoryKey From History"_s),
                 QStringList({u"44-1"_s, u"44-2"_s, u"44-"_s}));
    }

    void copiedTable_keepsKeysAndOrder()
    {
        for (const int key : {9, 4, 7})
            m_engine->run(
                u"Insert Into Target (TargetKey,Name,EntryDate) Values (%1,'T%1','1/%1/2026')"_s.arg(key));
        m_engine->run(u"INSERT INTO TargetRecovery select * From Target"_s);
        QCOMPARE(m_engine->execute("select * from TargetRecovery order by 1"),
                 m_engine->execute("select * from Target order by 1"));
        // A journal's keys are its own: the row gets the next one.
        m_engine->run(u"Insert Into TargetRecovery (Name) Values ('later')"_s);
        QCOMPARE(m_engine->column(u"Select TargetKey From TargetRecovery Where Name='later'"_s),
                 QStringList{u"10"_s});
    }

    void deepestExpressions_areRunOrRefused_data()
    {
        table({"before", "opening", "middle", "closing"},
              {{"parentheses", "", "(", "CompanyKey=1", ")"},
               {"not of parentheses", "", "Not (", "CompanyKey=1", ")"},
               {"mixed sum to the right", "0<", "1-2*(", "1", ")"},
               {"division", "", "", "0=CompanyKey", "/CompanyKey"},
               {"or of between", "", "", "CompanyKey=1", " Or EntryDate Between 1 And 2"}});
    }
    void deepestExpressions_areRunOrRefused()
    {
        FETCH(QString, before, opening, middle, closing);
        bool refused = false;
        int accepted = 0;
        for (const int depth :
             {2, 5, 10, 20, 25, 30, 50, 99, 100, 150, 199, 200, 290, 299, 300, 330, 1000, 50000}) {
            try {
                m_engine->run(u"Select * From Company Where "_s + before + opening.repeated(depth) + middle +
                              closing.repeated(depth));
                QVERIFY2(!refused, qPrintable(QString::number(depth)));
                accepted = depth;
            } catch (const StoreError& error) {
                QCOMPARE(error.number(), static_cast<int>(StoreError::BadStatement));
                refused = true;
            }
        }
        QVERIFY(refused);
        QVERIFY2(accepted >= 5, qPrintable(QString::number(accepted)));
    }

private:
    std::unique_ptr<DialectEngine> m_engine;
};

JOBWRIGHT_TEST(tst_DialectValues)
#include "tst_dialectvalues.moc"
