#include "intake/fieldmap.h"

#include "store/engine/schema.h"

#include <algorithm>

using namespace Qt::StringLiterals;

const QStringList& FieldMap::tables()
{
    static const QStringList names{u"Address"_s, u"Contact"_s, u"Company"_s};
    return names;
}

bool FieldMap::isField(const QString& field)
{
    const QString table = field.section(u'.', 0, 0);
    const schema::Table* const found = tables().contains(table) ? schema::findTable(table) : nullptr;
    return field == fullName || (found && found->indexOf(QStringView(field).mid(table.size() + 1)) > 0);
}

void FieldMap::map(const QString& field, int position)
{
    std::erase_if(m_entries,
                  [&](const Entry& entry) { return entry.column == field || entry.position == position; });
    if (!field.isEmpty())
        m_entries.push_back({field, position});
}

void FieldMap::unmap(int position)
{
    map({}, position);
}

void FieldMap::clear()
{
    m_entries.clear();
}

QString FieldMap::fieldAt(int position) const
{
    const auto found = std::ranges::find(m_entries, position, &Entry::position);
    return found == m_entries.end() ? QString() : found->column;
}

int FieldMap::positionOf(QStringView field) const
{
    const auto found = std::ranges::find(m_entries, field, &Entry::column);
    return found == m_entries.end() ? 0 : found->position;
}

std::vector<FieldMap::Entry> FieldMap::entries(const QString& table) const
{
    std::vector<Entry> entries;
    for (const Entry& entry : m_entries) {
        if (entry.column.startsWith(table + u'.') && entry.column != fullName)
            entries.push_back({entry.column.mid(table.size() + 1), entry.position});
    }
    return entries;
}

int FieldMap::lastPosition() const
{
    int last = 0;
    for (const Entry& entry : m_entries)
        last = std::max(last, entry.position);
    return last;
}

QString FieldMap::text(const QString& table) const
{
    QStringList texts;
    for (const Entry& entry : entries(table))
        texts.append(entry.column + u':' + QString::number(entry.position));
    return texts.join(u',');
}

QStringList FieldMap::fields() const
{
    QStringList fields;
    for (const Entry& entry : m_entries)
        fields.append(entry.column + u':' + QString::number(entry.position));
    return fields;
}

FieldMap FieldMap::fromFields(const QStringList& fields)
{
    FieldMap map;
    for (const QString& text : fields) {
        const QString field = text.section(u':', 0, 0);
        const int position = text.section(u':', 1).toInt();
        if (position > 0 && isField(field))
            map.map(field, position);
    }
    return map;
}
