// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// What player 1's results are compared with; the numbers stand in `data.ini`.
enum class CompareMethod { PreviousResults = 1, AnotherFile = 2, Targets = 3 };

/// The copy of an earlier statistics file that PreviousResults compares with.
inline constexpr std::string_view kPreviousResultsName = "1res.old";

/// What stands in place of a second file's path when Targets are compared with.
inline constexpr std::string_view kCompareWithTargets = "compwith";

/// What the path of a second file compares with. Players have typed the word of the targets as a path, and the names
/// of kept results, and both have always counted.
[[nodiscard]] CompareMethod methodOfPath(std::string_view path);

/// `data.ini`: the user's settings as they stand in the file. Paths are texts as typed.
struct Settings
{
    std::string statsPath;           ///< line 1; empty: the program folder's stats.txt
    int compareMethod = 0;           ///< line 2, as a number: other values than CompareMethod's occur
    std::string otherPath;           ///< line 3: the file compared with by AnotherFile
    std::string category;            ///< line 4: the grade compared with by Targets
    std::optional<double> fontSize;  ///< line 5, in points; older files end before it
};

/// Throws RunTimeError(InputPastEnd) when there are fewer than four lines.
[[nodiscard]] Settings parseSettings(std::string_view text);
[[nodiscard]] std::string formatSettings(const Settings& settings);

/// The first four lines over `settings`: what a shorter file lacks stays as it is there. Line 5 is not read.
[[nodiscard]] Settings parseSettingsLeniently(std::string_view text, Settings settings = {});

/// The content with its last line, whichever it is, replaced by a font size.
[[nodiscard]] std::string withFontSize(std::string_view text, double fontSize);

[[nodiscard]] std::filesystem::path settingsFile(const std::filesystem::path& userFolder);

/// Rewrites `data.ini`.
void saveSettings(const std::filesystem::path& userFolder, const Settings& settings);

/// Puts a font size in place of the last line of `data.ini`. Throws RunTimeError(FileNotFound) without one.
void saveFontSize(const std::filesystem::path& userFolder, double fontSize);

[[nodiscard]] std::filesystem::path previousResultsFile(const std::filesystem::path& userFolder);

/// Copies the statistics file to the previous results when the user has none, so that the first comparison
/// starts from today's times. Throws RunTimeError(FileNotFound) when there is no statistics file.
void keepFirstResults(const std::filesystem::path& userFolder, const std::filesystem::path& statsPath);

/// `names.dat`: what the players and their team are called.
struct Names
{
    std::string player1{"Player1"};
    std::string player2{"Player2"};
    std::string team{"Team"};
};

/// Names that a shorter file lacks keep their defaults.
[[nodiscard]] Names parseNames(std::string_view text);
[[nodiscard]] std::string formatNames(const Names& names);
[[nodiscard]] std::filesystem::path namesFile(const std::filesystem::path& userFolder);

}  // namespace kavo
