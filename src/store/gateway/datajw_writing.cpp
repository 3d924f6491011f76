// Settings, deletes, and the moving of references to new keys.
#include "store/gateway/datajw_impl.h"

#include "base/text.h"
#include "store/gateway/keylists.h"

#include <array>

using namespace Qt::StringLiterals;
using gateway::keyOf;

namespace {

/// The column by which a table's rows are deleted; "" for a table that has none.
QString deleteColumn(const QString& table)
{
    struct Entry
    {
        QStringView table;
        QStringView column;
    };
    // A profile goes with the company or position that it belongs to.
    static constexpr std::array<Entry, 9> columns{{{u"Position", u"PositionKey"},
                                                   {u"Document", u"ResumeKey"},
                                                   {u"Company", u"CompanyKey"},
                                                   {u"Address", u"AddressKey"},
                                                   {u"Contact", u"ContactKey"},
                                                   {u"Status", u"StatusKey"},
                                                   {u"CProfile", u"CompanyKey"},
                                                   {u"JProfile", u"PositionKey"},
                                                   {u"UProfile", u"UProfileKey"}}};
    for (const Entry& entry : columns) {
        if (entry.table.compare(table, Qt::CaseInsensitive) == 0)
            return entry.column.toString();
    }
    return {};
}

QString updateList(const QString& table, const QString& column, const QString& list, const QString& keyColumn,
                   Key key)
{
    return u"Update "_s + table + u" set " + column + u"='" + list + u"' where " + keyColumn + u'=' +
           gateway::text(key);
}

/// Replaces a key's text in one list column of all rows of a table; answers how many rows it changed.
template<class Call>
int replaceInLists(Call& call, Key newKey, Key oldKey, const QString& select, const QString& table,
                   const QString& column, const QString& keyColumn)
{
    const QString oldText = gateway::text(oldKey);
    int changed = 0;
    // Rows of a position are long, and there may be tens of thousands: only the lists are read, and the keys
    // when a list has turned out to hold the old one.
    std::optional<RecordSet> keys;
    int passed = 0;
    for (RecordSet lists = call.oneColumn(select, column); !lists.atEnd(); lists.next(), ++passed) {
        QString list = lists.text(0);
        if (!list.contains(oldText))
            continue;
        // Text for text and not item for item: key 3 is found in "13" too. What is in a list is read
        // leniently everywhere, and both keys are of like size.
        list.replace(oldText, keylists::replacement(newKey));
        if (!keys)
            keys = call.oneColumn(select, keyColumn);
        for (; passed > 0; --passed)
            keys->next();
        call.run(updateList(table, column, list, keyColumn, keyOf(*keys, keyColumn)));
        ++changed;
    }
    return changed;
}

} // namespace

bool DataJW::writeStatus(const QString& name, const QString& value, bool replace)
{
    return m_impl->guarded(u"DataJW-WriteStatus"_s, false, [&](auto& call) {
        return call.whole([&] {
            if (replace)
                call.run(u"Delete * from Status where StatusDescription='"_s + name + u'\'');
            call.run(u"INSERT INTO STATUS (StatusDescription,StatusDate,StatusValue) VALUES ('"_s + name +
                     u"','" + m_impl->session.todayText() + u"','" + value + u"');");
            return true;
        });
    });
}

QString DataJW::getStatusValue(const QString& name, bool quiet)
{
    const auto find = [&](auto& call) {
        const RecordSet row = call.firstRow(u"Select * from Status where StatusDescription='"_s + name +
                                            u"' Order by StatusKey");
        if (row.isEmpty())
            call.say(u"DataJW-GetStatusValue - StatusValue Not Found"_s);
        return row.text(u"StatusValue");
    };
    return m_impl->guarded(u"DataJW-GetStatusValueErr"_s, QString(), find, quiet);
}

bool DataJW::delStatus(const QString& name)
{
    return m_impl->guarded(u"DataJW-delStatusErr"_s, false, [&](auto& call) {
        call.run(u"Delete * from status where statusdescription='"_s + name + u'\'');
        return true;
    });
}

void DataJW::delRecord(Key key, const QString& table)
{
    if (key == 0)
        return;
    m_impl->guarded(u"DataJW-DelRecord"_s, false, [&](auto& call) {
        const QString statement =
            u"Delete * from "_s + table + u" where " + deleteColumn(table) + u'=' + gateway::text(key);
        call.run(statement);
        // The error log is the trail of what was destroyed.
        call.say(u"DataJW-DelRecord"_s + text::crlf + u"Query: " + statement + text::crlf +
                 u"DELETE RECORD...irrecoverable");
        return true;
    });
}

