#include "views/common/barchart.h"

#include "views/common/chartpaint.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

#include <array>
#include <numeric>

namespace {

constexpr int firstRotation = -20;
constexpr int firstElevation = 20;
constexpr int mostRotation = 70; // from further round the bars would hide one another
constexpr int mostElevation = 80;
constexpr int step = 5;
constexpr double floorDepth = 0.6; // of the floor, in widths of a bar's place
constexpr double gap = 0.2;        // beside a bar, in the same measure
constexpr int wallLines = 5;       // 20, 40, ... 100
constexpr double labelLines = 3;   // room for the numbers beside the wall, in heights of a line
constexpr double nameAngle = -35;  // degrees; names are longer than their bars are wide

} // namespace

/// The chart as seen from one side, fitted into an area.
class BarChart::Scene
{
public:
    Scene(const BarChart& view, const QRectF& area, const QFontMetricsF& metrics)
        : m_chart(view.m_chart)
        , m_turn(qDegreesToRadians(double(view.m_rotation)))
        , m_tilt(qDegreesToRadians(double(view.m_elevation)))
        , m_count(std::max<double>(1, double(m_chart.points.size())))
    {
        double longest = 0;
        for (const ChartPoint& point : m_chart.points)
            longest = std::max(longest, metrics.horizontalAdvance(point.name));
        const double line = metrics.height();
        const double slant = qDegreesToRadians(-nameAngle);
        const double below = std::min(longest * std::sin(slant) + line, area.height() / 3);
        const double beside = longest * std::cos(slant) - 0.3 * area.width() / m_count;
        fit(area.adjusted(std::max(labelLines * line, beside), 1.5 * line, -labelLines * line, -below));
    }

    /// Across in places of bars, up from 0 to 1, back from 0 to floorDepth.
    [[nodiscard]] QPointF project(double across, double up, double back) const
    {
        const QPointF at = flat(across, up, back);
        return QPointF(at.x() * m_scale.x(), at.y() * m_scale.y()) + m_shift;
    }
    /// The faces of a bar that can be seen: side, front, top.
    [[nodiscard]] std::array<QPolygonF, 3> faces(int bar) const
    {
        const double left = bar + gap;
        const double right = bar + 1 - gap;
        const double top = m_chart.up.place(m_chart.points[static_cast<size_t>(bar)].up);
        const double near = floorDepth * gap;
        const double far = floorDepth - near;
        const double side = m_turn > 0 ? right : left;
        return {QPolygonF{{project(side, 0, near), project(side, top, near), project(side, top, far),
                           project(side, 0, far)}},
                QPolygonF{{project(left, 0, near), project(left, top, near), project(right, top, near),
                           project(right, 0, near)}},
                QPolygonF{{project(left, top, near), project(left, top, far), project(right, top, far),
                           project(right, top, near)}}};
    }
    /// The bars from the furthest to the nearest.
    [[nodiscard]] std::vector<int> order() const
    {
        std::vector<int> bars(m_chart.points.size());
        std::iota(bars.begin(), bars.end(), 0);
        if (m_turn < 0)
            std::ranges::reverse(bars);
        return bars;
    }
    [[nodiscard]] QPointF foot(int bar) const { return project(bar + 0.5, 0, 0); }
    [[nodiscard]] QPointF top(int bar) const
    {
        return project(bar + 0.5, m_chart.up.place(m_chart.points[static_cast<size_t>(bar)].up),
                       floorDepth / 2);
    }
    [[nodiscard]] double count() const { return m_count; }

private:
    [[nodiscard]] QPointF flat(double across, double up, double back) const
    {
        const double x = across - m_count / 2;
        const double z = back * (m_count / 4 + 1); // a long row stands before a deep wall
        const double away = z * std::cos(m_turn) - x * std::sin(m_turn);
        return {x * std::cos(m_turn) + z * std::sin(m_turn),
                -(up * m_count * std::cos(m_tilt) + away * std::sin(m_tilt))};
    }
    void fit(const QRectF& area)
    {
        QPolygonF corners;
        for (const double across : {0.0, m_count}) {
            for (const double up : {0.0, 1.0}) {
                corners << flat(across, up, 0) << flat(across, up, floorDepth);
            }
        }
        const QRectF bounds = corners.boundingRect();
        m_scale = {area.width() / std::max(bounds.width(), 1e-6),
                   area.height() / std::max(bounds.height(), 1e-6)};
        m_shift = area.topLeft() - QPointF(bounds.left() * m_scale.x(), bounds.top() * m_scale.y());
    }

    const Chart& m_chart;
    double m_turn;
    double m_tilt;
    double m_count;
    QPointF m_scale{1, 1};
    QPointF m_shift;
};

BarChart::BarChart(QWidget* parent)
    : QWidget(parent)
    , m_rotation(firstRotation)
    , m_elevation(firstElevation)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
}

void BarChart::setChart(const Chart& chart)
{
    m_chart = chart;
    m_chosen = -1;
    chartpaint::describe(*this, chart);
    update();
}

QSize BarChart::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 14};
}

QSize BarChart::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 22};
}

