// Saving and removing a whole position.
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/pipelinesteps.h"
#include "workbench/positionscreen.h"
#include "workbench/shell.h"

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
    return m_form.mayBeStored({u"Position"_s});
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
    return other != 0 && other != m_shell.selection().currentPositionKey && !m_replacement.isWaiting(other);
}

bool PositionScreen::upPosx(const QString& stepValues, const QString& offerStatus)
{
    m_shell.session().trace(u"frmData - upPosx (Position)"_s);
    if (!m_form.mayBeStored({u"Position"_s}))
        return false;
    const ReadWatch watch(dataJW());
    const Key key = m_shell.selection().currentPositionKey;
    RowFacts facts{m_shell.session().todayText(), stepValues, offerStatus};
    if (m_lost)
        facts.entryDate = m_lost->entryDate;
    const auto insert = [&]() -> QString {
        if (!m_lost && key != 0) {
            const RecordSet row = dataJW().getPositionByKey(key);
            if (row.isEmpty())
                return {};
            facts.entryDate = row.text(u"EntryDate");
        }
        return insertStatement(facts);
    };
    const auto outcome = replace({.table = u"Position"_s,
                                  .keyColumn = u"PositionKey"_s,
                                  .journal = u"PositionRecovery"_s,
                                  .order = ReplacementPlan::Order::DeleteFirst,
                                  .oldKeys = {key},
                                  .watch = &watch,
                                  .insert = insert,
                                  .remove = {},
                                  .find = [this] { return findSaved(); },
                                  .move = [this](Key newKey, Key oldKey) { moveReferences(newKey, oldKey); },
                                  .finish = {}});
    const bool complete = outcome == RecordReplacement::Outcome::Stored;
    if (complete || outcome == RecordReplacement::Outcome::Unfinished) {
        showSaved(complete);
    } else if (m_replacement.isUnfinished()) {
        // The old row is gone and the new one did not get in. What only the old row knew is kept for the next
        // try, and nobody else may act on a key without a row.
        m_lost = facts;
        m_shell.selection().currentPositionKey = 0;
    }
    return complete;
}

QString PositionScreen::insertStatement(const RowFacts& facts)
{
    const QStringList columns = recordcolumns::of(dataJW(), u"Position"_s);
    const Key company = dataJW().getCompanyKey(companyName());
    if (columns.isEmpty() || company <= 0)
        return {};
    const QStringList steps =
        (facts.stepValues.isEmpty() ? noStep().repeated(PipelineSteps::count) : facts.stepValues).split(u',');
    const auto firstStep = columns.indexOf(PipelineSteps::getIndexTitle(0));
    const QHash<QString, QString> beside{{u"EntryDate"_s, u'\'' + facts.entryDate + u'\''},
                                         // How much the user wants a position, its questionnaire tells.
                                         {u"PersonalRanking"_s, u"''"_s},
                                         {u"OfferStatus"_s, fieldtext::quoted(facts.offerStatus)},
                                         {u"ContactList"_s, u'\'' + contactList() + u'\''},
                                         {u"CompanyKey"_s, QString::number(company)},
                                         {u"Expires"_s, u'\'' + expiryText() + u'\''}};
    const auto valueOf = [&](const QString& column) -> QString {
        const auto step = columns.indexOf(column) - firstStep;
        if (step >= 0 && step < 2 * PipelineSteps::count)
            return steps.value(step);
        return beside.contains(column) ? beside.value(column) : m_form.columnValue(column);
    };
    return recordcolumns::insert(u"Position"_s, columns, valueOf, u")"_s);
}

QString PositionScreen::expiryText() const
{
    return hasExpiry() ? m_form.columnText(u"Expires"_s) : u"12/31/99"_s;
}

Key PositionScreen::findSaved()
{
    return dataJW().getPositionKey(text::quoteFix(m_form.text(u"txtPosTitle"_s)), companyName());
}

void PositionScreen::moveReferences(Key newKey, Key oldKey)
{
    const QString moved =
        u" PositionKey=" + QString::number(newKey) + u" where PositionKey=" + QString::number(oldKey);
    dataJW().execQuery(u"Update Event Set" + moved);
    dataJW().execQuery(u"Update JProfile set" + moved);
}

void PositionScreen::showSaved(bool complete)
{
    const Key newKey = m_replacement.newKey();
    m_shell.selection().currentPositionKey = newKey;
    m_lost.reset();
    loadPositionList();
    const RecordSet row = complete ? dataJW().getPositionByKey(newKey) : RecordSet();
    // What was typed is what was stored; it stays when it cannot be shown anew, or not all of it is in the
    // store.
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
    m_shell.offerUndo(tr("Deleted position %1.").arg(title));
    emit stored();
    emit changed();
}
