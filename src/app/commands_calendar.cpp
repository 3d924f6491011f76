// The commands about what is planned and due.
#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "calendar/eventpeople.h"
#include "calendar/icalendar.h"
#include "calendar/jwevent.h"
#include "calendar/monthsummary.h"
#include "calendar/reminderlist.h"
#include "calendar/reminderrules.h"
#include "store/gateway/datajw.h"

#include <QJsonArray>
#include <QJsonObject>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;
using commands::help;
using commands::notEmpty;
using commands::tr;

namespace {

QString dayText(const JWevent& entry)
{
    return entry.hasDate() ? entry.eventDate.toString(Qt::ISODate) : u"-"_s;
}

QString timeText(const JWevent& entry)
{
    return entry.startTime().isValid() ? entry.startTime().toString(u"HH:mm"_s) : u"-"_s;
}

/// Where an entry stands, for scripts.
QString stateOf(const JWevent& entry, QDate today)
{
    if (entry.isTask())
        return stateName(taskState(entry, today));
    return entry.isDone() ? u"closed"_s : u"open"_s;
}

/// The same for people.
QString shownStateOf(const JWevent& entry, QDate today)
{
    if (entry.isTask())
        return shownState(taskState(entry, today));
    return entry.isDone() ? tr("closed") : tr("open");
}

/// What a month holds, and the names that belong to it.
struct Agenda
{
    std::vector<JWevent> entries;
    EventOwnersByKey owners;
    EventPeople people;

