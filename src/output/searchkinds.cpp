#include "output/searchkinds.h"

#include "store/gateway/datajw.h"

#include <QHash>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The name that a hit's node shows.
QString displayName(DataJW& dataJW, const SearchKind& kind, Key key)
{
    if (kind.rootKey == u"ContactRoot")
        return dataJW.getContactByKey(key);
    if (kind.table == u"Company")
        return dataJW.getCompanyNameByKey(key);
    if (kind.table == u"Position")
        return dataJW.getPositionNameByKey(key);
    if (kind.table == u"Event")
        return dataJW.getEventByKey(key).text(u"Event");
    if (kind.table == u"Target")
        return dataJW.getTargetByKey(key).Name;
    const RecordSet item = dataJW.getUProfileByKey(key);
    return item.text(u"Title") + u'-' + item.text(u"SubTitle");
}

} // namespace

QString SearchHits::label(const SearchKind& kind) const
{
    return kind.rootLabel + field + u" : " + QString::number(keys.size());
}

std::span<const SearchKind> keysearch::kinds()
{
    static const std::array<SearchKind, 7> all{{
        {u"Contact"_s,
         u"Contact"_s,
         u"ContactRoot"_s,
         u"Contact by "_s,
         {u"LastName"_s, u"FirstName"_s, u"Title"_s, u"Department"_s, u"ReportsTo"_s, u"Notes"_s,
          u"ContactTime"_s}},
        {u"Company"_s,
         u"Company"_s,
         u"CompanyRoot"_s,
         u"Company by "_s,
         {u"Name"_s, u"ShortName"_s, u"Industry"_s, u"Notes"_s}},
        {u"Position"_s,
         u"Position"_s,
         u"PositionRoot"_s,
         u"Position by "_s,
         {u"Title"_s, u"Responsibilities"_s, u"Qualifications"_s, u"Keyword"_s, u"Notes"_s, u"Benefits"_s,
          u"Location"_s, u"Source"_s}},
        // A history is found for its contact, and opens that.
        {u"Contact History"_s,
         u"History"_s,
         u"ContactRoot"_s,
         u"Contact by "_s,
         {u"Medium"_s, u"Length"_s, u"Topic"_s, u"Details"_s, u"Location"_s}},
        {u"Events"_s,
         u"Event"_s,
         u"EventRoot"_s,
         u"Event by "_s,
         {u"Event"_s, u"Description"_s, u"Medium"_s}},
        {u"User Profile"_s,
         u"UProfile"_s,
         u"UProfileRoot"_s,
         u"Profile by "_s,
         {u"Title"_s, u"Category"_s, u"Function1"_s, u"Function2"_s, u"Function3"_s, u"Location"_s,
          u"Notes"_s, u"SubCategory"_s, u"SubTitle"_s}},
        {u"Target"_s,
         u"Target"_s,
         u"TargetRoot"_s,
         u"Target by "_s,
         {u"Name"_s, u"Business"_s, u"Industry"_s, u"Sector"_s, u"Type"_s, u"ExecCEO"_s, u"Exec1"_s,
          u"Exec2"_s, u"Exec3"_s, u"Exec4"_s, u"BusinessUnits"_s}},
    }};
    return all;
}

const SearchKind* keysearch::kind(const QString& name)
{
    const auto all = kinds();
    const auto found = std::ranges::find_if(
        all, [&](const SearchKind& kind) { return kind.name.compare(name, Qt::CaseInsensitive) == 0; });
    return found == all.end() ? nullptr : &*found;
}

SearchHits keysearch::search(DataJW& dataJW, const SearchKind& kind, const QString& field,
                             const QString& text)
{
    SearchHits hits{field, dataJW.getKSearch(kind.table, field, text), {}};
    QHash<Key, QString> names; // a contact has many histories
    for (const Key key : hits.keys) {
        auto name = names.constFind(key);
        if (name == names.cend())
            name = names.insert(key, displayName(dataJW, kind, key) + u'#' + QString::number(key));
        hits.nodes.append(*name);
    }
    return hits;
}

std::optional<Key> keysearch::keyOf(const QString& node)
{
    const qsizetype mark = node.lastIndexOf(u'#');
    bool isNumber = false;
    const Key key = node.mid(mark + 1).toShort(&isNumber);
    return mark >= 0 && isNumber ? std::optional(key) : std::nullopt;
}
