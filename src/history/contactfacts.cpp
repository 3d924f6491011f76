#include "history/contactfacts.h"

#include "base/dates.h"
#include "base/text.h"
#include "store/gateway/datajw.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("ContactFacts", text);
}

/// The marks of BestMedium as words, in their order.
QString mediumWords(const QString& marks)
{
    const std::array words{tr("Phone "), tr("Fax "),  tr("Post "),  tr("Email "),
                           tr("Mtg "),   tr("Appt "), tr("Other "), tr("None ")};
    QString said;
    for (size_t i = 0; i < words.size(); ++i) {
        if (marks.mid(static_cast<qsizetype>(i), 1) == u"1")
            said += words[i];
    }
    return said;
}

QString dayReached(QDate day)
{
    return dates::isDay(day) ? dates::shown(day) : tr("No Contact");
}

void showLine(Form& form, const QString& label, const QString& front, const QString& value)
{
    form.setText(label, front + value);
    form.setVisible(label, !value.trimmed().isEmpty());
}

void showAddress(const RecordSet& address, Form& form)
{
    form.setText(u"txtAddress"_s, address.text(u"Address1") + u'\n' + address.text(u"Address2") + u'\n' +
                                      address.text(u"City") + u", " + address.text(u"State") + u' ' +
                                      address.text(u"Zip"));
    showLine(form, u"lblPhone1"_s, tr("P1:"), address.text(u"Phone1"));
    showLine(form, u"lblPhone2"_s, tr("P2:"), address.text(u"Phone2"));
    showLine(form, u"lblFax"_s, tr("F:"), address.text(u"Fax"));
    const QString first = address.text(u"Email1");
    showLine(form, u"lblEmail"_s, {}, first.isEmpty() ? address.text(u"Email2") : first);
    showLine(form, u"lblURL"_s, {}, address.text(u"URL1"));
}

/// By the key in the contact's own row where it has one: a name may be another's too.
RecordSet addressOf(DataJW& dataJW, const RecordSet& contact, const QString& name)
{
    const Key own = contact.key(u"AddressKey").value_or(0);
    return dataJW.getAddress(own > 0 ? own : dataJW.getAddressKey(text::quoteFix(name)));
}

} // namespace

namespace contactfacts {

std::vector<FieldRow> rows()
{
    std::vector<FieldRow> rows;
    for (const char* label :
         {"lblContactName", "lblTitle", "txtAddress", "lblPhone1", "lblPhone2", "lblFax", "lblEmail",
          "lblURL", "lblLastContact", "lblBestTime", "lblBestMedium", "lblCompanyContacts"})
        rows.push_back({QString::fromLatin1(label), {}, SaveOn::Never});
    return rows;
}

void show(DataJW& dataJW, const RecordSet& contact, Form& form)
{
    const QString name = dataJW.getContactByKey(contact.key(u"ContactKey").value_or(0));
    form.setText(u"lblContactName"_s, name);
    showAddress(addressOf(dataJW, contact, name), form);
    form.setText(u"lblLastContact"_s, dayReached(contact.date(u"LastContact")));
    showLine(form, u"lblTitle"_s, {}, contact.text(u"Title"));
    form.setText(u"lblBestTime"_s, contact.text(u"ContactTime"));
    form.setText(u"lblBestMedium"_s, mediumWords(contact.text(u"BestMedium")));
    form.setText(u"lblCompanyContacts"_s,
                 tr("Contacts:") + QString::number(dataJW.getContactCountByCompanyKey(
                                       contact.key(u"CompanyKey").value_or(0))));
}

} // namespace contactfacts
