// Long work on a terminal.
#pragma once

#include "base/progress.h"

/// One line on standard error that is written over, when a person sits before it; nothing into a file or a
/// pipe. A terminal's own keys end the work.
class ConsoleProgress : public Progress
{
public:
    void begin(const QString& title, int total) override;
    [[nodiscard]] bool step(int done, const QString& line) override;
    void end() override;

private:
    QString m_title;
    int m_total = 0;
    int m_shown = -1; ///< the last percentage written
};
