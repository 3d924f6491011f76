// One change of the store out of several statements.
#pragma once

#include <QString>

class DataJW;

/// Keeps what several statements of one user action do together: nothing of it is on the disk until the end.
/// A statement that fails inside is logged and the rest goes on, unless the disk is full or broken: then
/// nothing more is sent and nothing is written. A process that dies inside leaves the state before. Actions
/// nest; the outermost one writes, and then Session::changed() names the tables that it changed. Unless it
/// says otherwise it can be taken back (UndoStack).
class Action
{
public:
    /// Marks an action that cannot be taken back by the user, as it has a copy or is too large (an import, a
    /// restore). It also ends the way back to what was done before it.
    struct NotUndoable
    {
    };

    /// @p name is what the way back calls the action: words of the user's language for the middle of a
    /// sentence, "delete of position Buyer". The first name that an action or one inside it has counts;
    /// without any the tables name it.
    explicit Action(DataJW& dataJW, const QString& name = {});
    Action(DataJW& dataJW, NotUndoable);
    ~Action(); ///< commits when commit() was not called
    Action(const Action&) = delete;
    Action& operator=(const Action&) = delete;
    /// Writes the action to the disk. False, with the failure logged and shown, when that did not succeed
    /// (a full disk): the store is then as it was before the action. An inner action answers false when the
    /// whole is lost already; true is no promise, as the outermost one has yet to be written.
    bool commit();

private:
    DataJW& m_dataJW;
    bool m_open = true;
};
