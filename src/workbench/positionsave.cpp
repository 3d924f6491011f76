// Saving and removing a whole position.
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/gateway/recoveryinsert.h"
#include "workbench/pipelinesteps.h"
#include "workbench/positionscreen.h"
#include "workbench/shell.h"
#include "workbench/wholerecord.h"

using namespace Qt::StringLiterals;

namespace {

/// The values of a step that is not done.
QString noStep()
{
    return u"'12/31/1999',0,"_s;
}

/// The steps of a stored row as an Insert repeats them.
QString storedSteps(const RecordSet& position)
{
    QString values;
    for (int index = 0; index < PipelineSteps::count; ++index) {
        const QString column = PipelineSteps::getIndexTitle(index);
        const QDate date = position.date(column);
        if (date.isValid() && date >= dates::sentinel)
            values += u'\'' + position.text(column) + u"','" +
                      position.text(PipelineSteps::getIndexMediumTitle(index)) + u"',";
        else
            values += noStep();
    }
    return values;
}

} // namespace

bool PositionScreen::cmdUpdatePos1()
{
    m_shell.session().trace(u"Update Position"_s);
    trimTitle();
    if (!mayBeSaved())
        return false;
    const Key key = m_shell.selection().currentPositionKey;
    bool saved = false;
    if (m_lost) {
        saved = upPosx(m_lost->stepValues, m_lost->offerStatus);
    } else if (key == 0) {
        saved = upPosx({}, {});
    } else {
        const RecordSet row = m_shell.session().dataJW().getPositionByKey(key);
        if (row.isEmpty())
            tellUnreadable();
        else
            saved = upPosx(storedSteps(row), row.text(u"OfferStatus"));
    }
    if (saved)
        emit stored();
    emit changed();
    return saved;
}

bool PositionScreen::mayBeSaved()
{
    const QString company = m_shell.selection().selectedCompanyName();
    if (text::isUnsaved(company)) {
        m_shell.showMessage(tr("Please select a company before storing a position to it."));
        return false;
    }
    // "<New>" names the box's own entry: a position of that title could never be chosen again.
    const QString title = m_form.text(u"txtPosTitle"_s);
    if (title.isEmpty() || title == text::newEntry) {
        m_shell.showMessage(tr("Please enter a name for a new Position in") + text::crlf +
                            tr("the position selection box or select a Position to update."));
        return false;
    }
    if (titleIsTaken()) {
        m_shell.showMessage(
            tr("Another position of this company is already called \"%1\". Please choose a different title.")
                .arg(title));
        return false;
    }
    return wholerecord::mayBeStored(m_shell.session(), m_form, {u"Position"_s});
}

void PositionScreen::tellUnreadable()
{
    m_shell.showMessage(
        tr("The position could not be read from the database, so nothing was saved or changed."));
}

bool PositionScreen::titleIsTaken()
{
    // Positions are found by title within their company: of two with the same one could be reached no more.
    const Key other = m_shell.session().dataJW().getPositionKey(text::quoteFix(m_form.text(u"txtPosTitle"_s)),
                                                                companyName());
    return other != 0 && other != m_shell.selection().currentPositionKey;
}

bool PositionScreen::upPosx(const QString& stepValues, const QString& offerStatus)
{
    m_shell.session().trace(u"frmData - upPosx (Position)"_s);
    DataJW& dataJW = m_shell.session().dataJW();
    Action action(dataJW);
    const std::optional<Replacement> record = prepare(stepValues, offerStatus);
    if (!record) {
        tellUnreadable();
        return false;
    }
    const Key newKey = replaceRow(*record);
    // Without its end on the disk the store is as it was, and what was typed stays in the form for another
    // try.
    if (!action.commit())
        return false;
    if (newKey > 0 && newKey != record->oldKey) {
        showSaved(newKey);
        return true;
    }
    if (newKey > 0) {
        // The old row could not be deleted and hides the new one, which has its title. The form stays as
        // typed, and the next save takes both away.
        m_twin = dataJW.getLastKeyInTable(u"Position"_s, u"PositionKey"_s);
        return false;
    }
    // The old row is gone and the new one did not get in. What only the old row knew is kept for the next
    // try, and nobody else may act on a key without a row.
    if (record->oldKey > 0)
        m_lost = LostRow{record->oldKey, record->entryDate, stepValues, offerStatus};
    m_shell.selection().currentPositionKey = 0;
    return false;
}

