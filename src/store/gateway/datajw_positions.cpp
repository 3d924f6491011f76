#include "store/gateway/datajw_impl.h"

#include "base/text.h"
#include "base/words.h"

using namespace Qt::StringLiterals;
using gateway::keyOf;

namespace {

QString selectPosition(Key key)
{
    return u"Select * from Position where PositionKey="_s + gateway::text(key);
}

} // namespace

RecordSet DataJW::getPosition(const QString& company, const QString& title)
{
    return m_impl->guarded(u"DataJW-GetPosition"_s, RecordSet::unread(), [&](auto& call) {
        if (title == u"*")
            return call.rowsOr(u"Select * from position order by Title"_s,
                               u"DataJW-GetPosition- No positions found."_s, 1);
        return call.rowsOr(selectPosition(getPositionKey(title, company)),
                           u"DataJW-GetPosition- Position Key not found."_s, 0);
    });
}

RecordSet DataJW::getPositionByKey(Key key)
{
    // Fails under the tag of getPosition, as both send the same statement.
    return m_impl->guarded(u"DataJW-GetPosition"_s, RecordSet::unread(), [&](auto& call) {
        return call.rowsOr(selectPosition(key), u"DataJW-GetPositionByKey - Position Key not found."_s, 1);
    });
}

Key DataJW::getPositionKey(const QString& title, const QString& company, bool quiet)
{
    const auto find = [&](auto& call) {
        const Key companyKey = getCompanyKey(company, quiet);
        return keyOf(call.firstRow(u"Select * from Position where title='"_s + title + u"' and CompanyKey=" +
                                   gateway::text(companyKey)),
                     u"PositionKey");
    };
    return m_impl->guarded(u"DataJW-GetPositionKey"_s, Key(0), find, quiet);
}

QString DataJW::getPositionNameByKey(Key key, bool skip)
{
    return m_impl->guarded(u"DataJW-GetPositionNameByKey"_s, QString(), [&](auto& call) {
        return skip ? QString() : call.firstRow(selectPosition(key)).text(u"Title");
    });
}

QStringList DataJW::getPositionNames(const QString& company)
{
    return m_impl->guarded(u"DataJW-GetPositionNames"_s, QStringList(), [&](auto& call) {
        if (company == text::newEntry)
            return QStringList();
        const QStringList names = call.texts(u"Select * from Position where CompanyKey="_s +
                                                 gateway::text(getCompanyKey(company)) + u" order by title",
                                             u"Title"_s);
        if (names.isEmpty())
            call.say(u"DataJW-GetPositionNames - "_s + company +
                     u": CompanyKey Not Found or No Positions available");
        return names;
    });
}

std::vector<Key> DataJW::getPositionKeysAll()
{
    return m_impl->guarded(u"DataJW-GetPositionKeyAll"_s, std::vector<Key>(), [&](auto& call) {
        const std::vector<Key> keys = call.keys(u"Select * from Position"_s, u"PositionKey"_s);
        if (keys.empty())
            call.say(u"DataJW-getPositionKeysAll - No positions found"_s);
        return keys;
    });
}

QStringList DataJW::parsePositionText(Key key, bool full)
{
    return m_impl->guarded(u"DataJW-parsePositionText"_s, QStringList(), [&](auto& call) {
        const RecordSet position = call.firstRow(selectPosition(key));
        if (position.isEmpty()) {
            call.say(u"DataJW-parsePositionText - Position key not found."_s, 0);
            return QStringList();
        }
        QString text = position.text(u"Keyword") + u' ' + position.text(u"Title");
        // No blank between title and responsibilities: the ranking of positions counts on this very text.
        if (full)
            text += position.text(u"Responsibilities") + u' ' + position.text(u"Qualifications") + u' ' +
                    position.text(u"Notes");
        return splitWords(text);
    });
}

QStringList DataJW::splitWords(const QString& text)
{
    constexpr qsizetype shortest = 4;
    return words::split(text, shortest);
}
