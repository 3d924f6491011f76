// Reading beside the screen.
#pragma once

#include "store/engine/enginecall.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

/// A connection of its own that can only read. It belongs to one piece of work; each statement is to read a
/// stretch of at most a few milliseconds and be reset, as a reader keeps every writer from its commit.
class Reading
{
public:
    /// Throws StoreError. @p ended may be set by another thread: statements then fail.
    Reading(const QString& path, const std::atomic_bool& ended);

    [[nodiscard]] sqlite3* connection() const { return m_connection.get(); }
    [[nodiscard]] bool isEnded() const { return m_ended; }

private:
    engine::Connection m_connection;
    const std::atomic_bool& m_ended;
};

/// Long reading beside the screen: one work at a time on a thread of its own, its results handed over in
/// pieces on the thread of this object. A child of the session: it gives way before an action begins, or the
/// gateway lets go of the file.
class Background : public QObject
{
    Q_OBJECT

public:
    /// What is handed over, called on this object's thread.
    using Piece = std::function<void()>;
    /// The work, called on its own thread; hands its pieces to @p deliver. A StoreError ends it.
    using Work = std::function<void(Reading& reading, const std::function<void(Piece)>& deliver)>;

    Background(QString databasePath, QObject& session);
    ~Background() override;

    /// Ends the work at hand and begins another; finished() follows the last piece of one that was not ended.
    void start(Work work);
    /// Ends the work at hand: nothing of it arrives any more, and its connection is closed when this returns,
    /// a few milliseconds later at most.
    void stop();
    [[nodiscard]] bool isRunning() const { return m_running; }
    /// Stops every work of the session.
    static void endAll(const QObject& session);

signals:
    /// The work has come to its end; @p failure is empty when all went well.
    void finished(const QString& failure);
    /// The work had to give way to somebody who writes.
    void gaveWay();

private:
    void run(const Work& work, int generation);
    void deliver(int generation, Piece piece);

    QString m_path;
    std::thread m_thread;
    std::atomic_bool m_ended = false;
    int m_generation = 0; ///< pieces of an earlier work are left aside
    bool m_running = false;
};
