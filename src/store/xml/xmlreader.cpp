// What stands around the walk over a campaign file: the file's check, the copy, the action, and the report.
#include "store/engine/database.h"
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

/// What became of a walk.
struct Outcome
{
    bool saved = false; ///< it is on the disk
    QString stopped;    ///< why it did not come to its end; "" when it did
    int lost = 0;       ///< records that did not come in
    int withoutAddress = 0;
};

/// The walk in one action. Whatever stops it, what was read before stays.
Outcome walk(Session& session, const CampaignFile& file)
{
    const WideCache cache(session.dataJW().database());
    Action action(session.dataJW(), Action::NotUndoable());
    if (!raiseKeys(session.dataJW(), file))
        report(session,
               say("The keys of the contacts in the file are too high to keep new ones apart from "
                   "them. Links between contacts, and from positions to contacts, may come in wrong."));
    XmlImport import(session, file);
    Outcome outcome;
    try {
        // One message at the end instead of a box for each record. The commit's own failure is to be seen.
        const Session::QuietReports quiet(session);
        import.run();
    } catch (const ImportStopped& stop) {
        outcome.stopped = stop.reason();
        session.setStatusLine(say("Import stopped"));
    }
    outcome.lost = import.lost();
    outcome.withoutAddress = import.withoutAddress();
    outcome.saved = action.commit();
    return outcome;
}

/// What the user has to know about a walk that came to its end; "" when all is well.
QString remarks(const Outcome& outcome)
{
    const auto count = [](int number, const char* one, const char* several) {
        return number == 0 ? QString()
                           : say(number == 1 ? one : several).replace(u"%1"_s, QString::number(number));
    };
    QStringList sentences{count(outcome.lost, "One record of the file did not come in.",
                                "%1 records of the file did not come in."),
                          count(outcome.withoutAddress,
                                "One record names an address that the file does not have.",
                                "%1 records name addresses that the file does not have.")};
    sentences.removeAll(QString());
    if (!sentences.isEmpty())
        sentences.append(say("The file ErrorLog.txt says why."));
    return sentences.join(u' ');
}

void readChecked(Session& session, const QString& path, bool copyFirst)
{
    CampaignFile file;
    if (const QString refusal = prepare(session, file, path); !refusal.isEmpty()) {
        report(session, refusal);
        return;
    }
    if (copyFirst && file.isRestore() && !copyBefore(session, u"restore"_s))
        return;
    const BusyScope busy(session);
    const Outcome outcome = walk(session, file);
    if (!outcome.saved)
        session.setStatusLine(say("Import stopped"));
    else if (!outcome.stopped.isEmpty())
        report(
            session,
            say("The import stopped: %1 What was read before it is in the database.").arg(outcome.stopped));
    else if (const QString text = remarks(outcome); !text.isEmpty())
        session.msgBox(text);
}

} // namespace

void xmlimport::read(Session& session, const QString& path, bool copyFirst)
{
    // What an earlier import left must not be taken for this one's success.
    session.setStatusLine({});
    if (!session.dataJW().isConnected()) {
        report(session, say("The database is not open, so nothing can be read into it."));
        return;
    }
    try {
        readChecked(session, path, copyFirst);
    } catch (const StoreError& failure) {
        report(session, failure.description());
    } catch (const std::bad_alloc&) {
        report(session, say("There is not enough memory to read the file %1.").arg(path));
    }
}
