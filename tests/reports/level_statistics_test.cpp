// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/level_statistics.h"

#include "base/text_file.h"
#include "tests/support/places.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/report_session.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::reportSession;

Session sessionWith(int level, std::string_view time1, std::string_view time2)
{
    Session session = reportSession();
    session.table.setText(level, Column::Time1, time1);
    session.table.setText(level, Column::Time2, time2);
    return session;
}

std::vector<int> lengths(const LevelBars& level)
{
    std::vector<int> result;
    for (const LevelBar& bar : level.bars) result.push_back(bar.length);
    return result;
}

/// The bars from the top.
std::vector<int> order(const BarPlaces& places)
{
    std::vector<int> result(kLevelBars);
    for (int bar = 0; bar < kLevelBars; ++bar) result.at(static_cast<std::size_t>(places.of(bar))) = bar;
    return result;
}

/// All levels one after the other, as tests/oracle/reports.py states them.
std::string statement(const Session& session)
{
    std::string text;
    BarPlaces places;
    for (int level = 1; level <= kTotalsRow; ++level) {
        const LevelBars shown = barsOfLevel(session, level);
        places.AutoSwap(shown);
        std::string line = std::to_string(level) + " " + std::to_string(shown.maximum) + " ";
        for (const LevelBar& bar : shown.bars) line += bar.time + "=" + std::to_string(bar.length) + " ";
        for (const int bar : order(places)) line += std::to_string(bar);
        text += asLine(line);
    }
    return text;
}

using Numbers = std::vector<int>;

TEST(LevelStatistics, OfTheDemoAreWhatTheOracleStates)
{
    for (const auto& [user, golden] : {std::pair{"Marek", "marek"}, std::pair{"Жанна", "zhanna"}}) {
        const test::TemporaryFolder folder;
        test::copyDemo(folder);
        Session session;
        session.programFolder = folder.path();
        test::HostRecord host;
        ASSERT_EQ(load(session, host, {.user = user}).error, "");
        const std::string name = std::string("tests/golden/") + golden + "-levels.txt";
        EXPECT_EQ(statement(session), readFile(test::sourceFolder() / name));
    }
}

TEST(LevelStatistics, MilSecCountsHundredthsAsText)
{
    EXPECT_EQ(MilSec("01:02:03"), "6203");
    EXPECT_EQ(MilSec("00:00:07"), "7");
    EXPECT_EQ(MilSec("99:59:99"), "599999");
    EXPECT_EQ(MilSec("SKIPPED"), "0");
    EXPECT_EQ(MilSec(""), "0");
    // Read at fixed places: minutes "1:", seconds "1:", hundredths "64".
    EXPECT_EQ(MilSec("1:31:17:64"), "6164");
}

TEST(LevelStatistics, OkTargetIsTheScaleWhenBothAreFaster)
{
    const Session session = reportSession();
    EXPECT_EQ(MaxTime(session, 1), "00:50:00");
    const LevelBars level = barsOfLevel(session, 1);
    EXPECT_EQ(level.maximum, 5000);
    EXPECT_EQ(lengths(level), (Numbers{1000, 2000, 3000, 4000, 5000, 3000, 4000}));
}

TEST(LevelStatistics, SlowerPlayerIsTheScale)
{
    EXPECT_EQ(MaxTime(sessionWith(1, "00:55:00", "00:40:00"), 1), "00:55:00");
    EXPECT_EQ(MaxTime(sessionWith(1, "00:40:00", "00:55:00"), 1), "00:55:00");
}

TEST(LevelStatistics, SecondTimeIsTheScaleWhenBothAreSlowerAndTheFirstIsCut)
{
    const LevelBars level = barsOfLevel(sessionWith(3, "01:10:00", "00:55:00"), 3);
    EXPECT_EQ(level.maximum, 5500);
    EXPECT_EQ(level.bars[kPlayer1Bar].length, 5500);
    EXPECT_EQ(level.bars[kPlayer1Bar].time, "01:10:00");
    EXPECT_EQ(level.bars[kPlayer2Bar].length, 5500);
}

