// Where each position stands: the Pipeline screen's bars and next steps, printed.
#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/gateway/names.h"
#include "workbench/pipelinesteps.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <CLI/CLI.hpp>

#include <algorithm>

using namespace Qt::StringLiterals;
using commands::help;
using commands::tr;

namespace {

/// A position with what the commands print of it.
struct Stand
{
    QString title;
    QString company;
    QDate expires; ///< invalid: no expiry
    PipelineSteps steps;
};

/// The positions whose row fulfils @p condition (all without one), in the order of their titles.
std::vector<Stand> gather(DataJW& dataJW, const QString& condition = {})
{
    const QHash<Key, QString> companies =
        names::byKey(dataJW.getExecQueryRecords(u"Select CompanyKey,Name from Company"_s));
    std::vector<Stand> stands;
    RecordSet rows = dataJW.getExecQueryRecords(u"Select * from Position"_s + condition + u" order by Title");
    for (; !rows.atEnd(); rows.next()) {
        const QDate expires = rows.date(u"Expires");
        stands.push_back({rows.text(u"Title"), companies.value(rows.key(u"CompanyKey").value_or(0)),
                          PipelineSteps::isDone(expires) ? expires : QDate(), PipelineSteps(rows)});
    }
    return stands;
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

int pipeline(CommandContext& context, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const Table table({32, 28, PipelineSteps::count, -5}, 1);
    QJsonArray array;
    for (const Stand& stand : gather(session->dataJW())) {
        const int progress = stand.steps.progress();
        if (json) {
            QJsonObject object = asJson(stand);
            object.insert(u"steps"_s, stepsAsJson(stand.steps));
            array.append(object);
            continue;
        }
        const QString bar = QString(progress, u'#') + QString(PipelineSteps::count - progress, u'-');
        table.row({stand.title, stand.company, bar, figure(progress)});
    }
    if (json)
        printJson(array);
    return Done;
}

void printTable(const std::vector<Stand>& stands)
{
    const Table table({32, 28, -5, 10, 0});
    table.row({tr("Position"), tr("Company"), tr("Steps"), tr("Expires"), tr("Next step")});
    for (const Stand& stand : stands) {
        const QString next = stand.steps.getNextStep();
        table.row({stand.title, stand.company, figure(stand.steps.progress()),
                   stand.expires.isValid() ? stand.expires.toString(Qt::ISODate) : u"-"_s,
                   next.isEmpty() ? u"-"_s : next});
    }
}

int positions(CommandContext& context, const QString& wanted, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    DataJW& dataJW = session->dataJW();
    QString condition;
    if (!wanted.isEmpty()) {
        // Stored names hold backquotes where the user types apostrophes.
        const auto company = findCompany(dataJW.getCompanyNames(), text::quoteFix(wanted));
        if (!company)
            return Failed;
        condition = u" where CompanyKey="_s + QString::number(dataJW.getCompanyKey(*company));
    }
    std::vector<Stand> stands = gather(dataJW, condition);
    std::ranges::stable_sort(stands, [](const Stand& left, const Stand& right) {
        return left.company.compare(right.company, Qt::CaseInsensitive) < 0;
    });
    if (!json) {
        printTable(stands);
        return Done;
    }
    QJsonArray array;
    for (const Stand& stand : stands)
        array.append(asJson(stand));
    printJson(array);
    return Done;
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
    positionsCommand->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            return positions(context, QString::fromStdString(*company), *rows);
        };
    });
}
