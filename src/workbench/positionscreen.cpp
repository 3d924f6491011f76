#include "workbench/positionscreen.h"

#include "workbench/frmdata.h"

PositionScreen::PositionScreen(FrmData& workbench)
    : m_workbench(workbench)
    , m_form({})
{
}

PositionScreen::~PositionScreen() = default;

void PositionScreen::load()
{
    m_workbench.clearPipeBoxes();
    m_workbench.selectCategory();
}

void PositionScreen::clearPositionForm() {}

void PositionScreen::loadPositionList() {}

void PositionScreen::companyChosen() {}

void PositionScreen::newRecord() {}

void PositionScreen::showPosition(const QString&) {}

void PositionScreen::trimTitle() {}

void PositionScreen::fillPosForm(const RecordSet&) {}

bool PositionScreen::upPosx(const QString&, const QString&)
{
    return false;
}
