#include "store/xml/keyroom.h"

#include "store/engine/schema.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"
#include "store/xml/campaignfile.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Records that share a key come in under each of their owners; no file of the program has any.
constexpr qint64 longestWalk = 1'000'000;

/// Keys that a table is to give out.
struct Need
{
    const char* table;
    qint64 keys;
};

QString say(const char* text)
{
    return QCoreApplication::translate("XmlImport", text);
}

QString textOf(pugi::xml_node record, const char* column)
{
    return QString::fromUtf8(record.attribute(column).value());
}

qint64 rowsOf(const CampaignFile& file, const char* table)
{
    return static_cast<qint64>(file.records(table).size());
}

/// Names as the store compares them: without regard to the case of A to Z.
QString identity(const QStringList& names)
{
    QString joined = names.join(QChar(u'\0')); // no text of a file holds one
    for (QChar& c : joined) {
        if (c >= u'A' && c <= u'Z')
            c = QChar(c.unicode() + 0x20);
    }
    return joined;
}

/// Counts the records that will come in under a new key. One that the store refuses counts as well: it is
/// better to refuse at the very limit than to go past it.
class NewRecords
{
public:
    NewRecords(DataJW& data, const CampaignFile& file)
        : m_data(data)
        , m_file(file)
    {
        for (const pugi::xml_node& company : file.records("Company"))
            countCompany(company);
        for (const pugi::xml_node& document : file.records("Document")) {
            const QString name = textOf(document, "Document");
            count(m_documents, {name}, [&] { return m_data.getDocumentKey(name, true); });
        }
    }
    [[nodiscard]] std::vector<Need> needs() const
    {
        // Each company and each contact brings an address of its own.
        return {{"Address", m_companies.size() + m_contacts.size()},
                {"Company", m_companies.size()},
                {"Contact", m_contacts.size()},
                {"Position", m_positions.size()},
                {"Document", m_documents.size()}};
    }

private:
    template<class LookUp> void count(QSet<QString>& found, const QStringList& names, LookUp&& lookUp)
    {
        // A restore begins with empty tables, whatever the store has now.
        if (const QString id = identity(names); !found.contains(id) && (m_file.isRestore() || lookUp() == 0))
            found.insert(id);
    }
    void countCompany(pugi::xml_node record)
    {
        const QString company = textOf(record, "Name");
        const std::string_view key = record.attribute("CompanyKey").value();
        count(m_companies, {company}, [&] { return m_data.getCompanyKey(company, true); });
        for (const pugi::xml_node& contact : m_file.contactsOf(key)) {
            const QString first = textOf(contact, "FirstName");
            const QString last = textOf(contact, "LastName");
            count(m_contacts, {company, first, last},
                  [&] { return m_data.getContactKey(first, last, company, true); });
        }
        for (const pugi::xml_node& position : m_file.positionsOf(key)) {
            const QString title = textOf(position, "Title");
            count(m_positions, {company, title}, [&] { return m_data.getPositionKey(title, company, true); });
        }
    }

    DataJW& m_data;
    const CampaignFile& m_file;
    QSet<QString> m_companies;
    QSet<QString> m_contacts;
    QSet<QString> m_positions;
    QSet<QString> m_documents;
};

/// What the walk from owner to owner meets: a record several times when records share its owner's key.
struct WalkLength
{
    explicit WalkLength(const CampaignFile& file)
    {
        for (const pugi::xml_node& company : file.records("Company")) {
            const std::string_view key = company.attribute("CompanyKey").value();
            contacts += static_cast<qint64>(file.contactsOf(key).size());
            positions += static_cast<qint64>(file.positionsOf(key).size());
        }
    }
    qint64 contacts = 0;
    qint64 positions = 0;
};

/// At most this many: every record is new.
std::vector<Need> everyRecord(const CampaignFile& file, const WalkLength& walk)
{
    const qint64 companies = rowsOf(file, "Company");
    return {{"Address", companies + walk.contacts},
            {"Company", companies},
            {"Contact", walk.contacts},
            {"Position", walk.positions},
            {"Document", rowsOf(file, "Document")}};
}

