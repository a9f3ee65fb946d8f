// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/timeline.h"

#include "base/run_time_error.h"

#include <utility>

namespace kavo {

namespace {

std::optional<StatisticsTimes> readState(const HistoryStore& history, const RememberedState& state)
{
    try {
        const std::string text = history.read(state.name);
        if (isStatisticsFile(text)) return parseStatisticsTimes(text);
    } catch (const RunTimeError&) {
        // Not what was remembered: somebody has changed it or taken it away.
    }
    return std::nullopt;
}

/// Goes back from the latest state until there are enough of them.
std::vector<DatedImprovement> latestImprovements(const HistoryStore& history,
                                                 const std::vector<RememberedState>& states,
                                                 const ResultsState& targets)
{
    std::vector<DatedImprovement> improvements;
    std::optional<StatisticsTimes> after;
    std::time_t moment = 0;
    for (std::size_t left = states.size(); left > 0; --left) {
        const RememberedState& state = states[left - 1];
        auto before = readState(history, state);
        if (!before) continue;
        if (after) {
            for (LevelChange& change : compareTimes(*before, *after, targets).changes) {
                if (improvements.size() == kMostImprovements) return improvements;
                if (isImprovement(change)) improvements.push_back({moment, std::move(change)});
            }
        }
        after = std::move(before);
        moment = state.moment;
    }
    return improvements;
}

}  // namespace

std::vector<std::size_t> spreadPlaces(std::size_t size, std::size_t count)
{
    std::vector<std::size_t> places;
    if (size <= count || count < 2) {
        for (std::size_t place = 0; place < size; ++place) places.push_back(place);
        return places;
    }
    for (std::size_t i = 0; i < count; ++i) places.push_back(i * (size - 1) / (count - 1));
    return places;
}

TimelinePoint timelinePoint(std::time_t moment, const StatisticsTimes& times, const ResultsState& targets)
{
    TimelinePoint point;
    point.moment = moment;
    point.total = shownTotal(times);
    point.hundredths = exactTotal(times);
    for (int level = 1; level <= kLevels; ++level) {
        const std::string& time = times[level].time;
        ++point.grades[shownGrade(targets, level, time)];
        point.times.at(static_cast<std::size_t>(level) - 1) = exactTime(time);
    }
    return point;
}

Timeline timelineOf(const HistoryStore& history, const ResultsState& targets)
{
    const std::vector<RememberedState> states = history.states();
    Timeline timeline;
    timeline.states = states.size();
    for (const std::size_t place : spreadPlaces(states.size(), kMostPoints)) {
        const RememberedState& state = states.at(place);
        if (const auto times = readState(history, state))
            timeline.points.push_back(timelinePoint(state.moment, *times, targets));
    }
    timeline.improvements = latestImprovements(history, states, targets);
    return timeline;
}

}  // namespace kavo
