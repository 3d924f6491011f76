#include "store/record/recordreplacement.h"

#include "store/gateway/datajw.h"
#include "store/gateway/recoveryinsert.h"
#include "store/session.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void add(std::vector<Key>& keys, Key key)
{
    if (key > 0 && std::ranges::find(keys, key) == keys.end())
        keys.push_back(key);
}

/// Those of @p keys whose rows could not be deleted.
std::vector<Key> removeRows(Session& session, const ReplacementPlan& plan, const std::vector<Key>& keys)
{
    std::vector<Key> left;
    for (const Key key : keys) {
        const int before = session.reports();
        if (plan.remove)
            plan.remove(key);
        else
            session.dataJW().delRecord(key, plan.table);
        if (session.reports() != before)
            left.push_back(key);
    }
    return left;
}

Key keyOfNewRow(DataJW& dataJW, const ReplacementPlan& plan, const std::vector<Key>& old)
{
    const Key found = plan.find();
    // Not found, or hidden by an old row of the same name: the highest key is that of the row just added.
    return found > 0 && std::ranges::find(old, found) == old.end()
               ? found
               : dataJW.getLastKeyInTable(plan.table, plan.keyColumn);
}

} // namespace

RecordReplacement::Outcome RecordReplacement::run(Session& session, const ReplacementPlan& plan)
{
    DataJW& dataJW = session.dataJW();
    std::vector<Key> old = m_waiting;
    for (const Key key : plan.oldKeys)
        add(old, key);
    Action action(dataJW);
    const QString insert = plan.insert();
    if (insert.isEmpty() || (plan.watch && plan.watch->failed())) {
        action.commit();
        return Outcome::Refused;
    }
    const bool deletesFirst = plan.order == ReplacementPlan::Order::DeleteFirst;
    std::vector<Key> waiting = deletesFirst ? removeRows(session, plan, old) : old;
    const bool inserted = dataJW.execQuery(insert);
    // The journal of versions takes what the user wrote even if the table itself could not.
    if (!plan.journal.isEmpty())
        dataJW.execQuery(recoveryInsert(insert, plan.journal));
    // A row that has no successor stays, where it is still there.
    if (!deletesFirst && inserted)
        waiting = removeRows(session, plan, old);
    const Key newKey = inserted ? keyOfNewRow(dataJW, plan, waiting) : Key(0);
    for (const Key key : old) {
        const int before = session.reports();
        if (newKey > 0 && plan.move)
            plan.move(newKey, key);
        if (newKey <= 0 || session.reports() != before)
            add(waiting, key);
    }
    if (inserted && waiting.empty() && plan.finish)
        plan.finish();
    // Without its end on the disk the store is as it was, and what was typed waits for another try.
    m_hasReachedDisk = action.commit();
    if (!m_hasReachedDisk)
        return Outcome::NotStored;
    m_newKey = newKey;
    if (!inserted) {
        // Where the old row still is, nothing has happened.
        if (deletesFirst)
            m_waiting = old;
        return Outcome::NotStored;
    }
    m_waiting = waiting;
    if (waiting.empty())
        return Outcome::Stored;
    add(m_waiting, newKey);
    return Outcome::Unfinished;
}

bool RecordReplacement::isWaiting(Key key) const
{
    return std::ranges::find(m_waiting, key) != m_waiting.end();
}

void RecordReplacement::showing(Key key)
{
    if (key != m_newKey)
        forget();
}

void RecordReplacement::forget()
{
    m_waiting.clear();
    m_newKey = 0;
}

QStringList recordcolumns::of(DataJW& dataJW, const QString& table)
{
    return dataJW.getFields(table).mid(1);
}

QString recordcolumns::insert(const QString& into, const QStringList& columns,
                              const std::function<QString(const QString&)>& valueOf, const QString& end)
{
    QStringList values;
    for (const QString& column : columns)
        values.append(valueOf(column));
    return u"INSERT INTO "_s + into + u" ( " + columns.join(u',') + u" ) VALUES (" + values.join(u',') + end;
}
