// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text.h"
#include "base/text_file.h"
#include "tests/support/command_line.h"
#include "tests/support/places.h"
#include "updater/records_page.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace fs = std::filesystem;
using kavo::test::Outcome;
using kavo::test::TemporaryFolder;

namespace {

Outcome run(const TemporaryFolder& folder, std::vector<std::string> arguments, const std::string& input = "")
{
    arguments.insert(arguments.begin(), "update-targets");
    return kavo::test::runCommand(folder, arguments, input);
}

std::string sample(const char* name)
{
    return kavo::readFile(kavo::test::sourceFolder() / name);
}

/// Fixed targets and nothing else: no user, no statistics.
void fill(const TemporaryFolder& folder)
{
    folder.write("targets_old.txt", sample("data/targets_old.txt"));
}

}  // namespace

TEST(UpdateTargets, RewritesTheTargetsFromAPageFile)
{
    const TemporaryFolder folder;
    fill(folder);
    const Outcome outcome =
        run(folder, {"--page", (kavo::test::sourceFolder() / "tests/data/records_page.html").string()});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(folder.read("targets.txt"), sample("tests/data/records_page_targets.txt"));
}

TEST(UpdateTargets, ReadsStandardInput)
{
    const TemporaryFolder folder;
    fill(folder);
    EXPECT_EQ(run(folder, {"--page", "-"}, sample("tests/data/records_page.html")).status, 0);
    EXPECT_EQ(folder.read("targets.txt"), sample("tests/data/records_page_targets.txt"));
}

TEST(UpdateTargets, SaysWhatHasChanged)
{
    const TemporaryFolder folder;
    fill(folder);
    const std::string targets = (folder / "targets.txt").string();
    const std::string page = sample("tests/data/records_page.html");
    EXPECT_EQ(run(folder, {"--page", "-"}, page).error,
              "kavo-timing-cli: " + targets + ": 54 records found; there were no targets before\n");
    EXPECT_EQ(run(folder, {"--page", "-"}, page).error,
              "kavo-timing-cli: " + targets + ": 54 records found; none changed\n");
    folder.write("targets.txt", kavo::replaceAll(folder.read("targets.txt"), "00:20:04,", "00.20.05,"));
    EXPECT_EQ(run(folder, {"--page", "-"}, page).error, "kavo-timing-cli: " + targets +
                                                            ": 54 records found; 1 changed\n"
                                                            "kavo-timing-cli: level 2: 00:20:05 -> 00:20:04\n");
    // Players' own files may have points for colons, which makes no other time.
    folder.write("targets.txt", kavo::replaceAll(folder.read("targets.txt"), ":", "."));
    EXPECT_EQ(run(folder, {"--page", "-"}, page).error,
              "kavo-timing-cli: " + targets + ": 54 records found; none changed\n");
}

