// A new, empty store: all tables, and the settings that the program is delivered with.
#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/engine/storeformat.h"

#include <QDate>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <array>

namespace {

struct DeliveredRow
{
    const char* name;
    const char* value;
};

/// No code supplies a default when a row is missing, so the store comes with sensible ones. Names that stand
/// for a choice of the user's own (viewers, the alarm's sound, the name in the About box) come empty.
constexpr std::array deliveredRows{
    DeliveredRow{"TimeDelta", "10"},          DeliveredRow{"DateDelta", "7"},
    DeliveredRow{"TimeFreq", "weeks"},        DeliveredRow{"Autosave", "0"},
    DeliveredRow{"ScreenGraphics", "0"},      DeliveredRow{"ExecutionLog", "0"},
    DeliveredRow{"ActionWordTest", "1"},      DeliveredRow{"CriticalityWordTest", "1"},
    DeliveredRow{"QuantificationTest", "1"},  DeliveredRow{"OccupationTest", "1"},
    DeliveredRow{"PositionCorrelation", "1"}, DeliveredRow{"PositionThreshold", "0.05"},
    DeliveredRow{"DetailStats", "0"},         DeliveredRow{"WriteEvents2Outlook", "0"},
    DeliveredRow{"ShowComplete", "1"},        DeliveredRow{"OutlookIncoming", "Inbox"},
    DeliveredRow{"MailImportInterval", "7"},  DeliveredRow{"AlarmFile", ""},
    DeliveredRow{"Multimedia", "No"},         DeliveredRow{"PDFViewer", ""},
    DeliveredRow{"TextViewer", ""},           DeliveredRow{"WordViewer", ""},
    DeliveredRow{"DocumentDirectory", ""},    DeliveredRow{"ExportFile", "Export.xml"},
    DeliveredRow{"CategoryCount", "0"},       DeliveredRow{"UserName", ""},
};

void fill(sqlite3* connection)
{
    engine::execute(connection, "PRAGMA page_size=4096");
    engine::execute(connection, "PRAGMA application_id=" + QByteArray::number(schema::applicationId));
    engine::execute(connection, "PRAGMA user_version=" + QByteArray::number(schema::format));
    engine::execute(connection, "BEGIN");
    for (const QString& statement : schema::createStatements())
        engine::execute(connection, statement.toUtf8());
    for (const char* const table : schema::listTables)
        engine::execute(connection, QByteArray("INSERT INTO sqlite_sequence(name, seq) VALUES('") + table +
                                        "', " + QByteArray::number(schema::firstListKey - 1) + ')');
    const engine::Statement insert = engine::prepare(
        connection,
        "INSERT INTO \"Status\"(\"StatusDescription\",\"StatusDate\",\"StatusValue\") VALUES(?1,?2,?3)");
    // The rows' day has no meaning yet: it is the day on which a setting was last written.
    const char* const day = "1999-12-31";
    for (const DeliveredRow& row : deliveredRows) {
        sqlite3_bind_text(insert.get(), 1, row.name, -1, SQLITE_STATIC);
        sqlite3_bind_text(insert.get(), 2, day, -1, SQLITE_STATIC);
        sqlite3_bind_text(insert.get(), 3, row.value, -1, SQLITE_STATIC);
        if (sqlite3_step(insert.get()) != SQLITE_DONE)
            throw engine::failure(connection);
        sqlite3_reset(insert.get());
    }
    engine::execute(connection, "COMMIT");
}

} // namespace

void Database::create(const QString& path)
{
    if (QFileInfo::exists(path))
        throw StoreError(QStringLiteral("%1 exists already").arg(path), SQLITE_CANTOPEN,
                         QStringLiteral("Jobwright"));
    // Under its own name only when it is whole: a start that dies here leaves no half-made database behind.
    const QString unfinished = path + u".new";
    QFile::remove(unfinished);
    {
        const engine::Connection connection =
            engine::open(unfinished, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        fill(connection.get());
    }
    if (!QFile::rename(unfinished, path))
        throw StoreError(QStringLiteral("%1 cannot be written").arg(path), SQLITE_CANTOPEN,
                         QStringLiteral("Jobwright"));
}
