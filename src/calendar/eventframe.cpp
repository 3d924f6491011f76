// The editing frame: what it is opened on, and what the user changes in it.
#include "calendar/eventframe.h"

#include "base/dates.h"
#include "calendar/eventchoices.h"
#include "calendar/eventstore.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

EventFrame::EventFrame(Session& session, Form& form)
    : m_session(session)
    , m_form(form)
    , m_times(form)
    , m_people(session, form)
    , m_notes(form)
{
}

bool EventFrame::holds(Key eventKey) const
{
    return std::ranges::find(m_rows, eventKey) != m_rows.end();
}

bool EventFrame::isNoDate() const
{
    return m_form.isOn(u"chkNoDate"_s);
}

QDate EventFrame::date() const
{
    return m_open && !isNoDate() ? m_date : QDate();
}

QString EventFrame::heading() const
{
    const QDate day = date();
    const QString when = day.isValid() ? QLocale().toString(day, tr("dddd, MMMM d")) : tr("No Date");
    return isNewEntry() ? tr("%1 · new").arg(when) : when;
}

QString EventFrame::completeCaption() const
{
    return m_form.isOn(u"chkComplete"_s) ? tr("Complete") : tr("Incomplete");
}

void EventFrame::load()
{
    m_people.readCompanies();
}

void EventFrame::touched()
{
    m_dirty = true;
    emit changed();
}

// --- Opening ----------------------------------------------------------------------------------------------

void EventFrame::close()
{
    m_open = false;
    m_dirty = false;
    m_rows.clear();
    for (const QString& button : {u"cmdAdd1"_s, u"cmdRemove1"_s})
        m_form.setEnabled(button, false);
    emit changed();
}

void EventFrame::open(const JWevent& entry, const EventOwners& owners, QDate reserve)
{
    openOn({entry.eventKey}, entry, owners, reserve);
}

void EventFrame::openNew(QDate day, bool task, QDate reserve)
{
    JWevent entry;
    entry.eventName = eventchoices::eventTypes().back().text;
    entry.eventType = task ? u"Task"_s : u"Event"_s;
    entry.ampm = u"AM"_s;
    entry.eventDate = day.isValid() ? day : dates::sentinel;
    if (!task) { // without a start it would be stored as a task
        entry.eventTime = u"9:00"_s;
        entry.eventDuration = u"1"_s;
    }
    openOn({}, entry, {}, reserve);
}

void EventFrame::openOn(std::vector<Key> rows, const JWevent& entry, const EventOwners& owners, QDate reserve)
{
    m_rows = std::move(rows);
    m_open = true;
    m_dirty = false;
    m_form.setEnabled(u"cmdAdd1"_s, true);
    m_form.setEnabled(u"cmdRemove1"_s, !m_rows.empty());
    fill(entry, owners, reserve);
    emit changed();
}

void EventFrame::fill(const JWevent& entry, const EventOwners& owners, QDate reserve)
{
    m_date = entry.hasDate() ? entry.eventDate : reserve;
    showTask(entry.isTask());
    m_form.setOn(u"chkNoDate"_s, !entry.hasDate());
    setDate(m_date);
    m_form.setOn(u"chkComplete"_s, entry.isDone());
    m_form.setText(u"txtEvName"_s, entry.eventName);
    showMedium(entry.medium, entry.isTask());
    m_notes.fill(entry.eventDescription);
    m_times.fill(entry);
    m_people.fill(owners);
}

void EventFrame::takeHistory(const QHash<QString, QString>& values)
{
    const auto value = [&](const QString& name) -> QString {
        const QString text = values.value(name);
        return text == u"NONE" ? QString() : text;
    };
    QString name = value(u"H3"_s);
    if (name.left(3).toLower() == u"net")
        name = eventchoices::networkingEvent.toString();
    m_form.setText(u"txtEvName"_s, name);
    m_notes.fill(value(u"H4"_s));
    showMedium(value(u"H6"_s), true);
    if (m_people.isNetworking())
        m_people.nameChanged();
    else
        m_people.fillNames(value(u"H0"_s), value(u"H1"_s), value(u"H2"_s));
    // Nothing of it is in the store yet: leaving it unsaved is worth a question.
    touched();
}

