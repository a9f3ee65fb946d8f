// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command.h"
#include "cli/document_opener.h"

namespace kavo {

/// What the command line reads from and writes to.
struct CommandStreams
{
    std::FILE* in;
    std::FILE* out;
    std::FILE* error;
    OutputFacts output;                                                    ///< what `out` is
    std::function<std::time_t()> now = [] { return std::time(nullptr); };  ///< for the dates in reports
    std::function<std::unique_ptr<Waiting>()> startWaiting = kavo::startWaiting;
    std::function<void(const std::filesystem::path&)> openDocument = kavo::openDocument;
};

/// Runs kavo-timing-cli with its arguments and returns the exit status. Nothing is thrown.
[[nodiscard]] int runCommandLine(int argc, const char* const* argv, const CommandStreams& streams);

}  // namespace kavo
