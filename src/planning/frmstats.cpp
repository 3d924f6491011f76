#include "planning/frmstats.h"

#include "base/numbers.h"
#include "planning/usagestatistics.h"
#include "store/session.h"

using namespace Qt::StringLiterals;

FrmStats::FrmStats(Session& session)
    : m_session(session)
    , m_form({{u"txtStats"_s, {}, SaveOn::Never}, {u"txtValue"_s, {}, SaveOn::Never}})
{
}

void FrmStats::load()
{
    m_form.setText(u"txtStats"_s, UsageStatistics::gather(m_session).lines().join(u'\n'));
    constexpr double full = 100;
    m_chart = {tr("Goals"), {{}, 1}, {tr("Percent"), full}, {}, {}};
    m_shown.clear();
    QStringList words;
    for (const GoalChartRow& goal : m_goals) {
        if (goal.name.isEmpty())
            continue;
        const double percent = std::min(numbers::halfUp(goal.percent, 2), full);
        m_chart.points.push_back({goal.name, double(m_shown.size()), percent, numbers::shown(percent, 2)});
        words << tr("%1 %2 %").arg(goal.name, numbers::shown(percent, 2));
        m_shown.push_back(goal);
    }
    m_chart.across.top = double(m_shown.size());
    m_chart.words = words.join(u", "_s);
    m_form.setText(u"txtValue"_s,
                   m_shown.empty() ? tr("No goals have been counted yet: set some under Tools > Performance.")
                                   : QString());
}

ReportDocument FrmStats::page(const ReportDrawing& drawing) const
{
    ReportPage page;
    page.add(ReportPage::Block::Heading, tr("Statistics"));
    page.add(ReportPage::Block::Paragraph, m_form.text(u"txtStats"_s));
    if (!m_shown.empty()) {
        page.add(ReportPage::Block::Subheading, tr("Goals"));
        page.add(drawing);
    }
    for (const GoalChartRow& goal : m_shown)
        page.addRow({goal.name, goal.period, tr("%1 %").arg(numbers::shown(goal.percent, 2))});
    return {tr("Statistics"), {}, {}, false, {page}};
}

void FrmStats::choosePoint(int point)
{
    if (point < 0 || point >= static_cast<int>(m_shown.size()))
        return;
    const GoalChartRow& goal = m_shown[static_cast<size_t>(point)];
    m_form.setText(u"txtValue"_s,
                   goal.period + u' ' + goal.name + u' ' + numbers::shown(goal.percent, 2) + u" %  ");
}
