#ifdef JOBWRIGHT_HAS_SESSION
#define SQLITE_ENABLE_SESSION
#define SQLITE_ENABLE_PREUPDATE_HOOK
#endif
#include "store/engine/changeset.h"

#include "store/engine/enginecall.h"

#include <QCoreApplication>

#include <sqlite3.h>

namespace engine {

bool recordsAllTables(sqlite3* connection)
{
    return value(connection, "select count(*) from sqlite_schema as s where s.type = 'table' and s.name not "
                             "like 'sqlite_%' and not exists "
                             "(select 1 from pragma_table_info(s.name) where pk > 0)") == u"0";
}

#ifdef JOBWRIGHT_HAS_SESSION

namespace {

/// A buffer that the engine has allocated.
class Buffer
{
public:
    Buffer() = default;
    ~Buffer() { sqlite3_free(data); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    [[nodiscard]] QByteArray bytes() const { return {static_cast<const char*>(data), size}; }

    void* data = nullptr;
    int size = 0;
};

void check(int code)
{
    if (code != SQLITE_OK)
        throw StoreError(QString::fromUtf8(sqlite3_errstr(code)), code, QStringLiteral("SQLite"));
}

/// The engine takes its input as writable and does not write it.
void* input(const QByteArray& changes)
{
    return const_cast<char*>(changes.constData());
}

struct Conflicts
{
    int met = 0; ///< the kind of the first one; 0 for none
};

int giveUp(void* context, int kind, sqlite3_changeset_iter*)
{
    static_cast<Conflicts*>(context)->met = kind;
    return SQLITE_CHANGESET_ABORT;
}

/// A value of the row at hand as a text; "" for NULL and for what the change does not hold.
QString valueText(sqlite3_changeset_iter* place, int operation, int column)
{
    sqlite3_value* value = nullptr;
    if (operation != SQLITE_INSERT)
        sqlite3changeset_old(place, column, &value);
    if (operation == SQLITE_INSERT)
        sqlite3changeset_new(place, column, &value);
    const auto* text = value ? reinterpret_cast<const char*>(sqlite3_value_text(value)) : nullptr;
    return text ? QString::fromUtf8(text) : QString();
}

} // namespace

bool canRecordChanges()
{
    return sqlite3_compileoption_used("ENABLE_SESSION") &&
           sqlite3_compileoption_used("ENABLE_PREUPDATE_HOOK");
}

void ChangeRecorder::Delete::operator()(sqlite3_session* session) const
{
    sqlite3session_delete(session);
}

ChangeRecorder::ChangeRecorder(sqlite3* connection)
{
    sqlite3_session* raw = nullptr;
    check(sqlite3session_create(connection, "main", &raw));
    m_session.reset(raw);
    check(sqlite3session_attach(raw, nullptr));
}

QByteArray ChangeRecorder::changes() const
{
    Buffer buffer;
    check(sqlite3session_changeset(m_session.get(), &buffer.size, &buffer.data));
    return buffer.bytes();
}

QByteArray inverted(const QByteArray& changes)
{
    Buffer buffer;
    check(sqlite3changeset_invert(static_cast<int>(changes.size()), changes.constData(), &buffer.size,
                                  &buffer.data));
    return buffer.bytes();
}

std::vector<RowChange> rowsOf(const QByteArray& changes)
{
    std::vector<RowChange> rows;
    sqlite3_changeset_iter* place = nullptr;
    check(sqlite3changeset_start(&place, static_cast<int>(changes.size()), input(changes)));
    const std::unique_ptr<sqlite3_changeset_iter, int (*)(sqlite3_changeset_iter*)> owner(
        place, sqlite3changeset_finalize);
    while (sqlite3changeset_next(place) == SQLITE_ROW) {
        const char* table = nullptr;
        int columns = 0;
        int operation = 0;
        check(sqlite3changeset_op(place, &table, &columns, &operation, nullptr));
        RowChange& row = rows.emplace_back();
        row.table = QString::fromUtf8(table);
        row.kind = operation == SQLITE_INSERT   ? RowChange::Added
                   : operation == SQLITE_DELETE ? RowChange::TakenOut
                                                : RowChange::Changed;
        for (int column = 0; column < columns; ++column)
            row.texts.append(valueText(place, operation, column));
    }
    return rows;
}

void applyChanges(sqlite3* connection, const QByteArray& changes)
{
    Conflicts conflicts;
    const int code = sqlite3changeset_apply(connection, static_cast<int>(changes.size()), input(changes),
                                            nullptr, giveUp, &conflicts);
    if (conflicts.met != 0)
        throw StoreError(
            QCoreApplication::translate(
                "Engine", "the records that it concerns have been changed by somebody else since"),
            StoreError::Conflict, QStringLiteral("Jobwright"));
    if (code != SQLITE_OK)
        throw failure(connection);
}

#else // the engine was built without the extension

bool canRecordChanges()
{
    return false;
}

void ChangeRecorder::Delete::operator()(sqlite3_session*) const {}

ChangeRecorder::ChangeRecorder(sqlite3*) {}

QByteArray ChangeRecorder::changes() const
{
    return {};
}

QByteArray inverted(const QByteArray&)
{
    return {};
}

std::vector<RowChange> rowsOf(const QByteArray&)
{
    return {};
}

void applyChanges(sqlite3*, const QByteArray&) {}

#endif

} // namespace engine
