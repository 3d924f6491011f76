#include "views/planning/goaltrack.h"

#include <QPainter>

namespace {

// Given colours, light ones on any palette: what stands on them is always dark.
const QColor behind(255, 192, 128);
const QColor met(128, 255, 128);
const QColor onBar(32, 32, 32);

} // namespace

GoalTrack::GoalTrack(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void GoalTrack::setBar(const GoalBar& bar, const QString& count)
{
    m_bar = bar;
    m_count = bar.words.isEmpty() ? QString() : count;
    setToolTip(bar.words);
    setAccessibleDescription(bar.isMet ? tr("Met: %1").arg(bar.words) : bar.words);
    update();
}

QSize GoalTrack::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 16, fontMetrics().height() * 3 / 2};
}

QSize GoalTrack::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 3 / 2};
}

void GoalTrack::drawTick(QPainter& painter, const QRectF& bar) const
{
    const double size = bar.height() * 0.25;
    const QPointF middle(bar.right() - 2.5 * size, bar.center().y());
    painter.setPen(QPen(onBar, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{{middle + QPointF(-size, 0), middle + QPointF(-size * 0.2, size * 0.8),
                                    middle + QPointF(size * 1.2, -size)}});
}

void GoalTrack::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track = QRectF(rect()).adjusted(0.5, 1.5, -0.5, -1.5);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(palette().base());
    painter.drawRoundedRect(track, 3, 3);
    QRectF bar = track.adjusted(1, 1, -1, -1);
    bar.setWidth(bar.width() * std::clamp(m_bar.width / GoalResult::fullBar, 0.0, 1.0));
    // The count lies on the bar as far as that reaches, and on the track beyond.
    const QRectF text = track.adjusted(6, 0, -6, 0);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, m_count);
    if (bar.width() > 0) {
        painter.setClipRect(bar);
        painter.fillRect(bar, m_bar.isMet ? met : behind);
        painter.setPen(onBar);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, m_count);
        if (m_bar.isMet)
            drawTick(painter, bar);
    }
}
