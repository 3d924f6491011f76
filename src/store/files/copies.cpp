#include "store/files/copies.h"

#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QThread>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int pagesPerStep = 400; // some two megabytes: a few milliseconds
constexpr int keptDaily = 10;
constexpr int keptOthers = 5;

QString tr(const char* text)
{
    return QCoreApplication::translate("Copies", text);
}

QString backupsFolder(const QString& folder)
{
    return folder + u"/backups";
}

/// "Postledger-2026-11-22-daily.db"; the time of day keeps several copies of one day apart.
QString copyName(const QDateTime& now, const QString& kind)
{
    return u"Postledger-" + now.toString(kind == u"daily" ? u"yyyy-MM-dd" : u"yyyy-MM-dd-HHmmss") + u'-' +
           kind + u".db";
}

/// A path that no copy has yet: two steps within one second must not cost the first one its copy.
QString freePath(const QString& folder, const QString& name)
{
    QString path = folder + u'/' + name;
    for (int i = 2; QFileInfo::exists(path); ++i)
        path = folder + u'/' + QString(name).insert(name.lastIndexOf(u'-'), QStringLiteral("-%1").arg(i));
    return path;
}

/// Waits until the file's content is on the disk, so that its final name never stands for less.
bool flushToDisk(const QString& path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool flushed = ::fsync(file) == 0;
    ::close(file);
    return flushed;
}

