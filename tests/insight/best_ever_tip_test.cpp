// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/best_ever_tip.h"

#include "reports/report_dates.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

constexpr std::time_t kNoon = 1795262400;  // 2026-11-21 12:00:00 UTC
constexpr int kLevel = 7;

BestEver bestOf(std::string time)
{
    BestEver best;
    best[kLevel] = {
        .name = "7, Stepping Stones", .time = std::move(time), .driver = "Zoe", .since = "20261121T120000Z.txt"};
    return best;
}

TEST(BestEverTip, NamesABetterTimeAndItsDay)
{
    EXPECT_EQ(bestEverTip(bestOf("00:19:88"), kLevel, "00:19:89"), "Best ever: 00:19:88 (" + datesOf(kNoon).date + ")");
}

TEST(BestEverTip, IsEmptyWhereTheTimeShownIsTheBest)
{
    EXPECT_EQ(bestEverTip(bestOf("00:19:88"), kLevel, "00:19:88"), "");
    EXPECT_EQ(bestEverTip(bestOf("00:19:88"), kLevel, "00:19:05"), "");  // a bug-time, or one not remembered yet
}

TEST(BestEverTip, IsEmptyForALevelThatWasNeverDriven)
{
    EXPECT_EQ(bestEverTip(BestEver(), kLevel, "00:19:88"), "");
    EXPECT_EQ(bestEverTip(BestEver(), kLevel, "SKIPPED"), "");
}

TEST(BestEverTip, TakesASkippedLevelForSlowerThanAnyTime)
{
    EXPECT_EQ(bestEverTip(bestOf("12:00:00"), kLevel, "SKIPPED"), "Best ever: 12:00:00 (" + datesOf(kNoon).date + ")");
}

TEST(BestEverTip, CannotCompareWhatIsNoTime)
{
    EXPECT_EQ(bestEverTip(bestOf("00:19:88"), kLevel, ""), "");
    EXPECT_EQ(bestEverTip(bestOf("00:19:88"), kLevel, "ab:cd:ef"), "");
}

TEST(BestEverTip, KnowsNoDayOfAStateWithoutAMoment)
{
    BestEver best = bestOf("00:19:88");
    best[kLevel].since = "old.txt";
    EXPECT_EQ(bestEverTip(best, kLevel, "00:20:00"), "Best ever: 00:19:88");
}

}  // namespace

}  // namespace kavo
