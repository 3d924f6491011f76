// How the screen Performance looks.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmGoals;

namespace Ui {
class GoalsView;
}

/// The dialog frmGoals: a row for each goal, with its bar. Holding the mouse or Space on a count shows the
/// percent of its pace.
class GoalsView : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    GoalsView(FrmGoals& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~GoalsView() override;

    void done(int result) override;
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpRows();
    void render();

    FrmGoals& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::GoalsView> m_ui;
};
