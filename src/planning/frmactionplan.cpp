#include "planning/frmactionplan.h"

#include "base/numbers.h"
#include "store/session.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr int perPhase = PlanPhase::slotCount;

/// A phase's control: "txtSD" of phase 0 is txtSD1, "dtpTM%1Start" is dtpTM1Start.
QString ofPhase(const char* control, int phase)
{
    const QString name = QString::fromLatin1(control);
    const QString number = QString::number(phase + 1);
    return name.contains("%1"_L1) ? name.arg(number) : name + number;
}

std::vector<FieldRow> planForm()
{
    std::vector<FieldRow> rows{{u"cmbPhases"_s, {}, SaveOn::Never},
                               {u"txtObjcvg"_s, {}, SaveOn::Never},
                               {u"lblStatus"_s, {}, SaveOn::Never}};
    for (int category = 0; category < Catalogue::categoryCount; ++category)
        rows.push_back({FrmActionPlan::methodName(category), {}, SaveOn::Never});
    for (int phase = 0; phase < Plan::mostPhases; ++phase) {
        for (const char* control : {"dtpTM%1Start", "dtpTM%1End", "txtSD", "txtResult", "txtObjective"})
            rows.push_back({ofPhase(control, phase), {}, SaveOn::Never});
    }
    return rows;
}

QString plain(double number)
{
    return QString::number(number, 'f', QLocale::FloatingPointShortest);
}

/// The number of the phase that a control belongs to, when it is this one of each phase.
std::optional<int> phaseOf(const QString& control, const char* name)
{
    for (int phase = 0; phase < Plan::mostPhases; ++phase) {
        if (control == ofPhase(name, phase))
            return phase;
    }
    return std::nullopt;
}

} // namespace

QString FrmActionPlan::listName(int category)
{
    static const std::array<QString, Catalogue::categoryCount> names{u"lvwResearch"_s, u"lvwGeneration"_s,
                                                                     u"lvwInteraction"_s, u"lvwConversion"_s};
    return names[static_cast<size_t>(category)];
}

QString FrmActionPlan::methodName(int category)
{
    static const std::array<QString, Catalogue::categoryCount> names{u"txtRMethod"_s, u"txtGMethod"_s,
                                                                     u"txtIMethod"_s, u"txtCMethod"_s};
    return names[static_cast<size_t>(category)];
}

FrmActionPlan::FrmActionPlan(Session& session)
    : m_session(session)
    , m_form(planForm())
{
    for (auto& list : m_lists)
        list = std::make_unique<RowModel>(QStringList{tr("Measure")});
    m_chosen.fill(-1);
}

// --- A visit ----------------------------------------------------------------------------------------------

void FrmActionPlan::load()
{
    m_form.clear();
    m_path.clear();
    m_lastPhase = 0;
    m_form.setItems(u"cmbPhases"_s, {u"1"_s, u"2"_s, u"3"_s});
    loadObjectives();
    takePlan({});
    m_saved = contents();
    if (!m_catalogue.problems().isEmpty())
        m_session.msgBox(m_catalogue.problems().join(u'\n'));
}

void FrmActionPlan::loadObjectives()
{
    m_catalogue = Catalogue::load(m_session);
    for (int category = 0; category < Catalogue::categoryCount; ++category) {
        std::vector<ListRow> rows;
        const QChar letter = Catalogue::categories()[static_cast<size_t>(category)].at(0).toUpper();
        for (const Objective& objective : m_catalogue.objectives(category)) {
            const QString key = QString::number(rows.size() + 1) + letter;
            rows.push_back({key, {objective.objName}, {}, {}, false, objective.objDescription});
        }
        list(category).setRows(std::move(rows));
    }
}

void FrmActionPlan::takePlan(Plan plan)
{
    m_plan = std::move(plan);
    for (int number = 0; number < Plan::mostPhases; ++number) {
        PlanPhase& taken = phase(number);
        taken.start = taken.start.isValid() ? taken.start : m_session.today();
        taken.end = taken.end.isValid() ? taken.end : taken.start;
        forget(number);
    }
    m_form.setText(u"cmbPhases"_s, QString::number(m_plan.phases));
    paintBlocks();
    showPhases();
}

/// What was counted in a phase, and what its boxes show, is no longer so.
void FrmActionPlan::forget(int number)
{
    std::fill_n(m_results.begin() + number * perPhase, perPhase, QString());
    m_chosen[static_cast<size_t>(number)] = -1;
    for (const char* box : {"txtSD", "txtResult", "txtObjective"})
        m_form.setText(ofPhase(box, number), {});
    m_form.setEnabled(ofPhase("txtObjective", number), false);
}

void FrmActionPlan::paintBlocks()
{
    for (PlanPhase& phase : m_plan.phase) {
        for (Objective& measure : phase.measures) {
            const Objective* const entry = m_catalogue.findObjective(measure.objCategory, measure.objName);
            if (!entry)
                continue;
            const double threshold = measure.objThreshold;
            measure = *entry;
            measure.objThreshold = threshold;
        }
    }
}

void FrmActionPlan::showPhases()
{
    for (int number = 0; number < Plan::mostPhases; ++number)
        m_form.setVisible(u"frmeTimeFrame"_s + QString::number(number), number < m_plan.phases);
    pbarSet();
}

void FrmActionPlan::pbarSet()
{
    for (int number = 0; number < m_plan.phases; ++number) {
        m_bars[static_cast<size_t>(number)] = plan::pbarSet(phase(number), m_session.today());
        m_form.setText(ofPhase("dtpTM%1Start", number), phase(number).start.toString(Qt::ISODate));
        m_form.setText(ofPhase("dtpTM%1End", number), phase(number).end.toString(Qt::ISODate));
    }
    emit changed();
}

