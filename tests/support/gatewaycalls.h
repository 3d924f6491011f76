// Every operation of the gateway as a call that can be put into a table.
#pragma once

#include "store/datajw.h"

#include <QMetaType>

#include <functional>

/// A call on the gateway with its answer as a text, so that tests of many operations share one table.
using GatewayCall = std::function<QString(DataJW&)>;
Q_DECLARE_METATYPE(GatewayCall)

namespace answers {

inline QString shown(bool answer)
{
    return answer ? QStringLiteral("true") : QStringLiteral("false");
}
inline QString shown(Key answer)
{
    return QString::number(answer);
}
inline QString shown(int answer)
{
    return QString::number(answer);
}
inline QString shown(const QString& answer)
{
    return answer;
}
inline QString shown(QDate answer)
{
    return answer.isValid() ? answer.toString(Qt::ISODate) : QStringLiteral("no date");
}
inline QString shown(const QStringList& answer)
{
    return answer.join(u'|');
}
inline QString shown(const std::vector<Key>& answer)
{
    QStringList keys;
    for (const Key key : answer)
        keys.append(QString::number(key));
    return keys.join(u',');
}
/// A record set as the values of its first column.
inline QString shown(RecordSet answer)
{
    if (answer.isNothing())
        return QStringLiteral("nothing");
    QStringList keys;
    for (; !answer.atEnd(); answer.next())
        keys.append(answer.text(0));
    return keys.isEmpty() ? QStringLiteral("no rows") : keys.join(u',');
}
inline QString shown(const Target& answer)
{
    return QString::number(answer.TargetKey) + u':' + answer.Name;
}
inline QString shown(const std::vector<Target>& answer)
{
    QStringList names;
    for (const Target& target : answer)
        names.append(shown(target));
    return names.join(u'|');
}
inline QString shown(const std::vector<Dox>& answer)
{
    QStringList names;
    for (const Dox& dox : answer)
        names.append(QString::number(dox.docKey) + u':' + dox.docName);
    return names.join(u'|');
}

} // namespace answers

/// CALL(getCompanyKey(name)) is a GatewayCall with the answer shown.
#define CALL(operation) GatewayCall([](DataJW& data) { return answers::shown(data.operation); })
