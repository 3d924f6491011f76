// What the user changes on the Pipeline screen: ticks, days, mediums, the answer of the employer, and the
// save.
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "store/gateway/steps.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionform.h"
#include "workbench/shell.h"

using namespace Qt::StringLiterals;

namespace {

QString control(const QString& name, int index)
{
    return name + QString::number(index);
}

/// The number behind a control's name; nothing when the control has another name.
std::optional<int> indexOf(const QString& control, QStringView name)
{
    bool isNumber = false;
    const int index = control.startsWith(name) ? QStringView(control).mid(name.size()).toInt(&isNumber) : 0;
    return isNumber && index >= 0 && index < PipelineSteps::count ? std::optional(index) : std::nullopt;
}

} // namespace

// --- The controls' values ---------------------------------------------------------------------------------

bool PipelineScreen::isTicked(int index) const
{
    return m_form.isOn(control(u"chkP"_s, index));
}

QDate PipelineScreen::dateOf(int index) const
{
    return m_form.date(control(u"dtpProg"_s, index));
}

void PipelineScreen::setTick(int index, bool on)
{
    m_form.setOn(control(u"chkP"_s, index), on);
}

void PipelineScreen::setDate(int index, QDate date)
{
    m_form.setDate(control(u"dtpProg"_s, index), date);
}

void PipelineScreen::setMedium(int index, const QString& tag)
{
    m_form.setText(control(u"Image1"_s, index), tag);
}

QString PipelineScreen::getNextStep() const
{
    int next = 0;
    for (int index = 0; index < PipelineSteps::count; ++index) {
        if (isTicked(index))
            next = index + 1;
    }
    return PipelineSteps::nextStep(next);
}

// --- Steps ------------------------------------------------------------------------------------------------

void PipelineScreen::fieldChanged(const QString& control)
{
    if (control == u"txtFind") {
        m_tree.setFilter(m_form.text(control).trimmed());
        emit nodeChosen(m_tree.findPosition(m_form.text(u"txtCCompany"_s), m_form.text(u"txtPosition"_s)),
                        false);
    } else if (const auto tick = indexOf(control, u"chkP")) {
        chkPClick(*tick);
    } else if (const auto date = indexOf(control, u"dtpProg")) {
        dtpProgChange(*date);
    } else if (control.startsWith(u"optProg")) {
        optProgClick(control);
    }
}

bool PipelineScreen::refuseWithoutPosition(const QString& message)
{
    if (hasPosition() && m_shell.selection().currentPositionKey != 0)
        return false;
    m_shell.showMessage(message);
    return true;
}

void PipelineScreen::chkPClick(int index)
{
    if (refuseWithoutPosition(tr("Must select a position to modify progress data."))) {
        setTick(index, false);
        return;
    }
    if (!isTicked(index)) {
        setDate(index, dates::sentinel);
        setMedium(index, {});
    } else if (!PipelineSteps::isDone(dateOf(index))) {
        setDate(index, m_shell.session().today());
    }
    writeStep(index);
}

void PipelineScreen::dtpProgChange(int index)
{
    if (refuseWithoutPosition(tr("Must select a position to modify progress data."))) {
        setDate(index, dates::sentinel);
        return;
    }
    // A step is taken back by its tick alone; a day that stands for none becomes today.
    if (!PipelineSteps::isDone(dateOf(index)))
        setDate(index, m_shell.session().today());
    setTick(index, true);
    writeStep(index);
}

void PipelineScreen::dtpProgDropDown(int index)
{
    // Without a position the choice of a day says what is missing; opening the calendar need not.
    if (!hasPosition())
        return;
    setDate(index, m_shell.session().today());
    dtpProgChange(index);
}

void PipelineScreen::image1Click(int index)
{
    if (refuseWithoutPosition(tr("Must select a position to modify progress data.")))
        return;
    const int code = PipelineSteps::getIndexMedium(index, m_form.text(control(u"Image1"_s, index))) + 1;
    setMedium(index, PipelineSteps::mediumTag(code));
    // The empty place at the end of the round is only passed through on the way to the first medium.
    if (PipelineSteps::mediumTag(code).isEmpty())
        return;
    setTick(index, true);
    if (!PipelineSteps::isDone(dateOf(index)))
        setDate(index, m_shell.session().today());
    writeStep(index);
}

