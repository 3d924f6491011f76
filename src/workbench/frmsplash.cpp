#include "workbench/frmsplash.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Ticks until the splash goes by itself: about ten seconds.
constexpr int lastTick = 100;

} // namespace

FrmSplash::FrmSplash(Session& session)
    : m_session(session)
    , m_form({{u"Label4"_s, {}, SaveOn::Never}, {u"lblTimer"_s, {}, SaveOn::Never}})
{
}

void FrmSplash::load()
{
    m_session.splashClosed = false;
    m_counter = 0;
    m_timerEnabled = true;
    m_form.setText(u"lblTimer"_s, u"0"_s);
    // Documents of the word processor's kind can be opened when the desktop knows a program for them. Mail,
    // calendar and contacts of other programs are reached through files in a folder of their own, so it alone
    // decides.
    m_session.wordAvailable = m_session.desktop().canOpen(u".doc"_s);
    m_session.outlookAvailable = QFileInfo(m_session.file(u"exchange"_s)).isDir();
    m_session.trace(u"frmSplash - FORMLOAD COMPLETE"_s);
}

void FrmSplash::activate()
{
    m_form.setText(u"Label4"_s, tr("Version") + u"  " + QCoreApplication::applicationVersion());
}

void FrmSplash::tick()
{
    if (!m_timerEnabled)
        return;
    ++m_counter;
    m_form.setText(u"lblTimer"_s, QString::number(m_counter));
    if (m_counter <= lastTick)
        return;
    endNow();
}

void FrmSplash::formClick()
{
    endNow();
}

void FrmSplash::keyDown()
{
    endNow();
}

void FrmSplash::labelClick()
{
    // The line has always carried the load routine's name; whoever reads a trace knows it as the click.
    m_session.trace(u"frmSplash - Form_Load"_s);
    endNow();
}

void FrmSplash::image1Click()
{
    m_session.debugMode = true;
}

void FrmSplash::endNow()
{
    // A key and the click that goes with it may both come in: the splash ends once only.
    if (m_session.splashClosed)
        return;
    m_counter = lastTick + 1;
    unload();
    // The line of the loop's end, whatever ended it.
    m_session.trace(u"frmSplash - Timer_Unload"_s);
}

void FrmSplash::unload()
{
    if (m_session.splashClosed)
        return;
    m_timerEnabled = false;
    m_session.splashClosed = true;
    m_session.trace(u"frmSplash - Form_Unload"_s);
    emit closed();
}
