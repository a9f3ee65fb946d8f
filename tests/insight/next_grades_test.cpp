// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/next_grades.h"

#include "core/filters.h"
#include "tests/support/loaded_folder.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::LoadedFolder;
using test::statisticsText;

/// Targets of level 1: 10, 20, 30, 40 and 50 seconds unless a test changes them.
ResultsState targets()
{
    ResultsState state;
    state.TargetWR[1] = "00:10:00";
    state.TargetWC[1] = "00:20:00";
    state.TargetPro[1] = "00:30:00";
    state.TargetGood[1] = "00:40:00";
    state.TargetOK[1] = "00:50:00";
    return state;
}

std::string nextOf(const ResultsState& state, std::string_view time)
{
    const auto goal = nextGoal(state, 1, time);
    return goal ? describe(*goal) + " (" + goal->target + ")" : "none";
}

TEST(NextGoal, IsTheSlowestTargetThatTheTimeDoesNotReach)
{
    EXPECT_EQ(nextOf(targets(), "01:00:21"), "10.21 s to OK (00:50:00)");
    EXPECT_EQ(nextOf(targets(), "00:50:01"), "0.01 s to OK (00:50:00)");
    EXPECT_EQ(nextOf(targets(), "00:30:21"), "0.21 s to Professional (00:30:00)");
    EXPECT_EQ(nextOf(targets(), "00:10:83"), "0.83 s to World Record (00:10:00)");
}

TEST(NextGoal, IsBeyondATargetThatTheTimeEquals)
{
    EXPECT_EQ(nextOf(targets(), "00:50:00"), "10.00 s to Good (00:40:00)");
    EXPECT_EQ(nextOf(targets(), "00:20:00"), "10.00 s to World Record (00:10:00)");
}

TEST(NextGoal, IsNoneForTheHolderOfTheRecord)
{
    EXPECT_EQ(nextOf(targets(), "00:10:00"), "none");
    EXPECT_EQ(nextOf(targets(), "00:09:99"), "none");
}

TEST(NextGoal, IsNoneWithoutATimeOrTargets)
{
    EXPECT_EQ(nextOf(targets(), "SKIPPED"), "none");
    EXPECT_EQ(nextOf(targets(), ""), "none");
    EXPECT_EQ(nextOf(ResultsState{}, "00:30:00"), "none");
}

TEST(NextGoal, PassesOverTargetsThatAreNoTimes)
{
    ResultsState state = targets();
    state.TargetOK[1] = "";
    state.TargetGood[1] = "-";
    EXPECT_EQ(nextOf(state, "01:00:00"), "30.00 s to Professional (00:30:00)");
}

TEST(NextGoal, NamesTheBestOfGradesWithOneTarget)
{
    ResultsState state = targets();
    state.TargetWC[1] = "00:30:00";
    EXPECT_EQ(nextOf(state, "00:31:00"), "1.00 s to World Class (00:30:00)");
}

TEST(NextGoal, TakesTheNearestTargetWhereTheyAreOutOfOrder)
{
    ResultsState state = targets();
    state.TargetPro[1] = "00:55:00";  // slower than OK: who drives it is Professional at once
    EXPECT_EQ(nextOf(state, "01:00:00"), "5.00 s to Professional (00:55:00)");
    state.TargetGood[1] = "00:15:00";  // no way down from Professional
    EXPECT_EQ(nextOf(state, "00:54:00"), "34.00 s to World Class (00:20:00)");
}

TEST(NextGoal, TakesATimeWithOtherSeparatorsAtItsValue)
{
    // As a text it is before every target of that minute, so it has the grade of the minute before: the record.
    EXPECT_EQ(nextOf(targets(), "00.45.00"), "none");
    EXPECT_EQ(nextOf(targets(), "00x45x00"), "5.00 s to Good (00:40:00)");
}

