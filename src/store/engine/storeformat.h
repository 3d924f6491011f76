// The format of the store's file, as its user_version names it.
#pragma once

#include "store/engine/schema.h"

namespace schema {

/// What this program writes. 1: questions had keys of the whole table. 2: of each questionnaire. Older files
/// are brought up to date, newer ones refused.
inline constexpr int format = 2;

/// The statement that makes a table, under another name when one is given.
QString createStatement(const Table& table, const QString& name = {});

} // namespace schema
