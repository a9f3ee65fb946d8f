// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/settings.h"

#include "base/run_time_error.h"
#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

TEST(Settings, AreReadLineByLine)
{
    const Settings settings = parseSettings("C:\\game\\stats.txt\r\n 2 \r\n other, file.txt \r\nGood\r\n 11 \r\n");
    EXPECT_EQ(settings.statsPath, "C:\\game\\stats.txt");
    EXPECT_EQ(settings.compareMethod, 2);
    EXPECT_EQ(settings.otherPath, " other, file.txt ");
    EXPECT_EQ(settings.category, "Good");
    EXPECT_EQ(settings.fontSize, 11);
}

TEST(Settings, OfFourLinesHaveNoFontSize)
{
    EXPECT_FALSE(parseSettings("a\r\n1\r\nb\r\nc\r\n").fontSize.has_value());
    EXPECT_FALSE(parseSettings("a\r\n1\r\nb\r\nc").fontSize.has_value());
    EXPECT_FALSE(parseSettings("a\n1\nb\nc\n").fontSize.has_value());
}

TEST(Settings, OfEmptyLinesAreEmpty)
{
    const Settings settings = parseSettings("\r\n\r\n\r\n\r\n\r\n");
    EXPECT_EQ(settings.statsPath, "");
    EXPECT_EQ(settings.compareMethod, 0);
    EXPECT_EQ(settings.otherPath, "");
    EXPECT_EQ(settings.category, "");
    EXPECT_EQ(settings.fontSize, 0);
}

TEST(Settings, FailWhenShorterThanFourLines)
{
    for (const char* text : {"", "a\r\n", "a\r\n1\r\n", "a\r\n1\r\nb\r\n"}) {
        try {
            static_cast<void>(parseSettings(text));
            FAIL() << "no error for " << text;
        } catch (const RunTimeError& error) {
            EXPECT_STREQ(error.what(), "Input past end of file");
        }
    }
}

TEST(Settings, AreReadAsFarAsTheyGoForTheDialog)
{
    const Settings designed{"designed", 1, "design", "", {}};
    EXPECT_EQ(parseSettingsLeniently("").compareMethod, 0);  // none of the three
    EXPECT_EQ(parseSettingsLeniently("", designed).statsPath, "designed");
    EXPECT_EQ(parseSettingsLeniently("a\r\n", designed).statsPath, "a");
    EXPECT_EQ(parseSettingsLeniently("a\r\n", designed).otherPath, "design");
    EXPECT_EQ(parseSettingsLeniently("a\r\n3", designed).compareMethod, 3);
    EXPECT_EQ(parseSettingsLeniently("a\r\n3\r\nb", designed).otherPath, "b");
    EXPECT_EQ(parseSettingsLeniently("a\r\n3\r\nb\r\nOK\r\n9\r\n", designed).category, "OK");
    EXPECT_FALSE(parseSettingsLeniently("a\r\n3\r\nb\r\nOK\r\n9\r\n", designed).fontSize.has_value());
}

TEST(Settings, AreWrittenWithBlanksAroundNumbers)
{
    EXPECT_EQ(formatSettings({"a", 3, "b", "Good", 8.25}), "a\r\n 3 \r\nb\r\nGood\r\n 8.25 \r\n");
    EXPECT_EQ(formatSettings({"a", 1, "", "", {}}), "a\r\n 1 \r\n\r\n\r\n");
}

TEST(Settings, GetAFontSizeInPlaceOfTheirLastLine)
{
    EXPECT_EQ(withFontSize("a\r\n 1 \r\nb\r\nc\r\n 8 \r\n", 12), "a\r\n 1 \r\nb\r\nc\r\n 12 \r\n");
    EXPECT_EQ(withFontSize("a\r\n1\r\nb\r\nGood\r\n", 12), "a\r\n1\r\nb\r\n 12 \r\n");
    EXPECT_EQ(withFontSize("", 12), " 12 \r\n");
}

TEST(Names, AreThreeLines)
{
    const Names names = parseNames("Ann\r\n B b \r\nThe Team\r\nmore\r\n");
    EXPECT_EQ(names.player1, "Ann");
    EXPECT_EQ(names.player2, " B b ");
    EXPECT_EQ(names.team, "The Team");
    EXPECT_EQ(formatNames(names), "Ann\r\n B b \r\nThe Team\r\n");
}

TEST(Names, KeepTheirDefaultsWhereAShortFileEnds)
{
    EXPECT_EQ(parseNames("").player1, "Player1");
    EXPECT_EQ(parseNames("Ann\r\n").player2, "Player2");
    EXPECT_EQ(parseNames("Ann\r\nBob").player2, "Bob");
    EXPECT_EQ(parseNames("Ann\r\nBob").team, "Team");
    EXPECT_EQ(parseNames("\r\n\r\n\r\n").player1, "");
}

TEST(Names, KeepTheirBytes)
{
    const std::string text = "J\xFCrgen\r\nЖанна\r\nTeam\r\n";
    EXPECT_EQ(formatNames(parseNames(text)), text);
}

TEST(SettingsFile, IsSavedWithItsFiveLines)
{
    const test::TemporaryFolder user;
    saveSettings(user.path(), {"a/stats.txt", 3, "b/stats.txt", "Good", 8.5});
    EXPECT_EQ(user.read("data.ini"), "a/stats.txt\r\n 3 \r\nb/stats.txt\r\nGood\r\n 8.5 \r\n");
    saveFontSize(user.path(), 12);
    EXPECT_EQ(user.read("data.ini"), "a/stats.txt\r\n 3 \r\nb/stats.txt\r\nGood\r\n 12 \r\n");
}

TEST(SettingsFile, MustBeThereForAFontSize)
{
    const test::TemporaryFolder user;
    EXPECT_EQ(test::errorOf([&user] { saveFontSize(user.path(), 12); }), "File not found: data.ini");
    EXPECT_FALSE(user.has("data.ini"));
}

TEST(FirstResults, AreKeptOnceAndByteForByte)
{
    const test::TemporaryFolder user;
    user.write("stats.txt", std::string("first\r\n\0\xFF", 9));
    keepFirstResults(user.path(), user / "stats.txt");
    EXPECT_EQ(user.read("1res.old"), std::string("first\r\n\0\xFF", 9));
    user.write("stats.txt", "second");
    keepFirstResults(user.path(), user / "stats.txt");
    EXPECT_EQ(user.read("1res.old"), std::string("first\r\n\0\xFF", 9));
}

TEST(FirstResults, NeedAStatisticsFileWhenThereAreNoneYet)
{
    const test::TemporaryFolder user;
    EXPECT_EQ(test::errorOf([&user] { keepFirstResults(user.path(), user / "stats.txt"); }),
              "File not found: stats.txt");
    EXPECT_FALSE(user.has("1res.old"));
}

}  // namespace

}  // namespace kavo
