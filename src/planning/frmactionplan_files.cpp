// Saving, loading and clearing a plan.
#include "base/textlines.h"
#include "planning/frmactionplan.h"
#include "planning/planningfiles.h"
#include "store/session.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const PlanningFile& planKind()
{
    static const PlanningFile kind{
        u"Jobwright - Objectives"_s, u"Objective Files (obj*.jwg)"_s, u"obj"_s,
        Qt::CaseSensitive,           u"objplan-mine.jwg"_s,           planfile::isPlan};
    return kind;
}

} // namespace

/// Everything that the plan holds, phases that are hidden at present included.
QStringList FrmActionPlan::contents() const
{
    Plan whole = m_plan;
    whole.phases = Plan::mostPhases;
    return QStringList{QString::number(m_plan.phases)} + planfile::compose(whole);
}

bool FrmActionPlan::mayClose()
{
    const bool isEmpty =
        std::ranges::all_of(m_plan.phase, [](const PlanPhase& phase) { return phase.measures.empty(); });
    if (contents() == m_saved || (isEmpty && m_path.isEmpty()))
        return true;
    const Answer answer = m_session.msgBox(tr("Your action plan has not been saved to a file. Save it now?"),
                                           Buttons::YesNoCancel);
    return answer == Answer::No || (answer == Answer::Yes && save());
}

bool FrmActionPlan::loadFile(const QString& path)
{
    const QString name = QDir::toNativeSeparators(path);
    if (!QFileInfo::exists(path)) {
        m_session.msgBox(tr("Unable to locate %1, goals file aborted.").arg(name));
        return false;
    }
    planfile::Contents read = planfile::load(path);
    if (!read.plan) {
        m_session.msgBox(read.problem);
        return false;
    }
    if (read.wrongMark)
        m_session.msgBox(tr("File Parse Error, Obj file may have been corrupted."));
    m_path = QDir::cleanPath(path);
    m_lastPhase = 0;
    m_form.setText(u"txtObjcvg"_s, name);
    takePlan(std::move(*read.plan));
    m_saved = contents();
    say(read.dropped == 0 ? tr("Click a measure to count it.")
                          : tr("Measures left out, without a threshold above 0: %1.").arg(read.dropped));
    return true;
}

void FrmActionPlan::cmdBrowse()
{
    if (!mayClose())
        return;
    if (const QString path = planningfiles::pickToOpen(m_session, planKind(), m_path); !path.isEmpty())
        loadFile(path);
}

void FrmActionPlan::cmdClear1()
{
    if (!mayClose())
        return;
    Plan empty = m_plan;
    for (PlanPhase& phase : empty.phase)
        phase.measures.clear();
    takePlan(std::move(empty));
    m_saved = contents();
}

void FrmActionPlan::cmdSavePlan1()
{
    save();
}

bool FrmActionPlan::confirmWhatIsLost()
{
    QStringList without;
    QStringList hidden;
    for (int number = 0; number < Plan::mostPhases; ++number) {
        for (const Objective& measure : phase(number).measures) {
            if (number >= m_plan.phases)
                hidden << measure.objName;
            else if (measure.objThreshold <= 0)
                without << measure.objName;
        }
    }
    const auto goOn = [this](const QString& question) {
        return m_session.msgBox(question, Buttons::YesNoDefaultNo) == Answer::Yes;
    };
    if (!without.isEmpty() &&
        !goOn(
            tr("Without a threshold above 0 a measure is not read back from the file: %1. Save all the same?")
                .arg(without.join(u", "_s))))
        return false;
    return hidden.isEmpty() ||
           goOn(
               tr("Only the phases that are shown are saved. Not in the file will be: %1. Save all the same?")
                   .arg(hidden.join(u", "_s)));
}

bool FrmActionPlan::save()
{
    if (!confirmWhatIsLost())
        return false;
    QString agreed;
    const QString path = planningfiles::pickToSave(m_session, planKind(), m_path, agreed);
    if (path.isEmpty() || !planningfiles::mayOverwrite(m_session, planKind(), path, {m_path, agreed}))
        return false;
    if (const QString problem = textlines::write(path, planfile::compose(m_plan)); !problem.isEmpty()) {
        m_session.msgBox(problem);
        return false;
    }
    m_path = path;
    m_saved = contents();
    m_form.setText(u"txtObjcvg"_s, QDir::toNativeSeparators(path));
    m_session.msgBox(tr("Saved file %1").arg(QDir::toNativeSeparators(path)));
    return true;
}
