#include "intake/contactload.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "store/engine/database.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("ContactLoad", text);
}

/// The home's value, or the business's where the home has none.
QString homeOr(const QString& home, const QString& business)
{
    return home.isEmpty() ? business : home;
}

/// Values in quotes, commas between them.
QString quoted(const QStringList& values)
{
    QStringList texts;
    for (const QString& value : values)
        texts.append(fieldtext::quoted(value));
    return texts.join(u',');
}

/// What tells people apart within one load.
QString identity(const Candidate& candidate)
{
    return QStringList{candidate.contactAddress.oAddress, candidate.contact.oFName, candidate.contact.oLName}
        .join(QChar(u'\1'));
}

OutAddress businessAddress(const OutlookContact& person)
{
    OutAddress address;
    address.oCity = person.businessAddressCity;
    address.oState = person.businessAddressState;
    address.oZip = person.businessAddressPostalCode;
    address.oTel = person.businessTelephoneNumber;
    address.oFax = person.businessFaxNumber;
    address.oTel2 = person.business2TelephoneNumber;
    address.oEmail1 = person.email1Address;
    address.oUrl = person.webPage;
    return address;
}

OutAddress personalAddress(const OutlookContact& person)
{
    OutAddress address;
    address.oAddress = homeOr(person.homeAddressStreet, person.businessAddressStreet);
    address.oTel = homeOr(person.homeTelephoneNumber, person.businessTelephoneNumber);
    address.oTel2 = homeOr(person.home2TelephoneNumber, person.business2TelephoneNumber);
    address.oEmail1 = person.email1Address;
    address.oEmail2 = person.email2Address;
    address.oCity = homeOr(person.homeAddressCity, person.businessAddressCity);
    address.oState = homeOr(person.homeAddressState, person.businessAddressState);
    address.oZip = homeOr(person.homeAddressPostalCode, person.businessAddressPostalCode);
    return address;
}

} // namespace

bool ContactLoad::load(const std::vector<OutlookContact>& people, const std::function<bool(int, int)>& tick)
{
    m_candidates.clear();
    m_streets.clear();
    m_companies.clear();
    m_people.clear();
    const auto total = static_cast<int>(people.size());
    for (const OutlookContact& person : people) {
        if (count() == mostCandidates)
            return false;
        if (!tick(count(), total))
            break;
        check(person);
    }
    m_session.trace(u"END ALL - Close Import Function"_s);
    return true;
}

void ContactLoad::check(const OutlookContact& person)
{
    DataJW& data = m_session.dataJW();
    m_session.trace(u"START Import"_s);
    Candidate candidate;
    OutAddress& business = candidate.companyAddress;
    business.oAddress = person.businessAddressStreet;
    m_session.trace(u"Begin checks - Company Address Check"_s);
    if (business.oExists(data)) {
        candidate.addressExists = true;
    } else {
        const OutMemo memo = business;
        business = businessAddress(person);
        static_cast<OutMemo&>(business) = memo;
        business.oAddress = person.businessAddressStreet;
    }
    candidate.company.oCompanyName = person.companyName;
    candidate.companyExists =
        candidate.company.oExists(data) || m_companies.contains(candidate.company.oCompanyName);
    candidate.addressExists = candidate.addressExists || m_streets.contains(business.oAddress);
    candidate.contactAddress = personalAddress(person);
    checkNames(person, candidate);
    m_session.trace(u"Loading Import into Visual:  "_s + QString::number(count() + 1));
    if (!candidate.contactExists) {
        if (candidate.company.oCompanyName.isEmpty())
            candidate.company.oCompanyName =
                QString(candidate.contact.oFName + u' ' + candidate.contact.oLName).trimmed();
        candidate.company.oAddrKey = candidate.contactAddress.getAddrKey(data);
        m_session.trace(u"Contact Address Exists Check"_s);
        candidate.contactAddress.oExists(data);
    }
    m_session.trace(u"ComExists check"_s);
    if (!candidate.companyExists && candidate.addressExists)
        candidate.company.oAddrKey = business.getAddrKey(data);
    m_streets.insert(business.oAddress);
    m_companies.insert(candidate.company.oCompanyName);
    m_people.insert(identity(candidate));
    m_candidates.push_back(std::move(candidate));
    m_session.trace(u"END, Next Import Function"_s);
}

