#include "views/workbench/workbenchtools.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("WorkbenchWindow", text);
}

} // namespace

namespace workbenchtools {

std::vector<ToolButton> buttons()
{
    return {
        {u"new"_s, tr("New"), u"document-new"_s, {}},
        {},
        {u"uprofile"_s, tr("Profile"), u"user-identity"_s, tr("User profile")},
        {u"editor"_s, tr("Questions"), u"document-edit"_s, tr("Edit the questionnaires")},
        {},
        {u"events"_s, tr("Calendar"), u"view-calendar"_s, tr("Events calendar")},
        {u"reminder"_s, tr("Reminder"), u"appointment-reminder"_s, tr("What is due")},
        {},
        {u"goals"_s, tr("Goals"), u"office-chart-bar"_s, tr("Goals and performance")},
        {u"plan"_s, tr("Plan"), u"view-task"_s, tr("Action plan")},
        {u"target"_s, tr("Targets"), u"flag"_s, tr("Target companies")},
        {u"stats"_s, tr("Statistics"), u"office-chart-pie"_s, tr("Usage statistics")},
        {},
        {u"keysearch"_s, tr("Search"), u"edit-find"_s, tr("Search the whole database")},
        {u"report"_s, tr("Reports"), u"document-print"_s, tr("Printed reports")},
        {u"import"_s, tr("Import"), u"document-import"_s, tr("Import contacts and companies")},
        {},
        {u"options"_s, tr("Options"), u"configure"_s, tr("Options")},
        {},
        {u"launch"_s, tr("Guide"), u"help-about"_s, tr("Launch guide")},
        {u"help"_s, tr("Help"), u"help-contents"_s, tr("Help")},
        {u"helpdox"_s, tr("Manual"), u"edit-copy"_s, tr("The manual as a document")},
    };
}

std::vector<ScreenTab> tabs()
{
    return {
        {u"Company"_s, u"frmeCompany"_s, tr("Company"), u"view-bank"_s},
        {u"Position"_s, u"frmePosition"_s, tr("Position"), u"view-task"_s},
        {u"Contact"_s, u"frmeContact"_s, tr("Contact"), u"user-identity"_s},
        {u"Document"_s, u"frmeDocument"_s, tr("Document"), u"edit-copy"_s},
        {u"Pipeline"_s, u"frmePipeline"_s, tr("Pipeline"), u"view-list-details"_s},
    };
}

QString newPicture(const QString& newImage)
{
    if (newImage == "newpos"_L1)
        return u"view-task"_s;
    return newImage == "newcon"_L1 ? u"user-identity"_s : u"view-bank"_s;
}

std::vector<std::pair<QString, QString>> menuIcons()
{
    return {
        {u"FileImport"_s, u"document-import"_s},    {u"FileExport"_s, u"document-export"_s},
        {u"RestoreData"_s, u"document-revert"_s},   {u"FilePrint"_s, u"document-print"_s},
        {u"PrintReport"_s, u"document-print"_s},    {u"Preview"_s, u"document-print-preview"_s},
        {u"FileExit"_s, u"application-exit"_s},     {u"Uprofile"_s, u"user-identity"_s},
        {u"Goals"_s, u"office-chart-bar"_s},        {u"targets"_s, u"flag"_s},
        {u"Events"_s, u"view-calendar"_s},          {u"ActionPlan"_s, u"view-task"_s},
        {u"Reminder"_s, u"appointment-reminder"_s}, {u"ToolsOptions"_s, u"configure"_s},
        {u"Keysearch"_s, u"edit-find"_s},           {u"HelpAll"_s, u"help-contents"_s},
        {u"Documentation"_s, u"edit-copy"_s},       {u"HelpAbout"_s, u"help-about"_s},
    };
}

} // namespace workbenchtools
