/// Whether a window can be opened here at all.
#pragma once

#include <sys/types.h>

namespace viewer {

/// Connects to the display in a child process, since the toolkit ends the process that cannot. Make it before the
/// toolkit is used, and keep it until the toolkit is connected: a display server may start afresh, and refuse
/// connections meanwhile, when the last one is closed.
class DisplayProbe
{
public:
    DisplayProbe(int argc, char** argv);
    ~DisplayProbe(); ///< ends the child's connection
    DisplayProbe(const DisplayProbe&) = delete;
    DisplayProbe& operator=(const DisplayProbe&) = delete;

    /// False without a display server, and where it refuses, or does not answer within ten seconds.
    bool HasDisplay() const { return hasDisplay; }

private:
    pid_t child = -1;
    int link = -1; ///< the child says a byte when it is connected, and goes when this end is closed
    bool hasDisplay = false;
};

} // namespace viewer
