// Saving and removing a whole company.
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/companyaddress.h"
#include "workbench/companyscreen.h"
#include "workbench/shell.h"
#include "workbench/wholerecord.h"

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
    return wholerecord::mayBeStored(m_shell.session(), m_form, {u"Company"_s, u"Address"_s});
}

Key CompanyScreen::keyToReplace(const QString& title)
{
    const QString selected = m_shell.selection().selectedCompanyName();
    return m_shell.session().dataJW().getCompanyKey(
        text::quoteFix(text::isUnsaved(selected) ? title : selected));
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
    const Key sameName = m_shell.session().dataJW().getCompanyKey(text::quoteFix(title));
    if (sameName == 0 || sameName == oldKey)
        return true;
    m_shell.showMessage(
        tr("Another company is already called \"%1\". Please choose a different title.").arg(title));
    return false;
}

bool CompanyScreen::cmdUpdate1()
{
    Session& session = m_shell.session();
    session.trace(u"Update Company"_s);
    const QString title = m_form.text(u"txtTitle"_s);
    if (!mayBeSaved(title))
        return false;
    const Key oldKey = keyToReplace(title);
    if (!replacementAgreed(oldKey, title))
        return false;
    Action action(session.dataJW());
    const bool inserted = insertRecord(oldKey, title);
    const Key newKey = takeOver(oldKey, title);
    // Without its end on the disk the store is as it was, and what was typed stays in the form for another
    // try.
    if (!action.commit())
        return false;
    const bool complete = inserted && newKey > 0 && newKey != oldKey;
    showAfterSave(newKey, text::quoteFix(title), complete);
    return complete;
}

bool CompanyScreen::insertRecord(Key oldKey, const QString& title)
{
    DataJW& dataJW = m_shell.session().dataJW();
    QString company = wholerecord::insertFront(dataJW, u"COMPANY"_s, u"Company"_s);
    const bool addressInserted = insertAddress(m_shell.session(), m_form);
    // The store is never asked for the number it gave: with one user the highest key is that of the row just
    // added.
    const Key addressKey = dataJW.getCount(u"Address"_s, false, u"AddressKey"_s);
    // A text and not the joining of one, which would point at what is gone by then.
    const auto value = [this](const QString& control) -> QString {
        return fieldtext::quoted(m_form.text(control)) + u',';
    };
    company += fieldtext::quoted(title) + u',' + value(u"txtShort"_s) + u'\'' + QString::number(addressKey) +
               u"'," + value(u"txtIndustry"_s) + value(u"txtCompanyNotes"_s) + u'\'' + entryDate(oldKey) +
               u"');";
    return dataJW.execQuery(company) && addressInserted && addressKey > 0;
}

QString CompanyScreen::entryDate(Key oldKey)
{
    Session& session = m_shell.session();
    if (oldKey <= 0)
        return session.todayText();
    DataJW& dataJW = session.dataJW();
    return dataJW.getCompany(dataJW.getCompanyNameByKey(oldKey)).text(u"EntryDate");
}

Key CompanyScreen::takeOver(Key oldKey, const QString& title)
{
    DataJW& dataJW = m_shell.session().dataJW();
    const QString name = text::quoteFix(title);
    // The row that was replaced goes before the new one is looked up by its name, or the old key would come
    // back.
    if (oldKey > 0)
        dataJW.delRecord(oldKey, u"Company"_s);
    const Key newKey = dataJW.getCompanyKey(name);
    if (oldKey > 0) {
        dataJW.updateCompanySubset(name, oldKey);
        dataJW.execQuery(u"Update Event Set CompanyKey=" + QString::number(newKey) + u" where CompanyKey=" +
                         QString::number(oldKey));
    }
    return newKey;
}

void CompanyScreen::showAfterSave(Key newKey, const QString& name, bool complete)
{
    // When a part of the record did not get into the store, the form keeps what was typed, so that another
    // save can bring it in.
    if (complete)
        m_shell.setSelection(name);
    m_shell.loadCompanyList();
    m_shell.selectCategory();
    m_shell.savedSbar();
    m_shell.selection().currentCompanyKey = newKey;
    m_cutShort = !complete;
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
    clearCompanyForm();
    load();
    m_shell.selectCategory();
    m_shell.updateCounts();
    emit changed();
}

bool CompanyScreen::removeRecords(const QString& name)
{
    DataJW& dataJW = m_shell.session().dataJW();
    const Key key = text::isUnsaved(name) ? Key{0} : dataJW.getCompanyKey(text::quoteFix(name));
    // Events that belong to no company carry the key 0: removing "nothing" would take them all.
    if (key <= 0)
        return text::isUnsaved(name);
    Action action(dataJW);
    dataJW.removeRec(u"Company"_s, text::quoteFix(name));
    dataJW.delContactsByCompany(key);
    return action.commit();
}
