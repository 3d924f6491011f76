// The signals with which a system ends a program.
#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;
class QWidget;

/// Ends the program as its user would when the system asks for it (SIGTERM, SIGINT, SIGHUP: a logout, a
/// shutdown, Ctrl+C in the terminal): whatever stands before the window is closed and then the window itself,
/// so that the field being typed is stored and the folder is free again. A question that has no way out but
/// an answer stays, and the program with it. One object a program.
class EndRequests : public QObject
{
public:
    explicit EndRequests(QWidget& window);
    ~EndRequests() override;

private:
    void closeNext();

    QWidget& m_window;
    std::unique_ptr<QSocketNotifier> m_notifier;
    int m_tries = 0;
};
