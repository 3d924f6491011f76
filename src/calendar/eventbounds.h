// How much the calendar holds, and what it says about the rest.
#pragma once

#include "calendar/jwevent.h"

#include <QCoreApplication>
#include <QSet>

#include <vector>

class Session;

/// Tells the user when a bound is near, once a session, and when it is passed, once an opening of the screen.
class EventBounds
{
    Q_DECLARE_TR_FUNCTIONS(EventBounds)

public:
    static constexpr int eventBound = 1000; ///< events in memory
    static constexpr int monthBound = 100;  ///< events in one month

    /// @p session must outlive this.
    explicit EventBounds(Session& session)
        : m_session(session)
    {
    }

    void openAgain(); ///< the screen opens: what is said once an opening may be said again
    /// Rows that cannot be shown because their key is too high.
    void tellUnreachable(int count);
    /// All events are read: keeps the nearest to today when there are more than fit.
    void bound(std::vector<JWevent>& events);
    /// A month with that many events has been painted.
    void checkMonth(int month, int year, size_t count);
    /// An entry that has been stored is none of @p events, which are as many as fit.
    void tellIfBeyond(Key eventKey, const std::vector<JWevent>& events);

private:
    struct Bound
    {
        QString name;  ///< that it is remembered by
        QString place; ///< in the log
        size_t most;
        QString beyond; ///< for the user, with "%1" for the bound
        QString soon;   ///< the same, with "%1" for the count and "%2" for the bound
    };
    void check(const Bound& bound, size_t count);

    Session& m_session;
    QSet<QString> m_told; ///< the bounds that have been spoken of; "!" before those told once an opening
};
