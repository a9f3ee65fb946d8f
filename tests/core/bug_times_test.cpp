// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/bug_times.h"

#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using Entries = std::vector<std::string>;

using test::errorOf;

TEST(BugTimeEntry, IsAcceptedByLengthAndNumbers)
{
    for (const char* text : {"53, 00:19:05", "07, 01:35:12", "53xx00:19:05", "99, 00:00:00", "-1, 00:19:05",
                             " 7, 00:19:05", "07ЖЖ00Ж19Ж05"})
        EXPECT_TRUE(isBugTimeEntry(text)) << text;
    for (const char* text : {"7, 01:35:12", "", "xx, yy:yy:yy", "53, ab:19:05", "53, 00:ab:05", "53, 00:19:ab",
                             "ab, 00:19:05", "53, 00:19:055", "  , 00:19:05", "53, 00:19:x5"})
        EXPECT_FALSE(isBugTimeEntry(text)) << text;
}

TEST(BugTimes, AreReadInTwoSections)
{
    const BugTimeEntries entries = parseBugTimes("Player1\r\n07, 00:19:05\r\n08, 00:20:00\r\nPlayer2\r\n01, 00:01:00");
    EXPECT_EQ(entries.player1, (Entries{"07, 00:19:05", "08, 00:20:00"}));
    EXPECT_EQ(entries.player2, (Entries{"01, 00:01:00"}));
}

TEST(BugTimes, KnowTheirMarkersInAnyCase)
{
    const BugTimeEntries entries = parseBugTimes("PLAYER1\r\n07, 00:19:05\r\npLaYeR2\r\nPlayer2\r\n");
    EXPECT_EQ(entries.player1, (Entries{"07, 00:19:05"}));
    EXPECT_EQ(entries.player2, (Entries{"Player2"}));
}

TEST(BugTimes, AreNoneInAnotherFile)
{
    EXPECT_TRUE(parseBugTimes("something\r\n07, 00:19:05\r\n").player1.empty());
    EXPECT_TRUE(parseBugTimes("Player1 \r\n07, 00:19:05\r\nPlayer2\r\n").player1.empty());
    EXPECT_TRUE(parseBugTimes("\r\n").player2.empty());
}

TEST(BugTimes, FailWithoutTheSecondMarker)
{
    for (const char* text : {"", "Player1\r\n", "Player1\r\n07, 00:19:05\r\n"})
        EXPECT_EQ(errorOf([&] { static_cast<void>(parseBugTimes(text)); }), "Input past end of file") << text;
}

TEST(BugTimes, AreStoredByLevelTheLaterOneOverTheEarlier)
{
    const BugTimesByLevel both = parseBugTimesByLevel(
        "Player1\r\n05, 00:11:00\r\n54, 00:54:00\r\n1x, 00:01:00\r\n05, 00:10:00\r\n7xyz00:07:00\r\n"
        "099900:09:00\r\n"
        "Player2\r\n05, 00:09:00\r\n");
    const BugTimes& times = both.player1;
    EXPECT_EQ(both.player2[5], "00:09:00");
    EXPECT_EQ(times[5], "00:10:00");
    EXPECT_EQ(times[54], "00:54:00");
    EXPECT_EQ(times[1], "00:01:00");
    EXPECT_EQ(times[7], "00:07:00");
    EXPECT_EQ(times[9], "00:09:00");  // of the level's digits there are two
    EXPECT_EQ(times[2], "");
}

TEST(BugTimes, TakeTheTimeToTheEndOfTheLine)
{
    const BugTimes times = parseBugTimesByLevel("Player1\r\n05, 00:11:00 by hand\r\n06, \r\nPlayer2\r\n").player1;
    EXPECT_EQ(times[5], "00:11:00 by hand");
    EXPECT_EQ(times[6], "");
}

TEST(BugTimes, FailOnALevelThatDoesNotExist)
{
    for (const char* entry : {"00, 00:10:00", "55, 00:10:00", "xx, 00:10:00", "-1, 00:10:00", ""}) {
        const std::string text = std::string("Player1\r\n") + entry + "\r\n";
        EXPECT_EQ(errorOf([&] { static_cast<void>(parseBugTimesByLevel(text)); }), "Subscript out of range") << entry;
    }
}

TEST(BugTimes, AreWrittenInListOrder)
{
    EXPECT_EQ(formatBugTimes({{"b", "a"}, {"c"}}), "Player1\r\nb\r\na\r\nPlayer2\r\nc\r\n");
    EXPECT_EQ(formatBugTimes({{}, {"c"}}), "Player1\r\nPlayer2\r\nc\r\n");
}

TEST(BugTimes, LeaveNoFileWhenThereAreNone)
{
    const test::TemporaryFolder folder;
    saveBugTimes(folder.path(), {{"07, 00:19:05"}, {}});
    EXPECT_EQ(folder.read("bugs.dat"), "Player1\r\n07, 00:19:05\r\nPlayer2\r\n");
    saveBugTimes(folder.path(), {});
    EXPECT_FALSE(folder.has("bugs.dat"));
    saveBugTimes(folder.path(), {});
    EXPECT_FALSE(folder.has("bugs.dat"));
}

}  // namespace

}  // namespace kavo
