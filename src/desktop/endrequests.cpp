#include "desktop/endrequests.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>

#include <array>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array endSignals{SIGTERM, SIGINT, SIGHUP};
/// Windows that may stand one before the other; what is still there then waits for its user.
constexpr int mostWindows = 8;

/// A handler may do next to nothing but write to a pipe: reading end, writing end.
std::array<int, 2> signalPipe{-1, -1};

void handleEnd(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
}

} // namespace

EndRequests::EndRequests(QWidget& window)
    : m_window(window)
{
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals then end the program as they end any other
    m_notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::array<char, 16> bytes{};
        while (::read(signalPipe[0], bytes.data(), bytes.size()) > 0) {
        }
        m_tries = 0;
        closeNext();
    });
    struct sigaction action = {};
    action.sa_handler = handleEnd;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signal : endSignals)
        sigaction(signal, &action, nullptr);
}

EndRequests::~EndRequests()
{
    if (!m_notifier)
        return;
    for (const int signal : endSignals)
        std::signal(signal, SIG_DFL);
    m_notifier.reset();
    for (int& end : signalPipe)
        ::close(std::exchange(end, -1));
}

void EndRequests::closeNext()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    QWidget* const modal = QApplication::activeModalWidget();
    if (!modal) {
        m_window.close();
        return;
    }
    modal->close();
    // A dialog's own end comes first: what it was opened for goes on behind it.
    if (++m_tries < mostWindows)
        QTimer::singleShot(0, this, &EndRequests::closeNext);
}
