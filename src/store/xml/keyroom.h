// Whether the store has keys enough for what a campaign file brings.
#pragma once

#include <QString>

class CampaignFile;
class DataJW;

/// The import numbers every record that comes in anew and the store never uses a number twice, so it can run
/// out of keys with its work half done. Known beforehand, that is refused while everything is as it was. Of a
/// file that is merged in only those records count that the store does not have, looked up as the import
/// looks them up. Answers "" when the keys will do, else the reason for the user; throws StoreError when the
/// store cannot be read.
[[nodiscard]] QString checkKeys(DataJW& data, const CampaignFile& file);

/// Lets contacts and documents that come in have keys above all that the file has for them, so that no new
/// key equals an old one that lists still hold. False, with nothing changed, when there are not enough keys
/// for that. Throws StoreError.
[[nodiscard]] bool raiseKeys(DataJW& data, const CampaignFile& file);
