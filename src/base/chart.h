// What a chart shows, without a pixel: two axes and the points between them.
#pragma once

#include <QString>

#include <algorithm>
#include <cmath>
#include <vector>

/// An axis from 0 to its top.
struct ChartAxis
{
    QString title;
    double top = 1;

    /// Where a value lies, from 0 to 1: one beyond an end is drawn at the end, one that is no number at 0.
    [[nodiscard]] double place(double value) const
    {
        return std::isfinite(value) ? std::clamp(value / top, 0.0, 1.0) : 0.0;
    }
};

struct ChartPoint
{
    QString name; ///< below the point; "" for none
    double across = 0;
    double up = 0;
    QString value; ///< at the point; "" for none
};

struct Chart
{
    QString title;
    ChartAxis across;
    ChartAxis up;
    std::vector<ChartPoint> points;
    QString words; ///< the same for those who do not see it
};
