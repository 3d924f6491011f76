#include "views/calendar/reminderlistview.h"

#include "base/rowmodel.h"
#include "calendar/reminderrules.h"

#include <QFocusEvent>
#include <QFont>
#include <QGuiApplication>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QPalette>
#include <QtMath>

#include <algorithm>

using namespace Qt::StringLiterals;

// Outside of any namespace, as the resource compiler's symbol is.
static void loadReminderPictures()
{
    Q_INIT_RESOURCE(reminders);
}

namespace {

bool isDark()
{
    constexpr int middle = 128;
    return QGuiApplication::palette().color(QPalette::Base).lightness() < middle;
}

QString word(const QString& urgency)
{
    if (urgency == u"unsel")
        return {}; // the time left says it
    QString word = shownUrgency(urgency);
    return word.replace(0, 1, word.left(1).toUpper());
}

/// Warm colours that can be read on a light and on a dark list; a palette has none for "late".
QVariant ink(const QString& urgency)
{
    if (urgency == u"Overdue")
        return QColor(isDark() ? 0xff9a8f : 0xb3261e);
    if (urgency == u"sel")
        return QColor(isDark() ? 0xf2c464 : 0x7a5200);
    return {};
}

/// Contact, position and company.
bool isName(int column)
{
    return column >= 3 && column <= 5;
}

/// The pictures of the list (ImageList1) come from the program's resources, by the urgency's name.
QIcon picture(const QString& urgency)
{
    static const bool loaded = (loadReminderPictures(), true);
    return loaded ? QIcon(u":/jobwright/reminders/%1.svg"_s.arg(urgency.toLower())) : QIcon();
}

} // namespace

QVariant UrgencyModel::data(const QModelIndex& index, int role) const
{
    const bool isLast = index.column() == columnCount() - 1;
    const auto urgency = [&] { return index.data(RowModel::KindRole).toString(); };
    switch (role) {
    case Qt::DisplayRole:
        if (const QString urgent = isLast ? word(urgency()) : QString(); !urgent.isEmpty())
            return tr("%1, %2").arg(urgent, QIdentityProxyModel::data(index, role).toString());
        break;
    case Qt::ToolTipRole:
        return QIdentityProxyModel::data(index, Qt::DisplayRole); // long texts do not fit into their columns
    case Qt::DecorationRole:
        return index.column() == 0 ? QVariant(picture(urgency())) : QVariant();
    case Qt::ForegroundRole:
        return isLast ? ink(urgency()) : QVariant();
    case Qt::FontRole:
        if (index.data(RowModel::MarkedRole).toBool()) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        break;
    default:
        break;
    }
    return QIdentityProxyModel::data(index, role);
}

ReminderListView::ReminderListView(QWidget* parent)
    : QTreeView(parent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    connect(this, &QAbstractItemView::clicked, this, &ReminderListView::chosen);
    connect(this, &QAbstractItemView::doubleClicked, this, &ReminderListView::opened);
}

void ReminderListView::showSelected(int row)
{
    // Without a selection there is no current row either: the next arrow key begins at the top.
    selectionModel()->clear();
    if (row >= 0)
        setCurrentIndex(model()->index(row, 0));
    viewport()->update();
}

void ReminderListView::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentIndex().isValid()) {
        emit opened(currentIndex());
        return;
    }
    QTreeView::keyPressEvent(event);
    if (currentIndex().isValid() && event->key() != Qt::Key_Tab && event->key() != Qt::Key_Escape)
        emit chosen(currentIndex());
}

void ReminderListView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    // The list would stand on its first row at once, which then looks chosen; the first arrow key chooses it.
    if (!selectionModel()->hasSelection())
        selectionModel()->clearCurrentIndex();
}

void ReminderListView::spreadColumns()
{
    constexpr int description = 1;
    constexpr int most = 26;    // characters
    constexpr int asNamed = 24; // characters, for the description
    const int letter = fontMetrics().averageCharWidth();
    // The selected row is bold, whichever it will be.
    QFont bold = font();
    bold.setBold(true);
    const QString sample = u"Overdue, 11/21/2026 8:00:00 AM"_s;
    const double wider = static_cast<double>(QFontMetrics(bold).horizontalAdvance(sample)) /
                         fontMetrics().horizontalAdvance(sample);
    int wanted = asNamed * letter;
    int names = 0;
    for (int column = 0; column < header()->count(); ++column) {
        if (column == description)
            continue;
        resizeColumnToContents(column);
        setColumnWidth(column, std::min(qCeil(columnWidth(column) * wider), most * letter));
        wanted += columnWidth(column);
        if (isName(column))
            names += columnWidth(column);
    }
    // What is late and by how much can always be read; the names make the room for it on a small screen.
    const int over = wanted - viewport()->width();
    for (int column = 0; over > 0 && names > 0 && column < header()->count(); ++column) {
        if (isName(column))
            setColumnWidth(column, std::max(header()->sectionSizeHint(column),
                                            columnWidth(column) - over * columnWidth(column) / names));
    }
}
