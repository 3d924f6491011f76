// A chart of bars in space, drawn without the graphics card.
#pragma once

#include "base/chart.h"

#include <QPolygonF>
#include <QWidget>

/// Draws the points of a chart as bars in a row before a ruled wall. Ctrl and the mouse, or the arrow keys,
/// turn it, Home turns it back. A click on a bar or Tab chooses it.
class BarChart : public QWidget
{
    Q_OBJECT

public:
    explicit BarChart(QWidget* parent = nullptr);

    void setChart(const Chart& chart);
    /// The bar at a place of the widget; -1 where there is none.
    [[nodiscard]] int barAt(QPointF place) const;
    /// Where a bar's value is written: the middle of its top.
    [[nodiscard]] QPointF topOf(int bar) const;
    [[nodiscard]] int rotation() const { return m_rotation; }
    [[nodiscard]] int elevation() const { return m_elevation; }
    /// Draws the chart, turned as it is, into a rectangle of any size and of any device.
    void draw(QPainter& painter, const QRectF& area, const QPalette& colours) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void pointChosen(int point);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    class Scene;

    void turn(int rotation, int elevation);
    void choose(int bar);

    Chart m_chart;
    int m_rotation;  ///< degrees to the left or right
    int m_elevation; ///< degrees from above
    int m_chosen = -1;
    QPoint m_turnedFrom;
};
