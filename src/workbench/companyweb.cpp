// The ways from a company out into the web: its pages, the street map, and the target list beside it.
#include "base/text.h"
#include "store/datajw.h"
#include "store/storeerror.h"
#include "workbench/companyscreen.h"
#include "workbench/frmdata.h"
#include "workbench/stateabbrev.h"
#include "workbench/streetmap.h"

using namespace Qt::StringLiterals;

namespace {

/// The map service unless the settings name another.
constexpr QStringView defaultMapHost = u"https://maps.example";

QString mapHost(Session& session)
{
    const QString host = session.settings().QueryValueS(
        RegAccess::Hive::CurrentUser, u"Software\\Ferrow Software\\Jobwright"_s, u"MapHost"_s);
    return host.isEmpty() ? defaultMapHost.toString() : host;
}

} // namespace

QString CompanyScreen::homePage()
{
    return u"https://jobwright.example"_s;
}

void CompanyScreen::openURL(const QString& address)
{
    Session& session = m_workbench.session();
    session.trace(u"Open URL"_s);
    const QString wanted = address.trimmed().isEmpty() ? homePage() : address.trimmed();
    if (!session.desktop().openUrl(wanted))
        m_workbench.showMessage(tr("The address \"%1\" could not be opened.").arg(wanted));
}

void CompanyScreen::lblURL1()
{
    openURL(m_form.text(u"txtURL1"_s));
}

void CompanyScreen::lblURL2()
{
    openURL(m_form.text(u"txtURL2"_s));
}

void CompanyScreen::lblLocation()
{
    const QString title = m_form.text(u"txtTitle"_s);
    const QString selected = m_workbench.selection().selectedCompanyName();
    if (text::isUnsaved(title) || text::isUnsaved(selected) || text::isCategory(selected))
        return;
    Session& session = m_workbench.session();
    DataJW& dataJW = session.dataJW();
    if (dataJW.getCompanyKey(selected) == 0)
        return;
    const RecordSet address = dataJW.getAddress(dataJW.getCompany(selected).key(u"AddressKey").value_or(0));
    QString state = address.text(u"State");
    if (state.size() > 2) {
        const auto number = getStateAbbrev(state);
        if (!number) {
            const StoreError mismatch(tr("Type mismatch"), StoreError::TypeMismatch, u"Jobwright"_s);
            session.logError(u"frmData - getStateAbbrev"_s, 0, &mismatch);
            return;
        }
        state = QString::number(*number);
    }
    openURL(streetMapAddress(mapHost(session), {.street = address.text(u"Address1"),
                                                .city = address.text(u"City"),
                                                .state = state,
                                                .zip = address.text(u"Zip")}));
}

void CompanyScreen::imgTgt()
{
    m_workbench.tbarButtonClick(u"target"_s);
}
