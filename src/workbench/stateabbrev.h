// Two-letter codes of the states, for the street map.
#pragma once

#include "base/key.h"

#include <QString>

#include <optional>

/// The code that the table holds for a spelled-out state, in any case ("New York" gives "NY"); empty when
/// unknown.
QString stateCode(const QString& name);

/// The state for the map's address as the routine answers it: a whole number. So a known state is a type
/// error (nothing), as its code is no number, and an unknown name is 0.
std::optional<Key> getStateAbbrev(const QString& name);
