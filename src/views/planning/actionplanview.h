// How the action plan looks.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmActionPlan;
class MeasureList;

namespace Ui {
class ActionPlanView;
}

/// The dialog frmActionPlan: the phases side by side, the catalogue below them.
class ActionPlanView : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    ActionPlanView(FrmActionPlan& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~ActionPlanView() override;

    void done(int result) override;
    void reject() override;

private:
    void connectSlots();
    void setUpList(int category);
    void showMenu(int category, QPoint place);
    void render();
    [[nodiscard]] MeasureList& list(int category) const;

    FrmActionPlan& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::ActionPlanView> m_ui;
};
