// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"

#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace kavo {

namespace {

using test::asCompared;
using test::TemporaryFolder;

TEST(Locate, PrefersTheExactSpelling)
{
    const TemporaryFolder folder;
    folder.write("targets.txt", "x");
    folder.write("Targets.TXT", "x");
    EXPECT_EQ(locate(folder / "targets.txt"), folder / "targets.txt");
    EXPECT_EQ(locate(folder / "Targets.TXT"), folder / "Targets.TXT");
    EXPECT_EQ(locate(folder / "TARGETS.txt"), folder / "Targets.TXT");  // the first in byte order
}

TEST(Locate, FindsEveryComponentInAnyCase)
{
    const TemporaryFolder folder;
    folder.write("Bob/Colors/COLORS.INI", "x");
    EXPECT_EQ(asCompared(locate(folder / "bob/colors/colors.ini")), asCompared(folder / "Bob/Colors/COLORS.INI"));
    folder.write("ЖАННА/data.ini", "x");
    EXPECT_EQ(asCompared(locate(folder / "жанна/DATA.ini")), asCompared(folder / "ЖАННА/data.ini"));
}

TEST(Locate, KeepsTheSpellingOfWhatIsNotThere)
{
    const TemporaryFolder folder;
    folder.write("Bob/data.ini", "x");
    EXPECT_EQ(asCompared(locate(folder / "bob/New.dat")), asCompared(folder / "Bob/New.dat"));
    EXPECT_EQ(locate(folder / "none/Data.ini"), folder / "none/Data.ini");
}

TEST(LocateTyped, CountsFromTheFolder)
{
    const TemporaryFolder folder;
    folder.write("game/stats.txt", "x");
    EXPECT_EQ(asCompared(locateTyped(folder.path(), "game/STATS.txt")), asCompared(folder / "game/stats.txt"));
    EXPECT_EQ(locateTyped("/elsewhere", (folder / "game/stats.txt").string()), folder / "game/stats.txt");
}

#ifndef _WIN32
TEST(LocateTyped, TakesBackslashesForSeparatorsUnlessAFileIsSpelledSo)
{
    const TemporaryFolder folder;
    folder.write("game/stats.txt", "x");
    EXPECT_EQ(locateTyped(folder.path(), "game\\stats.txt"), folder / "game/stats.txt");
    EXPECT_EQ(locateTyped(folder.path(), "game\\none.txt"), folder / "game\\none.txt");
    folder.write("game\\stats.txt", "x");
    EXPECT_EQ(locateTyped(folder.path(), "game\\stats.txt"), folder / "game\\stats.txt");
}
#endif

TEST(FileExists, IsTrueForOrdinaryFilesOnly)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "");
    EXPECT_TRUE(fileExists(folder / "a.txt"));
    EXPECT_FALSE(fileExists(folder.path()));
    EXPECT_FALSE(fileExists(folder / "none"));
    EXPECT_TRUE(folderExists(folder.path()));
    EXPECT_FALSE(folderExists(folder / "a.txt"));
}

TEST(Locate, TakesTimeInProportionToThePath)
{
    std::string path = "/none";
    for (int i = 0; i < 200'000; ++i) path += "/a";
    EXPECT_EQ(locate(path).native().size(), path.size());
}

#ifndef _WIN32

TEST(Locate, DoesNotMakeAnotherFileWhereItCannotLook)
{
    const TemporaryFolder folder;
    folder.write("Targets.TXT", "x");
    const test::NoMoreFiles noMore;
    EXPECT_EQ(test::errorOf([&] { static_cast<void>(locate(folder / "targets.txt")); }),
              "Path/File access error: targets.txt");
}

TEST(FileExists, IsNoAnswerWhereTheSystemCannotTell)
{
    const TemporaryFolder folder;
    folder.write("locked/a.txt", "");
    fs::permissions(folder / "locked", fs::perms{0700});
    const auto look = [&] { return test::errorOf([&] { static_cast<void>(fileExists(folder / "locked/a.txt")); }); };
    EXPECT_EQ(test::asStranger(look), "Path/File access error: a.txt");
    fs::create_symlink("loop", folder / "loop");
    EXPECT_FALSE(fileExists(folder / "loop"));
    EXPECT_FALSE(fileExists(folder / std::string(10'000, 'x')));
    EXPECT_FALSE(fileExists(folder / "locked/a.txt/b"));
}

#endif

TEST(PlainName, HasNoSeparatorAndLeadsNowhere)
{
    for (const char* name : {"bob", " bob", "a.b", "Жанна"}) EXPECT_TRUE(isPlainName(name)) << name;
#ifndef _WIN32
    EXPECT_TRUE(isPlainName("..."));  // Windows would take it for another name
#endif
    for (const char* name : {".", "..", "a/b", "a\\b", "/"}) EXPECT_FALSE(isPlainName(name)) << name;
    EXPECT_FALSE(isPlainName(std::string_view("a\0b", 3)));
}

}  // namespace

}  // namespace kavo
