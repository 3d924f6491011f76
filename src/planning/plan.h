// An action plan: up to three dated phases with up to five measures each, and its file.
#pragma once

#include "planning/objective.h"

#include <QStringList>

#include <array>
#include <optional>
#include <vector>

struct PlanPhase
{
    static constexpr int slotCount = 5;

    QDate start;
    QDate end;
    std::vector<Objective> measures; ///< at most slotCount; the first stands in the first slot
};

/// How far a phase has come, in days.
struct PhaseBar
{
    int max = 1;   ///< the days from start to end, and one
    int value = 1; ///< the days behind today while today lies inside; 1 before the phase and behind it
};

struct Plan
{
    static constexpr int mostPhases = 3;

    int phases = 1; ///< how many are in use; the others keep what they hold
    std::array<PlanPhase, mostPhases> phase;
};

namespace plan {

/// The bar of a phase. A phase that ends on its first day is made a day longer.
PhaseBar pbarSet(PlanPhase& phase, QDate today);

} // namespace plan

namespace planfile {

struct Contents
{
    std::optional<Plan> plan; ///< nothing when the lines are no plan, or end too early
    QString problem;          ///< why, in a sentence
    bool wrongMark = false;   ///< a phase does not begin with its "TM" line; it is read all the same
    int dropped = 0;          ///< measures without a threshold above 0; they are left out
};

/// Measures come with category, name and threshold only. @p name is what the problem calls the file.
Contents parse(const QStringList& lines, const QString& name);
Contents load(const QString& path);
/// The lines of the phases in use.
QStringList compose(const Plan& plan);
/// True when the first lines are those of a plan.
bool isPlan(const QStringList& lines);

} // namespace planfile
