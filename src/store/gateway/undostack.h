// The way back: what the user's actions changed, ready to be taken back and done again.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <deque>

class Session;

/// The last actions of a run, each as the change set that the engine recorded around it: up to 100 of them
/// and 64 MB. The gateway adds them as they are written. Not among them: actions that are marked
/// Action::NotUndoable, which also empty the stack, and writes of settings alone (the table Status).
class UndoStack : public QObject
{
    Q_OBJECT

public:
    explicit UndoStack(Session& session);

    /// False when the engine's library cannot record changes: then nothing can ever be taken back.
    [[nodiscard]] static bool isAvailable();

    [[nodiscard]] bool canUndo() const { return !m_done.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_undone.empty(); }
    /// The name of the action that undo() takes back, for "Undo %1"; "" when there is none.
    [[nodiscard]] QString undoText() const;
    [[nodiscard]] QString redoText() const;

    /// Takes the latest action back, in one action that sends Session::changed(). False when there is none,
    /// an action is under way, or it failed: the user has been told why, and nothing was changed. An action
    /// that no longer fits what is in the store, as somebody else changed the same rows since, is not offered
    /// again.
    bool undo();
    /// Does again what undo() took back last, with the same answers.
    bool redo();
    void clear();

    /// An action as the gateway recorded it.
    struct Step
    {
        QString name;
        QByteArray changes;
    };
    /// Adds what was just written; there is nothing to do again any more.
    void push(Step step);

signals:
    void changed(); ///< one of canUndo(), canRedo() and the texts may be different

private:
    bool move(std::deque<Step>& from, std::deque<Step>& to, bool backwards);
    void trim();

    Session& m_session;
    std::deque<Step> m_done;
    std::deque<Step> m_undone;
};
