#include "store/xml/keyroom.h"

#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"
#include "store/xml/campaignfile.h"

#include <QCoreApplication>
#include <QSet>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

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

/// At most this many: every record is new.
std::vector<Need> everyRecord(const CampaignFile& file)
{
    const qint64 companies = rowsOf(file, "Company");
    const qint64 contacts = rowsOf(file, "Contact");
    return {{"Address", companies + contacts},
            {"Company", companies},
            {"Contact", contacts},
            {"Position", rowsOf(file, "Position")},
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
                        "into a new, empty folder, where keys begin at 1 again, and read this one there.");
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

} // namespace

QString checkKeys(DataJW& data, const CampaignFile& file)
{
    const QString further = firstRefusal(data, furtherTables(file), file.isRestore());
    if (!further.isEmpty() || firstRefusal(data, everyRecord(file), file.isRestore()).isEmpty())
        return further;
    // Near the limit it is worth a look-up for each record, which costs as much as a part of the import.
    return firstRefusal(data, NewRecords(data, file).needs(), file.isRestore());
}
