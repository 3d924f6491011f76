#include "intake/importmodels.h"

using namespace Qt::StringLiterals;

QString ImportFile::nameAt(int column) const
{
    const QString name = names.value(column).trimmed();
    return name.isEmpty() ? ImportColumns::tr("Column %1").arg(column + 1) : name;
}

ImportFile ImportFile::divided(RecordTable table, int skipped, bool named)
{
    const int first = std::min(skipped, table.recordCount());
    const bool hasNames = named && first < table.recordCount();
    const int passed = first + (hasNames ? 1 : 0);
    ImportFile file;
    file.names = hasNames ? table.texts(first) : QStringList();
    file.records = passed > 0 ? table.without(passed) : std::move(table);
    return file;
}

void ImportColumns::reload()
{
    beginResetModel();
    endResetModel();
}

void ImportColumns::fieldsChanged()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, Field), index(rowCount() - 1, Field));
}

int ImportColumns::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_file.records.columnCount();
}

int ImportColumns::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Samples + sampleCount;
}

QVariant ImportColumns::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole))
        return {};
    if (index.column() == Name)
        return m_file.nameAt(index.row());
    if (index.column() == Field)
        return m_file.map.fieldAt(index.row() + 1);
    return m_file.records.cell(index.column() - Samples, index.row()).simplified();
}

QVariant ImportColumns::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == Name)
        return tr("Column");
    return section == Field ? tr("Goes into") : tr("Record %1").arg(section - Samples + 1);
}

Qt::ItemFlags ImportColumns::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Field ? flags | Qt::ItemIsEditable : flags;
}

bool ImportColumns::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const QString field = value.toString();
    if (role != Qt::EditRole || index.column() != Field || (!field.isEmpty() && !FieldMap::isField(field)))
        return false;
    m_file.map.map(field, index.row() + 1);
    emit mapped();
    return true;
}

void ImportValues::reload()
{
    beginResetModel();
    endResetModel();
}

void ImportValues::fieldsChanged()
{
    if (rowCount() > 0)
        emit dataChanged(index(0), index(rowCount() - 1));
}

int ImportValues::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_file.records.totalCells();
}

QVariant ImportValues::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const auto [record, column] = m_file.records.place(index.row());
    const QString field = m_file.map.fieldAt(column + 1);
    const QString value = m_file.records.cell(record, column).simplified();
    return field.isEmpty() ? value : QString(value + u"  -" + field);
}
