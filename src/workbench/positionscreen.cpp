// The Position screen's form: choosing, showing, saving field by field. Contacts and the whole save have
// files of their own.
#include "workbench/positionscreen.h"

#include "base/fieldtext.h"
#include "base/text.h"
#include "store/engine/storeerror.h"
#include "store/gateway/datajw.h"
#include "store/record/recordkey.h"
#include "workbench/pipelinesteps.h"
#include "workbench/shell.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int defaultExpiryDays = 30;

std::vector<FieldRow> positionForm()
{
    return {
        {u"cmbPosSelection"_s, {}, SaveOn::Never},
        {u"txtPosTitle"_s, u"Title"_s, SaveOn::Record},
        {u"txtKeyword"_s, u"Keyword"_s, SaveOn::Leave},
        {u"txtLocation"_s, u"Location"_s, SaveOn::Leave},
        {u"txtSource"_s, u"Source"_s, SaveOn::Leave},
        {u"dtpExpires"_s, u"Expires"_s, SaveOn::Change, FieldKind::Date},
        {u"txtResponsibilities"_s, u"Responsibilities"_s, SaveOn::Leave},
        {u"txtQualifications"_s, u"Qualifications"_s, SaveOn::Leave},
        {u"txtBenefits"_s, u"Benefits"_s, SaveOn::Leave},
        {u"txtPosNotes"_s, u"Notes"_s, SaveOn::Leave},
        {u"cmbAssignContact"_s, {}, SaveOn::Never},
    };
}

bool sameTitle(const QString& one, const QString& other)
{
    return text::quoteFix(one.trimmed()).compare(text::quoteFix(other.trimmed()), Qt::CaseInsensitive) == 0;
}

} // namespace

PositionScreen::PositionScreen(Shell& shell)
    : RecordScreen(shell, u"Position"_s, u"positionkey"_s, positionForm())
{
    m_form.setEnabled(u"cmdJProfile1"_s, shell.navigator().hasScreen(u"FrmProfileJob"_s));
    // The shell around is still being built: the form's own part of its empty state only.
    clearContacts();
    m_form.setDate(u"dtpExpires"_s, shell.session().today().addDays(defaultExpiryDays));
    // The position shown belongs to the company that was selected; with another one, or after that company's
    // removal, nobody may act on its key.
    connect(&shell.selection(), &Selection::selectedCompanyNameChanged, this,
            &PositionScreen::clearPositionForm);
}

PositionScreen::~PositionScreen() = default;

QString PositionScreen::companyName()
{
    return text::quoteFix(m_shell.selection().selectedCompanyName());
}

void PositionScreen::load()
{
    clearPositionForm();
    m_shell.clearPipeBoxes();
    loadPositionList();
    listAssignable();
    m_shell.selectCategory();
    computeJptr();
    emit changed();
}

void PositionScreen::companyChosen()
{
    load();
    m_shell.savedSbar();
}

void PositionScreen::newRecord()
{
    cmbPosSelectionClick(text::newEntry.toString());
}

void PositionScreen::showPosition(const QString& title)
{
    cmbPosSelectionClick(title);
}

void PositionScreen::loadPositionList()
{
    QStringList titles;
    if (!companyName().isEmpty())
        titles = m_shell.session().dataJW().getPositionNames(companyName());
    titles.append(text::newEntry.toString());
    m_form.setItems(u"cmbPosSelection"_s, titles);
}

void PositionScreen::cmbPosSelectionClick(const QString& chosen)
{
    const QString before = m_form.cleanText(u"cmbPosSelection"_s);
    if (!mayLeave()) {
        emit changed();
        return;
    }
    // The record on the screen may have been saved under another title on the way.
    const QString text = chosen == before ? m_form.cleanText(u"cmbPosSelection"_s) : chosen;
    m_shell.savedSbar();
    RecordSet position;
    if (!text::isUnsaved(text))
        position = m_shell.session().dataJW().getPosition(companyName(), text::quoteFix(text));
    if (!position.isEmpty()) {
        fillPosForm(position);
    } else {
        clearPositionForm();
        m_shell.clearPipeBoxes();
        // A title that is no longer there, or could not be read, must not look like a position to be saved.
        m_form.setText(u"cmbPosSelection"_s, text::isUnsaved(text) ? text::newEntry.toString() : QString());
        m_form.requestFocus(u"txtPosTitle"_s);
    }
    computeJptr();
    emit changed();
}

void PositionScreen::fillPosForm(const RecordSet& record)
{
    Session& session = m_shell.session();
    session.trace(u"frmData - fillPosForm (Position)"_s);
    m_shell.selection().currentPositionKey =
        keyOrReport(session, record, u"PositionKey", u"frmData - fillPosForm (Position)"_s);
    m_replacement.showing(m_shell.selection().currentPositionKey);
    m_lost.reset();
    m_form.fill(record);
    m_form.setText(u"cmbPosSelection"_s, record.text(u"Title"));
    m_progress = PipelineSteps(record).progress();
    const QDate expires = record.date(u"Expires");
    // A row that never got an expiry shows the day for missing dates: long past, so that somebody looks.
    showExpires(expires.isValid() ? expires : dates::missing);
    fillContacts(record.text(u"ContactList"));
    emit changed();
}

void PositionScreen::clearPositionForm()
{
    m_form.clear();
    clearContacts();
    forgetFailedSave();
    m_progress = 0;
    m_shell.selection().currentPositionKey = 0;
    showExpires(m_shell.session().today().addDays(defaultExpiryDays));
    emit changed();
}

