// The editing frame: what the user changes in it.
#include "base/dates.h"
#include "calendar/eventchoices.h"
#include "calendar/eventtimes.h"
#include "calendar/frmevcal.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A box that stands for a length, and the length as it is stored.
struct DurationBox
{
    QString control;
    QString length;
};

const std::array<DurationBox, 4>& durationBoxes()
{
    static const std::array<DurationBox, 4> boxes{
        {{u"chkhalf"_s, u".5"_s}, {u"chkOne"_s, u"1"_s}, {u"chkOnehalf"_s, u"1.5"_s}, {u"chkTwo"_s, u"2"_s}}};
    return boxes;
}

} // namespace

void FrmEvCal::touched()
{
    m_frameDirty = true;
    emit frameChanged();
}

bool FrmEvCal::isNetworking() const
{
    return m_form.text(u"txtEvName"_s) == eventchoices::networkingEvent;
}

bool FrmEvCal::takenByChoice(const QString& control)
{
    const QString text = m_form.text(control);
    if (control == u"chkShowComplete")
        setShowComplete(isOn(control));
    else if (control == u"lblCompany")
        chooseCompany(text);
    else if (control == u"lblContact")
        chooseContact(text);
    else if (control == u"lblPosition")
        choosePosition(text);
    else if (std::ranges::find(durationBoxes(), control, &DurationBox::control) != durationBoxes().end())
        chooseDuration(control);
    else
        return false;
    return true;
}

void FrmEvCal::fieldChanged(const QString& control)
{
    using Rule = void (*)(FrmEvCal&, const QString&);
    static const QHash<QString, Rule> rules{
        {u"txtEvName"_s, [](FrmEvCal& own, const QString&) { own.nameChanged(); }},
        {u"txtEvTimeS"_s, [](FrmEvCal& own, const QString&) { own.showEndTime(); }},
        {u"txtEvTimeN"_s, [](FrmEvCal& own, const QString&) { own.takeEndTime(); }},
        {u"txtRemind"_s,
         [](FrmEvCal& own, const QString& name) { own.setBell(!own.m_form.text(name).isEmpty()); }},
        {u"chkTask"_s, [](FrmEvCal& own, const QString& name) { own.setTask(own.isOn(name)); }},
        {u"chkNoDate"_s, [](FrmEvCal& own, const QString& name) { own.setNoDate(own.isOn(name)); }},
        {u"dtEvTsk"_s,
         [](FrmEvCal& own, const QString& name) {
             own.setFrameDate(QDate::fromString(own.m_form.text(name), Qt::ISODate));
             own.selectDay(own.m_frameDate);
         }},
    };
    if (takenByChoice(control))
        return;
    if (control == u"optStAM" || control == u"optStPM") {
        setHalf(u"optStAM"_s, u"optStPM"_s, isOn(control) == (control == u"optStPM"));
        showEndTime();
    } else if (control == u"optEnAM" || control == u"optEnPM") {
        setHalf(u"optEnAM"_s, u"optEnPM"_s, isOn(control) == (control == u"optEnPM"));
        takeEndTime();
    } else if (const Rule rule = rules.value(control)) {
        rule(*this, control);
    }
    touched();
}

void FrmEvCal::fieldLeft(const QString& control)
{
    if (control == u"txtEvTimeS" || control == u"txtEvTimeN")
        normaliseTime(control);
}

void FrmEvCal::setHalf(const QString& am, const QString& pm, bool isPm)
{
    setOn(am, !isPm);
    setOn(pm, isPm);
}

bool FrmEvCal::normaliseTime(const QString& control)
{
    const bool isStart = control == u"txtEvTimeS";
    const QString am = isStart ? u"optStAM"_s : u"optEnAM"_s;
    const QString pm = isStart ? u"optStPM"_s : u"optEnPM"_s;
    const QString typed = m_form.text(control).trimmed();
    const auto time = eventtimes::readTime(typed, isOn(pm));
    if (!time)
        return typed.isEmpty();
    if (time->text == m_form.text(control) && time->pm == isOn(pm))
        return true;
    m_form.setText(control, time->text);
    setHalf(am, pm, time->pm);
    isStart ? showEndTime() : takeEndTime();
    return true;
}

void FrmEvCal::showEndTime()
{
    const auto start = eventtimes::readTime(m_form.text(u"txtEvTimeS"_s), isOn(u"optStPM"_s));
    const double hours = eventtimes::number(m_duration);
    QStringList end;
    if (start && hours > 0)
        end = eventtimes::getEndTime(start->text, hours, start->pm ? u"PM"_s : u"AM"_s).split(u" /"_s);
    m_form.setText(u"txtEvTimeN"_s, end.value(0));
    setHalf(u"optEnAM"_s, u"optEnPM"_s, end.isEmpty() ? isOn(u"optStPM"_s) : end.value(1) == u"PM");
}

void FrmEvCal::takeEndTime()
{
    const auto half = [this](const QString& pm) -> QString { return isOn(pm) ? u"PM"_s : u"AM"_s; };
    const auto start = eventtimes::readTime(m_form.text(u"txtEvTimeS"_s), isOn(u"optStPM"_s));
    const auto end = eventtimes::readTime(m_form.text(u"txtEvTimeN"_s), isOn(u"optEnPM"_s));
    m_duration = start && end
                     ? eventtimes::duration(start->text, half(u"optStPM"_s), end->text, half(u"optEnPM"_s))
                     : u"0"_s;
    tickDuration();
}

