// What a Select answers: columns, order, and the parts of its rows that a caller may want.
#include "support/dialectengine.h"
#include "support/runtest.h"
#include "support/table.h"

#include "store/engine/storeerror.h"

#include <QTest>

using namespace Qt::StringLiterals;
using dialect::Want;

class tst_DialectResults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Keys, names and dates each give another order; two names and two dates are alike.
        for (const QString& row :
             {u"Company (CompanyKey,Name,EntryDate) Values (30,'Berg','1/1/2026')"_s,
              u"Company (CompanyKey,Name,EntryDate) Values (10,'Acme','1/1/2026')"_s,
              u"Company (CompanyKey,Name,EntryDate) Values (20,'berg','1/3/2026')"_s,
              u"Company (CompanyKey,Name,EntryDate) Values (40,'Cole','')"_s,
              u"History (HistoryKey,ContactKey,ContactCount,ContactDate) Values ('5-2',5,2,'1/2/2026')"_s,
              u"History (HistoryKey,ContactKey,ContactCount,ContactDate) Values ('5-1',5,1,'1/2/2026')"_s,
              u"History (HistoryKey,ContactKey,ContactCount,ContactDate) Values ('4-1',4,1,'1/1/2026')"_s,
              u"Position (Title,CompanyKey) Values ('Buyer',10)"_s,
              u"Position (Title,CompanyKey) Values ('Agent',10)"_s,
              u"Position (Title,CompanyKey) Values ('Clerk',30)"_s,
              u"Position (Title,CompanyKey) Values ('Nobody',99)"_s})
            m_engine.run(u"Insert Into "_s + row);
    }

    void want_answersPartOfTheRows_data()
    {
        // answer: the first column of the rows
        columns<QString, Want::Kind, QString, QString>("statement", "kind", "column", "answer");
        const auto row = [](const char* name, const char* rest, Want::Kind kind, const char* column,
                            const char* answer) {
            QTest::newRow(name) << QString(u"Select "_s + QLatin1String(rest)) << kind
                                << QString::fromLatin1(column) << QString::fromLatin1(answer);
        };
        const char* const byNameDown = "* From Company Order By Name Desc";
        const char* const byDate = "* From Company Order By EntryDate, Name Desc";
        const char* const history = "* From History";
        const char* const historyByDate = "* From History Order By ContactDate";
        const char* const noCount = "Count(*), Count(Name) From Company Where Name='x'";
        row("rows in order, alike ones by key", "* From Company Order By Name", Want::AllRows, "",
            "10,20,30,40");
        row("rows down, alike ones by key", byNameDown, Want::AllRows, "", "40,20,30,10");
        row("rows in two orders, nothing first", byDate, Want::AllRows, "", "40,30,10,20");
        row("a column twice in the order", "* From Company Order By Name Desc, Name", Want::AllRows, "",
            "40,20,30,10");
        row("rows without a key as they were stored", history, Want::AllRows, "", "5-2,5-1,4-1");
        row("rows without a key, alike ones as stored", historyByDate, Want::AllRows, "", "4-1,5-2,5-1");
        row("count of rows", "* From Company", Want::RowCount, "", "4");
        row("last in order", byDate, Want::LastValue, "name", "berg");
        row("last without a key", history, Want::LastValue, "ContactCount", "1");
        row("last without a key, alike ones", historyByDate, Want::LastValue, "", "5-1");
        row("last of a listed column", "Name As Employer From Company", Want::LastValue, "employer", "Cole");
        row("last of a count", noCount, Want::LastValue, "EXPR1001", "0");
        row("first row", byNameDown, Want::FirstRow, "", "40");
        row("one column", byDate, Want::OneColumn, "NAME", "Cole,Berg,Acme,berg");
        row("existing row", "* From Company Where Name='acme'", Want::Exists, "", "1");
        row("a count's row always exists", noCount, Want::Exists, "", "1");
        row("count of what is not null", "Count(EntryDate) From Company", Want::AllRows, "", "3");
    }
    void want_answersPartOfTheRows()
    {
        FETCH(QString, statement, column, answer);
        QFETCH(Want::Kind, kind);
        QCOMPARE(m_engine.column(statement, {kind, column}).join(u','), answer);
        const bool single = kind != Want::AllRows && kind != Want::FirstRow;
        if (single)
            QCOMPARE(dialect::translate(statement, {kind, column}).columns.size(), std::size_t(1));
    }

    void wantedColumn_thatTheResultLacks_isRefused()
    {
        for (const Want::Kind kind : {Want::LastValue, Want::OneColumn}) {
            try {
                dialect::translate(u"Select Name From Company", {kind, u"CompanyKey"_s});
                QFAIL("translated");
            } catch (const StoreError& error) {
                QCOMPARE(error.number(), static_cast<int>(StoreError::UnknownName));
            }
        }
    }

    void selectedColumns_haveTheSchemasNamesAndTypes_data()
    {
        table({"statement", "columns"},
              {{"all", "select * from STATUS", "StatusKey:0 StatusDescription:2 StatusDate:3 StatusValue:2"},
               {"listed in any case", "Select URl2, zip From address", "URL2:2 Zip:2"},
               {"count without a name", "Select Count(Name) From Company", "EXPR1000:1"},
               {"count with a name", "Select Count(*) As total, Count(Name) From Company",
                "total:1 EXPR1000:1"},
               {"count in a join",
                "Select Count(Company.Name) From Company Inner Join CProfile On "
                "Company.CompanyKey=CProfile.CompanyKey",
                "EXPR1000:1"},
               {"all of a join", "Select * From CProfile Inner Join Status On CProfile.PR=Status.StatusKey",
                "CProfileKey:0 CompanyKey:1 QAns:2 PR:1 QCount:1 TemplateKey:1 StatusKey:0 "
                "StatusDescription:2 StatusDate:3 StatusValue:2"}});
    }
    void selectedColumns_haveTheSchemasNamesAndTypes()
    {
        QFETCH(QString, statement);
        QStringList columns;
        for (const dialect::ResultColumn& column : dialect::translate(statement).columns)
            columns.append(column.name + u':' + QString::number(static_cast<int>(column.type)));
        QTEST(columns.join(u' '), "columns");
    }

    void joinedRows_meetOnTheirKeys()
    {
        const QString join = u" From Company Inner Join Position On Company.CompanyKey=Position.CompanyKey"_s;
        const auto answer = [&](const QString& what, const QString& rest = {},
                                const dialect::Want& want = {}) {
            return m_engine.column(u"Select "_s + what + join + rest, want).join(u',');
        };
        QCOMPARE(answer(u"Title"_s), u"Buyer,Agent,Clerk"_s);
        QCOMPARE(answer(u"Title"_s, u" Where Name='acme' Order By Title"_s), u"Agent,Buyer"_s);
        QCOMPARE(answer(u"Count(Company.CompanyKey)"_s), u"3"_s);
        QCOMPARE(answer(u"*"_s, {}, {Want::LastValue, u"PositionKey"_s}), u"3"_s);
    }

    void shape_ofTooMuch_isRefused_data()
    {
        columns<QString, bool>("statement", "fits");
        const QString start = u"Select * From Company Where Name='"_s;
        QTest::newRow("longest") << start + QString(1'000'000 - start.size() - 1, u'x') + u'\'' << true;
        QTest::newRow("too long") << start + QString(1'000'000 - start.size(), u'x') + u'\'' << false;
        QTest::newRow("too many values") << QString(u"1,"_s).repeated(1001) << false;
    }
    void shape_ofTooMuch_isRefused()
    {
        QFETCH(QString, statement);
        QFETCH(bool, fits);
        try {
            dialect::splitShape(statement);
            QVERIFY(fits);
        } catch (const StoreError& error) {
            QVERIFY(!fits);
            QCOMPARE(error.number(), static_cast<int>(StoreError::BadStatement));
        }
    }

    void refusal_namesThePlaceInTheStatement_data()
    {
        table({"statement", "description"},
              {{"word instead of a keyword", "Select * Form Company",
                "\"Form Company\" stands where From is expected, at character 10."},
               {"end behind values", "Select * From Company Where CompanyKey=125 And",
                "The statement ends where a value or a column is expected, at character 47."},
               {"found values are shown",
                "Select * From Company Where Name='Acme' 'Berg and more than forty characters of it'",
                "\"'Berg and more than forty characters of ...\" stands where the end of the statement is "
                "expected, at character 41."},
               {"unknown column", "Select * From Event where PositionKey = 9 Order by Date",
                "There is no column \"Date\" in Event, at character 52."},
               {"foreign character", "Select * From Company Where Name=\"x\"",
                "The character \"\"\" (U+0022) does not belong into a statement, at character 34."}});
    }
    void refusal_namesThePlaceInTheStatement()
    {
        QFETCH(QString, statement);
        try {
            dialect::translate(statement);
            QFAIL("translated");
        } catch (const StoreError& error) {
            QTEST(error.description(), "description");
        }
    }

private:
    DialectEngine m_engine;
};

JOBWRIGHT_TEST(tst_DialectResults)
#include "tst_dialectresults.moc"
