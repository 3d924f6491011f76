// The reminder screen's life and its buttons. Its look at the events has a file of its own.
#include "calendar/frmreminder.h"

#include "base/dates.h"
#include "base/fieldtext.h"
#include "store/gateway/datajw.h"
#include "store/gateway/steps.h"

#include <QHash>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString timeDelta = u"TimeDelta"_s;
constexpr qint64 secondsAMinute = 60;

QStringList headings()
{
    return {FrmReminder::tr("Event"),    FrmReminder::tr("Description"), FrmReminder::tr("When"),
            FrmReminder::tr("Contact"),  FrmReminder::tr("Position"),    FrmReminder::tr("Company"),
            FrmReminder::tr("Time left")};
}

bool isInterval(const QString& text)
{
    // A start that cannot hold the number would take another in its place, unseen.
    constexpr double longest = std::numeric_limits<qint16>::max();
    bool isNumber = false;
    const double minutes = text.trimmed().toDouble(&isNumber);
    return isNumber && minutes >= 1 && minutes <= longest;
}

} // namespace

FrmReminder::FrmReminder(Session& session, Navigator& navigator)
    : m_session(session)
    , m_navigator(navigator)
    , m_form({{u"txtInterval"_s, {}, SaveOn::Never}, {u"lblNote"_s, {}, SaveOn::Never}})
    , m_list(headings())
    , m_follower(session, {u"Event"_s}, [this] { lookAgain(); })
{
}

FrmReminder::~FrmReminder() = default;

// --- Start and end ----------------------------------------------------------------------------------------

void FrmReminder::initialize()
{
    m_session.trace(u"Lastime:"_s + dates::general(m_session.now()));
    // The desktop opens its sound device (mmcx) at the first alarm, so that no start waits for it, and closes
    // it with itself; here it is only decided whether there will be one.
    m_multimediaOn = m_session.dataJW().getStatusValue(u"Multimedia"_s, true) == u"Yes";
}

void FrmReminder::load()
{
    initialize();
    m_loaded = true;
    m_session.trace(u"frmReminder - Load Reminder"_s);
    m_form.setText(u"txtInterval"_s, m_session.dataJW().getStatusValue(timeDelta, true));
    showNote();
    setScreen(false, true);
}

void FrmReminder::unload()
{
    if (!m_loaded)
        return;
    m_loaded = false;
    m_multimediaOn = false;
    // A session that never had its store has nothing to keep there, and has complained about it already.
    if (DataJW& dataJW = m_session.dataJW(); dataJW.isConnected()) {
        const Action action(dataJW); // the old interval must not go without the new one
        const QString stored = dataJW.getStatusValue(timeDelta, true);
        if (!isInterval(m_form.text(u"txtInterval"_s)))
            m_form.setText(u"txtInterval"_s, stored);
        dataJW.writeStatus(timeDelta, fieldtext::toStored(m_form.text(u"txtInterval"_s).trimmed()), true);
    }
    m_session.trace(u"frmReminder - Unload"_s);
}

// --- Timer, coming and going ------------------------------------------------------------------------------

void FrmReminder::tick()
{
    // One tick, and no other until a button of this screen or the next start switches the timer on again:
    // who has put the reminders off is not asked again by the clock, and who has none is left in peace.
    m_timer1Enabled = false;
    emit changed();
    const QDateTime now = m_session.now();
    if (m_session.lastReminderCheck.secsTo(now) / secondsAMinute < m_session.reminderInterval)
        return;
    m_session.lastReminderCheck = now.addMSecs(-now.time().msec());
    m_unattended = true;
    checkEvents();
    m_unattended = false;
}

void FrmReminder::setScreen(bool visible, bool timer1)
{
    if (visible && !m_visible)
        m_follower.caughtUp(); // it comes up with what the last look has found
    m_follower.setSeen(visible);
    m_visible = visible;
    m_timer1Enabled = timer1;
    if (!visible)
        m_alarmPlayed = false;
    emit changed();
}

void FrmReminder::comeForward(bool byUser)
{
    setScreen(true, m_timer1Enabled);
    // A window that comes up beside the work of somebody else gets no keyboard, but is to be heard. One that
    // gets it sounds when it has it.
    if (!byUser && !m_active) {
        playAlarm();
        m_alarmPlayed = true;
    }
    emit cameForward(byUser);
}

void FrmReminder::showScreen()
{
    comeForward(true);
}

void FrmReminder::activated()
{
    if (std::exchange(m_active, true) || !m_visible)
        return;
    // The alarm of a window that came up without the keyboard has been heard when the user then goes there.
    if (!std::exchange(m_alarmPlayed, false))
        playAlarm();
}

