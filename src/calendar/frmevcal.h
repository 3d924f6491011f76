// The calendar screen: one month of events and tasks, and the frame in which one of them is edited.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "base/ports.h"
#include "store/session.h"

#include <QHash>
#include <QObject>

/// Shows a month of events with its tasks, and plans, moves, closes and removes them.
class FrmEvCal : public QObject
{
    Q_OBJECT

public:
    FrmEvCal(Session& session, Navigator& navigator);
    ~FrmEvCal() override;

    [[nodiscard]] Form& form() { return m_form; }

    /// The screen opens: reads the events and shows today's month, unless showEvent() or createHistoryEvent()
    /// has just prepared something else.
    void load();
    /// The screen has been closed.
    void unload();
    /// Opens the screen with the frame on this event.
    void showEvent(Key eventKey);
    /// Opens the screen with the frame on a new task made of these values: "H0" company, "H1" contact, "H2"
    /// position, "H3" event type, "H4" description, "H5" date, "H6" medium. "NONE" means empty.
    void createHistoryEvent(const QHash<QString, QString>& values);
    /// Something else has changed events: an open calendar reads and paints them again.
    void reload();

signals:
    void changed();
    /// Events or positions in the store are no longer what they were.
    void recordsChanged();

private:
    Session& m_session;
    Navigator& m_navigator;
    Form m_form;
};