int BarChart::barAt(QPointF place) const
{
    const Scene scene(*this, rect(), QFontMetricsF(font()));
    const std::vector<int> order = scene.order();
    for (auto bar = order.rbegin(); bar != order.rend(); ++bar) {
        const auto faces = scene.faces(*bar);
        if (std::ranges::any_of(
                faces, [&](const QPolygonF& face) { return face.containsPoint(place, Qt::OddEvenFill); }))
            return *bar;
    }
    return -1;
}

QPointF BarChart::topOf(int bar) const
{
    return Scene(*this, rect(), QFontMetricsF(font())).top(bar);
}

// --- Drawing ----------------------------------------------------------------------------------------------

void BarChart::draw(QPainter& painter, const QRectF& area, const QPalette& colours) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetricsF metrics(painter.font(), painter.device());
    const Scene scene(*this, area, metrics);
    const double line = metrics.height();
    painter.setPen(colours.color(QPalette::WindowText));
    painter.drawText(QRectF(area.left(), area.top(), area.width(), line), Qt::AlignCenter, m_chart.title);
    chartpaint::drawPlane(
        painter, colours,
        [&](double across, double up) { return scene.project(across * scene.count(), up, floorDepth); },
        {0, wallLines});
    painter.setPen(colours.color(QPalette::PlaceholderText));
    for (int mark = 0; mark <= wallLines; ++mark) {
        const double up = double(mark) / wallLines;
        // On the side where no bar stands before the wall.
        const bool isLeft = m_rotation <= 0;
        const QPointF at = scene.project(isLeft ? 0 : scene.count(), up, floorDepth);
        const QRectF box(at.x() + (isLeft ? -labelLines * line - 4 : 4), at.y() - line / 2, labelLines * line,
                         line);
        painter.drawText(box, (isLeft ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter,
                         locale().toString(qRound(up * m_chart.up.top)));
    }
    painter.drawText(QRectF(area.left(), area.top(), area.width(), line), Qt::AlignLeft, m_chart.up.title);

    const QColor body = colours.color(QPalette::Highlight);
    const std::array<QColor, 3> shades{body.darker(135), body, body.lighter(125)};
    for (const int bar : scene.order()) {
        const auto faces = scene.faces(bar);
        const bool isChosen = bar == m_chosen;
        painter.setPen(
            QPen(colours.color(isChosen ? QPalette::WindowText : QPalette::Base), isChosen ? 2 : 0.8));
        for (size_t face = 0; face < faces.size(); ++face) {
            painter.setBrush(shades[face]);
            painter.drawPolygon(faces[face]);
        }
    }
    for (const int bar : scene.order()) {
        const ChartPoint& point = m_chart.points[static_cast<size_t>(bar)];
        painter.setPen(colours.color(QPalette::WindowText));
        const QPointF top = scene.top(bar) - QPointF(0, line * 0.9);
        painter.drawText(QRectF(top.x() - 4 * line, top.y() - line / 2, 8 * line, line), Qt::AlignCenter,
                         point.value);
        painter.save();
        painter.translate(scene.foot(bar) + QPointF(0, line * 0.3));
        painter.rotate(nameAngle);
        painter.drawText(QRectF(-40 * line, 0, 40 * line, line), Qt::AlignRight | Qt::AlignTop, point.name);
        painter.restore();
    }
}

void BarChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    draw(painter, rect(), palette());
    if (hasFocus() && m_chosen < 0) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }
}

// --- Mouse and keys ---------------------------------------------------------------------------------------

void BarChart::turn(int rotation, int elevation)
{
    m_rotation = std::clamp(rotation, -mostRotation, mostRotation);
    m_elevation = std::clamp(elevation, 0, mostElevation);
    update();
}

void BarChart::choose(int bar)
{
    m_chosen = bar;
    if (bar >= 0)
        emit pointChosen(bar);
    update();
}

void BarChart::mousePressEvent(QMouseEvent* event)
{
    m_turnedFrom = event->pos();
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        choose(barAt(event->position()));
}

void BarChart::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier) || !event->buttons().testFlag(Qt::LeftButton))
        return;
    const QPoint moved = event->pos() - m_turnedFrom;
    m_turnedFrom = event->pos();
    turn(m_rotation + moved.x() / 2, m_elevation + moved.y() / 2);
}

void BarChart::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return turn(m_rotation - step, m_elevation);
    case Qt::Key_Right:
        return turn(m_rotation + step, m_elevation);
    case Qt::Key_Up:
        return turn(m_rotation, m_elevation + step);
    case Qt::Key_Down:
        return turn(m_rotation, m_elevation - step);
    case Qt::Key_Home:
        return turn(firstRotation, firstElevation);
    default:
        QWidget::keyPressEvent(event);
    }
}

void BarChart::focusInEvent(QFocusEvent* event)
{
    // Tab comes in at the first bar, or at the last one from behind.
    const int last = static_cast<int>(m_chart.points.size()) - 1;
    if (event->reason() == Qt::TabFocusReason)
        choose(std::min(0, last));
    else if (event->reason() == Qt::BacktabFocusReason)
        choose(last);
    QWidget::focusInEvent(event);
}

bool BarChart::focusNextPrevChild(bool next)
{
    const int to = m_chosen + (next ? 1 : -1);
    if (to < 0 || to >= static_cast<int>(m_chart.points.size()))
        return QWidget::focusNextPrevChild(next);
    choose(to);
    return true;
}