TEST(LevelStatistics, SkippedTimeIsAnEmptyBarAndMakesNoScale)
{
    const LevelBars level = barsOfLevel(sessionWith(1, "SKIPPED", "SKIPPED"), 1);
    // "SKIPPED" sorts after every target, and its value is 0: the scale is never less than 1.
    EXPECT_EQ(level.maximum, 1);
    EXPECT_EQ(lengths(level), (Numbers{1, 1, 1, 1, 1, 0, 0}));
    EXPECT_EQ(level.bars[kPlayer1Bar].time, "SKIPPED");
}

TEST(LevelStatistics, WithoutAnyTimesAndTargetsTheBarsAreEmpty)
{
    const LevelBars level = barsOfLevel(Session(), 1);
    EXPECT_EQ(level.maximum, 1);
    EXPECT_EQ(lengths(level), (Numbers{0, 0, 0, 0, 0, 0, 0}));
}

TEST(LevelStatistics, WholeSetUsesTheTotalsRow)
{
    const LevelBars level = barsOfLevel(reportSession(), kTotalsRow);
    EXPECT_EQ(level.maximum, 300000);
    EXPECT_EQ(level.bars[0].time, "20:00:00");
    EXPECT_EQ(level.bars[4].time, "50:00:00");
    EXPECT_EQ(level.bars[kPlayer1Bar].time, "27:00:00");
    EXPECT_EQ(level.bars[kPlayer2Bar].length, 216000);
}

TEST(LevelStatistics, FastestStandsOnTop)
{
    BarPlaces places;
    places.AutoSwap(barsOfLevel(sessionWith(1, "00:15:00", "00:05:00"), 1));
    EXPECT_EQ(order(places), (Numbers{6, 0, 5, 1, 2, 3, 4}));
}

TEST(LevelStatistics, EqualTimesKeepTheirOrder)
{
    BarPlaces places;
    places.AutoSwap(barsOfLevel(sessionWith(1, "00:30:00", "00:30:00"), 1));
    EXPECT_EQ(order(places), (Numbers{0, 1, 2, 5, 6, 3, 4}));
}

TEST(LevelStatistics, SkippedGoesToTheBottomAndAnEmptyTimeToTheTop)
{
    BarPlaces places;
    places.AutoSwap(barsOfLevel(sessionWith(1, "SKIPPED", ""), 1));
    EXPECT_EQ(order(places), (Numbers{6, 0, 1, 2, 3, 4, 5}));
}

TEST(LevelStatistics, OrderCarriesOverToTheNextLevel)
{
    BarPlaces places;
    // Bob's 00:05:00 puts him above Alice; on the next level they are equal and he stays there.
    places.AutoSwap(barsOfLevel(sessionWith(1, "00:15:00", "00:05:00"), 1));
    places.AutoSwap(barsOfLevel(sessionWith(2, "00:55:00", "00:55:00"), 2));
    EXPECT_EQ(order(places), (Numbers{0, 1, 2, 3, 4, 6, 5}));
    BarPlaces fresh;
    fresh.AutoSwap(barsOfLevel(sessionWith(2, "00:55:00", "00:55:00"), 2));
    EXPECT_EQ(order(fresh), (Numbers{0, 1, 2, 3, 4, 5, 6}));
}

TEST(LevelStatistics, BarsAreCalledAfterGradesAndPlayers)
{
    const Session session = reportSession();
    std::vector<std::string> names;
    for (int bar = 0; bar < kLevelBars; ++bar) names.push_back(barName(session.state, bar));
    EXPECT_EQ(names,
              (std::vector<std::string>{"World Record", "World Class", "Professional", "Good", "OK", "Alice", "Bob"}));
}

TEST(LevelStatistics, ListedNamesLoseTheirLastCharacterWhateverItIs)
{
    EXPECT_EQ(listedLevelName("1, Warm Up "), "1, Warm Up");
    EXPECT_EQ(listedLevelName("54, Apple Harvest"), "54, Apple Harves");
    EXPECT_EQ(listedLevelName("7, Ж"), "7, ");
    EXPECT_EQ(listedLevelName(""), "");
}

}  // namespace
}  // namespace kavo
