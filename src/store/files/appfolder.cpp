#include "store/files/appfolder.h"

#include "store/session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QSysInfo>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("AppFolder", text);
}

/// How old a lock that cannot be read must be before it counts as left behind.
constexpr int unreadableMs = 5000;

const QString programKey = QStringLiteral("Software\\Ferrow Software\\Jobwright");

/// The registered program: where it lies and how it is removed.
void writeProgramEntries(Session& session, const QString& version)
{
    using enum RegAccess::Hive;
    RegAccess& settings = session.settings();
    const QString removal =
        QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Jobwright");
    settings.SetKeyValue(CurrentUser, programKey, QStringLiteral("AppPath"), session.folder());
    // Major, ".", then minor and revision with nothing between them: the name under which it is listed.
    const QStringList parts = version.split(u'.');
    settings.SetKeyValue(CurrentUser, removal, QStringLiteral("DisplayName"),
                         QString(u"Jobwright" + parts.value(0) + u'.' + parts.value(1) + parts.value(2)));
    settings.SetKeyValue(CurrentUser, removal, QStringLiteral("UninstallString"),
                         QString(u'"' + session.folder() + u"/JWUninstall.exe\""));
    session.addLog(QStringLiteral("Jobwright Software Setup complete"));
}

/// The file types; the desktop learns them from the package's own files, this is the program's record of
/// them.
void writeFileTypes(Session& session)
{
    struct FileType
    {
        const char* key;
        const char* name;
        const char* icon;
        const char* ending;
    };
    constexpr FileType types[] = {
        {"jwhTemplate", "Jobwright Help File", "help.ico", ".jwh"},
        {"jwdDictionary", "Jobwright Dictionary File", "books05.ico", ".jwd"},
        {"jwGoals", "Jobwright Goals File", "target.bmp", ".jwg"},
    };
    RegAccess& settings = session.settings();
    for (const FileType& type : types) {
        const QString key = QString::fromLatin1(type.key);
        settings.SetKeyValue(RegAccess::Hive::ClassesRoot, key, {}, QString::fromLatin1(type.name));
        settings.SetKeyValue(RegAccess::Hive::ClassesRoot, key + u"\\DefaultIcon", {},
                             QString(session.folder() + u'/' + QString::fromLatin1(type.icon) + u",0"));
        settings.SetKeyValue(RegAccess::Hive::ClassesRoot, QString::fromLatin1(type.ending), {}, key);
    }
}

/// The data source under its name. The values say what it is on this system; the engine itself reads none of
/// them.
void writeDataSource(Session& session)
{
    using enum RegAccess::Hive;
    RegAccess& settings = session.settings();
    const QString source = QStringLiteral("SOFTWARE\\ODBC\\ODBC.INI\\Postledger");
    session.addLog(QStringLiteral("FInstall"));
    session.addLog(QStringLiteral("DSN variables Assigned"));
    settings.SetKeyValue(CurrentUser, source, QStringLiteral("DBQ"), session.databasePath());
    settings.SetKeyValue(CurrentUser, source, QStringLiteral("Driver"), QStringLiteral("SQLite"));
    settings.SetKeyValue(CurrentUser, source, QStringLiteral("UID"), QString());
    session.addLog(QStringLiteral("ODBC.INI setting created"));
    settings.CreateNewKey(CurrentUser, source + u"\\Engines");
    session.addLog(QStringLiteral("ODBC Engines setting created"));
    settings.SetKeyValue(CurrentUser, source + u"\\Engines\\Jet", QStringLiteral("UserCommitSync"),
                         QStringLiteral("Yes"));
    session.addLog(QStringLiteral("ODBC Jet setting created"));
    settings.SetKeyValue(CurrentUser, QStringLiteral("Software\\ODBC\\ODBC.INI\\ODBC Data Sources"),
                         QStringLiteral("Postledger"), QStringLiteral("SQLite (*.db)"));
    session.addLog(QStringLiteral("ODBC Data Sources Modified"));
}

/// The program's folder among the user's data. Without a home folder the system would name the root of all
/// files instead.
QString dataFolder()
{
    const bool isNamed = QDir::isAbsolutePath(qEnvironmentVariable("XDG_DATA_HOME"));
    if (!isNamed && qEnvironmentVariableIsEmpty("HOME"))
        return {};
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/jobwright";
}

} // namespace

QString applicationFolder(const QString& named)
{
    QString folder = named;
    if (folder.isEmpty())
        folder = qEnvironmentVariable("JOBWRIGHT_FOLDER");
    if (folder.isEmpty() && QFileInfo::exists(QCoreApplication::applicationDirPath() + u"/Postledger.db"))
        folder = QCoreApplication::applicationDirPath();
    if (folder.isEmpty())
        folder = dataFolder();
    if (folder.isEmpty())
        return {};
    return QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
}

