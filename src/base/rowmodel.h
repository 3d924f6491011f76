// A list with columns that a presenter fills and a view shows.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QVariant>

#include <vector>

/// One row: a text for each column, and what the row stands for.
struct ListRow
{
    QString key; ///< a letter and the number of what it stands for ("A12")
    QStringList texts;
    QString kind;                    ///< a word for the state ("overdue"); the view decides how it looks
    std::vector<QVariant> sortsBy{}; ///< by column, where the text would sort wrongly (dates, numbers)
    bool marked = false;             ///< the one that the buttons are about
    QString tip{};                   ///< what the columns have no room for, in words; empty when they say all
};

/// Rows of texts in columns with headings, for the lists that stand for records. Rows keep the order in which
/// the presenter put them; a view that sorts does so in a proxy by SortRole. A row's tip is its accessible
/// description.
class RowModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Roles { KeyRole = Qt::UserRole, KindRole, SortRole, MarkedRole };

    explicit RowModel(QStringList headings, QObject* parent = nullptr);

    /// Replaces all rows in one step.
    void setRows(std::vector<ListRow> rows);
    /// Removes the row with this key; nothing happens when there is none.
    void remove(const QString& key);
    /// Marks the row with this key and no other; "" unmarks all.
    void mark(const QString& key);
    /// The number of the row with this key, from 0; -1 when there is none.
    [[nodiscard]] int find(const QString& key) const;
    [[nodiscard]] const std::vector<ListRow>& rows() const { return m_rows; }
    [[nodiscard]] QString key(const QModelIndex& index) const { return data(index, KeyRole).toString(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QStringList m_headings;
    std::vector<ListRow> m_rows;
};
