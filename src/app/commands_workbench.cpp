#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "base/letters.h"
#include "base/text.h"
#include "intake/contactexport.h"
#include "store/gateway/datajw.h"
#include "store/gateway/listings.h"
#include "store/session.h"
#include "workbench/companysummary.h"

#include <QJsonObject>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;
using commands::help;
using commands::tr;

namespace {

using listings::CompanyRow;

bool printTable(DataJW& dataJW)
{
    const Table table({40, -9, -9, -12});
    table.row({tr("Company"), tr("Positions"), tr("Contacts"), tr("Last contact")});
    return listings::companies(dataJW, [&](const CompanyRow& row) {
        table.row({row.name, QString::number(row.positions), QString::number(row.contacts),
                   row.lastContact.isValid() ? row.lastContact.toString(Qt::ISODate) : u"-"_s});
    });
}

bool printAsJson(DataJW& dataJW)
{
    JsonList array;
    const bool whole = listings::companies(dataJW, [&](const CompanyRow& row) {
        array.add(
            {{u"name"_s, row.name},
             {u"category"_s, text::isCategory(row.name)},
             {u"positions"_s, row.positions},
             {u"contacts"_s, row.contacts},
             {u"interactions"_s, row.interactions},
             {u"lastContact"_s,
              row.lastContact.isValid() ? QJsonValue(row.lastContact.toString(Qt::ISODate)) : QJsonValue()}});
    });
    array.end();
    return whole;
}

int companies(CommandContext& context, bool table, bool json, bool csv)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    if (csv)
        return writeFile({}, contactexport::companies(session->dataJW())) ? Done : Failed;
    DataJW& dataJW = session->dataJW();
    if (json)
        return printAsJson(dataJW) ? Done : Failed;
    if (table)
        return printTable(dataJW) ? Done : Failed;
    for (const QString& name : dataJW.getCompanyNames())
        printLine(onOneLine(name));
    return Done;
}

} // namespace

std::optional<FoundCompany> findCompany(DataJW& dataJW, const QString& wanted)
{
    // Stored names hold backquotes where the user types apostrophes.
    const QString part = letters::folded(text::quoteFix(wanted));
    std::vector<FoundCompany> close;
    RecordSet rows = dataJW.getExecQueryRecords(u"Select CompanyKey,Name from Company order by Name"_s);
    for (; !rows.atEnd(); rows.next()) {
        const QString name = letters::folded(rows.text(1));
        const FoundCompany company{rows.key(u"CompanyKey").value_or(-1), rows.text(1)};
        if (name == part)
            return company;
        if (name.contains(part))
            close.push_back(company);
    }
    if (close.size() == 1)
        return close.front();
    QStringList names;
    for (std::size_t i = 0; i < std::min<std::size_t>(close.size(), 10); ++i)
        names.append(close[i].name);
    printError(close.empty() ? tr("There is no company of the name %1.").arg(wanted)
                             : tr("Several companies are called like that: %1")
                                   .arg(onOneLine(names.join(QStringLiteral(", ")))));
    return std::nullopt;
}

namespace {

int summary(CommandContext& context, const QString& wanted)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const auto company = findCompany(session->dataJW(), wanted);
    if (!company)
        return Failed;
    printLine(
        companySummary(gatherFigures(session->dataJW(), company->name, session->today()), session->today()));
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
    auto csv = std::make_shared<bool>(false);
    companiesCommand->add_flag("--csv", *csv,
                               help("With their addresses, as CSV that can be imported again"));
    companiesCommand->callback([=, &chosen] {
        chosen = [=](CommandContext& context) { return companies(context, *table, *json, *csv); };
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
