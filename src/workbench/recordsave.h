// What the whole-record saves of the screens share.
#pragma once

#include "store/datajw.h"

#include <QString>

namespace recordsave {

/// Characters that a record's texts may have together. The store takes statements of a million characters;
/// one that it refused in the middle of a save would leave the record without its row.
inline constexpr qsizetype longestRecord = 900'000;

/// The front of an Insert into @p written that names every column of @p table but its key, which the store
/// gives.
inline QString insertFront(DataJW& dataJW, const QString& written, const QString& table)
{
    return u"INSERT INTO " + written + u" ( " + dataJW.getFields(table).mid(1).join(u',') + u" ) VALUES (";
}

} // namespace recordsave
