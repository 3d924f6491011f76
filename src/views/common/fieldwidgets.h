// What a widget shows, as the text that a form keeps.
#pragma once

#include <QWidget>

#include <functional>

/// Reads and fills the kinds of widgets that a form can be tied to.
namespace fieldwidgets {

/// The user's text of a widget as a form keeps it: lines end in LF, "1" or "0", a number, an ISO date.
[[nodiscard]] QString read(const QWidget& widget);
/// Shows a form's text without sounding like a change by the user; any kind of line end will do. A text that
/// a widget cannot show (no date, no number) leaves it as it is.
void write(QWidget& widget, const QString& text);
/// As write, but in a line edit as if the user had typed it, so that Ctrl+Z brings back what stood there.
void writeUndoably(QWidget& widget, const QString& text);
/// Calls @p changed with the new text at each change by the user; false for a widget that the user cannot
/// change.
bool onEdited(QWidget& widget, QObject& context, std::function<void(const QString&)> changed);

} // namespace fieldwidgets
