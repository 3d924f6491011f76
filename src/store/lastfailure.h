// Why an operation of the gateway came to nothing, for a screen that says so beside the result.
#pragma once

#include "store/session.h"

namespace lastfailure {

inline constexpr const char* property = "lastFailure"; ///< of the session, where it is kept

/// Why the last entry that would be shown came about, short enough to stand beside a result: "> 32767" for a
/// number beyond that, else the store's own words; "" for a mere condition.
[[nodiscard]] inline QString reason(const Session& session)
{
    return session.property(property).toString();
}

} // namespace lastfailure
