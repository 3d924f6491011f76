// What the import screen shows of a file: its columns with their fields, and all its values.
#pragma once

#include "formats/recordtable.h"
#include "intake/fieldmap.h"

#include <QAbstractTableModel>

/// A file that was read: its records, the names of its columns, and where they go.
struct ImportFile
{
    RecordTable records;
    QStringList names; ///< of the columns; "" where the file gives none
    FieldMap map;
    /// The column's name as a person reads it: its own, or its number.
    [[nodiscard]] QString nameAt(int column) const;
    /// The file of a table: the first @p skipped records passed over, the next one taken as names when it
    /// holds them.
    static ImportFile divided(RecordTable table, int skipped, bool named);
};

/// A row for each column of the file: its name, the field it goes into (to be edited), and what it holds in
/// the first records.
class ImportColumns : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Columns { Name, Field, Samples };
    static constexpr int sampleCount = 3;

    explicit ImportColumns(ImportFile& file)
        : m_file(file)
    {
    }
    void reload();
    void fieldsChanged();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

signals:
    /// The user has chosen a field for a column.
    void mapped();

private:
    ImportFile& m_file;
};

/// lstImport: every value of the file, a row each, with "  -" and its field behind the mapped ones.
class ImportValues : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit ImportValues(const ImportFile& file)
        : m_file(file)
    {
    }
    void reload();
    void fieldsChanged();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    const ImportFile& m_file;
};
