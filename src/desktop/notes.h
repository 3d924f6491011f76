// Passing notes of the desktop.
#pragma once

#include <QString>

/// Hands notes to the desktop's notification service over the session bus.
namespace notes {

/// Shows a note; both texts are shown as they stand. False when there is no bus, nobody behind it that shows
/// notes, or no answer within half a second.
bool show(const QString& title, const QString& text);

} // namespace notes
