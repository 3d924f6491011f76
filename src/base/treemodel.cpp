#include "base/treemodel.h"

#include <algorithm>

struct TreeModel::Node
{
    Node* parent = nullptr;
    int row = 0; // kept up to date so that parent() needs no search
    QString text;
    QString key;
    QString kind;
    std::vector<std::unique_ptr<Node>> children;

    Node* append(const QString& newText, const QString& newKey, const QString& newKind)
    {
        auto child = std::make_unique<Node>();
        child->parent = this;
        child->row = static_cast<int>(children.size());
        child->text = newText;
        child->key = newKey;
        child->kind = newKind;
        children.push_back(std::move(child));
        return children.back().get();
    }

    Node* find(const QString& wanted)
    {
        for (const auto& child : children) {
            if (child->key == wanted)
                return child.get();
            if (Node* found = child->find(wanted))
                return found;
        }
        return nullptr;
    }
};

TreeModel::TreeModel(QObject* parent)
    : QAbstractItemModel(parent)
    , m_root(std::make_unique<Node>())
{
}

TreeModel::~TreeModel() = default;

TreeModel::Node* TreeModel::node(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<Node*>(index.internalPointer()) : m_root.get();
}

QModelIndex TreeModel::indexOf(Node* node) const
{
    return node == nullptr || node == m_root.get() ? QModelIndex() : createIndex(node->row, 0, node);
}

void TreeModel::clear()
{
    beginResetModel();
    m_root = std::make_unique<Node>();
    endResetModel();
}

QModelIndex TreeModel::add(const QModelIndex& parent, const QString& text, const QString& key,
                           const QString& kind)
{
    Node* owner = node(parent);
    const int row = static_cast<int>(owner->children.size());
    beginInsertRows(parent, row, row);
    Node* added = owner->append(text, key, kind);
    endInsertRows();
    return indexOf(added);
}

void TreeModel::setChildren(const QModelIndex& parent, const QStringList& texts, const QString& kind)
{
    Node* owner = node(parent);
    if (!owner->children.empty()) {
        beginRemoveRows(parent, 0, static_cast<int>(owner->children.size()) - 1);
        owner->children.clear();
        endRemoveRows();
    }
    if (texts.isEmpty())
        return;
    beginInsertRows(parent, 0, static_cast<int>(texts.size()) - 1);
    owner->children.reserve(static_cast<size_t>(texts.size()));
    for (qsizetype i = 0; i < texts.size(); ++i)
        owner->append(texts.at(i), u'A' + QString::number(i + 1), kind);
    endInsertRows();
}

void TreeModel::remove(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    Node* owner = node(index)->parent;
    const int row = index.row();
    beginRemoveRows(index.parent(), row, row);
    owner->children.erase(owner->children.begin() + row);
    for (size_t i = static_cast<size_t>(row); i < owner->children.size(); ++i)
        owner->children[i]->row = static_cast<int>(i);
    endRemoveRows();
}

QModelIndex TreeModel::find(const QString& key) const
{
    return indexOf(m_root->find(key));
}

QStringList TreeModel::texts(const QModelIndex& parent) const
{
    QStringList result;
    for (const auto& child : node(parent)->children)
        result.append(child->text);
    return result;
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, node(parent)->children[static_cast<size_t>(row)].get());
}

QModelIndex TreeModel::parent(const QModelIndex& child) const
{
    return child.isValid() ? indexOf(node(child)->parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(node(parent)->children.size());
}

int TreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Node* item = node(index);
    switch (role) {
    case Qt::DisplayRole:
        return item->text;
    case KeyRole:
        return item->key;
    case KindRole:
        return item->kind;
    default:
        return {};
    }
}
