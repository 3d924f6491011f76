// One slot of a phase.
#pragma once

#include "planning/frmactionplan.h"

#include <QAbstractButton>

/// Shows the picture of its measure's category, the measure's name and, once counted, the result with a mark
/// for reached or not. A measure may be dropped on it; a line shows that it is taken.
class PlanSlotButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PlanSlotButton(QWidget* parent = nullptr);

    void setSlot(const PlanSlot& slot);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void dropped(int category, int row);
    /// A double click or Delete.
    void removalWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void drawFrame(QPainter& painter) const;
    void drawMark(QPainter& painter, const QRectF& place) const;

    PlanSlot m_slot;
    bool m_isTarget = false; ///< a measure is held over it
};
