// How literals become values of the store, and what expressions mean.
#include "support/dialectengine.h"

#include "store/storeerror.h"

#include <QTest>

using namespace Qt::StringLiterals;
using dialect::BindAs;
using dialect::LiteralKind;

Q_DECLARE_METATYPE(dialect::BindAs)

class tst_DialectValues : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void storedValue_isReadBackAs_data();
    void storedValue_isReadBackAs();
    void condition_findsRows_data();
    void condition_findsRows();
    void literal_isBoundAs_data();
    void literal_isBoundAs();
    void literal_thatDoesNotFit_isRefused_data();
    void literal_thatDoesNotFit_isRefused();
    void historyKeys_areJoinedFromKeyAndCount();
    void assignedArithmetic_isRoundedIntoWholeNumbers();
    void copiedTable_keepsKeysAndOrder();
    void deletedKeys_areNotGivenAgain();
    void deepestExpressions_areRunOrRefused_data();
    void deepestExpressions_areRunOrRefused();

private:
    std::unique_ptr<DialectEngine> m_engine;
};

void tst_DialectValues::init()
{
    m_engine = std::make_unique<DialectEngine>();
}

void tst_DialectValues::storedValue_isReadBackAs_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("literal");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("type");

    const auto row = [](const char* name, const QString& column, const QString& literal,
                        const QString& stored,
                        const QString& type) { QTest::newRow(name) << column << literal << stored << type; };
    const QString day = u"EntryDate"_s;
    row("month/day/two-digit year", day, u"'11/5/26'"_s, u"2026-11-05"_s, u"text"_s);
    row("month/day/year", day, u"'11/5/2026'"_s, u"2026-11-05"_s, u"text"_s);
    row("padded month and day", day, u"'01/05/2026'"_s, u"2026-01-05"_s, u"text"_s);
    row("iso", day, u"'2026-11-05'"_s, u"2026-11-05"_s, u"text"_s);
    row("delimited date", day, u"#11/5/2026#"_s, u"2026-11-05"_s, u"text"_s);
    row("year 29 is in this century", day, u"'1/1/29'"_s, u"2029-01-01"_s, u"text"_s);
    row("year 30 is in the last century", day, u"'1/1/30'"_s, u"1930-01-01"_s, u"text"_s);
    row("short sentinel", day, u"'12/31/99'"_s, u"1999-12-31"_s, u"text"_s);
    row("long sentinel", day, u"'12/31/1999'"_s, u"1999-12-31"_s, u"text"_s);
    row("afternoon", day, u"'11/5/2026 2:05:00 PM'"_s, u"2026-11-05 14:05:00"_s, u"text"_s);
    row("midnight is the plain day", day, u"'11/5/2026 12:00 AM'"_s, u"2026-11-05"_s, u"text"_s);
    row("no date", day, u"''"_s, u"NULL"_s, u"null"_s);
    row("no delimited date", day, u"##"_s, u"NULL"_s, u"null"_s);
    row("no number", u"AddressKey"_s, u"''"_s, u"NULL"_s, u"null"_s);
    row("quoted zero", u"AddressKey"_s, u"'0'"_s, u"0"_s, u"integer"_s);
    row("quoted number", u"AddressKey"_s, u"' 12 '"_s, u"12"_s, u"integer"_s);
    row("quoted negative number", u"AddressKey"_s, u"'-12'"_s, u"-12"_s, u"integer"_s);
    row("negative number", u"AddressKey"_s, u"-12"_s, u"-12"_s, u"integer"_s);
    row("decimals are rounded", u"AddressKey"_s, u"2.5"_s, u"3"_s, u"integer"_s);
    row("quoted decimals are rounded", u"AddressKey"_s, u"'2.4'"_s, u"2"_s, u"integer"_s);
    row("division is rounded", u"AddressKey"_s, u"7/2"_s, u"4"_s, u"integer"_s);
    row("largest number", u"AddressKey"_s, u"'2147483647'"_s, u"2147483647"_s, u"integer"_s);
    row("number into text keeps its form", u"Name"_s, u"007.50"_s, u"007.50"_s, u"text"_s);
    row("joined text", u"Name"_s, u"'a' & 5 & 'b'"_s, u"a5b"_s, u"text"_s);
    row("empty text is no null", u"Name"_s, u"''"_s, QString(), u"text"_s);
    row("text with line ends", u"Notes"_s, u"'a\r\nb'"_s, u"a\r\nb"_s, u"text"_s);
    row("text with engine signs", u"Notes"_s, u"'?1 \" ; -- [x] #'"_s, u"?1 \" ; -- [x] #"_s, u"text"_s);
    row("text beyond ASCII", u"Notes"_s, u"'Zoë \U0001F4BC'"_s, u"Zoë \U0001F4BC"_s, u"text"_s);
}

