// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/exact_time.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

TEST(ExactTime, CountsHundredths)
{
    EXPECT_EQ(exactTime("00:00:00"), 0);
    EXPECT_EQ(exactTime("00:00:07"), 7);
    EXPECT_EQ(exactTime("00:19:88"), 1988);
    EXPECT_EQ(exactTime("01:02:03"), 6203);
    EXPECT_EQ(exactTime("10:00:00"), 60000);
    EXPECT_EQ(exactTime("99:59:99"), 599999);
}

TEST(ExactTime, TakesAnySeparators)
{
    EXPECT_EQ(exactTime("01.02.03"), 6203);
    EXPECT_EQ(exactTime("01xx02-3"), std::nullopt);
    EXPECT_EQ(exactTime("01x02-03"), 6203);
}

TEST(ExactTime, IsNoneForATextThatIsNoTime)
{
    for (const char* text : {"", "SKIPPED", "xx:yy:zz", "1:02:03", "001:02:03", "01:02:0", "01:02:0x", " 1:02:03",
                             "-1:02:03", "1:15:12:34", "123:04:05"})
        EXPECT_EQ(exactTime(text), std::nullopt) << text;
}

TEST(CountedHundredths, AreTenMinutesForASkippedLevel)
{
    EXPECT_EQ(countedHundredths("SKIPPED"), 60000);
    EXPECT_EQ(countedHundredths("00:19:88"), 1988);
}

TEST(CountedHundredths, AreWhatTheAdditionOfTimesMakesOfAnyOtherText)
{
    EXPECT_EQ(countedHundredths("xx:yy:zz"), 0);
    EXPECT_EQ(countedHundredths("00:12:xx"), 1200);
    EXPECT_EQ(countedHundredths(" 1: 2: 3"), 6203);
    EXPECT_EQ(countedHundredths(""), 0);
}

TEST(SecondsText, HasTwoDecimals)
{
    EXPECT_EQ(secondsText(0), "0.00");
    EXPECT_EQ(secondsText(7), "0.07");
    EXPECT_EQ(secondsText(21), "0.21");
    EXPECT_EQ(secondsText(100), "1.00");
    EXPECT_EQ(secondsText(6021), "60.21");
    EXPECT_EQ(secondsText(-83), "-0.83");
}

TEST(ExactTotalText, GoesIntoHoursAtSixtyMinutes)
{
    EXPECT_EQ(exactTotalText(0), "00:00:00");
    EXPECT_EQ(exactTotalText(359999), "59:59:99");
    EXPECT_EQ(exactTotalText(360000), "1:0:00:00");
    EXPECT_EQ(exactTotalText(451234), "1:15:12:34");
    EXPECT_EQ(exactTotalText(54 * 60000), "9:0:00:00");
    EXPECT_EQ(exactTotalText(-1988), "-00:19:88");
}

}  // namespace
}  // namespace kavo