/// rename(2) puts the new file in the old one's place in one step, which QFile::rename does not.
bool replaceFile(const QString& from, const QString& to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// The copy as it grows, under a name of its own beside the final one.
class GrowingCopy
{
public:
    GrowingCopy(sqlite3* source, const QString& target)
        : m_source(source)
        , m_target(target)
        , m_unfinished(target + u".part")
    {
        QFile::remove(m_unfinished);
        m_connection = engine::open(m_unfinished, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        m_backup = sqlite3_backup_init(m_connection.get(), "main", source, "main");
        if (!m_backup)
            throw engine::failure(m_connection.get());
    }
    ~GrowingCopy()
    {
        if (m_backup)
            sqlite3_backup_finish(m_backup);
        m_connection.reset();
        QFile::remove(m_unfinished); // gone already when it was finished
    }
    GrowingCopy(const GrowingCopy&) = delete;
    GrowingCopy& operator=(const GrowingCopy&) = delete;

    enum Progress {
        More,
        Held, ///< another program keeps everybody out, so nothing was copied
        All,
    };

    /// Copies some pages, all that are left for -1, and waits for nobody.
    Progress step(int pages)
    {
        sqlite3_busy_timeout(m_source, 0); // who waits, and for how long, is the caller's to say
        const int code = sqlite3_backup_step(m_backup, pages);
        sqlite3_busy_timeout(m_source, engine::busyTimeoutMs);
        switch (code) {
        case SQLITE_DONE:
            return All;
        case SQLITE_OK:
            return More;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return Held;
        default:
            throw StoreError(QString::fromUtf8(sqlite3_errstr(code)), code, QStringLiteral("SQLite"));
        }
    }
    /// Checks the whole copy and gives it its name.
    void finish()
    {
        sqlite3_backup_finish(std::exchange(m_backup, nullptr));
        m_connection.reset();
        const QString found = checkFile(m_unfinished);
        if (!found.isEmpty())
            throw StoreError(found, SQLITE_CORRUPT, QStringLiteral("Jobwright"));
        if (!flushToDisk(m_unfinished) || !replaceFile(m_unfinished, m_target))
            throw StoreError(tr("%1 cannot be written").arg(m_target), SQLITE_IOERR,
                             QStringLiteral("Jobwright"));
    }

private:
    sqlite3* m_source;
    QString m_target;
    QString m_unfinished;
    engine::Connection m_connection;
    sqlite3_backup* m_backup = nullptr;
};

QString heldText()
{
    return tr("another program holds the database; please let it finish, or close it, and try again");
}

void rotate(const QString& folder)
{
    QHash<QString, int> kept;
    for (const QString& path : listCopies(folder)) {
        const QString kind = QFileInfo(path).completeBaseName().section(u'-', -1);
        if (++kept[kind] > (kind == u"daily" ? keptDaily : keptOthers))
            QFile::remove(path);
    }
}

} // namespace

QStringList listCopies(const QString& folder)
{
    const QDir backups(backupsFolder(folder));
    QFileInfoList files = backups.entryInfoList({QStringLiteral("Postledger-*.db")}, QDir::Files);
    // By the day in the name and then by the file's own time: clocks may be set back, names are what a person
    // sees.
    std::ranges::sort(files, [](const QFileInfo& a, const QFileInfo& b) {
        const QString dayA = a.fileName().mid(11, 10);
        const QString dayB = b.fileName().mid(11, 10);
        return dayA != dayB ? dayA > dayB : a.lastModified() > b.lastModified();
    });
    QStringList paths;
    for (const QFileInfo& file : files)
        paths.append(file.absoluteFilePath());
    return paths;
}

QString checkFile(const QString& path)
{
    try {
        const engine::Connection connection = engine::open(path, SQLITE_OPEN_READONLY);
        const QString found = engine::value(connection.get(), "PRAGMA integrity_check(1)");
        return found == u"ok" ? QString() : found;
    } catch (const StoreError& error) {
        return error.description();
    }
}

QString copyTo(Database& database, const QString& target, std::chrono::milliseconds patience)
{
    try {
        GrowingCopy copy(database.handle(), target);
        const QDeadlineTimer deadline(patience);
        while (copy.step(-1) != GrowingCopy::All) {
            if (deadline.hasExpired())
                return heldText();
            QThread::msleep(20);
        }
        copy.finish();
        return {};
    } catch (const StoreError& error) {
        return error.description();
    }
}

bool copyBefore(Session& session, const QString& reason, std::chrono::milliseconds patience)
{
    const QString folder = backupsFolder(session.folder());
    QString failure;
    try {
        if (!QDir().mkpath(folder))
            failure = tr("the folder %1 cannot be made").arg(folder);
        else
            failure = copyTo(session.dataJW().database(), freePath(folder, copyName(session.now(), reason)),
                             patience);
    } catch (const StoreError& error) {
        failure = error.description();
    }
    if (failure.isEmpty()) {
        rotate(session.folder());
        return true;
    }
    session.msgBox(tr("Before this step the database is copied, and the copy could not be made: %1. Nothing "
                      "was changed.")
                       .arg(failure));
    return false;
}

struct DailyCopy::Impl
{
    Session& session;
    std::chrono::milliseconds patience;
    std::unique_ptr<GrowingCopy> copy;
    QString failure;
    QDeadlineTimer deadline{QDeadlineTimer::Forever}; ///< runs while somebody holds the database

    bool goOn();
};

DailyCopy::DailyCopy(Session& session, std::chrono::milliseconds patience)
    : m_impl(new Impl{session, patience, nullptr, {}})
{
    const QString folder = backupsFolder(session.folder());
    const QString target = folder + u'/' + copyName(session.now(), QStringLiteral("daily"));
    if (!session.dataJW().isConnected() || QFileInfo::exists(target))
        return;
    try {
        if (!QDir().mkpath(folder))
            throw StoreError(tr("the folder %1 cannot be made").arg(folder), SQLITE_CANTOPEN,
                             QStringLiteral("Jobwright"));
        m_impl->copy = std::make_unique<GrowingCopy>(session.dataJW().database().handle(), target);
    } catch (const StoreError& error) {
        m_impl->failure = error.description();
    }
}

DailyCopy::~DailyCopy() = default;

/// True when another step is to come.
bool DailyCopy::Impl::goOn()
{
    switch (copy->step(pagesPerStep)) {
    case GrowingCopy::More:
        deadline = QDeadlineTimer(QDeadlineTimer::Forever);
        return true;
    case GrowingCopy::Held:
        if (deadline.isForever())
            deadline = QDeadlineTimer(patience);
        if (!deadline.hasExpired())
            return true;
        session.logError(tr("Today's copy of the database was not made: %1.").arg(heldText()), 1);
        return false;
    case GrowingCopy::All:
        break;
    }
    copy->finish();
    rotate(session.folder());
    return false;
}

bool DailyCopy::step()
{
    if (!m_impl->copy)
        return false;
    try {
        if (m_impl->goOn())
            return true;
    } catch (const StoreError& error) {
        m_impl->failure = error.description();
    }
    m_impl->copy.reset();
    return false;
}

QString DailyCopy::failure() const
{
    return m_impl->failure;
}
