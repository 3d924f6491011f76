#include "views/history/historyrows.h"

#include "history/frmhistory.h"
#include "views/common/icons.h"

#include <QFont>

using namespace Qt::StringLiterals;

namespace {

bool isNew(const QModelIndex& index)
{
    return index.data(RowModel::KindRole).toString() == u"new";
}

} // namespace

HistoryRows::HistoryRows(FrmHistory& presenter, QObject* parent)
    : QSortFilterProxyModel(parent)
    , m_presenter(presenter)
{
    setSortRole(RowModel::SortRole);
    setSourceModel(&presenter.lvwHistory());
}

QVariant HistoryRows::data(const QModelIndex& index, int role) const
{
    const QVariant plain = QSortFilterProxyModel::data(index, role);
    if (!index.isValid() || index.column() != FrmHistory::CallColumn ||
        QSortFilterProxyModel::data(index, RowModel::KindRole).toString() != u"overdue")
        return plain;
    switch (role) {
    case Qt::DisplayRole:
        return QString(plain.toString() + tr(" – overdue"));
    case Qt::DecorationRole:
        return icons::named(u"appointment-reminder"_s);
    case Qt::FontRole: {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    default:
        return plain;
    }
}

void HistoryRows::setWords(const QString& words)
{
    m_words = words.trimmed();
    invalidateFilter();
}

bool HistoryRows::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (isNew(left) || isNew(right))
        return isNew(sortOrder() == Qt::AscendingOrder ? right : left);
    return QSortFilterProxyModel::lessThan(left, right);
}

bool HistoryRows::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    // Were the row being edited to go, the list would choose its neighbour, and what is typed would be lost.
    return m_words.isEmpty() || row + 1 == m_presenter.selectedHistory() ||
           isNew(sourceModel()->index(row, 0, parent)) || m_presenter.holds(row, m_words);
}
