#include "views/common/kindtree.h"

#include "base/treemodel.h"
#include "views/common/icons.h"

#include <QHash>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace {

/// Puts the icon of a node's kind before its text; the model knows kinds, not pictures.
class KindDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QHash<QString, QIcon> icons;

    /// All rows are as high as the first, which has no icon; the icons below it must not touch each other.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        constexpr int gap = 4;
        return QStyledItemDelegate::sizeHint(option, index)
            .expandedTo({0, option.decorationSize.height() + gap});
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override
    {
        if (event->type() != QEvent::ToolTip || sizeHint(option, index).width() <= option.rect.width())
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), index.data().toString().toHtmlEscaped(), view);
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const QIcon icon = icons.value(index.data(TreeModel::KindRole).toString());
        if (icon.isNull() || !index.parent().isValid())
            return;
        option->icon = icon;
        option->features |= QStyleOptionViewItem::HasDecoration;
    }
};

} // namespace

KindTree::KindTree(QWidget* parent)
    : QTreeView(parent)
{
    setItemDelegate(new KindDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(this, &QAbstractItemView::doubleClicked, this, &KindTree::opened);
}

void KindTree::setModel(QAbstractItemModel* model)
{
    QTreeView::setModel(model);
    const auto open = [this] {
        expandToDepth(0);
        viewport()->update();
    };
    connect(model, &QAbstractItemModel::modelReset, this, open);
    connect(model, &QAbstractItemModel::rowsInserted, this, open);
    connect(model, &QAbstractItemModel::rowsRemoved, this, [this] { viewport()->update(); });
    open();
}

void KindTree::setKindIcon(const QString& kind, const QString& iconName)
{
    static_cast<KindDelegate*>(itemDelegate())->icons.insert(kind, icons::named(iconName));
}

void KindTree::setHint(const QString& hint)
{
    m_hint = hint;
    viewport()->update();
}

bool KindTree::isEmpty() const
{
    return model()->rowCount() == 0 || model()->rowCount(model()->index(0, 0)) == 0;
}

void KindTree::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentIndex().isValid())
        emit opened(currentIndex());
    else
        QTreeView::keyPressEvent(event);
}

void KindTree::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}