    [[nodiscard]] QString contact(const JWevent& entry) const
    {
        return people.contact(owners.value(entry.eventKey));
    }
    [[nodiscard]] QString company(const JWevent& entry) const
    {
        return people.company(owners.value(entry.eventKey));
    }
};

QJsonValue textOrNull(const QString& text)
{
    return text == u"-" || text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject asJson(const Agenda& agenda, const JWevent& entry, QDate today)
{
    return {{u"key"_s, entry.eventKey},
            {u"kind"_s, entry.isTask() ? u"task"_s : u"event"_s},
            {u"date"_s, textOrNull(dayText(entry))},
            {u"time"_s, textOrNull(timeText(entry))},
            {u"name"_s, entry.eventName},
            {u"description"_s, entry.eventDescription},
            {u"medium"_s, textOrNull(entry.medium)},
            {u"contact"_s, textOrNull(agenda.contact(entry))},
            {u"company"_s, textOrNull(agenda.company(entry))},
            {u"state"_s, stateOf(entry, today)}};
}

/// The month's events and tasks by date, and behind them all tasks without a date, which belong to every
/// month, as in the calendar's task list. Nothing when the events could not be read.
std::optional<Agenda> agendaOf(DataJW& dataJW, QDate month)
{
    const std::optional<EventRows> all = readEvents(dataJW);
    if (!all)
        return std::nullopt;
    reportUnreachable(dataJW, u"Agenda"_s, all->unreachable);
    Agenda agenda{eventsOfMonth(all->events, month), {}, {}};
    std::ranges::copy_if(all->events, std::back_inserter(agenda.entries),
                         [](const JWevent& entry) { return entry.isTask() && !entry.hasDate(); });
    for (const JWevent& entry : agenda.entries) {
        if (all->owners.contains(entry.eventKey))
            agenda.owners.insert(entry.eventKey, all->owners.value(entry.eventKey));
    }
    agenda.people.learn(dataJW, agenda.owners);
    return agenda;
}

struct AgendaOptions
{
    std::string month;
    bool ics = false;
    bool json = false;
};

void printAgenda(const Agenda& agenda, QDate today)
{
    const Table table({10, 5, 24, 15, 9, 28, 20, 0});
    table.row({tr("Date"), tr("Time"), tr("Event"), tr("Medium"), tr("State"), tr("Company"), tr("Contact"),
               tr("Description")});
    for (const JWevent& entry : agenda.entries)
        table.row({dayText(entry), timeText(entry), entry.eventName, entry.medium, shownStateOf(entry, today),
                   agenda.company(entry), agenda.contact(entry), entry.eventDescription});
}

QByteArray asCalendar(const Agenda& agenda, const QDateTime& now)
{
    QHash<Key, QString> with;
    for (auto owners = agenda.owners.cbegin(); owners != agenda.owners.cend(); ++owners)
        with.insert(owners.key(), agenda.people.with(owners.value()));
    return icalendar::write(agenda.entries, now, with);
}

int agenda(CommandContext& context, const AgendaOptions& options)
{
    const QString text = QString::fromStdString(options.month);
    const QDate asked = QDate::fromString(text + u"-01", u"yyyy-MM-dd"_s);
    if (!text.isEmpty() && !asked.isValid()) {
        printError(tr("\"%1\" is no month. A month is written as 2026-11.").arg(text));
        return WrongUsage;
    }
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const auto month = agendaOf(session->dataJW(), asked.isValid() ? asked : session->today());
    if (!month) {
        printError(tr("The events could not be read."));
        return Failed;
    }
    if (options.ics && month->entries.empty())
        printError(tr("There is no entry in that month; the calendar is empty."));
    if (options.ics) {
        print(QString::fromUtf8(asCalendar(*month, session->now())));
    } else if (options.json) {
        QJsonArray array;
        for (const JWevent& entry : month->entries)
            array.append(asJson(*month, entry, session->today()));
        printJson(array);
    } else {
        printAgenda(*month, session->today());
    }
    return Done;
}

QJsonObject asJson(const DueEvent& due)
{
    return {{u"key"_s, due.eventKey},
            {u"event"_s, due.event},
            {u"description"_s, due.description},
            {u"when"_s, textOrNull(dates::toIso(due.when))},
            {u"contact"_s, textOrNull(due.contact)},
            {u"position"_s, textOrNull(due.position)},
            {u"company"_s, textOrNull(due.company)},
            {u"timeLeft"_s, due.verdict.timeLeft()},
            {u"urgency"_s, urgencyWord(due.verdict.urgency())}};
}

QString whenText(const DueEvent& due)
{
    const QString day = due.when.date.toString(Qt::ISODate);
    if (due.when.time.isValid())
        return day + due.when.time.toString(u" HH:mm"_s);
    return due.when.date.isValid() && !due.verdict.isUnreadable ? day : due.whenText();
}

void printDue(const std::vector<DueEvent>& events)
{
    const Table table({7, 12, 16, 20, 28, 20, 0});
    table.row({tr("Urgency"), tr("Time left"), tr("When"), tr("Event"), tr("Company"), tr("Contact"),
               tr("Description")});
    for (const DueEvent& each : events)
        table.row({shownUrgency(each.verdict.urgency()), each.verdict.timeLeft(), whenText(each), each.event,
                   each.company, each.contact, each.description});
}

int due(CommandContext& context, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const DueEvents found = lookForDueEvents(session->dataJW(), session->now());
    if (json) {
        QJsonArray array;
        for (const DueEvent& each : found.open)
            array.append(asJson(each));
        printJson(array);
    } else {
        printDue(found.open);
    }
    if (found.failure.isEmpty())
        return Done;
    printError(found.failure);
    return Failed;
}

} // namespace

void addCalendarCommands(CLI::App& app, Command& chosen)
{
    auto* const agendaCommand = app.add_subcommand("agenda", help("List the events and tasks of a month"));
    auto options = std::make_shared<AgendaOptions>();
    agendaCommand->add_option("--month", options->month, help("The month; without it the present one"))
        ->type_name("YYYY-MM")
        ->check(notEmpty("the month is empty"));
    auto* const ics = agendaCommand->add_flag("--ics", options->ics,
                                              help("As an iCalendar file for other calendar programs"));
    agendaCommand->add_flag("--json", options->json, help("The same as JSON"))->excludes(ics);
    agendaCommand->callback(
        [=, &chosen] { chosen = [=](CommandContext& context) { return agenda(context, *options); }; });

    auto* const dueCommand =
        app.add_subcommand("due", help("List the open events inside their reminder time"));
    auto json = std::make_shared<bool>(false);
    dueCommand->add_flag("--json", *json, help("The same as JSON"));
    dueCommand->callback(
        [=, &chosen] { chosen = [=](CommandContext& context) { return due(context, *json); }; });
}
