// The editing frame: opening it on an entry or on a new one.
#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "calendar/eventchoices.h"
#include "calendar/eventtimes.h"
#include "calendar/frmevcal.h"
#include "store/datajw.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

bool FrmEvCal::isOn(const QString& control) const
{
    return m_form.text(control) == u"1";
}

void FrmEvCal::setOn(const QString& control, bool on)
{
    m_form.setText(control, on ? u"1"_s : u"0"_s);
}

bool FrmEvCal::isNoDate() const
{
    return isOn(u"chkNoDate"_s);
}

QDate FrmEvCal::frameDate() const
{
    return m_frameOpen && !isNoDate() ? m_frameDate : QDate();
}

QString FrmEvCal::frameHeading() const
{
    const QDate day = frameDate();
    const QString when = day.isValid() ? QLocale().toString(day, tr("dddd, MMMM d")) : tr("No Date");
    return isNewEntry() ? tr("%1 · new").arg(when) : when;
}

QString FrmEvCal::completeCaption() const
{
    return isOn(u"chkComplete"_s) ? tr("Complete") : tr("Incomplete");
}

bool FrmEvCal::mayLeaveFrame()
{
    if (!m_frameOpen || !m_frameDirty)
        return true;
    switch (m_session.msgBox(tr("Save the changes to this entry?"), Buttons::YesNoCancel, tr("Calendar"))) {
    case Answer::Yes:
        return save();
    case Answer::No:
        m_frameDirty = false;
        return true;
    default:
        return false;
    }
}

void FrmEvCal::closeEvent()
{
    m_frameOpen = false;
    m_frameDirty = false;
    m_rows.clear();
    for (const QString& button : {u"cmdAdd1"_s, u"cmdRemove1"_s})
        m_form.setEnabled(button, false);
    emit frameChanged();
}

void FrmEvCal::cmdClose1()
{
    if (mayLeaveFrame())
        closeEvent();
}

void FrmEvCal::cmdNewEvent()
{
    newEvent(m_selectedDay);
}

void FrmEvCal::cmdNewTask()
{
    newTask(m_selectedDay);
}

