#include "store/files/growingcopy.h"

#include "store/files/copies.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

/// "4711.part", the ending of this process's unfinished copies.
QString ownEnding()
{
    return QStringLiteral(".%1.part").arg(QCoreApplication::applicationPid());
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

} // namespace

QString growingcopy::unfinishedName(const QString& target)
{
    QString name = target + ownEnding();
    for (int i = 2; QFileInfo::exists(name); ++i)
        name = target + u'.' + QString::number(i) + ownEnding();
    return name;
}

void growingcopy::removeLeftovers(const QString& backups)
{
    // The folder is held by this process, so unfinished copies of others are of the dead.
    for (const QFileInfo& file :
         QDir(backups).entryInfoList({QStringLiteral("Postledger-*.part*")}, QDir::Files)) {
        if (!file.fileName().contains(ownEnding()))
            QFile::remove(file.absoluteFilePath());
    }
}

void growingcopy::putInPlace(const QString& from, const QString& to)
{
    // rename(2) replaces in one step, which QFile::rename does not.
    if (!flushToDisk(from) ||
        std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw StoreError(QCoreApplication::translate("Copies", "%1 cannot be written").arg(to), SQLITE_IOERR,
                         QStringLiteral("Jobwright"));
}

GrowingCopy::GrowingCopy(sqlite3* source, const QString& target)
    : m_source(source)
    , m_target(target)
    , m_unfinished(growingcopy::unfinishedName(target))
    , m_connection(engine::open(m_unfinished, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE))
{
    // A copy that fails is thrown away, so nothing need be taken back in it.
    engine::execute(m_connection.get(), "PRAGMA journal_mode=OFF");
    m_backup = sqlite3_backup_init(m_connection.get(), "main", source, "main");
    if (!m_backup)
        throw engine::failure(m_connection.get());
}

GrowingCopy::~GrowingCopy()
{
    if (m_backup)
        sqlite3_backup_finish(m_backup);
    m_connection.reset();
    QFile::remove(m_unfinished); // gone already when it was finished
}

GrowingCopy::Progress GrowingCopy::step(int pages)
{
    sqlite3_busy_timeout(m_source, 0); // how long to wait is the caller's to say
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

void GrowingCopy::finish()
{
    sqlite3_backup_finish(std::exchange(m_backup, nullptr));
    m_connection.reset();
    const QString found = checkFile(m_unfinished);
    if (!found.isEmpty())
        throw StoreError(found, SQLITE_CORRUPT, QStringLiteral("Jobwright"));
    growingcopy::putInPlace(m_unfinished, m_target);
}
