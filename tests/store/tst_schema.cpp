// The tables as they come out in a real file, and whether the program's lookups are quick on them.
#include "support/dialectengine.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_Schema : public QObject
{
    Q_OBJECT

private slots:
    void createdTables_haveTheListedColumns()
    {
        sqlite3_set_authorizer(m_engine.handle(), nullptr, nullptr);
        QStringList described;
        for (const schema::Table& table : schema::tables()) {
            QStringList columns;
            for (const QString& row :
                 m_engine.execute("pragma table_info(\"" + table.name.toUtf8() + "\")")) {
                const QStringList column = row.split(u'|');
                const QString& name = column[1];
                if (name == u"RowNumber")
                    continue; // of a table without a key of its own
                const schema::ColumnType type = table.columns.at(table.indexOf(name)).type;
                const QString word = type == schema::ColumnType::Date                          ? u"date"_s
                                     : column[2] == u"TEXT"                                    ? u"text"_s
                                     : name == table.columns.front().name && column[5] == u"1" ? u"auto"_s
                                                                                               : u"int"_s;
                columns.append(name + u':' + word);
            }
            described.append(table.name + u": " + columns.join(u' '));
        }
        QFile file(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/tests/data/columns.txt"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(described, QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts));
    }

    void lookup_usesAnIndex_data()
    {
        using dialect::Want;
        columns<QString, Want::Kind>("statement", "kind");
        const auto row = [](const QString& statement, Want::Kind kind = Want::AllRows) {
            QTest::addRow("%s, %d", qPrintable(statement), static_cast<int>(kind)) << statement << kind;
        };
        row(u"Select * from Contact where ContactKey=12"_s);
        row(u"Select * from company where name='acme'"_s);
        row(u"Select * from company where name='Nestlé'"_s);
        row(u"Select * from company where name='Étoile'"_s);
        row(u"Select * from contact where firstName='Ana' and lastName='Ruiz'"_s);
        row(u"Select * from Contact where firstName='Ana' and lastName='Ruiz' and companykey=3"_s);
        row(u"Select * from Contact where companyKey=3"_s);
        row(u"Select * from Contact where AddressKey=3"_s, Want::Exists);
        row(u"Select * from Address where Address1='1 Main St'"_s);
        row(u"Select * from Position where title='Buyer' and CompanyKey=3"_s);
        row(u"Select * from Company order by CompanyKey"_s, Want::LastValue);
        row(u"Select * from History"_s, Want::LastValue);
        row(u"Select * from History where ContactKey=3 Order by ContactDate,ContactCount"_s);
        row(u"Select * from History where ContactKey=3"_s, Want::LastValue);
        row(u"Update History set HistoryKey=('9-' & ContactCount) where contactkey=9"_s);
        row(u"Select * from Event Order by EventKey DESC"_s, Want::FirstRow);
        row(u"Select * from Event Order by EventDate"_s);
        row(u"Delete * from event where contactKey=12"_s);
        row(u"Update Event Set PositionKey=9 where PositionKey=5"_s);
        row(u"Select * from Status where StatusDescription='Autosave' Order by StatusKey"_s);
        row(u"Select * from Target where Name='Acme'"_s);
        row(u"Select * from JProfile where PositionKey=5"_s);
        row(u"Delete * from Cprofile where companykey=5"_s);
    }
    void lookup_usesAnIndex()
    {
        QFETCH(QString, statement);
        QFETCH(dialect::Want::Kind, kind);
        const bool wholeTable = !statement.contains(u" where "_s);
        for (const QString& step : plan(statement, {kind, {}})) {
            // The few rows of one contact may be sorted, and those of names that are the same.
            const bool few =
                statement.contains(u"where ContactKey="_s) || statement.contains(u"where name='"_s);
            if (step.startsWith(u"USE TEMP B-TREE") && few)
                continue;
            QVERIFY2(!step.startsWith(u"USE TEMP B-TREE"), qPrintable(step));
            QVERIFY2(wholeTable || step.startsWith(u"SEARCH"), qPrintable(step));
        }
    }

    void valueOfAnotherKind_isRefusedByTheTables()
    {
        QVERIFY_EXCEPTION_THROWN(m_engine.execute("insert into Company (AddressKey) values ('twelve')"),
                                 StoreError);
        QVERIFY_EXCEPTION_THROWN(m_engine.execute("insert into Company (Name) values (x'00')"), StoreError);
    }

private:
    QStringList plan(const QString& statement, const dialect::Want& want)
    {
        sqlite3_set_authorizer(m_engine.handle(), nullptr, nullptr);
        QStringList steps;
        for (const QString& row :
             m_engine.execute("explain query plan " + dialect::translate(statement, want).sql))
            steps.append(row.section(u'|', 3));
        return steps;
    }

    DialectEngine m_engine;
};

JOBWRIGHT_TEST(tst_Schema)
#include "tst_schema.moc"
