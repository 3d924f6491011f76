// The tables that only a restore brings: questionnaires, calendar, targets and the user's own profile.
#include "store/xml/xmlimporter.h"

#include <QHash>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array profileColumns{"CompanyKey", "QAns", "PR", "QCount", "TemplateKey"};
constexpr std::array questionColumns{"Question", "AnswerCount", "AnswerPref",
                                     "Answers",  "AnswerType",  "ProfileType"};
constexpr std::array eventColumns{"Event", "EventDate", "EventTime", "EventDuration",
                                  "AMPM",  "Reminder1", "Reminder2", "Description"};
constexpr std::array eventStateColumns{"Medium", "EventType", "Complete"};
constexpr std::array targetColumns{"Name",      "InDB",        "Contacted",     "Contacts", "Positions",
                                   "Flags",     "Business",    "Industry",      "Sector",   "Type",
                                   "Employees", "Sales",       "ExecCEO",       "Exec1",    "Exec2",
                                   "Exec3",     "Exec4",       "BusinessUnits", "Public",   "TargetURL",
                                   "Rank",      "ProfileRank", "CompanyKey",    "EntryDate"};
constexpr std::array itemColumns{"Title",     "TimeStart",   "TimeEnd",  "Category",       "Function1",
                                 "Function2", "Function3",   "Index",    "ExperienceTime", "Location",
                                 "Notes",     "Subcategory", "Subtitle", "TimeStartYear",  "TimeEndYear"};

} // namespace

void XmlImport::readFurtherTables()
{
    deleteRows({u"CProfile", u"Event", u"JProfile", u"Question", u"Target", u"UProfile"});
    // Answers keep the company's key as it stands in the file, and answers about a position lose theirs: a
    // profile describes the day on which it was answered, and is answered again for a record that came in
    // anew.
    readPlain("CProfile", u"INSERT INTO CProfile(", profileColumns);
    readPlain("JProfile", u"INSERT INTO JProfile(", profileColumns);
    readQuestions();
    readEvents();
    readPlain("Target", u"INSERT INTO Target(", targetColumns);
    readUProfiles();
}

void XmlImport::readPlain(const char* table, QStringView opening, std::span<const char* const> columns)
{
    for (const pugi::xml_node& node : m_file.records(table)) {
        RecordReader record(node);
        InsertText insert(opening);
        tick();
        store(insert.add(record, columns));
    }
}

// Each questionnaire numbers its questions from 1, whatever keys they had.
void XmlImport::readQuestions()
{
    QHash<QString, int> counts;
    for (const pugi::xml_node& node : m_file.records("Question")) {
        RecordReader question(node);
        InsertText insert(u"INSERT INTO Question(");
        insert.add("QKey", QString::number(++counts[question.text("ProfileType")]));
        tick();
        store(insert.add(question, questionColumns));
    }
}

void XmlImport::readEvents()
{
    for (const pugi::xml_node& node : m_file.records("Event")) {
        RecordReader event(node);
        InsertText insert(u"INSERT INTO Event(");
        insert.add(event, eventColumns);
        insert.add("PositionKey", m_positions.mapped(event.raw("PositionKey")));
        insert.add("ContactKey", m_contacts.mapped(event.raw("ContactKey")));
        insert.add("CompanyKey", m_companies.mapped(event.raw("CompanyKey")));
        tick();
        store(insert.add(event, eventStateColumns));
    }
}

void XmlImport::readUProfiles()
{
    for (const pugi::xml_node& node : m_file.records("UProfile")) {
        RecordReader item(node);
        InsertText insert(u"INSERT INTO UProfile(");
        insert.add(item, itemColumns).add("EntryDate", item.textOr("EntryDate", u"12/31/1999"_s));
        tick();
        store(insert);
    }
}
