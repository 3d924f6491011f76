// What the history screen leaves in the store when it closes.
#pragma once

#include "history/historyentries.h"
#include "store/session.h"

#include <vector>

/// Writes a contact's entries back as a whole, in the order of their days, and moves the contact and its
/// positions on; all of it in one Action.
class HistoryClosing
{
public:
    struct Outcome
    {
        bool stored = false;            ///< the action reached the disk
        bool complete = false;          ///< with every one of its statements
        std::vector<History> unwritten; ///< the entries that the store did not take

        [[nodiscard]] bool isGood() const { return stored && complete; }
    };

    /// @p entries is a copy: the screen's own slots stay as the user sees them, for another try.
    HistoryClosing(Session& session, HistoryEntries entries);

    /// Statements that fail are logged without a box each; the caller tells what did not get in. When the
    /// action as a whole failed, the user has been told.
    Outcome write();

private:
    bool send(const QString& statement);
    bool writeRows();
    bool writeLastContact();

    Session& m_session;
    HistoryEntries m_entries;
    Outcome m_outcome;
};
