// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

/// The fixed texts of the message boxes, letter for letter.
namespace kavo {

inline constexpr std::string_view kApplicationTitle = "NRL Kavo Timing";

enum class MessageIcon { None, Critical };

struct Message
{
    std::string text;
    std::string title{kApplicationTitle};
    MessageIcon icon = MessageIcon::None;
};

namespace messages {

inline constexpr std::string_view kWrongFile = "Wrong file!";
inline constexpr std::string_view kMissingTargets =
    "Unable to find: targets.txt. If you want to download it now, select \"Update targets\" in right-button menu "
    "or press Ctrl+R";
inline constexpr std::string_view kNewUser = "New user: ";  ///< followed by the nick
inline constexpr std::string_view kPreviousResultsCleared = "Previous results have been cleared";
inline constexpr std::string_view kPreviousResultsClearedTitle = "Kavo Timing";
inline constexpr std::string_view kAddBugTimeTitle = "Adding bug-time";
inline constexpr std::string_view kAddBugTimePrompt =
    "Input your bug in this way: xx, yy:yy:yy, where xx is number of level (53, 07) and yy:yy:yy is your time "
    "(00:19:05, 01:35:12).";
inline constexpr std::string_view kBugTimePreset = "xx, yy:yy:yy";
inline constexpr std::string_view kNotCorrect = "Not correct!";
inline constexpr std::string_view kExported = "Successfully exported. Wanna 2 take a look?";
inline constexpr std::string_view kExportedTitle = "Successfully exported";
inline constexpr std::string_view kOk = "OK";
inline constexpr std::string_view kFailed = "Failed";
inline constexpr std::string_view kTransferError = "Error";
inline constexpr std::string_view kNoSystemInformation = "System Information Is Unavailable At This Time";

}  // namespace messages

}  // namespace kavo