void PositionScreen::stepsChanged()
{
    const Key key = m_shell.selection().currentPositionKey;
    if (key == 0)
        return;
    const RecordSet record = m_shell.session().dataJW().getPositionByKey(key);
    if (record.isEmpty())
        return;
    m_progress = PipelineSteps(record).progress();
    emit changed();
}

QString PositionScreen::nextStep() const
{
    return PipelineSteps::nextStep(m_progress);
}

void PositionScreen::forgetFailedSave()
{
    m_lost.reset();
    m_replacement.forget();
}

void PositionScreen::trimTitle()
{
    m_form.amend(u"txtPosTitle"_s, m_form.text(u"txtPosTitle"_s).trimmed());
}

// --- Expiry -----------------------------------------------------------------------------------------------

bool PositionScreen::hasExpiry() const
{
    return m_form.date(u"dtpExpires"_s) != dates::sentinel;
}

void PositionScreen::showExpires(QDate date)
{
    m_form.setDate(u"dtpExpires"_s, date);
    expiryShown(date);
}

void PositionScreen::expiryShown(QDate date)
{
    m_form.setEnabled(u"dtpExpires"_s, hasExpiry());
    checkExpiry(date);
}

void PositionScreen::checkExpiry(QDate expires)
{
    // The empty date is no date, so nothing expires on it.
    if (expires != dates::sentinel && m_shell.session().today() > expires) {
        m_shell.setPositionPanel(tr("Position EXPIRED"));
        m_shell.sbarVis();
    } else {
        m_shell.setPositionPanel({});
    }
}

void PositionScreen::tickExpires(bool ticked)
{
    if (ticked == hasExpiry())
        return;
    m_shell.setSbar(u"Position"_s);
    expiresEdited(ticked ? m_shell.session().today().addDays(defaultExpiryDays) : dates::sentinel);
}

void PositionScreen::expiresEdited(QDate date)
{
    m_form.amendDate(u"dtpExpires"_s, date);
    expiryShown(date);
    m_shell.sbarVis();
    fieldLeft(u"dtpExpires"_s);
    emit changed();
}

// --- Events of the fields ---------------------------------------------------------------------------------

void PositionScreen::fieldChanged(const QString& control)
{
    if (control == u"dtpExpires")
        expiresEdited(m_form.date(control));
    else if (control == u"txtPosTitle")
        // The shell's way to show the panel trims the title; done here, no title could get a blank typed.
        m_shell.showProc(m_shell.procText());
    else
        m_shell.sbarVis();
}

void PositionScreen::fieldLeft(const QString& control)
{
    if (control == u"txtPosTitle")
        trimTitle();
    RecordScreen::fieldLeft(control);
}

QString PositionScreen::recordName() const
{
    const QString selected = m_form.text(u"cmbPosSelection"_s);
    if (!text::isUnsaved(selected))
        return tr("the position \"%1\"").arg(selected);
    const QString title = m_form.text(u"txtPosTitle"_s).trimmed();
    return title.isEmpty() ? tr("the new position") : tr("the new position \"%1\"").arg(title);
}

bool PositionScreen::hasMoreToSave() const
{
    return m_contacts.texts(m_contacts.index(0, 0)) != m_storedContacts;
}

bool PositionScreen::mayLeave()
{
    const bool expiryWaits = m_form.isDirty(u"dtpExpires"_s);
    if (!RecordScreen::mayLeave())
        return false;
    m_lost.reset();
    m_storedContacts = m_contacts.texts(m_contacts.index(0, 0));
    if (expiryWaits)
        expiryShown(m_form.date(u"dtpExpires"_s));
    return true;
}

bool PositionScreen::showsStored() const
{
    const QString selected = m_form.text(u"cmbPosSelection"_s);
    // A title that is being changed names another position of the company, or none.
    return !text::isUnsaved(selected) && sameTitle(selected, m_form.text(u"txtPosTitle"_s));
}

Key PositionScreen::rowOfFields()
{
    if (!showsStored())
        return 0;
    const QString selected = m_form.text(u"cmbPosSelection"_s);
    const Key key = dataJW().getPositionKey(text::quoteFix(selected), companyName());
    return key == m_shell.selection().currentPositionKey ? key : Key{0};
}

// --- Ranks ------------------------------------------------------------------------------------------------

double PositionScreen::place(bool position, Key key, double before)
{
    Session& session = m_shell.session();
    const Key rank = session.dataJW().getProfileRank(position, key);
    const Key count = session.dataJW().getProfileCount(position);
    if (rank <= 0)
        return 0;
    if (count != 0)
        return double(rank) / count;
    // A questionnaire without questions has no scale to place a rank on: the pointer stays where it was.
    const StoreError division(tr("Division by zero"), 11, u"Jobwright"_s);
    session.logError(u"frmData - computeJptr"_s, 1, &division);
    return before;
}

void PositionScreen::computeJptr()
{
    const Selection& selection = m_shell.selection();
    m_companyPlace = place(false, selection.currentCompanyKey, m_companyPlace);
    m_positionPlace = place(true, selection.currentPositionKey, m_positionPlace);
    emit changed();
}

void PositionScreen::cmdJProfile1()
{
    Session& session = m_shell.session();
    session.trace(u"Open Profile - Position"_s);
    if (m_shell.selection().currentPositionKey == 0) {
        m_shell.showMessage(tr("No existing position has been selected.") + text::crlf +
                            tr("Make sure you saved and selected any position data prior to creating a "
                               "profile."));
        session.trace(u"Position not selected. Abort Open Profile."_s);
        return;
    }
    m_shell.navigator().open(u"FrmProfileJob"_s);
    computeJptr();
}
