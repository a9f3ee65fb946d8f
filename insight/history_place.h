// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <string>

/// Where a user's results are remembered: never in the program folder.
namespace kavo {

/// What the place depends on.
struct HistorySources
{
    std::optional<std::string> wanted;     ///< KAVO_HISTORY: "off" turns the remembering off
    std::optional<std::string> stateHome;  ///< XDG_STATE_HOME; on Windows LOCALAPPDATA
    std::optional<std::string> home;       ///< HOME, for the default of XDG_STATE_HOME
};

/// The environment of this process.
[[nodiscard]] HistorySources historySources();

/// Whether results are to be remembered, as far as the environment has a say.
[[nodiscard]] bool isHistoryWanted(const HistorySources& sources);

/// The folder of all histories; it need not be there. Throws RunTimeError(PathNotFound) without a home.
[[nodiscard]] std::filesystem::path historyRoot(const HistorySources& sources);

/// The folder in `root` for the user whose folder in the program folder is given, made or not. Its name
/// begins with the nick; the rest stands for the place of the user's folder, so that another program
/// folder has another history, and one reached on another way (a link, another spelling) the same.
[[nodiscard]] std::filesystem::path historyFolder(const std::filesystem::path& root,
                                                  const std::filesystem::path& userFolder);

/// Where a user's dashboard is put unless another place is named: one file for each user's folder. Throws
/// RunTimeError(PathNotFound) without a home.
[[nodiscard]] std::filesystem::path dashboardFile(const HistorySources& sources,
                                                  const std::filesystem::path& userFolder);

}  // namespace kavo
