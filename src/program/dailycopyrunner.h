// The copy of the day beside the user's work.
#pragma once

#include "store/files/copies.h"

#include <QTimer>

class Session;

/// Makes the copy of the day in steps of a few milliseconds with room between them, and reports what it
/// finds.
class DailyCopyRunner : public QObject
{
public:
    /// Begins at the next turn of the events; the session must outlive the runner.
    explicit DailyCopyRunner(Session& session);

private:
    void step();

    Session& m_session;
    DailyCopy m_copy;
    QTimer m_timer;
};
