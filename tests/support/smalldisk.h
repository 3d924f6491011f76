// A disk that is nearly full.
#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// While it lives no file of this process grows beyond @p bytes; the system tells it as it tells a full disk.
class SmallDisk
{
public:
    explicit SmallDisk(qint64 bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{static_cast<rlim_t>(bytes), m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit m_before{};
};
