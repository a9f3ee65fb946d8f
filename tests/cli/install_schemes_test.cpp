// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/command_line.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using test::Outcome;
using test::TemporaryFolder;

/// A program folder with two users and two supplied schemes.
class InstallSchemes : public testing::Test
{
protected:
    InstallSchemes()
    {
        folder.write("curUser.dat", "bob\r\n");
        folder.write("bob/data.ini", "");
        folder.write("Ann/data.ini", "");
        folder.write("schemes/Day.ini", "day\r\n");
        folder.write("schemes/Night.ini", "night\r\n");
        folder.write("schemes/readme.txt", "no scheme");
    }

    Outcome run(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), "install-schemes");
        return test::runCommand(folder, arguments);
    }

    TemporaryFolder folder;
};

TEST_F(InstallSchemes, CopiesAllOfThemForTheUserWhoLoggedInLast)
{
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Day: installed\nkavo-timing-cli: Night: installed\n");
    EXPECT_EQ(folder.read("bob/colors/Day.ini"), "day\r\n");
    EXPECT_EQ(folder.read("bob/colors/Night.ini"), "night\r\n");
    EXPECT_FALSE(folder.has("bob/colors/readme.txt"));
    EXPECT_FALSE(folder.has("Ann/colors"));
    EXPECT_EQ(folder.read("schemes/Day.ini"), "day\r\n");
}

TEST_F(InstallSchemes, CopiesThoseThatAreNamedInAnyCaseOfLetters)
{
    const Outcome outcome = run({"--user", "Ann", "nIGHT"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Night: installed\n");
    EXPECT_EQ(folder.read("Ann/colors/Night.ini"), "night\r\n");
    EXPECT_FALSE(folder.has("Ann/colors/Day.ini"));
}

TEST_F(InstallSchemes, NeverCopiesOverAFileThatIsThere)
{
    folder.write("bob/colors/NIGHT.INI", "mine\r\n");
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Day: installed\nkavo-timing-cli: Night: there already, left as it is\n");
    EXPECT_EQ(folder.read("bob/colors/NIGHT.INI"), "mine\r\n");
    EXPECT_FALSE(folder.has("bob/colors/Night.ini"));
}

TEST_F(InstallSchemes, UnknownNameIsAUsageErrorAndCopiesNothing)
{
    const Outcome mistyped = run({"Day", "Nigth"});
    EXPECT_EQ(mistyped.status, 2);
    EXPECT_EQ(mistyped.error, "kavo-timing-cli: unknown scheme Nigth, did you mean Night?\n");
    const Outcome strange = run({"../../bob/data"});
    EXPECT_EQ(strange.status, 2);
    EXPECT_EQ(strange.error, "kavo-timing-cli: unknown scheme ../../bob/data; there are Day, Night\n");
    EXPECT_FALSE(folder.has("bob/colors"));
}

TEST_F(InstallSchemes, UserWithoutAFolderGetsNothing)
{
    const Outcome outcome = run({"--user", "Nobody"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("Path not found"), std::string::npos) << outcome.error;
    EXPECT_FALSE(folder.has("Nobody"));
}

TEST_F(InstallSchemes, WithoutSuppliedSchemesItSaysWhatIsMissing)
{
    std::filesystem::remove_all(folder / "schemes");
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("Path not found: "), std::string::npos) << outcome.error;
    EXPECT_NE(outcome.error.find("schemes"), std::string::npos) << outcome.error;
    EXPECT_FALSE(folder.has("bob/colors"));
}

}  // namespace

}  // namespace kavo
