// Long work as a window with a bar.
#pragma once

#include "base/progress.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>

/// A bar with a Cancel button over the window in front. It comes up when the work has taken a moment, and
/// keeps the user's input from everything else.
class DesktopProgress : public Progress
{
public:
    void begin(const QString& title, int total) override;
    [[nodiscard]] bool step(int done, const QString& line) override;
    void end() override;

private:
    QPointer<QProgressDialog> m_dialog; ///< gone when its window was closed by the program's end
    QElapsedTimer m_sincePaint;
    bool m_cancelled = false;
};
