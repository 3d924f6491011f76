#include "views/common/housestyle.h"

#include "views/common/icons.h"

#include <QApplication>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int fusionsShade = 140; // percent by which Fusion darkens the window's colour for a frame

bool isDark(const QPalette& palette)
{
    constexpr int middle = 128;
    return palette.color(QPalette::Window).lightness() < middle;
}

/// How bright a colour is to the eye, 0 to 1 (the relative luminance of WCAG 2.1).
double luminance(const QColor& colour)
{
    const auto linear = [](float part) {
        return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

/// What is seen of a colour of which so much lies over the ground.
QColor over(const QColor& ground, const QColor& colour, double share)
{
    const auto mixed = [share](int below, int above) { return qRound(below + (above - below) * share); };
    return QColor(mixed(ground.red(), colour.red()), mixed(ground.green(), colour.green()),
                  mixed(ground.blue(), colour.blue()));
}

/// The quiet colour itself where it can be read, else as much of the text's colour as that takes.
QColor readable(const QColor& quiet, const QColor& text, const QColor& ground, double least)
{
    QColor seen = over(ground, quiet, static_cast<double>(quiet.alphaF()));
    for (int percent = 20; contrast(seen, ground) < least && percent <= 100; percent += 2)
        seen = over(ground, text, percent / 100.0);
    return seen;
}

/// A window's colour that Fusion darkens to a frame which stands out by three to one.
QColor windowForFrames(const QPalette& palette)
{
    constexpr double share = 0.4;
    return over(palette.color(QPalette::Window), palette.color(QPalette::WindowText), share)
        .lighter(fusionsShade);
}

/// Calls @p draw with the option on such a window; false when the option is of another type.
template<typename Option, typename Draw>
bool drawFramed(const QStyleOption* option, const QPalette& palette, Draw draw)
{
    const auto* typed = qstyleoption_cast<const Option*>(option);
    if (!typed)
        return false;
    Option framed(*typed);
    framed.palette.setColor(QPalette::Window, windowForFrames(palette));
    draw(&framed);
    return true;
}

QString iconFor(QStyle::StandardPixmap picture)
{
    switch (picture) {
    case QStyle::SP_MessageBoxInformation:
        return u"dialog-information"_s;
    case QStyle::SP_MessageBoxQuestion:
        return u"dialog-question"_s;
    case QStyle::SP_MessageBoxWarning:
        return u"dialog-warning"_s;
    default:
        return {};
    }
}

bool hasIconTheme()
{
    return QIcon::hasThemeIcon(u"dialog-information"_s);
}

} // namespace

void HouseStyle::install()
{
    if (QApplication::style()->name() == "fusion"_L1)
        QApplication::setStyle(new HouseStyle(u"fusion"_s));
    QApplication::setWindowIcon(icons::ofProgram());
}

void HouseStyle::polish(QPalette& palette)
{
    QProxyStyle::polish(palette);
    constexpr double leastForText = 4.5;
    constexpr double leastForDisabled = 3;
    const QColor ground = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(
            group, QPalette::PlaceholderText,
            readable(palette.color(group, QPalette::PlaceholderText), text, ground, leastForText));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role,
                         readable(palette.color(QPalette::Disabled, role), text, ground, leastForDisabled));
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    const auto draw = [&](const QStyleOption* framed) {
        QProxyStyle::drawPrimitive(element, framed, painter, widget);
    };
    // The widget's own palette: the option may have been given another one on the way here already.
    const QPalette& palette = widget ? widget->palette() : option->palette;
    bool drawn = false;
    if (isDark(palette)) {
        if (element == PE_Frame || element == PE_FrameLineEdit)
            drawn = drawFramed<QStyleOptionFrame>(option, palette, draw);
        else if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)
            drawn = drawFramed<QStyleOptionButton>(option, palette, draw);
    }
    if (!drawn)
        draw(option);
}

void HouseStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const
{
    const auto draw = [&](const QStyleOptionComplex* framed) {
        QProxyStyle::drawComplexControl(control, framed, painter, widget);
    };
    const QPalette& palette = widget ? widget->palette() : option->palette;
    bool drawn = false;
    if (isDark(palette)) {
        if (control == CC_ComboBox)
            drawn = drawFramed<QStyleOptionComboBox>(option, palette, draw);
        else if (control == CC_SpinBox)
            drawn = drawFramed<QStyleOptionSpinBox>(option, palette, draw);
        else if (control == CC_Slider)
            drawn = drawFramed<QStyleOptionSlider>(option, palette, draw);
    }
    if (!drawn)
        draw(option);
}

int HouseStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons && !hasIconTheme())
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon HouseStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                               const QWidget* widget) const
{
    const QString name = hasIconTheme() ? QString() : iconFor(picture);
    return name.isEmpty() ? QProxyStyle::standardIcon(picture, option, widget) : icons::named(name);
}
