// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/office_launcher.h"

#include "tests/support/no_more_threads.h"
#include "tests/support/processes.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <sys/stat.h>
#include <system_error>

namespace kavo {
namespace {

using test::lookUntil;
using test::processesWith;

/// Starts a shell that first writes its number into `folder`/number and then waits for a line in `folder`/line.
class OfficeLauncherTest : public testing::Test
{
protected:
    OfficeLauncherTest() { ::mkfifo(path("line").c_str(), S_IRUSR | S_IWUSR); }

    [[nodiscard]] std::string path(const char* name) const { return (folder / name).string(); }

    [[nodiscard]] std::vector<std::string> waiting() const
    {
        return {"-c", "echo $$ >'" + path("number.new") + "'; mv '" + path("number.new") + "' '" + path("number") +
                          "'; read line <'" + path("line") + "'"};
    }

    void letItEnd() const { std::ofstream(path("line")) << "\n"; }

    test::TemporaryFolder folder;
};

TEST_F(OfficeLauncherTest, KnowsWhetherTheProgramRuns)
{
    const OfficeLauncher launcher("/bin/sh", waiting());
    EXPECT_TRUE(launcher.isRunning());
    letItEnd();
    EXPECT_TRUE(lookUntil([&] { return !launcher.isRunning(); }));
    launcher.terminate();  // nobody
}

TEST_F(OfficeLauncherTest, LeavesNoDeadEntryBehindAlsoWhenItIsLongGone)
{
    std::optional<OfficeLauncher> launcher(std::in_place, "/bin/sh", waiting());
    ASSERT_TRUE(lookUntil([&] { return folder.has("number"); }));
    const std::filesystem::path entry = "/proc/" + std::to_string(std::stoi(folder.read("number")));
    launcher.reset();
    EXPECT_TRUE(std::filesystem::exists(entry));
    letItEnd();
    EXPECT_TRUE(lookUntil([&] { return !std::filesystem::exists(entry); }));
}

TEST_F(OfficeLauncherTest, TerminatesAllThatWasStarted)
{
    const OfficeLauncher launcher("/bin/sh", {"-c", "sh -c 'read line <\"" + path("line") + "\"; true' & wait"});
    ASSERT_TRUE(lookUntil([&] { return processesWith(path("line")).size() == 2; }));
    launcher.terminate();
    EXPECT_TRUE(lookUntil([&] { return processesWith(path("line")).empty() && !launcher.isRunning(); }));
}

TEST_F(OfficeLauncherTest, KillsWhatDoesNotEndWhenAsked)
{
    const OfficeLauncher launcher("/bin/sh", {"-c", "trap '' TERM; echo >'" + path("ready") +
                                                        "'; while true; do read line <'" + path("line") + "'; done"});
    ASSERT_TRUE(lookUntil([&] { return folder.has("ready"); }));
    launcher.terminate(std::chrono::milliseconds(1));
    EXPECT_TRUE(lookUntil([&] { return !launcher.isRunning(); }));
    EXPECT_TRUE(processesWith(path("line")).empty());
}

TEST_F(OfficeLauncherTest, WithoutAThreadNothingIsStarted)
{
    const test::NoMoreThreads limit;
    EXPECT_THROW(OfficeLauncher("/bin/sh", waiting()), std::system_error);
    EXPECT_TRUE(processesWith(path("line")).empty());
}

TEST_F(OfficeLauncherTest, ProgramThatIsMissingIsAnError)
{
    EXPECT_THROW(OfficeLauncher(folder / "nothing", {}), std::runtime_error);
}

}  // namespace
}  // namespace kavo