void tst_DialectValues::storedValue_isReadBackAs()
{
    QFETCH(QString, column);
    QFETCH(QString, literal);
    QFETCH(QString, stored);
    QFETCH(QString, type);
    const QByteArray typeQuery = "select typeof(\"" + column.toUtf8() + "\") from Company";
    const auto storedAs = [&](const QString& statement) {
        m_engine->run(u"Delete * From Company"_s);
        m_engine->run(u"Insert Into Company (CompanyKey) Values (1)"_s);
        m_engine->run(statement);
        const QString where = u" Where CompanyKey=%1"_s.arg(statement.startsWith(u"Insert") ? 2 : 1);
        return m_engine->column(u"Select "_s + column + u" From Company"_s + where);
    };
    QCOMPARE(storedAs(u"Insert Into Company (CompanyKey,"_s + column + u") Values (2,"_s + literal + u")"_s),
             QStringList{stored});
    QCOMPARE(storedAs(u"Update Company Set "_s + column + u"="_s + literal + u" Where CompanyKey=1"_s),
             QStringList{stored});

    sqlite3_set_authorizer(m_engine->handle(), nullptr, nullptr);
    QCOMPARE(m_engine->execute(typeQuery).front().front().toString(), type);
}

void tst_DialectValues::condition_findsRows_data()
{
    QTest::addColumn<QString>("condition");
    QTest::addColumn<QString>("names");

    QTest::newRow("text in another case") << u"Name='ACME'"_s << u"Acme"_s;
    QTest::newRow("text in another case on the left") << u"'aCME'=Name"_s << u"Acme"_s;
    QTest::newRow("joined text in another case") << u"'X' & Name='xacme'"_s << u"Acme"_s;
    QTest::newRow("joined text between, in another case")
        << u"'X' & Name Between 'xacme' And 'XACME'"_s << u"Acme"_s;
    QTest::newRow("texts alone in another case") << u"'a'='A' And Name='Dane'"_s << u"Dane"_s;
    QTest::newRow("no text joins as nothing") << u"'x' & Notes & 'y'='xy'"_s << u"Berg,Cole,Dane"_s;
    QTest::newRow("non-empty text") << u"Notes > ''"_s << u"Acme"_s;
    QTest::newRow("number beside text") << u"Name<>5"_s << u"Acme,Berg,Cole,Dane"_s;
    QTest::newRow("quoted number") << u"AddressKey='20'"_s << u"Berg"_s;
    QTest::newRow("quoted numbers order as numbers") << u"AddressKey>'9'"_s << u"Acme,Berg"_s;
    QTest::newRow("number with decimals") << u"AddressKey>19.5"_s << u"Berg"_s;
    QTest::newRow("empty text against a number") << u"AddressKey=''"_s << QString();
    QTest::newRow("empty text against a date") << u"EntryDate=''"_s << QString();
    QTest::newRow("null") << u"AddressKey Is Null"_s << u"Cole,Dane"_s;
    QTest::newRow("not null") << u"EntryDate Is Not Null"_s << u"Acme,Berg,Cole"_s;
    QTest::newRow("division is real") << u"3/2=1.5 And Name='Acme'"_s << u"Acme"_s;
    QTest::newRow("division of columns is real") << u"CompanyKey/AddressKey=0.1"_s << u"Acme,Berg"_s;
    QTest::newRow("product before division is real")
        << u"CompanyKey*CompanyKey/AddressKey=0.2"_s << u"Berg"_s;
    QTest::newRow("sum in parentheses before product") << u"(1+2)*3=9 And CompanyKey=1"_s << u"Acme"_s;
    QTest::newRow("division by zero") << u"AddressKey/0=1"_s << QString();
    QTest::newRow("product before sum") << u"1+2*3=7 And -(1+2)*3=0-9 And CompanyKey=1"_s << u"Acme"_s;
    QTest::newRow("difference from the left") << u"9-3-2=4 And 9-(3-2)=8 And CompanyKey=1"_s << u"Acme"_s;
    QTest::newRow("quotient from the left") << u"8/4/2=1 And 8/(4/2)=4 And CompanyKey=1"_s << u"Acme"_s;
    QTest::newRow("and before or") << u"Name='Acme' Or Name='Berg' And AddressKey=1"_s << u"Acme"_s;
    QTest::newRow("parentheses before and")
        << u"(Name='Acme' Or Name='Berg') And AddressKey=20"_s << u"Berg"_s;
    QTest::newRow("not before and") << u"Not Name='Acme' And CompanyKey<3"_s << u"Berg"_s;
    QTest::newRow("not of parentheses")
        << u"Not (Name='Acme' And CompanyKey=2)"_s << u"Acme,Berg,Cole,Dane"_s;
    QTest::newRow("between binds its own and")
        << u"CompanyKey Between 2 And 3 And Name='Cole'"_s << u"Cole"_s;
    QTest::newRow("quoted date") << u"EntryDate='11/05/26'"_s << u"Acme"_s;
    QTest::newRow("delimited date") << u"EntryDate>#11/5/2026#"_s << u"Berg"_s;
    QTest::newRow("between ends at midnight")
        << u"EntryDate Between #11/1/2026# And #11/6/2026#"_s << u"Acme"_s;
    QTest::newRow("between with times")
        << u"EntryDate Between #11/5/2026 12:00 AM# And #11/6/2026 2:05:00 PM#"_s << u"Acme,Berg"_s;
    QTest::newRow("unquoted date finds no ordinary date") << u"EntryDate < 11/15/2026"_s << u"Cole"_s;
    QTest::newRow("unquoted date lies before every date") << u"EntryDate > 11/15/2026"_s << u"Acme,Berg"_s;
    QTest::newRow("unquoted iso date is a difference")
        << u"EntryDate > 2026-11-15 And EntryDate < 46332"_s << u"Acme"_s;
    QTest::newRow("day number of a date") << u"EntryDate=46331"_s << u"Acme"_s;
    QTest::newRow("day number with a fraction") << u"EntryDate>46332.5 And EntryDate<46332.6"_s << u"Berg"_s;
    QTest::newRow("date beside a number's column")
        << u"AddressKey Between 5 And EntryDate"_s << u"Acme,Berg"_s;
    QTest::newRow("date reckoned with") << u"EntryDate-30=46331-30"_s << u"Acme"_s;
}

