// The commands about what happened.
#include "app/commands.h"

#include <CLI/CLI.hpp>

void addHistoryCommands(CLI::App&, Command&) {}
