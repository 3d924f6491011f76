// The contact history: every interaction with one contact.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "base/ports.h"
#include "base/rowmodel.h"
#include "store/session.h"

#include <QObject>

class FrmEvCal;

/// Loads all entries of a contact, edits them in memory, and writes them back as a whole at its closing.
class FrmHistory : public QObject
{
    Q_OBJECT

public:
    FrmHistory(Session& session, FrmEvCal& calendar);
    ~FrmHistory() override;

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] RowModel& lvwHistory() { return m_list; }

    void load(Key contactKey); ///< the screen opens
    /// The screen closes: what was changed is written.
    void unload();

private:
    Session& m_session;
    FrmEvCal& m_calendar;
    Form m_form;
    RowModel m_list;
};
