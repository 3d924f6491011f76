#include "base/text.h"

namespace text {

QString quoteFix(QString value)
{
    return value.replace(u'\'', u'`');
}

QStringList csvParse(QStringView keyList)
{
    QStringList keys;
    for (const QStringView item : keyList.split(u',', Qt::SkipEmptyParts))
        keys.append(item.toString());
    return keys;
}

bool isCategory(QStringView companyName)
{
    return companyName.startsWith(u'~');
}

bool isUnsaved(QStringView selection)
{
    return selection.isEmpty() || selection == newEntry;
}

} // namespace text
