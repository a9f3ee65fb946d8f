// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"

#include <filesystem>
#include <string_view>

namespace kavo {

/// Reads 55 records of five times (World Record, World Class, Professional, Good, OK) into the target
/// arrays. Commas and line ends separate the fields alike. A "." in a time becomes ":". Throws
/// RunTimeError(InputPastEnd) when there are fewer than 275 fields; those read have then been stored.
void parseTargets(std::string_view text, ResultsState& state);

/// Whether a text holds 55 records that begin with a time: what a page without times gives does not. Fields
/// count as parseTargets counts them. Players' own files have "." for ":", minutes of one or more digits,
/// totals in hours, and grades left empty.
[[nodiscard]] bool holdsAllTargets(std::string_view text);

/// Where the targets of all users lie.
[[nodiscard]] std::filesystem::path targetsFile(const std::filesystem::path& programFolder);

/// Fills the target arrays from the file. Returns false, with the arrays as they were, when it is missing.
[[nodiscard]] bool LoadTargets(const std::filesystem::path& programFolder, ResultsState& state);

}  // namespace kavo
