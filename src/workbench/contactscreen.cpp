#include "workbench/contactscreen.h"

#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/record/recordkey.h"
#include "workbench/addressentry.h"
#include "workbench/shell.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

std::vector<FieldRow> contactForm()
{
    std::vector<FieldRow> rows{
        {u"txtFirst"_s, u"FirstName"_s, SaveOn::Leave},
        {u"txtMiddle"_s, u"Middle"_s, SaveOn::Leave},
        {u"txtLast"_s, u"LastName"_s, SaveOn::Leave},
        {u"txtContactTitle"_s, u"Title"_s, SaveOn::Leave},
        {u"txtDept"_s, u"Department"_s, SaveOn::Leave},
        {u"txtReportsTo"_s, u"ReportsTo"_s, SaveOn::Leave},
        {u"txtBestTimes"_s, u"ContactTime"_s, SaveOn::Leave},
        {u"txtDTPicker1"_s, {}, SaveOn::Never}, // only a history writes LastContact
        {u"sldrQuality"_s, u"ContactLevel"_s, SaveOn::Change, FieldKind::Digit},
        {u"sldrInfluence"_s, u"ContactLevel"_s, SaveOn::Change, FieldKind::Digit},
    };
    for (int number = 1; number <= 17; ++number)
        rows.push_back({u"chk"_s + QString::number(number), number < 10 ? u"HiringMgr"_s : u"BestMedium"_s,
                        SaveOn::Leave, FieldKind::Tick});
    rows.push_back({u"txtContactNotes"_s, u"Notes"_s, SaveOn::Leave});
    rows.push_back({u"cmbDocsAvailable"_s, {}, SaveOn::Never});
    return rows;
}

bool isRating(const QString& control)
{
    return control.startsWith(u"sldr");
}

} // namespace

ContactScreen::ContactScreen(Shell& shell, const Form& companyForm)
    : RecordScreen(shell, u"Contact"_s, u"contactkey"_s, contactForm())
    , m_companyForm(companyForm)
{
    m_others.add({}, tr("Contacts"), u"A0"_s, u"contact"_s);
    m_documents.add({}, tr("Documents"), u"D0"_s, u"document"_s);
    clearContactForm();
}

ContactScreen::~ContactScreen() = default;

QString ContactScreen::company() const
{
    return m_shell.selection().selectedCompanyName();
}

QString ContactScreen::contactShown() const
{
    return m_form.text(u"cmbContacts"_s);
}

bool ContactScreen::historyAvailable() const
{
    return m_shell.navigator().hasScreen(u"FrmHistory"_s);
}

// --- Lists ------------------------------------------------------------------------------------------------

void ContactScreen::load()
{
    clearContactForm();
    loadContactList();
    listDocuments();
    m_shell.selectCategory();
}

void ContactScreen::listDocuments()
{
    QStringList documents;
    for (const Dox& document : dataJW().loadDox())
        documents.append(document.docName);
    m_form.setItems(u"cmbDocsAvailable"_s, documents);
}

void ContactScreen::loadContactList()
{
    QStringList names;
    if (!text::isUnsaved(company()))
        names = dataJW().getContactNames(company());
    if (company() != text::newEntry)
        names.append(text::newEntry.toString());
    m_form.setItems(u"cmbContacts"_s, names);
    m_form.setText(u"cmbContacts"_s, {});
    // Thousands of names of all companies are read only for somebody who opens their box.
    m_otherNames.reset();
    m_otherCompany.clear();
    m_form.setText(u"cmbOtherContact"_s, {});
    emit otherContactsChanged();
}

const QStringList& ContactScreen::otherContactNames()
{
    if (!m_otherNames)
        m_otherNames =
            m_otherCompany.isEmpty() ? dataJW().getContactAll() : dataJW().getContactNames(m_otherCompany);
    return *m_otherNames;
}

void ContactScreen::companyChosen()
{
    clearContactForm();
    loadContactList();
    // Opened before any company was chosen, the screen has not read them yet.
    if (m_form.items(u"cmbDocsAvailable"_s).isEmpty())
        listDocuments();
}

