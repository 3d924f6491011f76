// The journal of versions: the recovery tables beside Contact, Position and Event.
#pragma once

#include <QString>

/// The statement @p insert, written for the table @p journal instead of its own: the same row as a version.
/// Only the table's name is exchanged, whatever the texts hold. @p insert begins with "INSERT INTO", a blank
/// and the table's name, in any case of the letters; for any other text the answer is empty.
[[nodiscard]] QString recoveryInsert(const QString& insert, const QString& journal);
