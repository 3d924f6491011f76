// Saving the entry in the frame.
#include "base/dates.h"
#include "base/fieldtext.h"
#include "base/text.h"
#include "calendar/eventtimes.h"
#include "calendar/frmevcal.h"
#include "store/datajw.h"
#include "store/recoveryinsert.h"
#include "store/storecheck.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView insertEvent = u"INSERT into Event(";
constexpr QStringView insertPosition = u"INSERT INTO Position (";

} // namespace

void FrmEvCal::cmdAdd1()
{
    if (m_frameOpen)
        save();
}

bool FrmEvCal::mayBeSaved()
{
    for (const QString& control : {u"txtEvTimeS"_s, u"txtEvTimeN"_s}) {
        if (normaliseTime(control))
            continue;
        m_session.msgBox(tr("\"%1\" is no time of day. Please enter hours and minutes, such as 9:30.")
                             .arg(m_form.text(control)));
        m_form.requestFocus(control);
        return false;
    }
    const QString reminder = m_form.text(u"txtRemind"_s);
    if (isOn(u"imgReminder"_s) && !reminder.trimmed().isEmpty() && !eventtimes::isReminder(reminder)) {
        m_session.msgBox(
            tr("\"%1\" is no lead time. Please enter a number and one of hrs, dys and wks, such as "
               "2 dys.")
                .arg(reminder));
        m_form.requestFocus(u"txtRemind"_s);
        return false;
    }
    constexpr qsizetype longestText = 400'000; // one statement holds all texts
    if (fieldtext::toStored(m_form.text(u"txtEvDescription"_s) + m_form.text(u"txtEvName"_s)).size() >
        longestText) {
        m_session.msgBox(tr("The description is too long to be saved. Please shorten it."));
        m_form.requestFocus(u"txtEvDescription"_s);
        return false;
    }
    return haveKeys(m_session, {u"Event"_s});
}

bool FrmEvCal::save()
{
    nameChanged();
    if (!mayBeSaved())
        return false;
    std::optional<Owners> found = owners();
    if (!found)
        return false;
    const bool placeholder = wantsPlaceholder(*found);
    if (placeholder && !haveKeys(m_session, {u"Position"_s}))
        return false;

    Action action(m_session.dataJW());
    const QString title = placeholder ? addPlaceholder(*found) : QString();
    std::vector<Key> left;
    const bool inserted = replaceRows(insertStatement(*found), left);
    const Key newKey = inserted ? m_session.dataJW().getLastEventAddedKey() : Key(0);
    // Without its end on the disk the store is as it was, and what was typed stays in the frame for another
    // try.
    if (!action.commit())
        return false;
    if (!title.isEmpty()) {
        listPeople();
        m_form.setText(u"lblPosition"_s, title);
    }
    return settle(inserted, newKey, std::move(left));
}

bool FrmEvCal::settle(bool inserted, Key newKey, std::vector<Key> left)
{
    const bool replaced = left.empty();
    if (newKey > 0)
        left.push_back(newKey);
    m_rows = std::move(left);
    m_form.setEnabled(u"cmdRemove1"_s, !m_rows.empty());
    if (inserted && replaced) {
        saved(newKey);
        return true;
    }
    // The old row is gone and the new one did not get in, or both are there: the frame stands for what is
    // left, and another save makes one row of it.
    m_frameDirty = true;
    storeChanged(m_selectedDay);
    emit frameChanged();
    m_session.msgBox(inserted
                         ? tr("The earlier version of this entry could not be removed. Please save again.")
                         : tr("The entry could not be stored. All that you entered is still in its frame: "
                              "please save it again."));
    return false;
}

void FrmEvCal::saved(Key newKey)
{
    if (isStoredAsTask() && !isOn(u"chkTask"_s)) {
        showTask(true);
        showMedium(mediumStored(), true);
    }
    m_frameDirty = false;
    // An entry that cannot be found again must not be added twice by another save.
    if (newKey <= 0)
        closeEvent();
    storeChanged(isNoDate() ? m_session.today() : m_selectedDay);
    emit frameChanged();
    tellIfBeyond(newKey);
}

std::optional<FrmEvCal::Owners> FrmEvCal::owners()
{
    Owners found;
    if (isNetworking()) {
        m_form.setText(u"lblCompany"_s, m_company);
        m_form.setText(u"lblContact"_s, {});
        m_form.setText(u"lblPosition"_s, {});
        return found;
    }
    DataJW& dataJW = m_session.dataJW();
    const QString company = text::quoteFix(m_company);
    const QString contact = m_form.text(u"lblContact"_s);
    const QString title = m_form.text(u"lblPosition"_s);
    if (m_form.text(u"lblCompany"_s) != m_company)
        return refuse(u"lblCompany"_s);
    if (!company.isEmpty()) {
        found.company = dataJW.getCompanyKey(company);
        if (found.company <= 0)
            return refuse(u"lblCompany"_s);
    } else if (m_form.isDirty(u"lblContact"_s) || m_form.isDirty(u"lblPosition"_s)) {
        hasCompany(); // typed and never chosen
        m_form.requestFocus(u"lblCompany"_s);
        return std::nullopt;
    }
    if (!contact.isEmpty() && contact != u"Contact") { // the label of a box with nobody in it
        found.contact = contactKey(found.company);
        if (found.contact <= 0)
            return refuse(u"lblContact"_s);
    }
    if (!title.isEmpty()) {
        found.position = dataJW.getPositionKey(text::quoteFix(title), company);
        if (found.position <= 0)
            return refuse(u"lblPosition"_s);
    }
    return found;
}

