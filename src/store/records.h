// Records as the gateway hands them out: plain values with the columns' meanings.
#pragma once

#include "base/key.h"
#include "store/recordset.h"

#include <QDate>
#include <QString>

class DataJW;

/// A document of the repository.
struct Dox
{
    Key docKey = 0;
    QString docType;
    QString docPath;
    QString docNotes;
    QString style; ///< twelve characters "0" or "1"
    Key sentCount = 0;
    QDate dateEntry;
    QString Target;
    QString version;
    QString docName;
};

/// One interaction with a contact.
struct History
{
    QString HistKey;
    QString DocXfer;
    QDate ContactDate;
    QDate NextCall;
    QString ReturnCall;
    QString Location;
    QString Details;
    QString topic;
    QString Length;
    QString medium;
    Key ContactCount = 0;
    Key ContactKey = 0;

    /// Copies row @p index (from 1) of the contact's histories in date order; the record stays as it was when there is none.
    void loadDataFromDatabase(DataJW& dataJW, Key contactKey, int index);
    /// How many histories the contact has: their number, not the running number of the last one.
    static int getHistoryCount(DataJW& dataJW, Key contactKey);
};

/// One item of the user's own profile.
struct UserProfile
{
    Key UProfileKey = 0;
    QString Notes;
    QString Location;
    QString Function3;
    QString Function2;
    QString Function1;
    QString EtimeYear;
    QString StimeYear;
    QString EtimeMonth;
    QString StimeMonth;
    QString uSubCategory;
    QString uCategory;
    QString uSubTitle;
    QString uTitle;

    void clear();
    void loadUProfileFromDatabase(DataJW& dataJW, Key key);
};

/// A row of the target list, as stored.
struct Target
{
    Key TargetKey = 0;
    QString Name;
    QString InDB;      ///< "Yes" or "No"
    QString Contacted; ///< "Yes" or "No"
    Key Contacts = 0;
    Key Positions = 0;
    QString Flags;
    QString Business;
    QString Industry;
    QString Sector;
    QString Type;
    QString Employees;
    QString Sales;
    QString ExecCEO;
    QString Exec1;
    QString Exec2;
    QString Exec3;
    QString Exec4;
    QString BusinessUnits;
    QString Public;
    QString TargetURL;
    Key Rank = 0;
    QString ProfileRank;
    Key CompanyKey = 0;
    QDate EntryDate;
};
