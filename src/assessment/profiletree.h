// The tree of the user's profile items.
#pragma once

#include "base/treemodel.h"

#include <QHash>
#include <QStringList>

class DataJW;

/// Where an item stands in the tree: the texts of the four levels below the root.
struct ProfilePlace
{
    QString category;
    QString subcategory;
    QString title;
    QString subtitle;
};

/// Root "Jobwright", then category, subcategory, title and subtitle. Siblings of one text are one node, so
/// items that share a title stand below one node.
class ProfileTree
{
public:
    static constexpr int leafDepth = 4; ///< levels above a subtitle

    [[nodiscard]] TreeModel& model() { return *m_model; }
    /// Reads all items anew, into a model of its own: filled before a view shows it, thousands of nodes are
    /// quick. The model before stands until the next rebuild. A category named in @p kept stands even without
    /// items.
    void rebuild(DataJW& data, const QString& kept = {});
    /// True when any node has this text.
    [[nodiscard]] bool hasText(const QString& text) const;
    [[nodiscard]] QModelIndex find(const ProfilePlace& place) const;
    /// True for the node of a subtitle.
    [[nodiscard]] static bool isLeaf(const QModelIndex& node);

private:
    /// The tree builder: looks each level up and adds what is missing.
    void add(const ProfilePlace& place);
    QModelIndex child(const QModelIndex& parent, const QString& text, const QString& kind);

    std::unique_ptr<TreeModel> m_model = std::make_unique<TreeModel>();
    std::unique_ptr<TreeModel> m_former;
    QHash<QString, QModelIndex> m_nodes; ///< by key, while the tree is filled
};
