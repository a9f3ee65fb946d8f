// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/history_store.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "insight/fingerprint.h"
#include "insight/history_index.h"
#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

#include <thread>

#ifndef _WIN32
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace kavo {
namespace {

constexpr std::time_t kMoment = 1795257991;  // 21 November 2026, 10:46:31 in UTC

/// A statistics file that differs from one with another number, but not in its length.
std::string state(int number)
{
    const std::string digits = std::to_string(100000 + number).substr(1);
    return test::statisticsText({"00:" + digits.substr(0, 2) + ":" + digits.substr(2, 2) + " Zoe"}) + "Ride " + digits +
           "\r\n";
}

class HistoryStoreTest : public ::testing::Test
{
protected:
    HistoryStoreTest() : history(folder / "state/kavo-timing/history/bob") {}

    std::string remember(const std::string& text, std::time_t now)
    {
        const Remembered remembered = history.remember(text, now);
        switch (remembered.result) {
        case Remembering::Kept: return "kept " + remembered.name;
        case Remembering::KnownAlready: return "known " + remembered.name;
        case Remembering::NotWhole: return "not whole";
        case Remembering::TooLarge: break;
        }
        return "too large";
    }

    [[nodiscard]] std::vector<std::string> names() const { return namesOf(history.states()); }

    test::TemporaryFolder folder;
    HistoryStore history;
};

using Names = std::vector<std::string>;

TEST_F(HistoryStoreTest, IsEmptyWithoutAFolder)
{
    EXPECT_TRUE(history.states().empty());
    EXPECT_FALSE(fs::exists(folder / "state"));
}

TEST_F(HistoryStoreTest, KeepsAStateVerbatimUnderItsUtcTime)
{
    const std::string text = state(1) + "J\xFCrgen \0 and no line end";
    EXPECT_EQ(remember(text, kMoment), "kept 20261121T104631Z.txt");
    ASSERT_EQ(names(), Names{"20261121T104631Z.txt"});
    EXPECT_EQ(history.read("20261121T104631Z.txt"), text);
    const RememberedState kept = history.states().front();
    EXPECT_EQ(kept.moment, kMoment);
    EXPECT_EQ(kept.mark.size, text.size());
}

TEST_F(HistoryStoreTest, KeepsEachDistinctStateOnce)
{
    EXPECT_EQ(remember(state(1), kMoment), "kept 20261121T104631Z.txt");
    EXPECT_EQ(remember(state(1), kMoment + 60), "known 20261121T104631Z.txt");
    EXPECT_EQ(remember(state(2), kMoment + 120), "kept 20261121T104831Z.txt");
    EXPECT_EQ(remember(state(1), kMoment + 180), "known 20261121T104631Z.txt");
    EXPECT_EQ(names().size(), 2U);
}

TEST_F(HistoryStoreTest, GivesTwoStatesOfOneSecondNamesInTheirOrder)
{
    EXPECT_EQ(remember(state(1), kMoment), "kept 20261121T104631Z.txt");
    EXPECT_EQ(remember(state(2), kMoment), "kept 20261121T104632Z.txt");
    EXPECT_EQ(remember(state(3), kMoment), "kept 20261121T104633Z.txt");
    EXPECT_EQ(remember(state(4), kMoment + 1), "kept 20261121T104634Z.txt");
}

TEST_F(HistoryStoreTest, GoesOnBehindTheLatestStateWhenTheClockWasPutBack)
{
    EXPECT_EQ(remember(state(1), kMoment), "kept 20261121T104631Z.txt");
    EXPECT_EQ(remember(state(2), 0), "kept 20261121T104632Z.txt");
}

TEST_F(HistoryStoreTest, FindsANameAlsoBesideOneFromTheEndOfTime)
{
    fs::create_directories(history.folder());
    folder.write("state/kavo-timing/history/bob/99991231T235959Z.txt", "foreign");
    EXPECT_EQ(remember(state(1), kMoment), "kept 20261121T104631Z.txt");
    EXPECT_EQ(remember(state(2), kMoment), "kept 20261121T104632Z.txt");
}

TEST_F(HistoryStoreTest, TakesNoNameThatAnythingElseHas)
{
    fs::create_directories(history.folder() / "20261121T104631Z.txt");
    EXPECT_EQ(remember(state(1), kMoment), "kept 20261121T104632Z.txt");
}

TEST_F(HistoryStoreTest, KeepsNothingThatALoadingWouldNotReadToItsEnd)
{
    EXPECT_EQ(remember("", kMoment), "not whole");
    EXPECT_EQ(remember("Player Level 1", kMoment), "not whole");
    EXPECT_EQ(remember(state(1).substr(0, 900), kMoment), "not whole");
    EXPECT_EQ(remember(state(1) + std::string(kLargestState, ' '), kMoment), "too large");
    EXPECT_FALSE(fs::exists(folder / "state"));
}

TEST_F(HistoryStoreTest, RemembersAFileAsItIs)
{
    folder.write("stats.txt", state(5));
    EXPECT_EQ(rememberFile(history, folder / "stats.txt", kMoment).name, "20261121T104631Z.txt");
    EXPECT_EQ(history.read("20261121T104631Z.txt"), state(5));
    EXPECT_EQ(test::errorOf([&] { static_cast<void>(rememberFile(history, folder / "none.txt", kMoment)); }),
              "File not found: none.txt");
    EXPECT_EQ(test::errorOf([&] { static_cast<void>(rememberFile(history, folder.path(), kMoment)); }).substr(0, 14),
              "File not found");
    fs::resize_file(folder / "stats.txt", kLargestState + 1);
    EXPECT_EQ(rememberFile(history, folder / "stats.txt", kMoment).result, Remembering::TooLarge);
}

TEST_F(HistoryStoreTest, IsReadByTheNamesOfStatesOnly)
{
    static_cast<void>(history.remember(state(1), kMoment));
    for (const char* name : {"index", "lock", "20261121T104632Z.txt", "../bob/20261121T104631Z.txt", ""})
        EXPECT_EQ(test::errorOf([&] { static_cast<void>(history.read(name)); }).substr(0, 14), "File not found")
            << name;
}

TEST_F(HistoryStoreTest, LeavesForeignThingsAlone)
{
    static_cast<void>(history.remember(state(1), kMoment));
    const std::string at = "state/kavo-timing/history/bob/";
    folder.write(at + "notes.txt", "mine");
    folder.write(at + "20261121T104700Z.txt~", "a backup");
    fs::create_directories(history.folder() / "20261121T104701Z.txt");
    fs::create_symlink(folder / "nowhere", history.folder() / "20261121T104702Z.txt");
    fs::create_symlink(history.folder() / "20261121T104631Z.txt", history.folder() / "20261121T104703Z.txt");
    folder.write(at + "20261121T104704Z.txt", "");
    fs::resize_file(history.folder() / "20261121T104704Z.txt", kLargestState + 1);
#ifndef _WIN32
    ASSERT_EQ(::mkfifo((history.folder() / "20261121T104705Z.txt").c_str(), 0600), 0);
#endif
    EXPECT_EQ(names(), Names{"20261121T104631Z.txt"});
    EXPECT_EQ(remember(state(1), kMoment), "known 20261121T104631Z.txt");
    EXPECT_EQ(remember(state(2), kMoment + 29), "kept 20261121T104700Z.txt");
    EXPECT_EQ(remember(state(3), kMoment + 30), "kept 20261121T104706Z.txt");
    EXPECT_EQ(folder.read(at + "notes.txt"), "mine");
}

TEST_F(HistoryStoreTest, DoesWithoutItsIndexAndLock)
{
    static_cast<void>(history.remember(state(1), kMoment));
    static_cast<void>(history.remember(state(2), kMoment + 1));
    for (const char* name : {"index", "lock"}) {
        fs::remove_all(history.folder() / name);
        fs::create_directories(history.folder() / name / "in the way");
    }
    EXPECT_EQ(remember(state(1), kMoment + 2), "known 20261121T104631Z.txt");
    EXPECT_EQ(remember(state(3), kMoment + 3), "kept 20261121T104634Z.txt");
}

TEST_F(HistoryStoreTest, IsNotMisledByAWrongIndex)
{
    static_cast<void>(history.remember(state(1), kMoment));
    const RememberedState first = history.states().front();
    folder.write("state/kavo-timing/history/bob/index",
                 "rubbish\n" + HistoryIndex::line(first.name, first.mark, fingerprint(state(3))));
    static_cast<void>(history.remember(state(2), kMoment + 1));
    // Equal by the index, but not byte by byte.
    EXPECT_EQ(remember(state(3), kMoment + 5), "kept 20261121T104636Z.txt");
}

TEST_F(HistoryStoreTest, NoticesAStateThatSomebodyHasChanged)
{
    static_cast<void>(history.remember(state(1), kMoment));
    static_cast<void>(history.remember(state(2), kMoment + 1));
    const fs::path first = history.folder() / "20261121T104631Z.txt";
    folder.write("state/kavo-timing/history/bob/20261121T104631Z.txt", state(9));
    fs::last_write_time(first, fs::last_write_time(first) + std::chrono::seconds(5));
    EXPECT_EQ(remember(state(9), kMoment + 2), "known 20261121T104631Z.txt");
    EXPECT_EQ(remember(state(1), kMoment + 2), "kept 20261121T104633Z.txt");
}

TEST_F(HistoryStoreTest, ThrowsAwayAnIndexThatHasGrownBeyondReason)
{
    static_cast<void>(history.remember(state(1), kMoment));
    fs::resize_file(history.folder() / "index", 64U << 20U);
    EXPECT_EQ(remember(state(2), kMoment + 1), "kept 20261121T104632Z.txt");
    EXPECT_LT(fs::file_size(history.folder() / "index"), 1000U);
    EXPECT_EQ(remember(state(1), kMoment + 2), "known 20261121T104631Z.txt");
}

TEST_F(HistoryStoreTest, RemovesWhatAKilledRunHasLeft)
{
    static_cast<void>(history.remember(state(1), kMoment));
    folder.write("state/kavo-timing/history/bob/.kavo-99999999-1.tmp", "half a state");
    static_cast<void>(history.remember(state(2), kMoment + 1));
    EXPECT_FALSE(fs::exists(history.folder() / ".kavo-99999999-1.tmp"));
}

TEST_F(HistoryStoreTest, IsForTheUserAlone)
{
    static_cast<void>(history.remember(state(1), kMoment));
#ifndef _WIN32
    EXPECT_EQ(fs::status(history.folder()).permissions(), fs::perms::owner_all);
#endif
}

TEST_F(HistoryStoreTest, SaysWhereItCannotBeMade)
{
    folder.write("state", "a file in the way");
    EXPECT_NE(test::errorOf([&] { static_cast<void>(history.remember(state(1), kMoment)); }), "no error");
}

#ifndef _WIN32

/// Runs an action in a process of its own; returns its id.
template <typename Action>
::pid_t inAnotherProcess(Action action)
{
    const ::pid_t child = ::fork();
    if (child != 0) return child;
    try {
        action();
    } catch (...) {
        ::_exit(1);
    }
    ::_exit(0);
}

TEST_F(HistoryStoreTest, NeitherLosesNorDoublesAStateAmongManyPrograms)
{
    constexpr int kPrograms = 6;
    constexpr int kStates = 40;
    std::vector<::pid_t> children;
    for (int program = 0; program < kPrograms; ++program)
        children.push_back(inAnotherProcess([&] {
            // All of them the same states, each in an order of its own.
            for (int i = 0; i < kStates; ++i)
                static_cast<void>(
                    HistoryStore(history.folder()).remember(state((i * 7 + program * 11) % kStates), kMoment));
        }));
    for (const ::pid_t child : children) {
        int status = 1;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    std::vector<std::string> contents;
    for (const std::string& name : names()) contents.push_back(history.read(name));
    std::sort(contents.begin(), contents.end());
    std::vector<std::string> expected;
    for (int i = 0; i < kStates; ++i) expected.push_back(state(i));
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(contents, expected);
}

TEST_F(HistoryStoreTest, HoldsWholeStatesOnlyWheneverAProgramIsKilled)
{
    for (std::size_t round = 1; round <= 20; ++round) {
        const ::pid_t child = inAnotherProcess([&] {
            for (int i = 0;; ++i) static_cast<void>(HistoryStore(history.folder()).remember(state(i), kMoment));
        });
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (names().size() < 2 * round && std::chrono::steady_clock::now() < end) std::this_thread::yield();
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
    }
    const Names kept = names();
    ASSERT_GE(kept.size(), 40U);
    for (std::size_t i = 0; i < kept.size(); ++i) EXPECT_EQ(history.read(kept[i]), state(static_cast<int>(i)));
    // And the next one finds its way, nobody being in it.
    EXPECT_EQ(remember(state(90000), kMoment).substr(0, 4), "kept");
}

#endif

}  // namespace
}  // namespace kavo