TEST(NextGoal, IsNoneWhereTextOrderAndValueDisagree)
{
    // Behind all targets as a text, before all of them as a number.
    EXPECT_EQ(nextOf(targets(), "00x05x00"), "none");
    // No times at all.
    EXPECT_EQ(nextOf(targets(), "xx:yy:zz"), "none");
    EXPECT_EQ(nextOf(targets(), "1:00:00"), "none");
}

TEST(NextGoal, KnowsTimesUpToAHundredMinutes)
{
    ResultsState state = targets();
    state.TargetOK[1] = "99:59:98";
    EXPECT_EQ(nextOf(state, "99:59:99"), "0.01 s to OK (99:59:98)");
}

TEST(GoalOf, LeadsToTheGradeWanted)
{
    const auto goal = goalOf(targets(), 1, "00:45:00", TargetCategory::WorldClass);
    ASSERT_TRUE(goal);
    EXPECT_EQ(describe(*goal), "25.00 s to World Class");
    EXPECT_FALSE(goalOf(targets(), 1, "00:45:00", TargetCategory::OK));
    EXPECT_FALSE(goalOf(targets(), 1, "00:20:00", TargetCategory::WorldClass));
    EXPECT_FALSE(goalOf(targets(), 1, "01:45:00", TargetCategory::Beginner));
}

TEST(RecordGap, IsNegativeForAFasterTime)
{
    EXPECT_EQ(recordGap(targets(), 1, "00:10:83"), 83);
    EXPECT_EQ(recordGap(targets(), 1, "00:10:00"), 0);
    EXPECT_EQ(recordGap(targets(), 1, "00:09:00"), -100);
    EXPECT_EQ(recordGap(targets(), 1, "SKIPPED"), std::nullopt);
    EXPECT_EQ(recordGap(ResultsState{}, 1, "00:09:00"), std::nullopt);
}

/// Bob compares with Alice. His first levels: 0.50 to OK, 0.21 to Professional, none driven, the record, and
/// two ties of 2.00 to World Class; on all other levels 0.01 is missing to Good.
class NextGrades : public ::testing::Test
{
protected:
    NextGrades()
    {
        folder.writeAll();
        std::vector<std::string> times = {"00:50:50 Bob", "00:30:21 Bob", "",
                                          "00:10:00 Bob", "00:22:00 Bob", "00:22:00 Bob"};
        times.resize(kLevels, "00:40:01 Bob");
        folder.folder.write("stats.txt", statisticsText(times));
        folder.folder.write("other.txt", statisticsText({"00:55:00 Alice", "", "00:12:34 Alice"}));
    }

    std::vector<Improvement> load(Side player, std::optional<TargetCategory> wanted = std::nullopt)
    {
        folder.run();
        return improvementsOf(folder.session, player, wanted);
    }

    LoadedFolder folder;
};

TEST_F(NextGrades, StandInTheOrderOfTheirGapsAndThenOfTheLevels)
{
    const auto rows = load(Side::Player1);
    ASSERT_EQ(rows.size(), 52U);  // neither the level without a time nor the record
    EXPECT_EQ(describe(rows[0]), "Level 7, Track: 0.01 s to Good");
    EXPECT_EQ(describe(rows[1]), "Level 8, Steppes: 0.01 s to Good");
    EXPECT_EQ(describe(rows[47]), "Level 54, Track: 0.01 s to Good");
    EXPECT_EQ(describe(rows[48]), "Level 2, Track: 0.21 s to Professional");
    EXPECT_EQ(describe(rows[49]), "Level 1, Track: 0.50 s to OK");
    EXPECT_EQ(describe(rows[50]), "Level 5, Track: 2.00 s to World Class");
    EXPECT_EQ(describe(rows[51]), "Level 6, Track: 2.00 s to World Class");
}

TEST_F(NextGrades, HoldWhatTheTableSaysAndTheGaps)
{
    const Improvement row = load(Side::Player1).at(48);
    EXPECT_EQ(row.level, 2);
    EXPECT_EQ(row.name, "2, Track");
    EXPECT_EQ(row.time, "00:30:21");
    EXPECT_EQ(row.hundredths, 3021);
    EXPECT_EQ(row.grade, TargetCategory::Good);
    EXPECT_EQ(row.next.grade, TargetCategory::Professional);
    EXPECT_EQ(row.next.target, "00:30:00");
    EXPECT_EQ(row.next.gap, 21);
    EXPECT_EQ(row.recordGap, 2021);
}

