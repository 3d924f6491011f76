#include "store/xml/xmlimporter.h"

#include "store/engine/database.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array companyColumns{"Industry", "Notes", "EntryDate"};
constexpr std::array contactColumns{"Department", "ReportsTo",   "HiringMgr",
                                    "BestMedium", "ContactTime", "Notes"};
constexpr std::array addressColumns{"Address1", "Address2", "City", "State", "Zip"};
constexpr std::array reachColumns{"Phone1", "Phone2", "Phone3", "Fax", "Email1", "Email2", "URL1"};
constexpr std::array historyColumns{"Medium", "Length",   "Topic",       "Details",     "Location",
                                    "Return", "NextCall", "ContactDate", "DocumentXfer"};
constexpr std::array positionColumns{"Title",   "EntryDate", "Responsibilities", "Qualifications",
                                     "Keyword", "Notes",     "Benefits",         "Location"};
/// The step dates of a position, each with its medium behind it.
constexpr std::array stepColumns{std::array{"CompanyResearch", "CompanyResearchMedium"},
                                 std::array{"PositionResearch", "PositionResearchMedium"},
                                 std::array{"InfoContact", "InfoContactMedium"},
                                 std::array{"InfoFollow", "InfoFollowMedium"},
                                 std::array{"PrepareCover", "PrepareCoverMedium"},
                                 std::array{"PrepareResume", "PrepareResumeMedium"},
                                 std::array{"SentResume", "SentResumeMedium"},
                                 std::array{"Response", "ResponseMedium"},
                                 std::array{"Interview", "InterviewMedium"},
                                 std::array{"FollowUp", "FollowUpMedium"},
                                 std::array{"Hired", "HiredMedium"}};
constexpr std::array offerColumns{"PersonalRanking", "OfferStatus", "Source", "ContactList"};
constexpr std::array documentColumns{"Document", "Version", "Target", "Sent", "CreationDate",
                                     "Style",    "Notes",   "Path",   "Type"};

/// An empty date of a step, an expiry or a profile item: the day that stands for none.
const QString noDate = u"12/31/1999"_s;

/// A key of the file as one that the program can work with; nothing for any other text.
std::optional<Key> usableKey(std::string_view text)
{
    bool isNumber = false;
    const auto key =
        toKey(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())).toLongLong(&isNumber));
    return isNumber && key.value_or(0) > 0 ? key : std::nullopt;
}

} // namespace

void KeyPairs::add(std::string_view oldKey, Key newKey)
{
    m_first.try_emplace(oldKey, newKey);
    if (const auto old = usableKey(oldKey))
        m_newOld.emplace_back(newKey, *old);
}

QString KeyPairs::mapped(std::string_view oldKey) const
{
    const auto place = m_first.find(oldKey);
    return place == m_first.end() ? QString::fromUtf8(oldKey.data(), static_cast<qsizetype>(oldKey.size()))
                                  : QString::number(place->second);
}

XmlImport::XmlImport(Session& session, const CampaignFile& file)
    : m_session(session)
    , m_data(session.dataJW())
    , m_file(file)
{
    for (const char* table : {"Company", "Contact", "History", "Position", "Document"})
        m_total += static_cast<int>(m_file.records(table).size());
    if (!m_file.isRestore())
        return;
    for (const char* table : {"CProfile", "JProfile", "Question", "Event", "Target", "UProfile"})
        m_total += static_cast<int>(m_file.records(table).size());
}

void XmlImport::run()
{
    if (m_file.isRestore())
        deleteRows({u"Address", u"Company", u"Contact", u"History", u"Position", u"Document"});
    for (const pugi::xml_node& record : m_file.records("Company"))
        readCompany(record);
    show(u"Company Data Complete."_s);
    readDocuments();
    renewLists();
    countOrphans();
    countStrays();
    nameMissingAddresses();
    show(u"Import Complete"_s);
    if (m_file.isRestore())
        readFurtherTables();
}

void XmlImport::deleteRows(std::initializer_list<QStringView> tables)
{
    for (const QStringView table : tables)
        m_data.execQuery(u"Delete * from "_s + table);
}

void XmlImport::readCompany(pugi::xml_node record)
{
    RecordReader company(record);
    const std::string_view oldKey = company.raw("CompanyKey");
    const QString name = company.text("Name");
    Key key = m_data.getCompanyKey(name, true);
    tick();
    if (key == 0) {
        const QString shortName = company.text("ShortName");
        const Key address = storeAddress(company.raw("AddressKey"), name, u"Address Key: "_s);
        InsertText insert(u"Insert into Company(");
        insert.add("Name", name).add("ShortName", shortName).add("AddressKey", QString::number(address));
        key = storeKeyed(insert.add(company, companyColumns), u"Company"_s, u"CompanyKey"_s);
        show(u"Company Key: "_s + QString::number(key));
    } else
        noteKnown("Company", name);
    m_companies.add(oldKey, key);
    for (const pugi::xml_node& contact : m_file.contactsOf(oldKey))
        readContact(contact, name, key);
    for (const pugi::xml_node& position : m_file.positionsOf(oldKey))
        readPosition(position, name, key);
}

