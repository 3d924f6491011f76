// A record that is saved as a whole: a new row with a new key takes the place of the old one.
#pragma once

#include "base/key.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class DataJW;
class ReadWatch;
class Session;

/// The statements of one save, in the order in which its screen sends them.
struct ReplacementPlan
{
    /// Which of the two comes first. The row that goes second is there when the other statement fails.
    enum class Order { InsertFirst, DeleteFirst };

    QString table;     ///< "Position"
    QString keyColumn; ///< "PositionKey"
    QString journal;   ///< table of versions, which gets the same row; "" for none
    Order order = Order::InsertFirst;
    std::vector<Key> oldKeys; ///< the row to be replaced; none or 0 for a new record
    /// Made before the save looked anything up; when a read has failed by the time the Insert is made,
    /// nothing is replaced. May be null.
    const ReadWatch* watch = nullptr;
    /// The Insert of the new row, made inside the action; "" when something that it needs is not there:
    /// nothing is replaced then.
    std::function<QString()> insert;
    /// Deletes an old row; empty: DataJW::delRecord().
    std::function<void(Key)> remove;
    /// The key of the new row, looked up as the screen does; 0 when it is not found.
    std::function<Key()> find;
    /// Moves everything that points to the old key; empty when nothing does.
    std::function<void(Key newKey, Key oldKey)> move;
    /// What follows inside the action when all went well; may be empty.
    std::function<void()> finish;
};

/// Saves whole records, and remembers what a save that was cut short has left, so that the next save of the
/// same record mends it.
class RecordReplacement
{
public:
    enum class Outcome {
        Stored,     ///< under a new key, with everything that points to it
        Refused,    ///< nothing was replaced: something that the save needs could not be read
        NotStored,  ///< the new row is not in the store; what was typed waits for another try
        Unfinished, ///< stored, but the old row or what points to it is still there
    };

    /// Does all of @p plan in one Action. Statements that fail have been reported by the gateway.
    Outcome run(Session& session, const ReplacementPlan& plan);
    /// The key of the row that the last run() has added; 0 when it added none.
    [[nodiscard]] Key newKey() const { return m_newKey; }
    /// False when the last run() has left the store as it was, whatever it tried.
    [[nodiscard]] bool hasReachedDisk() const { return m_hasReachedDisk; }
    /// True while rows or references of the record wait for the next run().
    [[nodiscard]] bool isUnfinished() const { return !m_waiting.empty(); }
    /// The keys of these; behind an Unfinished run the new row's is among them.
    [[nodiscard]] const std::vector<Key>& waiting() const { return m_waiting; }
    [[nodiscard]] bool isWaiting(Key key) const;
    /// Another record than this is shown from here on: what waits is given up.
    void showing(Key key);
    void forget();

private:
    std::vector<Key> m_waiting; ///< keys whose rows are to be deleted and whose references are to be moved
    Key m_newKey = 0;
    bool m_hasReachedDisk = false;
};

namespace recordcolumns {

/// The columns of a table but for its key, which the store gives; none when they could not be read.
[[nodiscard]] QStringList of(DataJW& dataJW, const QString& table);

/// "INSERT INTO @p into ( columns ) VALUES (" and for each column its value, ready to stand in a statement.
[[nodiscard]] QString insert(const QString& into, const QStringList& columns,
                             const std::function<QString(const QString&)>& valueOf,
                             const QString& end = QStringLiteral(");"));

} // namespace recordcolumns
