// What a contact is tied to: other contacts, documents, its company, its address and histories.
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/gateway/steps.h"
#include "workbench/addressentry.h"
#include "workbench/contactscreen.h"
#include "workbench/shell.h"

using namespace Qt::StringLiterals;

namespace {

bool holds(const TreeModel& tree, const QString& name)
{
    return tree.texts(tree.index(0, 0)).contains(name, Qt::CaseInsensitive);
}

} // namespace

void ContactScreen::saveIfAutomatic()
{
    if (m_shell.session().autosave)
        cmdUpdateContact1();
}

/// Takes a key out of one of the lists of the contact shown.
bool ContactScreen::cutFromList(const QString& column, const QString& written, Key cut)
{
    const Key key = keyShown();
    if (key <= 0 || cut <= 0)
        return false;
    // Item by item: cut as a text, key 3 would turn 13 into 1. Rejoined, the list has no stray commas either.
    const RecordSet contact = dataJW().getContactDataByKey(key);
    if (contact.isEmpty())
        return false; // the gateway has said so, and a list that was not read must not be written
    QStringList keys = m_shell.csvParse(contact.text(column));
    keys.removeAll(QString::number(cut));
    return dataJW().execQuery(u"Update Contact set " + written + u"='" + keys.join(u',') +
                              u"' where contactkey=" + QString::number(key));
}

// --- Other contacts ---------------------------------------------------------------------------------------

void ContactScreen::cmdAddOther1()
{
    m_shell.session().trace(u"Assign Contact to Contact"_s);
    const QString name = m_form.text(u"cmbOtherContact"_s);
    if (name.trimmed().isEmpty()) {
        m_shell.showMessage(tr("Please select a contact to assign."));
        return;
    }
    if (name.trimmed().compare(contactShown().trimmed(), Qt::CaseInsensitive) == 0) {
        m_shell.showMessage(tr("Cannot assign the same person to him/herself."));
        return;
    }
    if (holds(m_others, name)) {
        m_shell.showMessage(name + tr(" is already on the contact list."));
        return;
    }
    const Key key = findContact(name, m_otherCompany.isEmpty() ? u"*"_s : m_otherCompany);
    m_others.add(m_others.index(0, 0), name, u'A' + QString::number(key), u"contact"_s);
    saveIfAutomatic();
}

void ContactScreen::cmdRemoveOther1()
{
    const QModelIndex node = m_selectedOther;
    if (!node.isValid() || !node.parent().isValid()) {
        m_shell.showMessage(tr("Please select a contact to remove."));
        return;
    }
    const Key key = otherKey(node);
    if (key <= 0)
        m_shell.session().logError(u"Form:  Contact, attempting to remove 'Other' name not found."_s, 1);
    const QString name = m_others.text(node);
    m_others.remove(node);
    if (cutFromList(u"ContactList"_s, u"contactList"_s, key))
        m_storedOthers.removeOne(name);
    saveIfAutomatic();
}

void ContactScreen::lblOtherContacts()
{
    const QString picked =
        m_shell.session().prompts().pickCompany(tr("All Contacts"), dataJW().getCompanyNames());
    if (picked.isEmpty())
        return;
    m_otherCompany = picked;
    m_otherNames.reset();
    m_form.setText(u"cmbOtherContact"_s, {});
    emit otherContactsChanged();
    m_form.requestFocus(u"cmbOtherContact"_s);
}

void ContactScreen::tvwOtherContactDblClick(const QModelIndex& index)
{
    if (!index.parent().isValid())
        return;
    m_shell.showContact(otherKey(index));
}

// --- Documents --------------------------------------------------------------------------------------------

void ContactScreen::cmdAddDocContact1()
{
    m_shell.session().trace(u"Assign Document to Contact"_s);
    const QString name = m_form.text(u"cmbDocsAvailable"_s);
    if (name.isEmpty()) {
        m_shell.showMessage(tr("Please select a document to assign."));
        return;
    }
    if (holds(m_documents, name)) {
        m_shell.showMessage(name + tr(" is already on the document list."));
        return;
    }
    const Key key = dataJW().getDocumentKey(text::quoteFix(name));
    m_documents.add(m_documents.index(0, 0), name, u'D' + QString::number(key), u"document"_s);
    const QString type = dataJW().getDocument(key).text(u"Type").toLower();
    bool written = true;
    if (type == u"resume")
        written = writeStep(u"PrepareResume"_s);
    else if (type == u"cover")
        written = writeStep(u"PrepareCover"_s);
    // A store that took no step has said so, and takes no contact either. The document is on the list for the
    // next save.
    if (written)
        saveIfAutomatic();
}

