#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "base/text.h"
#include "store/engine/storeerror.h"
#include "store/files/appfolder.h"
#include "store/files/copyrestore.h"
#include "store/files/demo.h"
#include "store/files/storecheck.h"
#include "store/files/storefile.h"
#include "store/gateway/datajw.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <CLI/CLI.hpp>

#include <numeric>

using commands::help;
using commands::notEmpty;
using commands::tr;

namespace {

QString qstring(const std::string& text)
{
    return QString::fromStdString(text);
}

int query(CommandContext& context, const QString& statement, bool json, bool safe)
{
    const bool reads = statement.trimmed().startsWith(u"select", Qt::CaseInsensitive);
    Session* const session = reads ? context.openSession() : context.openForWriting();
    if (!session)
        return context.exitCode;
    if (!reads)
        return session->dataJW().execQuery(statement) ? Done : Failed;
    const RecordSet rows = session->dataJW().getExecQueryRecords(statement);
    if (rows.isNothing())
        return Failed;
    json ? printJson(rows) : printCsv(rows, safe);
    return Done;
}

int exportFile(CommandContext& context, const QString& file, bool restore)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    QString target = file.isEmpty() ? session->dataJW().getStatusValue(QStringLiteral("ExportFile"), true)
                                    : QFileInfo(file).absoluteFilePath();
    if (target.isEmpty())
        target = QStringLiteral("Export.xml");
    if (session->dataJW().createXML(target, restore).isEmpty())
        return Failed;
    const QString written = QFileInfo(target).isAbsolute() ? target : session->file(target);
    printLine(tr("Data has been exported to %1").arg(QDir::toNativeSeparators(written)));
    return Done;
}

int status(CommandContext& context, const std::optional<QString>& name, const std::optional<QString>& value)
{
    Session* const session = value ? context.openForWriting() : context.openSession();
    if (!session)
        return context.exitCode;
    if (value) {
        return session->dataJW().writeStatus(text::quoteFix(*name), text::quoteFix(*value), true) ? Done
                                                                                                  : Failed;
    }
    RecordSet rows =
        session->dataJW().getExecQueryRecords(QStringLiteral("Select * from Status Order by StatusKey"));
    if (rows.isNothing())
        return Failed;
    QSet<QString> seen; // the oldest row of a name is the one that counts
    for (; !rows.atEnd(); rows.next()) {
        const QString row = rows.text(u"StatusDescription");
        if (seen.contains(row.toCaseFolded()))
            continue;
        seen.insert(row.toCaseFolded());
        if (!name)
            printLine(onOneLine(row) + u'\t' + onOneLine(rows.text(u"StatusValue")));
        else if (row.compare(*name, Qt::CaseInsensitive) == 0)
            printLine(rows.text(u"StatusValue"));
    }
    if (!name || seen.contains(name->toCaseFolded()))
        return Done;
    printError(tr("There is no setting of the name %1.").arg(*name));
    return Failed;
}

int total(const std::vector<OrphanCount>& counts)
{
    return std::accumulate(counts.begin(), counts.end(), 0,
                           [](int sum, const OrphanCount& count) { return sum + count.rows; });
}

void printFindings(const StoreCheck& check)
{
    const auto show = [](const QString& finding, const std::vector<OrphanCount>& counts) {
        for (const OrphanCount& count : counts)
            printLine(finding + u'\t' + count.column + u'\t' + QString::number(count.rows));
    };
    for (const KeyUse& use : check.keys)
        printLine(tr("keys\t%1\t%2 of %3").arg(use.table).arg(use.highest).arg(keyLimit));
    show(tr("points nowhere"), check.orphans);
    show(tr("renewed when its list is opened"), check.passing);
    show(tr("belongs to nobody"), check.unowned);
    for (const QString& object : check.foreign)
        printLine(tr("not made by Jobwright, never run\t%1").arg(object));
}

/// The last line about a database without damage.
QString verdict(const StoreCheck& check)
{
    const int lost = total(check.orphans);
    return lost == 0 ? tr("The database is sound.")
                     : tr("The database is sound, with references that point nowhere: %1.").arg(lost);
}

