#include "store/session.h"

#include "store/engine/background.h"

#include "base/dates.h"
#include "base/text.h"
#include "store/engine/storeerror.h"
#include "store/files/logs.h"
#include "store/gateway/datajw.h"
#include "store/gateway/undostack.h"
#include "store/lastfailure.h"

#include <utility>

Session::Session(QString folder, Clock clock, Prompts& prompts, Desktop& desktop)
    : m_folder(std::move(folder))
    , m_clock(std::move(clock))
    , m_prompts(prompts)
    , m_desktop(desktop)
    , m_settings(m_folder)
    , m_undoStack(std::make_unique<UndoStack>(*this))
{
}

Session::~Session() = default;

QString Session::file(const QString& name) const
{
    return m_folder + u'/' + name;
}

QString Session::databasePath() const
{
    return file(QStringLiteral("Postledger.db"));
}

QString Session::todayText() const
{
    return dates::mdyyyy(today());
}

DataJW& Session::dataJW()
{
    if (!m_dataJW)
        m_dataJW = std::make_unique<DataJW>(*this);
    return *m_dataJW;
}

void Session::releaseDataJW()
{
    Background::endAll(*this);
    m_dataJW.reset();
    m_undoStack->clear();
}

Answer Session::msgBox(const QString& text, Buttons buttons, const QString& title)
{
    const BusyScope busy(*this);
    return m_prompts.msgBox(text, buttons, title.isEmpty() ? messageTitle.toString() : title);
}

void Session::addLog(const QString& message)
{
    // A trace that cannot be written must not stop the step that it tells of.
    (void)OpLog(m_folder).addLog(message, now());
}

void Session::trace(const QString& message)
{
    if (debugMode)
        addLog(message);
}

void Session::logError(const QString& text, int level, const StoreError* failure)
{
    // Anything that is not above 0 counts as 0: such an entry is shown.
    const int shown = level > 0 ? level : 0;
    const QString message =
        failure ? ErrLogger::compose(failure->description(), failure->number(), failure->source(), text)
                : ErrLogger::compose({}, 0, {}, text);
    m_logLost = !ErrLogger(m_folder).addLog(message, shown, now()) || m_logLost;
    if (shown == 1)
        return;
    ++m_held;
    QString reason;
    if (failure)
        reason =
            failure->number() == StoreError::Overflow ? QStringLiteral("> 32767") : failure->description();
    setProperty(lastfailure::property, reason);
    if (m_quiet == 0)
        msgBox(u"Error Occurred :" + message + lostLogText());
}

QString Session::lostLogText()
{
    // Said once in a run, with the first failure that is shown: each further box would only repeat it.
    if (!m_logLost || std::exchange(m_logLossTold, true))
        return {};
    return text::crlf + text::crlf +
           tr("The file %1 could not be written, so this is not noted there.")
               .arg(file(QStringLiteral("ErrorLog.txt")));
}

void Session::setStatusLine(const QString& line)
{
    m_statusLine = line;
    emit statusLineChanged(line);
}

Session::QuietReports::QuietReports(Session& session)
    : m_session(session)
    , m_before(session.m_held)
{
    ++m_session.m_quiet;
}

Session::QuietReports::~QuietReports()
{
    --m_session.m_quiet;
}

int Session::QuietReports::held() const
{
    return m_session.m_held - m_before;
}
