// Goals, the action plan, its catalogue and the statistics, printed.
#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "planning/catalogue.h"
#include "planning/goalsfile.h"
#include "planning/plan.h"
#include "planning/usagestatistics.h"
#include "store/session.h"

#include <QJsonArray>
#include <QJsonObject>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;
using commands::help;
using commands::notEmpty;
using commands::tr;

namespace {

constexpr int catalogueDays = 120; ///< that "objectives" looks back without a range

/// What these commands are told.
struct Asked
{
    std::string file;
    std::string from;
    std::string to;
    bool json = false;
};

/// An option's day, or @p otherwise without one. Nothing, with the reason printed, for a text that is none.
std::optional<QDate> dayOf(const std::string& option, QDate otherwise)
{
    if (option.empty())
        return otherwise;
    const QString text = QString::fromStdString(option);
    if (const auto moment = dates::parse(text))
        return moment->date;
    printError(tr("\"%1\" is no day. A day is written as 2026-11-22.").arg(text));
    return std::nullopt;
}

QString iso(QDate day)
{
    return day.toString(Qt::ISODate);
}

QString yesNo(bool met)
{
    return met ? tr("met") : u"-"_s;
}

// --- goals ------------------------------------------------------------------------------------------------

QJsonObject asJson(const GoalSet& set, const GoalResults& results)
{
    QJsonArray rows;
    for (size_t i = 0; i < set.rows.size(); ++i) {
        const GoalRow& row = set.rows[i];
        const GoalResult& result = results.rows[i];
        rows.append(
            QJsonObject{{u"row"_s, int(i) + 1},
                        {u"goal"_s, row.goal},
                        {u"format"_s, row.format},
                        {u"target"_s, result.target},
                        {u"period"_s, row.period},
                        {u"count"_s, result.problem.isEmpty() ? QJsonValue(result.count) : QJsonValue()},
                        {u"percent"_s, result.percent},
                        {u"barWidth"_s, result.barWidth},
                        {u"met"_s, result.isMet}});
    }
    return {{u"start"_s, iso(set.start)}, {u"end"_s, iso(set.end)}, {u"days"_s, results.days},
            {u"set"_s, results.set},      {u"met"_s, results.met},  {u"rows"_s, rows}};
}

void printGoals(const GoalSet& set, const GoalResults& results)
{
    const Table table({22, 9, -7, 10, -7, -9, -6, 0});
    table.row(
        {tr("Goal"), tr("Medium"), tr("Target"), tr("Period"), tr("Count"), tr("Percent"), tr("Met"), {}});
    for (size_t i = 0; i < set.rows.size(); ++i) {
        const GoalRow& row = set.rows[i];
        const GoalResult& result = results.rows[i];
        if (!row.goal.isEmpty())
            table.row({row.goal, row.format, row.target, row.period, QString::number(result.count),
                       numbers::fixed(result.percent, 2), yesNo(result.isMet), result.problem});
    }
    printLine(tr("%1 of %2 goals met between %3 and %4 (days: %5).")
                  .arg(results.met)
                  .arg(results.set)
                  .arg(iso(set.start), iso(set.end))
                  .arg(results.days));
}

int goalsCommand(CommandContext& context, const Asked& asked)
{
    goalsfile::Contents contents = goalsfile::load(QString::fromStdString(asked.file));
    if (!contents.set) {
        printError(contents.problem);
        return Failed;
    }
    const auto start = dayOf(asked.from, contents.set->start);
    const auto end = dayOf(asked.to, contents.set->end);
    if (!start || !end)
        return WrongUsage;
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    contents.set->start = *start;
    contents.set->end = *end;
    const GoalResults results = goals::compute(*session, *contents.set);
    if (asked.json)
        printJson(asJson(*contents.set, results));
    else
        printGoals(*contents.set, results);
    return Done;
}

// --- plan and objectives ----------------------------------------------------------------------------------

QJsonValue numberOrNull(const QString& result)
{
    return result.isEmpty() ? QJsonValue() : QJsonValue(result.toDouble());
}

/// Tells on standard error what of the catalogue could not be read.
Catalogue catalogueOf(const Session& session)
{
    Catalogue catalogue = Catalogue::load(session);
    for (const QString& problem : catalogue.problems())
        printError(problem);
    return catalogue;
}

/// A plan's measure with the rule and type that the catalogue has for its name.
Objective complete(const Catalogue& catalogue, const Objective& placed)
{
    const Objective* const entry = catalogue.findObjective(placed.objCategory, placed.objName);
    Objective whole = entry ? *entry : placed;
    whole.objThreshold = placed.objThreshold;
    return whole;
}

/// A measure of a plan, counted.
struct Counted
{
    Objective measure;
    Measured measured;
    int slot;
};

std::vector<Counted> count(Session& session, const Catalogue& catalogue, const PlanPhase& phase, int number)
{
    std::vector<Counted> all;
    for (const Objective& placed : phase.measures) {
        const Objective measure = complete(catalogue, placed);
        all.push_back({measure, catalogue.measure(session, measure, phase.start, phase.end),
                       number * PlanPhase::slotCount + int(all.size())});
    }
    return all;
}

QJsonObject asJson(const std::vector<Counted>& measures, const PlanPhase& phase, const PhaseBar& bar,
                   int number)
{
    QJsonArray array;
    for (const auto& [measure, measured, slot] : measures)
        array.append(QJsonObject{{u"slot"_s, slot},
                                 {u"category"_s, measure.objCategory},
                                 {u"name"_s, measure.objName},
                                 {u"type"_s, measure.objType},
                                 {u"threshold"_s, measure.objThreshold},
                                 {u"result"_s, numberOrNull(measured.result)}});
    return {{u"phase"_s, number + 1}, {u"start"_s, iso(phase.start)}, {u"end"_s, iso(phase.end)},
            {u"barMax"_s, bar.max},   {u"barValue"_s, bar.value},     {u"measures"_s, array}};
}

void printPhase(const std::vector<Counted>& measures, const PlanPhase& phase, int number)
{
    printLine(tr("Phase %1, %2 to %3").arg(number + 1).arg(iso(phase.start), iso(phase.end)));
    const Table table({14, 36, -10, -10, -8, 0});
    for (const auto& [measure, measured, slot] : measures) {
        const bool isReached =
            !measured.result.isEmpty() && measured.result.toDouble() >= measure.objThreshold;
        table.row({measure.objCategory, measure.objName, measured.result,
                   numbers::shown(measure.objThreshold, 2), isReached ? tr("reached") : u"-"_s,
                   measured.problem});
    }
}

int planCommand(CommandContext& context, const Asked& asked)
{
    planfile::Contents contents = planfile::load(QString::fromStdString(asked.file));
    if (!contents.plan) {
        printError(contents.problem);
        return Failed;
    }
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    if (contents.wrongMark)
        printError(tr("File Parse Error, Obj file may have been corrupted."));
    const Catalogue catalogue = catalogueOf(*session);
    QJsonArray phases;
    for (int number = 0; number < contents.plan->phases; ++number) {
        PlanPhase& phase = contents.plan->phase[size_t(number)];
        const PhaseBar bar = plan::pbarSet(phase, session->today());
        const std::vector<Counted> measures = count(*session, catalogue, phase, number);
        if (asked.json)
            phases.append(asJson(measures, phase, bar, number));
        else
            printPhase(measures, phase, number);
    }
    if (asked.json)
        printJson(QJsonObject{{u"phases"_s, phases}});
    return Done;
}

int objectivesCommand(CommandContext& context, const Asked& asked)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const auto end = dayOf(asked.to, session->today());
    const auto start = dayOf(asked.from, end ? end->addDays(-catalogueDays) : QDate());
    if (!start || !end)
        return WrongUsage;
    const Catalogue catalogue = catalogueOf(*session);
    const Table table({14, 36, 12, -10, 0});
    QJsonArray array;
    for (int category = 0; category < Catalogue::categoryCount; ++category) {
        for (const Objective& measure : catalogue.objectives(category)) {
            const Measured measured = catalogue.measure(*session, measure, *start, *end);
            if (asked.json)
                array.append(QJsonObject{{u"category"_s, measure.objCategory},
                                         {u"name"_s, measure.objName},
                                         {u"description"_s, measure.objDescription},
                                         {u"type"_s, measure.objType},
                                         {u"rule"_s, measure.objRule},
                                         {u"result"_s, numberOrNull(measured.result)}});
            else
                table.row({measure.objCategory, measure.objName, measure.objType, measured.result,
                           measured.problem});
        }
    }
    if (asked.json)
        printJson(array);
    return Done;
}

