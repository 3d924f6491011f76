#include "store/files/copies.h"

#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/files/growingcopy.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QThread>

#include <sqlite3.h>

#include <algorithm>
#include <functional>

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

QString heldText()
{
    return tr("another program holds the database; please let it finish, or close it, and try again");
}

/// Reads what a copy holds; one that cannot be read keeps the numbers of an unreadable one.
void readContent(CopyInfo& copy)
{
    try {
        const engine::Connection connection = engine::open(copy.path, SQLITE_OPEN_READONLY);
        const engine::Statement query = engine::prepare(
            connection.get(),
            "SELECT (SELECT ifnull(sum(seq), 0) FROM sqlite_sequence), (SELECT count(*) FROM Company WHERE "
            "substr(ifnull(Name, ''), 1, 1) <> '~'), (SELECT count(*) FROM Position), (SELECT count(*) FROM "
            "Contact)");
        if (sqlite3_step(query.get()) != SQLITE_ROW)
            return;
        copy.content = sqlite3_column_int64(query.get(), 0);
        copy.companies = sqlite3_column_int(query.get(), 1);
        copy.positions = sqlite3_column_int(query.get(), 2);
        copy.contacts = sqlite3_column_int(query.get(), 3);
    } catch (const StoreError&) {
        copy.content = -1;
    }
}

CopyInfo describe(const QFileInfo& file)
{
    const QString name = file.completeBaseName(); // "Postledger-2026-11-22-143005-restore"
    CopyInfo copy;
    copy.path = file.absoluteFilePath();
    copy.kind = name.section(u'-', -1);
    copy.day = QDate::fromString(name.mid(11, 10), Qt::ISODate);
    copy.time = QTime::fromString(name.mid(22, 6), QStringLiteral("HHmmss"));
    copy.bytes = file.size();
    readContent(copy);
    return copy;
}

void rotate(const QString& folder)
{
    // By what they hold and by their days: where a database was put back by hand, or the clock was wrong, the
    // two differ, and none of either order's newest goes.
    std::vector<CopyInfo> copies = copiesIn(folder);
    QHash<QString, int> byContent;
    QHash<QString, int> byDay;
    const auto isOld = [](QHash<QString, int>& seen, const QString& kind) {
        return ++seen[kind] > (kind == u"daily" ? keptDaily : keptOthers);
    };
    QSet<QString> old;
    for (const CopyInfo& copy : copies) {
        if (isOld(byContent, copy.kind))
            old.insert(copy.path);
    }
    std::ranges::stable_sort(copies, std::greater(), &CopyInfo::day);
    for (const CopyInfo& copy : copies) {
        if (isOld(byDay, copy.kind) && old.contains(copy.path))
            QFile::remove(copy.path);
    }
}

} // namespace

QString copyPath(const QString& folder, const QDateTime& now, const QString& kind)
{
    return freePath(backupsFolder(folder), copyName(now, kind));
}

std::vector<CopyInfo> copiesIn(const QString& folder)
{
    const QDir backups(backupsFolder(folder));
    QFileInfoList files =
        backups.entryInfoList({QStringLiteral("Postledger-*.db")}, QDir::Files, QDir::Time | QDir::Reversed);
    std::vector<CopyInfo> copies;
    for (auto file = files.crbegin(); file != files.crend(); ++file)
        copies.push_back(describe(*file));
    // The day in the name decides only between copies of one content: the clock may have been wrong for a
    // day.
    std::ranges::stable_sort(copies, std::greater(),
                             [](const CopyInfo& copy) { return std::pair(copy.content, copy.day); });
    return copies;
}

QStringList listCopies(const QString& folder)
{
    QStringList paths;
    for (const CopyInfo& copy : copiesIn(folder))
        paths.append(copy.path);
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
        growingcopy::removeLeftovers(folder);
        if (!QDir().mkpath(folder))
            failure = tr("the folder %1 cannot be made").arg(folder);
        else
            failure = copyTo(session.dataJW().database(), copyPath(session.folder(), session.now(), reason),
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
    growingcopy::removeLeftovers(folder);
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
