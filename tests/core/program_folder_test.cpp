#include "core/program_folder.h"

#include "base/run_time_error.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace fs = std::filesystem;

namespace kavo {

namespace {

using test::TemporaryFolder;

std::string errorOf(const ProgramFolderSources& sources)
{
    try {
        static_cast<void>(findProgramFolder(sources));
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return "no error";
}

/// A folder that cannot be written, because it is none.
const char* const kNoFolder = "/proc/self/cmdline";

TEST(ProgramFolder, IsTheOneNamedBeforeAnyOther)
{
    const TemporaryFolder folder;
    for (const char* name : {"option", "environment", "executable"}) fs::create_directory(folder / name);
    ProgramFolderSources sources;
    sources.executableFolder = folder / "executable";
    EXPECT_EQ(findProgramFolder(sources), folder / "executable");
    sources.environment = (folder / "environment").string();
    EXPECT_EQ(findProgramFolder(sources), folder / "environment");
    sources.option = (folder / "OPTION").string();
    EXPECT_EQ(findProgramFolder(sources), folder / "option");
}

TEST(ProgramFolder, FailsWhenANamedFolderIsMissing)
{
    const TemporaryFolder folder;
    ProgramFolderSources sources;
    sources.executableFolder = folder.path();
    sources.option = (folder / "none").string();
    EXPECT_EQ(errorOf(sources), "Path not found: none");
    folder.write("file", "");
    sources.option = (folder / "file").string();
    EXPECT_EQ(errorOf(sources), "Path not found: file");
}

TEST(ProgramFolder, IsAbsolute)
{
    ProgramFolderSources sources;
    sources.option = ".";
    EXPECT_TRUE(findProgramFolder(sources).is_absolute());
}

TEST(ProgramFolder, IsMadeAndSuppliedInTheDataHome)
{
    const TemporaryFolder folder;
    folder.write("share/targets.txt", "t");
    folder.write("share/links.txt", "l");
    folder.write("share/other.txt", "o");
    ProgramFolderSources sources;
    sources.executableFolder = kNoFolder;
    sources.dataHome = (folder / "data").string();
    sources.suppliedFiles = folder / "share";
    EXPECT_EQ(findProgramFolder(sources), folder / "data/kavo-timing");
    EXPECT_EQ(folder.read("data/kavo-timing/targets.txt"), "t");
    EXPECT_EQ(folder.read("data/kavo-timing/links.txt"), "l");
    EXPECT_FALSE(folder.has("data/kavo-timing/other.txt"));
    EXPECT_FALSE(folder.has("data/kavo-timing/history.txt"));

    // Only when first missing: what the user changed or deleted stays so.
    fs::remove(folder / "data/kavo-timing/links.txt");
    folder.write("data/kavo-timing/targets.txt", "mine");
    EXPECT_EQ(findProgramFolder(sources), folder / "data/kavo-timing");
    EXPECT_EQ(folder.read("data/kavo-timing/targets.txt"), "mine");
    EXPECT_FALSE(folder.has("data/kavo-timing/links.txt"));
}

TEST(ProgramFolder, LiesInTheHomeByDefault)
{
    const TemporaryFolder folder;
    ProgramFolderSources sources;
    sources.executableFolder = kNoFolder;
    sources.home = folder.path().string();
    EXPECT_EQ(findProgramFolder(sources), folder / ".local/share/kavo-timing");
    sources.dataHome = "relative/is/ignored";
    EXPECT_EQ(findProgramFolder(sources), folder / ".local/share/kavo-timing");
}

TEST(ProgramFolder, FailsWhereNoneCanBe)
{
    ProgramFolderSources sources;
    sources.executableFolder = kNoFolder;
    EXPECT_EQ(errorOf(sources), "Path not found: kavo-timing");
    const TemporaryFolder folder;
    folder.write("file", "");
    sources.dataHome = (folder / "file").string();
    EXPECT_EQ(errorOf(sources), "Path not found: kavo-timing");
}

#ifndef _WIN32
/// Sets a variable of the environment for as long as it lives.
class EnvironmentValue
{
public:
    EnvironmentValue(const char* name, const char* value) : m_name(name)
    {
        if (const char* before = std::getenv(name)) m_before = before;
        ::setenv(name, value, 1);
    }
    ~EnvironmentValue()
    {
        if (m_before)
            ::setenv(m_name, m_before->c_str(), 1);
        else
            ::unsetenv(m_name);
    }
    EnvironmentValue(const EnvironmentValue&) = delete;
    EnvironmentValue& operator=(const EnvironmentValue&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

TEST(ProgramFolderSources, ComeFromOptionAndEnvironment)
{
    const EnvironmentValue folder("KAVO_PROGRAM_FOLDER", "/some/where");
    const EnvironmentValue dataHome("XDG_DATA_HOME", "");
    const EnvironmentValue home("HOME", "/home/ann");
    const ProgramFolderSources sources = programFolderSources("/option");
    EXPECT_EQ(sources.option, "/option");
    EXPECT_EQ(sources.environment, "/some/where");
    EXPECT_FALSE(sources.dataHome.has_value());
    EXPECT_EQ(sources.home, "/home/ann");
    EXPECT_TRUE(fs::exists(sources.executableFolder));
    EXPECT_EQ(sources.suppliedFiles, sources.executableFolder.parent_path() / "share/kavo-timing");
}
#endif

}  // namespace

}  // namespace kavo
