// The rows of the histories as the list shows them: sorted, filtered, overdue calls marked.
#pragma once

#include <QSortFilterProxyModel>

class FrmHistory;

/// Sorts and filters the presenter's rows without touching their slots. The row for a new entry stays last
/// whatever the order, and neither it nor the row being edited is ever filtered out.
class HistoryRows : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// The presenter must outlive the rows.
    HistoryRows(FrmHistory& presenter, QObject* parent);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Shows only entries that hold these words; "" shows all.
    void setWords(const QString& words);

protected:
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    FrmHistory& m_presenter;
    QString m_words;
};