QString deliveredFolder()
{
    const QString program = QCoreApplication::applicationDirPath();
    // Beside an installed program, and above the two kinds of build folder of a source tree.
    for (const char* place : {"/../share/jobwright", "/../../data", "/../../../data"}) {
        const QString candidate = program + QString::fromLatin1(place);
        if (QFileInfo::exists(candidate + u"/demo/campaign.xml"))
            return QDir::cleanPath(candidate);
    }
    return {};
}

/// The first of the folder's own files whose place something else has taken, a pipe or a device, on which a
/// program waits for ever; "" when there is none.
static QString specialFile(const QString& folder)
{
    for (const char* const name :
         {"jobwright.lock", "Postledger.db", "settings.ini", "ErrorLog.txt", "OpLog.txt", "areacodes.jwd"}) {
        const QFileInfo file(folder + u'/' + QLatin1String(name));
        if (file.exists() && !file.isFile() && !file.isDir())
            return file.filePath();
    }
    return {};
}

void layDeliveredFiles(const QString& folder)
{
    const QString delivered = deliveredFolder();
    if (delivered.isEmpty())
        return;
    const QFileInfoList files = QDir(delivered).entryInfoList(QDir::Files);
    for (const QFileInfo& file : files) {
        const QString target = folder + u'/' + file.fileName();
        if (!QFile::exists(target))
            QFile::copy(file.absoluteFilePath(), target);
    }
}

QString prepareFolder(const QString& folder)
{
    if (folder.isEmpty())
        return tr("No home folder is known (the variable HOME is not set), so there is no place for the "
                  "application folder. Please name one with --folder.");
    const QFileInfo info(folder);
    if (info.exists() && !info.isDir())
        return tr("%1 is a file, not a folder.").arg(QDir::toNativeSeparators(folder));
    if (!info.exists() && !QDir().mkpath(folder))
        return tr("The folder %1 cannot be made. Please choose another with --folder.")
            .arg(QDir::toNativeSeparators(folder));
    if (const QString special = specialFile(folder); !special.isEmpty())
        return tr("%1 is no plain file but a pipe, a socket or a device. Please move it away.")
            .arg(QDir::toNativeSeparators(special));
    return {};
}

bool holdsNothing(const QString& folder)
{
    const auto lacks = [&](const char* name) {
        return !QFileInfo::exists(folder + u'/' + QLatin1String(name));
    };
    return lacks("Postledger.db") && lacks("backups") && lacks("settings.ini");
}

InstanceLock::InstanceLock(const QString& folder)
    : m_path(folder + u"/jobwright.lock")
    , m_file(std::make_unique<QLockFile>(m_path))
{
    // A lock never grows stale by age: a campaign stays open for days. One whose process is gone is taken
    // over.
    m_file->setStaleLockTime(0);
}

InstanceLock::~InstanceLock() = default;

bool InstanceLock::acquire()
{
    if (m_file->tryLock(0))
        return true;
    qint64 process = 0;
    QString host;
    QString program;
    if (!isHeldByAnother() || m_file->getLockInfo(&process, &host, &program))
        return false;
    // Whoever takes the lock first between the two tries has made it anew, so that it is young again.
    m_file->setStaleLockTime(unreadableMs);
    const bool taken = m_file->tryLock(0);
    m_file->setStaleLockTime(0);
    return taken;
}

void InstanceLock::release()
{
    m_file->unlock();
}

bool InstanceLock::isHeldByAnother() const
{
    return m_file->error() == QLockFile::LockFailedError;
}

QString InstanceLock::holder() const
{
    if (!isHeldByAnother())
        return tr(
            "The folder cannot be written: either the disk is full, or you lack the right to write there.");
    const QString file = QDir::toNativeSeparators(m_path);
    qint64 process = 0;
    QString host;
    QString program;
    if (!m_file->getLockInfo(&process, &host, &program))
        return tr("The lock of this folder, %1, does not say who holds it. Please try again in some seconds. "
                  "If it stays so and no Jobwright is open on this folder, remove that file.")
            .arg(file);
    if (!host.isEmpty() && host != QSysInfo::machineHostName())
        return tr("Jobwright is open on this folder on another computer, %1 (process %2). Please close it "
                  "there. If it does not run there any more, remove the file %3 and start again.")
            .arg(host, QString::number(process), file);
    return tr("Jobwright is open already on this folder (process %1 on %2).")
        .arg(QString::number(process), host);
}

bool isFirstRun(Session& session)
{
    return session.settings()
        .QueryValueS(RegAccess::Hive::CurrentUser, programKey, QStringLiteral("Version"))
        .isEmpty();
}

void provisionFirstRun(Session& session, const QString& version)
{
    writeProgramEntries(session, version);
    writeFileTypes(session);
    writeDataSource(session);
    QDir().mkpath(session.file(QStringLiteral("exchange")));
    // Last, so that a first start that dies on the way is a first start again.
    session.settings().SetKeyValue(RegAccess::Hive::CurrentUser, programKey, QStringLiteral("Version"),
                                   version);
    session.settings().file().sync();
}
