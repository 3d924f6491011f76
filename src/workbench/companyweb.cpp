// The doors beside a company: its web pages, the street map, the parsing of a card, the target list.
#include "base/text.h"
#include "intake/frmautoparse.h"
#include "store/engine/storeerror.h"
#include "store/gateway/datajw.h"
#include "web/streetmap.h"
#include "web/webpages.h"
#include "workbench/companyscreen.h"
#include "workbench/shell.h"
#include "workbench/stateabbrev.h"

using namespace Qt::StringLiterals;

void CompanyScreen::lblURL1()
{
    webpages::openURL(m_shell.session(), m_form.text(u"txtURL1"_s));
}

void CompanyScreen::lblURL2()
{
    webpages::openURL(m_shell.session(), m_form.text(u"txtURL2"_s));
}

void CompanyScreen::lblLocation()
{
    const QString title = m_form.text(u"txtTitle"_s);
    const QString selected = m_shell.selection().selectedCompanyName();
    if (text::isUnsaved(title) || text::isUnsaved(selected) || text::isCategory(selected))
        return;
    Session& session = m_shell.session();
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
    webpages::openURL(session,
                      streetMapAddress(webpages::mapHost(session), {.street = address.text(u"Address1"),
                                                                    .city = address.text(u"City"),
                                                                    .state = state,
                                                                    .zip = address.text(u"Zip")}));
}

void CompanyScreen::imgTgt()
{
    m_shell.tbarButtonClick(u"target"_s);
}

void CompanyScreen::cmdFastParser()
{
    const QString selected = m_shell.selection().selectedCompanyName();
    const bool saved = !text::isUnsaved(selected) && !text::isCategory(selected);
    if (!fillFromCard(m_form, cardControls(), saved ? selected : QString(), m_shell.navigator()))
        return;
    if (saved) {
        cmdUpdate1();
        return;
    }
    m_shell.setSbar(u"Company"_s);
    m_shell.sbarVis();
}
