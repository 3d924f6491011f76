// How the Pipeline screen looks.
#pragma once

#include "views/common/screenview.h"

class PipelineScreen;

/// frmePipeline.
class PipelineView : public ScreenView
{
    Q_OBJECT

public:
    explicit PipelineView(PipelineScreen& presenter, QWidget* parent = nullptr);
    ~PipelineView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;

private:
    PipelineScreen& m_presenter;
    FormBinder* m_binder = nullptr;
};
