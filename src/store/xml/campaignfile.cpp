#include "store/xml/campaignfile.h"

#include "store/xml/filekeys.h"
#include "store/xml/xmlwellformed.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <unordered_set>

using namespace Qt::StringLiterals;

namespace {

/// Several times what the fullest campaign with 16-bit keys comes to; more is no campaign.
constexpr qint64 largestFile = qint64{256} << 20;
/// What a file may take in memory while it is read, with all that is made of its elements and attributes.
constexpr qint64 mostMemory = qint64{1} << 30;
/// No record is longer between its brackets, or has as many equals signs.
constexpr qsizetype longestElement = qsizetype{16} << 20;
constexpr qsizetype mostEqualsSigns = 100'000;

/// Places of strays that are told apart; a file that is made to hold thousands would fill the log.
constexpr size_t mostPlaces = 50;

const CampaignFile::Records noRecords;

QString say(const char* text)
{
    return QCoreApplication::translate("CampaignFile", text);
}

/// A name of the file for a message.
QString shortText(std::string_view name)
{
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).left(100);
}

/// True when the text, well-formed or not, cannot come to need much more memory than a campaign of this size
/// does. What costs memory are elements and attributes, and each of them has a bracket or an equals sign.
bool isModest(QByteArrayView bytes)
{
    constexpr qint64 anElement = 300;
    constexpr qint64 anAttribute = 40;
    qint64 memory = bytes.size();
    for (qsizetype at = bytes.indexOf('<'); at >= 0 && memory <= mostMemory;) {
        const qsizetype next = bytes.indexOf('<', at + 1);
        const QByteArrayView element = bytes.sliced(at, (next < 0 ? bytes.size() : next) - at);
        const qsizetype signs = std::count(element.begin(), element.end(), '=');
        if (element.size() > longestElement || signs > mostEqualsSigns)
            return false;
        memory += anElement + anAttribute * signs;
        at = next;
    }
    return memory <= mostMemory;
}

QString readBytes(const QString& path, QByteArray& bytes)
{
    const QFileInfo info(path);
    if (!info.exists())
        return say("The file %1 does not exist.").arg(path);
    if (!info.isFile())
        return say("%1 is not a file.").arg(path);
    if (info.size() > largestFile)
        return say("The file %1 is too large to be a Jobwright file.").arg(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return say("The file %1 could not be read: %2").arg(path, file.errorString());
    bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return say("The file %1 could not be read: %2").arg(path, file.errorString());
    if (bytes.trimmed().isEmpty())
        return say("The file %1 is empty.").arg(path);
    if (!isModest(bytes))
        return say("The file %1 holds more than a Jobwright file can hold.").arg(path);
    return {};
}

const CampaignFile::Records& found(const std::unordered_map<std::string_view, CampaignFile::Records>& index,
                                   std::string_view key)
{
    const auto place = index.find(key);
    return place == index.end() ? noRecords : place->second;
}

} // namespace

QString CampaignFile::load(const QString& path)
{
    QString refusal = readBytes(path, m_bytes);
    if (refusal.isEmpty())
        refusal = checkXml(path, m_bytes);
    if (refusal.isEmpty())
        refusal = parse(path);
    if (refusal.isEmpty())
        refusal = checkShape(path);
    if (!refusal.isEmpty())
        return refusal;
    tidyListKeys(*this);
    for (const pugi::xml_node& record : records("Address"))
        m_addresses.try_emplace(record.attribute("AddressKey").value(), record);
    m_contacts = index("Contact", "CompanyKey");
    m_positions = index("Position", "CompanyKey");
    m_histories = index("History", "ContactKey");
    return {};
}

QString CampaignFile::parse(const QString& path)
{
    const pugi::xml_parse_result result = m_document.load_buffer_inplace(
        m_bytes.data(), static_cast<size_t>(m_bytes.size()), pugi::parse_default, pugi::encoding_utf8);
    if (!result)
        return say("The file %1 could not be read: %2").arg(path, QString::fromLatin1(result.description()));
    if (std::string_view(root().name()) != "Jobwright")
        return say("The file %1 is not a Jobwright file: its root is \"%2\" and not \"Jobwright\".")
            .arg(path, QString::fromUtf8(root().name()));
    if (!root().child("Data"))
        return say("The file %1 holds no data at all, not even empty tables. It was not read.").arg(path);
    return {};
}

QString CampaignFile::checkShape(const QString& path)
{
    bool isKnown = false;
    for (const pugi::xml_node& child : root().children()) {
        if (child.type() != pugi::node_element)
            continue;
        if (std::string_view(child.name()) != "Data")
            noteStray(say("as <%1> outside of every table").arg(shortText(child.name())));
        else
            isKnown = readTable(child) || isKnown;
    }
    // Without this a file with its names misspelt would empty the database and bring nothing.
    if (isRestore() && !isKnown)
        return say("The file %1 would replace the database and holds no table that Jobwright knows. It was "
                   "not read.")
            .arg(path);
    return {};
}

bool CampaignFile::readTable(pugi::xml_node data)
{
    const std::string_view name = data.attribute("Table").value();
    const bool isKnown = std::ranges::find(tables, name) != tables.end();
    for (const pugi::xml_node& child : data.children()) {
        if (child.type() != pugi::node_element)
            continue;
        if (!isKnown)
            noteStray(say("in a table \"%1\", which Jobwright does not know").arg(shortText(name)));
        else if (std::string_view(child.name()) == "Record")
            m_tables[name].push_back(child);
        else
            noteStray(say("as <%1> in the table %2").arg(shortText(child.name()), shortText(name)));
    }
    return isKnown;
}

void CampaignFile::noteStray(const QString& place)
{
    const bool isRoom = m_strays.size() < mostPlaces || m_strays.contains(place);
    ++m_strays[isRoom ? place : say("in still other places")];
}

CampaignFile::Index CampaignFile::index(std::string_view table, const char* column) const
{
    Index made;
    for (const pugi::xml_node& record : records(table))
        made[record.attribute(column).value()].push_back(record);
    return made;
}

bool CampaignFile::isRestore() const
{
    return !root().attribute("Restore").empty();
}

const CampaignFile::Records& CampaignFile::records(std::string_view table) const
{
    return found(m_tables, table);
}

pugi::xml_node CampaignFile::address(std::string_view key) const
{
    const auto place = m_addresses.find(key);
    return place == m_addresses.end() ? pugi::xml_node() : place->second;
}

const CampaignFile::Records& CampaignFile::contactsOf(std::string_view companyKey) const
{
    return found(m_contacts, companyKey);
}

const CampaignFile::Records& CampaignFile::positionsOf(std::string_view companyKey) const
{
    return found(m_positions, companyKey);
}

const CampaignFile::Records& CampaignFile::historiesOf(std::string_view contactKey) const
{
    return found(m_histories, contactKey);
}

int CampaignFile::orphans(std::string_view table, std::string_view owner, const char* ownerKey) const
{
    std::unordered_set<std::string_view> owners;
    owners.reserve(records(owner).size());
    for (const pugi::xml_node& record : records(owner))
        owners.insert(record.attribute(ownerKey).value());
    const Index& byOwner = table == "Contact" ? m_contacts : table == "Position" ? m_positions : m_histories;
    size_t count = 0;
    for (const auto& [key, belonging] : byOwner)
        count += owners.contains(key) ? 0 : belonging.size();
    return static_cast<int>(count);
}