// --- Slots ------------------------------------------------------------------------------------------------

const Objective* FrmActionPlan::measure(int index) const
{
    const auto& measures = m_plan.phase[static_cast<size_t>(index / perPhase)].measures;
    const auto place = static_cast<size_t>(index % perPhase);
    return place < measures.size() ? &measures[place] : nullptr;
}

PlanSlot FrmActionPlan::imgTM(int index) const
{
    const Objective* const placed = measure(index);
    if (!placed)
        return {};
    PlanSlot slot{Catalogue::categoryIndex(placed->objCategory), placed->objName, {}, {}, false};
    slot.isChosen = m_chosen[static_cast<size_t>(index / perPhase)] == index;
    const QString& result = m_results[static_cast<size_t>(index)];
    if (!result.isEmpty()) {
        slot.result = tr("%1 of %2").arg(result, plain(placed->objThreshold));
        slot.mark =
            result.toDouble() >= placed->objThreshold ? PlanSlot::Mark::Reached : PlanSlot::Mark::Missed;
    }
    return slot;
}

void FrmActionPlan::lvwClick(int category, int row)
{
    const auto& objectives = m_catalogue.objectives(category);
    const bool exists = row >= 0 && row < static_cast<int>(objectives.size());
    m_form.setText(methodName(category),
                   exists ? objectives[static_cast<size_t>(row)].objDescription : QString());
}

void FrmActionPlan::addMeasure(int number, int category, int row)
{
    const auto& objectives = m_catalogue.objectives(category);
    if (row < 0 || row >= static_cast<int>(objectives.size()))
        return say(tr("Choose a measure in the list first."));
    m_lastPhase = number;
    auto& measures = phase(number).measures;
    if (measures.size() >= perPhase)
        return say(tr("Phase %1 is full: it has five measures.").arg(number + 1));
    measures.push_back(objectives[static_cast<size_t>(row)]);
    measures.back().objThreshold = 1;
    m_results[static_cast<size_t>(number * perPhase) + measures.size() - 1].clear();
    say(tr("%1 stands in phase %2. Click it to count, and set what it is to reach.")
            .arg(measures.back().objName)
            .arg(number + 1));
    emit changed();
}

void FrmActionPlan::imgTMClick(int index)
{
    const int number = index / perPhase;
    m_lastPhase = number;
    const Objective* const clicked = measure(index);
    if (!clicked)
        return;
    const Measured measured =
        m_catalogue.measure(m_session, *clicked, phase(number).start, phase(number).end);
    m_chosen[static_cast<size_t>(number)] = index;
    m_results[static_cast<size_t>(index)] = measured.result;
    m_form.setText(ofPhase("txtSD", number), clicked->objName);
    m_form.setText(ofPhase("txtResult", number), measured.result);
    m_form.setText(ofPhase("txtObjective", number), plain(clicked->objThreshold));
    m_form.setEnabled(ofPhase("txtObjective", number), true);
    const bool isKnown = m_catalogue.findObjective(clicked->objCategory, clicked->objName) != nullptr;
    say(isKnown ? measured.problem : tr("The catalogue has no measure called \"%1\".").arg(clicked->objName));
    highlight(*clicked);
    emit changed();
}

void FrmActionPlan::highlight(const Objective& clicked)
{
    const int category = Catalogue::categoryIndex(clicked.objCategory);
    if (category < 0)
        return;
    const auto& objectives = m_catalogue.objectives(category);
    const auto found = std::ranges::find(objectives, clicked.objName, &Objective::objName);
    if (found == objectives.end())
        return;
    const int row = static_cast<int>(found - objectives.begin());
    lvwClick(category, row);
    emit highlightLVW(category, row);
}

void FrmActionPlan::imgTMDblClick(int index)
{
    if (!measure(index) || m_session.msgBox(tr("Delete objective?"), Buttons::YesNoDefaultNo) != Answer::Yes)
        return;
    const int number = index / perPhase;
    auto& measures = phase(number).measures;
    measures.erase(measures.begin() + index % perPhase);
    const auto first = m_results.begin() + index;
    std::shift_left(first, m_results.begin() + (number + 1) * perPhase, 1);
    m_results[static_cast<size_t>((number + 1) * perPhase - 1)].clear();
    const auto kept = m_results;
    forget(number);
    m_results = kept;
    emit changed();
}

void FrmActionPlan::fieldChanged(const QString& control)
{
    if (control == "cmbPhases"_L1) {
        m_plan.phases = std::clamp(m_form.text(control).toInt(), 1, Plan::mostPhases);
        showPhases();
    } else if (const auto started = phaseOf(control, "dtpTM%1Start")) {
        phase(*started).start = QDate::fromString(m_form.text(control), Qt::ISODate);
        forget(*started);
        pbarSet();
    } else if (const auto ended = phaseOf(control, "dtpTM%1End")) {
        phase(*ended).end = QDate::fromString(m_form.text(control), Qt::ISODate);
        forget(*ended);
        pbarSet();
    } else if (const auto set = phaseOf(control, "txtObjective")) {
        setThreshold(*set, m_form.text(control));
    }
}

void FrmActionPlan::setThreshold(int number, const QString& text)
{
    const int index = m_chosen[static_cast<size_t>(number)];
    if (index < 0)
        return;
    phase(number).measures[static_cast<size_t>(index % perPhase)].objThreshold = numbers::read(text);
    emit changed();
}
