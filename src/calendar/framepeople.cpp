#include "calendar/framepeople.h"

#include "base/text.h"
#include "calendar/eventchoices.h"
#include "calendar/eventstore.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

using namespace Qt::StringLiterals;

namespace {

const QString companyBox = u"lblCompany"_s;
const QString contactBox = u"lblContact"_s;
const QString positionBox = u"lblPosition"_s;

} // namespace

FramePeople::FramePeople(Session& session, Form& form)
    : m_session(session)
    , m_form(form)
{
}

void FramePeople::readCompanies()
{
    m_companies = m_session.dataJW().getCompanyNames();
    m_companies.removeIf([](const QString& name) { return text::isCategory(name); });
}

bool FramePeople::isNetworking() const
{
    return m_form.text(u"txtEvName"_s) == eventchoices::networkingEvent;
}

void FramePeople::fill(const EventOwners& owners)
{
    DataJW& dataJW = m_session.dataJW();
    const ReadWatch watch(dataJW);
    const QString company = dataJW.getCompanyNameByKey(owners.company, owners.company == 0);
    const QString contact = dataJW.getContactByKey(owners.contact, owners.contact == 0);
    const QString position = dataJW.getPositionNameByKey(owners.position, owners.position == 0);
    fillNames(isNetworking() ? eventchoices::networkingEvent.toString() : company, contact, position);
    m_filled = {owners.contact, contact};
    m_isWhole = !watch.failed();
}

void FramePeople::fillNames(const QString& company, const QString& contact, const QString& position)
{
    m_company = company;
    m_filled = {};
    m_isWhole = true;
    m_form.setText(companyBox, company);
    m_form.setText(contactBox, contact);
    m_form.setText(positionBox, position);
    listCompanies();
    listPeople();
}

void FramePeople::nameChanged()
{
    const QString networking = eventchoices::networkingEvent.toString();
    if (isNetworking() != (m_company == networking))
        fillNames(isNetworking() ? networking : QString(), {}, {});
}

// --- Choosing ---------------------------------------------------------------------------------------------

bool FramePeople::mayAssign(const QString& chosen)
{
    if (!isNetworking())
        return true;
    if (!chosen.isEmpty() && chosen != eventchoices::networkingEvent)
        m_session.msgBox(
            tr("This is a networking event.  Select the 'Other Event' type if you want to assign a "
               "company or contact."));
    return false;
}

bool FramePeople::hasCompany()
{
    if (!m_company.isEmpty())
        return true;
    m_session.msgBox(tr("Must select company first."), Buttons::Ok, tr("Select Company First"));
    return false;
}

bool FramePeople::choose(const QString& control, const QString& name)
{
    if (control == companyBox)
        return chooseCompany(name);
    const bool allowed = mayAssign(name) && (name.isEmpty() || hasCompany());
    m_form.setText(control, allowed ? name : QString());
    return allowed;
}

bool FramePeople::chooseCompany(const QString& name)
{
    const bool allowed = mayAssign(name);
    m_form.setText(companyBox, allowed ? name : m_company);
    if (!allowed || name == m_company)
        return false;
    m_company = name;
    m_filled = {};
    m_form.setText(contactBox, {});
    m_form.setText(positionBox, {});
    listPeople();
    return true;
}

bool FramePeople::mayList()
{
    return mayAssign(u"?"_s) && hasCompany(); // whoever would have been chosen
}

QString FramePeople::noSuchOwner(const QString& control)
{
    if (control == companyBox)
        return tr("There is no company called \"%1\". Please choose another one.");
    return control == contactBox ? tr("There is no contact called \"%1\". Please choose another one.")
                                 : tr("There is no position called \"%1\". Please choose another one.");
}

void FramePeople::tellUnknown(const QString& control)
{
    const QString typed = m_form.text(control);
    const bool company = control == companyBox;
    if (typed.isEmpty())
        return;
    if (!mayAssign(typed) || (!company && !hasCompany())) {
        m_form.setText(control, company ? m_company : QString());
        return;
    }
    // Somebody of another company can be assigned, though the list is of this company's people.
    if (control == contactBox && contactKey(m_session.dataJW().getCompanyKey(text::quoteFix(m_company))) > 0)
        return;
    m_session.msgBox(noSuchOwner(control).arg(typed));
}

void FramePeople::listCompanies()
{
    QStringList names{QString()};
    if (isNetworking())
        names << eventchoices::networkingEvent.toString();
    m_form.setItems(companyBox, names + m_companies);
}

void FramePeople::listPeople()
{
    QStringList contacts{QString()};
    QStringList positions{QString()};
    if (!m_company.isEmpty() && !isNetworking()) {
        const QString company = text::quoteFix(m_company);
        contacts << m_session.dataJW().getContactNames(company);
        positions << m_session.dataJW().getPositionNames(company);
    }
    m_form.setItems(contactBox, contacts);
    m_form.setItems(positionBox, positions);
}

