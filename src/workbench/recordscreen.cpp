#include "workbench/recordscreen.h"

#include "workbench/shell.h"

RecordScreen::RecordScreen(Shell& shell, QString kind, const QString& keyColumn, std::vector<FieldRow> rows)
    : m_shell(shell)
    , m_form(shell.session(), kind, keyColumn, std::move(rows))
    , m_kind(std::move(kind))
{
}

DataJW& RecordScreen::dataJW() const
{
    return m_shell.session().dataJW();
}

void RecordScreen::fieldKeyDown(const QString&)
{
    m_shell.setSbar(m_kind);
}

void RecordScreen::fieldChanged(const QString&)
{
    m_shell.sbarVis();
}

void RecordScreen::fieldLeft(const QString& control)
{
    const FieldRow* const row = m_form.row(control);
    // A text that was changed back leaves nothing to update.
    if (!m_form.hasUnsaved() && !hasMoreToSave() && !m_replacement.isUnfinished())
        m_shell.savedSbar();
    // A field that holds what is stored has nothing to write: walking through the form with the tab key costs
    // nothing.
    if (!row || (row->save != SaveOn::Leave && row->save != SaveOn::Change) || !m_form.isDirty(control))
        return;
    // By its name an unfinished record might be taken for its old row.
    const Key key = m_replacement.isUnfinished() ? m_replacement.newKey() : rowOfFields();
    if (!m_form.saveField(control, key))
        return;
    m_shell.savedSbar();
    fieldSaved(control);
}

bool RecordScreen::mayLeave()
{
    const bool unfinished = m_replacement.isUnfinished();
    OpenRecord record{.name = recordName(),
                      .isStored = showsStored() && !unfinished,
                      .hasMore = unfinished || hasMoreToSave(),
                      .leave = [this](const QString& control) { fieldLeft(control); },
                      .save = [this] { return save(); }};
    if (!mayBeOffered())
        record.save = nullptr;
    if (!m_form.mayLeave(record))
        return false;
    m_replacement.forget();
    afterLeaving();
    return true;
}

RecordReplacement::Outcome RecordScreen::replace(const ReplacementPlan& plan)
{
    const auto outcome = m_replacement.run(m_shell.session(), plan);
    if (outcome == RecordReplacement::Outcome::Refused)
        m_shell.showMessage(tr("What belongs to the record could not be read from the database, so nothing "
                               "was saved or changed."));
    return outcome;
}
