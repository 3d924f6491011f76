#include "store/engine/background.h"

#include <sqlite3.h>

namespace {

/// Looked at by the engine every so many of its steps: often enough to end within a millisecond.
constexpr int stepsBetweenLooks = 2000;

int isOver(void* ended)
{
    return static_cast<const std::atomic_bool*>(ended)->load(std::memory_order_relaxed) ? 1 : 0;
}

} // namespace

Reading::Reading(const QString& path, const std::atomic_bool& ended)
    : m_connection(engine::open(path, SQLITE_OPEN_READONLY))
    , m_ended(ended)
{
    sqlite3_busy_timeout(m_connection.get(), engine::busyTimeoutMs);
    sqlite3_progress_handler(m_connection.get(), stepsBetweenLooks, isOver,
                             const_cast<std::atomic_bool*>(&ended));
}

Background::Background(QString databasePath, QObject& session)
    : QObject(&session)
    , m_path(std::move(databasePath))
{
}

Background::~Background()
{
    stop();
}

void Background::start(Work work)
{
    stop();
    m_ended = false;
    m_running = true;
    m_thread =
        std::thread([this, work = std::move(work), generation = m_generation] { run(work, generation); });
}

void Background::stop()
{
    ++m_generation;
    m_ended = true;
    if (m_thread.joinable())
        m_thread.join();
    m_running = false;
}

void Background::endAll(const QObject& session)
{
    for (Background* const one : session.findChildren<Background*>(Qt::FindDirectChildrenOnly)) {
        if (!one->isRunning())
            continue;
        one->stop();
        emit one->gaveWay();
    }
}

void Background::run(const Work& work, int generation)
{
    QString failure;
    try {
        Reading reading(m_path, m_ended);
        work(reading, [this, generation](Piece piece) { deliver(generation, std::move(piece)); });
    } catch (const StoreError& error) {
        failure = error.description();
    }
    deliver(generation, [this, failure] {
        m_running = false;
        emit finished(failure);
    });
}

void Background::deliver(int generation, Piece piece)
{
    const auto take = [this, generation, piece = std::move(piece)] {
        if (generation == m_generation)
            piece();
    };
    QMetaObject::invokeMethod(this, take, Qt::QueuedConnection);
}
