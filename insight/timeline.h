// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/club.h"
#include "insight/history_store.h"
#include "insight/progress.h"

#include <array>
#include <cstddef>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

/// How the remembered results have changed from state to state.
namespace kavo {

/// A remembered state in few words.
struct TimelinePoint
{
    std::time_t moment = 0;
    std::string total;          ///< as the table shows player 1's
    Hundredths hundredths = 0;  ///< the same, exact; a level without a time counts ten minutes
    GradeCounts grades{};       ///< by the targets of today
    std::array<std::optional<Hundredths>, kLevels> times{};  ///< level n at n - 1; none without a time
};

/// A better time on a level, and the state that has brought it.
struct DatedImprovement
{
    std::time_t moment = 0;
    LevelChange change;
};

struct Timeline
{
    std::size_t states = 0;                      ///< remembered; more than there are points when they are many
    std::vector<TimelinePoint> points;           ///< oldest first
    std::vector<DatedImprovement> improvements;  ///< the latest ones, newest first, of a state by level
};

inline constexpr std::size_t kMostPoints = 100;
inline constexpr std::size_t kMostImprovements = 10;

/// `count` of `size` places (0-based), evenly spread, the first and the last among them; all of them when they are
/// no more.
[[nodiscard]] std::vector<std::size_t> spreadPlaces(std::size_t size, std::size_t count);

[[nodiscard]] TimelinePoint timelinePoint(std::time_t moment, const StatisticsTimes& times,
                                          const ResultsState& targets);

/// Of a history however long, only as many states are read as are shown. Files that are no whole statistics files
/// any more are passed over.
[[nodiscard]] Timeline timelineOf(const HistoryStore& history, const ResultsState& targets);

}  // namespace kavo