void FrmReminder::playAlarm()
{
    if (!m_multimediaOn)
        return;
    const QString file = m_session.dataJW().getStatusValue(u"AlarmFile"_s, true);
    if (!file.isEmpty() && !m_session.desktop().playSound(file))
        m_session.logError(tr("frmReminder - The alarm %1 could not be played.").arg(file), 1);
}

// --- Selection --------------------------------------------------------------------------------------------

QString FrmReminder::rowKey(Key eventKey)
{
    return u'A' + QString::number(eventKey);
}

int FrmReminder::selectedRow() const
{
    return m_list.find(rowKey(m_selectedEventKey));
}

void FrmReminder::select(const QString& key)
{
    if (m_list.find(key) < 0)
        return;
    m_selectedEventKey = key.mid(1).toShort();
    m_list.mark(key);
}

void FrmReminder::open(const QString& key)
{
    if (m_list.find(key) < 0)
        return;
    select(key);
    m_session.trace(u"Open Calendar Screen"_s);
    m_navigator.open(u"FrmEvCal"_s, m_selectedEventKey);
    lookAgain(); // time has passed there, too
}

void FrmReminder::removeSelected()
{
    m_list.remove(rowKey(m_selectedEventKey));
    // The buttons must never act on an event that the user no longer sees.
    m_selectedEventKey = 0;
    showNote();
}

// --- Buttons ----------------------------------------------------------------------------------------------

Key FrmReminder::getMedium(const QString& name)
{
    // A conference call has no number of its own in the pipeline.
    static const QHash<QString, Key> codes{
        {u"internet"_s, Key(1)}, {u"fax"_s, Key(2)},   {u"phone"_s, Key(3)},  {u"post"_s, Key(4)},
        {u"research"_s, Key(5)}, {u"other"_s, Key(6)}, {u"meeting"_s, Key(7)}};
    return codes.value(name.toLower(), 0);
}

void FrmReminder::cmdCheck()
{
    emit checkRequested();
}

void FrmReminder::cmdOk()
{
    if (m_selectedEventKey == 0) {
        cmdSnoozeAll();
        return;
    }
    const RecordSet event = m_session.dataJW().getEventByKey(m_selectedEventKey);
    if (event.isEmpty()) {
        cmdSnoozeAll();
        m_session.logError(u"Selected EventKey not found when accessing Events."_s, 1);
        return;
    }
    // What is still open in the store stays listed, as the user has been told that it could not be closed.
    if (closeEvent(event) && m_list.rowCount() > 0)
        removeSelected();
    if (m_list.rowCount() == 0)
        cmdCloseAll();
    else
        setScreen(m_visible, true);
    m_follower.caughtUp();
}

bool FrmReminder::closeEvent(const RecordSet& event)
{
    DataJW& dataJW = m_session.dataJW();
    Action action(dataJW);
    const Key position = event.key(u"PositionKey").value_or(0);
    const bool positionFound = !dataJW.getPositionByKey(position).isEmpty();
    if (positionFound)
        writeStep(event.text(u"Event"), event.text(u"EventDate"), position, getMedium(event.text(u"Medium")));
    else
        m_session.logError(u"Selected Event Position Key not found when accessing Events."_s, 1);
    // The event is over whatever became of its position.
    const bool closed = dataJW.execQuery(u"Update Event set Complete='OkEvent' where EventKey="_s +
                                         QString::number(m_selectedEventKey));
    return action.commit() && closed;
}

void FrmReminder::writeStep(const QString& event, const QString& date, Key position, Key medium)
{
    DataJW& dataJW = m_session.dataJW();
    if (event == u"Interview")
        steps::write(dataJW, position, u"interview"_s, date, medium);
    else if (event == u"Interview Follow-Up")
        steps::write(dataJW, position, u"FollowUp"_s, date, medium);
}

void FrmReminder::cmdSnooze()
{
    if (m_selectedEventKey == 0)
        return;
    m_putOff.insert(m_selectedEventKey);
    removeSelected();
    if (m_list.rowCount() == 0)
        cmdCloseAll();
}

void FrmReminder::cmdDismiss()
{
    if (m_selectedEventKey == 0) {
        cmdSnoozeAll();
        return;
    }
    Action action(m_session.dataJW());
    const bool gone = m_session.dataJW().execQuery(u"DELETE * FROM EVENT where EventKey="_s +
                                                   QString::number(m_selectedEventKey));
    if (!action.commit() || !gone)
        return; // it stays listed, as it stays in the store
    removeSelected();
    if (m_list.rowCount() == 0)
        cmdCloseAll();
    m_follower.caughtUp();
}

void FrmReminder::cmdSnoozeAll()
{
    setScreen(false, true);
}

void FrmReminder::cmdCloseAll()
{
    setScreen(false, true);
}
