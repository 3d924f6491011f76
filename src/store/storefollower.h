// Reading a screen again when what it shows has changed in the store.
#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

#include <functional>

class Session;

/// Follows some tables for a screen. When one of them has changed, whoever did it, the screen reads again:
/// once the operation at work has come to its end while the screen is seen, else when it is next seen.
class StoreFollower : public QObject
{
public:
    /// @p read fills the screen again and leaves alone what the user has typed. The session must outlive the
    /// follower.
    StoreFollower(Session& session, QSet<QString> tables, std::function<void()> read);

    /// A screen that is seen follows at once. Seen from the beginning.
    void setSeen(bool seen);
    /// The screen has just read by itself.
    void caughtUp() { m_isStale = false; }

private:
    void follow();

    Session& m_session;
    QSet<QString> m_tables;
    std::function<void()> m_read;
    QTimer m_soon;
    bool m_isStale = false;
    bool m_isSeen = true;
};
