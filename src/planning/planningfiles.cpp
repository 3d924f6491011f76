#include "planning/planningfiles.h"

#include "base/textlines.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("PlanningFiles", text);
}

QString absolute(const Session& session, const QString& path)
{
    return QDir::cleanPath(QDir(session.folder()).absoluteFilePath(path));
}

} // namespace

namespace planningfiles {

QString named(const Session& session, const PlanningFile& kind, const QString& path)
{
    if (path.isEmpty())
        return {};
    QString name = absolute(session, path);
    if (!name.contains(kind.word, kind.wordCase)) {
        const QFileInfo file(name);
        name = file.path() + u'/' + kind.word + file.fileName();
    }
    return name.endsWith(".jwg"_L1, Qt::CaseInsensitive) ? name : name + u".jwg";
}

QString pickToOpen(Session& session, const PlanningFile& kind, const QString& before)
{
    const QString folder = before.isEmpty() ? session.folder() : QFileInfo(before).path();
    return session.prompts().openFile(kind.title, folder, {kind.filter});
}

QString pickToSave(Session& session, const PlanningFile& kind, const QString& before, QString& agreed)
{
    const QString suggested = before.isEmpty() ? session.file(kind.suggestion) : before;
    agreed = session.prompts().saveFile(kind.title, suggested, {kind.filter});
    return named(session, kind, agreed);
}

bool mayOverwrite(Session& session, const PlanningFile& kind, const QString& path, const QStringList& own)
{
    if (!QFileInfo::exists(path))
        return true;
    const QString name = QDir::toNativeSeparators(path);
    if (!kind.isOwn(textlines::read(path).lines))
        return session.msgBox(tr("The file %1 was written by another program. Do you want to replace it all "
                                 "the same?")
                                  .arg(name),
                              Buttons::YesNoDefaultNo) == Answer::Yes;
    return own.contains(path) ||
           session.msgBox(tr("The file %1 exists already. Do you want to replace it?").arg(name),
                          Buttons::YesNoDefaultNo) == Answer::Yes;
}

} // namespace planningfiles
