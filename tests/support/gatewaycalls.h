// Every operation of the gateway as a call that can be put into a table.
#pragma once

#include "store/gateway/datajw.h"

#include <QMetaType>

#include <functional>

/// A call on the gateway with its answer as a text, so that tests of many operations share one table.
using GatewayCall = std::function<QString(DataJW&)>;
Q_DECLARE_METATYPE(GatewayCall)

/// What operations answer, as texts; a record set as the values of its first column.
struct answers
{
    static QString shown(bool answer) { return answer ? QStringLiteral("true") : QStringLiteral("false"); }
    static QString shown(Key answer) { return QString::number(answer); }
    static QString shown(int answer) { return QString::number(answer); }
    static QString shown(const QString& answer) { return answer; }
    static QString shown(const QStringList& answer) { return answer.join(u'|'); }
    static QString shown(QDate answer)
    {
        return answer.isValid() ? answer.toString(Qt::ISODate) : QStringLiteral("no date");
    }
    static QString shown(const Target& answer)
    {
        return QString::number(answer.TargetKey) + u':' + answer.Name;
    }
    static QString shown(const Dox& answer) { return QString::number(answer.docKey) + u':' + answer.docName; }
    template<typename Item> static QString shown(const std::vector<Item>& answer)
    {
        QStringList items;
        for (const Item& item : answer)
            items.append(shown(item));
        return items.join(std::is_same_v<Item, Key> ? u',' : u'|');
    }
    static QString shown(RecordSet answer)
    {
        QStringList keys;
        for (; !answer.isNothing() && !answer.atEnd(); answer.next())
            keys.append(answer.text(0));
        return answer.isNothing() ? QStringLiteral("nothing")
               : keys.isEmpty()   ? QStringLiteral("no rows")
                                  : keys.join(u',');
    }
};

/// CALL(getCompanyKey(name)) is a GatewayCall with the answer shown.
#define CALL(operation) GatewayCall([](DataJW& data) { return answers::shown(data.operation); })
