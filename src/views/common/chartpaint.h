// What every chart draws alike: the plane between its axes.
#pragma once

#include "base/chart.h"

#include <QPainter>
#include <QPointF>
#include <QWidget>

#include <functional>

namespace chartpaint {

/// From a place on the plane, 0 to 1 across and up, to the painter's pixels.
using Projection = std::function<QPointF(double across, double up)>;

/// How the plane is ruled: lines across it and up it, none for 0.
struct Ruling
{
    int across = 0;
    int up = 0;
};

/// Draws both axes and the fainter lines of the ruling, in the widget's own colours.
void drawPlane(QPainter& painter, const QPalette& palette, const Projection& project, Ruling ruling);

/// The chart in words, for its tool tip and for those who do not see it.
void describe(QWidget& view, const Chart& chart);

} // namespace chartpaint
