// A calendar screen of its own for each test, on a real store.
#pragma once

#include "calendar/frmevcal.h"
#include "support/world.h"

#include <QSignalSpy>

#include <functional>

using namespace Qt::StringLiterals;

/// Opens the calendar as the shell does, and lets the test work in it while it is open.
class CalendarNavigator : public Navigator
{
public:
    FrmEvCal* calendar = nullptr;
    std::function<void()> whileOpen;

    [[nodiscard]] bool hasScreen(const QString&) const override { return true; }
    void openScreen(const QString& screen) override
    {
        QCOMPARE(screen, u"FrmEvCal"_s);
        calendar->load();
        if (whileOpen)
            whileOpen();
        calendar->unload();
    }
    void openHelp(int) override {}
};

/// World and calendar on a small campaign: Acme (company 1) with Ana Ruiz (1), Mary Ann Smith (2) and the
/// position Engineer (1); Bolt (2) with another Ana Ruiz (3). It is Sunday, 11/22/2026, half past nine.
class CalendarBench
{
public:
    CalendarBench()
    {
        for (const QString& company : {u"Acme"_s, u"Bolt"_s})
            run(u"Insert into Company(Name) Values('"_s + company + u"')");
        for (const QString& person : {u"'Ana','Ruiz',1"_s, u"'Mary Ann','Smith',1"_s, u"'Ana','Ruiz',2"_s})
            run(u"Insert into Contact(FirstName,LastName,CompanyKey) Values("_s + person + u')');
        run(u"Insert into Position(Title,CompanyKey) Values('Engineer',1)"_s);
        navigator.calendar = &calendar;
    }

    World world;
    CalendarNavigator navigator;
    FrmEvCal calendar{*world.session, navigator};

    DataJW& data() { return world.data(); }
    Form& form() { return calendar.form(); }
    QString shown(const QString& control) { return form().text(control); }
    void run(const QString& statement) { QVERIFY2(data().execQuery(statement), qPrintable(statement)); }
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
    /// Changes a control as a view reports it.
    void type(const QString& control, const QString& text)
    {
        form().edit(control, text);
        calendar.fieldChanged(control);
        calendar.fieldLeft(control);
    }
    /// The cells of a statement's rows, "a|b" a row and ";" between rows.
    QString cells(const QString& statement)
    {
        QStringList rows;
        for (RecordSet set = data().getExecQueryRecords(statement); !set.atEnd(); set.next()) {
            QStringList row;
            for (int column = 0; column < set.columnCount(); ++column)
                row.append(set.text(column));
            rows.append(row.join(u'|'));
        }
        return rows.join(u';');
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