Key XmlImport::storeAddress(std::string_view key, const QString& owner, const QString& status)
{
    // A key that leads to no address is a normal state; the owner then gets an empty one, as every owner has
    // its own.
    const pugi::xml_node record = m_file.address(key);
    if (!record && !key.empty() && key != "0")
        m_withoutAddress.append(owner);
    RecordReader address(record);
    InsertText insert(u"Insert into Address(");
    insert.add(address, addressColumns).add("Country", u"USA").add(address, reachColumns);
    insert.add("URl2", address.text("URL2"))
        .add("EntryDate", address.textOr("EntryDate", m_session.todayText()));
    const Key stored = storeKeyed(insert, u"Address"_s, u"AddressKey"_s);
    show(status + QString::number(stored));
    return stored;
}

void XmlImport::readContact(pugi::xml_node record, const QString& company, Key companyKey)
{
    RecordReader contact(record);
    const std::string_view oldKey = contact.raw("ContactKey");
    const QString first = contact.text("FirstName");
    const QString middle = contact.text("Middle");
    const QString last = contact.text("LastName");
    // Looked for within the company: two people of one name at two companies are two people.
    const Key existing = m_data.getContactKey(first, last, company);
    tick();
    if (existing != 0) {
        // Somebody who is known already keeps the history of the store; the file's is dropped.
        tick(static_cast<int>(m_file.historiesOf(oldKey).size()));
        noteKnown("Contact", first + u' ' + last);
        m_contacts.add(oldKey, existing);
        return;
    }
    const QString title = contact.text("Title");
    const Key address =
        storeAddress(contact.raw("AddressKey"), first + u' ' + last, u"Contact Address Key: "_s);
    InsertText insert(u"Insert into Contact(");
    insert.add("FirstName", first).add("Middle", middle).add("LastName", last).add("Title", title);
    insert.add("AddressKey", QString::number(address)).add(contact, contactColumns);
    if (const QString lastContact = contact.text("LastContact"); !lastContact.isEmpty())
        insert.add("LastContact", lastContact);
    insert.add("EventKey", u"0").add("ContactList", contact.text("ContactList")).add("DocumentList", u"");
    insert.add("CompanyKey", QString::number(companyKey)).add("ContactLevel", u"0");
    insert.add("EntryDate", contact.text("EntryDate"));
    const Key key = storeKeyed(insert, u"Contact"_s, u"ContactKey"_s);
    show(u"Contact Key: "_s + QString::number(key));
    m_contacts.add(oldKey, key);
    for (const pugi::xml_node& history : m_file.historiesOf(oldKey))
        readHistory(history, key);
}

void XmlImport::readHistory(pugi::xml_node record, Key contactKey)
{
    RecordReader history(record);
    const QString owner = QString::number(contactKey);
    const QString count = history.text("ContactCount");
    const QString historyKey = owner + u'-' + count;
    InsertText insert(u"INSERT INTO History(");
    insert.add("HistoryKey", historyKey).add("ContactKey", owner).add("ContactCount", count);
    tick();
    store(insert.add(history, historyColumns));
    show(u"History Key: "_s + historyKey);
}

void XmlImport::readPosition(pugi::xml_node record, const QString& company, Key companyKey)
{
    RecordReader position(record);
    const std::string_view oldKey = position.raw("PositionKey");
    Key key = m_data.getPositionKey(position.text("Title"), company);
    tick();
    if (key == 0) {
        InsertText insert(u"INSERT INTO Position(");
        insert.add(position, positionColumns);
        for (const auto& [date, medium] : stepColumns) {
            insert.add(date, position.textOr(date, noDate));
            insert.add(medium, position.text(medium));
        }
        insert.add(position, offerColumns).add("CompanyKey", QString::number(companyKey));
        insert.add("Expires", position.textOr("Expires", noDate));
        key = storeKeyed(insert, u"Position"_s, u"PositionKey"_s);
        show(u"Position Key"_s);
    } else {
        noteKnown("Position", position.text("Title"));
    }
    m_positions.add(oldKey, key);
}

