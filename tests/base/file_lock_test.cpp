// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_lock.h"

#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <spawn.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

namespace {

using test::TemporaryFolder;
using State = FileLock::State;

TEST(FileLock, IsHeldByOneAtATime)
{
    const TemporaryFolder folder;
    {
        const FileLock first(folder / "lock");
        EXPECT_EQ(first.state(), State::Held);
        EXPECT_TRUE(folder.has("lock"));
        const FileLock second(folder / "lock");
        EXPECT_EQ(second.state(), State::Busy);
    }
    EXPECT_FALSE(folder.has("lock"));
    EXPECT_EQ(FileLock(folder / "lock").state(), State::Held);
}

TEST(FileLock, DoesNotCareWhatTheFileHolds)
{
    const TemporaryFolder folder;
    for (const char* content : {"", "garbage", "1234\nkavo-timing\nanother-machine\n"}) {
        folder.write("lock", content);
        EXPECT_EQ(FileLock(folder / "lock").state(), State::Held) << content;
    }
}

TEST(FileLock, IsUnavailableWhereNoFileCanBeMade)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "lock");
    EXPECT_EQ(FileLock(folder / "lock").state(), State::Unavailable);
    EXPECT_EQ(FileLock(folder / "none/lock").state(), State::Unavailable);
    EXPECT_TRUE(fs::is_directory(folder / "lock"));
}

#ifndef _WIN32

TEST(FileLock, IsUnavailableOnPipesAndDevices)
{
    const TemporaryFolder folder;
    test::makePipe(folder / "pipe");
    EXPECT_EQ(FileLock(folder / "pipe").state(), State::Unavailable);
    fs::create_symlink("/dev/null", folder / "device");
    EXPECT_EQ(FileLock(folder / "device").state(), State::Unavailable);
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST(FileLock, IsHeldThroughALink)
{
    const TemporaryFolder folder;
    fs::create_symlink("real", folder / "lock");
    {
        const FileLock lock(folder / "lock");
        EXPECT_EQ(lock.state(), State::Held);
        EXPECT_EQ(FileLock(folder / "real").state(), State::Busy);
    }
    EXPECT_TRUE(fs::is_symlink(folder / "lock"));
}

TEST(FileLock, IsHeldOnAFileThatMayNotBeWritten)
{
    const TemporaryFolder folder;
    folder.write("lock", "");
    fs::permissions(folder / "lock", fs::perms{0444});
    const auto stateOfStranger = [&] {
        return test::asStranger([&] { return std::to_string(static_cast<int>(FileLock(folder / "lock").state())); });
    };
    EXPECT_EQ(stateOfStranger(), std::to_string(static_cast<int>(State::Held)));
    const FileLock lock(folder / "lock");
    EXPECT_EQ(stateOfStranger(), std::to_string(static_cast<int>(State::Busy)));
}

TEST(FileLock, EndsWithAHolderThatIsKilled)
{
    const TemporaryFolder folder;
    test::inKilledProcess([&] {
        const FileLock lock(folder / "lock");
        ::_exit(0);
    });
    EXPECT_TRUE(folder.has("lock"));
    EXPECT_EQ(FileLock(folder / "lock").state(), State::Held);
}

TEST(FileLock, IsNotInheritedByAProgramThatTheHolderStarts)
{
    const TemporaryFolder folder;
    pid_t child = 0;
    {
        const FileLock lock(folder / "lock");
        std::string name = "sleep";
        std::string seconds = "60";
        char* const arguments[] = {name.data(), seconds.data(), nullptr};
        ASSERT_EQ(::posix_spawnp(&child, "sleep", nullptr, nullptr, arguments, environ), 0);
    }
    EXPECT_EQ(FileLock(folder / "lock").state(), State::Held);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

#endif

}  // namespace

}  // namespace kavo