void ContactLoad::checkNames(const OutlookContact& person, Candidate& candidate)
{
    OutContact& contact = candidate.contact;
    const auto firstBlank = person.firstName.indexOf(u' ');
    const auto lastBlank = person.lastName.indexOf(u' ');
    contact.oFName = person.firstName.left(firstBlank);
    contact.oLName = person.lastName.mid(lastBlank + 1);
    m_session.trace(u"Add Contact - Contact Exists Check "_s + contact.oFName + u' ' + contact.oLName);
    candidate.contactExists = contact.oExists(m_session.dataJW());
    if (firstBlank >= 0 || lastBlank >= 0) {
        // Somebody who was entered under the whole name is the same person.
        OutContact whole;
        whole.oFName = person.firstName;
        whole.oLName = person.lastName;
        candidate.contactExists = whole.oExists(m_session.dataJW()) || candidate.contactExists;
        candidate.uncut = person.firstName + u' ' + person.lastName;
    }
    if (!candidate.contactExists)
        contact.oTitle = person.title;
    candidate.contactExists = candidate.contactExists || m_people.contains(identity(candidate));
}

QString ContactLoad::lackOfKeys(int candidates) const
{
    Database& database = m_session.dataJW().database();
    const auto left = [&](const QString& table) { return keyLimit - highestKey(database, table); };
    // A person may bring a company and two addresses.
    const qint64 fit = std::min({left(u"Contact"_s), left(u"Company"_s), left(u"Address"_s) / 2});
    if (candidates <= fit)
        return {};
    return tr("The database has no room for %1 new contacts with their companies and addresses: %2 would "
              "fit. "
              "Nothing was changed.")
        .arg(candidates)
        .arg(fit);
}

bool ContactLoad::store(const std::vector<int>& numbers, ImportReport& report)
{
    DataJW& data = m_session.dataJW();
    Action action(data, Action::NotUndoable()); // the copy before it is the way back
    {
        const Session::QuietReports quiet(m_session);
        for (const int number : numbers) {
            storeCandidate(m_candidates[static_cast<size_t>(number - 1)], report);
            if (!data.database().inTransaction())
                break; // a full disk: the action says so at its end
        }
    }
    if (action.commit())
        return true;
    report = {};
    return false;
}

Key ContactLoad::insert(const QString& statement, const QString& table)
{
    DataJW& data = m_session.dataJW();
    return data.execQuery(statement) ? data.getLastKeyInTable(table, table + u"Key") : Key(0);
}

Key ContactLoad::storeAddress(const QString& columns, const QStringList& values, ImportReport& report)
{
    const Key key =
        insert(u"INSERT INTO Address ("_s + columns + u") VALUES (" + quoted(values) + u')', u"Address"_s);
    report.addresses += key > 0 ? 1 : 0;
    return key;
}

Key ContactLoad::storeCompany(Candidate& candidate, ImportReport& report)
{
    const OutAddress& from = candidate.companyAddress;
    const QString day = dates::mdyy(m_session.today());
    Key address = from.getAddrKey(m_session.dataJW());
    if (address == 0)
        address = storeAddress(u"Address1,City,State,Zip,Country,Phone1,Phone2,Fax,Email1,URL1,EntryDate"_s,
                               {from.oAddress, from.oCity, from.oState, from.oZip, u"USA"_s, from.oTel,
                                from.oTel2, from.oFax, from.oEmail1, from.oUrl, day},
                               report);
    const QString name = fieldtext::quoted(candidate.company.oCompanyName);
    const Key key = insert(u"INSERT INTO Company (Name,AddressKey,EntryDate) VALUES ("_s + name + u',' +
                               QString::number(address) + u",'" + day + u"')",
                           u"Company"_s);
    report.companies += key > 0 ? 1 : 0;
    return key;
}

