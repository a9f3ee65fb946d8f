// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/level_time.h"
#include "core/levels.h"
#include "core/results_state.h"
#include "core/statistics_file.h"
#include "insight/exact_time.h"

#include <string>
#include <string_view>

/// What a statistics file holds of one player, without a table around it: where hundreds of files are
/// compared, only the best times count. Bug-times belong to a user's table, not to a file.
namespace kavo {

/// A level as the file has it.
struct LevelRecord
{
    std::string name;            ///< as in the table: "12, Chalk Pit"
    std::string time{kSkipped};  ///< as in the table; "SKIPPED" without one
    std::string driver;          ///< empty without a time or a name
};

using StatisticsTimes = OneBased<LevelRecord, kLevels>;

/// Reads the levels as a loading reads player 1's. Throws RunTimeError(InvalidCall) where the file ends
/// too early. Whether the text is a statistics file at all is isStatisticsFile's to say.
[[nodiscard]] StatisticsTimes parseStatisticsTimes(std::string_view text);

/// Whether a loading of the text would go through to its end.
[[nodiscard]] bool isWholeStatisticsFile(std::string_view text);

/// The driver of the first time; empty without one.
[[nodiscard]] std::string_view playerOf(const StatisticsTimes& times);

/// The grade that the table shows for such a time.
[[nodiscard]] TargetCategory shownGrade(const ResultsState& targets, int level, std::string_view time);

/// Player 1's total as the table shows it, with its hours and its peculiarities above a hundred minutes.
[[nodiscard]] std::string shownTotal(const StatisticsTimes& times);

/// The same sum, exact: a skipped level counts ten minutes.
[[nodiscard]] Hundredths exactTotal(const StatisticsTimes& times);

}  // namespace kavo
