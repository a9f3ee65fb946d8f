// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace kavo {

/// What is known of a file without reading it. A file with other values is another file.
struct FileMark
{
    std::uintmax_t size = 0;
    std::int64_t modified = 0;  ///< in the system's own count

    bool operator==(const FileMark&) const = default;
};

/// The mark of an ordinary file; nothing for whatever else stands there, links included. Asks the system once:
/// there may be thousands of files.
[[nodiscard]] std::optional<FileMark> markOf(const std::filesystem::path& file);

}  // namespace kavo
