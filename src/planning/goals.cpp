#include "planning/goals.h"

#include "base/numbers.h"
#include "store/gateway/datajw.h"
#include "store/lastfailure.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Key count(Session& session, const GoalRow& row, QDate start, QDate end)
{
    DataJW& data = session.dataJW();
    const QString prefix = row.goal.left(3);
    if (prefix == "New"_L1)
        return data.getNewTableCount(goals::getGoalTable(row.goal), start, end);
    if (prefix == "Hou"_L1)
        return data.getStatusHours(start, end);
    return data.getProgressDateCount(row.goal, start, end, goals::getFormatCode(row.format));
}

GoalResult judge(Session& session, const GoalRow& row, const GoalSet& set, int days)
{
    GoalResult result;
    if (row.goal.isEmpty())
        return result;
    const Session::QuietReports quiet(session);
    result.count = count(session, row, set.start, set.end);
    if (quiet.held() > 0)
        result.problem = lastfailure::reason(session);
    result.target = numbers::read(row.target);
    const double perDay = result.target / goals::getPeriodDays(row.period);
    const double actual = double(result.count) / days;
    result.wanted = perDay * days;
    result.percent = 100 * actual / (perDay == 0 ? 1 : perDay);
    result.isJudged = result.target != 0;
    result.isMet = result.isJudged && perDay <= actual;
    result.barWidth = result.isMet      ? GoalResult::fullBar
                      : result.isJudged ? GoalResult::fullBar * actual / perDay
                                        : 0;
    return result;
}

} // namespace

namespace goals {

const QStringList& names()
{
    static const QStringList all{u"CompanyResearch"_s,   u"PositionResearch"_s, u"InfoContact"_s,
                                 u"InfoFollow"_s,        u"PrepareCover"_s,     u"PrepareResume"_s,
                                 u"SentResume"_s,        u"Response"_s,         u"Interview"_s,
                                 u"FollowUp"_s,          u"Offers"_s,           u"New Companies"_s,
                                 u"New Positions"_s,     u"New Contacts"_s,     u"New Contact Histories"_s,
                                 u"New User Profiles"_s, u"Hours Working"_s};
    return all;
}

const QStringList& formats()
{
    static const QStringList all{u"All"_s, u"Internet"_s, u"Phone"_s, u"Fax"_s, u"Post"_s, u"Other"_s};
    return all;
}

const QStringList& periods()
{
    static const QStringList all{u"Daily"_s,     u"Weekly"_s,    u"Biweekly"_s, u"Monthly"_s,
                                 u"Bimonthly"_s, u"Quarterly"_s, u"Annually"_s, u"Custom"_s};
    return all;
}

QStringList formatsFor(const QString& goal)
{
    const bool hasNone = goal.startsWith("New"_L1) || goal.startsWith("Hou"_L1);
    return hasNone ? QStringList{u"Status"_s} : formats();
}

int getPeriodDays(const QString& period)
{
    // Bimonthly is two months.
    static const QHash<QString, int> days{{u"Daily"_s, 1},     {u"Weekly"_s, 7},     {u"Biweekly"_s, 14},
                                          {u"Monthly"_s, 30},  {u"Bimonthly"_s, 60}, {u"Quarterly"_s, 90},
                                          {u"Annually"_s, 365}};
    return days.value(period, 1);
}

int getFormatCode(const QString& format)
{
    static const QHash<QString, int> codes{
        {u"Internet"_s, 1}, {u"Other"_s, 2}, {u"Fax"_s, 3}, {u"Post"_s, 4}, {u"Phone"_s, 5}};
    return codes.value(format, 0);
}

QString getGoalTable(const QString& goal)
{
    static const QHash<QString, QString> tables{{u"New Companies"_s, u"Company"_s},
                                                {u"New Positions"_s, u"Position"_s},
                                                {u"New Contacts"_s, u"Contact"_s},
                                                {u"New Contact Histories"_s, u"History"_s},
                                                {u"New User Profiles"_s, u"UProfile"_s}};
    return tables.value(goal);
}

int daysBetween(QDate start, QDate end)
{
    return static_cast<int>(std::max<qint64>(1, start.daysTo(end)));
}

GoalResults compute(Session& session, const GoalSet& set)
{
    GoalResults results;
    results.days = daysBetween(set.start, set.end);
    for (size_t row = 0; row < set.rows.size(); ++row) {
        GoalResult& result = results.rows[row];
        result = judge(session, set.rows[row], set, results.days);
        results.set += set.rows[row].goal.isEmpty() ? 0 : 1;
        results.met += result.isMet ? 1 : 0;
    }
    return results;
}

GoalChart chart(const GoalSet& set, const GoalResults& results)
{
    GoalChart chart;
    for (size_t row = 0; row < chart.size(); ++row)
        chart[row] = {set.rows[row].goal, results.rows[row].percent, set.rows[row].period};
    return chart;
}

} // namespace goals
