#include "store/gateway/recordset.h"

RecordSet RecordSet::unread()
{
    RecordSet answer;
    answer.m_unread = true;
    return answer;
}

QString RecordSet::columnName(int column) const
{
    return column >= 0 && column < columnCount() ? m_rows->columns[static_cast<size_t>(column)].name
                                                 : QString();
}

int RecordSet::columnIndex(QStringView name) const
{
    for (int i = 0; i < columnCount(); ++i) {
        const QString& column = m_rows->columns[static_cast<size_t>(i)].name;
        if (column.size() == name.size() && name.compare(column, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

QVariant RecordSet::value(int column) const
{
    if (column < 0 || column >= columnCount() || m_row < 0 || atEnd())
        return {};
    return m_rows->cells[static_cast<size_t>(m_row) * static_cast<size_t>(columnCount()) +
                         static_cast<size_t>(column)];
}

QString RecordSet::text(int column) const
{
    const QVariant cell = value(column);
    if (cell.isNull())
        return {};
    const QString text = cell.toString();
    if (m_rows->columns[static_cast<size_t>(column)].type != schema::ColumnType::Date)
        return text;
    // Another program may have written something into the file that is no date: show it as it is.
    const auto moment = dates::fromIso(text);
    return moment ? dates::general(*moment) : text;
}

std::optional<Key> RecordSet::key(QStringView name) const
{
    const QVariant cell = value(name);
    if (cell.isNull())
        return std::nullopt;
    bool isNumber = false;
    const qint64 wide = cell.toLongLong(&isNumber);
    return isNumber ? toKey(wide) : std::nullopt;
}

std::optional<dates::Moment> RecordSet::moment(QStringView name) const
{
    const QVariant cell = value(name);
    return cell.isNull() ? std::nullopt : dates::parse(cell.toString());
}

QDate RecordSet::date(QStringView name) const
{
    const auto found = moment(name);
    return found ? found->date : QDate();
}
