#include "program/printdesk.h"

#include "desktop/printing.h"
#include "views/workbench/workbenchwindow.h"
#include "workbench/frmdata.h"

PrintDesk::PrintDesk(FrmData& workbench, WorkbenchWindow& window, Printing& printing)
{
    connect(&workbench, &FrmData::printRequested, this,
            [&window, &printing] { printing.print(window.printableForm()); });
    connect(&workbench, &FrmData::previewRequested, this,
            [&window, &printing] { printing.preview(window.printableForm()); });
    connect(&workbench, &FrmData::printSetupRequested, this, [&printing] { printing.setUpPage(); });
}