void FrmEvCal::tickDuration()
{
    for (const auto& [box, length] : durationBoxes())
        setOn(box, eventtimes::number(m_duration) == eventtimes::number(length));
}

void FrmEvCal::chooseDuration(const QString& control)
{
    const bool on = isOn(control);
    for (const auto& [box, length] : durationBoxes()) {
        if (on && box == control)
            m_duration = length;
    }
    // A length that is ticked off leaves the times as they are.
    for (const auto& [box, length] : durationBoxes())
        setOn(box, on && box == control);
    if (on)
        showEndTime();
    touched();
}

void FrmEvCal::setFrameDate(QDate day)
{
    if (isStorable(day))
        m_frameDate = day;
    const bool noDate = isOn(u"chkNoDate"_s);
    m_form.setText(u"frmeEventData"_s, noDate ? tr("No Date") : dates::mmddyyyy(m_frameDate));
    m_form.setText(u"dtEvTsk"_s, m_frameDate.toString(Qt::ISODate));
    m_form.setEnabled(u"dtEvTsk"_s, !noDate);
}

void FrmEvCal::setTask(bool task)
{
    showTask(task);
    const QString medium = m_form.text(u"txtFormat"_s);
    m_form.setText(u"txtFormat"_s, m_otherMedium);
    m_otherMedium = medium;
    // Only a task can do without a date: an event without one would be nowhere to be seen.
    if (!task && isOn(u"chkNoDate"_s))
        setNoDate(false);
}

void FrmEvCal::showTask(bool task)
{
    setOn(u"chkTask"_s, task);
    m_form.setVisible(u"imgFormat"_s, !task);
    m_form.setVisible(u"imgPriority"_s, task);
}

void FrmEvCal::setNoDate(bool noDate)
{
    setOn(u"chkNoDate"_s, noDate);
    if (noDate && !isOn(u"chkTask"_s))
        setTask(true);
    setFrameDate(m_frameDate);
}

void FrmEvCal::imgReminder()
{
    setBell(!isOn(u"imgReminder"_s));
    if (isOn(u"imgReminder"_s) && m_form.text(u"txtRemind"_s).isEmpty())
        m_form.setText(u"txtRemind"_s, eventchoices::reminders().front());
    touched();
}

void FrmEvCal::setBell(bool set)
{
    setOn(u"imgReminder"_s, set);
}

void FrmEvCal::chooseFormat(const QString& text)
{
    m_form.setText(u"txtFormat"_s, text);
    touched();
}

void FrmEvCal::choosePriority(const QString& text)
{
    chooseFormat(text);
}

void FrmEvCal::chooseOther(int button, const QString& text)
{
    // An entry has no column for these two, so each stands as a line of its own in the description.
    const QString control = button == 2 ? u"imgOther2"_s : u"imgOther1"_s;
    QStringList lines = m_form.text(u"txtEvDescription"_s).split(u'\n');
    const QString before = m_form.text(control);
    if (const qsizetype line = lines.lastIndexOf(before); !before.isEmpty() && line >= 0)
        lines.removeAt(line);
    // The last line is taken when it is empty, as that of an empty description is; paragraphs stay.
    if (!text.isEmpty() && !lines.isEmpty() && lines.last().isEmpty())
        lines.last() = text;
    else if (!text.isEmpty())
        lines << text;
    m_form.setText(control, text);
    m_form.setText(u"txtEvDescription"_s, lines.join(u'\n'));
    touched();
}

void FrmEvCal::chooseEventType(const QString& text)
{
    m_form.setText(u"txtEvName"_s, text);
    nameChanged();
    touched();
}

void FrmEvCal::nameChanged()
{
    const QString networking = eventchoices::networkingEvent.toString();
    if (isNetworking() == (m_company == networking))
        return;
    m_company = isNetworking() ? networking : QString();
    m_form.setText(u"lblCompany"_s, m_company);
    m_form.setText(u"lblContact"_s, {});
    m_form.setText(u"lblPosition"_s, {});
    listCompanies();
    listPeople();
}

bool FrmEvCal::mayAssign(const QString& chosen)
{
    if (!isNetworking())
        return true;
    if (!chosen.isEmpty() && chosen != eventchoices::networkingEvent)
        m_session.msgBox(
            tr("This is a networking event.  Select the 'Other Event' type if you want to assign a "
               "company or contact."));
    return false;
}

void FrmEvCal::chooseCompany(const QString& name)
{
    if (!mayAssign(name)) {
        m_form.setText(u"lblCompany"_s, m_company);
        return;
    }
    m_form.setText(u"lblCompany"_s, name);
    if (name == m_company)
        return;
    m_company = name;
    m_form.setText(u"lblContact"_s, {});
    m_form.setText(u"lblPosition"_s, {});
    listPeople();
    touched();
}

void FrmEvCal::choosePerson(const QString& control, const QString& name)
{
    const bool allowed = mayAssign(name) && (name.isEmpty() || hasCompany());
    m_form.setText(control, allowed ? name : QString());
    if (allowed)
        touched();
}

void FrmEvCal::chooseContact(const QString& name)
{
    choosePerson(u"lblContact"_s, name);
}

void FrmEvCal::choosePosition(const QString& title)
{
    choosePerson(u"lblPosition"_s, title);
}
