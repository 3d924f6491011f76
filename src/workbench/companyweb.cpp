// The doors beside a company: its web pages, the street map, the parsing of a card, the target list.
#include "base/streetmap.h"
#include "base/text.h"
#include "intake/frmautoparse.h"
#include "store/datajw.h"
#include "store/storeerror.h"
#include "store/webpages.h"
#include "workbench/companyscreen.h"
#include "workbench/frmdata.h"
#include "workbench/stateabbrev.h"

using namespace Qt::StringLiterals;

QString CompanyScreen::homePage()
{
    return webpages::homePage();
}

void CompanyScreen::openURL(const QString& address)
{
    webpages::openURL(m_workbench.session(), address);
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
    openURL(streetMapAddress(webpages::mapHost(session), {.street = address.text(u"Address1"),
                                                          .city = address.text(u"City"),
                                                          .state = state,
                                                          .zip = address.text(u"Zip")}));
}

void CompanyScreen::imgTgt()
{
    m_workbench.tbarButtonClick(u"target"_s);
}

void CompanyScreen::cmdFastParser()
{
    const QString selected = m_workbench.selection().selectedCompanyName();
    const bool saved = !text::isUnsaved(selected) && !text::isCategory(selected);
    if (!m_workbench.autoParse().fill(m_form, cardControls(), saved ? selected : QString(),
                                      m_workbench.navigator()))
        return;
    if (saved) {
        cmdUpdate1();
        return;
    }
    m_workbench.setSbar(u"Company"_s);
    m_workbench.sbarVis();
}
