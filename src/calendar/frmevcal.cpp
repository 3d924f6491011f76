#include "calendar/frmevcal.h"

FrmEvCal::FrmEvCal(Session& session, Navigator& navigator)
    : m_session(session)
    , m_navigator(navigator)
    , m_form({})
{
}

FrmEvCal::~FrmEvCal() = default;

void FrmEvCal::load() {}

void FrmEvCal::unload() {}

void FrmEvCal::showEvent(Key)
{
    m_navigator.openScreen(QStringLiteral("FrmEvCal"));
}

void FrmEvCal::createHistoryEvent(const QHash<QString, QString>&)
{
    m_navigator.openScreen(QStringLiteral("FrmEvCal"));
}

void FrmEvCal::reload()
{
    emit changed();
}
