// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/level_time.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kavo {

namespace {

struct Sum
{
    std::string first;
    std::string second;
    std::string result;
};

TEST(AddTime, AddsFieldByField)
{
    const std::vector<Sum> sums = {
        {"00:59:99", "00:00:01", "01:00:00"},  {"59:59:99", "00:00:01", "60:00:00"},  // no wrap into hours
        {"05:03:07", "00:00:00", "05:03:07"},  // every part gets its two digits again
        {"00:00:00", "10:00:00", "10:00:00"},  {"00:30:50", "00:29:50", "01:00:00"},
        {"99:59:99", "00:00:01", "100:00:00"}, {"99:30:00", "99:31:00", "199:01:00"},
    };
    for (const Sum& sum : sums) EXPECT_EQ(AddTime(sum.first, sum.second), sum.result) << sum.first << sum.second;
}

TEST(AddTime, ReadsALongTotalByItsFirstTwoDigits)
{
    // 12 minutes, ":4" is 0 seconds, 67 hundredths.
    EXPECT_EQ(AddTime("123:45:67", "01:00:00"), "13:00:67");
    EXPECT_EQ(AddTime("100:00:00", "10:00:00"), "20:00:00");
    EXPECT_EQ(AddTime("100:59:99", "00:00:01"), "10:01:00");
}

TEST(AddTime, TakesHundredthsOfTheTotalFromItsEndAndOfTheTimeFromAFixedPlace)
{
    EXPECT_EQ(AddTime("00:00:00:45", "00:00:00"), "00:00:45");
    EXPECT_EQ(AddTime("00:00:00", "00:00:00:45"), "00:00:00");
    EXPECT_EQ(AddTime("00:00:00", "01:02:3"), "01:02:03");
}

TEST(AddTime, ReadsDigitsBesideBlanks)
{
    for (const char* time : {" 1:02:03", "1 :02:03", "01: 2:03", "01:2 :03", "01:02: 3", "01:02:3 "}) {
        EXPECT_EQ(AddTime(time, "00:00:00"), "01:02:03") << time;
        EXPECT_EQ(AddTime("00:00:00", time), "01:02:03") << time;
        EXPECT_EQ(HundredthsOf(time), 6203) << time;
    }
}

TEST(AddTime, KeepsTheSignOfWhatIsNoTime)
{
    // A minute less: (00 - 1):05:00 with the digits of -1 as they are.
    EXPECT_EQ(AddTime("00:02:00", "-1:03:00"), "-1:05:00");
    EXPECT_EQ(AddTime("00:00:00", "00:-7:00"), "00:-7:00");
}

TEST(AddTime, CountsTextWithoutDigitsAsNothing)
{
    EXPECT_EQ(AddTime("", ""), "00:00:00");
    EXPECT_EQ(AddTime("", "00:12:34"), "00:12:34");
    EXPECT_EQ(AddTime("01:02:03", "SKIPPED"), "01:02:03");
    EXPECT_EQ(AddTime("SKIPPED", "01:02:03"), "01:02:03");
    EXPECT_EQ(AddTime("Жанна", "00:00:01"), "00:00:01");
}

TEST(FormatTotal, ShowsHoursFromSixtyMinutesOnWithoutPadding)
{
    EXPECT_EQ(FormatTotal("59:59:99"), "59:59:99");
    EXPECT_EQ(FormatTotal("60:00:00"), "1:0:00:00");
    EXPECT_EQ(FormatTotal("61:02:03"), "1:1:02:03");
    EXPECT_EQ(FormatTotal("75:12:34"), "1:15:12:34");
    EXPECT_EQ(FormatTotal("99:59:99"), "1:39:59:99");
}

TEST(FormatTotal, LooksAtTheFirstTwoDigitsOfALongTotalOnly)
{
    EXPECT_EQ(FormatTotal("123:00:00"), "123:00:00");
    EXPECT_EQ(FormatTotal("600:00:00"), "1:0::00:00");
    EXPECT_EQ(FormatTotal(""), "");
}

TEST(HundredthsOf, WeighsMinutesSecondsAndHundredths)
{
    EXPECT_EQ(HundredthsOf("01:02:03"), 6203);
    EXPECT_EQ(HundredthsOf("10:00:00"), 60000);
    EXPECT_EQ(HundredthsOf("1:15:12:34"), 6534);  // 1 minute, 5 seconds from position 4, 34
    EXPECT_EQ(HundredthsOf("SKIPPED"), 0);
    EXPECT_EQ(HundredthsOf(""), 0);
}

struct Distance
{
    std::string first;
    std::string second;
    std::string text;
    Faster faster;
};

TEST(TimeDifference, TellsDistanceAndTheFasterTime)
{
    const std::vector<Distance> distances = {
        {"01:10:00", "01:09:50", "00:00:50", Faster::Second},
        {"01:09:50", "01:10:00", "00:00:50", Faster::First},
        {"00:10:00", "00:11:00", "00:01:00", Faster::First},
        {"00:10:00", "00:10:99", "00:00:99", Faster::First},
        {"00:00:00", "02:03:04", "02:03:04", Faster::First},
        {"00:10:00", "01:11:05", "01:01:05", Faster::First},
        {"00:30:00", "75:30:00", "75:00:00", Faster::First},
        {"10:00:00", "SKIPPED", "00:00:00", Faster::First},  // texts differ, values do not
        {"09:59:00", "SKIPPED", "00:01:00", Faster::First},
        {"11:00:00", "SKIPPED", "00:60:00", Faster::Second},
        {"00:30:00", "", "00:30:00", Faster::Second},
    };
    for (const Distance& expected : distances) {
        const Difference difference = TimeDifference(expected.first, expected.second);
        EXPECT_EQ(difference.text, expected.text) << expected.first << " " << expected.second;
        EXPECT_EQ(difference.faster, expected.faster) << expected.first << " " << expected.second;
    }
}

TEST(TimeDifference, OfSixtySecondsStaysInSeconds)
{
    const Difference difference = TimeDifference("01:00:00", "02:00:60");
    EXPECT_EQ(difference.text, "00:60:60");
    EXPECT_EQ(difference.faster, Faster::First);
    EXPECT_EQ(difference.minutes, 0);
    EXPECT_EQ(difference.seconds, 60);
    EXPECT_EQ(difference.hundredths, 60);
    EXPECT_EQ(TimeDifference("01:00:00", "02:00:00").text, "00:60:00");
    EXPECT_EQ(TimeDifference("01:00:00", "02:01:00").text, "01:01:00");
}

TEST(TimeDifference, OfEqualTextsIsNoChange)
{
    for (const char* time : {"01:00:00", "SKIPPED", ""}) {
        EXPECT_EQ(TimeDifference(time, time).text, "No change");
        EXPECT_EQ(TimeDifference(time, time).faster, Faster::Neither);
    }
}

TEST(TimeDifference, CountsASkippedFirstTimeAsNothing)
{
    const Difference difference = TimeDifference("SKIPPED", "01:00:00");
    EXPECT_EQ(difference.text, "00:60:00");
    EXPECT_EQ(difference.faster, Faster::First);
    EXPECT_EQ(TimeDifference("SKIPPED", "02:00:00").text, "02:00:00");
}

TEST(TimeDifference, OfATotalInHoursReadsTheSamePositions)
{
    // "1:15:12:34": minutes "1:", seconds "5:" from position 4, hundredths "34": 65.34 seconds.
    const Difference difference = TimeDifference("1:15:12:34", "75:12:34");
    EXPECT_EQ(difference.text, "74:07:00");
    EXPECT_EQ(difference.faster, Faster::First);
}

TEST(TimeOfLevel, HasTwoDigitsInEachOfItsThreeParts)
{
    for (const char* text : {"00:00:00", "09:59:90", "99:99:99"}) EXPECT_TRUE(isTimeOfLevel(text)) << text;
    for (const char* text : {"", "0:00:00", "00:00:0", "00:00:000", "1:00:00:00", "00.00:00", "00:00.00", "x0:00:00",
                             "0x:00:00", "00:/0:00", "00:00:0:", "00:00:00 ", "SKIPPED"})
        EXPECT_FALSE(isTimeOfLevel(text)) << text;
}

TEST(TwoDigits, PadsASingleDigit)
{
    EXPECT_EQ(twoDigits(0), "00");
    EXPECT_EQ(twoDigits(7), "07");
    EXPECT_EQ(twoDigits(12), "12");
    EXPECT_EQ(twoDigits(123), "123");
    EXPECT_EQ(twoDigits(100), "100");
    EXPECT_EQ(twoDigits(99), "99");
    EXPECT_EQ(twoDigits(-0.0), "00");
    EXPECT_EQ(twoDigits(-1), "-1");
    EXPECT_EQ(twoDigits(12.5), "12.5");
}

}  // namespace

}  // namespace kavo
