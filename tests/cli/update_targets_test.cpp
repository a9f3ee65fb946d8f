#include "base/text_file.h"
#include "tests/support/command_line.h"
#include "tests/support/places.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

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
                                            {.in = endless, .out = stdout, .error = error.file(), .terminal = {}});
    std::fclose(endless);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(error.content(), "kavo-timing-cli: File too large: standard input\n");
    EXPECT_EQ(folder.read("targets.txt"), "good\r\n");
}

TEST(UpdateTargets, PageOfATerabyteOrInPlaceOfAPageAPipeIsAnErrorAtOnce)
{
    const TemporaryFolder folder;
    fill(folder);
    folder.write("page.html", "");
    fs::resize_file(folder / "page.html", std::uintmax_t{1} << 40U);  // takes no room
    kavo::test::makePipe((folder / "pipe.html").string());
    EXPECT_EQ(run(folder, {"--page", (folder / "page.html").string()}).error,
              "kavo-timing-cli: File too large: page.html\n");
    EXPECT_EQ(run(folder, {"--page", (folder / "pipe.html").string()}).error,
              "kavo-timing-cli: Path/File access error: pipe.html\n");
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
