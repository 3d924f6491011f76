// The store's file before it is opened: what state it is in, and what a person can do about it.
#pragma once

#include <QString>

/// What a look at the file tells. Only Good and Older files are opened; no other is ever
/// changed, moved or deleted.
enum class FileState {
    Good,
    Missing,
    Damaged,  ///< the engine finds it malformed, it is empty, or tables are missing
    Older,    ///< of an earlier version of this program: sound, and brought up to date when it is opened
    Newer,    ///< made by a later version of this program
    Foreign,  ///< not this program's database
    Locked,   ///< another program keeps everybody out for now
    ReadOnly, ///< it, or its folder, may not be written
};

struct FileReport
{
    FileState state = FileState::Good;
    QString detail;  ///< what was found, in the engine's or our own words
    QString message; ///< plain words for the user: what is wrong, that nothing was touched, what can be done
};

/// Looks at the file at @p path without changing it. Small files are checked in whole, large ones by header,
/// tables and a first read; `verify` and the daily copy check those in whole.
FileReport inspectStore(const QString& path);
