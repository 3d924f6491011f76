#include "views/workbench/rankchart.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

double onScale(double place)
{
    return std::isfinite(place) ? std::clamp(place, 0.0, 1.0) : 0.0;
}

} // namespace

RankChart::RankChart(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setPointer(0, 0);
}

void RankChart::setPointer(double company, double position)
{
    m_company = onScale(company);
    m_position = onScale(position);
    const QString words =
        tr("By their questionnaires the company reaches %1 % of its scale, the position %2 %.")
            .arg(qRound(m_company * 100))
            .arg(qRound(m_position * 100));
    setToolTip(words);
    setAccessibleDescription(words);
    update();
}

QSize RankChart::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 24, fontMetrics().height() * 5};
}

QSize RankChart::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 32, fontMetrics().height() * 8};
}

/// The field between the axes: room for their names below and above, and for half a pointer at each end.
QRectF RankChart::plot() const
{
    const double line = fontMetrics().height();
    return QRectF(rect()).adjusted(line, 1.5 * line, -line, -1.5 * line);
}

QPointF RankChart::pointerCentre() const
{
    const QRectF field = plot();
    return {field.left() + m_company * field.width(), field.bottom() - m_position * field.height()};
}

void RankChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF field = plot();
    const double line = fontMetrics().height();

    QColor grid = palette().color(QPalette::PlaceholderText);
    painter.setPen(QPen(grid, 1.2));
    painter.drawLine(field.bottomLeft(), field.topLeft());
    painter.drawLine(field.bottomLeft(), field.bottomRight());
    painter.drawText(QRectF(0, 0, width(), line), Qt::AlignLeft | Qt::AlignVCenter, tr("Position"));
    painter.drawText(QRectF(0, height() - line, width(), line), Qt::AlignRight | Qt::AlignVCenter,
                     tr("Company"));

    grid.setAlphaF(grid.alphaF() * 0.35F);
    painter.setPen(QPen(grid, 1));
    constexpr int marks = 4;
    for (int mark = 1; mark <= marks; ++mark) {
        const double x = field.left() + field.width() * mark / marks;
        const double y = field.bottom() - field.height() * mark / marks;
        painter.drawLine(QPointF(x, field.top()), QPointF(x, field.bottom()));
        painter.drawLine(QPointF(field.left(), y), QPointF(field.right(), y));
    }

    painter.setBrush(palette().color(QPalette::Highlight));
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1));
    painter.drawEllipse(pointerCentre(), line * 0.36, line * 0.36);
}
