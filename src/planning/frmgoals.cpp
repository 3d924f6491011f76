#include "planning/frmgoals.h"

#include "base/numbers.h"
#include "base/ports.h"
#include "base/textlines.h"
#include "planning/goalsfile.h"
#include "planning/planningfiles.h"
#include "store/session.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowCount = GoalSet::rowCount;

QString numbered(const char* control, int row)
{
    return QLatin1String(control) + QString::number(row);
}

std::vector<FieldRow> goalsForm()
{
    std::vector<FieldRow> rows;
    for (const char* control :
         {"dtpStart", "dtpEnd", "txtDelta", "txtComplete", "txtGoals", "txtTemplateName", "optDaily",
          "optWeekly", "optBiWeekly", "optMonthly", "optCustom", "lblStatus"})
        rows.push_back({QString::fromLatin1(control), {}, SaveOn::Never});
    for (int row = 1; row <= rowCount; ++row) {
        for (const char* control :
             {"cmbGoal", "cmbFormat", "txtNewGoal", "cmbPeriod", "txtPercent", "lblNote"})
            rows.push_back({numbered(control, row), {}, SaveOn::Never});
    }
    return rows;
}

/// The options with the days that each puts between start and end; 0 leaves the other day alone.
struct Interval
{
    QStringView option;
    int days;
};
constexpr std::array<Interval, 5> intervals{
    {{u"optDaily", 1}, {u"optWeekly", 7}, {u"optBiWeekly", 14}, {u"optMonthly", 30}, {u"optCustom", 0}}};

int daysOf(const QString& option)
{
    for (const Interval& interval : intervals) {
        if (interval.option == option)
            return interval.days;
    }
    return 0;
}

/// The option that a range of so many days goes by.
QStringView intervalOf(int days)
{
    constexpr std::array<int, 4> longest{4, 9, 19, 39};
    for (size_t i = 0; i < longest.size(); ++i) {
        if (days <= longest[i])
            return intervals[i].option;
    }
    return intervals.back().option;
}

const PlanningFile& goalsKind()
{
    static const PlanningFile kind{
        u"Jobwright - Goals"_s, u"Goal Files (goals*.jwg)"_s, u"goals"_s,
        Qt::CaseInsensitive,    u"goals-mine.jwg"_s,          goalsfile::isGoalsFile};
    return kind;
}

/// The entries of a box with what a file may have put there besides.
QStringList withText(QStringList entries, const QString& text)
{
    if (!text.isEmpty() && !entries.contains(text))
        entries.append(text);
    return entries;
}

} // namespace

FrmGoals::FrmGoals(Session& session, Navigator& navigator)
    : m_session(session)
    , m_navigator(navigator)
    , m_form(goalsForm())
{
}

void FrmGoals::load()
{
    m_session.trace(u"frmGoals - Form_Load"_s);
    m_form.clear();
    m_interval.clear();
    m_path.clear();
    m_caption = tr("Performance");
    const QDate tomorrow = m_session.today().addDays(1);
    showGoals({tomorrow.addDays(-7), tomorrow, {}, {}});
    m_saved = goals().rows;
    m_bars = {};
    {
        // What was counted before stays the last computation until the user has goals to count.
        const QSignalBlocker quiet(this);
        compute();
    }
    say(tr("Set a goal in words: what, by which medium, how many, how often. Then press Refresh Pipeline."));
}

GoalSet FrmGoals::goals() const
{
    GoalSet set{day(u"dtpStart"_s), day(u"dtpEnd"_s), {}, {}};
    for (int row = 1; row <= rowCount; ++row)
        set.rows[static_cast<size_t>(row - 1)] = {
            m_form.text(numbered("cmbGoal", row)), m_form.text(numbered("cmbFormat", row)),
            m_form.text(numbered("txtNewGoal", row)), m_form.text(numbered("cmbPeriod", row))};
    return set;
}

QDate FrmGoals::day(const QString& control) const
{
    return QDate::fromString(m_form.text(control), Qt::ISODate);
}

void FrmGoals::setRange(QDate start, QDate end)
{
    m_form.setText(u"dtpStart"_s, start.toString(Qt::ISODate));
    m_form.setText(u"dtpEnd"_s, end.toString(Qt::ISODate));
}

