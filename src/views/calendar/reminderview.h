// How the screen FrmReminder looks.
#pragma once

#include <QSettings>
#include <QTimer>
#include <QWidget>

class FrmReminder;

/// The window of FrmReminder, there from the start and shown when the presenter says so; owns Timer1.
class ReminderView final : public QWidget
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    ReminderView(FrmReminder& presenter, QSettings& layout, QWidget* parent = nullptr);

private:
    void follow();

    FrmReminder& m_presenter;
    QTimer m_timer1;
};
