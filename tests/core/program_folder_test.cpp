// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/program_folder.h"

#include "base/run_time_error.h"
#include "tests/support/environment.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

#include <vector>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

namespace {

using test::asCompared;
using test::EnvironmentValue;
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
    EXPECT_EQ(asCompared(findProgramFolder(sources)), asCompared(folder / "option"));
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
    folder.write("share/targets_old.txt", "old");
    folder.write("share/links.txt", "l");
    folder.write("share/other.txt", "o");
    ProgramFolderSources sources;
    sources.executableFolder = kNoFolder;
    sources.dataHome = (folder / "data").string();
    sources.suppliedFiles = folder / "share";
    EXPECT_EQ(findProgramFolder(sources), folder / "data/kavo-timing");
    EXPECT_EQ(folder.read("data/kavo-timing/targets.txt"), "t");
    EXPECT_EQ(folder.read("data/kavo-timing/targets_old.txt"), "old");
    EXPECT_EQ(folder.read("data/kavo-timing/links.txt"), "l");
    EXPECT_FALSE(folder.has("data/kavo-timing/other.txt"));
    EXPECT_FALSE(folder.has("data/kavo-timing/history.txt"));
    folder.write("share/history.txt", "h");
    sources.dataHome = (folder / "other data").string();
    EXPECT_EQ(findProgramFolder(sources), folder / "other data/kavo-timing");
    EXPECT_EQ(folder.read("other data/kavo-timing/history.txt"), "h");
    sources.dataHome = (folder / "data").string();

    // Only when first missing: what the user changed or deleted stays so.
    fs::remove(folder / "data/kavo-timing/links.txt");
    folder.write("data/kavo-timing/targets.txt", "mine");
    EXPECT_EQ(findProgramFolder(sources), folder / "data/kavo-timing");
    EXPECT_EQ(folder.read("data/kavo-timing/targets.txt"), "mine");
    EXPECT_FALSE(folder.has("data/kavo-timing/links.txt"));
}

TEST(ProgramFolder, IsCompleteAlsoAfterAFirstStartThatWasKilled)
{
    const TemporaryFolder folder;
    folder.write("share/targets.txt", "t");
    folder.write("share/links.txt", "l");
    folder.write("data/.kavo-timing-new/targets.txt", "t");
    folder.write("data/.kavo-timing-new/.kavo-0-1.tmp", "half");
    ProgramFolderSources sources;
    sources.executableFolder = kNoFolder;
    sources.dataHome = (folder / "data").string();
    sources.suppliedFiles = folder / "share";
    EXPECT_EQ(findProgramFolder(sources), folder / "data/kavo-timing");
    EXPECT_EQ(folder.read("data/kavo-timing/links.txt"), "l");
    EXPECT_FALSE(folder.has("data/.kavo-timing-new"));
}

#ifndef _WIN32

TEST(ProgramFolder, IsNotThatOfTheExecutableWhereTheUserMayNotWrite)
{
    const TemporaryFolder folder;
    for (const char* name : {"bin", "data"}) fs::create_directory(folder / name);
    for (const char* name : {".", "bin", "data"}) fs::permissions(folder / name, fs::perms{0777});
    ProgramFolderSources sources;
    sources.executableFolder = folder / "bin";
    sources.dataHome = (folder / "data").string();
    const auto foundByStranger = [&sources] {
        return test::asStranger([&sources] { return findProgramFolder(sources).string(); });
    };
    EXPECT_EQ(foundByStranger(), (folder / "bin").string());
    fs::permissions(folder / "bin", fs::perms{0555});
    EXPECT_EQ(foundByStranger(), (folder / "data/kavo-timing").string());
}

