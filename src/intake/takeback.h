// The way back from an import.
#pragma once

#include "store/session.h"

/// Keeps the copy that was made before an import, and puts it back while nothing else was written since.
class TakeBack
{
public:
    explicit TakeBack(Session& session)
        : m_session(session)
    {
    }

    /// Makes the verified copy. False when it could not be made; the user has been told, and nothing may be
    /// stored.
    bool begin();
    /// The import has been stored.
    void finish();
    /// True from finish() on until something else is written.
    [[nodiscard]] bool isPossible() const;
    /// Puts the database back as it was. False, with the reason shown, when that failed.
    bool run();

private:
    [[nodiscard]] qint64 changes() const;

    Session& m_session;
    QString m_copy;
    qint64 m_changes = -1; ///< rows changed through this connection when the import ended; -1 for none
};
