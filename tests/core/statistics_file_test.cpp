// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/statistics_file.h"

#include "tests/support/error_of.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

/// The level's text and its best time as "time/driver", or "none", in one line.
std::string nextLevel(StatisticsReader& reader)
{
    const std::string header = reader.header();
    const auto best = reader.bestTime();
    return header + " = " + (best ? best->time + "/" + best->driver : "none");
}

using test::errorOf;

constexpr const char* kInvalidCall = "Invalid procedure call or argument";

TEST(LineEnds, AreFoundBehindTheStart)
{
    EXPECT_EQ(nLine("ab\r\ncd\r\n", 0), 3U);
    EXPECT_EQ(nLine("ab\r\ncd\r\n", 2), 3U);
    EXPECT_EQ(nLine("ab\r\ncd\r\n", 3), 7U);
    EXPECT_EQ(nLine("ab\r\ncd\r\n", 7), 0U);
    EXPECT_EQ(nLine("ab\ncd\n", 0), 0U);
    EXPECT_EQ(nLine("", 5), 0U);
}

TEST(StatisticsFile, MentionsPlayerAndLevelInAnyCase)
{
    EXPECT_TRUE(isStatisticsFile("PLAYER ... Level 1"));
    EXPECT_TRUE(isStatisticsFile("players, levels"));
    EXPECT_FALSE(isStatisticsFile("Level 1, Level 2"));
    EXPECT_FALSE(isStatisticsFile("player only"));
    EXPECT_FALSE(isStatisticsFile(""));
}

TEST(StatisticsFile, MentionsTheSteppesAsSecondFile)
{
    EXPECT_TRUE(isSecondStatisticsFile("Player Level STEPPES"));
    EXPECT_FALSE(isSecondStatisticsFile("Player Level"));
    EXPECT_FALSE(isSecondStatisticsFile("Level Steppes"));
}

TEST(StatisticsReader, ReadsTimeAndDriverBehindTheHeader)
{
    StatisticsReader reader(
        "Player\r\nLevel 5, Something\r\n01:02:03 Alice\r\n01:02:99 Bob\r\nLevel 6, X\r\n"
        "  00:00:01   Two Words  \r\n");
    EXPECT_EQ(nextLevel(reader), "5, Something = 01:02:03/Alice");
    EXPECT_EQ(nextLevel(reader), "6, X = 00:00:01/Two Words");
}

TEST(StatisticsReader, RemovesEveryLevelWordWithItsBlankFromTheHeader)
{
    StatisticsReader reader("Level Level 5, Level\r\n01:02:03 A\r\n");
    EXPECT_EQ(reader.header(), "5, Level");
}

TEST(StatisticsReader, StartsTheHeaderAtItsLevelWord)
{
    StatisticsReader reader("** Level 5 **\r\n01:02:03 A\r\n");
    EXPECT_EQ(reader.header(), "5 **");
}

TEST(StatisticsReader, KnowsTheLevelWordInExactCaseOnly)
{
    StatisticsReader reader("level 1\r\nLEVEL 2\r\nLevel 3\r\n01:02:03 A\r\n");
    EXPECT_EQ(reader.header(), "3");
}

TEST(StatisticsReader, FindsNoTimeBeforeTheNextHeader)
{
    StatisticsReader reader("Level 1\r\nLevel 2\r\n00:10:00 A\r\n");
    EXPECT_EQ(nextLevel(reader), "1 = none");
    EXPECT_EQ(nextLevel(reader), "2 = 00:10:00/A");
}

TEST(StatisticsReader, TakesTheLineBehindAnEmptyOneAlong)
{
    StatisticsReader skipped("Level 1\r\n\r\nLevel 2\r\n00:10:00 A\r\n");
    EXPECT_EQ(nextLevel(skipped), "1 = none");
    EXPECT_EQ(nextLevel(skipped), "2 = 00:10:00/A");

    StatisticsReader swallowing("Level 1\r\n\r\n00:10:00 A\r\nLevel 2\r\n00:20:00 B\r\n");
    EXPECT_EQ(nextLevel(swallowing), "1 = 00:10:00/A");
    EXPECT_EQ(nextLevel(swallowing), "2 = 00:20:00/B");
}

TEST(StatisticsReader, TakesTheLineBehindAOneCharacterLineAlong)
{
    StatisticsReader reader("Level 1\r\nx\r\n00:10:00 A\r\nLevel 2\r\nxy\r\n00:20:00 B\r\n");
    EXPECT_EQ(nextLevel(reader), "1 = x00:10:0/A");
    EXPECT_EQ(nextLevel(reader), "2 = xy/");
}

