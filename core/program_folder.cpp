// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/program_folder.h"

#include "base/atomic_file.h"
#include "base/environment.h"
#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "base/write_protection.h"

#include <array>
#include <string_view>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::string_view kFolderName = "kavo-timing";
constexpr auto kSuppliedFiles =
    std::to_array<std::string_view>({"targets.txt", "targets_old.txt", "history.txt", "links.txt"});

fs::path dataHomeOf(const ProgramFolderSources& sources)
{
    if (sources.dataHome && pathOf(*sources.dataHome).is_absolute()) return pathOf(*sources.dataHome);
    if (sources.home) return pathOf(*sources.home) / ".local" / "share";
    throw RunTimeError(Failure::PathNotFound, fs::path(kFolderName));
}

/// Makes the folder under another name until it is complete: one that a killed program has left half-way is gone
/// on with.
void makeSupplied(const fs::path& folder, const fs::path& suppliedFiles)
{
    const fs::path unfinished = folder.parent_path() / std::string(".").append(kFolderName).append("-new");
    std::error_code error;
    fs::create_directories(unfinished, error);
    if (error) throw RunTimeError(error, folder);
    for (const std::string_view name : kSuppliedFiles)
        if (const auto content = readFileIfThere(suppliedFiles / name)) replaceFile(unfinished / name, *content);
    fs::rename(unfinished, folder, error);
    if (!error) error = flushFolder(folder.parent_path());
    if (error) throw RunTimeError(error, folder);
}

fs::path madeAndSupplied(const fs::path& folder, const fs::path& suppliedFiles)
{
    if (folderExists(folder)) return folder;
    try {
        makeSupplied(folder, suppliedFiles);
    } catch (const RunTimeError&) {
        if (!folderExists(folder)) throw;  // else another first start at this very moment was quicker
    }
    return folder;
}

/// In an installation they lie in its data folder, in a portable copy beside the program.
fs::path suppliedFilesOf(const fs::path& executableFolder)
{
    fs::path installed = executableFolder.parent_path() / KAVO_DATA_FOLDER / kFolderName;
    return folderExists(installed) ? installed : executableFolder;
}

fs::path named(const std::string& folder)
{
    std::error_code error;  // a relative path counts from a working folder that may have been deleted
    const fs::path whole = fs::absolute(pathOf(folder), error).lexically_normal();
    if (error) throw RunTimeError(Failure::PathNotFound, pathOf(folder), error);
    fs::path path = locate(whole);
    if (fileExists(path)) error = std::make_error_code(std::errc::not_a_directory);
    if (!folderExists(path)) throw RunTimeError(Failure::PathNotFound, path, error);
    return path;
}

}  // namespace

fs::path executableFolder()
{
#ifdef _WIN32
    constexpr DWORD kLongestPath = 32768;
    std::wstring path(kLongestPath, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), kLongestPath));
    return fs::path(path).parent_path();
#else
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored).parent_path();
#endif
}

ProgramFolderSources programFolderSources(std::optional<std::string> option)
{
    ProgramFolderSources sources;
    sources.option = std::move(option);
    sources.environment = environmentValue("KAVO_PROGRAM_FOLDER");
    sources.executableFolder = executableFolder();
#ifdef _WIN32
    sources.dataHome = environmentValue("LOCALAPPDATA");
#else
    sources.dataHome = environmentValue("XDG_DATA_HOME");
    sources.home = environmentValue("HOME");
#endif
    sources.suppliedFiles = suppliedFilesOf(sources.executableFolder);
    return sources;
}

fs::path findProgramFolder(const ProgramFolderSources& sources)
{
    if (sources.option) return named(*sources.option);
    if (sources.environment) return named(*sources.environment);
    if (folderExists(sources.executableFolder) && !writeProtection(sources.executableFolder))
        return sources.executableFolder;
    return madeAndSupplied(dataHomeOf(sources) / kFolderName, sources.suppliedFiles);
}

fs::path findSuppliedFolder(const fs::path& programFolder, const fs::path& executableFolder, std::string_view name)
{
    for (const fs::path& place : {programFolder, executableFolder, suppliedFilesOf(executableFolder)})
        if (fs::path folder = locate(place / name); folderExists(folder)) return folder;
    return {};
}

}  // namespace kavo