void PipelineScreen::writeStep(int index)
{
    DataJW& dataJW = m_shell.session().dataJW();
    const Key key = m_shell.selection().currentPositionKey;
    if (!steps::write(dataJW, key, PipelineSteps::getIndexTitle(index), dates::mdyyyy(dateOf(index)),
                      PipelineSteps::getIndexMedium(index, m_form.text(control(u"Image1"_s, index))))) {
        // What is shown must be what is kept.
        if (const RecordSet record = dataJW.getPositionByKey(key); !record.isEmpty())
            fillProgForm(record);
    }
    showProgress();
}

void PipelineScreen::showProgress()
{
    m_form.setText(u"txtNext"_s, getNextStep());
    for (Bar& bar : m_bars) {
        if (bar.position == 0 || bar.position != m_shell.selection().currentPositionKey)
            continue;
        bar.progress = 0;
        for (int index = 0; index < PipelineSteps::count; ++index)
            bar.progress = isTicked(index) ? index + 1 : bar.progress;
    }
    emit changed();
}

// --- The employer's answer --------------------------------------------------------------------------------

void PipelineScreen::optProgClick(const QString& option)
{
    if (refuseWithoutPosition(tr("Please select a position to save from the company/position box."))) {
        m_form.setOn(option, false);
        return;
    }
    m_form.edit(option, u"1"_s); // also a click on the option that is chosen already
    m_shell.session().dataJW().execQuery(u"Update position set OfferStatus="_s +
                                         m_form.columnValue(u"OfferStatus"_s) + u" where positionkey=" +
                                         QString::number(m_shell.selection().currentPositionKey));
    m_form.markColumnClean(u"OfferStatus"_s);
}

// --- The whole record -------------------------------------------------------------------------------------

QString PipelineScreen::stepValues() const
{
    QString values;
    for (int index = 0; index < PipelineSteps::count; ++index) {
        // The day counts here and not the tick: a day laid out ready is taken as it stands.
        const QDate date = dateOf(index);
        if (!PipelineSteps::isDone(date)) {
            values += u"'','',";
            continue;
        }
        // By the picture as it is drawn: six have a place of their own in the list, all else is "other".
        int code = steps::Internet;
        while (code < steps::Other &&
               PipelineSteps::mediumTag(code) != m_form.text(control(u"Image1"_s, index)))
            ++code;
        values += u'\'' + dates::mdyyyy(date) + u"','" + QString::number(code) + u"',";
    }
    return values;
}

void PipelineScreen::cmdUpdateTrack1()
{
    if (refuseWithoutPosition(tr("Please select a position to save from the company/position box.")))
        return;
    m_shell.session().trace(u"Update Pipeline"_s);
    if (!m_positionForm.upPosx(stepValues(), m_form.columnText(u"OfferStatus"_s)))
        return;
    // A day that was laid out ready has been stored as a step done.
    const RecordSet record =
        m_shell.session().dataJW().getPositionByKey(m_shell.selection().currentPositionKey);
    if (!record.isEmpty())
        showRecord(record, record.text(u"Title"));
    m_shell.savedSbar();
    displayVisual();
}

void PipelineScreen::imgOpenContact1()
{
    if (!hasPosition())
        return;
    DataJW& dataJW = m_shell.session().dataJW();
    const RecordSet record = dataJW.getPosition(text::quoteFix(m_form.text(u"txtCCompany"_s)),
                                                text::quoteFix(m_form.text(u"txtPosition"_s)));
    const QStringList keys = m_shell.csvParse(record.text(u"ContactList"));
    bool isNumber = false;
    const Key key = keys.isEmpty() ? Key(0) : keys.first().toShort(&isNumber);
    const QString name = isNumber ? dataJW.getContactByKey(key) : QString();
    if (name.trimmed().isEmpty()) {
        m_shell.showMessage(tr("No contacts found for this position"));
        return;
    }
    m_shell.showContact(key);
}