void ContactLoad::storeCandidate(Candidate& candidate, ImportReport& report)
{
    DataJW& data = m_session.dataJW();
    const OutContact& contact = candidate.contact;
    const QString who = contact.oFName + u' ' + contact.oLName;
    if (candidate.company.oCompanyName.isEmpty()) {
        report.passOver({}, {}, tr("the card names neither a person nor a company"));
        return;
    }
    Key company = candidate.company.getCompanyKey(data);
    if (company == 0)
        company = storeCompany(candidate, report);
    const OutAddress& from = candidate.contactAddress;
    Key address = from.getAddrKey(data);
    if (address == 0)
        address = storeAddress(u"Address1,City,State,Zip,Country,Phone1,Phone2,Email1,Email2"_s,
                               {from.oAddress, from.oCity, from.oState, from.oZip, u"USA"_s, from.oTel,
                                from.oTel2, from.oEmail1, from.oEmail2},
                               report);
    if (contact.oFName.isEmpty() && contact.oLName.isEmpty())
        return;
    const Key key =
        insert(u"INSERT INTO Contact (FirstName,LastName,Title,AddressKey,CompanyKey) VALUES ("_s +
                   quoted({contact.oFName, contact.oLName, contact.oTitle}) + u',' +
                   QString::number(address) + u',' + QString::number(company) + u')',
               u"Contact"_s);
    report.contacts += key > 0 ? 1 : 0;
    if (key == 0)
        report.passOver({}, who, tr("was refused by the database; the error log says why"));
    else if (!candidate.uncut.isEmpty())
        report.remark({}, who, tr("stood as “%1”; the name was cut").arg(candidate.uncut));
}

bool ContactLoad::storeDirectly(const OutlookContact& person, ImportReport& report)
{
    Action action(m_session.dataJW(), tr("import of %1").arg(person.fullName));
    ImportReport added = report;
    const Key business =
        storeAddress(u"Address1,City,State,Zip,Country,Phone1,Phone2,Fax,URL1"_s,
                     {person.businessAddressStreet, person.businessAddressCity, person.businessAddressState,
                      person.businessAddressPostalCode, u"USA"_s, person.businessTelephoneNumber,
                      person.business2TelephoneNumber, person.businessFaxNumber, person.webPage},
                     added);
    const QString whole = QString(person.firstName + u' ' + person.lastName).trimmed();
    const QString name = person.companyName.isEmpty() ? whole : person.companyName;
    const Key company = insert(u"INSERT INTO Company (Name,AddressKey) VALUES ("_s + fieldtext::quoted(name) +
                                   u',' + QString::number(business) + u')',
                               u"Company"_s);
    const Key home = storeAddress(u"Address1,City,State,Zip,Country,Phone1,Phone2,Email1,Email2"_s,
                                  {person.homeAddressStreet, person.homeAddressCity, person.homeAddressState,
                                   person.homeAddressPostalCode, u"USA"_s, person.homeTelephoneNumber,
                                   person.home2TelephoneNumber, person.email1Address, person.email2Address},
                                  added);
    const Key contact =
        insert(u"INSERT INTO Contact (FirstName,LastName,Title,AddressKey,CompanyKey) VALUES ("_s +
                   quoted({person.firstName, person.lastName, person.title}) + u',' + QString::number(home) +
                   u',' + QString::number(company) + u')',
               u"Contact"_s);
    if (!action.commit())
        return false;
    added.companies += company > 0 ? 1 : 0;
    added.contacts += contact > 0 ? 1 : 0;
    report = added;
    return contact > 0;
}
