// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/users.h"

#include "base/run_time_error.h"
#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace kavo {

namespace {

using test::asCompared;
using test::TemporaryFolder;
using Nicks = std::vector<std::string>;

TEST(Nick, HasAtMostTenCharactersAndMoreThanBlanks)
{
    for (const char* nick : {"b", "bob", "0123456789", " bob", "bob ", "ЖаннаЖанна"})
        EXPECT_TRUE(isNickAllowed(nick)) << nick;
    for (const char* nick : {"", "   ", "01234567890", "ЖаннаЖаннаЖ", " 0123456789"})
        EXPECT_FALSE(isNickAllowed(nick)) << nick;
}

TEST(Nick, ThatLogsInByItselfNamesAFolderToo)
{
    for (const char* nick : {"b", " bob", "ЖаннаЖанна"}) EXPECT_TRUE(isNickForAutoLogin(nick)) << nick;
#ifndef _WIN32
    EXPECT_TRUE(isNickForAutoLogin("..."));  // Windows would take it for another name
#endif
    for (const char* nick : {"", "   ", "01234567890", ".", "..", "a/b", "a\\b"})
        EXPECT_FALSE(isNickForAutoLogin(nick)) << nick;
}

TEST(Users, AreListedAsTheyStand)
{
    const TemporaryFolder folder;
    EXPECT_EQ(readUsers(folder.path()), Nicks{});
    folder.write("USERS.dat", "bob\r\n\r\n eve \nbob\r\n\xFC");
    EXPECT_EQ(readUsers(folder.path()), (Nicks{"bob", "", " eve ", "bob", "\xFC"}));
}

TEST(CurrentUser, IsTheFirstLine)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(readCurrentUserIfThere(folder.path()).has_value());
    EXPECT_THROW(static_cast<void>(readCurrentUser(folder.path())), RunTimeError);
    writeCurrentUser(folder.path(), " Жанна");
    EXPECT_EQ(folder.read("curUser.dat"), " Жанна\r\n");
    EXPECT_EQ(readCurrentUser(folder.path()), " Жанна");
    EXPECT_EQ(readCurrentUserIfThere(folder.path()), " Жанна");
}

TEST(CurrentUser, IsFoundInAnyCaseAndRewrittenInPlace)
{
    const TemporaryFolder folder;
    folder.write("curuser.DAT", "bob\r\neve\r\n");
    EXPECT_EQ(readCurrentUser(folder.path()), "bob");
    writeCurrentUser(folder.path(), "eve");
    EXPECT_EQ(folder.read("curuser.DAT"), "eve\r\n");
    EXPECT_FALSE(folder.has("curUser.dat"));
}

#ifndef _WIN32
TEST(CurrentUser, WhoCannotBeWrittenIsAnErrorAlsoWhereItIsTheOneBefore)
{
    const TemporaryFolder folder;
    folder.write("curUser.dat", "bob\r\n");
    const auto errorOfStranger = [&folder](unsigned ofFolder, unsigned ofFile) {
        fs::permissions(folder / "curUser.dat", fs::perms{ofFile});
        fs::permissions(folder.path(), fs::perms{ofFolder});
        return test::asStranger(
            [&folder] { return test::errorOf([&folder] { writeCurrentUser(folder.path(), "bob"); }); });
    };
    EXPECT_EQ(errorOfStranger(0777, 0666), "no error");
    EXPECT_EQ(errorOfStranger(0777, 0444), "Path/File access error: curUser.dat");
    EXPECT_EQ(errorOfStranger(0555, 0666), "Path/File access error: curUser.dat");
    EXPECT_EQ(folder.read("curUser.dat"), "bob\r\n");
}

TEST(CurrentUser, WhoIsTheOneBeforeIsNotWrittenAnew)
{
    const TemporaryFolder folder;
    folder.write("curUser.dat", "bob\r\n");
    fs::create_hard_link(folder / "curUser.dat", folder / "same");
    writeCurrentUser(folder.path(), "bob");
    EXPECT_EQ(fs::hard_link_count(folder / "curUser.dat"), 2U);
    writeCurrentUser(folder.path(), "eve");
    EXPECT_EQ(folder.read("curUser.dat"), "eve\r\n");
}
#endif

TEST(CurrentUser, FailsInAnEmptyFile)
{
    const TemporaryFolder folder;
    folder.write("curUser.dat", "");
    try {
        static_cast<void>(readCurrentUser(folder.path()));
        FAIL() << "read a user from an empty file";
    } catch (const RunTimeError& error) {
        EXPECT_STREQ(error.what(), "Input past end of file: curUser.dat");
    }
}

