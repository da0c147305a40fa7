/// A disk that takes only so much.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace failures {

/// While it lives, no file of the process can grow beyond a number of bytes: what is written up to there arrives, and
/// the write beyond fails as on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit = {bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_signal);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*m_signal)(int);
    rlimit m_former;
};

} // namespace failures
