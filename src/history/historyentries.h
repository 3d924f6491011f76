// A contact's histories in memory.
#pragma once

#include "store/gateway/records.h"

#include <vector>

/// The entries of one contact in slots from 1 on, as the history screen edits them before they are written
/// back.
class HistoryEntries
{
public:
    static constexpr int bound = 500;     ///< slots that a contact has
    static constexpr int nearBound = 450; ///< entries at which the user should know of the bound

    HistoryEntries() = default;
    /// @p rows in their order; more than bound of them are cut off.
    HistoryEntries(Key contactKey, std::vector<History> rows);

    [[nodiscard]] Key contactKey() const { return m_contactKey; }
    [[nodiscard]] int count() const { return static_cast<int>(m_entries.size()); }
    [[nodiscard]] bool has(int slot) const { return slot >= 1 && slot <= count(); }
    /// The entry of a slot that it has().
    [[nodiscard]] const History& at(int slot) const { return m_entries[static_cast<size_t>(slot) - 1]; }

    /// Changes the entry of the slot, which keeps its keys and number, or adds one behind the last when the
    /// slot holds none. False when no slot is left.
    bool put(int slot, History values);
    /// Takes an entry out; those behind it move down and get the keys and numbers of their new slots.
    void remove(int slot);
    /// The order in which entries are stored: by date, entries of one day in the order that the trades leave
    /// them in.
    void sortByDate();
    /// Gives every entry the key and number of its slot.
    void renumber() { renumberFrom(1); }
    /// The last day on which the contact was reached; 1/1/1999 when all entries are older, or there is none.
    [[nodiscard]] QDate latestDate() const;

private:
    void renumberFrom(int slot);

    Key m_contactKey = 0;
    std::vector<History> m_entries;
};
