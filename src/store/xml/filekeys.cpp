#include "store/xml/filekeys.h"

#include "base/key.h"
#include "store/engine/schema.h"
#include "store/xml/campaignfile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>
#include <string>

namespace {

constexpr int highestKey = std::numeric_limits<Key>::max();

/// Where a file has keys of one kind.
struct Place
{
    const char* table;
    const char* column;
};
constexpr std::array contactKeys{Place{"Contact", "ContactKey"}, Place{"History", "ContactKey"},
                                 Place{"Event", "ContactKey"}};
constexpr std::array contactLists{Place{"Contact", "ContactList"}, Place{"Position", "ContactList"}};
constexpr std::array documentKeys{Place{"Document", "ResumeKey"}};
constexpr std::array documentLists{Place{"Contact", "DocumentList"}};

bool hasFiveDigits(std::string_view key)
{
    int number = 0;
    const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), number);
    return error == std::errc() && end == key.data() + key.size() && key.size() == 5 &&
           number >= schema::firstListKey - 1 && number <= highestKey;
}

/// The keys that the records of a table have, each with what is to stand in its place.
class KeyBook
{
public:
    KeyBook(const CampaignFile& file, const Place& own)
    {
        const CampaignFile::Records& records = file.records(own.table);
        for (const pugi::xml_node& record : records) {
            if (const std::string_view key = record.attribute(own.column).value(); isKey(key)) {
                m_renews = m_renews || !hasFiveDigits(key);
                m_keys.try_emplace(std::string(key));
            }
        }
        // The store will need as many keys again for the records themselves.
        m_renews = m_renews && m_keys.size() <= (highestKey - schema::firstListKey) / 2;
        int next = schema::firstListKey;
        for (const pugi::xml_node& record : records) {
            const std::string_view key = record.attribute(own.column).value();
            const auto place = m_keys.find(std::string(key));
            if (place != m_keys.end() && place->second.empty())
                place->second = m_renews ? std::to_string(next++) : std::string(key);
        }
    }
    [[nodiscard]] bool renews() const { return m_renews; }
    /// Null for a key that no record has.
    [[nodiscard]] const std::string* find(std::string_view key) const
    {
        const auto place = m_keys.find(std::string(key));
        return place == m_keys.end() ? nullptr : &place->second;
    }

private:
    static bool isKey(std::string_view text) { return !text.empty() && text != "0"; }

    std::unordered_map<std::string, std::string> m_keys;
    bool m_renews = false;
};

std::string_view trimmed(std::string_view text)
{
    const size_t begin = text.find_first_not_of(' ');
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

void tidyList(pugi::xml_attribute list, const KeyBook& book)
{
    const std::string_view before = list.value();
    std::string after;
    for (size_t at = 0; at < before.size();) {
        const size_t end = std::min(before.find(',', at), before.size());
        if (const std::string* const key = book.find(trimmed(before.substr(at, end - at))))
            after.append(after.empty() ? "" : ",").append(*key);
        at = end + 1;
    }
    if (after != before)
        list.set_value(after.c_str());
}

void renewKey(pugi::xml_attribute attribute, const KeyBook& book)
{
    if (const std::string* const key = book.find(attribute.value()))
        attribute.set_value(key->c_str());
}

void tidy(const CampaignFile& file, std::span<const Place> keys, std::span<const Place> lists)
{
    const KeyBook book(file, keys.front());
    for (const auto& [table, column] : lists) {
        for (const pugi::xml_node& record : file.records(table))
            tidyList(record.attribute(column), book);
    }
    for (const auto& [table, column] : book.renews() ? keys : std::span<const Place>()) {
        for (const pugi::xml_node& record : file.records(table))
            renewKey(record.attribute(column), book);
    }
}

} // namespace

void tidyListKeys(const CampaignFile& file)
{
    tidy(file, contactKeys, contactLists);
    tidy(file, documentKeys, documentLists);
}
