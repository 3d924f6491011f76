#include "workbench/documentscreen.h"

#include "workbench/frmdata.h"

DocumentScreen::DocumentScreen(FrmData& workbench)
    : m_workbench(workbench)
    , m_form({})
{
}

DocumentScreen::~DocumentScreen() = default;

void DocumentScreen::load() {}

void DocumentScreen::resetTree() {}

void DocumentScreen::showDocument(const QString&) {}