// --- stats ------------------------------------------------------------------------------------------------

QJsonValue rounded(const std::optional<double>& number)
{
    constexpr int places = 4;
    return number ? QJsonValue(numbers::halfUp(*number, places)) : QJsonValue();
}

int statsCommand(CommandContext& context, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const UsageStatistics usage = UsageStatistics::gather(*session);
    if (!json) {
        printLine(usage.lines().join(u'\n'));
        return Done;
    }
    printJson(QJsonObject{
        {u"addresses"_s, usage.addresses},
        {u"contacts"_s, usage.contacts},
        {u"companies"_s, usage.companies},
        {u"positions"_s, usage.positions},
        {u"history"_s, usage.histories},
        {u"events"_s, usage.events},
        {u"userProfiles"_s, usage.profiles},
        {u"documents"_s, usage.documents},
        {u"historyToContactRatio"_s, rounded(usage.historyRatio)},
        {u"averagePositionsPerCompany"_s, rounded(usage.positionAverage)},
        {u"firstEntryDate"_s, usage.firstEntry.isValid() ? QJsonValue(iso(usage.firstEntry)) : QJsonValue()},
        {u"daysInUse"_s, usage.daysInUse},
        {u"frequencyOfUse"_s, rounded(usage.frequency)},
        {u"totalHoursUsed"_s, usage.hours}});
    return Done;
}

} // namespace

void addPlanningCommands(CLI::App& app, Command& chosen)
{
    const auto add = [&app](const char* name, const char* does, bool takesFile, bool takesRange) {
        auto* const command = app.add_subcommand(name, help(does));
        auto asked = std::make_shared<Asked>();
        if (takesFile)
            command->add_option("FILE", asked->file, help("The file to read"))
                ->required()
                ->check(notEmpty("the file's name is empty"));
        if (takesRange) {
            command->add_option("--from", asked->from, help("The first day of the range"))->type_name("DAY");
            command->add_option("--to", asked->to, help("The last day of the range"))->type_name("DAY");
        }
        command->add_flag("--json", asked->json, help("The same as JSON"));
        return std::pair(command, asked);
    };
    const auto run = [&chosen](const auto& added, int (*work)(CommandContext&, const Asked&)) {
        const auto asked = added.second;
        added.first->callback(
            [=, &chosen] { chosen = [=](CommandContext& context) { return work(context, *asked); }; });
    };
    run(add("goals", "Count the goals of a goals file", true, true), goalsCommand);
    run(add("plan", "Count the measures of an action plan", true, false), planCommand);
    run(add("objectives", "List the measures of the catalogue with what they count", false, true),
        objectivesCommand);
    run(add("stats", "Say how much is stored and how much the program was used", false, false),
        [](CommandContext& context, const Asked& asked) { return statsCommand(context, asked.json); });
}
