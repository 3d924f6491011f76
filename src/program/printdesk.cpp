#include "program/printdesk.h"

#include "views/workbench/workbenchwindow.h"
#include "workbench/frmdata.h"

#include <QTextDocument>

PrintDesk::PrintDesk(FrmData& workbench, WorkbenchWindow& window)
{
    connect(&workbench, &FrmData::printRequested, this,
            [this, &window] { printing().print(&window, *window.printableForm()); });
    connect(&workbench, &FrmData::previewRequested, this,
            [this, &window] { printing().preview(&window, *window.printableForm()); });
    connect(&workbench, &FrmData::printSetupRequested, this,
            [this, &window] { printing().setUpPage(&window); });
}

Printing& PrintDesk::printing()
{
    return m_printing ? *m_printing : m_printing.emplace();
}
