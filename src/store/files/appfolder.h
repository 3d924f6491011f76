// Where the program's files lie.
#pragma once

#include <QString>

#include <memory>

class QLockFile;
class Session;

/// The application folder: @p named (the --folder option), else JOBWRIGHT_FOLDER, else the program's own
/// folder when a Postledger.db lies there (portable use), else jobwright in the user's data folder
/// (XDG_DATA_HOME, else in the home folder). "" when none of them is known.
QString applicationFolder(const QString& named);

/// The folder of the files that the program is delivered with: share/jobwright beside an installed program,
/// data in a source tree. Empty when there is none.
QString deliveredFolder();

/// Copies the delivered files that the folder lacks into it: at each start, as a later version may bring more
/// of them. A file that is there, the user's own or a changed one, is left alone.
void layDeliveredFiles(const QString& folder);

/// Makes the folder when it is missing. "" on success, else why it cannot be used; an empty name is that of a
/// user without a home folder. A pipe or a device in the place of a file of the program is refused.
QString prepareFolder(const QString& folder);

/// True for a folder that is not there or that no program has worked in yet.
bool holdsNothing(const QString& folder);

/// Keeps a second start away from a folder that is in use.
class InstanceLock
{
public:
    explicit InstanceLock(const QString& folder);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;
    /// False when another running program holds the folder. A lock that a dead program of this computer left
    /// is taken over, and one that cannot be read once it is some seconds old: a program that has just made
    /// its lock is about to write its name into it.
    bool acquire();
    void release();
    /// After acquire() failed: true when another program holds the folder, false when the lock cannot be
    /// written.
    [[nodiscard]] bool isHeldByAnother() const;
    /// After acquire() failed: why, in plain words, and what can be done.
    [[nodiscard]] QString holder() const;

private:
    QString m_path;
    std::unique_ptr<QLockFile> m_file;
};

/// True until provisionFirstRun() has been through once for this folder.
bool isFirstRun(Session& session);

/// What the first start of an installation does: settings entries, file types, the exchange folder. The
/// marker of a first run is set last.
void provisionFirstRun(Session& session, const QString& version);
