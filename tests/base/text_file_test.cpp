// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text_file.h"

#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace kavo {

namespace {

using test::errorOf;
using test::TemporaryFolder;

int entriesOf(const fs::path& folder)
{
    int count = 0;
    for (const auto& entry : fs::directory_iterator(folder)) count += entry.path().empty() ? 0 : 1;
    return count;
}

TEST(ReadFile, GivesEveryByte)
{
    const TemporaryFolder folder;
    const std::string content("\0a\r\n\xFF", 5);
    folder.write("a.bin", content);
    EXPECT_EQ(readFile(folder / "a.bin"), content);
    folder.write("empty", "");
    EXPECT_EQ(readFile(folder / "empty"), "");
    folder.write("large", std::string(200'000, 'x'));
    EXPECT_EQ(readFile(folder / "large").size(), 200'000U);
    folder.write("full block", std::string(1U << 16U, 'x'));
    EXPECT_EQ(readFile(folder / "full block").size(), 1U << 16U);
}

TEST(ReadFile, FailsWithoutAFile)
{
    const TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { static_cast<void>(readFile(folder / "no.txt")); }), "File not found: no.txt");
    EXPECT_EQ(errorOf([&] { static_cast<void>(readFile(folder.path())); }).substr(0, 22), "Path/File access error");
    EXPECT_FALSE(readFileIfThere(folder / "no.txt").has_value());
    EXPECT_FALSE(readFileIfThere(folder.path()).has_value());
}

TEST(ReadFile, RefusesMoreThanItsLimit)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "four");
    EXPECT_EQ(readContent(folder / "a.txt", 4).view(), "four");
    EXPECT_EQ(errorOf([&] { static_cast<void>(readContent(folder / "a.txt", 3)); }), "File too large: a.txt");
    for (const std::uintmax_t size : {kLargestFile + 1, TemporaryFolder::kTerabyte}) {
        folder.enlarge("a.txt", size);
        EXPECT_EQ(errorOf([&] { static_cast<void>(readFile(folder / "a.txt")); }), "File too large: a.txt");
    }
}

TEST(ParseFile, TellsWhichFileThereIsNoMemoryFor)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "content");
    const auto fail = [](std::string_view) -> int { throw std::bad_alloc(); };
    EXPECT_EQ(errorOf([&] { parseFile(folder / "a.txt", fail); }), "Out of memory: a.txt");
}

TEST(ParseFile, NamesTheFileInAFailureOfTheParser)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "content");
    const auto fail = [](std::string_view) -> int { throw RunTimeError(Failure::SubscriptOutOfRange); };
    EXPECT_EQ(errorOf([&] { parseFile(folder / "a.txt", fail); }), "Subscript out of range: a.txt");
    const auto failAboutAnother = [](std::string_view) -> int { throw RunTimeError(Failure::DiskFull, "b.txt"); };
    EXPECT_EQ(errorOf([&] { parseFile(folder / "a.txt", failAboutAnother); }), "Disk full: b.txt");
}

TEST(ReplaceFile, LeavesTheNewContentAndNothingElse)
{
    const TemporaryFolder folder;
    replaceFile(folder / "a.txt", "one");
    replaceFile(folder / "a.txt", "two");
    EXPECT_EQ(folder.read("a.txt"), "two");
    EXPECT_EQ(entriesOf(folder.path()), 1);
}

TEST(ReplaceFile, FailsWhereNoFileCanBe)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "sub");
    EXPECT_EQ(errorOf([&] { replaceFile(folder / "none/a.txt", "x"); }), "Path not found: a.txt");
    EXPECT_EQ(errorOf([&] { replaceFile(folder / "sub", "x"); }), "Path/File access error: sub");
    EXPECT_EQ(errorOf([&] { replaceFile("", "x"); }), "Path not found");
}

TEST(AppendLine, EndsALineLeftOpen)
{
    const TemporaryFolder folder;
    appendLine(folder / "users.dat", "bob");
    EXPECT_EQ(folder.read("users.dat"), "bob\r\n");
    appendLine(folder / "users.dat", "Жанна");
    EXPECT_EQ(folder.read("users.dat"), "bob\r\nЖанна\r\n");
    folder.write("users.dat", "eve");
    appendLine(folder / "users.dat", "bob");
    EXPECT_EQ(folder.read("users.dat"), "eve\r\nbob\r\n");
}

TEST(CopyFile, CopiesByteForByte)
{
    const TemporaryFolder folder;
    folder.write("stats.txt", "a\nb\r\n\xFF");
    copyFile(folder / "stats.txt", folder / "1res.old");
    EXPECT_EQ(folder.read("1res.old"), "a\nb\r\n\xFF");
    EXPECT_EQ(errorOf([&] { copyFile(folder / "no.txt", folder / "x"); }), "File not found: no.txt");
    EXPECT_FALSE(folder.has("x"));
}

