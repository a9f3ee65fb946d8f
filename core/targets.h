#pragma once

#include "core/results_state.h"

#include <filesystem>
#include <string_view>

namespace kavo {

/// Reads 55 records of five times (World Record, World Class, Professional, Good, OK) into the target
/// arrays. Commas and line ends separate the fields alike. A "." in a time becomes ":". Throws
/// RunTimeError(InputPastEnd) when there are fewer than 275 fields; those read have then been stored.
void parseTargets(std::string_view text, ResultsState& state);

/// Where the targets of all users lie.
[[nodiscard]] std::filesystem::path targetsFile(const std::filesystem::path& programFolder);

/// Fills the target arrays from the file. Returns false, with the arrays as they were, when it is missing.
[[nodiscard]] bool LoadTargets(const std::filesystem::path& programFolder, ResultsState& state);

}  // namespace kavo
