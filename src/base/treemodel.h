// A small tree of texts that a presenter fills and a view shows.
#pragma once

#include <QAbstractItemModel>

#include <memory>
#include <vector>

/// Text nodes with a key and a kind, for the trees and lists that stand for records ("A3" is the third
/// contact). The kind is a word ("contact", "overdue"); the view decides how it looks.
class TreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Roles { KeyRole = Qt::UserRole, KindRole };

    explicit TreeModel(QObject* parent = nullptr);
    ~TreeModel() override;

    /// Removes everything; the model is then without a root.
    void clear();
    /// Adds a node at the end of @p parent (a top node when that is invalid) and answers its index.
    QModelIndex add(const QModelIndex& parent, const QString& text, const QString& key,
                    const QString& kind = {});
    /// Replaces the children of @p parent in one step, keys "A1", "A2", ... in order: quick for thousands of
    /// rows.
    void setChildren(const QModelIndex& parent, const QStringList& texts, const QString& kind);
    /// Removes one node with all below it.
    void remove(const QModelIndex& index);
    /// The first node with this key anywhere in the tree; invalid when there is none.
    [[nodiscard]] QModelIndex find(const QString& key) const;
    [[nodiscard]] QString key(const QModelIndex& index) const { return data(index, KeyRole).toString(); }
    [[nodiscard]] QString text(const QModelIndex& index) const
    {
        return data(index, Qt::DisplayRole).toString();
    }
    /// The texts of the nodes directly below @p parent.
    [[nodiscard]] QStringList texts(const QModelIndex& parent) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    struct Node;
    [[nodiscard]] Node* node(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex indexOf(Node* node) const;

    std::unique_ptr<Node> m_root;
};
