#include "formats/contactcard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString withoutScheme(QString value, QStringView scheme)
{
    return value.startsWith(scheme, Qt::CaseInsensitive) ? value.mid(scheme.size()) : value;
}

/// Puts a value into the first of the places that is empty; one that stands there already is not repeated.
void place(const QString& value, std::initializer_list<QString*> places)
{
    for (QString* const each : places) {
        if (*each == value)
            return;
        if (each->isEmpty()) {
            *each = value;
            return;
        }
    }
}

void takeName(OutlookContact& contact, const vcard::Card& card)
{
    if (const auto* full = card.find(u"FN"_s))
        contact.fullName = full->text();
    const auto* const name = card.find(u"N"_s);
    const QStringList parts = name ? name->parts() : QStringList();
    contact.lastName = parts.value(0);
    contact.firstName = parts.value(1);
    const auto* const company = card.find(u"ORG"_s);
    if (company)
        contact.companyName = company->parts().value(0);
    // The card of a company is called by it and names nobody.
    if (contact.firstName.isEmpty() && contact.lastName.isEmpty() &&
        contact.fullName != contact.companyName) {
        const auto blank = contact.fullName.lastIndexOf(u' ');
        contact.firstName = contact.fullName.left(std::max<qsizetype>(blank, 0));
        contact.lastName = contact.fullName.mid(blank + 1);
    }
    if (contact.fullName.isEmpty())
        contact.fullName = QString(contact.firstName + u' ' + contact.lastName).trimmed();
}

void takeAddress(OutlookContact& contact, const vcard::Property& property)
{
    const QStringList parts = property.parts(); // box, extension, street, city, state, zip, country
    QStringList street{parts.value(2), parts.value(1), parts.value(0)};
    street.removeAll(QString());
    const bool work = property.is(u"WORK"_s);
    QString& line = work ? contact.businessAddressStreet : contact.homeAddressStreet;
    QString& city = work ? contact.businessAddressCity : contact.homeAddressCity;
    if (!line.isEmpty() || !city.isEmpty())
        return;
    line = street.join(u'\n');
    city = parts.value(3);
    (work ? contact.businessAddressState : contact.homeAddressState) = parts.value(4);
    (work ? contact.businessAddressPostalCode : contact.homeAddressPostalCode) = parts.value(5);
}

void takeNumber(OutlookContact& contact, const vcard::Property& property)
{
    const QString number = withoutScheme(property.text(), u"tel:");
    if (number.isEmpty() || property.is(u"PAGER"_s))
        return;
    if (property.is(u"FAX"_s))
        place(number, {&contact.businessFaxNumber});
    else if (property.is(u"WORK"_s))
        place(number, {&contact.businessTelephoneNumber, &contact.business2TelephoneNumber});
    else
        place(number, {&contact.homeTelephoneNumber, &contact.home2TelephoneNumber});
}

void takeMail(OutlookContact& contact, const vcard::Property& property)
{
    const QString address = withoutScheme(property.text(), u"mailto:");
    if (address.isEmpty())
        return;
    if (property.is(u"PREF"_s) && !contact.email1Address.isEmpty() && contact.email1Address != address)
        contact.email2Address = std::exchange(contact.email1Address, address);
    else
        place(address, {&contact.email1Address, &contact.email2Address});
}

} // namespace

OutlookContact contactOf(const vcard::Card& card)
{
    OutlookContact contact;
    takeName(contact, card);
    const auto* title = card.find(u"TITLE"_s);
    if (!title)
        title = card.find(u"ROLE"_s);
    if (title)
        contact.title = title->text();
    for (const vcard::Property& property : card.properties) {
        if (property.name == "ADR"_L1)
            takeAddress(contact, property);
        else if (property.name == "TEL"_L1)
            takeNumber(contact, property);
        else if (property.name == "EMAIL"_L1)
            takeMail(contact, property);
        else if (property.name == "URL"_L1)
            place(property.text(), {&contact.webPage});
    }
    return contact;
}
