#include "calendar/frmevcal.h"

FrmEvCal::FrmEvCal(Session& session, Navigator& navigator)
    : m_session(session)
    , m_navigator(navigator)
    , m_form({})
    , m_tasks({})
    , m_calDis([&session] { return session.now(); })
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
int FrmEvCal::cellOf(QDate) const
{
    return -1;
}
QDate FrmEvCal::frameDate() const
{
    return m_frameDate;
}
bool FrmEvCal::mayLeaveFrame()
{
    return true;
}
void FrmEvCal::showMonth(QDate) {}
void FrmEvCal::selectDay(QDate) {}
void FrmEvCal::walkDays(int) {}
void FrmEvCal::newEvent(QDate) {}
void FrmEvCal::newTask(QDate) {}
void FrmEvCal::openEntry(const QString&) {}
void FrmEvCal::openEvent(Key) {}
void FrmEvCal::dropOn(const QString&, QDate) {}
void FrmEvCal::removeEntry(const QString&) {}
void FrmEvCal::flipTask(const QString&) {}
void FrmEvCal::setShowComplete(bool) {}
void FrmEvCal::closeEvent() {}
void FrmEvCal::chooseEventType(const QString&) {}
void FrmEvCal::chooseFormat(const QString&) {}
void FrmEvCal::chooseOther(int, const QString&) {}
void FrmEvCal::choosePriority(const QString&) {}
void FrmEvCal::chooseRemind(const QString&) {}
void FrmEvCal::chooseDuration(const QString&) {}
void FrmEvCal::chooseCompany(const QString&) {}
void FrmEvCal::chooseContact(const QString&) {}
void FrmEvCal::choosePosition(const QString&) {}
void FrmEvCal::fieldChanged(const QString&) {}
void FrmEvCal::fieldLeft(const QString&) {}
void FrmEvCal::cmdLast() {}
void FrmEvCal::cmdNext() {}
void FrmEvCal::cmdToday() {}
void FrmEvCal::cmdNewEvent() {}
void FrmEvCal::cmdNewTask() {}
void FrmEvCal::cmdAdd1() {}
void FrmEvCal::cmdRemove1() {}
void FrmEvCal::cmdClose1() {}
void FrmEvCal::imgReminder() {}
