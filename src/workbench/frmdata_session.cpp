// The workbench's start and end.
#include "base/text.h"
#include "calendar/frmreminder.h"
#include "store/gateway/datajw.h"
#include "workbench/companyscreen.h"
#include "workbench/contactscreen.h"
#include "workbench/documentscreen.h"
#include "workbench/frmdata.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionscreen.h"

#include <QFileInfo>
#include <QLocale>

#include <cmath>
#include <cstdlib>
#include <exception>

using namespace Qt::StringLiterals;

namespace {

constexpr Key defaultReminderInterval = 10; // minutes

/// A setting's text as the whole number that it reads as; nothing when it is no number, or none of 16 bits.
std::optional<Key> settingNumber(const QString& value)
{
    bool isNumber = false;
    const double number = value.trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || std::abs(number) > INT16_MAX)
        return std::nullopt;
    return static_cast<Key>(std::nearbyint(number));
}

/// The time of day in whole seconds, as the usage rows hold it.
QTime timeOfDay(const QDateTime& now)
{
    return QTime(now.time().hour(), now.time().minute(), now.time().second());
}

QString timeText(QTime time)
{
    return QLocale::c().toString(time, u"h:mm:ss AP"_s);
}

} // namespace

FrmData::~FrmData()
{
    // The end comes twice: at the unload and here. The second one finds the gateway gone, and is the only one
    // when the screen never unloaded.
    release();
}

bool FrmData::load()
try {
    m_reminder.load();
    m_session.helpDocument = u"\\JWHelp\\Jobwright-Dox.pdf"_s;
    m_session.trace(u"Acro File Check"_s);
    // No path: the desktop knows which program shows a document of this kind, better than a fixed place
    // could.
    m_session.acrobatPath.clear();
    m_session.sessionStart = timeOfDay(m_session.now());
    loadCompanyList();
    m_document->resetTree();
    readSettings();
    m_caption = tr("Jobwright - Data Entry");
    updateCounts();
    emit changed();
    return true;
} catch (const std::exception&) {
    m_session.logError(u"Error onload."_s, 0);
    return false;
}

void FrmData::readSettings()
{
    DataJW& dataJW = m_session.dataJW();
    const auto interval = settingNumber(dataJW.getStatusValue(u"TimeDelta"_s, true));
    m_session.reminderInterval = interval.value_or(defaultReminderInterval);
    // A value that is no number of minutes is mended where it stands, or every start would meet it again.
    if (!interval)
        dataJW.writeStatus(u"TimeDelta"_s, QString::number(defaultReminderInterval), true);
    // Only the number 1 switches it on, and nothing switches it off here: without the row it stays as it
    // began.
    if (settingNumber(dataJW.getStatusValue(u"Autosave"_s, true)) == Key{1})
        m_session.autosave = true;
}

void FrmData::activated()
{
    // A box would activate the window again when it closes: what cannot be read is said once, in the window,
    // and not tried again before something has changed.
    if (!m_session.dataJW().isConnected() || (m_unreadable.isValid() && m_unreadable == storeState()))
        return;
    const ReadWatch watch(m_session.dataJW());
    {
        const Session::QuietReports quiet(m_session);
        loadCompanyList();
        updateCounts();
    }
    if (!watch.failed())
        return;
    m_unreadable = storeState();
    setSimpleText(tr("The database could not be read; the reason stands in ErrorLog.txt."));
}

/// When the database was written last, by this program or another.
QDateTime FrmData::storeState() const
{
    return QFileInfo(m_session.databasePath()).lastModified();
}

void FrmData::forgetKeys()
{
    m_position->clearPositionForm();
    m_contact->clearContactForm();
    m_selection.currentCompanyKey = 0;
}

void FrmData::refresh()
{
    showCompanyScreen();
    updateCounts();
}

void FrmData::unload()
try {
    m_session.sessionEnd = timeOfDay(m_session.now());
    writeUsage();
    release();
} catch (const std::exception&) {
    showMessage(tr("Error in Termination Sequence."));
}

void FrmData::writeUsage()
{
    DataJW& dataJW = m_session.dataJW();
    if (!dataJW.isConnected())
        return; // nobody who can only leave is held up by three more boxes
    Action action(dataJW);
    const auto write = [&](const QString& name, const QString& value) {
        dataJW.execQuery(u"INSERT INTO Status(StatusDescription,StatusDate,StatusValue) VALUES ('" + name +
                         u"','" + m_session.todayText() + u"','" + value + u"');");
    };
    write(u"TimeLog"_s, timeText(m_session.sessionStart));
    write(u"TimeLog"_s, timeText(m_session.sessionEnd));
    // Both are times of day, so a session across midnight counts its distance on the clock.
    const int minutes = std::abs(m_session.sessionStart.secsTo(m_session.sessionEnd)) / 60;
    write(u"MinLog"_s, QString::number(minutes));
    action.commit();
}

void FrmData::release()
{
    m_reminder.unload(); // before the gateway that it asks
    m_session.releaseDataJW();
    m_session.trace(u"frmData - Terminate"_s);
}
