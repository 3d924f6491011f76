#include "calendar/frametimes.h"

#include "calendar/eventchoices.h"
#include "calendar/eventtimes.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString bell = u"imgReminder"_s;

/// A box that stands for a length, and the length as it is stored.
struct LengthBox
{
    QString control;
    QString length;
};

const std::array<LengthBox, 4>& lengthBoxes()
{
    static const std::array<LengthBox, 4> boxes{
        {{u"chkhalf"_s, u".5"_s}, {u"chkOne"_s, u"1"_s}, {u"chkOnehalf"_s, u"1.5"_s}, {u"chkTwo"_s, u"2"_s}}};
    return boxes;
}

} // namespace

FrameTimes::FrameTimes(Form& form)
    : m_form(form)
{
    m_form.setItems(u"txtEvTimeS"_s, eventchoices::times());
    m_form.setItems(u"txtEvTimeN"_s, eventchoices::times());
    m_form.setItems(u"txtRemind"_s, eventchoices::reminders());
}

void FrameTimes::fill(const JWevent& entry)
{
    const bool timed = entry.eventTime != u"Nodate";
    m_untimed = !timed && entry.isEvent();
    m_form.setText(u"txtEvTimeS"_s, timed ? entry.eventTime : QString());
    setHalf(u"optStAM"_s, u"optStPM"_s, entry.ampm == u"PM");
    // The stored length stays what it is until the user changes the end, also where the clock's twelve makes
    // the two times tell another one.
    m_duration = entry.eventDuration;
    tickLength();
    showEnd();
    const int lead = static_cast<int>(std::clamp<double>(eventtimes::number(entry.reminder1), 0, INT16_MAX));
    m_form.setOn(bell, lead > 0);
    m_form.setText(u"txtRemind"_s, eventtimes::reminderText(lead));
}

bool FrameTimes::changed(const QString& control)
{
    const bool on = m_form.isOn(control);
    if (control == u"txtEvTimeS") {
        showEnd();
    } else if (control == u"txtEvTimeN") {
        takeEnd();
    } else if (control == u"txtRemind") {
        m_form.setOn(bell, !m_form.text(control).isEmpty());
    } else if (control == u"optStAM" || control == u"optStPM") {
        setHalf(u"optStAM"_s, u"optStPM"_s, on == (control == u"optStPM"));
        showEnd();
    } else if (control == u"optEnAM" || control == u"optEnPM") {
        setHalf(u"optEnAM"_s, u"optEnPM"_s, on == (control == u"optEnPM"));
        takeEnd();
    } else if (std::ranges::find(lengthBoxes(), control, &LengthBox::control) != lengthBoxes().end()) {
        chooseLength(control);
    } else {
        return false;
    }
    return true;
}

void FrameTimes::setHalf(const QString& am, const QString& pm, bool isPm)
{
    m_form.setOn(am, !isPm);
    m_form.setOn(pm, isPm);
}

bool FrameTimes::normalise(const QString& control)
{
    const bool isStart = control == u"txtEvTimeS";
    if (!isStart && control != u"txtEvTimeN")
        return true;
    const QString am = isStart ? u"optStAM"_s : u"optEnAM"_s;
    const QString pm = isStart ? u"optStPM"_s : u"optEnPM"_s;
    const QString typed = m_form.text(control).trimmed();
    const auto time = eventtimes::readTime(typed, m_form.isOn(pm));
    if (!time)
        return typed.isEmpty();
    if (time->text == m_form.text(control) && time->pm == m_form.isOn(pm))
        return true;
    m_form.setText(control, time->text);
    setHalf(am, pm, time->pm);
    isStart ? showEnd() : takeEnd();
    return true;
}

void FrameTimes::showEnd()
{
    const bool isPm = m_form.isOn(u"optStPM"_s);
    const auto start = eventtimes::readTime(m_form.text(u"txtEvTimeS"_s), isPm);
    const double hours = eventtimes::number(m_duration);
    QStringList end;
    if (start && hours > 0)
        end = eventtimes::getEndTime(start->text, hours, start->pm ? u"PM"_s : u"AM"_s).split(u" /"_s);
    m_form.setText(u"txtEvTimeN"_s, end.value(0));
    setHalf(u"optEnAM"_s, u"optEnPM"_s, end.isEmpty() ? isPm : end.value(1) == u"PM");
}

void FrameTimes::takeEnd()
{
    const bool startPm = m_form.isOn(u"optStPM"_s);
    const bool endPm = m_form.isOn(u"optEnPM"_s);
    const auto half = [](bool pm) -> QString { return pm ? u"PM"_s : u"AM"_s; };
    const auto start = eventtimes::readTime(m_form.text(u"txtEvTimeS"_s), startPm);
    const auto end = eventtimes::readTime(m_form.text(u"txtEvTimeN"_s), endPm);
    m_duration =
        start && end ? eventtimes::duration(start->text, half(startPm), end->text, half(endPm)) : u"0"_s;
    tickLength();
}

void FrameTimes::tickLength()
{
    for (const auto& [box, length] : lengthBoxes())
        m_form.setOn(box, eventtimes::number(m_duration) == eventtimes::number(length));
}

void FrameTimes::chooseLength(const QString& control)
{
    const bool on = m_form.isOn(control);
    for (const auto& [box, length] : lengthBoxes()) {
        if (on && box == control)
            m_duration = length;
        m_form.setOn(box, on && box == control);
    }
    // A length that is ticked off leaves the times as they are.
    if (on)
        showEnd();
}

void FrameTimes::toggleBell()
{
    const bool set = !m_form.isOn(bell);
    m_form.setOn(bell, set);
    if (set && m_form.text(u"txtRemind"_s).isEmpty())
        m_form.setText(u"txtRemind"_s, eventchoices::reminders().front());
}

std::optional<FrameTrouble> FrameTimes::trouble()
{
    for (const QString& control : {u"txtEvTimeS"_s, u"txtEvTimeN"_s}) {
        if (!normalise(control))
            return FrameTrouble{control,
                                tr("\"%1\" is no time of day. Please enter hours and minutes, such as 9:30.")
                                    .arg(m_form.text(control))};
    }
    const QString reminder = m_form.text(u"txtRemind"_s);
    if (!m_form.isOn(bell) || reminder.trimmed().isEmpty() || eventtimes::isReminder(reminder))
        return std::nullopt;
    return FrameTrouble{u"txtRemind"_s,
                        tr("\"%1\" is no lead time. Please enter a number and one of hrs, dys and wks, such "
                           "as 2 dys.")
                            .arg(reminder)};
}

bool FrameTimes::isTimeless() const
{
    return m_form.text(u"txtEvTimeS"_s).isEmpty() && !m_untimed;
}

void FrameTimes::store(JWevent& entry) const
{
    const QString start = m_form.text(u"txtEvTimeS"_s);
    const bool reminds = m_form.isOn(bell);
    entry.eventTime = start.isEmpty() && !entry.isTask() ? u"Nodate"_s : start;
    const bool isWhole = !start.isEmpty() && !m_form.text(u"txtEvTimeN"_s).isEmpty();
    entry.eventDuration = m_duration.isEmpty() || (!isWhole && !m_untimed) ? u"0"_s : m_duration;
    entry.ampm = m_form.isOn(u"optStPM"_s) ? u"PM"_s : u"AM"_s;
    entry.reminder1 = QString::number(reminds ? eventtimes::hoursOf(m_form.text(u"txtRemind"_s)) : 0);
}
