// Size, place and splitters of a window, remembered between runs.
#pragma once

#include <QSettings>
#include <QWidget>

/// Keeps the layout of windows in a settings file of the caller. What the file holds wrong is left aside.
namespace windowstate {

/// Gives the window the size and place of the last save and its splitters their shares. A window that would
/// not be seen on any screen is brought back onto one, and none is larger than its screen has room.
void restore(QWidget& window, const QSettings& file);
void save(const QWidget& window, QSettings& file);

} // namespace windowstate
