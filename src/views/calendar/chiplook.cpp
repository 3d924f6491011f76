#include "views/calendar/chiplook.h"

#include "views/calendar/eventicons.h"

using namespace Qt::StringLiterals;

namespace {

/// How far a kind's colour lies from the accent on the colour circle, in degrees; nothing for the kinds that
/// are grey.
int turn(const QString& kind)
{
    if (kind == "follow-up"_L1)
        return 300; // greenish beside a blue accent
    if (kind == "inquiry"_L1)
        return 60; // violet
    if (kind == "networking"_L1)
        return 185; // amber
    return kind == "interview"_L1 ? 0 : -1;
}

QColor strong(const QString& kind, const QPalette& palette)
{
    const QColor accent = palette.color(QPalette::Highlight);
    const int away = turn(kind);
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    if (away < 0 || accent.hslHue() < 0)
        return ChipLook::mixed(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.5);
    return QColor::fromHsl((accent.hslHue() + away) % 360, 150, dark ? 150 : 115);
}

} // namespace

QColor ChipLook::mixed(const QColor& ink, const QColor& ground, qreal share)
{
    const auto part = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
    return {part(ink.red(), ground.red()), part(ink.green(), ground.green()),
            part(ink.blue(), ground.blue())};
}

QColor ChipLook::ground(const QString& kind, const QPalette& palette) const
{
    return mixed(strong(kind, palette), palette.color(QPalette::Base), 0.2);
}

QColor ChipLook::edge(const QString& kind, const QPalette& palette) const
{
    return mixed(strong(kind, palette), palette.color(QPalette::Base), 0.85);
}

const QIcon& ChipLook::icon(const QString& name) const
{
    auto found = m_icons.find(name);
    if (found == m_icons.end())
        found = m_icons.insert(name, eventicons::named(name));
    return *found;
}
