#include "program/dailycopyrunner.h"

#include "store/session.h"

#include <QCoreApplication>

namespace {

constexpr int stepMs = 50;

} // namespace

DailyCopyRunner::DailyCopyRunner(Session& session)
    : m_session(session)
    , m_copy(session)
{
    connect(&m_timer, &QTimer::timeout, this, &DailyCopyRunner::step);
    m_timer.start(stepMs);
}

void DailyCopyRunner::step()
{
    if (m_session.dialogBusy || m_copy.step())
        return;
    m_timer.stop();
    if (m_copy.failure().isEmpty())
        return;
    m_session.msgBox(
        QCoreApplication::translate("DailyCopyRunner",
                                    "Today's copy of the database could not be made: %1\nThe earlier copies "
                                    "are kept. Please run \"jobwright verify\" to see whether the database "
                                    "itself is sound.")
            .arg(m_copy.failure()));
}