TEST(UpdateTargets, GoesOnFromTargetsThatEndEarly)
{
    const TemporaryFolder folder;
    fill(folder);
    folder.write("targets.txt", "00:14:42,a,b,c,d\r\n00:20:04,a,b,c,d\r\n");
    const Outcome outcome = run(folder, {"--page", "-"}, sample("tests/data/records_page.html"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.error.find(": 54 records found; 52 changed\nkavo-timing-cli: level 3: no time -> 00:12:47\n"),
              std::string::npos)
        << outcome.error;
    EXPECT_EQ(folder.read("targets.txt"), sample("tests/data/records_page_targets.txt"));
}

TEST(UpdateTargets, RefusesAPageWithoutAllTimes)
{
    const TemporaryFolder folder;
    fill(folder);
    folder.write("targets.txt", "good\r\n");
    folder.write("page.html", kavo::replaceAll(sample("tests/data/records_page.html"), ">14,42<", ">n/a<"));
    const Outcome outcome = run(folder, {"--page", (folder / "page.html").string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.error, "kavo-timing-cli: " + (folder / "page.html").string() +
                                 ": 53 of 54 records found, no time of the form MM:SS:HH for level 1; nothing was "
                                 "changed (--force writes what there is)\n");
    EXPECT_EQ(folder.read("targets.txt"), "good\r\n");
    EXPECT_FALSE(folder.has("targets.bak"));
}

TEST(UpdateTargets, NamesTheLevelsWithoutATime)
{
    const TemporaryFolder folder;
    fill(folder);
    EXPECT_NE(
        run(folder, {"--page", "-"}, "no records")
            .error.find("standard input: 0 of 54 records found, no time of the form MM:SS:HH for levels 1 to 54;"),
        std::string::npos);
    // Rows hold levels r and r + 27: the times of levels 1, 2, 28, 29 and 5.
    std::string page = sample("tests/data/records_page.html");
    const std::string marker = "align=\"right\">";
    std::size_t at = 0;
    for (int cell = 1; cell <= 9; ++cell) {
        at = page.find(marker, at) + marker.size();
        if (cell <= 4 || cell == 9) page.insert(at, "x");
    }
    EXPECT_NE(run(folder, {"--page", "-"}, page).error.find("for levels 1, 2, 5, 28, 29;"), std::string::npos);
    EXPECT_FALSE(folder.has("targets.txt"));
}

TEST(UpdateTargets, ByForceWritesWhatTheWindowWould)
{
    const TemporaryFolder folder;
    fill(folder);
    folder.write("targets.txt", sample("tests/data/records_page_targets.txt"));
    const std::string page = kavo::replaceAll(sample("tests/data/records_page.html"), ">14,42<", ">n/a<");
    const Outcome outcome = run(folder, {"--force", "--page", "-"}, page);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: " + (folder / "targets.txt").string() +
                                 ": 53 of 54 records found, no time of the form MM:SS:HH for level 1; 1 changed\n"
                                 "kavo-timing-cli: level 1: 00:14:42 -> natd\n");
    const TemporaryFolder other;
    fill(other);
    kavo::rewriteTargets(other.path(), kavo::worldRecords(kavo::cutRecordTimes(page)));
    EXPECT_EQ(folder.read("targets.txt"), other.read("targets.txt"));
}

TEST(UpdateTargets, TakesNoEndlessInput)
{
    const TemporaryFolder folder;
    fill(folder);
    const std::string page = sample("tests/data/records_page.html");
    const std::string largest = page + std::string(kavo::kLargestPage - page.size(), ' ');
    EXPECT_EQ(run(folder, {"--page", "-"}, largest).status, 0);
    const Outcome outcome = run(folder, {"--page", "-"}, largest + " ");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: File too large: standard input (more than 4 MiB)\n");
}

TEST(UpdateTargets, SaysWhyAPageCannotBeRead)
{
    const TemporaryFolder folder;
    fill(folder);
    const std::string path = folder.path().string();
    const std::string none = (folder / "none.html").string();
    EXPECT_EQ(run(folder, {"--page", none}).error,
              "kavo-timing-cli: File not found: " + none + " (No such file or directory)\n");
    EXPECT_EQ(run(folder, {"--page", path}).error,
              "kavo-timing-cli: Path/File access error: " + path + " (Is a directory)\n");
#ifndef _WIN32  // which does not tell that from a file that is missing
    const std::string inFile = (folder / "targets_old.txt/page.html").string();
    EXPECT_EQ(run(folder, {"--page", inFile}).error,
              "kavo-timing-cli: Path not found: " + inFile + " (Not a directory)\n");
#endif
}

TEST(UpdateTargets, MissingPageEndsWithAnErrorAndTouchesNothing)
{
    const TemporaryFolder folder;
    fill(folder);
    folder.write("targets.txt", "good\r\n");
    const Outcome outcome = run(folder, {"--page", (folder / "no-page.html").string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("File not found"), std::string::npos) << outcome.error;
    EXPECT_EQ(folder.read("targets.txt"), "good\r\n");
}

TEST(UpdateTargets, MissingFixedTargetsEndWithAnErrorAndTouchNothing)
{
    const TemporaryFolder folder;
    folder.write("targets.txt", "good\r\n");
    const Outcome outcome = run(folder, {"--page", "-"}, sample("tests/data/records_page.html"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("targets_old.txt"), std::string::npos) << outcome.error;
    EXPECT_EQ(folder.read("targets.txt"), "good\r\n");
}

TEST(UpdateTargets, PageWithoutAnEndIsAnErrorAndTouchesNothing)
{
    const TemporaryFolder folder;
    fill(folder);
    folder.write("targets.txt", "good\r\n");
    const auto folderOption = folder.path().string();
    const std::vector<const char*> argv = {"kavo-timing-cli", "--program-folder", folderOption.c_str(),
                                           "update-targets",  "--page",           "-"};
    std::FILE* endless = std::fopen("/dev/zero", "rb");
    const kavo::test::StreamFile error;
    const int status = kavo::runCommandLine(static_cast<int>(argv.size()), argv.data(),
                                            {.in = endless, .out = stdout, .error = error.file(), .output = {}});
    std::fclose(endless);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(error.content(), "kavo-timing-cli: File too large: standard input (more than 4 MiB)\n");
    EXPECT_EQ(folder.read("targets.txt"), "good\r\n");
}

#ifndef _WIN32

TEST(UpdateTargets, WaitsForNothingButStandardInput)
{
    const TemporaryFolder folder;
    fill(folder);
    const std::string pipe = (folder / "page.html").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& page : {pipe, std::string("/dev/zero")})
        EXPECT_EQ(run(folder, {"--page", page.c_str()}).error,
                  "kavo-timing-cli: Path/File access error: " + page + "\n");
}

#endif

TEST(UpdateTargets, PageOfATerabyteIsAnErrorAtOnce)
{
    const TemporaryFolder folder;
    fill(folder);
    folder.enlarge("page.html");
    const std::string page = (folder / "page.html").string();
    EXPECT_EQ(run(folder, {"--page", page}).error, "kavo-timing-cli: File too large: " + page + " (more than 4 MiB)\n");
    EXPECT_FALSE(folder.has("targets.txt"));
}

TEST(UpdateTargets, NeedsAPage)
{
    const TemporaryFolder folder;
    fill(folder);
    EXPECT_EQ(run(folder, {}).status, 2);
    EXPECT_EQ(run(folder, {"--page"}).status, 2);
    EXPECT_FALSE(folder.has("targets.txt"));
}
