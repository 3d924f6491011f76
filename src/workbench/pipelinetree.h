// The tree of all companies with their positions, as the Pipeline screen lists them.
#pragma once

#include "base/treemodel.h"

#include <QAbstractItemModel>
#include <QSet>
#include <QStringList>

#include <vector>

/// Below one root the companies, below each its positions; narrowed to those that hold a text. Made for tens
/// of thousands of rows: a node is no object of its own, and a fill or a filter is one reset. Roles are those
/// of TreeModel: keys "L2-" + company and "L3-" + company + "-" + title, kinds "Company" and "Position" (the
/// root has neither).
class PipelineTree : public QAbstractItemModel
{
    Q_OBJECT

public:
    struct Company
    {
        QString name;
        QStringList positions; ///< titles, in the order in which they are shown
    };

    using QAbstractItemModel::QAbstractItemModel;

    /// Removes every node, the root too.
    void clear();
    [[nodiscard]] bool hasNodes() const { return m_hasNodes; }
    /// Root and companies, in this order; what was there before is replaced.
    void fill(std::vector<Company> companies);
    /// Shows only companies whose name holds @p text in any case, with all their positions, and positions
    /// whose title does, with their company; all for an empty text.
    void setFilter(const QString& text);
    [[nodiscard]] const QString& filter() const { return m_filter; }

    /// True when all of its companies, hidden ones too, are among @p names.
    [[nodiscard]] bool areAllIn(const QSet<QString>& names) const;
    /// The company's node; invalid when there is none or the filter hides it.
    [[nodiscard]] QModelIndex findCompany(const QString& name) const;
    /// The same for a position of a company.
    [[nodiscard]] QModelIndex findPosition(const QString& company, const QString& title) const;
    [[nodiscard]] QString key(const QModelIndex& index) const;
    [[nodiscard]] QString kind(const QModelIndex& index) const;
    [[nodiscard]] QString text(const QModelIndex& index) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex&) const override { return 1; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    /// A company as the filter leaves it.
    struct Shown
    {
        const Company* company;
        QStringList positions;
    };

    void narrow();
    [[nodiscard]] const Shown* shownAt(const QModelIndex& index) const;

    bool m_hasNodes = false;
    std::vector<Company> m_companies;
    std::vector<Shown> m_shown;
    QString m_filter;
};
