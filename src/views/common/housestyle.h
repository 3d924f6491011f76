// What the plain style of Qt leaves undone.
#pragma once

#include <QProxyStyle>

/// Stands before the Fusion style, which desktops without a style of their own get. On a dark palette Fusion
/// draws the frames of fields and boxes darker than the window, where nobody sees them; here they are
/// lighter. On any palette its quiet texts are faint; here captions keep 4.5 to one and disabled words 3 to
/// one. Without an icon theme its message boxes show pictures of another age; here they are the program's.
class HouseStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Makes it the application's style where that is Fusion, and gives the windows the program's icon. Any
    /// other style is the user's choice and stays.
    static void install();

    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                                     const QWidget* widget) const override;

private:
    using QProxyStyle::QProxyStyle;
};
