// Goals files: a set of goals as 49 lines of text.
#pragma once

#include "planning/goals.h"

#include <optional>

namespace goalsfile {

struct Contents
{
    std::optional<GoalSet> set; ///< nothing when the lines are no goals file, or end before the last goal
    QString problem;            ///< why, in a sentence
    int wrongBlocks = 0;        ///< goals whose closing line is not "#"; they are read all the same
};

/// @p name is what the problem calls the file.
Contents parse(const QStringList& lines, const QString& name);
/// Reads a file; see TextLines for what is refused before the lines are looked at.
Contents load(const QString& path);
/// The file's lines; the closing one begins with @p set goals.
QStringList compose(const GoalSet& goals, const QString& set);
/// True when the first lines are those of a goals file.
bool isGoalsFile(const QStringList& lines);

} // namespace goalsfile
