// A made-up campaign of any size, the same at every call.
#pragma once

class Database;

namespace generate {

/// As many companies as 16-bit keys leave room for: each company and each contact has an address of its own.
inline constexpr int fullCampaign = 15000;

/// Fills an empty store in one transaction: @p companies companies with a contact each, twice as many positions,
/// eight times as many histories and a third as many events, with texts as long as lifelike ones.
/// Throws StoreError.
void campaign(Database& database, int companies);

} // namespace generate
