#include "planning/catalogue.h"

#include "base/textlines.h"
#include "store/session.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

enum LineField { Category, Name, Description, RuleFirst, RuleLast = 7, Type, LineFieldCount };

QString tr(const char* text)
{
    return QCoreApplication::translate("Catalogue", text);
}

} // namespace

const std::array<QString, Catalogue::categoryCount>& Catalogue::categories()
{
    static const std::array<QString, categoryCount> names{u"research"_s, u"generation"_s, u"interaction"_s,
                                                          u"conversion"_s};
    return names;
}

int Catalogue::categoryIndex(const QString& name)
{
    const auto found = std::ranges::find(categories(), name.toLower());
    return found == categories().end() ? -1 : static_cast<int>(found - categories().begin());
}

void Catalogue::add(const QStringList& fields)
{
    const int category = categoryIndex(fields[Category]);
    auto& objectives = m_objectives[static_cast<size_t>(category)];
    if (objectives.size() >= most) {
        const QString problem = tr("The category %1 has more than %2 measures; the others are left out.")
                                    .arg(categories()[static_cast<size_t>(category)])
                                    .arg(most);
        if (!m_problems.contains(problem))
            m_problems.append(problem);
        return;
    }
    Objective objective;
    objective.objCategory = categories()[static_cast<size_t>(category)];
    objective.objName = fields[Name];
    objective.objDescription = fields[Description];
    objective.objRule = fields.mid(RuleFirst, RuleLast - RuleFirst + 1).join(u',');
    objective.objType = fields[Type];
    objectives.push_back(std::move(objective));
}

Catalogue Catalogue::parse(const QStringList& lines)
{
    Catalogue catalogue;
    for (int number = 0; number < lines.size(); ++number) {
        const QStringList fields = lines[number].split(u':');
        if (categoryIndex(fields[Category]) < 0)
            continue;
        if (fields.size() >= LineFieldCount)
            catalogue.add(fields);
        else if (catalogue.m_problems.size() < 10)
            catalogue.m_problems.append(
                tr("Line %1 has fewer than nine fields and is left out.").arg(number + 1));
    }
    return catalogue;
}

Catalogue Catalogue::load(const Session& session)
{
    const TextLines file = textlines::read(session.file(u"objectives.jwd"_s));
    Catalogue catalogue = parse(file.lines);
    if (!file.problem.isEmpty())
        catalogue.m_problems.append(file.problem);
    else if (std::ranges::all_of(catalogue.m_objectives, [](const auto& all) { return all.empty(); }))
        catalogue.m_problems.append(tr("The file objectives.jwd holds no measures."));
    return catalogue;
}

const Objective* Catalogue::findObjective(const QString& category, const QString& name) const
{
    const int index = categoryIndex(category);
    if (index < 0)
        return nullptr;
    const auto& all = objectives(index);
    const auto found = std::ranges::find(all, name, &Objective::objName);
    return found == all.end() ? nullptr : &*found;
}

Measured Catalogue::measure(Session& session, const Objective& objective, QDate start, QDate end) const
{
    const QString type = objective.objType.toLower();
    const bool isRatio = type == "ratio"_L1;
    if (!isRatio && type != "average"_L1)
        return objective.parseCounter(session, start, end);
    const QStringList rule = objective.objRule.split(u',');
    const auto missing = [](const QString& name) {
        return Measured{{}, tr("The catalogue has no measure called \"%1\" in this category.").arg(name)};
    };
    const Objective* const first = findObjective(objective.objCategory, rule.value(0));
    if (!first)
        return missing(rule.value(0));
    if (!isRatio)
        return Objective::parseAverage(session, *first, start, end);
    const Objective* const second = findObjective(objective.objCategory, rule.value(1));
    return second ? Objective::parseRatio(session, *first, *second, start, end) : missing(rule.value(1));
}
