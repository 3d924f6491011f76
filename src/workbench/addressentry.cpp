#include "workbench/addressentry.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "intake/frmautoparse.h"
#include "store/gateway/datajw.h"
#include "web/webpages.h"
#include "workbench/shell.h"
#include "workbench/wholerecord.h"

using namespace Qt::StringLiterals;

namespace {

const QString street = u"txtEAddress"_s;

std::vector<FieldRow> addressForm()
{
    return {
        {street, {}, SaveOn::Record}, // Address1 and Address2
        {u"txtECity"_s, u"City"_s, SaveOn::Record},
        {u"txtEState"_s, u"State"_s, SaveOn::Record},
        {u"txtEZip"_s, u"Zip"_s, SaveOn::Record},
        {u"txtCountry"_s, u"Country"_s, SaveOn::Record},
        {u"txtEP1"_s, u"Phone1"_s, SaveOn::Record},
        {u"txtEP2"_s, u"Phone2"_s, SaveOn::Record},
        {u"txtEP3"_s, u"Phone3"_s, SaveOn::Record},
        {u"txtEFax"_s, u"Fax"_s, SaveOn::Record},
        {u"txtEEM1"_s, u"Email1"_s, SaveOn::Record},
        {u"txtEEM2"_s, u"Email2"_s, SaveOn::Record},
        {u"txtEURL1"_s, u"URL1"_s, SaveOn::Record},
        {u"txtEURL2"_s, u"URL2"_s, SaveOn::Record},
    };
}

/// The two street columns as one text, the second line only when there is one.
QString shownStreet(const RecordSet& address)
{
    const QString second = address.text(u"Address2");
    const QString first = address.text(u"Address1");
    return fieldtext::toShown(second.isEmpty() ? first : QString(first + text::crlf + second));
}

} // namespace

FrmAddressEntry::FrmAddressEntry(Shell& shell)
    : m_shell(shell)
    , m_form(addressForm())
{
}

DataJW& FrmAddressEntry::dataJW() const
{
    return m_shell.session().dataJW();
}

void FrmAddressEntry::load(const Request& request)
{
    m_saved = false;
    m_contactKey = request.contactKey;
    m_addressKey = request.addressKey;
    m_form.clear();
    const RecordSet address = m_addressKey > 0 ? dataJW().getAddress(m_addressKey) : RecordSet();
    if (address.isEmpty()) {
        // A key that points nowhere: a save gives the contact a row of its own.
        if (!address.isNothing())
            m_addressKey = 0;
        return;
    }
    for (const FieldRow& row : m_form.rows()) {
        if (!row.column.isEmpty())
            m_form.setText(row.control, fieldtext::toShown(address.text(row.column)));
    }
    m_form.setText(street, shownStreet(address));
}

/// The columns with their values, ready to stand in a statement, in the order of the table.
QList<std::pair<QString, QString>> FrmAddressEntry::values() const
{
    // Lines behind the first are all kept in the second column, with their own line ends.
    const QString lines = fieldtext::toShown(m_form.text(street));
    const auto split = lines.indexOf(u'\n');
    QList<std::pair<QString, QString>> values{
        {u"Address1"_s, fieldtext::quoted(split < 0 ? lines : lines.left(split))},
        {u"Address2"_s, fieldtext::quoted(split < 0 ? QString() : lines.mid(split + 1))}};
    for (const FieldRow& row : m_form.rows()) {
        if (!row.column.isEmpty())
            values.append({row.column, fieldtext::quoted(m_form.text(row.control))});
    }
    return values;
}

void FrmAddressEntry::cmdSave1()
{
    if (m_contactKey <= 0) {
        m_shell.showMessage(tr("Please save the contact before storing an address for it."));
        return;
    }
    const int users = m_addressKey > 0 ? addressUsers() : 0;
    if (users < 0)
        return; // the failure was shown, and the form keeps what was typed
    m_saved = m_addressKey > 0 && users <= 1 ? updateRow() : addRow();
    if (m_saved)
        emit closeRequested();
}

/// How many records have this row, -1 when that could not be read. Imports tie several to one, and one
/// person's move must not move everybody.
int FrmAddressEntry::addressUsers() const
{
    int users = 0;
    for (const QString& table : {u"Contact"_s, u"Company"_s}) {
        const RecordSet rows = dataJW().getExecQueryRecords(
            u"Select AddressKey from "_s + table + u" where AddressKey=" + QString::number(m_addressKey));
        if (rows.isNothing())
            return -1;
        users += rows.rowCount();
    }
    return users;
}

bool FrmAddressEntry::updateRow()
{
    QStringList parts;
    for (const auto& [column, value] : values())
        parts.append(column + u'=' + value);
    return dataJW().execQuery(u"Update Address  set "_s + parts.join(u", "_s) + u" WHERE AddressKey=" +
                              QString::number(m_addressKey));
}

/// People who came in without an address, or with one that others use, get their own here.
bool FrmAddressEntry::addRow()
{
    QString row = wholerecord::insertFront(dataJW(), u"Address"_s, u"Address"_s);
    for (const auto& [column, value] : values())
        row += value + u',';
    Action action(dataJW());
    if (!dataJW().execQuery(row + u'\'' + dates::mdyy(m_shell.session().today()) + u"');"))
        return false;
    const Key added = dataJW().getCount(u"Address"_s, false, u"AddressKey"_s);
    const bool linked =
        added > 0 && dataJW().execQuery(u"Update Contact set AddressKey=" + QString::number(added) +
                                        u" where contactkey=" + QString::number(m_contactKey));
    if (!action.commit() || !linked)
        return false;
    m_addressKey = added;
    return true;
}

void FrmAddressEntry::cmdClear1()
{
    for (const FieldRow& row : m_form.rows())
        m_form.setText(row.control, {});
}

void FrmAddressEntry::cmdSetCompany()
{
    if (m_shell.showMessage(tr("Reset Address to company data?"), Buttons::YesNo) != Answer::Yes)
        return;
    const RecordSet company = dataJW().getCompany(text::quoteFix(m_shell.selection().selectedCompanyName()));
    const RecordSet address = dataJW().getAddress(company.key(u"AddressKey").value_or(0));
    if (!address.text(u"Address1").isEmpty() || !address.text(u"Address2").isEmpty())
        m_form.setText(street, shownStreet(address));
    for (const FieldRow& row : m_form.rows()) {
        // Companies are entered without a country of their own: the contact's stands.
        if (row.column.isEmpty() || row.column == u"Country")
            continue;
        if (const QString value = address.text(row.column); !value.isEmpty())
            m_form.setText(row.control, fieldtext::toShown(value));
    }
}

void FrmAddressEntry::lblURL1C()
{
    webpages::openURL(m_shell.session(), m_form.text(u"txtEURL1"_s));
}

void FrmAddressEntry::lblURL2C()
{
    webpages::openURL(m_shell.session(), m_form.text(u"txtEURL2"_s));
}

void FrmAddressEntry::cmdFastParser()
{
    // In the order of the card's fields. Nothing is stored before the save button.
    static const CardFields controls{u"txtEAddress"_s, u"txtECity"_s, u"txtEState"_s, u"txtEZip"_s,
                                     u"txtEP1"_s,      u"txtEP2"_s,   u"txtEP3"_s,    u"txtEFax"_s,
                                     u"txtEEM1"_s,     u"txtEEM2"_s,  u"txtEURL1"_s,  u"txtEURL2"_s};
    const QString company = m_shell.selection().selectedCompanyName();
    fillFromCard(m_form, controls,
                 text::isUnsaved(company) || text::isCategory(company) ? QString() : company,
                 m_shell.navigator());
}
