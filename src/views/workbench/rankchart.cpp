#include "views/workbench/rankchart.h"

#include "views/common/chartpaint.h"

#include <QPainter>

RankChart::RankChart(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setPointer(0, 0);
}

void RankChart::setPointer(double company, double position)
{
    const auto percent = [](const ChartAxis& axis, double rank) { return qRound(axis.place(rank) * 100); };
    m_chart = {{}, {tr("Company")}, {tr("Position")}, {{{}, company, position, {}}}, {}};
    m_chart.words = tr("By their questionnaires the company reaches %1 % of its scale, the position %2 %.")
                        .arg(percent(m_chart.across, company))
                        .arg(percent(m_chart.up, position));
    chartpaint::describe(*this, m_chart);
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
    const ChartPoint& point = m_chart.points.front();
    return {field.left() + m_chart.across.place(point.across) * field.width(),
            field.bottom() - m_chart.up.place(point.up) * field.height()};
}

void RankChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF field = plot();
    const double line = fontMetrics().height();

    constexpr int marks = 4;
    const auto project = [&field](double across, double up) {
        return QPointF(field.left() + across * field.width(), field.bottom() - up * field.height());
    };
    chartpaint::drawPlane(painter, palette(), project, {marks, marks});
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(QRectF(0, 0, width(), line), Qt::AlignLeft | Qt::AlignVCenter, m_chart.up.title);
    painter.drawText(QRectF(0, height() - line, width(), line), Qt::AlignRight | Qt::AlignVCenter,
                     m_chart.across.title);

    painter.setBrush(palette().color(QPalette::Highlight));
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1));
    painter.drawEllipse(pointerCentre(), line * 0.36, line * 0.36);
}
