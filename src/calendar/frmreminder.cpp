#include "calendar/frmreminder.h"

FrmReminder::FrmReminder(Session& session, FrmEvCal& calendar)
    : m_session(session)
    , m_calendar(calendar)
    , m_form({})
    , m_list({})
{
}

FrmReminder::~FrmReminder() = default;

void FrmReminder::load()
{
    m_loaded = true;
    m_timer1Enabled = true;
}

void FrmReminder::unload()
{
    m_loaded = false;
}

void FrmReminder::tick() {}

void FrmReminder::checkEvents() {}

void FrmReminder::showScreen()
{
    m_visible = true;
    emit changed();
}
