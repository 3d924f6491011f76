#include "views/workbench/profilescale.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

ProfileScale::ProfileScale(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setPointer(0, false);
}

void ProfileScale::setPointer(double place, bool lit)
{
    m_place = std::isfinite(place) ? std::clamp(place, 0.0, 1.0) : 0.0;
    m_lit = lit;
    setToolTip(words());
    setAccessibleDescription(words());
    update();
}

QString ProfileScale::words() const
{
    if (!m_lit)
        return tr("Not ranked: the company's questionnaire has no answers yet.");
    return tr("Ranked at %1 % of the scale by the company's questionnaire.").arg(qRound(m_place * 100));
}

QSize ProfileScale::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {metrics.averageCharWidth() * 24, metrics.height() * 3 / 2};
}

void ProfileScale::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double size = fontMetrics().height() * 0.36;
    const double base = height() * 0.72;
    const double left = size + 1;
    const double length = width() - 2 * left;

    painter.setPen(QPen(palette().color(QPalette::PlaceholderText), 1.2));
    painter.drawLine(QPointF(left, base), QPointF(left + length, base));
    constexpr int marks = 6;
    for (int mark = 0; mark <= marks; ++mark) {
        const double x = left + length * mark / marks;
        painter.drawLine(QPointF(x, base), QPointF(x, base + size * (mark % 3 == 0 ? 0.9 : 0.5)));
    }

    const double x = left + length * m_place;
    QPainterPath pointer;
    pointer.moveTo(x, base - 1);
    pointer.lineTo(x - size, base - 1 - 1.5 * size);
    pointer.lineTo(x + size, base - 1 - 1.5 * size);
    pointer.closeSubpath();
    // Red and white are given colours of the pointer; the outline keeps both visible on any background.
    painter.setBrush(m_lit ? QColor(Qt::red) : QColor(Qt::white));
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1));
    painter.drawPath(pointer);
}
