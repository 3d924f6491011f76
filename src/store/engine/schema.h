// The tables of the store, in one place: this creates the file, types the dialect and answers getFields.
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <span>
#include <vector>

namespace schema {

enum class ColumnType {
    Auto,    ///< key that the store numbers; never used twice, also after a delete
    Integer, ///< whole number, read as 16 bits
    Text,    ///< compared without regard to the case of A to Z
    Date,    ///< ISO text, "2026-11-22" or "2026-11-22 14:05:00"
};

struct Column
{
    QString name;
    ColumnType type;
};

struct Table
{
    QString name;
    std::vector<Column> columns; ///< in physical order, which whole-record saves rely on

    /// Position of a column by its name in any case; -1 when the table has none of that name.
    [[nodiscard]] int indexOf(QStringView column) const;
};

/// Marks a file as this program's own (application_id): the letters "JWdb".
inline constexpr int applicationId = 0x4A576462;

/// The first key of a contact and of a document. These keys stand in lists, where an old one is replaced as
/// text: among keys of five digits none is part of another.
inline constexpr int firstListKey = 10001;
/// The tables whose keys stand in lists.
inline constexpr std::array listTables{"Contact", "Document"};

/// All tables, shadow tables included.
std::span<const Table> tables();
/// The table of that name in any case; null when there is none.
const Table* findTable(QStringView name);
/// The statements that make an empty store: tables, indexes, and the counters that keep keys from being used
/// twice.
QStringList createStatements();

} // namespace schema
