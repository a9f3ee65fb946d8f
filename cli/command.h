// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command_error.h"
#include "cli/option.h"
#include "cli/output.h"
#include "cli/terminal.h"
#include "cli/waiting.h"

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kavo {

enum ExitStatus : int { kDone = 0, kEndedEarly = 1, kUsageError = 2 };

/// What every command is given: the common options, and where it reads and writes.
struct CommandContext
{
    std::optional<std::string> programFolderOption;
    std::optional<std::string> user;  ///< instead of who logged in last
    std::FILE* in;
    Output& out;
    Messages& messages;
    Terminal terminal;
    std::function<std::time_t()> now;  ///< for the dates in reports
    std::function<std::unique_ptr<Waiting>()> startWaiting;
    std::function<void(const std::filesystem::path&)> openDocument;

    /// Where the users and the targets are. Throws CommandError when there is no such folder.
    [[nodiscard]] std::filesystem::path programFolder() const;
};

/// The file that an argument names, in any case of letters: its whole path, as messages name it.
[[nodiscard]] std::filesystem::path fileNamed(std::string_view argument);

/// One command on the way from its arguments to its end. Made for one call.
class Command
{
public:
    virtual ~Command() = default;

    /// Its options and arguments; their values arrive in the command.
    [[nodiscard]] virtual std::vector<Option> options() { return {}; }

    /// Does what was asked for. Failures are thrown: RunTimeError or CommandError, or UsageError for what
    /// only a look at all values can tell.
    [[nodiscard]] virtual ExitStatus run(const CommandContext& context) = 0;
};

}  // namespace kavo
