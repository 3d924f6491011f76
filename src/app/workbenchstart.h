// The way from the program's start to the open workbench.
#pragma once

#include <QString>

struct StartOptions
{
    QString folder;             ///< empty: the usual one
    bool noSplash = false;      ///< open at once
    bool exitWhenShown = false; ///< leave as soon as the filled window has been drawn; for timing the start
};

/// Opens the workbench and runs until the user leaves. Answers the exit code.
int startWorkbench(int& argc, char** argv, const StartOptions& options);
