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

} // namespace workbenchtools
