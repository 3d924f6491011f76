#include "views/output/findlist.h"

#include "output/findanything.h"
#include "views/common/icons.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

QIcon iconOf(FindGroup group)
{
    static const std::array<QString, 9> names{u"user-identity"_s, u"view-bank"_s,     u"view-task"_s,
                                              u"user-identity"_s, u"document-edit"_s, u"view-calendar"_s,
                                              u"edit-copy"_s,     u"document-edit"_s, u"flag"_s};
    return icons::named(names[static_cast<size_t>(group)]);
}

/// A hit in two lines: its name with what tells it from others, and the place where the words are.
class HitDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const int line = option.fontMetrics.height();
        const bool twoLines = !index.data(FindModel::HeadingRole).toBool() && !second(index).isEmpty();
        return {line * 20, (twoLines ? 2 * line : line) + line * 2 / 3};
    }

private:
    [[nodiscard]] static QString second(const QModelIndex& index)
    {
        const QString place = index.data(FindModel::PlaceRole).toString();
        const QString excerpt = index.data(FindModel::ExcerptRole).toString();
        return place.isEmpty() ? excerpt
                               : QCoreApplication::translate("FindList", "%1: %2").arg(place, excerpt);
    }
    static void drawMarked(QPainter& painter, QRect place, const QString& text, const QVariantList& marks,
                           qsizetype shift, const QFont& font);
};

void HitDelegate::drawMarked(QPainter& painter, QRect place, const QString& text, const QVariantList& marks,
                             qsizetype shift, const QFont& font)
{
    QTextLayout layout(text, font);
    QList<QTextLayout::FormatRange> ranges;
    QTextCharFormat marked;
    marked.setFontWeight(QFont::Bold);
    marked.setFontUnderline(true);
    for (qsizetype i = 0; i + 1 < marks.size(); i += 2)
        ranges.append({static_cast<int>(marks.at(i).toInt() + shift), marks.at(i + 1).toInt(), marked});
    layout.setFormats(ranges);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid())
        line.setLineWidth(place.width());
    layout.endLayout();
    painter.save();
    const QString dots(QChar(u'\u2026'));
    if (line.isValid() && line.naturalTextWidth() > place.width()) {
        // Text that runs on is to be seen as such.
        painter.drawText(place, Qt::AlignRight | Qt::AlignTop, dots);
        place.setRight(place.right() - QFontMetrics(font).horizontalAdvance(dots));
    }
    painter.setClipRect(place);
    layout.draw(&painter, place.topLeft());
    painter.restore();
}

void HitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    item.text.clear();
    const QWidget* widget = option.widget;
    const int line = option.fontMetrics.height();
    QRect place = option.rect.adjusted(line / 2, line / 3, -line / 2, -line / 3);
    const bool heading = index.data(FindModel::HeadingRole).toBool();
    painter->save();
    if (heading) {
        QFont font = option.font;
        font.setBold(true);
        painter->setFont(font);
        painter->setPen(option.palette.color(QPalette::PlaceholderText));
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter, index.data().toString());
        painter->restore();
        return;
    }
    widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, widget);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QPalette::ColorGroup group =
        option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const QColor ink = option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    painter->setPen(ink);
    const QRect icon(place.left(), place.top(), line, line);
    iconOf(static_cast<FindGroup>(index.data(FindModel::GroupRole).toInt())).paint(painter, icon);
    place.setLeft(icon.right() + line / 2);
    const QString title = index.data(FindModel::TitleRole).toString();
    const QString context = index.data(FindModel::ContextRole).toString();
    const QString first =
        context.isEmpty() ? title : QCoreApplication::translate("FindList", "%1 · %2").arg(title, context);
    drawMarked(*painter, place, first, index.data(FindModel::TitleMarksRole).toList(), 0, option.font);
    place.setTop(place.top() + line);
    const QString text = second(index);
    const QString excerpt = index.data(FindModel::ExcerptRole).toString();
    if (!selected)
        painter->setPen(option.palette.color(QPalette::PlaceholderText));
    drawMarked(*painter, place, text, index.data(FindModel::ExcerptMarksRole).toList(),
               text.size() - excerpt.size(), option.font);
    painter->restore();
}

} // namespace

FindList::FindList(QWidget* parent)
    : QListView(parent)
{
    setItemDelegate(new HitDelegate(this));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QAbstractItemView::clicked, this, &FindList::opened);
}

void FindList::walk(int step)
{
    const int rows = model() ? model()->rowCount() : 0;
    const int direction = step < 0 ? -1 : 1;
    const int wanted = std::clamp(currentIndex().row() + step, 0, std::max(0, rows - 1));
    for (int row = wanted; row >= 0 && row < rows; row += direction) {
        const QModelIndex index = model()->index(row, 0);
        if (index.data(FindModel::HeadingRole).toBool())
            continue;
        setCurrentIndex(index);
        return;
    }
    // Above the first record its heading is to be seen.
    if (direction < 0)
        scrollToTop();
}

void FindList::beginAtFirst()
{
    if (!currentIndex().isValid())
        walk(1);
}

void FindList::keyPressEvent(QKeyEvent* event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid())
        emit opened(currentIndex());
    else
        QListView::keyPressEvent(event);
}
