// Keys of the store as the program handles them.
#pragma once

#include <QtGlobal>

#include <optional>

/// A record's key or a count: a signed 16-bit number, so 32767 is the highest that the program can work with.
/// The store itself numbers rows with wider integers; toKey() is the one place where the two meet.
using Key = qint16;

/// @p wide as a Key, or nothing when it does not fit into 16 bits.
inline std::optional<Key> toKey(qint64 wide)
{
    if (wide < INT16_MIN || wide > INT16_MAX)
        return std::nullopt;
    return static_cast<Key>(wide);
}
