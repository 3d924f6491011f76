// What the program's exit status says.
#pragma once

/// Documented in the manual page; scripts rely on the numbers.
enum ExitCode {
    Done = 0,
    Failed = 1,       ///< the statement or action did not succeed
    WrongUsage = 2,   ///< unknown command, missing argument
    StoreClosed = 3,  ///< the database or its folder cannot be opened
    InUse = 4,        ///< another running program holds the folder
    StoreDamaged = 5, ///< verify found damage
};
