// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/colour_schemes.h"

#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using test::errorOf;
using test::TemporaryFolder;

constexpr const char* kFour = " 1 \r\n 2 \r\n 3 \r\n 4 \r\n";
constexpr const char* kDefaultGrades = " 255 \r\n 352255 \r\n 16737430 \r\n 2014745 \r\n 6579300 \r\n";
constexpr const char* kNine = " 1 \r\n 2 \r\n 3 \r\n 4 \r\n 5 \r\n 6 \r\n 7 \r\n 8 \r\n 9 \r\n";
constexpr const char* kOthers = " 9 \r\n 8 \r\n 7 \r\n 6 \r\n 5 \r\n 4 \r\n 3 \r\n 2 \r\n 1 \r\n";

TEST(ColoursToEdit, AreTheDefaultsWithoutAFile)
{
    const TemporaryFolder user;
    EXPECT_EQ(readColoursToEdit(user.path()), ColourSet{});
    upgradeColours(user.path());
    EXPECT_FALSE(user.has("colors"));
}

TEST(ColoursToEdit, FileOfFourLinesGetsTheDefaultGradeColours)
{
    const TemporaryFolder user;
    user.write("colors/colors.ini", kFour);
    EXPECT_EQ(readColoursToEdit(user.path()).ColText, 4);
    EXPECT_EQ(readColoursToEdit(user.path()).ColWR, 255);
    upgradeColours(user.path());
    EXPECT_EQ(user.read("colors/colors.ini"), std::string(kFour) + kDefaultGrades);
}

TEST(ColoursToEdit, FileThatBreaksOffAmongTheGradesGivesNoneOfThem)
{
    const TemporaryFolder user;
    user.write("colors/colors.ini", std::string(kFour) + " 5 \r\n 6 \r\n");
    upgradeColours(user.path());
    EXPECT_EQ(user.read("colors/colors.ini"), std::string(kFour) + kDefaultGrades);
}

TEST(ColoursToEdit, WholeFileIsLeftAsItStands)
{
    const TemporaryFolder user;
    user.write("colors/colors.ini", "1\n2\n3\n4\n5\n6\n7\n8\n9\n");
    upgradeColours(user.path());
    EXPECT_EQ(user.read("colors/colors.ini"), "1\n2\n3\n4\n5\n6\n7\n8\n9\n");
    EXPECT_EQ(readColoursToEdit(user.path()).ColOK, 9);
}

TEST(Schemes, AreTheColourFilesButTheOneInForce)
{
    const TemporaryFolder user;
    EXPECT_TRUE(listSchemes(user.path()).empty());
    for (const char* name :
         {"Night.ini", "colors.ini", "COLORS.INI", "colors_prev.ini", "day.INI", "notes.txt", ".ini"})
        user.write(std::string("colors/") + name, kNine);
    user.write("colors/folder.ini/file", "");
    EXPECT_EQ(listSchemes(user.path()), (std::vector<std::string>{"", "colors_prev", "day", "Night"}));
}

#ifndef _WIN32
TEST(Schemes, OfTheSameNameButForTheCaseAreInTheOrderOfTheirBytes)
{
    const TemporaryFolder user;
    for (const char* name : {"night", "NIGHT", "Night", "day", "OK"})
        user.write(std::string("colors/") + name + ".ini", kNine);
    EXPECT_EQ(listSchemes(user.path()), (std::vector<std::string>{"day", "NIGHT", "Night", "night", "OK"}));
}
#endif

TEST(Schemes, AreInstalledWhereTheUserHasNothingOfThatName)
{
    const TemporaryFolder user;
    const TemporaryFolder supplied;
    supplied.write("Night.ini", kNine);
    EXPECT_TRUE(installScheme(supplied.path(), "Night", user.path()));
    EXPECT_EQ(user.read("colors/Night.ini"), kNine);
    user.write("colors/Night.ini", kOthers);
    EXPECT_FALSE(installScheme(supplied.path(), "night", user.path()));
    EXPECT_EQ(user.read("colors/Night.ini"), kOthers);
    EXPECT_EQ(errorOf([&] { static_cast<void>(installScheme(supplied.path(), "Day", user.path())); }),
              "File not found: Day.ini");
    EXPECT_FALSE(user.has("colors/Day.ini"));
}

#ifndef _WIN32
TEST(Schemes, AreNotInstalledInPlaceOfALinkThatLeadsNowhere)
{
    const TemporaryFolder user;
    const TemporaryFolder supplied;
    supplied.write("Night.ini", kNine);
    std::filesystem::create_directory(user / "colors");
    std::filesystem::create_symlink("gone.ini", user / "colors/Night.ini");
    EXPECT_FALSE(installScheme(supplied.path(), "Night", user.path()));
    EXPECT_FALSE(user.has("colors/gone.ini"));
}
#endif

TEST(Schemes, AreSavedOverOneOfTheSameName)
{
    const TemporaryFolder user;
    user.write("colors/Night.ini", kOthers);
    saveScheme(user.path(), "night", parseColours(kNine).colours);
    EXPECT_EQ(user.read("colors/Night.ini"), kNine);
    EXPECT_EQ(listSchemes(user.path()), std::vector<std::string>{"Night"});
}

TEST(Schemes, OneCalledColorsReplacesTheColoursInForce)
{
    const TemporaryFolder user;
    user.write("colors/colors.ini", kOthers);
    saveScheme(user.path(), "colors", parseColours(kNine).colours);
    EXPECT_EQ(user.read("colors/colors.ini"), kNine);
}

TEST(Schemes, AreNotSavedWithoutTheFolderOrOutsideIt)
{
    const TemporaryFolder user;
    saveScheme(user.path(), "night", {});
    EXPECT_FALSE(user.has("colors"));
    user.write("colors/colors.ini", kNine);
    EXPECT_EQ(errorOf([&user] { saveScheme(user.path(), "../evil", {}); }), "Path not found");
    EXPECT_FALSE(user.has("evil.ini"));
}

TEST(Schemes, SettingOneKeepsTheColoursBefore)
{
    const TemporaryFolder user;
    user.write("colors/colors.ini", "1\n2\n");
    user.write("colors/night.ini", kNine);
    user.write("colors/day.ini", kOthers);
    setScheme(user.path(), "night");
    EXPECT_EQ(user.read("colors/colors.ini"), kNine);
    EXPECT_EQ(user.read("colors/colors_prev.ini"), "1\n2\n");
    setScheme(user.path(), "day");
    EXPECT_EQ(user.read("colors/colors.ini"), kOthers);
    EXPECT_EQ(user.read("colors/colors_prev.ini"), kNine);
}

TEST(Schemes, SettingTheFirstOneLeavesNoColoursBefore)
{
    const TemporaryFolder user;
    user.write("colors/night.ini", kNine);
    setScheme(user.path(), "night");
    EXPECT_EQ(user.read("colors/colors.ini"), kNine);
    EXPECT_FALSE(user.has("colors/colors_prev.ini"));
}

TEST(Schemes, SettingOneThatHasGoneChangesNothing)
{
    const TemporaryFolder user;
    user.write("colors/colors.ini", kNine);
    EXPECT_EQ(errorOf([&user] { setScheme(user.path(), "night"); }), "File not found: night.ini");
    EXPECT_EQ(user.read("colors/colors.ini"), kNine);
    EXPECT_FALSE(user.has("colors/colors_prev.ini"));
}

}  // namespace

}  // namespace kavo
