// A panel that is meant to be read first.
#pragma once

#include <QFrame>
#include <QPainter>

/// Stands on a breath of the accent over the window's own colour, in whatever palette.
class TintedPanel : public QFrame
{
    Q_OBJECT

public:
    using QFrame::QFrame;

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr float share = 0.15F;
        QColor accent = palette().color(QPalette::Highlight);
        accent.setAlphaF(share);
        QPainter(this).fillRect(rect(), accent);
    }
};