TEST(AutoLogin, IsTheFirstNumber)
{
    const TemporaryFolder folder;
    EXPECT_EQ(readAutoLogin(folder.path()), 0);
    for (const auto& [text, number] : std::vector<std::pair<std::string, int>>{
             {" 1 \r\n", 1}, {"1", 1}, {"0", 0}, {"", 0}, {"\r\n", 0}, {"2\r\n", 2}, {"x\r\n", 0}, {"1,0\r\n", 1}}) {
        folder.write("autolog.dat", text);
        EXPECT_EQ(readAutoLogin(folder.path()), number) << text;
    }
}

TEST(AutoLogin, IsPrintedByALoginAndBareWhenSuspended)
{
    const TemporaryFolder folder;
    writeAutoLogin(folder.path(), true);
    EXPECT_EQ(folder.read("autolog.dat"), " 1 \r\n");
    writeAutoLogin(folder.path(), false);
    EXPECT_EQ(folder.read("autolog.dat"), " 0 \r\n");
    suspendAutoLogin(folder.path());
    EXPECT_EQ(folder.read("autolog.dat"), "0\r\n");
}

TEST(NewUser, GetsAFolderAndALine)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(createUserIfNew(folder.path(), "bob"));
    EXPECT_TRUE(fs::is_directory(folder / "bob"));
    EXPECT_TRUE(createUserIfNew(folder.path(), " eve"));
    EXPECT_TRUE(fs::is_directory(folder / " eve"));
    EXPECT_EQ(folder.read("users.dat"), "bob\r\n eve\r\n");
}

TEST(NewUser, IsNobodyWhoseFolderHoldsAFile)
{
    const TemporaryFolder folder;
    folder.write("bob/data.ini", "");
    EXPECT_FALSE(createUserIfNew(folder.path(), "bob"));
    EXPECT_FALSE(folder.has("users.dat"));
}

TEST(NewUser, IsNotMadeInAFolderThatIsThereWithoutFiles)
{
    const TemporaryFolder folder;
    folder.write("bob/colors/colors.ini", "");
    EXPECT_FALSE(createUserIfNew(folder.path(), "bob"));
    fs::create_directory(folder / "eve");
    EXPECT_FALSE(createUserIfNew(folder.path(), "eve"));
    EXPECT_FALSE(folder.has("users.dat"));
}

TEST(NewUser, IsNobodyOnlyBecauseAProgramWasKilledThere)
{
    const TemporaryFolder folder;
    folder.write("bob/.kavo-0-1234.tmp", "half");
    EXPECT_FALSE(createUserIfNew(folder.path(), "bob")) << "the folder is there";
    EXPECT_FALSE(folder.has("users.dat"));
    fs::create_directory(folder / "eve");
    fs::create_symlink("loop", folder / "eve/loop");
    EXPECT_FALSE(createUserIfNew(folder.path(), "eve"));
    EXPECT_FALSE(createUserIfNew(folder.path(), "")) << "that would be the program folder";
}

TEST(NewUser, IsNotMadeWithANickThatNamesNoFolder)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "inner");
    for (const std::string& nick : {std::string("../out"), std::string(".."), std::string("."), std::string("a/b"),
                                    std::string("a\\b"), std::string("a\0b", 3)})
        EXPECT_FALSE(createUserIfNew(folder / "inner", nick)) << nick;
    EXPECT_TRUE(fs::is_empty(folder / "inner"));
    EXPECT_FALSE(folder.has("out"));
}

TEST(NewUser, IsNotAnnouncedWhenTheListCannotBeWritten)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "users.dat");
    EXPECT_FALSE(createUserIfNew(folder.path(), "bob"));
    EXPECT_TRUE(fs::is_directory(folder / "bob"));
}

TEST(UserFolder, LiesInTheProgramFolder)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "Bob");
    EXPECT_EQ(asCompared(userFolder(folder.path(), "bob")), asCompared(folder / "Bob"));
    EXPECT_EQ(userFolder(folder.path(), "eve"), folder / "eve");
    EXPECT_THROW(static_cast<void>(userFolder(folder.path(), "../x")), RunTimeError);
    EXPECT_THROW(static_cast<void>(userFolder(folder.path(), "")), RunTimeError);
}

}  // namespace

}  // namespace kavo
