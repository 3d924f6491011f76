#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "formats/sharedfolders.h"
#include "formats/tablefile.h"
#include "formats/xlsxfile.h"
#include "intake/columnnames.h"
#include "intake/contactload.h"
#include "intake/importmodels.h"
#include "intake/recordimport.h"
#include "store/files/copies.h"
#include "store/files/copyrestore.h"
#include "store/gateway/datajw.h"
#include "store/xml/campaignfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <CLI/CLI.hpp>

using commands::help;
using commands::notEmpty;
using commands::tr;
using namespace Qt::StringLiterals;

namespace {

/// What the line says of an import.
struct ImportLine
{
    std::string file;
    std::string as;
    std::string mapFile;
    std::vector<std::string> map;
    bool yes = false;
    bool check = false;
    bool dryRun = false;
};

/// "xml", "xlsx", "vcard" or "csv", by the first signs of the file.
QString kindOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return u"csv"_s; // its reader says why
    const QByteArray beginning = file.read(4096);
    if (XlsxFile::isWorkbook(beginning))
        return u"xlsx"_s;
    const QByteArray text = textfile::toUtf8(beginning).trimmed();
    if (text.startsWith('<'))
        return u"xml"_s;
    return text.left(11).toUpper() == "BEGIN:VCARD" ? u"vcard"_s : u"csv"_s;
}

/// True when the file replaces the database, as the import itself will see it. A file that the import will
/// refuse replaces nothing.
bool asksForRestore(const QString& path)
{
    CampaignFile file;
    return file.load(path).isEmpty() && file.isRestore();
}

int importXml(CommandContext& context, const QString& path, const ImportLine& line)
{
    if (line.check || line.dryRun) {
        printError(tr("A campaign file can be imported, but not checked beforehand."));
        return WrongUsage;
    }
    if (!line.yes && asksForRestore(path)) { // the file is read for the question only
        printError(
            tr("This file replaces the whole database. Call the command with --yes if that is what you want; "
               "a copy is kept in the folder \"backups\"."));
        printError(restoreNotes(context.folder, path));
        if (!listCopies(context.folder).isEmpty())
            printError(tr("\"jobwright restore newest --yes\" goes back to that copy instead."));
        return Failed;
    }
    Session* const session = context.openForWriting();
    if (!session)
        return context.exitCode;
    QObject::connect(session, &Session::statusLineChanged, [](const QString& status) {
        if (!status.isEmpty())
            printLine(status);
    });
    session->dataJW().importXML(path);
    return session->statusLine() == u"Import Complete" ? Done : Failed;
}

void printNotes(const ImportReport& report)
{
    for (const ImportReport::Note& note : report.notes) {
        QStringList parts{note.place, note.who, note.what};
        parts.removeAll(QString());
        printError(onOneLine(parts.join(u": "_s)));
    }
}

/// The mapping in the line's words, "FIELD=COLUMN" each. False, with the reason printed, when one of them is
/// wrong.
bool readMap(const QStringList& words, const ImportFile& file, FieldMap& map)
{
    for (const QString& word : words) {
        const QString field = word.section(u'=', 0, 0).trimmed();
        const QString column = word.section(u'=', 1).trimmed();
        QStringList names = file.names;
        names.resize(std::max<qsizetype>(names.size(), file.records.columnCount()));
        const int position = columnnames::positionOf(names, column);
        if (!FieldMap::isField(field)) {
            printError(
                tr("%1 is no field. Fields are Contact.FirstName, Company.Name, Address.City and so on.")
                    .arg(field));
            return false;
        }
        if (position == 0) {
            printError(tr("The file has no column %1.").arg(column));
            return false;
        }
        map.map(field, position);
    }
    return true;
}

bool mapColumns(const ImportLine& line, const ImportFile& file, FieldMap& map)
{
    QStringList words;
    for (const std::string& word : line.map)
        words.append(QString::fromStdString(word));
    if (!line.mapFile.empty()) {
        QByteArray bytes;
        QString problem;
        if (!textfile::read(QString::fromStdString(line.mapFile), bytes, problem, 1 << 20)) {
            printError(problem);
            return false;
        }
        for (const QString& text : QString::fromUtf8(textfile::toUtf8(bytes)).split(u'\n')) {
            if (const QString word = text.trimmed(); !word.isEmpty() && !word.startsWith(u'#'))
                words.append(word);
        }
    }
    map = words.isEmpty() ? columnnames::recognise(file.names) : FieldMap();
    if (!readMap(words, file, map))
        return false;
    if (map.isEmpty())
        printError(tr("No column was recognised by its name. Say with --map which field each one is."));
    return !map.isEmpty();
}

int storeRecords(Session& session, RecordImport& import)
{
    if (const QString lack = import.lackOfKeys(); !lack.isEmpty()) {
        printError(lack);
        return Failed;
    }
    if (import.newRecords() == 0) {
        printNotes(import.report());
        printLine(import.report().summary());
        return Done;
    }
    if (!copyBefore(session, u"import"_s))
        return Failed;
    // Where counts and last keys differ, the last keys are right.
    ProgressScope progress(session, tr("Storing the records"), import.size());
    if (!import.store(import.countsMislead(), [&](int done, int) { return progress.step(done); }))
        return Failed;
    printNotes(import.report());
    printLine(import.report().summary());
    return Done;
}

