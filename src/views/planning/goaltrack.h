// The progress bar of one goal.
#pragma once

#include "planning/frmgoals.h"

#include <QWidget>

/// A track of 975 units with the bar drawn to that scale: green for a goal that is met, with a tick, orange
/// for one behind its pace. The count stands on it. The tool tip says it in words.
class GoalTrack : public QWidget
{
    Q_OBJECT

public:
    explicit GoalTrack(QWidget* parent = nullptr);

    void setBar(const GoalBar& bar, const QString& count);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawTick(QPainter& painter, const QRectF& bar) const;

    GoalBar m_bar;
    QString m_count;
};