TEST(StatisticsReader, CountsALetterOfTwoBytesAsOneCharacter)
{
    StatisticsReader one("Level 1\r\nЖ\r\n00:10:00 A\r\n");
    EXPECT_EQ(nextLevel(one), "1 = Ж00:10:0/A");
    StatisticsReader two("Level 1\r\nЖж\r\n00:10:00 A\r\n");
    EXPECT_EQ(nextLevel(two), "1 = Жж/");
}

TEST(StatisticsReader, CountsABlankLineOfTwoBlanksAsNoTime)
{
    StatisticsReader reader("Level 1\r\n  \r\n00:10:00 A\r\nLevel 2\r\n\r\n\r\nLevel 3\r\n00:30:00 C\r\n");
    EXPECT_EQ(nextLevel(reader), "1 = none");
    EXPECT_EQ(nextLevel(reader), "2 = none");
    EXPECT_EQ(nextLevel(reader), "3 = 00:30:00/C");
}

TEST(StatisticsReader, RemovesLineEndsBeforeItTrims)
{
    // The blank in front of the swallowed line end is inside the joined text, not at its end.
    StatisticsReader reader("Level 1\r\n \r\n 00:10:00 A \r\n");
    EXPECT_EQ(nextLevel(reader), "1 = 00:10:00/A");
}

TEST(StatisticsReader, TakesNoDriverFromAShortLine)
{
    StatisticsReader reader("Level 1\r\n01:02:03\r\nLevel 2\r\n01:02:03-\r\nLevel 3\r\n01:02:03-B\r\n");
    EXPECT_EQ(nextLevel(reader), "1 = 01:02:03/");
    EXPECT_EQ(nextLevel(reader), "2 = 01:02:03/");
    EXPECT_EQ(nextLevel(reader), "3 = 01:02:03/B");
}

TEST(StatisticsReader, KeepsOddBytesOfADriver)
{
    StatisticsReader reader("Level 1\r\n01:02:03 J\xFCrgen\r\n");
    EXPECT_EQ(nextLevel(reader), "1 = 01:02:03/J\xFCrgen");
}

TEST(StatisticsReader, CountsADriverCalledLevelAsTheNextHeader)
{
    StatisticsReader reader("Level 1\r\n00:10:00 A\r\n00:11:00 LevelKing\r\nLevel 2\r\n00:20:00 B\r\n");
    EXPECT_EQ(nextLevel(reader), "1 = 00:10:00/A");
    EXPECT_EQ(nextLevel(reader), "LevelKing = none");
    EXPECT_EQ(nextLevel(reader), "2 = 00:20:00/B");
}

TEST(StatisticsReader, HasNoTimeWhereTheBestDriverIsCalledLevel)
{
    StatisticsReader reader("Level 1\r\n00:10:00 Level King\r\nLevel 2\r\n00:20:00 B\r\n");
    EXPECT_EQ(nextLevel(reader), "1 = none");
    EXPECT_EQ(nextLevel(reader), "King = none");
    EXPECT_EQ(nextLevel(reader), "2 = 00:20:00/B");
}

TEST(StatisticsReader, FailsWithoutAnotherHeader)
{
    StatisticsReader reader("Level 1\r\n00:10:00 A\r\n");
    EXPECT_EQ(nextLevel(reader), "1 = 00:10:00/A");
    EXPECT_EQ(errorOf([&] { static_cast<void>(reader.header()); }), kInvalidCall);
    StatisticsReader empty("");
    EXPECT_EQ(errorOf([&] { static_cast<void>(empty.header()); }), kInvalidCall);
}

TEST(StatisticsReader, FailsToReadATimeBeforeAHeader)
{
    const StatisticsReader reader("\r\n00:10:00 A\r\n");
    EXPECT_EQ(errorOf([&] { static_cast<void>(reader.bestTime()); }), kInvalidCall);
}

TEST(StatisticsReader, FailsOnBareLineFeeds)
{
    StatisticsReader reader("Level 1\n00:10:00 A\nLevel 2\n");
    EXPECT_EQ(errorOf([&] { static_cast<void>(reader.header()); }), kInvalidCall);
}

TEST(StatisticsReader, FailsWhereTheTimeLineIsNotEnded)
{
    for (const char* text : {"Level 1\r\n00:10:00 A", "Level 1\r\n", "Level 1\r\nx\r\n", "Level 1\r\n\r\n"}) {
        StatisticsReader reader(text);
        EXPECT_EQ(reader.header(), "1");
        EXPECT_EQ(errorOf([&] { static_cast<void>(reader.bestTime()); }), kInvalidCall) << text;
    }
}

}  // namespace

}  // namespace kavo
