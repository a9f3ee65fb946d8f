// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/progress.h"

#include "tests/support/program_folder_fixture.h"
#include "tests/support/state_with_targets.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::stateWithTargets;
using test::statisticsText;

Progress compared(const std::vector<std::string>& before, const std::vector<std::string>& after)
{
    return compareTimes(parseStatisticsTimes(statisticsText(before)), parseStatisticsTimes(statisticsText(after)),
                        stateWithTargets());
}

std::vector<std::string> linesOf(const Progress& progress)
{
    std::vector<std::string> lines;
    for (const LevelChange& change : progress.changes) lines.push_back(describe(change, stateWithTargets()));
    return lines;
}

using Lines = std::vector<std::string>;

TEST(Progress, IsNoneBetweenEqualTimes)
{
    const Progress progress = compared({"00:21:05 Zoe"}, {"00:21:05 Bob"});
    EXPECT_TRUE(progress.changes.empty());
    EXPECT_EQ(progress.gain, 0);
    EXPECT_EQ(progress.totalBefore, progress.totalAfter);
}

TEST(Progress, TellsTheGradesAndTheNextGoal)
{
    EXPECT_EQ(linesOf(compared({"00:30:50 Zoe", "00:21:05 Zoe", "00:10:50 Zoe"},
                               {"00:20:83 Zoe", "00:20:88 Zoe", "00:09:88 Zoe"})),
              (Lines{"Level 1, Track: 00:30:50 → 00:20:83, Good → Professional, 0.83 s to World Class",
                     "Level 2, Track: 00:21:05 → 00:20:88, Professional, 0.88 s to World Class",
                     "Level 3, Track: 00:10:50 → 00:09:88, World Class → World Record"}));
}

TEST(Progress, CountsWhatTheTotalGains)
{
    // 1.17 s better, 2.00 s worse, 9:30 by a first time, ten minutes less half a minute lost.
    const Progress progress = compared({"00:21:05 Zoe", "00:20:00 Zoe", ""}, {"00:19:88 Zoe", "00:22:00 Zoe"});
    ASSERT_EQ(progress.changes.size(), 3U);
    EXPECT_EQ(progress.changes[0].gain, 117);
    EXPECT_EQ(progress.changes[1].gain, -200);
    EXPECT_EQ(progress.changes[2].gain, 57000);
    EXPECT_EQ(progress.gain, 56917);
    // 41.05 s, ten minutes and 51 times 30 s; then 41.88 s and 52 times 30 s.
    EXPECT_EQ(progress.totalBefore, "36:11:05");
    EXPECT_EQ(progress.totalAfter, "26:41:88");
}

TEST(Progress, SaysOfWhichKindAChangeIs)
{
    const Progress progress =
        compared({"00:21:05 Zoe", "00:20:00 Zoe", "", "00:15:00 Zoe", "00:15:00 Zoe", "ab:cd:ef Zoe", "00x15x00 Zoe"},
                 {"00:19:88 Zoe", "00:22:00 Zoe", "00:30:00 Zoe", "", "no time", "00:15:00 Zoe", "00:15:00 Zoe"});
    ASSERT_EQ(progress.changes.size(), 7U);
    const std::vector<ChangeKind> kinds = {ChangeKind::Better, ChangeKind::Worse,   ChangeKind::First,
                                           ChangeKind::Lost,   ChangeKind::Unclear, ChangeKind::Unclear,
                                           ChangeKind::Unclear};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        EXPECT_EQ(progress.changes[i].kind, kinds[i]) << i;
        EXPECT_EQ(progress.changes[i].level, static_cast<int>(i) + 1);
        EXPECT_EQ(isImprovement(progress.changes[i]), i == 0 || i == 2) << i;
    }
}

TEST(Progress, ShowsALevelWithoutATimeAsTheTableDoes)
{
    EXPECT_EQ(linesOf(compared({"", "00:09:00 Zoe"}, {"00:21:05 Zoe", ""})),
              (Lines{"Level 1, Track: SKIPPED → 00:21:05, Beginner → Professional, 1.05 s to World Class",
                     "Level 2, Track: 00:09:00 → SKIPPED, World Record → Beginner"}));
}

TEST(Progress, AddsExactlyWhereTheTotalsShownAreCut)
{
    // From ten to nine skipped levels: the table cuts both totals at a hundred minutes, the gain does not.
    std::vector<std::string> after(9);
    after.emplace_back("00:10:00 Zoe");
    const Progress progress = compared(std::vector<std::string>(10), after);
    EXPECT_EQ(progress.gain, 59000);
    EXPECT_EQ(progress.totalBefore, "32:00:00");
}

TEST(Progress, NamesLevelsAsTheLaterFileDoes)
{
    std::string later = statisticsText({"00:19:88 Zoe"});
    later.replace(later.find("Track"), 5, "Chalk");
    const Progress progress =
        compareTimes(parseStatisticsTimes(statisticsText()), parseStatisticsTimes(later), stateWithTargets());
    ASSERT_EQ(progress.changes.size(), 1U);
    EXPECT_EQ(progress.changes[0].name, "1, Chalk");
}

TEST(Progress, GradesBeginnersWithoutTargets)
{
    const Progress progress = compareTimes(parseStatisticsTimes(statisticsText()),
                                           parseStatisticsTimes(statisticsText({"00:19:88 Zoe"})), ResultsState{});
    ASSERT_EQ(progress.changes.size(), 1U);
    EXPECT_EQ(describe(progress.changes[0], ResultsState{}), "Level 1, Track: 00:30:00 → 00:19:88, Beginner");
}

}  // namespace
}  // namespace kavo
