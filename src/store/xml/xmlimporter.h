// Reading a campaign's XML file into the store.
#pragma once

#include "base/key.h"
#include "store/xml/campaignfile.h"
#include "store/xml/xmlrecord.h"

#include <QStringList>

#include <initializer_list>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

class DataJW;
class Session;

namespace xmlimport {

/// Restores from or merges in the file at @p path, as DataJW::importXML() promises. A file that cannot be
/// used is refused with a message before anything is changed; before a restore the store is copied. How many
/// records did not come in is said once, at the end; the reasons stand in the error log. Without
/// @p copyFirst there is no copy: for an empty store, and inside of an action, where none can be made.
void read(Session& session, const QString& path, bool copyFirst = true);

} // namespace xmlimport

/// The old keys of one kind of record with the new ones, in the order in which the records came in.
class KeyPairs
{
public:
    /// @p oldKey must live as long as the pairs do (it points into the file).
    void add(std::string_view oldKey, Key newKey);
    /// The new key of the first record that had this old one, as text; @p oldKey itself when there is none.
    [[nodiscard]] QString mapped(std::string_view oldKey) const;
    /// New and old keys for the walk over the key lists. Old keys that the program cannot work with are not
    /// among them: no list holds them.
    [[nodiscard]] const std::vector<std::pair<Key, Key>>& newOld() const { return m_newOld; }

private:
    std::unordered_map<std::string_view, Key> m_first;
    std::vector<std::pair<Key, Key>> m_newOld;
};

/// One walk over a campaign file: writes its records and gives them new keys.
class XmlImport
{
public:
    XmlImport(Session& session, const CampaignFile& file);

    /// Reads everything; throws ImportStopped in the middle of it, with what was read before being stored.
    void run();
    /// Records that did not come in.
    [[nodiscard]] int lost() const { return m_lost; }
    /// Companies and contacts that name an address which the file does not have; each got an empty one.
    [[nodiscard]] int withoutAddress() const { return static_cast<int>(m_withoutAddress.size()); }

private:
    void deleteRows(std::initializer_list<QStringView> tables);
    void readCompany(pugi::xml_node record);
    void readContact(pugi::xml_node record, const QString& company, Key companyKey);
    void readHistory(pugi::xml_node record, Key contactKey);
    void readPosition(pugi::xml_node record, const QString& company, Key companyKey);
    void readDocuments();
    void renewLists();
    void countOrphans();
    void countStrays();
    void noteKnown(const char* table, const QString& name);
    /// The six tables that only a restore brings.
    void readFurtherTables();
    void readPlain(const char* table, QStringView opening, std::span<const char* const> columns);
    void readQuestions();
    void readEvents();
    void readUProfiles();

    /// @p owner is for the log.
    Key storeAddress(std::string_view key, const QString& owner, const QString& status);
    void nameMissingAddresses();
    /// Runs a row's INSERT; a failure is logged by the gateway, counted here, and the walk goes on.
    bool store(const InsertText& insert);
    Key storeKeyed(const InsertText& insert, const QString& table, const QString& keyField);
    void show(const QString& statusLine);
    void tick(int records = 1);

    Session& m_session;
    DataJW& m_data;
    const CampaignFile& m_file;
    KeyPairs m_companies;
    KeyPairs m_contacts;
    KeyPairs m_positions;
    std::vector<std::pair<Key, Key>> m_documents; ///< new and old
    QStringList m_withoutAddress;                 ///< names of their owners
    int m_done = 0;
    int m_total = 0;
    int m_lost = 0;
};
