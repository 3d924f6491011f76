// Any bytes as a campaign file, merged into a store: refused or read, never a crash. What the quick look
// takes for XML a full reader takes too.
#include "base/silentports.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "store/xml/plainxml.h"

#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <sqlite3.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// Takes every message; none is of interest here.
class Mute : public SilentPrompts, public SilentDesktop
{
};

/// A store that is emptied behind each round: what one input leaves must not shape what the next one meets.
class EmptyStore
{
public:
    EmptyStore()
    {
        Database::create(m_folder.path() + u"/Postledger.db");
        m_session = std::make_unique<Session>(
            m_folder.path(), [] { return QDateTime(QDate(2026, 11, 22), QTime(9, 30)); }, m_mute, m_mute);
        // Nothing here is to survive; waiting for the disk would make the rounds few.
        execute("PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY");
    }
    void import(const QByteArray& bytes)
    {
        QFile file(m_session->file(u"given.xml"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            return;
        file.close();
        m_session->dataJW().importXML(file.fileName());
        execute("BEGIN; DELETE FROM Address; DELETE FROM Company; DELETE FROM Contact; DELETE FROM History; "
                "DELETE FROM Position; DELETE FROM Document; DELETE FROM sqlite_sequence; COMMIT");
        QFile::remove(m_session->file(u"ErrorLog.txt"_s));
    }

private:
    void execute(const char* sql)
    {
        sqlite3_exec(m_session->dataJW().database().handle(), sql, nullptr, nullptr, nullptr);
    }

    QTemporaryDir m_folder;
    Mute m_mute;
    std::unique_ptr<Session> m_session;
};

void compareLooks(const QByteArray& bytes)
{
    if (bytes.contains('\0') || !QByteArrayView(bytes).isValidUtf8() || !isPlainXml(bytes, 0))
        return;
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static EmptyStore store;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    compareLooks(bytes);
    // A restore would copy the store in each round; the walk over the file is the same.
    bytes.replace("Restore", "Rest0re");
    store.import(bytes);
    return 0;
}
