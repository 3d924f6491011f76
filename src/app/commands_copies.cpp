// The commands about copies of the database.
#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "store/files/appfolder.h"
#include "store/files/copyrestore.h"
#include "store/gateway/datajw.h"

#include <QDir>
#include <QFileInfo>

#include <CLI/CLI.hpp>

#include <algorithm>

using namespace Qt::StringLiterals;
using commands::help;
using commands::notEmpty;
using commands::tr;

namespace {

int copy(CommandContext& context, const QString& file)
{
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const QString target = QFileInfo(file).absoluteFilePath();
    if (QFileInfo::exists(target)) {
        printError(tr("%1 exists already and was left as it is.").arg(QDir::toNativeSeparators(target)));
        return Failed;
    }
    const QString failure = copyTo(session->dataJW().database(), target);
    if (!failure.isEmpty()) {
        printError(tr("The copy could not be made: %1").arg(failure));
        return Failed;
    }
    printLine(tr("A verified copy is at %1").arg(QDir::toNativeSeparators(target)));
    return Done;
}

QString momentOf(const CopyInfo& copy)
{
    const QString day = copy.day.toString(Qt::ISODate);
    return copy.time.isValid() ? QString(day + u' ' + copy.time.toString(u"HH:mm:ss"_s)) : day;
}

QJsonObject asJson(const CopyInfo& copy)
{
    return {{u"name"_s, QFileInfo(copy.path).fileName()},
            {u"made"_s, momentOf(copy)},
            {u"kind"_s, copy.kind},
            {u"bytes"_s, copy.bytes},
            {u"companies"_s, copy.companies},
            {u"positions"_s, copy.positions},
            {u"contacts"_s, copy.contacts}};
}

int copies(CommandContext& context, bool json)
{
    const std::vector<CopyInfo> found = copiesIn(context.folder);
    if (json) {
        QJsonArray array;
        for (const CopyInfo& copy : found)
            array.append(asJson(copy));
        printJson(array);
        return Done;
    }
    if (found.empty()) {
        printError(tr("There are no copies in %1 yet.").arg(QDir::toNativeSeparators(context.folder)));
        return Done;
    }
    const Table table({44, 19, -12, -9, -9, -9});
    table.row({tr("Copy"), tr("Made"), tr("Bytes"), tr("Companies"), tr("Positions"), tr("Contacts")});
    for (const CopyInfo& copy : found)
        table.row({QFileInfo(copy.path).fileName(), momentOf(copy), QString::number(copy.bytes),
                   QString::number(copy.companies), QString::number(copy.positions),
                   QString::number(copy.contacts)});
    return Done;
}

/// The copy that the user means: "newest", the name of one, or the path of any other.
QString pathOf(const std::vector<CopyInfo>& copies, const QString& wanted)
{
    if (wanted == u"newest" && !copies.empty())
        return copies.front().path;
    const auto known = std::ranges::find_if(
        copies, [&](const CopyInfo& copy) { return QFileInfo(copy.path).fileName() == wanted; });
    return known == copies.end() ? QFileInfo(wanted).absoluteFilePath() : known->path;
}

int restore(CommandContext& context, const QString& wanted, bool agreed)
{
    const QString path = pathOf(copiesIn(context.folder), wanted);
    if (!QFileInfo(path).isFile()) {
        printError(tr("There is no copy %1. \"jobwright copies\" lists those that there are.").arg(wanted));
        return Failed;
    }
    if (!agreed) {
        printError(
            tr("This puts %1 in the place of the database. Call the command with --yes if that is what "
               "you want; the present state is copied into the folder \"backups\" first.")
                .arg(QDir::toNativeSeparators(path)));
        return Failed;
    }
    Session* const session = context.openForRepair();
    if (!session)
        return context.exitCode;
    if (!restoreCopy(*session, path))
        return Failed;
    printLine(tr("The database is again what it was in %1").arg(QDir::toNativeSeparators(path)));
    return Done;
}

void addCopy(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand("copy", help("Write a verified copy of the database"));
    auto target = std::make_shared<std::string>();
    command->add_option("FILE", *target)->required()->check(notEmpty("the file's name is empty"));
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) { return copy(context, QString::fromStdString(*target)); };
    });
}

void addCopies(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand("copies", help("List the copies of the database"));
    auto json = std::make_shared<bool>(false);
    command->add_flag("--json", *json, help("As JSON"));
    command->callback(
        [=, &chosen] { chosen = [=](CommandContext& context) { return copies(context, *json); }; });
}

void addRestore(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand("restore", help("Go back to a copy of the database"));
    auto source = std::make_shared<std::string>();
    auto yes = std::make_shared<bool>(false);
    command->add_option("COPY", *source, help("Its name, or \"newest\""))
        ->required()
        ->check(notEmpty("the copy's name is empty"));
    command->add_flag("--yes", *yes, help("Agree to replace the database"));
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) {
            return restore(context, QString::fromStdString(*source), *yes);
        };
    });
}

} // namespace

void addCopyCommands(CLI::App& app, Command& chosen)
{
    addCopy(app, chosen);
    addCopies(app, chosen);
    addRestore(app, chosen);
}
