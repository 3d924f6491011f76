#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "base/dates.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "workbench/companysummary.h"

#include <QJsonObject>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>

using commands::help;
using commands::tr;

namespace {

QString lastContactText(QDate date)
{
    return date > dates::sentinel ? date.toString(Qt::ISODate) : QStringLiteral("-");
}

/// Every company with its figures, in columns.
void printTable(Session& session, const QStringList& names)
{
    const Table table({40, -9, -9, -12});
    table.row({tr("Company"), tr("Positions"), tr("Contacts"), tr("Last contact")});
    for (const QString& name : names) {
        const CompanyFigures figures = gatherFigures(session.dataJW(), name, session.today());
        table.row({name, QString::number(figures.positionCount), QString::number(figures.contactCount),
                   lastContactText(figures.lastContact)});
    }
}

void printAsJson(Session& session, const QStringList& names)
{
    QJsonArray array;
    for (const QString& name : names) {
        const CompanyFigures figures = gatherFigures(session.dataJW(), name, session.today());
        QJsonObject company{
            {QStringLiteral("name"), name},
            {QStringLiteral("category"), text::isCategory(name)},
            {QStringLiteral("positions"), figures.positionCount},
            {QStringLiteral("contacts"), figures.contactCount},
            {QStringLiteral("interactions"), figures.interactionCount},
        };
        company.insert(QStringLiteral("lastContact"),
                       figures.lastContact > dates::sentinel
                           ? QJsonValue(figures.lastContact.toString(Qt::ISODate))
                           : QJsonValue());
        array.append(company);
    }
    printJson(array);
}

int companies(CommandContext& context, bool table, bool json)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const QStringList names = session->dataJW().getCompanyNames();
    if (json)
        printAsJson(*session, names);
    else if (table)
        printTable(*session, names);
    else
        std::ranges::for_each(names, [](const QString& name) { printLine(onOneLine(name)); });
    return Done;
}

} // namespace

std::optional<QString> findCompany(const QStringList& names, const QString& wanted)
{
    QStringList close;
    for (const QString& name : names) {
        if (name.compare(wanted, Qt::CaseInsensitive) == 0)
            return name;
        if (name.contains(wanted, Qt::CaseInsensitive))
            close.append(name);
    }
    if (close.size() == 1)
        return close.first();
    if (close.isEmpty())
        printError(tr("There is no company of the name %1.").arg(wanted));
    else
        printError(tr("Several companies are called like that: %1")
                       .arg(onOneLine(close.mid(0, 10).join(QStringLiteral(", ")))));
    return std::nullopt;
}

namespace {

int summary(CommandContext& context, const QString& wanted)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    // Stored names hold backquotes where the user types apostrophes.
    const auto name = findCompany(session->dataJW().getCompanyNames(), text::quoteFix(wanted));
    if (!name)
        return Failed;
    printLine(companySummary(gatherFigures(session->dataJW(), *name, session->today()), session->today()));
    return Done;
}

} // namespace

void addWorkbenchCommands(CLI::App& app, Command& chosen)
{
    auto* const companiesCommand = app.add_subcommand("companies", help("List the companies, one a line"));
    auto table = std::make_shared<bool>(false);
    auto json = std::make_shared<bool>(false);
    companiesCommand->add_flag("--long", *table, help("With positions, contacts and the last contact"));
    companiesCommand->add_flag("--json", *json, help("As JSON, with the same figures and the interactions"));
    companiesCommand->callback([=, &chosen] {
        chosen = [=](CommandContext& context) { return companies(context, *table, *json); };
    });

    auto* const summaryCommand =
        app.add_subcommand("summary", help("Say in sentences where the campaign stands at a company"));
    auto name = std::make_shared<std::string>();
    summaryCommand->add_option("NAME", *name, help("The company's name, or a part that only one name has"))
        ->required();
    summaryCommand->callback([=, &chosen] {
        chosen = [=](CommandContext& context) { return summary(context, QString::fromStdString(*name)); };
    });
}
