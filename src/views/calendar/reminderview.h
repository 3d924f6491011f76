// How the screen FrmReminder looks.
#pragma once

#include <QPointer>
#include <QSettings>
#include <QTimer>
#include <QWidget>

#include <memory>

class FrmReminder;
class UrgencyModel;

namespace Ui {
class ReminderView;
}

/// The window of FrmReminder, there from the start and shown when the presenter says so; owns Timer1. Beside
/// a dialog that holds all input it stands as that dialog's own window, so that it can be used there.
class ReminderView final : public QWidget
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    ReminderView(FrmReminder& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~ReminderView() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override; ///< as the button that closes the screen
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpList();
    void tick();
    void follow();
    void followRows();
    void comeForward(bool byUser);
    void standBy(QWidget* owner); ///< null: the main screen
    void dialogClosed();

    FrmReminder& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::ReminderView> m_ui;
    UrgencyModel* m_rows;       ///< belongs to the window
    QPointer<QWidget> m_dialog; ///< the dialog that this window stands by, if any
    QTimer m_timer1;
};
