// Opening the workbench's screens: what each needs before it is shown, and what is said when it cannot be.
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/companyscreen.h"
#include "workbench/contactscreen.h"
#include "workbench/documentscreen.h"
#include "workbench/frmdata.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionscreen.h"

using namespace Qt::StringLiterals;

bool FrmData::mayLeaveCompany()
{
    return m_company->mayLeave() && m_position->mayLeave() && m_contact->mayLeave();
}

bool FrmData::mayLeave()
{
    return mayLeaveCompany() && m_document->mayLeave();
}

bool FrmData::tabStrip1Click(const QString& tabKey)
{
    // Every screen reads its record anew when it is opened, so what its fields hold unsaved would be gone.
    if (!mayLeave()) {
        emit changed();
        return false;
    }
    m_currentTab = tabKey;
    if (tabKey == u"Company") {
        showCompanyScreen();
        return true;
    }
    clearStrip();
    if (tabKey == u"Position")
        showPositionScreen();
    else if (tabKey == u"Contact")
        showContactScreen();
    else if (tabKey == u"Pipeline")
        showPipelineScreen();
    else if (tabKey == u"Document")
        showDocumentScreen();
    emit changed();
    return true;
}

bool FrmData::isOpen(const QString& screen) const
{
    return m_form.isVisible(u"frme"_s + screen);
}

bool FrmData::showOn(const QString& screen, const QString& name)
{
    if (!tabStrip1Click(screen))
        return false;
    if (name.isEmpty())
        return true;
    if (screen == u"Position")
        m_position->showPosition(name);
    else if (screen == u"Contact")
        m_contact->showContact(name);
    else if (screen == u"Document")
        m_document->showDocument(name);
    return true;
}

bool FrmData::showContact(Key key)
{
    const RecordSet contact = m_session.dataJW().getContactDataByKey(key);
    if (contact.isEmpty())
        return false; // the gateway has said so
    const QString company = m_session.dataJW().getCompanyNameByKey(contact.key(u"CompanyKey").value_or(0));
    if (company.isEmpty()) {
        showMessage(
            tr("%1 belongs to a company that is no longer in the database.")
                .arg(QString(contact.text(u"FirstName") + u' ' + contact.text(u"LastName")).trimmed()));
        return false;
    }
    if (!mayLeave())
        return false;
    if (company.compare(m_selection.selectedCompanyName(), Qt::CaseInsensitive) != 0)
        cmbSelectionClick(company);
    if (!isOpen(u"Contact"_s) && !tabStrip1Click(u"Contact"_s))
        return false;
    m_contact->show(key);
    return true;
}

void FrmData::setNewButton(const QString& toolTip, const QString& image)
{
    m_newToolTip = toolTip;
    m_newImage = image;
}

void FrmData::showCompanyScreen()
{
    m_currentTab = u"Company"_s;
    clearStrip();
    m_session.trace(u"Open Company Screen"_s);
    m_form.setVisible(u"frmeCompany"_s, true);
    setNewButton(tr("New Company"), u"newco"_s);
    m_company->load();
    emit changed();
}

void FrmData::showPositionScreen()
{
    m_session.trace(u"Open Position Screen"_s);
    m_form.setVisible(u"frmePosition"_s, true);
    setNewButton(tr("New Position"), u"newpos"_s);
    loadPositionFrame();
}

void FrmData::loadPositionFrame()
{
    m_session.trace(u"frmData - loadPositionFrame"_s);
    m_selection.currentScreen = u"Position"_s;
    const QString selected = m_selection.selectedCompanyName();
    if (!text::isUnsaved(selected) && !text::isCategory(selected)) {
        m_position->load();
        return;
    }
    showMessage(tr("Please select a company before viewing positions."));
    m_position->clearPositionForm();
    clearPipeBoxes();
    showCompanyScreen();
    // Loading the company hides the panel; what happened is said when the user is there.
    showProc(tr("<Unassigned> Selected."));
}

void FrmData::showContactScreen()
{
    m_session.trace(u"Open Contact Screen"_s);
    m_form.setVisible(u"frmeContact"_s, true);
    setNewButton(tr("New Contact"), u"newcon"_s);
    loadContactFrame();
}

void FrmData::loadContactFrame()
{
    m_session.trace(u"frmData - loadContactFrame"_s);
    m_selection.currentScreen = u"Contact"_s;
    if (text::isUnsaved(m_selection.selectedCompanyName())) {
        // The screen stays open, empty: a contact list needs no company to look at. A category counts as one,
        // as people may be kept under a category alone.
        showMessage(tr("Please select a company before viewing contacts."));
        m_contact->clearContactForm();
        showProc(tr("No company selected."));
        return;
    }
    m_contact->load();
}

void FrmData::showPipelineScreen()
{
    m_session.trace(u"Open Pipeline Screen"_s);
    const Key companies = m_session.dataJW().getCount(u"Company"_s, true);
    if (companies == 0) {
        showMessage(tr("No companies exist in your database.  Pipeline cannot be accessed."));
        m_session.trace(u"No companies, Pipeline aborted."_s);
        return;
    }
    m_form.setVisible(u"frmePipeline"_s, true);
    progress(0, companies, {});
    loadPipelineFrame();
    progress(0, 0, {});
    m_pipeline->displayVisual();
}

void FrmData::loadPipelineFrame()
{
    m_selection.currentScreen = u"Pipeline"_s;
    m_pipeline->load();
}

void FrmData::showDocumentScreen()
{
    m_session.trace(u"Open Document Screen"_s);
    m_form.setVisible(u"frmeDocument"_s, true);
    // The "new" button stays as the screen before left it: a document is added by a button of its own screen.
    loadDocumentFrame();
}

void FrmData::loadDocumentFrame()
{
    m_selection.currentScreen = u"Document"_s;
    m_document->load();
}
