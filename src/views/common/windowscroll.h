// What a window holds, on a screen that may be too small for it.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QScrollArea>

/// Not smaller than its content where the screen has the room, with some left for the window's own bars; on
/// less it scrolls, so that no button lies beyond the screen's edge.
class WindowScroll : public QScrollArea
{
    Q_OBJECT

public:
    explicit WindowScroll(QWidget* parent = nullptr)
        : QScrollArea(parent)
    {
        setFrameShape(QFrame::NoFrame);
        // Whatever key leads to a control, it is seen; under the mouse nothing moves.
        connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
            if (now && widget() && widget()->isAncestorOf(now) &&
                QApplication::mouseButtons() == Qt::NoButton)
                ensureWidgetVisible(now);
        });
    }

    [[nodiscard]] QSize minimumSizeHint() const override
    {
        const QSize room = screen()->availableSize();
        return leastContent().boundedTo({room.width() * 9 / 10, room.height() * 3 / 5});
    }
    [[nodiscard]] QSize sizeHint() const override
    {
        const QSize room = screen()->availableSize();
        return widget() ? widget()->sizeHint().boundedTo({room.width() * 9 / 10, room.height() * 3 / 4})
                        : QSize();
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QScrollArea::resizeEvent(event);
        fit();
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
            fit();
        }
        return QScrollArea::eventFilter(watched, event);
    }

private:
    [[nodiscard]] QSize leastContent() const { return widget() ? widget()->minimumSizeHint() : QSize(0, 0); }
    /// A resizable area would give content with wrapped texts all the height that it likes, not the height
    /// that there is.
    void fit()
    {
        if (widget())
            widget()->resize(viewport()->size().expandedTo(leastContent()));
    }
};