void tst_DialectValues::condition_findsRows()
{
    m_engine->run(u"Insert Into Company (CompanyKey,Name,AddressKey,EntryDate,Notes) "
                  "Values (1,'Acme',10,'11/5/2026','note')"_s);
    m_engine->run(u"Insert Into Company (CompanyKey,Name,AddressKey,EntryDate) "
                  "Values (2,'Berg',20,'11/6/2026 2:05 PM')"_s);
    m_engine->run(u"Insert Into Company (CompanyKey,Name,EntryDate) Values (3,'Cole','12/29/1899')"_s);
    m_engine->run(u"Insert Into Company (CompanyKey,Name) Values (4,'Dane')"_s);
    QFETCH(QString, condition);
    QFETCH(QString, names);
    QCOMPARE(m_engine->column(u"Select Name From Company Where "_s + condition).join(u','), names);
}

void tst_DialectValues::literal_isBoundAs_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<BindAs>("as");
    QTest::addColumn<QString>("value"); // the kind's first letter and the value

    QTest::newRow("text") << u"5"_s << BindAs::Text << u"t5"_s;
    QTest::newRow("empty text") << QString() << BindAs::Text << u"t"_s;
    QTest::newRow("stored whole") << u"-32768"_s << BindAs::StoredInteger << u"i-32768"_s;
    QTest::newRow("stored half") << u"0.5"_s << BindAs::StoredInteger << u"i1"_s;
    QTest::newRow("stored negative half") << u"-0.5"_s << BindAs::StoredInteger << u"i-1"_s;
    QTest::newRow("stored smallest") << u"-2147483648"_s << BindAs::StoredInteger << u"i-2147483648"_s;
    QTest::newRow("stored zeros in front")
        << u"00000000000000000000000007"_s << BindAs::StoredInteger << u"i7"_s;
    QTest::newRow("stored nothing") << QString() << BindAs::StoredInteger << u"n"_s;
    QTest::newRow("compared beyond 32 bits") << u"99999999999"_s << BindAs::Number << u"i99999999999"_s;
    QTest::newRow("compared beyond 64 bits") << u"10000000000000000000"_s << BindAs::Number << u"r1e+19"_s;
    QTest::newRow("compared decimals") << u"1.25"_s << BindAs::Number << u"r1.25"_s;
    QTest::newRow("compared nothing") << QString() << BindAs::Number << u"n"_s;
    QTest::newRow("reckoned") << u"11"_s << BindAs::Real << u"r11"_s;
    QTest::newRow("date") << u"2/29/2028"_s << BindAs::Date << u"t2028-02-29"_s;
    QTest::newRow("stored date") << u"1/2/2026 0:00:01"_s << BindAs::StoredDate << u"t2026-01-02 00:00:01"_s;
    QTest::newRow("no date") << QString() << BindAs::StoredDate << u"n"_s;
}

