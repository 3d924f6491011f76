// What a contact's histories mean for the positions that list the contact.
#pragma once

#include "base/key.h"

class DataJW;

namespace historysteps {

/// Walks the contact's stored histories for each position of the contact's company that lists the contact,
/// and writes the steps InfoFollow and SentResume as they say. False when a statement failed.
bool move(DataJW& dataJW, Key contactKey);

} // namespace historysteps