// --- Saving -----------------------------------------------------------------------------------------------

std::optional<EventOwners> FramePeople::owners()
{
    EventOwners found;
    if (!m_isWhole) {
        m_session.msgBox(tr("The people of this entry could not be read from the database, so nothing was "
                            "saved or changed. Please open it again."));
        return std::nullopt;
    }
    if (isNetworking()) {
        m_form.setText(companyBox, m_company);
        m_form.setText(contactBox, {});
        m_form.setText(positionBox, {});
        return found;
    }
    DataJW& dataJW = m_session.dataJW();
    const QString company = text::quoteFix(m_company);
    const QString contact = m_form.text(contactBox);
    const QString title = m_form.text(positionBox);
    if (m_form.text(companyBox) != m_company)
        return refuse(companyBox);
    if (!company.isEmpty()) {
        found.company = dataJW.getCompanyKey(company);
        if (found.company <= 0)
            return refuse(companyBox);
    } else if (m_form.isDirty(contactBox) || m_form.isDirty(positionBox)) {
        hasCompany(); // typed and never chosen
        m_form.requestFocus(companyBox);
        return std::nullopt;
    }
    if (!contact.isEmpty() && contact != u"Contact") { // the label of a box with nobody in it
        found.contact = keptContact();
        if (found.contact <= 0 && areSeveral(contact))
            return std::nullopt;
        if (found.contact <= 0)
            found.contact = contactKey(found.company);
        if (found.contact <= 0)
            return refuse(contactBox);
    }
    if (!title.isEmpty()) {
        found.position = dataJW.getPositionKey(text::quoteFix(title), company);
        if (found.position <= 0)
            return refuse(positionBox);
    }
    return found;
}

std::nullopt_t FramePeople::refuse(const QString& control)
{
    m_session.msgBox(noSuchOwner(control).arg(m_form.text(control)));
    m_form.requestFocus(control);
    return std::nullopt;
}

Key FramePeople::keptContact()
{
    // Somebody who was not touched stays who he is, whoever else has his name. A save of his has given him
    // another key.
    const QString shown = m_form.text(contactBox);
    return m_filled.key > 0 && m_filled.name == shown &&
                   m_session.dataJW().getContactByKey(m_filled.key) == shown
               ? m_filled.key
               : Key(0);
}

bool FramePeople::areSeveral(const QString& contact)
{
    const auto namesakes = m_form.items(contactBox).count(contact);
    if (namesakes <= 1)
        return false;
    m_session.msgBox(tr("%1 contacts of this company are called \"%2\". Please give them different names "
                        "before one of them is assigned.")
                         .arg(namesakes)
                         .arg(contact));
    m_form.requestFocus(contactBox);
    return true;
}

Key FramePeople::contactKey(Key company)
{
    DataJW& dataJW = m_session.dataJW();
    const QString name = text::quoteFix(m_form.text(contactBox));
    RecordSet row;
    {
        const Session::QuietReports quiet(m_session);
        row = dataJW.getContact(name.section(u' ', 0, 0), name.section(u' ', 1));
    }
    const Key anywhere = row.key(u"ContactKey").value_or(0);
    if (company == 0 || row.key(u"CompanyKey") == company)
        return anywhere;
    // A first name of two words is not found by its first one, and a namesake may work elsewhere: the list
    // that the person was chosen from tells them.
    const QString companyName = text::quoteFix(m_company);
    const QStringList names = dataJW.getContactNames(companyName);
    const std::vector<Key> keys = dataJW.getContactKeys(companyName);
    // A list that could not be read must not make the namesake the contact.
    if (names.isEmpty() || static_cast<size_t>(names.size()) != keys.size())
        return 0;
    const qsizetype place = names.indexOf(name);
    return place < 0 ? anywhere : keys[static_cast<size_t>(place)];
}

bool FramePeople::wantsPlaceholder(const EventOwners& owners)
{
    // A category has no positions: one of its own could neither be opened nor removed.
    if (owners.company == 0 || text::isCategory(m_company) || !m_form.text(positionBox).isEmpty())
        return false;
    return m_session.msgBox(tr("There are no positions for this company and contact.") + text::crlf +
                                tr("Would you like to generate a placeholder position?") + text::crlf +
                                tr("It would be called \"%1\".").arg(eventstore::placeholderTitle(m_session)),
                            Buttons::YesNoDefaultNo) == Answer::Yes;
}

void FramePeople::showPosition(const QString& title)
{
    listPeople();
    m_form.setText(positionBox, title);
}
