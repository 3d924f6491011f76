// How the screen FrmEvCal looks.
#pragma once

#include "base/form.h"

#include <QDialog>
#include <QSettings>
#include <QTimer>

#include <memory>

class FormBinder;
class FrmEvCal;
class OwnerSelector;
class TurnButton;

namespace Ui {
class CalendarView;
}

/// The dialog of FrmEvCal: the month as a grid at the left, the tasks and the frame of one entry beside it.
class CalendarView final : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    CalendarView(FrmEvCal& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~CalendarView() override;

    /// Closed in any way; stays open when the user would rather keep what the frame holds.
    void done(int result) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dressTexts();
    void fillChoices();
    void connectGrid();
    void connectTasks();
    void connectFrame();
    void connectSelector(OwnerSelector& box);
    void connectTurn(TurnButton& button, void (FrmEvCal::*turn)());
    void orderTabs();
    void fitScreen();
    void render();
    void renderFrame();
    void renderControl(const QString& control);
    void fillSelector(const QString& control);
    void stepMonth(int months);
    void settleTyped();
    void holdTyped(const QString& control, const QString& typed);
    void tellTyped();

    FrmEvCal& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::CalendarView> m_ui;
    FormBinder* m_binder = nullptr;
    QTimer m_timerCal{this};
    void (FrmEvCal::*m_turn)() = nullptr; ///< what the drag that rests on an arrow does
    QString m_untold;                     ///< the selector whose unknown name has not been told yet
};
