// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command.h"

#include <memory>
#include <span>
#include <string_view>

namespace kavo {

/// A row of the table of commands, which help, manual, completion and suggestions are made from.
struct CommandInfo
{
    std::string_view name;  ///< one word or two ("history save")
    std::string_view group;
    std::string_view summary;
    std::string_view details = {};  ///< sentences below the summary in the command's own help
    std::string_view examples;      ///< lines of a shell
    std::unique_ptr<Command> (*make)();
};

/// All commands, those of a group together.
[[nodiscard]] std::span<const CommandInfo> commands();

/// The command of that exact name; nullptr when there is none.
[[nodiscard]] const CommandInfo* findCommand(std::string_view name);

/// Places for the values of the options that every command takes.
struct CommonOptions
{
    std::optional<std::string> programFolder;
    std::optional<std::string> user;
    std::optional<std::string> codePage;
    std::optional<std::string> colour;

    [[nodiscard]] std::vector<Option> options();
};

/// The options and arguments of a command, for those who only describe them; the common ones left out.
[[nodiscard]] std::vector<OptionInfo> optionsOf(const CommandInfo& command);

/// The options that every command takes.
[[nodiscard]] std::vector<OptionInfo> commonOptions();

}  // namespace kavo
