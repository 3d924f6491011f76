// How the Pipeline screen looks.
#pragma once

#include "views/common/screenview.h"

#include <QModelIndex>

#include <memory>
#include <vector>

class BarLabel;
class PipelineScreen;
class QCheckBox;
class QGridLayout;
class QLabel;
class QProgressBar;
class QToolButton;
class StepDateEdit;

namespace Ui {
class PipelineView;
}

/// The frame frmePipeline: the tree at the left, one position's steps in the middle, the bars of all at the
/// right.
class PipelineView final : public ScreenView
{
    Q_OBJECT

public:
    /// The presenter must outlive the view.
    explicit PipelineView(PipelineScreen& presenter, QWidget* parent = nullptr);
    ~PipelineView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;
    [[nodiscard]] QWidget& firstField() override;

private:
    /// A position's row of the bars at the right.
    struct BarRow
    {
        BarLabel* label;
        QLabel* figure;
        QProgressBar* bar;
    };

    void buildSteps();
    void buildStep(QGridLayout& grid, int index);
    void buildBars();
    void buildTree();
    void orderTabs();
    void dressTexts();
    void choose(const QModelIndex& index, bool alone);
    void enterFirstMatch();
    void openMatches();
    void showMedium(int index);
    void render();
    void renderBars();

    PipelineScreen& m_presenter;
    std::unique_ptr<Ui::PipelineView> m_ui;
    FormBinder* m_binder = nullptr;
    std::vector<QCheckBox*> m_ticks;
    std::vector<StepDateEdit*> m_dates;
    std::vector<QToolButton*> m_mediums;
    std::vector<BarRow> m_bars;
    bool m_choosing = false; ///< the program moves in the tree, not the user
};
