// Copies of the database: made with the engine, checked, and kept for a while.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QTime>

#include <chrono>
#include <memory>
#include <vector>

class Session;
class Database;

/// A copy of the database in the folder's "backups".
struct CopyInfo
{
    QString path;
    QString kind; ///< "daily", "restore" or another step that it was made before
    QDate day;    ///< when it was made, by its name
    QTime time;   ///< invalid for a daily one
    qint64 bytes = 0;
    /// Grows with every record that was ever stored: of two copies the one with the higher number is the
    /// newer one, whatever the clock said. -1 when it cannot be read.
    qint64 content = -1;
    int companies = 0; ///< without categories
    int positions = 0;
    int contacts = 0;
};

/// The copies in the folder's "backups", by what they hold, the newest first.
std::vector<CopyInfo> copiesIn(const QString& folder);

/// Their paths.
QStringList listCopies(const QString& folder);

/// A path in the folder's "backups" that no copy has yet, for one of this kind ("restore", "reset").
QString copyPath(const QString& folder, const QDateTime& now, const QString& kind);

/// Checks a database file in whole. "" when it is sound, else what was found.
QString checkFile(const QString& path);

/// How long a copy waits for another program that holds the database.
inline constexpr std::chrono::milliseconds copyPatience{10'000};

/// Copies the open database into @p target, checks the copy and puts it there under its name only when it is
/// sound; an existing file of that name is replaced. "" on success, else what went wrong; that another
/// program holds the database is said after @p patience.
QString copyTo(Database& database, const QString& target, std::chrono::milliseconds patience = copyPatience);

/// Makes the copy that a step which deletes much ("restore", "reset") takes first. False when it could not be
/// made: the user has been told, and the step must not go on. Waits as copyTo does.
bool copyBefore(Session& session, const QString& reason, std::chrono::milliseconds patience = copyPatience);

/// The copy of the day, made in small steps so that the screen stays alive: call step() from a timer until it
/// answers false. Does nothing when the day has its copy. Afterwards the oldest copies are removed: the last
/// ten daily ones and the last five of each other kind are kept, by what they hold as well as by their day.
/// No step waits for another program that holds the database; when it holds it longer than the patience, the
/// day goes without a copy, and the log says so.
class DailyCopy
{
public:
    explicit DailyCopy(Session& session, std::chrono::milliseconds patience = copyPatience);
    ~DailyCopy();
    DailyCopy(const DailyCopy&) = delete;
    DailyCopy& operator=(const DailyCopy&) = delete;
    /// Copies some pages. False when nothing is left to do.
    bool step();
    /// "" or, when the last step has been done, what went wrong; a damaged store shows itself here.
    [[nodiscard]] QString failure() const;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};
