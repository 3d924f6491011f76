// The chart that shows how high the user has ranked a position and its company.
#pragma once

#include "base/chart.h"

#include <QWidget>

/// Two axes, the company's rank to the right and the position's upward, with the pointer between them; grows
/// and shrinks with the room it is given. The same stands in words in its tool tip and its accessible
/// description.
class RankChart : public QWidget
{
    Q_OBJECT

public:
    explicit RankChart(QWidget* parent = nullptr);

    /// Both places run from 0 (no rank) to 1 (full agreement); a pointer beyond is drawn at the end.
    void setPointer(double company, double position);
    /// Where the pointer's centre is drawn, in the widget's own pixels.
    [[nodiscard]] QPointF pointerCentre() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRectF plot() const;

    Chart m_chart; ///< with one point, the pointer
};
