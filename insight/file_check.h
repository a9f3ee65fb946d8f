// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/finding.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace kavo {

/// What the program does with a file.
enum class FileUse { Read, Rewritten };

/// What stands where a file is expected.
struct FileLook
{
    bool isMissing = false;
    std::optional<std::string> content;  ///< nothing when it is missing or cannot be read
    Findings findings;
};

/// Looks at a file without changing anything: something else in its place, missing rights, another file of
/// the same name but for capital letters. A missing file is no finding by itself.
[[nodiscard]] FileLook lookAt(const std::filesystem::path& file, FileUse use);

/// A folder in which files are made and replaced.
[[nodiscard]] Findings checkFolder(const std::filesystem::path& folder);

/// Whether files can still be written where `available` bytes are left.
[[nodiscard]] Findings checkSpace(const std::filesystem::path& folder, std::uintmax_t available);

}  // namespace kavo
