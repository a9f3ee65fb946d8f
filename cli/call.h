// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command_table.h"

#include <string>
#include <vector>

namespace kavo {

/// The arguments of a call, with the words that name the command taken out.
struct Call
{
    const CommandInfo* command = nullptr;  ///< none when no word stands there
    std::vector<std::string> arguments;
};

/// Finds the command in the arguments behind the program's name: the first word that is no common option nor
/// the value of one. Throws UsageError for a command that there is not, and for an option in
/// front of it that not every command has.
[[nodiscard]] Call findCall(std::vector<std::string> arguments, const std::vector<Option>& commonOptions);

}  // namespace kavo