bool FrmEvCal::mayPlan()
{
    // Beside entries that nobody sees a second one for the same hour would be made, or the same one again.
    if (!m_readable)
        m_session.msgBox(tr("The events could not be read, so that nothing can be planned now. Please try "
                            "\"Today\", or open the calendar again."));
    return m_readable;
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

void FrmEvCal::newEntry(QDate day, bool task)
{
    openFrame({}, day);
    JWevent entry;
    entry.eventName = eventchoices::eventTypes().back().text;
    entry.eventType = task ? u"Task"_s : u"Event"_s;
    entry.ampm = u"AM"_s;
    entry.eventDate = day.isValid() ? day : dates::sentinel;
    if (!task) { // without a start it would be stored as a task
        entry.eventTime = u"9:00"_s;
        entry.eventDuration = u"1"_s;
    }
    fillFrame(entry);
    fillOwners({});
    emit frameChanged();
}

void FrmEvCal::openEntry(const QString& key)
{
    if (const JWevent* const entry = entryOf(key))
        openEvent(entry->eventKey);
}

void FrmEvCal::openEvent(Key eventKey)
{
    if (m_frameOpen && std::ranges::find(m_rows, eventKey) != m_rows.end()) {
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
    openFrame({eventKey}, event->hasDate() ? event->eventDate : m_selectedDay);
    fillFrame(*event);
    fillOwners(row);
    emit frameChanged();
    emit frameShown();
}

void FrmEvCal::openFrame(std::vector<Key> rows, QDate day)
{
    m_rows = std::move(rows);
    m_frameOpen = true;
    m_frameDirty = false;
    // The month follows the entry. The date comes first: a new entry would else be taken along by the
    // selection.
    if (day.isValid() && day != m_selectedDay) {
        m_frameDate = day;
        selectDay(day);
    }
    m_form.setEnabled(u"cmdAdd1"_s, true);
    m_form.setEnabled(u"cmdRemove1"_s, !m_rows.empty());
}

void FrmEvCal::fillFrame(const JWevent& event)
{
    m_frameDate = event.hasDate() ? event.eventDate : m_selectedDay;
    showTask(event.isTask());
    setOn(u"chkNoDate"_s, !event.hasDate());
    setFrameDate(m_frameDate);
    setOn(u"chkComplete"_s, event.isDone());
    m_form.setText(u"txtEvName"_s, event.eventName);
    showMedium(event.medium, event.isTask());
    m_form.setText(u"txtEvDescription"_s, fieldtext::toShown(event.eventDescription));
    fillOthers();
    fillTimes(event);
    const int lead = static_cast<int>(std::clamp<double>(eventtimes::number(event.reminder1), 0, INT16_MAX));
    setOn(u"imgReminder"_s, lead > 0);
    m_form.setText(u"txtRemind"_s, eventtimes::reminderText(lead));
}

void FrmEvCal::showMedium(const QString& medium, bool task)
{
    // The one column holds a format or a priority. A task that was made of a history has the history's
    // medium there: it stays the format, and comes back when the task is made an event.
    const bool hidden = task && !eventchoices::isPriority(medium);
    m_form.setText(u"txtFormat"_s, hidden ? QString() : medium);
    m_otherMedium = hidden ? medium : QString();
}

void FrmEvCal::fillTimes(const JWevent& event)
{
    const bool timed = event.eventTime != u"Nodate";
    m_untimed = !timed && event.isEvent();
    m_form.setText(u"txtEvTimeS"_s, timed ? event.eventTime : QString());
    setHalf(u"optStAM"_s, u"optStPM"_s, event.ampm == u"PM");
    // The stored length stays what it is until the user changes the end, also where the clock's twelve makes
    // the two times tell another one.
    m_duration = event.eventDuration;
    tickDuration();
    showEndTime();
}

void FrmEvCal::fillOthers()
{
    QStringList found;
    for (const QString& line : m_form.text(u"txtEvDescription"_s).split(u'\n')) {
        if (std::ranges::find(eventchoices::others(), line, &EventChoice::text) !=
            eventchoices::others().end())
            found << line;
    }
    m_form.setText(u"imgOther1"_s, found.value(0));
    m_form.setText(u"imgOther2"_s, found.value(1));
}

void FrmEvCal::fillOwners(const RecordSet& row)
{
    DataJW& dataJW = m_session.dataJW();
    const auto name = [&](QStringView column) -> Key { return row.key(column).value_or(0); };
    const Key company = name(u"CompanyKey");
    const Key contact = name(u"ContactKey");
    const Key position = name(u"PositionKey");
    m_company = dataJW.getCompanyNameByKey(company, company == 0);
    m_form.setText(u"lblContact"_s, dataJW.getContactByKey(contact, contact == 0));
    m_form.setText(u"lblPosition"_s, dataJW.getPositionNameByKey(position, position == 0));
    if (isNetworking())
        m_company = eventchoices::networkingEvent.toString();
    m_form.setText(u"lblCompany"_s, m_company);
    listCompanies();
    listPeople();
}

void FrmEvCal::openHistoryTask(const QHash<QString, QString>& values)
{
    const auto value = [&](const QString& name) -> QString {
        const QString text = values.value(name);
        return text == u"NONE" ? QString() : text;
    };
    if (!mayPlan())
        return;
    const auto date = dates::parse(value(u"H5"_s));
    const QDate day = date ? date->date : m_session.today();
    newEntry(day == dates::sentinel ? QDate() : day, true);
    QString name = value(u"H3"_s);
    if (name.left(3).toLower() == u"net")
        name = eventchoices::networkingEvent.toString();
    m_form.setText(u"txtEvName"_s, name);
    m_form.setText(u"txtEvDescription"_s, fieldtext::toShown(value(u"H4"_s)));
    showMedium(value(u"H6"_s), true);
    fillOthers();
    if (isNetworking()) {
        nameChanged();
    } else {
        m_company = value(u"H0"_s);
        m_form.setText(u"lblCompany"_s, m_company);
        m_form.setText(u"lblContact"_s, value(u"H1"_s));
        m_form.setText(u"lblPosition"_s, value(u"H2"_s));
        listPeople();
    }
    // Nothing of it is in the store yet: leaving it unsaved is worth a question.
    m_frameDirty = true;
    emit frameChanged();
    emit frameShown();
}

void FrmEvCal::listCompanies()
{
    QStringList names{QString()};
    if (isNetworking())
        names << eventchoices::networkingEvent.toString();
    m_form.setItems(u"lblCompany"_s, names + m_companies);
}

void FrmEvCal::listPeople()
{
    QStringList contacts{QString()};
    QStringList positions{QString()};
    if (!m_company.isEmpty() && !isNetworking()) {
        const QString company = text::quoteFix(m_company);
        contacts << m_session.dataJW().getContactNames(company);
        positions << m_session.dataJW().getPositionNames(company);
    }
    m_form.setItems(u"lblContact"_s, contacts);
    m_form.setItems(u"lblPosition"_s, positions);
}
