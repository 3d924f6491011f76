// The calendar screen: what is done with its entries, in the frame and without it.
#include "base/dates.h"
#include "calendar/eventstore.h"
#include "calendar/frmevcal.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

// --- The frame --------------------------------------------------------------------------------------------

void FrmEvCal::fieldChanged(const QString& control)
{
    if (control == u"chkShowComplete")
        setShowComplete(m_form.isOn(control));
    else
        m_frame.fieldChanged(control);
}

void FrmEvCal::fieldLeft(const QString& control)
{
    m_frame.fieldLeft(control);
}

void FrmEvCal::imgReminder()
{
    m_frame.toggleBell();
}

bool FrmEvCal::mayLeaveFrame()
{
    if (!m_frame.isOpen() || !m_frame.isDirty())
        return true;
    switch (m_session.msgBox(tr("Save the changes to this entry?"), Buttons::YesNoCancel, tr("Calendar"))) {
    case Answer::Yes:
        return save();
    case Answer::No:
        m_frame.setClean();
        return true;
    default:
        return false;
    }
}

void FrmEvCal::closeEvent()
{
    m_frame.close();
}

void FrmEvCal::cmdClose1()
{
    if (mayLeaveFrame())
        closeEvent();
}

bool FrmEvCal::mayPlan()
{
    // Beside entries that nobody sees a second one for the same hour would be made, or the same one again.
    if (!m_page.isReadable())
        m_session.msgBox(tr("The events could not be read, so that nothing can be planned now. Please try "
                            "\"Today\", or open the calendar again."));
    return m_page.isReadable();
}

void FrmEvCal::cmdNewEvent()
{
    newEvent(selectedDay());
}

void FrmEvCal::cmdNewTask()
{
    newTask(selectedDay());
}

void FrmEvCal::newEvent(QDate day)
{
    if (!day.isValid() || !mayPlan() || !mayLeaveFrame())
        return;
    newEntry(day, false);
    emit frameShown();
}

void FrmEvCal::newTask(QDate day)
{
    if (!mayPlan() || !mayLeaveFrame())
        return;
    newEntry(day, true);
    emit frameShown();
}

void FrmEvCal::follow(QDate day)
{
    if (day != selectedDay())
        selectDay(day);
}

void FrmEvCal::newEntry(QDate day, bool task)
{
    m_frame.openNew(day, task, day.isValid() ? day : selectedDay());
    follow(day);
}

void FrmEvCal::openEntry(const QString& key)
{
    if (const JWevent* const entry = m_page.entryOf(key))
        openEvent(entry->eventKey);
}

void FrmEvCal::openEvent(Key eventKey)
{
    if (m_frame.isOpen() && m_frame.holds(eventKey)) {
        emit frameShown(); // as it stands, with what is typed in it
        return;
    }
    if (!mayLeaveFrame())
        return;
    const RecordSet row = m_session.dataJW().getEventByKey(eventKey);
    const std::optional<JWevent> event = row.isEmpty() ? std::nullopt : JWevent::fromRow(row);
    if (!event) {
        m_session.msgBox(tr("This entry is no longer in the calendar."));
        reload();
        return;
    }
    m_frame.open(*event, EventOwners::fromRow(row), selectedDay());
    follow(frameDate());
    emit frameShown();
}

void FrmEvCal::openHistoryTask(const QHash<QString, QString>& values)
{
    if (!mayPlan())
        return;
    const auto date = dates::parse(values.value(u"H5"_s));
    const QDate day = date ? date->date : m_session.today();
    newEntry(day == dates::sentinel ? QDate() : day, true);
    m_frame.takeHistory(values);
    emit frameShown();
}

// --- What changes the store -------------------------------------------------------------------------------

void FrmEvCal::storeChanged(QDate shown)
{
    m_page.select(shown);
    readEvents();
    fillEvents();
}

void FrmEvCal::cmdAdd1()
{
    if (m_frame.isOpen())
        save();
}

bool FrmEvCal::save()
{
    const EventFrame::Saved saved = m_frame.save();
    if (!saved.written)
        return false;
    const bool whole = saved.trouble.isEmpty();
    storeChanged(whole && m_frame.isNoDate() ? m_session.today() : selectedDay());
    emit frameChanged();
    if (whole)
        m_page.tellIfBeyond(saved.key);
    else
        m_session.msgBox(saved.trouble);
    return whole;
}

void FrmEvCal::dropOn(const QString& key, QDate day)
{
    const JWevent* const entry = m_page.entryOf(key);
    if (!entry || !eventstore::isStorable(day) || entry->eventDate == day)
        return;
    const Key eventKey = entry->eventKey;
    if (!eventstore::moveTo(m_session.dataJW(), eventKey, day))
        return;
    // The frame must not take the entry back to its old day at the next save.
    if (m_frame.holds(eventKey))
        m_frame.moveTo(day);
    storeChanged(day);
    m_page.tellIfBeyond(eventKey);
}

void FrmEvCal::flipTask(const QString& key)
{
    const JWevent* const task = m_page.entryOf(key);
    if (!task || !task->isTask())
        return;
    const Key eventKey = task->eventKey;
    const bool complete = task->complete != u"Complete";
    if (!eventstore::setComplete(m_session.dataJW(), eventKey, complete))
        return;
    if (m_frame.holds(eventKey))
        m_frame.showComplete(complete);
    storeChanged(selectedDay());
}

void FrmEvCal::removeEntry(const QString& key)
{
    if (const JWevent* const entry = m_page.entryOf(key))
        removeRows({entry->eventKey});
}

void FrmEvCal::cmdRemove1()
{
    if (!m_frame.isNewEntry())
        removeRows(std::vector(m_frame.rows()));
}

void FrmEvCal::removeRows(const std::vector<Key>& rows)
{
    if (m_session.msgBox(tr("Are you sure you want to delete this entry?"), Buttons::YesNo,
                         tr("Delete Event")) != Answer::Yes)
        return;
    Action action(m_session.dataJW());
    const bool gone = eventstore::deleteRows(m_session.dataJW(), rows).empty();
    // What could not be deleted stays in its frame, as it stays in the store.
    if (!action.commit() || !gone)
        return;
    if (m_frame.holds(rows.front()))
        closeEvent();
    storeChanged(selectedDay());
}
