#include "views/calendar/calendarwidgets.h"

#include "base/rowmodel.h"
#include "views/calendar/daylist.h"
#include "views/calendar/eventicons.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QToolTip>

using namespace Qt::StringLiterals;

// --- TurnButton -------------------------------------------------------------------------------------------

TurnButton::TurnButton(QWidget* parent)
    : QToolButton(parent)
{
    setAcceptDrops(true);
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
}

void TurnButton::dragEnterEvent(QDragEnterEvent* event)
{
    if (!event->mimeData()->hasFormat(DayList::mimeType()))
        return;
    event->acceptProposedAction(); // else nobody tells that the drag has left
    emit dragOver(true);
}

// --- ChoiceButton -----------------------------------------------------------------------------------------

ChoiceButton::ChoiceButton(QWidget* parent)
    : QToolButton(parent)
{
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* menu = new QMenu(this);
    setMenu(menu);
    connect(menu, &QMenu::triggered, this,
            [this](const QAction* action) { emit chosen(action->data().toString()); });
}

void ChoiceButton::setChoices(const QString& header, const std::vector<Choice>& choices)
{
    m_choices = choices;
    menu()->clear();
    menu()->setObjectName(u"mnu"_s + objectName());
    if (!header.isEmpty())
        menu()->addSection(header);
    for (const Choice& choice : choices) {
        QAction* action = menu()->addAction(choice.icon, choice.text.isEmpty() ? tr("None") : choice.text);
        action->setData(choice.text);
        action->setCheckable(true);
    }
    updateGeometry();
}

void ChoiceButton::showChoice(const QString& text, const QIcon& picture)
{
    const auto found = std::ranges::find(m_choices, text, &Choice::text);
    setIcon(found == m_choices.end() ? picture : found->icon);
    const QString words = text.isEmpty() ? tr("None") : text;
    setAccessibleDescription(words);
    setToolButtonStyle(m_pictureOnly && !icon().isNull() ? Qt::ToolButtonIconOnly
                                                         : Qt::ToolButtonTextBesideIcon);
    setText(m_pictureOnly ? u"–"_s : QString(words).replace(u'&', u"&&"_s));
    const auto actions = menu()->actions();
    for (QAction* action : actions) {
        const QString choice = action->data().toString();
        action->setChecked(action->isCheckable() && choice == text);
        // What takes a choice back is offered while there is one.
        action->setVisible(action->isSeparator() || !choice.isEmpty() || !text.isEmpty());
    }
}

QSize ChoiceButton::sizeHint() const
{
    // As wide as the widest choice, so that choosing moves nothing.
    QSize size = QToolButton::sizeHint();
    if (m_pictureOnly)
        return size;
    const int now = fontMetrics().horizontalAdvance(text()) + (icon().isNull() ? 0 : iconSize().width() + 4);
    int widest = now;
    for (const Choice& choice : m_choices)
        widest = std::max(widest, fontMetrics().horizontalAdvance(choice.text) + iconSize().width() + 4);
    size.rwidth() += widest - now;
    return size;
}

// --- OwnerSelector ----------------------------------------------------------------------------------------

void OwnerSelector::showPopup()
{
    if (count() > 1) // the first is none
        openList();
    else
        emit emptyOpened();
}

void OwnerSelector::leaveUnknown(const QString& typed)
{
    if (typed.isEmpty())
        CompanySelector::leaveUnknown(typed);
    else
        emit unknownLeft(typed);
}

// --- TaskList ---------------------------------------------------------------------------------------------

namespace {

/// The state's picture before its word, a closed task struck out and quiet, an overdue one in bold.
class TaskDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override
    {
        const QString tip = index.data(Qt::AccessibleDescriptionRole).toString();
        if (event->type() != QEvent::ToolTip || tip.isEmpty())
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        // What a user typed or imported is no markup.
        QToolTip::showText(event->globalPos(), Qt::convertFromPlainText(tip), view);
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const QString kind = index.data(RowModel::KindRole).toString();
        const bool last = index.column() == index.model()->columnCount() - 1;
        if (last) {
            option->icon = m_icons[kind == "completed"_L1 ? 2 : kind == "overdue"_L1 ? 1 : 0];
            option->features |= QStyleOptionViewItem::HasDecoration;
        }
        option->font.setBold(kind == "overdue"_L1 && last);
        option->font.setStrikeOut(kind == "completed"_L1 && index.column() == 0);
        if (kind == "completed"_L1)
            option->palette.setColor(QPalette::Text, option->palette.color(QPalette::PlaceholderText));
    }

private:
    std::array<QIcon, 3> m_icons{eventicons::named(u"due"_s), eventicons::named(u"overdue"_s),
                                 eventicons::named(u"completed"_s)};
};

} // namespace

TaskList::TaskList(QWidget* parent)
    : QTreeView(parent)
{
    setItemDelegate(new TaskDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setToolTip(
        tr("Click a task to open it, right-click it or press Space to complete it, drag it onto a day."));
}

QString TaskList::keyAt(QPoint place) const
{
    return indexAt(place).data(RowModel::KeyRole).toString();
}

void TaskList::mousePressEvent(QMouseEvent* event)
{
    QTreeView::mousePressEvent(event);
    m_pressedAt = event->pos();
    m_pressedKey = keyAt(event->pos());
}

void TaskList::mouseMoveEvent(QMouseEvent* event)
{
    const bool far = (event->pos() - m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (!event->buttons().testFlag(Qt::LeftButton) || m_pressedKey.isEmpty() || !far)
        return;
    auto* drag = new QDrag(this);
    drag->setMimeData(DayList::dragData(m_pressedKey));
    m_pressedKey.clear();
    drag->exec(Qt::MoveAction);
}

void TaskList::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    const QString key = keyAt(event->pos());
    const bool clicked = !key.isEmpty() && key == m_pressedKey;
    m_pressedKey.clear();
    if (clicked && event->button() == Qt::LeftButton)
        emit opened(key);
    else if (clicked && event->button() == Qt::RightButton)
        emit flipped(key);
}

void TaskList::contextMenuEvent(QContextMenuEvent* event)
{
    // The right button flips; the menu key has the same by keyboard.
    if (event->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        emit flipped(currentIndex().data(RowModel::KeyRole).toString());
}

void TaskList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
        emit monthWanted(event->key() == Qt::Key_PageUp ? -1 : 1); // as everywhere beside the frame
        return;
    }
    const QString key = currentIndex().data(RowModel::KeyRole).toString();
    if (key.isEmpty())
        return QTreeView::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit opened(key);
        break;
    case Qt::Key_Space:
        emit flipped(key);
        break;
    case Qt::Key_Delete:
        emit removeWanted(key);
        break;
    default:
        QTreeView::keyPressEvent(event);
    }
}

void TaskList::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}

// --- ElidedLabel ------------------------------------------------------------------------------------------

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(fontMetrics().horizontalAdvance(text()) > width() ? text() : QString());
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
}
