#include "history/historyentries.h"

#include <algorithm>
#include <utility>

HistoryEntries::HistoryEntries(Key contactKey, std::vector<History> rows)
    : m_contactKey(contactKey)
    , m_entries(std::move(rows))
{
    if (count() > bound)
        m_entries.resize(bound);
}

bool HistoryEntries::put(int slot, History values)
{
    if (has(slot)) {
        History& entry = m_entries[static_cast<size_t>(slot) - 1];
        values.HistKey = entry.HistKey;
        values.ContactKey = entry.ContactKey;
        values.ContactCount = entry.ContactCount;
        entry = std::move(values);
        return true;
    }
    if (count() == bound)
        return false;
    m_entries.push_back(std::move(values));
    renumberFrom(count());
    return true;
}

void HistoryEntries::remove(int slot)
{
    if (!has(slot))
        return;
    m_entries.erase(m_entries.begin() + slot - 1);
    renumberFrom(slot);
}

void HistoryEntries::sortByDate()
{
    // A trade may carry an entry past others of its own day, so that their order is not kept. The running
    // numbers of everything stored so far came about in this way: a sort that kept it would number the same
    // entries anew at the next edit.
    for (auto first = m_entries.begin(); first != m_entries.end(); ++first) {
        for (auto later = first + 1; later != m_entries.end(); ++later) {
            if (later->ContactDate < first->ContactDate)
                std::swap(*first, *later);
        }
    }
}

QDate HistoryEntries::latestDate() const
{
    QDate latest(1999, 1, 1);
    for (const History& entry : m_entries)
        latest = std::max(latest, entry.ContactDate);
    return latest;
}

void HistoryEntries::renumberFrom(int slot)
{
    for (; slot <= count(); ++slot) {
        History& entry = m_entries[static_cast<size_t>(slot) - 1];
        entry.HistKey = QString::number(m_contactKey) + u'-' + QString::number(slot);
        entry.ContactKey = m_contactKey;
        entry.ContactCount = static_cast<Key>(slot);
    }
}
