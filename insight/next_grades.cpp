// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/next_grades.h"

#include "base/text.h"

#include <algorithm>
#include <tuple>

namespace kavo {

namespace {

std::optional<Goal> goalAt(const ResultsState& state, int level, Hundredths value, const Grade& grade)
{
    const std::string& target = (state.*grade.targets)[level];
    const auto targetValue = exactTime(target);
    if (!targetValue || *targetValue >= value) return std::nullopt;
    return Goal{grade.category, target, value - *targetValue};
}

bool isBetter(TargetCategory one, TargetCategory other)
{
    return static_cast<int>(one) < static_cast<int>(other);
}

/// The columns of a player's levels.
Column timeColumn(Side player)
{
    return player == Side::Player1 ? Column::Time1 : Column::Time2;
}

bool isDriver(const Session& session, Side player)
{
    return player == Side::Player1 || trimBlanks(session.CompPath) != kCompareWithTargets;
}

std::optional<Improvement> improvementOn(const Session& session, int level, Side player,
                                         std::optional<TargetCategory> wanted)
{
    const ResultsState& state = session.state;
    const std::string& time = session.table.text(level, timeColumn(player));
    auto goal = wanted ? goalOf(state, level, time, *wanted) : nextGoal(state, level, time);
    if (!goal) return std::nullopt;
    return Improvement{.level = level,
                       .name = session.table.text(level, Column::Level),
                       .time = time,
                       .hundredths = exactTime(time).value_or(0),
                       .grade = gradeReached(state, level, time).category,
                       .next = *std::move(goal),
                       .recordGap = recordGap(state, level, time)};
}

}  // namespace

std::optional<Goal> goalOf(const ResultsState& state, int level, std::string_view time, TargetCategory wanted)
{
    const auto value = exactTime(time);
    if (!value || !isBetter(wanted, gradeReached(state, level, time).category)) return std::nullopt;
    return goalAt(state, level, *value, gradeOf(wanted));
}

std::optional<Goal> nextGoal(const ResultsState& state, int level, std::string_view time)
{
    std::optional<Goal> nearest;
    // From the best grade on, so that of two with the same target the better one stays.
    for (const Grade& grade : grades()) {
        auto goal = goalOf(state, level, time, grade.category);
        if (goal && (!nearest || goal->gap < nearest->gap)) nearest = std::move(goal);
    }
    return nearest;
}

std::optional<Hundredths> recordGap(const ResultsState& state, int level, std::string_view time)
{
    const auto value = exactTime(time);
    const auto record = exactTime(state.TargetWR[level]);
    if (!value || !record) return std::nullopt;
    return *value - *record;
}

std::vector<Improvement> improvementsOf(const Session& session, Side player, std::optional<TargetCategory> wanted)
{
    std::vector<Improvement> improvements;
    if (!isDriver(session, player)) return improvements;
    for (int level = 1; level <= kLevels; ++level)
        if (auto improvement = improvementOn(session, level, player, wanted))
            improvements.push_back(*std::move(improvement));
    const auto place = [](const Improvement& one) { return std::tuple(one.next.gap, one.level); };
    std::sort(improvements.begin(), improvements.end(),
              [&](const Improvement& a, const Improvement& b) { return place(a) < place(b); });
    return improvements;
}

std::size_t countWithin(const std::vector<Improvement>& improvements, Hundredths gap)
{
    return static_cast<std::size_t>(std::count_if(improvements.begin(), improvements.end(),
                                                  [gap](const Improvement& one) { return one.next.gap <= gap; }));
}

std::string describe(const Goal& goal)
{
    return secondsText(goal.gap) + " s to " + std::string(gradeOf(goal.grade).name);
}

std::string describe(const Improvement& improvement)
{
    return "Level " + improvement.name + ": " + describe(improvement.next);
}

}  // namespace kavo
