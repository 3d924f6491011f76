// A form that scrolls where the screen is too small for it.
#pragma once

#include <QEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

/// Not narrower than its form where the screen has the room: scrolling sideways tears labels from their
/// fields. On a small screen at a large scale it scrolls all the same, as fields that overlap are worse.
class FormScroll : public QScrollArea
{
    Q_OBJECT

public:
    explicit FormScroll(QWidget* parent = nullptr)
        : QScrollArea(parent)
    {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
    }

    [[nodiscard]] QSize minimumSizeHint() const override
    {
        const QSize least = QScrollArea::minimumSizeHint();
        if (!widget())
            return least;
        const int whole = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
        return {qMin(whole, screen()->availableSize().width() * 3 / 4), least.height()};
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }
};