std::nullopt_t FrmEvCal::refuse(const QString& control)
{
    m_session.msgBox(noSuchOwner(control).arg(m_form.text(control)));
    m_form.requestFocus(control);
    return std::nullopt;
}

Key FrmEvCal::contactKey(Key company)
{
    DataJW& dataJW = m_session.dataJW();
    const QString name = text::quoteFix(m_form.text(u"lblContact"_s));
    RecordSet row;
    {
        const Session::QuietReports quiet(m_session);
        row = dataJW.getContact(name.section(u' ', 0, 0), name.section(u' ', 1));
    }
    const Key anywhere = row.key(u"ContactKey").value_or(0);
    if (company == 0 || row.key(u"CompanyKey") == company)
        return anywhere;
    // A first name of two words is not found by its first one, and a namesake may work elsewhere: the list
    // that the person was chosen from tells them.
    const QString companyName = text::quoteFix(m_company);
    const QStringList names = dataJW.getContactNames(companyName);
    const std::vector<Key> keys = dataJW.getContactKeys(companyName);
    // A list that could not be read must not make the namesake the contact.
    if (names.isEmpty() || static_cast<size_t>(names.size()) != keys.size())
        return 0;
    const qsizetype place = names.indexOf(name);
    return place < 0 ? anywhere : keys[static_cast<size_t>(place)];
}

bool FrmEvCal::wantsPlaceholder(const Owners& owners)
{
    if (owners.company == 0 || !m_form.text(u"lblPosition"_s).isEmpty())
        return false;
    return m_session.msgBox(tr("There are no positions for this company and contact.") + text::crlf +
                                tr("Would you like to generate a placeholder position?"),
                            Buttons::YesNo) == Answer::Yes;
}

QString FrmEvCal::addPlaceholder(Owners& owners)
{
    DataJW& dataJW = m_session.dataJW();
    const QString title = u"Position"_s + QString::number(QTime(0, 0).secsTo(m_session.now().time()));
    // A position that nobody is assigned to has an empty list of contacts.
    const QString contacts = owners.contact == 0 ? QString() : QString::number(owners.contact);
    const QString insert = insertPosition + u"Title,EntryDate,Notes,ContactList,CompanyKey) VALUES ('" +
                           title + u"','" + m_session.todayText() + u"','Jobwright Generated Position','" +
                           contacts + u"'," + QString::number(owners.company) + u')';
    const bool inserted = dataJW.execQuery(insert);
    dataJW.execQuery(recoveryInsert(insert, u"PositionRecovery"_s));
    if (!inserted)
        return {};
    owners.position = dataJW.getPositionKey(title, text::quoteFix(m_company));
    if (owners.position <= 0) // not found by its title, but the highest key is that of the row just added
        owners.position = dataJW.getLastKeyInTable(u"Position"_s, u"PositionKey"_s);
    return title;
}

bool FrmEvCal::isStoredAsTask() const
{
    return isOn(u"chkTask"_s) || (m_form.text(u"txtEvTimeS"_s).isEmpty() && !m_untimed);
}

QString FrmEvCal::mediumStored() const
{
    const QString shown = m_form.text(u"txtFormat"_s);
    return shown.isEmpty() && isStoredAsTask() ? m_otherMedium : shown;
}

QString FrmEvCal::insertStatement(const Owners& owners) const
{
    const bool task = isStoredAsTask();
    const QString start = m_form.text(u"txtEvTimeS"_s);
    const int lead = isOn(u"imgReminder"_s) ? eventtimes::hoursOf(m_form.text(u"txtRemind"_s)) : 0;
    const QString complete = !isOn(u"chkComplete"_s) ? QString() : task ? u"Complete"_s : u"OkEvent"_s;
    const QStringList values{m_form.text(u"txtEvName"_s),
                             dates::mdyyyy(isNoDate() ? dates::sentinel : m_frameDate),
                             start.isEmpty() && !task ? u"Nodate"_s : start,
                             m_duration,
                             isOn(u"optStPM"_s) ? u"PM"_s : u"AM"_s,
                             QString::number(lead),
                             u"0"_s, // a second reminder is never set
                             m_form.text(u"txtEvDescription"_s),
                             QString::number(owners.position),
                             QString::number(owners.contact),
                             QString::number(owners.company),
                             mediumStored(),
                             task ? u"Task"_s : u"Event"_s,
                             complete};
    QStringList quoted;
    for (const QString& value : values)
        quoted << fieldtext::quoted(value);
    return insertEvent +
           u"Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,Reminder2,Description,PositionKey,"
           u"ContactKey,"
           u"CompanyKey,Medium,EventType,Complete) VALUES (" +
           quoted.join(u',') + u')';
}

bool FrmEvCal::replaceRows(const QString& insert, std::vector<Key>& left)
{
    DataJW& dataJW = m_session.dataJW();
    for (const Key key : m_rows) {
        if (!dataJW.execQuery(u"DELETE * from EVENT where eventKey="_s + QString::number(key)))
            left.push_back(key);
    }
    const bool inserted = dataJW.execQuery(insert);
    // The journal of versions takes what the user wrote even if the calendar itself could not.
    dataJW.execQuery(recoveryInsert(insert, u"EventRecovery"_s));
    return inserted;
}