TEST_F(NextGrades, AreCountedByHowLittleIsMissing)
{
    const auto rows = load(Side::Player1);
    EXPECT_EQ(countWithin(rows, 50), 50U);
    EXPECT_EQ(countWithin(rows, 49), 49U);
    EXPECT_EQ(countWithin(rows, 100), 50U);
    EXPECT_EQ(countWithin(rows, 200), 52U);
}

TEST_F(NextGrades, LeadToTheGradeWanted)
{
    const auto rows = load(Side::Player1, TargetCategory::WorldClass);
    ASSERT_EQ(rows.size(), 52U);
    EXPECT_EQ(describe(rows[0]), "Level 5, Track: 2.00 s to World Class");
    EXPECT_EQ(describe(rows[2]), "Level 2, Track: 10.21 s to World Class");
    EXPECT_EQ(describe(rows[51]), "Level 1, Track: 30.50 s to World Class");
    EXPECT_EQ(load(Side::Player1, TargetCategory::OK).size(), 1U);
    EXPECT_TRUE(load(Side::Player1, TargetCategory::Beginner).empty());
}

TEST_F(NextGrades, OfTheSecondPlayerComeFromTheSecondColumn)
{
    const auto rows = load(Side::Player2);
    ASSERT_EQ(rows.size(), 53U);
    EXPECT_EQ(describe(rows[0]), "Level 3, Track: 2.34 s to World Record");
    EXPECT_EQ(describe(rows[1]), "Level 1, Track: 5.00 s to OK");
    EXPECT_EQ(describe(rows[2]), "Level 4, Track: 10.00 s to World Class");
}

TEST_F(NextGrades, AreNoneForAGradeThatIsComparedWith)
{
    folder.writeAll(3, "Good");
    EXPECT_TRUE(load(Side::Player2).empty());
    EXPECT_FALSE(load(Side::Player1).empty());
}

TEST_F(NextGrades, AreNoneWithoutASecondFile)
{
    std::filesystem::remove(folder.folder / "other.txt");
    EXPECT_TRUE(load(Side::Player2).empty());
    EXPECT_EQ(load(Side::Player1).size(), 52U);
}

TEST_F(NextGrades, AreNoneWithoutTargets)
{
    std::filesystem::remove(folder.folder / "targets.txt");
    EXPECT_TRUE(load(Side::Player1).empty());
}

TEST_F(NextGrades, TakeBugTimesAsTheTableDoes)
{
    folder.folder.write("bob/bugs.dat", "Player1\r\n03, 00:10:50\r\n02, ab:cd:ef\r\nPlayer2\r\n");
    const auto rows = load(Side::Player1);
    ASSERT_EQ(rows.size(), 52U);  // level 3 has come in, level 2 has gone out
    EXPECT_EQ(describe(rows[48]), "Level 1, Track: 0.50 s to OK");
    EXPECT_EQ(describe(rows[49]), "Level 3, Track: 0.50 s to World Record");
}

TEST_F(NextGrades, LeaveOutWhatAFilterHasBlanked)
{
    folder.run();
    filterByGrade(folder.session.table, FilterSide::Player1, "Good");
    const auto rows = improvementsOf(folder.session, Side::Player1);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].level, 2);
}

TEST_F(NextGrades, AreThoseOfTheRowsThatAShortTableHas)
{
    folder.folder.write("other.txt", "nothing of use");
    const auto rows = load(Side::Player1);  // the loading has ended with "Wrong file!"
    EXPECT_EQ(rows.size(), 52U);
    EXPECT_TRUE(improvementsOf(Session{}, Side::Player1).empty());
}

}  // namespace
}  // namespace kavo