TEST(ProgramFolder, IsMadeByFirstStartsAtTheSameMoment)
{
    const TemporaryFolder folder;
    folder.write("share/targets.txt", "t");
    folder.write("share/links.txt", "l");
    ProgramFolderSources sources;
    sources.executableFolder = kNoFolder;
    sources.dataHome = (folder / "data").string();
    sources.suppliedFiles = folder / "share";
    std::vector<pid_t> starts(4);
    for (pid_t& start : starts) {
        start = ::fork();
        if (start == 0) ::_exit(errorOf(sources) == "no error" ? 0 : 1);
    }
    for (const pid_t start : starts) {
        int status = -1;
        ::waitpid(start, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(folder.read("data/kavo-timing/targets.txt"), "t");
    EXPECT_EQ(folder.read("data/kavo-timing/links.txt"), "l");
}

#endif

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
TEST(ProgramFolder, IsNotFoundFromAWorkingFolderThatWasDeleted)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "gone");
    const fs::path before = fs::current_path();
    fs::current_path(folder / "gone");
    fs::remove(folder / "gone");
    ProgramFolderSources sources;
    sources.option = "data";
    const std::string error = errorOf(sources);
    sources.option = folder.path().string();
    const fs::path found = findProgramFolder(sources);
    fs::current_path(before);
    EXPECT_EQ(error, "Path not found: data");
    EXPECT_EQ(found, folder.path());
}
#endif

TEST(ProgramFolderSources, ComeFromOptionAndEnvironment)
{
    const EnvironmentValue folder("KAVO_PROGRAM_FOLDER", "/some/where");
    const EnvironmentValue dataHome("XDG_DATA_HOME", "");
    const EnvironmentValue home("HOME", "/home/ann");
    const EnvironmentValue localData("LOCALAPPDATA", "C:\\Users\\Ж");
    const ProgramFolderSources sources = programFolderSources("/option");
    EXPECT_EQ(sources.option, "/option");
    EXPECT_EQ(sources.environment, "/some/where");
#ifdef _WIN32
    EXPECT_EQ(sources.dataHome, "C:\\Users\\Ж");
    EXPECT_FALSE(sources.home.has_value());
#else
    EXPECT_FALSE(sources.dataHome.has_value());
    EXPECT_EQ(sources.home, "/home/ann");
#endif
    EXPECT_TRUE(fs::exists(sources.executableFolder));
    EXPECT_EQ(sources.suppliedFiles, sources.executableFolder);  // the tests are not installed
}

#ifndef _WIN32
TEST(ProgramFolderSources, OfTheEnvironmentMayBeMissing)
{
    const EnvironmentValue folder("KAVO_PROGRAM_FOLDER", "");
    const EnvironmentValue dataHome("XDG_DATA_HOME", "/data");
    const EnvironmentValue home("HOME", "");
    const ProgramFolderSources sources = programFolderSources(std::nullopt);
    EXPECT_FALSE(sources.option.has_value());
    EXPECT_FALSE(sources.environment.has_value());
    EXPECT_EQ(sources.dataHome, "/data");
    EXPECT_FALSE(sources.home.has_value());
}
#endif

TEST(SuppliedFolder, OfAPortableCopyComesBeforeThatOfAnInstallation)
{
    const TemporaryFolder folder;
    for (const char* name : {"program", "bin"}) fs::create_directory(folder / name);
    const auto found = [&] { return findSuppliedFolder(folder / "program", folder / "bin", "templates"); };
    EXPECT_EQ(found(), fs::path());
    fs::create_directories(folder / "share/kavo-timing/templates");
    EXPECT_EQ(found(), folder / "share/kavo-timing/templates");
    fs::create_directory(folder / "bin/templates");
    EXPECT_EQ(found(), folder / "bin/templates");
    fs::create_directory(folder / "program/Templates");
    EXPECT_EQ(asCompared(found()), asCompared(folder / "program/Templates"));
}

TEST(SuppliedFolder, IsNoFileOfThatName)
{
    const TemporaryFolder folder;
    folder.write("program/templates", "");
    EXPECT_EQ(findSuppliedFolder(folder / "program", folder / "bin", "templates"), fs::path());
}

}  // namespace

}  // namespace kavo
