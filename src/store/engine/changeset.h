// Change sets of the engine: what a transaction did to the rows, recorded, inverted and applied.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_session;

namespace engine {

/// False when the engine was built without the session extension: nothing is recorded then.
bool canRecordChanges();

/// False when a table of the file has no primary key: what is done to its rows would be missing in the
/// record.
bool recordsAllTables(sqlite3* connection);

/// Records what is done to the rows of all tables from its construction on. It needs a primary key on each,
/// and ends before its connection.
class ChangeRecorder
{
public:
    /// Throws StoreError.
    explicit ChangeRecorder(sqlite3* connection);
    /// The changes so far, each row's first state against its present one; empty when there are none. Throws
    /// StoreError.
    [[nodiscard]] QByteArray changes() const;

private:
    struct Delete
    {
        void operator()(sqlite3_session* session) const;
    };
    std::unique_ptr<sqlite3_session, Delete> m_session;
};

/// The changes that take @p changes back; throws StoreError.
QByteArray inverted(const QByteArray& changes);

/// What was done to one row.
struct RowChange
{
    enum Kind { Added, Changed, TakenOut };
    QString table;
    Kind kind = Changed;
    /// Each column as text: of a row that was taken out as it was, of one that was added as it is; of one
    /// that was changed the key and the former values of the columns that were changed, "" for the others.
    QStringList texts;
};
/// The rows that @p changes touch.
std::vector<RowChange> rowsOf(const QByteArray& changes);

/// Does @p changes to the store, inside the transaction at hand or one of its own. Throws StoreError, with
/// the number StoreError::Conflict when a row is not what the changes expect; nothing is changed then.
void applyChanges(sqlite3* connection, const QByteArray& changes);

} // namespace engine
