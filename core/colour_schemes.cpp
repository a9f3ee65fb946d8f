// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/colour_schemes.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_file.h"

#include <algorithm>
#include <utility>

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::string_view kExtension = ".ini";
constexpr std::string_view kInForce = "colors";
constexpr std::string_view kInForceBefore = "colors_prev";

fs::path schemeFileIn(const fs::path& folder, std::string_view name)
{
    return locate(folder / pathOf(std::string(name).append(kExtension)));
}

fs::path schemeFile(const fs::path& userFolder, std::string_view name)
{
    return schemeFileIn(coloursFolder(userFolder), name);
}

bool isOfOlderKind(const ColourFile& file)
{
    return file.count >= kWindowColours && file.count < kColours;
}

/// Grade colours come all from one place: a file that breaks off among them gives none.
ColourSet withDefaultGrades(ColourSet colours)
{
    const ColourSet defaults;
    for (std::size_t line = kWindowColours; line < kColours; ++line)
        colours.*kColourLines.at(line) = defaults.*kColourLines.at(line);
    return colours;
}

}  // namespace

ColourSet readColoursToEdit(const fs::path& userFolder)
{
    const ColourFile file = readColourFile(userFolder);
    return isOfOlderKind(file) ? withDefaultGrades(file.colours) : file.colours;
}

void upgradeColours(const fs::path& userFolder)
{
    if (isOfOlderKind(readColourFile(userFolder))) saveColours(userFolder, readColoursToEdit(userFolder));
}

void saveColours(const fs::path& userFolder, const ColourSet& colours)
{
    replaceFile(coloursFile(userFolder), formatColours(colours));
}

std::vector<std::string> listSchemes(const fs::path& userFolder)
{
    return schemesIn(coloursFolder(userFolder));
}

std::vector<std::string> schemesIn(const fs::path& folder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string file = textOf(entry->path().filename());
        std::error_code ignored;
        if (file.size() < kExtension.size() || !entry->is_regular_file(ignored)) continue;
        const std::string name = file.substr(0, file.size() - kExtension.size());
        const bool isColourFile = equalIgnoringCase(file.substr(name.size()), kExtension);
        if (isColourFile && !equalIgnoringCase(name, kInForce)) names.push_back(name);
    }
    std::ranges::sort(names, {}, [](const std::string& name) { return std::pair(foldCase(name), name); });
    return names;
}

bool installScheme(const fs::path& folder, std::string_view name, const fs::path& userFolder)
{
    makeColoursFolder(userFolder);
    const fs::path target = schemeFile(userFolder, name);
    std::error_code error;
    if (fs::exists(fs::symlink_status(target, error))) return false;  // whatever it is, it is the user's
    replaceFile(target, readFile(schemeFileIn(folder, name)));
    return true;
}

void saveScheme(const fs::path& userFolder, std::string_view name, const ColourSet& colours)
{
    if (!folderExists(coloursFolder(userFolder))) return;
    if (!isPlainName(name)) throw RunTimeError(Failure::PathNotFound);
    // Any other name goes: one called "colors" replaces the colours in force, on purpose.
    replaceFile(schemeFile(userFolder, name), formatColours(colours));
}

void setScheme(const fs::path& userFolder, std::string_view name)
{
    const fs::path scheme = schemeFile(userFolder, name);
    if (!fileExists(scheme)) throw RunTimeError(Failure::FileNotFound, scheme);
    const fs::path inForce = coloursFile(userFolder);
    if (fileExists(inForce)) replaceFile(schemeFile(userFolder, kInForceBefore), readFile(inForce));
    // Read only now, on purpose: setting "colors_prev" sets what it has just become.
    replaceFile(inForce, readFile(scheme));
}

}  // namespace kavo
