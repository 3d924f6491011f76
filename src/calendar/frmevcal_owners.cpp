// The editing frame: names typed for company, contact and position that may be nobody's.
#include "base/text.h"
#include "calendar/frmevcal.h"
#include "store/datajw.h"

using namespace Qt::StringLiterals;

QString FrmEvCal::noSuchOwner(const QString& control)
{
    if (control == u"lblCompany")
        return tr("There is no company called \"%1\". Please choose another one.");
    return control == u"lblContact" ? tr("There is no contact called \"%1\". Please choose another one.")
                                    : tr("There is no position called \"%1\". Please choose another one.");
}

bool FrmEvCal::hasCompany()
{
    if (!m_company.isEmpty())
        return true;
    m_session.msgBox(tr("Must select company first."), Buttons::Ok, tr("Select Company First"));
    return false;
}

bool FrmEvCal::mayListPeople()
{
    return mayAssign(u"?"_s) && hasCompany(); // whoever would have been chosen
}

void FrmEvCal::holdUnknown(const QString& control, const QString& typed)
{
    if (!m_frameOpen)
        return;
    m_form.edit(control, typed);
    touched();
}

void FrmEvCal::tellUnknown(const QString& control)
{
    const QString typed = m_form.text(control);
    const bool company = control == u"lblCompany";
    if (!m_frameOpen || typed.isEmpty())
        return;
    if (!mayAssign(typed) || (!company && !hasCompany())) {
        m_form.setText(control, company ? m_company : QString());
        return;
    }
    // Somebody of another company can be assigned, though the list is of this company's people.
    if (control == u"lblContact" &&
        contactKey(m_session.dataJW().getCompanyKey(text::quoteFix(m_company))) > 0)
        return;
    m_session.msgBox(noSuchOwner(control).arg(typed));
}
