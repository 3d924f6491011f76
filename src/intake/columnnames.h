// The columns of other programs' exports, recognised by their names.
#pragma once

#include "formats/recordtable.h"
#include "intake/fieldmap.h"

#include <QStringList>

namespace columnnames {

/// A name as it is compared: its letters and digits, in lower case and without accents.
QString plain(const QString& name);

/// The fields of the columns of these names, each column at most once: our own names first, then those that
/// address books, mail programs, job networks and customer lists use. Of several columns for one field the
/// one is taken that says most (work before home).
FieldMap recognise(const QStringList& names);

/// The record of names among the first ones, from 0: the one with the most names that are recognised. -1
/// when none has two of them.
int findNames(const RecordTable& table);

/// The column that a user's word means: its number from 1, or its name; 0 for none.
int positionOf(const QStringList& names, const QString& word);

} // namespace columnnames
