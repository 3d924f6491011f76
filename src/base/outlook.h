// The mail, calendar and contact folders of other programs, with what this program asks of them.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

/// A person of a contact folder.
struct OutlookContact
{
    QString firstName;
    QString lastName;
    QString fullName;
    QString title; ///< the person's position
    QString companyName;
    QString businessAddressStreet; ///< several lines end in LF
    QString businessAddressCity;
    QString businessAddressState;
    QString businessAddressPostalCode;
    QString businessTelephoneNumber;
    QString business2TelephoneNumber;
    QString businessFaxNumber;
    QString homeAddressStreet;
    QString homeAddressCity;
    QString homeAddressState;
    QString homeAddressPostalCode;
    QString homeTelephoneNumber;
    QString home2TelephoneNumber;
    QString email1Address;
    QString email2Address;
    QString webPage;
};

/// What a folder gave: its items, and what had to be passed over.
template<class Item> struct OutlookFolder
{
    std::vector<Item> items;
    QStringList problems; ///< sentences, each with its file and line
    QString failure;      ///< why nothing could be read; "" when the folder was read
};

/// The folders that other programs share with this one. The real ones are open standard files.
class Outlook
{
public:
    virtual ~Outlook() = default;
    /// The people in @p place, a folder or a single file, sorted by their last names; of equal names the
    /// order of the files stays.
    virtual OutlookFolder<OutlookContact> contacts(const QString& place) = 0;
};
