// A form that scrolls up and down where the screen is too low for it.
#pragma once

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>

/// Never narrower than its form: scrolling sideways would tear labels from their fields.
class FormScroll : public QScrollArea
{
    Q_OBJECT

public:
    explicit FormScroll(QWidget* parent = nullptr)
        : QScrollArea(parent)
    {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }

    [[nodiscard]] QSize minimumSizeHint() const override
    {
        const QSize least = QScrollArea::minimumSizeHint();
        if (!widget())
            return least;
        return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(),
                least.height()};
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }
};
