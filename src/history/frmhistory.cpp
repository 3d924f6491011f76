#include "history/frmhistory.h"

FrmHistory::FrmHistory(Session& session, FrmEvCal& calendar)
    : m_session(session)
    , m_calendar(calendar)
    , m_form({})
    , m_list({})
{
}

FrmHistory::~FrmHistory() = default;

void FrmHistory::load(Key) {}

void FrmHistory::unload() {}
