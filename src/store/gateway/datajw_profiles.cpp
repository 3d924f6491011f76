// The user's own profile items, and target companies.
#include "store/gateway/datajw_impl.h"

#include "base/text.h"

using namespace Qt::StringLiterals;
using gateway::keyOf;

namespace {

QString selectProfile(Key key)
{
    return u"Select * from UProfile where UProfileKey="_s + gateway::text(key);
}

Target readTarget(const RecordSet& row)
{
    Target target;
    target.TargetKey = keyOf(row, u"TargetKey");
    target.Name = row.text(u"Name");
    target.InDB = row.text(u"InDB");
    target.Contacted = row.text(u"Contacted");
    target.Contacts = keyOf(row, u"Contacts");
    target.Positions = keyOf(row, u"Positions");
    target.Flags = row.text(u"Flags");
    target.Business = row.text(u"Business");
    target.Industry = row.text(u"Industry");
    target.Sector = row.text(u"Sector");
    target.Type = row.text(u"Type");
    target.Employees = row.text(u"Employees");
    target.Sales = row.text(u"Sales");
    target.ExecCEO = row.text(u"ExecCEO");
    target.Exec1 = row.text(u"Exec1");
    target.Exec2 = row.text(u"Exec2");
    target.Exec3 = row.text(u"Exec3");
    target.Exec4 = row.text(u"Exec4");
    target.BusinessUnits = row.text(u"BusinessUnits");
    target.Public = row.text(u"Public");
    target.TargetURL = row.text(u"TargetURL");
    target.Rank = keyOf(row, u"Rank");
    target.ProfileRank = row.text(u"ProfileRank");
    target.CompanyKey = keyOf(row, u"CompanyKey");
    target.EntryDate = row.date(u"EntryDate");
    return target;
}

/// All targets of a Select; without one the operation named says so.
template<class Call>
std::vector<Target> readTargets(Call& call, const QString& statement, const QString& operation)
{
    std::vector<Target> targets;
    for (RecordSet rows = call.run(statement); !rows.atEnd(); rows.next())
        targets.push_back(readTarget(rows));
    if (targets.empty())
        call.say(operation + text::crlf + u"No Target Companies records found.");
    return targets;
}

Target firstOf(const std::vector<Target>& targets)
{
    return targets.empty() ? Target() : targets.front();
}

} // namespace

RecordSet DataJW::getUProfileByKey(Key key)
{
    // Fails under the tag of getUProfileKey; only the "not found" carries its own name.
    return m_impl->guarded(u"DataJW-GetUProfileKey"_s, RecordSet::unread(), [&](auto& call) {
        return call.rowsOr(selectProfile(key), u"DataJW-GetUProfileByKey - UProfile not found."_s, 0);
    });
}

RecordSet DataJW::getUProfile(const QString& title, const QString& subtitle)
{
    return m_impl->guarded(u"DataJW-GetUProfile"_s, RecordSet::unread(), [&](auto& call) {
        return call.rowsOr(selectProfile(getUProfileKey(title, subtitle)),
                           u"DataJW-GetUProfile- UProfile not found."_s, 0);
    });
}

Key DataJW::getUProfileKey(const QString& title, const QString& subtitle)
{
    return m_impl->guarded(u"DataJW-GetUProfileKey"_s, Key(0), [&](auto& call) {
        const RecordSet item = call.firstRow(u"Select * from UProfile where title='"_s + title +
                                             u"' AND subTitle='" + subtitle + u'\'');
        if (item.isEmpty())
            call.say(u"DataJW-GetUProfileKey - UProfileKey not found."_s, 0);
        return keyOf(item, u"UProfileKey");
    });
}

std::vector<Key> DataJW::getUProfileKeyAll()
{
    return m_impl->guarded(u"DataJW-GetUProfileKeyAll"_s, std::vector<Key>(), [&](auto& call) {
        const std::vector<Key> keys = call.keys(u"Select * from UProfile"_s, u"UProfileKey"_s);
        if (keys.empty())
            call.say(u"DataJW - GetUProfileKeyAll - No UProfiles found"_s);
        return keys;
    });
}

Key DataJW::getUProfileCount()
{
    return m_impl->guarded(u"DataJW-GetUProfileCount"_s, Key(0), [&](auto&) {
        return gateway::countOf(static_cast<qint64>(getUProfileKeyAll().size()));
    });
}

std::vector<Target> DataJW::getTargets()
{
    return m_impl->guarded(u"DataJW-GetTargets"_s, std::vector<Target>(), [&](auto& call) {
        return readTargets(call, u"Select * from Target"_s, u"DataJW-getTargets"_s);
    });
}

Target DataJW::getTargetByKey(Key key)
{
    return m_impl->guarded(u"DataJW-GetTargetByKey"_s, Target(), [&](auto& call) {
        return firstOf(readTargets(call, u"Select * from Target where TargetKey="_s + gateway::text(key),
                                   u"DataJW-getTargetByKey"_s));
    });
}

Target DataJW::getTargetName(const QString& name)
{
    return m_impl->guarded(u"DataJW-GetTargetName"_s, Target(), [&](auto& call) {
        return firstOf(readTargets(call, u"Select * from Target where Name='"_s + name + u'\'',
                                   u"DataJW-getTargetName"_s));
    });
}

Key DataJW::getTargetCount()
{
    return m_impl->guarded(u"DataJW-GetTargetCount"_s, Key(0), [&](auto& call) {
        const Key count = call.countRows(u"Select * from Target"_s);
        if (count == 0)
            call.say(u"DataJW-GetTargetCount - No contacts found."_s);
        return count;
    });
}