void FrmGoals::showGoals(const GoalSet& set)
{
    setRange(set.start, set.end);
    for (int row = 1; row <= rowCount; ++row) {
        const GoalRow& goal = set.rows[static_cast<size_t>(row - 1)];
        const auto show = [&](const char* control, const QStringList& entries, const QString& text) {
            m_form.setItems(numbered(control, row), withText(entries, text));
            m_form.setText(numbered(control, row), text);
        };
        show("cmbGoal", QStringList{QString()} + goals::names(), goal.goal);
        show("cmbFormat", goals::formatsFor(goal.goal), goal.format);
        show("cmbPeriod", goals::periods(), goal.period);
        m_form.setText(numbered("txtNewGoal", row), goal.target);
    }
}

void FrmGoals::fieldChanged(const QString& control)
{
    if (control == "dtpStart"_L1 || control == "dtpEnd"_L1) {
        applyInterval(control);
        compute();
    } else if (control.startsWith("opt"_L1)) {
        if (m_form.text(control) != "1"_L1)
            return;
        m_interval = control;
        if (daysOf(control) > 0) {
            applyInterval(u"dtpEnd"_s);
            compute();
        }
    } else if (control != "txtTemplateName"_L1) {
        if (control.startsWith("cmbGoal"_L1))
            chooseGoal(control.mid(7).toInt());
        say(tr("Press Refresh Pipeline to count the goals as they are now."));
    }
}

void FrmGoals::applyInterval(const QString& changed)
{
    const int days = daysOf(m_interval);
    if (days == 0)
        return;
    const QDate start = day(u"dtpStart"_s);
    const QDate end = day(u"dtpEnd"_s);
    if (changed == "dtpEnd"_L1)
        setRange(end.addDays(-days), end);
    else
        setRange(start, start.addDays(days));
}

void FrmGoals::chooseGoal(int row)
{
    const QString goal = m_form.text(numbered("cmbGoal", row));
    const QStringList formats = goals::formatsFor(goal);
    const QString format = numbered("cmbFormat", row);
    m_form.setItems(format, formats);
    m_form.amend(format, goal.isEmpty() ? QString() : formats.front());
    // A goal without a period would mean so many a day, which hardly anybody wants.
    const QString period = numbered("cmbPeriod", row);
    if (!goal.isEmpty() && m_form.text(period).isEmpty())
        m_form.amend(period, u"Weekly"_s);
}

void FrmGoals::compute()
{
    const GoalSet set = goals();
    m_results = goals::compute(m_session, set);
    m_form.setText(u"txtDelta"_s, QString::number(m_results.days));
    showInterval(m_results.days);
    for (int row = 1; row <= rowCount; ++row)
        showRow(row);
    m_form.setText(u"txtComplete"_s, QString::number(m_results.met));
    m_form.setText(u"txtGoals"_s, QString::number(m_results.set));
    say(m_results.set == 0 ? QString() : tr("%1 of %2 goals met.").arg(m_results.met).arg(m_results.set));
    if (m_results.set > 0)
        emit computed(goals::chart(set, m_results));
    emit changed();
}

void FrmGoals::showInterval(int days)
{
    const QStringView chosen = intervalOf(days);
    for (const Interval& interval : intervals)
        m_form.setText(interval.option.toString(), interval.option == chosen ? u"1"_s : u"0"_s);
}

void FrmGoals::showRow(int row)
{
    const GoalResult& result = m_results.rows[static_cast<size_t>(row - 1)];
    const bool isUsed = !m_form.text(numbered("cmbGoal", row)).isEmpty();
    GoalBar& bar = m_bars[static_cast<size_t>(row - 1)];
    // A target of 0 leaves the bar as it was: the goal is neither met nor missed.
    if (result.isJudged || !isUsed) {
        bar.width = result.barWidth;
        bar.isMet = result.isMet;
    }
    bar.note = result.problem;
    bar.words = !isUsed ? QString()
                : result.isJudged
                    ? tr("%1 of %2 wanted by now").arg(result.count).arg(numbers::shown(result.wanted, 1))
                    : tr("%1, without a target").arg(result.count);
    m_form.setText(numbered("txtPercent", row), QString::number(result.count));
    m_form.setText(numbered("lblNote", row), result.problem);
}

