// Keys that stand in lists of a campaign file, before its records are read.
#pragma once

class CampaignFile;

/// Puts the keys of contacts and documents in order, in the loaded file only: keys in lists that no record of
/// the file has are left out, and keys of different lengths become keys of five digits, everywhere in the
/// file. The import replaces old keys in lists as text, which needs both.
void tidyListKeys(const CampaignFile& file);
