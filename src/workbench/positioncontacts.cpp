// The people assigned to a position.
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/gateway/steps.h"
#include "workbench/pipelinesteps.h"
#include "workbench/positionscreen.h"
#include "workbench/shell.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QChar keyPrefix = u'A';

QString nodeKey(Key contact)
{
    return keyPrefix + QString::number(contact);
}

Key contactOf(const QString& nodeKey)
{
    return toKey(nodeKey.mid(1).toInt()).value_or(0);
}

} // namespace

void PositionScreen::clearContacts()
{
    m_contacts.clear();
    m_contacts.add({}, tr("Contacts"), nodeKey(0), u"contact"_s);
    m_storedContacts.clear();
}

void PositionScreen::fillContacts(const QString& keyList)
{
    clearContacts();
    const ReadWatch watch(dataJW());
    const QModelIndex root = m_contacts.index(0, 0);
    for (const QString& item : m_shell.csvParse(keyList)) {
        const Key key = toKey(item.toInt()).value_or(0);
        const QString name = dataJW().getContactByKey(key).trimmed();
        // A key whose contact has been removed points nowhere; it goes out of the list with the next save.
        if (!name.isEmpty())
            m_contacts.add(root, name, nodeKey(key), u"contact"_s);
    }
    if (watch.failed())
        m_form.noteUnread();
    m_storedContacts = m_contacts.texts(root);
}

void PositionScreen::listAssignable()
{
    m_form.setItems(u"cmbAssignContact"_s, m_shell.session().dataJW().getContactNames(companyName()));
    m_form.setText(u"cmbAssignContact"_s, {});
}

Key PositionScreen::contactAt(const QModelIndex& node)
{
    const Key key = contactOf(m_contacts.key(node));
    if (dataJW().keyVerification(key, u"ContactKey"_s, u"Contact"_s))
        return key;
    // A contact that was saved since the list was shown has a new key under the same name.
    const QString name = text::quoteFix(m_contacts.text(node));
    const auto blank = name.indexOf(u' ');
    const Key renewed = dataJW().getContactKey(name.left(blank), name.mid(blank + 1), companyName(), true);
    return renewed > 0 ? renewed : key;
}

QString PositionScreen::contactList()
{
    const QModelIndex root = m_contacts.index(0, 0);
    QStringList keys;
    for (int row = 0; row < m_contacts.rowCount(root); ++row)
        keys.append(QString::number(contactAt(m_contacts.index(row, 0, root))));
    return keys.join(u',');
}

void PositionScreen::selectContact(const QModelIndex& index)
{
    m_selectedContact = index.parent().isValid() ? index : QModelIndex();
}

void PositionScreen::cmdAssign1()
{
    Session& session = m_shell.session();
    session.trace(u"Assign Contact to Position"_s);
    const QString name = m_form.text(u"cmbAssignContact"_s).trimmed();
    if (name.isEmpty()) {
        m_shell.showMessage(tr("Please select a contact to assign."));
        return;
    }
    const QModelIndex root = m_contacts.index(0, 0);
    if (m_contacts.texts(root).contains(name, Qt::CaseInsensitive)) {
        m_shell.showMessage(name + tr(" has already been assigned to this position."));
        return;
    }
    DataJW& dataJW = session.dataJW();
    // Both lists come in the same order, and a first name may be of two words: the place tells the key.
    const auto place = dataJW.getContactNames(companyName()).indexOf(name);
    const std::vector<Key> keys = dataJW.getContactKeys(companyName());
    if (place < 0 || place >= static_cast<qsizetype>(keys.size())) {
        m_shell.showMessage(tr("There is no contact %1 at this company any more.").arg(name));
        listAssignable();
        return;
    }
    m_shell.showProc(tr("Update Position"));
    m_contacts.add(root, name, nodeKey(keys[static_cast<size_t>(place)]), u"contact"_s);
    writeInfoContact();
    saveWhenAuto();
    emit changed();
}

void PositionScreen::writeInfoContact()
{
    const Key key = m_shell.selection().currentPositionKey;
    // A position that is not stored yet has no row to write the step into.
    if (key == 0)
        return;
    Session& session = m_shell.session();
    steps::write(session.dataJW(), key, u"InfoContact"_s, session.todayText(), steps::Meeting);
    // Either half may have failed, so the store says how far the position is.
    if (const RecordSet record = session.dataJW().getPositionByKey(key); !record.isEmpty())
        m_progress = PipelineSteps(record).progress();
}

void PositionScreen::cmdRemoveContactAssign1()
{
    m_shell.session().trace(u"Remove Contact from Position"_s);
    const QModelIndex root = m_contacts.index(0, 0);
    const int contacts = m_contacts.rowCount(root);
    if (contacts == 0) {
        m_shell.showMessage(tr("No contacts assigned to this position for removal."));
        return;
    }
    if (!m_selectedContact.isValid() && contacts > 1) {
        m_shell.showMessage(tr("You have multiple contacts, please select who you would like to remove "
                               "from this assignment."));
        return;
    }
    m_contacts.remove(m_selectedContact.isValid() ? QModelIndex(m_selectedContact)
                                                  : m_contacts.index(0, 0, root));
    m_selectedContact = QModelIndex();
    m_shell.showProc(tr("Update Position"));
    saveWhenAuto();
    emit changed();
}

void PositionScreen::saveWhenAuto()
{
    if (m_shell.session().autosave)
        cmdUpdatePos1();
}

void PositionScreen::tvwContactsDblClick(const QModelIndex& index)
{
    if (!index.parent().isValid())
        return;
    m_shell.showContact(contactAt(index));
}
