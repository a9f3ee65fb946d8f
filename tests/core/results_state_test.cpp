// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/results_state.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

void setTargets(ResultsState& state, int row)
{
    state.TargetWR[row] = "00:10:00";
    state.TargetWC[row] = "00:20:00";
    state.TargetPro[row] = "00:30:00";
    state.TargetGood[row] = "00:40:00";
    state.TargetOK[row] = "00:50:00";
}

TEST(Grade, IsReachedAtItsTarget)
{
    ResultsState state;
    setTargets(state, 7);
    const std::vector<std::pair<std::string, std::string>> grades = {
        {"00:09:99", "World Record"}, {"00:10:00", "World Record"}, {"00:10:01", "World Class"},
        {"00:20:00", "World Class"},  {"00:20:01", "Professional"}, {"00:30:00", "Professional"},
        {"00:30:01", "Good"},         {"00:40:00", "Good"},         {"00:40:01", "OK"},
        {"00:50:00", "OK"},           {"00:50:01", "Beginner"},     {"99:59:99", "Beginner"},
        {"SKIPPED", "Beginner"},      {"100:00:00", "Beginner"},    {"", "World Record"}};
    for (const auto& [time, grade] : grades) EXPECT_EQ(gradeReached(state, 7, time).name, grade) << time;
}

TEST(Grade, IsNeverReachedAtAnEmptyTarget)
{
    ResultsState state;
    EXPECT_EQ(gradeReached(state, 1, "00:00:00").name, "Beginner");
    setTargets(state, 1);
    state.TargetWR[1] = "";
    state.TargetWC[1] = "";
    EXPECT_EQ(gradeReached(state, 1, "00:00:01").name, "Professional");
}

TEST(Grade, OfAnEmptyTimeIsWorldRecordEvenWithoutTargets)
{
    EXPECT_EQ(gradeReached(ResultsState{}, 1, "").name, "World Record");
}

TEST(Grade, IsTheFirstWhoseTargetHolds)
{
    // Targets out of order decide in the order of the grades, not by size.
    ResultsState state;
    setTargets(state, 1);
    state.TargetWC[1] = "00:05:00";
    EXPECT_EQ(gradeReached(state, 1, "00:15:00").name, "Professional");
}

TEST(Grade, IsDecidedByTextOrder)
{
    ResultsState state;
    setTargets(state, 55);
    EXPECT_EQ(gradeReached(state, 55, "0").name, "World Record");
    EXPECT_EQ(gradeReached(state, 55, "00:1").name, "World Record");
    EXPECT_EQ(gradeReached(state, 55, "00:5").name, "OK");
    EXPECT_EQ(gradeReached(state, 55, "\xC3\xA9").name, "Beginner");
}

TEST(ResultsState, BeginsWithDesignedNamesAndWithoutCounts)
{
    const ResultsState state;
    EXPECT_EQ(state.name(Side::Player1), "Player1");
    EXPECT_EQ(state.name(Side::Player2), "Player2");
    EXPECT_EQ(state.name(Side::Team), "Team");
    for (const Side side : {Side::Player1, Side::Player2, Side::Team}) {
        EXPECT_EQ(state.victories(side), 0);
        for (const Grade& grade : grades()) EXPECT_EQ(state.counter(side, grade.category), 0) << grade.name;
    }
    EXPECT_EQ(state.DiffMin + state.DiffSec + state.DiffHun, 0);
}

TEST(Category, IsKnownByItsExactName)
{
    EXPECT_EQ(categoryNamed("World Class"), TargetCategory::WorldClass);
    EXPECT_EQ(categoryNamed("Beginner"), TargetCategory::Beginner);
    EXPECT_FALSE(categoryNamed("good").has_value());
    EXPECT_FALSE(categoryNamed("").has_value());
}

TEST(Counters, AreOnePerGradeAndSide)
{
    ResultsState state;
    std::int32_t next = 1;
    for (const Side side : {Side::Player1, Side::Player2, Side::Team})
        for (const Grade& grade : grades()) state.counter(side, grade.category) = next++;
    EXPECT_EQ(state.WR1, 1);
    EXPECT_EQ(state.WC1, 2);
    EXPECT_EQ(state.Pro1, 3);
    EXPECT_EQ(state.Good1, 4);
    EXPECT_EQ(state.OK1, 5);
    EXPECT_EQ(state.Beg1, 6);
    EXPECT_EQ(state.WR2, 7);
    EXPECT_EQ(state.Beg2, 12);
    EXPECT_EQ(state.WRT, 13);
    EXPECT_EQ(state.BegT, 18);
    state.resetCounters();
    for (const Side side : {Side::Player1, Side::Player2, Side::Team})
        for (const Grade& grade : grades()) EXPECT_EQ(state.counter(side, grade.category), 0);
}

TEST(Victories, OfTheTeamAreThoseOfBoth)
{
    ResultsState state;
    state.Victories1 = 20;
    state.Victories2 = 3;
    EXPECT_EQ(state.victories(Side::Player1), 20);
    EXPECT_EQ(state.victories(Side::Player2), 3);
    EXPECT_EQ(state.victories(Side::Team), 23);
}

TEST(PlayerNames, AreKnownBySide)
{
    ResultsState state;
    EXPECT_EQ(state.name(Side::Player1), "Player1");
    EXPECT_EQ(state.name(Side::Player2), "Player2");
    EXPECT_EQ(state.name(Side::Team), "Team");
}

TEST(LastDifference, StaysUntilTheNextOne)
{
    ResultsState state;
    state.keepDifference(TimeDifference("00:10:00", "01:11:05"));
    EXPECT_EQ(state.DiffMin, 1);
    EXPECT_EQ(state.DiffSec, 1);
    EXPECT_EQ(state.DiffHun, 5);
    EXPECT_EQ(state.DiffMinStr + state.DiffSecStr + state.DiffHunStr, "010105");
    state.keepDifference(TimeDifference("00:10:00", "00:10:00"));
    EXPECT_EQ(state.DiffHunStr, "05");
}

}  // namespace

}  // namespace kavo
