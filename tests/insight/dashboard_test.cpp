// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/dashboard.h"

#include "tests/support/loaded_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kavo {
namespace {

using test::LoadedFolder;
using test::statisticsText;

/// Bob, with targets of 10, 20, 30, 40 and 50 s: the record on level 1, a tie on level 2, no time on level 3, and
/// half a minute against Ann's on all others.
class DashboardOf : public testing::Test
{
protected:
    Dashboard load(int method, std::string_view category = "", std::string_view compared = "other.txt")
    {
        bob.writeAll(method, category);
        bob.folder.write("stats.txt", statisticsText({"00:10:00 Bob", "00:15:00 Bob", ""}));
        bob.folder.write("other.txt", statisticsText({"00:50:50 Ann", "00:15:00 Ann", "00:40:00 Ann", "00:29:00 Ann"}));
        bob.folder.write("bob/data.ini", "stats.txt\r\n " + std::to_string(method) + " \r\n" + std::string(compared) +
                                             "\r\n" + std::string(category) + "\r\n 8 \r\n");
        bob.run();
        EXPECT_EQ(bob.result.end, LoadingEnd::Completed);
        return dashboardOf(bob.session, {}, 42);
    }

    LoadedFolder bob;
};

TEST_F(DashboardOf, TwoPlayersHasWhatTheTableShows)
{
    const Dashboard dashboard = load(2);
    EXPECT_EQ(dashboard.now, 42);
    EXPECT_EQ(dashboard.user, "bob");
    EXPECT_EQ(dashboard.rival, Rival::Player);
    const auto& [first, second, team] = dashboard.sides;
    EXPECT_EQ(first.name, "Bob");
    EXPECT_EQ(second.name, "Ann");
    // Bob: 10 + 15 + 600 + 51 x 30 s. Ann: 50.50 + 15 + 40 + 29 + 50 x 30 s. Team: 10 + 15 + 40 + 29 + 50 x 30 s.
    EXPECT_EQ(first.total, "35:55:00");
    EXPECT_EQ(second.total, "27:14:50");
    EXPECT_EQ(team.total, "26:34:00");
    EXPECT_EQ(first.grades, (GradeCounts{1, 1, 51, 0, 0, 1}));
    EXPECT_EQ(second.grades, (GradeCounts{0, 1, 51, 1, 0, 1}));
    EXPECT_EQ(first.victories, bob.session.state.Victories1);
    EXPECT_EQ(first.next.size(), 52U);
    EXPECT_TRUE(team.next.empty());
}

TEST_F(DashboardOf, EveryLevelHasItsTimesAndWhoIsAhead)
{
    const Dashboard dashboard = load(2);
    ASSERT_EQ(dashboard.levels.size(), 54U);
    const DashboardLevel& first = dashboard.levels.at(0);
    EXPECT_EQ(first.name, "1, Track");
    EXPECT_EQ(first.players[0].time, "00:10:00");
    EXPECT_EQ(first.players[0].grade, "World Record");
    EXPECT_EQ(first.players[1].grade, "Beginner");
    EXPECT_EQ(first.difference, "00:40:50");
    EXPECT_EQ(first.ahead, Faster::First);
    EXPECT_EQ(first.next, std::nullopt);
    EXPECT_EQ(dashboard.levels.at(1).ahead, Faster::Neither);
    EXPECT_EQ(dashboard.levels.at(1).difference, "No change");
    EXPECT_EQ(dashboard.levels.at(2).players[0].time, "SKIPPED");
    EXPECT_EQ(dashboard.levels.at(3).ahead, Faster::Second);
    EXPECT_EQ(dashboard.levels.at(3).next->gap, 1000);
    EXPECT_EQ(first.scale, (TimeScale{5000, 4000, 3000, 2000, 1000}));
}

TEST_F(DashboardOf, TargetsHaveNothingToImprove)
{
    const Dashboard dashboard = load(3, "Good", "");
    EXPECT_EQ(dashboard.rival, Rival::Targets);
    EXPECT_EQ(dashboard.sides[1].name, "Good");
    EXPECT_TRUE(dashboard.sides[1].next.empty());
    EXPECT_EQ(dashboard.levels.at(0).players[1].time, "00:40:00");
}

TEST_F(DashboardOf, OnePlayerHasATotalAllTheSame)
{
    const Dashboard dashboard = load(2, "", "nobody.txt");
    EXPECT_EQ(dashboard.rival, Rival::None);
    EXPECT_EQ(dashboard.sides[0].total, "35:55:00");
}

TEST_F(DashboardOf, TotalsAboveAHundredMinutesAreThoseOfTheTable)
{
    static_cast<void>(load(2));
    bob.folder.write("stats.txt", statisticsText(std::vector<std::string>(10)));
    bob.run();
    const Dashboard dashboard = dashboardOf(bob.session, {}, 42);
    // Ten times ten minutes and 44 half minutes, of which the table shows the last 32 minutes.
    EXPECT_EQ(dashboard.sides[0].total, "32:00:00");
    EXPECT_EQ(dashboard.sides[0].grades, (GradeCounts{0, 0, 44, 0, 0, 10}));
    EXPECT_EQ(dashboard.sides[0].next.size(), 44U);
}

TEST_F(DashboardOf, ResultsWithoutTargetsHasNeitherGoalsNorScales)
{
    static_cast<void>(load(2));
    std::filesystem::remove(bob.folder / "targets.txt");
    bob.session = Session();  // which would keep the targets that it has read
    bob.session.programFolder = bob.folder.path();
    bob.run();
    ASSERT_EQ(bob.result.end, LoadingEnd::Completed);
    const Dashboard dashboard = dashboardOf(bob.session, {}, 42);
    EXPECT_EQ(dashboard.sides[0].total, "35:55:00");
    EXPECT_EQ(dashboard.sides[0].grades, (GradeCounts{0, 0, 0, 0, 0, 54}));
    EXPECT_TRUE(dashboard.sides[0].next.empty());
    for (const DashboardLevel& level : dashboard.levels) {
        EXPECT_EQ(level.players[0].grade, "Beginner");
        EXPECT_EQ(level.scale, std::nullopt);
        EXPECT_EQ(level.next, std::nullopt);
    }
}

}  // namespace
}  // namespace kavo
