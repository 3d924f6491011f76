// Goals as rates: so many of this per such a period, against what the database shows.
#pragma once

#include "base/key.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <array>

class Session;

/// One goal as the user sets it; all texts as they stand in the boxes.
struct GoalRow
{
    QString goal;   ///< what is counted; "" for an unused row
    QString format; ///< which medium counts
    QString target;
    QString period;

    bool operator==(const GoalRow&) const = default;
};

/// Nine goals and the days that they are counted for; both days themselves lie outside.
struct GoalSet
{
    static constexpr int rowCount = 9;

    QDate start;
    QDate end;
    QString name;
    std::array<GoalRow, rowCount> rows;

    bool operator==(const GoalSet&) const = default;
};

/// What became of one goal.
struct GoalResult
{
    static constexpr int fullBar = 975; ///< the length of a bar's track

    Key count = 0;
    double target = 0;
    double wanted = 0;     ///< how many the pace asks for within the range
    double percent = 0;    ///< of the pace; a pace of 0 counts as 1
    bool isJudged = false; ///< false for an unused row and for a target of 0: the bar stays as it is
    bool isMet = false;
    double barWidth = 0; ///< 0 to fullBar
    QString problem;     ///< why there is no count; "" when there is one
};

struct GoalResults
{
    int days = 1; ///< of the range, at least 1
    int set = 0;
    int met = 0;
    std::array<GoalResult, GoalSet::rowCount> rows;
};

/// One row of the table that the statistics chart is drawn from.
struct GoalChartRow
{
    QString name; ///< "" for an unused row
    double percent = 0;
    QString period;
};
using GoalChart = std::array<GoalChartRow, GoalSet::rowCount>;

namespace goals {

const QStringList& names();
const QStringList& formats();
const QStringList& periods();
/// The entries of a row's medium box: the formats, or "Status" alone for goals that no medium belongs to.
QStringList formatsFor(const QString& goal);

/// Days of a period; 1 for "Custom" and any other name.
int getPeriodDays(const QString& period);
/// The code that goals count a medium by. These are not the codes in which steps are written: "Phone" here
/// finds what was done by letter there. So it is meant to be.
int getFormatCode(const QString& format);
/// The table that a "New ..." goal counts; "" for any other.
QString getGoalTable(const QString& goal);

/// Days from @p start to @p end, at least 1.
int daysBetween(QDate start, QDate end);
/// Counts every goal of the set. Nothing is shown to the user; what failed is in the log and in the row.
GoalResults compute(Session& session, const GoalSet& set);
GoalChart chart(const GoalSet& set, const GoalResults& results);

} // namespace goals