void FrmGoals::holdPercent(int row, bool held)
{
    const GoalResult& result = m_results.rows[static_cast<size_t>(row - 1)];
    m_form.setText(numbered("txtPercent", row),
                   held ? tr("%1 %").arg(numbers::shown(result.percent, 2)) : QString::number(result.count));
}

void FrmGoals::say(const QString& status)
{
    m_form.setText(u"lblStatus"_s, status);
}

// --- Buttons ----------------------------------------------------------------------------------------------

void FrmGoals::cmdRefresh1()
{
    compute();
}

void FrmGoals::cmdUpToNow()
{
    const int days = goals::daysBetween(day(u"dtpStart"_s), day(u"dtpEnd"_s));
    const QDate tomorrow = m_session.today().addDays(1);
    setRange(tomorrow.addDays(-days), tomorrow);
    cmdRefresh1();
}

void FrmGoals::imgChart()
{
    cmdRefresh1();
    m_navigator.open(u"FrmStats"_s, QVariant::fromValue(goals::chart(goals(), m_results)));
}

// --- Files ------------------------------------------------------------------------------------------------

bool FrmGoals::loadFile(const QString& path)
{
    const goalsfile::Contents contents = goalsfile::load(path);
    if (!contents.set) {
        m_session.msgBox(contents.problem);
        return false;
    }
    for (int wrong = 0; wrong < contents.wrongBlocks; ++wrong)
        m_session.logError(u"Load Template - Template configuration is not correct."_s, 1);
    m_path = QDir::cleanPath(path);
    m_caption = tr("Goals - %1").arg(contents.set->name);
    showGoals(*contents.set);
    cmdRefresh1();
    for (int row = 1; row <= rowCount; ++row) {
        if (!m_form.text(numbered("cmbGoal", row)).contains("New"_L1))
            continue;
        m_form.setItems(numbered("cmbFormat", row), {u"Status"_s});
        m_form.setText(numbered("cmbFormat", row), u"Status"_s);
    }
    m_saved = goals().rows;
    emit changed();
    return true;
}

void FrmGoals::cmdLoadTemplate()
{
    const QString typed = m_form.text(u"txtTemplateName"_s).trimmed();
    if (typed.isEmpty())
        return;
    const QString path = QFileInfo(typed).isAbsolute() ? typed : m_session.file(typed);
    if (!QFileInfo::exists(path))
        say(tr("There is no file %1.").arg(path));
    else if (mayClose())
        loadFile(path);
}

void FrmGoals::cmdBrowse()
{
    const QString path = planningfiles::named(m_session, goalsKind(),
                                              planningfiles::pickToOpen(m_session, goalsKind(), m_path));
    if (path.isEmpty())
        return;
    m_form.setText(u"txtTemplateName"_s, path);
    cmdLoadTemplate();
}

void FrmGoals::imgSaveUp()
{
    save();
}

bool FrmGoals::save()
{
    QString agreed;
    QString path = planningfiles::named(m_session, goalsKind(), m_form.text(u"txtTemplateName"_s).trimmed());
    if (path.isEmpty()) {
        m_session.msgBox(tr("Please select a filename before saving your goals."));
        path = planningfiles::pickToSave(m_session, goalsKind(), m_path, agreed);
    }
    if (path.isEmpty() || !planningfiles::mayOverwrite(m_session, goalsKind(), path, {m_path, agreed}))
        return false;
    const GoalSet set = goals();
    const QString problem = textlines::write(path, goalsfile::compose(set, m_form.text(u"txtGoals"_s)));
    if (!problem.isEmpty()) {
        m_session.msgBox(problem);
        return false;
    }
    m_form.setText(u"txtTemplateName"_s, path);
    m_path = path;
    m_saved = set.rows;
    m_session.msgBox(tr("Saved to %1").arg(QDir::toNativeSeparators(path)));
    return true;
}

bool FrmGoals::mayClose()
{
    if (goals().rows == m_saved)
        return true;
    const Answer answer = m_session.msgBox(tr("Your goals have not been saved to a file. Save them now?"),
                                           Buttons::YesNoCancel);
    return answer == Answer::No || (answer == Answer::Yes && save());
}
