// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// File names match without regard to case, as they did where the players' folders come from.
namespace kavo {

/// A path from its text as kept in settings files (bytes of the file system; UTF-8 on Windows).
[[nodiscard]] std::filesystem::path pathOf(std::string_view text);
[[nodiscard]] std::string textOf(const std::filesystem::path& path);

/// The file or folder that `wanted` names: every component matches without regard to case, the exact
/// spelling first. Components that are not there keep their spelling, so that a new file can be made. Throws
/// RunTimeError where the system cannot tell: a file must not get a second one of its name.
[[nodiscard]] std::filesystem::path locate(const std::filesystem::path& wanted);

/// The file that a path typed by the user names: a relative path counts from `folder`; backslashes
/// serve as separators where no file is spelled with them. On Windows it throws RunTimeError(PathNotFound) for a path
/// that leads to a device or depends on where a drive stands (isWindowsPath).
[[nodiscard]] std::filesystem::path locateTyped(const std::filesystem::path& folder, std::string_view typed);

/// Whether an ordinary file stands there (folders, pipes and devices do not count). Both throw RunTimeError
/// where the system cannot tell: what is only out of reach must not be taken for missing.
[[nodiscard]] bool fileExists(const std::filesystem::path& path);
[[nodiscard]] bool folderExists(const std::filesystem::path& path);

/// Whether a text typed by the user can name one entry of a folder: no separator, no NUL, not "." or "..". On Windows
/// also nothing that is a device or another name there (isWindowsName).
[[nodiscard]] bool isPlainName(std::string_view text);

}  // namespace kavo
