#include "views/calendar/daylist.h"

#include "views/calendar/daylistaccess.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHelpEvent>
#include <QLocale>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

bool looksLike(const DayChip& one, const DayChip& other)
{
    return one.key == other.key && one.text == other.text && one.tip == other.tip &&
           one.icons == other.icons && one.kind == other.kind && one.ghosted == other.ghosted &&
           one.complete == other.complete;
}

} // namespace

QString DayList::mimeType()
{
    return u"application/x-jobwright-event"_s;
}

QMimeData* DayList::dragData(const QString& key)
{
    auto* data = new QMimeData;
    data->setData(mimeType(), key.toUtf8());
    return data;
}

DayList::DayList(const ChipLook& look, QWidget* parent)
    : QWidget(parent)
    , m_look(look)
{
    installDayListAccess();
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
    setAcceptDrops(true);
    setEnabled(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    describe();
}

// --- What it holds ----------------------------------------------------------------------------------------

void DayList::setContent(const DayCell& content)
{
    // Stepping through quiet months then costs next to nothing.
    if (m_content.date == content.date && m_content.today == content.today &&
        m_content.selected == content.selected &&
        std::ranges::equal(m_content.chips, content.chips, looksLike))
        return;
    m_content = content;
    setEnabled(content.date.isValid());
    setFocusPolicy(content.selected ? Qt::StrongFocus : Qt::ClickFocus);
    describe();
    update();
}

void DayList::setCurrentChip(const QString& key)
{
    if (m_current == key)
        return;
    m_current = key;
    update();
}

void DayList::describe()
{
    if (!m_content.date.isValid()) {
        setAccessibleName(tr("Outside the month"));
        setAccessibleDescription({});
        return;
    }
    const QString day = QLocale().toString(m_content.date, QLocale::LongFormat);
    setAccessibleName(m_content.today ? tr("%1, today").arg(day) : day);
    QStringList events;
    for (const DayChip& chip : m_content.chips)
        events.append(chip.text);
    setAccessibleDescription(events.isEmpty() ? tr("No events") : events.join(u"; "_s));
}

QString DayList::key(int chip) const
{
    return chip < 0 ? QString() : m_content.chips.at(static_cast<size_t>(chip)).key;
}

// --- What the mouse does ----------------------------------------------------------------------------------

bool DayList::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const QPoint place = static_cast<QHelpEvent*>(event)->pos();
    const int chip = chipAt(place);
    QString tip = chip < 0 ? QString() : m_content.chips.at(static_cast<size_t>(chip)).tip;
    if (moreRect().contains(place)) {
        for (const DayChip& each : m_content.chips)
            tip += (tip.isEmpty() ? QString() : u"\n"_s) + each.text;
    }
    // What a user typed or imported is no markup.
    setToolTip(tip.isEmpty() ? QString() : Qt::convertFromPlainText(tip));
    return QWidget::event(event);
}

void DayList::mousePressEvent(QMouseEvent* event)
{
    m_pressedChip = -1;
    if (!m_content.date.isValid())
        return;
    m_pressedAt = event->pos();
    m_pressedChip = chipAt(event->pos());
    if (event->button() == Qt::LeftButton && m_pressedChip < 0 && !moreRect().contains(event->pos()))
        emit pressed();
}

void DayList::mouseMoveEvent(QMouseEvent* event)
{
    const bool far = (event->pos() - m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (!event->buttons().testFlag(Qt::LeftButton) || m_pressedChip < 0 || !far)
        return;
    const int chip = m_pressedChip;
    m_pressedChip = -1;
    startDrag(chip);
}

void DayList::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_content.date.isValid())
        return;
    if (m_pressedChip >= 0 && m_pressedChip == chipAt(event->pos()))
        emit chipOpened(key(m_pressedChip));
    else if (moreRect().contains(event->pos()) && moreRect().contains(m_pressedAt))
        emit moreWanted();
    m_pressedChip = -1;
}

void DayList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (m_content.date.isValid() && chipAt(event->pos()) < 0 && !moreRect().contains(event->pos()))
        emit doubleClicked();
}

void DayList::contextMenuEvent(QContextMenuEvent* event)
{
    if (!m_content.date.isValid())
        return;
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect room = rect().adjusted(0, labelHeight(), 0, 0);
        emit menuWanted(m_current, mapToGlobal(room.topLeft()));
    } else {
        emit menuWanted(key(chipAt(event->pos())), event->globalPos());
    }
}

void DayList::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void DayList::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

// --- Drag and drop ----------------------------------------------------------------------------------------

void DayList::startDrag(int chip)
{
    const QRect room = chipRect(chip);
    const qreal ratio = devicePixelRatioF();
    QPixmap picture(room.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        paintChip(painter, m_content.chips.at(static_cast<size_t>(chip)), QRect({}, room.size()),
                  plan().lines.at(static_cast<size_t>(chip)));
    }
    auto* drag = new QDrag(this);
    drag->setMimeData(dragData(key(chip)));
    drag->setPixmap(picture);
    drag->setHotSpot(m_pressedAt - room.topLeft());
    drag->exec(Qt::MoveAction);
}

void DayList::setDropTarget(bool target)
{
    m_dropTarget = target;
    update();
}

void DayList::dragEnterEvent(QDragEnterEvent* event)
{
    if (!m_content.date.isValid() || !event->mimeData()->hasFormat(mimeType()))
        return;
    event->acceptProposedAction();
    setDropTarget(true);
}

void DayList::dragMoveEvent(QDragMoveEvent* event)
{
    // A day can leave the month under the drag, when the arrows are hovered over.
    event->setAccepted(m_content.date.isValid() && event->mimeData()->hasFormat(mimeType()));
}

void DayList::dragLeaveEvent(QDragLeaveEvent*)
{
    setDropTarget(false);
}

void DayList::dropEvent(QDropEvent* event)
{
    setDropTarget(false);
    if (!m_content.date.isValid() || !event->mimeData()->hasFormat(mimeType()))
        return;
    event->acceptProposedAction();
    emit dropped(QString::fromUtf8(event->mimeData()->data(mimeType())));
}
