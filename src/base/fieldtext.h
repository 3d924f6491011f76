// Texts on their way between a form's controls and the store.
#pragma once

#include <QString>

namespace fieldtext {

/// A control's text as a statement may hold it: each line end becomes carriage return and line feed, each
/// apostrophe a backquote. Nothing else needs care, as the gateway binds the text as a value.
QString toStored(QString shown);

/// The same between single quotes, ready to stand in a statement.
QString quoted(const QString& shown);

/// A stored text as the controls hold it: lines end in a line feed alone.
QString toShown(QString stored);

} // namespace fieldtext
