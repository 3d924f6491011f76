#include "calendar/eventpeople.h"

#include "store/gateway/datajw.h"
#include "store/gateway/names.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// Adds the names of @p keys: the columns behind the key, joined with a blank.
void readNames(DataJW& dataJW, const QString& table, const QString& columns, const std::set<Key>& keys,
               QHash<Key, QString>& names)
{
    if (keys.empty())
        return;
    // The range from the lowest to the highest reads a few rows too many, but each statement by itself costs
    // more than hundreds of rows.
    const QString key = table + u"Key";
    const RecordSet rows = dataJW.getExecQueryRecords(
        u"Select "_s + key + u',' + columns + u" from " + table + u" where " + key + u" between " +
        QString::number(*keys.begin()) + u" and " + QString::number(*keys.rbegin()));
    if (rows.isNothing())
        return;
    for (const Key wanted : keys)
        names.insert(wanted, QString());
    const QHash<Key, QString> found = names::byKey(rows);
    for (auto name = found.cbegin(); name != found.cend(); ++name)
        names.insert(name.key(), name->simplified());
}

} // namespace

void EventPeople::learn(DataJW& dataJW, const EventOwnersByKey& owners)
{
    std::set<Key> contacts;
    std::set<Key> companies;
    for (const EventOwners& each : owners) {
        if (each.contact != 0 && !m_contacts.contains(each.contact))
            contacts.insert(each.contact);
        if (each.company != 0 && !m_companies.contains(each.company))
            companies.insert(each.company);
    }
    readNames(dataJW, u"Contact"_s, u"FirstName,LastName"_s, contacts, m_contacts);
    readNames(dataJW, u"Company"_s, u"Name"_s, companies, m_companies);
}

void EventPeople::forget()
{
    m_contacts.clear();
    m_companies.clear();
}

QString EventPeople::with(const EventOwners& owners) const
{
    QStringList names{contact(owners), company(owners)};
    names.removeAll(QString());
    return names.join(u", "_s);
}
