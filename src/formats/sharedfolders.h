// The folders that other programs share with this one, as open standard files.
#pragma once

#include "base/outlook.h"

/// Contacts come from vCard files (.vcf), one or many people each.
class SharedFolders : public Outlook
{
public:
    OutlookFolder<OutlookContact> contacts(const QString& place) override;
};
