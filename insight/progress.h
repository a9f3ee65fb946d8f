// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"
#include "insight/statistics_times.h"

#include <string>
#include <string_view>
#include <vector>

/// What has become better, or worse, from one statistics file to a later one.
namespace kavo {

enum class ChangeKind {
    Better,
    Worse,
    First,    ///< driven for the first time
    Lost,     ///< the time is gone
    Unclear,  ///< at least one of the two texts is no time
};

/// A level whose time has changed. Grades are those of the targets given.
struct LevelChange
{
    int level = 0;
    std::string name;    ///< as in the later file
    std::string before;  ///< "SKIPPED" without a time
    std::string after;
    TargetCategory gradeBefore = TargetCategory::Beginner;
    TargetCategory gradeAfter = TargetCategory::Beginner;
    ChangeKind kind = ChangeKind::Unclear;
    Hundredths gain = 0;  ///< by how much the total has become smaller; a level without a time counts ten minutes
};

struct Progress
{
    std::vector<LevelChange> changes;  ///< in the order of the levels
    std::string totalBefore;           ///< as the table shows player 1's total
    std::string totalAfter;
    Hundredths gain = 0;  ///< over all levels; exact, also where the totals shown are not
};

[[nodiscard]] Progress compareTimes(const StatisticsTimes& before, const StatisticsTimes& after,
                                    const ResultsState& targets);

/// "better", "worse", "first", "lost" or "unclear"
[[nodiscard]] std::string_view nameOf(ChangeKind kind);

/// Whether the level has got a better time, or its first one.
[[nodiscard]] bool isImprovement(const LevelChange& change);

/// "Level 7, Stepping Stones: 00:21:05 → 00:19:88, Good → Professional, 0.83 s to World Class": the grade once
/// where it has stayed, and the next goal where there is one.
[[nodiscard]] std::string describe(const LevelChange& change, const ResultsState& targets);

}  // namespace kavo
