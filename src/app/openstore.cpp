#include "app/openstore.h"

#include "store/engine/database.h"
#include "store/files/appfolder.h"
#include "store/session.h"

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
    if (firstRun && inspectStore(session.databasePath()).state == FileState::Good)
        provisionFirstRun(session, version);
    layDeliveredFiles(session.folder());
    return {};
}
