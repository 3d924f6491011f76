// What a Select answers: columns, order, and the parts of its rows that a caller may want.
#include "support/dialectengine.h"
#include "support/table.h"

#include "store/storeerror.h"

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
        const QStringList companies{u"(30,'Berg','1/1/2026')"_s, u"(10,'Acme','1/1/2026')"_s,
                                    u"(20,'berg','1/3/2026')"_s, u"(40,'Cole','')"_s};
        for (const QString& company : companies)
            m_engine.run(u"Insert Into Company (CompanyKey,Name,EntryDate) Values "_s + company);
        for (const QString& history :
             {u"('5-2',5,2,'1/2/2026')"_s, u"('5-1',5,1,'1/2/2026')"_s, u"('4-1',4,1,'1/1/2026')"_s})
            m_engine.run(u"Insert Into History (HistoryKey,ContactKey,ContactCount,ContactDate) Values "_s +
                         history);
        for (const QString& position :
             {u"('Buyer',10)"_s, u"('Agent',10)"_s, u"('Clerk',30)"_s, u"('Nobody',99)"_s})
            m_engine.run(u"Insert Into Position (Title,CompanyKey) Values "_s + position);
    }

    void want_answersPartOfTheRows_data()
    {
        // answer: the first column of the rows
        columns<QString, Want::Kind, QString, QString>("statement", "kind", "column", "answer");
        const auto row = [](const char* name, const QString& statement, Want::Kind kind,
                            const QString& column, const QString& answer) {
            QTest::newRow(name) << statement << kind << column << answer;
        };
        const QString all = u"Select * From Company"_s;
        const QString byName = u"Select * From Company Order By Name"_s;
        const QString byNameDown = u"Select * From Company Order By Name Desc"_s;
        const QString byDate = u"Select * From Company Order By EntryDate, Name Desc"_s;
        const QString none = u"Select * From Company Where Name='x'"_s;
        const QString history = u"Select * From History"_s;
        const QString count = u"Select Count(*) From Company"_s;
        const QString noCount = u"Select Count(*), Count(Name) From Company Where Name='x'"_s;
        row("rows in order, alike ones by key", byName, Want::AllRows, {}, u"10,20,30,40"_s);
        row("rows down, alike ones by key", byNameDown, Want::AllRows, {}, u"40,20,30,10"_s);
        row("rows in two orders, nothing first", byDate, Want::AllRows, {}, u"40,30,10,20"_s);
        row("a column twice in the order", byNameDown + u", Name"_s, Want::AllRows, {}, u"40,20,30,10"_s);
        row("rows without a key as they were stored", history, Want::AllRows, {}, u"5-2,5-1,4-1"_s);
        row("rows without a key, alike ones as stored", history + u" Order By ContactDate"_s, Want::AllRows,
            {}, u"4-1,5-2,5-1"_s);
        row("count of rows", all, Want::RowCount, {}, u"4"_s);
        row("last in order", byDate, Want::LastValue, u"name"_s, u"berg"_s);
        row("last without a key", history, Want::LastValue, u"ContactCount"_s, u"1"_s);
        row("last without a key, alike ones", history + u" Order By ContactDate"_s, Want::LastValue, {},
            u"5-1"_s);
        row("last of a listed column", u"Select Name As Employer, CompanyKey From Company"_s, Want::LastValue,
            u"employer"_s, u"Cole"_s);
        row("last of a count", noCount, Want::LastValue, u"EXPR1001"_s, u"0"_s);
        row("first row", byNameDown, Want::FirstRow, {}, u"40"_s);
        row("one column", byDate, Want::OneColumn, u"NAME"_s, u"Cole,Berg,Acme,berg"_s);
        row("existing row", all + u" Where Name='acme'"_s, Want::Exists, {}, u"1"_s);
        row("a count's row always exists", noCount, Want::Exists, {}, u"1"_s);
        row("count of what is not null", u"Select Count(EntryDate) From Company"_s, Want::AllRows, {},
            u"3"_s);
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
        QCOMPARE(m_engine.column(u"Select Title"_s + join).join(u','), u"Buyer,Agent,Clerk"_s);
        QCOMPARE(
            m_engine.column(u"Select Title"_s + join + u" Where Name='acme' Order By Title"_s).join(u','),
            u"Agent,Buyer"_s);
        QCOMPARE(m_engine.column(u"Select Count(Company.CompanyKey)"_s + join), QStringList{u"3"_s});
        QCOMPARE(m_engine.column(u"Select *"_s + join, {Want::LastValue, u"PositionKey"_s}),
                 QStringList{u"3"_s});
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

QTEST_APPLESS_MAIN(tst_DialectResults)
#include "tst_dialectresults.moc"
