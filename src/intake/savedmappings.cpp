#include "intake/savedmappings.h"

#include "intake/columnnames.h"

using namespace Qt::StringLiterals;

namespace {

const QString group = u"ImportMappings"_s;

/// Columns as they are compared: another program version's capitals and blanks make no other file.
QStringList compared(const QStringList& columns)
{
    QStringList names;
    for (const QString& column : columns)
        names.append(columnnames::plain(column));
    return names;
}

} // namespace

SavedMappings::SavedMappings(RegAccess& settings)
    : m_settings(settings)
{
    QSettings& file = m_settings.file();
    const int count = file.beginReadArray(group);
    for (int i = 0; i < count; ++i) {
        file.setArrayIndex(i);
        m_saved.push_back({file.value(u"Name"_s).toString(), file.value(u"Columns"_s).toStringList(),
                           file.value(u"Fields"_s).toStringList()});
    }
    file.endArray();
}

QStringList SavedMappings::names() const
{
    QStringList names;
    for (const Saved& saved : m_saved)
        names.append(saved.name);
    return names;
}

FieldMap SavedMappings::mapping(const QString& name) const
{
    const auto found = std::ranges::find(m_saved, name, &Saved::name);
    return found == m_saved.end() ? FieldMap() : FieldMap::fromFields(found->fields);
}

QString SavedMappings::nameFor(const QStringList& columns) const
{
    const auto found = std::ranges::find(m_saved, compared(columns), &Saved::columns);
    return found == m_saved.end() ? QString() : found->name;
}

void SavedMappings::save(const QString& name, const QStringList& columns, const FieldMap& map)
{
    std::erase_if(m_saved, [&](const Saved& saved) { return saved.name == name; });
    m_saved.insert(m_saved.begin(), {name, compared(columns), map.fields()}); // the latest counts first
    write();
}

void SavedMappings::remove(const QString& name)
{
    std::erase_if(m_saved, [&](const Saved& saved) { return saved.name == name; });
    write();
}

void SavedMappings::write()
{
    QSettings& file = m_settings.file();
    file.remove(group);
    file.beginWriteArray(group, static_cast<int>(m_saved.size()));
    for (int i = 0; i < static_cast<int>(m_saved.size()); ++i) {
        file.setArrayIndex(i);
        file.setValue(u"Name"_s, m_saved[size_t(i)].name);
        file.setValue(u"Columns"_s, m_saved[size_t(i)].columns);
        file.setValue(u"Fields"_s, m_saved[size_t(i)].fields);
    }
    file.endArray();
    file.sync();
}
