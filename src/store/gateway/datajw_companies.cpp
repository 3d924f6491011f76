#include "store/gateway/datajw_impl.h"

#include "base/text.h"

using namespace Qt::StringLiterals;
using gateway::keyOf;

RecordSet DataJW::getCompany(const QString& name)
{
    return m_impl->guarded(u"DataJW-GetCompany"_s, RecordSet::unread(), [&](auto& call) {
        if (name == u"*")
            return call.run(u"Select * from Company"_s);
        return call.run(u"Select * from Company where Name = '"_s + name + u'\'');
    });
}

QStringList DataJW::getCompanyNames()
{
    return m_impl->guarded(u"DataJW-GetCompanyNames"_s, QStringList(), [&](auto& call) {
        const QStringList names = call.texts(u"Select * from company order by name"_s, u"Name"_s);
        if (names.isEmpty())
            call.say(u"DataJW-GetCompanyNames"_s + text::crlf + u" No Company Names found.");
        return names;
    });
}

Key DataJW::getCompanyKey(const QString& name, bool quiet)
{
    const auto find = [&](auto& call) {
        // Asked for before nearly everything else; the index alone answers it when only the key is wanted.
        const RecordSet keys =
            call.oneColumn(u"Select * from company where name='"_s + name + u'\'', u"CompanyKey"_s);
        return keyOf(keys.value(0));
    };
    return m_impl->guarded(u"DataJW-GetCompanyKey"_s, Key(0), find, quiet);
}

Key DataJW::getCompanyKeyByContact(const QString& first, const QString& last, bool quiet)
{
    const auto find = [&](auto& call) {
        const RecordSet contact = call.firstRow(u"Select * from contact where FirstName='"_s + first +
                                                u"' and LastName='" + last + u'\'');
        if (contact.isEmpty())
            call.say(u"DataJW-getCompanyKeyByContact:"_s + first + last + u" First and Last name not found");
        return keyOf(contact, u"CompanyKey");
    };
    return m_impl->guarded(u"DataJW-GetCompanyKeyByContact"_s, Key(0), find, quiet);
}

QString DataJW::getCompanyNameByKey(Key key, bool skip)
{
    return m_impl->guarded(u"DataJW-GetCompanyNameByKey"_s, QString(), [&](auto& call) {
        if (skip)
            return QString();
        return call.firstRow(u"Select * from Company where CompanyKey="_s + gateway::text(key)).text(u"Name");
    });
}

QDate DataJW::getFirstEntryDate()
{
    return m_impl->guarded(u"DataJW-GetFirstEntryDate"_s, QDate(), [&](auto& call) {
        // Companies without a date come first and say nothing.
        RecordSet rows = call.oneColumn(u"Select * from Company order by EntryDate"_s, u"EntryDate"_s);
        while (!rows.atEnd() && !rows.date(u"EntryDate").isValid())
            rows.next();
        return rows.date(u"EntryDate");
    });
}
