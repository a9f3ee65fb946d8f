// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// Position (1-based, in bytes) of the first CR LF at or after the character that follows position
/// `start`; 0 when there is none.
[[nodiscard]] std::size_t nLine(std::string_view text, std::size_t start);

/// Whether a text can be a statistics file: it mentions a player and a level.
[[nodiscard]] bool isStatisticsFile(std::string_view text);

/// A second file must mention the steppes as well, which every complete file of the game does.
[[nodiscard]] bool isSecondStatisticsFile(std::string_view text);

/// A best time with its driver.
struct BestTime
{
    std::string time;    ///< first eight characters of the line
    std::string driver;  ///< from the tenth character on, trimmed; empty on a short line
};

/// Reads the levels of a game's statistics file one after the other, each by header() and then
/// bestTime(). Positions, not lines, decide what belongs to a level. Both throw
/// RunTimeError(InvalidCall) where the file ends too early.
class StatisticsReader final
{
public:
    explicit StatisticsReader(std::string_view statsText) : m_statsText(statsText) {}

    /// Moves on to the next level; returns its text for the table.
    [[nodiscard]] std::string header();

    /// The best time of that level; nothing when it has none.
    [[nodiscard]] std::optional<BestTime> bestTime() const;

private:
    std::string_view m_statsText;
    std::size_t m_scanPos = 0;  ///< of the current header, 1-based
    std::size_t m_lineEnd = 0;  ///< of the CR LF that ends it, 1-based
};

}  // namespace kavo
