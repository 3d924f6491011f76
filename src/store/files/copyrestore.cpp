#include "store/files/copyrestore.h"

#include "store/engine/database.h"
#include "store/files/growingcopy.h"
#include "store/files/storecheck.h"
#include "store/files/storefile.h"
#include "store/files/storemigrate.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QThread>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("Copies", text);
}

StoreError refusal(const QString& text)
{
    return {text, SQLITE_ERROR, u"Jobwright"_s};
}

/// The copy's copy that goes into the database's place; removed again when it has not.
class Replacement
{
public:
    Replacement(const QString& backups, const QString& copy)
        : m_path(growingcopy::unfinishedName(backups + u"/Postledger-restoring"))
    {
        if (!QDir().mkpath(backups) || !QFile::copy(copy, m_path) ||
            !QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner))
            throw refusal(say("The copy %1 could not be read, or there is no room for it.")
                              .arg(QDir::toNativeSeparators(copy)));
    }
    /// Throws StoreError for a copy that is no sound database of the program; @p copy is its name.
    void check(const QString& copy) const
    {
        FileReport report = inspectStore(m_path);
        if (report.state == FileState::Older) {
            bringUpToDate(m_path);
            report = inspectStore(m_path);
        }
        const QString found = report.state == FileState::Good ? checkFile(m_path) : report.detail;
        if (!found.isEmpty())
            throw refusal(say("The copy %1 cannot be used: %2").arg(QDir::toNativeSeparators(copy), found));
    }
    ~Replacement() { QFile::remove(m_path); }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    [[nodiscard]] const QString& path() const { return m_path; }

    /// Keeps keys of the present database from being given out a second time.
    void passKeysOf(Database& present) const
    {
        Database own(m_path);
        for (const schema::Table& table : schema::tables()) {
            const qint64 key = highestKey(present, table.name);
            if (key > highestKey(own, table.name))
                setHighestKey(own, table.name, key);
        }
    }

private:
    QString m_path;
};

/// Writes the file over an open database in one transaction of the engine.
void writeOver(Database& present, const QString& path, std::chrono::milliseconds patience)
{
    const engine::Connection source = engine::open(path, SQLITE_OPEN_READONLY);
    sqlite3_backup* const backup = sqlite3_backup_init(present.handle(), "main", source.get(), "main");
    if (!backup)
        throw engine::failure(present.handle());
    const QDeadlineTimer deadline(patience);
    int code = sqlite3_backup_step(backup, -1);
    for (; (code == SQLITE_BUSY || code == SQLITE_LOCKED) && !deadline.hasExpired();
         code = sqlite3_backup_step(backup, -1))
        QThread::msleep(20);
    const int end = sqlite3_backup_finish(backup);
    if (code != SQLITE_DONE)
        throw StoreError(QString::fromUtf8(sqlite3_errstr(code)), code, u"SQLite"_s);
    if (end != SQLITE_OK)
        throw engine::failure(present.handle());
}

/// Moves a database with what the engine keeps beside it; false when a part of it stays.
bool moveDatabase(const QString& from, const QString& to)
{
    bool moved = true;
    for (const QStringView ending : {u"-journal", u"-wal", u"-shm", u""})
        moved = (!QFile::exists(from + ending) || QFile::rename(from + ending, to + ending)) && moved;
    return moved;
}

/// Moves a database that cannot be opened out of the way, and gives the file its name.
void putInPlaceOf(const QString& database, const QString& aside, const QString& path)
{
    try {
        if (!moveDatabase(database, aside))
            throw refusal(say("The file %1 cannot be moved.").arg(QDir::toNativeSeparators(database)));
        growingcopy::putInPlace(path, database);
    } catch (const StoreError&) {
        moveDatabase(aside, database);
        throw;
    }
}

/// False when the present state could not be copied; the user has been told.
bool restore(Session& session, const QString& path, std::chrono::milliseconds patience)
{
    const QString backups = session.file(u"backups"_s);
    const QString database = session.databasePath();
    const FileReport present = inspectStore(database);
    const Replacement replacement(backups, path);
    replacement.check(path);
    switch (present.state) {
    case FileState::Good:
    case FileState::Older: // the gateway brings it up to date as it opens it
        // After the replacement was made: this may remove the oldest copy.
        if (!copyBefore(session, u"restore"_s, patience))
            return false;
        replacement.passKeysOf(session.dataJW().database());
        writeOver(session.dataJW().database(), replacement.path(), patience);
        break;
    case FileState::Damaged:
    case FileState::Missing:
        session.releaseDataJW();
        putInPlaceOf(database,
                     backups + session.now().toString(u"'/damaged-'yyyy-MM-dd-HHmmss'-Postledger.db'"_s),
                     replacement.path());
        break;
    default:
        throw refusal(present.message);
    }
    session.addLog(u"Database replaced by the copy "_s + QFileInfo(path).fileName());
    return true;
}

QString dayText(const CopyInfo& copy)
{
    const QString day = QLocale().toString(copy.day, QLocale::ShortFormat);
    return copy.time.isValid() ? day + u' ' + QLocale().toString(copy.time, QLocale::ShortFormat) : day;
}

QString kindText(const QString& kind)
{
    if (kind == u"daily")
        return say("of the day");
    return kind == u"restore" ? say("before a restore") : say("before: %1").arg(kind);
}

} // namespace

bool restoreCopy(Session& session, const QString& path, std::chrono::milliseconds patience)
{
    try {
        return restore(session, path, patience);
    } catch (const StoreError& failure) {
        session.msgBox(
            say("The copy was not restored, and the database is as it was: %1").arg(failure.description()));
        return false;
    }
}

QString copyLine(const CopyInfo& copy)
{
    return say("%1, %2: %3 companies, %4 positions, %5 contacts, %6")
        .arg(dayText(copy), kindText(copy.kind), QString::number(copy.companies),
             QString::number(copy.positions), QString::number(copy.contacts),
             QLocale().formattedDataSize(copy.bytes));
}

QString restoreNotes(const QString& folder, const QString& path)
{
    const QDateTime written = QFileInfo(path).lastModified();
    QString text =
        say("The file was written on %1. It does not bring back the ratings of contacts, which "
            "documents each of them was given, which positions the questionnaires belong to, and the "
            "settings.")
            .arg(QLocale().toString(written, QLocale::ShortFormat));
    const std::vector<CopyInfo> copies = copiesIn(folder);
    if (!copies.empty() && copies.front().content >= 0)
        text += u"\n\n" + say("A copy of the database brings back all of it. The newest is of %1.")
                              .arg(copyLine(copies.front()));
    return text;
}
