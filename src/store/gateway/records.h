// Records as the gateway hands them out: plain values with the columns' meanings.
#pragma once

#include "base/key.h"
#include "store/gateway/recordset.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

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

/// One interaction with a contact. There is no LoadData() with a text for every field: ten of them in a row
/// would be mixed up unseen. What fills a record otherwise than from the store names the fields it sets.
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

    /// Copies row @p index (from 1) of the contact's histories in date order; the record stays as it was when
    /// there is none.
    void loadDataFromDatabase(DataJW& dataJW, Key contactKey, int index);
    /// All histories of the contact in the order in which loadDataFromDatabase() counts them, read in one
    /// statement. A running number that does not fit into 16 bits is 0. Nothing when they could not be read
    /// (logged and shown).
    static std::optional<std::vector<History>> loadAll(DataJW& dataJW, Key contactKey);
    /// How many histories the contact has: their number, not the running number of the last one.
    static int getHistoryCount(DataJW& dataJW, Key contactKey);
};

/// A position as texts; the screens that edit positions keep their own form and send their own statements.
struct XPosition
{
    Key HiredMedium = 0;
    Key FollowUpMedium = 0;
    Key InterviewMedium = 0;
    Key SentResumeMedium = 0;
    Key PrepareResumeMedium = 0;
    Key PrepareCoverMedium = 0;
    Key InfoFollowMedium = 0;
    Key InfoContactMedium = 0;
    Key PositionResearchMedium = 0;
    QString Expires;
    Key CompanyKey = 0;
    QString ContactList;
    QString Source;
    QString OfferStatus;
    QString PersonalRanking;
    QString Hired;
    QString FollowUp;
    QString Interview;
    QString Response;
    QString SentResume;
    QString PrepareResume;
    QString PrepareCover;
    QString InfoFollow;
    QString InfoContact;
    QString PositionResearch;
    Key CompanyResearchMedium = 0;
    QString CompanyResearch;
    QString Location;
    QString Benefits;
    QString Notes;
    QString Keyword;
    QString Qualifications;
    QString Responsibilities;
    QString EntryDate;
    QString Title;
    Key Pkey = 0;

    /// A position is read and changed through the gateway; these two leave everything as it is.
    void loadPos() {}
    void updatePos() {}
    /// The front of an INSERT with these columns, up to the opening of its values. Sends nothing.
    static QString addPos(const QStringList& fields);
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
    /// Copies the item's row; the record stays as it was when there is none.
    void loadUProfileFromDatabase(DataJW& dataJW, Key key);
    /// Items are not counted by their fields: always 0.
    [[nodiscard]] static Key getCount(const QString&) { return 0; }
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
