#include "planning/plan.h"

#include "base/dates.h"
#include "base/numbers.h"
#include "base/textlines.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int phaseLines = 3 + PlanPhase::slotCount;

QString tr(const char* text)
{
    return QCoreApplication::translate("PlanFile", text);
}

QString mark(int phase)
{
    return u"TM"_s + QString::number(phase);
}

/// The number of phases on the first line; 0 when it is none.
int phaseCount(const QString& line)
{
    const int count = line.trimmed().toInt();
    return count >= 1 && count <= Plan::mostPhases ? count : 0;
}

QString slotLine(const Objective& measure)
{
    return measure.objCategory + u':' + measure.objName + u':' +
           QString::number(measure.objThreshold, 'f', QLocale::FloatingPointShortest);
}

/// False when one of the two days is none. A line without a threshold above 0 is dropped, and the next one
/// takes its slot.
bool readPhase(const QStringList& lines, int at, PlanPhase& phase, int& dropped)
{
    const auto start = dates::parse(lines[at]);
    const auto end = dates::parse(lines[at + 1]);
    if (!start || !end)
        return false;
    phase.start = start->date;
    phase.end = end->date;
    for (int slot = 0; slot < PlanPhase::slotCount; ++slot) {
        const QStringList fields = lines[at + 2 + slot].split(u':');
        Objective measure;
        measure.objCategory = fields[0].toLower();
        measure.objName = fields.value(1);
        measure.objThreshold = numbers::read(fields.value(2));
        if (measure.objThreshold > 0)
            phase.measures.push_back(std::move(measure));
        else if (!measure.objName.isEmpty())
            ++dropped;
    }
    return true;
}

} // namespace

namespace plan {

PhaseBar pbarSet(PlanPhase& phase, QDate today)
{
    if (phase.start == phase.end)
        phase.end = phase.start.addDays(1);
    PhaseBar bar;
    bar.max = static_cast<int>(std::max<qint64>(1, phase.start.daysTo(phase.end) + 1));
    if (today > phase.start && today < phase.end)
        bar.value = static_cast<int>(phase.start.daysTo(today));
    return bar;
}

} // namespace plan

namespace planfile {

bool isPlan(const QStringList& lines)
{
    return phaseCount(lines.value(0)) > 0 && lines.value(1).startsWith("TM"_L1);
}

Contents parse(const QStringList& lines, const QString& name)
{
    Contents contents;
    Plan plan;
    plan.phases = phaseCount(lines.value(0));
    if (plan.phases == 0)
        return {{}, tr("%1 is no plan: it does not begin with a number of phases from 1 to 3.").arg(name)};
    if (lines.size() < 1 + plan.phases * phaseLines)
        return {{},
                tr("The plan %1 is cut off: it has %2 lines and needs %3.")
                    .arg(name)
                    .arg(lines.size())
                    .arg(1 + plan.phases * phaseLines)};
    for (int phase = 0; phase < plan.phases; ++phase) {
        const int at = 1 + phase * phaseLines;
        contents.wrongMark = contents.wrongMark || lines[at] != mark(phase + 1);
        if (!readPhase(lines, at + 1, plan.phase[static_cast<size_t>(phase)], contents.dropped))
            return {{}, tr("The plan %1 has no date on line %2 or %3.").arg(name).arg(at + 2).arg(at + 3)};
    }
    contents.plan = std::move(plan);
    return contents;
}

Contents load(const QString& path)
{
    const TextLines file = textlines::read(path);
    if (!file.problem.isEmpty())
        return {{}, file.problem};
    return parse(file.lines, QDir::toNativeSeparators(path));
}

QStringList compose(const Plan& plan)
{
    QStringList lines{QString::number(plan.phases)};
    for (int number = 0; number < plan.phases; ++number) {
        const PlanPhase& phase = plan.phase[static_cast<size_t>(number)];
        lines << mark(number + 1) << dates::mmddyyyy(phase.start) << dates::mmddyyyy(phase.end);
        for (int slot = 0; slot < PlanPhase::slotCount; ++slot) {
            const auto index = static_cast<size_t>(slot);
            lines << (index < phase.measures.size() ? slotLine(phase.measures[index]) : u"::0"_s);
        }
    }
    return lines;
}

} // namespace planfile
