// The statistics screen: figures of the store and its use, and the goals as a chart.
#pragma once

#include "base/chart.h"
#include "base/form.h"
#include "base/reportpage.h"
#include "planning/goals.h"

class Session;

/// Shows and changes nothing. The goals are those that were last counted in this run.
class FrmStats : public QObject
{
    Q_OBJECT

public:
    /// @p session must outlive the presenter.
    explicit FrmStats(Session& session);

    Form& form() { return m_form; }
    /// The table that the chart is drawn from at the next load().
    void setGoals(const GoalChart& goals) { m_goals = goals; }
    void load();

    /// A bar for each goal, at most 100 high.
    [[nodiscard]] const Chart& mscGoals() const { return m_chart; }
    /// Figures and goals as a page to print, with @p drawing of the chart between them.
    [[nodiscard]] ReportDocument page(const ReportDrawing& drawing) const;
    /// The user has chosen a point of the chart; txtValue says which.
    void choosePoint(int point);

private:
    Session& m_session;
    Form m_form;
    GoalChart m_goals;
    std::vector<GoalChartRow> m_shown; ///< the goals that are set, a point of the chart each
    Chart m_chart;
};
