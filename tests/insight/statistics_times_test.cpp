// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/statistics_times.h"

#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::statisticsText;

TEST(StatisticsTimes, HoldNameTimeAndDriverOfEachLevel)
{
    const StatisticsTimes times = parseStatisticsTimes(statisticsText({"00:19:88 Bob", "", "01:02:03"}));
    EXPECT_EQ(times[1].name, "1, Track");
    EXPECT_EQ(times[1].time, "00:19:88");
    EXPECT_EQ(times[1].driver, "Bob");
    EXPECT_EQ(times[2].time, "SKIPPED");
    EXPECT_EQ(times[2].driver, "");
    EXPECT_EQ(times[3].time, "01:02:03");
    EXPECT_EQ(times[3].driver, "");
    EXPECT_EQ(times[8].name, "8, Steppes");
    EXPECT_EQ(times[54].time, "00:30:00");
}

TEST(StatisticsTimes, EndLikeALoadingWhereTheFileEnds)
{
    const std::string text = statisticsText();
    const std::string cut = text.substr(0, text.find("Level 54"));
    EXPECT_EQ(test::errorOf([&] { static_cast<void>(parseStatisticsTimes(cut)); }),
              "Invalid procedure call or argument");
    EXPECT_TRUE(isWholeStatisticsFile(text));
    EXPECT_FALSE(isWholeStatisticsFile(cut));
}

TEST(StatisticsTimes, AreWholeOnlyInAStatisticsFile)
{
    const std::string text = statisticsText();
    EXPECT_FALSE(isWholeStatisticsFile(text.substr(text.find("Level"))));  // the word player is missing
    EXPECT_FALSE(isWholeStatisticsFile(""));
}

TEST(PlayerOf, IsTheDriverOfTheFirstTime)
{
    EXPECT_EQ(playerOf(parseStatisticsTimes(statisticsText({"", "00:10:00 Zoe", "00:09:00 Bob"}))), "Zoe");
    EXPECT_EQ(playerOf(parseStatisticsTimes(statisticsText({"00:10:00", "00:09:00 Bob"}))), "");
    EXPECT_EQ(playerOf(parseStatisticsTimes(test::undrivenText())), "");
}

TEST(ShownTotal, IsPlayer1sTotalOfTheTable)
{
    // 54 times 30 s are 27 minutes; two levels skipped are 20 minutes instead of one.
    EXPECT_EQ(shownTotal(parseStatisticsTimes(statisticsText())), "27:00:00");
    const StatisticsTimes skipped = parseStatisticsTimes(statisticsText({"", "", "00:30:07"}));
    EXPECT_EQ(shownTotal(skipped), "46:00:07");
    EXPECT_EQ(exactTotal(skipped), 276007);
    // Five skipped levels: 50 minutes and 24:30.
    const StatisticsTimes hours = parseStatisticsTimes(statisticsText({"", "", "", "", ""}));
    EXPECT_EQ(shownTotal(hours), "1:14:30:00");
    EXPECT_EQ(exactTotalText(exactTotal(hours)), "1:14:30:00");
}

TEST(ShownTotal, IsCutAboveAHundredMinutesAndTheExactOneIsNot)
{
    // Ten levels of ten minutes are "100:00:00"; from there on the table goes on from ten minutes: the 44 half
    // minutes end at 32.
    const StatisticsTimes times = parseStatisticsTimes(statisticsText(std::vector<std::string>(10)));
    EXPECT_EQ(shownTotal(times), "32:00:00");
    EXPECT_EQ(exactTotal(times), 10 * 60000 + 44 * 3000);
    EXPECT_EQ(exactTotalText(exactTotal(times)), "2:2:00:00");
}

TEST(ShownGrade, IsBeginnerForASkippedLevelWhateverTheTargets)
{
    ResultsState targets;
    targets.TargetOK[1] = "VERY SLOW";  // behind "SKIPPED" in text order
    EXPECT_EQ(shownGrade(targets, 1, "SKIPPED"), TargetCategory::Beginner);
    EXPECT_EQ(shownGrade(targets, 1, "00:10:00"), TargetCategory::OK);
}

}  // namespace
}  // namespace kavo
