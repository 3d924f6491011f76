// The reminder screen's look at the events, and what it tells of it.
#include "base/dates.h"
#include "calendar/frmreminder.h"
#include "calendar/reminderlist.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

namespace {

const QString lastLookSetting = u"Reminder/LastLook"_s;
constexpr qsizetype noteLines = 5;

/// A row of the list: the event's name and its six sub-items. They have no keys of their own ("1-" to "6-"
/// and the event's), as a cell is found by its row's key and its column.
ListRow listRow(const DueEvent& due)
{
    return {.key = FrmReminder::rowKey(due.eventKey),
            .texts = {due.event, due.description, due.whenText(), due.contact, due.position, due.company,
                      due.verdict.timeLeft()},
            .kind = due.verdict.urgency()};
}

QString noteLine(const DueEvent& due)
{
    QStringList parts{due.event.simplified(), due.company.simplified(), due.whenText()};
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

} // namespace

void FrmReminder::checkEvents()
{
    // Nobody is interrupted in a question. The look is lost, and so is the tick that asked for it.
    if (m_session.dialogBusy)
        return;
    m_putOff.clear();
    // A failure leaves the screen as it was at that moment: shown, with what had been found.
    if (look())
        comeForward(!m_unattended);
    else
        setScreen(false, m_timer1Enabled);
}

void FrmReminder::lookAgain()
{
    // The calendar stores an entry under a new key. A list with the old one could not close it any more.
    if (!m_visible || m_session.dialogBusy || look())
        return;
    // The user has emptied the list there as by a button here: what comes due next is to come by itself.
    cmdCloseAll();
}

bool FrmReminder::look()
{
    DueEvents found;
    {
        // A look that fails says so in the log and on the screen, but stops nobody with a box.
        const Session::QuietReports quiet(m_session);
        found = lookForDueEvents(m_session.dataJW(), m_session.now());
    }
    m_follower.caughtUp();
    m_matchedKeys.insert(found.matched.begin(), found.matched.end());
    const bool failed = !found.failure.isEmpty();
    if (failed)
        m_session.logError(u"frmReminder - checkEvents: "_s + found.failure, 1);
    m_failure = failed ? tr("Not every event could be looked at. %1").arg(found.failure) : QString();
    if (!failed || found.looked > 0)
        showRows(found.open);
    showNote();
    if (!failed)
        noteLook(found.open);
    return failed || m_list.rowCount() > 0;
}

void FrmReminder::showRows(const std::vector<DueEvent>& events)
{
    std::vector<ListRow> rows;
    rows.reserve(events.size());
    for (const DueEvent& due : events) {
        if (!m_putOff.contains(due.eventKey))
            rows.push_back(listRow(due));
    }
    m_list.setRows(std::move(rows));
    // What was selected stays so while it is listed: bold, so that the user sees what a button would do.
    const QString selected = rowKey(m_selectedEventKey);
    if (m_list.find(selected) < 0)
        m_selectedEventKey = 0;
    else
        m_list.mark(selected);
}

void FrmReminder::showNote()
{
    QString note = m_failure;
    if (note.isEmpty() && m_list.rowCount() == 0)
        note = tr("No event is listed. \"Look now\" shows what is due.");
    m_form.setText(u"lblNote"_s, note);
    for (const QString& control : {u"lblNote"_s, u"cmdCheck"_s})
        m_form.setVisible(control, !note.isEmpty());
}

void FrmReminder::noteLook(const std::vector<DueEvent>& events)
{
    QSettings& settings = m_session.settings().file();
    if (!m_lookedBefore) {
        const auto last = QDateTime::fromString(settings.value(lastLookSetting).toString(), Qt::ISODate);
        if (last.isValid())
            tellWhatCameDue(events, last);
    }
    m_lookedBefore = true;
    settings.setValue(lastLookSetting, m_session.now().toString(Qt::ISODate));
}

void FrmReminder::tellWhatCameDue(const std::vector<DueEvent>& events, const QDateTime& lastLook)
{
    QStringList lines;
    for (const DueEvent& due : events) {
        if (!ReminderRules::isInTime(due.verdict, lastLook))
            lines.append(noteLine(due));
    }
    if (lines.isEmpty())
        return;
    if (const qsizetype further = lines.size() - noteLines; further > 0) {
        lines.resize(noteLines);
        lines.append(tr("and %1 more").arg(further));
    }
    // Without a place for notes on this desktop the screen itself has said it all.
    (void)m_session.desktop().notify(tr("Came due since the last look"), lines.join(u'\n'));
}
