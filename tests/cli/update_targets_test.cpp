#include "cli/commands.h"
#include "core/text_file.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using kavo::test::TemporaryFolder;

namespace {

struct Outcome
{
    int status = 0;
    std::string out;
    std::string error;
};

Outcome run(const TemporaryFolder& folder, std::vector<std::string> arguments, const std::string& input = "")
{
    const std::string folderText = folder.path().string();
    std::vector<const char*> argv = {"kavo-timing-cli", "--program-folder", folderText.c_str(), "update-targets"};
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream error;
    const int status = kavo::runCommandLine(static_cast<int>(argv.size()), argv.data(), {in, out, error});
    return {status, out.str(), error.str()};
}

std::string sample(const char* name)
{
    return kavo::readFile(fs::path(KAVO_SOURCE_FOLDER) / name);
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
        run(folder, {"--page", (fs::path(KAVO_SOURCE_FOLDER) / "tests/data/records_page.html").string()});
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