void tst_DialectValues::literal_isBoundAs()
{
    QFETCH(QString, text);
    QFETCH(BindAs, as);
    const dialect::BoundValue value = dialect::bindValue({LiteralKind::Text, text}, as);
    QString shown = u"n"_s;
    if (const auto* whole = std::get_if<qint64>(&value))
        shown = u'i' + QString::number(*whole);
    else if (const auto* real = std::get_if<double>(&value))
        shown = u'r' + QString::number(*real);
    else if (const auto* string = std::get_if<QString>(&value))
        shown = u't' + *string;
    QTEST(shown, "value");
}

void tst_DialectValues::literal_thatDoesNotFit_isRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<BindAs>("as");

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

void tst_DialectValues::literal_thatDoesNotFit_isRefused()
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

void tst_DialectValues::historyKeys_areJoinedFromKeyAndCount()
{
    m_engine->run(u"Insert Into History (HistoryKey,ContactKey,ContactCount) Values ('12-1',44,1)"_s);
    m_engine->run(u"Insert Into History (HistoryKey,ContactKey,ContactCount) Values ('12-2',44,'2')"_s);
    m_engine->run(u"Insert Into History (HistoryKey,ContactKey) Values ('12-3',44)"_s);

    m_engine->run(u"Update History set HistoryKey=('44-' & ContactCount) where contactkey=44"_s);

    QCOMPARE(m_engine->column(u"Select HistoryKey From History"_s),
             QStringList({u"44-1"_s, u"44-2"_s, u"44-"_s}));
}