int importTable(CommandContext& context, const QString& path, const ImportLine& line)
{
    tablefile::Result read = tablefile::read(path, {});
    if (!read.problem.isEmpty()) {
        printError(read.problem);
        return Failed;
    }
    const int names = columnnames::findNames(read.table);
    const ImportFile file = ImportFile::divided(std::move(read.table), std::max(names, 0), names >= 0);
    FieldMap map;
    if (!mapColumns(line, file, map))
        return WrongUsage;
    Session* const session = line.check || line.dryRun ? context.openSession() : context.openForWriting();
    if (!session)
        return context.exitCode;
    RecordImport import(*session, file.records, map, file.records.recordCount());
    if (!import.plan(true))
        return Failed;
    if (line.check) {
        for (const QString& person : import.newPeople())
            printLine(onOneLine(person));
    } else if (line.dryRun) {
        printNotes(import.report());
        printLine(import.report().summary());
    }
    return line.check || line.dryRun ? Done : storeRecords(*session, import);
}

int importCards(CommandContext& context, const QString& path, const ImportLine& line)
{
    const auto folder = SharedFolders().contacts(path);
    for (const QString& problem : folder.problems)
        printError(problem);
    if (!folder.failure.isEmpty() || folder.items.empty()) {
        printError(folder.failure.isEmpty() ? tr("There are no contacts in the file.") : folder.failure);
        return Failed;
    }
    const bool reads = line.check || line.dryRun;
    Session* const session = reads ? context.openSession() : context.openForWriting();
    if (!session)
        return context.exitCode;
    ContactLoad load(*session);
    bool whole = true;
    {
        ProgressScope progress(*session, tr("Checking the contacts"), static_cast<int>(folder.items.size()));
        whole = load.load(folder.items, [&](int done, int) { return progress.step(done); });
    }
    ImportReport report;
    std::vector<int> numbers;
    for (int n = 1; n <= load.count(); ++n) {
        const Candidate& candidate = load.candidate(n);
        const QString who = candidate.contact.oFName + u' ' + candidate.contact.oLName;
        if (candidate.contactExists) {
            report.passOver({}, who, tr("is in the database or earlier in the file already"));
            continue;
        }
        numbers.push_back(n);
        if (line.check)
            printLine(onOneLine(who + u", " + candidate.company.oCompanyName));
    }
    if (!whole)
        printError(tr("Only the first %1 contacts were read; please divide the file.")
                       .arg(ContactLoad::mostCandidates));
    if (line.dryRun) {
        report.contacts = static_cast<int>(numbers.size());
        printNotes(report);
        printLine(tr("New contacts: %1. Passed over: %2.").arg(report.contacts).arg(report.passedOver));
    }
    if (reads)
        return whole ? Done : Failed;
    if (const QString lack = load.lackOfKeys(static_cast<int>(numbers.size())); !lack.isEmpty()) {
        printError(lack);
        return Failed;
    }
    if (!numbers.empty() && (!copyBefore(*session, u"import"_s) || !load.store(numbers, report)))
        return Failed;
    printNotes(report);
    printLine(report.summary());
    return whole ? Done : Failed;
}

int importFile(CommandContext& context, const ImportLine& line)
{
    const QString path = QFileInfo(QString::fromStdString(line.file)).absoluteFilePath();
    const QFileInfo info(path);
    const QString as = line.as.empty() ? kindOf(path) : QString::fromStdString(line.as);
    // A folder of contact cards is a source like a file of them.
    if (!info.isFile() && !(info.isDir() && as == "vcard"_L1)) {
        printError((info.isDir()    ? tr("%1 is a folder and not a file.")
                    : info.exists() ? tr("%1 is not a file.")
                                    : tr("%1 is not there."))
                       .arg(QDir::toNativeSeparators(path)));
        return Failed;
    }
    if (as == "xml"_L1)
        return importXml(context, path, line);
    return as == "vcard"_L1 ? importCards(context, path, line) : importTable(context, path, line);
}

} // namespace

void addImportCommands(CLI::App& app, Command& chosen)
{
    auto* const command =
        app.add_subcommand("import", help("Bring contacts, companies or a campaign file in"));
    auto line = std::make_shared<ImportLine>();
    command->add_option("FILE", line->file)->required()->check(notEmpty("the file's name is empty"));
    command->add_option("--as", line->as, help("What the file is; without it, what it looks like"))
        ->check(CLI::IsMember({"csv", "xlsx", "vcard", "xml"}));
    command->add_option("--map", line->map, help("FIELD=COLUMN, as in Contact.FirstName=Given"));
    command->add_option("--map-file", line->mapFile, help("A file of such lines"));
    command->add_flag("--check", line->check, help("Only list who is new"));
    command->add_flag("--dry-run", line->dryRun, help("Only say what would come in"));
    command->add_flag("--yes", line->yes, help("Agree to replace the database when the file asks for it"));
    command->callback(
        [=, &chosen] { chosen = [=](CommandContext& context) { return importFile(context, *line); }; });
}
