// Saving and removing a whole company.
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/addressrow.h"
#include "workbench/companyscreen.h"
#include "workbench/shell.h"

using namespace Qt::StringLiterals;

bool CompanyScreen::mayBeSaved(const QString& title)
{
    // "<New>" names the selector's own entry: a company of that name could never be chosen again.
    if (title.trimmed().isEmpty() || text::newEntry.compare(title.trimmed(), Qt::CaseInsensitive) == 0) {
        m_shell.showMessage(tr("Please select a company title to save in the database."));
        return false;
    }
    // A title that begins with "~" would make a category by the back door.
    if (text::isCategory(m_shell.selection().selectedCompanyName()) || text::isCategory(title)) {
        m_shell.showMessage(tr("You cannot modify categories from this screen. Open the options screen to "
                               "add/remove categories."));
        return false;
    }
    return m_form.mayBeStored({u"Company"_s, u"Address"_s});
}

Key CompanyScreen::keyToReplace(const QString& title)
{
    if (m_replacement.isUnfinished())
        return m_replacement.newKey();
    const QString selected = m_shell.selection().selectedCompanyName();
    return dataJW().getCompanyKey(text::quoteFix(text::isUnsaved(selected) ? title : selected));
}

bool CompanyScreen::replacementAgreed(Key oldKey, const QString& title)
{
    if (oldKey <= 0)
        return m_shell.showMessage(tr("Insert new Company?"), Buttons::YesNo) != Answer::No;
    // Companies are found by their names. A second one of the same name could be reached no more, and the
    // contacts and positions of this one would go to the other.
    const QString selected = m_shell.selection().selectedCompanyName();
    // Somebody who enters a new company may not know that it is there, and its notes would be gone.
    if (text::isUnsaved(selected))
        return m_shell.showMessage(
                   tr("A company called \"%1\" is in the database already. Replace it with what stands on "
                      "this screen?")
                       .arg(title),
                   Buttons::YesNoDefaultNo, tr("Replace Company")) == Answer::Yes;
    if (selected.compare(text::quoteFix(title), Qt::CaseInsensitive) == 0)
        return true;
    const Key sameName = dataJW().getCompanyKey(text::quoteFix(title));
    if (sameName == 0 || sameName == oldKey || m_replacement.isWaiting(sameName))
        return true;
    m_shell.showMessage(
        tr("Another company is already called \"%1\". Please choose a different title.").arg(title));
    return false;
}

bool CompanyScreen::cmdUpdate1()
{
    m_shell.session().trace(u"Update Company"_s);
    const ReadWatch watch(dataJW());
    const QString title = m_form.text(u"txtTitle"_s);
    const QString name = text::quoteFix(title);
    if (!mayBeSaved(title))
        return false;
    const Key oldKey = keyToReplace(title);
    if (!replacementAgreed(oldKey, title))
        return false;
    const auto outcome =
        replace({.table = u"Company"_s,
                 .keyColumn = u"CompanyKey"_s,
                 .journal = {},
                 .oldKeys = {oldKey},
                 .watch = &watch,
                 .insert = [&] { return insertStatement(oldKey); },
                 .remove = {},
                 .find = [&] { return dataJW().getCompanyKey(name); },
                 .move = [&](Key newKey, Key replaced) { moveReferences(name, newKey, replaced); },
                 .finish = {}});
    const bool complete = outcome == RecordReplacement::Outcome::Stored;
    if (complete || outcome == RecordReplacement::Outcome::Unfinished)
        showAfterSave(name, complete);
    return complete;
}

QString CompanyScreen::insertStatement(Key oldKey)
{
    const QStringList columns = recordcolumns::of(dataJW(), u"Company"_s);
    const Key address =
        columns.isEmpty() ? Key(0) : addressrow::insert(m_shell.session(), m_form, u"txtAddress"_s);
    if (address <= 0)
        return {};
    const QString entered = entryDate(oldKey);
    return recordcolumns::insert(u"COMPANY"_s, columns, [&](const QString& column) -> QString {
        if (column == u"AddressKey")
            return u'\'' + QString::number(address) + u'\'';
        return column == u"EntryDate" ? QString(u'\'' + entered + u'\'') : m_form.columnValue(column);
    });
}

QString CompanyScreen::entryDate(Key oldKey)
{
    if (oldKey <= 0)
        return m_shell.session().todayText();
    return dataJW().getCompany(dataJW().getCompanyNameByKey(oldKey)).text(u"EntryDate");
}

void CompanyScreen::moveReferences(const QString& name, Key newKey, Key oldKey)
{
    dataJW().updateCompanySubset(name, oldKey);
    dataJW().execQuery(u"Update Event Set CompanyKey=" + QString::number(newKey) + u" where CompanyKey=" +
                       QString::number(oldKey));
}

void CompanyScreen::showAfterSave(const QString& name, bool complete)
{
    m_shell.setSelection(name);
    m_shell.loadCompanyList();
    m_shell.selectCategory();
    m_shell.savedSbar();
    m_shell.selection().currentCompanyKey = m_replacement.newKey();
    // When a part of the record did not get into the store, the form keeps what was typed, so that another
    // save can bring it in.
    if (complete)
        loadCompanySelection(name);
    m_shell.updateCounts();
}

void CompanyScreen::cmdRemove1()
{
    Session& session = m_shell.session();
    const QString name = m_shell.selection().selectedCompanyName();
    if (text::isCategory(name)) {
        m_shell.showMessage(tr("You cannot modify categories from this screen. Open the options screen to "
                               "add/remove categories."));
        return;
    }
    const QString question =
        tr("Are you sure you want to completely remove this COMPANY and all contacts, address "
           "information, and document relationships from the database?");
    if (m_shell.showMessage(question, Buttons::YesNoDefaultNo) != Answer::Yes)
        return;
    session.trace(u"Remove Company"_s);
    if (!removeRecords(name))
        return;
    m_shell.setSelection({});
    m_shell.selection().currentCompanyKey = 0;
    m_shell.selection().currentContactKey = 0; // whoever was shown has gone with the company
    clearCompanyForm();
    load();
    m_shell.selectCategory();
    m_shell.updateCounts();
    m_shell.offerUndo(tr("Deleted company %1.").arg(name));
    emit changed();
}

bool CompanyScreen::removeRecords(const QString& name)
{
    const Key key = text::isUnsaved(name) ? Key{0} : dataJW().getCompanyKey(text::quoteFix(name));
    // Events that belong to no company carry the key 0: removing "nothing" would take them all.
    if (key <= 0)
        return text::isUnsaved(name);
    Action action(dataJW());
    dataJW().removeRec(u"Company"_s, text::quoteFix(name));
    dataJW().delContactsByCompany(key);
    return action.commit();
}