void tst_DialectValues::assignedArithmetic_isRoundedIntoWholeNumbers()
{
    m_engine->run(u"Insert Into Contact (FirstName,ContactLevel) Values ('Ana',37)"_s);
    m_engine->run(u"Update Contact Set ContactLevel=ContactLevel/2, AddressKey=-ContactLevel"_s);
    QCOMPARE(m_engine->column(u"Select ContactLevel From Contact"_s), QStringList{u"19"_s});
    QCOMPARE(m_engine->column(u"Select AddressKey From Contact"_s), QStringList{u"-37"_s});
}

void tst_DialectValues::copiedTable_keepsKeysAndOrder()
{
    for (const int key : {9, 4, 7})
        m_engine->run(
            u"Insert Into Target (TargetKey,Name,EntryDate) Values (%1,'T%1','1/%1/2026')"_s.arg(key));
    m_engine->run(u"INSERT INTO TargetRecovery select * From Target"_s);
    const QString all = u" Order By TargetKey"_s;
    QCOMPARE(m_engine->run(u"Select * From TargetRecovery"_s + all),
             m_engine->run(u"Select * From Target"_s + all));

    // A journal's keys are its own: the row gets the next one.
    m_engine->run(u"Insert Into TargetRecovery (Name) Values ('later')"_s);
    QCOMPARE(m_engine->column(u"Select TargetKey From TargetRecovery Where Name='later'"_s),
             QStringList{u"10"_s});
}

void tst_DialectValues::deletedKeys_areNotGivenAgain()
{
    m_engine->run(u"Insert Into Company (Name) Values ('a')"_s);
    m_engine->run(u"Delete * From Company"_s);
    m_engine->run(u"Insert Into Company (Name) Values ('a')"_s);
    QCOMPARE(m_engine->column(u"Select CompanyKey From Company"_s), QStringList{u"2"_s});
}

void tst_DialectValues::deepestExpressions_areRunOrRefused_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("opening");
    QTest::addColumn<QString>("middle");
    QTest::addColumn<QString>("closing");

    QTest::newRow("parentheses") << QString() << u"("_s << u"CompanyKey=1"_s << u")"_s;
    QTest::newRow("not") << QString() << u"Not "_s << u"CompanyKey=1"_s << QString();
    QTest::newRow("not of parentheses") << QString() << u"Not ("_s << u"CompanyKey=1"_s << u")"_s;
    QTest::newRow("signs") << QString() << u"- "_s << u"CompanyKey=1"_s << QString();
    QTest::newRow("and to the right") << QString() << u"CompanyKey=1 And ("_s << u"CompanyKey=1"_s << u")"_s;
    QTest::newRow("mixed to the right")
        << QString() << u"CompanyKey=1 Or Name='a' And ("_s << u"CompanyKey=1"_s << u")"_s;
    QTest::newRow("mixed sum to the right") << u"0<"_s << u"1-2*("_s << u"1"_s << u")"_s;
    QTest::newRow("sum") << QString() << QString() << u"0=CompanyKey"_s << u"+1"_s;
    QTest::newRow("division") << QString() << QString() << u"0=CompanyKey"_s << u"/CompanyKey"_s;
    QTest::newRow("joined") << QString() << QString() << u"'0'=Name"_s << u" & Name"_s;
    QTest::newRow("and") << QString() << QString() << u"CompanyKey=1"_s << u" And CompanyKey=1"_s;
    QTest::newRow("or of between") << QString() << QString() << u"CompanyKey=1"_s
                                   << u" Or EntryDate Between 1 And 2"_s;
}

// The engine must take whatever the dialect lets through, and the dialect must never run out of stack.
void tst_DialectValues::deepestExpressions_areRunOrRefused()
{
    QFETCH(QString, before);
    QFETCH(QString, opening);
    QFETCH(QString, middle);
    QFETCH(QString, closing);
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
        } catch (const std::runtime_error& error) {
            QFAIL(error.what());
        }
    }
    QVERIFY(refused);
    QVERIFY2(accepted >= 5, qPrintable(QString::number(accepted)));
}

QTEST_APPLESS_MAIN(tst_DialectValues)
#include "tst_dialectvalues.moc"
