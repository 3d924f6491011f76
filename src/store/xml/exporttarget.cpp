#include "store/xml/exporttarget.h"

#include "store/session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

bool isInFolder(const Session& session, const QString& real)
{
    return QFileInfo(real).absolutePath() == QFileInfo(session.folder()).canonicalFilePath();
}

/// True for the databases of this and of other campaigns with what the engine keeps beside them, for this
/// one's copies, logs and settings.
bool isOwnFile(const Session& session, const QString& real)
{
    const QString name = QFileInfo(real).fileName();
    const QString database = QFileInfo(session.databasePath()).canonicalFilePath();
    for (const QStringView ending : {u"", u"-journal", u"-wal", u"-shm"}) {
        if (name.compare(QString(u"Postledger.db" + ending), Qt::CaseInsensitive) == 0 ||
            (!database.isEmpty() && real == QString(database + ending)))
            return true;
    }
    const QString copies = QFileInfo(session.file(u"backups"_s)).canonicalFilePath();
    if (!copies.isEmpty() && real.startsWith(QString(copies + u'/')))
        return true;
    static const QStringList own{u"ErrorLog.txt"_s, u"OpLog.txt"_s, u"settings.ini"_s, u"jobwright.lock"_s};
    return own.contains(name, Qt::CaseInsensitive) && isInFolder(session, real);
}

/// True for the files that are the program's to write: a restore file that the user has agreed to replace is
/// replaced, also when a crash has made rubbish of it.
bool isToBeReplaced(const Session& session, const QString& real)
{
    const QString name = QFileInfo(real).fileName();
    return (name == u"restore.xml" || name == u"backup.xml") && isInFolder(session, real);
}

/// False for a file with anything in it that does not begin as XML does.
bool mayBeXml(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray start = file.read(4096);
    if (start.startsWith("\xEF\xBB\xBF"))
        start.remove(0, 3);
    return start.isEmpty() || start.trimmed().startsWith('<');
}

} // namespace

QString exporttarget::realPath(const QString& path)
{
    const QFileInfo target(path);
    if (target.exists())
        return target.canonicalFilePath();
    if (target.isSymLink())
        return {};
    const QString folder = QFileInfo(target.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? path : QDir(folder).filePath(target.fileName());
}

QString exporttarget::refusal(const Session& session, const QString& real)
{
    if (real.isEmpty())
        return QCoreApplication::translate("XmlExport", "it is a link that leads nowhere");
    const QFileInfo target(real);
    if (target.exists() && !target.isFile())
        return QCoreApplication::translate("XmlExport", "it is no plain file");
    if (isOwnFile(session, real))
        return QCoreApplication::translate("XmlExport", "it is one of the program's own files");
    if (target.exists() && !isToBeReplaced(session, real) && !mayBeXml(real))
        return QCoreApplication::translate(
            "XmlExport",
            "it exists already and is no XML file, so it is left as it is; please choose another "
            "name");
    return {};
}
