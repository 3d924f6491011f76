// The way from the program's start to the open workbench.
#pragma once

#include <QString>

/// Opens the workbench on @p folder (empty: the usual one) and runs until the user leaves. Answers the exit code.
int startWorkbench(int& argc, char** argv, const QString& folder, bool noSplash);
