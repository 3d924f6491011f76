// Questions where nobody can answer: the command line.
#pragma once

#include "base/silentports.h"

/// Writes what the program has to say to standard error. Every question gets the answer that changes nothing;
/// what a command needs to know it takes as an option.
class ConsolePrompts : public SilentPrompts
{
public:
    Answer msgBox(const QString& text, Buttons buttons, const QString& title) override;
};
