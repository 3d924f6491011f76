// The colours and pictures of the chips in the month's grid.
#pragma once

#include <QColor>
#include <QHash>
#include <QIcon>
#include <QPalette>

/// Colours by kind of event, turned from the palette's accent so that they suit any theme, and pictures by
/// name. Both are made once and kept, as a busy month asks for them hundreds of times.
class ChipLook
{
public:
    /// Soft enough for the palette's text to be read on it.
    [[nodiscard]] QColor ground(const QString& kind, const QPalette& palette) const;
    /// The stripe at the chip's side: the same colour, stronger.
    [[nodiscard]] QColor edge(const QString& kind, const QPalette& palette) const;
    [[nodiscard]] const QIcon& icon(const QString& name) const;
    /// @p share of @p ink over @p ground.
    [[nodiscard]] static QColor mixed(const QColor& ink, const QColor& ground, qreal share);

private:
    mutable QHash<QString, QIcon> m_icons;
};
