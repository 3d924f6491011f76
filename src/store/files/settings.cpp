#include "store/files/settings.h"

namespace {

QString entry(RegAccess::Hive hive, const QString& key, const QString& name)
{
    QString path = key;
    path.replace(u'\\', u'/');
    while (path.startsWith(u'/'))
        path.remove(0, 1);
    const QString root = hive == RegAccess::Hive::ClassesRoot ? QStringLiteral("ClassesRoot/")
                                                              : QStringLiteral("CurrentUser/");
    // A key's default value has no name of its own.
    return root + path + u'/' + (name.isEmpty() ? QStringLiteral("Default") : name);
}

} // namespace

RegAccess::RegAccess(const QString& folder)
    : m_file(folder + u"/settings.ini", QSettings::IniFormat)
{
}

void RegAccess::CreateNewKey(Hive hive, const QString& key)
{
    // A group of the file exists as soon as it holds something.
    if (!m_file.contains(entry(hive, key, {})))
        m_file.setValue(entry(hive, key, {}), QString());
}

void RegAccess::SetKeyValue(Hive hive, const QString& key, const QString& name, const QVariant& value)
{
    SetValueEx(hive, key, name, value, value.typeId() == QMetaType::Int ? NumberValue : TextValue);
}

void RegAccess::SetValueEx(Hive hive, const QString& key, const QString& name, const QVariant& value,
                           ValueType type)
{
    m_file.setValue(entry(hive, key, name),
                    type == NumberValue ? QVariant(value.toInt()) : QVariant(value.toString()));
}

QVariant RegAccess::QueryValue(Hive hive, const QString& key, const QString& name)
{
    return QueryValueEx(hive, key, name);
}

QString RegAccess::QueryValueS(Hive hive, const QString& key, const QString& name)
{
    return QueryValueEx(hive, key, name).toString();
}

QVariant RegAccess::QueryValueEx(Hive hive, const QString& key, const QString& name)
{
    const QVariant value = m_file.value(entry(hive, key, name));
    if (!value.isValid())
        return QString();
    switch (value.typeId()) {
    case QMetaType::QString:
    case QMetaType::Int:
        return value;
    default:
        return -1;
    }
}
