#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/display.h"
#include "app/output.h"
#include "app/workbenchstart.h"
#include "store/files/appfolder.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <CLI/CLI.hpp>

#include <clocale>
#include <cstdio>
#include <iostream>
#include <langinfo.h>
#include <memory>
#include <new>

using commands::help;
using commands::notEmpty;
using commands::tr;

namespace {

/// What the command line says, whichever way the program then goes.
struct Line
{
    std::string folder;
    bool noSplash = false;
    bool exitWhenShown = false;
    bool asksForDisplay = false;
    Command command;    ///< empty: open the workbench
    bool draws = false; ///< the command paints pages
};

void describe(CLI::App& app, Line& line)
{
    app.set_version_flag("--version", std::string("Jobwright ") + JOBWRIGHT_VERSION);
    app.add_option("--folder", line.folder, help("The application folder: database, logs, copies"))
        ->type_name("DIR")
        ->check(notEmpty("the folder's name is empty"));
    app.add_flag("--no-splash", line.noSplash, help("Open the workbench at once"));
    app.add_flag("--exit-when-shown", line.exitWhenShown,
                 help("Leave again when the window is filled (for timing)"))
        ->group("");
    app.add_flag("--has-display", line.asksForDisplay, help("End with status 0 when a window can be opened"))
        ->group("");
    app.require_subcommand(0, 1);
    app.fallthrough(); // --folder may stand behind the command too
    addWorkbenchCommands(app, line.command);
    addPipelineCommands(app, line.command);
    addHistoryCommands(app, line.command);
    addCalendarCommands(app, line.command);
    addPlanningCommands(app, line.command);
    addIntakeCommands(app, line.command);
    addAssessmentCommands(app, line.command);
    addContactCommands(app, line.command);
    addOutputCommands(app, line.command, line.draws);
    addImportCommands(app, line.command);
    addStoreCommands(app, line.command);
    addCopyCommands(app, line.command);
    app.footer(help("Without a command the workbench opens.\n"
                    "Exit status: 0 done, 1 failed, 2 wrong usage, 3 the database cannot be opened,\n"
                    "4 the folder is in use, 5 the database is damaged."));
}

/// A plain "C" locale makes Qt switch to UTF-8 with a warning on every call: choose it before Qt has to.
void useUtf8Locale()
{
    std::setlocale(LC_ALL, "");
    if (QByteArrayView(nl_langinfo(CODESET)) != "UTF-8")
        qputenv("LC_ALL", "C.UTF-8");
}

/// What the command line or the environment names in bytes that are no text here: it would be changed on its
/// way, and another folder or file be meant. "" when all is well.
QString unreadableName(int argc, char** argv)
{
    const auto isText = [](const QByteArray& bytes) { return QByteArrayView(bytes).isValidUtf8(); };
    for (int i = 1; i < argc; ++i) {
        if (!isText(argv[i]))
            return QStringLiteral("The argument \"%1\" is no valid UTF-8 text.")
                .arg(QString::fromUtf8(argv[i]));
    }
    const QByteArray folder = qgetenv("JOBWRIGHT_FOLDER");
    return isText(folder) ? QString()
                          : QStringLiteral("The variable JOBWRIGHT_FOLDER, \"%1\", is no valid UTF-8 text.")
                                .arg(QString::fromUtf8(folder));
}

/// What was printed must have arrived: a full disk behind ">" is a failure like any other.
int finish(int code)
{
    std::cout.flush();
    const bool written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0 && std::cout.good();
    if (written || code != Done)
        return code;
    printError(tr("The output could not be written."));
    return Failed;
}

/// What the command line asks for, done.
int run(int argc, char** argv, const Line& line)
{
    if (line.asksForDisplay)
        return hasDisplay() ? Done : Failed;
    if (!line.command && !hasDisplay()) {
        printError(tr(
            "There is no display to open the workbench on. \"jobwright --help\" lists what works without."));
        return Failed;
    }
    if (!line.command)
        return startWorkbench(argc, argv,
                              {QString::fromStdString(line.folder), line.noSplash, line.exitWhenShown});

    // Fonts need no display, but an application that knows of them.
    if (line.draws)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::unique_ptr<QCoreApplication> application(line.draws ? new QGuiApplication(argc, argv)
                                                                   : new QCoreApplication(argc, argv));
    CommandContext context;
    context.folder = applicationFolder(QString::fromStdString(line.folder));
    if (context.folder.isEmpty()) {
        printError(prepareFolder({}));
        return StoreClosed;
    }
    context.version = QStringLiteral(JOBWRIGHT_VERSION);
    return finish(line.command(context));
}

/// Says why the line cannot be understood; the parser itself names words too many in the wrong order.
int refuse(const CLI::App& app, const CLI::ParseError& error)
{
    const std::vector<std::string> tooMany = app.remaining(true);
    if (!dynamic_cast<const CLI::ExtrasError*>(&error) || tooMany.empty())
        return finish(app.exit(error) == 0 ? Done : WrongUsage);
    QStringList words;
    for (const std::string& word : tooMany)
        words.append(QString::fromStdString(word));
    printError(tr("These arguments are too many: %1. \"jobwright --help\" says what there is.")
                   .arg(words.join(u' ')));
    return WrongUsage;
}

} // namespace

int main(int argc, char** argv)
{
    useUtf8Locale();
    if (const QString problem = unreadableName(argc, argv); !problem.isEmpty()) {
        printError(problem);
        return WrongUsage;
    }
    Line line;
    CLI::App app(help("Jobwright keeps a whole job campaign in one place."), "jobwright");
    describe(app, line);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return refuse(app, error);
    }
    try {
        return run(argc, argv, line);
    } catch (const std::bad_alloc&) {
        printError(tr("There is not enough memory for this."));
        return Failed;
    }
}
