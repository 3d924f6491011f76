// A calendar screen of its own for each test, on a real store.
#pragma once

#include "calendar/frmevcal.h"
#include "support/screenbench.h"

#include <QSignalSpy>

/// The calendar on a small campaign: Acme (company 1) with Ana Ruiz (1), Mary Ann Smith (2) and the position
/// Engineer (1); Bolt (2) with another Ana Ruiz (3). It is Sunday, 11/22/2026, half past nine.
class CalendarBench : public ScreenBench
{
public:
    CalendarBench()
    {
        for (const QString& company : {u"Acme"_s, u"Bolt"_s})
            run(u"Insert into Company(Name) Values('"_s + company + u"')");
        for (const QString& person : {u"'Ana','Ruiz',1"_s, u"'Mary Ann','Smith',1"_s, u"'Ana','Ruiz',2"_s})
            run(u"Insert into Contact(FirstName,LastName,CompanyKey) Values("_s + person + u')');
        run(u"Insert into Position(Title,CompanyKey) Values('Engineer',1)"_s);
    }

    FrmEvCal calendar{*world.session};

    /// What the controls show, with "|" between them.
    QString shown(const QString& controls) { return shownIn(calendar.form(), controls); }
    /// Puts an entry in; time as "10:30 AM", "" for none.
    void addEvent(const QString& date, const QString& time, const QString& name = u"Interview"_s,
                  const QString& type = u"Event"_s, const QString& complete = {})
    {
        run(u"Insert into "
            u"Event(Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,Reminder2,EventType,Complete,"
            u"Medium) Values('"_s +
            name + u"','" + date + u"','" + time.section(u' ', 0, 0) + u"','1','" + time.section(u' ', 1) +
            u"','0','0','" + type + u"','" + complete + u"','')");
    }
    void addTask(const QString& date, const QString& name, const QString& complete = {})
    {
        addEvent(date, {}, name, u"Task"_s, complete);
    }
    /// Columns of all entries, as cells() has them.
    QString stored(const QString& columns) { return cells(u"Select "_s + columns + u" from Event"); }
    /// Changes a control as a view reports it.
    void type(const QString& control, const QString& text)
    {
        calendar.form().edit(control, text);
        calendar.fieldChanged(control);
        calendar.fieldLeft(control);
    }
    /// The grid: "day key text" of each chip, joined with ";".
    QString chips()
    {
        QStringList all;
        for (const DayCell& cell : calendar.cells()) {
            for (const DayChip& chip : cell.chips)
                all << QString::number(cell.date.day()) + u' ' + chip.key + u' ' + chip.text +
                           (chip.ghosted ? u" ghost" : u"");
        }
        return all.join(u';');
    }
    /// The task list: "key task due state", joined with ";".
    QString tasks()
    {
        QStringList all;
        for (const ListRow& row : calendar.lvwAct().rows())
            all << row.key + u' ' + row.texts.join(u' ');
        return all.join(u';');
    }
};

/// The calendar with a new event on 11/24 in its frame.
struct NewEvent : CalendarBench
{
    NewEvent()
    {
        calendar.load();
        calendar.newEvent({2026, 11, 24});
    }
};

/// The calendar with a stored interview on 11/24 in its frame.
struct StoredEvent : CalendarBench
{
    explicit StoredEvent(const QString& time = u"10:30 AM"_s, const QString& columns = {})
    {
        addEvent(u"11/24/2026"_s, time);
        if (!columns.isEmpty())
            run(u"Update Event set "_s + columns);
        calendar.load();
        calendar.openEntry(u"EV1"_s);
    }
};
