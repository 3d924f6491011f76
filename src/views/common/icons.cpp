#include "views/common/icons.h"

#include <QDir>
#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>

using namespace Qt::StringLiterals;

// Outside of any namespace, as the resource compiler's symbol is: a static library's resources are otherwise
// dropped.
static void loadPackagedIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace {

/// What is made of a picture. Drawn and not packaged as further pictures, which no theme would have.
enum class Variant { Plain, New, Pressed };

QColor inkFor(QIcon::Mode mode, Variant variant)
{
    const QPalette palette = QGuiApplication::palette();
    if (variant == Variant::Pressed && mode != QIcon::Disabled)
        return palette.color(QPalette::Active, QPalette::Highlight);
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    default:
        return palette.color(QPalette::Active, QPalette::WindowText);
    }
}

bool isOneColour(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = QColor::fromRgb(line[x]);
            if (qAlpha(line[x]) > 128 && colour.saturation() > 60)
                return false;
        }
    }
    return true;
}

/// A plus in the lower right corner, with room around it so that the picture's lines do not run into it.
void drawPlus(QPainter& painter, const QRectF& picture, const QColor& ink)
{
    const double unit = picture.width() / 22; // the pictures' own grid
    const QPointF middle = picture.topLeft() + QPointF(17, 17) * unit;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawEllipse(middle, 5.5 * unit, 5.5 * unit);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(ink, 1.7 * unit, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(middle - QPointF(3.5 * unit, 0), middle + QPointF(3.5 * unit, 0));
    painter.drawLine(middle - QPointF(0, 3.5 * unit), middle + QPointF(0, 3.5 * unit));
}

bool themeHasAll()
{
    const auto has = [](const QString& name) { return QIcon::hasThemeIcon(name); };
    return std::all_of(icons::names().cbegin(), icons::names().cend(), has);
}

QIcon readPicture(const QString& name)
{
    static const bool fromTheme = themeHasAll();
    return fromTheme ? QIcon::fromTheme(name) : QIcon(u":/jobwright/icons/%1.svg"_s.arg(name));
}

/// Draws another icon's picture in the palette's text colour, anew whenever the palette has changed.
class InkEngine : public QIconEngine
{
public:
    explicit InkEngine(QIcon source)
        : m_source(std::move(source))
    {
    }
    /// Reads the picture at the first drawing: a start makes many icons that stand in closed menus.
    explicit InkEngine(QString name, Variant variant = Variant::Plain)
        : m_name(std::move(name))
        , m_variant(variant)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        picture.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect, picture);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QColor ink = inkFor(mode, m_variant);
        const QString key = u"%1x%2#%3"_s.arg(size.width()).arg(size.height()).arg(ink.rgba(), 0, 16);
        auto found = m_drawn.find(key);
        if (found == m_drawn.end())
            found = m_drawn.insert(key, draw(size, ink));
        return *found;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new InkEngine(*this); }
    bool isNull() override { return m_name.isEmpty() && m_source.isNull(); }

private:
    [[nodiscard]] QPixmap draw(const QSize& size, const QColor& ink)
    {
        if (m_source.isNull())
            m_source = readPicture(m_name);
        QImage picture(size, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        const int inset = m_variant == Variant::Pressed ? std::max(1, size.width() / 11) : 0;
        m_source.paint(&painter, picture.rect().adjusted(inset, inset, -inset, -inset));
        if (isOneColour(picture)) {
            painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
            painter.fillRect(picture.rect(), ink);
        }
        if (m_variant == Variant::New)
            drawPlus(painter, picture.rect(), ink);
        painter.end();
        return QPixmap::fromImage(picture);
    }

    QString m_name;
    Variant m_variant = Variant::Plain;
    QIcon m_source;
    QHash<QString, QPixmap> m_drawn;
};

} // namespace

namespace icons {

const QStringList& names()
{
    static const QStringList all = [] {
        loadPackagedIcons();
        QStringList files = QDir(u":/jobwright/icons"_s).entryList();
        for (QString& file : files)
            file.chop(4); // ".svg"
        return files;
    }();
    return all;
}

QIcon named(const QString& name)
{
    return names().contains(name) ? QIcon(new InkEngine(name)) : QIcon();
}

QIcon forNew(const QString& name)
{
    return names().contains(name) ? QIcon(new InkEngine(name, Variant::New)) : QIcon();
}

QIcon pressed(const QString& name)
{
    return names().contains(name) ? QIcon(new InkEngine(name, Variant::Pressed)) : QIcon();
}

QIcon inPaletteInk(const QIcon& picture)
{
    return QIcon(new InkEngine(picture));
}

QIcon ofProgram()
{
    loadPackagedIcons();
    return QIcon::fromTheme(u"jobwright"_s, QIcon(u":/jobwright/jobwright.svg"_s));
}

} // namespace icons
