// What gives the screens their common look, all of it taken from the user's style, palette and font.
#pragma once

#include <QWidget>

/// Reads the marks that .ui files set as dynamic properties, so that no screen repeats how they look:
/// "heading" (a short group heading), "gap" (room above it), "caption" (quiet text below a figure), "chars"
/// (a field as wide as that many characters), "lines" (a text box at least as high as that many
/// lines), and on a grid "apart" (the column whose labels keep their distance from the fields before them).
namespace look {

/// Applies every mark below @p view; call it once after setupUi.
void dress(QWidget& view);

/// The width of a field that shows @p chars average characters in the font of @p field, in pixels.
[[nodiscard]] int fieldWidth(const QWidget& field, int chars);

} // namespace look
