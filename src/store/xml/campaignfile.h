// A campaign's XML file as the import reads it.
#pragma once

#include <QByteArray>
#include <QString>

#include <pugixml.hpp>

#include <array>
#include <map>
#include <string_view>
#include <unordered_map>
#include <vector>

/// A loaded campaign file with the lookups that the import walks by: each is made once, so that the walk's
/// cost grows with the records and not with their square. Nodes and keys point into the file and live as long
/// as it does.
class CampaignFile
{
public:
    using Records = std::vector<pugi::xml_node>;

    /// The tables that a file holds, in their order there. Names count to the letter.
    static constexpr std::array<std::string_view, 12> tables{"Address",  "Company",  "Contact", "CProfile",
                                                             "Document", "Event",    "History", "JProfile",
                                                             "Position", "Question", "Target",  "UProfile"};

    /// Reads the file and checks all that can be known before a first row is written: that it is well-formed
    /// XML of a sane size and encoding without a document type, that its root is the program's own, and that
    /// a file which replaces the store has a table to replace it with. Keys that stand in lists are put in
    /// order as tidyListKeys() says. Answers "" or, in words for the user, why the file cannot be used.
    [[nodiscard]] QString load(const QString& path);

    /// True when the file replaces the store's contents; otherwise it is merged into them.
    [[nodiscard]] bool isRestore() const;
    [[nodiscard]] pugi::xml_node root() const { return m_document.document_element(); }
    /// All records of a table in file order.
    [[nodiscard]] const Records& records(std::string_view table) const;
    /// The first address with this key; a null node when the file has none.
    [[nodiscard]] pugi::xml_node address(std::string_view key) const;
    [[nodiscard]] const Records& contactsOf(std::string_view companyKey) const;
    [[nodiscard]] const Records& positionsOf(std::string_view companyKey) const;
    [[nodiscard]] const Records& historiesOf(std::string_view contactKey) const;
    /// How many contacts, positions or histories (@p table) hang on no record of @p owner, whose key stands
    /// in
    /// @p ownerKey: the walk from owner to owner never meets them.
    [[nodiscard]] int orphans(std::string_view table, std::string_view owner, const char* ownerKey) const;
    /// How many elements stand where nothing is read, by the place in words: "in a table ...".
    [[nodiscard]] const std::map<QString, int>& strays() const { return m_strays; }

private:
    using Index = std::unordered_map<std::string_view, Records>;

    [[nodiscard]] QString parse(const QString& path);
    [[nodiscard]] QString checkShape(const QString& path);
    /// Takes in what stands below a Data element; true when its table is a known one.
    [[nodiscard]] bool readTable(pugi::xml_node data);
    void noteStray(const QString& place);
    [[nodiscard]] Index index(std::string_view table, const char* column) const;

    QByteArray m_bytes; // the document's texts lie in here
    pugi::xml_document m_document;
    Index m_tables;
    std::map<QString, int> m_strays;
    std::unordered_map<std::string_view, pugi::xml_node> m_addresses;
    Index m_contacts;
    Index m_positions;
    Index m_histories;
};
