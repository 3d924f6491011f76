#include "store/files/storefile.h"

#include "store/engine/enginecall.h"
#include "store/engine/storeformat.h"
#include "store/files/copies.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <sqlite3.h>

namespace {

// Places in the file's header, from the engine's description of its file format
// (sqlite.org/fileformat2.html).
constexpr int headerSize = 100;
constexpr int userVersionAt = 60;
constexpr int applicationIdAt = 68;
/// Files up to this size are checked in whole at each start; it takes some ten milliseconds.
constexpr qint64 wholeCheckBytes = 8LL * 1024 * 1024;

QString tr(const char* text)
{
    return QCoreApplication::translate("StoreFile", text);
}

QString newestCopyAdvice(const QString& path)
{
    const QStringList copies = listCopies(QFileInfo(path).absolutePath());
    if (copies.isEmpty())
        return tr("There is no copy of it in the folder \"backups\" yet.");
    return tr("What you can do: end Jobwright, move the file to another place, and put the newest copy in "
              "its place, "
              "under the name Postledger.db. The newest copy is\n%1")
        .arg(QDir::toNativeSeparators(copies.first()));
}

FileReport report(FileState state, const QString& path, const QString& detail)
{
    const QString file = QDir::toNativeSeparators(path);
    QString message;
    switch (state) {
    case FileState::Good:
        break;
    case FileState::Missing:
        message = tr("The database %1 does not exist.").arg(file) + u' ' + newestCopyAdvice(path);
        break;
    case FileState::Damaged:
        message = tr("The database %1 is damaged (%2). Nothing in it was changed.").arg(file, detail) +
                  u'\n' + newestCopyAdvice(path);
        break;
    case FileState::Older:
        message =
            tr("The database %1 was written by an earlier version of Jobwright (%2) and will be brought up "
               "to date when it is opened.")
                .arg(file, detail);
        break;
    case FileState::Newer:
        message =
            tr("The database %1 was written by a later version of Jobwright (%2). Nothing in it was changed. "
               "Please use that version, or a newer one, to open it.")
                .arg(file, detail);
        break;
    case FileState::Foreign:
        message = tr("The file %1 is not a database of Jobwright (%2). Nothing in it was changed. Please "
                     "move it away, "
                     "or start Jobwright with another folder (--folder).")
                      .arg(file, detail);
        break;
    case FileState::Locked:
        message = tr("Another program holds the database %1 (%2). Nothing in it was changed. Please let that "
                     "program finish, or close it, and try again.")
                      .arg(file, detail);
        break;
    case FileState::ReadOnly:
        message =
            tr("The database %1 may not be written (%2). Nothing in it was changed. Please give yourself the "
               "right to write the file and its folder, or copy both to another place.")
                .arg(file, detail);
        break;
    }
    return {state, detail, message};
}

bool isWriteProtected(const QFileInfo& info)
{
    // The permission bits are asked as well as the system: an administrator may write anything, but a file
    // that nobody is meant to write stays unwritten.
    return !info.isWritable() ||
           !(info.permissions() & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther));
}

FileReport inspectHeader(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return report(FileState::ReadOnly, path, file.errorString());
    const QByteArray header = file.read(headerSize);
    if (header.isEmpty())
        return report(FileState::Damaged, path, tr("it is empty"));
    if (!header.startsWith(QByteArrayView("SQLite format 3\0", 16)))
        return report(FileState::Foreign, path, tr("it is no database file at all"));
    if (header.size() < headerSize)
        return report(FileState::Damaged, path, tr("its end is missing"));
    if (qFromBigEndian<qint32>(header.constData() + applicationIdAt) != schema::applicationId)
        return report(FileState::Foreign, path, tr("it belongs to another program"));
    const auto version = qFromBigEndian<qint32>(header.constData() + userVersionAt);
    if (version < 1)
        return report(FileState::Damaged, path, tr("format %1 never existed").arg(version));
    if (version > schema::format)
        return report(FileState::Newer, path,
                      tr("format %1, this version knows %2").arg(version).arg(schema::format));
    if (version < schema::format)
        return report(FileState::Older, path, tr("format %1").arg(version));
    return {};
}

/// What stands in the place of a table when it is none: "view" or "virtual table".
QString standInFor(sqlite3* connection, const QString& table)
{
    const QString sql = u"SELECT CASE type WHEN 'view' THEN type ELSE 'virtual table' END FROM sqlite_schema "
                        u"WHERE name = '" +
                        table + u"' COLLATE NOCASE AND type IN ('table', 'view') AND rootpage = 0";
    return engine::value(connection, sql.toUtf8());
}

FileReport inspectContent(const QString& path)
{
    try {
        const engine::Connection connection = engine::open(path, SQLITE_OPEN_READWRITE);
        sqlite3_busy_timeout(connection.get(), engine::busyTimeoutMs);
        for (const schema::Table& table : schema::tables()) {
            // What is no table can show other rows than were ever stored, and takes none.
            const QString kind = standInFor(connection.get(), table.name);
            if (!kind.isEmpty())
                return report(FileState::Damaged, path, tr("%1 is a %2 and no table").arg(table.name, kind));
            // Asks for every column by name, so that a missing one is found here and not in the middle of a
            // save.
            QStringList columns;
            for (const schema::Column& column : table.columns)
                columns.append(u'"' + column.name + u'"');
            engine::value(
                connection.get(),
                QString(u"SELECT " + columns.join(u',') + u" FROM \"" + table.name + u"\" LIMIT 1").toUtf8());
        }
        if (QFileInfo(path).size() <= wholeCheckBytes) {
            const QString found = engine::value(connection.get(), "PRAGMA quick_check(1)");
            if (found != u"ok")
                return report(FileState::Damaged, path, found);
        }
    } catch (const StoreError& error) {
        const int code = error.number() & 0xff;
        FileState state = FileState::Damaged;
        if (code == SQLITE_BUSY || code == SQLITE_LOCKED)
            state = FileState::Locked;
        else if (code == SQLITE_READONLY || code == SQLITE_CANTOPEN)
            state = FileState::ReadOnly;
        return report(state, path, error.description());
    }
    return {};
}

} // namespace

FileReport inspectStore(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return report(FileState::Missing, path, {});
    if (!info.isFile())
        return report(FileState::Foreign, path, tr("it is no file"));
    const FileReport header = inspectHeader(path);
    if (header.state != FileState::Good && header.state != FileState::Older)
        return header;
    if (isWriteProtected(info))
        return report(FileState::ReadOnly, path, tr("the file is write-protected"));
    if (isWriteProtected(QFileInfo(info.absolutePath())))
        return report(FileState::ReadOnly, path, tr("its folder is write-protected"));
    const FileReport content = inspectContent(path);
    return content.state == FileState::Good ? header : content;
}
