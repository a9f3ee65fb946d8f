// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/document_opener.h"

#include "cli/command_error.h"
#include "tests/support/history_home.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace fs = std::filesystem;

namespace kavo {
namespace {

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

}  // namespace
}  // namespace kavo
