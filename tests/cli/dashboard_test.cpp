// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/bobs_folder.h"
#include "tests/support/command_line.h"
#include "tests/support/history_home.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace kavo {
namespace {

using test::Outcome;
using test::statisticsText;
using test::TemporaryFolder;

/// Runs the command and notes what it opens instead of opening it.
class DashboardCommand : public testing::Test
{
protected:
    DashboardCommand() { test::compareBobWithTargets(folder, statisticsText({"00:30:21 Ann"})); }

    Outcome run(const std::vector<std::string>& arguments)
    {
        const std::string path = folder.path().string();
        std::vector<const char*> argv = {"kavo-timing-cli", "--program-folder", path.c_str(), "dashboard"};
        for (const std::string& argument : arguments) argv.push_back(argument.c_str());
        const test::StreamFile out;
        const test::StreamFile error;
        const int status = runCommandLine(static_cast<int>(argv.size()), argv.data(),
                                          {.in = stdin,
                                           .out = out.file(),
                                           .error = error.file(),
                                           .output = {},
                                           .now = [] { return test::reportMoment(); },
                                           .openDocument = [this](const fs::path& file) { opened.push_back(file); }});
        return {status, out.content(), error.content()};
    }

    TemporaryFolder folder;
    test::HistoryHome home;
    std::vector<fs::path> opened;
};

TEST_F(DashboardCommand, IsPutWhereTheResultsAreRememberedAndNamed)
{
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "");
    ASSERT_TRUE(outcome.out.ends_with(".html\n")) << outcome.out;
    const fs::path file = outcome.out.substr(0, outcome.out.size() - 1);
    EXPECT_EQ(file.parent_path(), home.folder().path() / "kavo-timing" / "dashboard");
    EXPECT_TRUE(file.filename().string().starts_with("bob-"));
    EXPECT_TRUE(fs::exists(file));
    EXPECT_TRUE(opened.empty());
    EXPECT_EQ(run({}).out, outcome.out);  // replaced, not added
}

TEST_F(DashboardCommand, IsWrittenIntoTheFileNamedOrPrinted)
{
    const std::string file = (folder / "page.html").string();
    const Outcome written = run({"--output", file});
    EXPECT_EQ(written.status, 0);
    EXPECT_EQ(written.out, "");
    const Outcome printed = run({"--output", "-"});
    EXPECT_EQ(printed.out, folder.read("page.html"));
    EXPECT_TRUE(printed.out.starts_with("<!DOCTYPE html>\n"));
    EXPECT_NE(printed.out.find("As of 2026-03-07 14:05"), std::string::npos);
    EXPECT_FALSE(fs::exists(home.folder() / "kavo-timing/dashboard"));
}

TEST_F(DashboardCommand, IsOpenedOnceItIsWritten)
{
    const std::string file = (folder / "page.html").string();
    EXPECT_EQ(run({"--open", "--output", file}).status, 0);
    EXPECT_EQ(opened, std::vector<fs::path>{file});
    EXPECT_EQ(run({"--open"}).status, 0);
    EXPECT_EQ(opened.size(), 2U);
    EXPECT_EQ(run({"--open", "--output", "-"}).status, 2);
    EXPECT_EQ(opened.size(), 2U);
}

TEST_F(DashboardCommand, ShowsWhatIsRemembered)
{
    const auto shows = [this](std::string_view text) {
        return run({"--output", "-"}).out.find(text) != std::string::npos;
    };
    EXPECT_TRUE(shows("Shown as soon as two results are remembered"));
    for (const char* time : {"00:40:00 Ann", "00:30:21 Ann"}) {
        folder.write("stats.txt", statisticsText({time}));
        EXPECT_EQ(test::runCommand(folder, {"history", "save"}).status, 0);
    }
    EXPECT_TRUE(shows("Table of 2 remembered results"));
    EXPECT_TRUE(shows("<bdi>1, Track</bdi>: 00:40:00 → 00:30:21, <b class=\"g3\">Good</b></li>"));
}

TEST_F(DashboardCommand, NeedsResults)
{
    fs::remove(folder / "stats.txt");
    const std::string file = (folder / "page.html").string();
    const Outcome outcome = run({"--output", file, "--open"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("File not found: "), std::string::npos) << outcome.error;
    folder.write("stats.txt", "no statistics\r\n");
    EXPECT_EQ(run({"--output", file, "--open"}).status, 1);
    EXPECT_FALSE(folder.has("page.html"));
    EXPECT_TRUE(opened.empty());
}

TEST_F(DashboardCommand, TellsWhereItCannotBeWritten)
{
    const Outcome outcome = run({"--output", (folder / "missing/page.html").string(), "--open"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("page.html"), std::string::npos) << outcome.error;
    EXPECT_TRUE(opened.empty());
}

TEST_F(DashboardCommand, WritesNothingIntoTheProgramFolder)
{
    const auto files = [this] {
        std::vector<fs::path> found;
        for (const auto& entry : fs::recursive_directory_iterator(folder.path())) found.push_back(entry.path());
        std::sort(found.begin(), found.end());
        return found;
    };
    const std::vector<fs::path> before = files();
    EXPECT_EQ(run({}).status, 0);
    EXPECT_EQ(files(), before);
}

TEST_F(DashboardCommand, DoesWithoutAHome)
{
    const test::EnvironmentValue stateHome("XDG_STATE_HOME", "");
    const test::EnvironmentValue ownHome("HOME", "");
    const test::EnvironmentValue localData("LOCALAPPDATA", "");
    EXPECT_EQ(run({"--output", "-"}).status, 0);
    EXPECT_EQ(run({}).status, 1);
}

}  // namespace
}  // namespace kavo
