// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/trouble.h"

#include "tests/support/command_line.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>
#include <string>
#include <system_error>
#include <tuple>
#include <vector>

/// The command line in trouble with the system: a message and status 1, never an abort and never a wait.
namespace kavo {

namespace {

namespace fs = std::filesystem;
using test::Outcome;
using test::runArguments;
using test::runCommand;
using test::TemporaryFolder;

/// A program folder whose user is bob, with a short form for the template export.
class Trouble : public testing::Test
{
protected:
    Trouble()
    {
        folder.write("users.dat", "bob\r\n");
        folder.write("curUser.dat", "bob\r\n");
        folder.write("bob/data.ini", "stats.txt\r\n 3 \r\n\r\nGood\r\n");
        folder.write("stats.txt", test::statisticsText({"00:10:00 Ann"}));
        folder.write("targets.txt", test::targetsText());
        folder.write("form.ett", "");
    }

    [[nodiscard]] Outcome run(const std::vector<std::string>& arguments) const { return runCommand(folder, arguments); }

    [[nodiscard]] std::string path(std::string_view name) const { return (folder / name).string(); }

    /// What is told when a clock fails in this way.
    [[nodiscard]] std::string told(const std::function<std::time_t()>& clock) const
    {
        const std::string programFolder = folder.path().string();
        const std::string form = path("form.ett");
        const std::vector<const char*> argv = {"kavo-timing-cli",
                                               "--program-folder",
                                               programFolder.c_str(),
                                               "export-html",
                                               "--template",
                                               form.c_str(),
                                               "-"};
        const test::StreamFile out;
        const test::StreamFile error;
        const int status =
            runCommandLine(static_cast<int>(argv.size()), argv.data(),
                           {.in = stdin, .out = out.file(), .error = error.file(), .output = {}, .now = clock});
        EXPECT_EQ(status, 1);
        return error.content();
    }

    TemporaryFolder folder;
};

/// Makes a folder that has gone the working folder for as long as this lives.
class DeletedWorkingFolder
{
public:
    DeletedWorkingFolder()
    {
        const TemporaryFolder folder;
        fs::current_path(folder.path());
    }
    ~DeletedWorkingFolder() { fs::current_path(m_before); }
    DeletedWorkingFolder(const DeletedWorkingFolder&) = delete;
    DeletedWorkingFolder& operator=(const DeletedWorkingFolder&) = delete;

private:
    fs::path m_before = fs::current_path();
};

TEST_F(Trouble, OfAnyKindIsToldInWords)
{
    EXPECT_EQ(told([]() -> std::time_t { throw std::bad_alloc(); }), "kavo-timing-cli: Out of memory\n");
    EXPECT_EQ(told([]() -> std::time_t {
                  throw fs::filesystem_error("what", "clock", std::make_error_code(std::errc::permission_denied));
              }),
              "kavo-timing-cli: Path/File access error: clock (Permission denied)\n");
}

TEST_F(Trouble, NickThatIsEmptyIsAUsageError)
{
    const Outcome outcome = run({"--user", "", "show"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: --user: NICK is empty\n");
    EXPECT_EQ(run({"--user=", "show"}).status, 2);
}

TEST_F(Trouble, StatisticsFileOfATerabyteIsToldAtOnce)
{
    folder.enlarge("stats.txt");
    const Outcome outcome = run({"show"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: File too large: " + path("stats.txt") + "\n");
}

#ifndef _WIN32  // where no pipe has a place among the files, no process a smallest disk, and a folder in use stays

TEST_F(Trouble, PipesInPlaceOfFilesAreToldAtOnce)
{
    for (const auto& [name, status, message] :
         {std::tuple{"targets.txt", 0, std::string("Unable to find: targets.txt.")},
          std::tuple{
              "curUser.dat", 1,
              "Path/File access error: " + path("curUser.dat") + "; --user NICK names a user; there are bob\n"}}) {
        fs::remove(folder / name);
        test::makePipe(path(name));
        const Outcome outcome = run({"show"});
        EXPECT_EQ(outcome.status, status) << name;
        EXPECT_NE(outcome.error.find(message), std::string::npos) << outcome.error;
    }
}

TEST_F(Trouble, FullDiskLeavesTheReportsThatWereThere)
{
    const std::vector<std::vector<std::string>> calls = {
        {"export-text", path("report.txt")}, {"export-html", "--template", path("form.ett"), path("report.txt")}};
    folder.write("report.txt", "old");
    for (const std::vector<std::string>& call : calls) {
        const Outcome outcome = [&] {
            const test::SmallDisk disk(100);
            return run(call);
        }();
        EXPECT_EQ(outcome.status, 1) << call.front();
        EXPECT_EQ(folder.read("report.txt"), "old") << call.front();
    }
}

TEST_F(Trouble, WorkingFolderThatWasDeletedIsAPathThatIsNotFound)
{
    const DeletedWorkingFolder deleted;
    EXPECT_EQ(run({"export-text", "report.txt"}).error,
              "kavo-timing-cli: Path not found: report.txt (No such file or directory)\n");
    EXPECT_EQ(
        runArguments({"--program-folder", ".", "show"}).error,
        "kavo-timing-cli: Path not found: . (No such file or directory); --program-folder DIR or KAVO_PROGRAM_FOLDER "
        "name the program folder\n");
    EXPECT_EQ(run({"show"}).status, 0);
}

#endif

}  // namespace

}  // namespace kavo
