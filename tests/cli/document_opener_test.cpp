// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/document_opener.h"

#include "cli/command_error.h"
#include "tests/support/environment.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#ifdef _WIN32
#include "tests/support/recorded_office.h"
#endif

namespace fs = std::filesystem;

namespace kavo {
namespace {

#ifdef _WIN32

TEST(DocumentOpener, OpensAFileWithItsProgramWhateverItsName)
{
    if (!test::isThisWine()) GTEST_SKIP() << "would change what this system opens files with";
    const test::TemporaryFolder folder;
    folder.write("Отчёт.kavo-test", "times");
    const std::wstring copying = L"cmd.exe /c copy \"%1\" \"" + (folder / "seen").wstring() + L"\"";
    const test::ClassValue ending(L".kavo-test", L"kavo.test");
    const test::ClassValue program(L"kavo.test\\shell\\open\\command", copying);
    openDocument(folder / "Отчёт.kavo-test");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!(folder.has("seen") && folder.read("seen") == "times") && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    EXPECT_EQ(folder.read("seen"), "times");
}

TEST(DocumentOpener, TellsWhenThereIsNoSuchFile)
{
    EXPECT_THROW(openDocument("C:\\nowhere\\page.html"), CommandError);
}

#else

/// A folder of programs that is the only one; the opener in it is a script.
class DocumentOpener : public testing::Test
{
protected:
    void writeOpener(const std::string& script) const
    {
        programs.write("xdg-open", "#!/bin/sh\n" + script + "\n");
        fs::permissions(programs / "xdg-open", fs::perms::owner_all);
    }

    test::TemporaryFolder programs;
    test::EnvironmentValue path{"PATH", programs.path().string()};
};

TEST_F(DocumentOpener, GivesTheFileAsOneArgument)
{
    writeOpener("echo \"$# $1\" > " + (programs / "seen").string());
    openDocument("/a folder/page; touch x.html");
    EXPECT_EQ(programs.read("seen"), "1 /a folder/page; touch x.html\n");
}

TEST_F(DocumentOpener, TellsWhenThereIsNone)
{
    EXPECT_THROW(openDocument("/page.html"), CommandError);
}

TEST_F(DocumentOpener, TellsWhenItKnowsNoBrowser)
{
    writeOpener("exit 3");
    try {
        openDocument("/page.html");
        FAIL();
    } catch (const CommandError& error) {
        EXPECT_STREQ(error.what(), "No program was found that opens /page.html; open it with a browser of yours");
    }
}

#endif

}  // namespace
}  // namespace kavo
