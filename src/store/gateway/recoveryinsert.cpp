#include "store/gateway/recoveryinsert.h"

#include <algorithm>

QString recoveryInsert(const QString& insert, const QString& journal)
{
    constexpr QStringView into = u"insert into ";
    if (!insert.startsWith(into, Qt::CaseInsensitive))
        return {};
    const auto end = std::find_if_not(insert.cbegin() + into.size(), insert.cend(),
                                      [](QChar letter) { return letter.isLetterOrNumber(); });
    return insert.left(into.size()) + journal + insert.mid(end - insert.cbegin());
}
