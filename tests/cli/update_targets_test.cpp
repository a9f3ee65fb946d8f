#include "base/text_file.h"
#include "tests/support/command_line.h"
#include "tests/support/places.h"

#include <gtest/gtest.h>

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

TEST(UpdateTargets, NeedsAPage)
{
    const TemporaryFolder folder;
    fill(folder);
    EXPECT_EQ(run(folder, {}).status, 2);
    EXPECT_EQ(run(folder, {"--page"}).status, 2);
    EXPECT_FALSE(folder.has("targets.txt"));
}
