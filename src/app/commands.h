// The commands of the command line. Each area's commands stand in a file of their own.
#pragma once

#include "app/exitcodes.h"
#include "store/session.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <string>

class DataJW;

namespace CLI {
class App;
}

/// What a command runs with, once the command line has been read.
struct CommandContext
{
    QString folder;  ///< the application folder
    QString version; ///< "1.0.0"
    /// The folder's session with an open store, for commands that only read: makes nothing. Nothing, with the
    /// reason printed and exitCode set, when it cannot be opened.
    Session* openSession();
    /// As openSession, holds the folder, and makes a new store in a folder that never had one.
    Session* openForWriting();
    /// Holds the folder without a look at its store, which may be missing or damaged.
    Session* openForRepair();

    int exitCode = Done;

    CommandContext();
    ~CommandContext();

private:
    bool holdFolder();
    Session* openStore();
    Session* refuse(const QString& message, ExitCode code);

    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

/// A command that was chosen, to be run when the whole line has been understood.
using Command = std::function<int(CommandContext&)>;

/// Adds the store's commands: init, query, export, status, verify, paths, demo.
void addStoreCommands(CLI::App& app, Command& chosen);
/// Adds the commands about copies of the database: copy, copies, restore.
void addCopyCommands(CLI::App& app, Command& chosen);
/// Adds the workbench's commands: companies, summary.
void addWorkbenchCommands(CLI::App& app, Command& chosen);
/// Adds the commands that say where positions stand: pipeline, positions.
void addPipelineCommands(CLI::App& app, Command& chosen);
/// Adds the command contacts.
void addContactCommands(CLI::App& app, Command& chosen);
/// Adds the command history.
void addHistoryCommands(CLI::App& app, Command& chosen);
/// Adds the commands that say what is planned and what is due: agenda, due.
void addCalendarCommands(CLI::App& app, Command& chosen);
/// Adds the commands that say how the campaign keeps its pace: goals, plan, objectives, stats.
void addPlanningCommands(CLI::App& app, Command& chosen);
/// Adds the intake's command: parse-card.
void addIntakeCommands(CLI::App& app, Command& chosen);
/// Adds the commands that find and show: search, find, report. @p draws becomes true when the command that
/// was chosen paints pages, for which the program needs its fonts.
void addOutputCommands(CLI::App& app, Command& chosen, bool& draws);
/// Adds the command import.
void addImportCommands(CLI::App& app, Command& chosen);
/// Adds the commands of the profile and the questionnaires: profile, evaluate, rank, template.
void addAssessmentCommands(CLI::App& app, Command& chosen);

struct FoundCompany
{
    Key key;
    QString name;
};
/// The company that the user means: of the name itself in any case, else the only one whose name holds the
/// text. Nothing, with the reason printed, when there is none or no single one.
std::optional<FoundCompany> findCompany(DataJW& dataJW, const QString& wanted);
