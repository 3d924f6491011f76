#include "views/common/housestyle.h"

#include "views/common/icons.h"

#include <QApplication>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

constexpr int fusionsShade = 140; // percent by which Fusion darkens the window's colour for a frame

bool isDark(const QPalette& palette)
{
    constexpr int middle = 128;
    return palette.color(QPalette::Window).lightness() < middle;
}

/// A window's colour that Fusion darkens to a frame which stands out by three to one.
QColor windowForFrames(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::WindowText);
    const QColor window = palette.color(QPalette::Window);
    const auto between = [](int from, int to) { return (3 * from + 2 * to) / 5; };
    return QColor(between(window.red(), text.red()), between(window.green(), text.green()),
                  between(window.blue(), text.blue()))
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
    const bool drawn = isDark(palette) && (drawFramed<QStyleOptionComboBox>(option, palette, draw) ||
                                           drawFramed<QStyleOptionSpinBox>(option, palette, draw));
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
