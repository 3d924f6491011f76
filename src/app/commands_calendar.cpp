// The commands about what is planned and due.
#include "app/commands.h"

#include <CLI/CLI.hpp>

void addCalendarCommands(CLI::App&, Command&) {}