void ContactScreen::newRecord()
{
    cmbContactsClick(text::newEntry.toString());
}

// --- Selection --------------------------------------------------------------------------------------------

Key ContactScreen::findContact(const QString& name, const QString& company) const
{
    const QString wanted = text::quoteFix(name);
    // Saved here, a name has its only possible split at the first blank. Names that came in otherwise may
    // hold further blanks on either side.
    for (auto blank = wanted.indexOf(u' '); blank >= 0; blank = wanted.indexOf(u' ', blank + 1)) {
        const Key key = dataJW().getContactKey(wanted.left(blank), wanted.mid(blank + 1), company, true);
        if (key > 0)
            return key;
    }
    if (company == u"*")
        return 0;
    // Or blanks around it, which the list of names does not show.
    const QStringList names = dataJW().getContactNames(company);
    const std::vector<Key> keys = dataJW().getContactKeys(company);
    const auto place = names.lastIndexOf(wanted);
    return place >= 0 && place < qsizetype(keys.size()) ? keys[size_t(place)] : Key{0};
}

Key ContactScreen::keyShown() const
{
    if (text::isUnsaved(contactShown()))
        return 0;
    // The key of the row on the screen tells namesakes apart, which a name cannot.
    const Key current = m_shell.selection().currentContactKey;
    if (current > 0 && dataJW().keyVerification(current, u"ContactKey"_s, u"Contact"_s))
        return current;
    return findContact(contactShown(), company());
}

QString ContactScreen::recordName() const
{
    if (!text::isUnsaved(contactShown()))
        return tr("the contact \"%1\"").arg(contactShown());
    const QString name = QString(m_form.text(u"txtFirst"_s) + u' ' + m_form.text(u"txtLast"_s)).simplified();
    return name.isEmpty() ? tr("the new contact") : tr("the new contact \"%1\"").arg(name);
}

bool ContactScreen::hasMoreToSave() const
{
    return m_others.texts(m_others.index(0, 0)) != m_storedOthers ||
           m_documents.texts(m_documents.index(0, 0)) != m_storedDocuments;
}

bool ContactScreen::showsStored() const
{
    return !text::isUnsaved(contactShown());
}

void ContactScreen::afterLeaving()
{
    m_storedOthers = m_others.texts(m_others.index(0, 0));
    m_storedDocuments = m_documents.texts(m_documents.index(0, 0));
    labelRatings(showsStored());
}

void ContactScreen::cmbContactsClick(const QString& chosen)
{
    const QString before = m_form.cleanText(u"cmbContacts"_s);
    if (!mayLeave())
        return;
    // The record on the screen may have been saved under another name on the way.
    const QString name = chosen == before ? m_form.cleanText(u"cmbContacts"_s) : chosen;
    m_form.setText(u"cmbContacts"_s, name);
    if (text::isUnsaved(name)) {
        clearContactForm();
        m_form.requestFocus(u"txtFirst"_s);
        return;
    }
    if (const auto namesakes = m_form.items(u"cmbContacts"_s).count(name); namesakes > 1)
        m_shell.showMessage(
            tr("%1 contacts of this company are called \"%2\". The one that was stored last is shown.")
                .arg(namesakes)
                .arg(name));
    show(findContact(name, company()));
}

void ContactScreen::showContact(const QString& name)
{
    cmbContactsClick(name);
}

void ContactScreen::show(Key key)
{
    const RecordSet record = dataJW().getContactDataByKey(key);
    if (record.isEmpty()) {
        // Gone since the list was filled; the gateway has said so.
        clearContactForm();
        m_form.setText(u"cmbContacts"_s, {});
        return;
    }
    fillContactForm(record);
    m_form.setText(u"cmbContacts"_s,
                   QString(record.text(u"FirstName") + u' ' + record.text(u"LastName")).trimmed());
}

void ContactScreen::reselect(Key key)
{
    // A name that could not be read would make a new contact of the one on the screen.
    const QString before = contactShown();
    const QString name = dataJW().getContactByKey(key).trimmed();
    m_form.setText(u"cmbContacts"_s, name.isEmpty() ? before : name);
}

