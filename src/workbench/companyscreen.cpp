#include "workbench/companyscreen.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/engine/storeerror.h"
#include "store/gateway/datajw.h"
#include "store/record/recordkey.h"
#include "workbench/companysummary.h"
#include "workbench/shell.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

std::vector<FieldRow> companyForm()
{
    return {
        {u"txtTitle"_s, u"Name"_s, SaveOn::Record},
        {u"txtShort"_s, u"ShortName"_s, SaveOn::Leave},
        {u"txtIndustry"_s, u"Industry"_s, SaveOn::Leave},
        {u"txtCompanyNotes"_s, u"Notes"_s, SaveOn::Leave},
        {u"txtAddress"_s, {}, SaveOn::Record}, // Address1 and Address2
        {u"txtCity"_s, u"City"_s, SaveOn::Record},
        {u"txtState"_s, u"State"_s, SaveOn::Record},
        {u"txtZip"_s, u"Zip"_s, SaveOn::Record},
        {u"txtP1"_s, u"Phone1"_s, SaveOn::Record},
        {u"txtP2"_s, u"Phone2"_s, SaveOn::Record},
        {u"txtP3"_s, u"Phone3"_s, SaveOn::Record},
        {u"txtFax"_s, u"Fax"_s, SaveOn::Record},
        {u"txtEm1"_s, u"Email1"_s, SaveOn::Record},
        {u"txtEm2"_s, u"Email2"_s, SaveOn::Record},
        {u"txtURL1"_s, u"URL1"_s, SaveOn::Record},
        {u"txtURL2"_s, u"URL2"_s, SaveOn::Record},
        {u"txtPosCount"_s, {}, SaveOn::Never},
        {u"txtContCount"_s, {}, SaveOn::Never},
        {u"txtLastCont"_s, {}, SaveOn::Never},
        {u"txtEntryDate"_s, {}, SaveOn::Never},
        {u"txtHTRatio"_s, {}, SaveOn::Never},
        {u"txtRTRatio"_s, {}, SaveOn::Never},
        {u"txtSummary"_s, {}, SaveOn::Never},
    };
}

QString shownDate(QDate date)
{
    return QLocale().toString(date, QLocale::ShortFormat);
}

/// A ratio above 0 for its box, rounded to two decimals (a half to the even digit); "" for any other.
QString shownRatio(double ratio)
{
    if (ratio <= 0)
        return {};
    return QLocale().toString(std::nearbyint(ratio * 100) / 100, 'f', QLocale::FloatingPointShortest);
}

} // namespace

CompanyScreen::CompanyScreen(Shell& shell)
    : RecordScreen(shell, u"Company"_s, u"companykey"_s, companyForm())
{
    m_form.setVisible(u"imgTgt"_s, false);
    showAsCategory(false);
}

CompanyScreen::~CompanyScreen() = default;

void CompanyScreen::load()
{
    m_shell.session().trace(u"frmData - loadCompanyFrame"_s);
    m_shell.selection().currentScreen = u"Company"_s;
    m_shell.loadCompanyList();
    const QString name = m_shell.selection().selectedCompanyName();
    m_tree.clear();
    if (!name.isEmpty())
        loadCompanySelection(name);
    // A company that is shown has brought its contacts along; without one the tree is its root alone.
    if (m_tree.rowCount() == 0)
        fillTree(u"contact"_s);
}

void CompanyScreen::loadCompanySelection(const QString& name)
{
    const bool saved = !text::isUnsaved(name) && showSaved(name);
    if (!saved)
        showNew();
    m_shell.clearPipeBoxes();
    adjustProfile();
    m_shell.savedSbar();
    emit changed();
}

void CompanyScreen::showNew()
{
    Selection& selection = m_shell.selection();
    clearCompanyForm();
    selection.currentCompanyKey = 0;
    m_form.setVisible(u"imgTgt"_s, false);
    if (selection.selectedCompanyName() != text::newEntry)
        return;
    m_form.setText(u"txtSummary"_s, tr("New Company"));
    if (m_shell.isOpen(u"Company"_s))
        m_form.requestFocus(u"txtTitle"_s);
}

bool CompanyScreen::showSaved(const QString& name)
{
    Session& session = m_shell.session();
    const RecordSet company = session.dataJW().getCompany(text::quoteFix(name));
    if (company.isEmpty()) {
        // Gone since the list was filled (a restore, a removal elsewhere), or not to be read: nothing is
        // selected then, so that no later step takes the empty form for that company's.
        m_shell.setSelection({});
        m_shell.selectCategory();
        return false;
    }
    fillForm(company);
    showFigures(gatherFigures(session.dataJW(), company.text(u"Name"), session.today()), company);
    // The selector finds a name in any case of its letters; what it shows is the stored one.
    m_shell.setSelection(company.text(u"Name"));
    fillTree(m_tree.data(m_tree.index(0, 0), TreeModel::KindRole).toString());
    return true;
}

void CompanyScreen::fillForm(const RecordSet& record)
{
    Session& session = m_shell.session();
    session.trace(u"frmData - FillForm (Company)"_s);
    m_shell.selection().currentCompanyKey =
        keyOrReport(session, record, u"CompanyKey", u"frmData - FillForm (Company)"_s);
    const RecordSet address = session.dataJW().getAddress(record.key(u"AddressKey").value_or(0));
    m_replacement.showing(m_shell.selection().currentCompanyKey);
    m_form.fill(record);
    m_form.fillMore(address);
    // The line break stands there without a second line too: the save splits at the first one.
    m_form.setText(u"txtAddress"_s,
                   fieldtext::toShown(address.text(u"Address1") + text::crlf + address.text(u"Address2")));
}

