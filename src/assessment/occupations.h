// Occupations with their terms, as the file OccList.jwd and the term files that it names list them.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// One occupation of the list.
struct Occupation
{
    QStringList terms;
    QString Notes;          ///< the report of the last evaluation that it passed
    QString educationLevel; ///< kept for the list's users; nothing fills it
    QString filename;       ///< of the term file, in the application folder
    double indexThreshold = 0;
    QString Title;

    /// Reads the terms anew; a file that is missing leaves none, without a word. Throws EvaluationStopped for
    /// one that cannot be read.
    void loadOcc(const QString& folder);
};

/// The occupations of a list, from 1 to 100; 0 is never filled.
class Occupations
{
public:
    static constexpr int bound = 100;
    static constexpr QStringView fileName = u"OccList.jwd";

    /// Reads the list and then each term file. What an occupation noted before stays with its number. False,
    /// with everything left as it was, when the folder has no list. Throws EvaluationStopped with file and
    /// line for a threshold that is no number, a record cut short, or a record past the bound; what was read
    /// before stays.
    bool loadOccupations(const QString& folder);
    /// The records of a list's lines; as above. @p name stands for the file in messages.
    void takeLines(const QStringList& lines, const QString& name);

    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] Occupation& at(int number) { return m_all.at(static_cast<size_t>(number)); }
    [[nodiscard]] const Occupation& at(int number) const { return m_all.at(static_cast<size_t>(number)); }

private:
    std::vector<Occupation> m_all{static_cast<size_t>(bound) + 1};
    int m_count = 0;
};

/// The words of a dictionary file in the application folder, a line each. Throws EvaluationStopped for a file
/// that is missing or cannot be read.
[[nodiscard]] QStringList loadDictionary(const QString& folder, const QString& fileName);
