/// Whether a window can be opened here at all.
#pragma once

namespace viewer {

/// Tries in a child process, since the toolkit ends the process that it cannot connect to a display. Call it before
/// the toolkit is used. False without a display server, and where it refuses, or does not answer within ten seconds.
bool HasDisplay(int argc, char** argv);

} // namespace viewer
