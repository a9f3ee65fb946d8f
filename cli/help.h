// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command_table.h"

#include <string>

namespace kavo {

/// The text of --help without a command: commands by group, common options, examples, exit statuses.
[[nodiscard]] std::string generalHelp();

/// The text of --help behind a command.
[[nodiscard]] std::string helpOf(const CommandInfo& command);

/// How a command is called: "show [--json] [--filter1 NAME | --filter2 NAME]".
[[nodiscard]] std::string usageOf(const CommandInfo& command);

}  // namespace kavo
