#include "app/openstore.h"

#include "store/appfolder.h"
#include "store/database.h"
#include "store/session.h"

#include <QDir>

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
    FileReport report = inspectStore(session.databasePath());
    // A first start, and no copies of an earlier life either: this folder is new.
    if (report.state == FileState::Missing && firstRun && !QDir(session.file(QStringLiteral("backups"))).exists())
        report = createStore(session);
    if (report.state == FileState::Good && firstRun)
        provisionFirstRun(session, version);
    return report;
}
