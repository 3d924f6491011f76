#include "program/openstore.h"

#include "store/engine/database.h"
#include "store/files/appfolder.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

FileReport createStore(Session& session)
{
    try {
        Database::create(session.databasePath());
    } catch (const StoreError& error) {
        return {FileState::ReadOnly, error.description(), error.description()};
    }
    return inspectStore(session.databasePath());
}

FileReport openOrCreateStore(Session& session, const QString& version)
{
    const bool firstRun = isFirstRun(session);
    if (!QFileInfo::exists(session.databasePath())) {
        // A first start, and no copies of an earlier life either: this folder is new.
        const bool isNew = firstRun && !QDir(session.file(QStringLiteral("backups"))).exists();
        FileReport report = isNew ? createStore(session) : inspectStore(session.databasePath());
        if (report.state != FileState::Good)
            return report;
    }
    const FileState state = firstRun ? inspectStore(session.databasePath()).state : FileState::Missing;
    if (state == FileState::Good || state == FileState::Older)
        provisionFirstRun(session, version);
    layDeliveredFiles(session.folder());
    return {};
}

bool readyStore(Session& session, const QString& version)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("OpenStore", text); };
    const FileReport report = openOrCreateStore(session, version);
    if (report.state != FileState::Missing)
        return true; // good, or the gateway says what is wrong and the workbench comes up empty
    const Answer answer = session.msgBox(
        QString(report.message + u"\n\n" + tr("Would you like to start with a new, empty database?")),
        Buttons::YesNoDefaultNo, tr("Database not found"));
    if (answer != Answer::Yes)
        return false;
    const FileReport made = createStore(session);
    if (made.state != FileState::Good)
        session.msgBox(made.message);
    return made.state == FileState::Good;
}
