#include "workbench/contactscreen.h"

#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/addressentry.h"
#include "workbench/fieldleaving.h"
#include "workbench/recordkey.h"
#include "workbench/shell.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The flags stand in two columns, a character for each box in the order of the boxes' numbers.
constexpr int firstFlag = 1;
constexpr int firstMedium = 10;
constexpr int lastMedium = 17;

QString box(int number)
{
    return u"chk" + QString::number(number);
}

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
        {u"sldrQuality"_s, u"ContactLevel"_s, SaveOn::Change},
        {u"sldrInfluence"_s, u"ContactLevel"_s, SaveOn::Change},
    };
    for (int number = firstFlag; number <= lastMedium; ++number)
        rows.push_back({box(number), number < firstMedium ? u"HiringMgr"_s : u"BestMedium"_s, SaveOn::Leave});
    rows.push_back({u"txtContactNotes"_s, u"Notes"_s, SaveOn::Leave});
    rows.push_back({u"cmbDocsAvailable"_s, {}, SaveOn::Never});
    return rows;
}

bool isFlag(const QString& control)
{
    return control.startsWith(u"chk");
}

bool isRating(const QString& control)
{
    return control.startsWith(u"sldr");
}

} // namespace

ContactScreen::ContactScreen(Shell& shell, const Form& companyForm)
    : m_shell(shell)
    , m_companyForm(companyForm)
    , m_form(contactForm())
{
    m_others.add({}, tr("Contacts"), u"A0"_s, u"contact"_s);
    m_documents.add({}, tr("Documents"), u"D0"_s, u"document"_s);
    clearContactForm();
}

ContactScreen::~ContactScreen() = default;

DataJW& ContactScreen::dataJW() const
{
    return m_shell.session().dataJW();
}

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
    QStringList documents;
    for (const Dox& document : dataJW().loadDox())
        documents.append(document.docName);
    m_form.setItems(u"cmbDocsAvailable"_s, documents);
    m_shell.selectCategory();
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
    return m_cutShort || m_others.texts(m_others.index(0, 0)) != m_storedOthers ||
           m_documents.texts(m_documents.index(0, 0)) != m_storedDocuments;
}

bool ContactScreen::mayLeave()
{
    if (!fieldleaving::mayLeave(m_shell.session(), m_form,
                                {.name = recordName(),
                                 .isStored = !text::isUnsaved(contactShown()) && !m_cutShort,
                                 .hasMore = hasMoreToSave(),
                                 .leave = [this](const QString& control) { fieldLeft(control); },
                                 .save = [this] { return cmdUpdateContact1(); }}))
        return false;
    m_cutShort = false;
    m_storedOthers = m_others.texts(m_others.index(0, 0));
    m_storedDocuments = m_documents.texts(m_documents.index(0, 0));
    labelRatings(!text::isUnsaved(contactShown()));
    return true;
}

void ContactScreen::cmbContactsClick(const QString& name)
{
    if (!mayLeave())
        return;
    m_form.setText(u"cmbContacts"_s, name);
    if (text::isUnsaved(name)) {
        clearContactForm();
        m_form.requestFocus(u"txtFirst"_s);
        return;
    }
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
    reselect(key);
}

void ContactScreen::reselect(Key key)
{
    m_form.setText(u"cmbContacts"_s, dataJW().getContactByKey(key).trimmed());
}

