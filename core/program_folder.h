// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// Where the program folder (users, targets, settings) may come from, strongest first.
struct ProgramFolderSources
{
    std::optional<std::string> option;       ///< --program-folder
    std::optional<std::string> environment;  ///< KAVO_PROGRAM_FOLDER
    std::filesystem::path executableFolder;  ///< used when it can be written: a portable copy
    std::optional<std::string> dataHome;     ///< XDG_DATA_HOME
    std::optional<std::string> home;         ///< HOME, for the default of XDG_DATA_HOME
    std::filesystem::path suppliedFiles;     ///< fills a folder in dataHome that is first made
};

/// The folder of the running program.
[[nodiscard]] std::filesystem::path executableFolder();

/// Options and environment of this process.
[[nodiscard]] ProgramFolderSources programFolderSources(std::optional<std::string> option);

/// The program folder, absolute. A folder that the user names is taken as it is; the one in the user's
/// data home is made and supplied when first missing. Throws RunTimeError: PathNotFound when a named
/// folder does not exist or no home is known, PathFileAccess, DiskFull.
[[nodiscard]] std::filesystem::path findProgramFolder(const ProgramFolderSources& sources);

/// A folder that comes with the program ("templates", "schemes"): in the program folder or beside the
/// executable (a portable copy), else among the supplied files of an installation. Empty when there is none.
[[nodiscard]] std::filesystem::path findSuppliedFolder(const std::filesystem::path& programFolder,
                                                       const std::filesystem::path& executableFolder,
                                                       std::string_view name);

}  // namespace kavo
