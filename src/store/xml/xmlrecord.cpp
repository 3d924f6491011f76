#include "store/xml/xmlrecord.h"

#include <QCoreApplication>

std::string_view RecordReader::raw(const char* column)
{
    if (!m_record)
        return {};
    const pugi::xml_attribute attribute = m_record.attribute(column, m_hint);
    if (!attribute)
        stop(column);
    return attribute.value();
}

QString RecordReader::text(const char* column)
{
    const std::string_view value = raw(column);
    return QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size()));
}

QString RecordReader::textOr(const char* column, const QString& instead)
{
    QString value = text(column);
    return value.isEmpty() ? instead : value;
}

void RecordReader::stop(const char* column) const
{
    int place = 1;
    for (pugi::xml_node before = m_record.previous_sibling("Record"); before;
         before = before.previous_sibling("Record"))
        ++place;
    throw ImportStopped(
        QCoreApplication::translate("XmlImport", "Record %1 of the table %2 lacks the attribute %3.")
            .arg(place)
            .arg(QString::fromUtf8(m_record.parent().attribute("Table").value()), QString::fromUtf8(column)));
}

InsertText::InsertText(QStringView opening)
    : m_columns(opening.toString())
{
    m_columns.reserve(800);
    m_values.reserve(2000);
}

InsertText& InsertText::add(const char* column, QStringView value)
{
    if (!m_first) {
        m_columns += u',';
        m_values += u"','";
    }
    m_first = false;
    m_columns += QLatin1String(column);
    m_values += value;
    return *this;
}

InsertText& InsertText::add(RecordReader& record, std::span<const char* const> columns)
{
    for (const char* column : columns)
        add(column, record.text(column));
    return *this;
}

QString InsertText::statement() const
{
    return m_columns + u") VALUES('" + m_values + u"')";
}
