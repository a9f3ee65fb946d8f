// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"
#include "insight/exact_time.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The cheapest improvements: how little is missing to a better grade. Which grade a time has is decided
/// as in the table, by comparing texts; how far it is from a target is a number. Where one of the two is
/// no time there is no number, and so no goal.
namespace kavo {

/// A better grade, and what is missing to it.
struct Goal
{
    TargetCategory grade = TargetCategory::WorldRecord;
    std::string target;
    Hundredths gap = 0;  ///< to reach the target (a time equal to it reaches it); at least 1
};

/// The goal that takes least: the slowest target of a grade better than the one that the time has. Grades
/// with the same target are reached together, so the best of them is named. Nothing for the holder of
/// the world record, for a level without a time and where the targets are missing.
[[nodiscard]] std::optional<Goal> nextGoal(const ResultsState& state, int level, std::string_view time);

/// The way to a grade that the player wants; nothing when the time has it already.
[[nodiscard]] std::optional<Goal> goalOf(const ResultsState& state, int level, std::string_view time,
                                         TargetCategory wanted);

/// How much the time is slower than the world record: negative when it is faster.
[[nodiscard]] std::optional<Hundredths> recordGap(const ResultsState& state, int level, std::string_view time);

/// A level on which a better grade can be had.
struct Improvement
{
    int level = 0;
    std::string name;  ///< as in the table: "12, Chalk Pit"
    std::string time;
    Hundredths hundredths = 0;  ///< value of the time
    TargetCategory grade = TargetCategory::Beginner;
    Goal next;
    std::optional<Hundredths> recordGap;
};

/// All that a player (not the team) can improve, the smallest gap first, then by level. Levels are taken
/// from the table as it stands: those without a time and those that a filter has blanked are left out. A
/// grade that is compared with is no player, and has nothing to improve.
[[nodiscard]] std::vector<Improvement> improvementsOf(const Session& session, Side player,
                                                      std::optional<TargetCategory> wanted = std::nullopt);

inline constexpr std::array<Hundredths, 3> kWithin = {50, 100, 200};

/// How many of them take at most so much.
[[nodiscard]] std::size_t countWithin(const std::vector<Improvement>& improvements, Hundredths gap);

/// "0.21 s to Professional"
[[nodiscard]] std::string describe(const Goal& goal);

/// "Level 12, Chalk Pit: 0.21 s to Professional"
[[nodiscard]] std::string describe(const Improvement& improvement);

}  // namespace kavo