bool DataJW::removeRec(const QString& table, const QString& name)
{
    return m_impl->guarded(u"DataJW-RemoveRec"_s, false, [&](auto& call) {
        call.run(u"Delete * from "_s + table + u" where name='" + name + u'\'');
        return true;
    });
}

bool DataJW::delDox()
{
    return m_impl->guarded(u"DataJW-DelDox"_s, false, [&](auto& call) {
        call.run(u"Delete * from document"_s);
        return true;
    });
}

void DataJW::delContactsByCompany(Key key)
{
    m_impl->guarded(u"DataJW-DelContactsByCompany"_s, false, [&](auto& call) {
        const QString company = gateway::text(key);
        const std::vector<Key> contacts =
            call.keys(u"Select * from Contact where CompanyKey="_s + company, u"ContactKey"_s);
        if (contacts.empty())
            call.say(u"DataJW-DelContactsByCompany - No Contacts"_s);
        return call.whole([&] {
            for (const Key contact : contacts)
                call.run(u"Delete * from History where ContactKey="_s + gateway::text(contact));
            call.run(u"Delete * from Contact where CompanyKey="_s + company);
            // The contacts' addresses stay; the address clean-up finds them.
            for (const QStringView table : {u"Position", u"Event", u"Cprofile", u"Jprofile"})
                call.run(u"Delete * from "_s + table + u" where companykey=" + company);
            return true;
        });
    });
}

bool DataJW::updateCompanySubset(const QString& name, Key oldKey)
{
    return m_impl->guarded(u"DataJW-UpdateCompanySubset"_s, false, [&](auto& call) {
        const ReadWatch watch(*this);
        const Key newKey = getCompanyKey(name);
        if (oldKey == 0)
            return true;
        if (watch.failed())
            throw gateway::refusal(StoreError::NoRow,
                                   gateway::tr("The new key of the company could not be read."));
        return call.whole([&] {
            // Events are not among these: the company screen moves them itself.
            for (const QStringView table : {u"Position", u"Contact", u"CProfile", u"JProfile"})
                call.run(u"Update "_s + table + u" set CompanyKey=" + gateway::text(newKey) +
                         u" where CompanyKey=" + gateway::text(oldKey));
            return false;
        });
    });
}

void DataJW::updateContactSubset(Key newKey, Key oldKey)
{
    m_impl->guarded(u"DataJW-UpdateContactSubset"_s, false, [&](auto& call) {
        const QString fresh = gateway::text(newKey);
        return call.whole([&] {
            for (const QStringView table : {u"Event", u"History"})
                call.run(u"Update "_s + table + u" set ContactKey=" + fresh + u" where ContactKey=" +
                         gateway::text(oldKey));
            call.run(u"Update History set HistoryKey=('"_s + fresh + u"-' & ContactCount) where contactkey=" +
                     fresh);
            return true;
        });
    });
}

int DataJW::updateContactList(Key newKey, Key oldKey, const QString& table, int)
{
    return m_impl->guarded(u"DataJW-UpdateContactList"_s, 0, [&](auto& call) {
        return call.whole([&] {
            return replaceInLists(call, newKey, oldKey,
                                  u"Select * from "_s + table + u" where contactlist > ''", table,
                                  u"ContactList"_s, table + u"Key");
        });
    });
}

int DataJW::updateContactLists(const std::vector<std::pair<Key, Key>>& newOld, const QString& table)
{
    return m_impl->guarded(u"DataJW-UpdateContactList"_s, 0, [&](auto& call) {
        const KeyListRewriter rewriter(newOld);
        const QString keyColumn = table + u"Key";
        int changed = 0;
        const QString statement = u"Select * from "_s + table + u" where contactlist > ''";
        RecordSet keys = call.oneColumn(statement, keyColumn);
        RecordSet lists = call.oneColumn(statement, u"ContactList"_s);
        return call.whole([&] {
            for (; !lists.atEnd(); lists.next(), keys.next()) {
                const QString before = lists.text(0);
                const auto [list, replacements] = rewriter.rewrite(before);
                changed += replacements;
                // Keys that are what they were need no writing.
                if (list != before)
                    call.run(updateList(table, u"ContactList"_s, list, keyColumn, keyOf(keys.value(0))));
            }
            return changed;
        });
    });
}

int DataJW::updateDocList(Key newKey, Key oldKey, const QString& table, int)
{
    return m_impl->guarded(u"DataJW-UpdateDocList"_s, 0, [&](auto& call) {
        return call.whole([&] {
            return replaceInLists(call, newKey, oldKey,
                                  u"Select * from "_s + table + u" where documentlist > ''", table,
                                  u"DocumentList"_s, u"ContactKey"_s);
        });
    });
}