void ContactScreen::fillContactForm(const RecordSet& record)
{
    Session& session = m_shell.session();
    session.trace(u"frmData - fillContactForm (Contact)"_s);
    m_shell.selection().currentContactKey =
        keyOrReport(session, record, u"ContactKey", u"frmData - fillContactForm (Contact)"_s);
    m_addressKey = record.key(u"AddressKey").value_or(0);
    m_cutShort = false;
    for (const FieldRow& row : m_form.rows()) {
        if (isFlag(row.control)) {
            const int number = row.control.mid(3).toInt();
            const int place = number - (number < firstMedium ? firstFlag : firstMedium);
            m_form.setText(row.control, record.text(row.column).mid(place, 1));
        } else if (!row.column.isEmpty() && !isRating(row.control)) {
            m_form.setText(row.control, fieldtext::toShown(record.text(row.column)));
        }
    }
    showReached(record);
    showRatings(record.key(u"ContactLevel").value_or(0));
    showDocuments(record.text(u"DocumentList"));
    showOthers(record.text(u"ContactList"));
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
    // As the boxes say it: one ticked and cleared again is no change.
    for (int number = firstFlag; number <= lastMedium; ++number)
        m_form.setText(box(number), u"0"_s);
    m_shell.selection().currentContactKey = 0;
    m_addressKey = 0;
    m_cutShort = false;
    m_lastContact.clear();
    showRatings(0);
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
        // A key in a list whose row is gone is an ordinary thing.
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

void ContactScreen::showRatings(int level)
{
    const int kept = std::clamp(level, 0, 99);
    m_form.setText(u"sldrQuality"_s, QString::number(kept / 10));
    m_form.setText(u"sldrInfluence"_s, QString::number(kept % 10));
    labelRatings(true);
}

void ContactScreen::labelRatings(bool rated)
{
    const auto label = [&](const QString& caption, const QString& slider) -> QString {
        return rated ? QString(caption + u' ' + m_form.text(slider)) : caption;
    };
    m_form.setText(u"lblQuality"_s, label(tr("Quality:"), u"sldrQuality"_s));
    m_form.setText(u"lblInfluence"_s, label(tr("Influence:"), u"sldrInfluence"_s));
}

QString ContactScreen::level() const
{
    return m_form.text(u"sldrQuality"_s) + m_form.text(u"sldrInfluence"_s);
}

QString ContactScreen::flags(int from, int to) const
{
    QString result;
    for (int number = from; number <= to; ++number)
        result += m_form.text(box(number)) == u"1" ? u'1' : u'0';
    return result;
}

// --- Events of the fields ---------------------------------------------------------------------------------

void ContactScreen::fieldKeyDown(const QString&)
{
    m_shell.setSbar(u"Contact"_s);
}

void ContactScreen::fieldChanged(const QString& control)
{
    const FieldRow* row = m_form.row(control);
    if (!row || row->save == SaveOn::Never)
        return;
    // A box or a slider changed with the mouse has had no key before.
    m_shell.setSbar(u"Contact"_s);
    m_shell.sbarVis();
    if (isRating(control))
        saveRatings();
}

bool ContactScreen::update(const QString& column, const QString& value)
{
    const Key key = keyShown();
    if (key <= 0 || !dataJW().execQuery(u"Update Contact set " + column + u'=' + value +
                                        u" where contactkey=" + QString::number(key)))
        return false;
    m_shell.savedSbar();
    return true;
}

void ContactScreen::saveRatings()
{
    labelRatings(true);
    if (text::isUnsaved(contactShown()) || !update(u"ContactLevel"_s, level()))
        return;
    for (const QString& slider : {u"sldrQuality"_s, u"sldrInfluence"_s})
        m_form.markClean(slider);
}

void ContactScreen::saveFlags(const QString& control)
{
    const bool hiring = control.mid(3).toInt() < firstMedium;
    const int from = hiring ? firstFlag : firstMedium;
    const int to = hiring ? firstMedium - 1 : lastMedium;
    if (!update(m_form.row(control)->column, u'\'' + flags(from, to) + u'\''))
        return;
    for (int number = from; number <= to; ++number)
        m_form.markClean(box(number));
}

void ContactScreen::fieldLeft(const QString& control)
{
    const FieldRow* row = m_form.row(control);
    // A text that was changed back leaves nothing to update.
    if (!fieldleaving::hasUnsaved(m_form) && !hasMoreToSave())
        m_shell.savedSbar();
    if (!row || row->save == SaveOn::Never || !m_form.isDirty(control) || text::isUnsaved(contactShown()))
        return;
    if (isRating(control)) {
        saveRatings();
        return;
    }
    if (isFlag(control)) {
        saveFlags(control);
        return;
    }
    // What was not written stays marked as changed, and the next leaving of the field tries again.
    if (!update(row->column, fieldtext::quoted(m_form.text(control))))
        return;
    m_form.markClean(control);
    if (control != u"txtFirst" && control != u"txtLast")
        return;
    // The boxes that find people by name must know the new one.
    const Key key = m_shell.selection().currentContactKey;
    loadContactList();
    reselect(key);
}
