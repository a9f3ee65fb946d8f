// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <string_view>

namespace kavo {

/// What stands behind an option, as shells complete it.
enum class OptionValue { None, Folder, Text };

/// An option of the desktop program. Its help, its manual and the completion of shells are made from the table.
struct ProgramOption
{
    std::string_view shortName = {};
    std::string_view name;
    OptionValue value = OptionValue::None;
    std::string_view valueName = {};
    std::string_view help;
};

inline constexpr ProgramOption kProgramFolderOption{
    .name = "program-folder",
    .value = OptionValue::Folder,
    .valueName = "DIR",
    .help = "Folder with users, targets and settings (environment: KAVO_PROGRAM_FOLDER)."};
inline constexpr ProgramOption kRecordsHostOption{
    .name = "records-host",
    .value = OptionValue::Text,
    .valueName = "HOST[:PORT]",
    .help = "Host of the world-records page, or its base address (environment: KAVO_RECORDS_HOST)."};
inline constexpr ProgramOption kCodePageOption{
    .name = "code-page",
    .value = OptionValue::Text,
    .valueName = "NAME",
    .help = "8-bit code page of texts that are no UTF-8: 1251, 1252, ... (environment: KAVO_CODE_PAGE)."};
inline constexpr ProgramOption kNoHistoryOption{.name = "no-history",
                                                .help = "Remember no results (environment: KAVO_HISTORY=off)."};
inline constexpr ProgramOption kHelpOption{.shortName = "h", .name = "help", .help = "Show this help and exit."};
inline constexpr ProgramOption kVersionOption{.name = "version", .help = "Show the version and exit."};

/// In the order of the help.
inline constexpr std::array kProgramOptions = {kProgramFolderOption, kRecordsHostOption, kCodePageOption,
                                               kNoHistoryOption,     kHelpOption,        kVersionOption};

}  // namespace kavo
