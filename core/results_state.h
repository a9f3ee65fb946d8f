// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"
#include "core/level_time.h"
#include "core/levels.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// Grades, best first. There is no target for Beginner: everything slower than OK is one.
enum class TargetCategory { WorldRecord, WorldClass, Professional, Good, OK, Beginner };

inline constexpr int kCategories = 6;

/// A value for each grade, best first.
template <typename T>
struct ByGrade
{
    std::array<T, kCategories> values{};

    [[nodiscard]] const T& operator[](TargetCategory grade) const { return values.at(static_cast<std::size_t>(grade)); }
    [[nodiscard]] T& operator[](TargetCategory grade) { return values.at(static_cast<std::size_t>(grade)); }

    bool operator==(const ByGrade&) const = default;
};

using TargetTimes = OneBased<std::string, kTotalsRow>;

/// Player 1, player 2 and the team that the two form.
enum class Side { Player1, Player2, Team };

/// What all windows share: the names, targets and counts of one loading. Only the loading writes it; it
/// lives as long as the program, so that targets outlast a loading that finds no targets file.
struct ResultsState
{
    std::string Player1Name{"Player1"};
    std::string Player2Name{"Player2"};  ///< the category's name when comparing with targets
    std::string TeamName{"Team"};
    std::int16_t Victories1 = 0;  ///< levels on which player 1 is the faster
    std::int16_t Victories2 = 0;
    double DiffMin = 0;  ///< parts of the last difference
    std::string DiffMinStr;
    TargetTimes TargetWC;
    double DiffSec = 0;
    std::string DiffSecStr;
    TargetTimes TargetPro;
    double DiffHun = 0;
    std::string DiffHunStr;
    TargetTimes TargetGood;
    TargetTimes TargetOK;
    TargetTimes TargetWR;
    std::int32_t WC1 = 0, Pro1 = 0, Good1 = 0, OK1 = 0, Beg1 = 0, WR1 = 0;  ///< levels per grade
    std::int32_t WCT = 0, ProT = 0, GoodT = 0, OKT = 0, BegT = 0, WRT = 0;
    std::int32_t WC2 = 0, Pro2 = 0, Good2 = 0, OK2 = 0, Beg2 = 0, WR2 = 0;

    [[nodiscard]] const std::string& name(Side side) const;
    [[nodiscard]] std::int32_t counter(Side side, TargetCategory category) const;
    [[nodiscard]] std::int32_t& counter(Side side, TargetCategory category);

    /// Of a player, or of both together for the team.
    [[nodiscard]] std::int16_t victories(Side side) const;

    void resetCounters();
    void keepDifference(const Difference& difference);
};

/// All that belongs to a grade. Beginner has neither targets nor a colour.
struct Grade
{
    TargetCategory category;
    std::string_view name;
    TargetTimes ResultsState::*targets;
    Colour ColourSet::*colour;
    std::array<std::int32_t ResultsState::*, 3> counters;  ///< by Side
};

/// The six grades, best first.
[[nodiscard]] const std::array<Grade, kCategories>& grades();
[[nodiscard]] const Grade& gradeOf(TargetCategory category);

/// The category of that name (exact spelling), if there is one.
[[nodiscard]] std::optional<TargetCategory> categoryNamed(std::string_view name);

/// The grade that a time reaches on a row (1 to 55): the best whose target is not before it in text
/// order. An empty time reaches every target, also an empty one.
[[nodiscard]] const Grade& gradeReached(const ResultsState& state, int row, std::string_view time);

}  // namespace kavo
