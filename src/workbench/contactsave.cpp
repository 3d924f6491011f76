// Saving and removing a whole contact.
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/addressrow.h"
#include "workbench/contactaddresses.h"
#include "workbench/contactname.h"
#include "workbench/contactscreen.h"
#include "workbench/shell.h"

using namespace Qt::StringLiterals;

bool ContactScreen::mayBeSaved(const ContactName& name)
{
    // A company that is gone by now has no key, and its contact would be found under no company at all.
    if (text::isUnsaved(company()) || dataJW().getCompanyKey(text::quoteFix(company())) <= 0) {
        m_shell.showMessage(tr("Please select a company before storing a contact"));
        return false;
    }
    if (!name.isComplete()) {
        m_shell.showMessage(tr("Please enter a name for a new contact or select a contact to update."));
        return false;
    }
    return m_form.mayBeStored({u"Contact"_s, u"Address"_s});
}

bool ContactScreen::cmdUpdateContact1()
{
    m_shell.session().trace(u"Update Contact"_s);
    const ReadWatch watch(dataJW());
    const ContactName typed{m_form.text(u"txtFirst"_s), m_form.text(u"txtMiddle"_s),
                            m_form.text(u"txtLast"_s)};
    const ContactName name = normalisedName(completedName(typed));
    if (!mayBeSaved(name))
        return false;
    const bool isNew = !showsStored();
    const Key oldKey = keyShown();
    const Key companyKey = dataJW().getCompanyKey(text::quoteFix(company()));
    const auto find = [&] {
        return dataJW().getContactKey(text::quoteFix(name.first), text::quoteFix(name.last),
                                      text::quoteFix(company()));
    };
    const auto outcome = replace({.table = u"Contact"_s,
                                  .keyColumn = u"ContactKey"_s,
                                  .journal = u"ContactRecovery"_s,
                                  .oldKeys = {oldKey},
                                  .watch = &watch,
                                  .insert = [&] { return insertStatement(name, isNew, companyKey); },
                                  .remove = {},
                                  .find = find,
                                  .move = [this](Key newKey, Key old) { moveReferences(newKey, old); },
                                  .finish = [this] { cleanAddresses(dataJW()); }});
    const bool complete = outcome == RecordReplacement::Outcome::Stored;
    if (complete || outcome == RecordReplacement::Outcome::Unfinished)
        showAfterSave(name, complete);
    return complete;
}

/// The key of a node's person at this moment; 0 when there is nobody of the name any more.
Key ContactScreen::otherKey(const QModelIndex& node) const
{
    const QString name = m_others.text(node);
    // The key noted with the node holds while it still names this person: it tells namesakes apart.
    const Key noted = static_cast<Key>(m_others.key(node).mid(1).toShort());
    if (noted > 0 && dataJW().getContactByKey(noted).trimmed() == name.trimmed())
        return noted;
    const auto blank = name.indexOf(u' ');
    const QString first = name.left(blank);
    const QString last = blank < 0 ? QString() : name.mid(blank + 1);
    const Key companyKey = dataJW().getCompanyKeyByContact(first, last);
    return companyKey > 0 ? dataJW().getContactKey(first, last, dataJW().getCompanyNameByKey(companyKey))
                          : Key{0};
}

QString ContactScreen::otherKeys() const
{
    QStringList keys;
    const QModelIndex root = m_others.index(0, 0);
    for (int row = 0; row < m_others.rowCount(root); ++row) {
        if (const Key key = otherKey(m_others.index(row, 0, root)); key > 0)
            keys.append(QString::number(key));
    }
    return keys.join(u',');
}

QString ContactScreen::documentKeys() const
{
    // Documents are numbered anew whenever their list changes, so their names say which they are.
    QStringList keys;
    for (const QString& name : m_documents.texts(m_documents.index(0, 0))) {
        if (const Key key = dataJW().getDocumentKey(text::quoteFix(name)); key > 0)
            keys.append(QString::number(key));
    }
    return keys.join(u',');
}

