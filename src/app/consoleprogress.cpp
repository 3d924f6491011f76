#include "app/consoleprogress.h"

#include <cstdio>
#include <unistd.h>

void ConsoleProgress::begin(const QString& title, int total)
{
    m_title = title;
    m_total = total;
    m_shown = -1;
}

bool ConsoleProgress::step(int done, const QString&)
{
    if (m_total <= 0 || isatty(STDERR_FILENO) == 0)
        return true;
    const int percent = static_cast<int>(100LL * done / m_total);
    if (percent != m_shown)
        std::fprintf(stderr, "\r%s %d %%", qUtf8Printable(m_title), percent);
    m_shown = percent;
    return true;
}

void ConsoleProgress::end()
{
    if (m_shown >= 0)
        std::fputc('\n', stderr);
    m_shown = -1;
}
