#include "views/planning/planslotbutton.h"

#include "views/planning/categoryicons.h"
#include "views/planning/measurelist.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QPainter>

PlanSlotButton::PlanSlotButton(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PlanSlotButton::setSlot(const PlanSlot& slot)
{
    m_slot = slot;
    QString words = slot.name.isEmpty() ? tr("Free: drop a measure here") : slot.name;
    if (!slot.result.isEmpty())
        words += slot.mark == PlanSlot::Mark::Reached ? tr(": %1, reached").arg(slot.result)
                                                      : tr(": %1, not reached").arg(slot.result);
    setToolTip(words);
    setAccessibleDescription(words);
    update();
}

QSize PlanSlotButton::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 22, fontMetrics().height() * 2};
}

QSize PlanSlotButton::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 34, fontMetrics().height() * 2};
}

void PlanSlotButton::drawFrame(QPainter& painter) const
{
    const bool isStrong = m_isTarget || hasFocus() || m_slot.isChosen;
    const QColor accent = palette().color(QPalette::Highlight);
    QColor fill = m_slot.name.isEmpty() ? palette().color(QPalette::Window) : palette().color(QPalette::Base);
    if (m_isTarget || m_slot.isChosen) {
        fill = accent;
        fill.setAlphaF(m_isTarget ? 0.3F : 0.15F);
    }
    const Qt::PenStyle style = m_slot.name.isEmpty() && !isStrong ? Qt::DashLine : Qt::SolidLine;
    painter.setPen(QPen(isStrong ? accent : palette().color(QPalette::Mid), m_isTarget ? 3 : 1.3, style));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 4, 4);
}

/// A tick or a cross, so that no colour has to tell them apart.
void PlanSlotButton::drawMark(QPainter& painter, const QRectF& place) const
{
    painter.setPen(QPen(palette().color(QPalette::Text), 1.8, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    const QPointF middle = place.center();
    const double size = place.height() * 0.22;
    if (m_slot.mark == PlanSlot::Mark::Reached) {
        painter.drawPolyline(QPolygonF{{middle + QPointF(-size, 0), middle + QPointF(-size * 0.2, size),
                                        middle + QPointF(size * 1.3, -size)}});
    } else {
        painter.drawLine(middle + QPointF(-size, -size), middle + QPointF(size, size));
        painter.drawLine(middle + QPointF(-size, size), middle + QPointF(size, -size));
    }
}

void PlanSlotButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawFrame(painter);
    const int line = fontMetrics().height();
    QRect inside = rect().adjusted(line / 2, 0, -line / 2, 0);
    if (m_slot.name.isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(inside, Qt::AlignCenter, tr("free"));
        return;
    }
    const int picture = line * 4 / 3;
    categoryicons::ofCategory(m_slot.category)
        .paint(&painter, QRect(inside.left(), (height() - picture) / 2, picture, picture));
    inside.setLeft(inside.left() + picture + line / 2);
    if (m_slot.mark != PlanSlot::Mark::None) {
        drawMark(painter, QRectF(inside.right() - line, 0, line, height()));
        inside.setRight(inside.right() - line * 3 / 2);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter, m_slot.result);
        inside.setRight(inside.right() - fontMetrics().horizontalAdvance(m_slot.result) - line / 2);
    }
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(m_slot.name, Qt::ElideRight, inside.width()));
}

void PlanSlotButton::mouseDoubleClickEvent(QMouseEvent*)
{
    emit removalWanted();
}

void PlanSlotButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete)
        emit removalWanted();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void PlanSlotButton::dragEnterEvent(QDragEnterEvent* event)
{
    if (!measuredrag::read(*event->mimeData()))
        return;
    m_isTarget = true;
    event->acceptProposedAction();
    update();
}

void PlanSlotButton::dragLeaveEvent(QDragLeaveEvent*)
{
    m_isTarget = false;
    update();
}

void PlanSlotButton::dropEvent(QDropEvent* event)
{
    m_isTarget = false;
    update();
    const auto measure = measuredrag::read(*event->mimeData());
    if (!measure)
        return;
    event->acceptProposedAction();
    emit dropped(measure->category, measure->row);
}
