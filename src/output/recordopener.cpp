#include "output/recordopener.h"

#include "base/navigator.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "workbench/contactscreen.h"
#include "workbench/frmdata.h"
#include "workbench/positionscreen.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("RecordOpener", text);
}

/// The screen of a record that is not at home on the workbench.
QString screenOf(const QString& word)
{
    if (word == u"Event")
        return u"FrmEvCal"_s;
    return word == u"Profile" ? u"FrmUProfile"_s : u"FrmTargets"_s;
}

} // namespace

bool RecordOpener::showOnWorkbench(const QString& screen, Key key)
{
    DataJW& dataJW = m_session.dataJW();
    if (screen == u"Document")
        return m_workbench.showOn(screen, dataJW.getDocumentByKey(key));
    RecordSet record;
    if (screen == u"Position")
        record = dataJW.getPositionByKey(key);
    else if (screen == u"Contact")
        record = dataJW.getContactDataByKey(key);
    const Key companyKey = screen == u"Company" ? key : record.key(u"CompanyKey").value_or(0);
    const QString company = dataJW.getCompanyNameByKey(companyKey);
    if (company.isEmpty()) {
        m_session.msgBox(tr("The record, or the company that it belongs to, is no longer in the database."));
        return false;
    }
    if (!m_workbench.tabStrip1Click(u"Company"_s))
        return false;
    m_workbench.cmbSelectionClick(company);
    if (screen == u"Company")
        return true;
    const bool contact = screen == u"Contact";
    if (!m_workbench.showOn(screen, contact ? dataJW.getContactByKey(key).trimmed() : record.text(u"Title")))
        return false;
    // Screens find by name; of namesakes the one that is meant is shown then.
    const Selection& selection = m_workbench.selection();
    if (contact && selection.currentContactKey != key)
        m_workbench.contactScreen().fillContactForm(record);
    else if (!contact && selection.currentPositionKey != key)
        m_workbench.positionScreen().fillPosForm(record);
    return true;
}

bool RecordOpener::open(const QString& word, Key key)
{
    const QVariant request = QVariant::fromValue(key);
    if (word == u"History") {
        if (!showOnWorkbench(u"Contact"_s, key))
            return false;
        m_navigator.open(u"FrmHistory"_s, request);
        return true;
    }
    if (word == u"Company" || word == u"Position" || word == u"Contact" || word == u"Document")
        return showOnWorkbench(word, key);
    const QString screen = screenOf(word);
    if (!m_navigator.hasScreen(screen)) {
        m_session.msgBox(
            QCoreApplication::translate("RecordOpener", "This screen is not part of this version."));
        return false;
    }
    if (word == u"Event")
        m_session.trace(u"Open Calendar Screen"_s);
    m_navigator.open(screen, request);
    return true;
}
