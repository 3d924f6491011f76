// Saving and removing a whole contact.
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/companyaddress.h"
#include "workbench/contactaddresses.h"
#include "workbench/contactname.h"
#include "workbench/contactscreen.h"
#include "workbench/shell.h"
#include "workbench/wholerecord.h"

#include <algorithm>

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
    return wholerecord::mayBeStored(m_shell.session(), m_form, {u"Contact"_s, u"Address"_s});
}

bool ContactScreen::cmdUpdateContact1()
{
    m_shell.session().trace(u"Update Contact"_s);
    const ContactName typed{m_form.text(u"txtFirst"_s), m_form.text(u"txtMiddle"_s),
                            m_form.text(u"txtLast"_s)};
    const ContactName name = normalisedName(completedName(typed));
    if (!mayBeSaved(name))
        return false;
    const bool isNew = text::isUnsaved(contactShown());
    const Key oldKey = keyShown();
    const Key companyKey = dataJW().getCompanyKey(text::quoteFix(company()));

    Action action(dataJW());
    Key addressKey = m_addressKey;
    const bool addressGiven = giveAddress(isNew, addressKey);
    const QString row = values(name, addressKey, companyKey);
    const bool inserted =
        dataJW().execQuery(wholerecord::insertFront(dataJW(), u"Contact"_s, u"Contact"_s) + row);
    dataJW().execQuery(wholerecord::insertFront(dataJW(), u"ContactRecovery"_s, u"Contact"_s) + row);
    // The row that was replaced goes before the new one is looked up by its name, or the old key might come
    // back.
    if (!isNew)
        dataJW().delRecord(oldKey, u"Contact"_s);
    const Key found = dataJW().getContactKey(text::quoteFix(name.first), text::quoteFix(name.last),
                                             text::quoteFix(company()));
    // Without the new row the name is nobody's, or a namesake's: no reference may go there.
    const Key newKey = inserted ? found : Key{0};
    const bool complete = newKey > 0 && newKey != oldKey;
    if (complete) {
        // A save that failed before may have left references behind with the key still shown.
        moveReferences(newKey, {oldKey, isNew ? Key{0} : m_shell.selection().currentContactKey});
        if (addressGiven)
            cleanAddresses(dataJW());
    }
    // When a part of the record did not get into the store, the form keeps what was typed, so that another
    // save can bring it in.
    if (!action.commit())
        return false;
    m_cutShort = !complete;
    if (complete)
        showAfterSave(newKey, name);
    return complete;
}

/// Gives a contact without an address of its own one that begins as a copy of the company's; false when that
/// failed.
bool ContactScreen::giveAddress(bool isNew, Key& addressKey)
{
    // An existing contact keeps the address that was read with it. Looked up by the name, a namesake's might
    // come back, and the clean-up would then take this one's.
    if (!isNew && addressKey > 0) {
        const RecordSet address = dataJW().getAddress(addressKey);
        if (address.isNothing() || !address.isEmpty())
            return !address.isNothing();
    }
    const bool given = insertAddress(m_shell.session(), m_companyForm);
    addressKey = dataJW().getCount(u"Address"_s, false, u"AddressKey"_s);
    return given && addressKey > 0;
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

/// The values of a Contact row in the order of its columns, the key left out.
QString ContactScreen::values(const ContactName& name, Key addressKey, Key companyKey) const
{
    const auto shown = [this](const QString& control) -> QString {
        return fieldtext::quoted(m_form.text(control)) + u',';
    };
    const auto text = [](const QString& value) -> QString { return fieldtext::quoted(value) + u','; };
    QString row = text(name.first) + text(name.middle) + text(name.last) + shown(u"txtContactTitle"_s) +
                  text(QString::number(addressKey)) + shown(u"txtDept"_s) + shown(u"txtReportsTo"_s) +
                  text(flags(1, 9)) + text(flags(10, 17)) + shown(u"txtBestTimes"_s) +
                  shown(u"txtContactNotes"_s);
    // The box shows the day as the user reads dates; the store gets back what it held.
    row += m_lastContact.isEmpty() ? u"'12/31/1999',"_s : text(m_lastContact);
    row += u"0,"; // EventKey: events point to contacts and not the other way round
    row += text(otherKeys()) + text(documentKeys()) + QString::number(companyKey) + u',' + level() + u",'";
    return row + m_shell.session().todayText() + u"');";
}

void ContactScreen::moveReferences(Key newKey, const std::vector<Key>& oldKeys)
{
    Key moved = 0;
    for (const Key oldKey : oldKeys) {
        if (oldKey <= 0 || oldKey == moved || oldKey == newKey)
            continue;
        moved = oldKey;
        dataJW().updateContactList(newKey, oldKey, u"Position"_s, 0);
        dataJW().updateContactList(newKey, oldKey, u"Contact"_s, 0);
        dataJW().updateContactSubset(newKey, oldKey);
    }
}

void ContactScreen::showAfterSave(Key newKey, const ContactName& name)
{
    const QString shown = text::quoteFix(name.first + u' ' + name.last);
    loadContactList();
    m_shell.selection().currentContactKey = newKey;
    m_form.setText(u"cmbContacts"_s, shown);
    // A row that cannot be read back now is stored all the same: the form then stays as it was typed.
    if (const RecordSet record = dataJW().getContactDataByKey(newKey); !record.isEmpty())
        fillContactForm(record);
    m_shell.updateCounts();
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
    loadContactList();
    emit removed();
    clearContactForm();
    m_shell.savedSbar();
    m_shell.updateCounts();
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
