// Where each position stands: the Pipeline screen's bars and next steps, printed.
#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "intake/contactexport.h"
#include "store/gateway/datajw.h"
#include "store/gateway/listings.h"
#include "workbench/pipelinesteps.h"

#include <QJsonArray>
#include <QJsonObject>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;
using commands::help;
using commands::tr;

namespace {

using listings::PositionOrder;

/// A position with what the commands print of it.
struct Stand
{
    QString title;
    QString company;
    QDate expires; ///< invalid: no expiry
    PipelineSteps steps;
};

/// Shows the positions of a company, or of all for 0.
bool list(DataJW& dataJW, Key company, PositionOrder order, const std::function<void(const Stand&)>& show)
{
    return listings::positions(dataJW, company, order, [&](const RecordSet& row, const QString& name) {
        const QDate expires = row.date(u"Expires");
        show({row.text(u"Title"), name, PipelineSteps::isDone(expires) ? expires : QDate(),
              PipelineSteps(row)});
    });
}

QString figure(int progress)
{
    return QString::number(progress) + u'/' + QString::number(PipelineSteps::count);
}

QJsonValue dateOrNull(QDate date)
{
    return date.isValid() ? QJsonValue(date.toString(Qt::ISODate)) : QJsonValue();
}

QJsonObject asJson(const Stand& stand)
{
    return {{u"title"_s, stand.title},
            {u"company"_s, stand.company},
            {u"progress"_s, stand.steps.progress()},
            {u"nextStep"_s, stand.steps.getNextStep()},
            {u"expires"_s, dateOrNull(stand.expires)}};
}

QJsonArray stepsAsJson(const PipelineSteps& steps)
{
    QJsonArray array;
    for (int index = 0; index < PipelineSteps::count; ++index) {
        const auto [date, medium] = steps.step(index);
        const QString tag = PipelineSteps::mediumTag(medium);
        array.append(QJsonObject{{u"step"_s, PipelineSteps::getIndexTitle(index)},
                                 {u"date"_s, dateOrNull(PipelineSteps::isDone(date) ? date : QDate())},
                                 {u"medium"_s, tag.isEmpty() ? QJsonValue() : QJsonValue(tag)}});
    }
    return array;
}

bool printBars(DataJW& dataJW)
{
    const Table table({32, 28, PipelineSteps::count, -5}, 1);
    return list(dataJW, 0, PositionOrder::Title, [&](const Stand& stand) {
        const int progress = stand.steps.progress();
        table.row({stand.title, stand.company,
                   QString(progress, u'#') + QString(PipelineSteps::count - progress, u'-'),
                   figure(progress)});
    });
}

int pipeline(CommandContext& context, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    if (!json)
        return printBars(session->dataJW()) ? Done : Failed;
    JsonList array;
    const bool whole = list(session->dataJW(), 0, PositionOrder::Title, [&](const Stand& stand) {
        QJsonObject object = asJson(stand);
        object.insert(u"steps"_s, stepsAsJson(stand.steps));
        array.add(object);
    });
    array.end();
    return whole ? Done : Failed;
}

bool printTable(DataJW& dataJW, Key company)
{
    const Table table({32, 28, -5, 10, 0});
    table.row({tr("Position"), tr("Company"), tr("Steps"), tr("Expires"), tr("Next step")});
    return list(dataJW, company, PositionOrder::Company, [&](const Stand& stand) {
        const QString next = stand.steps.getNextStep();
        table.row({stand.title, stand.company, figure(stand.steps.progress()),
                   stand.expires.isValid() ? stand.expires.toString(Qt::ISODate) : u"-"_s,
                   next.isEmpty() ? u"-"_s : next});
    });
}

int positions(CommandContext& context, const QString& wanted, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    DataJW& dataJW = session->dataJW();
    Key company = 0;
    if (!wanted.isEmpty()) {
        const auto found = findCompany(dataJW, wanted);
        if (!found)
            return Failed;
        company = found->key;
    }
    if (!json)
        return printTable(dataJW, company) ? Done : Failed;
    JsonList array;
    const bool whole =
        list(dataJW, company, PositionOrder::Company, [&](const Stand& stand) { array.add(asJson(stand)); });
    array.end();
    return whole ? Done : Failed;
}

int exportPositions(CommandContext& context)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    return writeFile({}, contactexport::positions(session->dataJW())) ? Done : Failed;
}

} // namespace

void addPipelineCommands(CLI::App& app, Command& chosen)
{
    auto* const pipelineCommand =
        app.add_subcommand("pipeline", help("Show how far each position has come, a bar a line"));
    auto json = std::make_shared<bool>(false);
    pipelineCommand->add_flag("--json", *json, help("The same with every step, as JSON"));
    pipelineCommand->callback(
        [=, &chosen] { chosen = [=](CommandContext& context) { return pipeline(context, *json); }; });

    auto* const positionsCommand =
        app.add_subcommand("positions", help("List the positions with their next steps"));
    auto company = std::make_shared<std::string>();
    auto rows = std::make_shared<bool>(false);
    positionsCommand->add_option("COMPANY", *company,
                                 help("Of one company only: its name, or a part that only one has"));
    positionsCommand->add_flag("--json", *rows, help("The same as JSON"));
    auto csv = std::make_shared<bool>(false);
    positionsCommand->add_flag("--csv", *csv, help("All with every field and step date, as CSV"));
    positionsCommand->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            if (*csv)
                return exportPositions(context);
            return positions(context, QString::fromStdString(*company), *rows);
        };
    });
}