void EventFrame::followStore(QDate reserve)
{
    if (!m_open || m_rows.empty())
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
    if (!m_dirty && !entry) {
        close();
        return;
    }
    if (!m_dirty)
        fill(*entry, EventOwners::fromRow(stored), reserve);
    else if (entry && entry->isDone())
        m_form.setOn(u"chkComplete"_s, true); // saving it must not open it again
    m_form.setEnabled(u"cmdRemove1"_s, !m_rows.empty());
    emit changed();
}

void EventFrame::moveTo(QDate day)
{
    m_form.setOn(u"chkNoDate"_s, false);
    setDate(day);
    emit changed();
}

void EventFrame::showComplete(bool complete)
{
    m_form.setOn(u"chkComplete"_s, complete);
    emit changed();
}

// --- Changing ---------------------------------------------------------------------------------------------

void EventFrame::fieldChanged(const QString& control)
{
    const bool on = m_form.isOn(control);
    if (control == u"lblCompany" || control == u"lblContact" || control == u"lblPosition") {
        chooseOwner(control, m_form.text(control));
        return;
    }
    if (control == u"txtEvName") {
        m_people.nameChanged();
    } else if (control == u"chkTask") {
        setTask(on);
    } else if (control == u"chkNoDate") {
        setNoDate(on);
    } else if (control == u"dtEvTsk") {
        setDate(m_form.date(control));
        emit dayChosen(m_date);
    } else {
        m_times.changed(control);
    }
    touched();
}

void EventFrame::setDate(QDate day)
{
    if (eventstore::isStorable(day))
        m_date = day;
    const bool noDate = isNoDate();
    m_form.setText(u"frmeEventData"_s, noDate ? tr("No Date") : dates::mmddyyyy(m_date));
    m_form.setDate(u"dtEvTsk"_s, m_date);
    m_form.setEnabled(u"dtEvTsk"_s, !noDate);
}

void EventFrame::setTask(bool task)
{
    showTask(task);
    const QString medium = m_form.text(u"txtFormat"_s);
    m_form.setText(u"txtFormat"_s, m_otherMedium);
    m_otherMedium = medium;
    // Only a task can do without a date: an event without one would be nowhere to be seen.
    if (!task && isNoDate())
        setNoDate(false);
}

void EventFrame::showTask(bool task)
{
    m_form.setOn(u"chkTask"_s, task);
    m_form.setVisible(u"imgFormat"_s, !task);
    m_form.setVisible(u"imgPriority"_s, task);
}

void EventFrame::setNoDate(bool noDate)
{
    m_form.setOn(u"chkNoDate"_s, noDate);
    if (noDate && !m_form.isOn(u"chkTask"_s))
        setTask(true);
    setDate(m_date);
}

void EventFrame::toggleBell()
{
    m_times.toggleBell();
    touched();
}

void EventFrame::chooseEventType(const QString& text)
{
    m_form.setText(u"txtEvName"_s, text);
    m_people.nameChanged();
    touched();
}

void EventFrame::chooseFormat(const QString& text)
{
    m_form.setText(u"txtFormat"_s, text);
    touched();
}

void EventFrame::chooseOther(int button, const QString& text)
{
    m_notes.choose(button, text);
    touched();
}

void EventFrame::chooseOwner(const QString& control, const QString& name)
{
    if (m_people.choose(control, name))
        touched();
}

void EventFrame::holdUnknown(const QString& control, const QString& typed)
{
    if (!m_open)
        return;
    m_form.edit(control, typed);
    touched();
}

void EventFrame::tellUnknown(const QString& control)
{
    if (m_open)
        m_people.tellUnknown(control);
}

void EventFrame::showMedium(const QString& medium, bool task)
{
    // The one column holds a format or a priority. A task that was made of a history has the history's
    // medium there: it stays the format, and comes back when the task is made an event.
    const bool hidden = task && !eventchoices::isPriority(medium);
    m_form.setText(u"txtFormat"_s, hidden ? QString() : medium);
    m_otherMedium = hidden ? medium : QString();
}
