// Symbols of the program by their freedesktop names, readable on any palette.
#pragma once

#include <QIcon>
#include <QStringList>

/// The icons of the user's own theme when it has every one that the program shows, else the packaged ones. A
/// theme is taken whole or not at all, so that a toolbar never mixes two hands. Pictures in one colour are
/// drawn in the palette's text colour at the time of painting; coloured ones stay as they are.
namespace icons {

/// The icon with this freedesktop name ("document-save"); null for a name outside names().
[[nodiscard]] QIcon named(const QString& name);
/// The icon of a kind of record with a plus at its corner: for a new one of the kind.
[[nodiscard]] QIcon forNew(const QString& name);
/// The icon as it looks under the finger: smaller, in the accent.
[[nodiscard]] QIcon pressed(const QString& name);
/// Another picture drawn in the same way: in the palette's text colour when it is of one colour.
[[nodiscard]] QIcon inPaletteInk(const QIcon& picture);
/// The program's own icon, for its windows.
[[nodiscard]] QIcon ofProgram();
/// Every name that named() knows.
[[nodiscard]] const QStringList& names();

} // namespace icons
