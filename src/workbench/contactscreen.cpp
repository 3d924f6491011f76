#include "workbench/contactscreen.h"

#include "workbench/frmdata.h"

ContactScreen::ContactScreen(FrmData& workbench)
    : m_workbench(workbench)
    , m_form({})
{
}

ContactScreen::~ContactScreen() = default;

void ContactScreen::load()
{
    m_workbench.selectCategory();
}

void ContactScreen::clearContactForm() {}

void ContactScreen::loadContactList() {}

void ContactScreen::companyChosen() {}

void ContactScreen::newRecord() {}

void ContactScreen::showContact(const QString&) {}
