// The calendar screen: coming and going, and walking through the months.
#include "calendar/frmevcal.h"

#include "calendar/eventstore.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

std::vector<FieldRow> calendarForm()
{
    std::vector<FieldRow> rows{{u"txtEvName"_s, u"Event"_s, SaveOn::Record},
                               {u"txtFormat"_s, u"Medium"_s, SaveOn::Record},
                               {u"txtEvTimeS"_s, u"EventTime"_s, SaveOn::Record},
                               {u"txtEvDescription"_s, u"Description"_s, SaveOn::Record}};
    for (const QString& control :
         {u"lblMonth"_s,   u"lblEvents"_s,   u"lblBusy"_s,    u"lblBusiest"_s,      u"txtTotals"_s,
          u"txtMonthly"_s, u"txtNoDate"_s,   u"Label11"_s,    u"chkShowComplete"_s, u"frmeEventData"_s,
          u"optStAM"_s,    u"optStPM"_s,     u"txtEvTimeN"_s, u"optEnAM"_s,         u"optEnPM"_s,
          u"chkhalf"_s,    u"chkOne"_s,      u"chkOnehalf"_s, u"chkTwo"_s,          u"imgReminder"_s,
          u"txtRemind"_s,  u"lblCompany"_s,  u"lblContact"_s, u"lblPosition"_s,     u"chkTask"_s,
          u"chkNoDate"_s,  u"chkComplete"_s, u"dtEvTsk"_s,    u"imgOther1"_s,       u"imgOther2"_s})
        rows.push_back({control, {}, SaveOn::Never});
    return rows;
}

} // namespace

FrmEvCal::FrmEvCal(Session& session)
    : m_session(session)
    , m_form(calendarForm())
    , m_page(session, m_form)
    , m_frame(session, m_form)
    , m_follower(session, {u"Event"_s}, [this] { reload(); })
{
    connect(&m_frame, &EventFrame::changed, this, &FrmEvCal::frameChanged);
    m_follower.setSeen(false);
    connect(&m_frame, &EventFrame::dayChosen, this, &FrmEvCal::selectDay);
}

FrmEvCal::~FrmEvCal() = default;

// --- Coming and going -------------------------------------------------------------------------------------

void FrmEvCal::load()
{
    m_loaded = true;
    m_page.openAgain();
    m_frame.load();
    closeEvent();
    m_page.setMonth(m_session.today());
    m_follower.setSeen(true);
    readEvents();
    m_page.fillEvents();
    emit changed();
}

void FrmEvCal::unload()
{
    closeEvent();
    m_loaded = false;
    m_follower.setSeen(false);
    m_page.forget();
}

void FrmEvCal::show(const QVariant& request)
{
    if (request.canConvert<Key>())
        openEvent(request.value<Key>());
    else if (request.isValid())
        createHistoryEvent(request.value<QHash<QString, QString>>());
}

void FrmEvCal::createHistoryEvent(const QHash<QString, QString>& values)
{
    if (mayLeaveFrame())
        openHistoryTask(values);
}

void FrmEvCal::readEvents()
{
    m_page.loadEvents();
    m_follower.caughtUp();
}

void FrmEvCal::reload()
{
    if (!m_loaded)
        return;
    readEvents();
    m_frame.followStore(selectedDay());
    fillEvents();
}

// --- The month --------------------------------------------------------------------------------------------

void FrmEvCal::fillEvents()
{
    m_page.setMonth(selectedDay());
    m_page.fillEvents();
    emit changed();
}

void FrmEvCal::showMonth(QDate day)
{
    if (!eventstore::isStorable(day))
        return;
    m_page.select(day);
    fillEvents();
}

void FrmEvCal::selectDay(QDate day)
{
    if (!day.isValid())
        return;
    if (cellOf(day) < 0) {
        showMonth(day);
    } else {
        m_page.select(day);
        emit changed();
    }
    if (m_frame.isOpen() && isNewEntry() && !m_frame.isNoDate() && frameDate() != selectedDay())
        m_frame.moveTo(selectedDay());
}

void FrmEvCal::cmdLast()
{
    showMonth(selectedDay().addMonths(-1));
}

void FrmEvCal::cmdNext()
{
    showMonth(selectedDay().addMonths(1));
}

void FrmEvCal::cmdToday()
{
    if (!m_page.isReadable())
        reload();
    selectDay(m_session.today());
}

void FrmEvCal::setShowComplete(bool show)
{
    if (show == m_page.showsComplete())
        return;
    m_page.setShowComplete(show);
    fillEvents();
}

void FrmEvCal::chooseChip(const QString& chip)
{
    if (m_page.chooseChip(chip))
        emit changed();
}

void FrmEvCal::openChosen(const QString& chip)
{
    const std::vector<DayChip>& chips = m_page.selectedChips();
    if (!chip.isEmpty())
        openEntry(chip);
    else if (chips.size() > 1)
        emit dayListWanted();
    else if (!chips.empty())
        openEntry(chips.front().key);
    else
        cmdNewEvent();
}

void FrmEvCal::removeChosen(const QString& chip)
{
    const std::vector<DayChip>& chips = m_page.selectedChips();
    if (!chip.isEmpty())
        removeEntry(chip);
    else if (!isNewEntry() && frameDate() == selectedDay())
        cmdRemove1();
    else if (chips.size() == 1)
        removeEntry(chips.front().key);
}