void CompanyScreen::clearCompanyForm()
{
    m_form.clear();
    m_tree.clear();
    m_daysSinceContact = -1;
    m_replacement.forget();
}

void CompanyScreen::countsChanged()
{
    if (!showsStored() || m_shell.selection().currentCompanyKey == 0)
        return;
    const RecordSet company = dataJW().getCompany(text::quoteFix(m_shell.selection().selectedCompanyName()));
    if (company.isEmpty())
        return;
    showFigures(gatherFigures(dataJW(), company.text(u"Name"), m_shell.session().today()), company);
    emit changed();
}

void CompanyScreen::showFigures(const CompanyFigures& figures, const RecordSet& company)
{
    const QDate today = m_shell.session().today();
    m_form.setText(u"txtPosCount"_s, QString::number(figures.positionCount));
    m_form.setText(u"txtContCount"_s, QString::number(figures.contactCount));
    // Boxes without a figure of this company are emptied; they would show the one before it.
    const QDate entered = company.date(u"EntryDate");
    m_form.setText(u"txtEntryDate"_s, entered.isValid() ? shownDate(entered) : QString());
    m_form.setText(u"txtLastCont"_s, figures.contactCount != 0 ? shownDate(figures.lastContact) : QString());
    m_form.setText(u"txtRTRatio"_s, shownRatio(figures.rankRatio));
    m_form.setText(u"txtHTRatio"_s, shownRatio(figures.historyRatio));
    m_form.setVisible(u"imgTgt"_s, figures.isTarget);
    m_form.setText(u"txtSummary"_s, companySummary(figures, today));
    m_daysSinceContact =
        figures.lastContact > dates::sentinel ? static_cast<int>(figures.lastContact.daysTo(today)) : -1;
}

void CompanyScreen::adjustProfile()
{
    Session& session = m_shell.session();
    const Key rank = session.dataJW().getProfileRank(false, m_shell.selection().currentCompanyKey);
    const Key count = session.dataJW().getProfileCount(false);
    if (rank < 0) {
        m_pointerPlace = 0;
        m_pointerLit = false;
    } else if (count > 0) {
        m_pointerPlace = double(rank) / count;
        m_pointerLit = true;
    } else {
        // A questionnaire without questions has no scale to place a rank on: the pointer stays where it was.
        const StoreError division(tr("Division by zero"), 11, u"Jobwright"_s);
        session.logError(u"frmData - adjustProfile"_s, 1, &division);
    }
    emit changed();
}

void CompanyScreen::showAsCategory(bool category)
{
    static const QStringList companyOnly{
        u"txtShort"_s, u"txtAddress"_s,  u"txtCity"_s,     u"txtState"_s,     u"txtZip"_s, u"txtEm1"_s,
        u"txtEm2"_s,   u"txtURL1"_s,     u"txtURL2"_s,     u"txtP1"_s,        u"txtP2"_s,  u"txtP3"_s,
        u"txtFax"_s,   u"txtIndustry"_s, u"imgPosition"_s, u"cmdFastParser"_s};
    for (const QString& control : companyOnly)
        m_form.setEnabled(control, !category);
    m_form.setEnabled(u"cmdProfile1"_s, !category && m_shell.navigator().hasScreen(u"FrmProfileComp"_s));
}

void CompanyScreen::fillTree(const QString& kind)
{
    const bool positions = kind == u"position";
    const QString name = m_shell.selection().selectedCompanyName();
    m_tree.clear();
    const QModelIndex root = m_tree.add({}, positions ? tr("Positions") : tr("Contacts"), u"A0"_s,
                                        positions ? u"position"_s : u"contact"_s);
    if (text::isUnsaved(name) || (positions && text::isCategory(name)))
        return;
    DataJW& dataJW = m_shell.session().dataJW();
    m_tree.setChildren(root, positions ? dataJW.getPositionNames(name) : dataJW.getContactNames(name),
                       positions ? u"position"_s : u"contact"_s);
}

void CompanyScreen::imgContact()
{
    fillTree(u"contact"_s);
}

void CompanyScreen::imgPosition()
{
    fillTree(u"position"_s);
}

void CompanyScreen::tvwPosContactDblClick(const QModelIndex& index)
{
    if (!index.parent().isValid())
        return;
    const bool position = m_tree.data(index, TreeModel::KindRole).toString() == u"position";
    m_shell.showOn(position ? u"Position"_s : u"Contact"_s, m_tree.text(index));
}

// --- Events of the fields ---------------------------------------------------------------------------------

Key CompanyScreen::rowOfFields()
{
    const QString selected = m_shell.selection().selectedCompanyName();
    return showsStored() ? dataJW().getCompanyKey(text::quoteFix(selected)) : Key(0);
}

bool CompanyScreen::showsStored() const
{
    const QString selected = m_shell.selection().selectedCompanyName();
    return !text::isUnsaved(selected) && !text::isCategory(selected);
}

bool CompanyScreen::mayBeOffered() const
{
    // The save refuses a category.
    return !text::isCategory(m_shell.selection().selectedCompanyName());
}

QString CompanyScreen::recordName() const
{
    const QString selected = m_shell.selection().selectedCompanyName();
    if (!text::isUnsaved(selected))
        return tr("the company \"%1\"").arg(selected);
    const QString title = m_form.text(u"txtTitle"_s).trimmed();
    return title.isEmpty() ? tr("the new company") : tr("the new company \"%1\"").arg(title);
}
