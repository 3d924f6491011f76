// A database copied page by page with the engine's backup interface.
#pragma once

#include "store/engine/enginecall.h"

#include <QString>

struct sqlite3_backup;

/// The copy of an open database as it grows, under a name of its own beside the final one. A copy that is not
/// finished leaves nothing behind.
class GrowingCopy
{
public:
    /// Throws StoreError when the file cannot be made.
    GrowingCopy(sqlite3* source, const QString& target);
    ~GrowingCopy();
    GrowingCopy(const GrowingCopy&) = delete;
    GrowingCopy& operator=(const GrowingCopy&) = delete;

    enum Progress {
        More,
        Held, ///< another program keeps everybody out, so nothing was copied
        All,
    };

    /// Copies some pages, all that are left for -1, without waiting for other programs. Throws StoreError.
    Progress step(int pages);
    /// Checks the whole copy and gives it its name, in place of an existing file. Throws StoreError.
    void finish();

private:
    sqlite3* m_source;
    QString m_target;
    QString m_unfinished;
    engine::Connection m_connection;
    sqlite3_backup* m_backup = nullptr;
};

namespace growingcopy {

/// A name beside @p target that no file has, "x.db.4711.part" with this process's number in it.
QString unfinishedName(const QString& target);

/// Removes what processes that were killed have left in the folder of copies.
void removeLeftovers(const QString& backups);

/// Gives the file at @p from the name @p to, in place of an existing one, in one step and with its content on
/// the disk. Throws StoreError.
void putInPlace(const QString& from, const QString& to);

} // namespace growingcopy
