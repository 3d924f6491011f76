#include "assessment/profiletree.h"

#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

namespace {

/// No one-line text holds a line end, so keys made of texts are unique.
constexpr QChar separator = u'\n';

const QString rootText = u"Jobwright"_s;

bool holds(const QAbstractItemModel& model, const QModelIndex& node, const QString& text)
{
    for (int row = 0; row < model.rowCount(node); ++row) {
        const QModelIndex child = model.index(row, 0, node);
        if (child.data().toString() == text || holds(model, child, text))
            return true;
    }
    return false;
}

} // namespace

void ProfileTree::rebuild(DataJW& data, const QString& kept)
{
    // One statement for all of them; the tree is built anew after each change of a name.
    RecordSet items = data.getExecQueryRecords(u"Select Title,Subtitle,Category,Subcategory from UProfile"_s);
    if (items.isEmpty())
        data.getUProfileKeyAll(); // which notes in the log that there is none
    m_former = std::exchange(m_model, std::make_unique<TreeModel>());
    const QModelIndex root = m_model->add({}, rootText, rootText, u"root"_s);
    if (!kept.isEmpty())
        child(root, kept, u"category"_s);
    for (; !items.atEnd(); items.next())
        add({items.text(u"Category"), items.text(u"Subcategory"), items.text(u"Title"),
             items.text(u"Subtitle")});
    m_nodes.clear();
}

void ProfileTree::add(const ProfilePlace& place)
{
    QModelIndex node = m_model->index(0, 0);
    node = child(node, place.category, u"category"_s);
    node = child(node, place.subcategory, u"subcategory"_s);
    node = child(node, place.title, u"title"_s);
    child(node, place.subtitle, u"item"_s);
}

QModelIndex ProfileTree::child(const QModelIndex& parent, const QString& text, const QString& kind)
{
    const QString key = kind == u"category" ? text : QString(m_model->key(parent) + separator + text);
    QModelIndex& node = m_nodes[kind + separator + key];
    if (!node.isValid())
        node = m_model->add(parent, text, key, kind);
    return node;
}

bool ProfileTree::hasText(const QString& text) const
{
    return holds(*m_model, {}, text);
}

QModelIndex ProfileTree::find(const ProfilePlace& place) const
{
    QModelIndex node = m_model->index(0, 0);
    for (const QString& text : {place.category, place.subcategory, place.title, place.subtitle}) {
        const auto row = m_model->texts(node).indexOf(text);
        if (row < 0)
            return {};
        node = m_model->index(static_cast<int>(row), 0, node);
    }
    return node;
}

bool ProfileTree::isLeaf(const QModelIndex& node)
{
    int depth = 0;
    for (QModelIndex above = node.parent(); above.isValid(); above = above.parent())
        ++depth;
    return depth == leafDepth;
}