TEST(DeleteFile, IsContentWithoutAFile)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "x");
    deleteFile(folder / "a.txt");
    deleteFile(folder / "a.txt");
    EXPECT_FALSE(folder.has("a.txt"));
    for (const char* name : {"full", "empty"}) {
        fs::create_directory(folder / name);
        if (std::string_view(name) == "full") folder.write("full/a.txt", "x");
        EXPECT_EQ(errorOf([&] { deleteFile(folder / name); }), "Path/File access error: " + std::string(name));
        EXPECT_TRUE(folder.has(name));
    }
}

#ifndef _WIN32

TEST(ReadFile, RefusesWhateverIsNoOrdinaryFileAtOnce)
{
    const TemporaryFolder folder;
    test::makePipe(folder / "pipe");
    EXPECT_EQ(errorOf([&] { static_cast<void>(readFile(folder / "pipe")); }), "Path/File access error: pipe");
    EXPECT_FALSE(readFileIfThere(folder / "pipe").has_value());
    EXPECT_EQ(errorOf([] { static_cast<void>(readFile("/dev/zero")); }), "Path/File access error: zero");
    fs::create_symlink("pipe", folder / "link");
    EXPECT_EQ(errorOf([&] { static_cast<void>(readFile(folder / "link")); }), "Path/File access error: link");
    fs::create_symlink("none", folder / "dangling");
    EXPECT_EQ(errorOf([&] { static_cast<void>(readFile(folder / "dangling")); }), "File not found: dangling");
}

TEST(ReadFile, ReadsFilesThatDoNotTellTheirSize)
{
    if (!fs::exists("/proc/self/status")) GTEST_SKIP() << "no such files here";
    EXPECT_EQ(fs::file_size("/proc/self/status"), 0U);
    EXPECT_NE(readFile("/proc/self/status").find("Pid:"), std::string::npos);
    EXPECT_EQ(errorOf([] { static_cast<void>(readContent("/proc/self/status", 20)); }), "File too large: status");
}

TEST(ReadFile, DoesNotTakeAFileOutOfReachForMissing)
{
    const TemporaryFolder folder;
    folder.write("locked/users.dat", "bob\r\n");
    fs::permissions(folder / "locked", fs::perms{0700});
    const fs::path file = folder / "locked/users.dat";
    const auto read = [&] { return errorOf([&] { static_cast<void>(readFileIfThere(file)); }); };
    EXPECT_EQ(test::asStranger(read), "Path/File access error: users.dat");
    const auto append = [&] { return errorOf([&] { appendLine(file, "eve"); }); };
    EXPECT_EQ(test::asStranger(append), "Path/File access error: users.dat");
    const auto noDescriptor = [&] {
        const test::NoMoreFiles noMore;
        return errorOf([&] { static_cast<void>(readFile(file)); });
    };
    EXPECT_EQ(noDescriptor(), "Path/File access error: users.dat");
}

TEST(ReplaceFile, KeepsThePermissionsOfTheFile)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "one");
    fs::permissions(folder / "a.txt", fs::perms{0600});
    replaceFile(folder / "a.txt", "two");
    EXPECT_EQ(fs::status(folder / "a.txt").permissions(), fs::perms{0600});
}

TEST(ReplaceFile, WritesThroughASymbolicLink)
{
    const TemporaryFolder folder;
    folder.write("real.txt", "one");
    fs::create_symlink("real.txt", folder / "link.txt");
    replaceFile(folder / "link.txt", "two");
    EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
    EXPECT_EQ(folder.read("real.txt"), "two");
}

TEST(ReplaceFile, LeavesAWriteProtectedFileAlone)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "one");
    fs::permissions(folder / "a.txt", fs::perms{0444});
    fs::permissions(folder.path(), fs::perms{0777});
    const auto replace = [&] { return errorOf([&] { replaceFile(folder / "a.txt", "two"); }); };
    EXPECT_EQ(test::asStranger(replace), "Path/File access error: a.txt");
    EXPECT_EQ(folder.read("a.txt"), "one");
}

TEST(ReplaceFile, WritesADeviceDirectly)
{
    replaceFile("/dev/null", "x");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(errorOf([] { replaceFile("/dev/full", "x"); }), "Disk full: full");
}

TEST(ReplaceFile, KeepsTheOldFileWhenTheDiskIsFull)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "old");
    std::string error;
    {
        const test::SmallDisk disk(100);
        error = errorOf([&] { replaceFile(folder / "a.txt", std::string(100'000, 'x')); });
    }
    EXPECT_EQ(error, "Disk full: a.txt");
    EXPECT_EQ(folder.read("a.txt"), "old");
    EXPECT_EQ(entriesOf(folder.path()), 1);
}

#endif

}  // namespace

}  // namespace kavo
