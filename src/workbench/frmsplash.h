// The splash screen: the first seconds of the program.
#pragma once

#include "base/form.h"
#include "store/session.h"

#include <QObject>

/// Shows the program's name and version for about ten seconds, or until a key or a click ends it, and looks
/// meanwhile for what the desktop offers. A click on its picture is the one way to switch the trace on.
class FrmSplash : public QObject
{
    Q_OBJECT

public:
    /// Milliseconds between two calls of tick(); the view's timer keeps them.
    static constexpr int interval = 100;

    explicit FrmSplash(Session& session);

    /// The controls that change: Label4 (version) and lblTimer (counter).
    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] int counter() const { return m_counter; }
    /// True from load() until the splash has run its time or was ended.
    [[nodiscard]] bool timerEnabled() const { return m_timerEnabled; }

    /// The load routine: starts the counter and sets the session's wordAvailable and outlookAvailable.
    void load();
    /// The screen got the focus: the version stands behind the text of Label4.
    void activate();

public slots:
    void tick();
    void formClick();
    void keyDown();
    void labelClick();  ///< one of Label1 to Label6
    void image1Click(); ///< switches the trace on and closes nothing
    void unload();

signals:
    /// The screen has unloaded: the view goes. Comes once.
    void closed();

private:
    void endNow();

    Session& m_session;
    Form m_form;
    int m_counter = 0;
    bool m_timerEnabled = false;
};
