// The state of an address as the street map is asked for it.
#pragma once

#include "base/key.h"

#include <QString>

#include <optional>

/// The state for the map's address as the routine answers it: a whole number. So a known state is a type
/// error (nothing), as its code is no number, and an unknown name is 0.
std::optional<Key> getStateAbbrev(const QString& name);
