// Histories and events.
#include "store/gateway/datajw_impl.h"

using namespace Qt::StringLiterals;
using gateway::keyOf;

Key DataJW::getHistoryCount(Key contactKey)
{
    return m_impl->guarded(u"DataJW-GetHistoryCount"_s, Key(0), [&](auto& call) {
        const auto count = call.lastKey(
            u"Select * from History where ContactKey="_s + gateway::text(contactKey), u"ContactCount"_s);
        if (!count)
            call.say(u"DataJW-GetHistoryCount - No contacts found."_s);
        return count.value_or(0);
    });
}

RecordSet DataJW::getHistoryByContactKeyCnt(Key key)
{
    return m_impl->guarded(u"DataJW-GetHistoryByContactKeyCnt"_s, RecordSet::unread(), [&](auto& call) {
        return call.run(u"Select * from History where ContactKey = "_s + gateway::text(key) +
                        u" Order by ContactDate,ContactCount");
    });
}

RecordSet DataJW::getHistoryByContactKey(Key key)
{
    return m_impl->guarded(u"DataJW-GetHistoryByContactKey"_s, RecordSet::unread(), [&](auto& call) {
        return call.run(u"Select * from History where ContactKey = "_s + gateway::text(key) +
                        u" Order by ContactDate");
    });
}

RecordSet DataJW::getEventByKey(Key key)
{
    return m_impl->guarded(u"DataJW-GetEventByKey"_s, RecordSet::unread(), [&](auto& call) {
        return call.run(u"Select * from Event where EventKey = "_s + gateway::text(key) +
                        u" Order by EventDate");
    });
}

RecordSet DataJW::getEventByPositionKey(Key key)
{
    return m_impl->guarded(u"DataJW-GetEventByPositionKey"_s, RecordSet::unread(), [&](auto& call) {
        // An event has no column "Date", so the store refuses this and the caller gets nothing. Screens rely
        // on a position showing no events of its own; with the right column they would suddenly list them.
        return call.run(u"Select * from Event where PositionKey = "_s + gateway::text(key) +
                        u" Order by Date");
    });
}

RecordSet DataJW::getEventAll(const QString& type)
{
    return m_impl->guarded(u"DataJW-GetEventAll"_s, RecordSet::unread(), [&](auto& call) {
        if (type.isEmpty())
            return call.run(u"Select * from Event Order by EventDate"_s);
        return call.run(u"Select * from Event where eventType='"_s + type + u"' Order by EventDate");
    });
}

Key DataJW::getLastEventAddedKey()
{
    return m_impl->guarded(u"DataJW-GetLastEventAddedKey"_s, Key(0), [&](auto& call) {
        return keyOf(call.firstRow(u"Select * from Event Order by EventKey DESC"_s), u"EventKey");
    });
}
