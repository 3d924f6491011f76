// A file's records as a table of texts that stays small.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

/// Records of texts, read from a file. Records may differ in their number of cells. The texts lie in one
/// UTF-8 pool: a hundred thousand records take about what their file does.
class RecordTable
{
public:
    [[nodiscard]] int recordCount() const { return static_cast<int>(m_records.size()); }
    /// The most cells that a record has.
    [[nodiscard]] int columnCount() const { return m_columns; }
    [[nodiscard]] int cellCount(int record) const;
    /// The text of a cell, "" beyond a record's end.
    [[nodiscard]] QString cell(int record, int column) const;
    [[nodiscard]] QStringList texts(int record) const;
    /// The line of the file (or the row of the sheet) that the record begins on, from 1.
    [[nodiscard]] int line(int record) const { return m_records[static_cast<size_t>(record)].line; }

    /// All cells in a row, record after record, and where one of them stands: its record and column.
    [[nodiscard]] int totalCells() const { return static_cast<int>(m_begin); }
    [[nodiscard]] std::pair<int, int> place(int cell) const;
    [[nodiscard]] int firstCell(int record) const;

    /// Adds a cell to the record at work. False when the table holds as much as it can (1 GB).
    bool addCell(QByteArrayView utf8);
    /// Ends the record at work, which began on @p line.
    void endRecord(int line);
    /// The same table without its first @p records.
    [[nodiscard]] RecordTable without(int records) const;
    /// Columns as records: the n-th record holds the n-th cell of each.
    [[nodiscard]] RecordTable transposed() const;

private:
    struct Record
    {
        quint32 begin; ///< its first cell among m_ends
        int line;
    };
    [[nodiscard]] QByteArrayView bytes(quint32 cell) const;
    [[nodiscard]] quint32 endOf(int record) const;

    QByteArray m_pool;
    std::vector<quint32> m_ends; ///< where each cell's text ends in the pool
    std::vector<Record> m_records;
    quint32 m_begin = 0; ///< first cell of the record at work
    int m_columns = 0;
};
