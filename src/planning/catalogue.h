// The measures to choose from: the file objectives.jwd.
#pragma once

#include "planning/objective.h"

#include <QStringList>

#include <array>
#include <vector>

/// The four categories of measures, each with up to 100 of them, in the order of the file.
class Catalogue
{
public:
    static constexpr int categoryCount = 4;
    static constexpr int most = 100; ///< measures of one category
    /// "research", "generation", "interaction", "conversion".
    static const std::array<QString, categoryCount>& categories();
    /// The place of a category's name in that list, in any case; -1 for any other.
    static int categoryIndex(const QString& name);

    /// The lines of such a file: nine fields between colons, category, name, description, the five fields of
    /// the rule, and its type. Lines of no category are passed over.
    static Catalogue parse(const QStringList& lines);
    /// The file in the application folder; without it an empty catalogue, with the reason in problems().
    static Catalogue load(const Session& session);

    [[nodiscard]] const std::vector<Objective>& objectives(int category) const
    {
        return m_objectives[static_cast<size_t>(category)];
    }
    /// The measure of this name in a category; null when it has none, or the category is none.
    [[nodiscard]] const Objective* findObjective(const QString& category, const QString& name) const;
    /// What could not be taken over, a sentence each.
    [[nodiscard]] const QStringList& problems() const { return m_problems; }

    /// Runs a measure's rule by its type between two days. The measures that a "ratio" or an "average" names
    /// are looked up in the measure's own category.
    [[nodiscard]] Measured measure(Session& session, const Objective& objective, QDate start,
                                   QDate end) const;

private:
    void add(const QStringList& fields);

    std::array<std::vector<Objective>, categoryCount> m_objectives;
    QStringList m_problems;
};
