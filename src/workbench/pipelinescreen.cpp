#include "workbench/pipelinescreen.h"

#include "workbench/frmdata.h"

PipelineScreen::PipelineScreen(FrmData& workbench)
    : m_workbench(workbench)
    , m_form({})
{
}

PipelineScreen::~PipelineScreen() = default;

void PipelineScreen::load() {}

void PipelineScreen::displayVisual() {}

void PipelineScreen::clearPipeBoxes() {}

void PipelineScreen::companyChosen(const QString&) {}
