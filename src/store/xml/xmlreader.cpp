// What stands around the walk over a campaign file: the file's check, the copy, the action, and the report.
#include "store/engine/enginecall.h"
#include "store/files/copies.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "store/xml/keyroom.h"
#include "store/xml/xmlimporter.h"

#include <QCoreApplication>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("XmlImport", text);
}

/// Logs and shows why nothing, or not all, was read.
void report(Session& session, const QString& reason)
{
    session.logError(u"DataJW-ImportXML: "_s + reason, 1);
    session.msgBox(reason);
}

/// "" when the walk may begin.
QString prepare(Session& session, CampaignFile& file, const QString& path)
{
    const QString refusal = file.load(path);
    return refusal.isEmpty() ? checkKeys(session.dataJW(), file) : refusal;
}

/// A walk writes all over the indexes of a store that grows under it; with the everyday cache the engine
/// would write and read the same pages again and again.
class WideCache
{
public:
    explicit WideCache(Database& database)
        : m_connection(database.handle())
        , m_before(engine::value(m_connection, "PRAGMA cache_size").toUtf8())
    {
        engine::execute(m_connection, "PRAGMA cache_size=-98304"); // 96 MB, taken only as far as it is filled
    }
    ~WideCache()
    {
        sqlite3_exec(m_connection, QByteArray("PRAGMA cache_size=" + m_before).constData(), nullptr, nullptr,
                     nullptr);
    }
    WideCache(const WideCache&) = delete;
    WideCache& operator=(const WideCache&) = delete;

private:
    sqlite3* m_connection;
    QByteArray m_before;
};

/// The walk in one action. Whatever stops it, what was read before stays. True when all of it was reached and
/// is on the disk; @p lost are the records that did not come in.
bool walk(Session& session, const CampaignFile& file, int& lost, QString& stopped)
{
    const WideCache cache(session.dataJW().database());
    Action action(session.dataJW());
    XmlImport import(session, file);
    try {
        // One message at the end instead of a box for each record. The commit's own failure is to be seen.
        const Session::QuietReports quiet(session);
        import.run();
    } catch (const ImportStopped& stop) {
        stopped = stop.reason();
        session.setStatusLine(say("Import stopped"));
    }
    lost = import.lost();
    return action.commit();
}

void readChecked(Session& session, const QString& path)
{
    CampaignFile file;
    if (const QString refusal = prepare(session, file, path); !refusal.isEmpty()) {
        report(session, refusal);
        return;
    }
    if (file.isRestore() && !copyBefore(session, u"restore"_s))
        return;
    const BusyScope busy(session);
    int lost = 0;
    QString stopped;
    if (!walk(session, file, lost, stopped))
        session.setStatusLine(say("Import stopped"));
    else if (!stopped.isEmpty())
        report(session,
               say("The import stopped: %1 What was read before it is in the database.").arg(stopped));
    else if (lost > 0)
        session.msgBox(say(lost == 1
                               ? "One record of the file did not come in. The file ErrorLog.txt says why."
                               : "%1 records of the file did not come in. The file ErrorLog.txt says why.")
                           .replace(u"%1"_s, QString::number(lost)));
}

} // namespace

void xmlimport::read(Session& session, const QString& path)
{
    // What an earlier import left must not be taken for this one's success.
    session.setStatusLine({});
    if (!session.dataJW().isConnected()) {
        report(session, say("The database is not open, so nothing can be read into it."));
        return;
    }
    try {
        readChecked(session, path);
    } catch (const StoreError& failure) {
        report(session, failure.description());
    } catch (const std::bad_alloc&) {
        report(session, say("There is not enough memory to read the file %1.").arg(path));
    }
}
