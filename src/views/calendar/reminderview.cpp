#include "views/calendar/reminderview.h"

#include "calendar/frmreminder.h"

ReminderView::ReminderView(FrmReminder& presenter, QSettings&, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_presenter(presenter)
{
    m_timer1.setInterval(FrmReminder::timer1Interval);
    connect(&m_timer1, &QTimer::timeout, &m_presenter, &FrmReminder::tick);
    connect(&m_presenter, &FrmReminder::changed, this, &ReminderView::follow);
    follow();
}

void ReminderView::follow()
{
    setVisible(m_presenter.isVisible());
    if (m_presenter.timer1Enabled() != m_timer1.isActive())
        m_presenter.timer1Enabled() ? m_timer1.start() : m_timer1.stop();
}
