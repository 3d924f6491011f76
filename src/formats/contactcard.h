// A person's card as the program knows people.
#pragma once

#include "base/outlook.h"
#include "formats/vcardfile.h"

/// The person on a card. Addresses and numbers marked as work are the business's, all others the home's; a
/// mobile number counts as a further one of the home. The preferred mail address comes first. Without a
/// name in parts the full name is divided at its last blank.
OutlookContact contactOf(const vcard::Card& card);
