// A person of a contact folder as a candidate for the database, and whether it is there already.
#pragma once

#include "base/key.h"

#include <QString>

class DataJW;

/// Common to the three kinds: the first look at the database with a usable value is remembered.
struct OutMemo
{
    bool chk = false;        ///< the database has been asked
    bool lastExists = false; ///< what it answered
};

/// An address of the candidate. Its first line alone says which one it is: city and zip play no part.
struct OutAddress : OutMemo
{
    QString oAddress, oCity, oState, oZip, oTel, oTel2, oFax, oEmail1, oEmail2, oUrl;

    bool oExists(DataJW& data);
    [[nodiscard]] Key getAddrKey(DataJW& data) const; ///< 0 when there is none, or no line
};

struct OutCompany : OutMemo
{
    QString oCompanyName;
    Key oAddrKey = 0;

    bool oExists(DataJW& data);
    [[nodiscard]] Key getCompanyKey(DataJW& data) const; ///< 0 when there is none, or no name
};

/// A person: the same one when both names are equal.
struct OutContact : OutMemo
{
    QString oFName, oLName, oTitle;

    bool oExists(DataJW& data);
};
