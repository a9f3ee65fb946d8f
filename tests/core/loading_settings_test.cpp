// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/loading.h"
#include "tests/support/loaded_folder.h"

#include <gtest/gtest.h>

/// What the settings files make of a loading.
namespace kavo {

namespace {

using test::LoadedFolder;
using test::statisticsText;

TEST(Session, HasNoSettingsBeforeALoading)
{
    const Session session;
    EXPECT_FALSE(session.hasSettings);
    EXPECT_EQ(session.fontSize, 8);
}

TEST(LoadingOfAFirstRun, ShowsAnEmptyTableAndOpensTheOptions)
{
    LoadedFolder loaded;
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    EXPECT_EQ(loaded.session.table.rowCount(), 0);
    EXPECT_EQ(loaded.messages(), "");
    EXPECT_EQ(loaded.host.optionsOpened, 1);
    EXPECT_EQ(loaded.headers(), "Level|Player1|Target 1|Player2|Target 2|Difference|Team|Target|Author");
    EXPECT_TRUE(loaded.folder.has("bob/colors"));
}

TEST(LoadingOfAFirstRun, IsAbandonedWhenTheOptionsAskForAnother)
{
    LoadedFolder loaded;
    loaded.folder.write("stats.txt", statisticsText());
    loaded.host.afterOptions = AfterOptions::Abandon;
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Abandoned);
    ASSERT_EQ(loaded.session.table.rowCount(), 56);
    EXPECT_EQ(loaded.session.table.text(55, Column::Level), "TOTAL TIME:");
    EXPECT_EQ(loaded.session.table.text(56, Column::Level), "");
    EXPECT_EQ(loaded.headers(), "Level|Time 1|Target 1|Time 2|Target 2|Difference|Team|Target|Author");
}

TEST(Loading, WithSettingsButNoStatisticsFileShowsAnEmptyTable)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::filesystem::remove(loaded.folder / "stats.txt");
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    EXPECT_EQ(loaded.session.table.rowCount(), 0);
    EXPECT_EQ(loaded.host.optionsOpened, 0);
    EXPECT_EQ(loaded.messages(), "");
}

TEST(Loading, CountsAFolderAsNoStatisticsFile)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::filesystem::remove(loaded.folder / "stats.txt");
    std::filesystem::create_directory(loaded.folder / "stats.txt");
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    EXPECT_EQ(loaded.session.table.rowCount(), 0);
}

TEST(Init, WithoutSettingsComparesTheFolderStatisticsWithThemselves)
{
    LoadedFolder loaded;
    loaded.run();
    EXPECT_EQ(loaded.session.StatsPath, (loaded.folder / "stats.txt").string());
    EXPECT_EQ(loaded.session.CompPath, loaded.session.StatsPath);
    EXPECT_EQ(loaded.session.CompCategory, "");
    EXPECT_EQ(loaded.session.fontSize, 8);
}

TEST(Init, ChoosesTheComparisonByTheMethod)
{
    struct Case
    {
        const char* method;
        const char* compPath;  ///< "user/" stands for the user's folder
        const char* category;
    };
    for (const Case& expected :
         {Case{" 1 ", "user/1res.old", ""}, Case{"2", "other.txt", ""}, Case{" 3 ", "compwith", "Good"},
          Case{"0", "other.txt", ""}, Case{"7", "other.txt", ""}, Case{"x", "other.txt", ""}}) {
        LoadedFolder loaded;
        loaded.folder.write("bob/data.ini",
                            std::string("my stats.txt\r\n") + expected.method + "\r\nother.txt\r\nGood\r\n");
        loaded.run();
        EXPECT_EQ(loaded.result.error, "");
        EXPECT_EQ(loaded.session.StatsPath, "my stats.txt");
        std::string path = expected.compPath;
        if (path.starts_with("user/")) path = (loaded.folder / "bob" / path.substr(5)).string();
        EXPECT_EQ(loaded.session.CompPath, path) << expected.method;
        EXPECT_EQ(loaded.session.CompCategory, expected.category) << expected.method;
    }
}

