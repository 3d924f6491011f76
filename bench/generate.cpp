#include "generate.h"

#include "base/dates.h"
#include "store/engine/database.h"

#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int positionsEach = 2;
constexpr int historiesEach = 8;

constexpr std::array<QStringView, 8> firstNames{u"Mara",   u"Desmond", u"Annika",   u"Percival",
                                                u"Ingrid", u"Clement", u"Winifred", u"Gideon"};
constexpr std::array<QStringView, 8> trades{u"Foods", u"Mills",     u"Castings", u"Instruments",
                                            u"Paper", u"Logistics", u"Dairy",    u"Packaging"};
constexpr std::array<QStringView, 6> topics{
    u"Introductory call", u"Sent resume and cover letter",    u"Interview with the team",
    u"Thank you note",    u"Asked where the decision stands", u"Lunch near the plant"};
constexpr QStringView details =
    u"Talked about the planning cycle and the season ahead. They expect to decide within the "
    "month and will call back once the budget for the desk is confirmed.";
constexpr std::array<QStringView, 11> steps{
    u"CompanyResearch", u"PositionResearch", u"InfoContact", u"InfoFollow", u"PrepareCover", u"PrepareResume",
    u"SentResume",      u"Response",         u"Interview",   u"FollowUp",   u"Hired"};

/// One of a few texts, by the record's number.
template<size_t N> QStringView pick(const std::array<QStringView, N>& texts, int number)
{
    return texts[static_cast<size_t>(number) % N];
}

QString day(int number)
{
    return dates::mdyyyy(QDate(2025, 9, 1).addDays(number % 440));
}

/// Sends "INSERT INTO T(a,b) VALUES('1','2')".
class Writer
{
public:
    explicit Writer(Database& database)
        : m_database(database)
    {
    }
    void row(QStringView table, QStringView columns, const QStringList& values)
    {
        m_database.run(QString(u"INSERT INTO "_s + table + u'(' + columns + u") VALUES('" +
                               values.join(u"','"_s) + u"')"));
    }

private:
    Database& m_database;
};

void writeAddress(Writer& writer, int number)
{
    const QString n = QString::number(number);
    writer.row(u"Address", u"Address1,City,State,Zip,Country,Phone1,Email1,URL1,EntryDate",
               {n + u" Foundry Road", u"Columbus"_s, u"OH"_s, QString::number(43000 + number % 900), u"USA"_s,
                u"(614) 555-01%1"_s.arg(number % 100, 2, 10, QChar(u'0')), u"desk%1@firm.example"_s.arg(n),
                u"https://www.firm%1.example"_s.arg(n), day(number)});
}

void writeCompany(Writer& writer, int number)
{
    const QString n = QString::number(number);
    writeAddress(writer, 2 * number - 1);
    writer.row(u"Company", u"Name,ShortName,AddressKey,Industry,Notes,EntryDate",
               {u"Firm %1 "_s.arg(n) + pick(trades, number), u"Firm "_s + n, QString::number(2 * number - 1),
                u"Manufacturing"_s, u"Family owned, two plants.\r\nNew planning system next spring."_s,
                day(number)});
}

void writeContact(Writer& writer, int number)
{
    const QString n = QString::number(number);
    writeAddress(writer, 2 * number);
    writer.row(u"Contact",
               u"FirstName,LastName,Title,AddressKey,Department,HiringMgr,BestMedium,ContactTime,Notes,"
               u"LastContact,EventKey,"
               "ContactList,DocumentList,CompanyKey,ContactLevel,EntryDate",
               {pick(firstNames, number).toString(), u"Lindqvist"_s + n, u"Head of planning"_s,
                QString::number(2 * number), u"Operations"_s, u"110000000"_s, u"00011000"_s, u"before nine"_s,
                u"Met at the planners evening."_s, day(number), u"0"_s,
                number > 1 ? QString::number(number - 1) : QString(), QString(), n, u"54"_s, day(number)});
    for (int i = 1; i <= historiesEach; ++i)
        writer.row(u"History",
                   u"HistoryKey,ContactKey,ContactCount,Medium,Length,Topic,Details,Location,Return,NextCall,"
                   u"ContactDate,DocumentXfer",
                   {n + u'-' + QString::number(i), n, QString::number(i), u"Phone"_s, u"15 min"_s,
                    pick(topics, number + i).toString(), details.toString(), QString(), u"Follow-up"_s,
                    day(number + i + 7), day(number + i), u"0"_s});
}

void writePosition(Writer& writer, int number, int company)
{
    QString columns =
        u"Title,EntryDate,Responsibilities,Qualifications,Keyword,Notes,Benefits,Location,PersonalRanking,"
        "OfferStatus,Source,ContactList,CompanyKey,Expires"_s;
    QStringList values{u"Planner %1"_s.arg(number),
                       day(number),
                       details.toString(),
                       u"Seven years of planning"_s,
                       u"planning, scheduling"_s,
                       QString(),
                       QString(),
                       u"Columbus, OH"_s,
                       u"3"_s,
                       u"Open"_s,
                       u"Company web page"_s,
                       QString::number(company),
                       QString::number(company),
                       u"12/31/1999"_s};
    for (int i = 0; i < static_cast<int>(steps.size()); ++i) {
        const bool done = i < number % 12;
        columns += u',';
        columns += pick(steps, i);
        columns += u',' + pick(steps, i) + u"Medium";
        values << (done ? day(number + i) : u"12/31/1999"_s) << (done ? u"3"_s : u"0"_s);
    }
    writer.row(u"Position", columns, values);
}

void writeEvent(Writer& writer, int number)
{
    writer.row(u"Event",
               u"Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,Reminder2,Description,PositionKey,"
               u"ContactKey,CompanyKey,"
               "Medium,EventType,Complete",
               {u"Interview"_s, day(3 * number), u"9:30"_s, u"1"_s, u"AM"_s, u"24"_s, u"0"_s,
                u"Bring the sample."_s, QString::number(number), QString::number(number),
                QString::number(number), u"Meeting"_s, u"Event"_s, QString()});
}

} // namespace

void generate::campaign(Database& database, int companies)
{
    Writer writer(database);
    database.beginTransaction();
    for (int company = 1; company <= companies; ++company) {
        writeCompany(writer, company);
        writeContact(writer, company);
        for (int i = 0; i < positionsEach; ++i)
            writePosition(writer, positionsEach * (company - 1) + i + 1, company);
        if (company % 3 == 0)
            writeEvent(writer, company / 3);
    }
    database.commitTransaction();
}
