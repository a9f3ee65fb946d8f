// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/progress.h"

#include "core/level_time.h"
#include "insight/next_grades.h"

namespace kavo {

namespace {

constexpr std::string_view kArrow = " → ";

ChangeKind kindOf(std::string_view before, std::string_view after)
{
    const auto valueBefore = exactTime(before);
    const auto valueAfter = exactTime(after);
    if (before == kSkipped && valueAfter) return ChangeKind::First;
    if (after == kSkipped && valueBefore) return ChangeKind::Lost;
    if (!valueBefore || !valueAfter || *valueBefore == *valueAfter) return ChangeKind::Unclear;
    return *valueAfter < *valueBefore ? ChangeKind::Better : ChangeKind::Worse;
}

LevelChange changeOn(int level, const LevelRecord& before, const LevelRecord& after, const ResultsState& targets)
{
    return {.level = level,
            .name = after.name,
            .before = before.time,
            .after = after.time,
            .gradeBefore = shownGrade(targets, level, before.time),
            .gradeAfter = shownGrade(targets, level, after.time),
            .kind = kindOf(before.time, after.time),
            .gain = countedHundredths(before.time) - countedHundredths(after.time)};
}

}  // namespace

Progress compareTimes(const StatisticsTimes& before, const StatisticsTimes& after, const ResultsState& targets)
{
    Progress progress;
    for (int level = 1; level <= kLevels; ++level)
        if (before[level].time != after[level].time)
            progress.changes.push_back(changeOn(level, before[level], after[level], targets));
    progress.totalBefore = shownTotal(before);
    progress.totalAfter = shownTotal(after);
    progress.gain = exactTotal(before) - exactTotal(after);
    return progress;
}

std::string_view nameOf(ChangeKind kind)
{
    switch (kind) {
    case ChangeKind::Better: return "better";
    case ChangeKind::Worse: return "worse";
    case ChangeKind::First: return "first";
    case ChangeKind::Lost: return "lost";
    case ChangeKind::Unclear: return "unclear";
    }
    return {};
}

bool isImprovement(const LevelChange& change)
{
    return change.kind == ChangeKind::Better || change.kind == ChangeKind::First;
}

std::string describe(const LevelChange& change, const ResultsState& targets)
{
    std::string text = "Level " + change.name + ": " + change.before;
    text.append(kArrow).append(change.after).append(", ");
    if (change.gradeBefore != change.gradeAfter) text.append(gradeOf(change.gradeBefore).name).append(kArrow);
    text.append(gradeOf(change.gradeAfter).name);
    if (const auto goal = nextGoal(targets, change.level, change.after)) text.append(", ").append(describe(*goal));
    return text;
}

}  // namespace kavo
