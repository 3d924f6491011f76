// What a Select gives: rows with named columns, as a value.
#pragma once

#include "base/dates.h"
#include "base/key.h"
#include "store/engine/schema.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

/// The rows of one statement and a place among them. A value: copying is cheap (the rows are shared and never
/// change), and one that is kept stays what it was whatever the store does next.
/// Columns are reached by name in any case or by position; reading a column that does not exist, or past the
/// end, gives the empty value.
class RecordSet
{
public:
    struct Column
    {
        QString name;
        schema::ColumnType type;
    };
    struct Rows
    {
        std::vector<Column> columns;
        std::vector<QVariant> cells; ///< row after row; dates as their ISO text
        int count = 0;
    };

    RecordSet() = default;
    explicit RecordSet(std::shared_ptr<const Rows> rows)
        : m_rows(std::move(rows))
    {
    }

    /// What an operation answers that could not read its rows.
    [[nodiscard]] static RecordSet unread();

    /// True for the result of an operation that failed or found nothing: there are not even columns.
    [[nodiscard]] bool isNothing() const { return !m_rows; }
    /// True when the rows could not be read: what they hold is unknown and must not be written over. False
    /// for a record that is not there.
    [[nodiscard]] bool isUnread() const { return m_unread; }
    [[nodiscard]] bool isEmpty() const { return rowCount() == 0; }
    [[nodiscard]] int rowCount() const { return m_rows ? m_rows->count : 0; }
    [[nodiscard]] int columnCount() const { return m_rows ? static_cast<int>(m_rows->columns.size()) : 0; }
    [[nodiscard]] QString columnName(int column) const;
    [[nodiscard]] int columnIndex(QStringView name) const; ///< -1 when there is none

    void first() { m_row = 0; }
    void next() { ++m_row; }
    [[nodiscard]] bool atEnd() const { return m_row >= rowCount(); }

    /// The cell as the store holds it: invalid for NULL, a number, or text (dates as ISO text).
    [[nodiscard]] QVariant value(int column) const;
    [[nodiscard]] QVariant value(QStringView name) const { return value(columnIndex(name)); }
    [[nodiscard]] bool isNull(QStringView name) const { return value(name).isNull(); }
    /// The cell as text: "" for NULL, a date in the program's own form ("11/5/2026"). Every text that a form
    /// shows comes through here, so that no screen needs a nullToEmpty() of its own.
    [[nodiscard]] QString text(int column) const;
    [[nodiscard]] QString text(QStringView name) const { return text(columnIndex(name)); }
    /// The cell as a 16-bit number, texts read as the number they are; nothing when it is NULL, no number or
    /// too large.
    [[nodiscard]] std::optional<Key> key(QStringView name) const;
    /// The cell as a date; nothing when it is NULL or no date.
    [[nodiscard]] std::optional<dates::Moment> moment(QStringView name) const;
    /// The day of moment(); invalid when there is none.
    [[nodiscard]] QDate date(QStringView name) const;

private:
    std::shared_ptr<const Rows> m_rows;
    int m_row = 0;
    bool m_unread = false;
};
