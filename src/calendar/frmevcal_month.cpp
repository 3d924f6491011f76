// Walking through the months, and what changes an entry without its frame.
#include "base/dates.h"
#include "calendar/frmevcal.h"
#include "store/datajw.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool FrmEvCal::isStorable(QDate day)
{
    // A year of two digits would be read as one of our days, and statements hold four at most.
    return day.isValid() && day.year() >= 100 && day.year() <= 9999;
}

void FrmEvCal::showMonth(QDate day)
{
    if (!isStorable(day))
        return;
    m_selectedDay = day;
    repaint();
}

void FrmEvCal::selectDay(QDate day)
{
    if (!day.isValid())
        return;
    if (cellOf(day) < 0) {
        showMonth(day);
    } else {
        m_selectedDay = day;
        markDays();
        emit changed();
    }
    if (m_frameOpen && isNewEntry() && !isNoDate() && m_frameDate != m_selectedDay) {
        setFrameDate(m_selectedDay);
        emit frameChanged();
    }
}

void FrmEvCal::cmdLast()
{
    showMonth(m_selectedDay.addMonths(-1));
}

void FrmEvCal::cmdNext()
{
    showMonth(m_selectedDay.addMonths(1));
}

void FrmEvCal::cmdToday()
{
    if (!m_readable)
        reload();
    selectDay(m_session.today());
}

void FrmEvCal::setShowComplete(bool show)
{
    if (m_showComplete == show)
        return;
    m_showComplete = show;
    setOn(u"chkShowComplete"_s, show);
    // The same row as in the options, so that the next opening is like this one.
    m_session.dataJW().writeStatus(u"ShowComplete"_s, show ? u"1"_s : u"0"_s, true);
    repaint();
}

void FrmEvCal::followStore()
{
    if (!m_frameOpen || m_rows.empty())
        return;
    std::vector<Key> left;
    RecordSet stored;
    for (const Key key : m_rows) {
        RecordSet row = m_session.dataJW().getEventByKey(key);
        if (row.isNothing())
            return; // a row that could not be read is not gone
        if (row.isEmpty())
            continue;
        left.push_back(key);
        stored = std::move(row);
    }
    m_rows = std::move(left);
    const std::optional<JWevent> entry = m_rows.empty() ? std::nullopt : JWevent::fromRow(stored);
    if (!m_frameDirty && !entry) {
        closeEvent();
        return;
    }
    if (!m_frameDirty) {
        fillFrame(*entry);
        fillOwners(stored);
    } else if (entry && entry->isDone()) {
        setOn(u"chkComplete"_s, true); // saving it must not open it again
    }
    m_form.setEnabled(u"cmdRemove1"_s, !m_rows.empty());
    emit frameChanged();
}

void FrmEvCal::storeChanged(QDate shown)
{
    m_selectedDay = shown;
    loadEvents();
    repaint();
    emit recordsChanged();
}

void FrmEvCal::dropOn(const QString& key, QDate day)
{
    const JWevent* const entry = entryOf(key);
    if (!entry || !isStorable(day) || entry->eventDate == day)
        return;
    const Key eventKey = entry->eventKey;
    if (!m_session.dataJW().execQuery(u"Update Event set EventDate='"_s + dates::mdyyyy(day) +
                                      u"' where eventkey=" + QString::number(eventKey)))
        return;
    // The frame must not take the entry back to its old day at the next save.
    if (std::ranges::find(m_rows, eventKey) != m_rows.end()) {
        setOn(u"chkNoDate"_s, false);
        setFrameDate(day);
        emit frameChanged();
    }
    storeChanged(day);
    tellIfBeyond(eventKey);
}

void FrmEvCal::flipTask(const QString& key)
{
    const JWevent* const task = entryOf(key);
    if (!task || !task->isTask())
        return;
    const Key eventKey = task->eventKey;
    const bool complete = task->complete != u"Complete";
    if (!m_session.dataJW().execQuery((complete ? u"Update Event set Complete='Complete' where EventKey="_s
                                                : u"Update Event set Complete='' where EventKey="_s) +
                                      QString::number(eventKey)))
        return;
    if (std::ranges::find(m_rows, eventKey) != m_rows.end()) {
        setOn(u"chkComplete"_s, complete);
        emit frameChanged();
    }
    storeChanged(m_selectedDay);
}

const std::vector<DayChip>& FrmEvCal::selectedChips() const
{
    static const std::vector<DayChip> none;
    const int cell = cellOf(m_selectedDay);
    return cell < 0 ? none : m_cells[static_cast<size_t>(cell)].chips;
}

void FrmEvCal::chooseChip(const QString& chip)
{
    if (chip == chosenChip())
        return;
    const JWevent* const event = entryOf(chip);
    m_chip = chip;
    m_chipEvent = event ? event->eventKey : Key(0);
    emit changed();
}

QString FrmEvCal::chosenChip() const
{
    // Keys are slots and may stand for another event by now: Delete must never mean one that nobody sees.
    const JWevent* const event = entryOf(m_chip);
    const bool shown = std::ranges::find(selectedChips(), m_chip, &DayChip::key) != selectedChips().end();
    return shown && event && event->eventKey == m_chipEvent ? m_chip : QString();
}

void FrmEvCal::openChosen(const QString& chip)
{
    const std::vector<DayChip>& chips = selectedChips();
    if (!chip.isEmpty())
        openEntry(chip);
    else if (chips.size() > 1)
        emit dayListWanted();
    else if (!chips.empty())
        openEntry(chips.front().key);
    else
        cmdNewEvent();
}

void FrmEvCal::removeChosen(const QString& chip)
{
    const std::vector<DayChip>& chips = selectedChips();
    if (!chip.isEmpty())
        removeEntry(chip);
    else if (!isNewEntry() && frameDate() == m_selectedDay)
        cmdRemove1();
    else if (chips.size() == 1)
        removeEntry(chips.front().key);
}

void FrmEvCal::removeEntry(const QString& key)
{
    if (const JWevent* const entry = entryOf(key))
        removeRows({entry->eventKey});
}

void FrmEvCal::cmdRemove1()
{
    if (!m_rows.empty())
        removeRows(std::vector(m_rows));
}

void FrmEvCal::removeRows(const std::vector<Key>& rows)
{
    if (m_session.msgBox(tr("Are you sure you want to delete this entry?"), Buttons::YesNo,
                         tr("Delete Event")) != Answer::Yes)
        return;
    Action action(m_session.dataJW());
    bool gone = true;
    for (const Key key : rows)
        gone &= m_session.dataJW().execQuery(u"DELETE * from EVENT where eventKey="_s + QString::number(key));
    // What could not be deleted stays in its frame, as it stays in the store.
    if (!action.commit() || !gone)
        return;
    if (std::ranges::find(m_rows, rows.front()) != m_rows.end())
        closeEvent();
    storeChanged(m_selectedDay);
}
