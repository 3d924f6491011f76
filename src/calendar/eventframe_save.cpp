// The editing frame: storing what it holds.
#include "base/dates.h"
#include "calendar/eventframe.h"
#include "calendar/eventstore.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

using namespace Qt::StringLiterals;

bool EventFrame::mayBeSaved()
{
    std::optional<FrameTrouble> trouble = m_times.trouble();
    if (!trouble && m_notes.isTooLong())
        trouble = {u"txtEvDescription"_s, tr("The description is too long to be saved. Please shorten it.")};
    if (!trouble)
        return haveKeys(m_session, {u"Event"_s});
    m_session.msgBox(trouble->words);
    m_form.requestFocus(trouble->control);
    return false;
}

EventFrame::Saved EventFrame::save()
{
    m_people.nameChanged();
    if (!mayBeSaved())
        return {};
    std::optional<EventOwners> owners = m_people.owners();
    if (!owners)
        return {};
    const bool placeholder = m_people.wantsPlaceholder(*owners);
    if (placeholder && !haveKeys(m_session, {u"Position"_s}))
        return {};

    DataJW& dataJW = m_session.dataJW();
    QString title;
    const auto insert = [&] {
        if (placeholder)
            title = eventstore::addPlaceholder(m_session, m_people.company(), *owners);
        return eventstore::insertStatement(entry(), *owners);
    };
    RecordReplacement replacement;
    const auto outcome =
        replacement.run(m_session, {.table = u"Event"_s,
                                    .keyColumn = u"EventKey"_s,
                                    .journal = u"EventRecovery"_s,
                                    .order = ReplacementPlan::Order::DeleteFirst,
                                    .oldKeys = m_rows,
                                    .insert = insert,
                                    .remove = [&](Key key) { eventstore::deleteRows(dataJW, {key}); },
                                    .find = [&] { return dataJW.getLastEventAddedKey(); },
                                    .move = {},
                                    .finish = {}});
    // Without its end on the disk the store is as it was, and what was typed stays in the frame for another
    // try.
    if (!replacement.hasReachedDisk())
        return {};
    if (!title.isEmpty())
        m_people.showPosition(title);
    return settle(outcome, replacement);
}

EventFrame::Saved EventFrame::settle(RecordReplacement::Outcome outcome, const RecordReplacement& replacement)
{
    const Key newKey = replacement.newKey();
    const bool whole = outcome == RecordReplacement::Outcome::Stored;
    // Else the old row is gone and the new one did not get in, or both are there: the frame stands for what
    // is left, and another save makes one row of it.
    m_rows = whole ? std::vector<Key>{newKey} : replacement.waiting();
    m_form.setEnabled(u"cmdRemove1"_s, !m_rows.empty());
    m_dirty = !whole;
    if (!whole)
        return {.written = true,
                .key = newKey,
                .trouble = outcome == RecordReplacement::Outcome::Unfinished
                               ? tr("The earlier version of this entry could not be removed. Please "
                                    "save again.")
                               : tr("The entry could not be stored. All that you entered is still in "
                                    "its frame: please save it again.")};
    if (isStoredAsTask() && !m_form.isOn(u"chkTask"_s)) {
        showTask(true);
        showMedium(mediumStored(), true);
    }
    // An entry that cannot be found again must not be added twice by another save.
    if (newKey <= 0)
        close();
    return {.written = true, .key = newKey, .trouble = {}};
}

bool EventFrame::isStoredAsTask() const
{
    return m_form.isOn(u"chkTask"_s) || m_times.isTimeless();
}

QString EventFrame::mediumStored() const
{
    const QString shown = m_form.text(u"txtFormat"_s);
    return shown.isEmpty() && isStoredAsTask() ? m_otherMedium : shown;
}

JWevent EventFrame::entry() const
{
    JWevent entry;
    const bool task = isStoredAsTask();
    entry.eventType = task ? u"Task"_s : u"Event"_s;
    entry.eventDate = isNoDate() ? dates::sentinel : m_date;
    entry.eventName = m_form.text(u"txtEvName"_s);
    entry.eventDescription = m_notes.text();
    entry.medium = mediumStored();
    if (m_form.isOn(u"chkComplete"_s))
        entry.complete = task ? u"Complete"_s : u"OkEvent"_s;
    m_times.store(entry);
    return entry;
}
