#include "store/gateway/datajw_impl.h"

#include "base/text.h"

using namespace Qt::StringLiterals;
using gateway::keyOf;

namespace {

QString selectPerson(const QString& first, const QString& last)
{
    return u"where firstName='"_s + first + u"' and lastName='" + last + u'\'';
}

} // namespace

RecordSet DataJW::getContact(const QString& first, const QString& last)
{
    return m_impl->guarded(u"DataJW-GetContact"_s, RecordSet::unread(), [&](auto& call) {
        const Key key = getContactKey(first, last, u"*"_s);
        return call.rowsOr(u"Select * from Contact where ContactKey="_s + gateway::text(key),
                           u"DataJW-GetContact - Contact Key not found."_s, 0);
    });
}

QStringList DataJW::getContactAll()
{
    return m_impl->guarded(u"DataJW-GetContactAll"_s, QStringList(), [&](auto& call) {
        QStringList names;
        for (RecordSet rows = call.run(u"Select * from contact order by lastName"_s); !rows.atEnd();
             rows.next())
            names.append(rows.text(u"FirstName") + u' ' + rows.text(u"LastName"));
        if (names.isEmpty())
            call.say(u"DataJW-GetContactAll - No Contact Records Available"_s);
        return names;
    });
}

QString DataJW::getContactByKey(Key key, bool skip)
{
    return m_impl->guarded(u"DataJW-GetContactByKey"_s, QString(), [&](auto& call) {
        if (skip)
            return QString();
        const RecordSet contact =
            call.firstRow(u"Select * from contact where ContactKey="_s + gateway::text(key));
        if (contact.isEmpty())
            return QString();
        return QString(contact.text(u"FirstName") + u' ' + contact.text(u"LastName"));
    });
}

RecordSet DataJW::getContactDataByKey(Key key)
{
    return m_impl->guarded(u"DataJW-GetContactDataByKey"_s, RecordSet::unread(), [&](auto& call) {
        return call.rowsOr(u"Select * from Contact where ContactKey="_s + gateway::text(key),
                           u"DataJW-GetContactDataByKey - Contact Key not found."_s, 0);
    });
}

Key DataJW::getContactKey(const QString& first, const QString& last, const QString& company, bool quiet)
{
    const auto find = [&](auto& call) {
        QString statement;
        if (company == u"*") {
            statement = u"Select * from contact "_s + selectPerson(first, last);
        } else {
            const Key companyKey = getCompanyKey(company, quiet);
            statement = u"Select * from Contact "_s + selectPerson(first, last) + u" and companykey=" +
                        gateway::text(companyKey);
        }
        // Of namesakes the one entered last: it is the one just stored when a caller asks for its new key.
        return call.lastKey(statement, u"ContactKey"_s).value_or(0);
    };
    return m_impl->guarded(u"DataJW-GetContactKey"_s, Key(0), find, quiet);
}

Key DataJW::getContactKeyFull(const QString& name, Key companyKey)
{
    return m_impl->guarded(u"DataJW-GetContactKeyFull"_s, Key(0), [&](auto& call) {
        const auto [first, last] = gateway::splitName(name);
        const RecordSet contact = call.firstRow(u"Select * from Contact "_s + selectPerson(first, last) +
                                                u" and companykey=" + gateway::text(companyKey));
        if (contact.isEmpty())
            call.say(u"DataJW-GetContactKeyFull - No names available for "_s + name + u" : " +
                         gateway::text(companyKey),
                     0);
        return keyOf(contact, u"ContactKey");
    });
}

std::vector<Key> DataJW::getContactKeys(const QString& company)
{
    return m_impl->guarded(u"DataJW-GetContactKeys"_s, std::vector<Key>(), [&](auto& call) {
        const std::vector<Key> keys =
            call.keys(u"Select * from contact where CompanyKey="_s + gateway::text(getCompanyKey(company)),
                      u"ContactKey"_s);
        if (keys.empty())
            call.say(u"DataJW-GetContactKeys - No contacts found."_s);
        return keys;
    });
}

QStringList DataJW::getContactNames(const QString& company)
{
    return m_impl->guarded(u"DataJW-GetContactNames"_s, QStringList(), [&](auto& call) {
        RecordSet rows =
            call.run(u"Select * from Contact where companyKey="_s + gateway::text(getCompanyKey(company)));
        QStringList names;
        for (; !rows.atEnd(); rows.next())
            names.append(rows.text(u"FirstName").trimmed() + u' ' + rows.text(u"LastName").trimmed());
        if (names.isEmpty())
            call.say(u"DataJW-GetContactNames - "_s + company +
                     u": Company Key not found or No Contacts Available");
        return names;
    });
}

Key DataJW::getContactCountByCompanyKey(Key key)
{
    return m_impl->guarded(u"DataJW-getContactCountByCompanyKey"_s, Key(0), [&](auto& call) {
        const Key count = call.countRows(u"Select * from Contact where companyKey="_s + gateway::text(key));
        if (count == 0)
            call.say(u"DataJW-getContactCountByCompanyKey - "_s + gateway::text(key) +
                     u": Company Key not found or No Contacts Available");
        return count;
    });
}

std::vector<Key> DataJW::getContactKeyFromDocumentKey(Key docKey)
{
    return m_impl->guarded(u"DataJW-GetContactKeyFromDocumentKey"_s, std::vector<Key>(), [&](auto& call) {
        RecordSet rows = call.run(u"Select * from Contact where DocumentList > ''"_s);
        if (rows.isEmpty())
            call.say(u"DataJW-GetContactKeyFromDocumentKey - No document keys found not found."_s);
        const QString wanted = gateway::text(docKey);
        std::vector<Key> keys;
        for (; !rows.atEnd(); rows.next()) {
            if (text::csvParse(rows.text(u"DocumentList")).contains(wanted))
                keys.push_back(keyOf(rows, u"ContactKey"));
        }
        return keys;
    });
}
