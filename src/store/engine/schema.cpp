#include "store/engine/schema.h"

#include "store/engine/storeformat.h"

#include <array>

using namespace Qt::StringLiterals;

namespace schema {
namespace {

using enum ColumnType;

Table address()
{
    return {u"Address"_s,
            {{u"AddressKey"_s, Auto},
             {u"Address1"_s, Text},
             {u"Address2"_s, Text},
             {u"City"_s, Text},
             {u"State"_s, Text},
             {u"Zip"_s, Text},
             {u"Country"_s, Text},
             {u"Phone1"_s, Text},
             {u"Phone2"_s, Text},
             {u"Phone3"_s, Text},
             {u"Fax"_s, Text},
             {u"Email1"_s, Text},
             {u"Email2"_s, Text},
             {u"URL1"_s, Text},
             {u"URL2"_s, Text},
             {u"EntryDate"_s, Date}}};
}

Table company()
{
    return {u"Company"_s,
            {{u"CompanyKey"_s, Auto},
             {u"Name"_s, Text},
             {u"ShortName"_s, Text},
             {u"AddressKey"_s, Integer},
             {u"Industry"_s, Text},
             {u"Notes"_s, Text},
             {u"EntryDate"_s, Date}}};
}

Table contact(const QString& name)
{
    return {name,
            {{u"ContactKey"_s, Auto},
             {u"FirstName"_s, Text},
             {u"Middle"_s, Text},
             {u"LastName"_s, Text},
             {u"Title"_s, Text},
             {u"AddressKey"_s, Integer},
             {u"Department"_s, Text},
             {u"ReportsTo"_s, Text},
             {u"HiringMgr"_s, Text},
             {u"BestMedium"_s, Text},
             {u"ContactTime"_s, Text},
             {u"Notes"_s, Text},
             {u"LastContact"_s, Date},
             {u"EventKey"_s, Integer},
             {u"ContactList"_s, Text},
             {u"DocumentList"_s, Text},
             {u"CompanyKey"_s, Integer},
             {u"ContactLevel"_s, Integer},
             {u"EntryDate"_s, Date}}};
}

/// The campaign's steps in their order; each is a date with the medium by which it was done behind it.
constexpr std::array<QStringView, 11> steps{
    u"CompanyResearch", u"PositionResearch", u"InfoContact", u"InfoFollow", u"PrepareCover", u"PrepareResume",
    u"SentResume",      u"Response",         u"Interview",   u"FollowUp",   u"Hired"};

Table position(const QString& name)
{
    Table table{name,
                {{u"PositionKey"_s, Auto},
                 {u"Title"_s, Text},
                 {u"EntryDate"_s, Date},
                 {u"Responsibilities"_s, Text},
                 {u"Qualifications"_s, Text},
                 {u"Keyword"_s, Text},
                 {u"Notes"_s, Text},
                 {u"Benefits"_s, Text},
                 {u"Location"_s, Text}}};
    for (const QStringView step : steps) {
        table.columns.push_back({step.toString(), Date});
        table.columns.push_back({step + u"Medium"_s, Integer});
    }
    for (const Column& column : std::vector<Column>{{u"PersonalRanking"_s, Text},
                                                    {u"OfferStatus"_s, Text},
                                                    {u"Source"_s, Text},
                                                    {u"ContactList"_s, Text},
                                                    {u"CompanyKey"_s, Integer},
                                                    {u"Expires"_s, Date}})
        table.columns.push_back(column);
    return table;
}

Table document()
{
    return {u"Document"_s,
            {{u"ResumeKey"_s, Auto},
             {u"Document"_s, Text},
             {u"Version"_s, Text},
             {u"Target"_s, Text},
             {u"Sent"_s, Integer},
             {u"CreationDate"_s, Date},
             {u"Style"_s, Text},
             {u"Notes"_s, Text},
             {u"Path"_s, Text},
             {u"Type"_s, Text}}};
}

Table history()
{
    return {u"History"_s,
            {{u"HistoryKey"_s, Text},
             {u"ContactKey"_s, Integer},
             {u"ContactCount"_s, Integer},
             {u"Medium"_s, Text},
             {u"Length"_s, Text},
             {u"Topic"_s, Text},
             {u"Details"_s, Text},
             {u"Location"_s, Text},
             {u"Return"_s, Text},
             {u"NextCall"_s, Date},
             {u"ContactDate"_s, Date},
             {u"DocumentXfer"_s, Text}}};
}

Table event(const QString& name)
{
    return {name,
            {{u"EventKey"_s, Auto},
             {u"Event"_s, Text},
             {u"EventDate"_s, Date},
             {u"EventTime"_s, Text},
             {u"EventDuration"_s, Text},
             {u"AMPM"_s, Text},
             {u"Reminder1"_s, Text},
             {u"Reminder2"_s, Text},
             {u"Description"_s, Text},
             {u"PositionKey"_s, Integer},
             {u"ContactKey"_s, Integer},
             {u"CompanyKey"_s, Integer},
             {u"Medium"_s, Text},
             {u"EventType"_s, Text},
             {u"Complete"_s, Text}}};
}

Table status()
{
    return {u"Status"_s,
            {{u"StatusKey"_s, Auto},
             {u"StatusDescription"_s, Text},
             {u"StatusDate"_s, Date},
             {u"StatusValue"_s, Text}}};
}

Table question()
{
    return {u"Question"_s,
            {{u"QKey"_s, Integer},
             {u"Question"_s, Text},
             {u"AnswerCount"_s, Integer},
             {u"AnswerPref"_s, Integer},
             {u"Answers"_s, Text},
             {u"AnswerType"_s, Text},
             {u"ProfileType"_s, Integer}}};
}

Table companyProfile()
{
    return {u"CProfile"_s,
            {{u"CProfileKey"_s, Auto},
             {u"CompanyKey"_s, Integer},
             {u"QAns"_s, Text},
             {u"PR"_s, Integer},
             {u"QCount"_s, Integer},
             {u"TemplateKey"_s, Integer}}};
}

Table positionProfile()
{
    return {u"JProfile"_s,
            {{u"JProfileKey"_s, Auto},
             {u"PositionKey"_s, Integer},
             {u"QAns"_s, Text},
             {u"PR"_s, Integer},
             {u"QCount"_s, Integer},
             {u"TemplateKey"_s, Integer},
             {u"CompanyKey"_s, Integer}}};
}

Table userProfile()
{
    return {u"UProfile"_s,
            {{u"UProfileKey"_s, Auto},
             {u"Title"_s, Text},
             {u"TimeStart"_s, Text},
             {u"TimeEnd"_s, Text},
             {u"Category"_s, Text},
             {u"Function1"_s, Text},
             {u"Function2"_s, Text},
             {u"Function3"_s, Text},
             {u"Index"_s, Text},
             {u"ExperienceTime"_s, Integer},
             {u"Location"_s, Text},
             {u"Notes"_s, Text},
             {u"Subcategory"_s, Text},
             {u"Subtitle"_s, Text},
             {u"TimeStartYear"_s, Text},
             {u"TimeEndYear"_s, Text},
             {u"EntryDate"_s, Date}}};
}

Table target(const QString& name)
{
    return {name, {{u"TargetKey"_s, Auto},     {u"Name"_s, Text},        {u"InDB"_s, Text},
                   {u"Contacted"_s, Text},     {u"Contacts"_s, Integer}, {u"Positions"_s, Integer},
                   {u"Flags"_s, Text},         {u"Business"_s, Text},    {u"Industry"_s, Text},
                   {u"Sector"_s, Text},        {u"Type"_s, Text},        {u"Employees"_s, Text},
                   {u"Sales"_s, Text},         {u"ExecCEO"_s, Text},     {u"Exec1"_s, Text},
                   {u"Exec2"_s, Text},         {u"Exec3"_s, Text},       {u"Exec4"_s, Text},
                   {u"BusinessUnits"_s, Text}, {u"Public"_s, Text},      {u"TargetURL"_s, Text},
                   {u"Rank"_s, Integer},       {u"ProfileRank"_s, Text}, {u"CompanyKey"_s, Integer},
                   {u"EntryDate"_s, Date}}};
}

/// What the program looks up and sorts by. A text index takes its collation from the column, so that a lookup
/// without regard to case finds it.
struct Index
{
    QStringView table;
    QStringView columns;
};
constexpr std::array indexes{
    Index{u"Address", u"Address1"},
    Index{u"Company", u"Name"},
    Index{u"Company", u"AddressKey"},
    Index{u"Contact", u"FirstName,LastName"},
    Index{u"Contact", u"LastName"},
    Index{u"Contact", u"CompanyKey"},
    Index{u"Contact", u"AddressKey"},
    Index{u"Position", u"CompanyKey,Title"},
    Index{u"Position", u"Title"},
    Index{u"Document", u"Document"},
    Index{u"History", u"ContactKey,ContactDate,ContactCount"},
    Index{u"Event", u"EventDate"},
    Index{u"Event", u"CompanyKey"},
    Index{u"Event", u"ContactKey"},
    Index{u"Event", u"PositionKey"},
    Index{u"Status", u"StatusDescription"},
    Index{u"CProfile", u"CompanyKey"},
    Index{u"JProfile", u"PositionKey"},
    Index{u"JProfile", u"CompanyKey"},
    Index{u"UProfile", u"Title,Subtitle"},
    Index{u"Target", u"Name"},
};

QString engineType(ColumnType type)
{
    switch (type) {
    case Auto:
        return u"INTEGER PRIMARY KEY AUTOINCREMENT"_s;
    case Integer:
        return u"INTEGER"_s;
    case Text:
        return u"TEXT COLLATE NOCASE"_s;
    case Date:
        break;
    }
    return u"TEXT"_s;
}

/// Columns that are the key together, where the program itself gives out the numbers; "" for any other table.
QString writtenKey(const Table& table)
{
    // Both questionnaires number their questions from 1.
    return table.name == u"Question" ? u"\"ProfileType\", \"QKey\""_s : QString();
}

QString createIndex(const Index& index)
{
    const QString columns = index.columns.toString();
    return u"create index \"%1_%2\" on \"%1\" (\"%3\")"_s.arg(index.table.toString(),
                                                              QString(columns).replace(u',', u'_'),
                                                              QString(columns).replace(u","_s, u"\", \""_s));
}

} // namespace

int Table::indexOf(QStringView column) const
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (column.compare(columns[i].name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

std::span<const Table> tables()
{
    // The recovery tables are written beside their main table by the very same statements, so they have its
    // columns.
    static const std::vector<Table> all{address(),
                                        company(),
                                        contact(u"Contact"_s),
                                        position(u"Position"_s),
                                        document(),
                                        history(),
                                        event(u"Event"_s),
                                        status(),
                                        question(),
                                        companyProfile(),
                                        positionProfile(),
                                        userProfile(),
                                        target(u"Target"_s),
                                        contact(u"ContactRecovery"_s),
                                        position(u"PositionRecovery"_s),
                                        event(u"EventRecovery"_s),
                                        target(u"TargetRecovery"_s)};
    return all;
}

const Table* findTable(QStringView name)
{
    for (const Table& table : tables()) {
        if (name.compare(table.name, Qt::CaseInsensitive) == 0)
            return &table;
    }
    return nullptr;
}

QString createStatement(const Table& table, const QString& name)
{
    QStringList columns;
    for (const Column& column : table.columns)
        columns.append(u"\"%1\" %2"_s.arg(column.name, engineType(column.type)));
    // What was done to a row is recorded by its key. No statement of the program sees a row number.
    if (const QString key = writtenKey(table); !key.isEmpty())
        columns.append(u"primary key (%1)"_s.arg(key));
    else if (table.columns.front().type != Auto)
        columns.append(u"\"RowNumber\" INTEGER PRIMARY KEY"_s);
    return u"create table \"%1\" (%2) strict"_s.arg(name.isEmpty() ? table.name : name,
                                                    columns.join(u", "_s));
}

QStringList createStatements()
{
    QStringList statements;
    for (const Table& table : tables())
        statements.append(createStatement(table));
    for (const Index& index : indexes)
        statements.append(createIndex(index));
    return statements;
}

} // namespace schema
