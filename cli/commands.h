#pragma once

#include <ctime>
#include <functional>
#include <iosfwd>

namespace kavo {

/// What the command line writes to. Colours are used when `out` is a terminal.
struct CommandStreams
{
    std::istream& in;
    std::ostream& out;
    std::ostream& error;
    bool isColoured = false;
    std::function<std::time_t()> now = [] { return std::time(nullptr); };  ///< for the dates in reports
};

enum ExitStatus : int { kDone = 0, kEndedEarly = 1, kUsageError = 2 };

/// Runs kavo-timing-cli with its arguments and returns the exit status.
[[nodiscard]] int runCommandLine(int argc, const char* const* argv, const CommandStreams& streams);

}  // namespace kavo
