// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/atomic_file.h"

#include "base/text_file.h"
#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

#include <algorithm>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

namespace {

using test::errorOf;
using test::TemporaryFolder;

std::vector<std::string> entriesOf(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

using Names = std::vector<std::string>;

TEST(AtomicFile, KeepsTheOldContentWithoutACommit)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "old");
    {
        AtomicFile file(folder / "a.txt");
        file.write("new");
        file.flush();
        EXPECT_EQ(folder.read("a.txt"), "old");
        EXPECT_FALSE(file.hasFailed());
    }
    EXPECT_EQ(folder.read("a.txt"), "old");
    EXPECT_EQ(entriesOf(folder.path()), Names({"a.txt"}));
}

TEST(AtomicFile, TakesItsPlaceWithOrWithoutAFlush)
{
    const TemporaryFolder folder;
    for (const Flush flush : {Flush::ToDisk, Flush::Later}) {
        AtomicFile file(folder / "a.txt");
        const std::string large(200'000, flush == Flush::Later ? 'x' : 'y');
        for (const std::string_view part : {std::string_view("one"), std::string_view(large), std::string_view("two")})
            file.write(part);
        file.commit(flush);
        EXPECT_EQ(folder.read("a.txt"), "one" + large + "two");
        EXPECT_EQ(entriesOf(folder.path()), Names({"a.txt"}));
    }
}

TEST(AtomicFile, TemporaryNamesLookLikeNothingOfTheUsers)
{
    const TemporaryFolder folder;
    const AtomicFile file(folder / "colors.ini");
    const Names names = entriesOf(folder.path());
    ASSERT_EQ(names.size(), 1U);
    EXPECT_TRUE(names.front().starts_with(".kavo-")) << names.front();
    EXPECT_TRUE(names.front().ends_with(".tmp")) << names.front();
    EXPECT_TRUE(isTemporaryName(folder / names.front()));
    for (const char* name : {"a.tmp", ".kavo-1.ini", "colors.ini", ".bashrc"}) EXPECT_FALSE(isTemporaryName(name));
}

TEST(AtomicFile, TwoWritersOfOneFileDoNotMeet)
{
    const TemporaryFolder folder;
    AtomicFile first(folder / "a.txt");
    first.write("first");
    AtomicFile second(folder / "a.txt");
    second.write("second");
    second.commit();
    EXPECT_EQ(folder.read("a.txt"), "second");
    first.commit();
    EXPECT_EQ(folder.read("a.txt"), "first");
    EXPECT_EQ(entriesOf(folder.path()), Names({"a.txt"}));
}

#ifndef _WIN32

TEST(AtomicFile, NextSaveCleansUpAfterAKilledOne)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "old");
    for (int time = 0; time < 3; ++time)
        test::inKilledProcess([&] {
            AtomicFile first(folder / "a.txt");
            AtomicFile second(folder / "a.txt");
            second.write("half");
            second.flush();
            ::_exit(0);
        });
    EXPECT_EQ(entriesOf(folder.path()).size(), 3U);  // the third run has taken the first one's away
    replaceFile(folder / "a.txt", "new");
    EXPECT_EQ(folder.read("a.txt"), "new");
    EXPECT_EQ(entriesOf(folder.path()), Names({"a.txt"}));
}

TEST(AtomicFile, CleaningUpTouchesNothingElse)
{
    const TemporaryFolder folder;
    test::inKilledProcess([&] {
        AtomicFile other(folder / "b.txt");
        ::_exit(0);
    });
    const Names leftOfOther = entriesOf(folder.path());
    ASSERT_EQ(leftOfOther.size(), 1U);
    folder.write(".kavo-mine.tmp", "x");
    folder.write(".kavo-0-1.tmp", "x");
    replaceFile(folder / "a.txt", "new");
    EXPECT_EQ(entriesOf(folder.path()).size(), 4U);
    EXPECT_TRUE(folder.has(leftOfOther.front()));
}

TEST(AtomicFile, WritesThroughADanglingLink)
{
    const TemporaryFolder folder;
    folder.write("sub/other.txt", "x");
    fs::create_symlink("sub/real.txt", folder / "link.txt");
    fs::create_symlink("link.txt", folder / "second.txt");
    replaceFile(folder / "second.txt", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
    EXPECT_TRUE(fs::is_symlink(folder / "second.txt"));
    EXPECT_EQ(folder.read("sub/real.txt"), "new");
}

TEST(AtomicFile, NeverReplacesALinkThatLeadsNowhere)
{
    const TemporaryFolder folder;
    fs::create_symlink("gone/real.txt", folder / "far.txt");
    EXPECT_EQ(errorOf([&] { replaceFile(folder / "far.txt", "x"); }), "Path not found: far.txt");
    fs::create_symlink("b.txt", folder / "a.txt");
    fs::create_symlink("a.txt", folder / "b.txt");
    EXPECT_EQ(errorOf([&] { replaceFile(folder / "a.txt", "x"); }), "Path/File access error: a.txt");
    fs::create_directory(folder / "sub");
    fs::create_symlink("sub", folder / "folder.txt");
    EXPECT_EQ(errorOf([&] { replaceFile(folder / "folder.txt", "x"); }), "Path/File access error: folder.txt");
    for (const char* link : {"far.txt", "a.txt", "b.txt", "folder.txt"})
        EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
}

TEST(AtomicFile, DoesNotWaitForAPipesReader)
{
    const TemporaryFolder folder;
    test::makePipe(folder / "pipe");
    EXPECT_EQ(errorOf([&] { replaceFile(folder / "pipe", "x"); }), "Path/File access error: pipe");
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST(AtomicFile, WritesIntoAPipeThatSomebodyReads)
{
    const TemporaryFolder folder;
    test::makePipe(folder / "pipe");
    const int reader = ::open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    replaceFile(folder / "pipe", "report");
    std::string got(100, '\0');
    EXPECT_EQ(::read(reader, got.data(), got.size()), 6);
    EXPECT_EQ(got.substr(0, 6), "report");
    ::close(reader);
}

TEST(AtomicFile, RefusesWhatIsNeitherFileNorDevice)
{
    const TemporaryFolder folder;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    (folder / "socket").string().copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    EXPECT_EQ(errorOf([&] { replaceFile(folder / "socket", "x"); }), "Path/File access error: socket");
    EXPECT_TRUE(fs::is_socket(folder / "socket"));
    ::close(descriptor);
}

TEST(AtomicFile, KnowsThatTheDiskHasFailed)
{
    const TemporaryFolder folder;
    AtomicFile file(folder / "a.txt");
    file.write(std::string(1000, 'x'));
    const test::SmallDisk disk(100);
    EXPECT_EQ(errorOf([&] { file.commit(); }), "Disk full: a.txt");
    EXPECT_TRUE(file.hasFailed());
}

#endif

}  // namespace

}  // namespace kavo