int verify(CommandContext& context)
{
    Session* const session = context.openSession();
    if (!session)
        return inspectStore(context.folder + u"/Postledger.db").state == FileState::Damaged
                   ? StoreDamaged
                   : context.exitCode;
    try {
        const StoreCheck check = checkStore(session->dataJW().database());
        printFindings(check);
        for (const QString& text :
             {keyWarningText(keysRunningOut(session->dataJW().database())), mixedKeysText(check.mixedKeys)}) {
            if (!text.isEmpty())
                printError(text);
        }
        if (!check.damage.isEmpty()) {
            printError(tr("The database is damaged: %1").arg(check.damage));
            return StoreDamaged;
        }
        printLine(verdict(check));
    } catch (const StoreError& error) {
        printError(tr("The database is damaged: %1").arg(error.description()));
        return StoreDamaged;
    }
    return Done;
}

int paths(CommandContext& context)
{
    const auto show = [](const char* what, const QString& path) {
        printLine(QString(QString::fromLatin1(what) + u'\t' + QDir::toNativeSeparators(path)));
    };
    show("folder", context.folder);
    for (const char* name :
         {"Postledger.db", "backups", "exchange", "settings.ini", "OpLog.txt", "ErrorLog.txt", "restore.xml"})
        show(name, context.folder + u'/' + QString::fromLatin1(name));
    show("delivered", deliveredFolder());
    return Done;
}

int init(CommandContext& context)
{
    if (!holdsNothing(context.folder)) {
        printError(tr("%1 holds a campaign already.").arg(QDir::toNativeSeparators(context.folder)));
        return Failed;
    }
    if (!context.openForWriting())
        return context.exitCode;
    printLine(tr("An empty campaign is in %1").arg(QDir::toNativeSeparators(context.folder)));
    return Done;
}

int demo(CommandContext& context)
{
    const QString campaign = deliveredFolder() + u"/demo/campaign.xml";
    if (!QFileInfo::exists(campaign)) {
        printError(tr("The demo campaign is not installed."));
        return Failed;
    }
    Session* const session = context.openForWriting();
    if (!session)
        return context.exitCode;
    return loadDemo(*session, campaign) ? Done : Failed;
}

// The options' values live as long as the command line itself, in the callbacks that read them.

void addQuery(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand("query", help("Run one statement; rows come as CSV"));
    auto statement = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    command->add_option("STATEMENT", *statement, help("e.g. \"Select * from Company\""))->required();
    auto safe = std::make_shared<bool>(false);
    auto* const asJson = command->add_flag("--json", *json, help("Rows as JSON"));
    command
        ->add_flag("--safe", *safe,
                   help("An apostrophe before texts that a spreadsheet would take for a formula"))
        ->excludes(asJson);
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) { return query(context, qstring(*statement), *json, *safe); };
    });
}

void addExport(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand("export", help("Write all data as XML"));
    auto target = std::make_shared<std::string>();
    auto restore = std::make_shared<bool>(false);
    command->add_option("FILE", *target, help("Where to; without it the folder's export file"))
        ->check(notEmpty("the file's name is empty"));
    command->add_flag("--restore", *restore,
                      help("Mark the file as one that replaces the database when read"));
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) { return exportFile(context, qstring(*target), *restore); };
    });
}

void addStatus(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand("status", help("Show or set a setting"));
    auto name = std::make_shared<std::optional<std::string>>();
    auto value = std::make_shared<std::optional<std::string>>();
    command->add_option("NAME", *name)->check(notEmpty("the setting's name is empty"));
    command->add_option("VALUE", *value);
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            const auto text = [](const auto& given) {
                return *given ? std::optional(qstring(**given)) : std::optional<QString>();
            };
            return status(context, text(name), text(value));
        };
    });
}

} // namespace

void addStoreCommands(CLI::App& app, Command& chosen)
{
    const auto addPlain = [&](const char* name, const std::string& description,
                              int (*command)(CommandContext&)) {
        app.add_subcommand(name, description)->callback([=, &chosen] { chosen = command; });
    };
    addPlain("init", help("Make an empty campaign in a new folder (--folder)"), init);
    addQuery(app, chosen);
    addExport(app, chosen);
    addStatus(app, chosen);
    addPlain("verify", help("Check the database in whole"), verify);
    addPlain("paths", help("Show where everything lies"), paths);
    addPlain("demo", help("Lay the demo campaign into a new folder (--folder)"), demo);
}
