#include "store/gateway/names.h"

namespace names {

QHash<Key, QString> byKey(RecordSet rows)
{
    QHash<Key, QString> names;
    names.reserve(rows.rowCount());
    for (; !rows.atEnd(); rows.next()) {
        const auto key = toKey(rows.value(0).toLongLong());
        if (!key || names.contains(*key))
            continue;
        QString name = rows.text(1);
        for (int column = 2; column < rows.columnCount(); ++column)
            name += u' ' + rows.text(column);
        names.insert(*key, name);
    }
    return names;
}

} // namespace names