void ContactScreen::fillContactForm(const RecordSet& record)
{
    Session& session = m_shell.session();
    session.trace(u"frmData - fillContactForm (Contact)"_s);
    m_shell.selection().currentContactKey =
        keyOrReport(session, record, u"ContactKey", u"frmData - fillContactForm (Contact)"_s);
    m_replacement.showing(m_shell.selection().currentContactKey);
    m_addressKey = record.key(u"AddressKey").value_or(0);
    m_form.fill(record);
    showReached(record);
    labelRatings(true);
    const ReadWatch watch(dataJW());
    showDocuments(record.text(u"DocumentList"));
    showOthers(record.text(u"ContactList"));
    // A key whose row is gone is an ordinary thing; one whose row could not be read must not be left out.
    if (watch.failed())
        m_form.noteUnread();
    emit changed();
}

/// A history writes this day; a save of what was shown before it must not take it back.
void ContactScreen::showReached(const RecordSet& record)
{
    if (record.isEmpty())
        return;
    m_lastContact = record.text(u"LastContact");
    const QDate reached = record.date(u"LastContact");
    m_form.setText(u"txtDTPicker1"_s, reached.isValid() && reached != dates::sentinel
                                          ? QLocale().toString(reached, QLocale::ShortFormat)
                                          : tr("No Contact"));
}

void ContactScreen::clearContactForm()
{
    m_form.clear();
    m_replacement.forget();
    m_shell.selection().currentContactKey = 0;
    m_addressKey = 0;
    m_lastContact.clear();
    labelRatings(false);
    showOthers({});
    showDocuments({});
    if (text::isUnsaved(company())) {
        // With no company there is nobody to choose from.
        m_form.setItems(u"cmbContacts"_s, {});
        m_form.setText(u"cmbContacts"_s, {});
    }
    emit changed();
}

void ContactScreen::showOthers(const QString& keyList)
{
    const QModelIndex root = m_others.index(0, 0);
    m_others.setChildren(root, {}, {});
    for (const QString& key : m_shell.csvParse(keyList)) {
        const QString name = dataJW().getContactByKey(static_cast<Key>(key.toShort()));
        if (!name.trimmed().isEmpty())
            m_others.add(root, name, u'A' + key, u"contact"_s);
    }
    m_storedOthers = m_others.texts(root);
}

void ContactScreen::showDocuments(const QString& keyList)
{
    const QModelIndex root = m_documents.index(0, 0);
    m_documents.setChildren(root, {}, {});
    for (const QString& key : m_shell.csvParse(keyList)) {
        const QString name = dataJW().getDocumentByKey(static_cast<Key>(key.toShort()));
        if (!name.isEmpty())
            m_documents.add(root, name, u'D' + key, u"document"_s);
    }
    m_storedDocuments = m_documents.texts(root);
}

// --- Ratings ----------------------------------------------------------------------------------------------

void ContactScreen::labelRatings(bool rated)
{
    const auto label = [&](const QString& caption, const QString& slider) -> QString {
        return rated ? QString(caption + u' ' + m_form.text(slider)) : caption;
    };
    m_form.setText(u"lblQuality"_s, label(tr("Quality:"), u"sldrQuality"_s));
    m_form.setText(u"lblInfluence"_s, label(tr("Influence:"), u"sldrInfluence"_s));
}

// --- Events of the fields ---------------------------------------------------------------------------------

void ContactScreen::fieldChanged(const QString& control)
{
    const FieldRow* row = m_form.row(control);
    if (!row || row->save == SaveOn::Never)
        return;
    // A box or a slider changed with the mouse has had no key before.
    m_shell.setSbar(u"Contact"_s);
    m_shell.sbarVis();
    if (isRating(control)) {
        labelRatings(true);
        fieldLeft(control);
    }
}

void ContactScreen::fieldSaved(const QString& control)
{
    if (control != u"txtFirst" && control != u"txtLast")
        return;
    // The boxes that find people by name must know the new one.
    const Key key = m_shell.selection().currentContactKey;
    loadContactList();
    reselect(key);
}
