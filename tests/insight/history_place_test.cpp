// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/history_place.h"

#include "base/file_name.h"
#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace kavo {
namespace {

#ifdef _WIN32
constexpr const char* kStateHome = "C:/state";
#else
constexpr const char* kStateHome = "/state";
#endif

TEST(HistoryRoot, LiesInTheUsersStateHome)
{
    EXPECT_EQ(historyRoot({{}, kStateHome, "/home/zoe"}), fs::path(kStateHome) / "kavo-timing/history");
    EXPECT_EQ(historyRoot({{}, std::nullopt, "/home/zoe"}), fs::path("/home/zoe/.local/state/kavo-timing/history"));
}

TEST(HistoryRoot, IgnoresARelativeStateHome)
{
    EXPECT_EQ(historyRoot({{}, "state", "/home/zoe"}), fs::path("/home/zoe/.local/state/kavo-timing/history"));
}

TEST(HistoryRoot, NeedsAHome)
{
    EXPECT_EQ(test::errorOf([] { static_cast<void>(historyRoot({})); }), "Path not found: history");
}

TEST(History, IsWantedUnlessTurnedOff)
{
    EXPECT_TRUE(isHistoryWanted({}));
    EXPECT_TRUE(isHistoryWanted({"on", {}, {}}));
    EXPECT_FALSE(isHistoryWanted({"off", {}, {}}));
    EXPECT_FALSE(isHistoryWanted({"OFF", {}, {}}));
}

/// The folder's name without the sixteen digits at its end.
std::string readablePart(std::string_view userFolder)
{
    const std::string name = textOf(historyFolder("/root", pathOf(userFolder)).filename());
    const std::size_t dash = name.size() - 17;
    EXPECT_EQ(name.substr(dash).find_first_not_of("-0123456789abcdef"), std::string::npos) << name;
    return name.substr(0, dash);
}

TEST(HistoryFolder, BeginsWithTheNick)
{
    EXPECT_EQ(readablePart("/kavo/bob"), "bob");
    EXPECT_EQ(readablePart("/kavo/Жанна"), "Жанна");
    EXPECT_EQ(readablePart("/kavo/J\xFCrgen"), "Jürgen");
    EXPECT_EQ(readablePart("/kavo/ a.b:c*~"), "_a_b_c__");
    EXPECT_EQ(readablePart("/kavo/" + std::string(50, 'x')), std::string(32, 'x'));
    EXPECT_EQ(historyFolder("/root", "/kavo/bob").parent_path(), fs::path("/root"));
}

TEST(HistoryFolder, IsAnotherForAnotherUserOrProgramFolder)
{
    const fs::path bob = historyFolder("/root", "/kavo/bob");
    EXPECT_EQ(bob, historyFolder("/root", "/kavo/bob"));
    EXPECT_NE(bob, historyFolder("/root", "/kavo/bib"));
    EXPECT_NE(bob, historyFolder("/root", "/other/bob"));
    EXPECT_NE(historyFolder("/root", "/kavo/a.b"), historyFolder("/root", "/kavo/a:b"));
#ifndef _WIN32  // which keeps names as characters, not as bytes
    EXPECT_NE(historyFolder("/root", "/kavo/\xFC"), historyFolder("/root", "/kavo/ü"));
#endif
}

TEST(HistoryFolder, IsTheSameOnEveryWayToTheUsersFolder)
{
    const test::TemporaryFolder folder;
    folder.write("kavo/bob/data.ini", "");
    fs::create_directory_symlink(folder / "kavo", folder / "link");
    const fs::path direct = historyFolder("/root", folder / "kavo/bob");
    EXPECT_EQ(historyFolder("/root", folder / "link/bob"), direct);
    EXPECT_EQ(historyFolder("/root", folder / "kavo/../kavo/./bob"), direct);
}

TEST(DashboardFile, IsOneForEachUserBesideTheHistories)
{
    const HistorySources sources = {{}, kStateHome, {}};
    const fs::path bob = dashboardFile(sources, "/kavo/bob");
    EXPECT_EQ(bob, fs::path(kStateHome) / "kavo-timing/dashboard" /
                       (historyFolder("/root", "/kavo/bob").filename().string() + ".html"));
    EXPECT_NE(bob, dashboardFile(sources, "/other/bob"));
    EXPECT_EQ(test::errorOf([] { static_cast<void>(dashboardFile({}, "/kavo/bob")); }), "Path not found: dashboard");
}

}  // namespace
}  // namespace kavo
