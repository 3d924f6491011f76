#include "store/xmlfile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <unordered_set>

using namespace Qt::StringLiterals;

namespace {

/// Ten times what the fullest campaign with 16-bit keys comes to; more is no campaign.
constexpr qint64 largestFile = qint64{1} << 30;

const CampaignFile::Records noRecords;

QString say(const char* text)
{
    return QCoreApplication::translate("CampaignFile", text);
}

/// pugixml takes any bytes as UTF-8; they would come in as question marks, so they are looked at first.
bool isValidUtf8(const QByteArray& bytes)
{
    constexpr qsizetype step = qsizetype{1} << 20;
    QStringDecoder decoder(QStringDecoder::Utf8);
    for (qsizetype at = 0; at < bytes.size(); at += step) {
        const QString ignored =
            decoder.decode(QByteArrayView(bytes).sliced(at, qMin(step, bytes.size() - at)));
        if (decoder.hasError())
            return false;
    }
    return !bytes.contains('\0');
}

/// The line of a byte; read anew because the parser works in the buffer and moves its line ends.
qsizetype lineOf(const QString& path, ptrdiff_t offset)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    return file.read(offset).count('\n') + 1;
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
    return {};
}

/// Looks for an element that has an attribute twice, which XML forbids: the parser keeps both, and the import
/// would take the first for the whole.
class DoubledAttribute : public pugi::xml_tree_walker
{
public:
    bool for_each(pugi::xml_node& node) override
    {
        // The records of a table all have the same names in the same order, which need not be looked at anew.
        m_names.clear();
        for (const pugi::xml_attribute& attribute : node.attributes())
            m_names.emplace_back(attribute.name());
        if (m_names == m_seen)
            return true;
        m_seen = m_names;
        std::ranges::sort(m_names);
        const auto twice = std::ranges::adjacent_find(m_names);
        if (twice == m_names.end())
            return true;
        found = node;
        name = *twice;
        return false;
    }

    pugi::xml_node found; ///< null when every attribute stands once
    std::string_view name;

private:
    std::vector<std::string_view> m_names;
    std::vector<std::string_view> m_seen;
};

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
        refusal = parse(path, isValidUtf8(m_bytes));
    if (refusal.isEmpty())
        refusal = checkAttributes(path);
    if (refusal.isEmpty())
        refusal = checkShape();
    if (!refusal.isEmpty())
        return refusal;
    for (const pugi::xml_node& record : records("Address"))
        m_addresses.try_emplace(record.attribute("AddressKey").value(), record);
    m_contacts = index("Contact", "CompanyKey");
    m_positions = index("Position", "CompanyKey");
    m_histories = index("History", "ContactKey");
    return {};
}

QString CampaignFile::parse(const QString& path, bool isUtf8)
{
    // The document type and text beside the root are asked for only to be refused: a campaign file has none,
    // and entities of its own are a way to make a small file grow without bound.
    const pugi::xml_parse_result result =
        m_document.load_buffer_inplace(m_bytes.data(), static_cast<size_t>(m_bytes.size()),
                                       pugi::parse_default | pugi::parse_doctype | pugi::parse_fragment);
    if (result.encoding != pugi::encoding_utf8 || !isUtf8)
        return say("The file %1 holds bytes that are no UTF-8 text. Save it again in the UTF-8 encoding.")
            .arg(path);
    if (!result)
        return say("The file %1 is no well-formed XML: %2 (line %3).")
            .arg(path, QString::fromLatin1(result.description()))
            .arg(lineOf(path, result.offset));
    int roots = 0;
    for (const pugi::xml_node& node : m_document.children()) {
        roots += node.type() == pugi::node_element ? 1 : 0;
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            return say("The file %1 is no well-formed XML: it has text outside of its root.").arg(path);
        if (node.type() == pugi::node_doctype)
            return say("The file %1 has a document type declaration, which a Jobwright file never has. "
                       "It was not read.")
                .arg(path);
    }
    if (roots != 1)
        return say(roots == 0 ? "The file %1 is no well-formed XML: it has no root."
                              : "The file %1 is no well-formed XML: it has more than one root.")
            .arg(path);
    if (std::string_view(root().name()) != "Jobwright")
        return say("The file %1 is not a Jobwright file: its root is \"%2\" and not \"Jobwright\".")
            .arg(path, QString::fromUtf8(root().name()));
    if (!root().child("Data"))
        return say("The file %1 holds no data at all, not even empty tables. It was not read.").arg(path);
    return {};
}

QString CampaignFile::checkAttributes(const QString& path)
{
    DoubledAttribute doubled;
    m_document.traverse(doubled);
    if (!doubled.found)
        return {};
    return say("The file %1 is no well-formed XML: an element %2 has the attribute %3 twice (line %4). It "
               "was not "
               "read.")
        .arg(path, QString::fromUtf8(doubled.found.name()),
             QString::fromUtf8(doubled.name.data(), static_cast<qsizetype>(doubled.name.size())))
        .arg(lineOf(path, doubled.found.offset_debug()));
}

QString CampaignFile::checkShape()
{
    for (const pugi::xml_node& data : root().children("Data")) {
        Records& table = m_tables[data.attribute("Table").value()];
        for (const pugi::xml_node& record : data.children("Record"))
            table.push_back(record);
    }
    const QString refusal = findDouble("Company", "CompanyKey");
    return refusal.isEmpty() ? findDouble("Contact", "ContactKey") : refusal;
}

// Contacts, positions and histories say by these keys whom they belong to; with a key given twice nobody can
// tell.
QString CampaignFile::findDouble(std::string_view table, const char* keyColumn) const
{
    std::unordered_set<std::string_view> seen;
    for (const pugi::xml_node& record : records(table)) {
        const pugi::xml_attribute attribute = record.attribute(keyColumn);
        const std::string_view key = attribute.value();
        if (attribute && !seen.insert(key).second)
            return say("Two records of the table %1 have the same key \"%2\". The file was not read.")
                .arg(QString::fromUtf8(table.data(), static_cast<qsizetype>(table.size())),
                     QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())));
    }
    return {};
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
