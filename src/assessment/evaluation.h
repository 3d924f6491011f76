// A run of the word tests over one profile item.
#pragma once

#include "assessment/occupations.h"
#include "assessment/wordstat.h"
#include "base/key.h"
#include "store/gateway/recordset.h"
#include "store/session.h"

#include <QHash>

#include <functional>
#include <vector>

/// A position that the item correlates with.
struct PositionMatch
{
    Key key = 0;
    QString title;
    double wordMatchIndex = 0;
    double sentenceMatchIndex = 0;
};

/// The tests in their fixed order. What they found stays until the next run; nothing of it is stored.
class Evaluation
{
public:
    /// The kinds of test, for the words that matched.
    enum Kind { Action, Criticality, Quantification, Position, Occupation, KindCount };
    /// Told with each step of a run: the status line, and how far a test is (0 of 0: unknown). False ends the
    /// run.
    using Tell = std::function<bool(const QString& status, int done, int total)>;

    explicit Evaluation(Session& session)
        : m_session(session)
    {
    }

    /// Runs the tests that the settings ask for. False when it ended early, by Tell or with stopped() as the
    /// reason; what was written until then stays.
    bool run(const QString& problem, const QString& action, const QString& result, const Tell& tell);

    QString report; ///< the report box; a run without the action test begins behind what stands here
    [[nodiscard]] const QString& stopped() const { return m_stopped; }
    [[nodiscard]] const QStringList& baseWords() const { return m_words; }
    [[nodiscard]] const std::vector<PositionMatch>& positions() const { return m_positions; }
    /// Numbers of the occupations that passed, in the order of the list.
    [[nodiscard]] const std::vector<int>& passed() const { return m_passed; }
    [[nodiscard]] const Occupations& occupations() const { return m_occupations; }
    /// Words of the text that hit, in lower case, by the kinds of tests that they hit in (a bit for each).
    [[nodiscard]] const QHash<QString, int>& matched() const { return m_matched; }
    void clear();

private:
    [[nodiscard]] bool isOn(const QString& setting) const;
    void dictionaryTests();
    void testPositions();
    void testPosition(const RecordSet& row, double threshold);
    void testOccupations();
    void step(const QString& status, int done = 0, int total = 0);
    void noteMatches(Kind kind);
    [[nodiscard]] QString detailOr(QString (WordStat::*detail)() const) const;

    Session& m_session;
    WordStat m_stat;
    Occupations m_occupations;
    QStringList m_words;
    bool m_detail = false;
    std::vector<PositionMatch> m_positions;
    std::vector<int> m_passed;
    QHash<QString, int> m_matched;
    QString m_stopped;
    const Tell* m_tell = nullptr;
};