void XmlImport::readDocuments()
{
    for (const pugi::xml_node& record : m_file.records("Document")) {
        RecordReader document(record);
        const std::string_view oldKey = document.raw("ResumeKey");
        const Key existing = m_data.getDocumentKey(document.text("Document"), true);
        tick();
        if (existing != 0) {
            m_documents.emplace_back(existing, existing);
            noteKnown("Document", document.text("Document"));
            continue;
        }
        InsertText insert(u"INSERT INTO Document(");
        const Key key = storeKeyed(insert.add(document, documentColumns), u"Document"_s, u"ResumeKey"_s);
        if (const auto old = usableKey(oldKey))
            m_documents.emplace_back(key, *old);
        show(u"Document Key"_s);
    }
}

void XmlImport::renewLists()
{
    m_data.updateContactLists(m_contacts.newOld(), u"Contact"_s);
    m_data.updateContactLists(m_contacts.newOld(), u"Position"_s);
    // The table of documents has no list of documents, so each of these fails and is logged; contacts come in
    // with an empty list, because the store cannot know which copy of a document the user will go on with.
    for (const auto& [newKey, oldKey] : m_documents)
        m_data.updateDocList(newKey, oldKey, u"Document"_s, 1);
}

// The walk goes from owner to owner, so a record of nobody is never met; the user is to know that it stayed
// behind.
void XmlImport::countOrphans()
{
    struct Belonging
    {
        const char* table;
        const char* owner;
        const char* ownerKey;
    };
    constexpr std::array belongings{Belonging{"Contact", "Company", "CompanyKey"},
                                    Belonging{"Position", "Company", "CompanyKey"},
                                    Belonging{"History", "Contact", "ContactKey"}};
    for (const Belonging& each : belongings) {
        const int orphans = m_file.orphans(each.table, each.owner, each.ownerKey);
        if (orphans == 0)
            continue;
        tick(orphans);
        m_lost += orphans;
        m_data.logError(QCoreApplication::translate("XmlImport",
                                                    "DataJW-ImportXML: %1 of the %2 records in the file "
                                                    "belong to no record of %3 in it and did not come in.")
                            .arg(orphans)
                            .arg(QLatin1String(each.table), QLatin1String(each.owner)),
                        1);
    }
}

void XmlImport::countStrays()
{
    for (const auto& [place, count] : m_file.strays()) {
        m_lost += count;
        m_data.logError(QCoreApplication::translate("XmlImport",
                                                    "DataJW-ImportXML: %1 elements of the file stand %2 and "
                                                    "did not come in.")
                            .arg(count)
                            .arg(place),
                        1);
    }
}

void XmlImport::nameMissingAddresses()
{
    constexpr qsizetype named = 20;
    if (m_withoutAddress.isEmpty())
        return;
    m_data.logError(QCoreApplication::translate(
                        "XmlImport",
                        "DataJW-ImportXML: %1 records name an address that the file does not have, and "
                        "got an empty one. The first are: %2")
                        .arg(QString::number(m_withoutAddress.size()),
                             m_withoutAddress.first(qMin(named, m_withoutAddress.size())).join(u"; "_s)),
                    1);
}

// In a merge a name that is known is what the user wants. A restore begins with empty tables: there the name
// stands twice in the file, only the first one comes in, and the user is to know.
void XmlImport::noteKnown(const char* table, const QString& name)
{
    if (!m_file.isRestore())
        return;
    ++m_lost;
    m_data.logError(QCoreApplication::translate(
                        "XmlImport", "DataJW-ImportXML: the name \"%1\" stands more than once among the "
                                     "records of %2 in the file; only the first one came in.")
                        .arg(name, QLatin1String(table)),
                    1);
}

bool XmlImport::store(const InsertText& insert)
{
    if (m_data.execQuery(insert.statement()))
        return true;
    ++m_lost;
    // Nothing can be written any more once the engine has given up the whole action (a full disk).
    if (!m_data.isConnected() || !m_data.database().inTransaction())
        throw ImportStopped(QCoreApplication::translate("XmlImport", "The store takes no more records."));
    return false;
}

Key XmlImport::storeKeyed(const InsertText& insert, const QString& table, const QString& keyField)
{
    const bool stored = store(insert);
    // Asked for after a failure as well: what belongs to the record is then kept with the one before it.
    const Key key = m_data.getLastKeyInTable(table, keyField);
    if (stored && key == 0)
        ++m_lost; // it is there, but under a key that the program cannot work with
    return key;
}

void XmlImport::show(const QString& statusLine)
{
    m_session.setStatusLine(statusLine);
}

void XmlImport::tick(int records)
{
    m_done += records;
    emit m_session.progressChanged(m_done, m_total);
}
