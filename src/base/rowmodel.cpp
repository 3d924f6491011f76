#include "base/rowmodel.h"

#include <algorithm>

RowModel::RowModel(QStringList headings, QObject* parent)
    : QAbstractTableModel(parent)
    , m_headings(std::move(headings))
{
}

void RowModel::setRows(std::vector<ListRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void RowModel::remove(const QString& key)
{
    const int row = find(key);
    if (row < 0)
        return;
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
}

void RowModel::mark(const QString& key)
{
    for (int row = 0; row < rowCount(); ++row) {
        ListRow& each = m_rows[static_cast<std::size_t>(row)];
        const bool marked = !key.isEmpty() && each.key == key;
        if (each.marked == marked)
            continue;
        each.marked = marked;
        emit dataChanged(index(row, 0), index(row, columnCount() - 1), {MarkedRole});
    }
}

int RowModel::find(const QString& key) const
{
    const auto found = std::ranges::find(m_rows, key, &ListRow::key);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int RowModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int RowModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_headings.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ListRow& row = m_rows[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return row.texts.value(index.column());
    case SortRole:
        if (column < row.sortsBy.size() && row.sortsBy[column].isValid())
            return row.sortsBy[column];
        return row.texts.value(index.column()).toCaseFolded();
    case KeyRole:
        return row.key;
    case KindRole:
        return row.kind;
    case MarkedRole:
        return row.marked;
    case Qt::AccessibleDescriptionRole:
        return row.tip.isEmpty() ? QVariant() : QVariant(row.tip);
    default:
        return {};
    }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return m_headings.value(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}