QString ContactScreen::insertStatement(const ContactName& name, bool isNew, Key companyKey)
{
    const QStringList columns = recordcolumns::of(dataJW(), u"Contact"_s);
    Key address = m_addressKey;
    // A new contact begins with a copy of the company's address. An existing one keeps what was read with it:
    // looked up by the name, a namesake's might come back, and the clean-up would then take this one's.
    if (isNew && !columns.isEmpty()) {
        address = addressrow::insert(m_shell.session(), m_companyForm, u"txtAddress"_s);
        if (address <= 0)
            return {};
    }
    if (columns.isEmpty())
        return {};
    const QHash<QString, QString> beside{
        {u"FirstName"_s, fieldtext::quoted(name.first)},
        {u"Middle"_s, fieldtext::quoted(name.middle)},
        {u"LastName"_s, fieldtext::quoted(name.last)},
        {u"AddressKey"_s, fieldtext::quoted(QString::number(address))},
        // The box shows the day as the user reads dates; the store gets back what it held.
        {u"LastContact"_s, fieldtext::quoted(m_lastContact.isEmpty() ? u"12/31/1999"_s : m_lastContact)},
        {u"EventKey"_s, u"0"_s}, // events point to contacts, contacts to no event
        {u"ContactList"_s, fieldtext::quoted(otherKeys())},
        {u"DocumentList"_s, fieldtext::quoted(documentKeys())},
        {u"CompanyKey"_s, QString::number(companyKey)},
        {u"EntryDate"_s, u'\'' + m_shell.session().todayText() + u'\''}};
    return recordcolumns::insert(u"Contact"_s, columns, [&](const QString& column) -> QString {
        return beside.contains(column) ? beside.value(column) : m_form.columnValue(column);
    });
}

void ContactScreen::moveReferences(Key newKey, Key oldKey)
{
    dataJW().updateContactList(newKey, oldKey, u"Position"_s, 0);
    dataJW().updateContactList(newKey, oldKey, u"Contact"_s, 0);
    dataJW().updateContactSubset(newKey, oldKey);
}

void ContactScreen::showAfterSave(const ContactName& name, bool complete)
{
    const QString shown = text::quoteFix(name.first + u' ' + name.last);
    const Key newKey = m_replacement.newKey();
    loadContactList();
    m_shell.selection().currentContactKey = newKey;
    m_form.setText(u"cmbContacts"_s, shown);
    // When a part of the record did not get into the store, the form keeps what was typed, so that another
    // save can bring it in; and a row that cannot be read back now is stored all the same.
    if (const RecordSet record = complete ? dataJW().getContactDataByKey(newKey) : RecordSet();
        !record.isEmpty())
        fillContactForm(record);
    m_shell.updateCounts();
    if (!complete)
        return;
    m_shell.savedSbar();
    m_shell.showMessage(tr("Update of ") + shown + tr(" is complete."));
}

// --- Removal ----------------------------------------------------------------------------------------------

void ContactScreen::cmdRemoveContact1()
{
    const Key key = keyShown();
    // Events that belong to nobody carry the key 0: removing "nobody" would take them all.
    if (key <= 0) {
        m_shell.showMessage(tr("Please select a contact to remove."), Buttons::Ok, tr("Jobwright - Message"));
        return;
    }
    const QString question =
        tr("Are you sure you want to remove this CONTACT, all contact histories and all links "
           "to this contact?");
    if (m_shell.showMessage(question, Buttons::YesNoDefaultNo) != Answer::Yes || !removeRecords(key))
        return;
    const QString name = m_form.cleanText(u"cmbContacts"_s);
    loadContactList();
    emit removed();
    clearContactForm();
    m_shell.savedSbar();
    m_shell.updateCounts();
    m_shell.offerUndo(tr("Deleted contact %1.").arg(name));
}

bool ContactScreen::removeRecords(Key key)
{
    Session& session = m_shell.session();
    const QString number = QString::number(key);
    Action action(dataJW());
    dataJW().delRecord(key, u"Contact"_s);
    session.trace(u"Remove Contact"_s);
    dataJW().updateContactList(0, key, u"Position"_s, 0);
    session.trace(u"Deleted Position References to Contact"_s);
    dataJW().updateContactList(0, key, u"Contact"_s, 0);
    session.trace(u"Deleted Other Contact References to Contact"_s);
    dataJW().execQuery(u"Delete * from event where contactKey=" + number);
    session.trace(u"Deleted Event References to Contact"_s);
    dataJW().execQuery(u"Delete * from history where contactKey=" + number);
    session.trace(u"Deleted History References to Contact"_s);
    session.trace(u"Remove Contact Complete"_s);
    return action.commit();
}
