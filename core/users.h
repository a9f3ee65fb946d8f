// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// User profiles: a nick each, with a folder of that name in the program folder.
namespace kavo {

/// The nicks of `users.dat` in order of creation, as they stand there.
[[nodiscard]] std::vector<std::string> readUsers(const std::filesystem::path& programFolder);

/// Line 1 of `curUser.dat`: who logged in last. Throws RunTimeError: FileNotFound, InputPastEnd.
[[nodiscard]] std::string readCurrentUser(const std::filesystem::path& programFolder);

/// The same, nothing when there is no such file.
[[nodiscard]] std::optional<std::string> readCurrentUserIfThere(const std::filesystem::path& programFolder);

/// The user's folder. Throws RunTimeError(PathNotFound) for a nick that is empty or would lead out of the
/// program folder.
[[nodiscard]] std::filesystem::path userFolder(const std::filesystem::path& programFolder, std::string_view nick);

/// Whether a nick may log in: more than blanks, and at most ten characters, blanks counted.
[[nodiscard]] bool isNickAllowed(std::string_view nick);

/// Whether a nick may log in without a look at it: it must be a name for a folder, too.
[[nodiscard]] bool isNickForAutoLogin(std::string_view nick);

/// The number in `autolog.dat`; 0 when there is none. Only 1 means to log in without asking.
[[nodiscard]] int readAutoLogin(const std::filesystem::path& programFolder);

inline constexpr int kAutoLogin = 1;

/// Written by a login: the number with a blank on both sides.
void writeAutoLogin(const std::filesystem::path& programFolder, bool autoLogin);

/// Written on the way to the login window: a bare "0", so that it waits for the user.
void suspendAutoLogin(const std::filesystem::path& programFolder);

/// Makes the folder of a nick that has none and adds it to `users.dat`. Returns whether a user was made:
/// a nick whose folder cannot be made (it is there, or the nick is no name for a folder) is not.
[[nodiscard]] bool createUserIfNew(const std::filesystem::path& programFolder, std::string_view nick);

void writeCurrentUser(const std::filesystem::path& programFolder, std::string_view nick);

}  // namespace kavo
