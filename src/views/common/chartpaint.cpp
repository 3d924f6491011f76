#include "views/common/chartpaint.h"

namespace chartpaint {

void drawPlane(QPainter& painter, const QPalette& palette, const Projection& project, Ruling ruling)
{
    QColor ink = palette.color(QPalette::PlaceholderText);
    painter.setPen(QPen(ink, 1.2));
    painter.drawLine(project(0, 0), project(0, 1));
    painter.drawLine(project(0, 0), project(1, 0));
    ink.setAlphaF(ink.alphaF() * 0.35F);
    painter.setPen(QPen(ink, 1));
    for (int line = 1; line <= ruling.across; ++line) {
        const double at = double(line) / ruling.across;
        painter.drawLine(project(at, 0), project(at, 1));
    }
    for (int line = 1; line <= ruling.up; ++line) {
        const double at = double(line) / ruling.up;
        painter.drawLine(project(0, at), project(1, at));
    }
}

void describe(QWidget& view, const Chart& chart)
{
    view.setToolTip(chart.words);
    view.setAccessibleDescription(chart.words);
}

} // namespace chartpaint
