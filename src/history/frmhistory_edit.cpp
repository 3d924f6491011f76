// Editing on the contact history's screen: taking over, removing, planning what follows.
#include "history/frmhistory.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "history/historyclosing.h"
#include "store/engine/storeerror.h"
#include "store/gateway/datajw.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int outOfRange = 9;
/// The store takes statements of a million characters, and an entry goes to it in one.
constexpr qsizetype longestEntry = 900'000;

} // namespace

void FrmHistory::fieldChanged(const QString& control)
{
    if (control == u"cmbEventType")
        return; // belongs to the event, not to the entry
    if (control == u"dtpNextCall")
        noteDays();
    if (control == u"DTPContact") {
        // A day that is taken back takes back what it did to the next call.
        const QDate day = m_form.date(u"DTPContact"_s);
        m_form.setDate(u"dtpNextCall"_s, day == m_day ? m_call : day);
    }
    // What was typed and taken back again needs no Update.
    say(isEntryChanged() ? tr("Changed: press Update to keep it.") : QString());
}

bool FrmHistory::isEntryChanged() const
{
    return std::ranges::any_of(m_form.rows(), [this](const FieldRow& row) {
        return row.control != u"cmbEventType" && m_form.isDirty(row.control);
    });
}

// --- Taking over ------------------------------------------------------------------------------------------

/// What a date control says. The day shown in place of a missing one is not taken for an answer.
QDate FrmHistory::dayTyped(const QString& control, QDate stored) const
{
    const QDate day = m_form.date(control);
    return m_entries.has(m_selected) && !stored.isValid() && day == dates::missing ? stored : day;
}

History FrmHistory::entryTyped() const
{
    const History before = m_entries.has(m_selected) ? m_entries.at(m_selected) : History();
    const auto line = [this](const QString& control) { return text::quoteFix(m_form.text(control)); };
    History entry;
    entry.ContactDate = dayTyped(u"DTPContact"_s, before.ContactDate);
    entry.NextCall = dayTyped(u"dtpNextCall"_s, before.NextCall);
    entry.Details = fieldtext::toStored(m_form.text(u"txtDetails"_s));
    entry.DocXfer = m_form.isOn(u"chkDoxGiven"_s) ? u"1"_s : u"0"_s;
    entry.Length = line(u"cmbLength"_s);
    entry.medium = line(u"cmbMedium"_s);
    entry.Location = line(u"txtLocation"_s);
    entry.ReturnCall = line(u"cmbReturn"_s);
    entry.topic = line(u"txtTopic"_s);
    return entry;
}

bool FrmHistory::mayBeStored(const History& entry)
{
    const qsizetype length = entry.Details.size() + entry.topic.size() + entry.Location.size() +
                             entry.Length.size() + entry.medium.size() + entry.ReturnCall.size();
    if (length <= longestEntry)
        return true;
    m_session.msgBox(
        tr("These texts are too long for one history. Please shorten the details, or split them into two "
           "histories."));
    return false;
}

void FrmHistory::cmdAddHistory()
{
    if (m_locked)
        return;
    const int slot = m_selected == 0 ? 1 : m_selected;
    m_selected = slot;
    const History entry = entryTyped();
    if (!mayBeStored(entry))
        return;
    const bool unstored = std::exchange(m_dirty, true);
    const int before = m_entries.count();
    if (!m_entries.put(slot, entry)) {
        refuseFurther(unstored);
        return;
    }
    loadHistoryList(false);
    for (const FieldRow& row : m_form.rows())
        m_form.markClean(row.control);
    say({});
    if (m_entries.count() > before)
        hintAtBound();
}

void FrmHistory::hintAtBound()
{
    if (m_entries.count() < HistoryEntries::nearBound || m_hinted.contains(m_entries.contactKey()))
        return;
    m_hinted.insert(m_entries.contactKey());
    m_session.msgBox(tr("This contact has %1 histories now. Jobwright can work with %2 for a contact.")
                         .arg(m_entries.count())
                         .arg(HistoryEntries::bound));
}

void FrmHistory::refuseFurther(bool unstored)
{
    // What was entered up to here must not wait for a closing that the user may now put off.
    if (unstored)
        HistoryClosing(m_session, m_entries).write();
    const StoreError failure(tr("Subscript out of range"), outOfRange, u"Jobwright"_s);
    m_session.logError(
        u"frmHistory - cmdAddHistory"_s + text::crlf +
            tr("A contact can have %1 histories, and this one has them all. They are stored. What you typed "
               "is still in the fields, but only until you choose a history: copy it from there before you "
               "remove one that you no longer need, or add it to one that is there.")
                .arg(HistoryEntries::bound),
        0, &failure);
}

// --- Removing ---------------------------------------------------------------------------------------------

void FrmHistory::cmdRemoveHistory()
{
    if (m_locked)
        return;
    if (m_selected <= 1) {
        m_session.msgBox(
            tr("You may not remove the first contact history for a contact.") + u'\n' +
            tr("You may modify and update this history or remove the contact from the database."));
        return;
    }
    if (!m_entries.has(m_selected))
        return; // "<New>" is nobody's entry yet
    if (m_session.msgBox(tr("Are you sure you want to remove this history?"), Buttons::YesNo,
                         tr("Remove History")) != Answer::Yes)
        return;
    m_entries.remove(m_selected);
    m_dirty = true;
    loadHistoryList(false);
    // The fields must not go on showing what was removed: Update would write it over the next entry.
    choose(m_selected - 1);
}

// --- What follows -----------------------------------------------------------------------------------------

/// The first position of the company, by title, that lists the contact.
QString FrmHistory::firstPosition() const
{
    const QString company = text::quoteFix(m_company);
    const QString wanted = QString::number(m_entries.contactKey());
    for (const QString& title : dataJW().getPositionNames(company)) {
        const Key key = dataJW().getPositionKey(text::quoteFix(title), company);
        if (text::csvParse(dataJW().getPositionByKey(key).text(u"ContactList")).contains(wanted))
            return title;
    }
    return u"NONE"_s;
}

QHash<QString, QString> FrmHistory::eventValues() const
{
    // What is planned is the next call, under the words that the entry began with.
    const QString topic = m_form.text(u"txtTopic"_s).trimmed();
    const QString details = m_form.text(u"txtDetails"_s).trimmed();
    return {{u"H0"_s, m_company},
            {u"H1"_s, m_form.text(u"lblContactName"_s)},
            {u"H2"_s, firstPosition()},
            {u"H3"_s, m_form.text(u"cmbEventType"_s)},
            {u"H4"_s, topic.isEmpty() ? details.section(u'\n', 0, 0) : topic},
            {u"H5"_s, dates::mdyyyy(m_form.date(u"dtpNextCall"_s))},
            {u"H6"_s, m_form.text(u"cmbMedium"_s)}};
}

void FrmHistory::cmdAddEvent()
{
    m_session.trace(u"Open Calendar Screen"_s);
    m_navigator.open(u"FrmEvCal"_s, QVariant::fromValue(eventValues()));
}
