// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/timeline.h"

#include "insight/state_name.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/state_with_targets.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::stateWithTargets;
using test::statisticsText;
using test::TemporaryFolder;

TEST(SpreadPlaces, AreAllOfAFew)
{
    EXPECT_EQ(spreadPlaces(0, 3), (std::vector<std::size_t>{}));
    EXPECT_EQ(spreadPlaces(3, 3), (std::vector<std::size_t>{0, 1, 2}));
}

TEST(SpreadPlaces, KeepTheEndsOfMany)
{
    EXPECT_EQ(spreadPlaces(5, 3), (std::vector<std::size_t>{0, 2, 4}));
    EXPECT_EQ(spreadPlaces(10, 4), (std::vector<std::size_t>{0, 3, 6, 9}));
    EXPECT_EQ(spreadPlaces(1000, 2), (std::vector<std::size_t>{0, 999}));
}

TEST(TimelinePoint, HoldsTotalGradesAndTimes)
{
    // 54 levels: 10 s, none (ten minutes), and 52 times 30 s.
    const auto times = parseStatisticsTimes(statisticsText({"00:10:00 Ann", ""}));
    const TimelinePoint point = timelinePoint(7, times, stateWithTargets());
    EXPECT_EQ(point.moment, 7);
    EXPECT_EQ(point.total, "36:10:00");
    EXPECT_EQ(point.hundredths, 36 * 6000 + 1000);
    EXPECT_EQ(point.grades, (GradeCounts{1, 0, 52, 0, 0, 1}));
    EXPECT_EQ(point.times.at(0), 1000);
    EXPECT_EQ(point.times.at(1), std::nullopt);
    EXPECT_EQ(point.times.at(53), 3000);
}

class TimelineOf : public testing::Test
{
protected:
    void remember(std::time_t moment, const std::string& text) { folder.write(stateName(moment), text); }

    [[nodiscard]] Timeline timeline() const { return timelineOf(HistoryStore(folder.path()), stateWithTargets()); }

    TemporaryFolder folder;
};

TEST_F(TimelineOf, NothingRememberedIsEmpty)
{
    EXPECT_EQ(timeline().states, 0U);
    EXPECT_TRUE(timeline().points.empty());
    EXPECT_TRUE(timeline().improvements.empty());
}

TEST_F(TimelineOf, HasAPointForEachState)
{
    remember(100, statisticsText({"00:40:00 Ann"}));
    remember(200, statisticsText({"00:20:00 Ann"}));
    const Timeline found = timeline();
    ASSERT_EQ(found.points.size(), 2U);
    EXPECT_EQ(found.points[0].moment, 100);
    EXPECT_EQ(found.points[0].total, "27:10:00");
    EXPECT_EQ(found.points[1].moment, 200);
    EXPECT_EQ(found.points[1].total, "26:50:00");
}

TEST_F(TimelineOf, TellsTheLatestImprovementsFirst)
{
    remember(100, statisticsText({"00:40:00 Ann", "00:40:00 Ann", "00:40:00 Ann"}));
    remember(200, statisticsText({"00:39:00 Ann", "00:41:00 Ann", "00:40:00 Ann"}));
    remember(300, statisticsText({"00:39:00 Ann", "00:38:00 Ann", "00:37:00 Ann"}));
    std::vector<std::string> told;
    for (const DatedImprovement& improvement : timeline().improvements)
        told.push_back(std::to_string(improvement.moment) + ": " + std::to_string(improvement.change.level) + " " +
                       improvement.change.after);
    EXPECT_EQ(told, (std::vector<std::string>{"300: 2 00:38:00", "300: 3 00:37:00", "200: 1 00:39:00"}));
}

TEST_F(TimelineOf, PassesOverWhatIsNoStatisticsFileAnyMore)
{
    remember(100, statisticsText({"00:40:00 Ann"}));
    remember(200, "scribbled over");
    remember(300, statisticsText({"00:20:00 Ann"}));
    EXPECT_EQ(timeline().points.size(), 2U);
    EXPECT_EQ(timeline().improvements.size(), 1U);
}

TEST_F(TimelineOf, HundredsOfStatesAreAHundredPoints)
{
    for (int state = 0; state < 250; ++state) remember(1000 + state, statisticsText({"00:40:00 Ann"}));
    const Timeline found = timeline();
    EXPECT_EQ(found.states, 250U);
    ASSERT_EQ(found.points.size(), kMostPoints);
    EXPECT_EQ(found.points.front().moment, 1000);
    EXPECT_EQ(found.points.back().moment, 1249);
}

TEST_F(TimelineOf, TellsTenImprovementsAtMost)
{
    for (int state = 0; state < 20; ++state)
        remember(1000 + state, statisticsText({"00:" + std::to_string(59 - state) + ":00 Ann"}));
    const Timeline found = timeline();
    ASSERT_EQ(found.improvements.size(), kMostImprovements);
    EXPECT_EQ(found.improvements.front().change.after, "00:40:00");
    EXPECT_EQ(found.improvements.back().change.after, "00:49:00");
}

}  // namespace
}  // namespace kavo
