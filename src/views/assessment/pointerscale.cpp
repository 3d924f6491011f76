#include "views/assessment/pointerscale.h"

#include <QPainter>

namespace {

constexpr QColor redPointer(0xFF, 0, 0);
constexpr QColor bluePointer(0, 0, 0x80);

} // namespace

PointerScale::PointerScale(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PointerScale::setPointer(double place, bool red, const QString& words)
{
    m_place = qBound(0.0, place, 1.0);
    m_red = red;
    setToolTip(words.toHtmlEscaped());
    setAccessibleDescription(words);
    update();
}

QSize PointerScale::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 3 / 2};
}

void PointerScale::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double size = height() / 2.0;
    const double base = height() - 2.0;
    const double from = size / 2 + 1;
    const double to = width() - size / 2 - 1;
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.5));
    painter.drawLine(QPointF(from, base), QPointF(to, base));
    for (int mark = 0; mark <= 10; ++mark) {
        const double x = from + (to - from) * mark / 10;
        painter.drawLine(QPointF(x, base), QPointF(x, base - size / 4));
    }
    const double x = from + (to - from) * m_place;
    // An outline in the text's colour keeps the blue one visible on a dark window.
    painter.setBrush(m_red ? redPointer : bluePointer);
    painter.drawPolygon(
        QPolygonF({QPointF(x, base - size / 4), QPointF(x - size / 2, 1), QPointF(x + size / 2, 1)}));
}
