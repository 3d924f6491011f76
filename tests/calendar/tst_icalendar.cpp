// What another calendar program reads from the file, asked of the library that many of them use.
#include "calendar/icalendar.h"

#include "base/dates.h"
#include "support/runtest.h"
#include "support/table.h"

#include <libical/ical.h>

#include <QRegularExpression>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

using FieldOfEntry = QString JWevent::*;
Q_DECLARE_METATYPE(FieldOfEntry)

namespace {

const QDateTime now(QDate(2026, 11, 22), QTime(9, 30), Qt::UTC);

JWevent interview()
{
    return {.eventKey = 7,
            .eventDate = QDate(2026, 11, 30),
            .eventTime = u"11:30"_s,
            .eventDuration = u"1.25"_s,
            .eventDescription = u"Gate 2; ask for \"Mara\", bring a\\b\r\nsteel shoes\x01"_s,
            .eventName = u"Interview"_s,
            .reminder1 = u"24"_s,
            .reminder2 = u"0"_s,
            .ampm = u"PM"_s,
            .medium = u"Meeting"_s,
            .eventType = u"Event"_s,
            .complete = {}};
}

JWevent task(QDate due)
{
    JWevent made = interview();
    made.eventType = u"Task"_s;
    made.eventTime.clear();
    made.eventDate = due;
    made.reminder1 = u"0"_s;
    made.medium = u"High Priority"_s;
    return made;
}

/// The entries written and read back, one "NAME=value" a line; an alarm's stand behind "VALARM".
QStringList readBack(const std::vector<JWevent>& entries)
{
    const std::unique_ptr<icalcomponent, decltype(&icalcomponent_free)> calendar(
        icalcomponent_new_from_string(icalendar::write(entries, now).constData()), &icalcomponent_free);
    if (!calendar || icalcomponent_count_errors(calendar.get()) > 0)
        return {u"broken"_s};
    QStringList lines;
    const std::function<void(icalcomponent*)> walk = [&](icalcomponent* part) {
        lines.append(QLatin1String(icalcomponent_kind_to_string(icalcomponent_isa(part))));
        for (auto* each = icalcomponent_get_first_property(part, ICAL_ANY_PROPERTY); each;
             each = icalcomponent_get_next_property(part, ICAL_ANY_PROPERTY)) {
            const char* value = icalproperty_get_value_as_string(each);
            const icalvalue* typed = icalproperty_get_value(each);
            if (icalvalue_isa(typed) == ICAL_TEXT_VALUE)
                value = icalvalue_get_text(typed);
            lines.append(QString(QLatin1String(icalproperty_get_property_name(each)) + u'=' +
                                 QString::fromUtf8(value)));
        }
        for (auto* each = icalcomponent_get_first_component(part, ICAL_ANY_COMPONENT); each;
             each = icalcomponent_get_next_component(part, ICAL_ANY_COMPONENT))
            walk(each);
    };
    walk(calendar.get());
    return lines;
}

} // namespace

class TestICalendar : public QObject
{
    Q_OBJECT

private slots:
    void yearsToTheLastAreWritten()
    {
        JWevent entry = interview();
        for (const int year : {3500, 9999}) {
            entry.eventDate = QDate(year, 11, 30);
            QVERIFY(
                readBack({entry}).contains(QString(u"DTSTART="_s + QString::number(year) + u"1130T233000")));
        }
        entry.eventDate = QDate(9999, 12, 31); // ends in a year that the format has not
        QVERIFY(readBack({entry}).filter(u"DTEND"_s).isEmpty());
        QCOMPARE(readBack({}).filter(QRegularExpression(u"^V[A-Z]+$"_s)),
                 (QStringList{u"VCALENDAR"_s, u"VTIMEZONE"_s}));
    }

    void eventIsReadAsItWasPlanned()
    {
        const QStringList lines = readBack({interview()});
        for (const QString& line :
             {u"VERSION=2.0"_s, u"VEVENT"_s, u"UID=event-7@jobwright"_s, u"DTSTAMP=20261122T093000Z"_s,
              u"DTSTART=20261130T233000"_s, u"DTEND=20261201T004500"_s, u"SUMMARY=Interview"_s,
              u"DESCRIPTION=Gate 2; ask for \"Mara\", bring a\\b\nsteel shoes"_s, u"VALARM"_s,
              u"TRIGGER=-P1D"_s, u"ACTION=DISPLAY"_s})
            QVERIFY2(lines.contains(line), qPrintable(line + u" not in\n" + lines.join(u'\n')));
    }

    void entryHasOnlyWhatItsTextsSay_data()
    {
        // line: one that is there, or the beginning of none behind "-"
        columns<FieldOfEntry, QString, QString>("field", "text", "line");
        QTest::newRow("no length") << &JWevent::eventDuration << u"0"_s << u"-DTEND"_s;
        QTest::newRow("odd length") << &JWevent::eventDuration << u"long"_s << u"-DTEND"_s;
        QTest::newRow("length without end") << &JWevent::eventDuration << u"1e18"_s << u"-DTEND"_s;
        QTest::newRow("no reminder") << &JWevent::reminder1 << u"0"_s << u"-VALARM"_s;
        QTest::newRow("odd reminder") << &JWevent::reminder1 << u"soon"_s << u"-VALARM"_s;
        QTest::newRow("reminder without end") << &JWevent::reminder1 << u"2147483647"_s << u"-VALARM"_s;
        QTest::newRow("odd time: the day") << &JWevent::eventTime << u"noon"_s << u"DTSTART=20261130"_s;
        QTest::newRow("no time: the day") << &JWevent::eventTime << u"Nodate"_s << u"DTSTART=20261130"_s;
    }
    void entryHasOnlyWhatItsTextsSay()
    {
        QFETCH(FieldOfEntry, field);
        FETCH(QString, text, line);
        JWevent entry = interview();
        entry.*field = text;
        const QStringList lines = readBack({entry});
        QVERIFY(lines.contains(u"VEVENT"_s));
        const bool met = line.startsWith(u'-')
                             ? lines.filter(QRegularExpression(u'^' + line.mid(1))).isEmpty()
                             : lines.contains(line);
        QVERIFY2(met, qPrintable(lines.join(u'\n')));
    }

    void taskIsDueOnItsDay()
    {
        JWevent entry = task(QDate(2026, 11, 30));
        for (const QString& line : {u"DUE=20261130"_s, u"PRIORITY=1"_s, u"STATUS=NEEDS-ACTION"_s})
            QVERIFY2(readBack({entry}).contains(line), qPrintable(line));
        entry.complete = u"Complete"_s;
        QVERIFY(readBack({entry}).contains(u"STATUS=COMPLETED"_s));
    }

    void entryWithoutDateHasNoDueAndNoPlaceAmongEvents()
    {
        const QStringList lines = readBack({task(dates::sentinel)});
        QVERIFY(lines.contains(u"VTODO"_s) && lines.filter(u"DUE="_s).isEmpty());
        JWevent entry = interview();
        entry.eventDate = dates::sentinel;
        QVERIFY(!readBack({entry}).contains(u"VEVENT"_s));
    }
};

JOBWRIGHT_TEST(TestICalendar)
#include "tst_icalendar.moc"