TEST(Init, WithEmptyPathsComparesTheFolderStatisticsWithThemselves)
{
    LoadedFolder loaded;
    loaded.folder.write("bob/data.ini", "\r\n2\r\n\r\n\r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.StatsPath, (loaded.folder / "stats.txt").string());
    EXPECT_EQ(loaded.session.CompPath, loaded.session.StatsPath);
}

TEST(Init, TakesTheFontSizeOfAFifthLine)
{
    LoadedFolder loaded;
    loaded.folder.write("bob/data.ini", "\r\n2\r\n\r\n\r\n 14 \r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.fontSize, 14);
    loaded.folder.write("bob/data.ini", "\r\n2\r\n\r\n\r\n 1 \r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.fontSize, 1);
    loaded.folder.write("bob/data.ini", "\r\n2\r\n\r\n\r\n 0 \r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.fontSize, 8);
    loaded.folder.write("bob/data.ini", "\r\n2\r\n\r\n\r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.fontSize, 8);
    loaded.folder.write("bob/data.ini", "\r\n2\r\n\r\n\r\nlarge\r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.fontSize, 8);
}

TEST(Loading, OfMethodTwoWithoutAPathShowsNoChange)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("bob/data.ini", "stats.txt\r\n 2 \r\n\r\nGood\r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.table.rowCount(), 55);
    for (int row = 1; row <= 55; ++row) EXPECT_EQ(loaded.session.table.text(row, Column::Difference), "No change");
}

TEST(Loading, OfMethodOneIgnoresThePath)
{
    LoadedFolder loaded;
    loaded.writeAll(1);
    loaded.folder.write("other.txt", statisticsText());
    loaded.run();
    EXPECT_EQ(loaded.session.table.rowCount(), 54);  // there are no previous results
    loaded.folder.write("bob/1RES.OLD", statisticsText());
    loaded.run();
    EXPECT_EQ(loaded.session.table.rowCount(), 55);
}

TEST(Loading, TakesThePathCompwithForTheTargets)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("bob/data.ini", "stats.txt\r\n 2 \r\n compwith \r\nGood\r\n");
    loaded.run();
    // Compared with targets, but of no category: the method is another.
    EXPECT_EQ(loaded.session.table.rowCount(), 55);
    EXPECT_EQ(loaded.row(55),
              "TOTAL TIME:*|27:00:00*|Beginner*|27:00:00*|Beginner*|No change*|00:00:00*|"
              "World Record*{WR}|Team*");
}

TEST(Loading, KeepsTheNamesOfTheNamesFile)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("other.txt", statisticsText());
    loaded.folder.write("bob/names.dat", "Ann\r\nBob\r\nDust Devils\r\n");
    loaded.run();
    EXPECT_EQ(loaded.headers(), "Level|Ann|Target 1|Bob|Target 2|Difference|Dust Devils|Target|Author");
    EXPECT_EQ(loaded.session.table.text(1, Column::Author), "Bob");
    EXPECT_EQ(loaded.session.table.text(55, Column::Author), "Team");
}

TEST(Loading, TakesNamesThatAShortNamesFileLacksFromTheStatistics)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("other.txt", statisticsText({"00:10:00 Eve"}));
    loaded.folder.write("bob/names.dat", "Ann\r\n");
    loaded.run();
    EXPECT_EQ(loaded.headers(), "Level|Ann|Target 1|Eve|Target 2|Difference|Team|Target|Author");
    loaded.folder.write("bob/names.dat", "Player1\r\nBob\r\n");
    loaded.run();
    EXPECT_EQ(loaded.headers(), "Level|Alice|Target 1|Bob|Target 2|Difference|Team|Target|Author");
    loaded.folder.write("bob/names.dat", "");
    loaded.run();
    EXPECT_EQ(loaded.headers(), "Level|Alice|Target 1|Eve|Target 2|Difference|Team|Target|Author");
}

TEST(Loading, KeepsTheEmptyNameOfAShortFirstTimeLine)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("stats.txt", statisticsText({"00:10:00", "00:10:00 Ann"}));
    loaded.folder.write("other.txt", statisticsText({"00:10:00", "00:10:00 Ann"}));
    loaded.run();
    EXPECT_EQ(loaded.headers(), "Level||Target 1||Target 2|Difference|Team|Target|Author");
}

TEST(Loading, KeepsTheBytesOfALatin1Name)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("stats.txt", statisticsText({"00:10:00 J\xFCrgen"}));
    loaded.run();
    EXPECT_EQ(loaded.session.state.Player1Name, "J\xFCrgen");
}

TEST(Loading, UsesTheColoursOfTheUser)
{
    LoadedFolder loaded;
    loaded.writeAll(3, "Good");
    loaded.folder.write("bob/colors/colors.ini", "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.table.cell(1, Column::Target1).colour, 7);
    EXPECT_EQ(loaded.session.table.cell(1, Column::Target2).colour, 8);
    EXPECT_EQ(loaded.session.colours.ColText, 4);
    std::filesystem::remove(loaded.folder / "bob/colors/colors.ini");
    loaded.run();
    EXPECT_EQ(loaded.session.table.cell(1, Column::Target1).colour, 16737430);
}

TEST(Loading, AppliesTheLayoutAndSaysWhenThatStepIsOver)
{
    LoadedFolder loaded;
    loaded.run();
    EXPECT_TRUE(loaded.host.layout.empty());
    EXPECT_EQ(loaded.host.layoutLoadedCalls, 1);
    loaded.folder.write("bob/view.dat", " 15 \r\n 10 \r\nwide\r\n");
    loaded.run();
    EXPECT_EQ(loaded.host.layout, (std::vector<double>{15, 10}));
    EXPECT_EQ(loaded.host.layoutLoadedCalls, 1);
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
}

TEST(Loading, OfAnotherUserLeavesTheColoursFolderUnmade)
{
    LoadedFolder loaded;
    std::filesystem::create_directory(loaded.folder / "eve");
    loaded.run({.user = "eve", .makesFolders = false});
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    EXPECT_EQ(loaded.session.UserName, "eve");
    EXPECT_EQ(loaded.session.caption, "Kavo Timing 2.1  User: eve");
    EXPECT_FALSE(loaded.folder.has("eve/colors"));
}

TEST(Loading, FindsEveryFileInAnyCase)
{
    LoadedFolder loaded;
    loaded.folder.write("STATS.TXT", statisticsText());
    loaded.folder.write("Targets.TXT", test::targetsText());
    std::filesystem::rename(loaded.folder / "curUser.dat", loaded.folder / "CURUSER.DAT");
    std::filesystem::rename(loaded.folder / "bob", loaded.folder / "BOB");
    loaded.folder.write("BOB/Data.Ini", "\r\n2\r\n\r\n\r\n");
    loaded.folder.write("BOB/Names.Dat", "Ann\r\n");
    loaded.folder.write("BOB/Bugs.Dat", "Player1\r\n01, 00:01:00\r\nPlayer2\r\n");
    loaded.folder.write("BOB/Colors/COLORS.INI", "1\r\n2\r\n3\r\n4\r\n");
    loaded.run();
    EXPECT_EQ(loaded.result.error, "");
    EXPECT_EQ(loaded.messages(), "");
    EXPECT_EQ(loaded.host.optionsOpened, 0);
    EXPECT_EQ(loaded.session.table.text(1, Column::Time1), "00:01:00");
    EXPECT_EQ(loaded.session.table.header(Column::Time1), "Ann");
    EXPECT_EQ(loaded.session.colours.ColText, 4);
}

TEST(Loading, FollowsAPathWithBackslashes)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("game/stats.txt", statisticsText({"00:10:00 Ann"}));
    loaded.folder.write("bob/data.ini", "game\\Stats.txt\r\n 2 \r\n\r\n\r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.table.text(1, Column::Time1), "00:10:00");
}

}  // namespace

}  // namespace kavo
