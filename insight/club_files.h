// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/club.h"

#include <filesystem>
#include <string>
#include <vector>

namespace kavo {

/// A file that is not in the table, and why.
struct UnreadableFile
{
    std::string file;
    std::string reason;
    std::string inFull;  ///< the reason with the whole path and what the system says
};

struct ClubReading
{
    ClubPart part;
    std::vector<UnreadableFile> unreadable;  ///< by name
};

/// The statistics files at the places: a file is itself, a folder the files in it, without those in its own
/// folders and those whose name begins with a dot. In no particular order; a place that is not there
/// stands for itself.
[[nodiscard]] std::vector<std::filesystem::path> clubFiles(const std::vector<std::filesystem::path>& places);

/// Reads the files on several threads. The result does not depend on them, nor on the order of the files.
[[nodiscard]] ClubReading readClub(const std::vector<std::filesystem::path>& files, const ResultsState& targets);

}  // namespace kavo