/// A resume or cover letter handed to somebody is prepared: the position at hand has done that step today.
/// False when the store is as it was before.
bool ContactScreen::writeStep(const QString& step)
{
    const Key position = m_shell.selection().currentPositionKey;
    if (position <= 0)
        return true;
    // A statement that is refused by itself has been told and stops nothing.
    Action action(dataJW());
    steps::write(dataJW(), position, step, m_shell.session().todayText(), steps::Other);
    return action.commit();
}

void ContactScreen::cmdRemoveDocContact1()
{
    m_shell.session().trace(u"Remove Document from Contact"_s);
    const QModelIndex node = m_selectedDocument;
    if (!node.isValid() || !node.parent().isValid()) {
        m_shell.showMessage(tr("Please select a document to remove."));
        return;
    }
    const QString name = m_documents.text(node);
    const Key key = dataJW().getDocumentKey(text::quoteFix(name));
    m_documents.remove(node);
    if (cutFromList(u"DocumentList"_s, u"DocumentList"_s, key))
        m_storedDocuments.removeOne(name);
    saveIfAutomatic();
}

void ContactScreen::tvwDocumentDblClick(const QModelIndex& index)
{
    if (!index.parent().isValid())
        return;
    const QString name = m_documents.text(index);
    if (m_shell.showMessage(tr("Review Document Information?"), Buttons::YesNo) != Answer::Yes)
        return;
    m_shell.showOn(u"Document"_s, name);
}

// --- Company, histories, address --------------------------------------------------------------------------

void ContactScreen::cmdReassign1()
{
    if (keyShown() <= 0) {
        m_shell.showMessage(tr("Please select a contact to reassign to another company."));
        return;
    }
    // Now and not on the way out: a save there would bring the contact back to the company that it leaves.
    if (!mayLeave())
        return;
    const QString name = contactShown();
    const Key key = keyShown();
    const QString question = tr("Are you certain you want to reassign this contact to a different company?");
    if (m_shell.showMessage(question, Buttons::YesNoDefaultNo) != Answer::Yes)
        return;
    const QString chosen =
        m_shell.session().prompts().pickCompany(tr("Reassign Contact"), dataJW().getCompanyNames());
    if (chosen.isEmpty())
        return;
    const Key companyKey = dataJW().getCompanyKey(chosen);
    if (m_shell.showMessage(tr("You are assigning ") + name + tr(" to ") + chosen, Buttons::YesNo) !=
            Answer::Yes ||
        companyKey <= 0)
        return;
    dataJW().execQuery(u"Update Contact set CompanyKey=" + QString::number(companyKey) +
                       u" where contactkey=" + QString::number(key));
    m_shell.cmbSelectionClick(company());
}

void ContactScreen::cmdHistory1()
{
    if (text::isUnsaved(contactShown())) {
        m_shell.showMessage(tr("Please select a contact before viewing History."));
        m_shell.showProc(tr("No Contact Selected."));
        return;
    }
    if (!historyAvailable())
        return;
    m_shell.navigator().open(u"FrmHistory"_s, m_shell.selection().currentContactKey);
    // Before anything is saved, which writes the day of the last contact too.
    showReached(dataJW().getContactDataByKey(keyShown()));
    // As a click on the box shows its contact anew, what is not stored yet is asked about first. By the key
    // and not the name, which a namesake may have too.
    if (mayLeave())
        show(keyShown());
}

void ContactScreen::cmdAddress1()
{
    m_shell.session().trace(u"Toggle Address"_s);
    const Key key = keyShown();
    const QVariant saved = m_shell.navigator().open(
        u"FrmAddressEntry"_s, QVariant::fromValue(FrmAddressEntry::Request{key, m_addressKey}));
    if (!saved.isValid())
        return;
    const QString name = contactShown();
    // What was typed on this screen meanwhile stays; only the address can have become another row.
    m_addressKey = saved.value<Key>();
    loadContactList();
    reselect(key);
    m_shell.showMessage(tr("Update of ") + name + tr(" is complete."));
    m_shell.savedSbar();
}