std::optional<PositionScreen::Replacement> PositionScreen::prepare(const QString& stepValues,
                                                                   const QString& offerStatus)
{
    Session& session = m_shell.session();
    DataJW& dataJW = session.dataJW();
    Replacement record;
    record.entryDate = session.todayText();
    if (m_lost) {
        record.oldKey = m_lost->key;
        record.entryDate = m_lost->entryDate;
    } else if (const Key key = m_shell.selection().currentPositionKey; key != 0) {
        const RecordSet row = dataJW.getPositionByKey(key);
        if (row.isEmpty())
            return std::nullopt;
        record.oldKey = key;
        record.entryDate = row.text(u"EntryDate");
    }
    // What cannot be read is found out here, while the old row still stands.
    const QString front = wholerecord::insertFront(dataJW, u"Position"_s, u"Position"_s);
    const Key company = dataJW.getCompanyKey(companyName());
    if (front.isEmpty() || company <= 0)
        return std::nullopt;
    record.insert = front + values(record.entryDate, stepValues, offerStatus) + QString::number(company) +
                    u",'" + expiryText() + u"')";
    return record;
}

QString PositionScreen::values(const QString& entryDate, const QString& stepValues,
                               const QString& offerStatus)
{
    const auto value = [this](const QString& control) -> QString {
        return fieldtext::quoted(m_form.text(control)) + u',';
    };
    QString values = value(u"txtPosTitle"_s) + u'\'' + entryDate + u"',";
    for (const QString& control : {u"txtResponsibilities"_s, u"txtQualifications"_s, u"txtKeyword"_s,
                                   u"txtPosNotes"_s, u"txtBenefits"_s, u"txtLocation"_s})
        values += value(control);
    values += stepValues.isEmpty() ? noStep().repeated(PipelineSteps::count) : stepValues;
    // The column between steps and status is not used: how much the user wants a position, its questionnaire
    // tells.
    values += u"''," + fieldtext::quoted(offerStatus) + u',' + value(u"txtSource"_s);
    return values + u'\'' + contactList() + u"',";
}

QString PositionScreen::expiryText() const
{
    if (!hasExpiry())
        return u"12/31/99"_s;
    return dates::mdyyyy(QDate::fromString(m_form.text(u"dtpExpires"_s), Qt::ISODate));
}

Key PositionScreen::replaceRow(const Replacement& record)
{
    DataJW& dataJW = m_shell.session().dataJW();
    dataJW.delRecord(record.oldKey, u"Position"_s);
    dataJW.delRecord(m_twin, u"Position"_s);
    const bool inserted = dataJW.execQuery(record.insert);
    // The journal of versions takes what the user wrote even if the position itself could not.
    dataJW.execQuery(recoveryInsert(record.insert, u"PositionRecovery"_s));
    if (!inserted)
        return 0;
    Key newKey = dataJW.getPositionKey(text::quoteFix(m_form.text(u"txtPosTitle"_s)), companyName());
    if (newKey <= 0) // not found by its title, but the highest key is that of the row just added
        newKey = dataJW.getLastKeyInTable(u"Position"_s, u"PositionKey"_s);
    if (record.oldKey > 0 && newKey > 0 && newKey != record.oldKey) {
        const QString moved = u" PositionKey=" + QString::number(newKey) + u" where PositionKey=" +
                              QString::number(record.oldKey);
        dataJW.execQuery(u"Update Event Set" + moved);
        dataJW.execQuery(u"Update JProfile set" + moved);
    }
    return newKey;
}

void PositionScreen::showSaved(Key newKey)
{
    m_shell.selection().currentPositionKey = newKey;
    forgetFailedSave();
    loadPositionList();
    const RecordSet row = m_shell.session().dataJW().getPositionByKey(newKey);
    // What was typed is what was stored; it stays when it cannot be shown anew.
    if (row.isEmpty())
        m_form.setText(u"cmbPosSelection"_s, text::quoteFix(m_form.text(u"txtPosTitle"_s)));
    else
        fillPosForm(row);
    computeJptr();
    m_shell.updateCounts();
    m_shell.savedSbar();
}

void PositionScreen::cmdRemovePos1()
{
    Session& session = m_shell.session();
    session.trace(u"Remove Position"_s);
    const QString title = m_form.text(u"cmbPosSelection"_s);
    if (text::isUnsaved(title)) {
        m_shell.showMessage(tr("Please select a Position to remove."), Buttons::Ok,
                            tr("Jobwright - Message"));
        return;
    }
    Action action(session.dataJW());
    session.dataJW().delRecord(m_shell.selection().currentPositionKey, u"Position"_s);
    if (!action.commit())
        return;
    loadPositionList();
    clearPositionForm();
    m_shell.clearPipeBoxes();
    computeJptr();
    m_shell.savedSbar();
    m_shell.updateCounts();
    emit stored();
    emit changed();
}
