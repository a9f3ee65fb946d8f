// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kavo {

inline constexpr std::size_t kMostLinks = 10'000;  ///< read from a file; nobody scrolls farther

/// The lines of `links.txt` in turn: an address, and what is found there. Entry i of both belongs together.
struct Links
{
    std::vector<std::string> addresses;
    std::vector<std::string> descriptions;

    /// Whether the last address has no description.
    [[nodiscard]] bool endsEarly() const { return addresses.size() != descriptions.size(); }
};

/// At most kMostLinks entries.
[[nodiscard]] Links parseLinks(std::string_view text);

[[nodiscard]] std::filesystem::path linksFile(const std::filesystem::path& programFolder);

}  // namespace kavo
