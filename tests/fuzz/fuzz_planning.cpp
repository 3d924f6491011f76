// Any bytes as the three files of planning: read without a crash, and what was read comes back from what is
// written of it.
#include "base/textlines.h"
#include "planning/catalogue.h"
#include "planning/goalsfile.h"
#include "planning/plan.h"

#include <cstdio>
#include <cstdlib>

namespace {

void require(bool holds, const char* rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", rule);
    std::abort();
}

void checkGoals(const QStringList& lines)
{
    const auto contents = goalsfile::parse(lines, {});
    if (!contents.set)
        return;
    GoalSet expected = *contents.set;
    expected.name = QStringLiteral("Standard");
    const auto again = goalsfile::parse(goalsfile::compose(*contents.set, {}), {});
    require(again.set && *again.set == expected && again.wrongBlocks == 0, "goals differ");
}

void checkPlan(const QStringList& lines)
{
    const auto contents = planfile::parse(lines, {});
    if (!contents.plan)
        return;
    const QStringList written = planfile::compose(*contents.plan);
    const auto again = planfile::parse(written, {});
    require(again.plan && planfile::compose(*again.plan) == written, "plans differ");
    for (const PlanPhase& phase : contents.plan->phase)
        require(phase.measures.size() <= PlanPhase::slotCount, "too many measures");
}

void checkCatalogue(const QStringList& lines)
{
    const Catalogue catalogue = Catalogue::parse(lines);
    for (int category = 0; category < Catalogue::categoryCount; ++category) {
        require(catalogue.objectives(category).size() <= Catalogue::most, "too many objectives");
        for (const Objective& objective : catalogue.objectives(category))
            (void)objective.statement(QDate(2026, 6, 1), QDate(2026, 6, 30));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QStringList lines = textlines::parse(bytes, {}).lines;
    checkGoals(lines);
    checkPlan(lines);
    checkCatalogue(lines);
    return 0;
}
