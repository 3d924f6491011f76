// What the saves of whole records have in common.
#pragma once

#include "base/form.h"

class Session;
class DataJW;

namespace wholerecord {

/// The front of an Insert into @p written that names every column of @p table but its key, which the store
/// gives. Empty when the table's columns could not be read (logged and shown).
QString insertFront(DataJW& dataJW, const QString& written, const QString& table);

/// True when the form's texts fit into one statement and each of @p tables has a key left; else the user has
/// been told why nothing was saved. The store takes statements of a million characters; one that it refused
/// in the middle of a save would leave the record without its row.
bool mayBeStored(Session& session, const Form& form, const QStringList& tables);

} // namespace wholerecord
