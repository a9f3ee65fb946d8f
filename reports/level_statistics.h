// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"
#include "core/session.h"

#include <array>
#include <string>
#include <string_view>

/// One level as seven bars: its five target times, best first, and the two players' times.
namespace kavo {

inline constexpr int kLevelBars = 7;
inline constexpr int kPlayer1Bar = 5;
inline constexpr int kPlayer2Bar = 6;

/// A time in hundredths of a second, as text; "0" for what is no time.
[[nodiscard]] std::string MilSec(std::string_view time);

/// The time that fills a bar completely on a level (1 to 55, 55 being the whole set).
[[nodiscard]] std::string MaxTime(const Session& session, int level);

/// What a bar is called: the grade or the player.
[[nodiscard]] std::string barName(const ResultsState& state, int bar);

struct LevelBar
{
    std::string time;
    int length = 0;  ///< 0 to LevelBars::maximum
};

struct LevelBars
{
    int maximum = 1;  ///< never 0: that would make busy indicators of the bars
    std::array<LevelBar, kLevelBars> bars;
};

[[nodiscard]] LevelBars barsOfLevel(const Session& session, int level);

/// A level's name as the list of levels shows it: without its last character, whatever that is.
[[nodiscard]] std::string listedLevelName(std::string_view levelText);

/// Where each bar stands. The places outlast the level that is shown: the next one is sorted from them.
class BarPlaces final
{
public:
    /// Place from the top, 0-based.
    [[nodiscard]] int of(int bar) const { return m_places.at(static_cast<std::size_t>(bar)); }

    /// Two bars change places.
    void SwapTop(int a, int b);

    /// Sorts the bars by the texts of their times, the smallest on top.
    void AutoSwap(const LevelBars& level);

private:
    std::array<int, kLevelBars> m_places = {0, 1, 2, 3, 4, 5, 6};
};

}  // namespace kavo
