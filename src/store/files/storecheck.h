// A full look at an open store: soundness, room left for keys, keys that point nowhere.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class Database;
class Session;

/// The highest key that a table has given out so far.
struct KeyUse
{
    QString table;
    qint64 highest = 0;
};

/// Rows, or items of key lists, whose key points at no row. This is a normal state that every reader
/// tolerates, and worth knowing.
struct OrphanCount
{
    QString column; ///< "Contact.CompanyKey"
    int rows = 0;
};

struct StoreCheck
{
    /// "" when the file is sound, else what the engine found, or the records that stand under keys which the
    /// program cannot work with.
    QString damage;
    std::vector<KeyUse> keys;
    std::vector<OrphanCount> orphans;
    /// Keys of that kind which are put right by themselves, a target's when the target list is opened.
    std::vector<OrphanCount> passing;
    /// Contacts, positions and histories that name no owner, and addresses that no company or contact has: no
    /// screen comes by them.
    std::vector<OrphanCount> unowned;
    /// Tables whose keys have different lengths although they stand in lists.
    QStringList mixedKeys;
    /// Triggers and views, "trigger NAME": the program makes none, and none is ever run.
    QStringList foreign;
};

/// Keys end at 32767; from here on the user is warned.
inline constexpr qint64 keyWarning = 30000;
inline constexpr qint64 keyLimit = 32767;

/// Checks the whole store; throws StoreError when it cannot even be read.
StoreCheck checkStore(Database& database);

/// The highest key that the table has given out or holds, whichever is more; 0 for a table without such keys.
qint64 highestKey(Database& database, const QString& table);

/// Makes the table number its next row above @p key, a key that it has not passed yet.
void setHighestKey(Database& database, const QString& table, qint64 key);

/// The tables whose keys have passed keyWarning; quick, for every start.
std::vector<KeyUse> keysRunningOut(Database& database);

/// Why no further row may be stored in these tables: the text for the user, "" when each has a key left. A
/// save that replaces a row must know it beforehand: with the new row out of reach, what belongs to the old
/// one would be lost.
QString keysUsedUp(Database& database, const QStringList& tables);

/// True when each of these tables has a key left for a new row; else the user has been told why nothing was
/// saved. True as well without a store to look at: the save's own statements tell it.
bool haveKeys(Session& session, const QStringList& tables);

/// What to tell the user about them, and what to do; "" for none.
QString keyWarningText(const std::vector<KeyUse>& keys);

/// What keys of different lengths in these tables do, and the way out; "" for none.
QString mixedKeysText(const QStringList& tables);