/// The tables that a restore fills besides, where every record is new.
std::vector<Need> furtherTables(const CampaignFile& file)
{
    std::vector<Need> needs;
    if (!file.isRestore())
        return needs;
    for (const char* const table : {"CProfile", "Event", "JProfile", "Question", "Target", "UProfile"})
        needs.push_back({table, rowsOf(file, table)});
    return needs;
}

/// The highest key that the program can work with among those of the file's records.
qint64 highestListKey(const CampaignFile& file, std::string_view table)
{
    const QString column =
        schema::findTable(QString::fromLatin1(table.data(), static_cast<qsizetype>(table.size())))
            ->columns.front()
            .name;
    qint64 highest = 0;
    for (const pugi::xml_node& record : file.records(table)) {
        const qint64 key = record.attribute(column.toLatin1().constData()).as_llong();
        highest = key > keyLimit ? highest : std::max(highest, key);
    }
    return highest;
}

QString refusal(const Need& need, qint64 used, bool isRestore)
{
    const QString table = QString::fromLatin1(need.table);
    const QString keys = QString::number(need.keys);
    if (need.keys > keyLimit)
        return say("The file brings %1 records of the table %2, and one database can number no more than %3. "
                   "Nothing was changed. Please divide the file, and read its parts into folders of their "
                   "own.")
            .arg(keys, table, QString::number(keyLimit));
    const QString advice =
        isRestore ? say("Restore the file into a new, empty folder instead.")
                  : say("Export the data with \"jobwright export restore.xml --restore\", restore that file "
                        "into a new, empty folder, where keys begin anew, and read this one there.");
    return say("This database has given out %1 keys of the table %2 and has none left for %3 more "
               "records. Nothing was changed. ")
               .arg(QString::number(used), table, keys) +
           advice;
}

QString firstRefusal(DataJW& data, const std::vector<Need>& needs, bool isRestore)
{
    for (const Need& need : needs) {
        const qint64 used = highestKey(data.database(), QString::fromLatin1(need.table));
        if (need.keys > 0 && used + need.keys > keyLimit)
            return refusal(need, used, isRestore);
    }
    return {};
}

bool standsInLists(const Need& need)
{
    return std::ranges::find(schema::listTables, std::string_view(need.table)) != schema::listTables.end();
}

/// raiseKeys() when this much is needed.
bool raise(DataJW& data, const CampaignFile& file, const std::vector<Need>& needs)
{
    std::vector<std::pair<QString, qint64>> raised;
    for (const Need& need : needs) {
        const QString table = QString::fromLatin1(need.table);
        const qint64 used = highestKey(data.database(), table);
        const qint64 highest = highestListKey(file, need.table);
        if (!standsInLists(need) || need.keys == 0 || highest <= used)
            continue;
        if (highest + need.keys > keyLimit)
            return false;
        raised.emplace_back(table, highest);
    }
    for (const auto& [table, highest] : raised)
        setHighestKey(data.database(), table, highest);
    return true;
}

} // namespace

QString checkKeys(DataJW& data, const CampaignFile& file)
{
    const WalkLength walk(file);
    if (std::max(walk.contacts, walk.positions) > longestWalk)
        return say(
            "So many records of the file have the same keys that it would never come to an end. It was "
            "not read.");
    const QString further = firstRefusal(data, furtherTables(file), file.isRestore());
    if (!further.isEmpty() || firstRefusal(data, everyRecord(file, walk), file.isRestore()).isEmpty())
        return further;
    // Near the limit it is worth a look-up for each record, which costs as much as a part of the import.
    return firstRefusal(data, NewRecords(data, file).needs(), file.isRestore());
}

bool raiseKeys(DataJW& data, const CampaignFile& file)
{
    return raise(data, file, everyRecord(file, WalkLength(file))) ||
           raise(data, file, NewRecords(data, file).needs());
}
