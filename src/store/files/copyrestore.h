// Going back to a copy of the database.
#pragma once

#include "store/files/copies.h"

#include <QString>

class Session;

/// Puts the copy at @p path in the database's place: whole, or the database stays as it is. Its present state
/// is copied first; a damaged database is moved to "backups", a missing one is made anew. Keys that were
/// given out since the copy was made are not used again. Waits for other programs as copyTo() does. False
/// when the database is as it was; the user has been told why.
[[nodiscard]] bool restoreCopy(Session& session, const QString& path,
                               std::chrono::milliseconds patience = copyPatience);

/// A copy in a line for people: "11/22/2026 2:30 PM, before a restore: 18 companies, 31 positions, 45
/// contacts, 1.2 MB".
QString copyLine(const CopyInfo& copy);

/// What a person should know before the XML file at @p path replaces the database of
/// @p folder: of what day it is, what it
/// does not bring back, and which copy does.
QString restoreNotes(const QString& folder, const QString& path);
