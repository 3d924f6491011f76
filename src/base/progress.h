// How far long work on the user's thread is.
#pragma once

#include <QString>

/// Shows the user how far long work is and lets him end it: a bar with a Cancel button on the desktop, a line
/// on a terminal. One work at a time.
class Progress
{
public:
    virtual ~Progress() = default;
    /// @p total is the number of steps, 0 when it is not known.
    virtual void begin(const QString& title, int total) = 0;
    /// @p done of the total steps are behind the work; @p line says what it is at, "" keeps the line before.
    /// False once the user has cancelled: the work ends at its next safe place.
    [[nodiscard]] virtual bool step(int done, const QString& line) = 0;
    virtual void end() = 0;
};

/// Shows nothing and is never cancelled.
class SilentProgress : public Progress
{
public:
    void begin(const QString&, int) override {}
    [[nodiscard]] bool step(int, const QString&) override { return true; }
    void end() override {}
};
